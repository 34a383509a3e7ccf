#!/bin/sh
# kivodt end to end: exact output bytes and exit statuses.
set -u
set -f  # option words below are split on blanks, and "?" must stay a character
KIVODT=$1
failures=0

check() {  # check out|err NAME EXPECTED_STATUS EXPECTED_TEXT -- command...: standard output or error
    stream=$1 name=$2 status=$3 expected=$4
    shift 5
    if [ "$stream" = out ]; then actual=$("$@" 2>/dev/null); else actual=$("$@" 2>&1 >/dev/null); fi
    got=$?
    if [ "$got" -ne "$status" ] || [ "$actual" != "$expected" ]; then
        printf 'FAIL %s: status %s (want %s)\n--- got\n%s\n--- want\n%s\n' "$name" "$got" "$status" "$actual" "$expected"
        failures=$((failures + 1))
    fi
}
expect() { check out "$@"; }
fails() { check err "$@"; }

both_positions() {  # both_positions EXPECTED_OUTPUT "OPTION [ARGUMENT]" COMMAND SPEC VALUE...
    expected=$1 option=$2 command=$3
    shift 3
    expect "$option before $command" 0 "$expected" -- "$KIVODT" $option "$command" "$@"
    expect "$option after $command" 0 "$expected" -- "$KIVODT" "$command" $option "$@"
}

expect "DATE9 arguments" 0 "17MAR2021
01JAN1960" -- "$KIVODT" format DATE9. 22356 0
expect "lower-case spec, default width" 0 "01JAN60" -- "$KIVODT" format date 0
expect "missing values" 0 "      .
      A" -- "$KIVODT" format DATE7. . .a
expect "standard input" 0 "01JAN1960
02JAN1960" -- sh -c "printf '0\n1\n' | '$KIVODT' format DATE9."
expect "bad line goes on" 1 "01JAN1960
02JAN1960" -- sh -c "printf '0\nabc\n1\n' | '$KIVODT' format DATE9."
expect "width out of range" 2 "" -- "$KIVODT" format DATE12. 0
expect "unknown format" 2 "" -- "$KIVODT" format DATX9. 0
expect "unknown informat" 2 "" -- "$KIVODT" informat NOSUCH 0
expect "BEST12" 0 "3.1415926536
     -1E-300
           0" -- "$KIVODT" format BEST12. 3.14159265358979 -1e-300 0
expect "BEST default width, narrow widths" 0 "     1234567
  0
***" -- sh -c "'$KIVODT' format best 1234567 && '$KIVODT' format BEST3. -0.001 1e10"
expect "D8.3" 0 "  1.0000" -- "$KIVODT" format D8.3 1
expect "E10" 0 " 1.235E+04
-1.235E+04" -- "$KIVODT" format E10. 12345 -12345
expect "E below its widths" 2 "" -- "$KIVODT" format E6. 1
expect "w.d, missing on the point" 0 "    1234.568
     .  " -- sh -c "'$KIVODT' format 12.3 1234.5678 && '$KIVODT' format 8.2 ."
expect "PERCENT" 0 " 12.35% 
(50.00%)" -- "$KIVODT" format PERCENT8.2 0.12345 -0.5
expect "bad option value" 2 "" -- "$KIVODT" --datestyle xyz format DATE9. 0

expect "TIME12.3" 0 "12:34:56.789" -- "$KIVODT" format TIME12.3 45296.789
expect "TIME default width, negative" 0 " 0:00:00
-1:00:00" -- "$KIVODT" format time 0 -3600
expect "DATETIME default width" 0 "17MAR21:13:45:30" -- "$KIVODT" format DATETIME 1931607930.25
expect "DATETIME22.2" 0 " 17MAR2021:13:45:30.25" -- "$KIVODT" format DATETIME22.2 1931607930.25
expect "HHMM bare point" 0 "1:30." -- "$KIVODT" format HHMM5.1 5400
expect "TIMEAMPM11." 0 " 1:45:30 PM" -- "$KIVODT" format TIMEAMPM11. 49530
expect "MDYAMPM missing position" 0 "       .  " -- "$KIVODT" format MDYAMPM10.2 .
expect "MONDYTM below its widths" 2 "" -- "$KIVODT" format MONDYTM19. 0
expect "TIME decimals not below the width" 2 "" -- "$KIVODT" format TIME4.4 0
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

