#!/bin/bash
# Plays a user of the shipped program on a desktop with a task bar, by mouse and keyboard, and looks afterwards at what it
# left: the list file, the registry, the stand-in's record. Leaves pictures in build/journeys/ARCHITECTURE. A line a
# journey: "passed NAME" or "FAILED NAME", the latter after what was wrong.
#
#   scripts/journeys.sh [--keep] x64|x86 [NAME...]     names: first_start, tray, further_instances, editing, script
#
#   --keep     leaves the display and the program of the last journey running
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. scripts/wine.sh
# shellcheck source=scripts/desktop.sh
. scripts/desktop.sh

keep=
if [ "${1:-}" = --keep ]; then
    keep=1
    shift
fi
[ $# -gt 0 ] || fail "scripts/journeys.sh: which build, x64 or x86?"
arch=$1
shift
journeys=("$@")
[ $# -gt 0 ] || journeys=(first_start tray further_instances editing script)
pictures=build/journeys/$arch
mkdir -p "$pictures"

# --- What the journeys look at ---------------------------------------------------------------------------------------

# key N NAME: a value of the list file's section of task N, empty without the file.
key() {
    [ ! -e "$task_list" ] || tr -d '\r' <"$task_list" | awk -F= -v section="[SCVShchedulerTask$1]" -v name="$2" '
        /^\[/ { inside = $0 == section }
        inside && $1 == name { print substr($0, length(name) + 2) }'
}
has_succeeded() { [ "$(key "$1" LastRunResult)" = "'Success'" ]; }
task_count() { tr -d '\r' <"$task_list" | sed -n 's/^TaskCount=//p'; }

# What the stand-in was started with for a project, a line a start.
record() { [ ! -e "$drive_c/demo/$1.scvpr.runs.txt" ] || cut -f3- "$drive_c/demo/$1.scvpr.runs.txt"; }
was_started() { [ -n "$(record "$1")" ]; }

run_value() {
    registry query 'HKCU\Software\Microsoft\Windows\CurrentVersion\Run' /v SCVScheduler 2>/dev/null |
        sed -n 's/^ *SCVScheduler *REG_SZ *//p'
}

# --- What they start from --------------------------------------------------------------------------------------------

# A user who has never run the program.
nothing_is_there() {
    rm -rf "$local_folder" "$roaming_folder" "$drive_c"/demo/*.runs.txt
    registry delete 'HKCU\Software\Talvernick\SCVScheduler' /f >/dev/null 2>&1 || true
    registry delete 'HKCU\Software\Microsoft\Windows\CurrentVersion\Run' /v SCVScheduler /f >/dev/null 2>&1 || true
}

# list_of FILE COMMAND-LINE...: a list file with these tasks, none of them due today.
list_of() {
    local file=$1 number=0 line tomorrow
    shift
    tomorrow=$(($(date +%s) + 86400))
    mkdir -p "$(dirname "$file")"
    {
        list_head $#
        for line in "$@"; do
            number=$((number + 1))
            task $number "$line" $tomorrow
        done
    } >"$file"
}

three_projects() {
    list_of "$task_list" "\"$demo\\prices.scvpr\" -s" "\"$demo\\new books.scvpr\" -s -ex" "\"$demo\\news.scvpr\" -s"
}

# --- The journeys ----------------------------------------------------------------------------------------------------

# An old list moves to its new place; two projects are added and edited, and a due one runs while nobody looks.
first_start() {
    local due=$(($(date +%s) + 60))
    mkdir -p "$roaming_folder"
    {
        list_head 1
        task 1 "\"$demo\\news.scvpr\" -dr -s" $due
    } >"$roaming_folder/SCVScheduler.ini"
    program_start
    window_is "$main_title" shown
    [ ! -e "$roaming_folder/SCVScheduler.ini" ] || fail "The old list is still in the roaming folder."
    expect "the moved list's task" "$(key 1 CommandLine)" "'\"$demo\\news.scvpr\" -dr -s'"
    picture first_start-1-old-list

    press alt+a
    choose_file Open "$demo\\prices.scvpr"
    press alt+a
    choose_file Open "$demo\\new books.scvpr"
    # The last one is selected now: delete its old results no more, read more URLs from a file.
    click "$main_title" 1010
    click "$main_title" 1013
    click "$main_title" 1018
    xdotool type --delay 20 "$demo\\urls.csv"
    picture first_start-2-two-added
    [ ! -e "$drive_c/demo/news.scvpr.runs.txt" ] || fail "This machine is too slow: the task ran before the window was hidden."
    click "$main_title" 1
    window_is "$main_title" hidden

    until_true 60 "the due project is started" was_started news
    window_state "$main_title" hidden || fail "The window came up by itself."
    picture first_start-3-hidden
    until_true 5 "the run is in the file" has_succeeded 1
    [ "$(key 1 LastRunTime)" -ge "$due" ] || fail "The project ran before its time."
    expect "what the stand-in was started with" "$(record news)" \
        "\"$demo\\standin.exe\" \"$demo\\news.scvpr\" -dr -s"
    expect "number of tasks" "$(task_count)" 3
    expect "the first one added" "$(key 2 CommandLine)" "'\"$demo\\prices.scvpr\" -dt -dr -s -qe -ex'"
    expect "the edited one" "$(key 3 CommandLine)" \
        "'\"$demo\\new books.scvpr\" -dt -at\"$demo\\urls.csv\" -s -qe -ex'"
    expect "the added ones' last run" "$(key 2 LastRunTime)$(key 3 LastRunTime)" 00
    expect "start with Windows, as the list was not empty" "$(run_value)" ''
}

# The icon: a single click does nothing, two show the window, its menu saves and ends.
tray() {
    three_projects
    program_start
    window_is "$main_title" shown
    click "$main_title" 1
    window_is "$main_title" hidden
    tray_click 1
    sleep 1
    window_state "$main_title" hidden || fail "A single click on the icon shows the window."
    tray_click 1 2
    window_is "$main_title" shown
    click "$main_title" 1046
    list_row 1
    click "$main_title" 1010
    press Escape
    window_is "$main_title" hidden
    tray_click 1 2
    window_is "$main_title" shown
    list_row 2
    click "$main_title" 1010
    tray_click 3
    picture tray-1-menu
    press Escape
    tray_exit
    program_ends
    sleep 1
    picture tray-2-ended
    expect "what Escape took back" "$(key 2 CommandLine)" "'\"$demo\\new books.scvpr\" -s -ex'"
    expect "what Exit saved" "$(key 3 CommandLine)" "'\"$demo\\news.scvpr\" -dr -s'"
    expect "start with Windows" "$(run_value)" "\"$demo\\SCVScheduler.exe\" /background"
}

# /BACKGROUND stays hidden and launches; a second start is a further instance, unless a window has the bare title.
further_instances() {
    local first second
    mkdir -p "$local_folder"
    {
        list_head 1
        task 1 "\"$demo\\prices.scvpr\" -s" $(($(date +%s) - 60))
    } >"$task_list"
    program_start /BACKGROUND
    first=$program_pid
    until_true 30 "the hidden program starts the due project" was_started prices
    window_is "$main_title" hidden
    picture further_instances-1-hidden

    program_start "$demo\\prices.scvpr"
    second=$program_pid
    window_is "$main_title" shown
    picture further_instances-2-second
    ! has_ended "$first" || fail "The first instance has ended."
    tray_exit
    until_true 30 "one of the two ends" eval "has_ended $first || has_ended $second"

    window_tool "$main_title" rename 'SCV Scheduler'
    local left=$first
    ! has_ended "$first" || left=$second
    press Escape
    program_start "$demo\\prices.scvpr"
    program_ends
    window_is 'SCV Scheduler' shown
    picture further_instances-3-handed-over
    ! has_ended "$left" || fail "The instance that was handed the project has ended."
    expect "starts of the project" "$(record prices)" "\"$demo\\standin.exe\" \"$demo\\prices.scvpr\" -s"
}

# Several rows are edited at once, Cancel discards, Delete deletes; sort and place are remembered.
editing() {
    three_projects
    program_start
    window_is "$main_title" shown
    list_row 1
    press shift+Down shift+Down
    click "$main_title" 1010
    picture editing-1-three-selected
    click "$main_title" 1
    window_is "$main_title" hidden
    expect "all were edited" "$(key 1 CommandLine)$(key 2 CommandLine)$(key 3 CommandLine)" \
        "'\"$demo\\prices.scvpr\" -dr -s''\"$demo\\new books.scvpr\" -dr -s -ex''\"$demo\\news.scvpr\" -dr -s'"

    tray_click 1 2
    window_is "$main_title" shown
    list_row 1
    click "$main_title" 1016
    click "$main_title" 2
    window_is "$main_title" hidden
    expect "after Cancel" "$(key 2 CommandLine)" "'\"$demo\\new books.scvpr\" -dr -s -ex'"
    tray_exit
    program_ends

    program_start
    window_is "$main_title" shown
    # The third row, which is "prices", goes.
    list_row 3
    press Delete
    # A click on the header of the first column turns its order round: "news" comes first.
    list_row 0
    local left top right bottom rest
    read -r left top right bottom rest < <(window_tool "$main_title" place)
    xdotool mousemove $((left + 300)) $((top + 14)) mousedown 1 mousemove_relative -- -60 20 mousemove_relative -- -37 11 mouseup 1
    picture editing-3-sorted
    local place
    place=$(window_tool "$main_title" place)
    click "$main_title" 32772
    program_ends
    expect "number of tasks" "$(task_count)" 2
    expect "what is left" "$(key 1 CommandLine)$(key 2 CommandLine)" \
        "'\"$demo\\new books.scvpr\" -dr -s -ex''\"$demo\\news.scvpr\" -dr -s'"
    expect "direction of the sort" "$(setting CSCVSchedulerDlg ascSort)" 0x0
    expect "column of the sort" "$(setting CSCVSchedulerDlg sortColumnIndex)" 0x0

    program_start
    window_is "$main_title" shown
    expect "the window's place" "$(window_tool "$main_title" place)" "$place"
    list_row 1
    press alt+r
    until_true 10 "the first row is run" was_started news
    picture editing-4-started-again
    expect "what else was started" "$(record 'new books')" ''
}

# A script is made from a template, tried on a sample, and saved under a new name.
script() {
    local editor='Script Editor' text
    three_projects
    program_start
    window_is "$main_title" shown
    list_row 3
    click "$main_title" 1050
    click "$main_title" 1247
    make_left_script picture script-1-function
    picture script-2-tested
    expect "the result of the test" "$(window_tool "$editor" text 2112)" "books-"
    click "$editor" 1
    choose_file 'Save*' "$demo\\left.vbs"
    window_is "$editor" gone
    expect "the task's script" "$(window_tool "$main_title" text 1051)" "$demo\\left.vbs"
    click "$main_title" 1
    window_is "$main_title" hidden
    expect "the command line" "$(key 1 CommandLine)" "'\"$demo\\prices.scvpr\" -gt\"$demo\\left.vbs\" -s'"
    text=$(tr -d '\r' <"$drive_c/demo/left.vbs")
    [[ $text == *'Function Main ( text, url )'*'"-"'*'Function Left_String ( text'* ]] ||
        fail "The file does not hold the script: $text"
}

# --- Playing them ----------------------------------------------------------------------------------------------------

trap '[ -n "$keep" ] || desktop_stop >/dev/null 2>&1' EXIT
trap 'exit 130' INT TERM
desktop_start "$arch" "build/wine/journeys-$arch"
[ -z "$keep" ] || say "The display is $DISPLAY."
play_journeys "${journeys[@]}"
