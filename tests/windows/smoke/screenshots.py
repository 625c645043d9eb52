#!/usr/bin/env python3
"""Runs the real desktop program on a screen of its own (Xvfb), as a person would with the keyboard,
and takes a picture of every window it comes by. Fails when a window does not appear, or the program
says something on standard error or ends badly.

    screenshots.py --program build/desktop/bin/quillmark --check .../quillmark-check --to FOLDER
"""

import argparse
import os
import subprocess
import sys
import tempfile
from pathlib import Path
from time import monotonic, sleep

SOURCE = Path(__file__).resolve().parents[3]
EXAMPLE = SOURCE / "examples" / "site" / "index.html"
PATIENCE = 30


class Screen:
    """An X server with a window manager: without one no window gets the keyboard."""

    def __init__(self, size):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{size}x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        os.environ["DISPLAY"] = ":" + os.read(read, 16).decode().strip()
        self.manager = subprocess.Popen(["openbox"], stderr=subprocess.DEVNULL)

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def xdotool(*words):
    return subprocess.run(["xdotool", *words], capture_output=True, text=True)


def window(title):
    """The window of that title, once it is on the screen."""
    end = monotonic() + PATIENCE
    while monotonic() < end:
        found = xdotool("search", "--onlyvisible", "--name", f"^{title}$").stdout.split()
        if found:
            return found[-1]
        sleep(0.01)
    raise SystemExit(f"no window {title!r} on the screen")


def gone(title):
    end = monotonic() + PATIENCE
    while xdotool("search", "--onlyvisible", "--name", f"^{title}$").stdout.split():
        if monotonic() > end:
            raise SystemExit(f"the window {title!r} stays")
        sleep(0.05)


def keys(*names):
    xdotool("key", "--delay", "60", *names)
    sleep(0.3)


class Tour:
    def __init__(self, options, folder):
        self.to = Path(options.to)
        self.to.mkdir(parents=True, exist_ok=True)
        self.environment = {**os.environ, "QUILLMARK_FOLDER": str(folder)}
        self.options = options
        start = str(EXAMPLE).replace("/", "\\")
        subprocess.run([options.check, "--folder", folder, "profile", "save", "Example site",
                        "--set", f"START_PATH={start}", "--set", "CHECK_DUPES=1"], check=True)

    def picture(self, name, title):
        target = window(title)
        sleep(0.4)
        subprocess.run(["import", "-window", target, self.to / f"{name}.png"], check=True)

    def walk(self):
        program = subprocess.Popen([self.options.program, "--theme", self.options.theme],
                                   env=self.environment, stderr=subprocess.PIPE, text=True)
        begin = monotonic()
        subprocess.run(["import", "-window", window("Quillmark"), self.to / "splash.png"])
        gone_splash = window("Quillmark")
        self.visit()
        status = program.wait(PATIENCE)
        said = program.stderr.read()
        if status != 0 or said:
            raise SystemExit(f"the program ended with {status} and said: {said}")
        return monotonic() - begin, gone_splash

    def visit(self):
        sleep(1.5)
        self.picture("main-empty", "Quillmark")
        keys("alt+s")
        self.picture("profile-new", "Profiles")
        xdotool("type", "Exam")
        self.picture("profile", "Profiles")
        keys("alt+s")
        gone("Profiles")
        sleep(1)
        self.results()
        self.others()
        keys("ctrl+q")

    def results(self):
        names = ["directories", "files", "references", "unused", "invalid", "ignored", "duplicates"]
        for number, name in enumerate(names):
            keys("alt+d", *(["Down"] if number else []))
            self.picture(f"results-{name}", "Quillmark")

    def others(self):
        for name, open_keys, title in (("options", ["alt+n"], "Quillmark Options"),
                                       ("help", ["F1"], "Quillmark Help"),
                                       ("about", ["alt+h", "a"], "About Quillmark")):
            keys(*open_keys)
            self.picture(name, title)
            keys("Escape")
            gone(title)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--check", required=True)
    parser.add_argument("--to", required=True, help="the folder for the pictures")
    parser.add_argument("--theme", default="light")
    parser.add_argument("--screen", default="1280x800")
    options = parser.parse_args()
    screen = Screen(options.screen)
    try:
        with tempfile.TemporaryDirectory() as folder:
            Tour(options, folder).walk()
    finally:
        screen.close()


if __name__ == "__main__":
    sys.exit(main())
