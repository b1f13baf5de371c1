#!/bin/bash
# Builds all benchmarks and runs them: first the native ones, then under 64-bit Wine those that need Windows. Each prints
# ratios of times of its own run. Exit code 1 when one of them failed or missed a bound.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. scripts/wine.sh

scripts/setup.sh build wine64 desktop bench
mkdir -p build
say "Building (build/bench.log)"
for preset in native-release windows-x64-release; do
    { cmake --preset "$preset" && cmake --build --preset "$preset"; } >build/bench.log 2>&1 || {
        tail -n 40 build/bench.log >&2
        fail "The build $preset failed."
    }
done

failed=()
ran=0
# run PROGRAM COMMAND...
run() {
    local program=$1
    shift
    say "" && say "== $program"
    ran=$((ran + 1))
    "$@" || failed+=("$program")
}

for program in build/native-release/bench/*; do
    [ ! -f "$program" ] || [ ! -x "$program" ] || run "$program" "$program"
done
trap 'wine_stop >/dev/null 2>&1; display_stop' EXIT
trap 'exit 130' INT TERM
display_start
wine_start x64 build/wine/bench >>build/bench.log 2>&1
for program in build/windows-x64-release/bench/*.exe; do
    [ ! -f "$program" ] || run "$program" wine_run x64 "$program"
done
run scvsched bench/console.py

[ "$ran" -gt 0 ] || fail "There is no benchmark."
[ ${#failed[@]} -eq 0 ] || fail "Failed: ${failed[*]}"
