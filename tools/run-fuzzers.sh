#!/bin/sh
# Builds the libFuzzer targets (the `fuzz` preset: clang, AddressSanitizer, UndefinedBehaviorSanitizer)
# and runs each for a bounded time: the first argument, in seconds (default 60). Each target keeps its
# corpus under build/fuzz-corpus/<target>/, seeded on first use from fuzz/seeds/<target>.txt (one input
# a line). Stops with a non-zero status at the first crash; the crashing input is left in build/fuzz-crashes/.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-60}

cmake --preset fuzz
cmake --build --preset fuzz

mkdir -p build/fuzz-crashes
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
    echo "== $name for $seconds s"
    "$fuzzer" -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix=build/fuzz-crashes/ \
        "$corpus" 2>&1 | grep -E 'stat::number_of_executed_units|stat::peak_rss_mb|ERROR|SUMMARY|Done [0-9]+ runs'
    status=$?
    # grep's status is that of the pipe; the fuzzer's own failure shows as a crash file.
    if ls build/fuzz-crashes/crash-* build/fuzz-crashes/leak-* build/fuzz-crashes/timeout-* >/dev/null 2>&1; then
        echo "$name found a failing input: see build/fuzz-crashes/"
        exit 1
    fi
    [ "$status" -le 1 ] || exit "$status"
done
