#!/usr/bin/env bash
# Installs what is missing, builds, and shows the proof picture: a plugin, its resources and its shaders at work.
set -euo pipefail
caller=$PWD
cd "$(dirname "$0")"
source tools/setup.sh

usage() {
    cat <<'EOM'
./run.sh [OPTION...]

Installs the Debian packages that are missing, builds, and opens a window with a picture that a plugin draws. Where there
is no display it says so and writes the picture to a file.

  --picture FILE  write the picture to FILE (PNG) instead of opening a window
  --jobs N        compile with N processes (default: one a core)
  --no-install    do not look for missing packages
  --help          show this text
EOM
}

jobs=$(nproc)
install=yes
picture=
while [ $# -gt 0 ]; do
    case $1 in
        --help|-h) usage; exit 0 ;;
        --picture) picture=$(option_value "$@") || exit 2; shift ;;
        --jobs) jobs=$(option_value "$@") || exit 2; shift ;;
        --no-install) install=no ;;
        *) unknown_option "$1" ;;
    esac
    shift
done

[ $install = no ] || install_packages
build release "$jobs" vantrel-proof
if [ -z "$picture" ] && [ -z "${DISPLAY:-}" ]; then
    picture=$PWD/build/proof.png
    echo "There is no display (DISPLAY is not set): the picture goes to $picture"
fi
if [ -n "$picture" ]; then
    [[ $picture = /* ]] || picture=$caller/$picture
    exec build/release/bin/vantrel-proof --picture "$picture"
fi
exec build/release/bin/vantrel-proof --window
