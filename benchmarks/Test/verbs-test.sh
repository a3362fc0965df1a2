#!/usr/bin/env bash
# vantrel-bench from outside: help, unknown verbs, and lines of JSON from a verb. No figure is judged here.
set -u
bench=$1
failures=0
fail() { echo "FAIL: $1"; failures=$((failures + 1)); }

help=$("$bench" --help) || fail "--help ends with $?"
for verb in math containers against; do
    grep -q "$verb" <<<"$help" || fail "--help does not name $verb"
done

error=$("$bench" nonsense 2>&1 >/dev/null) && fail "an unknown verb ends with 0"
grep -q nonsense <<<"$error" || fail "an unknown verb is not named: $error"
"$bench" >/dev/null 2>&1 && fail "no verb ends with 0"
error=$("$bench" against /nonexistent/vantrel-bench math 2>&1) && fail "a missing program ends with 0"
grep -q /nonexistent/vantrel-bench <<<"$error" || fail "a missing program is not named: $error"

lines=$("$bench" math) || fail "math ends with $?"
[ "$(wc -l <<<"$lines")" -eq 3 ] || fail "math prints other than three lines: $lines"
while read -r line; do
    grep -qE '^\{"verb":"math","case":"[a-z0-9_]+","figure_ns":[0-9.e+]+,"floor_ns":[0-9.e+]+,"ratio":[0-9.e+-]+,"pairs":[0-9]+\}$' \
        <<<"$line" || fail "not a line of figures: $line"
done <<<"$lines"

[ $failures -eq 0 ] && echo "vantrel-bench: all as expected"
exit $failures
