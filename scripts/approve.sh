#!/usr/bin/env bash
# Makes what the tests put out now the approved output: rewrites the golden files and lists those that
# changed. Look at the difference before committing it.
# Arguments go to CTest, for example -R Warehouse.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build
cmake --preset release
cmake --build --preset release -j"$(nproc)"
UPDATE_GOLDEN=1 ctest --preset release -j"$(nproc)" "$@"
git status --short -- 'tests/**golden/**' docs/job-file.md
