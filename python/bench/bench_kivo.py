"""kivo against pandas on the same data: DATE9. of N day serials beside Series.dt.strftime("%d%b%Y"), and
ANYDTDTE of M texts in mixed layouts beside pandas.to_datetime and dateutil.parser.parse element by
element (as mixed layouts need). Prints values per second and the ratios.

    PYTHONPATH=build/release/python /usr/bin/python3 python/bench/bench_kivo.py [N] [M]
"""

import sys
import time

import numpy as np
import pandas as pd
from dateutil import parser

import kivo


def rate(label, count, run):
    start = time.perf_counter()
    run()
    seconds = time.perf_counter() - start
    print(f"{label:<48} {count / seconds / 1e6:8.3f} M values/s")
    return count / seconds


def main():
    n = int(float(sys.argv[1])) if len(sys.argv) > 1 else 10_000_000
    m = int(float(sys.argv[2])) if len(sys.argv) > 2 else 1_000_000
    random = np.random.default_rng(2021)
    days = random.integers(-21915, 51134, n).astype(np.float64)
    stamps = pd.Series((days - 3653).astype("datetime64[D]"))
    ours = rate(f"kivo.format DATE9. ({n:.0e})", n, lambda: kivo.format(days, "DATE9."))
    theirs = rate("pandas Series.dt.strftime('%d%b%Y')", n, lambda: stamps.dt.strftime("%d%b%Y"))
    print(f"  kivo / pandas: {ours / theirs:.1f}x")

    layouts = ["%d%b%Y", "%Y-%m-%d", "%m/%d/%Y", "%Y%m%d", "%d-%b-%Y", "%d %B %Y", "%b %d, %Y"]
    sample = pd.Series((random.integers(-21915, 51134, m) - 3653).astype("datetime64[D]"))
    texts = np.concatenate([sample[i::len(layouts)].dt.strftime(f).to_numpy() for i, f in enumerate(layouts)])
    ours = rate(f"kivo.informat ANYDTDTE ({m:.0e})", m, lambda: kivo.informat(texts, "ANYDTDTE"))
    to_datetime = rate("pandas.to_datetime, element by element", m // 10,
                       lambda: [pd.to_datetime(t) for t in texts[: m // 10]])
    dateutil = rate("dateutil.parser.parse, element by element", m // 10,
                    lambda: [parser.parse(t) for t in texts[: m // 10]])
    print(f"  kivo / pandas.to_datetime: {ours / to_datetime:.1f}x   kivo / dateutil: {ours / dateutil:.1f}x")


if __name__ == "__main__":
    main()
