#!/usr/bin/python3
"""Takes the picture of the page that shows results: picture.py CHECK START FILE"""
import base64
import sys
import tempfile

from browser import Browser, write_page

check, start, file = sys.argv[1:4]
with tempfile.TemporaryDirectory() as folder:
    page = write_page(check, folder, "--rules", "web", "--set", "CHECK_DUPES=1", start)
    browser = Browser(folder)
    browser.show(page, width=1280)
    with open(file, "wb") as picture:
        picture.write(base64.b64decode(browser.command("Page.captureScreenshot")["data"]))
    browser.quit()
