# Installs the packages that building Quillfen on Debian and Ubuntu needs and that are missing. Sourced by play.sh, test.sh
# and .ci/run:
#     prepare play    for the game
#     prepare test    for its tests, benchmarks, tools and checks as well
prepare() {
    local wanted="g++ cmake make pkg-config libsdl2-dev libsdl2-image-dev libcairo2-dev libpango1.0-dev
                  libpolyclipping-dev libopenal-dev libsndfile1-dev libfluidsynth-dev fonts-dejavu-core"
    if [ "$1" = test ]; then
        wanted="$wanted libgtest-dev libgmock-dev libbenchmark-dev libboost-dev libebur128-dev doxygen xvfb xdotool
                clang clang-tidy clang-format"
    fi
    local missing="" package
    for package in $wanted; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
    done
    [ -z "$missing" ] && return 0
    if ! command -v apt-get >/dev/null; then
        echo "These packages are needed, under your system's names for them:$missing" >&2
        return 1
    fi
    echo "Installing:$missing"
    local run=""
    [ "$(id -u)" -eq 0 ] || run=sudo
    # shellcheck disable=SC2086
    $run apt-get update -qq && $run env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $missing
}
