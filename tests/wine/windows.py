"""A Windows of its own, made by Wine in a folder: none of the user's files, settings or fonts."""

import contextlib
import os
import pathlib
import shutil
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "gui"))
from desktop import Failed  # pylint: disable=wrong-import-position

PATIENCE = 120  # seconds for one program

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
        with contextlib.ExitStack() as unless_made:
            unless_made.callback(self.end)
            (self.root / "home").mkdir(parents=True)
            self.run("wineboot", "--init", patience=300)
            for font in FONTS.glob("LiberationSans-*.ttf"):
                shutil.copy(font, self.drive / "windows/Fonts")
            self.run("wine", "reg", "add", REPLACEMENTS, "/v", "Arial", "/d", "Liberation Sans")
            unless_made.pop_all()
        return self

    def __exit__(self, *_):
        self.end()

    def end(self):
        """Ends all that runs."""
        for act in ("--kill", "--wait"):
            subprocess.run(["wineserver", act], env=self.environment, check=False,
                           stderr=subprocess.DEVNULL, timeout=PATIENCE)

    @property
    def own_environment(self):
        """What a program that starts in another surrounding has to be told to run in it."""
        return {name: value for name, value in self.environment.items() if name.startswith("WINE")}

    @property
    def user(self):
        """The folder of the user's files."""
        return next(path for path in (self.drive / "users").iterdir() if path.name != "Public")

    def path(self, name):
        """The path of a file of drive C: by the name that a program there has for it."""
        return self.drive / str(name).removeprefix("C:").replace("\\", "/").lstrip("/")

    def name(self, path):
        """The name that a program there has for a file of drive C:."""
        return "C:\\" + str(path.relative_to(self.drive)).replace("/", "\\")

    def run(self, *command, status=0, patience=PATIENCE, **environment):
        """@return standard output, bytes"""
        try:
            answer = subprocess.run([str(part) for part in command], cwd=self.root,
                                    env={**self.environment, **environment},
                                    stdin=subprocess.DEVNULL, capture_output=True, check=False,
                                    timeout=patience)
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
