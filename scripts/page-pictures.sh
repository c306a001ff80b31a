#!/usr/bin/env bash
# Pictures of the report page for the documentation, docs/report-*.png and docs/page-*.png: the page of a revision of the
# example job as a browser shows it, on screen and on paper. Installs what is missing. Look at the pictures before
# committing them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build page
cmake --preset release
cmake --build --preset release --target camjob -j"$(nproc)"
tests/camjob/run/check_page.sh "$PWD/build/release/bin/camjob" examples docs
