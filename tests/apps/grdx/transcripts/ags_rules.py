"""Holds a file against the rules of the AGS4 form (edition 4.1.1), one by one, and prints each breach.

usage: ags_rules.py FILE

KNOWN has what the form's dictionary says of the groups that hold gradings: headings in their order, those of
the key first.
"""
import re
import sys

SAMPLE = ["LOCA_ID", "SAMP_TOP", "SAMP_REF", "SAMP_TYPE", "SAMP_ID"]
SPECIMEN = SAMPLE + ["SPEC_REF", "SPEC_DPTH"]
# Group: its key, headings that need a value, others in their order, the group above.
KNOWN = {
    "PROJ": (["PROJ_ID"], ["PROJ_ID"], ["PROJ_NAME"], None),
    "TRAN": (["TRAN_ISNO"], ["TRAN_ISNO", "TRAN_DATE", "TRAN_PROD", "TRAN_STAT", "TRAN_AGS", "TRAN_RECV"],
             ["TRAN_DATE", "TRAN_PROD", "TRAN_STAT", "TRAN_DESC", "TRAN_AGS", "TRAN_RECV", "TRAN_DLIM",
              "TRAN_RCON"], None),
    "TYPE": (["TYPE_TYPE"], ["TYPE_TYPE", "TYPE_DESC"], ["TYPE_DESC"], None),
    "UNIT": (["UNIT_UNIT"], ["UNIT_UNIT", "UNIT_DESC"], ["UNIT_DESC"], None),
    "ABBR": (["ABBR_HDNG", "ABBR_CODE"], ["ABBR_HDNG", "ABBR_CODE", "ABBR_DESC"], ["ABBR_DESC"], None),
    "DICT": (["DICT_TYPE", "DICT_GRP", "DICT_HDNG"], ["DICT_TYPE", "DICT_GRP", "DICT_DESC"],
             ["DICT_STAT", "DICT_DTYP", "DICT_DESC", "DICT_UNIT"], None),
    "LOCA": (["LOCA_ID"], [], [], None),
    "SAMP": (SAMPLE, [], ["SAMP_BASE"], "LOCA"),
    "GRAG": (SPECIMEN, [], ["GRAG_UC", "GRAG_METH"], "SAMP"),
    "GRAT": (SPECIMEN + ["GRAT_SIZE"], [], ["GRAT_PERP"], "GRAG"),
}


def figures(value, count):
    """The digits of a number from the first that is not 0 on are as many as its type says."""
    digits = value.lstrip("-0.").replace(".", "")
    return len(digits) == count or ("." not in value and len(digits.rstrip("0")) <= count <= len(digits))


def fits(kind, value):
    if kind[1:] == "DP":
        return re.fullmatch(r"-?\d+" + (rf"\.\d{{{kind[0]}}}" if kind[0] != "0" else ""), value)
    if kind[1:] == "SF":
        return re.fullmatch(r"-?\d+(\.\d+)?", value) and figures(value, int(kind[0]))
    return kind != "DT" or re.fullmatch(r"\d{4}-\d\d-\d\d", value)


def breaches(data):
    groups, group = {}, None
    lines = data.split(b"\r\n")
    for number, line in enumerate(lines, 1):
        def told(rule, what):
            return f"rule {rule}, line {number}: {what}"
        if any(byte > 126 or byte < 32 for byte in line):
            yield told("1 or 2a", "other than ASCII in lines that end with CR LF")
        text = line.decode()
        if not text:
            continue
        if not re.fullmatch(r'"(?:[^"]|"")*"(?:,"(?:[^"]|"")*")*', text):
            yield told("5 and 6", "fields are in quotes, with commas between")
        kind, *fields = [field.replace('""', '"') for field in re.findall(r'"((?:[^"]|"")*)"', text)]
        if kind == "GROUP":
            group = {"rows": []}
            groups[fields[0]] = group
            if len(fields) != 1 or not re.fullmatch(r"[A-Z]{4}", fields[0]):
                yield told("4 and 19", "a group's line has its name of four letters")
        elif kind == "DATA":
            row = dict(zip(group["HEADING"], fields))
            group["rows"].append(row)
            for heading, form in zip(group["HEADING"], group["TYPE"]):
                if row.get(heading) and not fits(form, row[heading]):
                    yield told(8, f"{heading} {row[heading]} is not {form}")
        else:
            if kind not in ("HEADING", "UNIT", "TYPE") or kind in group or ("UNIT" in group) != (kind == "TYPE"):
                yield told("2b and 3", f"{kind} out of place")
            group[kind] = fields
        if kind != "GROUP" and len(fields) != len(group["HEADING"]):
            yield told(4, "as many fields as headings")
    for name in ("PROJ", "TRAN"):
        if len(groups.get(name, {"rows": []})["rows"]) != 1:
            yield f"rules 13 and 14: one line in {name}"
    own = [(row["DICT_GRP"], row["DICT_HDNG"]) for row in groups.get("DICT", {"rows": []})["rows"]]
    codes = {(row["ABBR_HDNG"], row["ABBR_CODE"]) for row in groups.get("ABBR", {"rows": []})["rows"]}
    for name, group in groups.items():
        key, needed, others, above = KNOWN[name]
        if not group["rows"]:
            yield f"rule 2: {name} has no data"
        headings = key + others + [heading for of, heading in own if of == name]
        if group["HEADING"] != [heading for heading in headings if heading in group["HEADING"]]:
            yield f"rules 7, 9 and 18: headings of {name}"
        if set(key) - set(group["HEADING"]):
            yield f"rule 10a: {name} without its key"
        rows = [tuple(row[heading] for heading in key) for row in group["rows"]]
        if len(set(rows)) != len(rows):
            yield f"rule 10a: a key twice in {name}"
        if any(not row.get(heading) for row in group["rows"] for heading in needed):
            yield f"rule 10b: an empty value in {name}"
        if above:
            parents = KNOWN[above][0]
            there = {tuple(row[heading] for heading in parents) for row in groups[above]["rows"]}
            if any(tuple(row[heading] for heading in parents) not in there for row in group["rows"]):
                yield f"rule 10c: {name} without its line in {above}"
        for heading, unit, kind in zip(group["HEADING"], group["UNIT"], group["TYPE"]):
            values = {row[heading] for row in group["rows"]} - {""}
            if kind == "PA" and not {(heading, value) for value in values} <= codes:
                yield f"rule 16: {heading} has codes that ABBR has not"
            units = ({unit} | (values if kind == "PU" else set())) - {""}
            kinds = {kind} | (values if kind == "PT" else set())
            if not units <= {row["UNIT_UNIT"] for row in groups["UNIT"]["rows"]}:
                yield f"rule 15: units of {heading}"
            if not kinds <= {row["TYPE_TYPE"] for row in groups["TYPE"]["rows"]}:
                yield f"rule 17: types of {heading}"
        if any(not re.fullmatch(r"[A-Z]{4}_[A-Z0-9]{1,4}", heading) for heading in group["HEADING"]):
            yield f"rule 19: names of headings in {name}"
    if not data.endswith(b"\r\n"):
        yield "rule 2a: the last line has no end"


found = list(breaches(open(sys.argv[1], "rb").read()))
print("\n".join(found) if found else "no breach")
