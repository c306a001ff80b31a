#!/usr/bin/env python3
"""mutants.py COUNT [SEED] [--in PATH...] [--jobs N] tells whether the tests notice faults: it plants COUNT faults, one
at a time, each in one place of the sources, those below the PATHs or those of the library and the NC reader, compiles
and links what has changed in build/mutants, a copy of build/release for each of N jobs, and runs the tests, with their
folders in memory where the system has such.

A fault is a comparison or a constant that is a little off, a condition turned round, "and" for "or", plus for minus,
true for false, a statement that is missing, or two rows of a table that have changed places. Faults that the compiler
refuses are passed over. A fault survives when all tests of all programs that could notice it pass, the quickest first.
What is changed is compiled with the assertions of the standard library. What survives is printed as it ends.
mutants-equivalent.txt beside this script lists faults that change nothing anybody can see, with the reason; they count
for nothing. Nor are faults planted in statements that only make room ahead (reserve) or only keep others from being
compiled (= delete).

mutants.py --again FILE [--in PATH...] plants those that FILE, the output of an earlier run, tells have survived.
Without SEED another choice is made each time; the choice is of all these sources, so it changes with them.
Ends with 1 where fewer than 95 in 100 die. Ctrl-C ends it with what it knows by then."""

import argparse
import collections
import contextlib
import json
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time
import typing

TOP = pathlib.Path(__file__).resolve().parent.parent
BUILT = TOP / "build" / "release"
COPIES = TOP / "build" / "mutants"
EQUIVALENT = pathlib.Path(__file__).resolve().with_name("mutants-equivalent.txt")


class Room(typing.NamedTuple):
    library: str
    is_static: bool
    programs: list


ROOMS = {
    "camdata": Room("camdata", False, ["camdata_tests", "plugin_tests", "camjob_tests", "dialog_tests",
                                       "camdata_outside_host_tests"]),
    "dstv": Room("dstv", True, ["dstv_tests", "camjob_tests"]),
    "numbers": Room("numbers", True, ["numbers_tests", "plugin_tests", "camjob_tests"]),
    "threads": Room("threads", True, ["plugin_tests", "camjob_thread_tests", "camjob_tests"]),
    "cutting": Room("cutting", True, ["cutting_tests", "plugin_tests", "camjob_tests"]),
    "job": Room("job", True, ["job_tests", "camjob_tests"]),
    "plugin": Room("plugin", True, ["plugin_tests", "camjob_thread_tests", "camjob_tests"]),
    "report": Room("report", True, ["camjob_tests"]),
    "camjob": Room("camjob_core", True, ["camjob_fault_tests", "camjob_thread_tests", "camjob_dialog_tests",
                                         "camjob_tests"]),
}
# Of other systems, and what belongs to no library of these.
NOT_HERE = re.compile(r"(?:Win32|DialogQt)\.cpp$")
# What a program may take: so many times what it takes without a fault, but not below so many seconds.
MOST_TIMES, LEAST_SECONDS = 20, 30
MEMORY_KB = 6 << 20

SWAPS = [
    ("comparison", r"(?<= )<(?= )", "<="), ("comparison", r"(?<= )<=(?= )", "<"),
    ("comparison", r"(?<= )>(?= )", ">="), ("comparison", r"(?<= )>=(?= )", ">"),
    ("comparison", r"(?<= )==(?= )", "!="), ("comparison", r"(?<= )!=(?= )", "=="),
    ("logic", r"(?<= )&&(?= )", "||"), ("logic", r"(?<= )\|\|(?= )", "&&"),
    ("arithmetic", r"(?<=[\w)\]] )\+(?= )", "-"), ("arithmetic", r"(?<=[\w)\]] )-(?= )", "+"),
    ("arithmetic", r"(?<=[\w)\]] )\*(?= )", "/"), ("arithmetic", r"(?<=[\w)\]] )/(?= )", "*"),
    ("constant", r"\btrue\b", "false"), ("constant", r"\bfalse\b", "true"),
]
NUMBER = re.compile(r"(?<![\w.])\d+(?:\.\d+)?(?![\w.])")
CONDITION = re.compile(r"\b(?:if|while) \((?!constexpr)")
STATEMENT = re.compile(r"^\s+[^{}#/]*;$")
DECLARATION = re.compile(r"^\s+const\b|^\s+(?!return\b)[\w:]+(?:<.*>)?[&*]* [&*]*(?:\w+(?: = |;|\(|\{)|\[)|^\s+using |^\s+return [^;]*$")
NOT_CODE = re.compile(r"^\s*(?:#|//|static_assert|using |namespace |template|[\w.]+\.reserve\(.*\);$|.*= delete;$)")
TABLE = re.compile(r"\b(k\w+)\b[^()]*\{$")


