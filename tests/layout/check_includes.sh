#!/bin/bash
# SPDX-License-Identifier: MIT
# check_includes.sh ROOT: fails where a file includes one of a room below its own, or one that is not
# written from the root of a tree. The rooms stand in ROOT/CONTRIBUTING.md, a row each.
set -euo pipefail
cd "$1"

mapfile -t rooms < <(sed -n '/^## Rooms/,/^## [^R]/s/^| `\([^`]*\)`.*/\1/p' CONTRIBUTING.md)
[ ${#rooms[@]} -gt 0 ] || { echo 'no rooms in CONTRIBUTING.md' >&2; exit 1; }

# What an #include starts from: the folders that the compiler is given.
roots=(include/ src/ stand_ins/include/ stand_ins/widgets/ '' tests/ bench/)

# room_of PATH: the place in the table of the innermost room that it is in; nothing where it is in none.
room_of() {
  local i found= longest=0
  for i in "${!rooms[@]}"; do
    [[ $1 == "${rooms[i]}"* && ${#rooms[i]} -gt $longest ]] && found=$i longest=${#rooms[i]}
  done
  echo "$found"
}

# file_of INCLUDE: the file it names; nothing where it is in no tree, as one beside the includer is.
file_of() {
  local root
  for root in "${roots[@]}"; do
    [[ $1 != *../* && -e $root$1 ]] && echo "$root$1" && return
  done
  return 0
}

failed=0
complain() { echo "$*" >&2 && failed=1; }
while IFS=: read -r file include; do
  included=$(file_of "$include")
  if [ -z "$included" ]; then
    complain "$file includes $include, which is not written from the root of a tree"
    continue
  fi
  own=$(room_of "$file") other=$(room_of "$included")
  [ -z "$own" ] || [ -z "$other" ] || [ "$other" -le "$own" ] ||
    complain "$file includes $include, which is below it"
done < <(grep -rHo --include='*.h' --include='*.c' --include='*.cpp' --include='*.def' \
  '^#include "[^"]*"' include src stand_ins host tools tests bench | sed 's/:#include "\(.*\)"/:\1/')
exit $failed
