#!/usr/bin/env python3
"""Has an exported archive read by programs that know nothing of this one.

    KmzReadersTest.py BATCH_PROGRAM DATA_FOLDER READER

Exports the sample log with BATCH_PROGRAM and gives the archive to READER: zipfile, which looks at
each placemark, or unzip, which looks at the archive's form. Ends with 0 when it finds all of it,
with 77 when the reader is not installed.
"""

import collections
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile
from xml.etree import ElementTree

SKIPPED = 77
ICONS = ["Google_Confirmed.png", "Google_Worked.png", "Google_Heard.png"]
KML = "{http://earth.google.com/kml/2.0}"


def run(*command, cwd=None):
    answer = subprocess.run(command, capture_output=True, text=True, check=False, cwd=cwd)
    assert answer.returncode == 0, f"{command}: {answer.returncode}\n{answer.stdout}{answer.stderr}"
    return answer.stdout


def field(record, tag):
    match = re.search(rf"<{tag}:\d+>([^<]*)", record, re.IGNORECASE)
    return match[1].strip(" ") if match else ""


def expected_placemarks(log):
    """Call and position of each placemark, by folder."""
    folders = collections.defaultdict(list)
    text = log.read_text(encoding="latin-1")
    for record in re.findall(r"<.*?<EOR>", text.partition("<EOH>")[2], re.DOTALL):
        call, longitude = field(record, "CALL"), field(record, "APP_LOGGER32_LNG")
        if not longitude or float(longitude) == 0:
            continue
        confirmed = "Y" in (field(record, tag) for tag in
                            ("QSL_RCVD", "EQSL_QSL_RCVD", "LOTW_QSL_RCVD"))
        heard = call.endswith("=")
        if heard and confirmed:
            continue
        folder = "Heard" if heard else "Confirmed" if confirmed else "Worked"
        folders[folder].append((call.rstrip("="), -float(longitude),
                                field(record, "APP_LOGGER32_LAT")))
    return folders


def placemarks_in(document):
    """The same as the document has them."""
    folders = collections.defaultdict(list)
    for folder in ElementTree.fromstring(document).iter(f"{KML}Folder"):
        for placemark in folder.iter(f"{KML}Placemark"):
            longitude, latitude = placemark.findtext(f".//{KML}coordinates").split(",")
            folders[folder.findtext(f"{KML}name").removeprefix("W1TVR ")].append(
                (placemark.findtext(f"{KML}name"), float(longitude), latitude))
    return folders


def read_with_zipfile(archive, log, data):
    before = time.localtime(archive.stat().st_mtime - 60)[:6]
    with zipfile.ZipFile(archive) as kmz:
        assert kmz.testzip() is None
        assert kmz.namelist() == ["log.kml", *ICONS], kmz.namelist()
        assert kmz.getinfo("log.kml").date_time >= before
        for icon in ICONS:
            assert kmz.read(icon) == (data / icon).read_bytes(), icon
        found, wanted = placemarks_in(kmz.read("log.kml")), expected_placemarks(log)
    assert found == wanted, {folder: (len(found[folder]), len(wanted[folder])) for folder in wanted}
    assert sum(map(len, found.values())) > 100


def read_with_unzip(archive, log, data):
    report = run("unzip", "-t", str(archive))
    assert "No errors detected" in report and report.count(" OK") == 4, report


def main():
    program, data, reader = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3]
    if reader != "zipfile" and shutil.which(reader) is None:
        print(f"skipped: {reader} is not installed")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        log = pathlib.Path(folder) / "log.adi"
        shutil.copy(data / "sample.adi", log)
        # Without the folder in the path: a dot in its name would send the document elsewhere.
        run(program, "kmz", log.name, "--folder", str(data), "--my-call", "W1TVR", cwd=folder)
        assert not log.with_suffix(".kml").exists()
        globals()[f"read_with_{reader}"](log.with_suffix(".kmz"), log, data)
    print(f"{reader} finds all of it")
    return 0


if __name__ == "__main__":
    sys.exit(main())
