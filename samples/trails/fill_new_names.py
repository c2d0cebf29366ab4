#!/usr/bin/python3
"""Fills in the new names of an exported table, as a designer would in a spreadsheet program: some
models get Chinese names, all others keep theirs.

    fill_new_names.py FILE.xlsx
"""

import sys

import openpyxl

NEW = {"HOUSING": "箱座", "OUTPUT_SHAFT": "输出轴组件", "WASHER_12": "垫圈_12",
       "BREATHER": "通气器"}


def main(path):
    book = openpyxl.load_workbook(path)
    sheet = book.active
    # A title and the labels come first; an empty cell would not mean that a name stays.
    for row in range(3, sheet.max_row + 1):
        old = sheet.cell(row, 2).value
        cell = sheet.cell(row, 4, NEW.get(old, old))
        cell.number_format = "@"
    book.save(path)


main(sys.argv[1])
