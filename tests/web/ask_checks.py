"""Checks of what the host asks in windows of its own: the question of the main window, its
dialogs for a new component, a folder, and the notice for a new user."""
from pathlib import Path

from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

from form_page import Page


# --- The question of the main window ----------------------------------------------------------

def ask_to_clear_all(page):
    page.step("~ Command `BatchColor`",
              "~ Select `main_dlg_cur` `ProCmdViewGallery.view`",
              "~ Select `main_dlg_cur` "
              "`ProCmdViewGallery_layoutph.palette_holder.clearAppearance`",
              "~ Activate `main_dlg_cur` `clearAllAppearance`")
    assert page.waiting() == "question"


def colours(page):
    return {row["colour"] for row in page.get("/tree")["rows"] if row.get("colour")}


def check_the_question_is_answered(page, answer, act):
    ask_to_clear_all(page)
    before = len(page.recording())
    act()
    assert page.waiting() is None
    assert page.recording()[before:] == ["~ Activate `UI Message Dialog` `%s`" % answer], \
        page.recording()[before:]
    assert bool(colours(page)) == (answer == "no"), colours(page)


def check_the_question_is_answered_by_its_buttons(page):
    for answer in ("no", "yes"):
        button = ".ask.question [data-button=%s]" % answer
        check_the_question_is_answered(page, answer, lambda: page.find(button).click())


def check_the_question_is_answered_by_keys(page):
    check_the_question_is_answered(page, "no", lambda: page.keys(Keys.ESCAPE))
    check_the_question_is_answered(page, "no", lambda: page.keys(Keys.TAB, Keys.ENTER))
    check_the_question_is_answered(page, "yes", lambda: page.keys(Keys.ENTER))


# --- Another component ------------------------------------------------------------------------

def replace(page, path):
    """Asks for another part in the place of one; how long the recording is then."""
    page.step('@ select "%s"' % path, "~`rmb_popup` `PopupMenu`",
              "~ Command `ProCmdReplComp@PopupMenuGraphicWinStack`")
    assert page.get("/dialog")["name"] == "gen_repl_dlg"
    assert not page.part("PB_NewComp").is_enabled(), "files are for what is unrelated"
    return len(page.recording())


def below_plate(page):
    return [row["path"] for row in page.get("/tree")["rows"]
            if row["path"].startswith("base_plate/")]


METHOD = '[data-vx="ByCompPH.rpl_method_radio"] input[value="%s"]'


def check_a_component_is_replaced_with_the_mouse(page):
    before = replace(page, "base_plate/底板")
    page.find(METHOD % "Unrelated Component").click()
    page.settle()
    page.press("PB_NewComp")
    assert page.get("/dialog")["name"] == "file_open"
    item = next(each for each in page.driver.find_elements(
        By.CSS_SELECTOR, '[data-vx="Ph_list.Filelist"] option') if each.text == "pin_8x30.prt")
    item.click()
    page.press("Open")
    page.press("DoneBtn")
    assert page.waiting() is None
    assert page.recording()[before:] == [
        "~ Select `gen_repl_dlg` `ByCompPH.rpl_method_radio` 1 `Unrelated Component`",
        "~ Activate `gen_repl_dlg` `PB_NewComp`",
        "~ Select `file_open` `Ph_list.Filelist` 1 `pin_8x30.prt`",
        "~ Activate `file_open` `Open`",
        "~ Activate `gen_repl_dlg` `DoneBtn`"], page.recording()[before:]
    there = below_plate(page)
    assert "base_plate/底板" not in there and "base_plate/pin_8x30" in there, there


def check_replacing_is_left_with_keys(page):
    there = below_plate(page)
    before = replace(page, there[0])
    page.find(METHOD % "Family Table").send_keys(Keys.ARROW_UP)
    page.settle()
    page.keys(Keys.TAB, Keys.SPACE)
    page.settle()
    assert page.get("/dialog")["name"] == "file_open"
    page.keys(Keys.ESCAPE)
    assert page.get("/dialog")["name"] == "gen_repl_dlg", "Escape leaves the files only"
    assert not page.part("DoneBtn").is_enabled(), "no file was chosen"
    page.keys(Keys.ESCAPE)
    assert page.waiting() is None
    assert page.recording()[before:] == [
        "~ Select `gen_repl_dlg` `ByCompPH.rpl_method_radio` 1 `Unrelated Component`",
        "~ Activate `gen_repl_dlg` `PB_NewComp`", "~ Close `file_open`",
        "~ Close `gen_repl_dlg`"], page.recording()[before:]
    assert below_plate(page) == there


# --- A folder ---------------------------------------------------------------------------------

def ask_for_folder(page, folder):
    (Path(page.get("/files")["drive"]) / "Work" / folder).mkdir()
    page.step("~ Command `VxBackup`")
    assert page.waiting() == "prompt"


def backed_up(page, folder):
    drive = Path(page.get("/files")["drive"])
    return any((drive / "Work" / folder).glob("gearbox.asm.*"))


def check_a_folder_is_chosen_with_the_mouse(page):
    ask_for_folder(page, "by mouse")
    before = len(page.recording())
    folder = next(each for each in page.driver.find_elements(By.CSS_SELECTOR, ".ask.file option")
                  if each.text == "by mouse")
    folder.click()
    assert page.find(".ask.file input").get_attribute("value") == "by mouse"
    page.find(".ask.file [data-button=ok]").click()
    assert page.waiting() == "box", "it tells that all is done"
    page.find(".ask.box [data-button=ok]").click()
    assert page.waiting() is None
    assert page.recording()[before:] == ['@ answer "by mouse"', "@ ok"], page.recording()[before:]
    assert backed_up(page, "by mouse")


def check_a_folder_is_typed(page):
    ask_for_folder(page, "by keys")
    page.keys("no such folder", Keys.ENTER)
    assert page.waiting() == "prompt", "there is no such folder"
    assert page.find(".ask.file input").get_attribute("value") == "no such folder", "to be mended"
    before = len(page.recording())
    page.keys("by keys", Keys.ENTER)  # over what was typed, which is selected
    assert page.waiting() == "box"
    page.keys(Keys.ENTER)
    assert page.waiting() is None
    assert page.recording()[before:] == ['@ answer "by keys"', "@ ok"], page.recording()[before:]
    assert backed_up(page, "by keys")


# --- The notice for a new user ----------------------------------------------------------------

def check_the_first_notice_is_ended(simhost):
    with Page(simhost, "--new-user") as page:
        for act in (lambda: page.press("OK"), lambda: page.keys(Keys.ENTER)):
            assert page.get("/dialog")["name"] == "VxInit.res"
            before = len(page.recording())
            page.keys(Keys.ESCAPE)
            assert page.waiting() == "dialog", "only its button ends it"
            assert page.recording()[before:] == []
            act()
            assert page.waiting() is None
            session = page.run("return window.vx.connection.session;")
            assert page.run("return window.vx.connection.restart(false);")
            page.until("vx.connection.session !== %d" % session)


CHECKS = [
    check_the_question_is_answered_by_its_buttons,
    check_the_question_is_answered_by_keys,
    check_a_component_is_replaced_with_the_mouse,
    check_replacing_is_left_with_keys,
    check_a_folder_is_chosen_with_the_mouse,
    check_a_folder_is_typed,
]
ALONE = [check_the_first_notice_is_ended]
