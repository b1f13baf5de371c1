#!/bin/bash
# clang-tidy over every source that we compile, each through one build that compiles it: natively where it can be, for
# Windows otherwise. What was clean is remembered in build/tidy and not read again until it, a header, a build or the
# configuration has changed.
#   scripts/check-tidy.sh [FILE...]    only these files
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

presets=(native native-fuzz native-release windows-x64)
remembered=build/tidy
mkdir -p "$remembered"

# One source, in a process of its own.
check_source() {
    local common=$1 preset=$2 file=$3 key flags=(--extra-arg=-Wno-unknown-warning-option)
    if [ "$preset" = windows-x64 ]; then
        flags+=(--extra-arg-before=--target=x86_64-w64-windows-gnu)
        # clang does not look where Debian's posix flavour of the compiler keeps its library.
        flags+=(--extra-arg=-nostdlibinc)
        local folder
        while IFS= read -r folder; do
            flags+=("--extra-arg=-isystem$folder")
        done < <(x86_64-w64-mingw32-g++-posix -E -v -x c++ /dev/null 2>&1 |
            sed -n '/^#include <...>/,/^End of search/{/include\/c++\|mingw32\/include$/s/^ //p}')
    fi

    key=$(cat - "$file" <<<"$common $preset" | sha256sum | cut -d' ' -f1)
    [ ! -e "$remembered/$key" ] || return 0
    # Its standard error only counts the warnings of others' headers; a failure to read the source is on both.
    if clang-tidy -quiet -p "build/$preset" "${flags[@]}" "$file" 2>"$remembered/$key.err"; then
        rm "$remembered/$key.err"
        touch "$remembered/$key"
    else
        grep -v 'warnings\{0,1\} generated' "$remembered/$key.err" || true
        say "$file ($preset) is not clean."
        return 1
    fi
}

if [ "${1:-}" = one ]; then
    check_source "$2" "$3" "$4"
    exit
fi

configured "${presets[@]}"
# Whatever every source depends on: configuration, compile flags and all headers.
common=$({
    clang-tidy --version
    cat .clang-tidy "$0"
    for preset in "${presets[@]}"; do
        cat "build/$preset/compile_commands.json"
    done
    our_files '*.h' '*.def' | tr '\n' '\0' | xargs -0 cat
} | sha256sum | cut -d' ' -f1)

jobs=()
known=$'\n'
for preset in "${presets[@]}"; do
    while IFS= read -r file; do
        [[ $known != *$'\n'"$file"$'\n'* ]] || continue
        known+=$file$'\n'
        [ $# -eq 0 ] || [[ " $* " == *" $file "* ]] || continue
        jobs+=("$preset" "$file")
    done < <(built_sources "$preset")
done
[ ${#jobs[@]} -gt 0 ] || fail "There is no source to check."
printf '%s\0' "${jobs[@]}" | xargs -0 -n 2 -P "$(nproc)" "$0" one "$common"
say "$((${#jobs[@]} / 2)) sources are clean."
