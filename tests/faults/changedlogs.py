"""Logs that change while an export reads them."""

import os
import shutil

from harness import Row, go_on, wait_for_stop
from kinds import OLD_BYTES, entries_of, log_of, placemarks_of, read


def grow(log, content):
    with open(log, "ab") as file:
        file.write(log_of(500, 777))


def vanish(log, content):
    log.unlink()


def replace(log, content):
    other = log.with_name("other.adi")
    other.write_bytes(log_of(4000, 31))
    os.replace(other, log)


def shrink(log, content):
    os.truncate(log, len(content) // 2)


def change(part):
    """Other calls of the same length, at a part of the log."""
    def act(log, content):
        begin = content.index(b"<CALL", int(len(content) * part))
        piece = content[begin:begin + 5000].replace(b">K", b">Q")
        with open(log, "r+b") as file:
            file.seek(begin)
            file.write(piece)
    return act


def rewrite(log, content):
    """Other content, as a program writes it that doesn't replace its log but begins it anew."""
    log.write_bytes(content.replace(b">K", b">Q") + content[:1000])


SWAPPED = {change(0.02): "changes at its begin", change(0.5): "changes in its middle",
           change(0.97): "changes at its end"}
# What is done, and whether the export has to come through.
CHANGES = {"grows": (grow, True), "vanishes": (vanish, True), "is replaced": (replace, True),
           "shrinks": (shrink, False), "is written anew": (rewrite, False),
           **{name: (act, False) for act, name in SWAPPED.items()}}


class Exports:
    def __init__(self, bench):
        self.bench = bench
        self.count = bench.times(30000, 200000)
        self.content = log_of(self.count)
        self.right = None
        self.changed = None

    def prepare(self):
        base = self.bench.folder()
        log = base / "log.adi"
        log.write_bytes(self.content)
        (base / "log.kmz").write_bytes(OLD_BYTES)
        return base, log, [self.bench.programs / "tovrel-batch", "kmz", log, "--output",
                           base / "log.kmz", "--folder", self.bench.template]

    def learn(self, act):
        """Exports the log undisturbed, as it is and, where bytes change, as it will be.
        @return number of reads of an export"""
        base, log, command = self.prepare()
        calls, end = self.bench.calls(command, log)
        self.right = entries_of(read(base / "log.kmz"))
        assert end.status == 0, end
        assert self.right["log.kml"].count(b"<Placemark>") == placemarks_of(self.count)
        if act in SWAPPED:
            act(log, self.content)
            self.bench.run(command)
            self.changed = entries_of(read(base / "log.kmz"))
        shutil.rmtree(base)
        return len(calls["read"])

    def judge(self, tally, base, end, must_succeed, label):
        archive = read(base / "log.kmz")
        old = archive == OLD_BYTES
        entries = None if old or archive is None else entries_of(archive)
        # What was changed before it was read may well be exported, if all of it was.
        in_time = entries is not None and entries == self.changed
        right = entries == self.right or in_time
        tally.note("old" if old else "changed" if in_time else "new" if right else "wrong")
        said = end.text.strip().replace("\n", " | ")
        if not old and not right:
            tally.fault(f"{label}: the KMZ is not that of the log as it was, status {end.status}")
        elif right and end.status != 0:
            tally.fault(f"{label}: new, but status {end.status}: {said}")
        elif old and must_succeed:
            tally.fault(f"{label}: failed with {end.status}: {said}")
        elif old and (end.status != 3 or not any(word in said for word in ("shorter", "changed"))):
            tally.fault(f"{label}: status {end.status}, said: {said}")
        left = set(os.listdir(base)) - {"log.adi", "log.kmz"}
        if left or ".tovrel-" in said:
            tally.fault(f"{label}: left {' '.join(sorted(left))}, said {said}")


def changed_while_read(bench, act, must_succeed):
    """The export is halted at a read of the log, the log is changed, and the export goes on."""
    def run(tally, dice):
        exports = Exports(bench)
        reads = exports.learn(act)
        if reads < 9:
            tally.fault(f"only {reads} reads of the log were seen")
        moments = {1, reads} | {round(reads * part / 12) for part in range(1, 12, 2)}
        if not must_succeed:
            moments.discard(1)  # nothing was read before the change
        for at in sorted(moments | {dice.randint(2, reads) for _ in range(bench.times(0, 40))}):
            base, log, command = exports.prepare()
            program = bench.start(command, bench.injected(log, "read", at, "stop"))
            if wait_for_stop(program):
                act(log, exports.content)
                go_on(program)
            else:
                tally.fault(f"read {at}: the export did not halt")
            exports.judge(tally, base, bench.finish(program), must_succeed,
                          f"at read {at} of {reads}")
            shutil.rmtree(base)
    return run


def rows(bench, kinds):
    for name, (act, must_succeed) in CHANGES.items():
        yield Row(f"log {name}", changed_while_read(bench, act, must_succeed))
