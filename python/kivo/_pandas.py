"""series.kivo.format("DATE9.") and series.kivo.informat("ANYDTDTE", as_datetime=True): the package's
functions on a pandas Series, which keep its index and name."""

import pandas as pd

from ._convert import format as _format
from ._convert import informat as _informat
from ._convert import missing_codes as _missing_codes
from ._guess import guess as _guess


@pd.api.extensions.register_series_accessor("kivo")
class KivoAccessor:
    def __init__(self, series):
        self._series = series

    def format(self, spec, **options):
        """kivo.format of the Series: a Series of fields (see kivo.format)."""
        return _format(self._series, spec, **options)

    def informat(self, spec, **options):
        """kivo.informat of the Series: a Series of values (see kivo.informat)."""
        return _informat(self._series, spec, **options)

    def missing_codes(self):
        """kivo.missing_codes of the Series."""
        return _missing_codes(self._series)

    def guess(self, **options):
        """kivo.guess of the Series: which informat reads it (see kivo.guess)."""
        return _guess(self._series, **options)
