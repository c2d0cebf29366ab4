#!/usr/bin/python3
"""What VxExport writes, as programs read it that know nothing of ours: the tools of poppler read
the PDF files, ezdxf the exchange files."""
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import ezdxf

PROGRAM = sys.argv.pop(1) if len(sys.argv) > 1 else "build/quick/simhost"
ROOT = pathlib.Path(__file__).resolve().parents[2]
POINTS_PER_MM = 72 / 25.4

# Three sheets: the gear, words and a table without a view, the gear in another size.
DRAWING = """[model]
type = "drawing"

[[sheet]]
size = "A3"

[[sheet]]
size = "A4"

[[sheet]]
size = "A2"

[[note]]
id = 1
sheet = 2
at = [30, 100]
text = ["未注倒角C1"]

[[table]]
id = 1
sheet = 2
at = [20, 80]
columns = [30, 30]
heights = [8]
cells = [["模数", "4"]]

[drawing]
projection = "first-angle"

[[view]]
id = 1
model = "gear_z60.prt"
sheet = 1
at = [120, 180]
scale = 0.5

[[view]]
id = 2
model = "gear_z60.prt"
sheet = 3
at = [300, 200]
scale = 1
"""


def said(*words):
    return subprocess.run(words, capture_output=True, text=True, check=True).stdout


class Readers(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.keeper = tempfile.TemporaryDirectory(prefix="readers-")
        cls.addClassCleanup(cls.keeper.cleanup)
        folder = pathlib.Path(cls.keeper.name)
        project = folder / "project"
        project.mkdir()
        shutil.copy(ROOT / "samples" / "gearbox" / "gear_z60.prt.1", project)
        (project / "齿轮.drw.1").write_text(DRAWING, encoding="utf-8")
        cls.work = folder / "drive" / "Work"
        cls.transcript = cls.export(folder, ["`DXFCheck` 1", "`DWGCheck` 1"])
        # The sheets by themselves, and a file in black; what is there stays.
        cls.export(folder, ["`MultiSheetCheck` 1"], pattern="sheetsize")
        cls.export(folder, ["`PDFOptionCheck` 1", "`PDFBlackCheck` 1"], pattern="代号")

    @classmethod
    def export(cls, folder, buttons, pattern="图纸名称,sheetsize"):
        lines = ["~ Command `VxExport`", f"~ Input `VxExport` `Export_name` `{pattern}`"]
        lines += [f"~ Activate `VxExport` {button}" for button in buttons]
        if "`PDFBlackCheck` 1" not in buttons:
            lines.append("~ Activate `VxExport` `PDFBlackCheck` 0")
        lines += ["~ Activate `VxExport` `selAll`", "~ Activate `VxExport` `ApplyBt`", "@ ok",
                  "~ Close `VxExport`"]
        script = folder / "export.trail"
        script.write_text("\n".join(lines) + "\n", encoding="utf-8")
        done = subprocess.run([PROGRAM, "run", str(script), "--project", str(folder / "project"),
                               "--drive", str(folder / "drive")],
                              capture_output=True, text=True, check=False, timeout=120)
        if done.returncode != 0:
            raise AssertionError(done.stdout + done.stderr)
        return done.stdout

    def pages(self, name):
        """The sizes of a file's pages in whole mm."""
        told = said("pdfinfo", "-f", "1", "-l", "9", str(self.work / "PDF" / name))
        sizes = re.findall(r"Page +\d+ size: +([\d.]+) x ([\d.]+) pts", told)
        return [tuple(round(float(each) / POINTS_PER_MM) for each in size) for size in sizes]

    def text(self, name, page):
        return said("pdftotext", "-f", str(page), "-l", str(page), str(self.work / "PDF" / name),
                    "-")

    def colours(self, name, page=1):
        """The colours of a page's points, at 50 to the inch."""
        out = pathlib.Path(self.keeper.name) / "page"
        said("pdftoppm", "-r", "50", "-f", str(page), "-l", str(page), "-singlefile",
             str(self.work / "PDF" / name), str(out))
        data = out.with_suffix(".ppm").read_bytes()
        points = data.split(b"\n", 3)[3]
        return {points[at:at + 3] for at in range(0, len(points), 3)}

    def test_a_pdf_file_has_a_page_of_its_true_size_for_each_sheet(self):
        self.assertEqual(self.pages("齿轮_A3.pdf"), [(420, 297), (210, 297), (594, 420)])

    def test_a_file_of_one_sheet_has_one_page(self):
        self.assertEqual(self.pages("A3.pdf"), [(420, 297)])
        self.assertEqual(self.pages("A4.pdf"), [(210, 297)])
        self.assertEqual(self.pages("A2.pdf"), [(594, 420)])

    def test_chinese_words_are_found_on_their_page(self):
        self.assertIn("未注倒角", self.text("齿轮_A3.pdf", 2))
        self.assertIn("模数", self.text("齿轮_A3.pdf", 2))
        self.assertNotIn("模数", self.text("齿轮_A3.pdf", 1))
        self.assertIn("模数", self.text("A4.pdf", 1))

    def test_fonts_are_inside(self):
        fonts = said("pdffonts", str(self.work / "PDF" / "齿轮_A3.pdf")).splitlines()[2:]
        self.assertGreater(len(fonts), 0)
        for font in fonts:
            # name, type, encoding, emb, sub, uni, object
            self.assertRegex(font, r" yes +yes +yes +\d+ +\d+$")

    def test_words_drawn_as_curves_need_no_font_and_cannot_be_found(self):
        name = self.one_of_black()
        self.assertEqual(said("pdffonts", str(self.work / "PDF" / name)).splitlines()[2:], [])
        self.assertEqual(self.text(name, 2).strip(), "")

    def one_of_black(self):
        names = {each.name for each in (self.work / "PDF").iterdir()}
        left = names - {"齿轮_A3.pdf", "A2.pdf", "A3.pdf", "A4.pdf"}
        self.assertEqual(len(left), 1, names)
        return left.pop()

    def test_black_is_black_and_colours_are_colours(self):
        def grey(colour):
            return max(colour) - min(colour) <= 1
        self.assertTrue(all(grey(each) for each in self.colours(self.one_of_black())))
        self.assertIn(b"\x00\x00\x00", self.colours(self.one_of_black()))
        self.assertFalse(all(grey(each) for each in self.colours("齿轮_A3.pdf")))

    def test_exchange_files_have_their_sheets_and_nothing_of_others(self):
        counts = []
        for sheet in (1, 2, 3):
            drawing = ezdxf.readfile(self.work / "DXF" / f"齿轮_A3-{sheet}.dxf")
            self.assertEqual(drawing.dxfversion, "AC1009")
            space = drawing.modelspace()
            texts = {each.dxf.text for each in space.query("TEXT")}
            counts.append((len(space.query("LINE[layer=='VISIBLE']")) > 20, "模数" in texts))
            auditor = drawing.audit()
            self.assertEqual([str(each) for each in auditor.errors], [])
        self.assertEqual(counts, [(True, False), (False, True), (True, False)])

    def test_a_dwg_file_is_exchange_text_and_the_user_is_told(self):
        for sheet in (1, 2, 3):
            self.assertEqual((self.work / "DWG" / f"齿轮_A3-{sheet}.dwg").read_bytes(),
                             (self.work / "DXF" / f"齿轮_A3-{sheet}.dxf").read_bytes())
        self.assertIn("holds exchange text (DXF, release 12); dwg_export_format is 2000",
                      self.transcript)


if __name__ == "__main__":
    unittest.main()
