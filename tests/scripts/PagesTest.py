#!/usr/bin/env python3
"""Has exported pages and pictures read by programs that know nothing of this one.

    PagesTest.py BATCH_PROGRAM DATA_FOLDER

Draws the sample log on each paper and as pictures with BATCH_PROGRAM, and looks with pdfinfo,
pdftotext and pdftoppm, and at pictures with Pillow. Ends with 0 when all is there, with 77 when one
of the readers is not installed.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
PAGES = {"a4": (595, 842), "a3": (842, 1191), "letter": (612, 792)}  # points
WATER, CONFIRMED = (0xA5, 0xCD, 0xFE), (0x00, 0xFF, 0x40)
EPOCH = "1300000000"  # 13 March 2011


def run(*command, **more):
    answer = subprocess.run(command, capture_output=True, check=False, **more)
    assert answer.returncode == 0, f"{command}: {answer.returncode}\n{answer.stderr}"
    return answer.stdout.decode()


def share(image, colour):
    """Share of the pixels that are nearly of a colour."""
    near = sum(count for count, pixel in image.getcolors(image.width * image.height)
               if all(abs(a - b) < 12 for a, b in zip(pixel, colour)))
    return near / (image.width * image.height)


class Trial:
    def __init__(self, program, data, folder):
        self.folder = pathlib.Path(folder)
        self.log = self.folder / "Fieldday ä.adi"
        shutil.copy(data / "sample.adi", self.log)
        self.command = [program, "plot", str(self.log), "--folder", str(data), "--quiet",
                        "--my-call", "W1TVR", "--home", "41.7148,-72.7272", "--topo", "off"]

    def draw(self, name, *options, zone="UTC"):
        path = self.folder / name
        run(*self.command, "--image", str(path), *options,
            env=dict(os.environ, SOURCE_DATE_EPOCH=EPOCH, TZ=zone))
        return path

    def look(self, page, dpi):
        from PIL import Image
        run("pdftoppm", "-r", str(dpi), "-png", "-singlefile", str(page), str(page.with_suffix("")))
        return Image.open(page.with_suffix(".png")).convert("RGB")


def has_size_and_text(trial, projection, paper):
    page = trial.draw("page.pdf", "--paper", paper, "--projection", projection,
                      "--bands", "20M,40M", "--compass", "15")
    assert page.stat().st_size <= 4_000_000, page.stat().st_size
    info = run("pdfinfo", str(page))
    sides = re.search(r"Page size: +(\S+) x (\S+)", info).groups()
    size = tuple(round(float(side)) for side in sides)
    wanted = PAGES[paper] if projection == "azimuthal" else PAGES[paper][::-1]
    assert size == wanted, (size, wanted)
    assert re.search(r"Pages: +1\b", info), info
    text = " ".join(run("pdftotext", "-layout", str(page), "-").split())
    for words in ["W1TVR, 41.7148° N, 72.7272° W", "Log: Fieldday ä.adi", "Filter: Band 20M, 40M",
                  "Created by Tovrel, 13 March 2011, 07:06 UTC"]:
        assert words in text, (words, text)
    assert re.search(r"Confirmed \d+ Worked \d+ Heard \d+", text), text
    images = run("pdfimages", "-list", str(page)).split("\n")[2].split()
    assert int(images[12]) >= 300, images
    # As on the picture, so on the page, where the map is some of the whole.
    picture = share(trial.picture(projection), WATER)
    image = trial.look(page, 150)
    across = image.width - round(2 * 15 / 25.4 * 150)
    part = across * across / (1 if projection == "azimuthal" else 2) / (image.width * image.height)
    assert abs(share(image, WATER) / part / picture - 1) < 0.05, (share(image, WATER), part, picture)
    assert share(image, CONFIRMED) > 0


def is_bare_without_caption(trial):
    page = trial.draw("bare.pdf", "--caption", "off")
    assert run("pdftotext", str(page), "-").strip() == ""


def has_the_same_bytes_again(trial):
    page = trial.draw("first.pdf")
    first = page.read_bytes()
    picture = trial.draw("first.png").read_bytes()
    assert trial.draw("second.pdf", zone="Asia/Kolkata").read_bytes() == first
    assert trial.draw("second.png", zone="Asia/Kolkata").read_bytes() == picture
    assert "Sun Mar 13 07:06:40 2011 UTC" in run("pdfinfo", str(page), env={"TZ": "UTC"})
    # The table of the page's objects is where it is said to be, and so is each of them.
    table = int(re.search(rb"startxref\n(\d+)", first)[1])
    assert first[table:].startswith(b"xref\n")
    places = re.findall(rb"(\d{10}) 00000 n", first[table:])
    for number, place in enumerate(places, 1):
        assert first[int(place):].startswith(b"%d 0 obj" % number), (number, place)


def pictures_tell_their_dots(trial):
    from PIL import Image
    for name in ["map.png", "map.jpg", "map.bmp"]:
        with Image.open(trial.draw(name, "--size", "900")) as bare:
            assert bare.size == (900, 900)
            assert all(round(dots) == 300 for dots in bare.info["dpi"]), bare.info
        with Image.open(trial.draw(name, "--size", "900", "--caption", "on")) as told:
            assert told.width == 900 and 940 < told.height < 1100, told.size
            below = told.convert("L").crop((0, 900, 900, told.height))
            assert below.getextrema()[0] < 80 < 250 < below.getextrema()[1]


def main():
    program, data = sys.argv[1], pathlib.Path(sys.argv[2])
    try:
        from PIL import Image
    except ImportError:
        print("skipped: Pillow is not installed")
        return SKIPPED
    if shutil.which("pdftoppm") is None:
        print("skipped: the PDF tools of Poppler are not installed")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        trial = Trial(program, data, folder)
        maps = {projection: Image.open(trial.draw(f"{projection}.png", "--projection", projection,
                                                  "--bands", "20M,40M", "--size", "1600",
                                                  "--caption", "off")).convert("RGB")
                for projection in ["azimuthal", "miller"]}
        trial.picture = maps.get
        for projection in maps:
            for paper in PAGES:
                has_size_and_text(trial, projection, paper)
        is_bare_without_caption(trial)
        has_the_same_bytes_again(trial)
        pictures_tell_their_dots(trial)
    print("Poppler and Pillow find all of it")
    return 0


if __name__ == "__main__":
    sys.exit(main())
