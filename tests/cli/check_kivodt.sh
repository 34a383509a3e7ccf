#!/bin/sh
# kivodt end to end: exact output bytes, messages and exit statuses of the program itself. What the
# formats, informats, converter and CSV reader make of their inputs is the unit tests' business; here
# go the front end's own numeric formats, options and environment, streams, and the paths through main.
set -u
set -f  # option words below are split on blanks, and "?" must stay a character
KIVODT=$1
failures=0
fail() { printf 'FAIL %s\n' "$*"; failures=$((failures + 1)); }

check() {  # check out|err NAME EXPECTED_STATUS EXPECTED_TEXT -- command...: standard output or error
    stream=$1 name=$2 status=$3 expected=$4
    shift 5
    if [ "$stream" = out ]; then actual=$("$@" 2>/dev/null); else actual=$("$@" 2>&1 >/dev/null); fi
    got=$?
    [ "$got" -eq "$status" ] && [ "$actual" = "$expected" ] ||
        fail "$name: status $got (want $status)
--- got
$actual
--- want
$expected"
}
lines() { printf '%s\n' "$@"; }  # lines A B...: the arguments one to a line, for an expected output
expect() { check out "$@"; }
fails() { check err "$@"; }
usage_error() {  # usage_error NAME MESSAGE -- command...: status 2 and the one line of the message
    name=$1 message=$2
    shift 2
    fails "$name" 2 "kivodt: $message" "$@"
}
both_positions() {  # both_positions EXPECTED_OUTPUT "OPTION [ARGUMENT]" COMMAND SPEC VALUE...
    expected=$1 option=$2 command=$3
    shift 3
    expect "$option before $command" 0 "$expected" -- "$KIVODT" $option "$command" "$@"
    expect "$option after $command" 0 "$expected" -- "$KIVODT" "$command" $option "$@"
}

expect "DATE9 arguments" 0 "$(lines 17MAR2021 01JAN1960)" -- "$KIVODT" format DATE9. 22356 0
expect "lower-case spec, default width, missing values" 0 "$(lines 01JAN60 '      A')" -- "$KIVODT" format date 0 .a
expect "standard input, a bad line goes on" 1 "$(lines 01JAN1960 '         ' 02JAN1960)" -- \
    sh -c "printf '0\nabc\n1\n' | '$KIVODT' format DATE9."
usage_error "width out of range" '"DATE12.": width 12 is outside the range of DATE: widths 5-11 (default 7)' -- \
    "$KIVODT" format DATE12. 0
usage_error "decimals out of range, as typed" \
    '"DATE9.2": decimals 2 are outside the range of DATE at width 9: decimals 0-0' -- "$KIVODT" format DATE9.2 0
usage_error "unknown format" 'unknown format "DATX9."; did you mean DATE, DAY?' -- "$KIVODT" format DATX9. 0
usage_error "unknown informat" 'unknown informat "NOSUCH"; kivodt list shows them all' -- \
    "$KIVODT" informat NOSUCH 0
usage_error "a hostile spec, cut and escaped" \
    "unknown format \"$(printf 'x%.0s' $(seq 60))\"... (131000 bytes); kivodt list shows them all" -- \
    sh -c "'$KIVODT' format \"\$(head -c 131000 /dev/zero | tr -c x x)\" 0"
usage_error "bad option value" '--datestyle takes dmy, dym, mdy, myd, ydm, ymd or locale, not "xyz"' -- \
    "$KIVODT" --datestyle xyz format DATE9. 0
for help in "-h" "--help" "help" "help format" "format --help"; do
    expect "$help" 0 "usage:" -- sh -c "'$KIVODT' $help | head -1"
done
expect "--version" 0 "kivodt $(sed -n 's/^project(kivoudtmf VERSION \([0-9.]*\).*/\1/p' "$(dirname "$0")/../../CMakeLists.txt")" -- \
    "$KIVODT" --version
usage_error "a mistyped command" 'unknown command "formt"; did you mean format?' -- "$KIVODT" formt DATE9. 1
usage_error "a mistyped option" 'unknown option "--datestyl"; did you mean --datestyle?' -- \
    "$KIVODT" --datestyl dmy format DATE9. 1
