#!/bin/sh
# Holds the libraries' ABI to the baseline in abi/: builds the `abi` preset (release flags with debug
# information, gcc), describes each library with libabigail's abidw (only the types of its public
# headers count: include/ for libkivoudtmf, host/ for the reference host's two) and compares the
# description with the baseline's by abidiff. Any change fails: a changed record layout, virtual table,
# enum value, signature or return type, and a symbol gone or added.
#
#   tools/check-abi.sh            compare (what CI runs)
#   tools/check-abi.sh --update   write a new baseline, for a deliberate change; say so in CHANGES.md
set -eu
cd "$(dirname "$0")/.."

cmake --preset abi >/dev/null
cmake --build --preset abi --target kivoudtmf kivoxcore kivoxutil >/dev/null

# describe LIBRARY HEADERS OUT: the library's ABI, as abidw sees it through its public headers.
describe() {
    abidw --headers-dir "$2" --drop-private-types --no-corpus-path --out-file "$3" "$1"
}

work=$(mktemp -d "${TMPDIR:-/tmp}/kivo-abi.XXXXXX")
trap 'rm -rf "$work"' EXIT
failed=0
for library in src/libkivoudtmf:include refhost/libkivoxcore:host refhost/libkivoxutil:host; do
    path=${library%%:*} headers=${library##*:}
    name=$(basename "$path")
    object=$(ls build/abi/$path.so.[0-9]* | head -n 1)
    describe "$object" "$headers" "$work/$name.abi"
    if [ "${1:-}" = --update ]; then
        cp "$work/$name.abi" "abi/$name.abi"
        echo "abi/$name.abi written from $object"
        continue
    fi
    # The descriptions hold the public types alone already; --harmless counts every change, not only
    # those abidiff takes for harmful.
    if abidiff --harmless "abi/$name.abi" "$work/$name.abi" > "$work/$name.diff"; then
        echo "$name: the ABI is the baseline's"
    else
        echo "$name: the ABI differs from abi/$name.abi (abidiff status $?):"
        cat "$work/$name.diff"
        failed=1
    fi
done
if [ "$failed" -ne 0 ]; then
    echo "A deliberate change: tools/check-abi.sh --update, a line in CHANGES.md, and the SONAME policy there."
fi
exit $failed
