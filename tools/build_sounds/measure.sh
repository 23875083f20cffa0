#!/bin/sh
# Measures every sound as players hear it, decoded from its file, and draws its waveform.
# usage: tools/build_sounds/measure.sh [SOUND-FOLDER [PICTURE-FOLDER]]; prints the table of docs/sounds.md.
set -eu
sounds=${1:-Resources/Sound}
pictures=${2:-}
scratch=$(mktemp)
trap 'rm -f "$scratch"' EXIT

echo '| file | seconds | kbit/s | loudness LUFS | range LU | true peak dBTP | sample peak dBFS | silence before ms |'
echo '|---|---|---|---|---|---|---|---|'
for file in "$sounds"/*.mp3; do
    name=$(basename "$file" .mp3)
    report=$(ffmpeg -hide_banner -nostats -i "$file" -af ebur128=peak=true+sample:framelog=verbose -f null - 2>&1)
    # the summary has two lines "Peak:", first the sample peak, then the true peak
    loudness=$(echo "$report" | awk '$1 == "I:" {print $2}')
    range=$(echo "$report" | awk '$1 == "LRA:" {print $2}')
    samplePeak=$(echo "$report" | awk '/Sample peak/ {s = 1} $1 == "Peak:" && s {print $2; exit}')
    truePeak=$(echo "$report" | awk '/True peak/ {t = 1} $1 == "Peak:" && t {print $2; exit}')
    rate=$(ffprobe -v error -show_entries format=bit_rate -of csv=p=0 "$file")
    # at 44.1 kHz, two bytes a sample; the encoder's delay is skipped, as the game's decoder does
    ffmpeg -v error -y -i "$file" -ac 1 -f s16le "$scratch"
    samples=$(wc -c <"$scratch")
    trimmed=$(sox -t raw -r 44100 -b 16 -e signed -c 1 "$scratch" -t raw - silence 1 1 -50d | wc -c)
    # a file shorter than a loudness block of 0.4 s has no integrated loudness
    awk -v name="$name" -v samples="$samples" -v trimmed="$trimmed" -v rate="$rate" -v i="$loudness" -v lra="$range" \
        -v tp="$truePeak" -v sp="$samplePeak" 'BEGIN {
            printf "| %s | %.2f | %.0f | %s | %s | %s | %s | %.0f |\n", name, samples / 2 / 44100, rate / 1000,
                i <= -69 ? "–" : i, i <= -69 ? "–" : lra, tp, sp, (samples - trimmed) / 2 / 44.1 }'
    if [ -n "$pictures" ]; then
        mkdir -p "$pictures"
        ffmpeg -v error -y -i "$file" -filter_complex \
            'aformat=channel_layouts=mono,showwavespic=s=900x120:colors=#1a6b86:filter=peak' \
            -frames:v 1 "$pictures/$name.png"
    fi
done
