#!/bin/bash
# Makes the packages for users from the 32-bit programs, in build/package: SCVScheduler-VERSION-setup.exe and
# SCVScheduler-VERSION-portable.zip; their contents are in build/package/files. The same sources always give the same
# bytes: all times in the packages are SOURCE_DATE_EPOCH, by default the time of the last commit. Installs missing
# packages first.
#
#   scripts/package.sh [--check | x64]
#
#   --check    makes them twice, in build/package-check and from a copy of the checkout in another folder, and compares both
#   x64        makes them from the 64-bit programs, which do not ship, in build/package-x64: for tests
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

check=
arch=x86
folder=build/package
while [ $# -gt 0 ]; do
    case $1 in
    --check)
        check=1
        folder=build/package-check
        ;;
    x64)
        arch=x64
        folder=build/package-x64
        ;;
    *) fail "scripts/package.sh: there is no option $1." ;;
    esac
    shift
done
export SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
preset=windows-$arch
files=$folder/files
umask 022

scripts/setup.sh build package
cmake --preset "$preset"
cmake --build --preset "$preset" --target SCVScheduler scvsched
version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "build/$preset/CMakeCache.txt")
name=$folder/SCVScheduler-$version
rm -rf "$folder"
mkdir -p "$files"
cp "build/$preset/ui/SCVScheduler.exe" "build/$preset/cli/scvsched.exe" "$files/"
sed "s/VERSION/$version/; s/\$/\r/" packaging/README.txt >"$files/README.txt"
# Each page becomes one HTML file that contains its pictures.
for page in docs/guide.md docs/scvsched.md docs/task-list-file.md CHANGELOG.md; do
    pandoc --from gfm --to html5 --standalone --self-contained --lua-filter packaging/page-links.lua \
        --css packaging/page.css --resource-path docs --metadata lang=en \
        --metadata "pagetitle=SCV Scheduler: $(sed -n '1s/^# //p' "$page")" \
        --output "$files/$(basename "$page" .md).html" "$page"
done
chmod 644 "$files"/*
touch --date="@$SOURCE_DATE_EPOCH" "$files"/*

wide=()
[ "$arch" = x86 ] || wide=(-DWIDE)
makensis -V2 -WX -NOCD "-DVERSION=$version" "${wide[@]}" "-DFILES=$files" "-DSETUP=$name-setup.exe" packaging/SCVScheduler.nsi
(cd "$files" && printf '%s\n' * | LC_ALL=C sort | TZ=UTC zip -q -9 -X -@ "../${name##*/}-portable.zip")
(cd "$folder" && sha256sum SCVScheduler-*)

[ -n "$check" ] || exit 0
# Builds the files that git knows again, under another path, with another time zone, language and umask.
other=$folder/in/another/folder
mkdir -p "$other"
git ls-files -z | tar --create --null --files-from=- | tar --extract --directory="$other"
(umask 077 && cd "$other" && env -u CMAKE_CXX_COMPILER_LAUNCHER TZ=Asia/Kathmandu LC_ALL=C scripts/package.sh)
(cd "$folder" && sha256sum SCVScheduler-*) | (cd "$other/build/package" && sha256sum --check --strict)
rm -rf "$folder"
