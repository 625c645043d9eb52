#!/usr/bin/env python3
"""Looks around in the page of results as a person does: page_test.py CHECK EXAMPLES [TEST...]

CHECK is quillmark-check, EXAMPLES the folder of the example sites.
"""
import base64
import logging
import os
import random
import socket
import subprocess
import sys
import tempfile
import threading
import unittest

from browser import Browser, write_page
from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.ui import Select

CHECK, EXAMPLES = sys.argv[1:3]
MANY = 7000


def site(folder, files):
    for name, content in files.items():
        path = os.path.join(os.fsencode(folder), os.fsencode(name))
        subprocess.run([b"mkdir", b"-p", os.path.dirname(path)], check=True)
        with open(path, "wb") as file:
            file.write(content.encode() if isinstance(content, str) else content)
    return os.path.join(folder, "index.html")


def listener():
    """A socket for a server, at a port that profiles can hold."""
    while True:
        made = socket.socket()
        try:
            made.bind(("127.0.0.1", random.randrange(20000, 32768)))
            return made
        except OSError:
            made.close()


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix="quillmark-page-")
        cls.browser = Browser(cls.folder)
        cls.today = cls.write(os.path.join(EXAMPLES, "today/index.html"))

    @classmethod
    def tearDownClass(cls):
        cls.browser.quit()
        subprocess.run(["rm", "-rf", cls.folder], check=True)  # Too deep for Python.

    @classmethod
    def write(cls, start, *arguments):
        arguments = arguments or ("--rules", "web", "--set", "CHECK_DUPES=1")
        return write_page(CHECK, tempfile.mkdtemp(dir=cls.folder), *arguments, start)

    def write_site(self, files):
        return self.write(site(tempfile.mkdtemp(dir=self.folder), files))

    def show(self, page, **how):
        self.browser.show(page, **how)

    def tearDown(self):
        self.assertEqual(self.browser.messages(), [])
        self.assertIsNone(self.browser.run("return window.intruded ?? null"))
        self.assertEqual(self.browser.run("return performance.getEntriesByType('resource')"), [])

    def count(self):
        return self.browser.one("#count").text

    def choose(self, select, choice):
        Select(self.browser.one("#" + select)).select_by_visible_text(choice)

    def groups(self):
        return self.browser.texts("#rows h3")

    def keep_picture(self, name):
        """For the README, in the folder that QUILLMARK_PICTURES names."""
        if folder := os.environ.get("QUILLMARK_PICTURES"):
            with open(os.path.join(folder, name + ".png"), "wb") as file:
                shot = self.browser.command("Page.captureScreenshot")
                file.write(base64.b64decode(shot["data"]))

    def test_lists_are_chosen_grouped_and_sorted(self):
        self.show(self.today)
        self.keep_picture("page")
        self.assertEqual(
            self.browser.texts("#views label"),
            ["15 errors", "3 notes", "4 ignored references", "4 unused files", "2 duplicate files"])
        self.assertEqual(self.groups()[0:3], ["index.html 6", "site.webmanifest 1",
                                              "menu/index.html 1"])
        first = self.browser.texts("#rows tbody tr:first-child td")[0:3]
        self.assertEqual(first[0], "8:26")
        self.assertEqual(
            first[1], 'images/Logo.svg<link rel="icon" href="images/Logo.svg" type="image/svg+xml">')
        self.assertEqual(first[2],
                         "the name has other capital lettersdid you mean images/logo.svg?")
        self.assertEqual(self.browser.texts("mark")[0], "images/Logo.svg")
        self.choose("group", "Kind")
        self.choose("sort", "Most first")
        self.assertEqual(self.groups()[0], "there is no such file 6")
        self.choose("group", "Target")
        self.choose("sort", "By name")
        self.assertEqual(self.groups()[0:2], ["about 1", "about.html#History 1"])
        self.browser.one("#view-unused").find_element("xpath", "..").click()
        self.assertEqual(self.groups(), ["/data/ 1", "/downloads/ 1", "/images/ 1", "/menu/ 1"])
        self.browser.one("#view-duplicates").find_element("xpath", "..").click()
        self.assertEqual(self.groups(), ["2 equal files of 74 bytes"])

    def test_search_follows_each_key(self):
        self.show(self.today)
        search = self.browser.one("#search")
        for typed, said in [("ABOUT", "7 of 15 errors"), (" .png", "1 of 15 errors"),
                            ("zzz", "0 of 15 errors")]:
            search.send_keys(typed)
            self.assertEqual(self.count(), said)
        self.assertIn("Nothing holds these words", self.browser.one("#rows").text)
        search.send_keys(Keys.ESCAPE)
        self.assertEqual(self.count(), "15 errors")

    def test_map_leads_into_folders_and_back(self):
        self.show(self.today)
        self.browser.rectangle("menu/").click()
        self.assertEqual(self.count(), "1 of 15 errors, in menu/")
        self.assertEqual(self.browser.texts("#way li"), ["today", "menu"])
        self.browser.rectangle("specials-2024.html").click()
        self.assertEqual(self.count(), "1 of 4 unused files, in menu/specials-2024.html")
        self.browser.one("#way li").find_element("tag name", "button").click()
        self.assertEqual(self.count(), "4 unused files")
        self.browser.one("#contents summary").click()
        self.assertIn("menu/", self.browser.texts("#contents td"))

    def test_keys_reach_everything(self):
        self.show(self.today)
        keys = self.browser.driver.switch_to
        reached = []
        for _ in range(9):
            keys.active_element.send_keys(Keys.TAB)
            focused = keys.active_element
            reached.append(focused.get_attribute("id") or focused.text.split("\n")[0])
        self.assertEqual(reached, ["Skip to the findings", "theme", "view-errors", "today",
                                   "index.html", "This folder as a table", "search", "group", "sort"])
        self.browser.run("document.querySelector('#rectangles > [tabindex=\"0\"]').focus()")
        keys.active_element.send_keys(Keys.ARROW_RIGHT)
        folder = keys.active_element.get_attribute("aria-label")
        keys.active_element.send_keys(Keys.ENTER)
        self.assertTrue(self.count().endswith(", in " + folder.split(":")[0]), folder)
        keys.active_element.send_keys(Keys.BACKSPACE)
        self.assertEqual(keys.active_element.get_attribute("aria-label"), folder)
        self.assertEqual(self.count(), "15 errors")

    def test_colours_follow_the_system_and_the_button(self):
        def paper():
            return self.browser.run("return getComputedStyle(document.body).backgroundColor")
        self.show(self.today)
        light = paper()
        self.show(self.today, dark=True)
        self.assertNotEqual(paper(), light)
        self.browser.one("#theme").click()
        self.assertEqual(paper(), light)

    def test_screen_readers_are_told(self):
        self.show(self.today)
        nodes = [(node["role"]["value"], node.get("name", {}).get("value", ""))
                 for node in self.browser.command("Accessibility.getFullAXTree")["nodes"]
                 if not node["ignored"]]
        roles = {role for role, _ in nodes}
        for role in ("banner", "main", "navigation", "search", "contentinfo", "heading", "table",
                     "status"):
            self.assertIn(role, roles)
        for role, name in nodes:
            if role in ("button", "radio", "combobox", "searchbox", "table", "region"):
                self.assertNotEqual(name, "", role)
        self.assertIn(("columnheader", "What is wrong"), nodes)

    def test_hostile_names_are_shown_and_nothing_runs(self):
        intrusion = "<img src=x onerror=intruded=1>"
        end = "</script><script>intruded=1</script>"
        page = self.write_site({
            "index.html": f"<title>x</title><a href='{intrusion}'>a</a> <a href=\"{end}\">b</a>"
                          "<a href='\u202egnp.exe'>c</a> <a href='in\u200bvisible'>c</a> <a href='a\x07b\"&quot;&#39;'>d</a>"
                          "<!--<script>--><a href='<!--<script>'>e</a>"
                          f"<a href='{'f' * 5000}'>f</a><a href='g{chr(7) * 300}'>g</a>",
            intrusion.replace("/", "") + ".html": "x",
            b"caf\xe9.html": "x",
            "\u202etxt.html": "x",
            "__proto__/constructor": "x",
            "d/" * 1500 + "deep.html": "x",
        })
        self.show(page)
        self.assertEqual(self.browser.texts("#rows .reference"), [
            intrusion, end, "\\xE2\\x80\\xAEgnp.exe", "inU+200Bvisible", "a\\x07b\"\"'", "<!--<script>",
            "f" * 1000 + "…", "g" + "\\x07" * 249 + "…"])
        self.browser.one("#view-unused").find_element("xpath", "..").click()
        listed = self.browser.texts("#rows td:first-child")
        self.assertEqual(sorted(listed), sorted([
            intrusion + ".html", "caf\\xE9.html", "\\xE2\\x80\\xAEtxt.html", "__proto__/constructor",
            "d/" * 1500 + "deep.html"]))

    def test_policy_stops_what_got_in(self):
        self.show(self.today)
        self.browser.run("const script = document.createElement('script');"
                         "script.textContent = 'intruded = 1'; document.body.append(script)")
        self.assertRegex(self.browser.messages()[0], "Content Security Policy")

    def test_lines_are_cut_around_the_place(self):
        long = "<p>" + "x" * 400 + "<a href='gone.html'>" + "y" * 400
        page = self.write_site({
            "index.html": "<a href='old.html'>\r\n<a href='wide.html'><a href='long.html'>",
            "old.html": "<meta charset=latin1>\r\t <b>\xe9</b> <a href='gone.html'>".encode("latin1"),
            "wide.html": "\ufeff<p>é\n<p>é <a href='gone.html'>".encode("utf-16"),
            "long.html": long,
        })
        self.show(page)
        self.assertEqual(self.browser.texts("#rows .source"), [
            "<b>é</b> <a href='gone.html'>", "<p>é <a href='gone.html'>",
            "…" + "x" * 51 + "<a href='gone.html'>" + "y" * 149 + "…"])

    def test_many_findings_come_as_they_are_wanted(self):
        pages = {"index.html": "".join(f"<a href='{i}.html'>" for i in range(100))}
        for page in range(100):
            pages[f"{page}.html"] = "\n".join(f"<a href='gone-{page}-{i}.html'>"
                                              for i in range(MANY // 100))
        page = self.write_site(pages)
        self.show(page)
        self.assertEqual(self.count(), f"{MANY:,} errors")
        self.assertLess(len(self.browser.all("#rows tr")), 3000)
        self.browser.one("#search").send_keys(f"gone-99-{MANY // 100 - 1}")
        self.assertEqual(self.browser.texts("#rows td:first-child"), [f"{MANY // 100}:10"])
        self.browser.one("#search").send_keys(Keys.ESCAPE)
        def all_are_there():
            self.browser.run("scrollTo(0, document.body.scrollHeight)")
            return not self.browser.one("#more").is_displayed()
        self.browser.wait(all_are_there)
        self.assertEqual(len(self.browser.texts("#rows td:first-child")), MANY)
        self.show(page)
        self.assertRegex(self.printed(), r"5,\d{3} more lines are not printed")

    def printed(self):
        pdf = self.browser.command("Page.printToPDF", printBackground=False)["data"]
        return subprocess.run(["pdftotext", "-layout", "-", "-"], input=base64.b64decode(pdf),
                              stdout=subprocess.PIPE, check=True).stdout.decode()

    def test_paper_has_the_findings_and_no_controls(self):
        self.show(self.today, dark=True)
        paper = self.printed()
        for text in ("errors", "index.html", "images/Logo.svg", "menu/index.html#rye-bread"):
            self.assertIn(text, paper)
        for text in ("Search", "Group by", "Light", "not printed"):
            self.assertNotIn(text, paper)

    def test_classic_results_have_no_lines(self):
        self.show(self.write(os.path.join(EXAMPLES, "site/index.html"), "--set", "IGNORECASE=0"))
        self.assertEqual(self.browser.texts("#views label")[4], "– duplicate files not looked for")
        self.assertEqual(self.browser.texts("#rows .reference")[0], "regatta/rules.html#safety")
        self.assertEqual(self.browser.all(".source"), [])
        self.assertNotIn("bytes", self.browser.one("main .columns").text)
        self.assertIn("1 of 12 pages were not read", self.browser.one("#outcome").text)

    def test_known_findings_stand_apart(self):
        start = site(tempfile.mkdtemp(dir=self.folder), {"index.html": "<a href='old.html'>"})
        known = start + ".known"
        self.write(start, "--rules", "web", "--write-baseline", known)
        site(os.path.dirname(start), {"index.html": "<a href='new.html'><a href='old.html'>"})
        self.show(self.write(start, "--rules", "web", "--baseline", known,
                             "--path-prefix", "web/site"))
        self.assertEqual(self.browser.texts("#views label")[0:3],
                         ["1 error", "0 notes", "1 known finding"])
        self.assertEqual(self.groups(), ["web/site/index.html 1"])
        self.assertTrue(self.browser.rectangle("index.html").is_displayed())

    def test_clean_sites_are_praised(self):
        self.show(self.write_site({"index.html": "<a href='index.html'>"}), width=400)
        self.assertIn("every reference leads where it should", self.browser.one("#rows").text)

    def test_hosts_are_not_looked_up_on_this_computer(self):
        folder = tempfile.mkdtemp(dir=self.folder)
        site(folder, {folder[1:] + "/index.html": "<a href='gone.html'>"})
        site(folder, {"index.html": "not the host's"})
        authorizer = DummyAuthorizer()
        authorizer.add_anonymous(folder)
        handler = type("Handler", (FTPHandler,), {"authorizer": authorizer})
        with FTPServer(listener(), handler) as server:
            thread = threading.Thread(target=server.serve_forever, kwargs={"timeout": 0.1})
            thread.start()
            try:
                page = self.write(f"{folder}/index.html", "--rules", "web", "--host", "127.0.0.1",
                                  "--port", str(server.address[1]), "--start")
            finally:
                server.close_all()
                thread.join()
        self.show(page)
        self.assertEqual(self.browser.texts("#rows .reference"), ["gone.html"])
        self.assertEqual(self.browser.all(".source"), [])

    def test_failed_checks_do_not_look_sound(self):
        self.show(self.write("/index.html", "--rules", "web", "--host", "127.0.0.1",
                             "--port", "1", "--start"))
        self.assertIn("Unable to connect", self.browser.one("#outcome").text)
        self.assertEqual(self.browser.all(".praise"), [])


if __name__ == "__main__":
    logging.disable()
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
