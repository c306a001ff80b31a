#!/usr/bin/env bash
# Installs what is missing, cross-builds the release for Windows, runs all tests through Wine, packs the
# zip that users get, and checks that.
# Arguments go to CMake's configuration, for example -DCAMDATA_WERROR=ON.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build windows
cmake --preset windows "$@"
cmake --build --preset windows -j"$(nproc)"
ctest --preset windows -j"$(nproc)"

name=camdata-$(<VERSION)-windows-x86_64
zip=build/windows/$name.zip
rm -rf build/windows/package "$zip"
cmake --install build/windows --prefix "build/windows/package/$name" --strip >/dev/null
(cd build/windows/package && cmake -E tar cf "../$name.zip" --format=zip "$name")
scripts/check-windows-package.sh "$zip"
echo "Packed: $zip"
