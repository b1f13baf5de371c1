#!/bin/sh
# Runs the time zone tests as Windows programs, once per zone, since a Windows program cannot switch its zone.
#   scripts/zone-tests.sh PROGRAM LOADER...
# PROGRAM is a build's scv_zone_tests.exe, LOADER the command that starts Windows programs (wine64, say), run in the
# WINEPREFIX of the environment. Each zone needs no Wine server of its own: Wine reads TZ when a process starts.
# Prints one line a zone; exit 1 when a zone failed.
set -u
program=$1
shift
zones='UTC Asia/Kolkata Asia/Kathmandu Europe/Berlin Europe/London America/New_York America/Havana America/St_Johns
Australia/Sydney Pacific/Chatham'
failed=0
output=$(mktemp)
trap 'rm -f "$output"' EXIT
for zone in $zones; do
    # What counts as passed is what the program wrote, never its exit code alone.
    if TZ=$zone SCV_TEST_ZONE=$zone "$@" "$program" --gtest_filter=-Soak.* </dev/null >"$output" 2>&1 &&
        grep -q 'PASSED.* 3 tests' "$output"; then
        echo "passed $zone"
    else
        echo "FAILED $zone"
        cat "$output"
        failed=1
    fi
done
exit $failed