both_positions "2031" "--hex" format DAY2. 0
both_positions "15737" "--datestyle dmy" informat ANYDTDTE 01/02/2003
both_positions "-14974" "--yearcutoff 1900" informat ANYDTDTE 01/02/19
both_positions "      ?" "--missing-char ?" format DATE7. .
both_positions "**********" "--today 2021-03-16" format NENGO10. 22356
expect "after SPEC, -5 is a value" 0 "27DEC1959" -- "$KIVODT" format DATE9. -5
expect "after SPEC, --hex is a value" 1 "" -- "$KIVODT" format DATE9. --hex
expect "help after the command" 0 "usage:" -- sh -c "'$KIVODT' format --help | head -1"

expect "convert arguments" 0 "17MAR2021
17MAR2021" -- "$KIVODT" convert ANYDTDTE DATE9. 2021-03-17 03/17/2021
expect "convert standard input, a datetime to its day" 0 "17MAR2021
15JAN2000" -- sh -c "printf '2021-03-17T23:59:59\n2000-01-15 10:30\n' | '$KIVODT' convert ANYDTDTM DATE9."
expect "convert a day to its midnight" 0 "  17MAR21:00:00:00" -- "$KIVODT" convert ANYDTDTE DATETIME18. 17MAR2021
fails "convert a time to a date" 2 "kivodt: ANYDTTME reads a time, which DATE cannot show (it shows a day serial)
(kivodt --help explains the usage)" -- "$KIVODT" convert ANYDTTME DATE9. 1:30
fails "convert needs two specs" 2 "kivodt: convert needs an INFORMAT and a FORMAT
(kivodt --help explains the usage)" -- "$KIVODT" convert ANYDTDTE
expect "convert --hex-out" 0 "3137" -- "$KIVODT" convert --hex-out ANYDTDTE DAY2. 2021-03-17
expect "convert a packed format" 0 "2021076F" -- "$KIVODT" convert --hex-out ANYDTDTE PDJULG4. 2021-03-17
fails "convert a packed format as text" 2 "kivodt: PDJULG writes bytes, not text: run it with --hex or --hex-out
(kivodt --help explains the usage)" -- "$KIVODT" convert ANYDTDTE PDJULG4. 2021-03-17
expect "convert a rejected text: a blank field" 1 "17-MAR-2021
           " -- "$KIVODT" convert DATE9. DATE11. 17MAR2021 17XYZ2021
fails "convert a rejected text named" 1 'kivodt: argument 2: not read by DATE: "17XYZ2021"' -- \
    "$KIVODT" convert DATE9. DATE11. 17MAR2021 17XYZ2021
expect "convert --keep" 1 "17-MAR-2021
17XYZ2021" -- "$KIVODT" convert --keep DATE9. DATE11. 17MAR2021 17XYZ2021

csv() {  # csv NAME STATUS INPUT EXPECTED_OUTPUT -- kivodt arguments...: exact bytes, escapes as printf %b
    name=$1 status=$2 input=$3 expected=$4
    shift 5
    printf '%b' "$input" | "$KIVODT" "$@" >csv.out 2>/dev/null
    got=$?
    if [ "$got" -ne "$status" ] || ! printf '%b' "$expected" | cmp -s - csv.out; then
        printf 'FAIL %s: status %s (want %s)\n--- got\n' "$name" "$got" "$status"
        od -c csv.out
        failures=$((failures + 1))
    fi
    rm -f csv.out
}
csv "csv by header name, CRLF and quotes kept" 0 \
    'id,when,note\r\n1,2021-03-17,"a, ""b""\r\nc"\r\n2,"03/17/2021",x\r\n' \
    'id,when,note\r\n1,17MAR2021,"a, ""b""\r\nc"\r\n2,17MAR2021,x\r\n' -- convert --csv when ANYDTDTE DATE9.
