#!/usr/bin/python3
"""Builds world.jpg, the world picture of the relief overlay, from the unpacked npm package
@cesium/engine.

    build_world.py PACKAGE-FOLDER OUTPUT-FILE

The package holds the Natural Earth II raster in geographic coordinates as tiles whose row 0 is the
southernmost. The result is 1800 by 900 pixels, longitude -180 at the left edge, latitude 90 at the
top.
"""

import argparse
import sys
from pathlib import Path

from PIL import Image

TILES = Path("Source/Assets/Textures/NaturalEarthII/2")
COLUMNS, ROWS, TILE_SIZE = 8, 4, 256
WORLD_SIZE = (1800, 900)
QUALITY = 88


def tile(package, column, row):
    """A tile as an RGB image; ValueError when it has another size than the pasting counts on."""
    path = package / TILES / str(column) / f"{row}.jpg"
    with Image.open(path) as image:
        if image.size != (TILE_SIZE, TILE_SIZE):
            raise ValueError(f"{path}: {image.size} is not the size of a tile")
        return image.convert("RGB")


def world(package):
    picture = Image.new("RGB", (COLUMNS * TILE_SIZE, ROWS * TILE_SIZE))
    for column in range(COLUMNS):
        for row in range(ROWS):
            place = (column * TILE_SIZE, (ROWS - 1 - row) * TILE_SIZE)
            picture.paste(tile(package, column, row), place)
    return picture.resize(WORLD_SIZE, Image.LANCZOS)


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("package", type=Path, help="folder of the unpacked package")
    parser.add_argument("output", type=Path, help="the JPEG file to write")
    arguments = parser.parse_args()
    try:
        world(arguments.package).save(arguments.output, "JPEG", quality=QUALITY, optimize=True)
    except (OSError, ValueError) as reason:
        print(f"build_world.py: {reason}", file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
