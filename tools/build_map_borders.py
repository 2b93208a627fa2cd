"""Country borders, fitted to the generalised coast."""

from collections import Counter

import numpy as np
from scipy.spatial import cKDTree

from build_map_shapes import divide, simplify, unit_vectors
from build_map_topology import Topology

STEP_KM, SIMPLIFY_KM = 5, 18
LEAST_KM = 60  # shorter pieces, left between two straits, are not worth a line


def spot(point):
    """A point as a key: ends of arcs that meet have the same one."""
    return round(point[0] % 360, 4), round(point[1], 4)


def joined_lines(arcs):
    """Arcs that meet end to end, and meet no third one there, put together."""
    lines = dict(enumerate(arcs))
    ends = {}
    for number, arc in lines.items():
        for point in (arc[0], arc[-1]):
            ends.setdefault(spot(point), []).append(number)
    name = list(range(len(arcs)))

    def current(number):
        while name[number] != number:
            number = name[number]
        return number

    for point, owners in ends.items():
        if len(owners) != 2:
            continue
        first, second = (current(number) for number in owners)
        if first == second:
            continue
        a, b = lines[first], lines.pop(second)
        a = a if spot(a[-1]) == point else a[::-1]
        b = b if spot(b[0]) == point else b[::-1]
        lines[first] = np.concatenate((a, b[1:]))
        name[second] = first
    return list(lines.values())


def runs(mask):
    """First and last index of each run of true values."""
    change = np.diff(np.concatenate(([0], mask.astype(int), [0])))
    return zip(np.flatnonzero(change == 1), np.flatnonzero(change == -1) - 1)


def pieces_on_land(line, land, grid):
    """The parts of a line that lie on land, simplified, each with two marks: whether its first and
    its last point are ends of the whole line."""
    fine = divide(line, STEP_KM)
    row = ((fine[:, 1] + 90) * grid.cells_per_degree).astype(int).clip(0, grid.rows - 1)
    column = ((fine[:, 0] + 180) * grid.cells_per_degree).astype(int) % grid.columns
    for first, last in runs(land[row, column]):
        whole = first == 0, last == len(fine) - 1
        if (last - first) * STEP_KM < LEAST_KM and not (all(whole) and (line[0] != line[-1]).any()):
            continue
        piece = fine[first:last + 1]
        yield piece[simplify(piece, SIMPLIFY_KM)], whole


def border_strokes(package, coast, land, grid, longest_km):
    """Borders as strokes of longitude and latitude: cut to the land, simplified, and each end that
    meets no other border carried to the nearest vertex of the coast."""
    vertices = np.concatenate(coast)
    tree = cKDTree(unit_vectors(vertices))
    arcs = Topology(package / "countries-50m.json").shared_arcs("countries")
    meetings = Counter(spot(arc[at]) for arc in arcs for at in (0, -1))
    strokes = []
    for line in joined_lines(arcs):
        for piece, whole in pieces_on_land(line, land, grid):
            for at in (0, -1):
                if whole[at] and meetings[spot(piece[at])] > 1:
                    continue  # meets other borders, or itself
                end = vertices[tree.query(unit_vectors(piece[at]))[1]][None]
                piece = np.concatenate((end, piece) if at == 0 else (piece, end))
            strokes.append(divide(piece, longest_km))
    return strokes
