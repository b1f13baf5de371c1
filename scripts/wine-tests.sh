#!/bin/bash
# Wine for CTest.
#
#   scripts/wine-tests.sh start x64|x86            makes a fresh prefix with a display of its own
#   scripts/wine-tests.sh stop x64|x86             ends both, and every program in the prefix
#   scripts/wine-tests.sh run x64|x86 PROGRAM...   runs a program there and prints its output once it has ended; also prints
#                                                  an exit code other than 0, and fails when there is no output
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. scripts/wine.sh

command=$1
arch=$2
shift 2
prefix=build/wine/tests-$arch
state=$prefix.display # the name and the process id of the display
mkdir -p build/wine

stop() {
    [ ! -e "$state" ] || kill "$(cut -d' ' -f2 "$state")" 2>/dev/null || true
    rm -f "$state"
    [ ! -e "$prefix" ] || wine_server "$arch" -k || true
}

use() {
    prefix=$1
    mkdir -p "$prefix"
    wine_prefix[$arch]=$(cd "$prefix" && pwd)
}

run() {
    local status crashes
    if [ -e "$state" ] && [[ " $* " != *" --gtest_list_tests "* ]]; then
        use "$prefix"
        DISPLAY=$(cut -d' ' -f1 "$state")
    else
        # CTest lists the tests before any fixture runs.
        use "build/wine/list-$arch"
        DISPLAY=
    fi
    export DISPLAY
    # Not to CTest's pipe: a service that the program starts would inherit it and keep it open.
    output=$(mktemp build/wine/output.XXXXXX)
    trap 'rm -f "$output"' EXIT
    # 139: Wine's own Unix process crashed, as it sometimes does when a 32-bit program ends. A fault of the Windows program has
    # other exit codes, so trying again hides no such fault.
    for crashes in 0 1 2; do
        status=0
        wine_run "$arch" "$@" >"$output" 2>&1 </dev/null || status=$?
        [ "$status" -eq 139 ] || break
    done
    [ "$crashes" -eq 0 ] || say "Wine crashed $crashes times and was started again."
    tr -d '\r' <"$output"
    [ -s "$output" ] || fail "Exit code $status: the program wrote nothing, so it has not run."
    [ "$status" -eq 0 ] || say "Exit code $status"
    return "$status"
}

case $command in
start)
    use "$prefix"
    stop
    display_start
    say "$DISPLAY $display_pid" >"$state"
    wine_start "$arch" "$prefix" >"$prefix.log" 2>&1 </dev/null || { cat "$prefix.log" && exit 1; }
    ;;
stop)
    use "$prefix"
    stop
    ;;
run) run "$@" ;;
*) fail "scripts/wine-tests.sh: there is no command $command." ;;
esac
