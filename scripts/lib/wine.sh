# shellcheck shell=bash
# wine.sh (to be sourced): Wine sessions for tests and demo. A session is a Wine prefix and an X
# display of its own, with German settings, that end together.
#
#   wine_session_start            starts one; from then on it ends with the calling shell, also when
#                                 that fails or is told to end (it takes the traps of EXIT, HUP, INT
#                                 and TERM)
#   wine_session_run COMMAND ...  runs a command in it: WINEPREFIX, DISPLAY and the locale are set
#                                 for the command, not for the calling shell
#   wine_session_stop             ends it before the shell ends
#
# Every function returns 1 after one line on stderr when it fails. Every wait has a limit.
# Usually scripts/wine-session, which does all three, is what one wants.

wine_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# A fresh prefix takes Wine ten seconds, a copy of one less than two. The template is kept here.
wine_cache=${TARVEX_WINE_CACHE:-$wine_root/build/wine}
# A Wine server lingers after its last program, so that the next one finds it, but not for ever, so
# that none stays when nobody could end it.
wine_linger_seconds=600

wine_session_folder=
wine_session_display=
wine_session_processes=() # the X server and the window manager, in the order of their start
wine_session_command=

wine_fail() {
    printf 'wine: %s\n' "$*" >&2
    return 1
}

wine_need() { # program ...
    local program
    for program in "$@"; do
        command -v "$program" >/dev/null ||
            wine_fail "$program is not installed; run scripts/setup.sh" || return 1
    done
}

# Waits until a command succeeds. With a process id other than 0, gives up when that process ends.
wine_wait() { # seconds what-for process-id command ...
    local limit=$1 what=$2 process=$3 end=$((SECONDS + $1))
    shift 3
    until "$@" >/dev/null 2>&1; do
        if ((process != 0)) && ! kill -0 "$process" 2>/dev/null; then
            wine_fail "waited for $what, but its process ended" || return 1
        fi
        if ((SECONDS > end)); then
            wine_fail "waited $limit seconds for $what in vain" || return 1
        fi
        sleep 0.05
    done
}

# Runs a command with a limit, its output appended to a file: what Wine starts in the background
# inherits standard output and would keep a caller's pipe open.
wine_quietly() { # seconds log what command ...
    local limit=$1 log=$2 what=$3 code=0
    shift 3
    timeout -k 5 "$limit" "$@" >>"$log" 2>&1 </dev/null || code=$?
    case $code in
        0) ;;
        124 | 137) wine_fail "$what took longer than $limit seconds" ;;
        *) wine_fail "$what failed with code $code: $(tail -n 3 "$log" | tr '\n' ' ')" ;;
    esac
}

# Below, a folder is that of one prefix and what belongs to it: prefix/, locale/, tmp/, wine.log.

# Prints what Wine's programs need in their environment, as lines for env. TMPDIR is part of it:
# programs find their server in a folder there whose name the prefix remembers.
wine_environment() { # folder
    printf '%s\n' \
        "WINEPREFIX=$1/prefix" WINEARCH=win32 WINEDEBUG=-all \
        'WINEDLLOVERRIDES=mscoree=;mshtml=;winemenubuilder.exe=d' \
        "LOCPATH=$1/locale" LANG=de_DE.UTF-8 LC_ALL=de_DE.UTF-8 LANGUAGE= \
        "TMPDIR=$1/tmp"
}

# Takes that environment for the calling (sub)shell.
wine_enter() { # folder
    local environment
    mapfile -t environment < <(wine_environment "$1")
    unset DISPLAY
    # bash itself looks for the locale where it is not and warns.
    export "${environment[@]}" 2>/dev/null
}

# Starts the Wine server of the prefix in the environment unless it runs. It must run before the
# first program does: a program that has to start it hands its standard output on to it.
wine_server_start() { # folder, entered before
    local folder=$1 log=$1/wine.log
    [[ -d $folder/prefix ]] || wine_fail "the prefix $folder/prefix is gone" || return 1
    (
        # Several programs may be started at once. Nothing that is started may inherit the lock.
        flock -w 240 9 || wine_fail "waited 240 seconds for another start of Wine" || exit 1
        wineserver -k0 2>/dev/null || {
            wine_quietly 20 "$log" "starting the Wine server" \
                wineserver "-p$wine_linger_seconds" &&
                wine_quietly 180 "$log" "starting Wine" wine wineboot
        } 9>&-
    ) 9>"$folder/lock"
}

