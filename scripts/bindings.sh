#!/usr/bin/env bash
# Tests the bindings against the library, the tool and the virtual sign of a build that has no sanitizer.
#   bindings.sh [BUILD_FOLDER]
set -euo pipefail
cd "$(dirname "$0")/.."
build=$(realpath "${1:-build/release}")
export VXSIGN_LIBRARY=$build/src/libvxsign.so.2 VXSIM=$build/bin/vxsim VXCTL=$build/bin/vxctl
export PYTHONPATH=$PWD/bindings/python PYTHONDONTWRITEBYTECODE=1

bindings/generate.py --check
mypy --cache-dir "$build/mypy" --config-file bindings/python/pyproject.toml bindings/python/vxsign examples/python/*.py
/usr/bin/python3 -m pytest -q -p no:cacheprovider -p vxsign.pytest_plugin tests/bindings/pythonTest.py
tests/bindings/csharpTest.sh "$build/bin" "$build/src"
tests/bindings/rustTest.sh "$build/bin" "$build/src"
LD_LIBRARY_PATH=$build/src LANG=C.UTF-8 tests/bindings/examplesTest.py "$build/bin" python csharp
tests/bindings/languagesTest.py python csharp
