"""Folders that can't be written to, and folders where a file should be."""

import errno
import shutil

from harness import NOBODY, Row, reasons_of
from kinds import read


def read_only(kind):
    def run(tally, _dice):
        trial = kind.prepare()
        old = read(kind.target(trial))
        trial.place.chmod(0o555)
        end = kind.bench.run(kind.command(trial), user=NOBODY)
        trial.place.chmod(0o755)
        if kind.state(trial, old) == "new":
            tally.fault("the folder was written to")
        kind.judge(tally, trial, old, end, reasons_of(errno.EACCES), "read-only folder")
        shutil.rmtree(trial.base)
    return run


def folder_in_its_place(kind):
    """The folder has to stay with what it holds, and the program to say what is in its way."""
    def run(tally, _dice):
        for content in (None, b"kept"):
            trial = kind.prepare()
            target = kind.target(trial)
            target.unlink(missing_ok=True)
            target.mkdir()
            if content:
                (target / "inside").write_bytes(content)
            end = kind.bench.run(kind.command(trial, kind.later))
            label = f"a folder with {'a file' if content else 'nothing'} in it"
            if not target.is_dir() or read(target / "inside") != content:
                tally.fault(f"{label}: has changed")
            # A folder counts as no file, which is what stood there before.
            kind.judge(tally, trial, None, end, ["directory", "folder", "not a plain file"], label)
            shutil.rmtree(trial.base)
    return run


def rows(bench, kinds):
    for name, kind in kinds.items():
        yield Row(f"read-only folder: {name}", read_only(kind))
    for name, kind in kinds.items():
        yield Row(f"folder in its place: {name}", folder_in_its_place(kind))
