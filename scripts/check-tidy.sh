#!/usr/bin/env bash
# clang-tidy over product and tests: portable files as the native build compiles them, the Windows
# files with the cross compiler's headers. Ninja remembers what has been looked at.
set -euo pipefail
cd "$(dirname "$0")/.."

status=0
for preset in linux-asan win32-tests; do
    cmake --preset "$preset" >/dev/null
    # What is clean is not worth a line; a failure shows the whole output.
    output=$(cmake --build --preset "$preset" --target tarvex_tidy -- -k 0 2>&1) || {
        status=1
        printf '%s\n' "$output" | grep -vE '^\[|warnings? (generated|treated)'
    }
done
exit "$status"
