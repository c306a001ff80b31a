#!/usr/bin/env bash
# Installs what is missing, builds the release, and runs the example job into build/warehouse.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build
cmake --preset release
cmake --build --preset release --target camjob -j"$(nproc)"
code=0
build/release/bin/camjob run examples/warehouse/warehouse.toml --out build/warehouse || code=$?
# The example has invalid members on purpose: 1.
[ $code -le 1 ] || exit $code
