#!/bin/bash
# SPDX-License-Identifier: MIT
# Reads the headers of the built plug-in, of either system, and says what is not as it should be.
#
#     check_plugin.sh PLUGIN OBJDUMP
set -euo pipefail
plugin=$1 objdump=$2
failed=0

# check WHAT COMMAND...: one line a check.
check() {
  local what=$1
  shift
  if "$@"; then
    printf 'ok      %s\n' "$what"
  else
    printf 'FAILED  %s\n' "$what"
    failed=1
  fi
}

same() { diff <(printf '%s\n' "$1") <(printf '%s\n' "$2"); }
has() { grep -qE -- "$2" <<<"$1"; }
has_none() { ! grep -E -- "$2" <<<"$1"; }
each() { [ -n "$1" ] && ! grep -vE -- "$2" <<<"$1"; }

exports='ExportedCallDrop
ExportedCallEvent
ExportedInit
ExportedOnDelegate
ExportedOnReceive
ExportedStart
ExportedStop
ExportedUninit'

headers=$("$objdump" -p "$plugin")

# The names that stand in the table, in its order: the system searches it by halves.
windows() {
  local names imports libraries
  # Newer binutils print the ordinal before a name, too.
  names=$(sed -nE '/^\[Ordinal\/Name Pointer\]/,/^$/s/^\t\[ *[0-9]+\] (\+base\[ *[0-9]+\] +[0-9a-f]+ )?//p' \
    <<<"$headers")
  libraries=$(sed -n 's/^\tDLL Name: //p' <<<"$headers")
  imports=$(sed -nE '/DLL Name: vellomar-lorimel.dll/,/^$/s/^\t[0-9a-f]+[\t ].*  //p' <<<"$headers")

  check 'is a 32-bit library' has "$headers" 'file format pei-i386'
  check 'exports the eight names, undecorated, and nothing else' same "$exports" "$names"
  check 'imports from Windows, the widget library and the log library only' \
    each "$libraries" '^(ADVAPI32|KERNEL32|msvcrt|vellomar-lorimel|vellomar-log-dll)\.dll$'
  check 'knows the widget library by the names of the Microsoft C++ ABI' \
    each "$imports" '^\?[A-Za-z]+@Lorimel@VELLOMAR_LORIMEL@@[SQ]A'
  check 'data is not run (NX_COMPAT)' has "$headers" 'NX_COMPAT'
  check 'can be moved (DYNAMIC_BASE)' has "$headers" 'DYNAMIC_BASE'
  check 'says where to move it (.reloc)' has "$headers" 'PE File Base Relocations'
  check 'the stack is guarded' has "$("$objdump" -t "$plugin")" '__stack_chk_fail'
  check 'has a version' has "$(strings -e l "$plugin")" '^OriginalFilename$'
}

linux() {
  local symbols
  symbols=$("$objdump" -T "$plugin")
  check 'exports the eight names and nothing else' same "$exports" \
    "$(awk '/ g / && !/\*UND\*/ && $NF != "" {print $NF}' <<<"$symbols" | sort)"
  check 'needs the widget library and the log library' \
    has "$(grep -c -E 'NEEDED .*libvellomar-(lorimel|log-dll)\.so' <<<"$headers")" '^2$'
  check 'does not bring fmt into the process' has_none "$headers" 'NEEDED .*libfmt'
  check 'tables are read-only once it is loaded (RELRO)' has "$headers" '^ +RELRO'
  check 'all of it (BIND_NOW)' has "$headers" '^ +(FLAGS_1 .*|BIND_NOW.*|FLAGS +0x0*[0-9a-f]*8$)'
  check 'the stack is guarded' has "$symbols" '__stack_chk_fail'
  check 'data is not run' has "$(grep -A1 STACK <<<"$headers" | tail -n 1)" 'flags rw-'
}

case $plugin in
  *.dll) windows ;;
  *) linux ;;
esac
exit "$failed"
