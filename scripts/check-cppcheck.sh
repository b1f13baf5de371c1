#!/bin/bash
# cppcheck over every source, as Windows compiles it. Findings that are no faults are listed in .cppcheck-suppressions, each
# with its reason. build/cppcheck caches results for the next run.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

known=build/cppcheck
mkdir -p "$known"
folders=()
for folder in "${SCV_FOLDERS[@]}"; do
    [ ! -d "$folder" ] || folders+=("$folder")
done
cppcheck --quiet --error-exitcode=1 -j "$(nproc)" --cppcheck-build-dir="$known" --language=c++ --std=c++20 \
    --platform=win64 --library=windows --library=googletest -D_WIN32 -DUNICODE -D_UNICODE '-D__CRT_UUID_DECL(...)=' -I. \
    --enable=warning,style,performance,portability --suppressions-list=.cppcheck-suppressions \
    "${folders[@]}"
say "cppcheck found nothing."
