#!/bin/bash
# Wine for CTest.
#
#   scripts/wine-tests.sh start x64|x86            makes a fresh prefix with a display of its own
#   scripts/wine-tests.sh stop x64|x86             ends both, and every program in the prefix
#   scripts/wine-tests.sh run x64|x86 PROGRAM...   runs a program there, prints what it wrote once it has ended, and says so
#                                                  when it ended with another exit code than 0 or wrote nothing
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. scripts/wine.sh

command=$1
arch=$2
shift 2
prefix=build/wine/tests-$arch
state=$prefix.display # its name and its process
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
        # To list the tests before any fixture is there.
        use "build/wine/list-$arch"
        DISPLAY=
    fi
    export DISPLAY
    # Not into CTest's pipe, which a service that the program happens to start would hold open.
    output=$(mktemp build/wine/output.XXXXXX)
    trap 'rm -f "$output"' EXIT
    # 139: Wine's own Unix process crashed, now and then when a 32-bit program ends. A fault of the Windows program has
    # other codes, so this one hides none.
    for crashes in 0 1 2; do
        status=0
        wine_run "$arch" "$@" >"$output" 2>&1 </dev/null || status=$?
        [ "$status" -eq 139 ] || break
    done
    [ "$crashes" -eq 0 ] || say "Wine crashed $crashes times and was started again."
    tr -d '\r' <"$output"
    [ -s "$output" ] || fail "Exit code 99: the program wrote nothing, so it has not run."
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
