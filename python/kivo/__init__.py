"""Dates, times and numbers in fixed-width fields, for numpy, pandas and Dask.

kivo.format(values, "DATE9.") writes each value as the field kivodt writes; kivo.informat(texts,
"ANYDTDTE") reads each text back into a number; kivo.guess(texts) says which informat reads them. Day serials count days from 1 January 1960, seconds
serials seconds from its midnight; numpy's datetime64 and timedelta64, pandas' columns and Python's
dates, datetimes and times are taken by their kind. A result has the shape of what was given: a
scalar, an array of any shape, a Series with its index and name.

With pandas, a Series has the accessor series.kivo.format / .informat / .missing_codes / .guess; with Dask,
a Dask Series has series.kivo.format / .informat.
"""

from ._convert import catalog, format, informat, missing_codes
from ._guess import Guess, guess
from ._version import __version__

__all__ = ["Guess", "catalog", "format", "guess", "informat", "missing_codes", "__version__"]

try:
    from . import _pandas  # noqa: F401  (registers the Series accessor)
except ImportError:  # pandas is optional
    pass
else:
    try:
        from . import _dask  # noqa: F401  (registers the Dask Series accessor)
    except ImportError:  # so is Dask
        pass
