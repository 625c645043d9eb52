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


def window(title):
    """The window of that title, once it is on the screen."""
    end = monotonic() + PATIENCE
    while monotonic() < end:
        found = xdotool("search", "--onlyvisible", "--name", f"^{title}$").stdout.split()
        if found:
            return found[-1]
        sleep(0.01)
    raise SystemExit(f"no window {title!r} on the screen")


def focused(title):
    """Waits until the keys go to the window of that title."""
    end = monotonic() + PATIENCE
    while xdotool("getactivewindow", "getwindowname").stdout.strip() != title:
        if monotonic() > end:
            raise SystemExit(f"the window {title!r} does not get the keys")
        sleep(0.05)


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
        self.options = options
        self.to = Path(options.to)
        self.to.mkdir(parents=True, exist_ok=True)
        self.environment = {**os.environ, "QUILLMARK_FOLDER": folder, "XDG_RUNTIME_DIR": folder}
        start = str(EXAMPLE).replace("/", "\\")
        # So many names that lead nowhere, each a line of the log, that the passes can be seen.
        large = Path(folder) / "large" / "index.html"
        large.parent.mkdir()
        large.write_text("".join(f'<a href="gone{i}.gif">\r\n' for i in range(15000)) + "\r\n")
        self.save_profile("Large site", "START_PATH=" + str(large).replace("/", "\\"))
        self.save_profile("Example site", f"START_PATH={start}", "CHECK_DUPES=1", "IGNORE_VALUE=1")
        page = Path(folder) / "unix" / "index.html"
        page.parent.mkdir()
        page.write_text('<a href="https://a.example/">\n\n<a href="boats.html">\n')
        self.save_profile("Unix site", "START_PATH=" + str(page).replace("/", "\\"))
        today = str(SOURCE / "examples/today/index.html").replace("/", "\\")
        self.save_profile("Today", "START_PATH=" + today, "RULES=web")
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

    def picture(self, name, title):
        target = window(title)
        sleep(0.4)
        subprocess.run(["import", "-window", target, self.to / f"{name}.png"], check=True)

    def screen(self, name):
        """A picture of everything: menus are no windows of the window manager's."""
        sleep(0.4)
        subprocess.run(["import", "-window", "root", self.to / f"{name}.png"], check=True)

    def walk(self):
        program = subprocess.Popen([self.options.program, "--theme", self.options.theme],
                                   env=self.environment, stderr=subprocess.PIPE, text=True)
        try:
            self.picture("splash", "Quillmark")
            sleep(1.5)
            self.visit()
            status = program.wait(PATIENCE)
            said = program.stderr.read()
        except BaseException:
            self.screen("failed")
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
        self.screen("row-menu")
        keys("Escape", "shift+Down", "shift+Down", "Menu")
        self.screen("row-menu-of-several")
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
