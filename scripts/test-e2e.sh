#!/usr/bin/env bash
# test-e2e.sh RESULTS [PYTEST-ARGS ...]: the end-to-end tests over the programs in dist/, in six parts
# side by side: they wait for windows most of the time. Each part has a Wine session of its own. Leaves
# RESULTS/e2e-K.xml (JUnit).
set -euo pipefail
cd "$(dirname "$0")/.."
results=$1
shift
shards=6

export TARVEX_WIN32_DIST=$PWD/dist/win32
export TARVEX_LINUX_DIST=$PWD/dist/linux
export TARVEX_E2E_BIN=$PWD/build/win32-tests/e2e

running=()
trap 'kill "${running[@]}" 2>/dev/null || true' EXIT # the sessions clean up after themselves
for ((shard = 1; shard <= shards; ++shard)); do
    ./scripts/wine-session /usr/bin/python3 -m pytest tests/e2e -q --shard "$shard/$shards" \
        -p no:cacheprovider --junitxml "$results/e2e-$shard.xml" "$@" \
        >"$results/e2e-$shard.log" 2>&1 &
    running+=("$!")
done
status=0
for shard in "${!running[@]}"; do
    # A part that could not even begin must not pass for one without tests.
    wait "${running[$shard]}" || {
        status=1
        tail -n 200 "$results/e2e-$((shard + 1)).log"
    }
    tail -n 1 "$results/e2e-$((shard + 1)).log"
done
exit "$status"
