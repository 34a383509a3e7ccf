"""ddf["shipped"].kivo.format("DATE9.") and .kivo.informat("ANYDTDTE"): the package's functions on a
Dask Series, one call per partition, each partition converted as a whole on the worker that holds it.
The result's meta is object for fields and float64 for values (datetime64[ns] or timedelta64[ns] with
as_datetime, as a pandas partition holds them)."""

import numpy as np
import pandas as pd
from dask.dataframe.extensions import register_series_accessor

from . import _kivo

_DATETIME_DTYPES = {"day": "datetime64[ns]", "datetime": "datetime64[ns]", "time": "timedelta64[ns]"}


def _format_partition(part, spec, options):
    return part.kivo.format(spec, **options)


def _informat_partition(part, spec, options):
    return part.kivo.informat(spec, **options)


@register_series_accessor("kivo")
class DaskKivoAccessor:
    def __init__(self, series):
        self._series = series

    def _partitions(self, convert, spec, options, dtype):
        meta = pd.Series(np.array([], dtype=dtype), name=self._series.name)
        return self._series.map_partitions(convert, spec, options, meta=meta)

    def format(self, spec, **options):
        """kivo.format of each partition: a Dask Series of fields."""
        _kivo.describe_format(spec)  # a bad spec is refused here, not on a worker
        return self._partitions(_format_partition, spec, options, object)

    def informat(self, spec, **options):
        """kivo.informat of each partition: a Dask Series of values."""
        kind = _kivo.describe_informat(spec)["kind"]
        dtype = _DATETIME_DTYPES.get(kind, np.float64) if options.get("as_datetime") else np.float64
        return self._partitions(_informat_partition, spec, options, dtype)
