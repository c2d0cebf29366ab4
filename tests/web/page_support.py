"""A workbench and a browser before it, for the tests of the page.

Needs Chromium, its driver and selenium (Debian: chromium chromium-driver python3-selenium).
"""

import json
import os
import re
import subprocess
import tempfile
import time

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.support.ui import WebDriverWait

PATIENCE = int(os.environ.get("VX_PATIENCE", "60"))  # seconds; test machines are slow and busy


class Bench:
    """A workbench of its own process; its journey ends with close()."""

    def __init__(self, simhost, *arguments):
        environment = dict(os.environ, VX_LANGUAGE="C")
        self.process = subprocess.Popen(
            [simhost, "workbench", *arguments], stdout=subprocess.PIPE, text=True,
            env=environment)
        self.address = None
        for line in self.process.stdout:
            found = re.search(r"http://\S+", line)
            if found:
                self.address = found.group(0)
                break
        if not self.address:
            raise RuntimeError("the workbench did not start")

    def close(self):
        self.process.send_signal(2)
        with self.process.stdout:
            rest = self.process.stdout.read()
        status = self.process.wait(timeout=PATIENCE)
        return status, rest


def open_browser(language="zh-CN", scale=1, size="1400,900"):
    options = Options()
    # The browser's own sandbox does not run as root, as tests do on bare machines.
    for argument in ("--headless=new", "--no-sandbox", "--disable-dev-shm-usage",
                     "--use-angle=swiftshader", "--enable-unsafe-swiftshader",
                     f"--window-size={size}", f"--accept-lang={language}",
                     f"--force-device-scale-factor={scale}",
                     f"--user-data-dir={tempfile.mkdtemp(prefix='vx-browser-')}"):
        options.add_argument(argument)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    options.add_experimental_option("prefs", {"intl.accept_languages": language})
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    browser.set_script_timeout(PATIENCE * 3)
    return browser


def wait_for(browser, script, what, seconds=PATIENCE):
    """Waits until a script of the page gives something true, and gives that."""
    def look(driver):
        return driver.execute_script(script)
    return WebDriverWait(browser, seconds, poll_frequency=0.1).until(look, what)


def run(browser, script, *arguments):
    """What a script of the page resolves to: the body of an asynchronous function."""
    result = browser.execute_async_script(
        "const done = arguments[arguments.length - 1];"
        "(async (...given) => {" + script + "})(...arguments)"
        ".then(done, error => done({thrown: String(error)}));", *arguments)
    assert not (isinstance(result, dict) and "thrown" in result), result
    return result


def settle(browser):
    """Waits until nothing is on its way and the page shows what the session waits for."""
    wait_for(browser, "return Boolean(window.vx);", "the page runs")
    run(browser, """
        const { connection, forms } = window.vx;
        let last;
        do {
          last = forms.acts.last;
          await last;
          await connection.settled();
          await forms.shown();
        } while (connection.busy || last !== forms.acts.last);""")


def open_page(bench, **how):
    browser = open_browser(**how)
    try:
        browser.get(bench.address)
        settle(browser)
    except BaseException:
        browser.quit()
        raise
    return browser


def step(browser, line):
    """Sends one line of a trail as the page does."""
    settle(browser)
    assert run(browser, "return window.vx.connection.step(given[0]);", line), f"not taken: {line}"
    settle(browser)


def state(browser):
    settle(browser)
    return browser.execute_script("return window.vx.connection.state;")


def get(browser, address):
    """What an address answers to the page, as soon as the session is not at work."""
    while True:
        settle(browser)
        status, text = run(browser, "const answer = await fetch(given[0]);"
                           "return [answer.status, await answer.text()];", address)
        if status != 503:
            assert status == 200, f"{address}: {status} {text}"
            return text


def get_json(browser, address):
    return json.loads(get(browser, address))


def click(browser, selector):
    """Clicks what a selector finds, as soon as it is there."""
    wait_for(browser, f"return document.querySelector({json.dumps(selector)});", selector)
    element = browser.find_element("css selector", selector)
    element.click()
    time.sleep(0.05)
    settle(browser)


def console_errors(browser):
    """What the page told its console that is an error; the driver forgets what it has told.

    A browser tells every answer that is no 2xx. Icons that are not there are shown as an empty
    place; 409, 410 and 503 say that what was asked about has gone meanwhile.
    """
    usual = re.compile(r"/icons/|status of (409|410|503) ")
    return [entry["message"] for entry in browser.get_log("browser")
            if entry["level"] == "SEVERE" and not usual.search(entry["message"])]
