"""A Windows of its own, made by Wine in a folder: none of the user's files, settings or fonts."""

import os
import pathlib
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "gui"))
from desktop import Failed  # pylint: disable=wrong-import-position

PATIENCE = 900  # seconds for one program; the tests are one

# Windows has Arial, this one has not; Liberation Sans is as wide.
FONTS = pathlib.Path("/usr/share/fonts/truetype/liberation")
REPLACEMENTS = r"HKCU\Software\Wine\Fonts\Replacements"


class Windows:
    """As a context it ends what runs in it."""

    def __init__(self, root):
        self.root = root
        self.drive = root / "prefix/drive_c"
        kept = {name: value for name, value in os.environ.items()
                if not name.startswith(("LC_", "XDG_", "QT_", "WINE", "GTEST_")) and
                name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        self.environment = {
            **kept, "HOME": str(root / "home"), "WINEPREFIX": str(root / "prefix"),
            "WINEDEBUG": "-all", "WINEARCH": "win64", "LC_ALL": "C.UTF-8", "TZ": "UTC",
            # Neither its .NET nor its browser is asked for, and no menu of the machine is changed.
            "WINEDLLOVERRIDES": "mscoree,mshtml=;winemenubuilder.exe=d"}

    def __enter__(self):
        (self.root / "home").mkdir(parents=True)
        self.run("wineboot", "--init")
        for font in FONTS.glob("LiberationSans-*.ttf"):
            shutil.copy(font, self.drive / "windows/Fonts")
        self.run("wine", "reg", "add", REPLACEMENTS, "/v", "Arial", "/d", "Liberation Sans")
        return self

    def __exit__(self, *_):
        self.end()

    def end(self):
        """Ends all that runs. What is started next finds the screen that there is then."""
        subprocess.run(["wineserver", "--kill"], env=self.environment, check=False,
                       stderr=subprocess.DEVNULL)
        subprocess.run(["wineserver", "--wait"], env=self.environment, check=False)

    @property
    def user(self):
        """The folder of the user's files."""
        return next(path for path in (self.drive / "users").iterdir() if path.name != "Public")

    def path(self, name):
        """The path of a file of drive C: by the name that a program there has for it."""
        return self.drive / str(name).removeprefix("C:").replace("\\", "/").lstrip("/")

    def run(self, *command, status=0, **environment):
        """@return standard output, bytes"""
        try:
            answer = subprocess.run([str(part) for part in command], cwd=self.root,
                                    env={**self.environment, **environment},
                                    stdin=subprocess.DEVNULL, capture_output=True, check=False,
                                    timeout=PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failed(f"{command[1]} does not end") from None
        if status is not None and answer.returncode != status:
            raise Failed(f"{' '.join(map(str, command))}: status {answer.returncode}\n"
                         f"{answer.stdout.decode(errors='replace')[-4000:]}\n"
                         f"{answer.stderr.decode(errors='replace')[-4000:]}")
        return answer.stdout

    def registry(self, key, value=None):
        """The text of a value, of the nameless one where none is named; None where there is none."""
        name = ["/v", value] if value else ["/ve"]
        answer = self.run("wine", "reg", "query", key, *name, status=None).decode()
        found = [line for line in answer.splitlines() if "REG_" in line]
        return found[0].split("REG_", 1)[1].split(None, 1)[1].strip() if found else None


def expect(what, holds):
    if not holds:
        raise Failed(what)
    print(f"ok      {what}", flush=True)
