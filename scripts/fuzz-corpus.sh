#!/bin/bash
# Takes into fuzz/corpus what ./test.sh has found below build/fuzz-corpus: the fewest and smallest samples that reach the
# same code. Samples with a name of their own stay; the others are named by their content. Wants build/native-fuzz built.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

for samples in fuzz/corpus/*/; do
    name=$(basename "$samples")
    target=build/native-fuzz/fuzz/$name
    [ -x "$target" ] || fail "$target is not built: cmake --build --preset native-fuzz"
    mkdir -p "build/fuzz-corpus/$name"
    fewest=build/fuzz-fewest
    rm -rf "$fewest"
    mkdir "$fewest"
    find "$samples" -type f ! -regex '.*/[0-9a-f]*' -exec cp {} "$fewest" \;
    # How often a line was reached does not count here, or there would be ten times as many.
    "$target" -merge=1 -use_counters=0 "$fewest" "$samples" "build/fuzz-corpus/$name" >"$fewest.log" 2>&1 </dev/null ||
        { cat "$fewest.log" && fail "The target $name failed."; }
    rm "$samples"*
    for sample in "$fewest"/*; do
        short=$(basename "$sample")
        [[ ! $short =~ ^[0-9a-f]{40}$ ]] || short=${short:0:6}
        cp --no-clobber "$sample" "$samples$short"
    done
    say "$name: $(find "$samples" -type f | wc -l) samples, $(find "$samples" -type f -exec cat {} + | wc -c) bytes"
done
