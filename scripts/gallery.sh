#!/bin/bash
# SPDX-License-Identifier: MIT
# Draws docs/gallery/ from scenarios/gallery.json, in three languages; ./run --gallery calls it after
# building.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/lib.sh"

languages=(en zh ar)  # those of scenarios/texts/ that differ most
bin=build/linux/bin
work=build/gallery
gallery=docs/gallery

# draw LANGUAGE: plays the scenario with the language's texts, without a display.
draw() {
  local scenario=$work/$1/gallery.json
  mkdir -p "$work/$1"
  ln -sfn "$root/scenarios/texts" "$work/$1/texts"
  sed "s|texts/en.json|texts/$1.json|" scenarios/gallery.json >"$scenario"
  env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen \
    "$bin/controlbar-host" play "$scenario" --widgets qt --out "$work/$1" --quiet
}

# draw_workbench LANGUAGE: where the workbench is part of the build.
draw_workbench() {
  env -u DISPLAY -u WAYLAND_DISPLAY QT_QPA_PLATFORM=offscreen \
    "$bin/controlbar-workbench" --plugin build/linux/lib/libvellomar-controlbar.so --preset host \
    --language "$1" --settings "$work/$1/workbench.ini" --screenshot "$work/$1/workbench.png"
}

# "FILE NOTE" for each picture of the scenario, in its order: the note is the one before it.
pictures() {
  sed -nE 's/^ *\{"(note|screenshot)": "(.*)"\},?$/\1 \2/p' scenarios/gallery.json |
    while read -r kind text; do
      case $kind in
        note) note=$text ;;
        screenshot) say "$text $note" ;;
      esac
    done
  [ ! -x "$bin/controlbar-workbench" ] || say 'workbench.png The workbench'
}

# page: a row for each picture, the languages below one another, as wide as the page.
page() {
  say '# Gallery

What the development build of the widget library draws, in English, Chinese and Arabic, three of the
languages of `scenarios/texts/`. `./run --gallery` makes this page and its pictures from
[`scenarios/gallery.json`](../../scenarios/gallery.json).

| | |
| --- | --- |'
  local file note language cells
  pictures | while read -r file note; do
    cells=
    for language in "${languages[@]}"; do cells+="${cells:+<br>}![$note ($language)]($language/$file)"; done
    say "| $note | $cells |"
  done
}

rm -rf "$work"
for language in "${languages[@]}"; do
  step "drawing the gallery: $language"
  logged "gallery-$language" draw "$language"
  if [ -x "$bin/controlbar-workbench" ]; then
    logged "gallery-workbench-$language" draw_workbench "$language"
  fi
  rm -rf "${gallery:?}/$language"
  mkdir -p "$gallery/$language"
  # Of the bar as many pixels as on a plain screen: a fifth of the size, and as easily read.
  mogrify -resize 50% "$work/$language"/[a-v]*.png
  mogrify -path "$gallery/$language" +dither -colors 128 -define png:compression-level=9 \
    -define png:exclude-chunks=all "$work/$language"/*.png
done
page >"$gallery/README.md"
step "the gallery: $root/$gallery/README.md"
