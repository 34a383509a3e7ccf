"""Dates, times and numbers in fixed-width fields, for numpy and pandas.

kivo.format(values, "DATE9.") writes each value as the field kivodt writes; kivo.informat(texts,
"ANYDTDTE") reads each text back into a number. Day serials count days from 1 January 1960, seconds
serials seconds from its midnight; numpy datetime64 values are shifted from numpy's 1970 epoch.
"""

from ._convert import catalog, format, informat, missing_codes

__all__ = ["catalog", "format", "informat", "missing_codes"]

try:
    from . import _pandas  # noqa: F401  (registers the Series accessor)
except ImportError:  # pandas is optional
    pass
