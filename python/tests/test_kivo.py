"""The kivo package against kivodt on the same inputs, and its intake of every value kind, unit,
missing value, zone and shape, its errors, options and accessors."""

import datetime
import os
import subprocess
import sys
from fractions import Fraction

import numpy as np
import pandas as pd
import pytest

import kivo

KIVODT = os.environ.get("KIVODT", "kivodt")
VALUES = [22356, 0, -1, 6589340, 45296.789, 1e9, float("nan")]
TEXTS = ["15JAN2000", "2000-01-15", "01/15/2000", "10:30 PM", "2021W0503", "0012345C", ".", "x", "", " 2000-01-15 "]
CATALOG = kivo.catalog()


def kivodt(*arguments, inputs):
    run = subprocess.run([KIVODT, *arguments], input="\n".join(inputs) + "\n", capture_output=True, text=True)
    return run.stdout.splitlines(), run.stderr


@pytest.mark.parametrize("entry", [e for e in CATALOG if e["kind"] == "format"], ids=lambda e: e["name"])
def test_formats_write_the_fields_of_kivodt(entry):
    spec = f"{entry['name'] if entry['name'] != 'w.d' else ''}{entry['default_width']}."
    fields = kivo.format(VALUES, spec)
    hex_option = ["--hex"] if fields.dtype.kind == "S" else []
    if hex_option:  # the array's buffer holds every byte of each field
        size = fields.itemsize
        fields = [fields.tobytes()[i:i + size].hex().upper() for i in range(0, fields.nbytes, size)]
    assert list(fields) == kivodt(*hex_option, "format", spec, inputs=[repr(v) for v in VALUES])[0]


@pytest.mark.parametrize("entry", [e for e in CATALOG if e["kind"] == "informat"], ids=lambda e: e["name"])
def test_informats_read_the_values_of_kivodt_and_nan_where_it_names_the_text(entry):
    reads_bytes = kivo._kivo.describe_informat(entry["name"])["reads_bytes"]
    hex_pairs = [t.isalnum() and len(t) % 2 == 0 and all(c in "0123456789ABCDEF" for c in t) for t in TEXTS]
    texts = [bytes.fromhex(t) if reads_bytes and pairs else t.encode() for t, pairs in zip(TEXTS, hex_pairs)]
    values = kivo.informat(texts, entry["name"])
    hex_option = ["--hex"] if reads_bytes else []
    inputs = [t.hex() if reads_bytes else t.decode() for t in texts]
    printed, messages = kivodt(*hex_option, "informat", entry["name"], inputs=inputs)
    for line, (value, text, shown) in enumerate(zip(values, texts, printed), start=1):
        if f"line {line}:" in messages:
            assert np.isnan(value) and kivo.missing_codes(value) == ".", (text, shown)
        elif text:  # kivodt passes a left-out (empty) text through as it came
            code = kivo.missing_codes(value)
            assert shown == (("." if code == "." else "." + code) if code else repr(value).removesuffix(".0")), text


def _datetime64(text, unit):
    return np.array([text], dtype=f"datetime64[{unit}]")


