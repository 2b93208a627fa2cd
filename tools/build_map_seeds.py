"""Seeds of the water fill: points that fall into the sea on every map, wherever home lies."""

import numpy as np
from scipy import ndimage
from scipy.spatial import cKDTree

from build_map_shapes import chord, divide, ground_km, unit_vectors

SIZE, CENTRE = 667, 1000 / 3
UNITS_PER_PIXEL = 66.0
SEED_UNITS_PER_PIXEL, SEED_CENTRE = 66.66, 333.33
INNER_RADIUS, LIMIT = 20000, -0.999
ISLET_PIXELS = 25
CROWDED_COST = 100  # pixels that a map with land beside the hit weighs
LEAST_ROOM_KM, LEAST_GAP_KM, GAP_PER_ROOM = 45, 250, 5
EARTH_KM, PI, RADIAN = 6371.29, 3.141599265, 0.01745332925


def azimuthal(home, points):
    """Map units of `points` (longitude, latitude) for `home` (longitude, latitude), and which of them
    lie too near the antipode to be drawn."""
    lat, lon = (points[:, k].astype(np.float32) * RADIAN for k in (1, 0))
    lat, lon = lat.astype(np.float32).astype(float), lon.astype(np.float32).astype(float)
    home_lat, home_lon = float(np.float32(home[1] * RADIAN)), float(np.float32(home[0] * RADIAN))
    turn = lon - home_lon
    c = np.sin(home_lat) * np.sin(lat) + np.cos(home_lat) * np.cos(lat) * np.cos(turn)
    c = np.clip(c.astype(np.float32).astype(float), -1, 1)
    arc = PI / 2 - np.arcsin(c)
    t = (np.sin(lat) - np.sin(home_lat) * np.cos(arc)) / np.maximum(
        np.cos(home_lat) * np.sin(arc), 1e-12)
    bearing = PI / 2 - np.arcsin(np.clip(t, -1, 1))
    bearing = np.where(np.sin(turn) < 0, 2 * PI - bearing, bearing)
    distance = arc * EARTH_KM
    return np.stack((np.sin(bearing) * distance, np.cos(bearing) * distance), axis=1), c <= LIMIT


def pixels(units, per_pixel=UNITS_PER_PIXEL, centre=CENTRE):
    """Column and row of positions in map units."""
    return np.rint(units * (1, -1) / per_pixel + centre).astype(int)


def draw_lines(surface, start, end):
    """Sets the pixels of straight lines from `start` to `end`, both ends included."""
    count = np.abs(end - start).max(axis=1)
    line = np.repeat(np.arange(len(count)), count + 1)
    step = np.arange(len(line)) - np.repeat(np.cumsum(count + 1) - count - 1, count + 1)
    share = step / np.maximum(count[line], 1)
    points = np.rint(start[line] + (end - start)[line] * share[:, None]).astype(int)
    points = points[((points >= 0) & (points < SIZE)).all(axis=1)]
    surface[points[:, 1], points[:, 0]] = True


def draw_azimuthal(coast, home):
    """Black pixels of the azimuthal coast: `coast` holds rows of start mark, longitude, latitude."""
    black = np.zeros((SIZE, SIZE), dtype=bool)
    turn = np.linspace(0, 2 * np.pi, 8000)
    rim = pixels(INNER_RADIUS * np.stack((np.cos(turn), np.sin(turn)), axis=1))
    black[rim[:, 1], rim[:, 0]] = True
    units, cut = azimuthal(home, coast[:, 1:])
    spots = pixels(units)
    seen, start = ~cut, coast[:, 0] > 0
    black[spots[seen & start, 1], spots[seen & start, 0]] = True
    follows = ~start[1:]
    joined = follows & seen[1:] & seen[:-1]
    draw_lines(black, spots[:-1][joined], spots[1:][joined])
    # a stroke that is cut off near the antipode runs straight out to the circle and comes back from it
    for inner in (np.flatnonzero(follows & seen[:-1] & cut[1:]),
                  np.flatnonzero(follows & cut[:-1] & seen[1:]) + 1):
        length = np.linalg.norm(units[inner], axis=1, keepdims=True)
        draw_lines(black, spots[inner], pixels(units[inner] / length * INNER_RADIUS))
    return black


