#!/usr/bin/env bash
# parallel.sh FOLDER WORKERS: the same with GNU parallel on one machine, without a cluster.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
if [ $# -ne 2 ] || ! [[ $2 =~ ^[1-9][0-9]{0,6}$ ]]; then
    echo "usage: parallel.sh FOLDER WORKERS, WORKERS from 1 on" >&2
    exit 2
fi
seq 0 $(($2 - 1)) | parallel --quote --will-cite --jobs "$2" --halt never "$here/work.sh" "$1" {} "$2"
