#!/bin/bash
# SPDX-License-Identifier: MIT
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

changed=
case ${1:-} in
  -h | --help)
    say 'Usage: scripts/lint.sh [--changed | FILE...]

Checks the C and C++ files of the repository with clang-format and clang-tidy and says which are not
clean: all of them, those named, or those that changed since the last release with the sources that
include them (all where there was no release). Uses the compile commands of the presets linux and,
for what Linux does not compile, windows.

clang-format is version 19, which Debian 12 and 13 both have. Of clang-tidy version 14 counts, that of
Debian 12; of others, findings are only shown.'
    exit
    ;;
  --changed) changed=yes; shift ;;
  -*) fail "unknown argument: $1 (see --help)" ;;
esac

need_packages lint windows
configure linux
configure windows

# Also of a copy that is no repository.
all_files() {
  git ls-files --cached --others --exclude-standard -- '*.c' '*.h' '*.cpp' 2>/dev/null ||
    find . \( -path ./build -o -path ./out \) -prune -o -name '*.[ch]' -print -o -name '*.cpp' -print |
    sed 's#^\./##'
}

# changed_files RELEASE: what changed since then, and what includes that, through any number of
# headers. Headers are told apart by their last name only: rather too many files than too few.
changed_files() {
  {
    git diff --name-only --diff-filter=d "$1"
    git ls-files --others --exclude-standard
    git grep --untracked -oE '#include "[^"]+"' -- '*.c' '*.h' '*.cpp' '*.def'
  } | awk -F ':#include ' '
    function last(path) { sub(/.*\//, "", path); return path }
    NF == 1 && /\.(c|h|cpp|def)$/ { found[$1]; names[last($1)] }
    NF == 2 { gsub(/"/, "", $2); file[++edges] = $1; included[edges] = last($2) }
    END {
      do {
        before = length(found)
        for (i = 1; i <= edges; ++i) {
          if (included[i] in names) { found[file[i]]; names[last(file[i])] }
        }
      } while (length(found) > before)
      for (path in found) if (path !~ /\.def$/) print path
    }' | sort
}

files=("$@")
if [ -n "$changed" ] && release=$(git describe --tags --abbrev=0 2>/dev/null) &&
  git diff --quiet "$release" -- .clang-format '*.clang-tidy' scripts/lint.sh; then
  step "what changed since $release"
  mapfile -t files < <(changed_files "$release")
  if [ ${#files[@]} -eq 0 ]; then
    step 'nothing'
    exit
  fi
elif [ ${#files[@]} -eq 0 ]; then
  mapfile -t files < <(all_files)
  [ ${#files[@]} -gt 0 ] || fail 'git knows of no files here'
fi

# commands PRESET: what each file is compiled with, a tab, the file; without what does not matter here
# and what only GCC understands, so that many files are compiled with the same.
commands() {
  sed -nE '/^  "(command|file)": /{s///; s/^"//; s/",?$//; s/^[^ ]*ccache //; s/ -o .*//
    s/ -[fgOW][^ ]*//g; s/ -D[A-Za-z_]+_EXPORTS//g; s/\\(["\\])/\1/g; p}' \
    "build/$1/compile_commands.json" | paste - -
}

# batches PRESET: files that are compiled alike, ten at most, a line each: the command and the files,
# with tabs. What takes long is the library's headers, and they are then read once.
batches() {
  commands "$1" | awk -F '\t' -v root="$root/" -v wanted="$(printf '%s\n' "${files[@]}")" '
    BEGIN { n = split(wanted, names, "\n"); for (i = 1; i <= n; ++i) want[root names[i]] = 1 }
    !want[$2] || done[$2]++ { next }
    { batch[$1] = batch[$1] "\t" $2 }
    ++count[$1] % 10 == 0 { print $1 batch[$1]; batch[$1] = "" }
    END { for (command in batch) if (batch[command] != "") print command batch[command] }'
}

# tidy BATCH ARGUMENT...: as one source that includes them all. Where names of two files collide it
# is done again by halves.
tidy() {
  local -a words arguments
  local source output half half_failed
  IFS=$'\t' read -ra words <<<"$1"
  eval "arguments=(${words[0]})"
  source=$(mktemp --tmpdir="$root/build/lint" --suffix=".${words[1]##*.}")
  printf '#include "%s"  // NOLINT\n' "${words[@]:1}" >"$source"
  if output=$(clang-tidy --quiet "${@:2}" "$source" -- "${arguments[@]:1}" 2>/dev/null); then
    rm "$source"
    return
  fi
  rm "$source"
  if [ ${#words[@]} -gt 2 ] && [[ $output == *clang-diagnostic-error* ]]; then
    half=$((${#words[@]} / 2))
    half_failed=0
    tidy "$(printf '%s\t' "${words[@]:0:half+1}")" "${@:2}" || half_failed=1
    tidy "$(printf '%s\t' "${words[0]}" "${words[@]:half+1}")" "${@:2}" || half_failed=1
    return "$half_failed"
  fi
  printf '%s\n' "$output"
  return 1
}
export root
export -f tidy

# tidy_all BATCHES ARGUMENT...: as many at once as there are processors.
tidy_all() {
  [ -z "$1" ] || xargs -d '\n' -I '{}' -P "$(nproc)" bash -c 'tidy "$@"' tidy '{}' "${@:2}" <<<"$1"
}

failed=()
step "clang-format: ${#files[@]} files"
clang-format-19 --dry-run -Werror "${files[@]}" || failed+=(clang-format)

mkdir -p build/lint
for_linux=$(batches linux)
# The rest is for Windows.
mapfile -t files < <(printf '%s\n' "${files[@]}" |
  grep -vxF -f <(tr '\t' '\n' <<<"$for_linux" | sed -n "s#^$root/##p"))
for_windows=$(batches windows)
# Where MinGW's C++ headers are, which clang does not know.
mingw=$(i686-w64-mingw32-g++-posix -print-file-name=include)
step 'clang-tidy'
tidy_all "$for_linux" || failed+=(clang-tidy)
tidy_all "$for_windows" --extra-arg=--target=i686-w64-mingw32 --extra-arg=-isystem"$mingw/c++" \
  --extra-arg=-isystem"$mingw/c++/i686-w64-mingw32" || failed+=('clang-tidy for Windows')
if [ ${#failed[@]} -eq 0 ]; then
  step 'clean'
elif [[ ${failed[*]} == *clang-format* || $(clang-tidy --version) == *' version 14.'* ]]; then
  fail "not clean: ${failed[*]}"
else
  step "not clean, but not by version 14: ${failed[*]}"
fi