wine_server_stop() { # folder
    local log=$1/wine.log
    local -x WINEPREFIX=$1/prefix TMPDIR=$1/tmp
    wineserver -k >>"$log" 2>&1 || true # fails when none runs
    timeout -k 5 20 wineserver -w >>"$log" 2>&1 || {
        wineserver -k9 >>"$log" 2>&1 || true
        wine_fail "waited 20 seconds for the Wine server to end; it was killed" || true
    }
    # Nobody else removes the folder of its socket; a copy of the prefix must not look for it.
    rm -rf "$WINEPREFIX/wineserver" "$1"/tmp/wine-*
}

wine_registry_add() { # log key name type data
    wine_quietly 60 "$1" "setting $3" wine reg add "$2" /v "$3" /t "$4" /d "$5" /f
}

# Makes a prefix with the user's settings that tests and demo rely on, and the German locale.
wine_template_fill() { # folder
    local folder=$1 log=$1/wine.log link
    mkdir -p "$folder/prefix" "$folder/locale" "$folder/tmp" || return 1
    # Without a locale that exists Wine loses the umlauts of command lines. A private one needs no
    # root. localedef warns about some characters and then returns 1.
    localedef -i de_DE -f UTF-8 "$folder/locale/de_DE.UTF-8" >"$log" 2>&1 || true
    [[ -f $folder/locale/de_DE.UTF-8/LC_CTYPE ]] ||
        wine_fail "localedef could not make de_DE.UTF-8: $(tail -n 1 "$log")" || return 1
    (
        wine_enter "$folder"
        trap 'wine_server_stop "$folder"' EXIT
        international='HKCU\Control Panel\International'
        wine_server_start "$folder" &&
            # A crashed program would else wait for somebody to close a dialog.
            wine_registry_add "$log" 'HKCU\Software\Wine\WineDbg' ShowCrashDialog REG_DWORD 0 &&
            # Wine's own German short date is d.M.yyyy, which Windows' is not.
            wine_registry_add "$log" "$international" sShortDate REG_SZ dd.MM.yyyy &&
            wine_registry_add "$log" "$international" sTimeFormat REG_SZ HH:mm:ss
    ) || return 1
    # Wine links the folders of its user to those in the home folder, which are not ours to write.
    while IFS= read -r link; do
        rm "$link" && mkdir "$link"
    done < <(find "$folder/prefix/drive_c/users" -type l)
}

# Prints what a prefix depends on, as a number: Wine, this script and the user, whose name is the
# name of a folder in the prefix.
wine_cache_key() {
    {
        wine --version
        id -un
        cat "${BASH_SOURCE[0]}"
    } | cksum | cut -d ' ' -f 1
}

# Removes the folders of the cache that another Wine or script made, or that were not completed.
wine_cache_drop() { # name without the key
    local folder
    for folder in "$1"-*; do
        [[ ! -d $folder/prefix ]] || wine_server_stop "$folder" || true
        [[ ! -d $folder ]] || rm -rf "$folder" "$folder.lock"
    done
}

# Runs a command that makes a folder of the cache, unless the folder is there. It is made under
# another name and renamed when it is complete; only one run at a time makes one.
wine_cache_make() { # folder command ...; the command gets the name to use as its last argument
    local folder=$1
    shift
    [[ ! -d $folder ]] || return 0
    mkdir -p "$wine_cache" || return 1
    (
        flock -w 300 9 || wine_fail "waited 300 seconds for another run to make a prefix" || exit 1
        [[ -d $folder ]] || {
            wine_cache_drop "${folder%-*}"
            "$@" "$folder.part" && mv "$folder.part" "$folder"
        } 9>&-
    ) 9>"$folder.lock"
}

# Copies the template, which is made when it is missing.
wine_copy_template() { # folder
    local template
    wine_need localedef flock || return 1
    template=$wine_cache/template-$(wine_cache_key)
    wine_cache_make "$template" wine_template_fill || return 1
    mkdir -p "$1" || return 1
    cp -a --reflink=auto "$template"/{prefix,locale,tmp} "$1" ||
        wine_fail "the prefix could not be copied to $1"
}

