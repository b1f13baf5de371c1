# shellcheck shell=bash
# Functions that all scripts share. Source it: it changes to the root of the checkout and leaves the caller's folder in
# OLDPWD.
set -euo pipefail

SCV_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$SCV_ROOT"

# The folders of our sources, as far as they exist.
SCV_FOLDERS=(util core framework layout script ui cli tests bench fuzz)

# our_files PATTERN...: prints the sources whose names match one of the patterns, sorted, one per line.
our_files() {
    local folder names=()
    for folder in "$@"; do
        names+=(-o -name "$folder")
    done
    for folder in "${SCV_FOLDERS[@]}"; do
        [ ! -d "$folder" ] || find "$folder" -type f \( "${names[@]:1}" \)
    done | LC_ALL=C sort
}

say() { printf '%s\n' "$*"; }
fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# as_root COMMAND...: runs the command as root, through sudo for any other user. exec_as_root replaces this process.
root_prefix() {
    root_command=()
    [ "$(id -u)" -ne 0 ] || return 0
    command -v sudo >/dev/null ||
        fail "This needs root rights, and there is no sudo: run it as root, or run '$*' as root first."
    root_command=(sudo)
}
as_root() {
    root_prefix "$@"
    "${root_command[@]}" "$@"
}
exec_as_root() {
    root_prefix "$@"
    exec "${root_command[@]}" "$@"
}
