#!/usr/bin/python3
"""Builds mapper.pnt, mapper-borders.pnt and paintma.txt, and mapper-fine.pnt and paintma-fine.txt, from
the unpacked npm package world-atlas.

    build_map.py PACKAGE-FOLDER OUTPUT-FOLDER [--only coarse|fine]

A raw coastline smears archipelagos where a pixel is wider than they are, and water poured into the
ocean stops at every narrow strait, so the coast is generalised here: narrow gulfs and capes go, straits
are widened, islands too small to draw become dots or hexagons. The coarse coast is for pixels of 66 km,
the fine one for 22 km and less.
"""

import argparse
import json
import sys
from dataclasses import dataclass
from pathlib import Path

import numpy as np
from scipy.spatial import cKDTree

import build_map_seeds as seeds
from build_map_borders import border_strokes
from build_map_shapes import Grid, chord, divide, length_km, simplify, unit_vectors
from build_map_topology import Topology, rasterise, ring_area


@dataclass(frozen=True)
class Scale:
    """What a coast is generalised to, in km and km2."""
    source: str  # file of the package that the land comes from
    corrections: str  # what the names of the tables of straits and isthmuses end in
    cells_per_degree: int
    close: float  # half width of the gulfs that go
    open: float  # half width of the capes that go
    least_land: float
    least_water: float
    smooth: float
    simplify: float
    # Near the rim of the azimuthal map a longer step would cut the coast short. Shorter ones blacken
    # more of it: the ends of each are rounded to pixels, and the line becomes a staircase.
    longest_step: float
    polar_islands: bool  # whether those of the south polar land stay
    islet_gap: float
    islet_coast: float
    islet_count: int
    largest_islet: float
    hexagon: float  # islets from this area on get an outline
    least_hexagon: float


COARSE = Scale(source="land-50m.json", corrections="", cells_per_degree=10, close=42, open=28,
               least_land=20_000, least_water=60_000, smooth=22, simplify=22, longest_step=80,
               polar_islands=False, islet_gap=170, islet_coast=110, islet_count=420, largest_islet=30_000, hexagon=6_000,
               least_hexagon=0)
FINE = Scale(source="land-10m.json", corrections="_fine", cells_per_degree=20, close=8, open=6,
             least_land=1_500, least_water=4_000, smooth=6, simplify=5, longest_step=30,
             polar_islands=True, islet_gap=60, islet_coast=30, islet_count=900, largest_islet=4_000, hexagon=0,
             least_hexagon=700)
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


def corrections(name, scale):
    """Entries of a table of straits or isthmuses beside this tool: a name, a line of longitude and
    latitude, a half width in km. A coast needs no isthmuses where it is fine."""
    path = Path(__file__).parent / f"build_map_{name}{scale.corrections}.json"
    return json.loads(path.read_text(encoding="utf-8")) if path.exists() else []


def true_land(package, source, cells_per_degree):
    """The land of a file of the package as a raster."""
    rings = [ring for polygon in Topology(package / source).polygons("land") for ring in polygon]
    return rasterise(rings, cells_per_degree)


def general_land(package, grid, scale):
    """The generalised land as a raster."""
    land = grid.close_and_open(true_land(package, scale.source, scale.cells_per_degree), scale.close,
                               scale.open)
    for name, value in (("straits", False), ("isthmuses", True)):
        for entry in corrections(name, scale):
            land[grid.band(entry["line_lon_lat"], entry["half_width_km"])] = value
    labels, area, north = grid.regions(land)
    land &= (area >= scale.least_land)[labels]
    if not scale.polar_islands:
        # At resolution 1 one fill makes the south polar land white, and would leave them green.
        land &= ~((north < -60) & (area < 5e6))[labels]
    labels, area, _ = grid.regions(~land)
    return land | ~(area >= scale.least_water)[labels]


def coast_strokes(land, grid, scale):
    """The coast as closed strokes of longitude and latitude, largest first. Each begins far from the
    date line: a gap there would let the fills of the cylindrical map leak along the first column."""
    field = grid.smooth(grid.signed_km(land, 80), scale.smooth)
    strokes = []
    for ring in sorted(grid.contours(field), key=len, reverse=True):
        start = int(np.argmin(np.abs(ring[:-1, 0])))
        ring = np.concatenate((ring[start:-1], ring[:start + 1]))
        half = len(ring) // 2  # a closed line has no two ends to begin with
        kept = np.concatenate((simplify(ring[:half + 1], scale.simplify),
                               half + simplify(ring[half:], scale.simplify)[1:]))
        if len(kept) > 3:
            strokes.append(divide(ring[kept], scale.longest_step))
    return strokes


