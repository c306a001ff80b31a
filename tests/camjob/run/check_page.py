"""check_page.py CAMJOB EXAMPLES [PICTURES]: a browser reads the page of the example job, and of a revision of it."""

import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

from browser import Browser

MARK = "</script><b>\"'&\u202e"
HOLES_OUTSIDE = "BO\n  v 5200.00u 20.00 14.00\n  v 100.00u 900.00 14.00\n"
STATES = {"error": 3, "warning": 2, "in order": 1}
complaints = 0


def expect(what, found, wanted):
    global complaints
    if found != wanted:
        complaints += 1
        print(f"{what}:\n  found  {str(found)[:600]}\n  wanted {str(wanted)[:600]}")


def revise(job, mark, more=""):
    """Holes moved, a quantity changed, a member less; one more by this mark, with lines more."""
    part = job / "nc" / "P1.nc1"
    text = part.read_text(encoding="utf-8").replace("2475.00u  100.00  14.00", "2485.00u  100.00  14.00")
    text = text.replace("2515.00u  100.00  14.00", "2525.00u  100.00  14.00")
    part.write_text(text.replace("\n  17\n", "\n  18\n", 1), encoding="utf-8")
    (job / "nc" / "R2.nc1").unlink()
    added = (job / "nc" / "R1.nc1").read_text(encoding="utf-8").replace("\n  R1\n", f"\n  {mark}\n", 1)
    (job / "nc" / "X1.nc1").write_text(added.replace("EN\n", more + "EN\n"), encoding="utf-8")


def run_job(camjob, scratch):
    done = subprocess.run([camjob, "run", "job/warehouse.toml", "--out", "made", "--json"], cwd=scratch,
                          capture_output=True)
    if done.returncode > 1:
        sys.exit(done.stdout.decode() + done.stderr.decode())
    return json.loads(done.stdout)


def status(member):
    return "error" if not member["valid"] else "warning" if member["warnings"] else "in order"


def shown(value):
    """A number as the page writes it."""
    return f"{value:.2f}".rstrip("0").rstrip(".") if value else "0"


def tenth(value):
    return f"{value:.1f}".removesuffix(".0")


