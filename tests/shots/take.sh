#!/usr/bin/env bash
# take.sh VELTA-SHOTS FOLDER
# Pictures of all windows on the usual screens: at every scale, light and dark, in a larger font, filling the main
# window. Each kind has its folder. Those that docs/SCREENSHOTS.md shows come into FOLDER/docs, in few colours.
set -euo pipefail
program=$(realpath "$1")
rm -rf "$2"
mkdir -p "$2/docs"
folder=$(cd "$2" && pwd)
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export XDG_RUNTIME_DIR=$scratch
export QT_LOGGING_RULES=default.warning=false  # that a screen in memory raises no windows

# take NAME SCALE OPTION...
take() {
  local name=$1 scale=$2
  shift 2
  QT_SCALE_FACTOR=$scale "$program" "$@" "$folder/$name" >/dev/null
  echo "$folder/$name"
}

for screen in 1024x768 1366x768 1920x1080; do
  for scale in 1 1.25 1.5 2; do
    take "$screen-at-$scale" "$scale" --screen "$screen"
  done
  take "$screen-dark" 1 --screen "$screen" --dark
  take "$screen-large-font" 1 --screen "$screen" --font 13
  take "$screen-maximized" 1 --screen "$screen" --maximized
done
take 1366x768-dark-at-1.25 1.25 --dark

# for_docs NAME PICTURE
for_docs() {
  convert "$folder/$2.png" -resize '1000x>' -dither None -colors 96 -strip \
    -define png:exclude-chunks=date,time -define png:compression-level=9 "PNG8:$folder/docs/$1.png"
}
for_docs jednotlivy-vypocet 1024x768-at-1/frmJednotlivy
for_docs postupny-vypocet 1366x768-at-1.25/frmPostupny-many
for_docs faktura 1024x768-at-1/frmFaktura-empty
for_docs sazby 1366x768-dark/frmNastaveni-2
for_docs tmava-plocha 1366x768-dark/frmPostupny
for_docs maly-displej 1366x768-at-1.5/frmPostupny
for_docs velke-pismo 1366x768-large-font/frmPostupny
for_docs velky-displej 1920x1080-maximized/frmFaktura
