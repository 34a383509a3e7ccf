"""series.kivo.format("DATE9.") and series.kivo.informat("ANYDTDTE", as_datetime=True)."""

import pandas as pd

from ._convert import format as _format
from ._convert import informat as _informat


@pd.api.extensions.register_series_accessor("kivo")
class KivoAccessor:
    def __init__(self, series):
        self._series = series

    def format(self, spec, **options):
        return pd.Series(_format(self._series, spec, **options), index=self._series.index, name=self._series.name)

    def informat(self, spec, **options):
        return pd.Series(_informat(self._series, spec, **options), index=self._series.index, name=self._series.name)
