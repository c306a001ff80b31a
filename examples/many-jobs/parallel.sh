#!/usr/bin/env bash
# parallel.sh FOLDER WORKERS: the same with GNU parallel on one machine, without a cluster.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
seq 0 $(($2 - 1)) | parallel --will-cite --jobs "$2" --halt never "$here/work.sh" "$1" {} "$2"
