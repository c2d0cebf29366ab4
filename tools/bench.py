#!/usr/bin/env python3
"""Measures the assembly walk and batch commands at growing sizes and prints one table.

For each job and size: calls through the door, wall time, memory that was allocated with new, and
peak memory of the process. At the two smaller sizes valgrind's callgrind counts the instructions
spent in the plug-in's own objects: for each occurrence, and as a share of the run between the
press and its end. The wishes are printed below the table; nothing here passes or fails.
"""
import argparse
import pathlib
import re
import subprocess
import sys
import tempfile

JOBS = ["walk", "BatchColor", "CoverRels", "Add", "OutlineParts", "OutlineTop", "VxMdlCount",
        "SetMat", "SetBendTable", "SetUnit", "VxIsolate", "IsolatePicks", "FreeNames",
        "VxRemoveCons", "VxExStp", "VxBackup", "VxBox", "VxMergeTo",
        "VxHideReverse", "VxShowAllComp",
        "BomFlat", "BomLevels", "RenameOpen", "RenameLoad", "RenameCheck", "TweViews",
        "VxDrwScaleCheck", "VxFrmReplace", "DimTolerance", "VxSingleDim",
        "ExportOpen", "ExportParams", "ExportApply",
        "BomExport", "SaveModels", "LookForModels",
        "OpenParameters", "InsertRows", "DrawSheet"]
EXPORT_ROWS = [1_000, 50_000]
SIZES = [10_000, 100_000, 1_000_000]
SMALLER = ["CoverRels", "Add", "OutlineParts", "OutlineTop",
           "IsolatePicks", "SetMat", "SetBendTable", "SetUnit",
           "FreeNames", "VxRemoveCons", "VxExStp", "VxBackup", "VxMergeTo",
           "RenameOpen"]  # without the largest size
# Not occurrences: picks of parts with 102 surfaces, drawings of 4 sheets, dimensions, rows.
OTHER_SIZES = {"VxBox": [1_000, 10_000], "VxDrwScaleCheck": [100, 1_000],
               "VxFrmReplace": [100, 1_000], "DimTolerance": [1_000, 10_000],
               "VxSingleDim": [100, 1_000], "ExportOpen": [1_000, 10_000],
               "ExportParams": [100, 1_000], "ExportApply": [100, 1_000],
               "RenameLoad": [1_000, 10_000], "RenameCheck": [1_000, 10_000]}
COUNTED_SIZES = [100, 1_000, *SIZES[:2]]
# Jobs whose plug-in instructions do not depend on the model: measured in all, not for each
# occurrence. The first size is a single part.
FIXED = {"TweViews": [50, 1_000, 10_000]}
# Work of the simulated host that must grow no faster than its pieces, and how many they are.
GROWTH = {"SaveModels": [500, 2_000, 8_000], "LookForModels": [500, 2_000, 8_000],
          "OpenParameters": [10_000, 100_000], "InsertRows": [10_000, 100_000],
          "DrawSheet": [100, 1_000, 10_000]}
MEASURED = "*Measure*"  # bench.cpp: what is measured runs in this function


def run_once(bench, job, size):
    """One plain run: a dictionary of its figures."""
    run = subprocess.run([bench, job, str(size)], check=True, capture_output=True, text=True)
    text = run.stdout
    figures = re.search(
        rf"{job}: calls=(\d+) seconds=([\d.]+) bytes=(\d+) peak_rss_kib=(\d+)", text)
    if not figures:
        sys.exit(f"bench: no figures in {text!r}")
    calls, seconds, size_of_new, peak = figures.groups()
    return {"calls": int(calls), "seconds": float(seconds), "bytes": int(size_of_new),
            "peak": int(peak)}


def count_instructions(bench, job, size):
    """Instructions inside the plug-in's objects and in all, between press and end."""
    with tempfile.NamedTemporaryFile() as out:
        subprocess.run(["valgrind", "--tool=callgrind", f"--callgrind-out-file={out.name}",
                        "--collect-atstart=no", f"--toggle-collect={MEASURED}",
                        bench, job, str(size)], check=True, capture_output=True)
        return read_callgrind(pathlib.Path(out.name).read_text(errors="replace"))


def read_callgrind(text):
    """Sums the self cost by object: (plug-in, all). Lines after `calls=` are inclusive."""
    names, plugin, total = {}, 0, 0
    current, skip = "", False
    for line in text.splitlines():
        if match := re.match(r"ob=\((\d+)\)(?: (.*))?", line):
            number, name = match.groups()
            if name:
                names[number] = name
            current = names[number]
        elif match := re.match(r"cob=\((\d+)\) (.*)", line):
            names[match.group(1)] = match.group(2)
        elif line.startswith("calls="):
            skip = True
        elif re.match(r"[+\-*\d]", line):
            if skip:
                skip = False
                continue
            cost = int(line.split()[1])
            total += cost
            if re.search(r"(vorlatix5\.1|walk_module)\.(so|dll)$", current):
                plugin += cost
    return plugin, total