def small_islands(package, scale):
    """Islands that the coast may leave out, largest first: rows of km2, longitude, latitude."""
    islands = []
    for polygon in Topology(package / "land-10m.json").polygons("land"):
        area = ring_area(polygon[0])
        if area < scale.largest_islet:
            x, y, z = unit_vectors(polygon[0]).mean(axis=0)
            islands.append((area, *np.degrees((np.arctan2(y, x), np.arctan2(z, np.hypot(x, y))))))
    return np.array(sorted(islands, reverse=True))


def islets(package, strokes, land, grid, scale):
    """Islands that the coast leaves out, as strokes: dots, and hexagons for the larger ones. None
    stands in the gulfs that were filled: there it would be a speck on a continent. The last
    is the one farthest from any coast: the water fill begins at the coast's last point when its first
    seed is cut off near the antipode, and so can harm no more than that dot."""
    islands = small_islands(package, scale)
    vectors = unit_vectors(islands[:, 1:])
    named = [int(np.argmax(vectors @ unit_vectors(np.array(place))))
             for place in NAMED_ISLANDS.values()]
    coast = cKDTree(unit_vectors(np.concatenate([divide(stroke, 10) for stroke in strokes])))
    offshore = coast.query(vectors)[0]
    at_sea = ~seeds.look_up(land, *islands[:, 1:].T, grid.cells_per_degree)
    taken = [index for index in named if at_sea[index]]
    for index in np.flatnonzero(at_sea & (offshore > chord(scale.islet_coast))):
        nearest = np.linalg.norm(vectors[taken] - vectors[index], axis=1).min()
        if nearest > chord(scale.islet_gap) and len(taken) < scale.islet_count:
            taken.append(index)
    remotest = max(taken, key=lambda index: offshore[index])
    taken = sorted(set(taken) - {remotest}) + [remotest]
    return [islet_stroke(*islands[index], scale) for index in taken]


def islet_stroke(area, lon, lat, scale):
    """One point, or a hexagon of the same area."""
    if area < scale.hexagon:
        return np.array([(lon, lat)])
    area = max(area, scale.least_hexagon)
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


def table(records):
    """Records as rows of start mark, longitude and latitude in degrees."""
    return np.column_stack((records[:, 0] > 1000, records[:, 2] / 60, records[:, 1] / 60))


def write_seeds(path, chosen):
    text = "".join(f"{lat:.2f},{lon:.2f}\n" for lon, lat in chosen)
    path.write_text(text, encoding="ascii", newline="\n")


def build_coast(package, path, scale):
    """Writes a coastline; gives its grid, its land, its strokes, its islets and its records."""
    grid = Grid(scale.cells_per_degree)
    land = general_land(package, grid, scale)
    strokes = coast_strokes(land, grid, scale)
    dots = islets(package, strokes, land, grid, scale)
    coast = records(strokes + dots)
    coast.tofile(path)
    return grid, land, strokes, dots, coast


def build_coarse(package, output):
    grid, land, strokes, dots, coast = build_coast(package, output / "mapper.pnt", COARSE)
    borders = border_strokes(package, strokes, land, grid, COARSE.longest_step)
    with_borders = records(strokes + borders + dots)
    with_borders.tofile(output / "mapper-borders.pnt")
    rooms = [np.mean(entry["line_lon_lat"], axis=0) for entry in corrections("straits", COARSE)
             if entry.get("seed_room")]
    chosen = seeds.choose_seeds(table(coast), true_land(package, "land-10m.json", COARSE.cells_per_degree),
                                COARSE.cells_per_degree, seeds.lattice(HOMES), FIRST_SEED, rooms,
                                LEAST_SEED_PIXELS)
    write_seeds(output / "paintma.txt", chosen)
    print(f"{len(coast)} records, {len(strokes)} coasts, {len(dots)} islets, {len(chosen)} seeds; "
          f"{len(with_borders)} records with {len(borders)} borders")


def build_fine(package, output):
    grid, land, strokes, dots, coast = build_coast(package, output / "mapper-fine.pnt", FINE)
    chosen = seeds.seeds_in_the_open(strokes + dots, land, grid)
    write_seeds(output / "paintma-fine.txt", chosen)
    length = sum(length_km(stroke[:-1], stroke[1:]).sum() for stroke in strokes + dots if len(stroke) > 1)
    print(f"fine: {len(coast)} records, {length:.0f} km, {len(strokes)} coasts, {len(dots)} islets, "
          f"{len(chosen)} seeds")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("package", type=Path, help="folder of the unpacked package world-atlas")
    parser.add_argument("output", type=Path, help="folder that gets the files")
    parser.add_argument("--only", choices=("coarse", "fine"), help="build one of the two coasts")
    options = parser.parse_args()
    for name, build in (("coarse", build_coarse), ("fine", build_fine)):
        if options.only in (None, name):
            build(options.package, options.output)


if __name__ == "__main__":
    sys.exit(main())