def draw_miller(coast):
    """Black pixels of the cylindrical coast; strokes run off the edge at the date line."""
    black = np.zeros((SIZE, SIZE), dtype=bool)
    spots = pixels(coast[:, 1:] * (122, 240))
    black[spots[:, 1].clip(0, SIZE - 1), spots[:, 0].clip(0, SIZE - 1)] = True
    follows = coast[1:, 0] == 0
    across = follows & (np.abs(np.diff(coast[:, 1])) > 180)
    joined = follows & ~across
    draw_lines(black, spots[:-1][joined], spots[1:][joined])
    for ends in (spots[:-1][across], spots[1:][across]):
        edge = ends.copy()
        edge[:, 0] = np.where(ends[:, 0] > CENTRE, SIZE, -1)
        draw_lines(black, ends, edge)
    return black


def azimuthal_truth(home, land, cells_per_degree):
    """True land at each pixel of the azimuthal map, and which pixels lie inside the inner circle."""
    column, row = np.meshgrid(np.arange(SIZE), np.arange(SIZE))
    x, y = (column - CENTRE) * UNITS_PER_PIXEL, (CENTRE - row) * UNITS_PER_PIXEL
    distance = np.hypot(x, y)
    arc, bearing = np.minimum(distance / EARTH_KM, np.pi), np.arctan2(x, y)
    home_lat, home_lon = np.radians(home[1]), np.radians(home[0])
    lat = np.arcsin(np.clip(np.sin(home_lat) * np.cos(arc)
                            + np.cos(home_lat) * np.sin(arc) * np.cos(bearing), -1, 1))
    lon = home_lon + np.arctan2(np.sin(bearing) * np.sin(arc) * np.cos(home_lat),
                                np.cos(arc) - np.sin(home_lat) * np.sin(lat))
    return look_up(land, np.degrees(lon), np.degrees(lat), cells_per_degree), distance < INNER_RADIUS


def look_up(land, lon, lat, cells_per_degree):
    """Values of a raster at longitudes and latitudes in degrees."""
    row = np.clip((lat + 90) * cells_per_degree, 0, land.shape[0] - 1).astype(int)
    return land[row, ((lon + 180) * cells_per_degree).astype(int) % land.shape[1]]


def lattice(count):
    """`count` points spread evenly over the globe, longitude and latitude in degrees."""
    k = np.arange(count) + 0.5
    lon = (k * 180 * (3 - np.sqrt(5))) % 360 - 180
    return np.stack((lon, np.degrees(np.arcsin(1 - 2 * k / count))), axis=1)


class SeedChooser:
    """Gathers, map by map, where each candidate would fall, then picks the few that paint most sea."""

    def __init__(self, candidates):
        self.candidates = candidates
        self.allowed = np.ones(len(candidates), dtype=bool)
        self.crowded = np.zeros(len(candidates), dtype=int)  # maps with land beside the hit
        self.painted = []  # for each map, the region that each candidate paints, 0 for none
        self.areas = []  # for each map, pixels of sea in each region

    def add_map(self, black, true_land, inside, spots, hidden):
        """`spots` are the pixels that the candidates hit; those `hidden` paint nothing."""
        labels, count = ndimage.label(~black & inside)
        sea = np.bincount(labels.ravel(), weights=(~true_land).ravel(), minlength=count + 1)
        size = np.bincount(labels.ravel(), minlength=count + 1)
        is_sea = sea > 0.5 * size
        is_sea[0] = False
        # a seed on an islet costs no more than that islet; a seed on a continent or its outline does
        outlines, _ = ndimage.label(black, np.ones((3, 3)))
        is_islet = np.bincount(outlines.ravel()) <= ISLET_PIXELS
        harmless = (is_sea | (size <= ISLET_PIXELS))[labels] & (~black | is_islet[outlines])
        column, row = spots.clip(0, SIZE - 1).T
        self.allowed &= hidden | harmless[row, column]
        roomy = ndimage.binary_erosion(harmless, np.ones((3, 3)))
        self.crowded += ~(hidden | roomy[row, column])
        paints = ~hidden & is_sea[labels[row, column]]
        self.painted.append(np.where(paints, labels[row, column], 0))
        self.areas.append(np.where(is_sea, sea, 0))

    def choose(self, least_gain):
        """Seeds in the order in which they were chosen, until the next would paint, over all maps,
        fewer than `least_gain` pixels."""
        offset = np.cumsum([0] + [len(area) for area in self.areas])
        allowed = np.flatnonzero(self.allowed)
        painted = np.stack(self.painted)[:, allowed] + offset[:-1, None]
        left = np.concatenate(self.areas)
        left[offset[:-1]] = 0
        chosen = []
        while True:
            gain = left[painted].sum(axis=0)
            best = int(np.argmax(gain - CROWDED_COST * self.crowded[allowed] * (gain > 0)))
            if gain[best] < least_gain:
                return self.candidates[allowed[chosen]]
            left[painted[:, best]] = 0
            chosen.append(best)


