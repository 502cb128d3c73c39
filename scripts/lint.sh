#!/bin/bash
# SPDX-License-Identifier: MIT
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

case ${1:-} in
  -h | --help)
    say 'Usage: scripts/lint.sh [FILE...]

Checks the C and C++ files of the repository, or those named, with clang-format and clang-tidy and
says which are not clean. Uses the compile commands of the preset linux.'
    exit
    ;;
esac

need_packages lint
configure linux
build linux  # for the generated sources

files=("$@")
if [ ${#files[@]} -eq 0 ]; then
  mapfile -t files < <(git ls-files -- '*.c' '*.h' '*.cpp')
fi
# Headers are checked by clang-tidy with the sources that include them. Windows' sources and the
# measurements are not in the preset's compile commands.
mapfile -t sources < <(printf '%s\n' "${files[@]}" | grep -E '\.c(pp)?$' | grep -vE '_win32\.cpp$|^bench/')

# The compile commands without what only GCC understands.
mkdir -p build/lint
sed 's/ -fno-gnu-unique//g' build/linux/compile_commands.json >build/lint/compile_commands.json

failed=()
step "clang-format: ${#files[@]} files"
clang-format --dry-run -Werror "${files[@]}" || failed+=(clang-format)
step "clang-tidy: ${#sources[@]} files"
printf '%s\0' "${sources[@]}" |
  xargs -0 -n 1 -P "$(nproc)" clang-tidy --quiet -p build/lint 2>/dev/null || failed+=(clang-tidy)
[ ${#failed[@]} -eq 0 ] || fail "not clean: ${failed[*]}"
step 'clean'
