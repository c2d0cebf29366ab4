"""Makes the package as it is unpacked beside an installation of the host.

    package.py MODULE FOLDER

Writes FOLDER/vorlatix-5.1/ and FOLDER/vorlatix-5.1.zip: the module and everything that it looks for
beside itself, the host's registry file, and a short text on how to install it.
"""

import pathlib
import shutil
import sys
import zipfile

NAME = "vorlatix-5.1"
MODULE = "vorlatix5.1.dll"
ROOT = pathlib.Path(__file__).resolve().parent.parent

# Settings, the drawing template, the group file, texts and dialogs.
FOLDERS = ["VXconfig", "tp", "vxudf", "text"]
HERE = ["protk.dat", "安装说明.txt"]


def files_of(root):
    """(source, name in the package) of every file; also the folders that are missing."""
    files, missing = [], []
    for folder in FOLDERS:
        found = sorted(each for each in (root / folder).rglob("*") if each.is_file())
        files += [(each, str(each.relative_to(root))) for each in found]
        if not found:
            missing.append(folder)
    files += [(root / "packaging" / name, name) for name in HERE]
    return files, missing


def with_windows_line_ends(text):
    """People open these with Notepad; a mark tells it that they are UTF-8."""
    plain = text.decode("utf-8").replace("\r\n", "\n").replace("\n", "\r\n")
    mark = b"" if plain.isascii() else b"\xef\xbb\xbf"
    return mark + plain.encode("utf-8")


def make(module, out):
    """Makes folder and archive; returns the folders that there was nothing for."""
    if not module.is_file():
        sys.exit(f"package: there is no module {module}: build it with ./vx windows")
    folder = out / NAME
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    shutil.copyfile(module, folder / MODULE)
    files, missing = files_of(ROOT)
    for source, name in files:
        target = folder / name
        target.parent.mkdir(parents=True, exist_ok=True)
        data = source.read_bytes()
        target.write_bytes(with_windows_line_ends(data) if name in HERE else data)
    with zipfile.ZipFile(out / f"{NAME}.zip", "w", zipfile.ZIP_DEFLATED) as archive:
        for each in sorted(each for each in folder.rglob("*") if each.is_file()):
            archive.write(each, f"{NAME}/{each.relative_to(folder)}")
    return missing


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    out = pathlib.Path(sys.argv[2])
    for folder in make(pathlib.Path(sys.argv[1]), out):
        print(f"package: {folder}/ is still empty and left out")
    print(f"{out / NAME}/ and {out / NAME}.zip")


if __name__ == "__main__":
    main()
