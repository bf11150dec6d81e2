#!/usr/bin/env bash
# Changes places of the code at random and tells which changes no test notices: scripts/mutants.sh [N] [--seed S] [--in FOLDER...]
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh
exec python3 scripts/mutants.py "$@"
