#!/usr/bin/env bash
# setup.sh [--main-suite-only]: installs on Debian 12 everything that the build, the demo and the
# tests need. Does nothing, quickly, when all of it is there.
#   --main-suite-only   skip the ordinary installation and go straight to the way out of
#                       scripts/lib/main-suite.sh
set -euo pipefail
# shellcheck source=lib/main-suite.sh
. "$(dirname "${BASH_SOURCE[0]}")/lib/main-suite.sh"

native_packages=(
    # build
    g++ cmake ninja-build git googletest libgtest-dev libgmock-dev
    g++-mingw-w64-i686-win32 binutils-mingw-w64-i686 icoutils
    g++-mingw-w64-x86-64-win32 # the tests' stand-in for 64-bit Access
    # checks
    clang clang-tidy clang-format clang-14 clang-tidy-14 clang-format-14 libclang-rt-14-dev
    shellcheck
    python3-markdown # the package's documents
    # running the Windows programs
    wine wine64 fonts-wine fonts-liberation xvfb openbox imagemagick xdotool x11-utils locales
    util-linux procps
    # end-to-end tests
    python3 python3-pytest python3-pytest-xdist python3-pytest-timeout python3-pefile
    osslsigncode openssl # sign a program
    win32-loader # holds an installer whose version resource is read
)
# The programs are 32-bit, so Wine's 32-bit half is the one that counts; with both halves it can play
# 64-bit Windows too.
i386_packages=(wine32)

say() { printf 'setup: %s\n' "$*"; }
die() {
    printf 'setup: %s\n' "$*" >&2
    exit 1
}

# Prints what is not installed, one package a line. One call of dpkg-query: apt takes seconds.
missing_packages() {
    local installed name native
    native=$(dpkg --print-architecture)
    # dpkg-query fails when it does not know a name at all, which only means that it is missing.
    # shellcheck disable=SC2016 # the ${...} are dpkg-query's
    installed=$(dpkg-query -W -f '${Package}:${Architecture}=${db:Status-Status}\n' \
        "${native_packages[@]}" "${i386_packages[@]}" 2>/dev/null || true)
    installed=$'\n'$installed$'\n'
    for name in "${native_packages[@]}"; do
        [[ $installed == *$'\n'"$name:$native=installed"$'\n'* ||
            $installed == *$'\n'"$name:all=installed"$'\n'* ]] || printf '%s\n' "$name"
    done
    for name in "${i386_packages[@]}"; do
        [[ $installed == *$'\n'"$name:i386=installed"$'\n'* ]] || printf '%s\n' "$name:i386"
    done
}

apt() {
    apt-get -q -y -o DPkg::Lock::Timeout=300 -o Acquire::Retries=3 -o Acquire::http::Timeout=30 \
        "$@" >>"$log" 2>&1 </dev/null
}

install_packages() { # [apt options] -- packages; never at the price of a package that is there
    apt install --no-install-recommends --no-remove "$@"
}

install_ordinarily() {
    say "reading the package lists"
    # A suite that cannot be read is reported but need not stop the installation.
    apt update || say "not every package list could be read; trying with the others"
    say "installing $# packages (this takes some minutes)"
    install_packages -- "$@"
}

main_suite_only=no
case ${1:-} in
    '') ;;
    --main-suite-only) main_suite_only=yes ;;
    *) die "unknown argument '$1'; usage: setup.sh [--main-suite-only]" ;;
esac

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    die "needs Debian 12 (no dpkg and apt-get found)"
fi
mapfile -t missing < <(missing_packages)
if ((${#missing[@]} == 0)); then
    say "everything is installed"
    exit 0
fi
if ((EUID != 0)); then
    command -v sudo >/dev/null || die "run as root (or install sudo) to install: ${missing[*]}"
    exec sudo -- "${BASH_SOURCE[0]}" "$@"
fi

export DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
chmod 755 "$work" # apt downloads as a user of its own
log=$work/apt.log
: >"$log"

say "missing: ${missing[*]}"
dpkg --print-foreign-architectures | grep -qx i386 || dpkg --add-architecture i386 ||
    die "this machine cannot have 32-bit (i386) packages, which Wine needs"

if [[ $main_suite_only == yes ]] || ! install_ordinarily "${missing[@]}"; then
    [[ $main_suite_only == yes ]] || say "the ordinary installation failed"
    install_from_main_suite "$work/main-suite" "${missing[@]}" || say "the installation from the main suite failed"
fi

mapfile -t missing < <(missing_packages)
if ((${#missing[@]} > 0)); then
    printf 'setup: the end of what apt said:\n' >&2
    tail -n 40 "$log" >&2
    die "could not be installed: ${missing[*]}"
fi
say "everything is installed"
