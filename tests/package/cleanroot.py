#!/usr/bin/env python3
"""A package's life in a Debian that holds nothing else: cleanroot.py PACKAGE.deb [OLDER.deb]

Makes a root with apt alone in it, installs an older version with its dependencies and nothing more,
upgrades it, starts the window program as a plain user with a log, looks for the dots on the screen,
draws the same with the batch program, and removes the package. What it has brought has to be gone
then, and what the user had has to be there. Without OLDER.deb the package itself serves under an older
version number and with a file that the newer one lacks. Wants root.
"""

import contextlib
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "gui"))
from desktop import SCREEN, Desktop, Failed, Rect, until  # pylint: disable=wrong-import-position

USER = 1000
HOME = pathlib.Path("home/user")
FOLDER = HOME / ".local/share/Tovrel"
WORKED_DOT = b"\x00\x00\xff"  # blue, green, red
SETTINGS = "[Globals]\r\nMyCall=W1TVR\r\nLatitude=41.7\r\nLongitude=-72.7\r\n"


def asked(*command, **options):
    answer = subprocess.run([str(part) for part in command], text=True, stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                            **options)
    if answer.returncode != 0:
        raise Failed(f"{' '.join(map(str, command))}: status {answer.returncode}\n{answer.stdout}")
    return answer.stdout


def expect(what, holds):
    if not holds:
        raise Failed(what)
    print(f"ok  {what}", flush=True)


def aged(package, work):
    """The package under an older version number, with one more file."""
    folder, older = work / "older", work / "older.deb"
    asked("dpkg-deb", "--raw-extract", package, folder)
    control = folder / "DEBIAN/control"
    version = asked("dpkg-deb", "--field", package, "Version").strip()
    control.write_text(control.read_text(encoding="utf-8").replace(
        f"Version: {version}", f"Version: {version}~older"), encoding="utf-8")
    (folder / "usr/libexec/tovrel/older.txt").write_text("older\n", encoding="utf-8")
    asked("dpkg-deb", "--root-owner-group", "--build", folder, older)
    return older


def clean_root(work):
    """Debian with apt and nothing that no package needs, from the sources of this machine."""
    lines = asked("apt-get", "indextargets", "--format", "deb $(REPO_URI) $(RELEASE) $(COMPONENT)",
                  "Created-By: Packages", "Origin: Debian").splitlines()
    suite = next((line.split()[2] for line in lines), None)
    if suite is None:
        raise Failed("apt knows no source of Debian packages here")
    sources = work / "sources.list"
    sources.write_text("\n".join(dict.fromkeys(lines)) + "\n", encoding="utf-8")
    asked("mmdebstrap", "--mode=root", "--variant=apt", "--skip=cleanup/apt", suite, work / "root",
          sources)
    shutil.copy("/etc/resolv.conf", work / "root/etc/resolv.conf")
    return work / "root"


class Root:
    """Commands in the root."""

    def __init__(self, path):
        self.path = path

    def run(self, *command, user=0, **environment):
        return asked(*self.command(*command, user=user, **environment))

    def command(self, *command, user=0, **environment):
        names = [f"{name}={value}" for name, value in environment.items()]
        return ["chroot", f"--userspec={user}:{user}", self.path, "env", "-i",
                "PATH=/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND=noninteractive",
                "LC_ALL=C.UTF-8", f"HOME=/{HOME if user else 'root'}", *names, *command]

    def install(self, package):
        shutil.copy(package, self.path / "tmp/package.deb")
        self.run("apt-get", "-q", "-y", "install", "--no-install-recommends",
                 "/tmp/package.deb")
        (self.path / "tmp/package.deb").unlink()

    def traces(self):
        """Files and folders of the program outside of homes, logs and caches."""
        found = asked("find", self.path, "-xdev", "-iname", "*tovrel*").splitlines()
        kept = tuple(str(self.path / place) for place in ("home/", "var/log/", "var/cache/"))
        return [path for path in found if not path.startswith(kept)]


