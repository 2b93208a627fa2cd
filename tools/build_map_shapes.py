"""Shapes on the sphere: distances, widening, contours and simplified lines."""

import numpy as np
from scipy import ndimage
from scipy.spatial import cKDTree

EARTH_KM = 6371.0


def unit_vectors(points):
    """Points of longitude and latitude in degrees as unit vectors, one in each row."""
    lon, lat = np.radians(points[..., 0]), np.radians(points[..., 1])
    return np.stack((np.cos(lat) * np.cos(lon), np.cos(lat) * np.sin(lon), np.sin(lat)), axis=-1)


def chord(km):
    """Straight distance in Earth radii between two points `km` apart on the ground."""
    return 2 * np.sin(km / EARTH_KM / 2)


def ground_km(chords):
    """Inverse of `chord`."""
    return 2 * EARTH_KM * np.arcsin(np.minimum(chords / 2, 1))


def length_km(a, b):
    """Ground distance between points a and b of longitude and latitude."""
    return ground_km(np.linalg.norm(unit_vectors(np.asarray(a)) - unit_vectors(np.asarray(b)), axis=-1))


def divide(points, longest_km):
    """The line with points put in, evenly in longitude and latitude, so that no step is longer than
    `longest_km`. Steps across the date line go the short way; longitudes come back in -180 to 180."""
    pieces = []
    for a, b in zip(points[:-1], points[1:]):
        step = np.array(((b[0] - a[0] + 180) % 360 - 180, b[1] - a[1]))
        count = max(1, int(np.ceil(length_km(a, b) / longest_km)))
        pieces.append(a + np.outer(np.arange(count) / count, step))
    line = np.concatenate(pieces + [points[-1:]])
    line[:, 0] = (line[:, 0] + 180) % 360 - 180
    return line


def simplify(points, tolerance_km):
    """Douglas-Peucker on the sphere: indices of the points to keep, both ends always among them."""
    vectors = unit_vectors(points)
    keep = np.zeros(len(points), dtype=bool)
    keep[[0, -1]] = True
    pending = [(0, len(points) - 1)]
    while pending:
        first, last = pending.pop()
        if last - first < 2:
            continue
        a, ab = vectors[first], vectors[last] - vectors[first]
        inner = vectors[first + 1:last] - a
        share = np.clip(inner @ ab / max(ab @ ab, 1e-18), 0, 1)
        offset = np.linalg.norm(inner - share[:, None] * ab, axis=1)
        far = int(np.argmax(offset))
        if offset[far] * EARTH_KM > tolerance_km:
            middle = first + 1 + far
            keep[middle] = True
            pending += [(first, middle), (middle, last)]
    return np.flatnonzero(keep)


