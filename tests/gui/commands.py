"""Commands at any moment, and the windows beside the map."""

import re
import signal
import time

from desktop import PATIENCE, SCREEN, Failed, lasting, until
from program import MILLER, Program
from maximised import CLEAR_MAP, MERIDIANS, MILLER_MAP, PLOT, RECREATE_MAP

INFORMATION = ("f", "y")
PLOT_OPTIONS = ("p",)
STATISTICS = ("v",)


def long_log(bench):
    """A log that a pass works on for some time."""
    size = 400_000_000
    sample = (bench.programs / "sample.adi").read_bytes()
    head = re.search(rb"<eoh>", sample, re.IGNORECASE).end()
    path = bench.root / "long.adi"
    with path.open("wb") as file:
        file.write(sample[:head])
        for _ in range(size // (len(sample) - head)):
            file.write(sample[head:])
    return path


def closed_in_a_pass(bench):
    log = long_log(bench)
    try:
        with Program(bench, log=log) as program:
            program.menu(*PLOT)
            until("a pass", lambda: program.read_so_far(log) is not None)
            # Held, the program finds both acts in its first look at its events, however long they
            # took from here.
            program.process.send_signal(signal.SIGSTOP)
            program.desktop.key("alt+" + RECREATE_MAP[0], RECREATE_MAP[1])
            program.ask_to_close()
            at_close = program.read_so_far(log)
            program.process.send_signal(signal.SIGCONT)
            expect_stopped(program, log, at_close)
            program.expect_end()
    finally:
        log.unlink()


def expect_stopped(program, log, at_close):
    """The pass reads no more than a part of the log."""
    most = 0.9 * log.stat().st_size
    if at_close is None or at_close > most:
        raise Failed("the pass was over before the window could be closed")
    deadline = time.monotonic() + PATIENCE
    while (read := program.read_so_far(log)) is not None and time.monotonic() < deadline:
        if read > most:
            raise Failed(f"the pass goes on to byte {read}")
        time.sleep(0.005)


def information_kept(bench):
    with Program(bench) as program:
        desktop = program.desktop
        program.menu(*INFORMATION)
        dialog = program.wait_for("Information Input")
        desktop.activate(dialog)
        # From the call sign to the latitude, whose text is then marked.
        desktop.key("Tab")
        desktop.key("1", "2", "period", "5")
        program.menu(*INFORMATION)
        # That it has the keyboard as well is shown by the keys below.
        lasting("the dialog in front", lambda: program.system.in_front(desktop) == dialog)
        if list(desktop.windows(program.process.pid).values()).count("Information Input") != 1:
            raise Failed("there is a second dialog")
        # From the latitude to the button Apply.
        desktop.key("Tab", "Tab", "space")
        until("the dialog's end", lambda: not program.find("Information Input"))
        if program.stored("Globals", "Latitude") != "12.5":
            raise Failed(f"Latitude={program.stored('Globals', 'Latitude')} is stored, "
                         "12.5 was typed")
        program.close()


def escape_in_options(bench):
    with Program(bench) as program:
        program.menu(*PLOT_OPTIONS)
        title = "Azimuthal Equidistant Projection Map Options"
        program.desktop.activate(program.wait_for(title))
        program.desktop.key("Escape")
        until("the options' end", lambda: not program.find(title))
        before = program.desktop.screen.picture(program.client())
        program.menu(*MERIDIANS)
        until("the lines", lambda: program.desktop.screen.picture(program.client()) != before)
        program.wait_for_rest()
        program.close()
        if program.stored("GCMapOptions", "Meridian") != "True":
            raise Failed(f"Meridian={program.stored('GCMapOptions', 'Meridian')} is stored")


def on_screen(rect):
    return (rect.x >= 0 and rect.y >= 0 and rect.x + rect.w <= SCREEN[0] and
            rect.y + rect.h <= SCREEN[1])


def statistics_beside(settings):
    def check(bench):
        with Program(bench, settings) as program:
            program.menu(*STATISTICS)
            stats = program.wait_for("Tovrel Stats")
            try:
                lasting("statistics that are wholly on the screen", lambda:
                        on_screen(program.desktop.frame(stats)))
            except Failed as failure:
                raise Failed(f"{failure}, they lie at "
                             f"{tuple(program.desktop.frame(stats))}") from None
            program.close()
    return check


def statistics_opened_again(bench):
    """Window managers give a menu no buttons but that to close it, which leaves its caption room."""
    with Program(bench) as program:
        program.menu(*STATISTICS)
        expect_menu(program)
        program.menu(*MILLER_MAP)
        program.window = program.wait_for(MILLER)
        expect_menu(program)
        program.close()


def expect_menu(program):
    stats = program.wait_for("Tovrel Stats")
    lasting("statistics that are a menu", lambda:
            "_MENU" in program.desktop.ask("xprop", "-id", stats, "_NET_WM_WINDOW_TYPE"))


def find_dot(before, after):
    """The middle of a spot of which all pixels differ in two pictures."""
    reach = 3
    differ = [[one[i:i + 4] != other[i:i + 4] for i in range(0, len(one), 4)]
              for one, other in zip(before, after)]
    for y in range(reach, len(differ) - reach):
        for x in range(reach, len(differ[y]) - reach):
            if differ[y][x] and all(all(row[x - reach:x + reach + 1])
                                    for row in differ[y - reach:y + reach + 1]):
                return x, y
    raise Failed("no dot is on the map")


def tip_over_dot(bench):
    with Program(bench) as program:
        desktop = program.desktop
        area = program.map_area(program.menu_height())
        before = desktop.screen.rows(area)
        program.menu(*PLOT)
        until("a plot", lambda: desktop.screen.rows(area) != before)
        program.wait_for_rest()
        x, y = find_dot(before, desktop.screen.rows(area))

        def hover():
            desktop.point(area.x + x + 1, area.y + y)
            desktop.point(area.x + x, area.y + y)

        start = time.monotonic()
        hover()
        until("a tip over a dot", lambda: desktop.popups(program.process.pid))
        took = time.monotonic() - start
        program.menu(*CLEAR_MAP)
        desktop.point(area.x + 5, area.y + 5)
        lasting("no tip after Clear Map", lambda: not desktop.popups(program.process.pid))
        hover()
        deadline = time.monotonic() + max(2 * took, 1.5)
        while time.monotonic() < deadline:
            if desktop.popups(program.process.pid):
                raise Failed("a tip comes where a dot was before Clear Map")
            time.sleep(0.05)
        program.close()


CHECKS = {
    "a window closed in a pass, with a command waiting, ends": closed_in_a_pass,
    "Your Information picked again keeps what was typed": information_kept,
    "Escape in Plot Options leaves the marks of the menu to be stored": escape_in_options,
    "the statistics are on the screen": statistics_beside(""),
    "the statistics of a window as large as the screen are on it":
        statistics_beside("GCHeight=1000000000"),
    "the statistics opened again have a close button alone": statistics_opened_again,
    "a tip comes over a dot, and none after Clear Map": tip_over_dot,
}
