#!/bin/bash
# SPDX-License-Identifier: MIT
# Puts small faults into src/, one at a time, and tells which of them the tests notice.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

usage='Usage: scripts/mutate.sh [--list] [--at-once N] [WORD...]

Puts the faults of tests/mutants/*.txt into copies of the sources, one at a time, builds the plug-in'"'"'s
tests and runs them, the quickest first. Prints for each fault which test noticed it, and at the end
the score by folder. With words: only faults whose file, number or reason contains one of them.

The checkout is never changed: the faults go into build/mutants/. A fault that the tests do not notice
is tried once more with the address and undefined-behaviour sanitizers. Exit status 1 where one is not
noticed, 2 where one does not apply or compile.

The form of a fault, each line of the old and new text behind its mark:

    == src/frame/entry/exports.cpp: a null payload is taken
    - if (payload == nullptr) return false;
    + if (payload == nullptr) return true;

The old text stands in the file exactly once; blanks at the start of its lines do not count. A fault that
nobody outside can see is marked "equivalent: why" in a line of its own, and is only counted.'

at_once=2
list=
words=()
while [ $# -gt 0 ]; do
  case $1 in
    -h | --help)
      say "$usage"
      exit
      ;;
    --list) list=yes ;;
    --at-once) at_once=${2:?--at-once needs a number} && shift ;;
    -*) fail "unknown argument: $1 (see --help)" ;;
    *) words+=("$1") ;;
  esac
  shift
done

work=$root/build/mutants
mkdir -p "$work"

# One line a fault: number, file, reason, equivalent or not; and its texts in files of their own.
split_faults() {
  rm -rf "$work/faults" && mkdir -p "$work/faults"
  perl -e '
    my ($dir, @files) = @ARGV; my $n = 0; my $f;
    for my $name (@files) {
      open my $in, "<", $name or die "$name: $!\n";
      my ($base) = $name =~ m{([^/]+)\.txt$};
      $n = 0;
      while (<$in>) {
        chomp;
        if (/^== (\S+): (.+)$/) { $n++; push @all, $f = {id => "$base-$n", file => $1, why => $2, eq => ""}; }
        elsif (/^- ?(.*)$/ && $f) { push @{$f->{old}}, $1 }
        elsif (/^\+ ?(.*)$/ && $f) { push @{$f->{new}}, $1 }
        elsif (/^equivalent: (.+)$/ && $f) { $f->{eq} = $1 }
        elsif (!/^\s*(#.*)?$/) { die "$name:$.: not a line of a fault: $_\n" }
      }
    }
    for my $f (@all) {
      die "$f->{id}: no old text\n" unless $f->{old};
      for my $side ("old", "new") {
        open my $out, ">", "$dir/$f->{id}.$side" or die;
        print $out join("\n", @{$f->{$side} || []});
      }
      print join("\t", $f->{id}, $f->{file}, $f->{why}, $f->{eq}), "\n";
    }' "$work/faults" tests/mutants/*.txt >"$work/faults/list"
}

# apply FAULT FILE TREE: blanks that begin a line are taken as they come. Fails unless it applies once.
apply() {
  perl -e '
    my ($fault, $file) = @ARGV; local $/;
    my ($old, $new, $text) = map { open my $in, "<", $_ or die "$_: $!\n"; scalar <$in> }
      "$fault.old", "$fault.new", $file;
    $new = "" unless defined $new;
    my $pattern = join "\\s*\\n\\s*", map { my $l = $_; $l =~ s/^\s+|\s+$//g; quotemeta $l } split /\n/, $old;
    my $times = () = $text =~ /$pattern/g;
    die "stands $times times in the file\n" unless $times == 1;
    $text =~ s/$pattern/$new/;
    open my $out, ">", $file or die; print $out $text;' "$work/faults/$1" "$3/$2"
}

# Tests by how quickly they tell, and by whether the sanitizers are on.
tests=(stream-test plugin-test exports-test out-of-memory-test allocations-test)

program() { find "$1" -type f -name "$2" -perm -u+x | head -n 1; }

# run_tests BUILD: prints the first that fails; nothing where all pass. 2: does not compile.
run_tests() {
  local build=$1 test binary status
  for test in "${tests[@]}"; do
    ninja -C "$build" -t query "$test" >/dev/null 2>&1 || continue
    ninja -C "$build" "$test" >"$build.log" 2>&1 || return 2
    binary=$(program "$build" "$test")
    status=0
    timeout 300 "$binary" --gtest_brief=1 --gtest_fail_fast >"$build.out" 2>&1 || status=$?
    if [ $status -eq 124 ]; then  # a loop without end, or a machine that is very busy: look
      say "$test: no end within 300 s"
      return
    elif [ $status -gt 128 ]; then
      say "$test: signal $((status - 128))"
      return
    elif [ $status -ne 0 ]; then
      say "$test: $(grep -m 1 -oE '^\[  FAILED  \] [^ ,(]+|ERROR: [A-Za-z]+Sanitizer: [a-z-]+|runtime error.*' \
        "$build.out" | sed 's/^\[  FAILED  \] //' | head -n 1)"
      return
    fi
  done
}

# make_tree N: a copy of the sources, brought up to date with the checkout. Only what differs is
# written, so that the builds of the last time still hold.
make_tree() {
  local tree=$work/$1/tree
  mkdir -p "$tree"
  git ls-files --cached --others --exclude-standard | while read -r file; do
    cmp -s "$file" "$tree/$file" || { mkdir -p "$(dirname "$tree/$file")" && cp -pf "$file" "$tree/$file"; }
  done
}

# prepare_build N KIND ARGUMENT...: and sees that all tests pass without a fault.
prepare_build() {
  local n=$1 kind=$2 told
  shift 2
  step "copy $n without a fault, $kind"
  cmake -S "$work/$n/tree" -B "$work/$n/$kind" -G Ninja -DCMAKE_BUILD_TYPE=Debug "$@" \
    >"$work/$n/configure.log" 2>&1 || fail "not configured: $work/$n/configure.log"
  told=$(run_tests "$work/$n/$kind") || fail "the sources do not build: $work/$n/$kind.log"
  [ -z "$told" ] || fail "the tests fail without a fault: $told"
}

# try N KIND ID FILE WHY: one fault in copy N; a line to the results, or to those who got through.
try() {
  local build=$work/$1/$2 id=$3 file=$4 why=$5 tree=$work/$1/tree told status=0 result=noticed
  if ! told=$(apply "$id" "$file" "$tree" 2>&1); then
    result='does not apply'
  else
    told=$(run_tests "$build") || status=$?
    if [ $status -ne 0 ]; then
      result='does not compile' told=$(grep -m 1 -E 'error:' "$build.log" || true)
    elif [ -z "$told" ]; then
      result='not noticed'
    fi
    cp -p "$root/$file" "$tree/$file" && touch "$tree/$file"
  fi
  printf '%-16s %-12s %s: %s%s\n' "$result" "$id" "$file" "$why" "${told:+ ($told)}"
  if [ "$result" = 'not noticed' ]; then
    printf '%s\t%s\t%s\n' "$id" "$file" "$why" >>"$work/through"
  else
    printf '%s\t%s\t%s\t%s\t%s\n' "$id" "$file" "$result" "$why" "$told" >>"$work/results"
  fi
}

# worker N KIND: takes faults from the queue until it is empty.
worker() {
  local line id file why
  while :; do
    line=$(flock "$work/lock" sh -c 'head -n 1 "$1"; sed -i 1d "$1"' sh "$work/queue")
    [ -n "$line" ] || return 0
    IFS=$'\t' read -r id file why <<<"$line"
    try "$1" "$2" "$id" "$file" "$why"
  done
}

# run_queue KIND: all copies at once. What gets through is in "$work/through" then.
run_queue() {
  local n
  step "$(wc -l <"$work/queue") faults, $at_once at a time, $1"
  : >"$work/through"
  trap 'kill $(jobs -p) 2>/dev/null || true' EXIT
  for n in $(seq "$at_once"); do worker "$n" "$1" & done
  wait
  trap - EXIT
}

split_faults
: >"$work/queue"
: >"$work/results"
while IFS=$'\t' read -r id file why equivalent; do
  chosen=yes
  if [ ${#words[@]} -gt 0 ]; then
    chosen=
    for word in "${words[@]}"; do [[ "$id $file $why" == *"$word"* ]] && chosen=yes; done
  fi
  [ -n "$chosen" ] || continue
  if [ -n "$equivalent" ]; then
    printf '%s\t%s\tequivalent\t%s\t%s\n' "$id" "$file" "$why" "$equivalent" >>"$work/results"
  else
    printf '%s\t%s\t%s\n' "$id" "$file" "$why" >>"$work/queue"
  fi
done <"$work/faults/list"
if [ -n "$list" ]; then
  cat "$work/queue" "$work/results"
  exit
fi

need_packages
for n in $(seq "$at_once"); do
  make_tree "$n"
  prepare_build "$n" plain -DCMAKE_CXX_FLAGS=-g0
done
run_queue plain
if [ -s "$work/through" ]; then  # reads of memory that is gone are seen by the sanitizers alone
  for n in $(seq "$at_once"); do
    prepare_build "$n" asan -DVELLOMAR_SANITIZE=ON -DCMAKE_CXX_FLAGS=-g1
  done
  cp "$work/through" "$work/queue"
  run_queue asan
  while IFS=$'\t' read -r id file why; do
    printf '%s\t%s\tnot noticed\t%s\t\n' "$id" "$file" "$why" >>"$work/results"
  done <"$work/through"
fi

# Score: by the folder below src/.
say
perl -F'\t' -ane '
  my ($folder) = $F[1] =~ m{^((?:src|include)/?[^/]*)};
  $count{$_}{$F[2]}++ for $folder, "~all"; $kinds{$F[2]} = 1;
  END { for my $f (sort keys %count) { my $c = $count{$f};
      my ($yes, $no) = ($c->{noticed} // 0, $c->{"not noticed"} // 0);
      printf "%-16s %3d noticed, %2d not, %2d equivalent%s: %s %%\n", $f eq "~all" ? "all" : $f, $yes, $no,
        $c->{equivalent} // 0, join("", map { ", $c->{$_} $_" } grep { $c->{$_} } "does not apply", "does not compile"),
        $yes + $no ? sprintf("%.1f", 100 * $yes / ($yes + $no)) : "-"; } }' "$work/results"
if grep -qE $'\t(does not apply|does not compile)\t' "$work/results"; then exit 2; fi
! grep -q $'\tnot noticed\t' "$work/results"