class PageCheck:
    def __init__(self, browser, run):
        self.browser = browser
        self.run = run
        self.members = run["members"]

    def rows(self):
        return self.browser.run("[...document.querySelectorAll('#rows tr')].map((row) => [...row.cells].map((cell) => cell.textContent))")

    def all_marks(self):
        """Of all rows, wherever the window of rows stands."""
        return self.browser.run("""(async () => { const list = document.getElementById('list'), marks = new Map();
            for (list.scrollTop = 0; ; list.scrollTop += 300) {
              await new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)));
              for (const row of document.querySelectorAll('#rows tr')) marks.set(Number(row.getAttribute('aria-rowindex')), row.cells[0].textContent);
              if (list.scrollTop + list.clientHeight >= list.scrollHeight) break; }
            return [...marks].sort((a, b) => a[0] - b[0]).map(([, mark]) => mark); })()""")

    def check_head(self):
        facts = dict(self.browser.run("[...document.querySelectorAll('.totals div')].map((fact) => [fact.firstElementChild.textContent, fact.lastElementChild.textContent])"))
        groups = self.run["groups"]
        expect("totals", {name: facts[name] for name in ("Members", "Invalid", "With warnings", "Non-standard", "Pieces", "Bars")}, {
            "Members": str(len(self.members)),
            "Invalid": str(sum(group["invalid"] for group in groups)),
            "With warnings": str(sum(group["withWarnings"] for group in groups)),
            "Non-standard": str(sum(group["nonStandard"] for group in groups)),
            "Pieces": str(sum(group["pieces"] for group in groups)),
            "Bars": str(sum(bars["bars"] for bars in self.run["bars"]))})
        steel = [sum(group[name] for group in groups) for name in ("pieces", "length", "weight")]
        sums = {"groups": [["all", str(steel[0]), f"{steel[1] / 1000:.1f}", f"{steel[2] / 1000:.3f}"]], "profiles": []}
        for table in "groups", "profiles":
            heading = {"groups": "Groups", "profiles": "Steel by profile"}[table]
            told = slice(3, 6) if table == "groups" else slice(1, 4)
            rows = self.browser.run("[...document.querySelectorAll('section')].find((one) => one.textContent.startsWith(%s)).querySelectorAll('tbody tr').values().map((row) => [...row.cells].map((cell) => cell.textContent)).toArray()" % json.dumps(heading))
            expect(heading, [[row[0], *row[told]] for row in rows], [
                [one["name" if table == "groups" else "profile"], str(one["pieces"]), f"{one['length'] / 1000:.1f}", f"{one['weight'] / 1000:.3f}"]
                for one in self.run[table]] + sums[table])
        for count in re.findall(r"(\d+) ([a-z ]+)", facts["Features"].split(":")[1]):
            name = {"not for this machine": "not_for_machine"}.get(count[1], count[1].replace(" ", "_"))
            expect(f"features {count[1]}", int(count[0]), self.run["accounts"][name])
        files = dict(self.browser.run("[...document.querySelectorAll('section')].find((one) => one.textContent.startsWith('Files made')).querySelectorAll('tbody tr').values().map((row) => [...row.cells].map((cell) => cell.textContent)).toArray()"))
        expect("files", files, {file["name"].removeprefix("made/"): str(file["bytes"]) if not file["name"].endswith(".html") else "this page" for file in self.run["files"]})

    def check_plans(self):
        rows = self.browser.run("[...document.querySelectorAll('#plans tbody tr')].map((row) => [...row.cells].map((cell) => cell.textContent))")
        names = "barLength", "pieces", "pieceLength", "utilisation", "kerfLoss", "kept", "scrapped", "weight"
        for row, plan in zip(rows, self.run["bars"]):
            values = {**plan, "utilisation": plan["utilisation"] * 100}
            expect(f"totals of {plan['profile']}", row[2:11], [str(plan["bars"]), *(tenth(values[name]) for name in names)])
        expect("bars of all plans", rows[-1][2], str(sum(plan["bars"] for plan in self.run["bars"])))
        bars = self.browser.run("[...document.querySelectorAll('#plans .bar')].map((bar) => [bar.querySelector('.number').textContent.split(' ')[0], [...bar.querySelectorAll('g[data-mark]')].map((piece) => piece.dataset.mark)])")
        expect("bars and pieces", bars, [[str(entry["bar"]), [piece["mark"] for piece in entry["pieces"]]] for plan in self.run["bars"] for entry in plan["entries"]])
        own = [entry for plan in self.run["bars"] for entry in plan["entries"] if any(piece["mark"] == "P1" for piece in entry["pieces"])]
        self.choose(next(m for m in self.members if m["mark"] == "P1"))
        expect("bars of P1", self.browser.run("document.getElementById('member').textContent.includes(%s)" % json.dumps(
            f"purlins: Z200x2.0, S350GD, bars {own[0]['bar']} to {own[-1]['bar'] + own[-1]['count'] - 1}")), True)
        self.browser.click("#plans g[data-mark]")
        expect("member of a piece", self.browser.run("document.querySelector('#member h3 bdi').textContent"), bars[0][1][0])

    def check_table(self):
        browser = self.browser
        expect("marks", self.all_marks(), [member["mark"] for member in self.members])
        browser.run("document.getElementById('list').scrollTop = 0")
        browser.settle()
        first = self.members[0]
        expect("first row", self.rows()[0][:5], [first["mark"], status(first), first["profileName"], shown(first["length"]), str(first["quantity"])])
        for state in STATES:
            key = {"in order": "good"}.get(state, state)
            browser.click(f"[data-state='{key}']")
            expect(f"members with {state}", sorted(self.all_marks()), sorted(m["mark"] for m in self.members if status(m) == state))
        browser.click("[data-state='all']")
        browser.press("/")
        browser.click("#filter")
        browser.type("lenght>5")
        expect("unknown key", "no column is called lenght" in browser.run("document.getElementById('count').textContent"), True)
        browser.run("document.getElementById('filter').value = ''")
        browser.type("profile:z200 length >= 4990 qty>0")
        wanted = [m["mark"] for m in self.members if "Z200" in m["profileName"] and m["length"] >= 4990]
        expect("filtered", self.all_marks(), wanted)
        expect("count", browser.run("document.getElementById('count').textContent"), f"{len(wanted)} of {len(self.members)} members")
        browser.run("(() => { const box = document.getElementById('filter'); box.value = ''; box.dispatchEvent(new Event('input')); })()")
        browser.click("[data-key='length']")
        expect("by length", self.all_marks(), [m["mark"] for m in sorted(self.members, key=lambda m: m["length"])])
        browser.click("[data-key='length']")
        expect("sorted", browser.run("document.querySelector('#headings th[aria-sort=descending]').textContent.trim().slice(0, 6)"), "Length")
        expect("from the longest", self.all_marks()[0], max(self.members, key=lambda m: m["length"])["mark"])

    def choose(self, member):
        self.browser.run(f"(() => {{ location.hash = 'm=' + encodeURIComponent({json.dumps(member['mark'])}); }})()")
        self.browser.settle()

    def check_member(self, member):
        self.choose(member)
        mark = member["mark"]
        found = self.browser.run("""[document.querySelector('#member h3 bdi').textContent,
            [...document.querySelectorAll('#member tr[data-feature]')].map((row) => [...row.cells].slice(0, 7).map((cell) => cell.textContent)),
            [...document.querySelectorAll('#member .findings li')].map((item) => item.textContent)]""")
        expect("heading", found[0], mark)
        features = sorted(
            (f["line"], f["face"], shown(f["x"]), shown(f["y"]), f.get("code") or f.get("text", "")) for f in member["features"] if "face" in f)
        expect(f"features of {mark}", sorted((int(r[0] or 0), r[1], r[4], r[5], r[6]) for r in found[1]), features)
        told = [f for f in member["findings"] if f["report"] not in ("off", "non_standard_silent")]
        expect(f"number of findings of {mark}", len(found[2]), len(told))
        for finding in told:
            place = f" (line {finding['line']})" if finding["line"] else ""
            judged = f" {finding['type']} by {finding['rule']}"
            values = [f"{word} {tenth(finding[word])}" for word in ("required", "found") if finding[word] is not None]
            if not any(finding["text"] + place + judged in text and all(value in text for value in values) for text in found[2]):
                expect(f"findings of {mark}", found[2], [finding["text"] + place + judged, values])

    def check_highlight(self):
        """A finding and its feature light up together, by mouse and by key."""
        member = next(m for m in self.members if sum(f["line"] > 0 for f in m["findings"]) > 1)
        self.choose(member)
        lines = "[...document.querySelectorAll('#member .findings li.chosen')].map((item) => Number(item.dataset.line))"
        chosen = "document.querySelectorAll('#drawing .feature.chosen').length > 0"
        self.browser.click("#member .findings li:last-child button")
        expect("finding chosen by mouse", self.browser.run(lines), [member["findings"][-1]["line"]])
        expect("its feature", self.browser.run(chosen), True)
        self.browser.press("Escape")
        expect("let go", self.browser.run(chosen), False)
        self.browser.run("document.getElementById('list').focus()")
        self.browser.press("ArrowRight")
        expect("chosen by key", self.browser.run(chosen), True)
        before = self.browser.run("document.querySelector('#member h3 bdi').textContent")
        self.browser.press("ArrowDown")
        expect("another member by key", self.browser.run("document.querySelector('#member h3 bdi').textContent") != before, True)

    def check_changes(self):
        changes = self.run["changes"]
        expect("number of changes", [changes[name] for name in ("added", "removed", "changed")], [1, 1, 1])
        text = self.browser.run("document.getElementById('changes').textContent")
        for change in changes["members"]:
            expect(f"{change['mark']} among the changes", change["mark"] in text, True)
        self.browser.click("[data-state='changed']")
        expect("changed members", sorted(self.all_marks()), sorted(c["mark"] for c in changes["members"] if c["change"] != "removed"))
        self.browser.click("[data-state='all']")
        self.choose(next(m for m in self.members if m["mark"] == "P1"))
        expect("old positions", self.browser.run("document.querySelectorAll('#drawing .earlier').length > 1"), True)
        self.choose(next(m for m in self.members if m["mark"] == MARK))
        expect("a mark that looks like markup", self.browser.run("document.querySelector('#member h3 bdi').textContent"), MARK)

    def check_accessibility(self):
        named = {"button", "link", "searchbox", "table", "img", "image", "columnheader", "navigation"}
        nameless = [role for role, name in self.browser.accessible() if role.lower() in named and not name.strip()]
        expect("controls and drawings without a name", nameless, [])
        for role in "img", "table", "searchbox", "button":
            expect(f"any {role}", any(r.lower() in (role, "image" if role == "img" else role) for r, _ in self.browser.accessible()), True)

    def check_print(self):
        pdf = self.browser.print()
        pages = len(re.findall(rb"/Type\s*/Page\b", pdf))
        expect("printed pages", 4 <= pages <= 40, True)
        expect("rows after printing", len(self.rows()) > 0 and self.browser.run("document.getElementById('print-members').innerHTML"), "")

    def check_narrow(self):
        for width in 380, 800:
            self.browser.resize(width, 900)
            self.browser.settle()
            expect(f"fits {width} pixels", self.browser.run("document.documentElement.scrollWidth"), width)
        self.browser.resize(1400, 1000)
        self.browser.settle()


