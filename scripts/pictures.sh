#!/bin/bash
# Takes the documentation's pictures of the running program anew.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. scripts/wine.sh
# shellcheck source=scripts/desktop.sh
. scripts/desktop.sh

scripts/setup.sh build wine64 desktop
cmake --preset windows-x64 >build/pictures.log
cmake --build --preset windows-x64 --target SCVScheduler scvsched standin window >>build/pictures.log

# take TITLE NAME: that window alone.
take() {
    local left top right bottom rest
    read -r left top right bottom rest < <(window_tool "$1" place)
    xdotool mousemove 2 2 sleep 0.5
    import -window root -crop "$((right - left))x$((bottom - top))+$left+$top" +repage "docs/$2.png"
    say "docs/$2.png"
}

# Wider, so that the list shows its columns: by its right border, moved to the left first.
widen_window() {
    local left top right bottom rest
    read -r left top right bottom rest < <(window_tool "$main_title" place)
    xdotool mousemove $((left + 300)) $((top + 12)) mousedown 1 mousemove_relative -- $((10 - left)) 0 mouseup 1 sleep 0.5
    read -r left top right bottom rest < <(window_tool "$main_title" place)
    xdotool mousemove $((right - 2)) $(((top + bottom) / 2)) mousedown 1 mousemove 1270 $(((top + bottom) / 2)) mouseup 1 sleep 0.5
}

trap 'desktop_stop >/dev/null 2>&1' EXIT
trap 'exit 130' INT TERM
desktop_start x64 build/wine/pictures
# shellcheck disable=SC2119
program_start
window_is "$main_title" shown
widen_window
press alt+a
choose_file Open "$demo\\prices.scvpr"
take "$main_title" guide-first
click "$main_title" 1
window_is "$main_title" hidden
tray_menu
sleep 1 # for the tip to go
import -window root -crop 240x100+1040+800 +repage docs/guide-tray.png
say docs/guide-tray.png
xdotool click 1
program_ends

now=$(date +%s)
mkdir -p "$local_folder"
{
    list_head 4
    task 1 "\"$demo\\prices.scvpr\" -dt -dr -at\"$demo\\urls.csv\" -s -qe\"$demo\\prices.csv\" -ex" \
        $((now - 86400)) $((now - 1500)) 60
    printf '%s\r\n' "LastRunResult=Success"
    task 2 "\"$demo\\new books.scvpr\" -rt -rs -qe -ex" $((now + 7200))
    task 3 "\"$demo\\news.scvpr\" -dr -gt\"$demo\\news.vbs\" -s -qe -ex" $((now - 172800)) $((now - 86400 - 300))
    printf '%s\r\n' "RepeatOnMon=1" "RepeatOnThu=1" "LastRunResult=Success"
    task 4 "\"$demo\\old shop.scvpr\" -s -qe -ex" $((now - 7200)) $((now - 7100))
    printf '%s\r\n' "LastRunResult=Failure: File does not exist"
} >"$task_list"
# shellcheck disable=SC2119
program_start
window_is "$main_title" shown
list_row 4
take "$main_title" window

click "$main_title" 1050
click "$main_title" 1247
# shellcheck disable=SC2119
make_left_script
take 'Script Editor' script-editor
