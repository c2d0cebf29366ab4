"""A wrong folder for the host vendor's kit is told at once and clearly."""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]


def configure(kit, *arguments):
    with tempfile.TemporaryDirectory() as build:
        return subprocess.run(["cmake", "-S", ROOT, "-B", build, *arguments],
                              env={**os.environ, "VX_HOST_SDK": kit}, cwd=ROOT,
                              capture_output=True, text=True, check=False)


class HostSdk(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.kit = folder.name

    def assert_told(self, done, missing):
        self.assertNotEqual(done.returncode, 0)
        text = " ".join(done.stderr.split())
        self.assertIn(f"there is no {missing} in {self.kit}", text)
        self.assertIn("docs/host-operations.md", text)

    def test_empty_folder(self):
        self.assert_told(configure("", f"-DVX_HOST_SDK={self.kit}"), "includes/ProToolkit.h")

    def test_empty_folder_by_preset(self):
        self.assert_told(configure(self.kit, "--preset", "vendor"), "includes/ProToolkit.h")

    def lay(self, *names):
        for name in names:
            file = pathlib.Path(self.kit, name)
            file.parent.mkdir(parents=True, exist_ok=True)
            file.touch()

    def test_headers_without_libraries(self):
        self.lay("includes/ProToolkit.h")
        self.assert_told(configure("", f"-DVX_HOST_SDK={self.kit}"),
                         "x86e_win64/obj/protk_dllmd_NU.lib")

    def test_a_kit_without_some_of_the_headers(self):
        vendor = (ROOT / "hostapi" / "vendor.h").read_text(encoding="utf-8")
        headers = re.findall(r"#include <(.*)>", vendor)
        self.lay(*(f"includes/{name}" for name in headers if name not in ("ProMfg.h", "ProView.h")),
                 *(f"x86e_win64/obj/{name}.lib" for name in ("protk_dllmd_NU", "ucore", "udata")))
        text = " ".join(configure("", f"-DVX_HOST_SDK={self.kit}").stderr.split())
        self.assertIn(f"the kit in {self.kit} has no ProMfg.h, ProView.h", text)
        self.assertIn("hostapi/vendor.h", text)


if __name__ == "__main__":
    unittest.main()
