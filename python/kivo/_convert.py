"""The conversions: numpy arrays in, numpy arrays out, through the native module."""

import numbers

import numpy as np

from . import _kivo

# numpy counts from 1970-01-01, the library from 1960-01-01: 3653 days earlier.
EPOCH_SHIFT_DAYS = 3653
SECONDS_PER_DAY = 86400
_MISSING_MASK = np.uint64(0xFFFF000000000000)


def catalog():
    """Every format and informat: name, widths, default width, decimals, kind of value."""
    return _kivo.catalog()


def _as_values(values):
    """Numbers, sequences, arrays of any real dtype, Series or datetime64 values as float64 serials."""
    if hasattr(values, "to_numpy"):  # a pandas Series or Index
        values = values.to_numpy()
    if isinstance(values, (numbers.Real, np.datetime64)):
        values = [values]
    array = np.asarray(values)
    if array.dtype.kind == "M":
        unit, _ = np.datetime_data(array.dtype)
        if unit in ("Y", "M", "W", "D"):
            days = array.astype("datetime64[D]")
            serials = days.astype(np.int64).astype(np.float64) + EPOCH_SHIFT_DAYS
        else:
            ns = array.astype("datetime64[ns]").astype(np.int64)
            serials = ns / 1e9 + EPOCH_SHIFT_DAYS * SECONDS_PER_DAY
        serials[np.isnat(array)] = np.nan
        return serials
    if array.dtype.kind == "m":
        seconds = array.astype("timedelta64[ns]").astype(np.int64) / 1e9
        seconds[np.isnat(array)] = np.nan
        return seconds
    if array.dtype.kind == "O":
        array = np.array([np.nan if v is None else v for v in array.ravel()], dtype=np.float64)
    if array.dtype.kind not in "biuf":
        raise TypeError(f"kivo.format takes real numbers or datetime64 values, not {array.dtype}")
    return np.ascontiguousarray(array, dtype=np.float64).ravel()


def format(values, spec, *, missing_char=None):
    """Each value as the field `spec` writes ("DATE9.", "TIME12.3", "BEST12."): a numpy array of
    fixed-width strings ('S' bytes for the formats that write bytes). NaN is the ordinary missing value."""
    _kivo.describe_format(spec)  # a bad spec is refused before the values are looked at
    return _kivo.format_values(spec, _as_values(values), missing_char)


def _as_texts(texts):
    if hasattr(texts, "to_numpy"):
        texts = texts.to_numpy()
    if isinstance(texts, (str, bytes)):
        texts = [texts]
    encoded = []
    for position, text in enumerate(np.asarray(texts, dtype=object).ravel()):
        if text is None or (isinstance(text, float) and np.isnan(text)):
            encoded.append(b"")
        elif isinstance(text, bytes):
            encoded.append(text)
        elif isinstance(text, (str, np.str_)):
            encoded.append(str(text).encode("utf-8"))
        else:
            raise TypeError(f"kivo.informat reads text; item {position} is {type(text).__name__}")
    offsets = np.zeros(len(encoded) + 1, dtype=np.uint64)
    np.cumsum([len(t) for t in encoded], out=offsets[1:])
    return encoded, b"".join(encoded), offsets


def _as_datetimes(values, kind, errors):
    """Serials as datetime64 / timedelta64, NaT for missing values and those the dtype cannot hold."""
    if kind == "day":
        days = values - EPOCH_SHIFT_DAYS
        limit = np.datetime64("9999-12-31").astype(np.int64)
        bad = ~np.isnan(days) & (np.abs(days) > limit)
        result = np.where(np.isnan(days) | bad, np.iinfo(np.int64).min, days).astype(np.int64).view("datetime64[D]")
    else:
        seconds = values - (EPOCH_SHIFT_DAYS * SECONDS_PER_DAY if kind == "datetime" else 0)
        bad = ~np.isnan(seconds) & (np.abs(seconds) >= 9.2e9)
        ns = np.where(np.isnan(seconds) | bad, 0, np.round(seconds * 1e9))
        ns = ns.astype(np.int64)
        ns[np.isnan(seconds) | bad] = np.iinfo(np.int64).min
        result = ns.view("datetime64[ns]" if kind == "datetime" else "timedelta64[ns]")
    if errors == "raise" and bad.any():
        raise ValueError(f"value at position {int(np.argmax(bad))} lies outside what {result.dtype} can hold")
    return result


def informat(texts, spec, *, datestyle=None, yearcutoff=None, errors="coerce", as_datetime=False):
    """Each text read with `spec` ("ANYDTDTE", "DDMMYY10."): float64 serials, NaN for missing values and
    (errors="coerce") for rejected texts; errors="raise" raises ValueError naming the first rejected text.
    datestyle and yearcutoff apply to this call only. as_datetime gives datetime64 / timedelta64."""
    if errors not in ("coerce", "raise"):
        raise ValueError('errors is "coerce" or "raise"')
    described = _kivo.describe_informat(spec)
    encoded, column, offsets = _as_texts(texts)
    values, accepted = _kivo.informat_texts(spec, column, offsets, datestyle,
                                            None if yearcutoff is None else str(yearcutoff))
    rejected = accepted == 0
    if rejected.any():
        if errors == "raise":
            position = int(np.argmax(rejected))
            raise ValueError(f"{described['name']} cannot read {encoded[position]!r} at position {position}")
        values[rejected] = np.nan
    if as_datetime:
        if described["kind"] not in ("day", "datetime", "time"):
            raise ValueError(f"{described['name']} reads no date, datetime or time")
        return _as_datetimes(values, described["kind"], errors)
    return values


def missing_codes(texts_or_values):
    """The missing-value code of each item: "." for the ordinary missing value, "_" or a letter for the
    special ones, "" for an item that is not missing. Values are those kivo.informat returned; texts are
    notations such as ".A"."""
    array = np.asarray(texts_or_values.to_numpy() if hasattr(texts_or_values, "to_numpy") else texts_or_values)
    if array.dtype.kind == "f":
        bits = np.ascontiguousarray(array, dtype=np.float64).view(np.uint64)
        missing = (bits & _MISSING_MASK) == _MISSING_MASK
        chars = ((bits >> np.uint64(40)) & np.uint64(0xFF)).astype(np.uint8)
        codes = np.where(np.isnan(array), ".", "")
        return np.where(missing & (chars != 0) & (chars != ord(".")),
                        np.array([chr(c) for c in chars], dtype="U1"), codes).astype("U1")
    codes = []
    for text in array.ravel():
        text = text.decode() if isinstance(text, bytes) else str(text)
        stripped = text.strip(" \t\0")
        if stripped == ".":
            codes.append(".")
        elif len(stripped) == 2 and stripped[0] == "." and (stripped[1] == "_" or stripped[1].isalpha()):
            codes.append(stripped[1].upper())
        else:
            codes.append("")
    return np.array(codes, dtype="U1")
