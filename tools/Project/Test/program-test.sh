#!/usr/bin/env bash
# vantrel-project from outside: every verb on generated and on sample projects, and on bad input.
set -u
program=$1
samples=$2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
failures=0
fail() { echo "FAIL: $1"; failures=$((failures + 1)); }

# ends STATUS ARGUMENT...: runs the program; what it prints goes to the files out and err.
ends() {
    local wanted=$1
    shift
    "$program" "$@" >out 2>err
    local status=$?
    [ $status -eq "$wanted" ] || fail "'$*' ends with $status, not $wanted: $(cat out err | head -5)"
}
says() { grep -qF -- "$2" "$1" || fail "'$2' is missing: $(head -5 "$1")"; }
is_empty() { [ ! -s "$1" ] || fail "$2: $(head -5 "$1")"; }

# Generated projects.
for topology in flat tree reverse random chain; do
    for ids in uuid short; do
        ends 0 generate 700 --topology $topology --seed 5 --ids $ids -o generated.json
        ends 0 check generated.json
        is_empty out "a generated project has problems"
        is_empty err "a check without problems says something"
        ends 0 compile generated.json --stats
        grep -qE '^objects +700$' out || fail "compile counts other than 700 objects of $topology"
        grep -qE '^  mesh +[1-9][0-9]*$' out || fail "compile counts no meshes of $topology"
        grep -qE '^  materials +8$' out || fail "compile counts other than 8 materials"
        for stage in 'read and check' resources objects transformations; do
            grep -qE "^$stage +[0-9.]+ ms\$" out || fail "no time for $stage"
        done
    done
done
ends 0 generate 50 --seed 9
cp out printed.json
ends 0 generate 50 --seed 9 -o written.json
cmp -s printed.json written.json || fail "the same options give two projects"
ends 0 generate 50 --seed 10 -o other.json
cmp -s other.json written.json && fail "two seeds give one project"
ends 0 generate 0 -o empty.json
ends 0 check empty.json
ends 0 generate 20 --components 5 -o five.json
ends 0 compile five.json --stats
grep -qE '^components +100$' out || fail "20 objects with 5 components each are counted otherwise: $(cat out)"
ends 0 compile five.json
is_empty out "compile without --stats prints something"

