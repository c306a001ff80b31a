#!/usr/bin/env python3
"""hostile_sweep.py PROGRAM [--points N] [--seed N] [--only WHAT]: the tool with values that nobody expects.

WHAT is one of texts, numbers, names, keys, dialog, sizes; without it all but the last two. Each text and each number of
an NC file, a job, a format file and a table of remnants is replaced by each value, once each (or N of them, drawn by
the seed), and NC files get names of this kind. The keys are all that a job and a format file can have, by the files of
which the tests tell that they have each: each value of them becomes each text and each number. Every call has to end
with a documented exit code and words; what it writes has to be whole: JSON that can be read, a page without an element
more, CSV without a formula, no control characters in any file or on the terminal, names that every system takes.

The dialog: camjob_dialog_tests beside PROGRAM enters each text in each field, and shows it from the job.

The sizes are files with up to a million features of one kind: those within the limits take time and memory that grow
no faster than they do, those beyond are refused with their line.
"""

import csv
import html.parser
import io
import itertools
import json
import os
import pathlib
import random
import re
import resource
import shutil
import subprocess
import sys
import tempfile
import time
import typing
import xml.etree.ElementTree

from outcomes import options_of

NC = """ST
  ORDER
  DRAWING
  PHASE
  P1
  S355
  4
  Z200x2.0
  SO
  6000.00
  200.00
  140.00
  2.00
  2.00
  4.00
  6.000
  0.680
  0.000
  0.000
  0.000
  0.000
  INFO1
  INFO2
  INFO3
  INFO4
BO
  v  100.00u  60.00  18.00
  v  300.00u  60.00  14.00   0.00l  20.00   0.00   0.00
  v  600.00u  60.00  30.00   5.00l  20.00  10.00  15.00
  o  500.00s  37.00  11.00
AK
  v    0.00u   0.00   0.00   0.00   0.00   0.00   0.00
  6000.00   0.00   0.00   0.00   0.00   0.00   0.00
  6000.00 200.00   0.00   0.00   0.00   0.00   0.00
  60.00 200.00w  5.00   0.00   0.00   0.00   0.00
  60.00 160.00   0.00  10.00  20.00   0.00   0.00
  0.00 160.00   0.00   0.00   0.00   0.00   0.00
  0.00   0.00   0.00   0.00   0.00   0.00   0.00
IK
  v 2000.00u  50.00  60.00   0.00   0.00   0.00   0.00
  2100.00  50.00   0.00   0.00   0.00   0.00   0.00
  2050.00 100.00   0.00   0.00   0.00   0.00   0.00
  2000.00  50.00   0.00   0.00   0.00   0.00   0.00
SI
  v   50.00u  100.00  30.00  10 MARKED
KO
  v  700.00u  50.00
PU
  v  700.00u  50.00 0
  800.00 60.00 10.00
SC
  6000.00 0.00 0.00 1.00 0.10 0.00
E1
  0.00 0.00 10.00 100.00 0.00 10.00
  0.00 100.00 10.00
B1
  50.00 50.00 10.00
KA
  10.00 20.00 30.00 40.00 50.00
EN
"""
JOB = """[job]
name = "Job"
nc_files = ["nc/*.nc1"]
output = "out"
date = 2026-03-02
max_quantity = 2147483647
[project]
caption = "Caption"
file_name = "x"
settings_file = "settings.txt"
client = "Client"
comments = ["Comment"]
revision_date = "2026-03-02"
delivery_address = ["Yard"]
comment_marker = "** "
[tolerances]
eps = 0.1
general = 0.5
x = 0.5
y = 0.5
angle = 0.5
edge_distance = -1.5
distance_from_face = -1.0
end_distance = -1.5
[cutting]
effort = 10
remnants = "remnants.csv"
[[file]]
id = "order"
header = ["Header"]
[[file]]
id = "rows"
ending = "-rows.csv"
format = "csv"
[[file]]
id = "line"
ending = "-line.txt"
format = "line.toml"
[[file]]
id = "nc"
format = "dstv"
folder = "nc"
names = "{file_name}-{mark}.nc1"
[[group]]
id = "all"
files = ["order", "rows", "line", "nc"]
header = ["Group"]
nesting = true
[[stock]]
profile = "*"
length = 12000
price = 12.5
quantity = 90
kerf = 3.0
grip_start = 10.0
grip_end = 10.0
least_offcut = 500
[[member_type]]
id = "any"
description = "Description"
group = "all"
thickness = { source = "fixed", value = 2.0 }
slope = { source = "fixed", value = 0.0 }
top_flange = { zero = 0.0 }
name_start = 1
name_length = 7
marks = true
[member_type.limits]
max_holes = 1000
max_internal_contours = 1000
min_length = 1
max_length = 99000
[member_type.report]
unwritable = "warning"
hole_distance = "warning"
[[hole_rule]]
id = "bolt"
diameters = [18.0]
back_marks = [60.0]
excluded_members = ["Y"]
member_name_length = 2
code = "B{diameter:.0f}"
pairs = [{ code = "B", spacing = 40.0, prefix = "y " }]
group = { code = "DUO", holes = 2 }
[uncovered_holes]
action = "accept"
code = "D{diameter:.0f}"
[[corner_notch]]
id = "corner"
face = "web"
corners = 4
output = "C%.1f-%.1f"
values = ["length", "width"]
[uncovered_notches]
action = "accept"
code = "CUT"
[[trim]]
id = "any"
code = "OFF"
[[assembly]]
main = "P1"
parts = [{ mark = "Q1", count = 1 }]
[additional_info]
members = ["Members"]
errors = ["Errors"]
order = ["errors", "members"]
[reports]
sources = true
"""
FORMAT = """[format]
name = "Line"
other_faces = "Z"
other_tools = "99"
other_profiles = "OTHER"
[numbers]
decimals = 1
angle_decimals = 2
[texts]
quotes = "needed"
escapes = "doubled"
forbidden = ";"
longest = 20
too_long = "cut"
[[face]]
face = "web"
name = "W"
x_offset = 10.0
y_offset = -5.5
[[tool]]
kind = "slot"
diameter = 14.0
length = 34.0
number = "12"
[[profile]]
profile = "Z200*"
name = "Z8"
[[line]]
for = ["file_start"]
text = ["{file_name}"]
[[line]]
for = ["member"]
text = ["M {mark} {length:>8.1f}"]
[[line]]
for = ["hole", "slot"]
codes = ["B*"]
repeat = "y"
least = 3
text = ["R {x} {y} {count} {pitch}"]
[[line]]
for = ["hole", "slot"]
text = ["H {face} {tool} {x} {y} {code}"]
"""
REMNANTS = "profile,material,length,quantity,name\nZ200x2.0,S355,2350,1,Rack\n"
SOUND = {"nc/p.nc1": NC, "nc/q.nc1": NC.replace("  P1\n", "  Q1\n"), "job.toml": JOB, "line.toml": FORMAT,
         "remnants.csv": REMNANTS}
