#!/usr/bin/env python3
"""Checks that a picture of the panel has symbols in their places.

usage: check_symbols.py [--blank] PICTURE.png PLACES.json TEXT...

PLACES.json has the positions of texts and buttons, as written by `tamberline-replay --places`. The symbol
of a button fills the button; that of a name is in front of it. A place without a symbol has one colour.
With --blank no place may have a symbol, which proves that the check can fail.
"""

import json
import subprocess
import sys

GAP_BEFORE_NAME = 2
ROOM_BEFORE_NAME = 20


def read_picture(path):
    """Its rows, each a list of colours."""
    data = subprocess.run(
        ["convert", path, "-depth", "8", "ppm:-"], check=True, stdout=subprocess.PIPE
    ).stdout
    _, width, height, _ = data.split(None, 4)[:4]
    width, height = int(width), int(height)
    pixels = data[-3 * width * height :]
    return [
        [pixels[3 * (y * width + x) : 3 * (y * width + x) + 3] for x in range(width)]
        for y in range(height)
    ]


def symbol_place(place):
    """Left, top, right and bottom."""
    left, top, bottom = place["x"], place["y"], place["y"] + place["height"]
    if place["width"] == place["height"]:
        return left, top, left + place["width"], bottom
    return left - ROOM_BEFORE_NAME, top, left - GAP_BEFORE_NAME, bottom


def is_blank(picture, left, top, right, bottom):
    rows = picture[round(top) : round(bottom)]
    colours = {colour for row in rows for colour in row[round(left) : round(right)]}
    return len(colours) <= 1


def main():
    arguments = sys.argv[1:]
    expects_blank = arguments[:1] == ["--blank"]
    if expects_blank:
        arguments.pop(0)
    if len(arguments) < 3:
        sys.exit(__doc__)
    picture = read_picture(arguments[0])
    with open(arguments[1], encoding="utf-8") as file:
        places = json.load(file)
    wrong = []
    for text in arguments[2:]:
        found = [place for place in places if place["text"] == text]
        if not found:
            sys.exit(f"check_symbols: the picture has no '{text}'")
        for place in found:
            if is_blank(picture, *symbol_place(place)) != expects_blank:
                wrong.append(text)
    if wrong:
        problem = "something is drawn where no symbol is" if expects_blank else "no symbol is drawn"
        sys.exit(f"check_symbols: {problem} for {', '.join(wrong)}")


if __name__ == "__main__":
    main()
