"""A desktop of its own: a screen that nobody sees, a window manager, keyboard and mouse."""

import collections
import contextlib
import os
import pathlib
import re
import signal
import struct
import subprocess
import time

# Seconds after which what has not come will not come; a busy machine needs many of them.
PATIENCE = 20
SCREEN = (1024, 768)
# Seconds that a state has to last: longer than the program waits before it corrects a size.
LASTING = 0.6

# A theme or a desktop file of the machine must not decide how large a frame is, and a window that
# the program has placed stays there.
WINDOW_MANAGER = """<?xml version="1.0" encoding="UTF-8"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <theme><name>Clearlooks</name><keepBorder>yes</keepBorder></theme>
  <desktops><number>1</number></desktops>
  <resize><drawContents>yes</drawContents></resize>
  <mouse>
    <dragThreshold>1</dragThreshold>
    <context name="Right">
      <mousebind button="Left" action="Drag">
        <action name="Resize"><edge>right</edge></action>
      </mousebind>
    </context>
    <context name="Client">
      <mousebind button="Left" action="Press">
        <action name="Focus"/><action name="Raise"/>
      </mousebind>
    </context>
  </mouse>
</openbox_config>
"""

Rect = collections.namedtuple("Rect", "x y w h")


class Failed(Exception):
    """A check that does not hold, and what was seen."""


def until(what, condition, patience=PATIENCE):
    """Waits for a condition and gives what it gave."""
    deadline = time.monotonic() + patience
    while True:
        late = time.monotonic() > deadline
        if seen := condition():
            return seen
        if late:
            raise Failed(f"not within {patience} s: {what}")
        time.sleep(0.05)


def lasting(what, condition, patience=PATIENCE):
    """Waits until a condition has held for a while."""
    since = None

    def held():
        nonlocal since
        if not condition():
            since = None
            return False
        since = since or time.monotonic()
        return time.monotonic() - since >= LASTING

    until(what, held, patience)


class Screen:
    """The pixels of the screen. Xvfb keeps them in a file with the head of a window dump."""

    def __init__(self, path):
        self._file = path.open("rb", buffering=0)
        head = struct.unpack(">20I", self._file.read(80))
        self._start = head[0] + 12 * head[19]
        self._line = head[12]

    def close(self):
        self._file.close()

    def rows(self, rect):
        """Each row of a rectangle, four bytes a pixel."""
        x, y = max(rect.x, 0), max(rect.y, 0)
        right, bottom = min(rect.x + rect.w, SCREEN[0]), min(rect.y + rect.h, SCREEN[1])
        rows = []
        for line in range(y, bottom):
            self._file.seek(self._start + line * self._line + 4 * x)
            rows.append(self._file.read(4 * (right - x)))
        return rows

    def picture(self, rect):
        return b"".join(self.rows(rect))