class Mutant:
    """Lines of a source, from `number` on, and what stands there instead."""

    def __init__(self, path, source, number, kind, lines, changed):
        self.path, self.source, self.number, self.kind = path, source, number, kind
        self.lines, self.changed = lines, changed

    def is_among(self, names):
        """Whether the names have this one, or the order of the rows of its table."""
        return self.name() in names or self.kind == "rows" and f"{self.path}: rows of {self.table()}" in names

    def room(self):
        return self.path.split("/")[0]

    def table(self):
        above = (TABLE.search(line) for line in reversed(self.source[:self.number]))
        return next((found[1] for found in above if found), None)

    def text(self):
        begin = self.number - 1
        return "\n".join(self.source[:begin] + self.changed + self.source[begin + len(self.lines):])

    def name(self):
        before = " / ".join(line.strip() for line in self.lines)
        after = " / ".join(line.strip() for line in self.changed) or "(nothing)"
        return f"{self.path}: {before} => {after}"


def masked(line):
    """The line with its texts and remarks blanked out, each character in its place."""
    line = re.sub(r"//.*", lambda found: " " * len(found[0]), line)
    return re.sub(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])+\'', lambda found: "\x01" * len(found[0]), line)


def closing(text, start):
    depth = 0
    for place in range(start, len(text)):
        depth += {"(": 1, ")": -1}.get(text[place], 0)
        if depth == 0:
            return place
    return None


def changes(line):
    """Each (kind, changed line) of one line."""
    code = masked(line)
    for kind, pattern, other in SWAPS:
        for found in re.finditer(pattern, code):
            yield kind, line[:found.start()] + other + line[found.end():]
    for found in NUMBER.finditer(code):
        step = "0.1" if "." in found[0] else "1"
        for sign in "+-":
            yield "constant", f"{line[:found.start()]}({found[0]} {sign} {step}){line[found.end():]}"
    for found in CONDITION.finditer(code):
        end = closing(code, found.end() - 1)
        if end and ";" not in code[:end]:
            yield "condition", f"{line[:found.end()]}!({line[found.end():end]}){line[end:]}"
    if STATEMENT.match(code) and not DECLARATION.match(code) and code.count("(") == code.count(")"):
        yield "statement", None


def mutants_of(path):
    lines = (TOP / path).read_text(encoding="utf-8").split("\n")
    elsewhere = False
    for at, line in enumerate(lines):
        if line.startswith("#"):
            elsewhere = line == "#ifdef _WIN32" or line.startswith("#if defined(_WIN32)")
        if elsewhere or NOT_CODE.match(line):
            continue
        for kind, changed in changes(line):
            # Not a part of a statement that goes on over lines.
            if changed is None and not re.search(r"[;{}:]\s*$|^\s*$|^\s*//.*$|\)$", lines[at - 1]):
                continue
            yield Mutant(path, lines, at + 1, kind, [line], [] if changed is None else [changed])
        row = re.compile(r"^\s+\{.*\},$")
        if at + 1 < len(lines) and row.match(line) and row.match(lines[at + 1]):
            yield Mutant(path, lines, at + 1, "rows", [line, lines[at + 1]], [lines[at + 1], line])


def all_mutants(places):
    found = []
    for place in places:
        path = TOP / place
        for source in sorted(path.rglob("*.cpp")) if path.is_dir() else [path]:
            if not NOT_HERE.search(source.name):
                found += mutants_of(source.relative_to(TOP).as_posix())
    return found


def told(*arguments):
    return subprocess.run(["ninja", "-C", BUILT, "--quiet", "-t", *arguments], check=True, capture_output=True,
                          text=True).stdout


