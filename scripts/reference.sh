#!/usr/bin/env bash
# Installs what is missing and makes the reference of the public headers, build/reference/html. A warning of
# Doxygen is a fault.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh reference
CAMDATA_VERSION=$(<VERSION)
# Those that are installed: listed for CMake as the file sets of the two libraries.
CAMDATA_HEADERS=$(for list in $(git ls-files 'camdata/CMakeLists.txt' 'camdata/**/CMakeLists.txt' dstv/CMakeLists.txt); do
    sed -n '/FILE_SET HEADERS/,/)/p' "$list" | grep -oE '[A-Za-z0-9_]+\.h\b' | sed "s|^|$(dirname "$list")/|"
done | tr '\n' ' ')
export CAMDATA_VERSION CAMDATA_HEADERS
rm -rf build/reference
mkdir -p build/reference
doxygen docs/Doxyfile 2>build/reference/warnings.txt || true
if [ -s build/reference/warnings.txt ] || [ ! -s build/reference/html/index.html ]; then
    cat build/reference/warnings.txt >&2
    echo "reference.sh: Doxygen warns of the lines above" >&2
    exit 1
fi
echo "build/reference/html/index.html"
