#!/usr/bin/env bash
# make-jobs.sh FOLDER [COUNT] makes orders to try the other scripts with: a thousand unless COUNT says otherwise.
# Each is a folder with a job file and NC files of its own; FOLDER/jobs.txt lists them.
set -euo pipefail
export LC_ALL=C  # numbers with a point, names by their bytes
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
count=${2:-1000}
if [ $# -eq 0 ] || ! [[ "$count" =~ ^[1-9][0-9]{0,3}$ ]]; then
    echo "usage: make-jobs.sh FOLDER [COUNT], COUNT from 1 to 9999" >&2
    exit 2
fi
mkdir -p "$1"
cd "$1"
awk -v count="$count" 'BEGIN { for (i = 1; i <= count; ++i) printf "%04d/job.toml\n", i }' >jobs.txt
sed 's|/job.toml$|/nc|' jobs.txt | xargs mkdir -p
sed 's|/job.toml$||' jobs.txt | xargs -n 1 cp "$here/job.toml"

# Eight to fifteen purlins for each order. One order in fifty has one that is longer than its machine takes.
awk -v count="$count" '
    function Purlin(file, mark, length_, holes,    i) {
        printf "ST\n  MANY\n  D-%s\n  1\n  %s\n  S350GD\n  %d\n  Z200x2.0\n  SO\n", mark, mark, 1 + holes % 4 >file
        printf "  %.2f\n  200.00\n  74.00\n  2.00\n  2.00\n  4.00\n  5.8\n  0.7\n", length_ >file
        printf "  0.0\n  0.0\n  0.0\n  0.0\nBO\n" >file
        for (i = 0; i < holes; ++i)
            printf "  v %.2fu %.2f 18.00\n", 40 + i * (length_ - 80) / (holes - 1), i % 2 ? 140 : 60 >file
        print "EN" >file
        close(file)
    }
    BEGIN {
        for (order = 1; order <= count; ++order)
            for (i = 1; i <= 8 + order % 8; ++i) {
                mark = sprintf("P%d", i)
                tooLong = i == 1 && order % 50 == 0
                Purlin(sprintf("%04d/nc/%s.nc1", order, mark), mark,
                       tooLong ? 9500 : 2500 + order * 37 % 1000 + i * 300, 4 + (order + i) % 9 * 2)
            }
    }'
echo "$count jobs in $1"
