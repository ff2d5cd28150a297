#!/usr/bin/env bash
# Redraws the PNG of every picture here from its SVG, at the size that the SVG gives. Needs rsvg-convert
# (Debian: librsvg2-bin). A new picture of the product is an SVG here and a row in src/package/ProductPictures.cpp.
#   assets/pictures/render.sh [NAME...]    all of them by default
set -euo pipefail

cd "$(dirname "$0")"
names=("$@")
[[ ${#names[@]} -gt 0 ]] || names=(*.svg)
largest=250000 # bytes; the pictures are part of every program
status=0
for name in "${names[@]}"; do
    name=${name%.svg}
    rsvg-convert "$name.svg" --output "$name.png"
    size=$(stat --format=%s "$name.png")
    echo "$name.png: $size bytes"
    [[ $size -le $largest ]] || {
        echo "$name.png is larger than $largest bytes" >&2
        status=1
    }
done
exit $status
