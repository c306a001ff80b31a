#!/usr/bin/env bash
# describe-tool.sh CAMJOB FOLDER writes the manual page and the completions of bash and zsh to a folder, from
# what the tool says of itself: a new option needs no work here.
set -euo pipefail
camjob=$(realpath "$1")
mkdir -p "$2"
cd "$2"

# The commands, a line each: name, tab, meaning.
commands() {
    "$camjob" --help | awk '/^Subcommands:/ { on = 1; next } on && NF { name = $1; $1 = ""; print name "\t" substr($0, 2) }
                            on && !NF { exit }'
}

# What a command takes, a line each: names, tab, value (a blank for none), tab, meaning. Positionals come first.
arguments() {
    "$camjob" "$1" --help | awk '
        function Put() {
            if (names != "")
                print names "\t" (value == "" ? " " : value) "\t" text
            names = ""
        }
        /^(Positionals|Options):/ { on = 1; next }
        !NF { Put(); on = 0 }
        on && /^  [^ ]/ {
            Put()
            rest = substr($0, 3)
            text = ""
            if (match(rest, /   */)) {
                text = substr(rest, RSTART + RLENGTH)
                rest = substr(rest, 1, RSTART - 1)
            }
            names = rest
            value = ""
            if (match(rest, / /)) {
                names = substr(rest, 1, RSTART - 1)
                value = substr(rest, RSTART + 1)
                sub(/ \(default.*/, "", value)
                sub(/(^| )Excludes:.*/, "", value)
                sub(/(^| )REQUIRED/, "", value)
                sub(/ \.\.\./, "", value)
            }
            next
        }
        on { sub(/^ +/, ""); text = text (text == "" ? "" : " ") $0 }
        END { Put() }'
}

options() { arguments "$1" | grep '^-'; }
words_of() { options "$1" | cut -f1 | tr ',' '\n' | tr '\n' ' '; }
# The choices of an option as words, nothing when any text is one.
choices_of() { cut -f2 <<<"$1" | grep '|' | tr '|' ' ' || true; }
long_name() { cut -f1 <<<"$1" | sed 's/.*,//'; }

# What stands behind an option: value_of COMMAND OPTION VALUE, the choices or what a text is. Positionals say it.
value_of() {
    [[ "$3" != *'|'* ]] || { echo "$3" && return; }
    [[ "$2" == -* && "$3" != ' ' ]] || return 0
    case $1:$2 in
    show:--out) echo FILE ;;
    *:--out) echo DIR ;;
    *:--job) echo JOB ;;
    *:--files-from) echo LIST ;;
    *:--against) echo OUTPUT ;;
    *:--from) echo FILE... ;;
    *) echo VALUE ;;
    esac
}

# Hyphens are minus signs in commands, a line that begins with a dot is a request.
roff() { sed -e 's/\\/\\e/g' -e 's/-/\\-/g' -e "s/^[.']/\\\\\&&/"; }