CHANGED = ["nc/p.nc1", "job.toml", "line.toml", "remnants.csv"]


def sound_keys():
    """A job and a format file with every key."""
    folder = pathlib.Path(__file__).resolve().parents[2] / "job"
    job = (folder / "good-job.toml").read_text("utf-8")
    for usual, other in [('html = false\nrun_document = false', "html = true\nrun_document = true"),
                         ('files = ["order", "plates"]', 'files = ["order", "plates", "line"]')]:
        if usual not in job:
            sys.exit(f"hostile_sweep.py: good-job.toml has no {usual!r}")
        job = job.replace(usual, other)
    job += '[[file]]\nid = "line"\nending = "-line.txt"\nformat = "line.toml"\n'
    form = (folder / "good-format.toml").read_text("utf-8").replace('"windows-1252"', '"utf-8"')
    # Without what the reader warns of: the job refuses that. Two that are made, and two with findings.
    full = re.sub(r".* 5.00l .*\n", "", NC).replace("w  5.00", "   0.00").replace("6000.00", "3900.00")
    made = full[:full.index("BO\n")] + full[full.index("SI\n"):]
    made = made[:made.index("SC\n")] + made[made.index("KA\n"):]
    return {"nc/M1.nc1": made, "nc/C1.nc1": made, "nc/C2.nc1": full, "more/Träger.nc1": full, "job.toml": job,
            "line.toml": form, "good-remnants.csv": (folder / "good-remnants.csv").read_text("utf-8")}


