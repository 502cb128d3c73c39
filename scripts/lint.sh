#!/bin/bash
# SPDX-License-Identifier: MIT
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

case ${1:-} in
  -h | --help)
    say 'Usage: scripts/lint.sh [FILE...]

Checks the C and C++ files of the repository, or those named, with clang-format and clang-tidy and
says which are not clean. Uses the compile commands of the presets linux and, for Windows sources,
windows.

What counts is what the tools of Debian 12 say (version 14); of others, findings are only shown.'
    exit
    ;;
esac

need_packages lint windows
configure linux
configure windows
build linux  # for the generated sources

files=("$@")
if [ ${#files[@]} -eq 0 ]; then
  mapfile -t files < <(git ls-files -- '*.c' '*.h' '*.cpp')
fi
# Headers are checked by clang-tidy with the sources that include them. The measurements, and what is
# built for Microsoft's ABI, are in no compile commands.
for_windows='_win32\.cpp$|^tests/msvc_abi/msvc_abi_test\.cpp$'
sources=$(printf '%s\n' "${files[@]}" | grep -E '\.c(pp)?$' |
  grep -vE '^bench/|^tests/msvc_abi/(client|tiny_lorimel)\.cpp$' || true)
mapfile -t linux_sources < <(grep -vE "$for_windows|^$" <<<"$sources")
mapfile -t windows_sources < <(grep -E "$for_windows" <<<"$sources")

# The compile commands without what only GCC understands, and without ccache, which hides from clang
# what the compiler builds for.
for preset in linux windows; do
  mkdir -p "build/lint/$preset"
  sed -E 's/ -fno-gnu-unique| -fno-keep-inline-dllexport//g; s#"[^ "]*/ccache #"#' \
    "build/$preset/compile_commands.json" >"build/lint/$preset/compile_commands.json"
done
# Where MinGW's C++ headers are, which clang does not know.
mingw=$(i686-w64-mingw32-g++-posix -print-file-name=include)

# tidy FOLDER FILES ARGUMENT...: the array FILES, as many at once as there are processors.
tidy() {
  local folder=$1
  local -n tidied=$2
  shift 2
  [ ${#tidied[@]} -eq 0 ] || printf '%s\0' "${tidied[@]}" |
    xargs -0 -n 1 -P "$(nproc)" clang-tidy --quiet -p "$folder" "$@" 2>/dev/null
}

failed=()
step "clang-format: ${#files[@]} files"
clang-format --dry-run -Werror "${files[@]}" || failed+=(clang-format)
step "clang-tidy: ${#linux_sources[@]} files for Linux, ${#windows_sources[@]} for Windows"
tidy build/lint/linux linux_sources || failed+=(clang-tidy)
tidy build/lint/windows windows_sources --extra-arg=-isystem"$mingw/c++" \
  --extra-arg=-isystem"$mingw/c++/i686-w64-mingw32" || failed+=('clang-tidy for Windows')
if [ ${#failed[@]} -eq 0 ]; then
  step 'clean'
elif [[ "$(clang-format --version)" == *' version 14.'* ]]; then
  fail "not clean: ${failed[*]}"
else
  step "not clean, but not by version 14: ${failed[*]}"
fi
