#!/bin/sh
# Builds the libFuzzer targets (the `fuzz` preset: clang, AddressSanitizer, UndefinedBehaviorSanitizer)
# and runs each for a bounded time: the first argument, in seconds (default 60). Each target keeps its
# corpus under build/fuzz-corpus/<target>/, seeded on first use from fuzz/seeds/<target>.txt (one input
# a line). Stops with a non-zero status at the first failing target; its log and the failing input are
# left in build/fuzz-runs/.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-60}

cmake --preset fuzz
cmake --build --preset fuzz

mkdir -p build/fuzz-runs
for fuzzer in build/fuzz/fuzz/fuzz_*; do
    [ -x "$fuzzer" ] || continue
    name=$(basename "$fuzzer")
    corpus=build/fuzz-corpus/$name
    mkdir -p "$corpus"
    if [ -z "$(ls -A "$corpus")" ] && [ -f "fuzz/seeds/$name.txt" ]; then
        n=0
        while IFS= read -r line; do
            n=$((n + 1))
            printf '%s' "$line" > "$corpus/seed-$n"
        done < "fuzz/seeds/$name.txt"
    fi
    log=build/fuzz-runs/$name.log
    echo "== $name for $seconds s"
    status=0
    "$fuzzer" -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix="build/fuzz-runs/$name-" \
        "$corpus" > "$log" 2>&1 || status=$?
    grep -E '^Done [0-9]+ runs|stat::number_of_executed_units' "$log" || true
    if [ "$status" -ne 0 ]; then
        tail -n 40 "$log"
        echo "$name failed (status $status): see $log"
        exit 1
    fi
done