csv "csv by number, no header, semicolons" 0 '1;22356;x\n2;;y\n' '1;17MAR2021;x\n2;;y\n' -- \
    --csv 2 --no-header --delimiter ';' format DATE9.
csv "csv tab delimiter, blanks kept" 0 'a\tb\n.\t0\n' 'a\tb\n        .\t01JAN1960\n' -- \
    --csv 1,2 --delimiter tab --keep-blanks format DATE9.
csv "csv output field holding a comma" 0 'id,day\n1,22356\n' 'id,day\n1,"March 17, 2021"\n' -- \
    --csv day format WORDDATE18.
csv "csv output field holding the delimiter" 0 't:at\n1:45296\n' 't:at\n1:"12:34:56"\n' -- \
    --csv at --delimiter : format TIME8.
csv "csv informat" 0 'd\n15JAN2000\n' 'd\n14624\n' -- --csv d informat ANYDTDTE
csv "csv bad value kept" 1 'a,b\n1,"x"\n' 'a,b\n1,"x"\n' -- --csv b --keep format DATE9.
fails "csv unknown column named" 2 'kivodt: no column "date" in the header; the columns are 1 "id", 2 "when"' -- \
    sh -c "printf 'id,when\n' | '$KIVODT' --csv date convert ANYDTDTE DATE9."
fails "csv ragged row named" 1 "kivodt: row 3 (line 4): 1 field where the first row has 2; copied unchanged" -- \
    sh -c "printf 'a,b\n\"1\n\",2\nx\n' | '$KIVODT' --csv b convert ANYDTDTE DATE9."
fails "csv option without --csv" 2 "kivodt: --no-header, --delimiter and --keep-blanks go with --csv
(kivodt --help explains the usage)" -- "$KIVODT" format --no-header DATE9. 0
fails "csv with values" 2 "kivodt: --csv reads standard input, so it takes no VALUE or TEXT arguments
(kivodt --help explains the usage)" -- "$KIVODT" format --csv 1 DATE9. 0

full="kivodt: cannot write standard output: No space left on device"
fails "format to a full device" 1 "$full" -- sh -c "'$KIVODT' format DATE9. 0 >/dev/full"
fails "list to a full device" 1 "$full" -- sh -c "'$KIVODT' list >/dev/full"
fails "help to a full device" 1 "$full" -- sh -c "'$KIVODT' --help >/dev/full"
fails "directory as input" 1 "kivodt: cannot read standard input: Is a directory" -- sh -c "'$KIVODT' format DATE9. </"
fails "closed input" 1 "kivodt: cannot read standard input: Bad file descriptor" -- sh -c "'$KIVODT' format DATE9. <&-"
env_error() {  # env_error VARIABLE=VALUE ALLOWED: named before any input is read
    fails "$1" 2 "kivodt: environment variable ${1%%=*} takes $2, not \"${1#*=}\"" -- \
        sh -c "echo 01/02/2003 | env '$1' '$KIVODT' informat ANYDTDTE"
}
env_error KIVO_DATESTYLE=xyz "dmy, dym, mdy, myd, ydm, ymd or locale"
env_error KIVO_DATESTYLE= "dmy, dym, mdy, myd, ydm, ymd or locale"
env_error KIVO_LOCALE_DATESTYLE=locale "dmy, dym, mdy, myd, ydm or ymd"
env_error KIVO_YEARCUTOFF=abc "a year from 1582 to 19900"
env_error KIVO_MISSING_CHAR=ab "one character"
env_error KIVO_TODAY=2021-02-29 "a day YYYY-MM-DD from 1582-01-01 to 20000-12-31, or nothing for the clock"
expect "DDMMYY10. and YYMMDD10." 0 "17/03/2021
2021-03-17" -- sh -c "'$KIVODT' format DDMMYY10. 22356 && '$KIVODT' format YYMMDD10. 22356"
expect "YYQR7. moves the year with the numeral" 0 " 1960QI
1960QII
 60QIII" -- "$KIVODT" format YYQR7. 0 91 182
