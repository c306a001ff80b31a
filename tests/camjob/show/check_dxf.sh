#!/usr/bin/env bash
# check_dxf.sh CAMJOB EXAMPLES: an independent reader opens the drawings of all examples, and those of round
# openings and plates, and finds in them what `check --json` tells.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/../../support/checker.sh"

need python3-ezdxf "the drawings in DXF are" "$python" -c 'import ezdxf'
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
files=("$2"/nc/*.nc1 "$2"/warehouse/nc/*.nc1 "$here"/nc/*.nc1)
"$1" check --json "${files[@]}" >"$scratch/check.json" || [ $? -eq 1 ]
"$1" show --dxf --out "$scratch" "${files[@]}" >/dev/null
"$python" "$here/check_dxf.py" "$scratch"
