#!/usr/bin/env python3
"""memory_sweep.py PROGRAM [--points N]: the tool with memory that ends at one of its allocations.

Each call is made once to count its allocations, then once for each of N of them (default: all), and each time in two ways: this allocation alone fails, or memory stays as
short as it is then. Afterwards the output is the old or the new one as a whole, the exit code tells which
way it went, words say why, and a JSON document is whole.
"""

import pathlib
import sys
import tempfile

from outcomes import calls_in, complaints, content_of, moments_of, options_of

WORDS = "out of memory"
MOST_BEFORE_MAIN = 40


def is_told_before_main(moment, done):
    """Told in words only, for nobody knows the arguments yet."""
    is_early = moment <= MOST_BEFORE_MAIN and not done.stdout
    return is_early and done.returncode in (2, 3) and WORDS in done.stderr.decode()


def sweep(call, program, points, seed, scratch):
    call.prepare()
    old = content_of(call.folder)
    counted = scratch / "count"
    usual = call.run(program, CAMJOB_COUNT_TO=str(counted)).returncode
    new = content_of(call.folder)
    count = int(counted.read_text())
    moments = moments_of(count, points, seed)
    faults = 0
    for moment in moments:
        for how in ("once", "ever"):
            done = call.run(program, CAMJOB_FAIL_AT=str(moment), CAMJOB_FAIL_FOR=how)
            if is_told_before_main(moment, done):
                continue
            for complaint in complaints(call, done, old, new, usual, [WORDS]):
                faults += 1
                print(f"{call.name}, allocation {moment} of {count} fails {how}: {complaint}")
    print(f"{call.name}: {len(moments)} of {count} allocations, {faults} faults")
    return faults


def main():
    options = options_of(__doc__)
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
