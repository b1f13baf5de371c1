#!/bin/bash
# Builds everything and runs every test. Installs what is missing first (Debian 12; through sudo when not root).
#
#   ./test.sh [--quick] [--long] [--fuzz-seconds N]
#
#   --quick            leave out the run of the 32-bit programs in their own Wine
#   --long             1,000 kill rounds in place of 200, and ten minutes a fuzz target in place of 20 seconds
#   --fuzz-seconds N   seconds a fuzz target
#
# A line a step; what a step said is in build/test-logs, and on the screen when it failed. What could not run counts as
# failed. The last line counts test cases and, one each, the other steps: "N passed, M failed".
. "$(dirname "$0")/scripts/common.sh"
. scripts/wine.sh

quick=
fuzz_seconds=20
step_limit=1500 # seconds after which a test program is ended and has failed
while [ $# -gt 0 ]; do
    case $1 in
    --quick) quick=1 ;;
    --long)
        export SCV_KILL_ROUNDS=1000 SCV_TEST_TIMEOUT=1200
        fuzz_seconds=600
        step_limit=7200
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

logs=build/test-logs
mkdir -p "$logs"
exec 8>build/.test-lock
flock -n 8 || fail "Another ./test.sh is running in this checkout."
rm -rf "${logs:?}"/*

# --- Steps -----------------------------------------------------------------------------------------------------------

# step NAME COMMAND...: runs it with its output in NAME.log, says how it went, and leaves "PASSED FAILED" in NAME.count:
# what the command wrote there itself, or one by its exit code.
step() {
    local name=$1 log=$logs/$1.log count=$logs/$1.count start=$EPOCHREALTIME status passed failed seconds report
    shift
    set +e
    (
        set -e
        "$@"
    ) >"$log" 2>&1 </dev/null 8>&-
    status=$?
    set -e
    seconds=$(awk "BEGIN { printf \"%.1f\", $EPOCHREALTIME - $start }")
    [ -s "$count" ] || echo "$((status == 0)) 0" >"$count"
    read -r passed failed <"$count"
    # A program that ended badly has failed, whatever its tests said.
    if [ "$status" -ne 0 ] && [ "$failed" -eq 0 ]; then
        failed=1
        echo "$passed $failed" >"$count"
    fi
    if [ "$failed" -eq 0 ]; then
        report=$(printf 'ok    %-24s %7s s  %s passed' "$name" "$seconds" "$passed")
    else
        report=$(
            printf 'FAIL  %-24s %7s s  %s passed, %s failed; from %s:\n' "$name" "$seconds" "$passed" "$failed" "$log"
            tail -n 150 "$log" | sed 's/^/      | /'
        )
    fi
    # In one go, so that the reports of two steps do not mix.
    flock "$logs" printf '%s\n' "$report"
}

# in_parallel "NAME COMMAND"...: as many at a time as there are processors, in this order. Other jobs of this shell, the
# display among them, are neither counted nor waited for: they end after the last step.
in_parallel() {
    local entry running=0 processors
    processors=$(nproc)
    local -A ours=()
    for entry in "$@" ""; do
        while [ ${#ours[@]} -ge "$processors" ] || { [ -z "$entry" ] && [ ${#ours[@]} -gt 0 ]; }; do
            wait -n -p running "${!ours[@]}" || true
            unset "ours[$running]"
        done
        [ -n "$entry" ] || break
        # shellcheck disable=SC2086 # the words of an entry
        step $entry &
        ours[$!]=1
    done
}

# needs NAME: for a step that comes after another: not run, and failed, when that one failed.
needs() {
    [ "$(cat "$logs/$1.count" 2>/dev/null)" = "1 0" ] || fail "Not run, because $1 failed."
}

# count_tests NAME LOG: what GoogleTest's closing lines say; a skipped or disabled test has not passed.
count_tests() {
    awk '
        /\[  PASSED  \] [0-9]+ test/ { passed += $4; ended = 1 }
        /\[  (FAILED|SKIPPED)  ?\] [0-9]+ tests?, listed below/ { failed += $4 }
        /YOU HAVE [0-9]+ DISABLED TEST/ { failed += $3 }
        END { print passed + 0, failed + !ended }' "$2" >"$logs/$1.count"
}

# --- What the steps do -----------------------------------------------------------------------------------------------

build() {
    cmake --preset "$1"
    cmake --build --preset "$1"
}

# run_tests STEP COMMAND...: runs a GoogleTest program and counts.
run_tests() {
    local name=$1 status=0
    shift
    "$@" || status=$?
    count_tests "$name" "$logs/$name.log"
    return "$status"
}

native_tests() {
    needs build-native
    run_tests tests-native timeout -k 10 "$step_limit" build/native/tests/scv_tests
}

# The same tests without sanitizers, for what only valgrind sees: the use of what was never set.
valgrind_tests() {
    needs build-native-release
    # Its conversions, a million of them, would take a minute.
    local slow=ZoneTest.AYearHasEachOccurrenceOnceAndMissesNone
    say "Left out: $slow"
    # Some of glibc's functions for AVX2 read past the end of a block, which is no fault where valgrind does not know them.
    SCV_TEST_TIMEOUT=600 GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2 run_tests valgrind timeout -k 10 "$step_limit" \
        valgrind -q --error-exitcode=9 --leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite \
        build/native-release/tests/scv_tests --gtest_filter="-$slow"
}

wine_tests() {
    needs "build-windows-$1"
    needs "wine-$1"
    local log=$logs/tests-$1.log status=0
    # With warn+heap Wine lays patterns round and into blocks, and says which was overwritten or given back twice.
    WINEDEBUG=-all,err+heap,warn+heap wine_limit=$step_limit \
        wine_run "$1" "build/windows-$1/tests/scv_tests.exe" || status=$?
    count_tests "tests-$1" "$log"
    ! grep -q ':heap:' "$log" || fail "A block of the heap was damaged: see :heap: above."
    return "$status"
}

# The tests of all that holds handles once more, under a debugger: only then does Wine tell of one that is closed twice.
# No test that throws can be among them, for an exception that a debugger has seen ends or hangs the program there.
handle_tests() {
    needs "build-windows-$1"
    needs "wine-$1"
    local suites=(Registry FileTests TextFile WindowsFileSystem WindowsShell PrivateProfileApi Scvsched ProcessHardening
        ScriptDlg ScriptFunctionDlg ProjectList SCVSchedulerDlg)
    SCV_KILL_ROUNDS=10 wine_limit=$step_limit run_tests "handles-$1" wine_run "$1" \
        "build/windows-$1/tests/underdebugger.exe" "build/windows-$1/tests/scv_tests.exe" \
        "--gtest_filter=$(printf '%s.*:' "${suites[@]}")"
    [ "$(grep -cE '^\[-+\] .* from .*ms total' "$logs/handles-$1.log")" -ge ${#suites[@]} ] || fail "A suite is not there."
}

# count_lines NAME: of a step that says "passed ..." or "FAILED ..." a line each.
count_lines() {
    awk '/^passed / { passed++ } /^FAILED / { failed++ } END { print passed + 0, failed + (passed + failed == 0) }' \
        "$logs/$1.log" >"$logs/$1.count"
}

zone_tests() {
    needs "build-windows-$1"
    needs "wine-$1"
    local status=0
    # shellcheck disable=SC2086 # a loader is a command and its arguments
    WINEPREFIX=${wine_prefix[$1]} WINEARCH=${wine_word[$1]} WINEDEBUG=-all timeout -k 10 "$step_limit" \
        scripts/zone-tests.sh "build/windows-$1/tests/scv_zone_tests.exe" ${wine_loader[$1]} || status=$?
    count_lines "zones-$1"
    return "$status"
}

soak() {
    if [ "$1" = native ]; then
        needs build-native
        SCV_SOAK=whole SCV_TEST_TIMEOUT=600 run_tests "soak-$1" timeout -k 10 "$step_limit" build/native/tests/scv_tests --gtest_filter='Soak.*'
    else
        needs "build-windows-$1"
        needs "wine-$1"
        # Wine reads TZ when a process starts.
        TZ=Europe/Berlin SCV_SOAK=whole SCV_TEST_TIMEOUT=600 wine_limit=$step_limit run_tests "soak-$1" \
            wine_run "$1" "build/windows-$1/tests/scv_zone_tests.exe" --gtest_filter='Soak.*'
    fi
}

# count_python NAME: what unittest's closing lines say; a skipped test has not passed.
count_python() {
    awk '
        /^Ran [0-9]+ test/ { ran = $2 }
        /^(FAILED|OK) \(/ { while (match($0, /(failures|errors|skipped)=[0-9]+/)) {
            text = substr($0, RSTART, RLENGTH); sub(/.*=/, "", text); failed += text; $0 = substr($0, RSTART + RLENGTH) } }
        END { print ran - failed, failed + (ran == 0) }' "$logs/$1.log" >"$logs/$1.count"
}

journeys() {
    needs "build-windows-$1"
    needs "wine-$1"
    local status=0
    SCV_ARCH=$1 timeout -k 10 "$step_limit" tests/journeys/test_journeys.py || status=$?
    count_python "journeys-$1"
    return "$status"
}

installer_journeys() {
    needs "build-windows-$1"
    needs "wine-$1"
    local status=0
    if [ "$1" = x86 ]; then needs package; else scripts/package.sh "$1"; fi
    timeout -k 10 "$step_limit" scripts/installer-journeys.sh "$1" || status=$?
    count_lines "installer-$1"
    return "$status"
}

same_bytes() {
    needs package
    scripts/package.sh --check
}

# Each sample once, as a test, and then on from them.
guide() {
    needs build-windows-x64
    scripts/guide.sh --check
}

fuzz() {
    needs build-native-fuzz
    local target=$1 name found seeds samples
    name=$(basename "$target")
    found=build/fuzz-corpus/$name
    seeds=fuzz/corpus/$name
    mkdir -p "$found"
    [ -d "$seeds" ] || fail "There are no samples to start from: $seeds is missing."
    samples=("$seeds"/*)
    "$target" -timeout=10 -artifact_prefix="$logs/$name-" "${samples[@]}"
    [ "$(grep -c '^Executed ' "$logs/$name.log")" -eq ${#samples[@]} ] || fail "Not every sample has run."
    "$target" -max_total_time="$fuzz_seconds" -timeout=10 -artifact_prefix="$logs/$name-" \
        -print_final_stats=1 "$found" "$seeds"
    grep -qE '^Done [1-9][0-9]* runs' "$logs/$name.log" || fail "The target did not say that it ran."
}

no_fuzz_targets() { fail "The build native-fuzz made no target."; }

checks_of_sources() {
    needs build-native
    needs build-native-release
    needs build-native-fuzz
    needs build-windows-x64
    "$1"
}

# In what the tests leave of the processors: they wait a good deal, for windows and for launches.
politely() {
    renice -n 19 -p "$BASHPID" >/dev/null
    "$@"
}

scripts_check() { shellcheck ./*.sh scripts/*.sh .ci/run; }

# --- The run ---------------------------------------------------------------------------------------------------------

stop() {
    trap - EXIT INT TERM
    local pids
    mapfile -t pids < <(jobs -rp)
    [ ${#pids[@]} -eq 0 ] || kill "${pids[@]}" 2>/dev/null || true
    wine_stop >/dev/null 2>&1
    display_stop
}
trap stop EXIT
trap 'stop; exit 130' INT TERM

sets=(build wine64 desktop checks package bench)
[ -n "$quick" ] || sets+=(wine32)
scripts/setup.sh "${sets[@]}"

presets=(native windows-x64 windows-x86 native-fuzz native-release)
for preset in "${presets[@]}"; do
    step "build-$preset" build "$preset"
done
step tidy politely checks_of_sources scripts/check-tidy.sh &
tidy=$!
step package scripts/package.sh

# The window tests draw on it.
display_start
# Here and not in a step's subshell: the shell that starts a prefix knows where it is.
architectures=(x64)
if [ -n "$quick" ]; then
    say "left out on request: the 32-bit programs (--quick)"
else
    architectures+=(x86)
fi
for arch in "${architectures[@]}"; do
    status=0
    wine_start "$arch" "build/wine/tests-$arch" >"$logs/start-$arch.log" 2>&1 8>&- || status=$?
    step "wine-$arch" eval "cat $logs/start-$arch.log; exit $status"
done

fuzz_steps=()
for target in build/native-fuzz/fuzz/*; do
    [ ! -f "$target" ] || [ ! -x "$target" ] || fuzz_steps+=("$(basename "$target") fuzz $target")
done
[ ${#fuzz_steps[@]} -gt 0 ] || fuzz_steps=("fuzz no_fuzz_targets")

# The long ones first, so that none is left to run alone at the end.
queue=()
for arch in "${architectures[@]}"; do
    queue+=("journeys-$arch journeys $arch" "installer-$arch installer_journeys $arch"
        "tests-$arch wine_tests $arch" "zones-$arch zone_tests $arch")
done
queue+=("handles-x64 handle_tests x64" "soak-x64 soak x64" "soak-native soak native" "${fuzz_steps[@]}"
    "same-bytes same_bytes"
    "guide guide"
    "valgrind valgrind_tests"
    "tests-native native_tests"
    "includes checks_of_sources scripts/check-includes.sh"
    "cppcheck scripts/check-cppcheck.sh"
    "format scripts/check-format.sh"
    "scripts scripts_check")
in_parallel "${queue[@]}"

step headers checks_of_sources scripts/check-headers.sh
wait "$tidy"

read -r passed failed < <(cat "$logs"/*.count | awk '{ p += $1; f += $2 } END { print p + 0, f + 0 }')
say "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
