# Sourced by run.sh and test.sh: installs the Debian packages that are missing, configures and builds.
# shellcheck shell=bash

# Compiler and build, the libraries that cmake/Dependencies.cmake looks for, a software OpenGL, and a virtual X server
# (xvfb-run needs xauth) for what runs without a screen.
packages=(
    g++ cmake ninja-build pkg-config
    libglfw3-dev libepoxy-dev libegl-dev libgl-dev libopengl-dev libx11-dev libstb-dev libcli11-dev rapidjson-dev
    libimgui-dev libassimp-dev fonts-dejavu-core
    libgtest-dev libgmock-dev clang-format
    libegl1 libgl1 libgl1-mesa-dri libegl-mesa0 libglx-mesa0 xvfb xauth
)

missing_packages() {
    local package
    for package in "${packages[@]}"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || echo "$package"
    done
}

install_packages() {
    local missing apt=() environment=(env DEBIAN_FRONTEND=noninteractive)
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system. Needed are what these packages hold: ${packages[*]}"
        return
    fi
    mapfile -t missing < <(missing_packages)
    [ ${#missing[@]} -gt 0 ] || return 0
    if [ "$(id -u)" -ne 0 ]; then
        if command -v sudo >/dev/null && { sudo -n true 2>/dev/null || [ -t 0 ]; }; then
            apt=(sudo)
        else
            echo "Packages are missing, and neither root nor sudo is here to install them. Run as root:" >&2
            echo "  apt-get update && apt-get install -y --no-install-recommends ${missing[*]}" >&2
            exit 1
        fi
    fi
    echo "Installing: ${missing[*]}"
    "${apt[@]}" "${environment[@]}" apt-get update -q
    "${apt[@]}" "${environment[@]}" apt-get install -q -y --no-install-recommends "${missing[@]}"
}

icons_package=@fortawesome/fontawesome-free@6.7.2
icons_sha256=d2f0593540b0e33ba6de255a54f272d466e31144806956bea8cfdbf7edffc9bd

# are_icons FILE: whether it is the font that is meant.
are_icons() { [ -f "$1" ] && echo "$icons_sha256  $1" | sha256sum --check --status; }

# The font of the editor's icons, where npm brings it within seconds. Without it the editor draws shapes of its own, so
# nothing that goes wrong here matters.
fetch_icons() {
    local icons=.cache/icons fresh
    ! are_icons $icons/fa-solid-900.ttf && command -v npm >/dev/null || return 0
    mkdir -p $icons
    fresh=$(mktemp -d $icons/fresh.XXXXXX)
    if timeout 20 npm pack --silent --ignore-scripts --fetch-retries 0 --pack-destination "$fresh" "$icons_package" \
        </dev/null &>/dev/null && tar -xzf "$fresh"/*.tgz -C "$fresh" 2>/dev/null &&
        are_icons "$fresh/package/webfonts/fa-solid-900.ttf"; then
        mv -f "$fresh/package/LICENSE.txt" $icons/fa-solid-900.LICENSE.txt
        mv -f "$fresh/package/webfonts/fa-solid-900.ttf" $icons/
    else
        echo "The icons of $icons_package cannot be fetched; the editor draws its own."
    fi
    rm -rf "$fresh"
}

# build PRESET JOBS [TARGET...]
build() {
    local preset=$1 jobs=$2
    shift 2
    cmake --preset "$preset"
    cmake --build --preset "$preset" --parallel "$jobs" ${1:+--target "$@"}
}

# option_value OPTION ARGUMENT...: the argument that an option needs.
option_value() {
    if [ $# -lt 2 ] || [ -z "$2" ]; then
        echo "$0: $1 needs a value" >&2
        exit 2
    fi
    echo "$2"
}

unknown_option() {
    echo "$0: unknown option '$1' (--help lists them)" >&2
    exit 2
}
