# shellcheck shell=bash
# sample.sh (to be sourced, in the project's root): the sample launcher Kunden.exe on the drive C: of
# a Wine session, what a user does with its windows, and pictures of them.
#
#   sample_session SCRIPT         builds everything and runs the script again inside a session,
#                                 unless it is in one
#   sample_install                configures Kunden.exe; sets sample_folder and sample_office
#   sample_drive [PICTURE]        lets the window driver follow the script on standard input (see
#                                 tests/e2e/driver/README.md); its report is in $sample_work/report
#   sample_shoot FILE [PROGRAM]   takes a picture of the topmost window of Kunden, or of another program
#   sample_window FOLDER [one]    pictures of the configurator's window (see window-pictures.py)
#   sample_start [SWITCHES], sample_picture
#                                 print steps for such a script: start Kunden.exe; take the picture

sample_session() { # script
    [[ -z ${TARVEX_WINE_SESSION:-} ]] || return 0
    ./scripts/setup.sh
    ./scripts/build.sh
    echo "== Build: stand-in for Access and window driver"
    cmake --preset win32-tests >/dev/null
    cmake --build --preset win32-tests --target msaccess uidriver
    exec ./scripts/wine-session "$1"
}

sample_install() {
    local value name data
    sample_work=$TMPDIR/sample
    sample_folder=$WINEPREFIX/drive_c/Kunden
    sample_office=$WINEPREFIX/drive_c/Office
    mkdir -p "$sample_folder/Daten" "$sample_office"
    cp samples/kunden/Kunden.mdb samples/kunden/System.mdw "$sample_folder/Daten/"
    cp samples/kunden/Start.bmp "$sample_folder/"
    cp build/win32-tests/e2e/msaccess.exe "$sample_office/"
    dist/linux/tarvexcf check samples/kunden/Kunden.ini
    dist/linux/tarvexcf brand dist/win32/tarvex.exe "$sample_folder/Kunden.exe" \
        --settings samples/kunden/Kunden.ini
    for value in 'AccessPfad=C:\Office' 'Installationspfad=C:\Kunden'; do
        name=${value%%=*} data=${value#*=}
        wine reg add 'HKLM\SOFTWARE\Muster\Kunden' /v "$name" /t REG_SZ /d "$data" /f \
            >/dev/null 2>&1 </dev/null
    done
}

sample_start() { # [switches]
    printf 'start\tC:\\\\Kunden\\\\Kunden.exe\tKunden.exe%s\n' "${1:+ $1}"
}

sample_picture() {
    printf 'signal\tSIGNALS\\\\shown\nawait\tSIGNALS\\\\taken\n'
}

# Takes a picture of the topmost window with the frame that the window manager gave it.
sample_shoot() { # file [program]
    local program=${2:-kunden} window
    # In the order of the stack; the class is the same for all windows of a program.
    window=$(xdotool search --onlyvisible --class "^$program\\.exe\$" | tail -n 1)
    [[ -n $window ]] || {
        echo "no window of $program.exe is visible" >&2
        return 1
    }
    # The same windows give the same file: no date, and colours from a palette.
    import -window "$window" -frame -strip -define png:exclude-chunks=date,time \
        -colors 255 "PNG8:$1"
}

sample_window() { # folder [one]
    /usr/bin/python3 scripts/lib/window-pictures.py "$@" </dev/null
}

sample_drive() { # [picture]
    local picture=${1:-} code=0 shot=0 driver tries
    rm -rf "$sample_work"
    mkdir -p "$sample_work"
    sed "s|SIGNALS|$(winepath -w "$sample_work" | sed 's|\\|\\\\\\\\|g')|g" >"$sample_work/script"
    (
        cd "$sample_work" || exit
        wine "$OLDPWD/build/win32-tests/e2e/uidriver.exe" script report
    ) >"$sample_work/out" 2>&1 </dev/null &
    driver=$!
    for ((tries = 0; tries < 300; ++tries)); do
        [[ -e $sample_work/shown ]] && break
        kill -0 "$driver" 2>/dev/null || break
        sleep 0.1
    done
    if [[ -e $sample_work/shown ]]; then
        sample_shoot "$picture" || shot=$?
        : >"$sample_work/taken"
    fi
    wait "$driver" || code=$?
    if ((code != 0)); then
        echo "the window driver failed:" >&2
        cat "$sample_work/report" "$sample_work/out" >&2
        return 1
    fi
    return "$shot"
}
