# What the scripts of this folder share: packages, progress, presets. Sourced, not run.

set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cd "$root"

# Says what is being done, with the time since the script began.
step() {
    printf '== [%3d s] %s\n' "$SECONDS" "$*"
}

fail() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# Installs the Debian packages that are not there yet; needs root or sudo only when something is missing.
need_packages() {
    local missing=() package
    for package in "$@"; do
        if ! dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    step "installing ${missing[*]}"
    as_root apt-get update -qq
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# Makes packages of another architecture installable, as NAME:ARCHITECTURE.
need_architecture() {
    dpkg --print-foreign-architectures | grep -qx "$1" || as_root dpkg --add-architecture "$1"
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        command -v sudo >/dev/null || fail "needs root for: $*; run as root, or install sudo"
        sudo "$@"
    fi
}

# What every build needs, and what the tools and the tests need beside it.
build_packages=(g++ cmake ninja-build ccache libsqlite3-dev)
test_packages=(googletest libglib2.0-dev python3 llvm-14-dev python3-clang-14 libclang-14-dev clang-format clang
    pkg-config dpkg-dev file g++-mingw-w64-x86-64 abigail-tools)

# Beside what the preset says.
configure_options=()

# Configures and builds a preset; further arguments go to the build.
build_preset() {
    local preset=$1
    shift
    step "configuring $preset"
    cmake --preset "$preset" -DKEST_BUILD_TESTS=ON "${configure_options[@]}" >/dev/null
    step "building $preset"
    cmake --build --preset "$preset" "$@"
}

# Runs the tests of a preset; further arguments go to ctest. The closing line is one that any reader knows.
test_preset() {
    local preset=$1
    shift
    step "testing $preset"
    local log="$root/build/$preset/test.log" status=0
    ctest --preset "$preset" -j "$(nproc)" --output-on-failure "$@" >"$log" 2>&1 || status=$?
    grep -v -E '^ *(Start +[0-9]+:|[0-9]+/[0-9]+ Test +#[0-9]+: .* Passed +)' "$log" || true
    local total failed
    total=$(sed -n 's/.* tests passed, [0-9]* tests\{0,1\} failed out of \([0-9]*\)$/\1/p' "$log")
    failed=$(sed -n 's/.* tests passed, \([0-9]*\) tests\{0,1\} failed out of [0-9]*$/\1/p' "$log")
    [ -n "$total" ] || fail "no test ran in $preset (see $log)"
    printf '%d passed, %d failed\n' "$((total - failed))" "$failed"
    return "$status"
}
