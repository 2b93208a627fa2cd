"""Disks with more and more room, from none to more than enough, and a start of the window program
on a full one."""

import errno
import os
import shutil
import subprocess
import time

from harness import PATIENCE, Row, reasons_of
from kinds import DATA_FILES, read

PAGE = 4096


def leave_free(disk, pages):
    """Fills a disk but for some pages."""
    filler = disk / "filler"
    filler.unlink(missing_ok=True)
    state = os.statvfs(disk)
    size = state.f_bavail * state.f_frsize - pages * PAGE
    with open(filler, "wb") as file:
        os.posix_fallocate(file.fileno(), 0, size)
    free = os.statvfs(disk).f_bavail * state.f_frsize
    assert free == pages * PAGE, (free, pages)


def empty(disk):
    for entry in os.scandir(disk):
        shutil.rmtree(entry) if entry.is_dir() else os.unlink(entry)
    # The system gives back the room of a program that was running a moment ago when it likes.
    limit = time.monotonic() + PATIENCE
    while (state := os.statvfs(disk)).f_bavail < state.f_blocks:
        assert time.monotonic() < limit, "the disk doesn't get empty"
        time.sleep(0.002)


def steps(size, most, thorough, dice):
    """Numbers of free pages, every one or, in the middle of large files, one in a few."""
    pages = 0
    while pages < most:
        yield pages
        large = not thorough and 12 < pages < size // PAGE - 16
        pages += dice.randint(3, 12) if large else 1


def swept(kind):
    """More and more room until a few runs in a row had enough."""
    def run(tally, dice):
        bench = kind.bench
        disk = bench.mount("12m")
        try:
            enough = 0
            size = len(kind.reference)
            most = 300 + 3 * size // PAGE
            for pages in steps(size, most, bench.long or size < 64 * PAGE, dice):
                empty(disk)
                place = disk / "place"
                place.mkdir()
                trial = kind.prepare(place)
                old = read(kind.target(trial))
                leave_free(disk, pages)
                end = bench.run(kind.command(trial))
                label = f"{pages} pages free"
                kind.judge(tally, trial, old, end, reasons_of(errno.ENOSPC), label)
                if trial.base != place:
                    shutil.rmtree(trial.base)
                came_through = end.status == 0 and kind.state(trial, old) == "new"
                enough = enough + 1 if came_through else 0
                if enough == bench.times(5, 40):
                    break
            else:
                tally.fault(f"{most} pages were not enough")
        finally:
            bench.unmount(disk)
    return run


def cpu_time(program):
    with open(f"/proc/{program.pid}/stat", encoding="ascii") as file:
        return sum(map(int, file.read().rpartition(")")[2].split()[11:13]))


def run_until_quiet(bench, command, environment=None, patience=30):
    """Starts the window program, ends it when it has nothing left to do, and says how it ended: -15
    when it was there to be ended."""
    program = bench.start(command, environment)
    limit = time.monotonic() + patience
    last, since = -1, time.monotonic()
    while time.monotonic() < limit:
        try:
            program.wait(0.05)
            break
        except subprocess.TimeoutExpired:
            pass
        now = cpu_time(program)
        if now != last:
            last, since = now, time.monotonic()
        elif now > 0 and time.monotonic() - since > 0.5:
            break
    busy = time.monotonic() >= limit
    if program.poll() is None:
        program.terminate()
    end = bench.finish(program, 10)
    return end, busy


def window_program(bench):
    """The program itself, which begins with a look at all settings, on a disk without a byte free
    or with a little."""
    def run(tally, _dice):
        disk = bench.mount("24m")
        try:
            for pages in range(bench.times(6, 60)):
                empty(disk)
                shutil.copytree(bench.template, disk, dirs_exist_ok=True)
                for name in DATA_FILES:
                    shutil.copy(bench.data / name, disk / name)
                shutil.copy(bench.programs / "tovrel", disk / "tovrel")
                before = {entry.name: read(disk / entry.name) for entry in os.scandir(disk)}
                leave_free(disk, pages)
                end, busy = run_until_quiet(bench, [disk / "tovrel"])
                (disk / "filler").unlink()
                after = {entry.name: read(disk / entry.name) for entry in os.scandir(disk)}
                changed = sorted(name for name in before.keys() | after.keys()
                                 if before.get(name) != after.get(name))
                tally.note("changed" if changed else "unchanged")
                if changed:
                    sizes = [f"{name} ({len(after[name])} bytes)" if name in after else
                             f"{name} (gone)" for name in changed]
                    tally.fault(f"{pages} pages free: changed {', '.join(sizes)}")
                if end.status != -15 or busy:
                    tally.fault(f"{pages} pages free: status {end.status} {'busy' * busy}")
        finally:
            bench.unmount(disk)
    return run


def rows(bench, kinds):
    for name, kind in kinds.items():
        yield Row(f"full disk: {name}", swept(kind))
    yield Row("full disk: start of the window program", window_program(bench))
