#!/usr/bin/env bash
# Makes the pictures of play in docs/ from a demo: six screenshots and a short animation. Needs ffmpeg.
#     tools/play_pictures.sh [DEMO]
set -euo pipefail
cd "$(dirname "$0")/.."
demo=${1:-demos/finish.demo}
every=6                                  # ten pictures a second; all frames below are multiples of it
shots="330 1242 1428 1638 1950 2166"     # frames that become docs/play-1.png to play-6.png
scenes="186-402 1320-1464 2106-2220"     # frames of the animation

frames=$(mktemp -d)
trap 'rm -rf "$frames"' EXIT
build/release/demo_player "$demo" --frames "$frames" --every "$every" >/dev/null

number=0
for frame in $shots; do
    number=$((number + 1))
    ffmpeg -v error -y -i "$frames/$(printf %06d "$frame").png" -vf format=rgb24,scale=512:448:flags=neighbor "docs/play-$number.png"
done

picture=0
for scene in $scenes; do
    for frame in $(seq "${scene%-*}" "$every" "${scene#*-}"); do
        ln -s "$frames/$(printf %06d "$frame").png" "$frames/scene-$(printf %04d $picture).png"
        picture=$((picture + 1))
    done
done
ffmpeg -v error -y -framerate 10 -i "$frames/scene-%04d.png" -filter_complex \
    "format=rgb24,scale=512:448:flags=neighbor,split[a][b];[a]palettegen=max_colors=64[p];[b][p]paletteuse=dither=none" docs/play.gif
ls -l docs/play*
