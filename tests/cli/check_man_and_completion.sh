#!/bin/bash
# kivodt's manual page and bash completion: the page renders and names every option --help lists; the
# completion offers commands, options, option values and format and informat names. It uses no helper
# of the bash-completion package, which need not be installed.
set -u
KIVODT=$1 MANPAGE=$2 COMPLETION=$3
failures=0
fail() { printf 'FAIL %s\n' "$*"; failures=$((failures + 1)); }

if command -v man >/dev/null; then
    page=$(MANWIDTH=200 man -l "$MANPAGE" 2>&1 | col -b) || fail "man -l $MANPAGE: $page"
    for option in $("$KIVODT" --help | grep -oE '(^|[ ,])--?[a-z][a-z-]*' | tr -d ' ,' | sort -u); do
        grep -qe "$option" <<<"$page" || fail "the manual page does not name $option"
    done
else
    echo "skipped the manual page: man is not installed (Debian package man-db)"
fi

source "$COMPLETION"
completes() {  # completes EXPECTED WORD... : COMPREPLY for the words, the last being completed
    local expected=$1
    shift
    COMP_WORDS=("$KIVODT" "$@")
    COMP_CWORD=$#
    _kivodt
    local got=" ${COMPREPLY[*]} "
    for word in $expected; do
        [[ $got == *" $word "* ]] || fail "completing '$*': no $word in:$got"
    done
}
completes "format informat convert list help" ""
completes "format" fo
completes "--datestyle" --datestyle dmy format --dat
completes "dmy ydm" --datestyle ""
completes "DATE DATETIME DATEAMPM" format dat
completes "ANYDTDTE" convert any
completes "DATE WORDDATE" convert ANYDTDTE ""
[[ " ${COMPREPLY[*]} " != *" ANYDTDTE "* ]] || fail "convert's second spec is a format, not an informat"
completes "ANYDTDTE" --csv 2 informat any
completes "--markdown" list --m

if [ "$failures" -ne 0 ]; then
    echo "$failures manual page and completion check(s) failed"
    exit 1
fi
echo "manual page and completion checks passed"
