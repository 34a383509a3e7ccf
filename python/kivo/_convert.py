"""The conversions: whatever a user holds in, the same shape out, through the native module."""

import numpy as np

from . import _kivo, _shapes, _values

# The numpy units of informat results: days for a date; microseconds, which hold the host's whole
# calendar (1582 to 20000), for a datetime or time. A pandas column holds nanoseconds only.
_NUMPY_UNITS = {"day": "D", "datetime": "us", "time": "us"}
_PER_SECOND = {"D": 0, "us": 10**6, "ns": 10**9}


def catalog():
    """Every format and informat, as `kivodt list` shows them: a list of dicts with kind ("format" or
    "informat"), name, min_width, max_width, default_width, max_decimals, decimals_below_width and
    value_kind ("day", "datetime", "time" or "number")."""
    return _kivo.catalog()


def format(values, spec, *, missing_char=None):
    """Each value as the field `spec` writes ("DATE9.", "TIME12.3", "BEST12."), exactly the field
    `kivodt format` writes.

    Values, by kind:
    - numbers (int, float, bool, numpy numbers, nullable Int64 / Float64 / boolean columns): serials as
      they are, a day serial (days from 1960-01-01) or a seconds serial, whatever the format shows;
    - dates (datetime64 of Y, M, W or D; datetime.date): a date format shows the day, a datetime format
      its midnight;
    - datetimes (datetime64 of h ... as; pandas datetime64 columns; Timestamp and datetime.datetime):
      a datetime format shows the instant, a date format its day. A zone-aware column, Index, Timestamp
      or datetime shows its wall time in its own zone;
    - times (timedelta64 of W ... as, pandas Timedelta, datetime.timedelta; datetime.time as the time of
      its day): the time formats, in seconds;
    - missing: None, NaN, NaT, pd.NA and the NA of nullable columns give the missing value.
    A date or datetime given to a time format, or a time to a date or datetime format, is a ValueError
    naming both kinds. Text, even "22356", is a TypeError: kivo.informat reads text. Number formats
    (BEST, w.d ...) show the serial of any kind. Counts of datetime64 and timedelta64 are exact for
    every unit over the host's whole calendar.

    Returns the shape given: a str for a scalar (bytes for the formats that write bytes, PDJULG and
    PDJULI), a numpy '<U{width}' array ('S{width}') of the same shape for an array or list, a Series
    with the same index and name for a Series (str or bytes objects), an Index for an Index.
    missing_char (one character) replaces "." in the fields of missing values, for this call only.
    """
    _kivo.describe_format(spec)  # a bad spec is refused before the values are looked at
    shape = _shapes.take(values, _values.pandas_items)
    serials = _values.serials(shape.flat, spec)
    objects = shape.pandas is not None or shape.scalar  # str or bytes objects, each exactly its field
    return shape.rebuild(_kivo.format_values(spec, serials, _option_byte(missing_char), objects))


def _option_byte(character):
    """The missing character as the one byte the host takes: a character below U+0100 is its byte."""
    if character is None:
        return None
    try:
        return str(character).encode("latin-1")
    except UnicodeEncodeError:
        raise ValueError(f"missing_char takes one character from U+0000 to U+00FF, not {character!r}") from None


def _pandas_as_is(values):
    return np.asarray(values.to_numpy()).reshape(-1)


def informat(texts, spec, *, datestyle=None, yearcutoff=None, errors="coerce", as_datetime=False):
    """Each text read with `spec` ("ANYDTDTE", "DDMMYY10."), as `kivodt informat` reads it.

    Texts: str (read as UTF-8) and bytes (as they are; the binary informats such as PDJULG read
    bytes), alone, in lists, numpy 'U', 'S' or object arrays, and pandas object or string columns.
    None, NaN, NaT, pd.NA and an empty or blank text are a value left out: the missing value, never an
    error. Anything else is a TypeError.

    Values: float64 day serials, seconds serials or seconds by the informat's kind; a missing-value
    notation (".", "._", ".A") gives that missing value (see missing_codes). A text the informat cannot
    read wholly - rejected, with bytes past the width, a free-form read that found nothing, ANYDTDTE's
    day 0 for "." or a bare time - is NaN with errors="coerce", and with errors="raise" a ValueError
    naming the first such text, its position and why.

    as_datetime=True gives datetime64[D] for a date informat, datetime64[us] for a datetime and
    timedelta64[us] for a time, which hold the whole calendar; a pandas Series or Index gets
    datetime64[ns] / timedelta64[ns], as pandas requires, and a value nanoseconds cannot hold (before
    1677, after 2262) is NaT with errors="coerce", a ValueError with errors="raise".

    Returns the shape given: a float (or a numpy datetime64 / timedelta64) for a scalar, an array of
    the same shape, a Series with the same index and name, an Index. datestyle ("dmy", "mdy", "ymd" ...
    or "locale") and yearcutoff (1582-19900) apply to this call only.
    """
    if errors not in ("coerce", "raise"):
        raise ValueError('errors is "coerce" or "raise"')
    informat_kind = _kivo.describe_informat(spec)["kind"]
    if as_datetime and informat_kind == "number":
        raise ValueError(f"{spec} reads no date, datetime or time")
    shape = _shapes.take(texts, _pandas_as_is)
    values = _kivo.informat_texts(spec, _text_items(shape.flat), _values.MISSING_OBJECTS, datestyle,
                                  None if yearcutoff is None else str(yearcutoff), errors == "raise")
    if as_datetime:
        values = _datetimes(values, informat_kind, "ns" if shape.pandas is not None else _NUMPY_UNITS[informat_kind],
                            errors)
    elif shape.scalar:
        return float(values[0])
    return shape.rebuild(values)


def _text_items(flat):
    return _shapes.native(flat) if flat.dtype.kind in "USO" else flat  # the native module refuses the rest


def _datetimes(values, kind, unit, errors):
    """Serials of the informat's kind as datetime64 or timedelta64 of `unit`."""
    counts, first_bad = _kivo.datetime_counts(values, kind, _PER_SECOND[unit])
    dtype = np.dtype(f"{'m' if kind == 'time' else 'M'}8[{unit}]")
    if first_bad >= 0 and errors == "raise":
        raise ValueError(f"the value {values[first_bad]!r} at position {first_bad} lies outside what {dtype} can hold")
    return counts.view(dtype)


def missing_codes(values):
    """The missing-value code of each item, as the host tells it: "." for the ordinary missing value
    (NaN, None and an empty text too), "_" or a letter for a special one (".A" read by an informat),
    "" for anything else. Takes the values kivo.informat returns, or texts such as ".A"; returns the
    shape given ('<U1' arrays, a str for a scalar)."""
    shape = _shapes.take(values, _pandas_as_is)
    flat = shape.flat
    if flat.dtype.kind == "O" and _values.numbers_only(flat):
        flat = flat.astype(np.float64)
    if flat.dtype.kind in "biuf":
        codes = _kivo.missing_codes_of_values(flat)
    else:
        codes = _kivo.missing_codes_of_texts(_text_items(flat), _values.MISSING_OBJECTS)
    return str(codes[0]) if shape.scalar else shape.rebuild(codes)
