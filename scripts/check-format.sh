#!/bin/bash
# Checks that the sources are formatted by .clang-format (clang-format -i FILE fixes one).
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
our_files '*.h' '*.cpp' | tr '\n' '\0' | xargs -0 clang-format --dry-run -Werror
