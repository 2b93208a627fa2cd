"""Logs out of all measure, and settings that are none."""

import os
import re
import shutil
import time

from fulldisks import run_until_quiet
from harness import Row
from kinds import log_of

MEGABYTE = 1 << 20


def limited(bench, command, megabytes, patience):
    """Runs a program and says how it ended, after how many seconds, and what memory it took."""
    shell = f"ulimit -v {megabytes * 1024}; exec \"$@\""
    begun = time.monotonic()
    program = bench.start(["sh", "-c", shell, "sh", *command])
    ended = 0
    while not ended and time.monotonic() < begun + patience:
        ended, status, used = os.wait4(program.pid, os.WNOHANG)
        if ended:
            program.returncode = os.waitstatus_to_exitcode(status)
        else:
            time.sleep(0.01)
    peak = used.ru_maxrss // 1024 if ended else 0
    return bench.finish(program, 0.1), time.monotonic() - begun, peak


def huge_log(bench, write, statuses, megabytes, patience):
    """Plots and exports a log.
    @param statuses those of an orderly end, for the plot and for the export"""
    def run(tally, _dice):
        base = bench.folder()
        log = base / "log.adi"
        write(log)
        outputs = {"plot": ["--image", base / "map.png"], "kmz": ["--output", base / "log.kmz"]}
        for (command, output), wanted in zip(outputs.items(), statuses):
            end, seconds, peak = limited(bench, [bench.programs / "tovrel-batch", command, log,
                                                 *output, "--folder", bench.template],
                                         megabytes, patience)
            tally.note(f"{command} {end.status}")
            told = f"{command}: status {end.status} after {seconds:.0f} s, {peak} MB"
            if end.status not in wanted or seconds >= patience:
                tally.fault(f"{told}: {end.text.strip()[-200:]}")
        shutil.rmtree(base)
    return run


def one_record(log):
    with open(log, "wb") as file:
        file.write(b"<CALL:4>W1AW<APP_LOGGER32_LAT:2>41<APP_LOGGER32_LNG:2>72<COMMENT:104857600>")
        for _ in range(100):
            file.write(b"x" * MEGABYTE)
        file.write(b"<EOR>\r\n")


def no_record_end(log):
    with open(log, "wb") as file:
        for _ in range(100):
            file.write(b"<CALL:4>W1AW<BAND:3>20M<APP_LOGGER32_LNG:2>72\r\n" * 10000)


def sparse(log):
    with open(log, "wb") as file:
        file.write(b"<CALL:4>W1AW ")
        file.truncate(2 * 1024 * MEGABYTE)


def two_gigabytes(log):
    block = log_of(100000)
    with open(log, "wb") as file:
        while file.tell() < 2 * 1024 * MEGABYTE:
            file.write(block)


HUGE_NUMBERS = (b"1e308", b"-1e308", b"1e999", b"-1e999", b"nan", b"inf", b"99999999999999999999",
                b"-99999999999999999999", b"2147483648", b"-1", b"1e-320", b"32768")


def garbage(content, manner, dice):
    """Settings with every value replaced, or no settings at all."""
    def value(_match=None):
        if manner == "numbers":
            return dice.choice(HUGE_NUMBERS)
        if manner == "long":
            return bytes([dice.randrange(33, 127)]) * dice.choice((511, 512, 8000))
        if manner == "words":
            return dice.choice((b"True", b"maybe", b"''", b'"', b"-", b"=", b"[Globals]", b"%s%n"))
        return bytes(dice.randrange(256) for _ in range(dice.randrange(40)))

    if manner == "no settings":
        return bytes(dice.randrange(256) for _ in range(5000))
    return re.sub(rb"(?<==)[^\r\n]*", lambda match: value(), content)


MANNERS = ("bytes", "numbers", "long", "words", "no settings")


def garbage_settings(bench, manner, windows):
    def run(tally, dice):
        content = (bench.template / "Tovrel.ini").read_bytes()
        for number in range(bench.times(3, 20 if windows else 200)):
            base = bench.folder()
            shutil.copytree(bench.template, base, dirs_exist_ok=True)
            log = base / "log.adi"
            log.write_bytes(bench.log)
            settings = garbage(content, manner, dice)
            (base / "Tovrel.ini").write_bytes(settings)
            if windows:
                shutil.copy(bench.programs / "tovrel", base / "tovrel")
                end, busy = run_until_quiet(bench, [base / "tovrel"])
                outcomes = [("window", end, (-15,), busy, 0)]
            else:
                outcomes = list(without_windows(bench, base, log))
            for name, end, wanted, busy, peak in outcomes:
                tally.note(f"{name} {end.status}")
                if end.status not in wanted or busy or peak > 1000:
                    kept = bench.root.parent / f"tovrel_fault_{number}.ini"
                    kept.write_bytes(settings)
                    tally.fault(f"{name}: status {end.status}{', busy' * busy}, {peak} MB, with "
                                f"{kept}: {end.text.strip()[-200:]}")
            shutil.rmtree(base)
    return run


def without_windows(bench, base, log):
    batch = bench.programs / "tovrel-batch"
    report = ["--report", base / "report.json"]
    for name, command, wanted in (
            ("plot", [batch, "plot", log, "--folder", base, *report], (0, 1, 3)),
            ("kmz", [batch, "kmz", log, "--folder", base, *report], (0, 1, 3)),
            ("recreate", [bench.programs / "windowActs", base, "recreate"], (0,)),
            ("save", [bench.programs / "windowActs", base, "save"], (0,))):
        end, seconds, peak = limited(bench, command, 4000, 30)
        yield name, end, wanted, seconds >= 30, peak


def rows(bench, kinds):
    yield Row("log of one record of 100 MB", huge_log(bench, one_record, ((0,), (0,)), 1500, 60))
    yield Row("log of a million lines without <EOR>",
              huge_log(bench, no_record_end, ((1,), (1,)), 1500, 60))
    if bench.long:
        yield Row("log of 2 GB in one line",
                  huge_log(bench, sparse, ((1, 3), (1, 3)), 8000, 300))
        # No archive holds the document of such a log.
        yield Row("log of 2 GB", huge_log(bench, two_gigabytes, ((0,), (3,)), 4000, 900))
    for manner in MANNERS:
        yield Row(f"garbage as settings: {manner}", garbage_settings(bench, manner, False))
        yield Row(f"garbage, window program: {manner}", garbage_settings(bench, manner, True))
