"""A maximised window: commands take effect in it, and its size is nobody's wish."""

from desktop import SCREEN, Failed, lasting, until
from program import AZIMUTHAL, MILLER, TWIPS, Program

CLEAR_MAP = ("m", "c")
RECREATE_MAP = ("m", "r")
MERIDIANS = ("m", "a", "m")
COMPASS = ("m", "a", "c", "s")
MILLER_MAP = ("m", "p", "m")
AZIMUTHAL_MAP = ("m", "p", "a")
PLOT = ("l",)


class Maximised:
    """A program whose window is maximised, and what its map shows."""

    def __init__(self, program):
        self.program = program
        self.free = program.frame()
        self.menu = program.menu_height()
        program.desktop.maximise(program.window, True)
        lasting("a window as wide and high as the screen", lambda:
                program.frame() == (0, 0, *SCREEN))
        program.wait_for_rest()
        self.clean = self.picture()

    def picture(self):
        return self.program.picture(self.menu)

    def changes_by(self, *item):
        """A command that changes what is on the screen."""
        before = self.picture()
        self.program.menu(*item)
        until(f"another picture after {'-'.join(item)}", lambda: self.picture() != before)
        self.program.wait_for_rest()
        if self.picture() == before:
            raise Failed(f"{'-'.join(item)} has changed nothing")

    def cleaned_by(self, *item):
        """A command after which the map is what it was at first."""
        self.program.menu(*item)
        lasting(f"the picture from before the plot after {'-'.join(item)}", lambda:
                self.picture() == self.clean)

    def restore(self):
        self.program.desktop.maximise(self.program.window, False)
        lasting("a free window", lambda: self.program.frame()[2:] != SCREEN)
        self.program.wait_for_rest()


def in_maximised(bench, act):
    with Program(bench) as program:
        act(Maximised(program))
        program.close()


def square_in_the_middle(bench):
    def act(window):
        place = window.program.map_place(window.menu)
        area = window.program.map_area(window.menu)
        if place.w != place.h or place.h != area.h:
            raise Failed(f"the map has {place.w} x {place.h}, {area.h} are free")
        if abs(2 * place.x + place.w - area.w) > 1:
            raise Failed(f"the map lies at {place.x} of {area.w}")
    in_maximised(bench, act)


def plot_and_clear(bench):
    def act(window):
        window.changes_by(*PLOT)
        window.cleaned_by(*CLEAR_MAP)
        window.changes_by(*PLOT)
        window.cleaned_by(*RECREATE_MAP)
    in_maximised(bench, act)


def appearance(bench):
    def act(window):
        for item in (MERIDIANS, COMPASS):
            window.changes_by(*item)
            window.cleaned_by(*item)
    in_maximised(bench, act)


def projection(bench):
    def act(window):
        window.program.menu(*MILLER_MAP)
        window.program.window = window.program.wait_for(MILLER)
        window.program.wait_for_rest()
        place = window.program.map_place(window.menu)
        if place.w == 0 or abs(2 * place.h - place.w) > 2:
            raise Failed(f"the Miller map has {place.w} x {place.h}")
        window.changes_by(*PLOT)
        window.program.menu(*AZIMUTHAL_MAP)
        window.program.window = window.program.wait_for(AZIMUTHAL)
        window.program.wait_for_rest()
        # The plot is drawn anew on the map that is switched to.
        if window.picture() == window.clean:
            raise Failed("the plot is lost after the switch")
        window.cleaned_by(*CLEAR_MAP)
    in_maximised(bench, act)


def restored(bench):
    def act(window):
        window.changes_by(*PLOT)
        window.restore()
        if window.program.frame() != window.free:
            raise Failed(f"the window came back as {tuple(window.program.frame())}, "
                         f"it was {tuple(window.free)}")
    in_maximised(bench, act)


def free_size_stored(bench):
    with Program(bench, f"GCHeight={560 * TWIPS}") as program:
        window = Maximised(program)
        program.close()
        program.stores_size("GCHeight", window.free.h)


CHECKS = {
    "a maximised window has a square map in its middle": square_in_the_middle,
    "a plot shows in a maximised window and leaves it at Clear Map and Recreate map":
        plot_and_clear,
    "meridians and compass come and go in a maximised window": appearance,
    "the projection is switched in a maximised window": projection,
    "a restored window has its place and size from before": restored,
    "a maximised window stores its free size": free_size_stored,
}