DATETIME = " 17MAR2021:13:45:30"
KIND_ROWS = [
    # value kinds and units: a datetime shows its day, a date its midnight, a time goes to the time formats
    (_datetime64("1600-01-01T00:00:00", "s"), "DATETIME19.", [" 01JAN1600:00:00:00"]),
    (np.array([200000], dtype="timedelta64[D]"), "TIME12.", ["  4800000:00"]),
    (pd.Series(pd.to_datetime(["2021-03-17"])), "DATE9.", ["17MAR2021"]),
    (_datetime64("2021-03-17T23:59:59.999999999", "ns"), "DATE9.", ["17MAR2021"]),
    (_datetime64("19999-12-31T13:45:30", "ms"), "DATE11.", ["31-DEC-****"]),
    (_datetime64("1582-01-01", "D"), "DATETIME19.", [" 01JAN1582:00:00:00"]),
    (_datetime64("2021-03", "M"), "DATE9.", ["01MAR2021"]),
    (_datetime64("2021", "Y"), "DATE9.", ["01JAN2021"]),
    (_datetime64("2021-03-17T13:45:30", "h"), "DATETIME19.", [" 17MAR2021:13:00:00"]),
    (np.array([49530, 0], dtype=">m8[s]")[::2], "TIME8.", ["13:45:30"]),
    (np.array([3, 0], dtype="timedelta64[W]"), "TIME9.", ["504:00:00", "  0:00:00"]),
    (np.array(["2021-03-17T13:45:30", "NaT"], dtype="datetime64[10s]"), "DATETIME19.", [DATETIME, " " * 18 + "."]),
    ([22356, 45296.789], "DATE9.", ["17MAR2021", "06JAN2084"]),
    (_datetime64("2021-03-17", "D"), "BEST8.", ["   22356"]),
    (_datetime64("1960-01-02T00:00:01", "s"), "BEST8.", ["   86401"]),
    # missing values
    ([None, np.nan, pd.NaT, pd.NA, np.datetime64("NaT")], "DATE9.", ["        ."] * 5),
    (pd.Series([22356, None], dtype="Int64"), "DATE9.", ["17MAR2021", "        ."]),
    (pd.Series([22356.0, None], dtype="Float64"), "DATE9.", ["17MAR2021", "        ."]),
    (pd.Series([True, None], dtype="boolean"), "DATE9.", ["02JAN1960", "        ."]),
    # zones: the wall time in the value's own zone
    (pd.Series(pd.to_datetime(["2021-03-17 13:45:30"])).dt.tz_localize("Asia/Tokyo"), "DATETIME19.", [DATETIME]),
    (pd.DatetimeIndex(["2021-03-17 13:45:30"], tz="America/New_York"), "DATETIME19.", [DATETIME]),
    ([pd.Timestamp("2021-03-17 13:45:30", tz="Europe/Paris")], "DATETIME19.", [DATETIME]),
    ([datetime.datetime(2021, 3, 17, 13, 45, 30, tzinfo=datetime.timezone(datetime.timedelta(hours=-5)))],
     "DATETIME19.", [DATETIME]),
    # objects
    ([pd.Timestamp("2021-03-17 13:45:30"), datetime.date(2021, 3, 17), datetime.datetime(2021, 3, 17, 13, 45, 30)],
     "DATE9.", ["17MAR2021"] * 3),
    ([datetime.date(1600, 1, 1), pd.Timedelta(seconds=90)], "BEST12.", ["     -131487", "          90"]),
    ([datetime.timedelta(days=-1, seconds=1), datetime.time(13, 45, 30), np.timedelta64(5, "m")], "TIME9.",
     ["-23:59:59", " 13:45:30", "  0:05:00"]),
    # refused: text to a format, and kinds a format cannot show
    (["22356"], "DATE9.", TypeError("not text")),
    (np.array([1, "x"], dtype=object), "DATE9.", TypeError("not text")),
    (pd.Series(["2021-03-17"], dtype="string"), "DATE9.", TypeError("not text")),
    ([object()], "DATE9.", TypeError("not object")),
    (np.array([1], dtype="timedelta64[D]"), "DATE9.", ValueError(r"shows a date, not a time \(timedelta64\[D\]")),
    (np.array([1], dtype="timedelta64[D]"), "DATETIME19.", ValueError("shows a datetime, not a time")),
    (_datetime64("2021-03-17", "D"), "TIME8.", ValueError("shows a time, not a date")),
    ([datetime.datetime(2021, 3, 17)], "HHMM5.", ValueError(r"not a datetime \(datetime objects\)")),
    (np.array([1], dtype="timedelta64[M]"), "TIME8.", ValueError("no fixed length")),
]


@pytest.mark.parametrize("values, spec, expected", KIND_ROWS)
def test_values_by_kind_unit_missing_zone_and_object(values, spec, expected):
    if isinstance(expected, Exception):
        with pytest.raises(type(expected), match=str(expected)):
            kivo.format(values, spec)
    else:
        assert list(kivo.format(values, spec)) == expected


