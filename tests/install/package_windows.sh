#!/bin/bash
# SPDX-License-Identifier: MIT
# Packs the build for Windows, unpacks the archive and plays a scenario with what was in it.
#
#     package_windows.sh CPACK BUILD_FOLDER SCRATCH_FOLDER WINE...
set -euo pipefail
cpack=$1 build=$2 scratch=$3
shift 3

rm -rf "$scratch"
mkdir -p "$scratch"
"$cpack" --config "$build/CPackConfig.cmake" -B "$scratch" >"$scratch/cpack.log"
archives=("$scratch"/vellomar-controlbar-*-windows-x86.zip)
cmake -E chdir "$scratch" cmake -E tar xf "${archives[0]}"
unpacked=${archives[0]%.zip}

echo '-- what has to be in it'
for file in bin/{vellomar-{controlbar,lorimel,log-dll}.dll,controlbar-host.exe,res/MuteAudio.svg} \
  lib/{,lib}vellomar-{controlbar,lorimel,log-dll}{.lib,.dll.a} include/vellomar/controlbar.h \
  share/doc/vellomar-controlbar/{LICENSE,README.md,docs/commands.md} \
  share/vellomar-controlbar/scenarios/first-share.json; do
  case $file in lib/lib*.lib | lib/v*.dll.a) continue ;; esac
  [ -s "$unpacked/$file" ] || { echo "missing: $file"; exit 1; }
done

echo '-- a scenario, with nothing of the build folder'
WINEPATH='' "$@" "$unpacked/bin/controlbar-host.exe" play --out "$scratch" \
  "$unpacked/share/vellomar-controlbar/scenarios/first-share.json"
