"""The kivo package against kivodt on the same inputs, its dtypes, errors, accessor and Dask path."""

import os
import subprocess

import numpy as np
import pandas as pd
import pytest

import kivo

KIVODT = os.environ.get("KIVODT", "kivodt")
VALUES = [22356, 0, -1, 6589340, 45296.789, 1e9, float("nan")]
TEXTS = ["15JAN2000", "2000-01-15", "01/15/2000", "10:30 PM", "2021W0503", "0012345C", ".", "x", ""]


def kivodt(*arguments, inputs):
    return subprocess.run([KIVODT, *arguments], input="\n".join(inputs) + "\n", capture_output=True,
                          text=True).stdout.splitlines()


def printed(value, accepted=True):
    if not accepted:
        return "invalid"
    if np.isnan(value):
        code = kivo.missing_codes(np.array([value]))[0]
        return "." if code == "." else "." + code
    return repr(float(value)).removesuffix(".0") if float(value).is_integer() else repr(float(value))


CATALOG = kivo.catalog()


@pytest.mark.parametrize("entry", [e for e in CATALOG if e["kind"] == "format"], ids=lambda e: e["name"])
def test_formats_write_the_fields_of_kivodt(entry):
    spec = f"{entry['name'] if entry['name'] != 'w.d' else ''}{entry['default_width']}."
    fields = kivo.format(VALUES, spec)
    if fields.dtype.kind == "S":
        ours = [f.ljust(entry["default_width"], b"\0").hex().upper() for f in fields]
        assert ours == kivodt("--hex", "format", spec, inputs=[repr(v) for v in VALUES])
    else:
        assert list(fields) == kivodt("format", spec, inputs=[repr(v) for v in VALUES])


@pytest.mark.parametrize("entry", [e for e in CATALOG if e["kind"] == "informat"], ids=lambda e: e["name"])
def test_informats_read_the_values_of_kivodt(entry):
    described = kivo._kivo.describe_informat(entry["name"])
    texts = [bytes.fromhex(t) if described["reads_bytes"] and len(t) % 2 == 0 and all(
        c in "0123456789ABCDEFabcdef" for c in t) else t.encode() for t in TEXTS]
    values = kivo.informat(texts, entry["name"])
    # A rejected text comes back as numpy's own NaN; a missing value keeps its missing pattern.
    accepted = [not (np.isnan(v) and np.float64(v).view(np.uint64) >> np.uint64(48) != 0xFFFF) for v in values]
    hex_option = ["--hex"] if described["reads_bytes"] else []
    expected = kivodt(*hex_option, "informat", entry["name"], inputs=[t.hex() if hex_option else t.decode() for t in texts])
    # kivodt passes a left-out (empty) text through as it came.
    assert [printed(v, a) if t else "" for v, a, t in zip(values, accepted, texts)] == expected


@pytest.mark.parametrize("values", [
    np.array([22356, 0], dtype=np.int32), np.array([22356, 0], dtype=np.float32), pd.Series([22356, 0]),
    [22356, 0], np.array(["2021-03-17", "1960-01-01"], dtype="datetime64[D]"),
    np.array(["2021-03-17T00:00:00", "1960-01-01T00:00:00"], dtype="datetime64[s]").astype("datetime64[D]"),
])
def test_every_real_dtype_and_datetime64_gives_the_same_fields(values):
    assert list(kivo.format(values, "DATE9.")) == ["17MAR2021", "01JAN1960"]


def test_finer_datetime64_are_seconds_serials_and_nat_is_missing():
    stamps = np.array(["2021-03-17T13:45:30.25", "NaT"], dtype="datetime64[ms]")
    assert list(kivo.format(stamps, "DATETIME22.2")) == [" 17MAR2021:13:45:30.25", "                     ."]
    assert list(kivo.format([22356, np.nan], "DATE9.", missing_char="?")) == ["17MAR2021", "        ?"]