def link_command(target):
    return [line for line in told("commands", target).splitlines()
            if " -c " not in line and (" -o " in line or "ar qc" in line)][-1]


class Tree:
    """A copy of the built tree, in which one object at a time is another."""

    def __init__(self, folder, rooms):
        self.folder = folder
        shutil.copytree(BUILT, folder, symlinks=True)
        self.scratch = tempfile.TemporaryDirectory(dir="/dev/shm" if os.path.isdir("/dev/shm") else None)
        # Some tests give up the rights of root.
        os.chmod(self.scratch.name, 0o755)
        self.compiling = {row["file"]: row for row in json.loads(told("compdb"))
                          if " -c " in row["command"]}
        programs = {each for room in rooms for each in room.programs}
        self.linking = {target: link_command(target)
                        for target in sorted({room.library for room in rooms} | programs)}
        self.usual = {}
        for program in programs:
            begin = time.monotonic()
            if not self.passes(program):
                sys.exit(f"mutants.py: {program} fails without any fault")
            self.usual[program] = time.monotonic() - begin

    def run(self, command, seconds=None):
        """Whether a shell command succeeds in the copy of the build tree, with the libraries of the copy."""
        environment = dict(os.environ, LD_LIBRARY_PATH=str(self.folder / "lib"), CCACHE_DISABLE="1",
                           TMPDIR=self.scratch.name)
        process = subprocess.Popen(f"ulimit -c 0 -v {MEMORY_KB}; {command}", shell=True, cwd=self.folder,
                                   env=environment, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, start_new_session=True)
        try:
            return process.wait(seconds) == 0
        except subprocess.TimeoutExpired:
            return False
        finally:
            # Also what it has left running: nothing of the tree may be in use when that changes.
            with contextlib.suppress(ProcessLookupError):
                os.killpg(process.pid, signal.SIGKILL)
            process.wait()

    def passes(self, program):
        most = max(MOST_TIMES * self.usual[program], LEAST_SECONDS) if program in self.usual else None
        return self.run(f"bin/{program} --gtest_brief=1 --gtest_fail_fast", most)

    def fate(self, mutant):
        """None where it does not compile, else the program that notices it, or ''."""
        room = ROOMS[mutant.room()]
        source = TOP / mutant.path
        row = self.compiling[str(source)]
        sound = {row["output"]: (self.folder / row["output"]).read_bytes()}
        with tempfile.NamedTemporaryFile("w", suffix=".cpp", encoding="utf-8") as changed:
            changed.write(mutant.text())
            changed.flush()
            compiles = self.run(row["command"].replace(f"-c {source}", f"-c {changed.name}") +
                                " -O0 -D_GLIBCXX_ASSERTIONS -Wno-error -Werror=return-type")
        try:
            return self.noticed(room, sound) if compiles else None
        finally:
            for name, content in sound.items():
                # Not into the file: a process that has just been killed may still have it.
                file = self.folder / name
                mode = file.stat().st_mode
                file.unlink()
                file.write_bytes(content)
                file.chmod(mode)

    def noticed(self, room, sound):
        def link(target):
            name = re.search(r"(?: -o |ar qc )(\S+)", self.linking[target])[1]
            sound[name] = (self.folder / name).read_bytes()
            return self.run(self.linking[target])

        if not link(room.library):
            return None
        for program in sorted(room.programs, key=self.usual.get):
            if room.is_static and not link(program):
                return None
            if not self.passes(program):
                return program
        return ""


def equivalent():
    """Names of mutants that change nothing; each line but remarks is one, behind it a tab and the reason. "PATH: rows of
    TABLE" are all that change the order of its rows."""
    lines = EQUIVALENT.read_text(encoding="utf-8").splitlines() if EQUIVALENT.exists() else []
    return {line.split("\t")[0] for line in lines if line and not line.startswith("#")}


def chosen(options):
    everything = all_mutants(options.places)
    if options.again:
        told = options.again.read_text(encoding="utf-8").splitlines()
        names = {line.split(" ", 1)[1].split(": ", 1)[1] for line in told if line.startswith("survived ")}
        return [mutant for mutant in everything if mutant.name().split(": ", 1)[1] in names]
    seed = random.randrange(2**32) if options.seed is None else options.seed
    print(f"{len(everything)} possible; seed {seed}", flush=True)
    return random.Random(seed).sample(everything, len(everything))


