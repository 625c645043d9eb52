#!/usr/bin/python3
"""formats.py QUILLMARK_CHECK SCHEMA PART: reads what the command writes with each format's reader."""

import csv
import html.parser
import io
import json
import os
import pathlib
import re
import subprocess
import sys
import unittest
import urllib.parse
import xml.etree.ElementTree

import jsonschema
import yaml

from bench import Bench, HOSTILE, STEERING

COMMAND, SCHEMA = sys.argv[1:3]
HERE = pathlib.Path(__file__).parent
FORMATS = ["text", "json", "sarif", "junit", "github", "gitlab", "csv", "markdown", "html"]
FINDINGS = len(HOSTILE) + 1


def printed(text):
    """As people see it: what would steer a terminal is shown as its bytes."""
    raw = text.encode("utf-8", "surrogateescape")
    return re.sub(r"[\x00-\x1f\x7f-\x9f\u061c\u200e\u200f\u202a-\u202e\u2066-\u2069\udc80-\udcff]",
                  lambda m: "".join(f"\\x{b:02X}" for b in m[0].encode("utf-8", "surrogateescape")),
                  raw.decode("utf-8", "surrogateescape"))


class Text(html.parser.HTMLParser):
    """The elements and the text of HTML."""

    def __init__(self, source):
        super().__init__()
        self.tags, self.text = set(), ""
        self.feed(source)

    def handle_starttag(self, tag, attributes):
        self.tags.add(tag)

    def handle_data(self, data):
        self.text += data


