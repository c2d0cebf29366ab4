#!/usr/bin/python3
"""Measures the workbench with a large assembly: workbench_bench.py SIMHOST [OCCURRENCES [MODELS]].

Prints how long the page takes to be ready, how many pictures a second it draws while the model is
turned, how long a step's answer takes beside the step's own time, how much memory the page takes,
and how busy an idle server is. Needs Chromium; without a graphics card it draws by software.
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


def processes_below(parent):
    for thread in os.listdir(f"/proc/{parent}/task"):
        with open(f"/proc/{parent}/task/{thread}/children", encoding="ascii") as children:
            below = children.read().split()
        for child in below:
            yield child
            yield from processes_below(child)


def megabytes_of_page(page):
    """What the process that shows the page has for itself; its other windows are empty."""
    most = 0
    for process in processes_below(page.service.process.pid):
        with open(f"/proc/{process}/cmdline", encoding="utf-8") as command:
            if "--type=renderer" not in command.read():
                continue
        with open(f"/proc/{process}/smaps_rollup", encoding="ascii") as sums:
            private = sum(int(line.split()[1]) for line in sums if line.startswith("Private_"))
        most = max(most, private / 1000)
    return most


# Turns the model by the mouse for some seconds, a bit at each picture of the browser; pictures per
# second in the last of them, when the page has found how coarse they must be.
TURN = """
    const done = arguments[0], canvas = document.querySelector('#view canvas');
    const box = canvas.getBoundingClientRect();
    const x = box.x + box.width / 2, y = box.y + box.height / 2;
    const send = (name, at) => canvas.dispatchEvent(new PointerEvent(name,
      { clientX: x + at, clientY: y + at / 3, button: 0, bubbles: true }));
    const settling = 3000, counted = 5000, begin = performance.now();
    let moves = 0, from = null;
    send('pointerdown', 0);
    const move = () => {
      const now = performance.now() - begin;
      send('pointermove', 10 + moves++ % 200);
      if (from === null && now > settling) from = { frames: window.vxView.frames, now };
      if (now < settling + counted) return requestAnimationFrame(move);
      send('pointerup', 10);
      done(1000 * (window.vxView.frames - from.frames) / (now - from.now));
    };
    move();"""


def ready(page):
    settle(page)
    wait_for(page, "return window.vxView && window.vxView.ready;", "the view is ready", 120)


def measure(page, bench):
    begin = time.monotonic()
    page.get(bench.address)
    settle(page)
    print(f"page ready after {time.monotonic() - begin:.2f} s, nothing open")

    begin = time.monotonic()
    step(page, "@ open large.asm")
    print(f"opened, its tree shown after {time.monotonic() - begin:.2f} s")
    ready(page)
    print(f"its view drawn after {time.monotonic() - begin:.2f} s")
    begin = time.monotonic()
    page.refresh()
    ready(page)
    print(f"page ready after {time.monotonic() - begin:.2f} s with the assembly open")

    print(f"turning: {page.execute_async_script(TURN):.1f} pictures a second")
    ready(page)

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
    scripts = page.execute_script("return performance.memory.usedJSHeapSize;") / 1e6
    print(f"memory of the page: {megabytes_of_page(page):.0f} MB, of its scripts {scripts:.0f} MB")
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
