#!/usr/bin/env bash
# Runs shellcheck over every shell script of the project.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -co --exclude-standard | while read -r file; do
    if head -n 1 "$file" | grep -aqE '^#!.*\b(ba|da)?sh\b' || [[ $file == *.sh ]]; then
        printf '%s\0' "$file"
    fi
done | xargs -0 shellcheck --external-sources --source-path=SCRIPTDIR