class Desktop:
    """Xvfb and openbox, and the windows on them."""

    def __init__(self, root, environment):
        """@param environment what the programs are told beside the desktop's own"""
        self.root = root
        self._ended = contextlib.ExitStack()
        home = root / "home"
        for folder in (home / ".config/openbox", root / "screen", root / "runtime"):
            folder.mkdir(parents=True)
        (root / "runtime").chmod(0o700)
        (home / ".config/openbox/rc.xml").write_text(WINDOW_MANAGER, encoding="utf-8")
        kept = {name: value for name, value in os.environ.items()
                if not name.startswith(("LC_", "XDG_", "QT_")) and
                name not in ("WAYLAND_DISPLAY", "SESSION_MANAGER", "DBUS_SESSION_BUS_ADDRESS")}
        self.environment = {**kept, "HOME": str(home), "XDG_CONFIG_HOME": str(home / ".config"),
                            "XDG_DATA_HOME": str(home / ".local/share"),
                            "XDG_CACHE_HOME": str(home / ".cache"),
                            "XDG_RUNTIME_DIR": str(root / "runtime"), "LC_ALL": "C.UTF-8",
                            "TZ": "UTC", "NO_AT_BRIDGE": "1", **environment}

    def __enter__(self):
        with contextlib.ExitStack() as made:
            self._start_screen(made)
            self._start_window_manager(made)
            self._ended = made.pop_all()
        return self

    def __exit__(self, *_):
        self._ended.close()

    def start(self, command, made, **options):
        """A process that ends with the desktop, at the latest."""
        log = (self.root / (pathlib.Path(command[0]).name + ".log")).open("ab")
        made.callback(log.close)
        process = subprocess.Popen([str(part) for part in command], env=self.environment,
                                   stdin=subprocess.DEVNULL, stdout=log, stderr=log, **options)
        made.callback(end, process)
        return process

    def _start_screen(self, made):
        reading, writing = os.pipe()
        size = f"{SCREEN[0]}x{SCREEN[1]}x24"
        self.start(["Xvfb", "-displayfd", writing, "-screen", "0", size, "-fbdir",
                    self.root / "screen", "-nolisten", "tcp", "-noreset"], made,
                   pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as answer:
            number = answer.readline().strip()
        if not number:
            raise Failed("Xvfb does not start")
        self.environment["DISPLAY"] = f":{number}"
        self.screen = Screen(self.root / "screen/Xvfb_screen0")
        made.callback(self.screen.close)

    def _start_window_manager(self, made):
        self.start(["openbox", "--sm-disable"], made)
        until("a window manager", lambda: "window id" in self.ask("xprop", "-root",
                                                                  "_NET_SUPPORTING_WM_CHECK"))

    def ask(self, *command):
        """What a tool prints; nothing where its window has gone meanwhile."""
        try:
            answer = subprocess.run([str(part) for part in command], env=self.environment,
                                    text=True, stdin=subprocess.DEVNULL, capture_output=True,
                                    check=False, timeout=PATIENCE)
        except subprocess.TimeoutExpired:
            raise Failed(f"{command[0]} gets no answer") from None
        return answer.stdout if answer.returncode == 0 else ""

    def windows(self, pid):
        """Number and title of each window that the manager shows, of one process."""
        lines = [line.split(None, 4) for line in self.ask("wmctrl", "-l", "-p").splitlines()]
        return {int(parts[0], 16): parts[4] if len(parts) > 4 else ""
                for parts in lines if int(parts[2]) == pid}

    def popups(self, pid):
        """The menus and tips of a process: windows that no manager has put into a frame."""
        return set(self.ask("xdotool", "search", "--maxdepth", "1", "--onlyvisible", "--pid",
                            pid).split())

    def client(self, window):
        """The place of a window without its frame."""
        text = self.ask("xwininfo", "-id", window)
        numbers = [re.search(rf"{name}:\s+(-?\d+)", text) for name in
                   ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")]
        return Rect(*(int(number[1]) for number in numbers)) if all(numbers) else Rect(0, 0, 0, 0)

    def frame(self, window):
        """The place of a window with its frame."""
        text = self.ask("xprop", "-id", window, "_NET_FRAME_EXTENTS").partition("=")[2]
        left, right, top, bottom = (int(part) for part in text.split(",")) if text else (0,) * 4
        x, y, w, h = self.client(window)
        return Rect(x - left, y - top, w + left + right, h + top + bottom)

    def active(self):
        found = re.search(r"0x[0-9a-f]+", self.ask("xprop", "-root", "_NET_ACTIVE_WINDOW"))
        return int(found[0], 16) if found else 0

    def topmost(self):
        """The window above all others, whichever has the keyboard."""
        found = re.findall(r"0x[0-9a-f]+", self.ask("xprop", "-root", "_NET_CLIENT_LIST_STACKING"))
        return int(found[-1], 16) if found else 0

    def activate(self, window):
        def is_active():
            if self.active() == window:
                return True
            self.ask("wmctrl", "-i", "-a", hex(window))
            return False
        until("a window that is active", is_active)

    def maximise(self, window, on):
        self.ask("wmctrl", "-i", "-r", hex(window), "-b",
                 ("add" if on else "remove") + ",maximized_vert,maximized_horz")

    def resize(self, window, width, height):
        """Asks the window manager for a size of the window without its frame."""
        self.ask("xdotool", "windowsize", window, width, height)

    def key(self, *keys):
        self.ask("xdotool", "key", "--clearmodifiers", *keys)

    def point(self, x, y):
        self.ask("xdotool", "mousemove", x, y)

    def drag(self, start, end):
        """Drags in steps, since a hand does, and lets go at the end."""
        steps = 5
        self.ask("xdotool", "mousemove", *start, "mousedown", "1")
        for step in range(1, steps + 1):
            self.point(*(a + (b - a) * step // steps for a, b in zip(start, end)))
        self.ask("xdotool", "mouseup", "1")


def end(process):
    """Ends a process that is still there."""
    if process.poll() is None:
        process.terminate()
        # One that is held would not notice.
        process.send_signal(signal.SIGCONT)
        try:
            process.wait(PATIENCE)
        except subprocess.TimeoutExpired:
            process.kill()
            process.wait()
