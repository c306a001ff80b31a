#!/usr/bin/env bash
# check-guide.sh GUIDE DOCUMENTS SCRATCH [PLACE] follows a guide as its reader would: writes the files that it shows,
# types its commands, and compares what they show. `camjob` and the library must be found (PATH, CMAKE_PREFIX_PATH);
# DOCUMENTS stands for the folder /usr/share/doc/camdata of the guide. PLACE is the folder to type in, else an empty
# one: there each command must succeed, or be a run of camjob that finds members with errors.
#
# In the guide, a block behind a line that ends with "`NAME`:" is a file of that name, behind "at the end of `NAME`:"
# it is added to it; a block "sh" is typed, and a block "text" behind it is what it shows. All other blocks are left
# out.
set -euo pipefail
guide=$(realpath "$1")
documents=$(realpath "$2")
place=${4:+$(realpath "$4")}
rm -rf "$3"
mkdir -p "$3/blocks"
cd "$3"
if [ -n "$place" ]; then
    ln -s "$place" work
else
    mkdir work
fi
# The guide's commands have no quotes, the folder may have blanks.
ln -s "$documents" documents

# Steps in their order: number, then "file NAME", "more NAME", "type" or "shows".
awk '
    /^```/ && !inBlock {
        inBlock = 1
        kind = substr($0, 4)
        step = ""
        if (kind == "sh")
            step = "type"
        else if (kind == "text" && last == "type")
            step = "shows"
        else if (match(before, /`[A-Za-z0-9.\/-]+`:$/))
            step = (before ~ /at the end of `[^`]*`:$/ ? "more " : "file ") substr(before, RSTART + 1, RLENGTH - 3)
        last = step
        block = step == "" ? "/dev/null" : sprintf("blocks/%03d", ++count)
        printf "" >block
        if (step != "")
            print count, step
        next
    }
    /^```$/ { inBlock = 0; close(block); next }
    inBlock { print >block; next }
    /[^ ]/ { before = $0 }
' "$guide" >steps
[ -s steps ] || { echo "$guide: nothing to follow" >&2; exit 1; }

# 1 is the end of a run of camjob alone, and of all that is typed when that comes last.
strict='trap '\''code=$?; [[ "$BASH_COMMAND" == *camjob* && $code -eq 1 ]] || exit 9'\'' ERR'
typed=0
compared=0
while read -r number step name; do
    block=$(printf '%s/blocks/%03d' "$PWD" "$number")
    case $step in
    file)
        mkdir -p "$(dirname "work/$name")"
        cp "$block" "work/$name"
        ;;
    more)
        { echo; cat "$block"; } >>"work/$name"
        ;;
    type)
        typed=$((typed + 1))
        sed -i "s|/usr/share/doc/camdata|$PWD/documents|g" "$block"
        sed 's/^/$ /' "$block"
        # What camjob thinks of its input is an exit code; that the host and the compiler work is seen by what is shown.
        code=0
        (cd work && bash <(echo "${place:+$strict}" && cat "$block")) >shown 2>&1 </dev/null || code=$?
        [ -z "$place" ] || [ $code -le 1 ] || { cat shown >&2; exit 1; }
        ;;
    shows)
        compared=$((compared + 1))
        diff -u --label "the guide says" --label "it shows" "$block" shown
        ;;
    esac
done <steps
[ $compared -gt 0 ] || [ -n "$place" ] || { echo "$guide: nothing was compared" >&2; exit 1; }
echo "$guide: $typed blocks typed, $compared compared"
