# shellcheck shell=bash
# Running the built Windows programs. To be sourced after common.sh.
#
#   wine_start x64|x86 PREFIX [desktop]
#                               makes PREFIX (a folder below build/) a fresh Wine prefix and keeps its server running. With
#                               "desktop" its programs share one desktop with a task bar; its size is $wine_screen
#                               (1280x900), its scale $wine_dpi (96)
#   wine_run x64|x86 [env NAME=VALUE...] PROGRAM...
#                               runs a program, by its path on this machine and in the calling folder.
#                               In place of an architecture, "joined" runs a 32-bit program in a 64-bit prefix
#                               (wine_prefix[joined]) whose server is running.
#   wine_stop                   ends the servers that wine_start started, and every program in their prefixes
#   display_start               starts a virtual display and sets DISPLAY; call it before wine_start
#   display_stop                ends it
#
# A shell has one prefix per architecture. Without a 32-bit Wine a 32-bit program ends with exit code 0 without having
# run. So an exit code alone never proves that a program ran: check its output.

# Without address space randomisation: Linux 6.9 and later place the heap of Debian's wine64 anywhere in a gigabyte, about
# one start in 8,000 at 0x7ffe0000, where Wine needs a page of its own. Then wine64 ends with exit code 1 and prints nothing.
wine64=/usr/lib/wine/wine64
! setarch -R true 2>/dev/null || wine64="setarch -R $wine64" # some containers forbid it

declare -A wine_prefix=()
declare -A wine_loader=([x64]="$wine64" [x86]="$SCV_ROOT/scripts/wine32-root.sh run /usr/lib/wine/wine"
    [joined]="$SCV_ROOT/scripts/wine32-root.sh join")
declare -A wine_word=([x64]=win64 [x86]=win32 [joined]=win64)

# A server belongs to one prefix: -k ends it and the programs in that prefix, and no others.
wine_server() {
    local arch=$1
    shift
    if [ "$arch" = x64 ]; then
        env WINEPREFIX="${wine_prefix[x64]}" /usr/lib/wine/wineserver64 "$@"
    else
        env WINEPREFIX="${wine_prefix[x86]}" "$SCV_ROOT/scripts/wine32-root.sh" run /usr/lib/wine/wineserver32 "$@"
    fi
}

# wine_exec ARCH [env NAME=VALUE...] PROGRAM [ARGUMENT...]: replaces the calling (sub)shell, so that after
# `wine_exec x64 a.exe &` $! is the process id of the program itself. wine_limit: seconds after which it is ended.
wine_exec() {
    local arch=$1 settings=() limit=()
    shift
    if [ "$1" = env ]; then
        shift
        while [[ $1 == *=* ]]; do
            settings+=("$1")
            shift
        done
    fi
    [ -z "${wine_limit:-}" ] || limit=(timeout -k 10 "$wine_limit")
    # shellcheck disable=SC2086 # a loader is a command and its arguments
    exec env WINEPREFIX="${wine_prefix[$arch]}" WINEARCH="${wine_word[$arch]}" WINEDEBUG="${WINEDEBUG:--all}" \
        "${settings[@]}" "${limit[@]}" ${wine_loader[$arch]} "$@"
}

wine_run() { (wine_exec "$@"); }

wine_start() {
    local arch=$1 prefix=$2 kind=${3:-}
    mkdir -p "$prefix"
    prefix=$(cd "$prefix" && pwd)
    wine_prefix[$arch]=$prefix
    wine_server "$arch" -k || true # one may be left from an interrupted run
    rm -rf "$prefix"
    mkdir -p "$prefix"
    wine_server "$arch" -p
    # Without a display, so that Wine opens no box that offers to download something.
    wine_run "$arch" env DISPLAY= wineboot.exe -i
    [ -e "$prefix/drive_c/windows/system32/kernel32.dll" ] || {
        say "The Wine prefix $prefix could not be made." >&2
        return 1
    }
    # The fonts of the dialogs and of the caption's symbols. Wine does not find them where Debian installs them.
    cp /usr/share/wine/fonts/{tahoma,tahomabd,marlett}.ttf "$prefix/drive_c/windows/Fonts/"
    # Nobody could close the box that Wine shows when a program crashes.
    wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
    if [ -n "${display_pid:-}" ]; then
        # Our display has no window manager. Wine would wait for one, two seconds for each window.
        wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
    fi
    if [ "$kind" = desktop ]; then
        # Only for this name does Wine's explorer show a task bar.
        wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Software\Wine\Explorer' /v Desktop /d shell /f
        wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Software\Wine\Explorer\Desktops' /v shell /d "${wine_screen:-1280x900}" /f
        wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "${wine_dpi:-96}" /f
    fi
    # Restart the server: one that started without a display never gets one.
    wine_server "$arch" -k || true
    wine_server "$arch" -w
    wine_server "$arch" -p
}

wine_stop() {
    local arch
    for arch in "${!wine_prefix[@]}"; do
        wine_server "$arch" -k || true
        unset "wine_prefix[$arch]"
    done
}

display_start() {
    local number=build/display.$$
    # 1280 by 900 in true colour. -displayfd chooses a free display number and writes it once clients can connect.
    mkdir -p build
    mkfifo "$number"
    Xvfb -displayfd 3 -screen 0 1280x900x24 -nolisten tcp 3>"$number" >/dev/null 2>&1 8>&- &
    display_pid=$!
    read -r -t 30 DISPLAY <"$number" || true
    rm -f "$number"
    [ -n "${DISPLAY:-}" ] || fail "Xvfb did not start."
    export DISPLAY=:$DISPLAY
}

display_stop() {
    [ -z "${display_pid:-}" ] || kill "$display_pid" 2>/dev/null || true
    display_pid=
}
