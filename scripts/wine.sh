# shellcheck shell=bash
# Running the built Windows programs. To be sourced after common.sh.
#
#   wine_start x64|x86 PREFIX [desktop]
#                               makes PREFIX (a folder below build/) a fresh Wine prefix and keeps its server up; with
#                               "desktop" its programs share one desktop with a task bar, as large as $wine_screen
#                               says (1280x900) and scaled for $wine_dpi (96)
#   wine_run x64|x86 [env NAME=VALUE...] PROGRAM...
#                               runs a program, by its path on this machine and in the calling folder
#                               Instead of an architecture "joined" runs a 32-bit program in a 64-bit prefix,
#                               wine_prefix[joined], whose server is up.
#   wine_stop                   ends the servers that wine_start started, and every program in their prefixes
#   display_start               starts a display that nobody looks at, and points DISPLAY to it; before wine_start
#   display_stop                ends it
#
# One prefix an architecture and shell. With only 64-bit Wine at hand a 32-bit program ends with 0 without having run,
# so never take an exit code alone for a proof that a program ran: look at what it wrote.

declare -A wine_prefix=()
declare -A wine_loader=([x64]="/usr/lib/wine/wine64" [x86]="$SCV_ROOT/scripts/wine32-root.sh run /usr/lib/wine/wine"
    [joined]="$SCV_ROOT/scripts/wine32-root.sh join")
declare -A wine_word=([x64]=win64 [x86]=win32 [joined]=win64)

# The server keeps to its prefix: ending it with -k ends this run's programs and no others.
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
# `wine_exec x64 a.exe &` the program's own process is $!. With wine_limit set, it is ended after so many seconds.
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
    wine_server "$arch" -k || true # left by a run that was cut short
    rm -rf "$prefix"
    mkdir -p "$prefix"
    wine_server "$arch" -p
    # Without a display, so that it does not ask on somebody's screen whether to fetch this or that.
    wine_run "$arch" env DISPLAY= wineboot.exe -i
    [ -e "$prefix/drive_c/windows/system32/kernel32.dll" ] || {
        say "The Wine prefix $prefix could not be made." >&2
        return 1
    }
    # The dialogs' font and the caption's symbols, which Wine does not find by itself where Debian keeps them.
    cp /usr/share/wine/fonts/{tahoma,tahomabd,marlett}.ttf "$prefix/drive_c/windows/Fonts/"
    # Nobody sees the box that would keep a program that crashed from ending.
    wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
    if [ -n "${display_pid:-}" ]; then
        # Our display has no window manager; waiting for one would cost two seconds a window.
        wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
    fi
    if [ "$kind" = desktop ]; then
        # The one name for which Wine's explorer brings a task bar of its own accord.
        wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Software\Wine\Explorer' /v Desktop /d shell /f
        wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Software\Wine\Explorer\Desktops' /v shell /d "${wine_screen:-1280x900}" /f
        wine_run "$arch" env DISPLAY= reg.exe add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "${wine_dpi:-96}" /f
    fi
    # Anew, as the server's desktop has none for as long as it lives when it came up without a display.
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
    # 1280 by 900 in true colour; -displayfd takes a free number and tells it once clients can connect.
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
