# SPDX-License-Identifier: MIT
# What the project's scripts share. To be sourced; sets `root` and changes to it.
#
#     source "$(dirname "${BASH_SOURCE[0]}")/scripts/lib.sh"
#     need_packages
#     configure linux && build linux controlbar-host

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"

# Qt and the tests read and write UTF-8.
export LANG=${LANG:-C.UTF-8}

say() { printf '%s\n' "$*"; }

fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

# A line for each step, with the seconds since the script started.
step() { printf '[%4d s] %s\n' "$SECONDS" "$*"; }

# logged NAME COMMAND...: runs the command; its output goes to build/logs/NAME.log and is shown only
# if the command fails, which ends the script.
logged() {
  local log="$root/build/logs/$1.log"
  shift
  mkdir -p "$root/build/logs"
  if ! "$@" >"$log" 2>&1; then
    cat "$log" >&2
    fail "failed: $*"
  fi
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    env DEBIAN_FRONTEND=noninteractive "$@"
  else
    sudo env DEBIAN_FRONTEND=noninteractive "$@"
  fi
}

# missing_packages PURPOSE...: those of scripts/packages.txt that are not installed. A package
# without a purpose is always wanted.
missing_packages() {
  local package purpose
  while read -r package purpose; do
    case $package in '' | '#'*) continue ;; esac
    if [ -n "$purpose" ] && [[ " $* " != *" $purpose "* ]]; then
      continue
    fi
    if [ "$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
      printf '%s ' "$package"
    fi
  done <scripts/packages.txt
}

# need_packages PURPOSE...: installs what is missing.
need_packages() {
  command -v dpkg-query >/dev/null && command -v apt-get >/dev/null ||
    fail 'this is not a Debian-like system: install what scripts/packages.txt names by hand, then' \
      'configure, build and test with the CMake presets'
  local -a missing
  read -r -a missing <<<"$(missing_packages "$@")"
  if [ ${#missing[@]} -eq 0 ]; then
    return
  fi
  if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
    fail "needs root or sudo to install: ${missing[*]}"
  fi
  step "installing ${missing[*]}"
  logged apt-update as_root apt-get update
  logged apt-install as_root apt-get install --yes --no-install-recommends "${missing[@]}"
}

# configure PRESET
configure() {
  step "configuring $1"
  logged "configure-$1" cmake --preset "$1"
}

# build PRESET [TARGET...]: all targets where none is named.
build() {
  local preset=$1
  shift
  step "building $preset"
  logged "build-$preset" cmake --build --preset "$preset" ${1:+--target "$@"}
}