def dots(desktop):
    return sum(row[at:at + 3] == WORKED_DOT
               for row in desktop.screen.rows(Rect(0, 0, *SCREEN))
               for at in range(0, len(row), 4))


def plot_in_a_window(root, work):
    with Desktop(work / "desktop", {}) as desktop, contextlib.ExitStack() as made:
        socket = pathlib.Path("tmp/.X11-unix") / ("X" + desktop.environment["DISPLAY"][1:])
        (root.path / socket.parent).mkdir(exist_ok=True)
        with contextlib.suppress(OSError):  # another file system; the abstract socket serves then
            os.link("/" / socket, root.path / socket)
        expect("no dots on the bare screen", dots(desktop) == 0)
        # As the desktop entry starts it.
        process = desktop.start(root.command(
            "tovrel", "--log", f"/{HOME}/my log.adi", user=USER,
            DISPLAY=desktop.environment["DISPLAY"], XDG_RUNTIME_DIR="/tmp"), made)
        until("the dots of the plot", lambda: process.poll() is not None or dots(desktop) > 100)
        expect("the window program runs and shows its plot", process.poll() is None)
        asked("wmctrl", "-c", "Tovrel -", env=desktop.environment)
        until("the program's end", lambda: process.poll() is not None)
        expect("it ends well", process.returncode == 0)


def check(package, older, work):
    root = Root(clean_root(work))
    root.install(older or aged(package, work))
    expect("an older version is installed", "tovrel" in root.run("dpkg-query", "-W", "tovrel"))
    folder = root.path / FOLDER
    folder.mkdir(parents=True)
    (folder / "Tovrel.ini").write_text(SETTINGS, encoding="utf-8", newline="")
    shutil.copy(root.path / "usr/libexec/tovrel/sample.adi", root.path / HOME / "my log.adi")
    asked("chown", "-R", f"{USER}:{USER}", root.path / HOME)

    root.install(package)
    version = asked("dpkg-deb", "--field", package, "Version").strip()
    expect(f"it is upgraded to {version}",
           root.run("dpkg-query", "-W", "-f", "${Version}", "tovrel") == version)
    expect("the older version's file is gone",
           not (root.path / "usr/libexec/tovrel/older.txt").exists())
    expect("all files are as they were packed", root.run("dpkg", "--verify", "tovrel") == "")
    plot_in_a_window(root, work)
    stored = (folder / "Tovrel.ini").read_text(encoding="latin-1")
    expect("the log is remembered and the settings are kept",
           f"/{HOME}/my log.adi" in stored and "Latitude=41.7" in stored)
    root.run("tovrel-batch", "plot", f"/{HOME}/my log.adi", "--quiet", "--image",
             f"/{HOME}/new.png", user=USER)
    expect("the batch program draws in it, fonts and all",
           (root.path / HOME / "new.png").stat().st_size > 10000)

    mine = asked("find", root.path / HOME, "-type", "f", "-exec", "sha256sum", "{}", "+")
    root.run("apt-get", "-q", "-y", "purge", "tovrel")
    expect("nothing is left of the removed package: " + " ".join(root.traces()),
           not root.traces())
    expect("the user's files are as they were", mine == asked(
        "find", root.path / HOME, "-type", "f", "-exec", "sha256sum", "{}", "+"))


def main():
    if len(sys.argv) not in (2, 3):
        print(__doc__, file=sys.stderr)
        return 2
    package, *older = [pathlib.Path(name).resolve() for name in sys.argv[1:]]
    with tempfile.TemporaryDirectory(prefix="tovrel-root-") as work:
        os.chmod(work, 0o755)
        try:
            check(package, older[0] if older else None, pathlib.Path(work))
        except Failed as failure:
            print(f"cleanroot: {failure}", file=sys.stderr)
            return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
