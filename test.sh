#!/usr/bin/env bash
# Builds everything and runs all tests; ends with the line "N passed, N failed". Needs no display.
set -euo pipefail

cd "$(dirname "$0")"
results=build/release/test-results.xml

echo "* Installing missing packages"
scripts/packages.sh test

echo "* Building"
cmake --preset release -DWEXEL_TESTS=ON -DWEXEL_BENCHMARKS=ON >/dev/null
cmake --build --preset release -j2

echo "* Testing"
rm -f "$results"
status=0
ctest --preset release -j2 --output-junit "$PWD/$results" || status=$?
[ -s "$results" ] || {
    echo "ctest wrote no results" >&2
    exit 1
}
# The counts stand in the first element: <testsuite ... tests="N" failures="N" disabled="N" skipped="N" ...>
count() { sed -n "s/.*[[:space:]]$1=\"\([0-9]*\)\".*/\1/p" "$results" | head -n 1; }
failed=$(count failures)
echo "$(($(count tests) - failed - $(count disabled) - $(count skipped))) passed, $failed failed"
[ "$status" -eq 0 ] && [ "$failed" -eq 0 ]
