#!/bin/sh
# check.sh LIBRARY OBJECT LIST compares the binary interface of a library with the list of it, shows what
# differs, and fails then. With UPDATE_GOLDEN=1 in the environment it writes the list instead.
# CAMDATA_ABI_LIBRARY in the environment names another library to compare, for example a packed one.
#
# OBJECT is Interface.cpp, compiled with debug information. OBJDUMP, NM and CXXFILT name the tools.
#
# The list has three parts. Exported names, each with the type that it returns or has. Classes and
# structures, with size, data ("@" place) and virtual operations in their order; all operations are
# called as the system's C++ calls member functions, and a number before one is its place in the table.
# Enumerations with their values.
set -eu
library=${CAMDATA_ABI_LIBRARY:-$1} object=$2 list=$3

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# A sanitizer adds names of its own.
exported() {
    case $library in
    *.dll) "$OBJDUMP" -p "$library" |
        awk '/\[Ordinal\/Name Pointer\] Table/ { on = 1; next } on && NF == 0 { exit } on { print $NF }' ;;
    *) "$NM" -D --defined-only "$library" | awk '$3 !~ /^__odr_asan/ { print $3 }' ;;
    esac
}

exported >"$scratch/mangled"
if [ ! -s "$scratch/mangled" ]; then
    echo "check.sh: $library exports nothing" >&2
    exit 1
fi
"$CXXFILT" <"$scratch/mangled" | paste "$scratch/mangled" - >"$scratch/names"
"$OBJDUMP" --dwarf=rawline "$object" >"$scratch/files"
"$OBJDUMP" --dwarf=info "$object" >"$scratch/information"
awk -f "$(dirname "$0")/interface.awk" "$scratch/names" "$scratch/files" "$scratch/information" \
    >"$scratch/list"

if [ -n "${UPDATE_GOLDEN:-}" ]; then
    cp "$scratch/list" "$list"
    exit 0
fi
if ! diff -u --label "$list" --label "$library" "$list" "$scratch/list"; then
    echo "Plug-ins that were built before may no longer fit the library. If this is meant to be, accept it"
    echo "(UPDATE_GOLDEN=1 ctest -R '^abi$' for either system) and say so in CHANGELOG.md."
    exit 1
fi
