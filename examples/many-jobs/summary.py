#!/usr/bin/env python3
"""summary.py FOLDER adds up the run documents of the jobs in FOLDER/jobs.txt. Ends with 1 when a job is unfinished."""
import collections
import json
import pathlib
import sys


def main(folder):
    jobs = (folder / "jobs.txt").read_text().split()
    accounts = collections.Counter()
    profiles = collections.defaultdict(collections.Counter)
    members = with_errors = unfinished = 0
    for job in jobs:
        document = folder / pathlib.Path(job).parent / "out" / "order-run.json"
        if not document.exists():
            unfinished += 1
            continue
        run = json.loads(document.read_text(encoding="utf-8"))
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
    sys.exit(main(pathlib.Path(sys.argv[1])))
