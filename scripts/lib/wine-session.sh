# shellcheck shell=bash
# wine-session.sh (to be sourced): Wine sessions for tests and demo. A session is a Wine prefix and
# an X display of its own that end together.
#
#   wine_session_start            starts one; it ends with the calling shell, also when that fails or
#                                 is told to end (it takes the traps of EXIT, HUP, INT and TERM) or
#                                 is killed
#   wine_session_run COMMAND ...  runs a command in it: WINEPREFIX, DISPLAY and the locale are set
#                                 for the command, not for the calling shell
#   wine_session_stop             ends it before the shell ends
#
# TARVEX_SCREEN in the environment is the size of the screen, 1280x1024 without it.
#
# Usually scripts/wine-session, which does all three, is what one wants.

# shellcheck source=wine-prefix.sh
. "$(dirname "${BASH_SOURCE[0]}")/wine-prefix.sh"

wine_session_folder=
wine_session_display=

# Starts a program of the session in a process group of its own, so that Ctrl-C on the terminal does
# not end the display before the programs that use it, and so that all of it can be ended later. The
# group is noted in the session's folder, where the guard finds it too.
wine_session_spawn() { # name command ...; sets $! for the caller
    local name=$1
    shift
    setsid "$@" </dev/null &
    printf '%s\n' $! >"$wine_session_folder/groups/$name"
}

# Processes that ended but that nobody asked about, as in a container without an init, do not count.
wine_group_ended() { ! pgrep -g "$1" -r D,R,S,T; }

wine_session_end() { # name
    local note=$wine_session_folder/groups/$1 group
    [[ -f $note ]] || return 0
    group=$(<"$note")
    if ! wine_group_ended "$group" >/dev/null; then
        kill -TERM -- "-$group" 2>/dev/null || true
        wine_wait 10 "the end of the $1" 0 wine_group_ended "$group" ||
            kill -KILL -- "-$group" 2>/dev/null || true
    fi
    rm -f "$note"
}

wine_window_manager_runs() {
    xprop -display "$wine_session_display" -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}

wine_display_start() { # sets wine_session_display
    local folder=$wine_session_folder
    wine_session_spawn display Xvfb -displayfd 3 -screen 0 "${TARVEX_SCREEN:-1280x1024}x24" \
        -nolisten tcp -noreset 3>"$folder/display" >"$folder/xvfb.log" 2>&1
    wine_wait 30 "the X server" $! test -s "$folder/display" || return 1
    wine_session_display=:$(<"$folder/display")
    # The configuration is named so that the one of the user's desktop is not taken.
    wine_session_spawn window-manager env "DISPLAY=$wine_session_display" \
        "XDG_CACHE_HOME=$folder/tmp" openbox --sm-disable --config-file /etc/xdg/openbox/rc.xml \
        >"$folder/openbox.log" 2>&1
    wine_wait 30 "the window manager" $! wine_window_manager_runs
}

# Ends the session when the shell that started it was killed and could not do it.
wine_guard_start() {
    # shellcheck disable=SC2016 # the arguments are the inner shell's
    wine_session_spawn guard bash -c '
        . "$1"
        tail --pid="$2" -f /dev/null
        [[ -d $3 ]] || exit 0
        wine_session_folder=$3
        rm -f "$3/groups/guard"
        wine_session_stop' \
        guard "${BASH_SOURCE[0]}" $$ "$wine_session_folder" >/dev/null 2>&1
}

wine_session_open() {
    wine_guard_start
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
    mkdir "$wine_session_folder/groups"
    wine_session_open && return 0
    wine_session_stop
    return 1
}

# The command runs in the background so that a signal is heeded at once. It has no standard input.
wine_session_run() { # command ...
    [[ -n $wine_session_folder ]] || wine_fail "no session runs" || return 1
    local environment code=0
    mapfile -t environment < <(wine_environment "$wine_session_folder")
    # --default-signal: commands in the background of a script ignore Ctrl-C, and so would tests.
    wine_session_spawn command env --default-signal=INT,QUIT "${environment[@]}" \
        DISPLAY="$wine_session_display" TARVEX_WINE_SESSION="$wine_session_folder" "$@"
    wait $! || code=$?
    wine_session_end command # what it left running
    return "$code"
}

wine_session_stop() {
    [[ -n $wine_session_folder ]] || return 0
    trap '' HUP INT TERM # a second Ctrl-C must not leave half of it
    local folder=$wine_session_folder
    wine_session_end guard
    wine_session_end command
    if [[ -d $folder/prefix ]]; then
        wine_server_stop "$folder" || true
    fi
    wine_session_end window-manager
    wine_session_end display
    rm -rf "$folder" || wine_fail "$folder could not be removed" || true
    wine_session_folder=
    trap - HUP INT TERM EXIT
}
