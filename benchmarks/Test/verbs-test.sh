#!/usr/bin/env bash
# vantrel-bench from outside: help, unknown verbs, and the lines of JSON of the verbs. No time and no size is judged here,
# but what has to be exact is. With "view" as second argument, the verbs that draw with the GL, else the others.
set -u
bench=$1
part=$2
failures=0
fail() { echo "FAIL: $1"; failures=$((failures + 1)); }

number='-?[0-9.]+(e[+-]?[0-9]+)?'
begin='^\{"verb":"[a-z_]+","case":"[a-z0-9_]+"'
result="$begin,\"figure_ns\":$number,\"floor_ns\":$number,\"ratio\":$number,\"pairs\":[0-9]+\}\$"
figure="$begin,\"(figure_ns|bytes|bytes_per_object|bytes_per_change)\":$number\}\$"
judged="$begin,\"[a-z_]+\":$number,\"(limit|wanted)\":$number,\"holds\":(true|false)\}\$"

# runs VERB ARGUMENT...: the lines stand in $lines.
runs() { prints "$@" --seconds 0; }
prints() {
    lines=$("$bench" "$@") || fail "'$*' ends with $?"
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
# holds CASE QUANTITY: a number that the machine has no part in.
holds() {
    grep -qE "\"case\":\"$1\",\"$2\":.*\"holds\":true" <<<"$lines" || fail "$2 of $1 does not hold: $lines"
}

# bytes_of CASE
bytes_of() { sed -nE "s/.*\"case\":\"$1\",\"bytes\":([0-9.e+]+).*/\1/p" <<<"$lines" | xargs printf '%.0f'; }

general() {
    help=$("$bench" --help) || fail "--help ends with $?"
    for verb in math containers against open compile compile_one record drag undo journal delete reparent xform memory \
        reload frame shadow lag idle outline outliner pick box bloom resize startup hotreload import; do
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
}

import_verb() {
    folder=$(mktemp -d)
    printf 'v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 3\n' >"$folder/triangle.obj"
    runs import "$folder/triangle.obj"
    for stage in start reading writing_meshes; do
        grep -q "\"case\":\"$stage\",\"figure_ns\"" <<<"$lines" || fail "no $stage of import: $lines"
    done
    grep -q '"case":"process_beside_bare_read","figure_ns".*"ratio"' <<<"$lines" || fail "import has no floor: $lines"
    echo nonsense >"$folder/triangle.obj"
    error=$("$bench" import "$folder/triangle.obj" 2>&1 >/dev/null) && fail "a broken model ends with 0"
    grep -q triangle.obj <<<"$error" || fail "a broken model is not named: $error"
    rm -r "$folder"
}

project_verbs() {
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
    runs outliner 64
    judges steady_frame exponent 0.2
    judges frame_after_rename exponent 0.2
    judges frame_after_move exponent 0.2
    holds search milliseconds
    runs record 64 500
    judges changes exponent 1.1
    judges objects exponent 0.4
    judges beside_bare_log ratio 4
    runs journal 300 100 6
    judges share_of_drag ratio 0.05
    judges steps_brought_back exponent 1.15
    runs delete 300 50
    judges deleted exponent 1.15
    grep -q in_document_order <<<"$lines" || fail "nothing is deleted in the order of the document"
    judges one moves 1.5
    runs duplicate 300 50
    judges flat_duplicated exponent 1.15
    judges tree_duplicated exponent 1.15
    runs reparent 300 50
    for topology in chain random; do
        judges ${topology}_objects exponent 0.4
        judges ${topology}_moved exponent 1.15
        grep -q "\"case\":\"${topology}_update\",\"figure_ns\"" <<<"$lines" || fail "no update of $topology"
    done
    runs xform 64
    for topology in flat tree random chain; do
        judges ${topology}_all ratio 3
        judges ${topology}_leaf_beside_all ratio 0.1
        grep -q "\"case\":\"${topology}_beside_bare_loop\".*\"holds\":true" <<<"$lines" ||
            fail "the bare loop over $topology computes something else: $lines"
    done

    error=$("$bench" open 65535 2>&1) && fail "too many objects end with 0"
    grep -q 65534 <<<"$error" || fail "the limit is not named: $error"
    "$bench" compile 64 circle >/dev/null 2>&1 && fail "an unknown topology ends with 0"
}

aspects="settings:1 lights:1 images:2 textures:2 shaders:4 pipelines:4 meshes:2 mesh_data:2 draws:1 materials:1 fonts:2"
view_verbs() {
    runs reload 64
    judges revision_alone exponent 0.1
    is_exactly revision_alone stages 0
    is_exactly place stages 0
    for aspect in $aspects; do is_exactly ${aspect%:*} stages ${aspect#*:}; done
    runs reload 64 lights
    is_exactly lights stages 1
    grep -q '"settings"' <<<"$lines" && fail "reload changes aspects that it was not asked for"
    runs drag 300 200 6
    judges dragged exponent 1.15
    judges objects exponent 0.4
    judges first_frame_beside_later ratio 4
    is_exactly heap_growth bytes 0
    judges by_mouse exponent 1.15
    judges last_frames_beside_first ratio 1.2
    is_exactly long_drag steps 1
    runs undo 300 100
    judges beside_drag_frame ratio 3
    is_exactly objects_compiled objects 100
    is_exactly components_compiled objects 0
    is_exactly document_differs documents 0
    judges by_mouse exponent 1.15
    prints lag 64
    for what in move pick drag camera; do is_exactly $what frames 1; done
    runs frame 64 96 64
    judges objects exponent 1.1
    judges mesh_and_pass ratio 0.5
    grep -q '"case":"open_and_draw","figure_ns"' <<<"$lines" || fail "frame does not say how long opening takes"
    # The counting of calls needs a GL that is called through pointers: a whole library may lack it.
    counts=$(grep -c '"case":"gl_calls"' <<<"$lines")
    [ "$counts" -eq 0 ] || holds gl_calls calls
    runs frame 64 96 64 --outside 0.9
    judges outside_beside_all_visible ratio 0.3
    judges culling_beside_bare_loop ratio 8
    is_exactly culling_beside_bare_loop differences 0
    runs frame 64 96 64 --lights 16
    judges lights exponent 1.1
    prints shadow 64 3
    is_exactly first_frame maps 3
    holds first_frame casters
    holds first_frame part_of_all
    is_exactly nothing_moved maps 0
    is_exactly nothing_moved casters 0
    [ "$counts" -eq 0 ] || is_exactly nothing_moved uploaded_bytes 0
    holds one_object_moved maps
    holds one_object_moved casters
    prints idle 64
    is_exactly while_nothing_moves frames 0
    is_exactly forced_frames allocations 0
    if [ "$counts" -ne 0 ]; then
        is_exactly forced_frames shader_builds 0
        is_exactly forced_frames uploaded_bytes 0
        holds one_object_moved uploaded_bytes
        grep -qE '"case":"one_object_moved","uploaded_bytes":[1-9]' <<<"$lines" || fail "no upload is counted: $lines"
    fi
    runs frame_selection 64 chain
    judges chain_mixed exponent 1.15
    judges chain_without_meshes exponent 1.15
    runs outline 64 5 96 64 9
    judges step_beside_bare_pass ratio 1.6
    if [ "$counts" -ne 0 ]; then
        is_exactly nothing_selected calls_besides_the_frame 0
        is_exactly nothing_selected blits 1
        is_exactly nothing_selected clears 2
        is_exactly selected blits 2
        is_exactly selected clears 3
    fi
    runs pick 256
    judges objects exponent 0.2
    runs box 256 128 128
    judges beside_bare_readback ratio 3
    runs bloom 9 3 96 64
    judges pass_beside_bare_blur ratio 1.5
    judges passes exponent 1.15
    judges taps exponent 1.15
    if [ "$counts" -ne 0 ]; then
        is_exactly disabled calls_besides_the_frame 0
        is_exactly enabled shader_builds 0
        is_exactly enabled uploaded_bytes 0
    fi
    prints resize 20
    is_exactly live_objects growth 0
    judges beside_bare_allocation ratio 2
    prints hotreload 64 3
    is_exactly live_objects differences 0
    [ "$counts" -eq 0 ] || is_exactly memory growth 0
    judges beside_first_frame ratio 1.3

    runs memory 64
    judges all bytes_per_object 1500
    for part in document index_and_checks compiler scene peak_of_opening; do
        grep -q "\"case\":\"$part\",\"bytes_per_object\"" <<<"$lines" || fail "no bytes of $part"
    done
    if [ "$counts" -ne 0 ]; then
        # A picture of 640 by 480 with ids and a mask; the same with four samples and depths.
        [ "$(bytes_of video_textures)" -ge $((640 * 480 * (4 + 3 + 1))) ] || fail "too few bytes of textures: $lines"
        [ "$(bytes_of video_renderbuffers)" -ge $((640 * 480 * (4 * (4 + 4 + 1) + 4))) ] || fail "too few bytes of renderbuffers: $lines"
        [ "$(bytes_of video_buffers)" -ge 1000 ] || fail "too few bytes of buffers: $lines"
    fi

    project=$(mktemp)
    echo '{}' >"$project"
    prints startup "$project"
    for stage in program context session plugin open compile first_frame all second_frame; do
        grep -qE "\"case\":\"$stage\",\"figure_ns\"" <<<"$lines" || fail "no $stage of startup: $lines"
    done
    grep -q '"environment"' <<<"$lines" && fail "startup bakes an environment that is not there"
    echo '{"images": {"sky": {"name": "Sky"}}, "settings": {"rendering": {"environment": {"image": "sky"}}}}' >"$project"
    lines=$("$bench" startup "$project" 2>/dev/null) || fail "startup with an environment ends with $?"
    grep -qE '"case":"environment","figure_ns"' <<<"$lines" || fail "no environment of startup: $lines"
    echo '{' >"$project"
    error=$("$bench" startup "$project" 2>&1 >/dev/null) && fail "a broken project ends with 0"
    grep -q "$project" <<<"$error" || fail "a broken project is not named: $error"
    rm -f "$project"
    "$bench" startup /nonexistent/project.json >/dev/null 2>&1 && fail "a missing project ends with 0"
    "$bench" reload 64 weather >/dev/null 2>&1 && fail "an unknown aspect ends with 0"
}

if [ "$part" = view ]; then
    view_verbs
else
    general
    import_verb
    project_verbs
fi
[ $failures -eq 0 ] && echo "vantrel-bench: all as expected"
exit $failures
