#!/usr/bin/env bash
# check_dxf.sh CAMJOB EXAMPLES: an independent reader opens the drawings of all examples, and finds in them what
# `check --json` tells. Needs python3-ezdxf; without it the test is skipped, in CI it fails.
set -euo pipefail

# Debian's own Python: its packages are not those of another one in the PATH.
python=/usr/bin/python3
if ! "$python" -c 'import ezdxf' 2>/dev/null; then
    echo "python3-ezdxf is missing: the drawings in DXF are not checked (scripts/setup.sh ci installs it)"
    [ -z "${CI:-}" ] || exit 1
    exit 77
fi
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
files=("$2"/nc/*.nc1 "$2"/warehouse/nc/*.nc1)
"$1" check --json "${files[@]}" >"$scratch/check.json" || [ $? -eq 1 ]
"$1" show --dxf --out "$scratch" "${files[@]}" >/dev/null
"$python" "$(dirname "${BASH_SOURCE[0]}")/check_dxf.py" "$scratch"
