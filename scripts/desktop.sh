# shellcheck shell=bash disable=SC2034,SC2154 # what it sets for its caller, and takes from wine.sh and its caller
# The program on a desktop of its own, used by mouse and keyboard. To be sourced after wine.sh.
#
#   demo_make x64|x86                in a prefix that runs: C:\demo with the program, its console companion, the stand-in and some
#                                    projects; the stand-in is registered as the extraction program
#   task N COMMAND-LINE START [LAST-RUN EVERY-MINUTES]     prints a section of a list; list_head COUNT its beginning
#   desktop_start x64|x86 PREFIX     a display, a fresh prefix with a task bar, and that folder
#   desktop_stop                     ends all of that
#   program_start [ARGUMENT...]      starts the program; its process is $program_pid
#   program_ends                     waits until it has ended
#   running PATTERN                  how many processes of the prefix have a command line like that; $program_pattern: the
#                                    program's
#   window_is TITLE shown|hidden|gone     waits until it is so; TITLE may end in *
#   item TITLE ID                    where a control is: "left top right bottom ..."
#   click TITLE ID [BUTTON]          clicks into the middle of a control
#   press KEY...                     such as alt+a
#   list_row N                       clicks the text of row N (from 1) of the project list
#   choose_file TITLE PATH           types PATH into the file dialog of that title once it comes up
#   make_left_script [COMMAND...]    in the script editor, once it is there: makes a script that keeps what stands before "-"
#                                    and tries it on a sample; COMMAND runs while the template's parameters are shown
#   tray_click BUTTON [TIMES]        clicks the icon at the right end of the task bar
#   tray_menu                        opens the icon's menu, the mouse on "Exit"
#   tray_exit                        chooses "Exit" in the icon's menu
#   picture NAME                     keeps the screen as NAME.png in $pictures
#   expect WHAT ACTUAL EXPECTED      ends the script unless the two texts are the same
#   play_journeys NAME...            runs these functions, each after nothing_is_there, and says how each went; with $keep
#                                    what the last one started stays
#
# Waiting gives up after 30 seconds and ends the script: nothing here goes on over something that did not happen.

main_title='SCV Scheduler*'
demo='C:\demo'
program_pattern='[\\/]SCVScheduler\.exe'

demo_make() {
    desktop_arch=$1
    drive_c=${wine_prefix[$desktop_arch]}/drive_c
    mkdir -p "$drive_c/demo"
    local build=build/windows-$desktop_arch
    cp "$build/ui/SCVScheduler.exe" "$build/cli/scvsched.exe" "$build/tests/"{standin,window}.exe "$drive_c/demo/"
    # The text of a project is how many seconds the stand-in keeps it open.
    echo 1 >"$drive_c/demo/prices.scvpr"
    echo 2 >"$drive_c/demo/new books.scvpr"
    echo 0 >"$drive_c/demo/news.scvpr"
    # The path is short: the scheduler reads no program path of more than 126 characters.
    registry add 'HKCU\Software\Talvernick\Scrivane' /v ProgramFileName /d "$demo\\standin.exe" /f >/dev/null
    # The folders of the one user, whatever Wine calls him.
    local folders=("$drive_c"/users/[!P]*/AppData)
    local_folder=${folders[0]}/Local/SCVScheduler
    roaming_folder=${folders[0]}/Roaming/Scrivane
    task_list=$local_folder/SCVScheduler.ini
}

list_head() { printf '%s\r\n' "[SCVShchedulerTaskList]" "TaskCount=$1"; }
task() {
    printf '%s\r\n' "[SCVShchedulerTask$1]" "Enable=1" "CommandLine='$2'" "StartTime=$3" \
        "UntilTime=$(date -d '23:59:59' +%s)" "LastRunTime=${4:-0}" "EnableEvery=$((${5:-0} > 0))" \
        "EveryValue=${5:-0}" "EveryUnit=0"
}

desktop_start() {
    display_start
    local log=build/desktop-$1.log
    wine_start "$1" "$2" desktop >"$log" 2>&1 8>&- || fail "Wine did not start: $(tail -n 3 "$log")"
    demo_make "$1"
}

desktop_stop() {
    wine_stop
    display_stop
}

registry() { wine_run "$desktop_arch" reg.exe "$@" | tr -d '\r'; }

# The value of a name under the program's own key, empty when there is none.
setting() {
    registry query "HKCU\\Software\\Talvernick\\SCVScheduler\\$1" /v "$2" 2>/dev/null |
        awk -v name="$2" '$1 == name { print $3 }'
}

