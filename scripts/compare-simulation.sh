#!/usr/bin/env bash
# compare-simulation.sh [COUNT [FIRST]]: makes 200 random worlds real (or COUNT, from seed FIRST on)
# and compares, byte for byte, what the launcher's log window shows there under Wine with what
# tarvexcf says of their descriptions. Needs what scripts/build.sh leaves in dist/, and the tools of
# the end-to-end tests. scripts/test.sh does the same with a few worlds.
set -euo pipefail
cd "$(dirname "$0")/.."

export TARVEX_WORLDS=${1:-200}
export TARVEX_FIRST_WORLD=${2:-1000}
results=$PWD/build/results/simulation
mkdir -p "$results"
./scripts/test-e2e.sh "$results" -k described_world
