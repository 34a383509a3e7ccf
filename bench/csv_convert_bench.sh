#!/bin/sh
# kivodt convert --csv 2 ANYDTDTE DATE9. on a ROWS-row, four-column CSV (default 1e7, about 400 MB),
# beside the same job in Python's csv module with dateutil on PEER_ROWS rows (default 1e5), its time
# scaled to ROWS. Prints rows/s and peak resident sizes. Builds the release preset first.
#   bench/csv_convert_bench.sh [ROWS [PEER_ROWS]]
set -eu
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target kivodt >/dev/null
/usr/bin/python3 bench/csv_convert_bench.py build/release/frontend/kivodt "${1:-1e7}" "${2:-1e5}"
