#!/bin/bash
# Builds the scheduler and opens its window on a sample list, with a stand-in in place of the extraction program: three
# projects, of which one is due, one in a few seconds, and one every minute. On a machine without a display it starts one,
# plays a first user's session on it by mouse and keyboard, and says where the pictures and the stand-in's record are.
# Installs what is missing first (Debian 12; through sudo when not root).
#
#   ./run.sh [--x86] [--keep] [--console]
#
#   --x86      the 32-bit program, as it ships, in a 32-bit Wine of its own (made once, as root, in a minute)
#   --keep     leaves the program running
#   --console  shows `scvsched watch` launching those projects instead, and ends by itself after about ten seconds
. "$(dirname "$0")/scripts/common.sh"
. scripts/wine.sh
. scripts/desktop.sh

arch=x64
keep=
console=
while [ $# -gt 0 ]; do
    case $1 in
    --x86) arch=x86 ;;
    --keep) keep=1 ;;
    --console) console=1 ;;
    -h | --help)
        sed -n '2,/^\. /{/^#/s/^# \{0,1\}//p}' "$0"
        exit 0
        ;;
    *) fail "./run.sh: unknown option $1; --help names them." ;;
    esac
    shift
done
[ -z "$keep" ] || [ -z "$console" ] || fail "./run.sh: --console ends by itself, so there is nothing to keep."

sets=(build)
if [ "$arch" = x64 ]; then sets+=(wine64); else sets+=(wine64 wine32); fi
[ -n "$console" ] || [ -n "${DISPLAY:-}" ] || sets+=(desktop)
scripts/setup.sh "${sets[@]}"

mkdir -p build
exec 8>build/.run-lock
flock -n 8 || fail "Another ./run.sh is running in this checkout."

say "Building (build/windows-$arch; what it says is in build/run.log)"
{
    cmake --preset "windows-$arch"
    cmake --build --preset "windows-$arch" --target SCVScheduler scvsched standin window
} >build/run.log 2>&1 || {
    tail -n 40 build/run.log >&2
    fail "The build failed."
}

if [ -z "$console" ] && [ -z "${DISPLAY:-}" ]; then
    say "There is no display here; playing a first session on one of its own (a minute and a half)"
    scripts/journeys.sh ${keep:+--keep} "$arch" first_start 8>&-
    say "Pictures:              build/journeys/$arch/first_start-*.png"
    say "The list:              $(echo build/wine/"journeys-$arch"/drive_c/users/[!P]*/AppData/Local/SCVScheduler/SCVScheduler.ini)"
    say "The stand-in's record: build/wine/journeys-$arch/drive_c/demo/news.scvpr.runs.txt"
    sed 's/^/    /' "build/wine/journeys-$arch/drive_c/demo/news.scvpr.runs.txt"
    exit 0
fi

watch_pid=
finish() {
    trap - EXIT INT TERM
    [ -z "$watch_pid" ] || kill "$watch_pid" 2>/dev/null || true
    [ -n "$keep" ] || wine_stop >/dev/null 2>&1
}
trap finish EXIT
trap 'finish; exit 130' INT TERM

say "Starting Wine"
wine_start "$arch" "build/wine/run-$arch" >>build/run.log 2>&1 8>&-
demo_make "$arch"
now=$(date +%s)
mkdir -p "$local_folder"
{
    list_head 3
    task 1 "\"$demo\\prices.scvpr\" -dr -s -qe\"$demo\\prices.csv\" -ex" $((now - 3600))
    task 2 "\"$demo\\new books.scvpr\" -s -ex" $((now + 8))
    task 3 "\"$demo\\news.scvpr\" -rt -rs" $((now - 3600)) $((now - 120)) 1
} >"$task_list"
# As the console program calls it.
list="$(cd "$local_folder" && pwd)/SCVScheduler.ini"
list="C:${list#*/drive_c}"
list=${list//\//\\}

if [ -z "$console" ]; then
    say "The window is open; the extraction program is a stand-in that writes down what it was started with."
    # shellcheck disable=SC2119
    program_start
    if [ -n "$keep" ]; then
        say "It goes on running; \"Exit\" in the window or in its icon's menu ends it."
        exit 0
    fi
    wait "$program_pid" || true
    say "What the stand-in was started with (seconds since 1970, process, command line):"
    cat "$drive_c"/demo/*.runs.txt 2>/dev/null | sed 's/^/    /' || true
    exit 0
fi

scvsched() { wine_run "$arch" "$drive_c/demo/scvsched.exe" --list "$list" "$@"; }
launches=3 # how many to wait for,
patience=60 # and for how many seconds at most

say ""
say "The list before (one task is due, one in a few seconds, one every minute):"
scvsched list

say ""
say "Watching until $launches projects were launched:"
: >build/watch.log
wine_exec "$arch" "$drive_c/demo/scvsched.exe" --list "$list" watch >build/watch.log 2>&1 </dev/null 8>&- &
watch_pid=$!
shown=0
deadline=$((SECONDS + patience))
while [ "$shown" -lt "$launches" ] && [ "$SECONDS" -lt "$deadline" ] && kill -0 "$watch_pid" 2>/dev/null; do
    sleep 0.2
    tail -n "+$((shown + 1))" build/watch.log
    shown=$(wc -l <build/watch.log)
done
# What Ctrl+C does.
kill -INT "$watch_pid" 2>/dev/null || true
status=0
wait "$watch_pid" || status=$?
watch_pid=

say ""
say "The list after:"
scvsched list

say ""
say "What the stand-in was started with (seconds since 1970, process, command line):"
sed 's/^/    /' "$drive_c"/demo/*.runs.txt

[ "$shown" -ge "$launches" ] || fail "Only $shown of $launches launches came within $patience seconds."
[ "$status" -eq 0 ] || fail "scvsched watch ended with exit code $status."
