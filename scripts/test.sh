#!/usr/bin/env bash
# Set-up, build and every test of the project. Ends with the count of tests; exit code 0 only when
# all have passed.
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD

./scripts/setup.sh
./scripts/build.sh

results=build/results
rm -rf "$results" build/linux-asan/results build/win32-tests/results
mkdir -p "$results"
passed=0
failed=0
skipped=0

# Adds the counts of a JUnit file to the totals.
count() {
    local file=$1 tests fails skips
    read -r tests fails skips < <(python3 scripts/lib/junit-counts.py "$file")
    passed=$((passed + tests - fails - skips))
    failed=$((failed + fails))
    skipped=$((skipped + skips))
}

# The same for the test programs of one build; a program that has left no file has crashed.
count_programs() {
    local build=$1 program
    for program in "$build"/tests/*_tests "$build"/tests/*_tests.exe; do
        [ -e "$program" ] || continue
        program=$(basename "$program" .exe)
        count "$build/results/${program%_tests}.xml"
    done
}

# Runs one group of tests and goes on when it fails, so that one run shows every failure.
group() {
    local name=$1 code=0
    shift
    echo "== Tests: $name ($(date +%T))"
    "$@" || code=$?
    if [ "$code" -ne 0 ]; then
        echo "== FAILED: $name (exit code $code)"
        status=1
    fi
}

check() {
    local name=$1
    shift
    echo "== Check: $name"
    if "$@"; then
        passed=$((passed + 1))
    else
        echo "== FAILED: $name"
        failed=$((failed + 1))
        status=1
    fi
}

status=0
echo "== Build: native tests with sanitizers"
cmake --preset linux-asan >/dev/null
cmake --build --preset linux-asan
echo "== Build: tests for Windows"
cmake --preset win32-tests >/dev/null
cmake --build --preset win32-tests

# The end-to-end tests wait for windows most of the time; everything else runs meanwhile.
./scripts/test-e2e.sh "$root/$results" >"$results/e2e.log" 2>&1 &
endToEnd=$!
trap 'kill "$endToEnd" 2>/dev/null || true' EXIT

check "format" ./scripts/check-format.sh
check "shell scripts" ./scripts/check-shell.sh
group "native, address and undefined-behaviour sanitizers" \
    ctest --preset linux-asan -j2
count_programs build/linux-asan
check "clang-tidy" ./scripts/check-tidy.sh
group "cross-compiled, under Wine" \
    ./scripts/wine-session ctest --preset win32-tests -j2
count_programs build/win32-tests
group "end to end" wait "$endToEnd"
cat "$results/e2e.log"
group "times of starts" ./scripts/test-e2e.sh "$root/$results" timed
for file in "$results"/e2e-*.xml; do
    count "$file"
done

echo "$passed passed, $failed failed, $skipped skipped"
exit "$status"
