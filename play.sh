#!/usr/bin/env bash
# Installs missing packages, builds Quillfen and starts it.
set -euo pipefail
cd "$(dirname "$0")"
. tools/prepare.sh

prepare play
cmake --preset release -DQUILLFEN_BUILD_TESTS=OFF >/dev/null
cmake --build --preset release --parallel "$(nproc)" --target quillfen demo_player

if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec build/release/quillfen
fi
echo "There is no display here; playing demos/first-steps.demo without a window instead."
exec build/release/demo_player demos/first-steps.demo --frames build/first-steps --every 30
