"""The kinds of files that the programs write: how each comes about, and what is left of it after a
fault. The old-or-new rule: byte for byte the old file, or a whole new one."""

import dataclasses
import io
import json
import os
import pathlib
import shutil
import struct
import zipfile

from harness import talk_faults

OLD_BYTES = b"what stood here before\n" * 400
DATA_FILES = ("mapper.pnt", "paintma.txt", "Google_Confirmed.png", "Google_Worked.png",
              "Google_Heard.png")
TAG_LIST = "TVADIF.txt"
SAVED_MAP = "TovrelAP_20110302-070509.bmp"


def record(number):
    """A contact whose place, status and length depend on its number."""
    call = f"K{number % 10}{chr(65 + number % 26)}{chr(65 + number // 26 % 26)}" + "=" * (
        number % 7 == 0)
    fields = {"CALL": call, "BAND": ("20M", "40M", "2M")[number % 3],
              "MODE": ("CW", "SSB", "FT8")[number % 3],
              "APP_LOGGER32_LAT": f"{number * 37 % 1600 / 10 - 79.95:.2f}",
              "APP_LOGGER32_LNG": f"{number * 53 % 3400 / 10 - 169.95:.2f}",
              "QSL_RCVD": "YN"[number % 2]}
    return "".join(f"<{tag}:{len(value)}>{value} " for tag, value in fields.items()) + "<EOR>\r\n"


def log_of(count, first=0):
    return "".join(record(number) for number in range(first, first + count)).encode()


def placemarks_of(count):
    """Contacts of log_of(count) that get a placemark: all but those heard and confirmed."""
    return sum(not (number % 7 == 0 and number % 2 == 0) for number in range(count))


def read(path):
    """The bytes of a file; nothing when there is none."""
    return path.read_bytes() if path.is_file() else None


def entries_of(archive):
    """Names and contents of an archive that is whole; nothing for any other bytes."""
    try:
        with zipfile.ZipFile(io.BytesIO(archive)) as kmz:
            entries = {name: kmz.read(name) for name in kmz.namelist()}
            end = struct.pack("<I", 0x06054B50)
            ends_there = archive.rfind(end) == len(archive) - 22
            return entries if kmz.testzip() is None and ends_there else None
    except (zipfile.BadZipFile, EOFError, OSError, struct.error, ValueError):
        return None


def is_bitmap(content):
    return content[:2] == b"BM" and struct.unpack("<I", content[2:6])[0] == len(content)


def is_png(content):
    return content.startswith(b"\x89PNG") and content.endswith(b"IEND\xae\x42\x60\x82")


def is_document(content):
    return content.startswith(b"<?xml") and content.endswith(b"</kml>\r\n")


def is_settings(content):
    lines = content.split(b"\r\n")
    sections = {line for line in lines if line.startswith(b"[")}
    return lines[-1] == b"" and len(sections) == 5 and all(
        line.startswith(b"[") or b"=" in line for line in lines[:-1])


def is_json(content):
    try:
        json.loads(content)
    except ValueError:
        return False
    return content.endswith(b"}\n")


@dataclasses.dataclass
class Trial:
    """Where a run works, and where the file under test lies."""
    base: pathlib.Path
    place: pathlib.Path


class Kind:
    """A file that a program writes.

    name        in the table
    act         of windowActs; none for tovrel-batch
    arguments   of tovrel-batch
    file        its name; the place is a folder of its own, or the program's for the window program
    old         what stands there before; nothing when the file is only ever made
    is_whole    whether a file that is not as expected is whole all the same; none where no other
                result than the expected one will do
    also        name of another file that a run writes beside it
    steps       whether a run writes it several times over, whole each time
    later       act that has to say what is in the file's place, where this one need not
    """

    def __init__(self, bench, name, file, act=None, arguments=(), old=OLD_BYTES, is_whole=None,
                 also=None, steps=False, later=None):
        self.bench = bench
        self.name = name
        self.file = file
        self.act = act
        self.arguments = arguments
        self.old = old
        self.is_whole = is_whole
        self.also = also
        self.steps = steps
        self.later = later
        self.exports = "kmz" in (act, *arguments[:1])
        self.reference = None

    def prepare(self, place=None):
        """Lays down all that a run needs."""
        base = place if place and self.act else self.bench.folder()
        trial = Trial(base, place or (base if self.act else base / "place"))
        program_folder = base if self.act else base / "program"
        shutil.copytree(self.bench.template, program_folder, dirs_exist_ok=True)
        if not self.act:
            (program_folder / "GCBaseMap.map").unlink()  # of no use to the batch program
        if self.act and self.file != "Tovrel.ini":
            settings = program_folder / "Tovrel.ini"
            settings.write_bytes(settings.read_bytes().replace(
                b"ADIFile=", b"ADIFile=" + bytes(base / "log.adi")))
        (base / "log.adi").write_bytes(self.bench.log)
        trial.place.mkdir(exist_ok=True)
        self.restore(trial)
        return trial

    def restore(self, trial):
        """Puts the old file back."""
        target = self.target(trial)
        if self.old is None:
            target.unlink(missing_ok=True)
        else:
            target.write_bytes(self.old)

    def target(self, trial):
        return trial.place / self.file

    def command(self, trial, act=None):
        if self.act:
            return [self.bench.programs / "windowActs", trial.base, act or self.act]
        files = {"FILE": trial.place / self.file, "ALSO": trial.place / str(self.also)}
        arguments = [files.get(argument, argument) for argument in self.arguments]
        return [self.bench.programs / "tovrel-batch", arguments[0], trial.base / "log.adi",
                "--folder", trial.base / "program", *arguments[1:]]

    def learn(self):
        """Finds out what a run without a fault writes."""
        trial = self.prepare()
        before = read(self.target(trial))
        end = self.bench.run(self.command(trial))
        self.reference = read(self.target(trial))
        good = end.status == 0 and self.reference not in (None, before)
        assert good, f"{self.name}: {end}"
        assert self.is_whole is None or self.is_whole(self.reference), self.name
        shutil.rmtree(trial.base)

    def is_right(self, content):
        return content == self.reference

    def state(self, trial, old):
        """What stands at the place: old, new, other (whole, but not as expected), gone, wrong."""
        content = read(self.target(trial))
        if content is not None and self.is_right(content):
            return "new"
        if content == old:
            return "old"
        if content is None:
            return "gone"
        whole = self.is_whole is not None and self.is_whole(content)
        return "other" if whole else f"wrong ({len(content)} bytes)"

    def said(self, end):
        """What the program told its user."""
        return (end.out if self.act else end.text).replace("\r", "")

    def judge(self, tally, trial, old, end, reasons, label, always=False):
        """Notes what became of a fault, and every breach of the rule.
        @param reasons texts, one of which is to be said where the result is not as expected
        @param always whether it is to be said in any case"""
        state = self.state(trial, old)
        tally.note(state)
        said = self.said(end)
        faults = list(talk_faults(said, trial.place, self.names(trial)))
        if state not in ("old", "new", "other"):
            faults.append(f"the file is {state}")
        if end.status not in ((0,) if self.act else (0, 1, 3)):
            faults.append(f"status {end.status}")
        elif state == "old" and not self.act and end.status != 3:
            faults.append(f"old, but status {end.status}")
        failed = always or state != "new" or end.status == 3
        if failed and not any(reason.lower() in said.lower() for reason in reasons):
            last = said.strip().replace("\n", " | ")[-150:]
            faults.append(f"{state}, and not said why: {last or 'silence'}")
        left = self.left(trial)
        if left:
            faults.append(f"left {' '.join(sorted(left))}")
        for fault in faults:
            tally.fault(f"{label}: {fault}")

    def names(self, trial):
        """Names of the files that a user knows of."""
        return {self.file, self.also, "log.adi", *os.listdir(self.bench.template)}

    def left(self, trial):
        return set(os.listdir(trial.place)) - self.names(trial)


