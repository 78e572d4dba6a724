#!/usr/bin/env bash
# Shows the whole system at work: set-up, build, a configured launcher, its start picture, a dry run,
# a real start, a failing start with its details, the diagnostic information, and the configurator's
# window. The programs run under Wine; Access is a stand-in that records how it was started.
set -euo pipefail
cd "$(dirname "$0")/.."

# shellcheck source=lib/sample.sh
. scripts/lib/sample.sh
sample_session "$0"

pictures=build/demo
rm -rf "$pictures"
mkdir -p "$pictures"

# Prints the text of the last log window that the driver saw.
drive_windows() { # picture
    sample_drive "$pictures/$1"
    python3 scripts/lib/window-text.py "$sample_work/report"
    echo "   (Screenshot: $pictures/$1)"
}

echo
echo "== 1. The vendor configures a copy of the launcher"
sample_install

echo
echo "== 2. What it will do on three PCs that are only described"
dist/linux/tarvexcf simulate "$sample_folder/Kunden.exe" samples/pcs

echo
echo "== 3. The start picture, as the user sees it"
{
    sample_start /T
    printf 'appear\tclass=frmStart\n'
    sample_picture
    printf 'window\ttitle=Tarvex - Debug\nclose\nexit\n'
} | drive_windows startbild.png >/dev/null
echo "   (Screenshot: $pictures/startbild.png)"

echo
echo "== 4. Dry run: Kunden.exe /T"
{
    sample_start /T
    printf 'window\ttitle=Tarvex - Debug\n'
    sample_picture
    printf 'close\nexit\n'
} | drive_windows testlauf.png

echo
echo "== 5. Real start: Kunden.exe"
(
    cd "$sample_folder"
    timeout 60 wine Kunden.exe
) >"$TMPDIR/start.out" 2>&1 </dev/null
for ((tries = 0; tries < 100; ++tries)); do
    [[ -s $sample_office/msaccess.rec ]] && break
    sleep 0.1
done
echo "What the stand-in for Access was started with:"
sed 's/^/    /' "$sample_office/msaccess.rec"
echo "The log file Kunden.log:"
iconv -f CP1252 -t UTF-8 "$sample_folder/Kunden.log" | sed 's/^/    /'

echo
echo "== 6. Failing start: the database is gone; the user presses Details"
mv "$sample_folder/Daten/Kunden.mdb" "$sample_folder/Daten/Kunden.alt"
{
    sample_start
    printf 'window\ttitle=Tarvex\thas=6\n'
    printf 'press\tid\t7\nwindow\ttitle=Tarvex - Debug\n'
    sample_picture
    printf 'close\nexit\n'
} | drive_windows details.png
mv "$sample_folder/Daten/Kunden.alt" "$sample_folder/Daten/Kunden.mdb"

echo
echo "== 7. Diagnostic information: Kunden.exe /D Diagnose"
{
    sample_start '/D Diagnose'
    printf 'window\ttitle=Tarvex - Debug\n'
    sample_picture
    printf 'close\nexit\n'
} | drive_windows diagnose.png

echo
echo "== 8. The configurator's window, with Kunden.exe open"
sample_window "$pictures" one >/dev/null
echo "   (Screenshot: $pictures/konfiguration.png)"
echo "On Windows this opens it:"
echo "    tarvexcf.exe Kunden.exe"

echo
echo "The demo is done; its screenshots lie in $pictures/."