# Makes the prefix for programs that are run outside a session. Windows work without a display with
# Wine's null driver, which a server takes when it starts.
wine_standing_fill() { # folder
    local folder=$1
    wine_copy_template "$folder" || return 1
    (
        wine_enter "$folder"
        trap 'wine_server_stop "$folder"' EXIT
        wine_server_start "$folder" &&
            wine_registry_add "$folder/wine.log" 'HKCU\Software\Wine\Drivers' Graphics REG_SZ null
    )
}

# Prints the folder of the prefix for programs that are run outside a session.
wine_standing() {
    local folder
    folder=$wine_cache/standing-$(wine_cache_key)
    wine_cache_make "$folder" wine_standing_fill || return 1
    printf '%s\n' "$folder"
}

wine_display_start() { # sets wine_session_display
    local folder=$wine_session_folder
    # setsid: Ctrl-C on the terminal must not end the display before the programs that use it.
    setsid Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset \
        3>"$folder/display" >"$folder/xvfb.log" 2>&1 </dev/null &
    wine_session_processes+=($!)
    wine_wait 30 "the X server" $! test -s "$folder/display" || return 1
    wine_session_display=:$(<"$folder/display")
    # The configuration is named so that the one of the user's desktop is not taken.
    DISPLAY=$wine_session_display XDG_CACHE_HOME=$folder/tmp setsid openbox --sm-disable \
        --config-file /etc/xdg/openbox/rc.xml >"$folder/openbox.log" 2>&1 </dev/null &
    wine_session_processes+=($!)
    wine_wait 30 "the window manager" $! wine_window_manager_runs
}

wine_window_manager_runs() {
    xprop -display "$wine_session_display" -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

wine_session_open() {
    wine_display_start && wine_copy_template "$wine_session_folder" || return 1
    (
        wine_enter "$wine_session_folder"
        export DISPLAY=$wine_session_display
        wine_server_start "$wine_session_folder"
    )
}

wine_session_start() {
    [[ -z $wine_session_folder ]] || wine_fail "a session runs already" || return 1
    wine_need wine wineserver Xvfb openbox xprop || return 1
    trap 'exit 129' HUP
    trap 'exit 130' INT
    trap 'exit 143' TERM
    trap 'wine_session_stop || true' EXIT
    wine_session_folder=$(mktemp -d "${TMPDIR:-/tmp}/tarvex-wine.XXXXXX") || return 1
    wine_session_open && return 0
    wine_session_stop
    return 1
}

# The command gets a process group of its own, so that all of it can be ended, and runs in the
# background, so that a signal is heeded at once. It has no standard input.
wine_session_run() { # command ...
    [[ -n $wine_session_folder ]] || wine_fail "no session runs" || return 1
    local environment code=0
    mapfile -t environment < <(wine_environment "$wine_session_folder")
    # --default-signal: commands in the background of a script ignore Ctrl-C, and so would tests.
    setsid env --default-signal=INT,QUIT "${environment[@]}" DISPLAY="$wine_session_display" \
        TARVEX_WINE_SESSION="$wine_session_folder" \
        "$@" </dev/null &
    wine_session_command=$!
    wait "$wine_session_command" || code=$?
    wine_end_group "what the command left running" "$wine_session_command"
    wine_session_command=
    return "$code"
}

# Processes that ended but that nobody asked about, as in a container without an init, do not count.
wine_group_ended() { ! pgrep -g "$1" -r D,R,S,T; }

wine_end_group() { # what process-group
    ! wine_group_ended "$2" >/dev/null || return 0
    kill -TERM -- "-$2" 2>/dev/null || return 0
    wine_wait 10 "the end of $1" 0 wine_group_ended "$2" || kill -KILL -- "-$2" 2>/dev/null || true
}

wine_session_stop() {
    [[ -n $wine_session_folder ]] || return 0
    trap '' HUP INT TERM # a second Ctrl-C must not leave half of it
    local folder=$wine_session_folder i
    if [[ -n $wine_session_command ]]; then
        wine_end_group "the command" "$wine_session_command"
        wine_session_command=
    fi
    if [[ -d $folder/prefix ]]; then
        wine_server_stop "$folder" || true
    fi
    for ((i = ${#wine_session_processes[@]} - 1; i >= 0; i--)); do
        wine_end_group "the X display" "${wine_session_processes[i]}"
    done
    wait "${wine_session_processes[@]}" 2>/dev/null || true
    rm -rf "$folder" || wine_fail "$folder could not be removed" || true
    wine_session_processes=()
    wine_session_folder=
    trap - HUP INT TERM EXIT
}
