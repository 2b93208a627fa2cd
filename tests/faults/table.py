"""Tries a table of faults on the programs and prints a line for each row.

    table.py PROGRAMS DATA [--long] [--seed N] [--only TEXT] [--jobs N]

PROGRAMS is the folder of the programs that were built, DATA that of the data files.
"""

import argparse
import concurrent.futures
import random
import signal
import sys
import time
import traceback

import changedlogs
import extremes
import folders
import fulldisks
import injections
import kills
import pairs
from harness import Bench, Skipped, Tally
from kinds import make_kinds

SHOWN = 4  # faults of a row that are printed
THEMES = (kills, fulldisks, injections, folders, changedlogs, pairs, extremes)


def try_row(bench, row):
    """@return the row's result, its line and the lines below it"""
    tally = Tally()
    begun = time.monotonic()
    try:
        row.run(tally, bench.random(row.name))
        if tally.tried == 0:
            tally.fault("nothing was tried")
    except Skipped as reason:
        return "skipped", f"{row.name:<46}    -  {str(reason):<40} skipped", []
    except Exception:  # one row's mishap must not hide the others
        tally.fault(traceback.format_exc(limit=3))
    result = "FAILED" if tally.faults else "ok"
    seconds = time.monotonic() - begun
    line = f"{row.name:<46} {tally.tried:>4}  {tally.summary():<40} {result} ({seconds:.1f} s)"
    below = [f"    {fault}" for fault in tally.faults[:SHOWN]]
    if len(tally.faults) > SHOWN:
        below.append(f"    and {len(tally.faults) - SHOWN} more")
    return "failed" if tally.faults else "passed", line, below


def main():
    parser = argparse.ArgumentParser(prog="scripts/test-faults")
    parser.add_argument("programs")
    parser.add_argument("data")
    parser.add_argument("--long", action="store_true")
    parser.add_argument("--seed", type=int, default=random.randrange(1000000))
    parser.add_argument("--only", default="")
    parser.add_argument("--jobs", type=int, default=2)
    options = parser.parse_args()

    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))  # so that nothing stays mounted
    print(f"seed {options.seed}", flush=True)
    begun = time.monotonic()
    bench = Bench(options.programs, options.data, options.seed, options.long)
    results = {"passed": 0, "failed": 0, "skipped": 0}
    try:
        kinds = make_kinds(bench)
        rows = [row for theme in THEMES for row in theme.rows(bench, kinds)
                if options.only in row.name]
        workers = concurrent.futures.ThreadPoolExecutor(options.jobs)
        try:
            for result, line, below in workers.map(lambda row: try_row(bench, row), rows):
                results[result] += 1
                print("\n".join([line, *below]), flush=True)
        finally:
            workers.shutdown(cancel_futures=True)
    finally:
        bench.close()
    skipped = f", {results['skipped']} skipped" if results["skipped"] else ""
    print(f"after {time.monotonic() - begun:.0f} s")
    print(f"{results['passed']} passed, {results['failed']} failed{skipped}")
    return 1 if results["failed"] or not results["passed"] else 0


if __name__ == "__main__":
    sys.exit(main())