class Cache(Kind):
    """A bitmap whose header may tell another resolution: the pixels are compared."""

    def is_right(self, content):
        return len(content) == len(self.reference) and content[54:] == self.reference[54:]


class Picture(Kind):
    """A bitmap with the time in its lower corners: the upper part is compared."""

    def is_right(self, content):
        part = len(self.reference) * 8 // 10  # bitmaps begin with their lowest line
        return len(content) == len(self.reference) and content[-part:] == self.reference[-part:]


class Kmz(Kind):
    """An archive, which holds the time of its document: the contents are compared."""

    def is_right(self, content):
        return entries_of(content) == entries_of(self.reference)


def make_template(bench):
    """A program folder that has been in use: all settings written, tag list and map cached."""
    bench.template = bench.root / "template"
    bench.template.mkdir()
    for name in DATA_FILES:
        shutil.copy(bench.data / name, bench.template / name)
    bench.log = log_of(400)
    settings = bench.template / "Tovrel.ini"
    program = [bench.programs / "windowActs", bench.template]
    bench.run([*program, "recreate"])
    written = settings.read_bytes()
    assert b"\nMyCall=\r\n" in written and b"\nADIFile=\r\n" in written
    settings.write_bytes(written.replace(b"\nMyCall=\r\n", b"\nMyCall=W1OLD\r\n")
                         .replace(b"\nLatitude=0\r\n", b"\nLatitude=10\r\n"))
    bench.run([*program, "recreate"])
    written = settings.read_bytes()
    bench.run([*program, "start"])
    assert settings.read_bytes() == written, "a start changes settings that are complete"


def make_kinds(bench):
    """All kinds, by their names."""
    make_template(bench)
    kinds = [
        Kind(bench, "settings", "Tovrel.ini", act="setting",
             old=read(bench.template / "Tovrel.ini")),
        Kind(bench, "first settings", "Tovrel.ini", act="start", old=None, is_whole=is_settings,
             steps=True),
        Kind(bench, "tag list", TAG_LIST, act="start", old=None, later="plot"),
        Cache(bench, "map cache", "GCBaseMap.map", act="recreate", old=grey_bitmap(667, 667)),
        Kind(bench, "saved map", SAVED_MAP, act="save", is_whole=is_bitmap),
        Kind(bench, "exported picture", "export.png", act="export", is_whole=is_png),
        Picture(bench, "picture", "map.bmp", is_whole=is_bitmap,
                arguments=("plot", "--size", "300", "--image", "FILE")),
        Kind(bench, "report", "report.json", arguments=("plot", "--report", "FILE"),
             is_whole=is_json),
        Kmz(bench, "KMZ", "log.kmz", arguments=("kmz", "--output", "FILE"), is_whole=entries_of),
        Kind(bench, "kept document", "log.kml", is_whole=is_document, also="log.kmz",
             arguments=("kmz", "--keep-kml", "--output", "ALSO")),
        Kmz(bench, "KMZ of the window", "log.kmz", act="kmz", is_whole=entries_of, also="log.kml"),
    ]
    for kind in kinds:
        kind.learn()
    return {kind.name: kind for kind in kinds}


def grey_bitmap(width, height):
    """A picture that no run draws."""
    line = b"\x80" * (width * 3 + -width * 3 % 4)
    size = 54 + len(line) * height
    return struct.pack("<2sIIIIiiHHIIiiII", b"BM", size, 0, 54, 40, width, height, 1, 24, 0,
                       len(line) * height, 2835, 2835, 0, 0) + line * height
