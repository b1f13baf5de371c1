#!/bin/bash
# Builds the scheduler and opens its window on a sample list of three projects: one is due, one is due in a few seconds,
# and one runs every minute. A stand-in takes the place of the extraction program. On a machine without a display it
# starts a virtual one, plays a first user's session on it by mouse and keyboard, and prints where the pictures are.
# Installs missing packages first (Debian 12; through sudo when not root).
#
#   ./run.sh [--x86] [--keep | --console]
#
#   --x86      runs the 32-bit program, as it ships, in a 32-bit Wine of its own (created once, as root, in a minute)
#   --keep     leaves the program running
#   --console  shows `scvsched watch` launching these projects instead; ends after about ten seconds
. "$(dirname "$0")/scripts/common.sh"

export SCV_ARCH=x64
mode=
for option in "$@"; do
    case $option in
    --x86) SCV_ARCH=x86 ;;
    --keep | --console)
        [ -z "$mode" ] || fail "./run.sh: --console ends by itself, so there is nothing to keep."
        mode=$option
        ;;
    -h | --help)
        sed -n '2,/^\. /{/^#/s/^# \{0,1\}//p}' "$0"
        exit 0
        ;;
    *) fail "./run.sh: unknown option $option; --help names them." ;;
    esac
done

sets=(build wine64)
[ "$SCV_ARCH" = x64 ] || sets+=(wine32)
[ "$mode" = --console ] || [ -n "${DISPLAY:-}" ] || sets+=(desktop)
scripts/setup.sh "${sets[@]}"

mkdir -p build
exec 8>build/.run-lock
flock -n 8 || fail "Another ./run.sh is running in this checkout."

say "Building (build/windows-$SCV_ARCH; what it says is in build/run.log)"
{
    cmake --preset "windows-$SCV_ARCH"
    cmake --build --preset "windows-$SCV_ARCH" --target SCVScheduler scvsched standin window
} >build/run.log 2>&1 || {
    tail -n 40 build/run.log >&2
    fail "The build failed."
}
scripts/demonstration.py "$mode" 8>&-
