#!/bin/bash
# SPDX-License-Identifier: MIT
# Compares a library's binary interface, read from its debug information, with the stored description
# and says what has changed. With VELLOMAR_RENEW=1 the description is written anew.
#
#     check_abi.sh LIBRARY DESCRIPTION
set -euo pipefail
library=$1 description=$2

if ! command -v abidiff >/dev/null; then
  echo 'skipped: abidiff (Debian: abigail-tools) is not installed'
  exit 77
fi
# What depends on the compiler or on the folder is left out.
if [ -n "${VELLOMAR_RENEW:-}" ]; then
  exec abidw --exported-interfaces-only --no-architecture --no-comp-dir-path --no-corpus-path \
    --no-elf-needed --no-parameter-names --no-show-locs --no-write-default-sizes \
    --out-file "$description" "$library"
fi
# A new row of a table is "harmless" to abidiff; here it has to be meant as well.
if ! abidiff --exported-interfaces-only --harmless --no-architecture --no-show-locs \
  "$description" "$library"; then
  echo 'The binary interface is not the one described. If that is meant (docs/abi.md):'
  echo '    VELLOMAR_RENEW=1 ctest --preset linux -R Abi'
  exit 1
fi
