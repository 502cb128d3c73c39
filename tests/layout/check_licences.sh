#!/bin/bash
# SPDX-License-Identifier: MIT
# check_licences.sh ROOT: fails where a source file does not say its licence in its first lines.
set -euo pipefail
cd "$1"

failed=0
while read -r file; do
  if head -n 3 "$file" | grep -q 'SPDX-License-Identifier: MIT'; then continue; fi
  echo "$file: no line \"SPDX-License-Identifier: MIT\" at its beginning" >&2
  failed=1
done < <(find . \( -path ./build -o -path ./out -o -path ./.git \) -prune -o -type f \( \
  -name '*.c' -o -name '*.h' -o -name '*.cpp' -o -name '*.def' -o -name '*.sh' -o -name '*.cmake' \
  -o -name CMakeLists.txt -o -name '*.py' -o -name run -o -name test -o -name package \) -print)
exit $failed
