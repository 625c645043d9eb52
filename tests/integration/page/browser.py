"""Chromium without a window, and checks whose results it shows."""
import os
import subprocess

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

PATIENCE = 300
CHROMIUM = "/usr/bin/chromium"
DRIVER = "/usr/bin/chromedriver"


def write_page(check, folder, *arguments):
    """The page that quillmark-check writes with these arguments."""
    page = os.path.join(folder, "page.html")
    result = subprocess.run(
        [check, "--quiet", "--folder", os.path.join(folder, "settings"), *arguments,
         "--output", "html:" + page],
        stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
    if not os.path.exists(page):
        raise SystemExit(result.stderr.decode())
    return page


class Browser:
    def __init__(self, folder):
        options = webdriver.ChromeOptions()
        options.binary_location = CHROMIUM
        for argument in ("--headless=new", "--no-sandbox", "--disable-dev-shm-usage",
                         "--user-data-dir=" + os.path.join(folder, "chromium")):
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        self.driver = webdriver.Chrome(service=Service(DRIVER), options=options)
        self.driver.set_page_load_timeout(PATIENCE)
        self.driver.set_script_timeout(PATIENCE)

    def quit(self):
        self.driver.quit()

    def show(self, page, width=1280, dark=False):
        self.command("Emulation.setDeviceMetricsOverride", width=width, height=900,
                     deviceScaleFactor=1, mobile=False)
        scheme = "dark" if dark else "light"
        self.command("Emulation.setEmulatedMedia",
                     features=[{"name": "prefers-color-scheme", "value": scheme}])
        self.driver.get("file://" + page)

    def command(self, name, **arguments):
        return self.driver.execute_cdp_cmd(name, arguments)

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def messages(self):
        """What the console says: errors of scripts, and what the page's policy forbids."""
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def all(self, selector):
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def texts(self, selector):
        return self.run("return [...document.querySelectorAll(arguments[0])]"
                        ".map(each => each.textContent)", selector)

    def rectangle(self, name):
        return self.one(f'#rectangles > [aria-label^="{name}:"]')

    def wait(self, condition):
        WebDriverWait(self.driver, PATIENCE, 0.05).until(lambda _: condition())
