#!/bin/bash
# A 32-bit Wine in a Debian root of its own. It changes no packages of this machine.
#
#   scripts/wine32-root.sh build            creates the root unless it exists (needs root rights and a minute)
#   scripts/wine32-root.sh run COMMAND...   runs a command inside it, as the calling user, in the calling folder, with
#                                           Wine's and our environment variables, TZ and DISPLAY
#   scripts/wine32-root.sh join PROGRAM...  runs a 32-bit Windows program in the 64-bit prefix of WINEPREFIX, as a client
#                                           of that prefix's running server: as a 64-bit Windows runs 32-bit programs
#
# The root is in ${XDG_CACHE_HOME:-~/.cache}/scvscheduler and is shared by all checkouts of this user. The checkout
# has the same path inside and outside. /proc, /dev and the checkout are mounted in a mount namespace of the one
# command: nothing stays mounted, however the command ends.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

suite=bookworm
cache=${XDG_CACHE_HOME:-$HOME/.cache}/scvscheduler
root=$cache/wine32-$suite
finished=$root/.finished

# Prints the package archive of this machine. apt knows it, whatever the format of its sources.
own_mirror() {
    # shellcheck disable=SC2016 # apt fills these in, not the shell
    apt-get indextargets --format '$(RELEASE) $(COMPONENT) $(REPO_URI)' 'Created-By: Packages' |
        awk -v suite="$suite" '$1 == suite && $2 == "main" { print $3; exit }'
}

# Runs as root, in a mount namespace of its own.
make_root() {
    local mirror
    mirror=$(own_mirror)
    [ -n "$mirror" ] || fail "apt's sources name no archive of $suite/main, so there is nowhere to take 32-bit Wine from."
    rm -rf --one-file-system "$root"
    mkdir -p "$root"
    debootstrap --arch=i386 --variant=minbase "$suite" "$root" "$mirror"
    # Access the archive with this machine's settings (proxy, certificates, checks).
    apt-config dump | grep '^Acquire::' >"$root/etc/apt/apt.conf.d/90host" || true
    if [ -e /etc/ssl/certs/ca-certificates.crt ]; then
        mkdir -p "$root/etc/ssl/certs"
        cp /etc/ssl/certs/ca-certificates.crt "$root/etc/ssl/certs/"
    fi
    mount -t proc proc "$root/proc"
    chroot "$root" apt-get update
    DEBIAN_FRONTEND=noninteractive chroot "$root" apt-get install -y --no-install-recommends wine32 wine
    chroot "$root" apt-get clean
    touch "$finished"
}

build() {
    [ -e "$finished" ] && return 0
    say "Making the 32-bit Wine root in $root (as root; about a minute, once)"
    mkdir -p "$cache"
    # Two checkouts may get here at the same time: the second one waits and then finds the root.
    (
        flock 9
        [ -e "$finished" ] || as_root env HOME="$HOME" XDG_CACHE_HOME="${XDG_CACHE_HOME:-}" \
            unshare --mount "$0" make_root
    ) 9>"$cache/lock"
}

# Runs as root, in a mount namespace of its own. The given folders of this machine get the same paths inside.
enter() {
    local folder=$1 user=$2 shared
    shift 2
    mount -t proc proc "$root/proc"
    mount --rbind /dev "$root/dev"
    while [ "$1" != -- ]; do
        shared=$1
        mkdir -p "$root$shared"
        mount --bind "$shared" "$root$shared"
        shift
    done
    shift
    mkdir -p "$root$SCV_ROOT"
    mount --bind "$SCV_ROOT" "$root$SCV_ROOT"
    # shellcheck disable=SC2016 # expanded by the shell inside
    HOME=/tmp exec chroot --userspec="$user" "$root" /bin/sh -c 'cd "$0" && exec "$@"' "$folder" "$@"
}

# in_root [FOLDER...] -- COMMAND...
# Replaces this process at each step, so that the caller can end the command by this process id.
in_root() {
    [ -e "$finished" ] || fail "There is no 32-bit Wine root in $root: scripts/wine32-root.sh build makes it."
    # sudo would drop these environment variables.
    mapfile -d '' -t variables < <(env -0 | grep -zE '^(WINE[A-Z]*|SCV_[A-Z_]*|TZ|DISPLAY)=' || true)
    exec_as_root env HOME="$HOME" XDG_CACHE_HOME="${XDG_CACHE_HOME:-}" "${variables[@]}" \
        unshare --mount "$0" enter "$OLDPWD" "$(id -u):$(id -g)" "$@"
}

# Mounts the folders where a server of this machine may have its socket, and the root, from which it loads modules.
join() {
    local folders=("$root")
    for folder in /tmp /run/user; do
        [ ! -d "$folder" ] || folders+=("$folder")
    done
    # A prefix of 64-bit Wine has no 32-bit modules. Link them; there are too many to copy.
    [ -e "$WINEPREFIX/drive_c/windows/syswow64" ] ||
        cp -rs "$root/usr/lib/i386-linux-gnu/wine/i386-windows" "$WINEPREFIX/drive_c/windows/syswow64"
    in_root "${folders[@]}" -- "$root/usr/lib/wine/wine" "$@"
}

case ${1:-} in
build)
    build
    ;;
run)
    shift
    in_root -- "$@"
    ;;
join)
    shift
    join "$@"
    ;;
make_root | enter)
    "$@"
    ;;
*)
    fail "Usage: scripts/wine32-root.sh build | run COMMAND... | join PROGRAM..."
    ;;
esac
