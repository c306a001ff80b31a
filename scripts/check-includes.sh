#!/usr/bin/env bash
# Holds every #include against the table of rooms in docs/architecture.md. Fails for an arrow that the table
# does not allow, for a room that it does not have, for a row without a room, and for circles.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

table=docs/architecture.md
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# Files that are new count too.
git ls-files -z --cached --others --exclude-standard -- '*.h' '*.cpp' '*.cpp.in' '*.def' '*.rc' '*.rc.in' |
    while IFS= read -r -d '' file; do
        [ ! -f "$file" ] || echo "$file"
    done | grep -v '^cmake/' >"$scratch/files"

# Arrows go to "rooms" and "headers", complaints to the output.
check() {
    awk -v table="$table" -v scratch="$scratch" '
        function RoomOf(path) { return path ~ /\// ? substr(path, 1, match(path, /[^\/]*$/) - 1) : "./" }

        # "camdata/**" is that room and all within it.
        function Covers(pattern, room) {
            if (pattern ~ /\*\*$/)
                return index(room, substr(pattern, 1, length(pattern) - 2)) == 1
            return pattern == room
        }

        # The row of a room, "" when there is none.
        function RowOf(room,    row) {
            if (room in allowed)
                return room
            for (row in allowed)
                if (row ~ /\*\*$/ && Covers(row, room))
                    return row
            return ""
        }

        function IsAllowed(row, target,    names, count, i) {
            count = split(allowed[row], names, " ")
            for (i = 1; i <= count; ++i)
                if (Covers(names[i], target))
                    return 1
            return 0
        }

        function Complain(text) {
            printf "%s:%d: %s\n", FILENAME, FNR, text
            isFaulty = 1
        }

        # The rows of the table.
        FILENAME == table {
            if (/^\| *room *\| *holds *\| *may include *\|/)
                isTable = 1
            else if (!/^\|/)
                isTable = 0
            else if (isTable && split($0, cells, "|") == 5 && match(cells[2], /`[^`]+`/)) {
                row = substr(cells[2], RSTART + 1, RLENGTH - 2)
                lineOf[row] = FNR
                isFree[row] = cells[4] ~ /^ *everything *$/
                allowed[row] = ""
                while (match(cells[4], /`[^`]+`/)) {
                    allowed[row] = allowed[row] " " substr(cells[4], RSTART + 1, RLENGTH - 2)
                    cells[4] = substr(cells[4], RSTART + RLENGTH)
                }
            }
            next
        }

        FNR == 1 {
            room = RoomOf(FILENAME)
            row = RowOf(room)
            isUsed[row] = 1
            if (row == "" && !(room in isReported)) {
                Complain("the room " room " has no row in the table of rooms of " table \
                         ": add one with what it holds and what it may include")
                isReported[room] = 1
            }
        }

        row == "" || isFree[row] || !/^[ \t]*#[ \t]*include[ \t]*[<"]/ { next }

        {
            match($0, /[<"][^>"]*/)
            isQuoted = substr($0, RSTART, 1) == "\""
            name = substr($0, RSTART + 1, RLENGTH - 1)
            # The standard library and the operating system are open to all, other libraries are not.
            if (!isQuoted && (name !~ /\// || name ~ /^sys\//))
                next
            target = isQuoted ? RoomOf(name) : "<" substr(name, 1, index(name, "/") - 1) ">"
            if (isQuoted && target == "./")
                Complain("\"" name "\" stands without its room: include \"" room name "\"")
            else if (target != room && !IsAllowed(row, target))
                Complain(room " may not include " target "; " table ":" lineOf[row] " allows it" \
                         (allowed[row] == "" ? " nothing but its own files" : ":" allowed[row]))
            if (isQuoted && target != room)
                print room, target >(scratch "/rooms")
            if (isQuoted && FILENAME ~ /\.h$/)
                print FILENAME, name >(scratch "/headers")
        }

        END {
            for (row in allowed)
                if (!(row in isUsed)) {
                    printf "%s:%d: there is no file in %s\n", table, lineOf[row], row
                    isFaulty = 1
                }
            if (!length(allowed)) {
                print table ": no table with the columns room, holds and may include"
                isFaulty = 1
            }
            exit isFaulty
        }
    ' "$table" $(cat "$scratch/files")
}

# What tsort cannot put in order goes round in a circle.
refuse_circle() {
    if ! sort -u "$scratch/$1" | tsort >/dev/null 2>"$scratch/circle"; then
        echo "Some $1 include each other in a circle, all of these or some:"
        sed -n 's/^tsort: \([^ :]*\)$/    \1/p' "$scratch/circle" | sort -u
        return 1
    fi
}

touch "$scratch/rooms" "$scratch/headers"
status=0
check || status=1
refuse_circle rooms || status=1
refuse_circle headers || status=1
exit $status
