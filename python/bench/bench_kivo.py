"""kivo against the fastest idiomatic pandas call on the same 1e6 values, wall time with the default
thread count and float64 output: random days from 1900 to 2100, as a pandas object column of texts
made with dt.strftime, or as a datetime64 column. Each call runs RUNS times; prints the best and the
median and the ratio of the best times (pandas / kivo: above 1 when kivo is faster).

    PYTHONPATH=build/release/python /usr/bin/python3 python/bench/bench_kivo.py [N] [RUNS]
"""

import statistics
import sys
import time

import numpy as np
import pandas as pd

import kivo


def timed(run, runs):
    seconds = []
    for _ in range(runs):
        start = time.perf_counter()
        run()
        seconds.append(time.perf_counter() - start)
    return min(seconds), statistics.median(seconds)


def compare(label, ours, theirs, runs):
    (ours_best, ours_median), (theirs_best, theirs_median) = timed(ours, runs), timed(theirs, runs)
    print(f"{label:<58} kivo {ours_best * 1e3:8.1f} ms (median {ours_median * 1e3:8.1f})   "
          f"pandas {theirs_best * 1e3:8.1f} ms (median {theirs_median * 1e3:8.1f})   {theirs_best / ours_best:6.1f}x")


def main():
    n = int(float(sys.argv[1])) if len(sys.argv) > 1 else 1_000_000
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 3
    first, last = (np.datetime64(day).astype(np.int64) for day in ("1900-01-01", "2100-12-31"))
    days = pd.Series(np.random.default_rng(2021).integers(first, last, n, endpoint=True).astype("datetime64[D]"))
    stamps = days.astype("datetime64[ns]")
    iso, dmy = stamps.dt.strftime("%Y-%m-%d"), stamps.dt.strftime("%d/%m/%Y")
    assert (kivo.informat(iso, "YYMMDD10.", as_datetime=True) == stamps).all()
    assert (kivo.format(stamps, "DATE9.") == stamps.dt.strftime("%d%b%Y").str.upper()).all()
    print(f"{n:.0e} values, best and median of {runs} runs, {kivo.__version__}")
    compare("YYMMDD10. / to_datetime(format='%Y-%m-%d')", lambda: kivo.informat(iso, "YYMMDD10."),
            lambda: pd.to_datetime(iso, format="%Y-%m-%d"), runs)
    compare("ANYDTDTE / to_datetime(format='%Y-%m-%d')", lambda: kivo.informat(iso, "ANYDTDTE"),
            lambda: pd.to_datetime(iso, format="%Y-%m-%d"), runs)
    compare("DDMMYY10. / to_datetime(format='%d/%m/%Y')", lambda: kivo.informat(dmy, "DDMMYY10."),
            lambda: pd.to_datetime(dmy, format="%d/%m/%Y"), runs)
    compare("format DATE9. of datetime64 / dt.strftime('%d%b%Y')", lambda: kivo.format(stamps, "DATE9."),
            lambda: stamps.dt.strftime("%d%b%Y"), runs)


if __name__ == "__main__":
    main()