CONTROLS = [*range(1, 9), *range(11, 32), 0x7F, 0x80, 0x85, 0x9F, 0xA0, 0xAD, 0x61C, 0x200B, 0x200E, 0x200F, 0x2028,
            0x2029, 0x202A, 0x202E, 0x2066, 0x2069, 0xFEFF, 0xFFFD, 0xFFFE, 0xFFFF, 0x1F600, 0xE000, 0x10FFFF, 0x300]
TEXTS = [*(f"A{chr(c)}B" for c in CONTROLS), "", " ", "A\0B", b"A\xff\xfeB", b"A\xc0\xafB", b"A\xed\xa0\x80B",
         b"A\xe2\x82", *"""A;B|A,B|A"B|"|""|A'B|'A|A\\B|\\|A/B|../A|..|.|A	B|/proc/x|C:\\x|CON|con.txt|NUL|COM1|LPT9|
COM1.nc1|COM¹|CONIN$|A.|.A|A  B|=1+1|=cmd|' /C calc'!A0|+A|-A|-5|@SUM(1)|＝1+1|<b>x</b>|<img src=x onerror=alert(1)>|
</script><script>alert(1)</script>|<!--<script>|-->|]]>|&amp;|&#0;|" onload="x|' onload='x|{mark}|{}|{|}|{mark:.999999f}|
%s%n|%d|%.9999999f|$(x)|`x`|\\u001B|\\n|0|1e5|TRUE|P1,2|#A|**A|ST|EN|BO|E1|nan|-0|A*B|A?B|A:B|A<B|A>B|[x]|\"\"\"|'''|
İ|ß|ǅ|-|A=B|end|member x|\u202eABC""".replace("\n", "").split("|"), "x" * 79, "x" * 256, "é" * 130, "x" * 1001,
         "x" * 100000, "\U0001F600" * 70, "A\nB", "A\r\nEN\r\nB"]
NUMBERS = ["0", "-0", "-0.0", "-1", "1", "1e308", "1e309", "-1e308", "4.9e-324", "1e-400", "nan", "-nan", "inf", "-inf",
           "2147483647", "2147483648", "-2147483648", "4294967296", "9007199254740993", "9223372036854775807",
           "9223372036854775808", "-9223372036854775808", "1e9", "1000000000", "1000000001", "0x10", "1_000", "1e",
           "1.2.3", "--1", "+1", "1,5", "999999999.999", "1e-7", "٣", "0" * 1000 + "1", "1" * 400, "true", '"5"', "[1]",
           "{}", "2026-02-30"]

CALLS = {
    "run": ["run", "job.toml", "--notes"],
    "run --json": ["run", "job.toml", "--json"],
    "check --json": ["check", "--json", "--job", "job.toml", "nc"],
    "show": ["show", "nc", "--job", "job.toml", "--out", "shown"],
    "show --dxf": ["show", "nc", "--dxf", "--out", "shown"],
    "init": ["init", "draft", "--from", "nc"],
    "run of the draft": ["run", "draft/job.toml"],
}


class Shop(typing.NamedTuple):
    """Files in which values are changed, what is called with them, and where that writes."""
    files: dict
    calls: dict
    folders: list
    page: str