UNITS = {"Y": None, "M": None, "W": 7 * 86400, "D": 86400, "h": 3600, "m": 60, "s": 1, "ms": Fraction(1, 10**3),
         "us": Fraction(1, 10**6), "ns": Fraction(1, 10**9), "ps": Fraction(1, 10**12), "fs": Fraction(1, 10**15),
         "as": Fraction(1, 10**18)}
SERIAL_1970 = 3653 * 86400


@pytest.mark.parametrize("unit", UNITS)
def test_random_datetime64_of_every_unit_give_the_exact_serials(unit):
    random = np.random.default_rng(24)
    size = UNITS[unit]
    if size is None:
        lowest, highest, near_1960 = (np.datetime64(day, unit).astype(np.int64) for day in ("1582", "20000", "1960"))
    else:  # int64 counts of the finest units end long before 1582 and 20000
        lowest, highest, near_1960 = (int(days * 86400 // size) for days in (-141714, 6589340, -3653))
        lowest, highest = max(lowest, -2**63 + 1), min(highest, 2**63 - 1)
    counts = np.concatenate([random.integers(lowest, highest, 2000, endpoint=True),
                             np.clip(near_1960 + random.integers(-10**6, 10**6, 500), lowest, highest)])
    if size is None:  # calendar units: numpy's own calendar gives the day
        days = counts.astype(f"datetime64[{unit}]").astype("datetime64[D]").astype(np.int64)
        seconds = [int(d) * 86400 for d in days]
    else:
        seconds = [int(c) * size for c in counts]
    serials = kivo._kivo.serials("DATETIME19.", counts, unit, 1, "datetime", "")
    assert [float(s + SERIAL_1970) for s in seconds] == list(serials)
    days = kivo._kivo.serials("DATE9.", counts, unit, 1, "datetime", "")
    assert [(s + SERIAL_1970) // 86400 for s in seconds] == list(days)
    if size is not None:
        times = kivo._kivo.serials("TIME12.", counts, unit, 1, "time", "")
        assert [float(s) for s in seconds] == list(times)


SERIES = pd.Series([22356.0, 0.0], index=["a", "b"], name="shipped")
SHAPE_ROWS = [
    (22356, "17MAR2021"),
    (np.float32(0), "01JAN1960"),
    (np.datetime64("2021-03-17"), "17MAR2021"),
    (np.array(22356), np.array("17MAR2021")),
    (np.zeros((2, 1, 3)), np.full((2, 1, 3), "01JAN1960")),
    ([[0, 0], [0, 0]], np.full((2, 2), "01JAN1960")),
    (SERIES, pd.Series(["17MAR2021", "01JAN1960"], index=["a", "b"], name="shipped")),
    (pd.Index([0.0], name="i"), pd.Index(["01JAN1960"], name="i")),
]


def _same(result, expected):
    assert type(result) is type(expected)
    if isinstance(expected, (pd.Series, pd.Index)):
        assert result.equals(expected) and result.name == expected.name
        assert not isinstance(expected, pd.Series) or result.index.equals(expected.index)
    elif isinstance(expected, np.ndarray):
        assert result.shape == expected.shape and (result == expected).all()
    else:
        assert result == expected


@pytest.mark.parametrize("values, expected", SHAPE_ROWS)
def test_shapes_are_kept(values, expected):
    _same(kivo.format(values, "DATE9."), expected)
    texts = kivo.format(values, "YYMMDD10.")
    if isinstance(expected, pd.Series):
        texts = texts.astype("string")
        _same(SERIES.kivo.format("DATE9."), expected)
    read = kivo.informat(texts, "YYMMDD10.")
    container = float if isinstance(expected, str) else pd.Index if isinstance(expected, pd.Index) else type(expected)
    assert isinstance(read, container) and np.shape(read) == np.shape(expected)


def test_bytes_formats_give_bytes_of_the_whole_field():
    assert kivo.format(22356, "PDJULG4.") == bytes.fromhex("2021076F")
    assert list(kivo.format(pd.Series([np.nan]), "PDJULG4.")) == [bytes.fromhex("0000000F")]


INFORMAT_ROWS = [
    # (texts, spec, options, values or datetimes, or the error)
    (np.array(["17/03/2021", "01/01/1600", "31/12/20000"]), "DDMMYY11.", {"as_datetime": True},
     np.array(["2021-03-17", "1600-01-01", "20000-12-31"], dtype="datetime64[D]")),
    (["17MAR2021:13:45:30.5", "01JAN1600:00:00:00"], "DATETIME", {"as_datetime": True},
     np.array(["2021-03-17T13:45:30.5", "1600-01-01"], dtype="datetime64[us]")),
    (["1:30:00.000001", "."], "TIME15.", {"as_datetime": True}, np.array([5400000001, "NaT"], dtype="timedelta64[us]")),
    (pd.Series(["01JAN1600:00:00:00", "01JAN2000:00:00:00"]), "DATETIME", {"as_datetime": True},
     pd.Series(pd.to_datetime([pd.NaT, "2000-01-01"]))),
    (pd.Series(["01JAN1600"]), "DATE9.", {"as_datetime": True, "errors": "raise"},
     ValueError(r"position 0 lies outside what datetime64\[ns\]")),
    # the per-text rules: past the width, nothing found, day 0, rejected, left out
    ([" 2021-03-17", "2021-03-17"], "YYMMDD10.", {}, [np.nan, 22356.0]),
    ([" 2021-03-17"], "YYMMDD10.", {"errors": "raise"},
     ValueError('" 2021-03-17" at position 0: 1 byte past the width')),
    (["2021-03-17", "nothing"], "ANYDTDTE", {"errors": "raise"},
     ValueError('"nothing" at position 1: not read by ANYDTDTE')),
    (["10:30"], "ANYDTDTE", {"errors": "raise"}, ValueError(r"read as day 0 \(01JAN1960\)")),
    (["17MAR2021", "bad"], "DATE9.", {"errors": "raise"}, ValueError('"bad" at position 1: not read by DATE')),
    ([None, np.nan, pd.NA, pd.NaT, "", "  "], "DATE9.", {"errors": "raise"}, [np.nan] * 6),
    (pd.Series(["17/03/2021", None], dtype="string"), "DDMMYY10.", {"errors": "raise"}, pd.Series([22356.0, np.nan])),
    (np.array([b"17MAR2021", b""]), "DATE9.", {}, [22356.0, np.nan]),
    (np.array(["2021-03-17", "x", "2021-03-18"], dtype=">U10")[::2], "YYMMDD10.", {}, [22356.0, 22357.0]),
    (np.array(["17MÄR2021", "17MAR2021\0"], dtype=object), "DATE9.", {}, [np.nan, 22356.0]),
    (["17MAR2021", 5], "DATE9.", {}, TypeError("item 1 is int")),
    (np.array([22356.0]), "DATE9.", {}, TypeError("reads text, not float64")),
    # options, for this call only
    ("01/02/2003", "ANYDTDTE", {"datestyle": "dmy"}, 15737.0),
    ("01/02/2003", "ANYDTDTE", {}, 15707.0),
    ("01/02/19", "ANYDTDTE", {"datestyle": "mdy", "yearcutoff": 1900}, -14974.0),
    ("x", "ANYDTDTE", {"datestyle": "xyz"}, ValueError("datestyle takes dmy")),
    ("x", "ANYDTDTE", {"datestyle": "d\0my"}, ValueError("datestyle holds a NUL")),
    ("x", "DATE9.\0", {}, ValueError("NUL")),
    ("x", "ANYDTDT", {}, ValueError("did you mean")),
    ("x", "DATE9.", {"errors": "ignore"}, ValueError("errors is")),
]


@pytest.mark.parametrize("texts, spec, options, expected", INFORMAT_ROWS)
def test_informat_reads_texts_by_the_engine_rules(texts, spec, options, expected):
    if isinstance(expected, Exception):
        with pytest.raises(type(expected), match=str(expected)):
            kivo.informat(texts, spec, **options)
        return
    result = kivo.informat(texts, spec, **options)
    if isinstance(expected, pd.Series):
        pd.testing.assert_series_equal(result, expected)
    else:
        np.testing.assert_array_equal(result, expected)
        assert np.asarray(result).dtype == np.asarray(expected).dtype


@pytest.mark.parametrize("call, expected", [
    (lambda: kivo.format([np.nan, 0], "DATE9.", missing_char="?"), ["        ?", "01JAN1960"]),
    (lambda: kivo.format([np.nan], "DATE9.", missing_char="é"), ["        é"]),
    (lambda: kivo.format([np.nan], "DATE9.", missing_char="\0"), ValueError("missing_char holds a NUL")),
    (lambda: kivo.format([np.nan], "DATE9.", missing_char="€"), ValueError("U\\+00FF")),
    (lambda: kivo.format([np.nan], "DATE4."), ValueError("widths 5-11")),
    (lambda: kivo.missing_codes(kivo.informat([".", ".a", "._", "17MAR2021", ""], "DATE9.")), [".", "A", "_", "", "."]),
    (lambda: kivo.missing_codes([".Z", "x", None, " ._ "]), ["Z", "", ".", "_"]),
    (lambda: kivo.missing_codes(pd.Series([np.nan, 1.0])).tolist(), [".", ""]),
])
def test_options_and_missing_codes(call, expected):
    if isinstance(expected, Exception):
        with pytest.raises(type(expected), match=str(expected)):
            call()
    else:
        assert list(call()) == expected


def test_a_refused_environment_variable_stops_every_call():
    script = "import kivo; kivo.informat('x', 'ANYDTDTE')"
    run = subprocess.run([sys.executable, "-c", script], env={**os.environ, "KIVO_DATESTYLE": "xyz"},
                         capture_output=True, text=True)
    assert 'ValueError: KIVO_DATESTYLE takes dmy, dym, mdy, myd, ydm, ymd or locale, not "xyz"' in run.stderr


def test_large_blocks_on_several_threads_equal_one_value_at_a_time():
    values = np.arange(-138061, 6589341, 97, dtype=np.float64)
    fields = kivo.format(values, "DATE11.")
    assert all(fields[i] == kivo.format(values[i], "DATE11.") for i in range(0, len(values), 4999))
    shown = np.char.find(fields, "*") < 0
    assert (kivo.informat(fields[shown].astype(object), "DATE11.") == values[shown]).all()


def test_the_dask_example_on_a_local_cluster_equals_pandas():
    dd = pytest.importorskip("dask.dataframe")
    distributed = pytest.importorskip("distributed")
    sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "examples"))
    import dask_column

    frame = dask_column.orders(20000)
    cluster = distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None)
    with cluster, distributed.Client(cluster):
        cleaned = dask_column.clean(dd.from_pandas(frame, npartitions=4)).compute()
    expected = pd.to_datetime(frame["shipped"])  # mixed layouts: pandas reads each text on its own
    pd.testing.assert_series_equal(cleaned["shipped_on"], expected, check_names=False)
    assert (cleaned["shipped_field"] == expected.dt.strftime("%d%b%Y").str.upper()).all()
    with pytest.raises(ValueError, match="did you mean"):
        dd.from_pandas(frame, npartitions=2)["shipped"].kivo.format("DATEE9.")


@pytest.mark.parametrize("strftime, informat, datestyle", [
    ("%d/%m/%Y", "DDMMYY10.", None), ("%m/%d/%Y", "MMDDYY10.", None), ("%Y-%m-%d", "YYMMDD10.", None),
])
def test_guess_reads_a_column_to_its_true_days(strftime, informat, datestyle):
    days = pd.Series(pd.to_datetime(np.random.default_rng(5).integers(-20000, 20000, 500), unit="D"))
    texts = days.dt.strftime(strftime)
    guess = texts.kivo.guess()
    assert (guess.informat, guess.datestyle, guess.reads_every) == (informat, datestyle, True)
    assert str(guess).startswith(informat + "\nreads all 500 texts")
    read = kivo.informat(texts, guess.informat, datestyle=guess.datestyle, as_datetime=True)
    pd.testing.assert_series_equal(read, days)
    unread = kivo.guess(list(texts[:20]) + ["n/a", None])
    assert (unread.unread, unread.left_out, unread.examples) == (1, 1, [(20, "n/a")])
