#!/usr/bin/env bash
# Installs what is missing, builds the release, packs it for Linux (Debian packages and an archive, in
# build/release/packages), and checks the packages.
# Arguments go to CMake's configuration, for example -DCAMDATA_WERROR=ON.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build packages
cmake --preset release "$@"
cmake --build --preset release -j"$(nproc)"
rm -rf build/release/packages
cpack --config build/release/CPackConfig.cmake >build/release/cpack.log 2>&1 || { cat build/release/cpack.log >&2; exit 1; }
rm -rf build/release/packages/_CPack_Packages
scripts/check-packages.sh build/release/packages
