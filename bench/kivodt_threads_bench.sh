#!/bin/sh
# Whole-process speed of kivodt on standard input: each job at 1e6 and 2e7 lines (or rows), with
# --threads 1, with the default thread count and with --threads 2; and guess, on one thread. Prints the
# median wall time of RUNS runs (default 5), the lines per second and the peak resident size; the
# settings take turns run after run, so that the machine's drift falls on all alike. With KIVODT_BASE
# set to another build's kivodt, each setting runs that one too, in the same turns, for an A/B.
#
#   bench/kivodt_threads_bench.sh [RUNS]        (after cmake --build --preset release)
#   KIVODT_BASE=/path/to/old/kivodt bench/kivodt_threads_bench.sh
#   KIVODT_BENCH_SIZES="1000000" narrows the sizes.
set -eu
cd "$(dirname "$0")/.."
runs=${1:-5}
sizes=${KIVODT_BENCH_SIZES:-"1000000 20000000"}
kivodt=${KIVODT:-build/release/frontend/kivodt}
work=$(mktemp -d "${TMPDIR:-/tmp}/kivodt-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT

/usr/bin/python3 - "$work" $sizes <<'PY'
import datetime, random, sys
work, sizes = sys.argv[1], [int(s) for s in sys.argv[2:]]
random.seed(2021)
layouts = ["{d:02d}{m}{y}", "{y}-{mm:02d}-{d:02d}", "{mm:02d}/{d:02d}/{y}", "{y}{mm:02d}{d:02d}",
           "{d:02d}-{m}-{y}", "{d} {m} {y}", "{mm}/{d}/{y}"]
months = "JAN FEB MAR APR MAY JUN JUL AUG SEP OCT NOV DEC".split()
epoch = datetime.date(1960, 1, 1)
for lines in sizes:
    chunk = 100000
    with open(f"{work}/days-{lines}", "w") as days, open(f"{work}/mixed-{lines}", "w") as mixed, \
            open(f"{work}/iso-{lines}", "w") as iso, open(f"{work}/csv-{lines}", "w") as csv:
        csv.write("id,shipped\n")
        for start in range(0, lines, chunk):
            n = min(chunk, lines - start)
            serials = [random.randint(-21915, 51134) for _ in range(n)]
            days.write("".join(f"{s}\n" for s in serials))
            stamps = [(epoch + datetime.timedelta(days=s)).isoformat() for s in serials]
            iso.write("".join(f"{t}\n" for t in stamps))
            csv.write("".join(f"{start + i},{t}\n" for i, t in enumerate(stamps)))
            rows = []
            for _ in range(n):
                mm = random.randint(1, 12)
                rows.append(random.choice(layouts).format(d=random.randint(1, 28), m=months[mm - 1], mm=mm,
                                                          y=random.randint(1900, 2099)) + "\n")
            mixed.write("".join(rows))
PY

# once BINARY THREADS INPUT COMMAND...: "seconds peak-KiB" of one run, the time to the nanosecond (the
# time program's own is to the hundredth of a second, too coarse for the smaller inputs).
once() {
    binary=$1 threads=$2 input=$3
    shift 3
    option=""
    case $threads in default | one) ;; *) option="--threads $threads" ;; esac
    start=$(date +%s%N)
    /usr/bin/time -o "$work/one" -f "%M" "$binary" $option "$@" < "$input" > /dev/null
    end=$(date +%s%N)
    echo "$(( (end - start) / 1000 ))e-6 $(tail -n 1 "$work/one")"
}

# The median of a file of "seconds peak" lines, by time.
median() { sort -g "$1" | awk -v runs="$runs" 'NR == int((runs + 1) / 2) { print $1 + 0, $2 }'; }

# row LABEL INPUT-STEM COMMAND...: each thread setting of this build (and of the base build) timed in
# turn, run after run, so that the machine's drift falls on all of them alike.
row() {
    label=$1 stem=$2
    shift 2
    for lines in $sizes; do
        rm -f "$work"/times-*
        i=0
        while [ "$i" -lt "$runs" ]; do
            for threads in 1 default 2; do
                once "$kivodt" "$threads" "$work/$stem-$lines" "$@" >> "$work/times-$threads"
                if [ -n "${KIVODT_BASE:-}" ]; then
                    once "$KIVODT_BASE" "$threads" "$work/$stem-$lines" "$@" >> "$work/times-base-$threads"
                fi
            done
            i=$((i + 1))
        done
        for threads in 1 default 2; do
            line=$(median "$work/times-$threads" | awk -v l="$label" -v n="$lines" -v t="$threads" \
                '{ printf "%-26s %9d  --threads %-7s %6.3f s %7.2f M/s  peak %6.1f MB", l, n, t, $1, n / $1 / 1e6, $2 / 1024 }')
            if [ -n "${KIVODT_BASE:-}" ]; then
                base=$(median "$work/times-base-$threads")
                line="$line$(echo "$(median "$work/times-$threads") $base" | awk '{ printf "   base %6.3f s  (%.2fx)", $3, $3 / $1 }')"
            fi
            echo "$line"
        done
    done
}

row "format DATE9." days format DATE9.
row "informat ANYDTDTE (mixed)" mixed informat ANYDTDTE
row "convert YYMMDD10. DATE9." iso convert YYMMDD10. DATE9.
row "--csv 2 convert YYMMDD10." csv --csv 2 convert YYMMDD10. DATE9.

# guess reads a column on one thread, every candidate informat over every text.
for lines in $sizes; do
    rm -f "$work/times-guess"
    i=0
    while [ "$i" -lt "$runs" ]; do
        once "$kivodt" one "$work/mixed-$lines" guess >> "$work/times-guess"
        i=$((i + 1))
    done
    median "$work/times-guess" | awk -v n="$lines" \
        '{ printf "%-26s %9d  one thread          %6.3f s %7.2f M/s  peak %6.1f MB\n", "guess (mixed)", n, $1, n / $1 / 1e6, $2 / 1024 }'
done
