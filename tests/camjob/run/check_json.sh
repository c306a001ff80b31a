#!/usr/bin/env bash
# check_json.sh CAMJOB PROJECT: what runs tell programs, against docs/run-json.schema.json.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/../../support/checker.sh"

need python3-jsonschema "the documents of runs are" "$python" -c 'import jsonschema'
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cp -r "$2/examples/warehouse" "$scratch/job"
cd "$scratch"
run() { "$1" run job/warehouse.toml --out made --json >"$2" || [ $? -le 2 ]; }
run "$1" first.json
cp made/*-run.json first-document.json
sed -i 's/^  v  2475.00u  100.00  14.00$/  v  2485.00u  100.00  14.00/' job/nc/P1.nc1
rm job/nc/R2.nc1
run "$1" changed.json
cp made/*-run.json changed-document.json
echo nonsense >job/nc/X.nc1
run "$1" refused.json
"$python" "$here/check_json.py" "$2/docs/run-json.schema.json" ./*.json
