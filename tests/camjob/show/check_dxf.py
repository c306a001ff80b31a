"""check_dxf.py FOLDER: the DXF files of a folder against its check.json."""

import collections
import json
import math
import pathlib
import sys

import ezdxf

GAP = 50.0
NEAR = 1e-3


def layer_of(hole):
    if hole["setAside"] == "countersink":
        return "COUNTERSINKS"
    if hole["setAside"]:
        return "SET_ASIDE"
    words = {"slot": "SLOTS", "square": "RECTANGLES", "rectangular": "RECTANGLES"}
    return words.get(hole["shape"], "HOLES")


def offsets(header):
    """Where Y of each face is 0 in the drawing."""
    return {
        "web": 0.0,
        "bottom flange": -header["width"] - GAP,
        "top flange": header["height"] + GAP,
        "web back": header["height"] + header["width"] + 2 * GAP,
    }


def box(entity):
    """The middle and the size of a shape; a half circle of a slot reaches beyond its corners."""
    if entity.dxftype() == "CIRCLE":
        centre, radius = entity.dxf.center, entity.dxf.radius
        return (centre.x, centre.y, 2 * radius, 2 * radius)
    points = [point for piece in entity.virtual_entities() for point in flat(piece)]
    low = [min(p[i] for p in points) for i in (0, 1)]
    high = [max(p[i] for p in points) for i in (0, 1)]
    return tuple((low[i] + high[i]) / 2 for i in (0, 1)) + tuple(high[i] - low[i] for i in (0, 1))


def flat(piece):
    if piece.dxftype() == "ARC":
        return list(piece.flattening(1e-4))
    return [piece.dxf.start, piece.dxf.end]


def expected_box(hole, offset):
    size, length = hole["size"], hole["length"] or hole["size"]
    angle = math.radians(hole["angle"] or 0.0)
    spread = [(length - size) * abs(turn(angle)) + size for turn in (math.cos, math.sin)]
    if hole["shape"] in ("rectangular", "square"):
        spread = [length, size]
    return (hole["x"], hole["y"] + offset, *spread)


def check(file, part):
    document = ezdxf.readfile(file)
    complaints = [error.message for error in document.audit().errors]
    if document.dxfversion != "AC1009" or document.header["$INSUNITS"] != 4:
        complaints.append("not R12 in mm")
    shapes = collections.defaultdict(list)
    for entity in document.modelspace():
        if entity.dxf.layer not in document.layers:
            complaints.append(f"{entity.dxf.layer} is not declared")
        if entity.dxftype() == "POLYLINE" and not entity.is_closed and not entity.dxf.layer.endswith(("MARKS", "TRIMS", "MITRES")):
            complaints.append(f"an open outline on {entity.dxf.layer}")
        if entity.dxftype() in ("CIRCLE", "POLYLINE"):
            shapes[entity.dxf.layer].append(entity)
    found = 0
    for hole in part["holes"]:
        if hole["face"] not in offsets(part["header"]):
            continue
        layer = hole["face"].upper().replace(" ", "_") + "_" + layer_of(hole)
        wanted = expected_box(hole, offsets(part["header"])[hole["face"]])
        fitting = [e for e in shapes[layer] if max(abs(a - b) for a, b in zip(box(e), wanted)) < NEAR]
        if not fitting:
            complaints.append(f"line {hole['line']}: nothing on {layer} at {wanted}")
            continue
        shapes[layer].remove(fitting[0])
        found += 1
    for notch in part["notches"]:
        if notch["holeLine"] is not None or notch["duplicate"] or notch["face"] not in offsets(part["header"]):
            continue
        layer = notch["face"].upper().replace(" ", "_") + ("_OPENINGS" if notch["internal"] else "_NOTCHES")
        isRectangle = notch["length"] is not None and not notch["turned"]
        wanted = (notch["x"], notch["y"] + offsets(part["header"])[notch["face"]], notch["length"], notch["width"])
        fitting = [e for e in shapes[layer] if not isRectangle or max(abs(a - b) for a, b in zip(box(e), wanted)) < NEAR]
        if not fitting:
            complaints.append(f"notch of {part['file']}: nothing on {layer} at {wanted}")
            continue
        shapes[layer].remove(fitting[0])
        found += 1
    for layer, left in shapes.items():
        if left and not layer.startswith("PLANE") and layer.split("_")[-1] in ("HOLES", "SLOTS", "COUNTERSINKS", "RECTANGLES", "OPENINGS", "NOTCHES"):
            complaints.append(f"{len(left)} too many on {layer}")
    outline = [box(e) for e in shapes["WEB_OUTLINE"]]
    header = part["header"]
    around = math.pi if header["profileCode"] in ("RO", "RU") else 1.0
    if (
        len(outline) != 1
        or outline[0][2] > header["length"] + NEAR
        or outline[0][3] > header["height"] * around + NEAR
    ):
        complaints.append(f"outline of the web: {outline}")
    elif header["profileCode"] == "B" and abs(outline[0][2] - header["length"]) + abs(outline[0][3] - header["height"]) > NEAR:
        complaints.append(f"outline of the plate: {outline}")
    return found, complaints


def main(folder):
    parts = [p for p in json.loads((folder / "check.json").read_text())["files"] if p["status"] == "read"]
    holes = faulty = 0
    for part in parts:
        name = pathlib.Path(part["file"]).stem
        found, complaints = check(folder / f"{name}.dxf", part)
        holes += found
        for complaint in complaints:
            faulty += 1
            print(f"{name}.dxf: {complaint}")
    print(f"{len(parts)} drawings, {holes} holes and notches found in place, {faulty} complaints")
    return 1 if faulty or holes < 100 else 0


sys.exit(main(pathlib.Path(sys.argv[1])))