def test_errors_coerce_or_raise_and_datetimes():
    assert np.isnan(kivo.informat(["17MAR2021", "bad"], "DATE9.")[1])
    with pytest.raises(ValueError, match="'bad' at position 1"):
        kivo.informat(["17MAR2021", "bad"], "DATE9.", errors="raise")
    days = kivo.informat(["17MAR2021", "."], "DATE9.", as_datetime=True)
    assert days.dtype == np.dtype("datetime64[D]") and str(days[0]) == "2021-03-17" and np.isnat(days[1])
    stamps = kivo.informat(["17MAR2021:13:45:30", "01JAN3000:00:00:00"], "DATETIME", as_datetime=True)
    assert str(stamps[0]) == "2021-03-17T13:45:30.000000000" and np.isnat(stamps[1])
    with pytest.raises(ValueError, match="outside"):
        kivo.informat(["01JAN3000:00:00:00"], "DATETIME", as_datetime=True, errors="raise")
    assert kivo.informat(["1:30:00"], "TIME8.", as_datetime=True)[0] == np.timedelta64(5400, "s")
    with pytest.raises(ValueError, match="widths 5-11"):
        kivo.format([0], "DATE4.")
    with pytest.raises(ValueError, match="did you mean"):
        kivo.informat(["x"], "ANYDTDT")


def test_options_apply_to_their_call_only_and_missing_codes():
    assert kivo.informat("01/02/2003", "ANYDTDTE", datestyle="dmy")[0] == 15737
    assert kivo.informat("01/02/2003", "ANYDTDTE")[0] != 15737
    assert kivo.informat("01/02/19", "ANYDTDTE", datestyle="mdy", yearcutoff=1900)[0] == -14974
    with pytest.raises(ValueError, match="datestyle"):
        kivo.informat("x", "ANYDTDTE", datestyle="xyz")
    values = kivo.informat([".", ".a", "._", "17MAR2021"], "DATE9.")
    assert list(kivo.missing_codes(values)) == [".", "A", "_", ""]
    assert list(kivo.missing_codes([".Z", "x"])) == ["Z", ""]


@pytest.mark.parametrize("texts", [[None, "17MAR2021"], ["17MÄR2021"], ["17MAR\x002021"], ["9" * 100000]])
def test_bad_texts_are_read_without_harm_and_a_number_is_refused(texts):
    assert len(kivo.informat(texts, "DATE9.")) == len(texts)
    with pytest.raises(TypeError):
        kivo.informat(texts + [5], "DATE9.")


def test_series_accessor_keeps_the_index():
    series = pd.Series([22356, 0], index=["a", "b"])
    assert series.kivo.format("DATE9.").to_dict() == {"a": "17MAR2021", "b": "01JAN1960"}
    read = pd.Series(["2021-03-17"], index=["z"]).kivo.informat("ANYDTDTE", as_datetime=True)
    assert str(read["z"].date()) == "2021-03-17"


def test_large_arrays_on_several_threads_equal_one_value_at_a_time():
    values = np.arange(-138061, 6589341, 97, dtype=np.float64)
    fields = kivo.format(values, "DATE11.")
    assert all(fields[i] == kivo.format(values[i], "DATE11.")[0] for i in range(0, len(values), 4999))


def test_a_dask_column_on_a_local_cluster_equals_the_single_process_call():
    dd = pytest.importorskip("dask.dataframe")
    distributed = pytest.importorskip("distributed")
    from examples_path import format_column  # noqa: E402

    frame = pd.DataFrame({"d": np.arange(0, 30000, 7, dtype=np.float64)})
    with distributed.LocalCluster(n_workers=2, threads_per_worker=1, processes=True, dashboard_address=None) as cluster, \
            distributed.Client(cluster):
        column = format_column(dd.from_pandas(frame, npartitions=4)["d"], "DATE9.").compute()
    assert list(column) == list(kivo.format(frame["d"], "DATE9."))
