#!/usr/bin/python3
"""Writes the samples that make_samples.py prints as a workbook, a row a sieve.

usage: make_tables.py SAMPLES.csv WORKBOOK.xlsx
Only what a sheet needs: numbers as numbers, names as texts in their cells.
"""
import csv
import sys
import zipfile
from xml.sax.saxutils import escape

TYPE = "http://schemas.openxmlformats.org/officeDocument/2006/relationships/"


def relations(kind, target):
    return (f'<Relationships><Relationship Id="r" Type="{TYPE}{kind}" Target="{target}"/>'
            "</Relationships>")


def cell(text, number):
    if number:
        return f"<c><v>{text}</v></c>"
    return f'<c t="inlineStr"><is><t>{escape(text)}</t></is></c>'


def main():
    with open(sys.argv[1], encoding="utf-8", newline="") as table, \
            zipfile.ZipFile(sys.argv[2], "w", zipfile.ZIP_DEFLATED) as package:
        package.writestr("_rels/.rels", relations("officeDocument", "xl/workbook.xml"))
        package.writestr("xl/_rels/workbook.xml.rels", relations("worksheet", "sheet.xml"))
        package.writestr("xl/workbook.xml",
                         '<workbook><sheets><sheet name="S" r:id="r"/></sheets></workbook>')
        rows = []
        for number, row in enumerate(csv.reader(table)):
            cells = "".join(cell(text, number > 0 and column not in (0, 1, 4))
                            for column, text in enumerate(row))
            rows.append(f"<row>{cells}</row>")
        package.writestr("xl/sheet.xml",
                         "<worksheet><sheetData>" + "".join(rows) + "</sheetData></worksheet>")


if __name__ == "__main__":
    main()
