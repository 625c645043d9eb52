#!/usr/bin/env python3
"""Checks the example site in the window of an installed program: window.py TREE PICTURES

TREE is a Debian tree with the package quillmark installed and the site in /home/me/site.
"""
import os
import subprocess
import sys
from pathlib import Path
from time import sleep

sys.path.insert(0, str(Path(__file__).resolve().parents[1] / "windows" / "smoke"))
from screenshots import PATIENCE, Screen, focused, gone, keys, until, window, xdotool  # noqa: E402


def main():
    tree, pictures = Path(sys.argv[1]), Path(sys.argv[2])
    screen = Screen("1280x900")
    program = subprocess.Popen(
        ["unshare", "--mount", "sh", "-c", 'mount -t proc proc "$0/proc" && exec chroot "$0" "$@"', tree, "env", "-i", "PATH=/usr/bin:/bin", "HOME=/home/me", "LC_ALL=C.UTF-8",
         "XDG_RUNTIME_DIR=/home/me", f"DISPLAY={os.environ['DISPLAY']}", "quillmark",
         "/home/me/site/index.html"])
    try:
        focused("Profiles")
        keys("alt+s")
        gone("Profiles")
        page = tree / "home/me/.local/share/quillmark/Quillmark.html"
        until(page.exists, "the window checked nothing")
        window("Quillmark")  # while the check runs, the title tells of it
        keys("alt+d")
        subprocess.run(["import", "-window", "root", pictures / "installed.png"], check=True)
        keys("F1")
        window("Quillmark Help")
        sleep(1)
        subprocess.run(["import", "-window", "root", pictures / "installed-help.png"], check=True)
        keys("Escape")
        xdotool("windowactivate", "--sync", window("Quillmark"))
        keys("ctrl+q")
        if program.wait(PATIENCE) != 0:
            raise SystemExit(f"the program ended with {program.returncode}")
    finally:
        program.kill()
        screen.close()


if __name__ == "__main__":
    main()
