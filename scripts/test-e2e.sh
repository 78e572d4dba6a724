#!/usr/bin/env bash
# test-e2e.sh RESULTS [timed] [PYTEST-ARGS ...]: the end-to-end tests over the programs in dist/, in
# six parts side by side: they wait for windows most of the time. One more part runs those about
# 64-bit Windows and a sample of the others in the prefix of one. Each part has a Wine session of its
# own. With `timed` only the tests that compare times, which the others leave out: they want a machine
# that does nothing else. Leaves RESULTS/e2e-PART.xml (JUnit).
set -euo pipefail
cd "$(dirname "$0")/.."
results=$1
shift
shards=6

export TARVEX_WIN32_DIST=$PWD/dist/win32
export TARVEX_LINUX_DIST=$PWD/dist/linux
export TARVEX_E2E_BIN=$PWD/build/win32-tests/e2e

parts=()
running=()
trap 'kill "${running[@]}" 2>/dev/null || true' EXIT # the sessions clean up after themselves
start() { # part PYTEST-ARGS ...
    local part=$1
    shift
    ./scripts/wine-session /usr/bin/python3 -m pytest tests/e2e -q -p no:cacheprovider \
        --junitxml "$results/e2e-$part.xml" "$@" >"$results/e2e-$part.log" 2>&1 &
    running+=("$!")
    parts+=("$part")
}
if [ "${1:-}" = timed ]; then
    shift
    start timed -m timed "$@"
else
    TARVEX_WINE_ARCH=win64 start win64 -m "win64 or also_win64" "$@"
    for ((shard = 1; shard <= shards; ++shard)); do
        start "$shard" --shard "$shard/$shards" -m "not timed" "$@"
    done
fi
status=0
for index in "${!running[@]}"; do
    # A part that could not even begin must not pass for one without tests.
    wait "${running[$index]}" || {
        status=1
        tail -n 200 "$results/e2e-${parts[$index]}.log"
    }
    tail -n 1 "$results/e2e-${parts[$index]}.log"
done
exit "$status"
