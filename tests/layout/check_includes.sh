#!/bin/bash
# SPDX-License-Identifier: MIT
# check_includes.sh ROOT: fails where a file includes one of a room below its own. The rooms stand in
# ROOT/CONTRIBUTING.md, a row each.
set -euo pipefail
cd "$1"

mapfile -t rooms < <(sed -n '/^## Rooms/,/^## [^R]/s/^| `\([^`]*\)`.*/\1/p' CONTRIBUTING.md)
[ ${#rooms[@]} -gt 0 ] || { echo 'no rooms in CONTRIBUTING.md' >&2; exit 1; }

# What an #include starts from, below one of the folders that the compiler is given.
roots=(include src stand_ins/include stand_ins/widgets .)

# room_of PATH: its place in the table; nothing where it is in none.
room_of() {
  local i
  for i in "${!rooms[@]}"; do
    [[ $1 == "${rooms[i]}"* ]] && echo "$i" && return
  done
  return 0
}

failed=0
while IFS=: read -r file include; do
  own=$(room_of "$file")
  for root in "${roots[@]}"; do
    [ -e "$root/$include" ] || continue
    other=$(room_of "${root#.}${root:+/}$include" | head -n 1)
    [ "$root" != . ] || other=$(room_of "$include")
    if [ -n "$other" ] && [ "$other" -gt "$own" ]; then
      echo "$file includes $include, which is below it" >&2
      failed=1
    fi
    break
  done
done < <(for room in "${rooms[@]}"; do
  grep -rHo --include='*.h' --include='*.cpp' --include='*.def' '^#include "[^"]*"' "$room" |
    sed 's/:#include "\(.*\)"/:\1/'
done)
exit $failed
