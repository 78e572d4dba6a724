# shellcheck shell=bash
# main-suite.sh (to be sourced by setup.sh): installs packages from the main suite of the release
# alone.
#
# Why it is there: Wine needs libraries of two architectures in exactly the same version. A mirror's
# security suite sometimes has a new version for amd64 and not yet for i386, or names one that the
# mirror no longer holds; the 32-bit libraries that fit the installed 64-bit ones, or the other way
# round, then cannot be had, and the ordinary installation ends with "unmet dependencies". The main
# suite is complete for both, so everything is taken from there, going back to its versions where
# needed. All of apt's settings for that live in a temporary folder; the system's own configuration
# and lists stay as they are. On a machine whose package index is in order nothing of this runs.
#
#   install_from_main_suite FOLDER PACKAGE ...   installs the packages; works in FOLDER, a new one
#
# Uses its caller's functions say, apt and install_packages.

# Writes the entries of the system's package sources for the component main of one release, without
# its updates and security suites, as sources of apt's own two formats into a folder.
write_main_suite_sources() { # release folder
    local release=$1 folder=$2 file files=()
    shopt -s nullglob
    files=(/etc/apt/sources.list /etc/apt/sources.list.d/*.list)
    for file in "${files[@]}"; do
        [[ -r $file ]] || continue
        awk -v release="$release" '
            $1 == "deb" {
                at = 2
                if ($2 ~ /^\[/) while (at <= NF && $(at++) !~ /\]$/) {}
                main = 0
                for (i = at + 2; i <= NF && $i !~ /^#/; i++) if ($i == "main") main = 1
                if ($(at + 1) != release || !main) next
                line = "deb"
                for (i = 2; i <= at; i++) line = line " " $i
                print line, release, "main"
            }' "$file" >>"$folder/main.list"
    done
    files=(/etc/apt/sources.list.d/*.sources)
    for file in "${files[@]}"; do
        awk -v release="$release" '
            BEGIN { RS = ""; FS = "\n" }
            function has(name, value,   i, field) {
                for (i = 1; i <= NF; i++)
                    if (tolower($i) ~ "^" name ":") {
                        field = " " tolower(substr($i, length(name) + 2)) " "
                        gsub(/[ \t]+/, " ", field)
                        return index(field, " " value " ") > 0
                    }
                return 0
            }
            has("types", "deb") && has("suites", release) && has("components", "main") &&
            !has("enabled", "no") {
                for (i = 1; i <= NF; i++) {
                    if (tolower($i) ~ /^types:/) $i = "Types: deb"
                    if (tolower($i) ~ /^suites:/) $i = "Suites: " release
                    if (tolower($i) ~ /^components:/) $i = "Components: main"
                    print $i
                }
                print ""
            }' "$file" >>"$folder/main.sources"
    done
    [[ -s $folder/main.list || -s $folder/main.sources ]]
}

install_from_main_suite() { # folder package ...
    local folder=$1 release
    shift
    # shellcheck source=/dev/null
    release=$(. /etc/os-release && printf '%s' "${VERSION_CODENAME:-}")
    [[ -n $release ]] || return 1
    mkdir -p "$folder/sources" "$folder/lists/partial" "$folder/preferences.d"
    if ! write_main_suite_sources "$release" "$folder/sources"; then
        say "the package sources name no main suite of $release"
        return 1
    fi
    printf 'Package: *\nPin: release n=%s\nPin-Priority: 1001\n' "$release" >"$folder/preferences"
    local options=(
        -o Dir::Etc::sourcelist=/dev/null -o "Dir::Etc::sourceparts=$folder/sources"
        -o "Dir::Etc::preferences=$folder/preferences"
        -o "Dir::Etc::preferencesparts=$folder/preferences.d"
        -o "Dir::State::lists=$folder/lists"
        -o Dir::Cache::pkgcache= -o Dir::Cache::srcpkgcache=
    )
    say "reading the package lists of $release's main suite alone"
    apt "${options[@]}" update || return 1
    say "installing $# packages from the main suite"
    install_packages "${options[@]}" --allow-downgrades -- "$@"
}
