#!/bin/bash
# Every header compiles alone, twice in one source: with the Windows compiler, and, unless it takes in <windows.h>, with
# the native one. A header that is the first thing its source takes in is compiled alone by each build of that source, so
# those are only looked at for their guard. Wants build/native and build/windows-x64 configured, whose include folders it
# uses.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

flags=(-std=c++20 -fsyntax-only -Wall -Wextra -Wpedantic -Werror -I.)
windows_flags=(-DUNICODE -D_UNICODE -DNOMINMAX -DWIN32_LEAN_AND_MEAN -DWINVER=0x0601 -D_WIN32_WINNT=0x0601
    -D_WIN32_IE=0x0700)

include_folders() { grep -ohE -- '-(isystem |I ?)[^ "\\]+' "build/$1/compile_commands.json" | LC_ALL=C sort -u; }

# One header, in a process of its own.
check_header() {
    local header=$1 source native windows deps
    if ! grep -qx '#pragma once' "$header"; then
        say "$header has no #pragma once"
        return 1
    fi
    source=$(printf '#include "%s"\n#include "%s"\n' "$header" "$header")
    mapfile -t windows < <(include_folders windows-x64 | tr ' ' '\n')
    mapfile -t native < <(include_folders native | tr ' ' '\n')
    if ! x86_64-w64-mingw32-g++-posix "${flags[@]}" "${windows_flags[@]}" "${windows[@]}" -x c++ - <<<"$source"; then
        say "$header does not compile alone (Windows)"
        return 1
    fi
    deps=$(x86_64-w64-mingw32-g++-posix -std=c++20 -M -I. "${windows_flags[@]}" "${windows[@]}" -x c++ - <<<"$source")
    grep -qi '/windows\.h' <<<"$deps" && return 0
    if ! g++ "${flags[@]}" "${native[@]}" -x c++ - <<<"$source"; then
        say "$header does not compile alone (natively)"
        return 1
    fi
}

if [ "${1:-}" = one ]; then
    check_header "$2"
    exit
fi
configured native windows-x64
mapfile -t headers < <(our_files '*.h')
[ ${#headers[@]} -gt 0 ] || fail "There is no header to check."
compiled=$(built_sources windows-x64)
natively=$(built_sources native)
alone=()
for header in "${headers[@]}"; do
    source=${header%.h}.cpp
    if grep -qx '#pragma once' "$header" && grep -qxF "$source" <<<"$compiled" &&
        { grep -qxF "$source" <<<"$natively" || grep -qx '#include <windows.h>' "$header"; } &&
        [ "$(grep -m1 '^#include' "$source")" = "#include \"$header\"" ]; then
        continue
    fi
    alone+=("$header")
done
[ ${#alone[@]} -eq 0 ] || printf '%s\0' "${alone[@]}" | xargs -0 -n 1 -P "$(nproc)" "$0" one
say "${#headers[@]} headers compile alone."
