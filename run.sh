#!/usr/bin/env bash
# Installs what is missing, builds, and opens the editor on a project.
set -euo pipefail
caller=$PWD
cd "$(dirname "$0")"
source tools/setup.sh

usage() {
    cat <<'EOM'
./run.sh [OPTION...] [PROJECT|MODEL]

Installs the Debian packages that are missing, fetches icons where there is npm, builds, and opens the editor on a project
file (default: a sample), or on a model (.glb, .gltf, .obj, .fbx, ...) or an image, of which it makes a new project. Where
there is no display, or none with OpenGL 3.3, it says so, writes a picture to a file instead and names it on the last line.

  --picture FILE  write a picture of the editor to FILE (PNG) instead of opening a window
  --jobs N        compile with N processes (default: one a core)
  --no-install    do not look for missing packages and icons
  --help          show this text
EOM
}

# A path as the caller meant it.
absolute() { if [[ $1 = /* ]]; then echo "$1"; else echo "$caller/$1"; fi; }

jobs=$(nproc)
install=yes
picture=
project=
while [ $# -gt 0 ]; do
    case $1 in
        --help|-h) usage; exit 0 ;;
        --picture) picture=$(option_value "$@") || exit 2; shift ;;
        --jobs) jobs=$(option_value "$@") || exit 2; shift ;;
        --no-install) install=no ;;
        -*) unknown_option "$1" ;;
        *)
            [ -z "$project" ] || unknown_option "$1"
            project=$1
            ;;
    esac
    shift
done

if [ -n "$project" ]; then
    project=$(absolute "$project")
    [ -f "$project" ] || { echo "$0: there is no file $project" >&2; exit 2; }
else
    project=projects/Showcase/project.json
    [ -f "$project" ] || project=projects/Courtyard/project.json
fi

[ $install = no ] || { install_packages; fetch_icons; }
build release "$jobs" vantrel-editor

# What the editor ends with where it finds no display, or none with OpenGL 3.3; it has said which.
no_display=8
if [ -z "$picture" ]; then
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        status=0
        build/release/bin/vantrel-editor "$project" || status=$?
        [ $status -eq $no_display ] || exit $status
    else
        echo "There is no display (neither DISPLAY nor WAYLAND_DISPLAY is set)."
    fi
    echo "A picture is written instead of a window:"
    picture=$PWD/build/editor.png
else
    picture=$(absolute "$picture")
fi
build/release/bin/vantrel-editor --headless "$project" --frames 10 --screenshot "$picture"
echo "$picture"
