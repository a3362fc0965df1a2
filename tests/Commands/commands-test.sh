#!/usr/bin/env bash
# run.sh and test.sh: options, and what happens when packages are missing. A folder of stand-ins in front of PATH plays
# the package tools; nothing is installed and nothing is built.
set -u
project=$1
failures=0
stand_ins=$(mktemp -d)
trap 'rm -rf "$stand_ins"' EXIT

fail() {
    echo "FAIL: $1"
    sed 's/^/  | /' "$stand_ins/output"
    failures=$((failures + 1))
}

# run STATUS COMMAND...: runs with the stand-ins and no terminal, output in $stand_ins/output.
run() {
    local expected=$1 status
    shift
    PATH="$stand_ins:$PATH" "$@" </dev/null >"$stand_ins/output" 2>&1
    status=$?
    [ $status -eq "$expected" ] || fail "$* ended with $status instead of $expected"
}
says() { grep -qF -- "$1" "$stand_ins/output" || fail "expected: $1"; }
never_says() { ! grep -qF -- "$1" "$stand_ins/output" || fail "not expected: $1"; }
lines() { [ "$(wc -l <"$stand_ins/output")" -eq "$1" ] || fail "expected $1 lines"; }
stand_in() { printf '#!/bin/sh\n%s\n' "$2" >"$stand_ins/$1"; chmod +x "$stand_ins/$1"; }

# No test reaches a registry.
stand_in npm 'exit 1'

for command in run.sh test.sh; do
    run 0 "$project/$command" --help
    for option in $(grep -oE '^ +--[a-z-]+\)|--[a-z-]+\|-h\)' "$project/$command" | grep -oE -- '--[a-z-]+'); do
        says "$option"
    done
    says --no-install

    run 2 "$project/$command" --nonsense
    lines 1
    says "unknown option '--nonsense'"

    run 2 "$project/$command" --jobs
    lines 1
    says "--jobs needs a value"

    # No root and no sudo: the exact command, and nothing else happens.
    stand_in id 'echo 1000'
    stand_in sudo 'exit 1'
    stand_in cmake 'echo CMAKE RAN'
    stand_in ctest 'echo CTEST RAN'
    stand_in apt-get 'echo "APT $*"'
    stand_in dpkg-query 'case "$*" in *libepoxy-dev|*xauth) exit 1 ;; *) printf installed ;; esac'
    run 1 "$project/$command"
    says 'apt-get update && apt-get install -y --no-install-recommends libepoxy-dev xauth'
    never_says RAN
    never_says APT

    # Root: says which, updates first, installs only what is missing.
    stand_in id 'echo 0'
    stand_in cmake 'echo CMAKE RAN; exit 3'
    run 3 "$project/$command"
    says 'Installing: libepoxy-dev xauth'
    says 'APT update'
    says 'APT install -q -y --no-install-recommends libepoxy-dev xauth'
    [ "$(grep -n 'APT update' "$stand_ins/output" | cut -d: -f1)" -lt \
        "$(grep -n 'APT install' "$stand_ins/output" | cut -d: -f1)" ] || fail 'update comes first'

    # A half-removed package counts as missing.
    stand_in dpkg-query 'case "$*" in *xvfb) printf config-files ;; *) printf installed ;; esac'
    run 3 "$project/$command"
    says 'Installing: xvfb'

    # Everything there, or told not to look: the package tools are left alone.
    run 3 "$project/$command" --no-install
    never_says APT
    stand_in dpkg-query 'printf installed'
    run 3 "$project/$command"
    never_says APT
    says 'CMAKE RAN'
done

# The long run: both kinds of it, whatever becomes of the first, and no other run is one.
long=$stand_ins/long
mkdir -p "$long/build/asan/bin"
cp -r "$project/test.sh" "$project/tools" "$long/"
stand_in cmake 'echo "CMAKE $*"'
stand_in ctest 'echo "LONG ${VANTREL_LONG_TESTS:-no}"; exit 5'
printf '#!/bin/sh\necho "MONKEY $VANTREL_MONKEY_EVENTS $ASAN_OPTIONS"\n' >"$long/build/asan/bin/EditorMonkey"
chmod +x "$long/build/asan/bin/EditorMonkey"
run 5 "$long/test.sh" --no-install --long
says 'LONG 1'
says 'CMAKE --preset asan'
says 'MONKEY 1000000 detect_leaks=0'
run 5 env VANTREL_MONKEY_EVENTS=77 "$long/test.sh" --no-install --long
says 'MONKEY 77 '
run 5 "$long/test.sh" --no-install
says 'LONG no'
never_says MONKEY
stand_in ctest 'exit 0'
printf '#!/bin/sh\nexit 6\n' >"$long/build/asan/bin/EditorMonkey"
run 6 "$long/test.sh" --no-install --long

# The icons' font: what npm brings is taken when it is the one that is meant, and nothing stops when it is not.
package="$stand_ins/package" folder="$stand_ins/folder"
mkdir -p "$package/package/webfonts" "$folder"
echo 'a font' >"$package/package/webfonts/fa-solid-900.ttf"
echo 'a licence' >"$package/package/LICENSE.txt"
tar -czf "$stand_ins/icons.tgz" -C "$package" package
sum=$(sha256sum "$package/package/webfonts/fa-solid-900.ttf" | cut -d' ' -f1)
font=$folder/.cache/icons/fa-solid-900.ttf

# fetch SUM: as run.sh and test.sh do it, in a folder of its own.
fetch() {
    run 0 env -C "$folder" bash -euo pipefail -c "source $project/tools/setup.sh; icons_sha256=$1; fetch_icons; echo done"
    says done
    [ "$(ls "$folder/.cache/icons" | grep -c fresh)" -eq 0 ] || fail 'leftovers of a download'
}
brings='while [ $# -gt 0 ]; do [ "$1" = --pack-destination ] && cp '"$stand_ins/icons.tgz"' "$2/"; shift; done'

fetch "$sum"
says 'cannot be fetched'
lines 2
[ ! -e "$font" ] || fail 'a font that nobody brought'
stand_in npm "$brings"
fetch 0000
says 'cannot be fetched'
[ ! -e "$font" ] || fail 'another font than is meant'
fetch "$sum"
lines 1
cmp -s "$font" "$package/package/webfonts/fa-solid-900.ttf" || fail 'the font'
[ -s "$folder/.cache/icons/fa-solid-900.LICENSE.txt" ] || fail 'the licence of the font'
stand_in npm 'echo NPM RAN >&2; exit 1'
fetch "$sum"
lines 1
echo damaged >"$font"
stand_in npm "$brings"
fetch "$sum"
cmp -s "$font" "$package/package/webfonts/fa-solid-900.ttf" || fail 'a damaged font is replaced'
rm "$font" "$stand_ins/npm"
run 0 env -C "$folder" PATH=/nowhere "$BASH" -c "source $project/tools/setup.sh; fetch_icons"
lines 0

[ $failures -eq 0 ] && echo "run.sh and test.sh: all as expected"
exit $failures