class Grid:
    """Cells of a longitude and latitude raster; row 0 is the southernmost, column 0 begins at -180."""

    def __init__(self, cells_per_degree):
        self.cells_per_degree = cells_per_degree
        self.rows, self.columns = 180 * cells_per_degree, 360 * cells_per_degree
        lat = (np.arange(self.rows) + 0.5) / cells_per_degree - 90
        lon = (np.arange(self.columns) + 0.5) / cells_per_degree - 180
        self.lat, self.lon = lat, lon
        side = EARTH_KM * np.radians(1 / cells_per_degree)
        self.cell_km2 = side * side * np.cos(np.radians(lat))
        mesh = np.stack(np.broadcast_arrays(lon[None, :], lat[:, None]), axis=-1)
        self.vectors = unit_vectors(mesh).astype(np.float32)

    def _beside(self, mask):
        """Cells of `mask` with a neighbour outside it."""
        padded = np.pad(mask, ((0, 0), (1, 1)), mode="wrap")
        return mask & ~ndimage.binary_erosion(padded, border_value=1)[:, 1:-1]

    def signed_km(self, land, reach_km):
        """Distance of each cell to the edge between land and water in km, land positive, cut at
        `reach_km` either way."""
        result = np.where(land, reach_km, -reach_km).astype(np.float32)
        edge_land, edge_water = self._beside(land), self._beside(~land)
        tree_land, tree_water = (cKDTree(self.vectors[edge]) for edge in (edge_land, edge_water))
        near = self.near(edge_land, reach_km)
        half_cell = EARTH_KM * np.radians(0.5 / self.cells_per_degree)
        for cells, tree, sign in ((near & land, tree_water, 1), (near & ~land, tree_land, -1)):
            found, _ = tree.query(self.vectors[cells], distance_upper_bound=chord(reach_km + half_cell))
            result[cells] = sign * np.minimum(ground_km(found) - half_cell, reach_km)
        return result

    def near(self, mask, km):
        """A rough, generous set of cells within `km` of those of `mask`."""
        reach = km / EARTH_KM / np.radians(1 / self.cells_per_degree) + 2
        tall = ndimage.maximum_filter1d(mask.astype(np.uint8), 2 * int(reach) + 1, axis=0)
        result = np.ones_like(mask)
        for row, lat in enumerate(self.lat):
            width = reach / max(np.cos(np.radians(min(abs(lat) + 2, 90))), 1e-3)
            if 2 * width < self.columns:
                size = 2 * int(width) + 1
                result[row] = ndimage.maximum_filter1d(tall[row], size, mode="wrap")
            else:
                result[row] = tall[row].any()
        return result

    def close_and_open(self, land, close_km, open_km):
        """Land with gulfs narrower than twice `close_km` filled, then capes narrower than twice
        `open_km` taken off."""
        for out_km, in_km in ((close_km, -close_km), (-open_km, open_km)):
            land = self.signed_km(land, abs(out_km) + 20) > -out_km
            land = self.signed_km(land, abs(in_km) + 20) > -in_km
        return land

    def band(self, line, half_width_km):
        """Cells within `half_width_km` of a line of longitude and latitude."""
        tree = cKDTree(unit_vectors(divide(np.array(line, dtype=float), 4)))
        lat = np.array(line)[:, 1]
        margin = np.degrees(half_width_km / EARTH_KM) + 0.5
        rows = (self.lat > lat.min() - margin) & (self.lat < lat.max() + margin)
        result = np.zeros((self.rows, self.columns), dtype=bool)
        found, _ = tree.query(self.vectors[rows], distance_upper_bound=chord(half_width_km))
        result[rows] = np.isfinite(found)
        return result

    def regions(self, mask):
        """Labels of the connected regions of `mask` across the date line, and their areas in km2 and
        northern edges in degrees, by label; label 0 is what lies outside."""
        labels, count = ndimage.label(mask)
        west, east = labels[:, 0], labels[:, -1]
        name = np.arange(count + 1)
        for a, b in sorted({(a, b) for a, b in zip(west, east) if a and b}):
            name[name == name[b]] = name[a]
        labels = name[labels]
        cells = np.broadcast_to(self.cell_km2[:, None], labels.shape)
        area = np.bincount(labels.ravel(), weights=cells.ravel(), minlength=count + 1)
        north = ndimage.maximum(np.broadcast_to(self.lat[:, None], labels.shape), labels,
                                np.arange(count + 1))
        return labels, area, north

    def smooth(self, field, sigma_km):
        """Gauss blur of `field`, as wide on the ground at every latitude."""
        sigma = sigma_km / EARTH_KM / np.radians(1 / self.cells_per_degree)
        result = ndimage.gaussian_filter1d(field, sigma, axis=0)
        for row, lat in enumerate(self.lat):
            width = min(sigma / np.cos(np.radians(lat)), self.columns / 8)
            result[row] = ndimage.gaussian_filter1d(result[row], width, mode="wrap")
        return result

    def contours(self, field):
        """Rings along the zero line of `field`, each closed, longitudes in -180 to 180."""
        positive = field > 0
        east = np.roll(field, -1, axis=1)

        def crossing(row, column, vertical):
            other = field[row + 1, column] if vertical else east[row, column]
            share = field[row, column] / (field[row, column] - other)
            lat = self.lat[row] + (share if vertical else 0) / self.cells_per_degree
            lon = self.lon[column] + (0 if vertical else share) / self.cells_per_degree
            return (lon + 180) % 360 - 180, lat

        corner = [positive[:-1], np.roll(positive, -1, axis=1)[:-1],
                  np.roll(positive, -1, axis=1)[1:], positive[1:]]
        mixed = ~(corner[0] & corner[1] & corner[2] & corner[3]) & (
            corner[0] | corner[1] | corner[2] | corner[3])
        following = {}
        for row, column in zip(*np.nonzero(mixed)):
            right = (column + 1) % self.columns
            sides = [(row, column, False), (row, right, True), (row + 1, column, False),
                     (row, column, True)]
            bits = [bool(c[row, column]) for c in corner]
            # land lies on the left of each step from the side where it is left to that where it is met
            leave = [sides[k] for k in range(4) if bits[k] and not bits[(k + 1) % 4]]
            enter = [sides[k] for k in range(4) if not bits[k] and bits[(k + 1) % 4]]
            following.update(zip(leave, enter))
        rings = []
        while following:
            start, step = following.popitem()
            ring = [crossing(*start)]
            while step != start:
                ring.append(crossing(*step))
                step = following.pop(step)
            rings.append(np.array(ring + ring[:1]))
        return rings
