#!/usr/bin/python3
"""Measures the workbench with a large assembly: workbench_bench.py SIMHOST [OCCURRENCES [MODELS]].

Prints how long the page takes to be ready, how many pictures a second it draws while it turns, how
long a step's answer takes beside the step's own time, how much memory the page takes, and how busy
an idle server is. Needs Chromium; without a graphics card it draws by software.
"""

import os
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "tests", "web"))
from page_support import Bench, open_browser, settle, step, wait_for

SIMHOST = sys.argv[1]
OCCURRENCES = int(sys.argv[2]) if len(sys.argv) > 2 else 10000
MODELS = int(sys.argv[3]) if len(sys.argv) > 3 else 200


def processor_seconds(process):
    with open(f"/proc/{process}/stat", encoding="ascii") as stat:
        fields = stat.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def measure(page, bench):
    begin = time.monotonic()
    page.get(bench.address)
    settle(page)
    print(f"page ready after {time.monotonic() - begin:.2f} s, nothing open")

    begin = time.monotonic()
    step(page, "@ open large.asm")
    print(f"opened, its tree shown after {time.monotonic() - begin:.2f} s")
    wait_for(page, "return window.vxView && window.vxView.ready;", "the view is ready", 120)
    print(f"its view drawn after {time.monotonic() - begin:.2f} s")
    begin = time.monotonic()
    page.refresh()
    settle(page)
    wait_for(page, "return window.vxView && window.vxView.ready;", "the view is ready", 120)
    print(f"page ready after {time.monotonic() - begin:.2f} s with the assembly open")

    own = page.execute_async_script("""
        const done = arguments[0], c = window.vx.connection, times = [];
        (async () => {
          for (let i = 0; i < 20; ++i) {
            await c.settled();
            const begin = performance.now();
            await c.step('@ note ' + i);
            await c.settled();
            times.push(performance.now() - begin);
            await new Promise(r => setTimeout(r, 300));
          }
          times.sort((a, b) => a - b);
          done(times[10]);
        })();""")
    print(f"a step that does nothing: {own:.0f} ms to its answer (median of 20)")
    memory = page.execute_script("return performance.memory.usedJSHeapSize;") / 1e6
    print(f"memory of the page's scripts: {memory:.0f} MB")
    time.sleep(2)
    before = processor_seconds(bench.process.pid)
    time.sleep(10)
    print(f"idle server: {processor_seconds(bench.process.pid) - before:.2f} s of 10")


def main():
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([SIMHOST, "generate", "--out", folder, "--occurrences", str(OCCURRENCES),
                        "--models", str(MODELS)], check=True, stdout=subprocess.DEVNULL)
        bench = Bench(SIMHOST, "--project", folder)
        page = open_browser()
        try:
            measure(page, bench)
        finally:
            page.quit()
            bench.close()


if __name__ == "__main__":
    main()
