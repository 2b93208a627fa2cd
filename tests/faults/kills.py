"""The programs killed at random moments, and at each call that touches the files which they write.
After every kill the next run has to work."""

import shutil
import subprocess
import time

from harness import Row, spread

WRITING = ("openw", "mkdir", "write", "fsync", "fsyncdir", "rename", "remove")


def check_killed(kind, tally, trial, label):
    """What a kill has left, and then a run that nobody disturbs."""
    state = kind.state(trial, kind.old)
    tally.note(state)
    if state not in ("old", "new") and not (state == "other" and kind.steps):
        tally.fault(f"{label}: the file is {state}")


def check_next(kind, tally, trial, label):
    end = kind.bench.run(kind.command(trial))
    state = kind.state(trial, kind.old)
    # The start after one that was cut off between two steps adds keys in another order.
    if end.status != 0 or (state != "new" and not (state == "other" and kind.steps)):
        tally.fault(f"{label}: the next run ends with {end.status}, the file is {state}")
    # An export clears the work folders of dead ones.
    left = [name for name in kind.left(trial) if name.startswith(".tovrel-")]
    if kind.exports and left:
        tally.fault(f"{label}: {' '.join(left)} outlives the next run")


def at_random_moments(kind):
    def run(tally, dice):
        trial = kind.prepare()
        begun = time.monotonic()
        kind.bench.run(kind.command(trial))
        duration = time.monotonic() - begun
        shutil.rmtree(trial.base)
        for number in range(kind.bench.times(20, 250)):
            trial = kind.prepare()
            label = f"try {number + 1}"
            # Several kills in a row leave more behind than one.
            for _ in range(3):
                kind.restore(trial)
                program = kind.bench.start(kind.command(trial))
                try:
                    program.wait(dice.uniform(0, 1.1 * duration))
                except subprocess.TimeoutExpired:
                    program.kill()
                kind.bench.finish(program)
                check_killed(kind, tally, trial, label)
            check_next(kind, tally, trial, label)
            shutil.rmtree(trial.base)
    return run


def at_each_call(kind):
    def run(tally, _dice):
        bench = kind.bench
        trial = kind.prepare()
        calls, _ = bench.calls(kind.command(trial), trial.place)
        if not any(calls[call] for call in WRITING):
            tally.fault("no call that writes was seen")
        for call in WRITING:
            for at in spread(len(calls[call]), bench.times(8, 10000)):
                for moment in ("kill", "killed") + (("torn",) if call == "write" else ()):
                    shutil.rmtree(trial.base)
                    trial = kind.prepare()
                    label = f"{moment} at {call} {at}"
                    end = bench.run(kind.command(trial),
                                    bench.injected(trial.place, call, at, moment))
                    if end.status != -9:
                        tally.fault(f"{label}: no kill, but status {end.status}")
                    check_killed(kind, tally, trial, label)
                    check_next(kind, tally, trial, label)
        shutil.rmtree(trial.base)
    return run


def rows(bench, kinds):
    for name in ("settings", "map cache", "saved map", "KMZ", "KMZ of the window", "report"):
        yield Row(f"kill -9 at random: {name}", at_random_moments(kinds[name]))
    for name, kind in kinds.items():
        yield Row(f"kill -9 at each call: {name}", at_each_call(kind))
