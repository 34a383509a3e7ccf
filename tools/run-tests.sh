#!/bin/sh
# Builds and runs every test: the debug build, then the whole suite again under AddressSanitizer and
# UndefinedBehaviorSanitizer, then under ThreadSanitizer, then the ABI check and the Debian packages,
# then each libFuzzer target for a bounded time (FUZZ_SECONDS, default 60).
set -eu
cd "$(dirname "$0")/.."

cmake --preset debug
cmake --build --preset debug
ctest --preset debug
# The Python package's own count, which ctest folds into one line.
grep -E '^[0-9]+ (passed|failed)|^SKIPPED' build/debug/Testing/Temporary/LastTest.log || true

cmake --preset asan
cmake --build --preset asan
ctest --preset asan

cmake --preset tsan
cmake --build --preset tsan
ctest --preset tsan

# The libraries' ABI against abi/, and the Debian packages made and tried (the `abi` preset's build).
tools/check-abi.sh
tools/check-packages.sh

if [ -x tools/run-fuzzers.sh ]; then
    tools/run-fuzzers.sh "${FUZZ_SECONDS:-60}"
fi
