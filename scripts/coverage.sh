#!/bin/bash
# How many lines of the portable sources the native tests run: a line a folder, and in core and util every line that none
# runs. Fails when such a line has no reason in scripts/coverage-gaps.txt, or a reason there has no such line.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

scripts/setup.sh build coverage
build=build/native-coverage
report=$build/report.txt
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS='--coverage -fprofile-abs-path' >"$build.log"
cmake --build "$build" --target scv_tests >>"$build.log" || { cat "$build.log" && exit 1; }
find "$build" -name '*.gcda' -delete
"$build/tests/scv_tests" >>"$build.log" || { cat "$build.log" && exit 1; }
gcovr --root . --filter '(util|core|layout|script|ui|cli)/' --txt "$report" "$build" 2>>"$build.log"

awk '
    $2 ~ /^[0-9]+$/ && $1 ~ /\// {
        folder = substr($1, 1, index($1, "/") - 1)
        lines[folder] += $2
        run[folder] += $3
    }
    END { for (folder in lines) printf "%-8s %5d of %5d lines, %.1f %%\n", folder, run[folder], lines[folder], 100 * run[folder] / lines[folder] }
' "$report" | LC_ALL=C sort

gaps=$(awk '/^(core|util)\// && $5 != "" { print $1, $5 }' "$report" | while read -r file numbers; do
    for range in ${numbers//,/ }; do
        sed -n "${range/-/,}s|^[[:space:]]*|$file: |p" "$file"
    done
done | LC_ALL=C sort -u)
reasons=$(grep -vE '^(#|$)' scripts/coverage-gaps.txt | LC_ALL=C sort -u)
say "Not run in core and util:" "$gaps"
without=$(LC_ALL=C comm -23 <(echo "$gaps") <(echo "$reasons"))
idle=$(LC_ALL=C comm -13 <(echo "$gaps") <(echo "$reasons"))
[ -z "$without" ] || say "Without a reason:" "$without"
[ -z "$idle" ] || say "With a reason and yet run:" "$idle"
[ -z "$without$idle" ]
