#!/usr/bin/env bash
# Installs what is missing, builds everything under AddressSanitizer and UndefinedBehaviorSanitizer, and runs the tests.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
cmake --preset asan
cmake --build --preset asan --parallel "$(nproc)"
ctest --preset asan "$@"