def measure_fixed(bench, job):
    """The same figures for a job whose plug-in instructions must not grow with the model."""
    print(f"\n{job:<12}{'occurrences':>12}{'calls':>12}{'seconds':>9}{'plug-in instr':>15}"
          f"{'growth':>8}")
    first = None
    for size in FIXED[job]:
        plain = run_once(bench, job, size)
        plugin, _ = count_instructions(bench, job, size)
        first = first or plugin
        name = "a part" if size == FIXED[job][0] else size
        print(f"{job:<12}{name:>12}{plain['calls']:>12}{plain['seconds']:>9.3f}{plugin:>15}"
              f"{plugin / first:>8.3f}", flush=True)


def measure_export(bench):
    """The export of a table against the library that writes the same cells, in one run."""
    print(f"\n{'BomExport':<12}{'rows':>12}{'seconds':>12}{'library':>11}{'ratio':>9}")
    for rows in EXPORT_ROWS:
        run = subprocess.run([bench, "BomExport", str(rows)], check=True, capture_output=True,
                             text=True)
        seconds, library = map(float, re.search(r"seconds=([\d.]+) library=([\d.]+)",
                                                run.stdout).groups())
        print(f"{'BomExport':<12}{rows:>12}{seconds:>12.3f}{library:>11.3f}"
              f"{seconds / library:>9.2f}", flush=True)
    print("Wanted: at most twice the time of the library.")


def measure_growth(bench, jobs):
    """Seconds at growing numbers of pieces, and saves against writing the same files plainly."""
    print(f"\n{'job':<16}{'pieces':>10}{'seconds':>10}{'us/piece':>10}{'growth':>8}"
          f"{'plain':>9}{'ratio':>8}")
    for job in jobs:
        previous = None
        for pieces in GROWTH[job]:
            run = subprocess.run([bench, job, str(pieces)], check=True, capture_output=True,
                                 text=True)
            seconds = float(re.search(r"seconds=([\d.]+)", run.stdout).group(1))
            row = f"{job:<16}{pieces:>10}{seconds:>10.4f}{seconds / pieces * 1e6:>10.2f}"
            row += f"{seconds / previous:>8.2f}" if previous else f"{'':>8}"
            previous = seconds
            if plain := re.search(r"plain=([\d.]+)", run.stdout):
                row += f"{float(plain.group(1)):>9.4f}{seconds / float(plain.group(1)):>8.2f}"
            print(row, flush=True)
    print("Wanted: time for each piece does not grow but for sorting; saves at most 3 times the "
          "plain files; a sheet at most 12-fold for ten times the occurrences.")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--bench", default="build/release/vorlatix_bench", help="what to run")
    parser.add_argument("--jobs", nargs="*", default=JOBS)
    options = parser.parse_args()
    print(f"{'job':<12}{'occurrences':>12}{'calls':>12}{'calls/occ':>11}{'seconds':>9}"
          f"{'new B/occ':>11}{'peak MiB':>10}{'plug-in instr/occ':>19}{'share':>8}{'growth':>8}")
    for job in options.jobs:
        if job in FIXED or job in GROWTH or job == "BomExport":
            continue
        previous = None
        for size in OTHER_SIZES.get(job, SIZES[:2] if job in SMALLER else SIZES):
            plain = run_once(options.bench, job, size)
            row = (f"{job:<12}{size:>12}{plain['calls']:>12}{plain['calls'] / size:>11.2f}"
                   f"{plain['seconds']:>9.3f}{plain['bytes'] / size:>11.1f}"
                   f"{plain['peak'] / 1024:>10.0f}")
            if size in COUNTED_SIZES:
                plugin, total = count_instructions(options.bench, job, size)
                each = plugin / size
                row += f"{each:>19.1f}{plugin / total:>8.1%}"
                row += f"{each / previous:>8.3f}" if previous else f"{'':>8}"
                previous = each
            print(row, flush=True)
    for job in options.jobs:
        if job in FIXED:
            measure_fixed(options.bench, job)
    if "BomExport" in options.jobs:
        measure_export(options.bench)
    if any(job in GROWTH for job in options.jobs):
        measure_growth(options.bench, [job for job in options.jobs if job in GROWTH])
    print("\nWanted: growth per occurrence at most 1.05, share at most 10 %, "
          "memory of the plug-in at most 64 bytes for each occurrence.")


if __name__ == "__main__":
    main()
