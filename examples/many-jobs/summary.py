#!/usr/bin/env python3
"""summary.py FOLDER adds up the run documents of the jobs in FOLDER/jobs.txt. Ends with 1 when a job is unfinished."""
import collections
import json
import pathlib
import sys


def is_finished(job, out):
    """work.sh asks the same. The record "commit" is there while files take their places."""
    document = out / "order-run.json"
    if not job.is_file() or not document.is_file() or (out / ".camjob" / "commit").exists():
        return False
    return document.stat().st_size > 0 and document.stat().st_mtime_ns > job.stat().st_mtime_ns


def main(folder):
    jobs = [line for line in (folder / "jobs.txt").read_text(encoding="utf-8").splitlines() if line]
    accounts = collections.Counter()
    profiles = collections.defaultdict(collections.Counter)
    members = with_errors = unfinished = 0
    for job in jobs:
        out = (folder / job).parent / "out"
        if not is_finished(folder / job, out):
            unfinished += 1
            continue
        try:
            run = json.loads((out / "order-run.json").read_text(encoding="utf-8"))
        except ValueError as error:
            sys.exit(f"{out / 'order-run.json'}: no run document: {error}")
        members += len(run["members"])
        with_errors += run["exitCode"] != 0
        accounts.update(run["accounts"])
        for profile in run["profiles"]:
            name = profile.pop("profile")
            profiles[name].update({key: value or 0 for key, value in profile.items()})
    print(f"{len(jobs)} jobs: {len(jobs) - unfinished} finished, {with_errors} of them with errors, {unfinished} unfinished")
    print(f"{members} members, {sum(accounts.values())} features: {accounts['made']} made")
    for name, sums in sorted(profiles.items()):
        print(f"{name}: {sums['pieces']:.0f} pieces, {sums['length'] / 1e3:.1f} m, {sums['weight'] / 1e3:.3f} t")
    return 1 if unfinished else 0


if __name__ == "__main__":
    if len(sys.argv) != 2:
        print("usage: summary.py FOLDER", file=sys.stderr)
        sys.exit(2)
    sys.exit(main(pathlib.Path(sys.argv[1])))
