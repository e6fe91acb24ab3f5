#!/usr/bin/python3
"""Draws the entities of one finished sheet again and again with a Python drawing library.

usage: ezdxf_sheets.py READER_OUTPUT COUNT FOLDER

READER_OUTPUT is what tests/readers/read_dwg.mjs prints of a sheet. Everything that can be worked out
beforehand is; the clock runs over making the document, adding the entities and saving. The library
writes DXF, the nearest it has to a drawing file. Prints the milliseconds a sheet.
"""
import json
import math
import pathlib
import sys
import time

import ezdxf


def add(space, entity):
    attributes = {"layer": entity["layer"], "color": min(entity["color"], 256)}
    kind = entity["kind"]
    points = entity.get("points", [])
    if kind == "LINE":
        space.add_line(points[0], points[1], dxfattribs=attributes)
    elif kind == "LWPOLYLINE":
        vertices = [(p[0], p[1], w[0], w[1], 0) for p, w in zip(points, entity["widths"])]
        space.add_lwpolyline(vertices, dxfattribs=attributes)
    elif kind == "CIRCLE":
        space.add_circle(points[0], entity["radius"], dxfattribs=attributes)
    elif kind == "HATCH":
        hatch = space.add_hatch(dxfattribs=attributes)
        for center, radius in zip(points, entity["radii"]):
            hatch.paths.add_edge_path().add_arc(center[:2], radius, 0, 360)
    elif kind == "TEXT":
        space.add_text(entity["text"], dxfattribs={
            **attributes, "insert": points[0], "height": entity["height"],
            "rotation": math.degrees(entity["rotation"]), "width": entity["widthFactor"],
            "style": entity["style"]})


def draw(entities, path):
    document = ezdxf.new("R2000")
    document.layers.add("ZZT_TC")
    document.styles.add("KX_FONT", font="ComFont.shx").dxf.bigfont = "st64f.shx"
    document.styles.add("QV_FONT", font="ComFont.shx").dxf.bigfont = "Hztxt.shx"
    space = document.modelspace()
    curve = []
    for entity in entities:
        add(space, entity)
        if entity["kind"] == "HATCH":
            curve += entity["points"]
    if curve:
        space.add_spline(curve)  # stands for the sheet's curves
    document.saveas(path)


def main():
    source, count, folder = sys.argv[1], int(sys.argv[2]), pathlib.Path(sys.argv[3])
    entities = json.loads(pathlib.Path(source).read_text(encoding="utf-8"))["entities"]
    draw(entities, folder / "warm-up.dxf")
    start = time.perf_counter()
    for number in range(count):
        draw(entities, folder / f"{number}.dxf")
    print(f"{(time.perf_counter() - start) * 1000 / count:.3f}")


if __name__ == "__main__":
    main()