usage_error "extra arguments" 'list takes no arguments, not "extra"' -- "$KIVODT" list extra
usage_error "a misplaced option" "--csv does not go with list" -- "$KIVODT" --csv 1 list
usage_error "no command" "no command given; kivodt --help shows the usage" -- "$KIVODT"
fails "format given dates points to convert, once" 1 "$(lines \
    'kivodt: argument 1: not a number or missing value: "2021-03-17"; to read dates, use convert or informat: kivodt convert ANYDTDTE DATE9.' \
    'kivodt: argument 2: not a number or missing value: "17MAR2021"')" -- "$KIVODT" format date9 2021-03-17 17MAR2021
expect "after SPEC, -5 is a value" 0 "27DEC1959" -- "$KIVODT" format DATE9. -5

# The front end's own numeric formats.
expect "BEST12" 0 "$(lines 3.1415926536 '     -1E-300' '           0')" -- \
    "$KIVODT" format BEST12. 3.14159265358979 -1e-300 0
expect "BEST default width, narrow widths" 0 "$(lines '     1234567' '  0' '***')" -- \
    sh -c "'$KIVODT' format best 1234567 && '$KIVODT' format BEST3. -0.001 1e10"
expect "D8.3, E10" 0 "$(lines '  1.0000' ' 1.235E+04' '-1.235E+04')" -- \
    sh -c "'$KIVODT' format D8.3 1 && '$KIVODT' format E10. 12345 -12345"
expect "w.d, missing on the point" 0 "$(lines '    1234.568' '     .  ')" -- \
    sh -c "'$KIVODT' format 12.3 1234.5678 && '$KIVODT' format 8.2 ."
expect "PERCENT" 0 "$(lines ' 12.35% ' '(50.00%)')" -- "$KIVODT" format PERCENT8.2 0.12345 -0.5
expect "ANYDTDTE values printed, day 0 and nothing read named" 1 "$(lines 14624 0 .)" -- \
    "$KIVODT" informat ANYDTDTE. 15JAN2000 "10:30 PM" JANUARY2000

# Every option means the same before and after the command word (the command-line tests hold them all).
both_positions "15737" "--datestyle dmy" informat ANYDTDTE 01/02/2003
both_positions "-14974" "--yearcutoff 1900" informat ANYDTDTE 01/02/19
both_positions "**********" "--today 2021-03-16" format NENGO10. 22356
expect "--hex, --missing-char" 0 "$(lines 2031 '      ?')" -- sh -c "'$KIVODT' --hex format DAY2. 0 && '$KIVODT' format --missing-char '?' DATE7. ."

expect "convert, standard input, a datetime to its day" 0 "$(lines 17MAR2021 15JAN2000)" -- \
    sh -c "printf '2021-03-17T23:59:59\n2000-01-15 10:30\n' | '$KIVODT' convert ANYDTDTM DATE9."
usage_error "convert a time to a date" "ANYDTTME reads a time, which DATE cannot show (it shows a day serial)" -- \
    "$KIVODT" convert ANYDTTME DATE9. 1:30
usage_error "convert needs two specs" "convert needs an INFORMAT and a FORMAT; kivodt help convert shows how" -- \
    "$KIVODT" convert ANYDTDTE
expect "convert a packed format" 0 "2021076F" -- "$KIVODT" convert --hex-out ANYDTDTE PDJULG4. 2021-03-17
usage_error "convert a packed format as text" "PDJULG writes bytes, not text: run it with --hex or --hex-out" -- \
    "$KIVODT" convert ANYDTDTE PDJULG4. 2021-03-17
fails "convert a rejected text named" 1 'kivodt: argument 2: not read by DATE: "17XYZ2021"' -- \
    "$KIVODT" convert DATE9. DATE11. 17MAR2021 17XYZ2021
expect "convert --keep" 1 "$(lines 17-MAR-2021 17XYZ2021)" -- \
    "$KIVODT" convert --keep DATE9. DATE11. 17MAR2021 17XYZ2021

expect "csv by number, no header, semicolons" 0 "$(lines '1;17MAR2021;x' '2;;y')" -- \
    sh -c "printf '1;22356;x\n2;;y\n' | '$KIVODT' --csv 2 --no-header --delimiter ';' format DATE9."