class Formats(unittest.TestCase):
    def setUp(self):
        self.bench = Bench(self, COMMAND)
        self.bench.write_hostile()

    def test_json_is_what_its_schema_says(self):
        schema = json.loads(pathlib.Path(SCHEMA).read_text())
        jsonschema.Draft202012Validator.check_schema(schema)
        for words in ([], ["--rules", "classic"]):
            text = self.bench.written("json", "--path-prefix", "docs", "--duplicates", *words).decode()
            self.assertFalse(set(text) & set(STEERING))
            report = json.loads(text)
            jsonschema.validate(report, schema)
        report = self.bench.json("--path-prefix", "docs")
        self.assertEqual(report["summary"],
                         {"errors": FINDINGS - 1, "notes": 1, "known": 0, "mended": 0})
        for line, ((_, target), finding) in enumerate(zip(HOSTILE, report["findings"]), 1):
            shown = target.encode("utf-8", "surrogateescape").decode("utf-8", "replace")
            self.assertEqual((finding["page"], finding["line"], finding["column"],
                              finding["target"]), ("docs/index.html", line, 10, "docs/" + shown))
        self.assertEqual(report["unused"], [{"path": "docs/empty/=cmd.txt", "size": 0}])

    def test_sarif(self):
        log = json.loads(self.bench.written("sarif", "--path-prefix", "docs und mehr"))
        jsonschema.validate(log, json.loads((HERE / "sarif-2.1.0.json").read_text()))
        run = log["runs"][0]
        rules = run["tool"]["driver"]["rules"]
        self.assertEqual(len(run["results"]), FINDINGS)
        prints = [r["partialFingerprints"] for r in run["results"]]
        self.assertEqual(len({p["quillmarkFinding/v1"] for p in prints}), FINDINGS)
        for i, result in enumerate(run["results"], 1):
            place = result["locations"][0]["physicalLocation"]
            self.assertEqual(urllib.parse.unquote(place["artifactLocation"]["uri"]),
                             "docs und mehr/index.html")
            self.assertEqual(place["region"], {"startLine": i, "startColumn": 10})
            rule = rules[result["ruleIndex"]]
            self.assertEqual(rule["id"], result["ruleId"])
            self.assertTrue(rule["help"]["text"] and rule["fullDescription"]["text"])
        messages = [r["message"]["text"] for r in run["results"]]
        self.assertIn(r"\[click\](https://evil.example/) {{0}}: there is no such file", messages)
        self.assertEqual(run["results"][-1]["level"], "note")
        page = self.bench.site / "index.html"
        page.write_bytes(b"<p>\n\n" + page.read_bytes())
        moved = json.loads(self.bench.written("sarif"))["runs"][0]["results"]
        self.assertEqual([r["partialFingerprints"] for r in moved], prints)
        self.assertEqual(moved[0]["locations"][0]["physicalLocation"]["region"]["startLine"], 3)

    def test_junit(self):
        suites = xml.etree.ElementTree.fromstring(self.bench.written("junit"))
        cases = suites.findall("./testsuite/testcase")
        self.assertEqual([suites.get(name) for name in ("tests", "failures", "errors", "skipped")],
                         [str(FINDINGS), str(FINDINGS - 1), "0", "1"])
        self.assertEqual(len(cases), FINDINGS)
        for line, ((written, _), case) in enumerate(zip(HOSTILE, cases), 1):
            name = html.unescape(written).replace("\ufffe", "\ufffd").replace("\uffff", "\ufffd")
            self.assertEqual(case.get("name"), f"{line}:10 {printed(name)}")
            self.assertEqual(case.find("failure").get("type"), "missing")
        self.assertIsNotNone(cases[-1].find("skipped"))

    def test_github_annotations(self):
        lines = self.bench.written("github", "--path-prefix", "a,b:c").decode().split("\n")
        self.assertEqual(lines.pop(), "")
        self.assertEqual(len(lines), FINDINGS)
        for number, ((written, _), line) in enumerate(zip(HOSTILE, lines), 1):
            match = re.fullmatch(r"::error file=([^,:]*),line=(\d+),col=10,title=missing::(.*)", line)
            self.assertIsNotNone(match, line)
            self.assertEqual(urllib.parse.unquote(match[1]), "a,b:c/index.html")
            self.assertEqual(int(match[2]), number)
            self.assertEqual(re.sub("%25", "%", match[3]),
                             printed(html.unescape(written)) + ": there is no such file")
        self.assertTrue(lines[-1].startswith("::notice file="))

    def test_github_suggestions_are_not_decoded(self):
        self.bench.write("index.html", '<a href="A%25b.html">')
        self.bench.write("a%b.html", "")
        self.assertIn(b"(did you mean a%2525b.html?)\n", self.bench.written("github"))

    def test_gitlab_code_quality(self):
        issues = json.loads(self.bench.written("gitlab"))
        self.assertEqual(len({issue["fingerprint"] for issue in issues}), FINDINGS)
        for line, issue in enumerate(issues, 1):
            self.assertEqual(issue["location"], {"path": "index.html", "lines": {"begin": line}})
            self.assertIn(issue["severity"], ("info", "minor", "major", "critical", "blocker"))
            self.assertTrue(issue["check_name"] and issue["description"])

    def test_csv_has_no_formulas(self):
        text = self.bench.written("csv").decode()
        rows = list(csv.DictReader(io.StringIO(text, newline="")))
        self.assertEqual(len(rows), FINDINGS)
        for (written, target), row in zip(HOSTILE, rows):
            self.assertEqual(row["reference"].lstrip("'"), printed(html.unescape(written)))
            self.assertEqual(row["target"].lstrip("'"), printed(target))
            for value in row.values():
                self.assertNotIn(value[:1], tuple("=+-@\t\r"))

    def test_markdown_shows_names_as_they_are(self):
        source = self.bench.written("markdown")
        page = Text(subprocess.run(["cmark-gfm", "--unsafe", "-e", "table", "-e", "autolink"],
                                   input=source, stdout=subprocess.PIPE, check=True).stdout.decode())
        self.assertEqual(page.tags, {"h3", "p", "strong", "code", "ul", "li"})
        for written, _ in HOSTILE:
            self.assertIn(printed(html.unescape(written)), page.text)

    def test_markdown_fits_into_a_comment(self):
        pages = "".join(f'<a href="gone/{i}.html">\n' for i in range(10000))
        self.bench.write("index.html", pages + '<a href="gone/x.html">\n' * 10000)
        text = self.bench.written("markdown").decode()
        shown = text.count("\n- ")
        self.assertTrue(60000 < len(text) <= 65536, len(text))
        self.assertIn(f"That is not all: {20000 - shown} errors and 0 notes more", text)
        self.bench.write("index.html", '<a href="gone/x.html">\n' * 20000)
        self.assertTrue(self.bench.written("markdown").decode().endswith(
            "- 1:10 `gone/x.html` there is no such file, here and at 19999 other places\n"))

    def test_a_classic_check_has_findings_without_lines(self):
        self.bench.write("index.html", '<a href="gone.html">\r\n<a href="a.html">\r\n')
        self.bench.write("a.html", '<a href="gone.html">\r\n')
        classic = ["--rules", "classic", "--set", "IGNORECASE=0"]
        finding = self.bench.json(*classic)["findings"][0]
        self.assertEqual((finding["page"], finding["target"], "line" in finding),
                         ("a.html", "gone.html", False))
        result = json.loads(self.bench.written("sarif", *classic))["runs"][0]["results"][0]
        self.assertNotIn("region", result["locations"][0]["physicalLocation"])
        self.assertEqual(self.bench.written("github", *classic).decode(),
                         "::error file=a.html,title=missing::gone.html: there is no such file\n")
        self.assertEqual(json.loads(self.bench.written("gitlab", *classic))[0]["location"],
                         {"path": "a.html", "lines": {"begin": 1}})
        suites = xml.etree.ElementTree.fromstring(self.bench.written("junit", *classic))
        self.assertEqual([suites.get("tests"), suites.get("failures")], ["2", "1"])
        self.assertIn("- `gone.html` there", self.bench.written("markdown", *classic).decode())
        self.assertIn(b',"a.html",,,"","","gone.html",', self.bench.written("csv", *classic))


