#!/bin/bash
# Reports how many lines of the portable sources the native tests run. Fails when a line of core or util is not run. A line
# that no native test can reach is marked with GCOVR_EXCL_LINE and the reason.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

scripts/setup.sh build coverage
build=build/native-coverage
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS='--coverage -fprofile-abs-path' >"$build.log"
cmake --build "$build" --target scv_tests >>"$build.log" || { cat "$build.log" && exit 1; }
find "$build" -name '*.gcda' -delete
"$build/tests/scv_tests" >>"$build.log" || { cat "$build.log" && exit 1; }
gcovr --root . --filter '(util|core|layout|script|ui|cli)/' --json "$build/lines.json" --txt "$build/report.txt" "$build"
grep -E '^(TOTAL|lines)' "$build/report.txt" || true
gcovr --root . --add-tracefile "$build/lines.json" --filter '(core|util)/' --fail-under-line 100
