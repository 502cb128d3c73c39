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

# wanted PURPOSES PURPOSE...: whether a package for these purposes is needed for those.
wanted() {
  local purpose
  [ -n "$1" ] || return 0
  for purpose in "${@:2}"; do
    if [[ " $1 " == *" $purpose "* ]]; then return 0; fi
  done
  return 1
}

# missing_packages PURPOSE...: those of scripts/packages.txt that are not installed. A package
# without a purpose is always wanted.
missing_packages() {
  local package purposes
  while read -r package purposes; do
    case $package in '' | '#'*) continue ;; esac
    wanted "$purposes" "$@" || continue
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

# Where this project's scripts keep what takes long to make.
cache=${XDG_CACHE_HOME:-${HOME:-/root}/.cache}/vellomar-controlbar

# mirror [security]: where apt gets Debian from, or where everybody can.
mirror() {
  local label=Debian folder=debian known
  if [ "${1:-}" = security ]; then label=Debian-Security folder=debian-security; fi
  known=$(apt-get indextargets --format '$(REPO_URI)' 'Origin: Debian' "Label: $label" \
    'Component: main' 'Created-By: Packages' | head -n 1)
  known=${known:-http://deb.debian.org/$folder}
  printf '%s\n' "${known%/}"
}

# The proxy that apt goes through, if any.
apt_proxy() {
  local proxy
  proxy=$(apt-config dump --format '%v' Acquire::http::Proxy)
  printf '%s\n' "${proxy:-${http_proxy:-}}"
}

# The suite of this Debian; the stable one where this is a relative of Debian's.
debian_suite() (
  ID='' VERSION_CODENAME=''
  if [ -r /etc/os-release ]; then source /etc/os-release; fi
  if [ "$ID" = debian ]; then echo "${VERSION_CODENAME:-unstable}"; else echo stable; fi
)

# bare_debian SUITE FOLDER OPTION...: the smallest Debian of that suite, by debootstrap.
bare_debian() {
  local suite=$1 folder=$2 proxy
  shift 2
  proxy=$(apt_proxy)
  as_root ${proxy:+http_proxy="$proxy"} debootstrap --variant=minbase "$@" "$suite" "$folder" \
    "$(mirror)"
}

# configure PRESET [ARGUMENT...]
configure() {
  local preset=$1
  shift
  step "configuring $preset"
  logged "configure-$preset" cmake --preset "$preset" "$@"
}

# warnings PRESET: how many its last build printed.
warnings() {
  grep -c 'warning: ' "build/logs/build-$1.log" || true
}

# build PRESET [TARGET...]: all targets where none is named. Says if there were warnings.
build() {
  local preset=$1
  shift
  step "building $preset"
  logged "build-$preset" cmake --build --preset "$preset" ${1:+--target "$@"}
  [ "$(warnings "$preset")" -eq 0 ] ||
    step "$(warnings "$preset") warnings, in build/logs/build-$preset.log"
}
