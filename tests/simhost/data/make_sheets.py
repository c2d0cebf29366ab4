#!/usr/bin/python3
"""Makes the spreadsheets of the tests that no program would save: each is one sheet, written out.
odd.xls comes from python3-xlwt. Run it in this folder; the results are checked in.
"""

import datetime
import zipfile

import xlwt

HEAD = '<?xml version="1.0" encoding="UTF-8" standalone="yes"?>\n'
MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
OFFICE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006"

TYPES = f"""{HEAD}<Types xmlns="{PACKAGE}/content-types">
<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>
<Default Extension="xml" ContentType="application/xml"/>
<Override PartName="/xl/workbook.xml" ContentType=\
"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/>
<Override PartName="/xl/worksheets/sheet1.xml" ContentType=\
"application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/></Types>"""
ROOT = f"""{HEAD}<Relationships xmlns="{PACKAGE}/relationships"><Relationship Id="rId1"
Type="{OFFICE}/officeDocument" Target="xl/workbook.xml"/></Relationships>"""
BOOK = f"""{HEAD}<workbook xmlns="{MAIN}" xmlns:r="{OFFICE}"><sheets>
<sheet name="Sheet1" sheetId="1" r:id="rId1"/></sheets></workbook>"""
RELATIONS = f"""{HEAD}<Relationships xmlns="{PACKAGE}/relationships"><Relationship Id="rId1"
Type="{OFFICE}/worksheet" Target="worksheets/sheet1.xml"/></Relationships>"""


def sheet(name, rows):
    with zipfile.ZipFile(name, "w", zipfile.ZIP_DEFLATED) as book:
        for part, text in (("[Content_Types].xml", TYPES), ("_rels/.rels", ROOT),
                           ("xl/workbook.xml", BOOK), ("xl/_rels/workbook.xml.rels", RELATIONS),
                           ("xl/worksheets/sheet1.xml",
                            f'{HEAD}<worksheet xmlns="{MAIN}"><sheetData>{rows}</sheetData>'
                            "</worksheet>")):
            # Of the same bytes whenever it is made.
            book.writestr(zipfile.ZipInfo(part, (2020, 1, 1, 0, 0, 0)), text,
                          compress_type=zipfile.ZIP_DEFLATED)


def text(name, value):
    return f'<c r="{name}" t="inlineStr"><is><t>{value}</t></is></c>'


# A row of every kind of cell, from A3 on: text, whole number, number, date as a number, date as a
# text, flag, error, formulas with a text, with a number, with an error, without a value, escapes.
sheet("kinds.xlsx",
      '<row r="3">' + text("A3", "text") + '<c r="B3"><v>12</v></c><c r="C3"><v>12.75</v></c>'
      '<c r="D3"><v>46315</v></c><c r="E3" t="d"><v>2026-10-20T06:00:00</v></c>'
      '<c r="F3" t="b"><v>1</v></c><c r="G3" t="e"><v>#N/A</v></c>'
      '<c r="H3" t="str"><f>A3&amp;"x"</f><v>textx</v></c><c r="I3"><f>B3*2</f><v>24</v></c>'
      '<c r="J3" t="e"><f>1/0</f><v>#DIV/0!</v></c><c r="K3"><f>B3+1</f></c>'
      + text("L3", "a_x000D_b_x_") + "</row>")
# Rows that only look like something: row 5 is used, row 7 is not.
sheet("styled.xlsx", '<row r="2">' + text("B2", "x") + '</row><row r="5"><c r="C5" s="1"/></row>'
      '<row r="7"><c r="C7"/></row>')
sheet("negative_row.xlsx", '<row r="-5"><c><v>1</v></c></row>')
sheet("zero_row.xlsx", '<row r="0"><c><v>1</v></c></row>')
sheet("huge_row.xlsx", '<row r="2000000000"><c><v>1</v></c></row>')
sheet("last_row.xlsx", '<row r="1048576">' + text("A1048576", "end") + "</row>")
sheet("row_beyond_the_last.xlsx", '<row r="1048577"><c><v>1</v></c></row>')
sheet("cell_beyond_the_last.xlsx", '<row r="1"><c r="XFE1"><v>1</v></c></row>')
sheet("unnamed_beyond_the_last.xlsx", '<row r="1"><c r="XFD1"><v>1</v></c><c><v>2</v></c></row>')
sheet("bad_number.xlsx", '<row r="1"><c r="A1"><v>1e999</v></c></row>')
sheet("bad_date.xlsx", '<row r="1"><c r="A1" t="d"><v>2026-13-01</v></c></row>')
# 2000 rows that reach to the last column: 32 million cells in a small file.
sheet("too_many_cells.xlsx",
      "".join(f'<row r="{r}"><c r="XFD{r}"><v>1</v></c></row>' for r in range(1, 2001)))

with open("kinds.xlsx", "rb") as file:
    whole = file.read()
with open("cut.xlsx", "wb") as file:
    file.write(whole[:len(whole) // 2])
# What a workbook with a password is: another container, with its parts enciphered.
with open("password.xlsx", "wb") as file:
    file.write(bytes.fromhex("d0cf11e0a1b11ae1") + bytes(504)
               + "EncryptedPackage".encode("utf-16-le"))

book = xlwt.Workbook()
first = book.add_sheet("名称")
date = xlwt.easyxf(num_format_str="YYYY-MM-DD")
for column, value in enumerate(("批量重命名", 12, 12.75, True)):
    first.write(2, column, value)
first.write(2, 4, datetime.date(2026, 10, 20), date)
first.write(2, 5, xlwt.Formula("B3*2"))
first.write(4, 0, "end")
book.add_sheet("second").write(0, 0, "other")
book.save("odd.xls")
