#!/usr/bin/env bash
# Draws the project information dialog for the documentation, docs/dialog-*.png: its three tabs as Qt
# shows them on Linux, and as Windows shows them (through Wine). Installs what is missing.
# Look at the pictures before committing them. Another scale can be looked at with QT_SCALE_FACTOR=2.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

scripts/setup.sh build windows pictures
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

for preset in release windows; do
    cmake --preset "$preset"
    cmake --build --preset "$preset" --target dialog_pictures -j"$(nproc)"
done

QT_QPA_PLATFORM=offscreen build/release/bin/dialog_pictures docs/dialog-qt-

# A prefix of its own: the services of the usual one may have started without a display.
CAMDATA_WINEPREFIX=$scratch/wine xvfb-run -a -s "-screen 0 800x600x24" \
    cmake/wine-run.sh build/windows/bin/dialog_pictures.exe "$(realpath --relative-to=. "$scratch")/"
for tab in output project delivery; do
    convert "$scratch/$tab.bmp" -alpha off -strip "docs/dialog-windows-$tab.png"
done
