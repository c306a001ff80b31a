#!/usr/bin/env bash
# Pictures of the report page for the documentation, docs/page-*.png: the example job's page as a browser shows it,
# from its top, and with a member chosen. Installs what is missing. Look at the pictures before committing them.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build page
cmake --preset release
cmake --build --preset release --target camjob -j"$(nproc)"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
build/release/bin/camjob run examples/warehouse/warehouse.toml --out "$scratch/out" >/dev/null || [ $? -eq 1 ]

page=$(echo "$scratch"/out/*-report.html)

# picture NAME HEIGHT STYLE: of the page with a further style, which may leave parts away: a browser without a screen
# does not scroll.
picture() {
    { cat "$page"; echo "<style>$3</style>"; } >"$scratch/page.html"
    chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --user-data-dir="$scratch/browser" \
        --virtual-time-budget=5000 --window-size=1100,"$2" --screenshot="docs/page-$1.png" \
        "file://$scratch/page.html#m=P7" >/dev/null 2>&1
}

picture top 790 ""
picture member 610 "body > header, nav, #faulty, #list, .tools, .help, #count { display: none }"
