#!/usr/bin/python3
"""Sheets are read by programs that are not ours, and what these find is compared with the drawing
database entity for entity.

    independent_readers.py GRDX LIST_ENTITIES SAMPLES READERS
"""
import json
import math
import pathlib
import re
import subprocess
import sys
import tempfile

import ezdxf
from ezdxf.proxygraphic import ProxyGraphic

GRDX, LIST_ENTITIES, SAMPLES, READERS = sys.argv[1:]
SAME = 1e-9
CLASS_UNKNOWN = 4  # the first reader's answer to a class that it does not know, when nothing is wrong
# How the second reader shows our kinds, those missing not at all, and colours; 7 is also the layer's.
FEATURES = {"LINE": "CADLine", "TEXT": "CADText", "LWPOLYLINE": "CADLWPolyline",
            "CIRCLE": "CADCircle", "SPLINE": "CADSpline"}
COLORS = {1: "#FF0000FF", 3: "#00FF00FF", 7: "#FFFFFFFF", 256: "#FFFFFFFF"}


def run(*words, **options):
    done = subprocess.run(words, capture_output=True, text=True, check=False, **options)
    assert done.returncode == 0, f"{words}: {done.returncode} {done.stderr}"
    return done


def same_places(ours, theirs, tolerance=SAME):
    assert len(ours) == len(theirs), (ours, theirs)
    for a, b in zip(ours, theirs):
        assert math.dist(a, b) <= tolerance, (ours, theirs)


def same_entity(ours, theirs):
    """The same as a reader printed as JSON."""
    for field in ("kind", "layer", "color", *(["text"] if ours["kind"] == "TEXT" else [])):
        assert ours[field] == theirs[field], (field, ours, theirs)
    same_places(ours["points"], theirs["points"])
    if ours["kind"] == "TEXT":
        assert abs(ours["height"] - theirs["height"]) <= SAME, (ours, theirs)
    elif ours["kind"] == "CIRCLE":
        assert abs(ours["radius"] - theirs["radius"]) <= SAME, (ours, theirs)
    elif ours["kind"] == "HATCH":
        assert abs(ours["radius"] - theirs["radii"][0]) <= SAME, (ours, theirs)
        assert theirs["solid"] == theirs["associative"] == 1, theirs


def without_curves(entities):
    return [e for e in entities if e["kind"] != "CKFCURVE"]


def compare_with_first(ours, theirs):
    plain = without_curves(ours)
    assert theirs["unknown"] == len(ours) - len(plain)
    assert theirs["error"] == (CLASS_UNKNOWN if theirs["unknown"] else 0)
    assert theirs["modelSpaceCount"] == len(ours)
    assert len(plain) == len(theirs["entities"])
    for a, b in zip(plain, theirs["entities"]):
        same_entity(a, b)
    # Listed with everything allowed to a proxy of it.
    curve = [c for c in theirs["classes"] if c["dxf"] == "CKFCURVE"]
    assert [(c["cpp"], c["entity"], c["flags"]) for c in curve] == [("CKFCurve", True, 255)], curve
    return len(plain)


def compare_with_third(ours, theirs):
    """It has an order of its own and leaves out the curves."""
    by_handle = {e["handle"]: e for e in theirs["entities"]}
    plain = without_curves(ours)
    assert len(plain) == len(by_handle)
    for entity in plain:
        same_entity(entity, by_handle[entity["handle"]])
    return len(plain)


def read_features(sheet):
    """What the second reader prints."""
    read = run("ogrinfo", "-ro", "-al", "-q", sheet)
    assert read.stderr == "", read.stderr
    features = []
    for line in read.stdout.splitlines():
        if line.startswith("OGRFeature("):
            features.append({"layer": line[11:line.rindex(")")], "text": "", "points": []})
        elif found := re.match(r"  (cadgeom_type|color|text)\b.*? = (.*)", line):
            features[-1][found[1]] = found[2]
        elif re.match(r"  (POINT|LINESTRING|CIRCULARSTRING).*\(", line):
            numbers = line[line.index("(") + 1:line.rindex(")")].strip("(").split(",")
            features[-1]["points"] = [[float(n) for n in place.split()] for place in numbers]
    return features


def shown_as_features(entities):
    """It puts a block's content in place of its reference."""
    for entity in entities:
        if entity["kind"] == "INSERT":
            yield from shown_as_features(entity["content"])
        elif entity["kind"] in FEATURES:
            yield entity


def compare_with_second(entities, features):
    ours = list(shown_as_features(entities))
    assert len(ours) == len(features)
    for a, b in zip(ours, features):
        shown = (b["layer"], b["cadgeom_type"], b["color"], b["text"])
        assert shown == (a["layer"], FEATURES[a["kind"]], COLORS[a["color"]], a.get("text", "")), (a, b)
        if a["kind"] == "CIRCLE":
            x, y, z = a["points"][0]
            same_places([[x - a["radius"], y, z]], b["points"][:1])
        elif a["kind"] == "SPLINE":
            assert not b["points"], "it shows splines by control points only"
        else:
            same_places(a["points"], b["points"])
    return len(ours)


def read(script, sheets):
    found = [json.loads(line) for line in run("node", f"{READERS}/{script}", *sheets).stdout.splitlines()]
    assert len(found) == len(sheets)
    return found


def entities_of(sheet, copy=None):
    words = ["--without-curves", sheet, copy] if copy else [sheet]
    return json.loads(run(LIST_ENTITIES, *words).stdout)


