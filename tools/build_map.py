#!/usr/bin/python3
"""Builds mapper.pnt, mapper-borders.pnt and paintma.txt from the unpacked npm package world-atlas.

    build_map.py PACKAGE-FOLDER OUTPUT-FOLDER

A pixel of the map is 66 km wide. A raw coastline smears archipelagos at that scale, and water poured
into the ocean stops at every narrow strait, so the coast is generalised here: narrow gulfs and capes
go, straits that water must pass are widened, islands too small to draw become dots.
"""

import argparse
import json
import sys
from pathlib import Path

import numpy as np
from scipy.spatial import cKDTree

import build_map_seeds as seeds
from build_map_borders import border_strokes
from build_map_shapes import Grid, chord, divide, length_km, simplify, unit_vectors
from build_map_topology import Topology, rasterise, ring_area

CELLS_PER_DEGREE = 10
CLOSE_KM, OPEN_KM = 42, 28  # half widths of the gulfs and capes that go
LEAST_LAND_KM2, LEAST_WATER_KM2 = 20_000, 60_000
SMOOTH_KM, SIMPLIFY_KM = 22, 22
# Near the rim of the azimuthal map a longer step would cut the coast short. Shorter ones blacken
# more of it: the ends of each are rounded to pixels, and the line becomes a staircase.
LONGEST_STEP_KM = 80
ISLET_GAP_KM, ISLET_COAST_KM, ISLET_COUNT = 170, 110, 420
HEXAGON_KM2, LARGEST_ISLET_KM2 = 6_000, 30_000  # islets from the first area on get an outline
NEW_STROKE, SAME_STROKE = 5000, 0

# Islands that must be there even where a larger one lies near: longitude, latitude.
NAMED_ISLANDS = {
    "Hawaii": (-155.5, 19.6), "Oahu": (-158.0, 21.5), "Azores": (-25.5, 37.8), "Faial": (-28.7, 38.6),
    "Tenerife": (-16.6, 28.3), "Isabela, Galapagos": (-91.1, -0.7), "Mauritius": (57.55, -20.3),
    "Reunion": (55.5, -21.1), "Viti Levu": (178.0, -17.8), "Guam": (144.8, 13.45),
    "Malta": (14.4, 35.9), "Corsica": (9.1, 42.2), "St Helena": (-5.7, -15.95),
    "Ascension": (-14.35, -7.95), "Bermuda": (-64.75, 32.3),
}
FIRST_SEED = (-178.5, -73.5)
HOMES = 900  # spread over the globe; no seed falls on land for any of them
LEAST_SEED_PIXELS = 400  # a seed that paints less than this, over all their maps, is not worth it


def corrections(name):
    """Entries of a table of straits or isthmuses beside this tool: a name, a line of longitude and
    latitude, a half width in km."""
    path = Path(__file__).parent / f"build_map_{name}.json"
    return json.loads(path.read_text(encoding="utf-8"))


def general_land(package, grid):
    """The generalised land as a raster."""
    rings = [ring for polygon in Topology(package / "land-50m.json").polygons("land")
             for ring in polygon]
    land = grid.close_and_open(rasterise(rings, CELLS_PER_DEGREE), CLOSE_KM, OPEN_KM)
    for name, value in (("straits", False), ("isthmuses", True)):
        for entry in corrections(name):
            land[grid.band(entry["line_lon_lat"], entry["half_width_km"])] = value
    labels, area, north = grid.regions(land)
    land &= (area >= LEAST_LAND_KM2)[labels] & ((north > -60) | (area > 5e6))[labels]
    labels, area, _ = grid.regions(~land)
    return land | ~(area >= LEAST_WATER_KM2)[labels]


def coast_strokes(land, grid):
    """The coast as closed strokes of longitude and latitude, largest first. Each begins far from the
    date line: a gap there would let the fills of the cylindrical map leak along the first column."""
    field = grid.smooth(grid.signed_km(land, 80), SMOOTH_KM)
    strokes = []
    for ring in sorted(grid.contours(field), key=len, reverse=True):
        start = int(np.argmin(np.abs(ring[:-1, 0])))
        ring = np.concatenate((ring[start:-1], ring[:start + 1]))
        half = len(ring) // 2  # a closed line has no two ends to begin with
        kept = np.concatenate((simplify(ring[:half + 1], SIMPLIFY_KM),
                               half + simplify(ring[half:], SIMPLIFY_KM)[1:]))
        if len(kept) > 3:
            strokes.append(divide(ring[kept], LONGEST_STEP_KM))
    return strokes


