#!/bin/bash
# SPDX-License-Identifier: MIT
set -euo pipefail
started_in=$PWD
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage='Usage: scripts/fresh.sh [--root FOLDER] [--cache] 12|13 [COMMAND]

Makes a bare Debian 12 or 13 in the cache of the user, clones what is committed of this checkout into
it, runs ./run and then ./test there, or the shell line COMMAND, says how each ended and how long it
took, and removes the Debian again, whatever happens. Needs root, and some 6 GB of disk.

  --root FOLDER  makes it in FOLDER and leaves it there. If FOLDER has one already, it is used again,
                 with the clone brought up to date.
  --cache        shares downloaded packages, ccache and the root for Wine with the next time. Quicker,
                 but no longer from nothing.

All output goes to build/logs/fresh-*.log; the steps, the tests passed and the last lines are shown.'

usage_error() {
  printf 'fresh.sh: %s (see --help)\n' "$*" >&2
  exit 2
}

folder='' shared='' inside=''
while [ $# -gt 0 ]; do
  case $1 in
    -h | --help) say "$usage"; exit ;;
    --root)
      [ -n "${2:-}" ] || usage_error '--root wants a folder'
      folder=$(cd "$started_in" && realpath "$2")
      shift 2
      ;;
    --cache) shared=yes; shift ;;
    --inside) inside=yes; shift ;;  # this script calls itself with it, in namespaces of its own
    -*) usage_error "unknown argument: $1" ;;
    *) break ;;
  esac
done
version=${1:-}
case $version in
  12) suite=bookworm ;;
  13) suite=trixie ;;
  '') usage_error 'which Debian, 12 or 13?' ;;
  *) usage_error "unknown Debian: $version" ;;
esac
shift
commands=('./run' './test')
if [ $# -gt 0 ]; then commands=("$*"); fi
clone=/root/vellomar-controlbar  # as seen from inside
made=root/.debian-$version        # there when the root is whole

# Debian as an installer leaves it: the suite with its updates, and the proxy of this machine.
make_root() {
  local mirror proxy
  local -a options=()
  mirror=$(mirror)
  proxy=$(apt_proxy)
  if [ -n "$shared" ]; then options+=(--cache-dir="$shared_folder/packages"); fi
  case $mirror in https:*) options+=(--include=ca-certificates) ;; esac
  logged "fresh-$version-root" bare_debian "$suite" "$folder" "${options[@]}"
  cat >"$folder/etc/apt/sources.list" <<END
deb $mirror $suite main
deb $mirror $suite-updates main
deb $(mirror security) $suite-security main
END
  if [ -n "$proxy" ]; then
    echo "Acquire::http::Proxy \"$proxy\";" >"$folder/etc/apt/apt.conf.d/90proxy"
  fi
}

clone_checkout() {
  local into=$folder$clone
  if [ -d "$into" ]; then
    git -C "$into" fetch --quiet "$root" HEAD
    git -C "$into" reset --quiet --hard FETCH_HEAD
  else
    git clone --quiet --no-hardlinks "$root" "$into"
  fi
  step "cloned $(git -C "$into" log -1 --format='%h %s')"
}

# What programs expect of a running system. The root is a mount of its own, or bwrap could not leave it.
mount_system() {
  mount --bind "$folder" "$folder"
  mount -t proc proc "$folder/proc"
  mount -t devpts -o newinstance,ptmxmode=0666,mode=0620 devpts "$folder/dev/pts"
  mount -t tmpfs -o mode=1777 tmpfs "$folder/dev/shm"
  if [ -z "$shared" ]; then return; fi
  mkdir -p "$folder/root/.cache"
  mount --bind "$shared_folder/packages" "$folder/var/cache/apt/archives"
  mount --bind "$shared_folder/home" "$folder/root/.cache"
}

# enter LINE: runs it in the clone, with nothing of this machine's environment.
enter() {
  chroot "$folder" /usr/bin/env -i HOME=/root TERM=dumb \
    PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
    bash -c 'cd "$1" && eval "$2"' bash "$clone" "$1"
}

# run_inside NUMBER LINE
run_inside() {
  local log=$root/build/logs/fresh-$version-$1.log started=$SECONDS ended=passed
  step "running $2 (build/logs/${log##*/})"
  enter "$2" </dev/null 2>&1 | tee "$log" |
    sed -u -nE '/^\[ *[0-9]+ s\]|tests passed/s/^/    /p' || ended=FAILED
  tail -n 15 "$log" | sed 's/^/  | /'
  step "$ended in $((SECONDS - started)) s on Debian $version: $2"
  [ "$ended" = passed ]
}

inside() {
  local number=0 line
  mkdir -p build/logs ${shared:+"$shared_folder/packages" "$shared_folder/home"}
  if [ ! -e "$folder/$made" ]; then
    [ -z "$(ls -A "$folder")" ] || fail "$folder is neither empty nor a Debian $version of this script"
    step "making Debian $version ($suite) in $folder"
    make_root
    touch "$folder/$made"
  fi
  clone_checkout
  mount_system
  for line in "${commands[@]}"; do
    number=$((number + 1))
    run_inside "$number" "$line" || fail "failed: $line"
  done
}

shared_folder=$cache/fresh-$suite
if [ -n "$inside" ]; then
  inside
  exit
fi

[ "$(id -u)" -eq 0 ] || fail 'needs root: it makes a root folder, mounts in it and enters it'
need_packages fresh
git rev-parse --git-dir >/dev/null || fail 'this is not a git checkout'
if [ -n "$(git status --porcelain)" ]; then
  step 'what is not committed is not tested:'
  git status --short
fi
mkdir -p "$cache" ${folder:+"$folder"}
removed=
if [ -z "$folder" ]; then
  folder=$(mktemp -d "$cache/debian-$version.XXXXXX")
  removed=$folder
fi

# Ends what still runs inside, then removes the root.
clean_up() {
  # The first process of the namespace: with it go all others, and their mounts.
  if [ -n "$child" ] && pkill -KILL -P "$child"; then wait "$child" || true; fi
  if [ -z "$removed" ]; then return; fi
  if findmnt --list --noheadings --output TARGET | grep -qE "^$removed(/|\$)"; then
    fail "something is mounted below $removed, which is left where it is"
  fi
  rm -rf --one-file-system "$removed"
  step "removed $removed"
}
child=
trap clean_up EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# In namespaces of its own, so that no mount and no process outlives it. In the background, so that a
# signal is not kept waiting.
unshare --mount --pid --fork --kill-child --mount-proc "$root/scripts/fresh.sh" --inside --root "$folder" \
  ${shared:+--cache} "$version" ${1:+"$*"} &
child=$!
status=0
wait "$child" || status=$?
child=
exit "$status"
