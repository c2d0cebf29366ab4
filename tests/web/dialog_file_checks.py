#!/usr/bin/python3
"""Checks of the dialogs' files in Chromium, opened without a server: each against the workbench's
form, and in pages that show them. Takes the simhost program; without it the quick build's."""
import base64
import json
import re
import subprocess
import tempfile
from pathlib import Path

from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

from form_checks import CLIPPED
from form_page import SOURCE, Page, announced, told
from page_support import console_errors

RESOURCES = SOURCE / "text" / "resource"

# Where each component lies in its dialog: left, top, width, height by name, and the dialog's size.
PLACES = """
const form = document.querySelector('.form-window.dialog');
const corner = form.getBoundingClientRect();
const places = {'': [0, 0, corner.width, corner.height]};
for (const part of form.querySelectorAll('[data-vx]')) {
  const box = part.getBoundingClientRect();
  places[part.dataset.vx] = [box.left - corner.left, box.top - corner.top, box.width, box.height];
}
"""

# Where a page shows a dialog, the size that it is made in, and the size of what is in it.
FRAME_SIZE = """
const box = arguments[0].getBoundingClientRect();
return [box.width, box.height, arguments[0].viewBox.baseVal.width,
        arguments[0].viewBox.baseVal.height, box.right];
"""


def form_in(file):
    """The form that a file holds."""
    text = file.read_text(encoding="utf-8")
    return json.loads(re.search(r'<script id="form" type="application/json">(.*?)</script>', text,
                                re.S).group(1))


def places_in_workbench(page, form):
    """Where the workbench places a form."""
    return page.run("""
        const { DialogWindow } = await import('/page/dialog.js');
        const dialog = new DialogWindow(window.vx.forms, given[0]);
        for (const image of dialog.element.querySelectorAll('img')) await image.decode();
        """ + PLACES + "dialog.remove(); return places;", form)


def opened(page, file):
    page.driver.get(file.as_uri())
    page.run("for (const image of document.images) await image.decode();"
                  "for (let i = 0; i < 2; ++i) await new Promise(requestAnimationFrame);")


def check_console(page):
    told = [entry["message"] for entry in page.driver.get_log("browser")]
    assert not told, told


def check_file(page, file, wanted):
    opened(page, file)
    form = form_in(file)
    places = page.driver.execute_script(PLACES + "return places;")
    assert places.keys() == wanted.keys(), places.keys() ^ wanted.keys()
    for name, place in wanted.items():
        assert max(abs(a - b) for a, b in zip(place, places[name])) < 0.6, \
            "%s lies at %s, in the workbench at %s" % (name or "the whole", places[name], place)
    assert page.driver.title == form["title"]
    for factor in (1, 1.5):
        page.zoom(factor)
        problems = page.driver.execute_script(CLIPPED)
        page.zoom(1)
        assert not problems, "at %d %%: %s" % (100 * factor, problems)
    sizes = page.driver.execute_script(
        "return [...document.images].map(each => [each.width, each.naturalWidth])")
    assert all(shown == own > 0 for shown, own in sizes), sizes
    assert len(sizes) == sum("picture" in each for each in form["components"])
    check_console(page)


def check_every_file(page, folder, files):
    wanted = {file: places_in_workbench(page, form_in(file)) for file in files}
    problems = console_errors(page.driver)
    assert not problems, problems
    for file in files:
        try:
            check_file(page, file, wanted[file])
        except Exception as error:
            raise AssertionError("%s: %s" % (file.name, error)) from error


def check_nothing_is_loaded(page, folder, files):
    """The browser would refuse it and tell the console, in which nothing was above."""
    picture = (RESOURCES / "AboutVx.png").as_uri()
    for file in files:
        opened(page, file)
        refused = page.run("""
            return new Promise(resolve => {
              addEventListener('securitypolicyviolation', event => resolve(event.blockedURI));
              const image = new Image();
              image.onload = () => resolve('it came');
              image.src = given[0];
            });""", picture)
        assert refused in ("file", picture), refused
        told = page.driver.get_log("browser")
        assert len(told) == 1 and "Content Security Policy" in told[0]["message"], told


def check_nothing_comes_of_what_is_done(page, folder, files):
    for file in files:
        opened(page, file)
        for part in page.driver.find_elements(By.CSS_SELECTOR, "button, .vx-mark, th"):
            if part.is_displayed():
                part.click()
        for part in page.driver.find_elements(By.CSS_SELECTOR, "textarea, input:not([type])"):
            if part.is_displayed() and part.is_enabled():
                part.send_keys("`", Keys.ESCAPE)
        assert page.driver.find_elements(By.CSS_SELECTOR, ".form-window")
        check_console(page)


