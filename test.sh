#!/bin/bash
# Builds everything and runs every test with CTest. Installs missing packages first (Debian 12; through sudo when not root).
#
#   ./test.sh [--quick] [--long] [--fuzz-seconds N]
#
#   --quick            leaves out the 32-bit programs in their own Wine
#   --long             1,000 kill rounds instead of 200, and ten minutes for each fuzz target instead of 10 seconds
#   --fuzz-seconds N   seconds for each fuzz target
#
# The output of failed tests is on the screen, that of all tests in build/Testing/Temporary/LastTest.log. A test that was skipped
# or could not run counts as failed. The last line counts the tests: "N passed, N failed".
. "$(dirname "$0")/scripts/common.sh"

presets=(native windows-x64 windows-x86 native-valgrind native-fuzz)
sets=(build wine64 wine32 desktop checks package bench)
fuzz_seconds=10
while [ $# -gt 0 ]; do
    case $1 in
    --quick)
        presets=(native windows-x64 native-valgrind native-fuzz)
        sets=(build wine64 desktop checks package bench)
        ;;
    --long)
        export SCV_KILL_ROUNDS=1000 SCV_TEST_TIMEOUT=1200
        fuzz_seconds=600
        ;;
    --fuzz-seconds)
        shift
        fuzz_seconds=${1:-}
        [[ $fuzz_seconds =~ ^[1-9][0-9]*$ ]] || fail "--fuzz-seconds wants a number of seconds."
        ;;
    -h | --help)
        sed -n '2,/^\. /{/^#/s/^# \{0,1\}//p}' "$0"
        exit 0
        ;;
    *) fail "./test.sh: unknown option $1; --help names them." ;;
    esac
    shift
done

mkdir -p build
exec 8>build/.test-lock
flock -n 8 || fail "Another ./test.sh is running in this checkout."
scripts/setup.sh "${sets[@]}"

# Two builds at a time, because each has steps that use one processor.
build() {
    say "Building $1 (build/$1.log)"
    { cmake --preset "$1" "-DSCV_FUZZ_SECONDS=$2" && cmake --build --preset "$1" --parallel "$(nproc)"; } >"build/$1.log" 2>&1 || {
        tail -n 60 "build/$1.log"
        say "The build $1 failed, and so no test was run."
        return 1
    }
}
export -f build say
printf '%s\n' "${presets[@]}" | xargs -P 2 -I PRESET bash -c "build PRESET $fuzz_seconds" || {
    say "0 passed, 1 failed"
    exit 1
}

# The tests of all builds in one run, to use all processors: many tests wait for windows and launches.
printf 'subdirs(%s)\n' "${presets[@]}" >build/CTestTestfile.cmake
end_fixtures() { for arch in x64 x86; do scripts/wine-tests.sh stop "$arch" >/dev/null 2>&1; done; }
trap end_fixtures EXIT
trap 'exit 130' INT TERM
results=build/test-results.xml
rm -f "$results"
ctest --test-dir build --output-on-failure --no-label-summary --parallel $(($(nproc) + 2)) --output-junit "$PWD/$results" 8>&- || true

# The tests that have run and have not failed.
passed=$(grep -cP '^\t<testcase .* status="run">$' "$results" || true)
all=$(sed -n 's/^\ttests="\([0-9]*\)"/\1/p' "$results")
say "${passed:-0} passed, $((${all:-1} - ${passed:-0})) failed"
[ -n "$all" ] && [ "$all" -gt 0 ] && [ "$passed" -eq "$all" ]