def square(middle, half_width, step):
    """Points of a square net round `middle`, all in degrees of longitude and latitude."""
    offset = np.arange(-half_width, half_width + step / 2, step)
    lon, lat = np.meshgrid(middle[0] + offset, middle[1] + offset)
    return np.stack((lon.ravel(), lat.ravel()), axis=1)


def choose_seeds(coast, true_land, cells_per_degree, homes, first, rooms, least_gain):
    """Seeds as rows of longitude, latitude. `first` comes first: the antipode of that seed is at sea,
    so that from every inhabited home it is drawn, and a later seed that is cut off falls on it.
    `rooms` are middles of small seas, where only few spots are safe and the net is tighter."""
    net = square((0, 3), 180, 1.5)
    net = net[(np.abs(net[:, 1] - 3) < 81) & (net[:, 0] < 180)]
    candidates = np.concatenate([net] + [square(room, 0.6, 0.1) for room in rooms])
    candidates = candidates[~look_up(true_land, *candidates.T, cells_per_degree)]
    candidates = np.concatenate((np.array([first]), candidates))
    chooser = SeedChooser(candidates)
    for home in homes:
        truth, inside = azimuthal_truth(home, true_land, cells_per_degree)
        units, hidden = azimuthal(home, candidates)
        chooser.add_map(draw_azimuthal(coast, home), truth, inside,
                        pixels(units, SEED_UNITS_PER_PIXEL, SEED_CENTRE), hidden)
    column, row = np.meshgrid(np.arange(SIZE), np.arange(SIZE))
    truth = look_up(true_land, (column - CENTRE) * UNITS_PER_PIXEL / 122,
                    (CENTRE - row) * UNITS_PER_PIXEL / 240, cells_per_degree)
    inside = np.ones_like(truth)
    spots = pixels(candidates * (120, 240), SEED_UNITS_PER_PIXEL, SEED_CENTRE)
    chooser.add_map(draw_miller(coast), truth, inside, spots, np.zeros(len(candidates), dtype=bool))
    chosen = chooser.choose(least_gain)
    rest = chosen[(chosen != np.array(first)).any(axis=1)]
    return np.concatenate((np.array([first]), rest))


def seeds_in_the_open(strokes, land, grid):
    """Seeds that are hit where they lie, as rows of longitude, latitude: so many that each part of the
    sea in which a pixel of 33 km has room beside its coasts holds one, the deepest first, and another a
    little farther, since those near the antipode of home are cut off."""
    net = square((0, 0), 180, 0.25)
    net = net[(np.abs(net[:, 1]) < 89) & (net[:, 0] < 180)]
    net = net[~look_up(land, *net.T, grid.cells_per_degree)]
    coast = cKDTree(unit_vectors(np.concatenate([divide(stroke, 5) for stroke in strokes])))
    vectors = unit_vectors(net)
    room = ground_km(coast.query(vectors)[0])
    chosen = []
    taken = np.empty((0, 3))
    for index in np.argsort(-room, kind="stable"):
        if room[index] < LEAST_ROOM_KM:
            break
        gap = max(LEAST_GAP_KM, GAP_PER_ROOM * room[index])
        if len(taken) == 0 or np.linalg.norm(taken - vectors[index], axis=1).min() > chord(gap):
            chosen.append(index)
            taken = vectors[chosen]
    return net[chosen]
