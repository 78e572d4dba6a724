#!/usr/bin/env bash
# Every C++ file of the project is formatted as .clang-format says.
set -euo pipefail
cd "$(dirname "$0")/.."
git ls-files -co --exclude-standard '*.cpp' '*.h' | grep -v '^resources/' |
    xargs clang-format-14 --dry-run --Werror