def shapes(svg):
    """What a drawing is made of: tag, class and numbers of each element, texts of texts."""
    made = []
    for element in ElementTree.fromstring(svg).iter():
        tag = element.tag.split("}")[-1]
        style = element.get("class", "")
        if tag not in ("path", "circle", "rect", "text") or "hit" in style.split():
            continue
        numbers = [float(n) for key in ("d", "x", "y", "cx", "cy", "r", "width", "height", "transform")
                   for n in re.findall(r"-?\d+\.?\d*", element.get(key, ""))]
        made.append((tag, style, element.text or "", numbers))
    return made


def is_like(a, b):
    return a[:3] == b[:3] and len(a[3]) == len(b[3]) and all(abs(x - y) <= 0.11 for x, y in zip(a[3], b[3]))


def check_drawings(browser, camjob, scratch, members):
    """The script of the page draws what `camjob show` draws, but heading and findings, which the page has as text."""
    files = [str(scratch / "job" / "nc" / pathlib.Path(m["file"]).name) for m in members]
    done = subprocess.run([camjob, "show", "--job", str(scratch / "job" / "warehouse.toml"), "--out", str(scratch / "drawn"), *files],
                          capture_output=True)
    expect("drawn, some with errors", done.returncode, 1)
    drawn = browser.run("data = JSON.parse(document.getElementById('data').textContent), data.members.map((raw) => Drawing.svgOf(Object.assign(memberOf(raw, data.texts), { earlier: [] }), { windows: 2 }))")
    for file, own in zip(files, drawn):
        theirs = (scratch / "drawn" / pathlib.Path(file).with_suffix(".svg").name).read_text(encoding="utf-8")
        left = shapes(theirs)
        for shape in shapes(own):
            fitting = next((other for other in left if is_like(shape, other)), None)
            if fitting is None:
                expect(f"{pathlib.Path(file).name}: in the drawing of camjob show", None, shape)
                break
            left.remove(fitting)
        left = [shape for shape in left if shape[1] != "title" and not (shape[3] and shape[3][0] in (24.0, 36.0, 20.5)) and shape[0] != "rect"]
        expect(f"{pathlib.Path(file).name}: only in the drawing of camjob show", left, [])


