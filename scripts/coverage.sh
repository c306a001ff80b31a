#!/usr/bin/env bash
# Builds everything in build/coverage, library and NC reader with counters, runs all tests, and prints how many
# lines and branches (without those of exceptions) of these two they reach: file by file, then all together.
# What is not reached stands in build/coverage/coverage.html. Ends with an error below 95 % of the lines or
# 85 % of the branches.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build coverage
tree=build/coverage
# Counters of an earlier build would count.
[ ! -d $tree ] || find $tree -name '*.gcda' -delete
cmake -S . -B $tree -G Ninja -DCMAKE_BUILD_TYPE=Release -DCAMDATA_COVERAGE=ON >/dev/null
cmake --build $tree -j"$(nproc)"
# The counters are in the binary interface, too.
ctest --test-dir $tree -j"$(nproc)" --output-on-failure -E "^abi$"

gcovr --root . --object-directory $tree --filter camdata/ --filter dstv/ --exclude-throw-branches \
    --exclude-unreachable-branches --html-details $tree/coverage.html --txt --print-summary \
    --fail-under-line 95 --fail-under-branch 85