def make_suite(folder, code):
    run(GRDX, "new", folder, "--number", "N", "--code", str(code))
    for kind in ("samples", "layers"):
        run(GRDX, "import", kind, f"{SAMPLES}/{kind}.csv", "-s", folder)


def draw(folder, borehole):
    """The sheets, all of the borehole's samples on them."""
    run(GRDX, "draw", "samples", "-s", folder, "--borehole", borehole, "--all", "--unit", "滨江岩土试验室",
        "--tester", "王工", "--checker", "李工", "--date", "2026-05-20", "--outer-frame", "--right-axis")
    return sorted(map(str, folder.glob("output/N/*/*.dwg")))


def every_sheet(folder):
    lines = pathlib.Path(SAMPLES, "samples.csv").read_text().splitlines()[1:]
    for borehole in sorted({line.split(",")[0] for line in lines}):
        sheets = draw(folder, borehole)
    firsts, thirds = (read(script, sheets) for script in ("read_dwg.mjs", "read_dwg_dxfrw.mjs"))
    counts = [0, 0, 0]
    for sheet, first, third in zip(sheets, firsts, thirds):
        copy = str(folder / "copy.dwg")
        ours = entities_of(sheet, copy)
        counts[0] += compare_with_first(ours, first)
        counts[1] += compare_with_third(ours, third)
        # The second reader stops at the first object of a class it does not know. It has to find
        # what stands before that in the sheet, and everything in a copy without the curves.
        kinds = [e["kind"] for e in ours]
        compare_with_second(ours[:kinds.index("CKFCURVE")], read_features(sheet))
        counts[2] += compare_with_second(without_curves(ours), read_features(copy))
    assert min(counts) > 3000 and counts[0] == counts[1], counts
    print(f"{len(sheets)} sheets: entities compared with libredwg, libdxfrw, GDAL: {counts}")


def distance(line, place):
    """Of a place from a line through points."""
    least = math.inf
    for (ax, ay, _), (bx, by, _) in zip(line, line[1:]):
        dx, dy = bx - ax, by - ay
        part = ((place[0] - ax) * dx + (place[1] - ay) * dy) / (dx * dx + dy * dy)
        part = min(max(part, 0.0), 1.0)
        least = min(least, math.hypot(ax + part * dx - place[0], ay + part * dy - place[1]))
    return least


def same_graphics(graphics, pieces):
    """What a decoder that is not ours makes of a curve's graphics is what the curve becomes when it is
    exploded: a line that nowhere leaves the spline by more than a hundredth of a millimetre, and the
    labels that have a text."""
    document = ezdxf.new()
    line, *texts = ProxyGraphic(bytes.fromhex(graphics), document).virtual_entities()
    assert line.dxftype() == "POLYLINE" and line.dxf.color == pieces[0]["color"]
    drawn = [tuple(vertex.dxf.location) for vertex in line.vertices]
    for place in pieces[0]["course"]:
        assert distance(drawn, place) < 0.01, place
    labels = [piece for piece in pieces[1:] if piece["text"]]
    assert len(texts) == len(labels)
    for text, label in zip(texts, labels):
        style = document.styles.get(text.dxf.style)
        shown = (text.dxf.text, text.dxf.color, text.dxf.height, text.dxf.rotation, text.dxf.width,
                 style.dxf.font, style.dxf.bigfont)
        assert shown == (label["text"], label["color"], label["height"], 0.0, 0.7, "comfont.shx",
                         "hztxt.shx"), shown
        same_places([tuple(text.dxf.insert)], label["points"], 0.0)


def exploded_curves(folder, code):
    sheet = draw(folder, "ZK1")[0]
    exploded = str(folder / "exploded.dwg")
    curves = json.loads(run(GRDX, "info", "--json", sheet).stdout)["curves"]
    script = [f"OPEN {sheet}", *(f"EXPLODE #{c['handle']}" for c in curves), f"SAVEAS {exploded}"]
    run(GRDX, "script", "-", "-s", folder, input="\n".join(script) + "\n")
    before, ours = entities_of(sheet), entities_of(exploded)
    each = 1 + len(curves[0]["labelPoints"])
    assert each == (8 if code == 2 else 6)
    others = len(before) - len(curves)
    assert len(ours) == others + len(curves) * each
    graphics = [e["graphics"] for e in before if e["kind"] == "CKFCURVE"]
    for i, curve in enumerate(curves):
        pieces = ours[others + i * each:others + (i + 1) * each]
        assert [p["kind"] for p in pieces] == ["SPLINE"] + ["TEXT"] * (each - 1)
        assert pieces[0]["color"] == 3
        same_places(pieces[0]["points"], curve["curvePoints"], 0.0)
        same_places([p["points"][0] for p in pieces[1:]], curve["labelPoints"], 0.0)
        assert {p["height"] for p in pieces[1:]} == {curve["textHeight"]}
        same_graphics(graphics[i], pieces)
    compare_with_first(ours, read("read_dwg.mjs", [exploded])[0])
    compare_with_third(ours, read("read_dwg_dxfrw.mjs", [exploded])[0])
    compare_with_second(ours, read_features(exploded))


for standard_code in (0, 2):
    with tempfile.TemporaryDirectory() as scratch:
        suite = pathlib.Path(scratch, "suite")
        make_suite(suite, standard_code)
        exploded_curves(suite, standard_code)
        every_sheet(suite)
