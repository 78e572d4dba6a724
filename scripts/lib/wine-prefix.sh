# shellcheck shell=bash
# wine-prefix.sh (to be sourced): Wine prefixes with German settings, and their servers. They are
# those of a 32-bit Windows, or of a 64-bit one when TARVEX_WINE_ARCH is win64.
#
# A folder is, everywhere below, that of one prefix and what belongs to it: prefix/, locale/, tmp/,
# wine.log. Every function returns 1 after one line on stderr when it fails; every wait has a limit.

wine_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# A fresh prefix takes Wine ten seconds, a copy of one less than two. The template is kept here.
wine_cache=${TARVEX_WINE_CACHE:-$wine_root/build/wine}
wine_arch=${TARVEX_WINE_ARCH:-win32}

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

# Prints what Wine's programs need in their environment, as lines for env. TMPDIR is part of it:
# programs find their server in a folder there whose name the prefix remembers.
wine_environment() { # folder
    printf '%s\n' \
        "WINEPREFIX=$1/prefix" "WINEARCH=$wine_arch" WINEDEBUG=-all \
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
# first program does: a program that has to start it hands its standard output on to it. It lingers
# after its last program, for a number of seconds or, without one, until it is stopped.
wine_server_start() { # folder, entered before; [seconds]
    local folder=$1 seconds=${2:-} log=$1/wine.log
    [[ -d $folder/prefix ]] || wine_fail "the prefix $folder/prefix is gone" || return 1
    (
        # Several programs may be started at once. Nothing that is started may inherit the lock.
        flock -w 240 9 || wine_fail "waited 240 seconds for another start of Wine" || exit 1
        wineserver -k0 2>/dev/null || {
            wine_quietly 20 "$log" "starting the Wine server" \
                wineserver "-p$seconds" &&
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
        wine_server_start "$folder" 30 &&
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

# Prints the folder of the cache for one kind of prefix. Its name ends in what the prefix depends on,
# as a number: Wine, what is set in it and the user, whose name is the name of a folder in it.
wine_cache_folder() { # kind
    local key
    key=$({
        wine --version
        id -un
        declare -f wine_environment wine_template_fill wine_standing_fill
    } | cksum | cut -d ' ' -f 1)
    printf '%s\n' "$wine_cache/$1-$wine_arch-$key"
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
    template=$(wine_cache_folder template)
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
        wine_server_start "$folder" 30 &&
            wine_registry_add "$folder/wine.log" 'HKCU\Software\Wine\Drivers' Graphics REG_SZ null
    )
}

# Prints the folder of the prefix for programs that are run outside a session.
wine_standing() {
    local folder
    folder=$(wine_cache_folder standing)
    wine_cache_make "$folder" wine_standing_fill || return 1
    printf '%s\n' "$folder"
}