def shown_dialogs(page, file):
    """The pictures of the dialogs that a page shows, when all have told their sizes."""
    page.driver.get(file.as_uri())
    page.until("document.querySelector('svg') && ![...document.querySelectorAll('svg')]"
               ".some(each => !each.hasAttribute('viewBox'))")
    return page.driver.find_elements(By.CSS_SELECTOR, "svg")


def check_the_index_shows_all(page, folder, files):
    shown = shown_dialogs(page, folder / "index.html")
    assert len(shown) == len(files), len(shown)
    for one, file in zip(shown, files):
        width, height, own_width, own_height, _ = page.driver.execute_script(FRAME_SIZE, one)
        assert (width, height) == (own_width, own_height), "%s is scaled" % file.name
        page.driver.switch_to.frame(one.find_element(By.TAG_NAME, "iframe"))
        title, inside = page.driver.execute_script(
            "const all = document.documentElement, { body } = document;"
            "return [document.title, [body.offsetWidth, body.offsetHeight, innerWidth, innerHeight,"
            " all.scrollWidth, all.scrollHeight]]")
        page.driver.switch_to.default_content()
        assert title == form_in(file)["title"], title
        assert inside == [own_width, own_height] * 3, "%s: %s" % (file.name, inside)
    check_console(page)


PAGE = """<!DOCTYPE html><meta charset="utf-8">
<script src="dialogs/frames.js" defer></script>
<body style="margin: 0; width: 500px"><button id="before">1</button>
<p style="margin: 0"><a class="dialog" href="dialogs/%s">dialog</a></p>
<button id="after">2</button>
"""


def check_a_narrow_page(page, folder, files):
    """It makes them smaller, but for those that fit."""
    own = folder.parent / "page.html"
    fit = 0
    for file in files:
        own.write_text(PAGE % file.name, encoding="utf-8")
        one = shown_dialogs(page, own)[0]
        width, height, own_width, own_height, right = page.driver.execute_script(FRAME_SIZE, one)
        assert abs(width - min(500, own_width)) < 0.6 and right < 500.6, (file.name, width, right)
        assert abs(height - width * own_height / own_width) < 1, (file.name, width, height)
        fit += width == own_width
    assert 0 < fit < len(files), fit


def check_tab_goes_on_after_the_dialog(page, folder, files):
    own = folder.parent / "page.html"
    own.write_text(PAGE % "VxExport.html", encoding="utf-8")
    shown_dialogs(page, own)
    page.find("#before").click()
    for _ in range(60):
        page.keys(Keys.TAB)
        if page.driver.execute_script("return document.activeElement.id") == "after":
            return
    raise AssertionError("Tab stays in the dialog")


def check_paper(page, folder, files):
    """Printed, every dialog is there with its title and buttons."""
    shown_dialogs(page, folder / "index.html")
    pdf = page.driver.execute_cdp_cmd("Page.printToPDF", {})["data"]
    text = subprocess.run(["pdftotext", "-raw", "-", "-"], input=base64.b64decode(pdf), check=True,
                          capture_output=True).stdout.decode("utf-8")
    found = re.sub(r"\s", "", text)
    for file in files:
        form = form_in(file)
        for label in [form["title"]] + [each["label"] for each in form["components"]
                                        if each["kind"] == "PushButton"]:
            assert re.sub(r"\s", "", label) in found, "%s: %s is not printed" % (file.name, label)


CHECKS = [
    check_every_file,
    check_nothing_is_loaded,
    check_nothing_comes_of_what_is_done,
    check_the_index_shows_all,
    check_a_narrow_page,
    check_tab_goes_on_after_the_dialog,
    check_paper,
]


def main():
    simhost, chosen = told(CHECKS)
    with tempfile.TemporaryDirectory() as temporary, Page(simhost) as page:
        folder = Path(temporary) / "dialogs"
        subprocess.run([simhost, "dialogs", "--out", str(folder)], check=True,
                       stdout=subprocess.DEVNULL)
        files = sorted(folder / (each.stem + ".html") for each in RESOURCES.glob("*.res"))
        page.driver.set_window_size(1700, 1400)
        for check in announced(chosen):
            check(page, folder, files)


if __name__ == "__main__":
    main()