expect "csv tab delimiter, blanks kept" 0 "$(printf 'a\tb\n        .\t01JAN1960')" -- \
    sh -c "printf 'a\tb\n.\t0\n' | '$KIVODT' --csv 1,2 --delimiter tab --keep-blanks format DATE9."
expect "csv output field holding the delimiter, quoted" 0 "$(lines id,day '1,"March 17, 2021"')" -- \
    sh -c "printf 'id,day\n1,22356\n' | '$KIVODT' --csv day format WORDDATE18."
usage_error "csv option without --csv" "--no-header, --delimiter and --keep-blanks go with --csv" -- \
    "$KIVODT" format --no-header DATE9. 0
expect "a byte-order mark passes and is no part of a name" 0 "$(printf '\357\273\277day,id\n17MAR2021,1')" -- \
    sh -c "printf '\\357\\273\\277day,id\\n22356,1\\n' | '$KIVODT' --csv day format DATE9."
expect "an all-digit column name in quotes" 0 "$(lines 'id,2021' '1,17MAR2021')" -- \
    sh -c "printf 'id,2021\\n1,22356\\n' | '$KIVODT' --csv '\"2021\"' format DATE9."
usage_error "a column name the header holds twice" 'column "day" is in the header twice, as 2 and 3; choose it by number' -- \
    sh -c "printf 'id,day,day\\n1,2,3\\n' | '$KIVODT' --csv day format DATE9."
usage_error "a long header listed to 20 columns" \
    "no column \"x\" in the header; the columns are 1 \"c1\", 2 \"c2\", 3 \"c3\", 4 \"c4\", 5 \"c5\", 6 \"c6\", 7 \"c7\", 8 \"c8\", 9 \"c9\", 10 \"c10\", \
11 \"c11\", 12 \"c12\", 13 \"c13\", 14 \"c14\", 15 \"c15\", 16 \"c16\", 17 \"c17\", 18 \"c18\", 19 \"c19\", 20 \"c20\" and 5 more" -- \
    sh -c "seq 25 | sed 's/^/c/' | paste -sd, | '$KIVODT' --csv x format DATE9."
usage_error "csv with values" "--csv reads standard input, so it takes no VALUE or TEXT arguments" -- \
    "$KIVODT" format --csv 1 DATE9. 0

full="kivodt: cannot write standard output: No space left on device"
fails "format to a full device" 1 "$full" -- sh -c "'$KIVODT' format DATE9. 0 >/dev/full"
fails "list to a full device" 1 "$full" -- sh -c "'$KIVODT' list >/dev/full"
fails "help to a full device" 1 "$full" -- sh -c "'$KIVODT' --help >/dev/full"
fails "closed input" 1 "kivodt: cannot read standard input: Bad file descriptor" -- sh -c "'$KIVODT' format DATE9. <&-"
env_error() {  # env_error VARIABLE=VALUE ALLOWED: named before any input is read
    fails "$1" 2 "kivodt: environment variable ${1%%=*} takes $2, not \"${1#*=}\"" -- \
        sh -c "echo 01/02/2003 | env '$1' '$KIVODT' informat ANYDTDTE"
}
env_error KIVO_DATESTYLE=xyz "dmy, dym, mdy, myd, ydm, ymd or locale"
env_error KIVO_LOCALE_DATESTYLE=locale "dmy, dym, mdy, myd, ydm or ymd"
env_error KIVO_TODAY=2021-02-29 "a day YYYY-MM-DD from 1582-01-01 to 20000-12-31, or nothing for the clock"
expect "NENGO after the today of KIVO_TODAY" 0 "*********" -- env KIVO_TODAY=2019-04-30 "$KIVODT" format NENGO9. 21670
expect "NENGO up to the today of KIVO_TODAY" 0 "R01/05/01" -- env KIVO_TODAY=2019-05-01 "$KIVODT" format NENGO9. 21670

# Bytes as hex pairs, both ways.
expect "PDJULI as hex" 0 "$(lines 0121076F 0000000F)" -- "$KIVODT" --hex format PDJULI 22356 .
usage_error "packed bytes need --hex" "PDJULG writes bytes, not text: run it with --hex or --hex-out" -- \
    "$KIVODT" format PDJULG4. 22356