program_start() {
    wine_exec "$desktop_arch" "$drive_c/demo/SCVScheduler.exe" "$@" >/dev/null 2>&1 </dev/null 8>&- &
    program_pid=$!
}

# until_true SECONDS WHAT COMMAND...: asks again and again.
until_true() {
    local deadline=$((SECONDS + $1)) what=$2
    shift 2
    while ! "$@"; do
        [ "$SECONDS" -lt "$deadline" ] || fail "Did not happen: $what"
        sleep 0.2
    done
}

has_ended() { ! kill -0 "$1" 2>/dev/null; }
# Not by tasklist.exe, which says nothing under Wine.
running() {
    local process count=0
    while IFS= read -r process; do
        ! grep -qaE "$1" "${process%environ}cmdline" 2>/dev/null || count=$((count + 1))
    done < <(grep -lzxFs "WINEPREFIX=${wine_prefix[$desktop_arch]}" /proc/[0-9]*/environ)
    echo "$count"
}
nothing_runs() { [ "$(running "$1")" -eq 0 ]; }
program_ends() { until_true 30 "the program ends" has_ended "$program_pid"; }

window_tool() { wine_run "$desktop_arch" "$drive_c/demo/window.exe" "$@" | tr -d '\r'; }

window_state() {
    local place
    place=$(window_tool "$1" place) || true
    case $place in
    *shown*) [ "$2" = shown ] ;;
    *hidden*) [ "$2" = hidden ] ;;
    *) [ "$2" = gone ] ;;
    esac
}
window_is() { until_true 30 "window \"$1\" is $2" window_state "$1" "$2"; }

item() { window_tool "$1" place "$2"; }

click_at() { xdotool mousemove "$1" "$2" sleep 0.1 click "${3:-1}" sleep 0.2; }

click() {
    local left top right bottom rest
    read -r left top right bottom rest < <(item "$1" "$2")
    [ -n "$rest" ] || fail "There is no control $2 in \"$1\"."
    click_at $(((left + right) / 2)) $(((top + bottom) / 2)) "${3:-1}"
}

press() { xdotool key "$@" sleep 0.4; }

# At 96 dpi a row has 14 pixels, and row 0 is the header.
list_row() {
    local left top right bottom rest
    read -r left top right bottom rest < <(item "$main_title" 1017 | tail -n 1)
    click_at $((left + 60)) $((bottom + 14 * $1 - 7))
}

choose_file() {
    window_is "$1" shown
    xdotool sleep 0.3 type --delay 20 "$2"
    press Return
    window_is "$1" gone
}

make_left_script() {
    local editor='Script Editor' left top right bottom rest
    window_is "$editor" shown
    sleep 0.5
    # The language box has the focus: down to VBScript, whose eighth template is Left_String.
    press Down
    read -r left top right bottom rest < <(item "$editor" 2103)
    xdotool mousemove $((left + 60)) $((top + 1 + 13 * 7 + 6)) sleep 0.2 click --repeat 2 --delay 60 1
    window_is 'Script Function' shown
    sleep 0.5
    press Tab
    xdotool type --delay 20 '-'
    press Tab
    xdotool type --delay 20 0
    "${@:-true}"
    press Return
    window_is 'Script Function' gone
    click "$editor" 2110
    xdotool type --delay 20 'books-2026-11'
    click "$editor" 2114
}

tray_click() { xdotool mousemove 1269 890 sleep 0.2 click --repeat "${2:-1}" --delay 60 "$1" sleep 0.3; }

# The menu lies above the mouse, "Exit" at its lower end.
tray_menu() {
    tray_click 3
    xdotool mousemove_relative -- -80 -22 sleep 0.2
}
tray_exit() {
    tray_menu
    xdotool click 1
}

picture() { import -window root "$pictures/$1.png"; }

expect() { [ "$2" = "$3" ] || fail "$1: expected '$3', found '$2'."; }

play_journeys() {
    local journey status failures=0
    for journey in "$@"; do
        nothing_is_there
        set +e
        (
            set -e
            trap - EXIT
            "$journey"
        )
        status=$?
        set -e
        if [ "$status" -eq 0 ]; then
            say "passed $journey"
        else
            picture "$journey-failed"
            say "FAILED $journey"
            failures=$((failures + 1))
        fi
        [ -z "${keep:-}" ] || continue
        # Whatever it left running would be in the next one's way.
        wine_run "$desktop_arch" taskkill.exe /f /im SCVScheduler.exe >/dev/null 2>&1 || true
        until_true 30 "the programs end" nothing_runs "$program_pattern"
    done
    [ "$failures" -eq 0 ]
}
