#!/bin/bash
# Adds inputs that ./test.sh has found (build/fuzz-corpus) to fuzz/corpus, and reduces it to the fewest and smallest samples
# that reach the same code. Samples with a name stay; the others are named by a hash of their content. Needs the build
# native-fuzz.
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
    # Without counters: how often a line is reached does not count. With them there would be ten times as many samples.
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