SHOP = Shop(SOUND, CALLS, ["out", "shown"], "out/x-report.html")
KEYS = Shop(sound_keys(), {call: CALLS[call] for call in ("run", "run --json", "check --json")}, ["made"],
            "made/hall7-report.html")
RAW = re.compile("[\0-\x08\x0b-\x1f\x7f-\x9f]")
TURNING = re.compile("[\u061c\u200e\u200f\u2028-\u202e\u2066-\u2069]")
FORMULA = re.compile("^[=+\\-@\t\r＝＋－＠]")
NUMBER = re.compile(r"^-?\d+(\.\d+)?$")
BAD_NAME = re.compile(r'[<>:"\\|?*\0-\x1f\x7f-\x9f]|[. ]$|^(con|prn|aux|nul|conin\$|conout\$|(com|lpt)[0-9¹²³])( *\.|$)', re.I)
RECORD = re.compile(r'\w+( \w+=("([^"\\]|\\.)*"|[^" ]*))*$')


class Elements(html.parser.HTMLParser):
    """Names of the elements and of their attributes."""

    def __init__(self, text):
        super().__init__()
        self.names = set()
        self.scripts = 0
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        self.scripts += tag == "script"
        self.names |= {tag, *(f"{tag} {name}" for name, _ in attributes)}


def as_bytes(text):
    return text if isinstance(text, bytes) else text.encode("utf-8", "surrogatepass")


def quoted(value):
    """A text as TOML has it; a byte that is none stays as it is."""
    if isinstance(value, bytes):
        return b'"' + value + b'"'
    escaped = "".join({'"': '\\"', "\\": "\\\\"}.get(c) or (f"\\u{ord(c):04X}" if ord(c) < 32 or 127 <= ord(c) < 160 else c)
                      for c in value)
    return f'"{escaped}"'.encode("utf-8", "surrogatepass")


def places(name, what):
    """Begin and end of each text, or each number, of a file."""
    text = SOUND[name]
    if what == "numbers":
        found = re.finditer(r"(?<![\w.\"{%:-])-?\d+(?:\.\d+)?(?=[a-z]?[^\w.\"-])", text)
    elif name.endswith(".toml"):
        found = re.finditer(r'"(?:\\.|[^"\\])*"', text)
    else:
        found = re.finditer(r"(?<=  )[A-Z]\w+(?:\.\d)?|(?<= )MARKED|(?<=[\n,])(?:Z200x2.0|S355|Rack)", text)
    return [match.span() for match in found]


def key_places(text):
    """Begin and end of each value of a TOML file: whole lists and tables, and what stands in them."""
    scalar = r'"(?:\\.|[^"\\])*"|true|false|\d{4}-\d\d-\d\d|-?\d+(?:\.\d+)?'
    whole = [match.span(1) for match in re.finditer(r"(?m)^\w+ = ([\[{].*)$", text)]
    return whole + [match.span(1) for match in re.finditer(rf"(?:= |\[|, )({scalar})(?=[\n\],}} ])", text)]


def key_cases():
    for name in ("job.toml", "line.toml"):
        text = KEYS.files[name]
        values = [*map(quoted, TEXTS), *map(as_bytes, NUMBERS)]
        for (begin, end), value in itertools.product(key_places(text), values):
            line = text.count("\n", 0, begin) + 1
            yield (f"{name}:{line}: {value[:40]!r} for {text[begin:end]}",
                   {**KEYS.files, name: as_bytes(text[:begin]) + value + as_bytes(text[end:])})


