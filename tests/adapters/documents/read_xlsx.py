#!/usr/bin/python3
"""Tells what a reader of spreadsheets finds in a file: a line a sheet, then a line a cell."""

import sys
import zipfile

import openpyxl
from openpyxl.utils import get_column_letter


def told(value):
    return repr(value) if isinstance(value, str) else str(value)


book = openpyxl.load_workbook(sys.argv[1])
parts = zipfile.ZipFile(sys.argv[1])
limit = int(sys.argv[2]) if len(sys.argv) > 2 else 1000
for number, sheet in enumerate(book.worksheets, 1):
    print(f"sheet {sheet.title!r} rows={sheet.max_row} freeze={sheet.freeze_panes} filter={sheet.auto_filter.ref}")
    formulas = parts.read(f"xl/worksheets/sheet{number}.xml").count(b"<f>")
    print(f"formulas {formulas}")
    widths = []
    for column in range(1, sheet.max_column + 1):
        dimension = sheet.column_dimensions.get(get_column_letter(column))
        widths.append(str(round(dimension.width, 1)) if dimension is not None else "-")
    print("widths " + " ".join(widths))
    for row in sheet.iter_rows(max_row=limit):
        for cell in row:
            if cell.value is not None:
                bold = " bold" if cell.font.bold else ""
                right = " right" if cell.alignment.horizontal == "right" else ""
                print(f"{cell.coordinate} {cell.data_type} {told(cell.value)} [{cell.number_format}]{bold}{right}")
