#!/bin/bash
# No include against the table of folders, none that is not written from the root, no portable file that includes one of
# Windows' headers or of ours that do, and no source that no preset compiles. Prints each breach and exits with 1 when there
# is one. Wants all presets configured but windows-x86, which compiles what windows-x64 does.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# What each folder may include beside itself. No arrow runs upward and none in a circle.
everything="util core framework layout script ui cli tests"
declare -A may=(
    [util]=""
    [core]="util"
    [framework]="util"
    [layout]="framework util"
    [script]="layout framework util"
    [ui]="util core framework layout script"
    [cli]="core util"
    [tests]="$everything"
    [bench]="$everything"
    [fuzz]="$everything"
)

breaches=0
breach() {
    say "$*"
    breaches=$((breaches + 1))
}

include='^[[:space:]]*#[[:space:]]*include[[:space:]]*'
while IFS= read -r file; do
    folder=${file%%/*}
    while IFS=: read -r line name; do
        target=${name%%/*}
        if [ "$target" = "$name" ] || [ -z "${may[$target]+known}" ]; then
            breach "$file:$line: \"$name\" is not written from the root of the checkout"
        elif [ "$target" != "$folder" ] && [[ " ${may[$folder]} " != *" $target "* ]]; then
            breach "$file:$line: $folder/ may not include $target/"
        fi
    done < <(sed -nE "s|$include\"([^\"]*)\".*|\1|p;" "$file" | paste -d: <(grep -nE "$include\"" "$file" | cut -d: -f1) -)
    while IFS=: read -r line name; do
        [ -z "${may[${name%%/*}]+known}" ] || [ ! -e "$name" ] ||
            breach "$file:$line: <$name> is ours and is included with quotation marks"
    done < <(sed -nE "s|$include<([^>]*)>.*|\1|p;" "$file" | paste -d: <(grep -nE "$include<" "$file" | cut -d: -f1) -)
done < <(our_files '*.h' '*.cpp')

# Windows' own are the files below a folder win32/ and framework/; all others are portable. Tests, benchmarks and fuzz
# targets may include both where the build compiles them for Windows only.
while IFS= read -r file; do
    case $file in
    */win32/* | framework/* | tests/* | bench/* | fuzz/*) continue ;;
    esac
    if grep -qiE "$include(<(windows|winbase|winuser|winreg|shellapi|shlobj|shlwapi|winsock2?)\.h>|\"([^\"]*/win32|framework)/)" "$file"; then
        breach "$file is portable by its folder and includes a header of Windows"
    fi
done < <(our_files '*.h' '*.cpp')

# A source that nothing compiles is checked by nobody.
while IFS= read -r file; do
    breach "$file is compiled by no preset"
done < <(comm -13 <(built_sources native native-release native-fuzz windows-x64) <(our_files '*.cpp'))

exit $((breaches > 0))
