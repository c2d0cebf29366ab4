"""Reads what a Windows module exports and imports and says what does not belong there.

    check_module.py MODULE --host NAME.dll

The module must offer the two entry points of a plug-in and nothing else, and need nothing but
Windows' own libraries and the host's: no runtime library has to lie beside it.
"""

import argparse
import re
import subprocess
import sys

EXPORTS = {"user_initialize", "user_terminate"}

# Windows' own, present on every installation.
WINDOWS = {
    "advapi32.dll", "comdlg32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
    "oleaut32.dll", "shell32.dll", "shlwapi.dll", "user32.dll",
}


def tables(listing):
    """The exported names and the imported libraries in the listing of `objdump -p`."""
    exports, _, names = listing.partition("[Ordinal/Name Pointer] Table")
    del exports
    exported = set(re.findall(r"^\s*\[\s*\d+\](?: \+base\[\s*\d+\])?\s+(?:[0-9a-f]+ )?(\S+)\s*$",
                              names.split("\n\n")[0], re.M))
    imported = {name.lower() for name in re.findall(r"^\s*DLL Name: (\S+)\s*$", listing, re.M)}
    return exported, imported


def complaints(exported, imported, host):
    """One line for each thing that is missing or too much."""
    lines = [f"it does not export {name}" for name in sorted(EXPORTS - exported)]
    lines += [f"it exports {name}, which nobody may call" for name in sorted(exported - EXPORTS)]
    lines += [f"it needs {name}, which is neither Windows' own nor the host's"
              for name in sorted(imported - WINDOWS - {host.lower()})]
    if host.lower() not in imported:
        lines.append(f"it does not call {host}")
    if "kernel32.dll" not in imported:
        lines.append("it imports nothing of Windows: is it a module for Windows at all?")
    return lines


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("module")
    parser.add_argument("--host", required=True, help="file name of the host's library")
    parser.add_argument("--objdump", default="x86_64-w64-mingw32-objdump")
    options = parser.parse_args()
    done = subprocess.run([options.objdump, "-p", options.module], capture_output=True, text=True,
                          check=False)
    if done.returncode != 0:
        sys.exit(f"{options.module}: cannot be read: {done.stderr.strip()}")
    found = complaints(*tables(done.stdout), options.host)
    for line in found:
        print(f"{options.module}: {line}")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
