#!/usr/bin/env bash
# check_page.sh CAMJOB EXAMPLES [PICTURES]: a browser opens the page of the example job. With PICTURES, a folder,
# it leaves pictures of the page there.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/../../support/checker.sh"

need chromium-headless-shell "the page of a run is" \
    "$python" -c "import sys; sys.path.insert(0, '$here'); import browser; sys.exit(not browser.find_program())"
"$python" "$here/check_page.py" "$@"
