"""What a conversion was given, so that its result comes back in the same shape: a scalar, a numpy
array of any shape, a list (a one-dimensional array, or as many dimensions as its nesting), a pandas
Series (its index and name kept) or Index (its name kept)."""

import numpy as np

try:
    import pandas as pd
except ImportError:  # pandas is optional
    pd = None


def _is_pandas(values):
    return pd is not None and isinstance(values, (pd.Series, pd.Index))


class Shape:
    """One call's container: `flat` is its items in one dimension (C order); rebuild() gives a flat
    result the container's shape."""

    def __init__(self, values, flat, shape=None, scalar=False):
        self.pandas = values if _is_pandas(values) else None
        self.flat = flat
        self.shape = shape
        self.scalar = scalar

    def rebuild(self, result):
        if self.scalar:
            return result[0]
        if isinstance(self.pandas, pd.Series if pd is not None else ()):
            return pd.Series(result, index=self.pandas.index, name=self.pandas.name)
        if self.pandas is not None:
            return pd.Index(result, name=self.pandas.name)
        return result.reshape(self.shape)


def native(flat):
    """Items in one block in the machine's byte order, as the native module reads them."""
    return np.ascontiguousarray(flat, dtype=flat.dtype.newbyteorder("="))


def _objects(values):
    array = np.empty(len(values), dtype=object)
    array[:] = values
    return array


def take(values, pandas_items):
    """The container of `values` and its items. pandas_items(series_or_index) gives the items of a
    pandas container as a one-dimensional numpy array."""
    if _is_pandas(values):
        return Shape(values, pandas_items(values))
    if isinstance(values, np.ndarray):
        return Shape(values, values.reshape(-1), values.shape)
    if isinstance(values, (list, tuple)):
        nested = len(values) > 0 and isinstance(values[0], (list, tuple, np.ndarray))
        array = np.array(values, dtype=object) if nested else _objects(values)
        return Shape(values, array.reshape(-1), array.shape)
    if isinstance(values, (np.datetime64, np.timedelta64)):
        return Shape(values, np.array([values]), scalar=True)
    return Shape(values, _objects([values]), scalar=True)