class Baseline(unittest.TestCase):
    def setUp(self):
        self.bench = Bench(self, COMMAND)
        self.bench.write("index.html", '<a href="a"><a href="b"><a href="b"><a href="%FF">')
        self.written = self.bench.check("--write-baseline", "known.json")

    def check(self, *words):
        return self.bench.check("--baseline", "known.json", *words)

    def test_knows_findings_again_on_other_lines(self):
        self.assertEqual(self.written.returncode, 0)
        self.bench.write("index.html", '\n\n<p>\n<a href="b"><a href="%FF"><a href="a"><a href="b">')
        result = self.check()
        self.assertEqual(result.returncode, 0)
        self.assertIn(b"\n0 new errors, 4 known, 0 mended\n", result.stdout)

    def test_counts_equal_ones_and_mended_ones(self):
        self.bench.write("index.html", '<a href="b"><a href="b"><a href="b"><a href="c">')
        result = self.check()
        self.assertEqual(result.returncode, 1)
        self.assertIn(b"\n2 new errors, 2 known, 2 mended\n", result.stdout)
        self.assertEqual([f["known"] for f in self.bench.json("--baseline", "known.json")["findings"]],
                         [True, True, False, False])
        log = json.loads(self.bench.written("sarif", "--baseline", "known.json"))
        self.assertEqual([r["baselineState"] for r in log["runs"][0]["results"]],
                         ["unchanged", "unchanged", "new", "new"])
        for form, lines in (("github", 2), ("gitlab", 4), ("csv", 5)):
            text = self.bench.written(form, "--baseline", "known.json").decode()
            self.assertEqual(text.count("\n"), lines, form)
        self.assertIn("### Quillmark: 2 new errors, 2 known, 2 mended\n",
                      self.bench.written("markdown", "--baseline", "known.json").decode())

    def test_a_baseline_can_be_brought_up_to_date(self):
        self.bench.write("index.html", '<a href="c">')
        self.assertEqual(self.check("--write-baseline", "known.json").returncode, 0)
        self.assertIn(b"0 new errors, 1 known, 0 mended", self.check().stdout)

    def test_refuses_what_is_none(self):
        for text, reason in (("{", "no JSON"), ("[]", "lacks values"), ('{"version": 2}', "version"),
                             ('{"version": 1, "findings": [{"page": 1}]}', "lacks values"),
                             ('{"version": 1, "findings": [{"page": "a", "reference": "b", "kind": "c",'
                              '"count": -1}]}', "lacks values")):
            (self.bench.folder / "known.json").write_text(text)
            result = self.check()
            self.assertEqual(result.returncode, 2, text)
            self.assertIn(reason, result.stderr.decode())
        (self.bench.folder / "known.json").unlink()
        self.assertIn(b"--write-baseline", self.check().stderr)


