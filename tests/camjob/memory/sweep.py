#!/usr/bin/env python3
"""sweep.py PROGRAM [--points N]: the tool with memory that ends at one of its allocations.

Each call is made once to count its allocations, then once for each of N of them, drawn by a seed that is
printed (default: all of them), and each time in two ways: this allocation alone fails, or memory stays as
short as it is then. Afterwards the output is the old or the new one as a whole, the exit code tells which
way it went, words say why, and a JSON document is whole.
"""

import argparse
import json
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile

WORDS = "out of memory"
MOST_BEFORE_MAIN = 40


def content_of(folder):
    """Names and bytes of what a user finds in a folder; None when there is no folder."""
    if not folder.is_dir():
        return None
    return {
        str(path.relative_to(folder)): path.read_bytes()
        for path in sorted(folder.rglob("*"))
        if path.is_file() and ".camjob" not in path.parts
    }


class Call:
    """One command line, the folder that it may change, and what makes that folder ready again."""

    def __init__(self, name, arguments, folder, prepare):
        self.name = name
        self.arguments = arguments
        self.folder = folder
        self.prepare = prepare

    def run(self, program, **environment):
        self.prepare()
        return subprocess.run(
            [program, *self.arguments],
            capture_output=True,
            env={**os.environ, **environment},
            timeout=60,
        )


def is_told_before_main(moment, done):
    """Told in words only, for nobody knows the arguments yet."""
    is_early = moment <= MOST_BEFORE_MAIN and not done.stdout
    return is_early and done.returncode in (2, 3) and WORDS in done.stderr.decode()


def complaints(call, done, old, new, usual):
    """What is wrong with an outcome, in words."""
    after = content_of(call.folder)
    out, err = done.stdout.decode("utf-8", "replace"), done.stderr.decode("utf-8", "replace")
    if after != old and after != new:
        yield "the output is neither the old nor the new one"
    if done.returncode == usual:
        if after != new:
            yield "the exit code says that all went well, but the output is not the new one"
    elif done.returncode not in (2, 3):
        yield f"exit code {done.returncode}"
    elif done.returncode == 2 and after != old:
        yield "exit code 2, but the output has changed"
    elif WORDS not in out + err:
        yield "no words about it"
    if "--json" in call.arguments:
        try:
            document = json.loads(out)
            if not document["schema"].startswith(f"camjob-{call.arguments[0]}/"):
                yield "the document has a wrong schema"
            if document.get("exitCode", done.returncode) != done.returncode:
                yield "the document has another exit code"
        except ValueError as error:
            yield f"the document is broken: {error}"


def calls_in(program, scratch):
    """The calls, by an example job whose output folder holds the output of another one."""
    shop = scratch / "shop"
    subprocess.run([program, "init", str(shop)], check=True, capture_output=True)
    job = shop / "job.toml"
    text = job.read_text(encoding="utf-8").replace("[job]\n", "[job]\ndate = 2026-03-02\n")
    for path, name in (job, "new"), (shop / "earlier.toml", "old"):
        path.write_text(f'{text}\n[project]\nfile_name = "{name}"\n', encoding="utf-8")
    out = scratch / "out"
    kept = scratch / "kept"
    subprocess.run([program, "run", str(shop / "earlier.toml"), "--out", str(kept)], check=False,
                   capture_output=True)

    def old_output():
        shutil.rmtree(out, ignore_errors=True)
        shutil.copytree(kept, out)

    def nothing():
        shutil.rmtree(out, ignore_errors=True)

    run = ["run", str(job), "--out", str(out)]
    yield Call("run --json", [*run, "--json"], out, old_output)
    yield Call("run", run, out, old_output)
    yield Call("check --json", ["check", "--json", "--job", str(job), str(shop)], out, nothing)
    yield Call("show", ["show", "--out", str(out), str(shop / "nc" / "B1.nc1")], out, nothing)
    yield Call("init", ["init", str(out)], out, nothing)


def sweep(call, program, points, seed, scratch):
    call.prepare()
    old = content_of(call.folder)
    counted = scratch / "count"
    usual = call.run(program, CAMJOB_COUNT_TO=str(counted)).returncode
    new = content_of(call.folder)
    count = int(counted.read_text())
    moments = range(1, count + 1)
    if points and points < count:
        # The first ones and the last ones are the least like the others.
        edge = max(1, points // 10)
        middle = random.Random(seed).sample(range(edge + 1, count - edge), points - 2 * edge)
        moments = [*range(1, edge + 1), *sorted(middle), *range(count - edge, count + 1)]
    faults = 0
    for moment in moments:
        for how in ("once", "ever"):
            done = call.run(program, CAMJOB_FAIL_AT=str(moment), CAMJOB_FAIL_FOR=how)
            if is_told_before_main(moment, done):
                continue
            for complaint in complaints(call, done, old, new, usual):
                faults += 1
                print(f"{call.name}, allocation {moment} of {count} fails {how}: {complaint}")
    print(f"{call.name}: {len(moments)} of {count} allocations, {faults} faults")
    return faults


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--points", type=int, default=0)
    parser.add_argument("--seed", type=int, default=random.SystemRandom().randrange(1 << 32))
    parser.add_argument("--only", default="", help="the calls whose names begin with it")
    options = parser.parse_args()
    print(f"seed {options.seed}")
    with tempfile.TemporaryDirectory() as name:
        scratch = pathlib.Path(name)
        faults = sum(
            sweep(call, options.program, options.points, options.seed, scratch)
            for call in calls_in(options.program, scratch)
            if call.name.startswith(options.only)
        )
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
