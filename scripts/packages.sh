# SPDX-License-Identifier: MIT
# Debian packages by purpose, and the one function that installs them. Sourced by ./run and ./test.

packages_run=(
    build-essential cmake ninja-build pkg-config ccache python3
    libsdl2-dev libopenal-dev libfreetype-dev libfontconfig-dev fonts-dejavu-core
    libjpeg62-turbo-dev libpng-dev libcli11-dev libleptonica-dev librsvg2-bin
    libsndfile1-dev libsamplerate0-dev festival festlex-cmu festlex-poslex festvox-us-slt-hts
    espeak-ng sox
    libgtest-dev libgmock-dev # a configured build has the tests in it, built or not
)
packages_test=(
    clang-format clang-tidy git xvfb
    appstream desktop-file-utils mandoc bsdextrautils
)
packages_windows=(
    g++-mingw-w64-i686-posix mingw-w64-tools libz-mingw-w64-dev dpkg-dev nasm bubblewrap xvfb
    googletest clang lld llvm
)
packages_bench=(
    libbenchmark-dev libpixman-1-dev libsdl2-image-dev liblz4-dev libyuv-dev
    libdeflate-dev libswscale-dev libopencv-imgproc-dev
)
packages_fuzz=(
    clang libclang-rt-14-dev
)

say() { printf '== %s\n' "$*"; }

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "This needs root: run it as root, or install sudo. The command was: $*" >&2
        return 1
    fi
}

# need PACKAGE...: installs those that are not there yet.
need() {
    local missing=()
    for package in "$@"; do
        dpkg-query -W -f '${Status}\n' "$package" 2>/dev/null | grep -q 'ok installed' ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    command -v apt-get >/dev/null || {
        echo "apt-get is missing; install these by hand and start again: ${missing[*]}" >&2
        return 1
    }
    say "Installing ${missing[*]}"
    as_root apt-get update -qq || say "The package lists could not be refreshed; trying with those at hand"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null
}

# configure_and_build PRESET [target...]: incremental; the first time, and where the folder has been
# moved or copied since, it also configures.
configure_and_build() {
    local preset=$1 cache=build/$1/CMakeCache.txt home=
    shift
    [ ! -f "$cache" ] || home=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "$cache")
    { [ -f "build/$preset/build.ninja" ] && [ "$home" -ef . ]; } ||
        cmake --fresh --preset "$preset" >"build/$preset.log" 2>&1 || {
        cat "build/$preset.log" >&2
        return 1
    }
    cmake --build --preset "$preset" ${1:+--target "$@"}
}
