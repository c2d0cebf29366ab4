"""Holds the tests of the native build against those of the Windows build.

    test_lists.py LIST FOLDER NATIVE_PROGRAM WINDOWS_COMMAND...    compares a folder's tests
    test_lists.py --filter LIST FOLDER                             prints a filter for GoogleTest

Every test runs in both builds, or LIST says why it cannot run on a real Windows. Its lines
read `folder Suite.Test | reason`, with * for any letters. A line that names no test is an error,
and so is a test that is missing on Windows without a line.
"""

import fnmatch
import subprocess
import sys


def read_lines(path):
    """[(folder, pattern, reason)] of the list; comments and empty lines left out."""
    rows = []
    with open(path, encoding="utf-8") as lines:
        for number, line in enumerate(lines, 1):
            line = line.strip()
            if not line or line.startswith("#"):
                continue
            name, bar, reason = line.partition("|")
            words = name.split()
            if not bar or len(words) != 2 or not reason.strip():
                sys.exit(f"{path}:{number}: a line reads `folder Suite.Test | reason`")
            rows.append((words[0], words[1], reason.strip()))
    return rows


def gtest_filter(rows, folder):
    """What GoogleTest takes to leave out the folder's native tests."""
    patterns = [pattern for where, pattern, _ in rows if where == folder]
    return "-" + ":".join(patterns) if patterns else "*"


def parse_tests(listing):
    """The names in the output of --gtest_list_tests."""
    names, suite = set(), ""
    for line in listing.splitlines():
        word = line.split("#")[0].rstrip()
        if not word:
            continue
        if not word.startswith(" "):
            suite = word if word.endswith(".") else ""
        elif suite:
            names.add(suite + word.strip())
    return names


def compare(rows, folder, native, windows):
    """One line for each disagreement."""
    found = []
    for where, pattern, _ in rows:
        if where == folder and not any(fnmatch.fnmatchcase(name, pattern) for name in native):
            found.append(f"{folder}: no test is named {pattern}: take its line out")
    listed = {name for where, pattern, _ in rows if where == folder
              for name in native if fnmatch.fnmatchcase(name, pattern)}
    for name in sorted(native - windows - listed):
        found.append(f"{folder}: {name} is not in the Windows build; say why in the list")
    return found


def tests_of(command):
    done = subprocess.run([*command, "--gtest_list_tests"], capture_output=True, text=True,
                          check=False)
    if done.returncode != 0:
        sys.exit(f"{command[-1]}: cannot be run: {done.stderr.strip()}")
    return parse_tests(done.stdout)


def main():
    if len(sys.argv) == 4 and sys.argv[1] == "--filter":
        print(gtest_filter(read_lines(sys.argv[2]), sys.argv[3]))
        return
    if len(sys.argv) < 5:
        sys.exit(__doc__)
    path, folder, native, *windows = sys.argv[1:]
    rows = read_lines(path)
    # Of a folder that stays native as a whole there is no program to ask.
    whole = any(where == folder and pattern == "*" for where, pattern, _ in rows)
    found = compare(rows, folder, tests_of([native]), set() if whole else tests_of(windows))
    print("\n".join(found))
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
