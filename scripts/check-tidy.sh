#!/usr/bin/env bash
# clang-tidy over the product's sources: portable files as the native build compiles them, the
# Windows files with the cross compiler's headers. A file is looked at again only when it, a header
# or the rules have changed.
set -euo pipefail
cd "$(dirname "$0")/.."

stamps=build/tidy
mkdir -p "$stamps"
folders=(app branding configurator errors launch platform util tests/support)
base=$({
    cat .clang-tidy CMakeLists.txt cmake/*.cmake
    git ls-files -co --exclude-standard -z '*.h' '*.inc' | xargs -0 cat
} | sha256sum | cut -d' ' -f1)

cxx=/usr/lib/gcc/i686-w64-mingw32/12-win32/include/c++
windows=(--extra-arg-before=--target=i686-w64-mingw32 --extra-arg=-nostdinc++
    "--extra-arg=-isystem$cxx" "--extra-arg=-isystem$cxx/i686-w64-mingw32"
    "--extra-arg=-isystem$cxx/backward")

tidy() {
    local file=$1 stamp log
    shift
    stamp=$stamps/$(printf '%s' "$file" | tr '/' '+').$({
        echo "$base"
        cat "$file"
    } | sha256sum | cut -c1-16)
    [ -e "$stamp" ] && return 0
    log=$stamp.log
    if clang-tidy-14 --quiet --extra-arg=-Wno-unknown-warning-option "$@" "$file" >"$log" 2>/dev/null; then
        rm -f "$log" "$stamps/$(printf '%s' "$file" | tr '/' '+')".*
        : >"$stamp"
    else
        cat "$log"
        return 1
    fi
}

# Two at a time: the machines have two cores.
jobs_running=0
status=0
while read -r file; do
    case $file in
        *_win32.cpp | platform/win32/* | branding/BrandImage.cpp)
            tidy "$file" -p build/win32-tests "${windows[@]}" & ;;
        *)
            tidy "$file" -p build/linux-asan & ;;
    esac
    jobs_running=$((jobs_running + 1))
    if [ "$jobs_running" -ge 2 ]; then
        wait -n || status=1
        jobs_running=$((jobs_running - 1))
    fi
done < <(git ls-files -co --exclude-standard "${folders[@]/%//*.cpp}")
while [ "$jobs_running" -gt 0 ]; do
    wait -n || status=1
    jobs_running=$((jobs_running - 1))
done
exit "$status"
