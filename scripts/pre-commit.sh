#!/usr/bin/env bash
# What a commit is held against: the format of the changed C++ files, and the table of rooms. As a hook of Git:
#
#   ln -s ../../scripts/pre-commit.sh "$(git rev-parse --git-path hooks)/pre-commit"
#
# Says what is wrong and changes nothing; with --fix it formats the changed files.
set -euo pipefail
cd "$(git rev-parse --show-toplevel)"

# Changed against the last commit, and new.
mapfile -t files < <({
    git diff --name-only --diff-filter=d HEAD
    git ls-files --others --exclude-standard
} | grep -E '\.(cpp|h)$' | sort -u)

status=0
if [ ${#files[@]} -gt 0 ] && command -v clang-format >/dev/null; then
    for file in "${files[@]}"; do
        if [ "${1:-}" = --fix ]; then
            clang-format -i "$file"
        elif ! clang-format "$file" | cmp -s - "$file"; then
            echo "$file: not formatted; scripts/pre-commit.sh --fix does it"
            status=1
        fi
    done
elif [ ${#files[@]} -gt 0 ]; then
    echo "clang-format is not installed (apt-get install clang-format): the format is not checked"
fi
scripts/check-includes.sh || status=1
exit $status