def cases(what):
    """(name of the case, files)."""
    if what == "keys":
        yield from key_cases()
        return
    if what == "names":
        for value in TEXTS:
            name = as_bytes(value)
            if name and len(name) < 240 and not set(name) & set(b"/\0"):
                yield f"NC file {value!r}", {**SOUND, b"nc/" + name + b".nc1": NC.replace("  P1\n", "  N1\n")}
        return
    values = TEXTS if what == "texts" else NUMBERS
    for name in CHANGED:
        text = SOUND[name]
        for (begin, end), value in itertools.product(places(name, what), values):
            put = quoted(value) if what == "texts" and name.endswith(".toml") else as_bytes(value)
            line = text.count("\n", 0, begin) + 1
            yield (f"{name}:{line}: {value[:40]!r} for {text[begin:end]}",
                   {**SOUND, name: as_bytes(text[:begin]) + put + as_bytes(text[end:])})


def lay(folder, files):
    shutil.rmtree(folder, ignore_errors=True)
    for name, content in files.items():
        path = os.path.join(os.fsencode(folder), as_bytes(name))
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(as_bytes(content))


def faults_of_terminal(stream, content):
    try:
        text = content.decode("utf-8")
    except UnicodeDecodeError as error:
        return [f"{stream} is no UTF-8: {error}"]
    found = RAW.search(text) or TURNING.search(text)
    return [f"{stream} has {found[0]!r} in {text[max(0, found.start() - 40):found.end()]!r}"] if found else []


def faults_of_csv(text):
    rows = [row for row in csv.reader(io.StringIO(text, newline="")) if row]
    if len({len(row) for row in rows}) > 1:
        yield "rows of several lengths"
    yield from (f"a formula: {cell[:40]!r}" for row in rows for cell in row
                if FORMULA.match(cell) and not NUMBER.match(cell))


def faults_of_file(path, name, elements):
    # Drawings lie beside NC files of these names, where they come from.
    if path.suffix not in (".svg", ".dxf") and any(BAD_NAME.search(part) for part in pathlib.PurePath(name).parts):
        yield "a name that not every system takes"
    text = path.read_bytes().decode("utf-8", "replace" if path.name.endswith("-line.txt") else "strict")
    found = RAW.search(text.replace("\r\n", "\n"))
    if found:
        yield f"{found[0]!r} in {text[max(0, found.start() - 40):found.end()]!r}"
    if path.suffix == ".csv":
        yield from faults_of_csv(text)
    elif path.suffix == ".json":
        json.loads(text)
    elif path.suffix == ".svg":
        xml.etree.ElementTree.fromstring(text)
    elif path.suffix == ".html":
        page = Elements(text)
        more = page.names - elements.names
        if elements.names and (more or page.scripts != elements.scripts):
            yield f"elements that were not there: {sorted(more)}, {page.scripts} scripts"
    elif path.name.endswith("-orders.txt"):
        kinds = r"(member|hole|countersunk|slot|rectangle|notch|outline|trim|mitre|mark) "
        yield from (f"record {line[:100]!r}" for line in text.split("\n")
                    if re.match(kinds, line) and not RECORD.match(line))


def faults_of_output(folder, elements):
    for path in sorted(folder.rglob("*")):
        name = str(path.relative_to(folder))
        if path.is_dir() or name in (".camjob/lock", ".camjob/output"):
            continue
        if ".camjob" in path.parts[len(folder.parts):]:
            yield f"left behind: {name}"
            continue
        try:
            for fault in faults_of_file(path, name, elements):
                yield f"{name!r}: {fault}"
        except (ValueError, xml.etree.ElementTree.ParseError) as error:
            yield f"{name!r}: {error}"


def faults_of_document(text, code, folder):
    """Of a run: either files, each as it says, or faults."""
    try:
        document = json.loads(text)
    except ValueError as error:
        return [f"the document is broken: {error}"]
    if document.get("exitCode", code) != code:
        return ["the document has another exit code"]
    if "exitCode" not in document:
        return []
    if (code < 2) != bool(document["files"]) or (code >= 2) != bool(document["faults"]):
        return [f"exit code {code}, {len(document['files'])} files and {len(document['faults'])} faults"]
    return [f"{file['name']!r} is not there as told" for file in document["files"] if "\ufffd" not in file["name"]
            and os.stat(folder / file["name"]).st_size != file["bytes"]]


