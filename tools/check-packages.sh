#!/bin/sh
# Makes the Debian packages from the install rules (CPack, in the `abi` preset's release build) and
# tries them as a fresh system would: unpacked with dpkg-deb into a scratch root, the unpacked kivodt
# formats a day, a C++ program builds against the unpacked CMake package and a C program with the
# unpacked pkg-config file, and the unpacked Python package imports; then apt-get simulates installing
# them all, which needs every dependency dpkg-shlibdeps named to be there.
set -eu
cd "$(dirname "$0")/.."

cmake --preset abi >/dev/null
cmake --build --preset abi >/dev/null
rm -rf build/abi/packages
(cd build/abi && cpack -G DEB >/dev/null 2>&1)
packages=$(ls "$PWD"/build/abi/packages/*.deb)  # apt-get takes a file by a path with a slash in front
echo "packages:" $(basename -a $packages)

root=$(mktemp -d "${TMPDIR:-/tmp}/kivo-packages.XXXXXX")
trap 'rm -rf "$root"' EXIT
for package in $packages; do
    dpkg-deb -x "$package" "$root"
done
usr=$root/usr
libdir=$(ls -d "$usr"/lib/*-linux-gnu)
failed=0
expect() {  # expect NAME WANTED COMMAND...
    name=$1 wanted=$2
    shift 2
    got=$("$@" 2>&1) || true
    if [ "$got" = "$wanted" ]; then echo "ok: $name"; else echo "FAIL: $name: $got"; failed=1; fi
}

expect "the unpacked kivodt" 17MAR2021 "$usr/bin/kivodt" format DATE9. 22356

mkdir -p "$root/cpp" "$root/c"
cat > "$root/cpp/CMakeLists.txt" <<'CMAKE'
cmake_minimum_required(VERSION 3.25)
project(consumer CXX)
find_package(kivoudtmf REQUIRED)
add_executable(consumer main.cpp)
target_link_libraries(consumer PRIVATE kivo::udtmf)
CMAKE
cat > "$root/cpp/main.cpp" <<'CPP'
#include <cstdio>
#include "kivo/Formats.h"
#include "kivo/format/FormatRealFields.h"
int main() {
    char field[9];
    dateFormat(field, 9, 0, 22356.0);
    std::printf("%.9s\n", field);
}
CPP
cmake -S "$root/cpp" -B "$root/cpp/build" -DCMAKE_PREFIX_PATH="$usr" >/dev/null
cmake --build "$root/cpp/build" >/dev/null
expect "a C++ program on the CMake package" 17MAR2021 "$root/cpp/build/consumer"

cat > "$root/c/main.c" <<'C'
#include <stdio.h>
#include "kivo/Formats.h"
int main(void) {
    char field[11];
    yymmddFormat(field, 10, 0, 22356.0);
    printf("%.10s\n", field);
    return 0;
}
C
flags=$(PKG_CONFIG_PATH="$libdir/pkgconfig" pkg-config --cflags --libs kivoudtmf)
cc -std=c11 -Wall -Werror -o "$root/c/consumer" "$root/c/main.c" $flags
expect "a C program with the pkg-config file" 2021-03-17 env LD_LIBRARY_PATH="$libdir" "$root/c/consumer"

expect "the unpacked Python package" 17MAR2021 env PYTHONPATH="$(ls -d "$usr"/lib/python3*/dist-packages)" \
    /usr/bin/python3 -c "import kivo; print(kivo.format(22356, 'DATE9.'))"

if apt-get install --simulate $packages > "$root/apt.log" 2>&1; then
    echo "ok: apt-get install --simulate"
else
    echo "FAIL: apt-get install --simulate:"
    tail -n 20 "$root/apt.log"
    failed=1
fi
exit $failed