# Sample projects: without problems, and in the form in which they are saved.
: >nothing.txt
count=0
for sample in "$samples"/*/project.json; do
    count=$((count + 1))
    ends 0 check "$sample"
    is_empty out "$sample has problems"
    ends 0 apply "$sample" nothing.txt
    cmp -s out "$sample" || fail "$sample is not as it would be saved: $(diff out "$sample" | head -5)"
done
[ $count -ge 2 ] || fail "there are $count sample projects in $samples"

# What check finds.
cat >broken.json <<'JSON'
{
  "objects": {
    "a": {"name": "A", "parent": "b", "components": []},
    "b": {"name": "B", "parent": "a"},
    "lost": {"name": "Lost", "parent": "nobody"},
    "lamp": {"name": "Lamp", "parent": "", "components": [
      {"type": "light", "active": true, "light": {"type": "laser", "color": [1, 1, 1], "intensity": 1, "outerAngle": 1,
        "innerAngle": 1, "shadows": false, "shadowRange": 1, "shadowBias": 0, "shadowNormalBias": 0,
        "shadowTexelSize": 0}},
      {"type": "nothingOfThisName", "active": true},
      {"type": "input", "active": true, "input": {"type": "telepathy"}}]}
  },
  "meshes": {"tree": {"name": "Tree", "file": "no-such-file.glb"}}
}
JSON
ends 1 check broken.json
says out 'repaired: objects/a/parent: '
says out 'warning: objects/lost/parent: '
says out 'warning: objects/lamp/components/0: unknown light type laser'
says out 'warning: objects/lamp/components/1: '
says out 'telepathy'
says out 'warning: objects/b/scaling: missing'
says out 'warning: meshes/tree: '
says out 'no-such-file.glb'
# The lines of the list, and nothing twice.
[ "$(grep -c laser out)" -eq 1 ] || fail "one problem is said several times: $(grep laser out)"
[ "$(grep -c nothingOfThisName out)" -eq 1 ] || fail "one problem is said several times: $(grep nothingOf out)"
[ "$(grep -c no-such-file.glb out)" -eq 1 ] || fail "one problem is said several times: $(grep no-such-file.glb out)"
ends 1 check --quiet broken.json
is_empty out "a quiet check prints something"
is_empty err "a quiet check says something"

# What cannot be opened.
ends 2 check missing.json
says err 'missing.json'
ends 2 compile missing.json
ends 2 check .
head -c 500 generated.json >truncated.json
ends 2 check truncated.json
says err 'truncated.json: line '
ends 2 check --quiet truncated.json
is_empty err "a quiet check says something"
echo '{"objects": 5}' >wrong.json
ends 2 check wrong.json
says out 'refused: objects: '

# Flags.
ends 2 check --no-such-flag generated.json
says err 'no-such-flag'
ends 2 generate 10 --topology circle
says err 'circle'
ends 2 generate 10 --ids long
ends 2 generate ten
ends 2 generate 65535
says err '65534'
is_empty out "a project that is too large is printed"
ends 0 generate 65534 --components 0 --topology flat -o largest.json
ends 0 check largest.json
ends 2 generate 10 -o no/such/folder/project.json
says err 'no/such/folder/project.json'
ends 2 nonsense
ends 2
ends 0 --help
for verb in check compile generate apply; do says out "$verb"; done

# Scripts.
ends 0 generate 3 --topology chain --ids short --components 1 -o three.json
cp three.json original.json

# ends as the project was: everything is undone.
cat >script.txt <<'TEXT'
# two changes of one gesture
begin 7
  merge /objects/o0/translation [1, 2, 3]
commit
begin 7
  merge /objects/o0/translation [4, 5, 6]
  merge /objects/o1/translation [7, 8, 9]
commit
update

undo
TEXT
ends 0 apply three.json script.txt
cmp -s out three.json || fail "an undone gesture leaves something: $(diff out three.json)"
echo redo >>script.txt
ends 0 apply three.json script.txt
says out '"translation": [4, 5, 6]'
says out '"translation": [7, 8, 9]'
grep -qF '[1, 2, 3]' out && fail "a merged change stays"

cat >script.txt <<'TEXT'
record "/objects/an id with \"blanks\" ~1 ~0" {"name": "Stra\u00dfe", "parent": "o2"}
record /settings/rendering/hdr/exposure 2.5
remove /objects/o1
update
save saved.json
TEXT
ends 0 apply three.json script.txt
says out '"an id with \"blanks\" / ~": {'
says out '"name": "Straße"'
says out '"exposure": 2.5'
grep -qF '"o1": {' out && fail "a removed object is there"
cmp -s out saved.json || fail "what is saved and what is printed differ: $(diff out saved.json)"
cmp -s three.json original.json || fail "the project's file was changed"
ends 1 check saved.json
says out 'objects/o2/parent'

# fails_at LINE TEXT: the script in script.txt stops there, and nothing is printed.
fails_at() {
    ends 2 apply three.json script.txt
    says err "script.txt: line $1: $2"
    is_empty out "a script with an error prints a project"
}
wrong() { printf 'update\n%s\n' "$1" >script.txt; fails_at 2 "$2"; }
wrong 'recrod /objects/o0/name "x"' 'unknown command "recrod"'
wrong 'record /objects/o0/name' 'a value is missing'
wrong 'record' 'a pointer begins with'
wrong 'record objects/o0 1' 'a pointer begins with'
wrong 'record "/objects/o0 1' 'the value is not JSON'
wrong 'record /objects/o0/name "x' 'the value is not JSON'
wrong 'record /objects/o0/name 1, "x": 2' 'the value is not JSON'
wrong "record /objects/o0/x $(printf '[%.0s' $(seq 600))$(printf ']%.0s' $(seq 600))" 'the value is not JSON'
wrong 'record /objects/o0/name/x 1' 'it leads through'
wrong 'record /objects/o0/translation/x 1' 'it leads through'
wrong 'record /objects/o0/translation/-1 1' ''
wrong 'record /objects/o0/translation/99999999 1' ''
wrong 'record /objects/o0/a~2b 1' ''
wrong 'record /objects/o0/parent "o2"' 'the change was refused'
wrong 'remove /objects/nobody' 'nothing stands at'
wrong 'remove /objects/o0 /objects/o1' 'remove takes one pointer'
wrong 'begin zero' 'the key of a group'
wrong 'begin 0' 'the key of a group'
wrong 'commit' 'there is no group'
wrong 'undo twice' 'undo takes no arguments'
wrong 'save' 'save takes'
wrong 'save no/such/folder/project.json' 'no/such/folder'
for command in undo redo begin 'begin 3'; do
    printf 'begin\nrecord /objects/o0/name "x"\n%s\ncommit\n' "$command" >script.txt
    fails_at 3 "${command%% *} inside a group"
done
printf 'begin\n' >script.txt
ends 2 apply three.json script.txt
says err 'the last group is not committed'
ends 2 apply three.json missing.txt
says err 'missing.txt'
ends 2 apply missing.json nothing.txt
says err 'missing.json'

[ $failures -eq 0 ] && echo "vantrel-project: all as expected"
exit $((failures != 0))