def take_pictures(camjob, examples, folder):
    """Of the example job as it is, and of a revision of it."""
    with tempfile.TemporaryDirectory() as name, Browser() as browser:
        scratch = pathlib.Path(name)
        shutil.copytree(pathlib.Path(examples) / "warehouse", scratch / "job")
        run_job(camjob, scratch)
        browser.open(scratch / "made" / "warehouse12-report.html")
        take_first_pictures(browser, folder)
        revise(scratch / "job", "R11")
        run_job(camjob, scratch)
        browser.open(scratch / "made" / "warehouse12-report.html")
        take_revision_pictures(browser, folder)


def take_first_pictures(browser, folder):
    browser.resize(1100, 900)
    browser.picture(folder / "page-top.png")
    browser.resize(1100, 790)
    browser.run("(() => { location.hash = 'm=P7'; })()")
    browser.settle()
    browser.run("document.getElementById('member').scrollIntoView(), scrollBy(0, -66)")
    browser.settle()
    browser.picture(folder / "page-member.png")


def take_revision_pictures(browser, folder):
    browser.resize(1400, 1900)
    browser.run("(() => { location.hash = 'm=P12'; })()")
    for theme in "light", "dark":
        browser.use_theme(theme)
        browser.run("scrollTo(0, 0)")
        browser.settle()
        browser.picture(folder / f"report-{theme}.png")
    browser.use_theme("light")
    browser.run("(() => { location.hash = 'm=P1'; document.getElementById('members').scrollIntoView(); })()")
    browser.resize(1400, 1000)
    browser.settle()
    browser.run("document.getElementById('members').scrollIntoView()")
    browser.settle()
    browser.picture(folder / "report-changed.png")
    # As on paper, 186 mm between the margins.
    browser.resize(703, 1000)
    browser.use_media("print")
    browser.run("scrollTo(0, 0), dispatchEvent(new Event('beforeprint'))")
    browser.settle()
    browser.picture(folder / "report-print.png")
    browser.run("document.getElementById('print-members').scrollIntoView()")
    browser.settle()
    browser.picture(folder / "report-print-member.png")


def main(camjob, examples, pictures=None):
    with tempfile.TemporaryDirectory() as name, Browser() as browser:
        scratch = pathlib.Path(name)
        shutil.copytree(pathlib.Path(examples) / "warehouse", scratch / "job")
        run_job(camjob, scratch)
        revise(scratch / "job", MARK, HOLES_OUTSIDE)
        run = run_job(camjob, scratch)
        browser.open(scratch / "made" / "warehouse12-report.html")
        check = PageCheck(browser, run)
        check.check_head()
        check.check_plans()
        check.check_table()
        for member in run["members"]:
            check.check_member(member)
        check.check_highlight()
        check.check_changes()
        check.check_accessibility()
        check.check_narrow()
        check.check_print()
        check_drawings(browser, camjob, scratch, run["members"])
        expect("messages of the console", browser.messages, [])
        expect("what the page asks for", [r for r in browser.requests if not r.startswith("file:") or not r.split("#")[0].endswith("-report.html")], [])
        print(f"{len(run['members'])} members, {complaints} complaints")
    if pictures and not complaints:
        take_pictures(camjob, examples, pathlib.Path(pictures))
    return 1 if complaints else 0


sys.exit(main(*sys.argv[1:]))
