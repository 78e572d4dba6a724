#!/usr/bin/env bash
# Takes the pictures that the documentation shows, into docs/bilder/, and pictures of every page and
# dialog of the configurator's window at 100 % and 200 %, into build/screenshots/, for whoever changes
# it. The programs run under Wine, whose own dialogs look a little different from those of Windows.
set -euo pipefail
cd "$(dirname "$0")/.."
# shellcheck source=lib/sample.sh
. scripts/lib/sample.sh
sample_session "$0"

pictures=docs/bilder
largest=60000 # bytes; they are part of the repository
mkdir -p "$pictures"

shoot() { # name; steps on standard input
    sample_drive "$pictures/$1.png"
    check_size "$1"
}

check_size() { # name
    local size
    size=$(stat -c %s "$pictures/$1.png")
    if ((size > largest)); then
        echo "$pictures/$1.png has $size bytes, more than $largest" >&2
        return 1
    fi
    echo "$pictures/$1.png"
}

configure() { # field=value ...
    dist/linux/tarvexcf set "$sample_folder/Kunden.exe" "$@" >/dev/null
}

# The steps of a run that shows one window and ends with it.
one_window() { # condition [switches [how to close it]]
    sample_start "${2:-}"
    printf 'window\t%s\n' "$1"
    sample_picture
    printf '%s\nexit\n' "${3:-close}"
}

sample_install >/dev/null

sample_window "$pictures" one >/dev/null
check_size konfiguration
for percent in 100 200; do
    # A session of its own: a resolution is for all programs, and 200 % needs a larger screen.
    env -u TARVEX_WINE_SESSION TARVEX_SCREEN=2048x1536 ./scripts/wine-session \
        ./scripts/lib/window-pictures.sh "build/screenshots/$percent" $((96 * percent / 100))
done

# Long enough for a slow machine; the script closes the picture.
configure PicDelay=8000
{
    sample_start /T
    printf 'window\tclass=frmStart\n'
    sample_picture
    printf 'close\ngone\nwindow\ttitle=Tarvex - Debug\nclose\nexit\n'
} | shoot startbild
configure PicDelay=1500

one_window 'title=Tarvex - Debug' /T | shoot probelauf
one_window 'title=Tarvex - Debug' '/D Diagnose' | shoot diagnose
one_window 'class=#32770' '/D falsch' | shoot kennwort

{
    sample_start /T
    printf 'window\ttitle=Tarvex - Debug\nkeys\tCtrl+S\nwindow\tclass=#32770\thas=1148\n'
    sample_picture
    printf 'close\ngone\nwindow\ttitle=Tarvex - Debug\nclose\nexit\n'
} | shoot speichern

rm "$sample_folder/Daten/Kunden.mdb"
one_window 'class=#32770' | shoot fehler
{
    sample_start
    printf 'window\tclass=#32770\npress\tcaption\t&Details\nwindow\ttitle=Tarvex - Debug\n'
    sample_picture
    printf 'close\nexit\n'
} | shoot details

configure HCID=1000
: >"$sample_folder/Kunden.chm" # the button shows when the file is there
one_window 'class=#32770' '' $'press\tcaption\t&Beenden' | shoot fehler-hilfe
