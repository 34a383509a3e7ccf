"""The values a format is given, as the serials it takes. Each value's kind decides, as in kivodt
convert: a datetime shows its day in a date format, a date its midnight in a datetime format, and a
time (a duration) goes to the time formats only. Dates and times are counted exactly, in integers,
by the native module."""

import datetime
import numbers

import numpy as np

from . import _kivo, _shapes

try:
    import pandas as pd
except ImportError:  # pandas is optional
    pd = None

_EPOCH_ORDINAL = datetime.date(1970, 1, 1).toordinal()
_DAY_UNITS = ("Y", "M", "W", "D", "generic")
# Objects that are a missing value wherever they stand.
MISSING_OBJECTS = (pd.NA, pd.NaT) if pd is not None else ()


def _text_refused(what):
    return TypeError(f"kivo.format takes values, not text ({what}); kivo.informat reads text")


def pandas_items(values):
    """A Series' or Index's values in one numpy dimension: the wall time of a zone-aware column, and
    float64 with NaN for NA of the nullable Int64, Float64 and boolean columns."""
    dtype = values.dtype
    if isinstance(dtype, pd.DatetimeTZDtype):
        values = values.dt.tz_localize(None) if isinstance(values, pd.Series) else values.tz_localize(None)
    elif pd.api.types.is_extension_array_dtype(dtype) and dtype.kind in "biuf":
        return values.to_numpy(dtype=np.float64, na_value=np.nan)
    return np.asarray(values.to_numpy()).reshape(-1)


def _datetime_kind(dtype, unit):
    if dtype.kind == "m":
        if unit in ("Y", "M"):
            raise ValueError(f"{dtype} values have no fixed length in seconds")
        return "time"
    return "day" if unit in _DAY_UNITS else "datetime"


def _counted(dtype):
    """The unit, multiplier and kind of a datetime64 or timedelta64 dtype."""
    unit, multiplier = np.datetime_data(dtype)
    return unit, multiplier, _datetime_kind(dtype, unit)


def _object_item(item):
    """(kind, unit, multiplier), count of one object; (None, value) for a number or a missing value."""
    if item is None or any(item is missing for missing in MISSING_OBJECTS):
        return None, np.nan
    if isinstance(item, (str, bytes, np.str_, np.bytes_)):
        raise _text_refused(f"{type(item).__name__} {item!r}")
    if isinstance(item, (np.datetime64, np.timedelta64)):
        return _counted(item.dtype), int(item.astype(np.int64))
    if pd is not None and isinstance(item, pd.Timestamp):
        return ("ns", 1, "datetime"), (item.tz_localize(None) if item.tzinfo else item).value
    if isinstance(item, datetime.datetime):  # its wall time, in whatever zone it has
        seconds = (item.toordinal() - _EPOCH_ORDINAL) * 86400 + (item.hour * 60 + item.minute) * 60 + item.second
        return ("us", 1, "datetime"), seconds * 10**6 + item.microsecond
    if isinstance(item, datetime.date):
        return ("D", 1, "day"), item.toordinal() - _EPOCH_ORDINAL
    if pd is not None and isinstance(item, pd.Timedelta):
        return ("ns", 1, "time"), item.value
    if isinstance(item, datetime.timedelta):
        return ("us", 1, "time"), (item.days * 86400 + item.seconds) * 10**6 + item.microseconds
    if isinstance(item, datetime.time):  # a time of day
        return ("us", 1, "time"), ((item.hour * 60 + item.minute) * 60 + item.second) * 10**6 + item.microsecond
    if isinstance(item, (numbers.Real, np.bool_)):
        return None, float(item)
    raise TypeError(f"kivo.format takes numbers, dates, datetimes and times, not {type(item).__name__}")


def _object_serials(flat, spec):
    """Objects one by one, those of each kind and unit converted together."""
    result = np.empty(len(flat), dtype=np.float64)
    groups = {}
    for position, item in enumerate(flat):
        key, value = _object_item(item)
        if key is None:
            result[position] = value
        else:
            group = groups.setdefault(key, ([], [], f"{type(item).__name__} objects"))
            group[0].append(position)
            group[1].append(value)
    for (unit, multiplier, kind), (positions, counts, what) in groups.items():
        result[positions] = _kivo.serials(spec, np.array(counts, dtype=np.int64), unit, multiplier, kind, what)
    return result


def numbers_only(objects):
    """Whether an object array holds Python or numpy numbers only (timedelta64 is a numpy integer)."""
    return all(t in (float, int, bool) or (issubclass(t, (np.number, np.bool_)) and not issubclass(t, np.timedelta64))
               for t in set(map(type, objects)))


def serials(flat, spec):
    """The values of a one-dimensional array as the serials `spec` takes, float64."""
    kind = flat.dtype.kind
    if kind in "biuf":
        return np.asarray(flat, dtype=np.float64)
    if kind in "Mm":
        unit, multiplier, value_kind = _counted(flat.dtype)
        counts = _shapes.native(flat).view(np.int64)
        return _kivo.serials(spec, counts, unit, multiplier, value_kind, f"{flat.dtype} values")
    if kind == "O":
        if numbers_only(flat):
            return flat.astype(np.float64)  # one numpy cast
        return _object_serials(flat, spec)
    if kind in "US":
        raise _text_refused(f"{flat.dtype} values")
    raise TypeError(f"kivo.format takes numbers, dates, datetimes and times, not {flat.dtype} values")
