#!/bin/sh
# Whole-process speed of kivodt on standard input with one thread and with two: DATE9. over day serials
# and ANYDTDTE over texts in mixed layouts, LINES lines each (default 2e7). Prints the wall time, the
# lines per second and the peak resident size of each run (the median of RUNS runs, default 3).
# Usage: bench/kivodt_threads_bench.sh [LINES] [RUNS]   (after cmake --build --preset release)
set -eu
cd "$(dirname "$0")/.."
lines=${1:-20000000}
runs=${2:-3}
kivodt=build/release/frontend/kivodt
work=$(mktemp -d "${TMPDIR:-/tmp}/kivodt-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT

/usr/bin/python3 - "$lines" "$work" <<'PY'
import random, sys
lines, work = int(sys.argv[1]), sys.argv[2]
random.seed(2021)
layouts = ["{d:02d}{m}{y}", "{y}-{mm:02d}-{d:02d}", "{mm:02d}/{d:02d}/{y}", "{y}{mm:02d}{d:02d}",
           "{d:02d}-{m}-{y}", "{d} {m} {y}", "{mm}/{d}/{y}"]
months = "JAN FEB MAR APR MAY JUN JUL AUG SEP OCT NOV DEC".split()
chunk = 100000
with open(f"{work}/days.txt", "w") as days, open(f"{work}/texts.txt", "w") as texts:
    for start in range(0, lines, chunk):
        n = min(chunk, lines - start)
        days.write("".join(f"{random.randint(-138061, 6589340)}\n" for _ in range(n)))
        rows = []
        for _ in range(n):
            mm = random.randint(1, 12)
            rows.append(random.choice(layouts).format(d=random.randint(1, 28), m=months[mm - 1], mm=mm,
                                                      y=random.randint(1900, 2099)) + "\n")
        texts.write("".join(rows))
PY

measure() {  # measure LABEL THREADS INPUT COMMAND...: the median wall time and peak size of RUNS runs
    label=$1 threads=$2 input=$3
    shift 3
    : > "$work/times"
    i=0
    while [ "$i" -lt "$runs" ]; do
        /usr/bin/time -o "$work/one" -f "%e %M" "$kivodt" --threads "$threads" "$@" < "$input" > /dev/null
        cat "$work/one" >> "$work/times"
        i=$((i + 1))
    done
    sort -n "$work/times" | awk -v label="$label" -v threads="$threads" -v lines="$lines" -v runs="$runs" '
        NR == int((runs + 1) / 2) {
            printf "%-10s --threads %d  %6.2f s  %6.2f M lines/s  peak %6.1f MB\n", label, threads, $1,
                   lines / $1 / 1e6, $2 / 1024
        }'
}

for threads in 1 2; do
    measure "DATE9." "$threads" "$work/days.txt" format DATE9.
done
for threads in 1 2; do
    measure "ANYDTDTE" "$threads" "$work/texts.txt" informat ANYDTDTE
done
