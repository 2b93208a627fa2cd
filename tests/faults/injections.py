"""Calls to the system that fail, one at a time: each run makes one of them fail with one error."""

import errno
import shutil

from harness import Row, reasons_of, spread
from kinds import read

# What is tried on the calls of each kind. Half a write and half a read are no errors, nor is a call
# that is to be made once more.
ERRORS = {
    "write": (errno.ENOSPC, errno.EIO, errno.EINTR, "short"),
    "rename": (errno.EACCES, errno.EIO),
    "fsync": (errno.EIO, errno.ENOSPC),
    "fsyncdir": (errno.EIO,),
    "openw": (errno.EACCES, errno.EMFILE),
    "mkdir": (errno.EACCES, errno.ENOSPC),
    "openr": (errno.EACCES, errno.EMFILE),
    "read": (errno.EIO, errno.EINTR, "short"),
}
NAMES = {"openw": "opening to write", "openr": "opening to read", "fsyncdir": "fsync of folder"}
HARMLESS = ("short", errno.EINTR)
READING = ("openr", "read")
# Nothing that comes after can mend these, so that success in silence is a lie.
FINAL = ("write", "fsync")
# Not every file takes these.
RARE = ("mkdir", "fsyncdir")


def failing(kind, call):
    def run(tally, _dice):
        bench = kind.bench
        trial = kind.prepare()
        # What is read lies in other folders too.
        calls, end = bench.calls(kind.command(trial), watched(trial, call))
        if end.status != 0 or kind.state(trial, None) != "new":
            tally.fault(f"without a fault: status {end.status}, {kind.state(trial, None)}")
        for at in spread(len(calls[call]), bench.times(12, 10000)):
            for error in ERRORS[call]:
                shutil.rmtree(trial.base)
                trial = kind.prepare()
                old = read(kind.target(trial))
                end = bench.run(kind.command(trial),
                                bench.injected(watched(trial, call), call, at, error))
                reasons = [] if error in HARMLESS else reasons_of(error)
                path = calls[call][at - 1]
                label = (f"{call} {at} of {len(calls[call])}, {errno.errorcode.get(error, error)}, "
                         f"{path.rpartition('/')[2]}")
                # A work folder's lock may fail; its document would not come out right then.
                final = call in FINAL and error not in HARMLESS and "/.tovrel-" not in path
                kind.judge(tally, trial, old, end, reasons, label, always=final)
        if not calls[call]:
            tally.note("no such call")
            if call not in RARE:
                tally.fault("no such call was seen")
        shutil.rmtree(trial.base)
    return run


def watched(trial, call):
    return trial.base if call in READING else trial.place


def rows(bench, kinds):
    for name, kind in kinds.items():
        for call in ERRORS:
            if call != "mkdir" or kind.exports:
                yield Row(f"{NAMES.get(call, call)} fails: {name}", failing(kind, call))