expect "packed time as hex pairs" 0 "$(lines 5025 .)" -- "$KIVODT" --hex informat PDTIME4. 0012345C 00123455
usage_error "packed time without --hex" \
    "PDTIME reads bytes, not text: give them as hex pairs with --hex or --hex-in" -- "$KIVODT" informat PDTIME4. 0012345C

# --threads: standard input in blocks on several threads gives the bytes and messages of one thread.
same_on_threads() {  # same_on_threads NAME INPUT COMMAND...: stdout and stderr alike for 1 to 3 threads
    name=$1 input=$2
    shift 2
    one=$(printf "$input" | "$KIVODT" --threads 1 "$@" 2>&1)
    for n in 2 3; do
        many=$(printf "$input" | "$KIVODT" --threads $n "$@" 2>&1)
        [ "$many" = "$one" ] || fail "$name on $n threads: $many"
    done
}
same_on_threads "format" '0\nabc\r\n22356\n\n-5\n.A' format DATE9.
same_on_threads "informat" '15JAN2000\r\n2000-01-15\nx\n' informat ANYDTDTE
same_on_threads "convert" '15JAN2000\nnot a date\n' convert DATE9. YYMMDD10.
same_on_threads "hex pairs" '0012345C\nzz\n\n00123455' --hex informat PDTIME4.
same_on_threads "csv" 'a,b\n1,2021-03-17\n2,x\n3,\n' --csv b convert ANYDTDTE DATE9.

# Nothing lost, nothing invented, nothing silently misread.
for n in 1 2; do
    fails "a line over the limit on $n threads" 1 \
        "kivodt: line 2: longer than 1048576 bytes: \"$(printf '%060d' 0 | tr 0 7)\"..." -- sh -c \
        "{ echo 1; head -c 5000000 /dev/zero | tr -c 7 7; printf '\\n2\\n3\\n'; } | '$KIVODT' --threads $n format DATE9."
    expect "the lines after it on $n threads" 1 "$(lines 02JAN1960 03JAN1960 04JAN1960)" -- sh -c \
        "{ echo 1; head -c 5000000 /dev/zero | tr -c 7 7; printf '\\n2\\n3\\n'; } | '$KIVODT' --threads $n format DATE9."
done
expect "numbers below the smallest double read as 0" 0 "$(lines '           0' '           0')" -- \
    "$KIVODT" format BEST12. 4.9e-325 -1e-400
fails "numbers above the largest are refused" 1 'kivodt: argument 1: not a number or missing value: "1e400"' -- \
    "$KIVODT" format BEST12. 1e400
fails "bytes past the width" 1 \
    'kivodt: argument 1: 1 byte past the width 10: give a wider width or none: " 2021-03-17"' -- \
    "$KIVODT" convert YYMMDD10. DATE9. ' 2021-03-17'
fails "free-form day 0 named" 1 "$(lines 'kivodt: argument 1: read as day 0 (01JAN1960): "."' \
    'kivodt: argument 2: read as day 0 (01JAN1960): "10:30"')" -- "$KIVODT" convert ANYDTDTE DATE9. . 10:30
if [ -z "${KIVODT_SANITIZED:-}" ]; then  # the sanitizers' runtimes need more stack and address space
    expect "a 64 KiB stack" 0 "16OCT2233" -- sh -c "ulimit -s 64; seq 100000 | '$KIVODT' --threads 2 format DATE9. | tail -1"
    for kib in 6000 8000 10000 12000 16000; do  # one line, never an abort, wherever memory runs out
        out=$(sh -c "ulimit -v $kib; exec '$KIVODT' format DATE9. 0" 2>&1)
        status=$?
        case $status:$out in
            *"loading shared libraries"*|0:01JAN1960|"1:kivodt: out of memory") ;;
            *) fail "memory limited to $kib KiB: status $status: $out" ;;
        esac
    done
fi
usage_error "--threads 0" '--threads takes a number from 1 to 256, not "0"' -- "$KIVODT" format --threads 0 DATE9. 0

if [ "$failures" -ne 0 ]; then
    echo "$failures kivodt check(s) failed"
    exit 1
fi
echo "kivodt checks passed"
