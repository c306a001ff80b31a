"""What a call of the tool leaves behind, and whether it may: shared by the sweeps of this folder."""

import argparse
import json
import os
import pathlib
import random
import shutil
import subprocess


def content_of(folder, hidden=False):
    """Names and bytes of what a user finds in a folder; None when there is no folder."""
    if not folder.is_dir():
        return None
    return {
        str(path.relative_to(folder)): path.read_bytes()
        for path in sorted(folder.rglob("*"))
        if path.is_file() and (hidden or ".camjob" not in path.parts)
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
        return self.run_again(program, **environment)

    def run_again(self, program, **environment):
        return subprocess.run(
            [program, *self.arguments],
            capture_output=True,
            env={**os.environ, **environment},
            timeout=60,
        )


def options_of(text, *more):
    parser = argparse.ArgumentParser(description=text, formatter_class=argparse.RawTextHelpFormatter)
    parser.add_argument("program", type=pathlib.Path)
    for each in more:
        parser.add_argument(each, type=pathlib.Path)
    parser.add_argument("--points", type=int, default=0, help="how many moments of each call, 0: all")
    parser.add_argument("--seed", type=int, default=1, help="draws them")
    parser.add_argument("--only", default="", help="the calls whose names begin with it")
    return parser.parse_args()


def moments_of(count, points, seed):
    """Numbers from 1 to count, all or so many."""
    if not 0 < points < count:
        return range(1, count + 1)
    # The first ones and the last ones are the least like the others.
    edge = max(1, points // 10)
    middle = random.Random(seed).sample(range(edge + 1, count - edge), points - 2 * edge)
    return [*range(1, edge + 1), *sorted(middle), *range(count - edge, count + 1)]


def complaints(call, done, old, new, usual, words):
    """What is wrong with an outcome, in words; one of `words` has to say why it is not the usual one."""
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
    elif not any(word in out + err for word in words):
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

    # With one thread, allocations and calls of the system come in the same order each time.
    run = ["run", str(job), "--out", str(out), "--threads", "1"]
    yield Call("run --json", [*run, "--json"], out, old_output)
    yield Call("run", run, out, old_output)
    yield Call("check --json", ["check", "--json", "--job", str(job), str(shop)], out, nothing)
    yield Call("show", ["show", "--out", str(out), str(shop / "nc" / "B1.nc1")], out, nothing)
    yield Call("init", ["init", str(out)], out, nothing)
