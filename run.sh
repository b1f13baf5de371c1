#!/bin/bash
# Builds the scheduler and shows it at work: three sample projects, a task list, and `scvsched watch` launching what is
# due, with a stand-in in place of the extraction program. Ends by itself after about ten seconds. Installs what is
# missing first (Debian 12; through sudo when not root).
#
#   ./run.sh [--x86]
#
#   --x86      the 32-bit program, as it ships, in a 32-bit Wine of its own (made once, as root, in a minute)
. "$(dirname "$0")/scripts/common.sh"
. scripts/wine.sh

arch=x64
case ${1:-} in
"") ;;
--x86) arch=x86 ;;
-h | --help)
    sed -n '2,/^\. /{/^#/s/^# \{0,1\}//p}' "$0"
    exit 0
    ;;
*) fail "./run.sh: unknown option $1; --help names them." ;;
esac

launches=3 # how many to wait for,
patience=60 # and for how many seconds at most

if [ "$arch" = x64 ]; then
    scripts/setup.sh build wine64
else
    scripts/setup.sh build wine32
fi

mkdir -p build
exec 8>build/.run-lock
flock -n 8 || fail "Another ./run.sh is running in this checkout."

say "Building (build/windows-$arch; what it says is in build/run.log)"
{
    cmake --preset "windows-$arch"
    cmake --build --preset "windows-$arch" --target scvsched standin
} >build/run.log 2>&1 || {
    tail -n 40 build/run.log >&2
    fail "The build failed."
}

watch_pid=
finish() {
    trap - EXIT INT TERM
    [ -z "$watch_pid" ] || kill "$watch_pid" 2>/dev/null || true
    wine_stop >/dev/null 2>&1
}
trap finish EXIT
trap 'finish; exit 130' INT TERM

say "Starting Wine"
wine_start "$arch" "build/wine/run-$arch" >>build/run.log 2>&1 8>&-
scvsched() { wine_run "$arch" "build/windows-$arch/cli/scvsched.exe" --list 'C:\demo\demo.ini' "$@"; }

# The scratch folder. The paths are short there: the scheduler reads no program path of more than 126 characters.
demo=build/wine/run-$arch/drive_c/demo
mkdir -p "$demo"
cp "build/windows-$arch/tests/standin.exe" "$demo/"
wine_run "$arch" reg.exe add 'HKCU\Software\Talvernick\Scrivane' /v ProgramFileName /d 'C:\demo\standin.exe' /f >>build/run.log

# The text of a sample project is how many seconds the stand-in keeps it open.
echo 1 >"$demo/prices.scvpr"
echo 2 >"$demo/new books.scvpr"
echo 0 >"$demo/news.scvpr"

# task NUMBER COMMAND-LINE START LAST-RUN EVERY-MINUTES: one section of the list.
task() {
    printf '%s\r\n' "[SCVShchedulerTask$1]" "Enable=1" "CommandLine='$2'" "StartTime=$3" \
        "UntilTime=$(date -d '23:59:59' +%s)" "LastRunTime=$4" "EnableEvery=$(($5 > 0))" "EveryValue=$5" "EveryUnit=0"
}
now=$(date +%s)
{
    printf '%s\r\n' "[SCVShchedulerTaskList]" "TaskCount=3"
    task 1 '"C:\demo\prices.scvpr" -dr -s -qe"C:\demo\prices.csv" -ex' $((now - 3600)) 0 0
    task 2 '"C:\demo\new books.scvpr" -s -ex' $((now + 8)) 0 0
    task 3 '"C:\demo\news.scvpr" -rt -rs' $((now - 3600)) $((now - 120)) 1
} >"$demo/demo.ini"

say ""
say "The list before (one task is due, one in a few seconds, one every minute):"
scvsched list

say ""
say "Watching until $launches projects were launched:"
: >build/watch.log
wine_exec "$arch" "build/windows-$arch/cli/scvsched.exe" --list 'C:\demo\demo.ini' watch >build/watch.log 2>&1 </dev/null 8>&- &
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
sed 's/^/    /' "$demo"/*.runs.txt

[ "$shown" -ge "$launches" ] || fail "Only $shown of $launches launches came within $patience seconds."
[ "$status" -eq 0 ] || fail "scvsched watch ended with exit code $status."
