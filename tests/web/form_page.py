"""A workbench with its page in a browser, and what the checks of forms do with it."""
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By

from page_support import Bench, console_errors, open_page


class Page:
    """A workbench and a browser that has its page open."""

    def __init__(self, simhost, *arguments):
        self.bench = Bench(simhost, *arguments)
        try:
            self.driver = open_page(self.bench)
        except BaseException:
            self.bench.close()
            raise
        self.settle()

    def end(self):
        problems = console_errors(self.driver)
        self.driver.quit()
        self.bench.close()
        assert not problems, problems

    def wait_for(self, script, *arguments):
        """What a script resolves to, which is the body of an asynchronous function."""
        text = "const done = arguments[arguments.length - 1];" \
               "(async (...given) => {" + script + "})(...arguments).then(done," \
               " error => done({thrown: String(error)}));"
        result = self.driver.execute_async_script(text, *arguments)
        assert not (isinstance(result, dict) and "thrown" in result), result
        return result

    def settle(self):
        """Until nothing is on its way and the page shows what the session waits for."""
        self.wait_for("""
            const { connection, forms } = window.vx;
            for (let last = null; last !== forms.acts.last;) {
              last = forms.acts.last;
              await last;
            }
            await connection.settled();
            await forms.shown();""")

    def step(self, line):
        self.wait_for("""
            const { connection, forms } = window.vx;
            const before = connection.version;
            if (await connection.step(given[0])) await connection.beyond(before);
            await forms.shown();""", line)

    def get(self, address):
        self.settle()
        return self.wait_for("return window.vx.connection.get(given[0]);", address)

    def waiting(self):
        """What the session waits for: box, dialog and so on; None: the main window."""
        self.settle()
        wait = self.driver.execute_script("return window.vx.connection.state.wait")
        return wait["kind"] if wait else None

    def recording(self):
        return self.wait_for("return (await (await fetch('/recording')).text());").splitlines()

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def part(self, name):
        return self.find('.form-window [data-vx="%s"]' % name)

    def press(self, name):
        self.part(name).click()
        self.settle()

    def keys(self, *keys):
        ActionChains(self.driver).send_keys(*keys).perform()

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
        self.wait_for("for (let i = 0; i < 2; ++i) await new Promise(requestAnimationFrame);")

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
