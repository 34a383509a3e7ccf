"""Cleaning a date column of a Dask DataFrame with kivo on a distributed cluster: texts in mixed
layouts read with ANYDTDTE, then written with DATE9., one kivo call per partition on the worker that
holds it.

After `pip install .` (in a venv: v/bin/python) or `cmake --install` (Debian's /usr/bin/python3):

    python3 python/examples/dask_column.py

or from a build tree, with the package on the path of every worker:

    PYTHONPATH=build/release/python /usr/bin/python3 python/examples/dask_column.py
"""

import numpy as np
import pandas as pd

import kivo  # noqa: F401  (registers the .kivo accessor on Dask Series)

LAYOUTS = ["%Y-%m-%d", "%d%b%Y", "%m/%d/%Y", "%d-%b-%Y"]


def orders(rows):
    """A frame of orders whose "shipped" column holds days from 1990 to 2030 written in several layouts."""
    days = pd.Series(np.random.default_rng(2021).integers(7305, 21915, rows).astype("datetime64[D]"))
    shipped = pd.concat([days[i::len(LAYOUTS)].dt.strftime(layout) for i, layout in enumerate(LAYOUTS)]).sort_index()
    return pd.DataFrame({"id": np.arange(rows), "shipped": shipped})


def clean(frame):
    """The "shipped" column of a Dask DataFrame as datetimes and as DATE9. fields."""
    shipped = frame["shipped"].kivo.informat("ANYDTDTE", as_datetime=True)
    return frame.assign(shipped_on=shipped, shipped_field=shipped.kivo.format("DATE9."))


def main():
    import dask.dataframe as dd
    from distributed import Client, LocalCluster

    with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster, Client(cluster):
        cleaned = clean(dd.from_pandas(orders(1_000_000), npartitions=8)).compute()
    print(cleaned.head())


if __name__ == "__main__":
    main()
