# Shared by ./run, ./test and .ci/run: the Debian packages that the project needs, and how it is built.

build_packages=(g++ cmake ninja-build libsqlite3-dev nlohmann-json3-dev qt6-base-dev qt6-svg-dev gettext llvm)
test_packages=(libgtest-dev libbenchmark-dev binutils xvfb xauth openbox xdotool
  weston qt6-wayland qt6-translations-l10n dpkg-dev file pkgconf
  libx11-dev python3 python3-pytest python3-matplotlib)
check_packages=(clang clang-format clang-tidy libclang-rt-dev lintian mypy mkdocs python3-pygments doxygen appstream
  desktop-file-utils)

# Prints the packages of the named lists ("build", "test", "check") that are not installed.
missing_packages() {
    local list package
    for list in "$@"; do
        local -n packages="${list}_packages"
        for package in "${packages[@]}"; do
            dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || printf '%s\n' "$package"
        done
    done
}

# Installs the missing packages of the named lists.
install_missing() {
    local -a missing
    mapfile -t missing < <(missing_packages "$@")
    [ ${#missing[@]} -gt 0 ] || return 0
    if ! command -v apt-get >/dev/null || { [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; }; then
        printf 'Please install what these Debian packages hold, and start again: %s\n' "${missing[*]}" >&2
        return 1
    fi
    local -a as_root=()
    [ "$(id -u)" = 0 ] || as_root=(sudo)
    printf 'Installing: %s\n' "${missing[*]}" >&2
    "${as_root[@]}" apt-get update -qq >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# Configures and builds a preset of CMakePresets.json; further arguments go to the configuration. Prints the log only
# after a failure.
build() {
    local preset=$1 log
    shift
    [ -e "build/$preset/lib" ] || printf 'Building in build/%s, which takes some minutes the first time\n' "$preset" >&2
    log=$(mktemp)
    if ! { cmake --preset "$preset" "$@" && cmake --build --preset "$preset" --parallel; } >"$log" 2>&1; then
        tail -n 60 "$log" >&2
        rm -f "$log"
        return 1
    fi
    rm -f "$log"
}
