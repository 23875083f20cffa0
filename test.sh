#!/usr/bin/env bash
# Installs missing packages, builds everything and runs every test.
# An argument names another preset: ./test.sh asan
set -euo pipefail
cd "$(dirname "$0")"
. tools/prepare.sh

preset=${1:-release}
prepare test
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" --parallel "$(nproc)"
ctest --preset "$preset" --parallel "$(nproc)"
