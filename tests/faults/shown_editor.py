"""The built editor on a display of its own, used by keys and mouse as a user does."""

import os
import signal
import subprocess
import time
from pathlib import Path


class Fault(Exception):
    """Something did not come about."""


def wait_for(what, condition, seconds=30.0):
    """Returns what `condition` gives as soon as that is true; a Fault names `what` was awaited."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.1)
    raise Fault(f"no {what} within {seconds:.0f} s")


class Display:
    """An X server without a window manager, as long as the `with` lasts."""

    def __enter__(self):
        read, write = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24", "-dpi", "96",
             "-nolisten", "tcp"], pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        with os.fdopen(read) as told:
            number = told.readline().strip()
        if not number:
            raise Fault("the X server did not start")
        self.name = f":{number}"
        return self

    def __exit__(self, *_):
        self._server.terminate()
        self._server.wait()


class Editor:
    """One run of the editor. `home` has its settings and its data."""

    def __init__(self, program, display, home, arguments=()):
        self._environment = dict(
            os.environ, DISPLAY=display.name, HOME=str(home), XDG_CONFIG_HOME=str(home / "config"),
            XDG_DATA_HOME=str(home / "data"), LC_ALL="C.UTF-8", LANGUAGE="",
            LIBGL_ALWAYS_SOFTWARE="1", QT_QPA_PLATFORM="xcb", QT_QPA_PLATFORMTHEME="",
            XDG_CURRENT_DESKTOP="")
        self._said = open(home / "said", "a", encoding="utf-8")
        self._process = subprocess.Popen(
            [str(program), *map(str, arguments)], env=self._environment, cwd=home,
            stdout=self._said, stderr=self._said)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.kill()
        self._said.close()

    def kill(self):
        if self._process.poll() is None:
            self._process.send_signal(signal.SIGKILL)
        self._process.wait()

    def wait_for_end(self):
        wait_for("end of the program", lambda: self._process.poll() is not None)
        if self._process.returncode != 0:
            raise Fault(f"the program ended with {self._process.returncode}")

    def _xdotool(self, *words):
        run = subprocess.run(["xdotool", *map(str, words)], env=self._environment, check=False,
                             stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        return run.stdout.split("\n")[:-1] if run.returncode == 0 else []

    def window(self, title):
        """The shown window whose title matches the regular expression, or None."""
        if self._process.poll() is not None:
            raise Fault(f"the program ended by itself with {self._process.returncode}")
        found = self._xdotool("search", "--onlyvisible", "--name", title)
        return found[-1] if found else None

    def await_window(self, title):
        """Waits for it and gives it the keyboard, as no window manager does."""
        window = wait_for(f"window '{title}'", lambda: self.window(title))
        time.sleep(0.3)
        self._xdotool("windowfocus", "--sync", window)
        return window

    def key(self, *keys):
        for key in keys:
            self._xdotool("key", "--clearmodifiers", key)
            time.sleep(0.15)

    def stroke(self, points):
        """Drags along `points` of the screen."""
        self._xdotool("mousemove", *points[0])
        time.sleep(0.1)
        self._xdotool("mousedown", 1)
        for point in points[1:]:
            self._xdotool("mousemove", *point)
            time.sleep(0.05)
        self._xdotool("mouseup", 1)
        time.sleep(0.2)

    def place(self, window):
        """x, y, width and height of a window on the screen."""
        lines = self._xdotool("getwindowgeometry", "--shell", window)
        values = dict(line.split("=") for line in lines)
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))
