"""Sites to check and quillmark-check as a user runs it."""

import json
import os
import pathlib
import subprocess
import tempfile

# A reference and what it leads to, each as hostile to some format as a name can be. Written with
# character references where a browser would otherwise end the attribute.
HOSTILE = [
    ("=HYPERLINK(1)", "=HYPERLINK(1)"),
    ("+1", "+1"),
    ("-1", "-1"),
    ("@SUM(1)", "@SUM(1)"),
    ("%09=1", "\t=1"),
    ("./::error::%0Ay,z:w", "::error::\ny,z:w"),
    ("</script><script>alert(1)</script>", "</script><script>alert(1)</script>"),
    ("`code` | *b* @user ``", "`code` | *b* @user ``"),
    ("<img src=x onerror=alert(1)>", "<img src=x onerror=alert(1)>"),
    ("[click](https://evil.example/) {0}", "[click](https:/evil.example/) {0}"),
    ("a&quot;b'c&amp;d]]>", "a\"b'c&d]]>"),
    ("\u202egpj.exe", "\u202egpj.exe"),
    ("\u2028line", "\u2028line"),
    ("x\x01\x1b[2J.html", "x\x01\x1b[2J.html"),
    ("\ufffe\uffff.html", "\ufffe\uffff.html"),
    ("%FF%FE.html", "\udcff\udcfe.html"),
    ("&#65279;\U0001f600.html", "\ufeff\U0001f600.html"),
]
STEERING = [chr(c) for c in (*range(0x20), *range(0x7F, 0xA0), 0x202E, 0x2066) if chr(c) not in "\n\r"]


class Bench:
    """A site in a folder of its own, and the program's own folder."""

    def __init__(self, test, command):
        self.command = command
        temporary = tempfile.TemporaryDirectory()
        test.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        self.site = self.folder / "site"
        self.site.mkdir()

    def write(self, name, text):
        path = self.site / name
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(text.encode("utf-8", "surrogateescape"))

    def run(self, *words, **more):
        environment = {**os.environ, "QUILLMARK_FOLDER": str(self.folder / "own")}
        (self.folder / "own").mkdir(exist_ok=True)
        return subprocess.run([self.command, *words], cwd=self.folder, env=environment,
                              stdin=subprocess.DEVNULL, timeout=600,
                              **{"stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **more})

    def check(self, *words, **more):
        rules = [] if "--rules" in words else ["--rules", "web"]
        return self.run(*rules, *words, "site", **more)

    def written(self, form, *words):
        """What --output FORMAT:FILE leaves in the file, as bytes."""
        (self.folder / "out").unlink(missing_ok=True)
        self.check("--output", f"{form}:out", *words)
        return (self.folder / "out").read_bytes()

    def json(self, *words):
        return json.loads(self.written("json", *words))

    def write_hostile(self):
        """One page with all hostile references, each on a line of its own, and one note."""
        lines = [f'<a href="{written}">x</a>' for written, _ in HOSTILE]
        self.write("index.html", "\n".join([*lines, '<a href="empty/">note</a>', ""]))
        self.write("empty/=cmd.txt", "")
        os.makedirs(self.site / "empty" / "sub")