class Config(unittest.TestCase):
    def setUp(self):
        self.bench = Bench(self, COMMAND)
        self.bench.write("index.html", '<a href="gone#x.html"><a href="empty/">\r\n\r\n')
        self.bench.write("empty/a.txt", "")
        self.file = self.bench.site / "quillmark.toml"

    def run_with(self, text, *words):
        self.file.write_text(text)
        return self.bench.run("site", *words)

    def test_options_by_their_long_names(self):
        rows = [
            ('rules = "web"', [], 1, "1 error, 1 note"),
            ('rules = "web"\nexclude = "gone#"  # "x', [], 0, "0 errors, 1 note"),
            ("rules = 'web'\nset = ['CHECK_DUPES=1']", [], 1, "0 duplicate files"),
            ("rules = 'web'\nexclude = [ # it's\n  'a\\.b',\n  'gone',\n]\nstrict = true", [], 1,
             "0 errors, 1 note"),
            ('rules = "web"\nexclude = "gone"', ["--exclude", "nothing"], 1, "1 error, 1 note"),
            ('rules = "web"', ["--rules", "classic"], 1, "1 page read"),
            ('rules = "web"\noutput = "csv"', [], 1, "level,kind"),
            ("rules = web\nduplicates = true\nmax-levels = 1", [], 1, "0 duplicate files"),
        ]
        for text, words, status, shown in rows:
            with self.subTest(text, words=words):
                result = self.run_with(text, *words)
                self.assertEqual((result.returncode, result.stderr.decode()[:4]), (status, ""))
                self.assertIn(shown, result.stdout.decode())

    def test_names_the_line_of_what_is_wrong(self):
        rows = [
            ("\n\noutptu = 'csv'", ':3: there is no option "outptu"; did you mean "output"?'),
            ("ignorecase = true", 'did you mean "ignore-case"?'),
            ("zzzzzz = 1", ':1: there is no option "zzzzzz"; --help names them'),
            ("help = true", "there is no option"),
            ("config = 'x'", "there is no option"),
            ("password = 'x'", "there is no option"),
            ("[web]\nstrict = true", ":1: options stand by themselves, without [web]"),
            ("web.strict = true", "there is no option"),
            ("strict = true\nrules = 'web'\nstrict = false", '"strict" is there twice'),
            ("strict = maybe", ':1: "strict" is true or false'),
            ("rules = 'other'", "quillmark.toml: "),
            ("\nexclude = 'a\n", ":2: the quotes do not end"),
            ('exclude = "\\d"', ":1: write what holds a \"\\\" in single quotes"),
            ("exclude = [\n'a'", ':1: the "[" is not closed'),
            ("\x00\x01\x02garbage", "there is no option"),
        ]
        for text, message in rows:
            with self.subTest(text):
                result = self.run_with(text)
                self.assertEqual((result.returncode, result.stdout), (2, b""))
                self.assertIn(message, result.stderr.decode())

    def test_a_file_that_came_with_the_site_writes_nothing_and_names_no_host(self):
        for line in ("output = 'csv:x'", "report = 'x'", "json = 'x'", "write-baseline = 'x'",
                     "folder = 'x'", "trace = 'x'", "host = 'x'", "start = '/x'", "port = 1",
                     "user = 'x'", "password-file = 'x'", "profile = 'x'", "key = 'x'",
                     "encryption = 'none'", "trust = 'x'", "set = ['ENCRYPTION=none']",
                     "set = ['TRUSTED=x']", "set = ['MAX_LEVELS=1', 'START_PATH=\\x']"):
            with self.subTest(line):
                result = self.run_with(line)
                self.assertEqual(result.returncode, 2)
                self.assertRegex(result.stderr.decode(), "site/quillmark.toml:1: .* may have come ")

    def test_a_named_file_may_and_its_paths_go_from_its_folder(self):
        (self.bench.folder / "ci").mkdir()
        named = self.bench.folder / "ci" / "my.toml"
        named.write_text("rules = 'web'\noutput = ['csv:o.csv', 'text']\nroot = '../site'\n")
        self.file.write_text("frob = 1")
        result = self.bench.run("--config", "ci/my.toml", "site/index.html")
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertTrue((self.bench.folder / "ci" / "o.csv").exists())
        self.assertEqual(self.bench.run("--config", "none.toml", "site").returncode, 2)

    def test_the_file_is_no_unused_file(self):
        self.assertNotIn(b"toml", self.run_with("rules = 'web'", "--list", "UnusedList").stdout)