def faults_of_outcome(call, done, folder):
    if done.returncode not in (0, 1, 2, 3):
        yield f"exit code {done.returncode}"
    if done.returncode in (2, 3) and not done.stderr and "--json" not in call:
        yield "no words"
    yield from faults_of_terminal("standard output", done.stdout)
    yield from faults_of_terminal("standard error", done.stderr)
    if "--json" in call:
        yield from faults_of_document(done.stdout, done.returncode, folder)


class Sweep:
    def __init__(self, program, shop, scratch):
        self.program = program
        self.shop = shop
        self.folder = scratch / "case"
        self.faults = 0
        self.calls = 0
        self.codes = {}
        self.elements = Elements("")
        self.try_case("the sound files", shop.files)
        if self.codes.get(("run", 0), 0) + self.codes.get(("run", 1), 0) != 1:
            sys.exit("hostile_sweep.py: the sound files are not made")
        self.elements = Elements((self.folder / shop.page).read_text("utf-8"))

    def try_case(self, name, files):
        lay(self.folder, files)
        for call, arguments in self.shop.calls.items():
            if call == "run of the draft" and not (self.folder / "draft" / "job.toml").exists():
                continue
            self.calls += 1
            try:
                done = subprocess.run([self.program, *arguments], cwd=self.folder, capture_output=True, timeout=60)
            except subprocess.TimeoutExpired:
                self.tell(name, call, "it does not end")
                continue
            self.codes[call, done.returncode] = self.codes.get((call, done.returncode), 0) + 1
            for fault in faults_of_outcome(call, done, self.folder):
                self.tell(name, call, fault)
        for folder in self.shop.folders:
            for fault in faults_of_output(self.folder / folder, self.elements):
                self.tell(name, folder, fault)

    def tell(self, name, call, fault):
        self.faults += 1
        print(f"{name}: {call}: {fault}", flush=True)


def sweep(program, what, points, seed, scratch):
    run = Sweep(program, KEYS if what == "keys" else SHOP, scratch)
    every = list(cases(what))
    chosen = random.Random(seed).sample(every, min(points or len(every), len(every)))
    for name, files in chosen:
        run.try_case(name, files)
    ended = ", ".join(f"{sum(n for (_, c), n in run.codes.items() if c == code)} with {code}"
                      for code in sorted({code for _, code in run.codes}))
    print(f"{what}: {len(chosen)} of {len(every)} cases, {run.calls} calls, ended {ended}: {run.faults} faults")
    return run.faults


def dialog(program, scratch):
    """Texts that are UTF-8: others cannot be entered."""
    texts = scratch / "texts.json"
    texts.write_text(json.dumps([text for text in TEXTS if isinstance(text, str)]), "utf-8")
    done = subprocess.run([program.with_name("camjob_dialog_tests"), "--gtest_filter=*.Whatever*", "--gtest_brief=1"],
                          env={**os.environ, "CAMJOB_UNEXPECTED_TEXTS": texts}, stderr=subprocess.DEVNULL, check=False)
    return done.returncode


def opening(x):
    rows = [f"  v {x:.3f} 50.00", f"  {x + 2:.3f} 50.00", f"  {x + 1:.3f} 60.00", f"  {x:.3f} 50.00"]
    return "".join(f"{row} 0.00 0.00 0.00 0.00 0.00\n" for row in rows)


def holes(n):
    return "BO\n" + "".join(f"  v {20 + i % 2000 * 2.9:.2f}u {20 + i // 2000 * 3:.2f} 2.00\n" for i in range(n))


def holes_at_one_place(n):
    return "BO\n" + "  v 100.00u 60.00 18.00\n" * n


def slots_in_slots(n):
    """Each in all before it."""
    return "BO\n" + "".join(f"  v {100 + 41 * i} 100 20 0.00l 90000 0 0\n" for i in range(n))


