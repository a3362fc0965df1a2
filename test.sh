#!/usr/bin/env bash
# Installs what is missing, builds, and runs the tests.
set -euo pipefail
cd "$(dirname "$0")"
source tools/setup.sh

usage() {
    cat <<'EOM'
./test.sh [OPTION...] [-- CTEST OPTION...]

Installs the Debian packages that are missing, fetches icons where there is npm, builds, and runs the tests. Ends with ctest's summary.

  --jobs N       compile and test with N processes (default: one a core)
  --long         try what is tried at random many times more, and then play 1,000,000 random events under the sanitizers
                 (VANTREL_MONKEY_EVENTS says another number): takes hours
  --no-install   do not look for missing packages and icons
  --help         show this text

Everything behind -- goes to ctest: `./test.sh -- -R Utils` runs the tests whose name holds "Utils".
EOM
}

jobs=$(nproc)
install=yes
long=no
while [ $# -gt 0 ]; do
    case $1 in
        --help|-h) usage; exit 0 ;;
        --jobs) jobs=$(option_value "$@") || exit 2; shift ;;
        --long) long=yes ;;
        --no-install) install=no ;;
        --) shift; break ;;
        *) unknown_option "$1" ;;
    esac
    shift
done

[ $install = no ] || { install_packages; fetch_icons; }
build release "$jobs"
[ $long = yes ] || exec ctest --preset release --parallel "$jobs" --no-tests=error "$@"

status=0
VANTREL_LONG_TESTS=1 ctest --preset release --parallel "$jobs" --no-tests=error "$@" || status=$?
# Without the look for leaks, which those of the graphics driver would be taken for.
build asan "$jobs" EditorMonkey
LIBGL_ALWAYS_SOFTWARE=1 GALLIUM_DRIVER=llvmpipe ASAN_OPTIONS=detect_leaks=0 \
    VANTREL_MONKEY_EVENTS=${VANTREL_MONKEY_EVENTS:-1000000} build/asan/bin/EditorMonkey || status=$?
exit $status
