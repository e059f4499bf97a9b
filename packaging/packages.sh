# Sourced by ./run, ./test and ./bench: installs what is missing.

vesperine_build_packages=(cmake ninja-build g++ ccache qtbase5-dev qtbase5-private-dev
    libqt5svg5-dev qttools5-dev qttools5-dev-tools libxcb1-dev libgl1-mesa-dri
    libopencv-core-dev libopencv-imgproc-dev libcli11-dev zlib1g-dev)
vesperine_test_packages=("${vesperine_build_packages[@]}" python3 git clang-format-14 clang-tidy-14
    librapidcheck-dev xvfb xauth xdotool openssl dpkg-dev man-db desktop-file-utils appstream
    shared-mime-info)
vesperine_qt6_packages=("${vesperine_test_packages[@]}" qt6-base-dev qt6-base-private-dev
    libqt6opengl6-dev qt6-svg-dev qt6-tools-dev qt6-l10n-tools)
vesperine_bench_packages=("${vesperine_build_packages[@]}" libbenchmark-dev xvfb xauth)

# ensure_packages PACKAGE...: asks only the local package list, so that a second call is at once.
ensure_packages() {
    local missing=() package as_root=()
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        echo "This script installs packages with apt-get, which this system does not have." >&2
        echo "Install what these Debian packages hold, then build with cmake --preset release:" >&2
        printf '  %s\n' "$@" >&2
        exit 1
    fi
    for package in "$@"; do
        [[ $(dpkg-query -W -f '${Status}' "$package" 2>/dev/null) == *" installed" ]] \
            || missing+=("$package")
    done
    [[ ${#missing[@]} -eq 0 ]] && return
    echo "Installing with apt-get: ${missing[*]}" >&2
    if [[ $EUID -ne 0 ]]; then
        if ! command -v sudo >/dev/null; then
            echo "Run as root: apt-get install ${missing[*]}" >&2
            exit 1
        fi
        echo "(through sudo, which may ask for your password)" >&2
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update -qq >&2
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
}

# build_preset PRESET TARGET...: configures once, then builds quietly unless something fails.
build_preset() {
    local preset=$1 root
    shift
    root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
    if [[ ! -e $root/build/$preset/build.ninja ]]; then
        (cd "$root" && cmake --preset "$preset" >&2)
    fi
    NINJA_STATUS="[$preset %f/%t] " cmake --build "$root/build/$preset" --target "$@" \
        | { grep -vE 'Re-checking globbed|GLOB mismatch|no work to do' >&2 || true; }
}
