"""Running the programs, and the table's rows with what became of each try."""

import collections
import dataclasses
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import tempfile
import threading
import time

NOBODY = 65534
# Seconds for a run that is not about time; a program that takes longer hangs.
PATIENCE = 120


@dataclasses.dataclass
class End:
    """How a run ended."""
    status: int  # negative: the number of the signal that ended it
    out: str = ""
    err: str = ""

    @property
    def text(self):
        return (self.out + self.err).replace("\r", "")


class Skipped(Exception):
    """A row that can't be tried here, and why."""


class Tally:
    """What became of the tries of one row."""

    def __init__(self):
        self.outcomes = collections.Counter()
        self.faults = []

    @property
    def tried(self):
        return sum(self.outcomes.values())

    def note(self, outcome):
        self.outcomes[outcome] += 1

    def fault(self, text):
        self.faults.append(text)

    def summary(self):
        return ", ".join(f"{name} {count}" for name, count in sorted(self.outcomes.items()))


@dataclasses.dataclass
class Row:
    name: str
    run: object  # called with a Tally and a random.Random of the row's own


class Bench:
    """The programs under test, a folder for their work, and what all rows share."""

    def __init__(self, programs, data, seed, long):
        self.seed = seed
        self.long = long
        self.data = pathlib.Path(data).resolve()
        # No dot in the path: the export leaves out all dots of a log's path. Open to other users,
        # since some rows run the programs as one.
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="tovrel_faults_"))
        self.root.chmod(0o755)
        self.programs = self.root / "programs"
        self.programs.mkdir()
        for name in ("tovrel", "tovrel-batch", "windowActs"):
            shutil.copy(pathlib.Path(programs) / name, self.programs / name)
        self.shim = self.root / "inject.so"
        source = pathlib.Path(__file__).with_name("inject.c")
        subprocess.run([os.environ.get("CC", "cc"), "-std=gnu17", "-shared", "-fPIC", "-O1",
                        "-Wall", "-Wextra", "-o", self.shim, source, "-ldl"], check=True)
        self._places = 0
        self._lock = threading.Lock()
        self._mounts = []

    def times(self, normal, long):
        return long if self.long else normal

    def random(self, name):
        return random.Random(f"{self.seed} {name}")

    def folder(self):
        """A new empty folder."""
        with self._lock:
            self._places += 1
            number = self._places
        path = self.root / f"place{number}"
        path.mkdir()
        return path

    def mount(self, size):
        """A new small disk."""
        if os.geteuid() != 0:
            raise Skipped("mounting needs the superuser")
        path = self.folder()
        answer = subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={size},mode=755", "tmpfs",
                                 path], capture_output=True, text=True, check=False)
        if answer.returncode != 0:
            raise Skipped("mounting is not possible here")
        with self._lock:
            self._mounts.append(path)
        return path

    def unmount(self, path):
        subprocess.run(["umount", path], capture_output=True, check=False)
        subprocess.run(["umount", "-l", path], capture_output=True, check=False)
        with self._lock:
            self._mounts.remove(path)

    def close(self):
        for path in list(self._mounts):
            self.unmount(path)
        shutil.rmtree(self.root, ignore_errors=True)

    def environment(self, extra=None):
        kept = {name: value for name, value in os.environ.items()
                if name not in ("DISPLAY", "WAYLAND_DISPLAY") and not name.startswith("LC_")}
        kept.update(LC_ALL="C.UTF-8", LANG="C.UTF-8", TZ="UTC", QT_QPA_PLATFORM="offscreen",
                    HOME=str(self.root / "home"), XDG_RUNTIME_DIR=str(self.root / "runtime"))
        kept.pop("XDG_DATA_HOME", None)
        kept.update(extra or {})
        return kept

    def start(self, command, environment=None, user=None):
        """A program on its way; finish() waits for it."""
        captured = tempfile.TemporaryFile(), tempfile.TemporaryFile()
        as_other = {}
        if user is not None and os.geteuid() == 0:
            as_other = {"user": user, "group": user, "extra_groups": []}
        program = subprocess.Popen([str(part) for part in command], stdin=subprocess.DEVNULL,
                                   stdout=captured[0], stderr=captured[1], cwd=self.root,
                                   env=self.environment(environment), **as_other)
        program.captured = captured
        return program

    def finish(self, program, patience=PATIENCE):
        try:
            program.wait(patience)
        except subprocess.TimeoutExpired:
            program.kill()
            program.wait()
        texts = []
        for file in program.captured:
            file.seek(0)
            texts.append(file.read().decode("utf-8", "replace"))
            file.close()
        return End(program.returncode, *texts)

    def run(self, command, environment=None, user=None):
        return self.finish(self.start(command, environment, user))

    def injected(self, text, kind=None, at=0, what="", log=None):
        """Environment that makes a call of a program fail; see inject.c."""
        added = {"LD_PRELOAD": str(self.shim), "INJECT_TEXT": str(text)}
        if kind:
            added.update(INJECT_KIND=kind, INJECT_AT=str(at), INJECT_DO=str(what))
        if log:
            added["INJECT_LOG"] = str(log)
        return added

    def calls(self, command, text):
        """Paths of the calls of each kind that a run makes where they hold a text, and its end."""
        log = self.root / f"calls{threading.get_ident()}"
        log.unlink(missing_ok=True)
        end = self.run(command, self.injected(text, log=log))
        lines = log.read_text("utf-8", "replace").splitlines() if log.exists() else []
        paths = collections.defaultdict(list)
        for line in lines:
            kind, _, path = line.partition(" ")
            paths[kind].append(path)
        return paths, end


def wait_for_stop(program, patience=PATIENCE):
    """Waits until a program stops itself.
    @return whether it did; else it has ended"""
    limit = time.monotonic() + patience
    while time.monotonic() < limit:
        pid, status = os.waitpid(program.pid, os.WUNTRACED | os.WNOHANG)
        if pid and os.WIFSTOPPED(status):
            return True
        if pid:
            program.returncode = os.waitstatus_to_exitcode(status)
            return False
        time.sleep(0.002)
    return False


def go_on(program):
    os.kill(program.pid, signal.SIGCONT)


def spread(count, most):
    """The numbers from 1 to count, or that many of them, spread evenly."""
    if count <= most:
        return list(range(1, count + 1))
    return sorted({1 + round(i * (count - 1) / (most - 1)) for i in range(most)})


def reasons_of(*errors):
    return [os.strerror(error) for error in errors]


def talk_faults(text, place, known):
    """What is wrong with the words that a program used: no reason, or the names of files that the
    user knows nothing of."""
    if "Unknown error" in text:
        yield "says Unknown error"
    if ".tovrel-" in text or "/proc/self" in text:
        yield "names a temporary file"
        return
    for name in re.findall(re.escape(str(place)) + r"/([^/\s]+)", text):
        if name.rstrip(".,:;'\"") not in known:
            yield f"names {name}"
