#!/usr/bin/env bash
# vantrel-bench from outside: help, unknown verbs, and the lines of JSON of the verbs. No time and no size is judged here,
# but what has to be exact is.
set -u
bench=$1
failures=0
fail() { echo "FAIL: $1"; failures=$((failures + 1)); }

help=$("$bench" --help) || fail "--help ends with $?"
for verb in math containers against open compile compile_one record drag undo delete xform memory; do
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

number='-?[0-9.]+(e[+-]?[0-9]+)?'
begin='^\{"verb":"[a-z_]+","case":"[a-z0-9_]+"'
result="$begin,\"figure_ns\":$number,\"floor_ns\":$number,\"ratio\":$number,\"pairs\":[0-9]+\}\$"
figure="$begin,\"(figure_ns|bytes|bytes_per_object|bytes_per_change)\":$number\}\$"
judged="$begin,\"[a-z_]+\":$number,\"(limit|wanted)\":$number,\"holds\":(true|false)\}\$"

# runs VERB ARGUMENT...: the lines stand in $lines.
runs() {
    lines=$("$bench" "$@" --seconds 0) || fail "'$*' ends with $?"
    while read -r line; do
        grep -qE "$result|$figure|$judged" <<<"$line" || fail "not a line of $1: $line"
        grep -q "^{\"verb\":\"$1\"," <<<"$line" || fail "a line of $1 names another verb: $line"
    done <<<"$lines"
}
# judges CASE QUANTITY LIMIT: the verb holds itself to that.
judges() {
    grep -qE "\"case\":\"$1\",\"$2\":$number,\"(limit|wanted)\":$3," <<<"$lines" || fail "no $2 of $1, limit $3: $lines"
}
# is_exactly CASE QUANTITY COUNT
is_exactly() {
    grep -q "\"case\":\"$1\",\"$2\":$3,\"wanted\":$3,\"holds\":true" <<<"$lines" ||
        fail "$2 of $1: $(grep "\"$1\"" <<<"$lines")"
}

runs open 64
for topology in flat tree reverse random chain; do
    judges ${topology}_cold exponent 1.15
    judges ${topology}_warm exponent 1.15
done
grep -q '"case":"flat_cold_64","figure_ns"' <<<"$lines" || fail "open does not measure the size that it is asked for"
runs compile 64
for topology in flat tree reverse random chain; do judges ${topology}_cold exponent 1.15; done
for state in cold warm; do
    judges beside_floor_mixed_$state ratio 15
    judges beside_floor_five_$state ratio 15
done
runs compile 64 chain
judges chain_warm exponent 1.15
grep -q '"flat_' <<<"$lines" && fail "compile measures topologies that it was not asked for"
runs compile_one 64
judges translation exponent 0.3
judges components exponent 0.3
runs record 64 500
judges changes exponent 1.1
judges objects exponent 0.4
judges beside_bare_log ratio 4
runs drag 300 200 6
judges dragged exponent 1.15
judges objects exponent 0.4
judges first_frame_beside_later ratio 4
is_exactly heap_growth bytes 0
runs undo 300 100
judges beside_drag_frame ratio 3
is_exactly objects_compiled objects 100
is_exactly components_compiled objects 0
is_exactly document_differs documents 0
runs delete 300 50
judges deleted exponent 1.15
judges one moves 1.5
runs xform 64
for topology in flat tree random chain; do
    judges ${topology}_all ratio 3
    judges ${topology}_leaf_beside_all ratio 0.1
    grep -q "\"case\":\"${topology}_beside_bare_loop\".*\"holds\":true" <<<"$lines" ||
        fail "the bare loop over $topology computes something else: $lines"
done
runs memory 64
judges all bytes_per_object 1500
for part in document index_and_checks compiler scene peak_of_opening; do
    grep -q "\"case\":\"$part\",\"bytes_per_object\"" <<<"$lines" || fail "no bytes of $part"
done

error=$("$bench" open 65535 2>&1) && fail "too many objects end with 0"
grep -q 65534 <<<"$error" || fail "the limit is not named: $error"
"$bench" compile 64 circle >/dev/null 2>&1 && fail "an unknown topology ends with 0"

[ $failures -eq 0 ] && echo "vantrel-bench: all as expected"
exit $failures
