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
PATIENCE = 120


class Screen:
    """An X server with a window manager: without one no window gets the keyboard."""

    def __init__(self, size):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-screen", "0", f"{size}x24", "-nolisten", "tcp"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        os.environ["DISPLAY"] = ":" + os.read(read, 16).decode().strip()
        self.manager = subprocess.Popen(["openbox"], stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)

    def close(self):
        for process in (self.manager, self.server):
            process.terminate()
            process.wait()


def xdotool(*words):
    return subprocess.run(["xdotool", *words], capture_output=True, text=True)


def until(condition, problem):
    """Waits until the condition has a true value, and returns that."""
    end = monotonic() + PATIENCE
    while not (result := condition()):
        if monotonic() > end:
            raise SystemExit(problem)
        sleep(0.01)
    return result


def shown(title):
    return xdotool("search", "--onlyvisible", "--name", f"^{title}$").stdout.split()


def window(title):
    """The window of that title, once it is on the screen."""
    return until(lambda: shown(title), f"no window {title!r} on the screen")[-1]


def focused(title):
    """Waits until the keys go to the window of that title."""
    until(lambda: xdotool("getactivewindow", "getwindowname").stdout.strip() == title,
          f"the window {title!r} does not get the keys")


def gone(title):
    until(lambda: not shown(title), f"the window {title!r} stays")


def keys(*names):
    xdotool("key", "--delay", "60", *names)
    sleep(0.3)


class Tour:
    def __init__(self, options, folder):
        self.options = options
        self.to = Path(options.to)
        self.to.mkdir(parents=True, exist_ok=True)
        self.environment = {**os.environ, "QUILLMARK_FOLDER": folder, "XDG_RUNTIME_DIR": folder}
        # So many names that lead nowhere, each a line of the log, that the passes can be seen.
        large = "".join(f'<a href="gone{i}.gif">\r\n' for i in range(15000)) + "\r\n"
        unix = '<a href="https://a.example/">\n\n<a href="boats.html">\n'
        for name, site, text, *values in (
                ("Large site", folder + "/large", large),
                ("Example site", SOURCE / "examples/site", None, "CHECK_DUPES=1", "IGNORE_VALUE=1"),
                ("Unix site", folder + "/unix", unix),
                ("Today", SOURCE / "examples/today", None, "RULES=web")):
            page = Path(site, "index.html")
            if text:
                page.parent.mkdir()
                page.write_text(text)
            self.save_profile(name, "START_PATH=" + str(page).replace("/", "\\"), *values)
        self.host = subprocess.Popen([sys.executable, SOURCE / "tests/support/ftp_faults.py",
                                      "healthy", f"{folder}/log"],
                                     stdout=subprocess.PIPE, text=True)
        port = self.host.stdout.readline().strip()
        self.save_profile("Web host", "HOST_NAME=127.0.0.1", f"HOST_PORT={port}", "USER_NAME=me",
                          "START_PATH=/index.html", password="secret")

    def save_profile(self, name, *values, password=""):
        sets = [word for value in values for word in ("--set", value)]
        subprocess.run([self.options.check, "--folder", self.environment["QUILLMARK_FOLDER"],
                        "profile", "save", name, *sets],
                       check=True, env={**os.environ, "QUILLMARK_PASSWORD": password})

    def picture(self, name, title=None):
        """Of a window, or of everything: menus are no windows of the window manager's."""
        target = window(title) if title else "root"
        sleep(0.4)
        subprocess.run(["import", "-window", target, self.to / f"{name}.png"], check=True)

    def walk(self):
        program = subprocess.Popen([self.options.program, "--theme", "light"],
                                   env=self.environment, stderr=subprocess.PIPE, text=True)
        try:
            self.picture("splash", "Quillmark")
            sleep(1.5)
            self.visit()
            status = program.wait(PATIENCE)
            said = program.stderr.read()
        except BaseException:
            self.picture("failed")
            raise
        finally:
            program.kill()
            self.host.terminate()
            self.host.wait()
        if status != 0 or said:
            raise SystemExit(f"the program ended with {status} and said: {said}")

    def visit(self):
        self.picture("main-empty", "Quillmark")
        keys("alt+s")
        self.picture("profile-new", "Profiles")
        self.check("Exam", "profile")
        self.results()
        self.row()
        keys("alt+s")
        self.check("Unix", "profile-unix")
        self.picture("notice", "Quillmark")
        keys("alt+c")
        sleep(1)
        self.picture("results-web-again", "Quillmark")
        keys("alt+s")
        self.check("Tod", "profile-web")
        self.picture("results-web", "Quillmark")
        self.options_on()
        self.check("Web", "profile-host")
        self.picture("trace", "Host Trace")
        self.progress()
        self.help()
        xdotool("windowactivate", "--sync", window("Quillmark"))
        keys("ctrl+q")

    def check(self, name, picture):
        """Types the beginning of a profile's name in the dialog and presses Start there."""
        focused("Profiles")
        xdotool("type", name)
        self.picture(picture, "Profiles")
        keys("alt+s")
        gone("Profiles")
        sleep(1)
        window("Quillmark")  # While the check runs, the title tells of it.

    def results(self):
        names = ["directories", "files", "references", "unused", "invalid", "ignored", "duplicates"]
        for number, name in enumerate(names):
            keys("alt+d", *(["Down"] if number else []))
            self.picture(f"results-{name}", "Quillmark")

    def row(self):
        """What can be done with a row of the invalid references, and with one of several."""
        keys("alt+d", "Up", "Up", "Tab", "Tab", "Tab", "Down", "Menu")
        self.picture("row-menu")
        keys("Escape", "shift+Down", "shift+Down", "Menu")
        self.picture("row-menu-of-several")
        keys("Escape", "ctrl+f")
        xdotool("type", "contact")
        self.picture("find", "Quillmark")
        keys("Escape")

    def options_on(self):
        """Opens the options, and switches the trace window on."""
        keys("alt+n")
        focused("Quillmark Options")
        self.picture("options", "Quillmark Options")
        keys("alt+t")
        keys("alt+l")
        keys("Return")
        gone("Quillmark Options")
        keys("alt+s")

    def progress(self):
        """The progress window, while it is there."""
        xdotool("windowactivate", "--sync", window("Quillmark"))
        keys("alt+s")
        focused("Profiles")
        xdotool("type", "Large")
        sleep(0.3)
        xdotool("key", "alt+s")
        passing = window("Checking .*PleaseWait")
        subprocess.run(["import", "-window", passing, self.to / "thinking.png"], check=True)
        window("Quillmark")
        sleep(1)

    def help(self):
        xdotool("windowactivate", "--sync", window("Quillmark"))
        for name, open_keys, title in (("help", ["F1"], "Quillmark Help"),
                                       ("about", ["alt+h", "a"], "About Quillmark")):
            keys(*open_keys)
            focused(title)
            self.picture(name, title)
            keys("Escape")
            gone(title)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", required=True)
    parser.add_argument("--check", required=True)
    parser.add_argument("--to", required=True, help="the folder for the pictures")
    options = parser.parse_args()
    screen = Screen("1280x800")
    try:
        with tempfile.TemporaryDirectory() as folder:
            Tour(options, folder).walk()
    finally:
        screen.close()


if __name__ == "__main__":
    sys.exit(main())
