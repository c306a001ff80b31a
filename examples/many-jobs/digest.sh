#!/usr/bin/env bash
# digest.sh FOLDER prints one number for every byte of all outputs: the same whoever made them, in whatever order.
set -euo pipefail
[ $# -eq 1 ] || { echo "usage: digest.sh FOLDER" >&2 && exit 2; }
cd -- "$1"
find . -path './*/out/*' -not -path '*/.camjob/*' -type f -print0 | LC_ALL=C sort -z | xargs -0 sha256sum | sha256sum |
    cut -c1-16