def small_islands(package):
    """Islands that the coast may leave out, largest first: rows of km2, longitude, latitude."""
    islands = []
    for polygon in Topology(package / "land-10m.json").polygons("land"):
        area = ring_area(polygon[0])
        if area < LARGEST_ISLET_KM2:
            x, y, z = unit_vectors(polygon[0]).mean(axis=0)
            islands.append((area, *np.degrees((np.arctan2(y, x), np.arctan2(z, np.hypot(x, y))))))
    return np.array(sorted(islands, reverse=True))


def islets(package, strokes, land, grid):
    """Islands that the coast leaves out, as strokes: dots, and hexagons for the larger ones. None
    stands in the gulfs that were filled: there it would be a speck on a continent. The last
    is the one farthest from any coast: the water fill begins at the coast's last point when its first
    seed is cut off near the antipode, and so can harm no more than that dot."""
    islands = small_islands(package)
    vectors = unit_vectors(islands[:, 1:])
    named = [int(np.argmax(vectors @ unit_vectors(np.array(place))))
             for place in NAMED_ISLANDS.values()]
    coast = cKDTree(unit_vectors(np.concatenate([divide(stroke, 10) for stroke in strokes])))
    offshore = coast.query(vectors)[0]
    at_sea = ~seeds.look_up(land, *islands[:, 1:].T, grid.cells_per_degree)
    taken = list(named)
    for index in np.flatnonzero(at_sea & (offshore > chord(ISLET_COAST_KM))):
        nearest = np.linalg.norm(vectors[taken] - vectors[index], axis=1).min()
        if nearest > chord(ISLET_GAP_KM) and len(taken) < ISLET_COUNT:
            taken.append(index)
    remotest = max(taken, key=lambda index: offshore[index])
    taken = sorted(set(taken) - {remotest}) + [remotest]
    return [islet_stroke(*islands[index]) for index in taken]


def islet_stroke(area, lon, lat):
    """One point, or a hexagon of the same area."""
    if area < HEXAGON_KM2:
        return np.array([(lon, lat)])
    turn = np.radians(60 * np.arange(7))
    degrees = np.degrees(np.sqrt(area / 2.598) / 6371.0)
    ring = np.stack((lon + degrees * np.cos(turn) / np.cos(np.radians(lat)),
                     lat + degrees * np.sin(turn)), axis=1)
    ring[:, 0] = (ring[:, 0] + 180) % 360 - 180
    return ring


def records(strokes):
    """The strokes as 16-bit fields: start mark, arc minutes of latitude and of longitude."""
    rows = []
    for stroke in strokes:
        minutes = np.rint(stroke[:, ::-1] * 60).astype(int)
        new = np.ones(len(minutes), dtype=bool)
        new[1:] = (np.diff(minutes, axis=0) != 0).any(axis=1)
        minutes = minutes[new]
        mark = np.full((len(minutes), 1), SAME_STROKE)
        mark[0] = NEW_STROKE
        rows.append(np.hstack((mark, minutes)))
    return np.concatenate(rows).astype("<i2")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("package", type=Path, help="folder of the unpacked package world-atlas")
    parser.add_argument("output", type=Path, help="folder that gets the three files")
    options = parser.parse_args()
    grid = Grid(CELLS_PER_DEGREE)
    land = general_land(options.package, grid)
    strokes = coast_strokes(land, grid)
    dots = islets(options.package, strokes, land, grid)
    coast = records(strokes + dots)
    coast.tofile(options.output / "mapper.pnt")
    borders = border_strokes(options.package, strokes, land, grid, LONGEST_STEP_KM)
    with_borders = records(strokes + borders + dots)
    with_borders.tofile(options.output / "mapper-borders.pnt")

    table = np.column_stack((coast[:, 0] > 1000, coast[:, 2] / 60, coast[:, 1] / 60))
    rings = [ring for polygon in Topology(options.package / "land-10m.json").polygons("land")
             for ring in polygon]
    true_land = rasterise(rings, CELLS_PER_DEGREE)
    rooms = [np.mean(entry["line_lon_lat"], axis=0) for entry in corrections("straits")
             if entry.get("seed_room")]
    chosen = seeds.choose_seeds(table, true_land, CELLS_PER_DEGREE, seeds.lattice(HOMES), FIRST_SEED,
                                rooms, LEAST_SEED_PIXELS)
    text = "".join(f"{lat:.2f},{lon:.2f}\n" for lon, lat in chosen)
    (options.output / "paintma.txt").write_text(text, encoding="ascii", newline="\n")
    print(f"{len(coast)} records, {len(strokes)} coasts, {len(dots)} islets, {len(chosen)} seeds; "
          f"{len(with_borders)} records with {len(borders)} borders")


if __name__ == "__main__":
    sys.exit(main())
