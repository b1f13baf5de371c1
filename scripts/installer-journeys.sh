#!/bin/bash
# Installs, upgrades and removes the packed program as its users do, by the pages and silently, and compares the user's
# files and registry before and after. Leaves pictures of the pages in build/installer-journeys/ARCHITECTURE. A line a
# journey: "passed NAME" or "FAILED NAME", the latter after what was wrong. Wants scripts/package.sh to have run, with x64
# for x64.
#
#   scripts/installer-journeys.sh x64|x86 [NAME...]     names: pages, silent, upgrade, move, removal, portable
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
. scripts/wine.sh
# shellcheck source=scripts/desktop.sh
. scripts/desktop.sh

[ $# -gt 0 ] || fail "scripts/installer-journeys.sh: which build, x64 or x86?"
arch=$1
shift
journeys=("$@")
[ $# -gt 0 ] || journeys=(pages silent upgrade move removal portable)
pictures=build/installer-journeys/$arch
mkdir -p "$pictures"
package=build/package
wide=()
if [ "$arch" = x64 ]; then
    package+=-x64
    wide=(-DWIDE)
fi
setup=$(echo "$package"/*-setup.exe)
[ -e "$setup" ] || fail "There is no installer in $package: scripts/package.sh makes it."
version=${setup##*/SCVScheduler-}
version=${version%-setup.exe}
# As the program's title shows it, so that the installer's title, which begins alike, is not taken for it.
main_title="SCV Scheduler $(sed 's/0*$//; s/\.*$//' <<<"$version")"
setup_title='SCV Scheduler Setup*'
removal_title='SCV Scheduler Uninstall*'

# --- What the journeys look at ---------------------------------------------------------------------------------------

uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall\SCVScheduler'
run_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Run'

# windows_path FILE: as Windows calls a file of the prefix.
windows_path() {
    local path=C:${1#"$drive_c"}
    printf '%s' "${path//\//\\}"
}

# state FILE: writes down each file of the user's with the sum of its bytes, each folder, and each value of his registry,
# a line each; of the files that are never the same bytes the name alone.
state() {
    registry export 'HKCU\Software' 'C:\windows\temp\state.reg' /y >/dev/null
    (
        cd "$drive_c"
        find . -path ./windows -prune -o -path '*/Temp/*' -prune -o -type d -printf '%p/\n'
        find . -path ./windows -prune -o -path '*/Temp/*' -prune -o -type f -print0 | xargs -0 sha256sum |
            sed -E 's/^(.{64})..(.*)/\2 \1/; s/^(.*(\.lnk|uninstall\.exe)) .*/\1/'
        iconv -f UTF-16 -t UTF-8 windows/temp/state.reg | tr -d '\r' |
            awk '
                { line = line $0 }
                sub(/\\$/, "", line) { next }
                line ~ /^\[/ { key = line }
                line != "" && key !~ /\\Software\\Wine/ { print key, line }
                { line = "" }' |
            sed -E 's/("EstimatedSize"=dword:)0+[1-9a-f][0-9a-f]+$/\1.../'
    ) | LC_ALL=C sort >"$1"
}

# with_program STATE FOLDER VERSION FILES [startup]: that state and what an installation adds to it.
with_program() {
    local folder quoted key='[HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion' name
    folder=$(windows_path "$2")
    quoted=${folder//\\/\\\\}
    {
        cat "$1"
        for name in SCVScheduler.exe scvsched.exe README.txt guide.txt scvsched.txt CHANGELOG.txt; do
            echo ".${2#"$drive_c"}/$name $(sha256sum <"$4/$name" | cut -c1-64)"
        done
        echo ".${2#"$drive_c"}/"
        echo ".${2#"$drive_c"}/uninstall.exe"
        echo ".${shortcut#"$drive_c"}"
        key+='\Uninstall\SCVScheduler]'
        printf '%s\n' "$key $key" "$key \"DisplayName\"=\"SCV Scheduler\"" "$key \"DisplayVersion\"=\"$3\"" \
            "$key \"Publisher\"=\"Talvernick\"" "$key \"DisplayIcon\"=\"$quoted\\\\SCVScheduler.exe\"" \
            "$key \"EstimatedSize\"=dword:..." "$key \"InstallLocation\"=\"$quoted\"" \
            "$key \"NoModify\"=dword:00000001" "$key \"NoRepair\"=dword:00000001" \
            "$key \"UninstallString\"=\"\\\"$quoted\\\\uninstall.exe\\\"\"" \
            "$key \"QuietUninstallString\"=\"\\\"$quoted\\\\uninstall.exe\\\" /S\""
        [ -z "${5:-}" ] ||
            printf '%s\n' "${key%Uninstall*}Run] \"SCVScheduler\"=\"\\\"$quoted\\\\SCVScheduler.exe\\\" /background\""
    } | LC_ALL=C sort -u
}

# state_is WHAT EXPECTED: the state now, line for line.
state_is() {
    state "$work/now"
    diff --unchanged-line-format= --old-line-format='missing: %L' --new-line-format='too many: %L' "$2" "$work/now" ||
        fail "$1: not what was expected."
}

# status_is NUMBER COMMAND...
status_is() {
    local status=0 wanted=$1
    shift
    wine_run "$arch" "$@" >/dev/null 2>&1 || status=$?
    [ "$status" -eq "$wanted" ] || fail "$*: ended with $status in place of $wanted."
}

# The uninstaller goes on as a copy of itself, which removes the last things that there are after the key.
removal_ends() { until_true 30 "the uninstaller ends" nothing_runs '[\\/](uninstall\.exe|~nsu)'; }

# page FILE TITLE: opens an installer's or uninstaller's first page.
page() {
    wine_exec "$arch" "$1" >/dev/null 2>&1 </dev/null 8>&- &
    window_is "$2" shown
    sleep 1
}

installed_version() { [ "$(registry query "$uninstall_key" 2>/dev/null | sed -n 's/^ *DisplayVersion *REG_SZ *//p')" = "$1" ]; }

# tick TITLE N: the box of row N (from 1) of the page with the components, at 96 dpi.
tick() {
    local left top rest
    read -r left top rest < <(window_tool "$1" place)
    click_at $((left + 188)) $((top + 153 + 16 * $2))
}

# start_in FOLDER [ARGUMENT...]: the installed program, hidden or shown.
start_in() {
    wine_exec "$arch" "$1/SCVScheduler.exe" "${@:2}" >/dev/null 2>&1 </dev/null 8>&- &
    program_pid=$!
    window_is "$main_title" "$([ $# -eq 1 ] && echo shown || echo hidden)"
}

# Exit, in the window; and of a hidden one.
close_program() {
    click "$main_title" 32772
    program_ends
}
stop_hidden() {
    tray_exit
    window_is "$main_title" gone
}

# remove_silently [SWITCH...]: with the command that the system knows.
remove_silently() {
    local command
    command=$(registry query "$uninstall_key" /v QuietUninstallString | sed -n 's/^.*REG_SZ *"\(.*\)" \/S$/\1/p')
    [ -n "$command" ] || fail "The system does not know how to remove the program."
    status_is 0 "$command" /S "$@"
    removal_ends
}

# --- What they start from --------------------------------------------------------------------------------------------

nothing_is_there() {
    rm -rf "$local_folder" "$default_folder" "$elsewhere" "$shortcut"
    local key
    for key in "$uninstall_key" 'HKCU\Software\Talvernick\SCVScheduler'; do
        registry delete "$key" /f >/dev/null 2>&1 || true
    done
    registry delete "$run_key" /v SCVScheduler /f >/dev/null 2>&1 || true
    state "$work/before"
}

a_list() {
    mkdir -p "$local_folder"
    {
        list_head 1
        task 1 "\"$demo\\prices.scvpr\" -s" $(($(date +%s) + 86400))
    } >"$task_list"
}

# An older version, whose files are others.
make_older() {
    rm -rf "$work/older"
    mkdir "$work/older"
    cp "$package"/files/* "$work/older"
    echo older | tee -a "$work"/older/*.exe >"$work/older/README.txt"
    makensis -V1 -NOCD -DVERSION=1.0.0 "${wide[@]}" "-DFILES=$work/older" "-DSETUP=$work/older.exe" \
        packaging/SCVScheduler.nsi
}

# --- The journeys ----------------------------------------------------------------------------------------------------

# The pages, with the box for the start at log-on, which the program's own box then shows; an upgrade and the removal by
# their pages, while the program runs.
pages() {
    page "$setup" "$setup_title"
    tick "$setup_title" 2
    picture pages-1-startup
    press alt+n
    picture pages-2-folder
    press alt+i
    until_true 30 "the last page comes" installed_version "$version"
    sleep 1
    picture pages-3-finish
    with_program "$work/before" "$default_folder" "$version" "$package/files" startup >"$work/installed"
    state_is "after the installation" "$work/installed"
    press alt+f
    window_is "$main_title" shown
    click "$main_title" 1046
    expect "the start at log-on, which the window took away" "$(registry query "$run_key" | grep -c SCVScheduler)" 0
    click "$main_title" 1046
    expect "the start at log-on, which it put back" "$(registry query "$run_key" | grep SCVScheduler)" \
        "    SCVScheduler    REG_SZ    \"$(windows_path "$default_folder/SCVScheduler.exe")\" /background"

    page "$work/older.exe" "$setup_title"
    press alt+n
    press alt+i
    sleep 1
    picture pages-4-running
    press Escape
    expect "instances, after the user said no" "$(running "$program_pattern")" 1
    press alt+i
    sleep 1
    press Return
    until_true 30 "the older version is there" installed_version 1.0.0
    window_is "$main_title" hidden
    sleep 1
    picture pages-5-started-again
    press alt+f
    window_is "$main_title" shown
    expect "instances" "$(running "$program_pattern")" 1

    expect "the folder" "$(registry query "$uninstall_key" /v InstallLocation | sed -n 's/^.*REG_SZ *//p')" \
        "$(windows_path "$default_folder")"

    page "$default_folder/uninstall.exe" "$removal_title"
    tick "$removal_title" 2
    picture pages-6-removal
    press alt+u
    sleep 1
    picture pages-7-running
    press Return
    until_true 30 "the program is removed" installed_version ""
    sleep 1
    picture pages-8-removed
    press alt+c
    removal_ends
    state_is "after the removal" "$work/before"
}

# No window, a folder of its own, a console program that runs; refused while that is in use or a file cannot be written.
silent() {
    local folder=$elsewhere pid
    # shellcheck disable=SC2046 # a folder with a blank comes without quotation marks
    status_is 0 "$setup" /S /D=$(windows_path "$folder")
    with_program "$work/before" "$folder" "$version" "$package/files" >"$work/installed"
    state_is "after the installation" "$work/installed"
    expect "instances" "$(running "$program_pattern")" 0
    expect "the version" "$(wine_run "$arch" "$folder/scvsched.exe" --version | tr -d '\r')" "scvsched $version"
    grep -qaF "$(windows_path "$folder")" <(iconv -c -f UTF-16LE -t UTF-8 "$shortcut"; cat "$shortcut") ||
        fail "The entry in the start menu leads elsewhere."

    a_list
    state "$work/installed"
    wine_exec "$arch" "$folder/scvsched.exe" watch >/dev/null 2>&1 </dev/null 8>&- &
    pid=$!
    sleep 2
    status_is 2 "$setup" /S
    # shellcheck disable=SC2046
    status_is 2 "$folder/uninstall.exe" /S _?=$(windows_path "$folder")
    state_is "while scvsched runs" "$work/installed"
    kill "$pid"

    # The last file cannot be written: the first ones stay as they were.
    mkdir "$folder/CHANGELOG.txt.new"
    status_is 2 "$work/older.exe" /S
    rmdir "$folder/CHANGELOG.txt.new"
    state_is "after a failure" "$work/installed"
}

# In place over an older version, with list, settings and start at log-on as they were: while nothing runs, while the
# program runs hidden, while it shows a change, and not while it asks something.
upgrade() {
    # shellcheck disable=SC2046
    status_is 0 "$work/older.exe" /S /STARTUP=yes /D=$(windows_path "$elsewhere")
    with_program "$work/before" "$elsewhere" 1.0.0 "$work/older" startup >"$work/installed"
    state_is "after the older version" "$work/installed"
    # So that there are settings.
    a_list
    start_in "$elsewhere"
    close_program
    state "$work/now"
    LC_ALL=C comm -23 "$work/now" "$work/installed" | cat "$work/before" - >"$work/list"
    with_program "$work/list" "$elsewhere" "$version" "$package/files" startup >"$work/upgraded"
    status_is 0 "$setup" /S
    state_is "after the upgrade" "$work/upgraded"
    expect "instances, of which none ran before" "$(running "$program_pattern")" 0

    status_is 0 "$work/older.exe" /S
    start_in "$elsewhere" /background
    status_is 0 "$setup" /S
    program_ends
    window_is "$main_title" hidden
    state_is "after the upgrade of the running program" "$work/upgraded"
    stop_hidden

    status_is 0 "$work/older.exe" /S
    start_in "$elsewhere"
    list_row 1
    click "$main_title" 1010
    status_is 0 "$setup" /S
    program_ends
    window_is "$main_title" shown
    picture upgrade-1-shown-again
    grep -q "prices.scvpr\" -dr -s'" "$task_list" || fail "The change in the window was not saved."

    press alt+a
    window_is Open shown
    state "$work/asking"
    status_is 2 "$work/older.exe" /S
    window_is Open shown
    state_is "while the program asks for a file" "$work/asking"
}

# Another folder, and another choice of the start at log-on; the old folder goes, as far as it is ours.
move() {
    status_is 0 "$work/older.exe" /S /STARTUP=yes
    a_list
    echo mine >"$default_folder/notes.txt"
    # shellcheck disable=SC2046
    status_is 0 "$setup" /S /D=$(windows_path "$elsewhere")
    rm "$default_folder/notes.txt"
    rmdir "$default_folder" || fail "Files were left in the old folder."
    rm -r "$local_folder"
    with_program "$work/before" "$elsewhere" "$version" "$package/files" startup >"$work/installed"
    state_is "after the move" "$work/installed"
    status_is 0 "$setup" /S /STARTUP=no
    with_program "$work/before" "$elsewhere" "$version" "$package/files" >"$work/installed"
    state_is "with the other choice" "$work/installed"
}

# As the system's settings remove it, while it runs: the list, the settings and what is not ours stay, unless asked.
removal() {
    status_is 0 "$setup" /S /STARTUP=yes
    a_list
    echo mine >"$default_folder/notes.txt"
    start_in "$default_folder"
    list_row 1
    click "$main_title" 1010
    remove_silently
    program_ends
    grep -q "prices.scvpr\" -dr -s'" "$task_list" || fail "The change in the window was not saved, or the list not kept."
    [ -n "$(setting CSCVSchedulerDlg ascSort)" ] || fail "The settings were not kept."
    expect "what is left in the folder" "$(ls "$default_folder")" notes.txt

    rm "$default_folder/notes.txt"
    status_is 0 "$setup" /S /STARTUP=yes
    registry add "$run_key" /v SCVScheduler /d '"C:\portable\SCVScheduler.exe" /background' /f >/dev/null
    remove_silently /LIST
    expect "the start of another copy" "$(registry query "$run_key" /v SCVScheduler | grep -c portable)" 1
    registry delete "$run_key" /v SCVScheduler /f >/dev/null
    state_is "without the list" "$work/before"
}

# Unpacked, each program runs.
portable() {
    mkdir -p "$elsewhere"
    unzip -q "${setup%setup.exe}portable.zip" -d "$elsewhere"
    diff -r "$package/files" "$elsewhere"
    expect "the version" "$(wine_run "$arch" "$elsewhere/scvsched.exe" --version | tr -d '\r')" "scvsched $version"
    start_in "$elsewhere"
    close_program
}

# --- Playing them ----------------------------------------------------------------------------------------------------

trap 'desktop_stop >/dev/null 2>&1' EXIT
trap 'exit 130' INT TERM
desktop_start "$arch" "build/wine/installer-$arch"
# Wine would write the entry into the start menu of this machine as well.
registry add 'HKCU\Software\Wine\DllOverrides' /v winemenubuilder.exe /d '' /f >/dev/null
# What every Windows has.
registry add "${uninstall_key%\\*}" /f >/dev/null
registry add "$run_key" /f >/dev/null
default_folder=${local_folder%/*}/Programs/SCVScheduler
mkdir -p "${default_folder%/*}"
elsewhere=$drive_c/demo/the\ scheduler
shortcut=${roaming_folder%/*}/Microsoft/Windows/Start\ Menu/Programs/SCV\ Scheduler.lnk
work=$pictures/work
mkdir -p "$work"
make_older
play_journeys "${journeys[@]}"
