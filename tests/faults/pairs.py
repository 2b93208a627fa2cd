"""Two exports of one log at once."""

import os
import shutil
import time

from harness import Row
from kinds import read


def pairs(first, second, dead=False):
    """Both have to end well each time, and the archive has to be whole and right.
    @param dead whether there is the work folder of one that was killed, which both clear away"""
    def run(tally, dice):
        bench = first.bench
        trial = first.prepare()
        commands = [first.command(trial), beside(first, second, trial)]
        before = os.listdir(trial.place)
        for number in range(bench.times(50, 1500)):
            first.restore(trial)
            dice.shuffle(commands)
            if dead:
                bench.run(commands[0], bench.injected(trial.place, "rename", 1, "kill"))
            programs = []
            for command in commands:
                programs.append(bench.start(command))
                time.sleep(dice.choice((0, 0.02)) * dice.random())
            ends = [bench.finish(program) for program in programs]
            archive = read(first.target(trial))
            right = archive is not None and first.is_right(archive)
            statuses = sorted(end.status for end in ends)
            good = right and statuses == [0, 0] and not any(failed(end) for end in ends)
            tally.note("both" if good else "broken")
            if not good:
                said = " / ".join(end.text.strip().replace("\n", " | ")[-120:] for end in ends)
                tally.fault(f"pair {number + 1}: {statuses}, KMZ {'right' * right}: {said}")
            left = set(os.listdir(trial.place)) - set(before) - {"log.kmz"}
            if left:
                tally.fault(f"pair {number + 1}: left {' '.join(sorted(left))}")
        shutil.rmtree(trial.base)
    return run


def failed(end):
    return "could not" in end.text


def beside(first, second, trial):
    """The other program's export of the same log into the same archive."""
    if first is second:
        return first.command(trial)
    return [second.bench.programs / "tovrel-batch", "kmz", trial.base / "log.adi", "--folder",
            trial.base]


def rows(bench, kinds):
    window, batch = kinds["KMZ of the window"], kinds["KMZ"]
    yield Row("two exports at once: tovrel-batch", pairs(batch, batch))
    yield Row("two exports at once: window program", pairs(window, window))
    yield Row("two exports at once: one of each", pairs(window, batch))
    yield Row("two exports beside a dead one: tovrel-batch", pairs(batch, batch, dead=True))
    yield Row("two exports beside a dead one: window", pairs(window, window, dead=True))
