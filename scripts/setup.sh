#!/bin/bash
# Installs missing packages with apt on Debian 12. With nothing missing it prints nothing and is fast.
#
#   scripts/setup.sh SET...     sets: build, wine64, wine32 (which makes the 32-bit Wine root as well), desktop, checks,
#                               package, coverage, bench
#
# No other place lists packages.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

declare -A packages=(
    [build]="g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix cmake ninja-build googletest libcli11-dev
             nlohmann-json3-dev python3"
    [wine64]="wine64 fonts-wine python3-bs4 python3-html5lib python3-jsonschema python3-soupsieve"
    [desktop]="xvfb xdotool imagemagick libx11-6"
    [wine32]="debootstrap util-linux mount"
    [checks]="g++ clang clang-format clang-tidy cppcheck libclang-rt-14-dev valgrind libc6-dbg tzdata shellcheck"
    [coverage]="g++ gcovr"
    [package]="nsis zip pandoc"
    [bench]="g++ libsimpleini-dev libbenchmark-dev systemd python3-croniter"
)

wanted=()
for set in "$@"; do
    [ -n "${packages[$set]:-}" ] || fail "scripts/setup.sh: there is no set called $set."
    read -r -d '' -a more <<<"${packages[$set]}" || true
    wanted+=("${more[@]}")
done

installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null || true)
missing=()
for package in "${wanted[@]}"; do
    grep -qx "installed $package" <<<"$installed" || missing+=("$package")
done

if [ ${#missing[@]} -gt 0 ]; then
    say "Installing with apt: ${missing[*]}"
    as_root apt-get update -q
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${missing[@]}"
fi

if [[ " $* " == *" wine32 "* ]]; then
    scripts/wine32-root.sh build
fi