class Tally:
    def __init__(self):
        self.fates = collections.Counter()
        self.kinds = collections.Counter()
        self.equivalent = 0

    def add(self, mutant, noticed):
        self.fates[noticed or "survived"] += 1
        self.kinds[mutant.kind, bool(noticed)] += 1
        if self.tried() % 25 == 0:
            print(f"{self.tried()} planted, {self.fates['survived']} survived", flush=True)
        if not noticed:
            print(f"survived {mutant.path}:{mutant.number}: {mutant.name().split(': ', 1)[1]}", flush=True)

    def tried(self):
        return sum(self.fates.values())

    def report(self):
        """Whether enough die."""
        for kind in sorted({kind for kind, _ in self.kinds}):
            noticed = self.kinds[kind, True]
            print(f"{kind:12} {noticed + self.kinds[kind, False]:5} planted {noticed:5} noticed")
        print("by", ", ".join(f"{name} {count}" for name, count in self.fates.most_common()))
        died = self.tried() - self.fates["survived"]
        print(f"{died} of {self.tried()} faults noticed: {100 * died / max(self.tried(), 1):.1f} %; "
              f"{self.equivalent} that change nothing left out")
        return died >= 0.95 * self.tried()


class Planting:
    """The faults that are still to be planted, handed out to jobs."""

    def __init__(self, mutants, wanted):
        self.mutants, self.wanted = iter(mutants), wanted
        self.rooms = [room for name, room in ROOMS.items() if any(each.room() == name for each in mutants)]
        self.unseen = equivalent()
        self.tally = Tally()
        self.under_way = 0
        self.lock = threading.Condition()
        self.is_stopped = self.has_failed = False

    def take(self):
        """None at the end. Waits for those under way: one that does not compile makes room for another."""
        with self.lock:
            while not self.is_stopped and self.tally.tried() + self.under_way == self.wanted and self.under_way:
                self.lock.wait()
            if self.is_stopped or self.tally.tried() == self.wanted:
                return None
            for mutant in self.mutants:
                if not mutant.is_among(self.unseen):
                    self.under_way += 1
                    return mutant
                self.tally.equivalent += 1
            return None

    def give_back(self, mutant, noticed):
        with self.lock:
            self.under_way -= 1
            if noticed is not None and not self.is_stopped:
                self.tally.add(mutant, noticed)
            self.lock.notify_all()

    def work(self, tree):
        try:
            while mutant := self.take():
                self.give_back(mutant, tree.fate(mutant))
        except BaseException:
            self.has_failed = True
            raise

    def run(self, jobs):
        subprocess.run(["cmake", "--build", BUILT], check=True, stdout=subprocess.DEVNULL)
        shutil.rmtree(COPIES, ignore_errors=True)
        workers = [threading.Thread(target=self.work, args=[Tree(COPIES / str(job), self.rooms)], daemon=True)
                   for job in range(jobs)]
        try:
            for worker in workers:
                worker.start()
            for worker in workers:
                worker.join()
        except KeyboardInterrupt:
            self.is_stopped = True
            print("stopped")
        return self.tally.report() and not self.has_failed


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("count", type=int, nargs="?", help="how many faults; without: all that were chosen")
    parser.add_argument("seed", type=int, nargs="?")
    parser.add_argument("--in", dest="places", nargs="+", default=["camdata", "dstv"], metavar="PATH")
    parser.add_argument("--again", type=pathlib.Path, metavar="FILE")
    parser.add_argument("--jobs", type=int, default=1, metavar="N")
    options = parser.parse_args()
    if options.count is None and options.again is None:
        parser.error("COUNT or --again")
    for place in options.places:
        if pathlib.Path(place).parts[0] not in ROOMS or not (TOP / place).exists():
            parser.error(f"{place} is none of the sources of {', '.join(ROOMS)}")
    signal.signal(signal.SIGTERM, signal.default_int_handler)
    sys.exit(0 if Planting(chosen(options), options.count).run(options.jobs) else 1)


if __name__ == "__main__":
    main()
