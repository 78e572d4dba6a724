#!/usr/bin/env bash
# Shows the whole system at work: set-up, build, a configured launcher, its start picture, a dry run,
# a real start, a failing start with its details, and the diagnostic information. The programs run
# under Wine; Access is a stand-in that records how it was started.
set -euo pipefail
cd "$(dirname "$0")/.."

if [[ -z ${TARVEX_WINE_SESSION:-} ]]; then
    ./scripts/setup.sh
    ./scripts/build.sh
    echo "== Build: stand-in for Access and window driver"
    cmake --preset win32-tests >/dev/null
    cmake --build --preset win32-tests --target msaccess uidriver
    exec ./scripts/wine-session "$0"
fi

pictures=build/demo
rm -rf "$pictures"
mkdir -p "$pictures"
drive=$WINEPREFIX/drive_c
kunden=$drive/Kunden

# Follows a script for the window driver (see tests/e2e/driver/README.md) and prints the text of the
# last log window that it dumped. While the driver waits for a signal file, a screenshot is taken.
drive_windows() { # picture
    local picture=$1 work=$TMPDIR/demo code=0
    rm -rf "$work"
    mkdir -p "$work"
    sed "s|SIGNALS|$(winepath -w "$work" | sed 's|\\|\\\\\\\\|g')|g" >"$work/script"
    (
        cd "$work"
        wine "$OLDPWD/build/win32-tests/e2e/uidriver.exe" script report
    ) >"$work/out" 2>&1 </dev/null &
    local driver=$!
    for ((tries = 0; tries < 300; ++tries)); do
        [[ -e $work/shown ]] && break
        kill -0 "$driver" 2>/dev/null || break
        sleep 0.1
    done
    if [[ -e $work/shown ]]; then
        import -window root "$pictures/$picture"
        : >"$work/taken"
    fi
    wait "$driver" || code=$?
    if ((code != 0)); then
        echo "the window driver failed:" >&2
        cat "$work/report" "$work/out" >&2
        return 1
    fi
    python3 scripts/lib/window-text.py "$work/report"
    echo "   (Screenshot: $pictures/$picture)"
}

start_kunden() { # switches
    printf 'start\tC:\\\\Kunden\\\\Kunden.exe\tKunden.exe%s\n' "${1:+ $1}"
}
take_picture() {
    printf 'signal\tSIGNALS\\\\shown\nawait\tSIGNALS\\\\taken\n'
}

echo
echo "== 1. The vendor configures a copy of the launcher"
mkdir -p "$kunden/Daten" "$drive/Office"
cp samples/kunden/Kunden.mdb samples/kunden/System.mdw "$kunden/Daten/"
cp samples/kunden/Start.bmp "$kunden/"
cp build/win32-tests/e2e/msaccess.exe "$drive/Office/"
dist/linux/tarvexcf check samples/kunden/Kunden.ini
dist/linux/tarvexcf brand dist/win32/tarvex.exe "$kunden/Kunden.exe" \
    --settings samples/kunden/Kunden.ini
wine reg add 'HKLM\SOFTWARE\Muster\Kunden' /v AccessPfad /t REG_SZ /d 'C:\Office' /f \
    >/dev/null 2>&1 </dev/null
wine reg add 'HKLM\SOFTWARE\Muster\Kunden' /v Installationspfad /t REG_SZ /d 'C:\Kunden' /f \
    >/dev/null 2>&1 </dev/null

echo
echo "== 2. The start picture, as the user sees it"
{
    start_kunden /T
    printf 'appear\tclass=frmStart\n'
    take_picture
    printf 'window\ttitle=Tarvex - Debug\nclose\nexit\n'
} | drive_windows startbild.png >/dev/null
echo "   (Screenshot: $pictures/startbild.png)"

echo
echo "== 3. Dry run: Kunden.exe /T"
{
    start_kunden /T
    printf 'window\ttitle=Tarvex - Debug\n'
    take_picture
    printf 'close\nexit\n'
} | drive_windows testlauf.png

echo
echo "== 4. Real start: Kunden.exe"
(
    cd "$kunden"
    timeout 60 wine Kunden.exe
) >"$TMPDIR/start.out" 2>&1 </dev/null
for ((tries = 0; tries < 100; ++tries)); do
    [[ -s $drive/Office/msaccess.rec ]] && break
    sleep 0.1
done
echo "What the stand-in for Access was started with:"
sed 's/^/    /' "$drive/Office/msaccess.rec"
echo "The log file Kunden.log:"
iconv -f CP1252 -t UTF-8 "$kunden/Kunden.log" | sed 's/^/    /'

echo
echo "== 5. Failing start: the database is gone; the user presses Details"
mv "$kunden/Daten/Kunden.mdb" "$kunden/Daten/Kunden.alt"
{
    start_kunden
    printf 'window\ttitle=Tarvex\thas=6\n'
    printf 'press\tid\t7\nwindow\ttitle=Tarvex - Debug\n'
    take_picture
    printf 'close\nexit\n'
} | drive_windows details.png
mv "$kunden/Daten/Kunden.alt" "$kunden/Daten/Kunden.mdb"

echo
echo "== 6. Diagnostic information: Kunden.exe /D Diagnose"
{
    start_kunden '/D Diagnose'
    printf 'window\ttitle=Tarvex - Debug\n'
    take_picture
    printf 'close\nexit\n'
} | drive_windows diagnose.png

echo
echo "The demo is done; its screenshots lie in $pictures/."
