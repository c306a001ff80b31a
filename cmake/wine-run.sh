#!/bin/sh
# wine-run.sh PROGRAM [ARGUMENT...] runs a Windows program through Wine, with or without a display, in
# a prefix of its own that the first run makes. Ends with the program's exit code.
#
# CAMDATA_WINEPREFIX names another folder for the prefix.
set -eu

cache=${XDG_CACHE_HOME:-${HOME:-/tmp}/.cache}
WINEPREFIX=${CAMDATA_WINEPREFIX:-$cache/camdata/wine}
export WINEPREFIX
# Wine's own messages, and its offers to install Mono and Gecko and to make menu entries.
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml=;winemenubuilder.exe=d"
# The locale decides how Windows writes dates, and which characters file names can have.
export LC_ALL=C.UTF-8

copy_fonts() {
    for font in tahoma tahomabd marlett; do
        [ ! -f "/usr/share/wine/fonts/$font.ttf" ] ||
            cp "/usr/share/wine/fonts/$font.ttf" "$WINEPREFIX/drive_c/windows/Fonts/" || return
    done
}

# Graphics: without a display Wine's null driver takes over; dialogs and their messages work with it.
# Managed: without a window manager every message box would wait for one.
# ShowCrashDialog: a crash ends the program instead of showing a box that nobody can answer.
# Fonts: Windows' dialog font, without which dialogs have other sizes than on Windows; Debian's Wine
# does not find its own fonts.
make_prefix() {
    wineboot -i &&
        wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d x11,null /f &&
        wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f &&
        wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f &&
        copy_fonts &&
        wineserver -w &&
        touch "$WINEPREFIX/.ready"
}

# Tests start side by side: one of them makes the prefix, the others wait.
mkdir -p "$WINEPREFIX"
if [ ! -f "$WINEPREFIX/.ready" ]; then
    (
        flock 9
        [ -f "$WINEPREFIX/.ready" ] || make_prefix 9>&-
    ) 9>"$WINEPREFIX/.lock" >"$WINEPREFIX/setup.log" 2>&1 </dev/null || {
        echo "wine-run.sh: cannot make a Wine prefix in $WINEPREFIX:" >&2
        cat "$WINEPREFIX/setup.log" >&2
        exit 125
    }
fi

# Wine's services inherit the output: a pipe would stay open until they end, seconds after the program.
output=$(mktemp -d)
trap 'rm -rf "$output"' EXIT
code=0
wine "$@" >"$output/stdout" 2>"$output/stderr" || code=$?
# Windows' text mode writes CR LF.
tr -d '\r' <"$output/stdout"
tr -d '\r' <"$output/stderr" >&2
exit $code
