"""A workbench with its page in a browser for the checks that run alone, one after the other."""
import contextlib
import re
import sys
from pathlib import Path

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By

import page_support
from page_support import Bench, console_errors, open_page

SOURCE = Path(__file__).resolve().parents[2]


def told(checks):
    """The program that the command line names, the quick build's without it, and those of the
    checks that fit its second word."""
    simhost = sys.argv[1] if len(sys.argv) > 1 else str(SOURCE / "build/quick/simhost")
    pattern = sys.argv[2] if len(sys.argv) > 2 else ""
    chosen = [check for check in checks if re.search(pattern, check.__name__)]
    assert chosen, "no check fits " + pattern
    return simhost, chosen


def announced(checks):
    """Tells each check before it runs."""
    for check in checks:
        print(check.__name__, flush=True)
        yield check


class Page:
    """A workbench and a browser that has its page open."""

    def __init__(self, simhost, *arguments, **how):
        self.bench = Bench(simhost, *arguments)
        try:
            self.driver = open_page(self.bench, **how)
        except BaseException:
            self.bench.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, kind, error, trace):
        """Ends both. What a check found comes before what the browser complained of."""
        try:
            problems = console_errors(self.driver)
            self.driver.quit()
        finally:
            status, _ = self.bench.close()
        assert kind or not problems, problems
        assert kind or status == 0, "the workbench ended with %d" % status

    def run(self, script, *arguments):
        """What a script resolves to, which is the body of an asynchronous function."""
        return page_support.run(self.driver, script, *arguments)

    def until(self, condition):
        page_support.wait_for(self.driver, "return " + condition, condition)

    def settle(self):
        """Until nothing is on its way and the page shows what the session waits for."""
        page_support.settle(self.driver)

    def step(self, *lines):
        for line in lines:
            page_support.step(self.driver, line)
            self.settle()

    def get(self, address):
        return page_support.get_json(self.driver, address)

    def waiting(self):
        """What the session waits for: box, dialog and so on; None: the main window."""
        wait = page_support.state(self.driver)["wait"]
        return wait["kind"] if wait else None

    def recording(self):
        return page_support.get(self.driver, "/recording").splitlines()

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def part(self, name):
        return self.find('.form-window [data-vx="%s"]' % name)

    def press(self, name):
        self.part(name).click()
        self.settle()

    def keys(self, *keys):
        ActionChains(self.driver).send_keys(*keys).perform()

    def mouse(self, x, y):
        """Actions of the mouse that begin at a place of the page."""
        return self.at(ActionChains(self.driver, duration=20), x, y)

    @staticmethod
    def at(actions, x, y):
        """The same, gone on to another place."""
        actions.w3c_actions.pointer_action.move_to_location(round(x), round(y))
        return actions

    def zoom(self, factor):
        """As the browser's own zoom: fewer pixels of the page in the same window."""
        width, height = self.driver.execute_script("return [window.innerWidth, window.innerHeight]")
        if factor == 1:
            self.driver.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})
        else:
            self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
                "width": int(width / factor), "height": int(height / factor),
                "deviceScaleFactor": factor, "mobile": False})
        # The page is told of its new size before it is painted again.
        self.run("for (let i = 0; i < 2; ++i) await new Promise(requestAnimationFrame);")

    def close_all(self):
        """Leaves whatever is open."""
        for _ in range(6):
            kind = self.waiting()
            if kind is None:
                return
            if kind == "dialog":
                self.step("~ Close `%s`" % self.get("/dialog")["name"])
            else:
                self.step("@ ok" if kind == "box" else "@ quit")
        raise AssertionError("something stays open")


def run_checks(checks, alone=(), kind=Page):
    """Runs those that the command line names: each on one page with the gearbox open, then those
    that start a workbench of their own, and take the simhost program."""
    simhost, chosen = told([*checks, *alone])
    together = [check for check in chosen if check in checks]
    with kind(simhost) if together else contextlib.nullcontext() as page:
        for check in announced(together):
            page.step("@ open gearbox.asm")
            check(page)
    for check in announced(check for check in chosen if check in alone):
        check(simhost)
