#!/bin/bash
# SPDX-License-Identifier: MIT
# Runs a 32-bit Windows program of a build folder, and tells how it ended with its exit status.
#
#     scripts/wine.sh BUILD_FOLDER PROGRAM [ARGUMENT...]
#     scripts/wine.sh BUILD_FOLDER --prepare     does what takes long beforehand
#     scripts/wine.sh BUILD_FOLDER --stop        ends Wine's server and what runs there
#
# A Wine on the PATH is used if it runs 32-bit programs. Otherwise Debian's comes from a root folder
# of its own in the user's cache, which leaves the system's packages alone; it is made once and
# entered with bwrap. There the program sees the project and the build folder and nothing else, and
# changes the build folder only.
# Each build folder has a Wine prefix (registry, drive C:) of its own.
set -euo pipefail
started_in=$PWD
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

case ${1:-} in
  '' | -h | --help)
    sed -n '/^# Runs/,/^set/{s/^# \{0,1\}//;/^set/d;p}' "${BASH_SOURCE[0]}"
    exit
    ;;
esac
[ $# -ge 2 ] || fail 'names no program (see --help)'

build=$(cd "$started_in" && realpath "$1")
shift
state=$build/wine  # what belongs to Wine in the build folder
suite=$(debian_suite)
wine_root=$cache/wine-$suite-i386
chosen=$state/chosen-$suite

export WINEPREFIX=$state/prefix
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES='mscoree,mshtml=;winemenubuilder.exe=d'  # none of our programs needs them
export WINEPATH=${WINEPATH-"Z:${build//\//\\}\\bin"}              # where the libraries are found
unset DISPLAY WAYLAND_DISPLAY

# The folders of the root that hold programs, then what the program needs of this machine: the project
# may lie in any other, /root or /home or /var. The temporary folder is shared by all programs of the
# build folder: there they find Wine's server.
in_root() {
  local entry folder=$build
  local -a mounts=()
  for entry in "$wine_root"/*; do
    case ${entry##*/} in bin | etc | lib* | sbin | usr) ;; *) continue ;; esac
    if [ -L "$entry" ]; then
      mounts+=(--symlink "$(readlink "$entry")" "/${entry##*/}")
    else
      mounts+=(--ro-bind "$entry" "/${entry##*/}")
    fi
  done
  case $started_in/ in "$root"/* | "$build"/*) folder=$started_in ;; esac
  bwrap "${mounts[@]}" --proc /proc --dev /dev --bind "$state/tmp" /tmp --ro-bind "$root" "$root" \
    --bind "$build" "$build" --chdir "$folder" --setenv HOME /tmp \
    --setenv XDG_CACHE_HOME /tmp --setenv FONTCONFIG_FILE "$state/fonts.conf" --die-with-parent "$@"
}

# with_wine COMMAND...: with the Wine of the system, or with ours.
with_wine() {
  if [ "$wine" = system ]; then "$@"; else in_root "$@"; fi
}

make_root() {
  need_packages wine
  step "making a root for 32-bit Wine: $wine_root"
  mkdir -p "$(dirname "$wine_root")"
  as_root rm -rf "$wine_root.partial"
  logged wine-root bare_debian "$suite" "$wine_root.partial" --arch=i386 --include=wine32,wine
  as_root rm -rf "$wine_root.partial/var/cache/apt/archives" "$wine_root.partial/var/lib/apt/lists"
  as_root mv "$wine_root.partial" "$wine_root"
}

# Makes the prefix; fails unless it runs 32-bit programs.
make_prefix() {
  local folder=system32
  rm -rf "$WINEPREFIX"
  with_wine wine wineboot --init || return 1
  if [ -d "$WINEPREFIX/drive_c/windows/syswow64" ]; then folder=syswow64; fi
  with_wine wine "C:\\windows\\$folder\\cmd.exe" /c exit 0
}

# Chooses a Wine and makes the prefix, once; others that ask meanwhile wait for the lock on
# descriptor 9, which Wine's server must not keep.
prepare() {
  flock 9
  if [ -s "$chosen" ]; then return; fi
  step "preparing Wine in $state"
  # Debian's own has relative names, and asks for the working folder to complete them. A program that
  # finds Wine's server at work got that folder from another root, where it has no name.
  echo '<fontconfig><dir>/usr/share/fonts</dir><cachedir>/tmp/fonts</cachedir></fontconfig>' \
    >"$state/fonts.conf"
  wine=system
  if ! command -v wine >/dev/null || ! make_prefix >"$state/wineboot.log" 2>&1 9>&-; then
    wine=own
    [ -d "$wine_root" ] || make_root
    need_packages wine
    logged wineboot make_prefix 9>&-
  fi
  echo "$wine" >"$chosen"
}

mkdir -p "$state/tmp"
[ -s "$chosen" ] || prepare 9>"$state/lock"
wine=$(<"$chosen")
# The server and the services stay for the next program, and without the caller's output: whoever
# reads that through a pipe, as ctest does, would wait for them.
run='if wineserver --persistent=300; then wine cmd.exe /c exit; fi </dev/null >/dev/null 2>&1
exec wine "$@"'
cd "$started_in"
case $1 in
  --prepare) ;;
  --stop) with_wine wineserver --kill || true ;;
  *) with_wine sh -c "$run" wine "$@" ;;
esac
