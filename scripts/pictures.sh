#!/bin/bash
# Takes the README's pictures of the running program anew: docs/window.png and docs/script-editor.png.
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

trap 'desktop_stop >/dev/null 2>&1' EXIT
trap 'exit 130' INT TERM
desktop_start x64 build/wine/pictures
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
# Wider, so that the list shows its columns: by its right border.
read -r left top right bottom rest < <(window_tool "$main_title" place)
xdotool mousemove $((left + 300)) $((top + 12)) mousedown 1 mousemove_relative -- $((10 - left)) 0 mouseup 1 sleep 0.5
read -r left top right bottom rest < <(window_tool "$main_title" place)
xdotool mousemove $((right - 2)) $(((top + bottom) / 2)) mousedown 1 mousemove 1270 $(((top + bottom) / 2)) mouseup 1 sleep 0.5
list_row 4
take "$main_title" window

click "$main_title" 1050
click "$main_title" 1247
# shellcheck disable=SC2119
make_left_script
take 'Script Editor' script-editor
