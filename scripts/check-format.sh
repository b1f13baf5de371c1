#!/bin/bash
# The sources are formatted as .clang-format wants them (clang-format -i FILE fixes one).
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
our_files '*.h' '*.cpp' | tr '\n' '\0' | xargs -0 clang-format --dry-run -Werror
