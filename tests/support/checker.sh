# Sourced by tests that need a program or package which only CI fetches.
#
# need PACKAGE WHAT COMMAND...: when the command fails, PACKAGE is missing: says that WHAT is not checked and ends
# the test as skipped, in CI as failed.

# Debian's own Python: its packages are not those of another one in the PATH.
python=/usr/bin/python3

need() {
    local package=$1 what=$2
    shift 2
    "$@" >/dev/null 2>&1 && return
    echo "$package is missing: $what not checked (scripts/setup.sh ci installs it)"
    [ -z "${CI:-}" ] || exit 1
    exit 77
}
