#!/usr/bin/env python3
"""Has an exported archive read by programs that know nothing of this one.

    KmzReadersTest.py EXPORT_PROGRAM DATA_FOLDER READER

Exports the sample log with EXPORT_PROGRAM and gives the archive to READER: zipfile, unzip, zipinfo,
xmllint or ogrinfo. Ends with 0 when it finds all of it, with 77 when the reader is not installed.
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


def read_with_zipfile(archive, log, data):
    before = time.localtime(archive.stat().st_mtime - 60)[:6]
    with zipfile.ZipFile(archive) as kmz:
        assert kmz.testzip() is None
        assert kmz.namelist() == ["log.kml", *ICONS], kmz.namelist()
        for info in kmz.infolist():
            assert info.compress_type == zipfile.ZIP_DEFLATED
            assert info.internal_attr == 0x20 and info.external_attr == 0
        assert kmz.getinfo("log.kml").date_time >= before
        for icon in ICONS:
            assert kmz.read(icon) == (data / icon).read_bytes(), icon
        lines = kmz.read("log.kml").split(b"\r\n")
    assert lines[0] == b'<?xml version="1.0" encoding="UTF-8"?>' and lines[-2:] == [b"</kml>", b""]
    placemarks = sum(line == b"   <Placemark>" for line in lines)
    assert placemarks == sum(map(len, expected_placemarks(log).values())) > 100, placemarks


def read_with_unzip(archive, log, data):
    report = run("unzip", "-t", str(archive))
    assert "No errors detected" in report and report.count(" OK") == 4, report


def read_with_zipinfo(archive, log, data):
    report = run("zipinfo", "-v", str(archive))
    assert report.count("compression method:                             deflated") == 4, report
    assert report.count("compression sub-type (deflation):               maximum") == 4, report
    assert "warning" not in report.lower() and "error" not in report.lower(), report


def read_with_xmllint(archive, log, data):
    document = archive.with_suffix(".kml")
    with zipfile.ZipFile(archive) as kmz:
        document.write_bytes(kmz.read("log.kml"))
    run("xmllint", "--noout", str(document))
    for folder, placemarks in expected_placemarks(log).items():
        path = f'//*[local-name()="Folder"][*="W1TVR {folder}"]/*[local-name()="Placemark"]'
        count = run("xmllint", "--xpath", f"count({path})", str(document))
        assert int(count) == len(placemarks), (folder, count, len(placemarks))


def read_with_ogrinfo(archive, log, data):
    report = run("ogrinfo", "-ro", "-al", "-oo", "LIST_ALL_TABLES=YES", str(archive))
    layers = re.split(r"^Layer name: ", report, flags=re.MULTILINE)[1:]
    folders = expected_placemarks(log)
    assert [layer.split("\n")[0] for layer in layers] == [
        f"W1TVR {folder}" for folder in ("Confirmed", "Worked", "Heard")], report[:2000]
    for layer, folder in zip(layers, ("Confirmed", "Worked", "Heard")):
        names = re.findall(r"^  Name \(String\) = (.*)$", layer, re.MULTILINE)
        points = re.findall(r"POINT (?:Z )?\((\S+) ([^ )]+)", layer)
        found = [(name, float(x), float(y)) for name, (x, y) in zip(names, points, strict=True)]
        wanted = [(call, x, float(y or "0")) for call, x, y in folders[folder]]
        assert found == wanted, (folder, len(found), len(wanted))


def main():
    program, data, reader = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3]
    if reader != "zipfile" and shutil.which(reader) is None:
        print(f"skipped: {reader} is not installed")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        log = pathlib.Path(folder) / "log.adi"
        shutil.copy(data / "sample.adi", log)
        # Without the folder in the path: a dot in its name would send the document elsewhere.
        run(program, str(data), log.name, "W1TVR", cwd=folder)
        assert not log.with_suffix(".kml").exists()
        globals()[f"read_with_{reader}"](log.with_suffix(".kmz"), log, data)
    print(f"{reader} finds all of it")
    return 0


if __name__ == "__main__":
    sys.exit(main())
