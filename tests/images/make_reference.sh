#!/usr/bin/env bash
# Makes the reference TGA files of the image tests with ImageMagick's convert, an encoder
# independent of the program's decoder. Run once by hand; its output is committed in data/.
#
# For every case: <name>.tga is written by convert from a seeded RGBA pattern, and <name>.rgba
# holds the pixels the decoder must give, top row first, 4 bytes a pixel, also made by convert.
#
# ImageMagick 6 writes the rows in the order they are held and only records the orientation in
# the descriptor byte: a picture flipped before writing, marked BottomLeft, is a genuine
# bottom-up file; one marked TopLeft (descriptor 0x20) or TopRight (0x30) holds the top row first.
# The decoder takes only bit 4 (0x10) as "top row first", so the TopLeft file comes out upside
# down and the TopRight one upright. Each descriptor and type byte is checked below.
set -euo pipefail
cd "$(dirname "$0")/data"
command -v convert >/dev/null || { echo "convert (ImageMagick) is needed" >&2; exit 1; }
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT

# pattern WIDTH HEIGHT SEED > file: runs of one colour beside noisy stretches, every alpha kind.
pattern() {
    python3 - "$@" <<'PY'
import random, sys
width, height, seed = map(int, sys.argv[1:4])
rng = random.Random(seed)
out = bytearray()
for y in range(height):
    x = 0
    while x < width:
        length = rng.choice([1, 2, 3, 5, 9, 40, 200])
        solid = rng.random() < 0.5
        colour = [rng.randrange(256) for _ in range(3)] + [rng.choice([0, 255, rng.randrange(256)])]
        for _ in range(min(length, width - x)):
            if not solid:
                colour = [rng.randrange(256) for _ in range(3)] + [rng.choice([0, 255, rng.randrange(256)])]
            out += bytes(colour)
            x += 1
sys.stdout.buffer.write(out)
PY
}

byte_at() { od -An -tu1 -j "$2" -N1 "$1" | tr -d ' '; }

expect_header() {  # file type bits descriptor
    local type bits descriptor
    type=$(byte_at "$1" 2); bits=$(byte_at "$1" 16); descriptor=$(byte_at "$1" 17)
    if [ "$type" != "$2" ] || [ "$bits" != "$3" ] || [ "$descriptor" != "$4" ]; then
        echo "$1: type $type bits $bits descriptor $descriptor, expected $2 $3 $4" >&2
        exit 1
    fi
}

# make NAME WIDTH HEIGHT SEED ALPHA(32|24) COMPRESS(none|rle) LAYOUT(bottom|topleft|topright) [ID text]
make() {
    local name=$1 w=$2 h=$3 seed=$4 depth=$5 compress=$6 layout=$7 id=${8:-}
    local source=$tmp/$name.source input=(-size "${w}x${h}" -depth 8)
    pattern "$w" "$h" "$seed" >"$source"
    local channels=() flip=() orient expected=() write=()
    [ "$depth" = 24 ] && channels=(-alpha off)
    [ "$compress" = rle ] && write+=(-compress RLE) || write+=(-compress None)
    [ -n "$id" ] && write+=(-set comment "$id")
    case $layout in
        bottom) flip=(-flip); orient=BottomLeft ;;
        topleft) orient=TopLeft; expected=(-flip) ;;
        topright) orient=TopRight ;;
    esac
    convert "${input[@]}" "rgba:$source" "${channels[@]}" "${flip[@]}" -orient "$orient" \
        "${write[@]}" "$name.tga"
    # The decoded pixels: the pattern (upside down for the TopLeft file), opaque for 24 bits.
    local opaque=()
    [ "$depth" = 24 ] && opaque=(-alpha off -alpha opaque)
    convert "${input[@]}" "rgba:$source" "${opaque[@]}" "${expected[@]}" -depth 8 "rgba:$name.rgba"

    local type=2 descriptor=0
    [ "$compress" = rle ] && type=10
    [ "$depth" = 32 ] && descriptor=8
    case $layout in topleft) descriptor=$((descriptor + 32)) ;; topright) descriptor=$((descriptor + 48)) ;; esac
    expect_header "$name.tga" "$type" "$depth" "$descriptor"
    [ "$(stat -c %s "$name.rgba")" = $((w * h * 4)) ] || { echo "$name.rgba: wrong size" >&2; exit 1; }
}

rm -f ./*.tga ./*.rgba
make rgb24_bottom_13x7 13 7 1 24 none bottom
make rgba32_bottom_13x7 13 7 2 32 none bottom
make rgba32_rle_bottom_37x9 37 9 3 32 rle bottom
make rgb24_rle_bottom_150x3 150 3 4 24 rle bottom
make rgba32_rle_topright_21x5 21 5 5 32 rle topright
make rgba32_topleft_9x6 9 6 6 32 none topleft
make rgb24_rle_topleft_11x4 11 4 7 24 rle topleft
make rgba32_rle_id_7x4 7 4 8 32 rle bottom "skin picture"
make rgba32_1x1 1 1 9 32 none bottom
make rgba32_rle_wide_300x2 300 2 10 32 rle bottom
ls -l
