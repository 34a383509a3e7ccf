#!/usr/bin/env bash
# Checks that a change to the library left every field byte-for-byte as it was: builds BASE (a commit
# before the change) and the change (the working tree, or the commit KIVO_EQUIVALENCE_HEAD), the latter
# with gcc and clang at -O0, -O2 and the release flags, and compares the fields of seeded values for
# every format in `kivodt list` — HOT_COUNT values for the formats a speed change touches most, COUNT
# for the others — against BASE's gcc release build. The informats likewise: every informat of the list
# reads the same INFORMAT_COUNT texts (valid, near-valid and hostile, written once by BASE's build), and
# a hash of each one's results (value bits and return code) must not move.
#
#   tools/check-equivalence.sh BASE [COUNT [HOT_COUNT [INFORMAT_COUNT]]]
#                                                  (defaults 1000000, 10000000 and 200000)
#   KIVO_EQUIVALENCE_VARIANTS="gcc:Release clang:Debug" narrows the builds of the working tree.
set -euo pipefail

base=${1:?usage: tools/check-equivalence.sh BASE [COUNT [HOT_COUNT]]}
count=${2:-1000000}
hot_count=${3:-10000000}
informat_count=${4:-200000}
hot_formats=${KIVO_EQUIVALENCE_HOT:-"DATE DTDATE DATETIME TIME BEST"}
variants=${KIVO_EQUIVALENCE_VARIANTS:-"gcc:Release gcc:RelWithDebInfo gcc:Debug clang:RelWithDebInfo clang:Debug"}
seed=20261122
root=$(git rev-parse --show-toplevel)
work=$(mktemp -d /tmp/kivo-equivalence.XXXXXX)
cleanup() {
    git -C "$root" worktree remove --force "$work/base" >/dev/null 2>&1 || true
    git -C "$root" worktree remove --force "$work/head" >/dev/null 2>&1 || true
    rm -rf "$work"
}
trap cleanup EXIT

compiler_of() { case $1 in gcc) echo g++ ;; clang) command -v clang++-14 || echo clang++ ;; esac; }

# build TREE DIR COMPILER BUILD_TYPE: the library, the reference host and kivodt.
build() {
    cmake -S "$1" -B "$2" -G Ninja -DCMAKE_BUILD_TYPE="$4" -DCMAKE_CXX_COMPILER="$3" -DKIVO_BUILD_TESTS=OFF \
        -DKIVO_BUILD_BENCHMARKS=OFF -DKIVO_BUILD_PYTHON=OFF >"$2.log" 2>&1
    cmake --build "$2" --target kivoudtmf kivoxcore kivodt -j2 >>"$2.log" 2>&1 || { tail -20 "$2.log"; exit 1; }
    # The engine's own numeric formats: in convert/ since the engine has a room of its own, in
    # frontend/ before, so that a base from either side of the move builds.
    local numeric=(-DNUMERIC_HEADER='"kivoconvert/NumericFormats.h"' -DNUMERIC=kivoconvert::numeric)
    local room=convert
    if [ ! -f "$1/convert/src/NumericFormats.cpp" ]; then
        numeric=(-DNUMERIC_HEADER='"kivodt/NumericFormats.h"' -DNUMERIC=kivodt::numeric)
        room=frontend
    fi
    g++ -std=c++20 -O2 -o "$2/field_hashes" "${numeric[@]}" "$root/tools/equivalence/FieldHashes.cpp" \
        "$1/$room/src/NumericFormats.cpp" -I"$root/tests" -I"$1/include" -I"$1/host" -I"$1/$room/include" \
        -L"$2/src" -L"$2/refhost" -lkivoudtmf -lkivoxcore -ldl -Wl,-rpath,"$2/src:$2/refhost"
    g++ -std=c++20 -O2 -o "$2/informat_hashes" "$root/tools/equivalence/InformatHashes.cpp" -I"$root/tests" \
        -I"$1/include" -I"$1/host" -L"$2/src" -L"$2/refhost" -Wl,--no-as-needed -lkivoudtmf -lkivoxcore -ldl \
        -Wl,-rpath,"$2/src:$2/refhost"
}

# The formats of the catalog, split into the hot ones and the rest.
formats() {
    local pattern
    pattern="^format +($(echo "$hot_formats" | tr ' ' '|')) "
    if [ "$1" = hot ]; then grep -E "$pattern" "$work/list"; else grep -vE "$pattern" "$work/list" | grep '^format'; fi
}

# compare DIR SET N: differing values between BASE and DIR over N values per format of SET.
compare() {
    local differing
    differing=$(cmp -l <("$work/base-build/field_hashes" "$3" $seed < <(formats "$2") 2>/dev/null) \
                       <("$1/field_hashes" "$3" $seed < <(formats "$2") 2>"$work/records") |
                awk '{ r = int(($1 - 1) / 8); if (r != last) { n++; last = r } } END { print n + 0 }') || true
    local total=$(( $(formats "$2" | wc -l) * $3 ))
    printf '  %-26s %-5s %10d values %8d differing\n' "$(basename "$1")" "$2" "$total" "$differing"
    [ "$differing" -eq 0 ]
}

# compare_informats DIR: informats whose results over the corpus differ between BASE and DIR.
compare_informats() {
    "$1/informat_hashes" hash "$work/corpus" < "$work/list" > "$1.informats"
    local differing total
    differing=$(diff "$work/base-build.informats" "$1.informats" | grep -c '^>') || true
    total=$(awk '{ n += $2 } END { print n + 0 }' "$1.informats")
    printf '  %-26s %-9s %10d texts %8d informats differing (of %d)\n' "$(basename "$1")" informats "$total" \
        "$differing" "$(wc -l < "$1.informats")"
    [ "$differing" -eq 0 ]
}

echo "building $base (gcc, Release)"
git -C "$root" worktree add --detach "$work/base" "$base" >/dev/null 2>&1
head_tree=$root
if [ -n "${KIVO_EQUIVALENCE_HEAD:-}" ]; then
    git -C "$root" worktree add --detach "$work/head" "$KIVO_EQUIVALENCE_HEAD" >/dev/null 2>&1
    head_tree=$work/head
fi
build "$work/base" "$work/base-build" g++ Release
"$work/base-build/frontend/kivodt" list > "$work/list"
"$work/base-build/informat_hashes" corpus "$informat_count" $seed < "$work/list" > "$work/corpus"
"$work/base-build/informat_hashes" hash "$work/corpus" < "$work/list" > "$work/base-build.informats"
failed=0
for variant in $variants; do
    compiler=${variant%%:*}
    type=${variant##*:}
    dir="$work/head-$compiler-$type"
    echo "building the change ($compiler, $type)"
    build "$head_tree" "$dir" "$(compiler_of "$compiler")" "$type"
    compare "$dir" hot "$hot_count" || failed=1
    compare "$dir" rest "$count" || failed=1
    compare_informats "$dir" || failed=1
done
exit $failed