expect "YYQR below its widths" 2 "" -- "$KIVODT" format YYQR5. 0
expect "DDMMYY10. informat" 1 "14624
14624
invalid
." -- "$KIVODT" informat DDMMYY10. 15/01/2000 150100 15/01-2000 .
expect "TIME8. informat: the field is the first 8 bytes" 0 "37815
-5400
44100" -- "$KIVODT" informat TIME8. 10:30:15.5 -1:30 "12:15 PM"
expect "CANSTAMP19. informat, two-digit year" 1 "1263551400
invalid" -- sh -c "'$KIVODT' --yearcutoff 1950 informat CANSTAMP19. '00-01-15 10:30:00' && '$KIVODT' informat CANSTAMP '2000-01-15  10:30:00'"
expect "HHMMSS cut by the field" 0 "37800" -- "$KIVODT" informat HHMMSS4. 103015
expect "WEEKDATX29. and WORDDATE default width" 0 "     Sunday, 5 September 2021
 September 5, 2021" -- sh -c "'$KIVODT' format WEEKDATX29. 22528 && '$KIVODT' format worddate 22528"
expect "week numbers at the turn of the year" 0 "2020-W53-05
2020-W53
21W00" -- sh -c "'$KIVODT' format WEEKV 22281 && '$KIVODT' format YYWEEKV8. 22281 && '$KIVODT' format WEEKU5. 22281"
expect "JULIAN, MINGUO" 0 "21076
110/03/17" -- sh -c "'$KIVODT' format JULIAN 22356 && '$KIVODT' format MINGUO9. 22356"
expect "NENGO after the today of KIVO_TODAY" 0 "*********" -- env KIVO_TODAY=2019-04-30 "$KIVODT" format NENGO9. 21670
expect "NENGO up to the today of KIVO_TODAY" 0 "R01/05/01" -- env KIVO_TODAY=2019-05-01 "$KIVODT" format NENGO9. 21670
expect "PDJULG and PDJULI as hex" 0 "2021076F
0121076F
0000000F" -- sh -c "'$KIVODT' --hex format PDJULG4. 22356 && '$KIVODT' --hex format PDJULI 22356 ."
expect "packed bytes need --hex" 2 "" -- "$KIVODT" format PDJULG4. 22356
expect "MINGUO outside its widths" 2 "" -- "$KIVODT" format MINGUO11. 22356

# --threads: standard input in blocks on several threads gives the bytes and messages of one thread.
same_on_threads() {  # same_on_threads NAME INPUT COMMAND...: stdout and stderr alike for 1 to 3 threads
    name=$1 input=$2
    shift 2
    one=$(printf "$input" | "$KIVODT" --threads 1 "$@" 2>&1)
    for n in 2 3; do
        many=$(printf "$input" | "$KIVODT" --threads $n "$@" 2>&1)
        [ "$many" = "$one" ] || { echo "FAIL $name on $n threads: $many"; failures=$((failures + 1)); }
    done
}
same_on_threads "format" '0\nabc\r\n22356\n\n-5\n.A' format DATE9.
same_on_threads "informat" '15JAN2000\r\n2000-01-15\nx\n' informat ANYDTDTE
same_on_threads "convert" '15JAN2000\nnot a date\n' convert DATE9. YYMMDD10.
fails "--threads 0" 2 "kivodt: --threads takes a number from 1 to 256, not \"0\"
(kivodt --help explains the usage)" -- "$KIVODT" format --threads 0 DATE9. 0

expect "packed time as hex pairs" 0 "5025
-5025
." -- "$KIVODT" --hex informat PDTIME4. 0012345C 0012345D 00123455
fails "packed time without --hex" 2 "kivodt: PDTIME reads bytes, not text: give them as hex pairs with --hex" -- \
    "$KIVODT" informat PDTIME4. 0012345C
expect "week dates" 0 "22356
22356" -- "$KIVODT" informat WEEKV 2021-W11-03 2021W1103

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
