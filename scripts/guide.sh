#!/bin/bash
# Computes the examples of the repeat rules in docs/guide.md with `scvsched add` and `scvsched next` (64-bit Wine, zone
# Europe/Berlin).
#   scripts/guide.sh            writes them into the guide
#   scripts/guide.sh --check    says whether the guide has them as they are; exit code 1 when not
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. scripts/wine.sh

guide=docs/guide.md
first='<!-- Made by scripts/guide.sh -->'
last='<!-- The end of what it makes. -->'
seen='2026-03-02T10:00'
# What is set; the options; how many runs to show.
examples=(
    "once, today at 18:00|--start 2026-03-02T18:00|2"
    "once, this morning, and it never ran: at once|--start 2026-03-02T08:00|2"
    "Mondays at 23:30|--start 2026-03-02T23:30 --days mon|4"
    "working days at 7:15|--start 2026-03-02T07:15 --days mon,tue,wed,thu,fri|7"
    "every 90 minutes until 18:00, today only|--start 2026-03-02T12:00 --every 90m --until 18:00|8"
    "every hour around the clock|--start 2026-03-02T22:00 --every 1h --until 23:59|5"
    "every 4 hours until 18:00 on Mon and Thu|--start 2026-03-02T12:00 --every 4h --until 18:00 --days mon,thu|9"
    "monthly, started on the 15th|--start 2026-03-15T06:00 --monthly|4"
    "Sundays and monthly|--start 2026-03-22T06:00 --days sun --monthly|5"
    "Sundays at 5:00, over the change to summer time|--start 2026-03-22T05:00 --days sun|4"
)

if [ "${1:-}" != --check ] && [ $# -gt 0 ]; then
    sed -n '2,/^\. /{/^#/s/^# \{0,1\}//p}' "$0"
    exit 2
fi
scripts/setup.sh build wine64
mkdir -p build
{ cmake --preset windows-x64 && cmake --build --preset windows-x64 --target scvsched; } >build/guide.log
trap 'wine_stop >/dev/null 2>&1' EXIT
trap 'exit 130' INT TERM
wine_start x64 build/wine/guide >>build/guide.log 2>&1

# scvsched ARGUMENT...: on a list of this script's own.
list='C:\guide.ini'
scvsched() {
    wine_run x64 env TZ=Europe/Berlin build/windows-x64/cli/scvsched.exe --list "$list" "$@" | tr -d '\r'
}

# The runs of a task as the guide shows them; "..." when there may be more.
runs() {
    local options=$1 count=$2 found=0 text='' run
    # shellcheck disable=SC2086 # several options
    scvsched add 'C:\example.scvpr' $options >>build/guide.log
    while IFS= read -r run; do
        text+=${text:+, }$(LC_ALL=C date -d "$run" '+%a %-d %b %H:%M')
        found=$((found + 1))
    done < <(scvsched next --at "$seen" --count "$count" | grep -oE '[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}')
    scvsched remove 'C:\example.scvpr' >>build/guide.log
    [ "$found" -lt "$count" ] || text+=', ...'
    echo "$text"
}

new=build/guide-new.md
{
    sed "\|^$first\$|q" "$guide"
    printf '\n%s\n%s\n' "| what is set | options | runs |" "|---|---|---|"
    for example in "${examples[@]}"; do
        IFS='|' read -r what options count <<<"$example"
        shown=$(runs "$options" "$count")
        [ -n "$shown" ] || fail "No run came out of: $options"
        printf "| %s | \`%s\` | %s |\n" "$what" "$options" "$shown"
    done
    printf '\n'
    sed -n "\|^$last\$|,\$p" "$guide"
} | cat -s >"$new"

if [ "${1:-}" = --check ]; then
    diff -u "$guide" "$new" || fail "$guide is not what the program computes; scripts/guide.sh writes it."
    say "The examples in $guide are what the program computes."
else
    cp "$new" "$guide"
    say "$guide"
fi
