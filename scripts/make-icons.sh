#!/bin/sh
# Makes the program's .ico files from the drawings beside them, and the picture on the installer's last page. Run it after
# a drawing has changed. The results are committed, so that a build needs neither rsvg-convert nor icotool.
set -eu
cd "$(dirname "$0")/.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

for drawing in ui/icons/*.svg script/icons/*.svg; do
    name=$(basename "$drawing" .svg)
    case $name in
        sort-*) sizes="8 10 12 16" ;;
        *) sizes="16 20 24 32 48 256" ;;
    esac
    set --
    for size in $sizes; do
        picture=$work/$name-$size.png
        rsvg-convert --width "$size" --height "$size" --output "$picture" "$drawing"
        # The largest size is a PNG, which Windows accepts; as a bitmap it would take a quarter megabyte.
        if [ "$size" -eq 256 ]; then set -- "$@" "--raw=$picture"; else set -- "$@" "$picture"; fi
    done
    icotool --create --output "${drawing%.svg}.ico" "$@"
done

rsvg-convert --width 96 --height 96 --output "$work/side.png" ui/icons/program.svg
convert -size 164x314 xc:white "$work/side.png" -gravity north -geometry +0+60 -composite -colors 16 -type Palette \
    -compress none BMP3:packaging/side.bmp