def points(n):
    """An outline with teeth."""
    middle = [(5990 - 5980 * i / n, 150 + 40 * (i % 2)) for i in range(n)]
    rows = [(0, 0), (6000, 0), (6000, 200), *middle, (0, 200), (0, 0)]
    return "AK\n" + "".join(f"  {'v' * (i == 0)} {x:.3f} {y:.3f} 0 0 0 0 0\n" for i, (x, y) in enumerate(rows))


def points_on_a_line(n):
    return "IK\n  v 100 100 0 0 0 0 0\n" + "".join(
        f"  {100 + i * .001:.3f} 100.00 0 0 0 0 0\n" for i in range(n)) + "  100 100 0 0 0 0 0\n"


def openings(n):
    return "".join("IK\n" + opening(20 + 5900 * i / n) for i in range(n))


# Kind of features, sizes that are made, of which each has twice as much to be done as the one before, and one that
# is refused.
SIZES = [
    (holes, (25_000, 50_000, 100_000), 1_000_000),
    (holes_at_one_place, (25_000, 50_000, 100_000), 1_000_000),
    (slots_in_slots, (500, 707, 1_000), 100_000),
    (points, (50_000, 100_000, 199_000), 1_000_000),
    (openings, (10_000, 20_000, 40_000), 250_000),
    (points_on_a_line, (), 1_000_000),
]
# Twice the work: no more than so many times the processor time and the memory.
MOST_GROWTH = 3.0
MOST_SECONDS = 20.0


def measured(program, folder):
    """Exit code, words, seconds of the processor and MB of one run."""
    with open(folder / "words", "wb") as words:
        process = subprocess.Popen([program, "run", "job.toml"], cwd=folder, stdout=subprocess.DEVNULL, stderr=words,
                                   preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_CPU, (300, 300)))
        _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    told = (folder / "words").read_text("utf-8")
    return process.returncode, told, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def sizes(program, scratch):
    faults = 0
    folder = scratch / "size"
    for kind, made, refused in SIZES:
        before = None
        for n in [*made, refused]:
            body = NC[:NC.index("BO\n")] + kind(n) + "EN\n"
            lay(folder, {**SOUND, "nc/p.nc1": body, "job.toml": JOB.replace("= 1000\n", "= 1000000\n")})
            code, told, seconds, memory = measured(program, folder)
            wrong = []
            if n == refused:
                refusals = re.findall(r"^nc/p\.nc1:\d+: (?!warning)", told, re.M)
                if code != 2 or not refusals:
                    wrong.append(f"exit code {code}, {len(refusals)} refusals with a line: {told[:200]!r}")
                if seconds > MOST_SECONDS:
                    wrong.append("it takes too long")
            elif code not in (0, 1):
                wrong.append(f"exit code {code}: {told[:200]!r}")
            elif before and (seconds > MOST_GROWTH * max(before[0], 0.2) or memory > MOST_GROWTH * before[1]):
                wrong.append(f"it grows faster than its input: {before[0]:.2f} s and {before[1]:.0f} MB before")
            before = seconds, memory
            print(f"{kind.__name__} {n}: exit code {code}, {seconds:.2f} s, {memory:.0f} MB {'; '.join(wrong)}", flush=True)
            faults += len(wrong)
    return faults


def main():
    options = options_of(__doc__)
    program = options.program.resolve()
    with tempfile.TemporaryDirectory() as name:
        scratch = pathlib.Path(name)
        if options.only == "sizes":
            sys.exit(1 if sizes(program, scratch) else 0)
        if options.only == "dialog":
            sys.exit(dialog(program, scratch))
        kinds = [options.only] if options.only else ["texts", "numbers", "names", "keys"]
        sys.exit(1 if sum(sweep(program, what, options.points, options.seed, scratch) for what in kinds) else 0)


if __name__ == "__main__":
    main()
