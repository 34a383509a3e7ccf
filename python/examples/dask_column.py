"""Converting a column of a Dask DataFrame with kivo, partition by partition, on a distributed cluster.

    /usr/bin/python3 python/examples/dask_column.py

Each worker imports kivo and converts its partitions as whole arrays; the result equals one
kivo.format call on the whole column.
"""

import numpy as np
import pandas as pd


def format_column(column, spec, **options):
    """A Dask Series of day or seconds serials as the fields of `spec`, one kivo call per partition."""

    def convert(part):
        import kivo  # on the worker, which converts its partition as one array

        return pd.Series(kivo.format(part, spec, **options), index=part.index, name=part.name)

    return column.map_partitions(convert, meta=(column.name, "object"))


def main():
    import dask.dataframe as dd
    from distributed import Client, LocalCluster

    frame = pd.DataFrame({"day": np.arange(0, 1_000_000, dtype=np.float64)})
    with LocalCluster(n_workers=2, threads_per_worker=1) as cluster, Client(cluster):
        dates = format_column(dd.from_pandas(frame, npartitions=8)["day"], "DATE9.").compute()
    print(dates.head())


if __name__ == "__main__":
    main()
