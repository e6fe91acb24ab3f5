"""Prints what ezdxf decodes from proxy graphics: a line of hexadecimal bytes on standard input gives
a line of JSON, [{kind, color, points, text, height, width, oblique, rotation, font, bigFont}, ...]."""

import json
import sys

import ezdxf
from ezdxf.proxygraphic import ProxyGraphic


def describe(entity, document):
    found = {"kind": entity.dxftype(), "color": entity.dxf.color}
    if entity.dxftype() == "POLYLINE":
        found["points"] = [tuple(vertex.dxf.location) for vertex in entity.vertices]
    elif entity.dxftype() == "TEXT":
        style = document.styles.get(entity.dxf.style)
        found.update(
            points=[tuple(entity.dxf.insert)], text=entity.dxf.text, height=entity.dxf.height,
            width=entity.dxf.width, oblique=entity.dxf.oblique, rotation=entity.dxf.rotation,
            font=style.dxf.font, bigFont=style.dxf.bigfont)
    return found


for line in sys.stdin:
    document = ezdxf.new("R2000")
    graphics = ProxyGraphic(bytes.fromhex(line), document)
    print(json.dumps([describe(entity, document) for entity in graphics.virtual_entities()]))
