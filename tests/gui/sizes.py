"""The shape of the window, and the sizes that the settings file holds."""

from desktop import SCREEN, Failed, lasting
from program import AZIMUTHAL, MILLER, TWIPS, Program

SMALLEST = 240  # pixels that the azimuthal map is high, the Miller map wide, at least


def expect_size(program, width, height):
    try:
        lasting(f"a window of {width} x {height}",
                lambda: program.fits(program.frame().w, width) and
                program.fits(program.frame().h, height))
    except Failed as failure:
        raise Failed(f"{failure}, it has {program.frame().w} x {program.frame().h}") from None


def drag_right_edge(program, by):
    frame = program.frame()
    middle = frame.y + frame.h // 2
    program.desktop.drag((frame.x + frame.w - 1, middle), (frame.x + frame.w - 1 + by, middle))


def start_shape(bench):
    with Program(bench, f"GCHeight={520 * TWIPS}") as program:
        menu = program.menu_height()
        frame, client = program.frame(), program.client()
        if not program.fits(frame.h, 520):
            raise Failed(f"the window is {frame.h} high, 520 are stored")
        if not program.fits(frame.w, client.h - menu):
            raise Failed(f"the window is {frame.w} wide, its map {client.h - menu} high")
        program.close()


def wider_by_drag(bench):
    with Program(bench) as program:
        before = program.frame()
        drag_right_edge(program, 20)
        expect_size(program, before.w + 20, before.h + 20)
        if program.frame()[:2] != before[:2]:
            raise Failed(f"the window moved from {before[:2]} to {program.frame()[:2]}")
        program.close()
        program.stores_size("GCHeight", before.h + 20)


def wider_by_window_manager(bench):
    with Program(bench) as program:
        before, client = program.frame(), program.client()
        program.desktop.resize(program.window, client.w + 20, client.h)
        expect_size(program, before.w + 20, before.h + 20)
        program.close()


def wider_miller(bench):
    with Program(bench, f"Display=Miller\nMlWidth={600 * TWIPS}") as program:
        expect_size(program, 600, 300)
        drag_right_edge(program, 20)
        expect_size(program, 620, 310)
        program.close()
        program.stores_size("MlWidth", 620)


def expect_map_left(program, title):
    """What is left of a window that was made as small as it goes: all of a map."""
    frame = program.frame()
    if title == MILLER and abs(2 * frame.h - frame.w) > 1 + program.system.frame_slack:
        raise Failed(f"the window has lost its shape, it has {frame.w} x {frame.h}")
    if program.find(title) != program.window:
        raise Failed("the window has gone")
    menu = program.menu_height()
    place = program.map_place(menu)
    low = place.w < SMALLEST or (title == AZIMUTHAL and place.h < SMALLEST)
    if low or place.h <= SMALLEST // 3:
        raise Failed(f"the map has {place.w} x {place.h}")
    # Its own colours, not the gray that is left where nothing is drawn.
    if len({row[i:i + 4] for row in program.desktop.screen.rows(program.map_area(menu))
            for i in range(0, len(row), 4)}) < 3:
        raise Failed("the map is not drawn")


def narrow(bench, title, settings):
    with Program(bench, settings) as program:
        before = program.frame()
        drag_right_edge(program, 60 - before.w)
        program.wait_for_rest()
        expect_map_left(program, title)
        program.desktop.resize(program.window, 100, 60)
        program.wait_for_rest()
        expect_map_left(program, title)
        if program.frame().w >= before.w:
            raise Failed("the window did not get smaller")
        program.close()


def narrow_miller(bench):
    narrow(bench, MILLER, f"Display=Miller\nMlWidth={800 * TWIPS}")


def narrow_azimuthal(bench):
    narrow(bench, AZIMUTHAL, f"GCHeight={640 * TWIPS}")


def stored_size(title, setting):
    def check(bench):
        display = "Azimuthal" if title == AZIMUTHAL else "Miller"
        with Program(bench, f"Display={display}\n{setting}") as program:
            x, y, w, h = program.frame()
            slack = bench.system.frame_slack
            if min(x, y) < -slack or x + w > SCREEN[0] + slack or y + h > SCREEN[1] + slack:
                raise Failed(f"the window of {w} x {h} at {x}, {y} is not wholly on the screen")
            expect_map_left(program, title)
            program.close()
    return check


CHECKS = {
    "the azimuthal window starts with the stored height and a square map": start_shape,
    "a right edge dragged by 20 pixels makes the azimuthal window larger by 20": wider_by_drag,
    "20 pixels more from the window manager are 20 pixels more both ways": wider_by_window_manager,
    "a right edge dragged by 20 pixels keeps the Miller window two to one": wider_miller,
    "a narrow Miller window keeps its map": narrow_miller,
    "a narrow azimuthal window keeps its map": narrow_azimuthal,
    **{f"a start with {key}={value} shows the whole window":
       stored_size(title, f"{key}={value}")
       for title, key in ((AZIMUTHAL, "GCHeight"), (MILLER, "MlWidth"))
       for value in ("0", "-5", "1000000000")},
}
