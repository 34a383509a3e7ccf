#!/bin/sh
# kivodt end to end: exact output bytes and exit statuses.
set -u
KIVODT=$1
failures=0

expect() {  # expect NAME EXPECTED_STATUS EXPECTED_OUTPUT -- command...
    name=$1 status=$2 expected=$3
    shift 4
    actual=$("$@" 2>/dev/null)
    got=$?
    if [ "$got" -ne "$status" ] || [ "$actual" != "$expected" ]; then
        printf 'FAIL %s: status %s (want %s)\n--- got\n%s\n--- want\n%s\n' "$name" "$got" "$status" "$actual" "$expected"
        failures=$((failures + 1))
    fi
}

expect "DATE9 arguments" 0 "17MAR2021
01JAN1960" -- "$KIVODT" format DATE9. 22356 0
expect "lower-case spec, default width" 0 "01JAN60" -- "$KIVODT" format date 0
expect "missing values" 0 "      .
      A" -- "$KIVODT" format DATE7. . .a
expect "missing character option" 0 "      ?" -- "$KIVODT" --missing-char '?' format DATE7. .
expect "standard input" 0 "01JAN1960
02JAN1960" -- sh -c "printf '0\n1\n' | '$KIVODT' format DATE9."
expect "bad line goes on" 1 "01JAN1960
02JAN1960" -- sh -c "printf '0\nabc\n1\n' | '$KIVODT' format DATE9."
expect "hex output" 0 "2031" -- "$KIVODT" --hex format DAY2. 0
expect "width out of range" 2 "" -- "$KIVODT" format DATE12. 0
expect "unknown format" 2 "" -- "$KIVODT" format DATX9. 0
expect "unknown informat" 2 "" -- "$KIVODT" informat NOSUCH 0
expect "bad option value" 2 "" -- "$KIVODT" --datestyle xyz format DATE9. 0

expect "ANYDTDTE layouts" 0 "14624
14624
14624
14624
0
." -- "$KIVODT" informat ANYDTDTE. 15JAN2000 2000-01-15 20000115 2000-01-15T10:30:00 "10:30 PM" JANUARY2000
expect "ANYDTDTE date style" 0 "15737
15707" -- sh -c "'$KIVODT' --datestyle dmy informat ANYDTDTE 01/02/2003 && '$KIVODT' --datestyle mdy informat ANYDTDTE 01/02/2003"
expect "ANYDTTME and ANYDTDTM" 0 "48600
-5400
1263551400" -- sh -c "'$KIVODT' informat ANYDTTME '1:30 PM' -1:30 && '$KIVODT' informat ANYDTDTM 2000-01-15T10:30:00"

if "$KIVODT" format DATX9. 0 2>&1 | grep -q "did you mean DATE"; then :; else
    echo "FAIL unknown format does not suggest DATE"; failures=$((failures + 1))
fi
if "$KIVODT" format DATE12. 0 2>&1 | grep -q "DATE: widths 5-11"; then :; else
    echo "FAIL width error does not name the range"; failures=$((failures + 1))
fi

if [ "$failures" -ne 0 ]; then
    echo "$failures kivodt check(s) failed"
    exit 1
fi
echo "kivodt checks passed"
