#!/bin/bash
# Checks the includes of all sources and prints each breach; exit code 1 when there is one:
# - a folder includes only the folders that the table below allows
# - an include of ours is written from the root of the checkout
# - a portable file includes no header of Windows and none of ours that needs Windows
# - every header has a #pragma once, and every source is in the CMakeLists.txt of its folder;
#   the tests, *Test.cpp, are found there by their names
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# shellcheck disable=SC2016 # awk's own variables
check='
function breach(text) { print text; status = 1 }
function allow(folder, targets) { may[folder] = " " folder " " targets " " }
BEGIN {
    # What each folder may include beside itself. No arrow runs upward and none in a circle.
    everything = "util core framework layout script ui cli tests"
    allow("util", "")
    allow("core", "util")
    allow("framework", "util")
    allow("layout", "framework util")
    allow("script", "layout framework util")
    allow("ui", "util core framework layout script")
    allow("cli", "core util")
    allow("tests", everything)
    allow("bench", everything)
    allow("fuzz", everything)
}
FNR == 1 {
    folder = FILENAME
    sub("/.*", "", folder)
    # Files below win32/ and in framework/ need Windows; all others are portable. Tests, benchmarks and fuzz targets may include
    # headers of Windows, because some of them are only compiled for Windows.
    portable = FILENAME !~ "/win32/" && folder !~ "^(framework|tests|bench|fuzz)$"
}
/^#pragma once$/ { guarded[FILENAME] = 1 }
match($0, /^[ \t]*#[ \t]*include[ \t]*/) {
    name = substr($0, RSTART + RLENGTH + 1)
    ours = substr($0, RSTART + RLENGTH, 1) == "\""
    sub("[\">].*", "", name)
    target = name
    sub("/.*", "", target)
    where = FILENAME ":" FNR ": "
    if (!ours && target in may && target != name)
        breach(where "<" name "> is ours and is included with quotation marks")
    if (ours && (target == name || !(target in may)))
        breach(where "\"" name "\" is not written from the root of the checkout")
    else if (ours && index(may[folder], " " target " ") == 0)
        breach(where folder "/ may not include " target "/")
    windows = ours ? "/win32/|^framework/" : "^(windows|winbase|winuser|winreg|shellapi|shlobj|shlwapi|winsock2?)[.]h$"
    if (portable && tolower(name) ~ windows)
        breach(where "a portable file, by its folder, includes a header of Windows")
}
END {
    for (i = 1; i < ARGC; i++)
        if (ARGV[i] ~ /\.h$/ && !(ARGV[i] in guarded))
            breach(ARGV[i] " has no #pragma once")
    exit status
}'
status=0
our_files '*.h' '*.cpp' | tr '\n' '\0' | xargs -0 awk "$check" || status=1

# A source that is in no CMakeLists.txt is neither compiled nor checked.
while IFS= read -r file; do
    [[ $file == tests/*Test.cpp ]] && continue
    rest=${file#*/}
    grep -qF "${rest%.cpp}" "${file%%/*}/CMakeLists.txt" || {
        say "$file is not in the CMakeLists.txt of its folder"
        status=1
    }
done < <(our_files '*.cpp')
exit "$status"
