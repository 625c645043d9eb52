#!/usr/bin/env python3
"""Completes words in real shells, on a terminal: completion.py SHELL FILE

FILE is the completion that was made for quillmark-check. Each row types the beginning of a command,
presses Tab, and compares the words that the command is then called with.
"""
import os
import pty
import select
import sys
import tempfile
from pathlib import Path
from time import monotonic

PATIENCE = 120
SHELLS = {
    "bash": (["bash", "--norc", "--noprofile", "-i"],
             "bind 'set bell-style none'; source {file};"
             "quillmark-check() {{ printf '<%s>' \"$@\"; echo '<end>'; }}\n"),
    "zsh": (["zsh", "-f", "-i"],
            "fpath=({folder} $fpath); autoload -U compinit; compinit -u -D; unsetopt beep;"
            "quillmark-check() {{ printf '<%s>' \"$@\"; echo '<end>'; }}\n"),
    "fish": (["fish", "--no-config", "-i"],
             "source {file}; function quillmark-check;"
             " printf '<%s>' $argv; echo '<end>'; end\n"),
}
ROWS = [
    ("an option", "--rep", ["--report"]),
    ("an option of a group", "--password-f", ["--password-file"]),
    ("a list", "--list Unu", ["--list", "UnusedList"]),
    ("an encryption", "--encryption im", ["--encryption", "implicit"]),
    ("a file", "--report sum", ["--report", "summary.txt"]),
    ("a folder", "--folder stor", ["--folder", "store"]),
    ("a profile with a blank", "--profile My", ["--profile", "My Site"]),
    ("the start file", "ind", ["index.html"]),
    ("a command", "prof", ["profile"]),
    ("a command's command", "profile sh", ["profile", "show"]),
    ("a profile to show", "profile show My", ["profile", "show", "My Site"]),
]


class Shell:
    def __init__(self, command, folder):
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.chdir(folder)
            environment = {"PATH": os.environ["PATH"], "HOME": folder, "TERM": "dumb",
                           "QUILLMARK_FOLDER": folder, "LC_ALL": "C.UTF-8"}
            os.execvpe(command[0], command, environment)
        self.seen = ""

    def type(self, text):
        os.write(self.terminal, text.encode())

    def wait_for(self, text):
        """What the terminal shows up to `text`."""
        end = monotonic() + PATIENCE
        while text not in self.seen:
            ready, _, _ = select.select([self.terminal], [], [], max(0, end - monotonic()))
            if not ready:
                raise SystemExit(f"no {text!r} after {self.seen!r}")
            self.seen += os.read(self.terminal, 65536).decode(errors="replace")
        before, self.seen = self.seen.split(text, 1)
        return before

    def close(self):
        os.close(self.terminal)
        os.waitpid(self.pid, 0)


def main():
    name, file = sys.argv[1], Path(sys.argv[2]).resolve()
    command, prepare = SHELLS[name]
    failed = 0
    with tempfile.TemporaryDirectory() as folder:
        for made in ("summary.txt", "index.html", "My Site.pro"):
            Path(folder, made).touch()
        Path(folder, "store").mkdir()
        shell = Shell(command, folder)
        shell.type(prepare.format(file=file, folder=file.parent))
        shell.type("echo rea''dy\n")
        shell.wait_for("ready")
        for row, typed, words in ROWS:
            shell.type(f"quillmark-check {typed}\t\n")
            shown = shell.wait_for("<end>").replace("/>", ">")  # zsh takes the "/" away again
            expected = "".join(f"<{word}>" for word in words)
            if expected not in shown:
                print(f"{name}, {row}: not {expected} but {shown[-200:]!r}")
                failed += 1
        shell.close()
    raise SystemExit(failed != 0)


if __name__ == "__main__":
    main()
