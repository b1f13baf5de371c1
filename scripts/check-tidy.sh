#!/bin/bash
# clang-tidy over every source that we compile, each through one build that compiles it: natively where it can be, for
# Windows otherwise. What was clean is remembered in build/tidy and not read again until it, a header that it takes in, its
# compile flags or the configuration has changed.
#   scripts/check-tidy.sh [FILE...]    only these files
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

presets=(native native-fuzz native-release windows-x64)
remembered=build/tidy
batches=$remembered/batches

# One unit, a source or a batch of them, in a process of its own. KEY stands for all that it depends on, DATABASE is the
# folder that knows how to compile it.
check_unit() {
    local key=$1 database=$2 unit=$3 flags=(--extra-arg=-Wno-unknown-warning-option)
    if [ "$(basename "$database")" = windows-x64 ]; then
        flags+=(--extra-arg-before=--target=x86_64-w64-windows-gnu)
        # clang does not look where Debian's posix flavour of the compiler keeps its library.
        flags+=(--extra-arg=-nostdlibinc)
        local folder
        while IFS= read -r folder; do
            flags+=("--extra-arg=-isystem$folder")
        done < <(x86_64-w64-mingw32-g++-posix -E -v -x c++ /dev/null 2>&1 |
            sed -n '/^#include <...>/,/^End of search/{/include\/c++\|mingw32\/include$/s/^ //p}')
    fi

    # Its standard error only counts the warnings of others' headers; a failure to read the source is on both.
    if clang-tidy -quiet -p "$database" "${flags[@]}" "$unit" 2>"$remembered/$key.err"; then
        rm "$remembered/$key.err"
        touch "$remembered/$key"
    else
        grep -v 'warnings\{0,1\} generated' "$remembered/$key.err" || true
        say "$unit ($database) is not clean."
        return 1
    fi
}

if [ "${1:-}" = one ]; then
    check_unit "$2" "$3" "$4"
    exit
fi

# What a source is compiled with: the line of the build's compile_commands.json up to the names of the files.
declare -A command
read_commands() {
    local line file
    while IFS= read -r line && IFS= read -r file; do
        file=${file#*"$SCV_ROOT/"}
        command[$1:${file%%\"*}]=${line%% -o *}
    done < <(grep -E '^ *"(command|file)": ' "build/$1/compile_commands.json")
}

# closure FILE...: the files and all of ours that they take in, directly or not, one a line.
declare -A includes
while IFS=: read -r file name; do
    includes[$file]+=" $name"
done < <(our_files '*.h' '*.def' '*.cpp' | xargs grep -HoE '^#include "[^"]+"' | sed 's/#include "//; s/"$//')
closure() {
    local -A seen=()
    local todo=("$@") file
    while [ ${#todo[@]} -gt 0 ]; do
        file=${todo[-1]}
        unset 'todo[-1]'
        if [ -n "${seen[$file]:-}" ] || [ ! -e "$file" ]; then
            continue
        fi
        seen[$file]=1
        # shellcheck disable=SC2206 # the words of an entry
        todo+=(${includes[$file]:-})
    done
    printf '%s\n' "${!seen[@]}" | LC_ALL=C sort
}

# batch tests|program FILE...: one source out of several of a folder. What they take in costs twenty times what they hold,
# and so it is read only once. Tests, whose helpers are often called the same, come each in a namespace, after all headers.
batch() {
    local kind=$1 file number=0
    shift
    if [ "$kind" = program ]; then
        printf '#include "%s"\n' "$@"
        return
    fi
    awk '/^#if/ { depth++ } /^#endif/ { depth-- } !depth && /^#include (<|"[^"]*\.h")/ && !seen[$0]++' "$@" |
        awk '/<(winsock2|windows)\.h>/ { print; next } { rest = rest $0 "\n" } END { printf "%s", rest }'
    for file in "$@"; do
        number=$((number + 1))
        printf 'namespace test%d {\n#include "%s"\n}\n' "$number" "$file"
    done
}

configured "${presets[@]}"
rm -rf "$batches"
mkdir -p "$batches/tests" "$batches/program"
cp tests/.clang-tidy "$batches/tests/.clang-tidy"
printf 'Checks: -bugprone-suspicious-include\nInheritParentConfig: true\n' >"$batches/program/.clang-tidy"
common=$(clang-tidy --version | cat - .clang-tidy tests/.clang-tidy "$0")

jobs=()
# add_job PRESET UNIT DATABASE FILE...
add_job() {
    local preset=$1 unit=$2 database=$3 key
    shift 3
    key=$({
        printf '%s\n' "$common" "${command[$preset:$1]}" "$@"
        closure "$@" | tr '\n' '\0' | xargs -0 cat
    } | sha256sum | cut -d' ' -f1)
    [ -e "$remembered/$key" ] || jobs+=("$key" "$database" "$unit")
}

count=0
units=0
known=$'\n'
for preset in "${presets[@]}"; do
    read_commands "$preset"
    singles=()
    declare -A groups=()
    while IFS= read -r file; do
        [[ $known != *$'\n'"$file"$'\n'* ]] || continue
        known+=$file$'\n'
        [ $# -eq 0 ] || [[ " $* " == *" $file "* ]] || continue
        count=$((count + 1))
        case $file in
        tests/support/* | bench/* | fuzz/* | */Main.cpp) singles+=("$file") ;;
        tests/*Test.cpp) groups["tests $(dirname "$file") ${command[$preset:$file]}"]+=" $file" ;;
        tests/*) singles+=("$file") ;;
        *) groups["program $(dirname "$file") ${command[$preset:$file]}"]+=" $file" ;;
        esac
    done < <(built_sources "$preset")

    declare -A entries=()
    for group in "${!groups[@]}"; do
        read -r -a files <<<"${groups[$group]}"
        if [ ${#files[@]} -eq 1 ]; then
            singles+=("${files[0]}")
            continue
        fi
        kind=${group%% *}
        database=$batches/$kind/$preset
        mkdir -p "$database"
        # So named, clang's analyzer follows the paths through what it takes in as well.
        unit=$database/UnifiedSource-$(dirname "${files[0]}" | tr / -)-$((++units)).cpp
        batch "$kind" "${files[@]}" >"$unit"
        entries[$kind]+="${entries[$kind]:+,}{\"directory\": \"$SCV_ROOT/build/$preset\",
${command[$preset:${files[0]}]} -c $SCV_ROOT/$unit\", \"file\": \"$SCV_ROOT/$unit\"}"
        add_job "$preset" "$unit" "$database" "${files[@]}"
    done
    for kind in "${!entries[@]}"; do
        printf '[%s]\n' "${entries[$kind]}" >"$batches/$kind/$preset/compile_commands.json"
    done
    for file in "${singles[@]}"; do
        add_job "$preset" "$file" "build/$preset" "$file"
    done
done
[ "$count" -gt 0 ] || fail "There is no source to check."
[ ${#jobs[@]} -eq 0 ] || printf '%s\0' "${jobs[@]}" | xargs -0 -n 3 -P "$(nproc)" "$0" one
say "$count sources are clean."
