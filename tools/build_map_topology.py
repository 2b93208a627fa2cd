"""TopoJSON of the world-atlas package: rings, rasters and border lines."""

import json
from pathlib import Path

import numpy as np


class Topology:
    """One TopoJSON file. Coordinates are degrees, columns longitude and latitude."""

    def __init__(self, path):
        data = json.loads(Path(path).read_text(encoding="utf-8"))
        scale = np.array(data["transform"]["scale"])
        translate = np.array(data["transform"]["translate"])
        self.arcs = [np.cumsum(np.array(arc), axis=0) * scale + translate for arc in data["arcs"]]
        self.objects = data["objects"]

    def arc(self, number):
        """The points of an arc; ~n means arc n taken backwards."""
        return self.arcs[number] if number >= 0 else self.arcs[~number][::-1]

    def ring(self, numbers):
        """Closed ring of the arcs `numbers`, the point where two arcs meet kept once."""
        parts = [self.arc(numbers[0])] + [self.arc(n)[1:] for n in numbers[1:]]
        return np.concatenate(parts)

    def shapes(self, name):
        """Arc numbers of object `name`: a list of shapes, each a list of polygons, each of rings."""
        result = []
        for geometry in self.objects[name]["geometries"]:
            arcs = geometry.get("arcs", [])
            result.append([arcs] if geometry["type"] == "Polygon" else arcs)
        return result

    def polygons(self, name):
        """All polygons of object `name`, each a list of rings, the outer one first."""
        return [[self.ring(numbers) for numbers in polygon]
                for shape in self.shapes(name) for polygon in shape]

    def shared_arcs(self, name):
        """Arcs that lie between two different shapes of object `name`."""
        owners = {}
        for owner, shape in enumerate(self.shapes(name)):
            for polygon in shape:
                for numbers in polygon:
                    for number in numbers:
                        owners.setdefault(max(number, ~number), set()).add(owner)
        return [self.arcs[number] for number, by in sorted(owners.items()) if len(by) > 1]


def unwrap(ring):
    """The ring with longitudes that run on past 180 degrees instead of jumping back."""
    steps = np.diff(ring[:, 0])
    turns = np.concatenate(([0], np.cumsum(np.round(-steps / 360))))
    return np.column_stack((ring[:, 0] + 360 * turns, ring[:, 1]))


def rasterise(rings, cells_per_degree):
    """Even-odd fill of `rings`: booleans, one row for each latitude from south to north, one column
    for each longitude from -180 eastward, true where the middle of the cell lies inside."""
    rows, columns = 180 * cells_per_degree, 360 * cells_per_degree
    toggles = np.zeros((rows, 3 * columns), dtype=np.uint8)
    for ring in rings:
        if ring[:, 1].max() < -89.99:
            continue  # the hole that the 50m file has at the very pole
        points = unwrap(ring)
        if abs(points[-1, 0] - points[0, 0]) > 180:  # winds round the pole: close it there
            points = np.concatenate((points, [(points[-1, 0], -90), (points[0, 0], -90)]))
        points = np.concatenate((points, points[:1]))
        x = (points[:, 0] + 540) * cells_per_degree - 0.5
        y = (points[:, 1] + 90) * cells_per_degree - 0.5
        low, high = np.minimum(y[:-1], y[1:]), np.maximum(y[:-1], y[1:])
        first, last = np.ceil(low).astype(int), np.ceil(high).astype(int)
        count = last - first
        edge = np.repeat(np.arange(len(count)), count)
        row = np.arange(len(edge)) - np.repeat(np.cumsum(count) - count, count) + first[edge]
        part = (row - y[edge]) / (y[edge + 1] - y[edge])
        column = np.ceil(x[edge] + part * (x[edge + 1] - x[edge])).astype(int)
        inside = (row >= 0) & (row < rows)
        np.bitwise_xor.at(toggles, (row[inside], column[inside]), 1)
    filled = np.bitwise_xor.accumulate(toggles, axis=1)
    folded = filled[:, :columns] ^ filled[:, columns:2 * columns] ^ filled[:, 2 * columns:]
    return folded.astype(bool)


def ring_area(ring):
    """Area of a small ring in km2, without sign."""
    points = np.radians(unwrap(ring))
    lon, lat = points[:, 0], points[:, 1]
    return abs(np.sum(np.diff(lon) * (np.sin(lat[:-1]) + np.sin(lat[1:]))) / 2) * 6371.0**2
