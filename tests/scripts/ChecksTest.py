"""The checks of scripts/ find what they are there to find."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"


def run(check, files):
    """Status and message of a check on a tree that holds these files: path, then bytes."""
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        for name, content in files.items():
            path = root / name
            path.parent.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)
        answer = subprocess.run([sys.executable, SCRIPTS / check, root],
                                capture_output=True, text=True, check=False)
        return answer.returncode, answer.stderr


class Includes(unittest.TestCase):
    HOUSE = {
        "src/platform/Numbers.h": b"#pragma once\n",
        "src/map/BaseMap.h": b'#include "platform/Numbers.h"\n',
        "src/log/QsoFilter.h": b"#pragma once\n",
        "src/stats/frmMapStats.h": b"#include <QDialog>\n",
        "src/run/MapPictures.h": b"#pragma once\n",
        "src/app/MapView.h": b"#include <QtWidgets/QWidget>\n",
    }

    def check(self, name, line):
        return run("check-includes", {**self.HOUSE, name: line + b"\n"})

    def test_good_includes_pass(self):
        cases = {
            "src/map/BaseMap.cpp": b'#include "map/BaseMap.h"',
            "src/plot/Marks.cpp": b'#include "platform/Numbers.h"',
            "src/stats/frmMapStats.cpp": b'#include "stats/frmMapStats.h"',
            "src/app/frmMain.cpp": b'#include "stats/frmMapStats.h"',
            "src/run/Commands.cpp": b"#include <QAction>",
            "src/app/MapView.cpp": b'#include "MapView.moc"',
            "src/log/Reader.cpp": b"#include <string>\n#include <zlib.h>",
            "src/platform/Files_win.cpp": b"#include <windows.h>",
            "src/platform/Files_unix.cpp": b"#include <sys/stat.h>",
        }
        for name, line in cases.items():
            with self.subTest(name=name):
                self.assertEqual((0, ""), self.check(name, line))

    def test_bad_includes_are_reported_with_their_place(self):
        cases = [
            ("src/map/A.cpp", b'#include "log/QsoFilter.h"', "runs up"),
            ("src/platform/A.h", b'  #  include "map/BaseMap.h"', "runs up"),
            ("src/stats/A.cpp", b'#include "log/QsoFilter.h"', "runs sideways"),
            ("src/batch/A.cpp", b'#include "app/MapView.h"', "runs sideways"),
            ("src/run/A.cpp", b"#include <QLabel>", "widget header"),
            ("src/run/A.cpp", b"#include <QtWidgets>", "widget header"),
            ("src/batch/A.cpp", b"#include <QtWidgets/qlabel.h>", "widget header"),
            ("src/run/A.cpp", b'#include "stats/frmMapStats.h"', "a window in a file"),
            ("src/map/A.cpp", b'#include "BaseMap.h"', "no such file"),
            ("src/map/A.cpp", b'#include "map/Gone.h"', "no such file"),
            ("src/run/A.cpp", b'#include "../src/map/BaseMap.h"', "not written from src/"),
            ("src/run/A.cpp", b'#include "run/../map/BaseMap.h"', "not written from src/"),
            ("src/run/deep/A.cpp", b"#include <string>", "no room"),
            ("src/A.cpp", b"#include <string>", "no room"),
            ("src/log/A.cpp", b"#ifdef _WIN32", "a condition"),
            ("src/platform/A_win.cpp", b" # if 1", "a condition"),
            ("src/platform/A.cpp", b"#include <sys/stat.h>", "a system's header"),
            ("src/log/A_win.cpp", b"#include <string>", "outside of platform/"),
        ]
        for name, line, why in cases:
            with self.subTest(name=name, line=line):
                status, message = self.check(name, line)
                self.assertEqual(1, status)
                self.assertEqual(1, len(message.splitlines()), message)
                self.assertIn(name, message)
                self.assertIn(why, message)

    def test_an_empty_tree_is_no_success(self):
        self.assertEqual(2, run("check-includes", {})[0])


class Text(unittest.TestCase):
    def test_clean_files_and_free_folders_pass(self):
        files = {
            "src/A.cpp": b"int a;\n",
            "empty.txt": b"",
            "data/old.adi": b"<EOH>\t\r\n ",
            "docs/pictures/a.svg": b"\t",
            "picture.png": b"\x89PNG\r\n",
        }
        self.assertEqual((0, ""), run("check-text", files))

    def test_faults_are_reported_with_their_place(self):
        cases = [
            (b"int a;\n\tint b;\n", "A.cpp:2: tab"),
            (b"int a;\r\n", "A.cpp:1: CR LF"),
            (b"int a; \n", "A.cpp:1: trailing blank"),
            (b"int a;", "A.cpp: no line end"),
            (b"int a;\n\n", "A.cpp: blank lines at the end"),
            (b"// \xe9\n", "A.cpp: not UTF-8"),
            (b"#!/bin/sh\n", "A.cpp: is a script without the run bit"),
        ]
        for content, why in cases:
            with self.subTest(content=content):
                status, message = run("check-text", {"A.cpp": content})
                self.assertEqual(1, status)
                self.assertIn(why, message)

    def test_an_empty_tree_is_no_success(self):
        self.assertEqual(2, run("check-text", {})[0])


if __name__ == "__main__":
    unittest.main()