manual() {
    local name meaning names value text
    echo ".TH CAMJOB 1 \"\" \"$("$camjob" --version | cut -d' ' -f1,2)\" \"camdata\""
    printf '.SH NAME\ncamjob \\- %s\n' "$("$camjob" --help | head -1 | roff)"
    printf '.SH SYNOPSIS\n'
    while IFS=$'\t' read -r name meaning; do
        printf '.B %s\n.br\n' "$("$camjob" "$name" --help | sed -n 's/^Usage: //p' | roff)"
    done < <(commands)
    cat <<'END'
.SH DESCRIPTION
Reads DSTV NC files of steel members, tells what is in them and what is wrong with them, and makes the
manufacturing files of a job: machine files, cutting lists and cutting plans, and a page for people. A job
is a TOML file that says what a machine can do and what is to be made.
.SH COMMANDS
END
    while IFS=$'\t' read -r name meaning; do
        printf '.SS camjob %s\n%s.\n' "$name" "$(roff <<<"$meaning")"
        while IFS=$'\t' read -r names value text; do
            printf '.TP\n.B %s %s\n%s\n' "$(roff <<<"${names//,/, }")" \
                "$(value_of "$name" "$names" "$value" | roff)" "$(roff <<<"$text")"
        done < <(arguments "$name")
    done < <(commands)
    printf '.SH EXIT STATUS\n'
    "$camjob" --help | sed -n 's/^Exit codes: //p' | sed 's/; /\n/g; s/\. The highest wins\.$//' |
        while read -r code text; do
            printf '.TP\n.B %s\n%s\n' "$code" "$(roff <<<"$text")"
        done
    printf '.PP\nOf several outcomes the highest number counts.\n'
    cat <<'END'
.SH FILES
.TP
.I /usr/share/doc/camdata/docs/job\-file.md
The job file, key by key.
.TP
.I /usr/share/doc/camdata/docs/plugin\-guide.md
How to write a plug\-in.
.TP
.I /usr/share/doc/camdata/examples
NC files, a whole job, and a plug\-in to begin with.
.SH EXAMPLES
.nf
camjob init my\-job \-\-from folder\-of\-nc\-files
camjob run my\-job/job.toml
camjob check \-\-job my\-job/job.toml part.nc1
.fi
END
}

bash_completion() {
    local name meaning line
    cat <<'END'
# Completion of camjob for bash.
_camjob() {
    local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} words=
    COMPREPLY=()
END
    printf '    local commands="%s"\n' "$(commands | cut -f1 | tr '\n' ' ')"
    cat <<'END'
    if [ "$COMP_CWORD" -eq 1 ]; then
        COMPREPLY=($(compgen -W "$commands --help --version" -- "$word"))
        return
    fi
    case ${COMP_WORDS[1]}:$previous in
END
    while IFS=$'\t' read -r name meaning; do
        while read -r line; do
            [ -z "$(choices_of "$line")" ] ||
                printf '    %s:%s) COMPREPLY=($(compgen -W "%s" -- "$word")); return ;;\n' \
                    "$name" "$(long_name "$line")" "$(choices_of "$line")"
        done < <(options "$name")
    done < <(commands)
    printf '    esac\n    case ${COMP_WORDS[1]} in\n'
    while IFS=$'\t' read -r name meaning; do
        printf '    %s) words="%s" ;;\n' "$name" "$(words_of "$name")"
    done < <(commands)
    cat <<'END'
    esac
    case $word in
    -*) COMPREPLY=($(compgen -W "$words" -- "$word")) ;;
    *) compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- "$word") ;;
    esac
}
complete -F _camjob camjob
END
}

# A text as zsh wants it.
zsh_text() { sed -e "s/'/'\\\\''/g" -e 's/[]:[]/\\&/g' <<<"$1"; }

zsh_completion() {
    local name meaning names value text action
    printf '#compdef camjob\n# Completion of camjob for zsh.\n_camjob() {\n    local -a commands\n    commands=(\n'
    while IFS=$'\t' read -r name meaning; do
        printf "        '%s:%s'\n" "$name" "$(zsh_text "$meaning")"
    done < <(commands)
    cat <<'END'
    )
    if (( CURRENT == 2 )); then
        _describe command commands
        return
    fi
    case $words[2] in
END
    while IFS=$'\t' read -r name meaning; do
        printf '    %s) shift words; (( CURRENT-- )); _arguments -S' "$name"
        while IFS=$'\t' read -r names value text; do
            action=
            [ "$value" = ' ' ] || action=':value:_files'
            [[ "$value" != *'|'* ]] || action=":value:(${value//|/ })"
            printf " \\\\\n        '%s[%s]%s'" "${names##*,}" "$(zsh_text "$text")" "$action"
        done < <(options "$name")
        printf " \\\\\n        '*:file:_files' ;;\n"
    done < <(commands)
    printf '    esac\n}\n_camjob "$@"\n'
}

manual >camjob.1
bash_completion >camjob
zsh_completion >_camjob
