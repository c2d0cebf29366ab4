"""The package as somebody unpacks it: into a folder with a Chinese name and blanks.

    package_test.py MODULE RUNNER PROGRAM

Every file in it is looked at. Then the program (tests/package) loads the module from there and
presses a command; it runs in the project's own folder, whose files must not fill a gap of the
package.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = "岚枢 工具 (新)"
SIMULATED = "vorlatix-5.1-simulated-host"

# As they lie in the repository, byte for byte.
COPIES = {
    "VXconfig/VxBom.ini", "VXconfig/VxConfig.ini", "VXconfig/VxDrawingsIni.ini",
    "VXconfig/VxOptiColor.ini", "VXconfig/VxParams.ini", "VXconfig/VxRename.ini",
    "VXconfig/VxUGColor.ini",
    "text/resource/AboutVx.png", "text/resource/AboutVx.res", "text/resource/Relations.res",
    "text/resource/SetUnit.res", "text/resource/TweViews.res", "text/resource/VxBom.res",
    "text/resource/VxConfig.res", "text/resource/VxDimModify.res", "text/resource/VxExIgs.res",
    "text/resource/VxExport.res", "text/resource/VxFrmReplace.res",
    "text/resource/VxInit.res", "text/resource/VxNewDrw.res", "text/resource/VxParams.res",
    "text/resource/VxQQ2.gif", "text/resource/VxQQGroup.png", "text/resource/VxQQGroup.res",
    "text/resource/VxRemoveCons.res", "text/resource/VxRename.res", "text/vxMenu.txt",
    "text/vxmsg_display.txt",
}
MADE = {"vorlatix5.1.dll", "protk.dat", "安装说明.txt"}
SIMULATED_ONLY = {"VXconfig/vxdop.dop", "tp/vx.drw", "vxudf/vxbox.gph"}
GUIDE = "使用指南"
# In the place of the real guide, which only a simulated host of this system can make.
PAGES = {"index.html": b"<!doctype html>\n", "pictures/VxBom.png": b"\x89PNG\r\n"}


class Wrong(Exception):
    pass


def need(holds, what):
    if not holds:
        raise Wrong(what)


def run(module, out, *options):
    return subprocess.run(["cmake", f"-DMODULE={module}", f"-DFOLDER={out}", *options, "-P",
                           ROOT / "packaging" / "package.cmake"],
                          capture_output=True, text=True, check=False)


def make(module, out, *options):
    done = run(module, out, *options)
    need(done.returncode == 0, done.stderr)
    return done.stderr


def files_in(folder):
    return {str(each.relative_to(folder)) for each in folder.rglob("*") if each.is_file()}


def check_files(folder, module, simulated, pages):
    expected = COPIES | MADE | (SIMULATED_ONLY if simulated else set())
    expected |= {f"{GUIDE}/{name}" for name in pages}
    there = files_in(folder)
    need(there == expected,
         f"{folder.name} lacks {sorted(expected - there)}, has too much {sorted(there - expected)}")
    for name in there & (COPIES | SIMULATED_ONLY):
        need((folder / name).read_bytes() == (ROOT / name).read_bytes(), f"{name} was changed")
    need((folder / "vorlatix5.1.dll").read_bytes() == pathlib.Path(module).read_bytes(),
         "the module was changed")
    for name, data in pages.items():
        need((folder / GUIDE / name).read_bytes() == data, f"{name} of the guide was changed")


def check_texts(folder, simulated, pages):
    """Both are read by people with old editors, and the one by the host."""
    guide = (folder / "安装说明.txt").read_bytes()
    need(guide.startswith(b"\xef\xbb\xbf"), "安装说明.txt has no mark")
    registry = (folder / "protk.dat").read_bytes()
    need(registry.isascii(), "protk.dat is not ASCII")
    for data in (guide, registry):
        need(data.count(b"\n") == data.count(b"\r\n") > 5, "line ends are not Windows'")
    lines = registry.decode().split("\r\n")
    need("unicode_encoding FALSE" in lines, "protk.dat leaves the encoding of narrow texts open")
    need("exec_file C:\\Vorlatix\\vorlatix5.1.dll" in lines, "protk.dat proposes another folder")
    text = guide.decode("utf-8-sig")
    told = "Creo Parametric 不能加载它" in text
    need(told == simulated, "the guide is wrong about what the module is for")
    need((f"{GUIDE}\\index.html" in text) == bool(pages),
         "the text tells of a guide that is not there, or not of one that is")
    for word in ("解锁", "vx.drw", "C:\\Vorlatix", "UTF-16"):
        need(word in text, f"the guide says nothing of {word}")


def check_for_the_cad_system(temporary):
    """A module that does not name the simulated host; what it holds does not matter here."""
    module = temporary / "other.dll"
    module.write_bytes(b"MZ host.dll\n")
    said = make(module, temporary / "dist")
    need("cannot load it" not in said, "a module for the CAD system is called a simulated one")
    need("without the user's guide" in said, "nobody is told that the guide is left out")
    folder = temporary / "dist" / "vorlatix-5.1"
    check_files(folder, module, simulated=False, pages={})
    check_texts(folder, simulated=False, pages={})


def make_guide(temporary):
    for name, data in PAGES.items():
        page = temporary / "guide" / name
        page.parent.mkdir(parents=True, exist_ok=True)
        page.write_bytes(data)
    return f"-DGUIDE={temporary / 'guide'}"


def check_that_no_guide_is_told(module, temporary):
    done = run(module, temporary / "dist", f"-DGUIDE={temporary / 'nowhere'}")
    need(done.returncode != 0 and "there is no guide in" in " ".join(done.stderr.split()),
         f"a folder without a guide is taken for one: {done.stderr}")


def unpacked(module, temporary):
    said = make(module, temporary / "dist", make_guide(temporary))
    need("the CAD system cannot load it" in said, f"nobody is told what it is for: {said}")
    archive = shutil.make_archive(temporary / SIMULATED, "zip", temporary / "dist", SIMULATED)
    with zipfile.ZipFile(archive) as opened:
        opened.extractall(temporary / FOLDER)
    folder = temporary / FOLDER / SIMULATED
    check_files(folder, module, simulated=True, pages=PAGES)
    check_texts(folder, simulated=True, pages=PAGES)
    return folder


def main():
    module, *command = sys.argv[1:]
    with tempfile.TemporaryDirectory() as name:
        temporary = pathlib.Path(name)
        try:
            check_for_the_cad_system(temporary)
            check_that_no_guide_is_told(module, temporary)
            folder = unpacked(module, temporary)
        except Wrong as wrong:
            sys.exit(f"package: {wrong}")
        seen = "Z:" + str(folder).replace("/", "\\")
        done = subprocess.run(command, env={**os.environ, "VX_PACKAGE": seen}, cwd=ROOT,
                              check=False)
        sys.exit(done.returncode)


if __name__ == "__main__":
    main()
