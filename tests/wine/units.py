"""The unit tests, built for Windows: all but those that stand in files of another system."""

import pathlib
import re

from windows import Failed, expect

TESTS = pathlib.Path(__file__).resolve().parent.parent
PROGRAMS = ("tovrel_tests", "tovrel_window_tests")
PATIENCE = 900  # seconds for all tests of a program
# Tests that are built for Windows and don't hold under Wine, and why.
NOT_UNDER_WINE = {}


def of_other_systems():
    """Tests that are not built for Windows, by the reasons that their files begin with."""
    found = {}
    for path in sorted(TESTS.rglob("*_unix.cpp")):
        text = path.read_text(encoding="utf-8")
        reason = " ".join(re.match(r"(?://.*\n)*", text)[0].replace("//", "").split())
        if not reason:
            raise Failed(f"{path.relative_to(TESTS)} does not say why it is for one system")
        names = re.findall(r"^TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", text, re.MULTILINE)
        found[reason] = found.get(reason, set()) | {".".join(pair) for pair in names}
    return found


def names(listing):
    """What --gtest_list_tests tells."""
    suite, found = "", set()
    for line in listing.decode().splitlines():
        name = line.split("#")[0].strip()
        if line.startswith(" "):
            found.add(suite + name)
        else:
            suite = name
    return found


def environment(qt, compiler_folders):
    windows_path = ";".join("Z:" + str(path) for path in (qt / "bin", *compiler_folders))
    return {"WINEPATH": windows_path, "QT_PLUGIN_PATH": "Z:" + str(qt / "plugins"),
            "QT_QPA_PLATFORM": "offscreen"}


def run(windows, program, ran, surroundings):
    output = windows.run("wine", program, "--gtest_brief=1",
                         "--gtest_filter=-" + ":".join(NOT_UNDER_WINE), status=None,
                         patience=PATIENCE, **surroundings).decode(errors="replace")
    told = re.search(r"(\d+) tests? from .* ran", output)
    failed = sorted(set(re.findall(r"^\[  FAILED  \] (\w[\w/.]*)", output, re.MULTILINE)))
    if not told or failed:
        raise Failed(f"{program.name}: {failed}\n{output[-20000:]}")
    passed = int(re.search(r"\[  PASSED  \] (\d+) test", output)[1])
    expect(f"{passed} tests of {program.name} pass", int(told[1]) == ran)
    if passed != ran:
        print(f"skipped {ran - passed} of them themselves")


def check(windows, built, native, surroundings):
    """@param native the same test programs for this machine, which have all tests"""
    left_out = {**of_other_systems(), **{reason: {name} for name, reason in
                                         NOT_UNDER_WINE.items()}}
    excused = set().union(*left_out.values())
    there = set()
    for program in PROGRAMS:
        here = names(windows.run("wine", built / f"{program}.exe", "--gtest_list_tests",
                                 **surroundings))
        there |= here
        run(windows, built / f"{program}.exe", len(here - set(NOT_UNDER_WINE)), surroundings)
    lost = set().union(*(names(windows.run(native / program, "--gtest_list_tests",
                                           QT_QPA_PLATFORM="offscreen"))
                         for program in PROGRAMS)) - there - excused
    expect(f"no other test is lost on the way: {sorted(lost)}", not lost)
    for reason, left in left_out.items():
        print(f"left out {', '.join(sorted(left))}: {reason}")