class Streams(unittest.TestCase):
    def setUp(self):
        self.bench = Bench(self, COMMAND)
        self.bench.write("index.html", '<a href="gone.html">\n' * 500)

    def test_a_full_disk_is_told(self):
        for form in FORMATS:
            result = self.bench.check("--output", f"{form}:/dev/full")
            self.assertEqual(result.returncode, 3, form)
            self.assertIn(b"/dev/full could not be written: Disk full", result.stderr)
        result = self.bench.check("--output", "csv:/dev/full", "--output", "json:o.json",
                                  "--report", "/dev/full")
        self.assertEqual(result.stderr.count(b"/dev/full could not be written: "), 2)
        self.assertTrue(json.loads((self.bench.folder / "o.json").read_text())["findings"])
        with open("/dev/full", "wb") as full:
            for words in (["--output", "csv"], ["--list", "InvalidReferences"], ["--json", "-"], []):
                result = self.bench.check(*words, stdout=full)
                self.assertEqual(result.returncode, 3, words)
                self.assertIn(b"standard output could not be written: Disk full", result.stderr)
        for words in (["--report", "/dev/full"], ["--json", "/dev/full"]):
            self.assertEqual(self.bench.check(*words).returncode, 3, words)

    def test_a_reader_that_went_away_is_told(self):
        for form in FORMATS:
            script = '"$0" --rules web --output "$1" site; echo $? >status'
            self.bench.run("--version")
            with subprocess.Popen(["sh", "-c", script, COMMAND, form], cwd=self.bench.folder,
                                  env={"QUILLMARK_FOLDER": str(self.bench.folder / "own")},
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
                process.stdout.close()
                errors = process.stderr.read()
                process.wait(600)
            self.assertEqual((self.bench.folder / "status").read_text(), "3\n", form)
            self.assertIn(b"standard output could not be written: ", errors)

    def test_results_and_messages_do_not_mix(self):
        result = self.bench.check("--output", "csv", "--output", "json:o.json", "--no-progress")
        self.assertTrue(result.stdout.startswith(b"level,"))
        self.assertIn(b"Starting...", result.stderr)
        self.assertEqual(self.bench.check("--output", "csv").stderr, b"")
        summary = self.bench.check("--output", "json:o.json").stdout
        self.assertIn(b"500 errors", summary)
        self.assertEqual(self.bench.check("--report", "r.txt").stdout, b"")
        for words in (["--output", "csv", "--output", "json:-"], ["--output", "csv", "--json", "-"],
                      ["--output", "csv", "--list", "FileList"], ["--output", "frob"],
                      ["--output", "csv:"], ["--output", "csv:none/x"]):
            self.assertEqual(self.bench.check(*words).returncode, 2, words)


class Manual(unittest.TestCase):
    """The scripts of the CI jobs in the manual, run as their systems run them."""

    def test_its_jobs_work(self):
        text = (pathlib.Path(SCHEMA).parent / "manual" / "ci.md").read_text()
        github, gitlab = (yaml.safe_load(block) for block in re.findall(r"```yaml\n(.*?)```", text, re.S))
        checks = [step["run"] for step in github["jobs"]["site"]["steps"] if step.get("name") == "Check"]
        for script, results in ((checks[0], ["site.sarif", "summary.md", "shown.md"]),
                                ("\n".join(gitlab["site"]["script"]),
                                 gitlab["site"]["artifacts"]["paths"] +
                                 list(gitlab["site"]["artifacts"]["reports"].values()))):
            for page, status in (('<a href="gone.html">', 1), ("<p>sound", 0)):
                with self.subTest(script, page=page):
                    bench = Bench(self, COMMAND)
                    bench.write("index.html", page)
                    bench.site.rename(bench.folder / "public")
                    (bench.folder / "bin").mkdir()
                    (bench.folder / "bin" / "quillmark-check").symlink_to(COMMAND)
                    result = subprocess.run(
                        ["bash", "-e", "-o", "pipefail", "-c", script], cwd=bench.folder, timeout=600,
                        env={"PATH": f"{bench.folder}/bin:{os.environ['PATH']}",
                             "RUNNER_TEMP": str(bench.folder), "CI_PROJECT_DIR": str(bench.folder),
                             "GITHUB_STEP_SUMMARY": str(bench.folder / "shown.md")},
                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                    self.assertEqual(result.returncode, status, result.stderr)
                    self.assertIn(b"1 error\n" if status else b"0 errors\n", result.stdout)
                    for name in results:
                        self.assertTrue((bench.folder / name).exists(), name)
                    self.assertEqual(b"::error file=public/index.html,line=1" in result.stdout,
                                     status == 1 and "annotations" in script)


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
