#!/usr/bin/env python3
"""file_sweep.py PROGRAM LIBRARY [--points N]: the tool with one call of the system that fails.

Each call of the tool is made once to list the calls on its files, then once for each of N of them
(default: all) and each way in which such a call can go wrong: its errors, half of what is to be read or
written, the end of the process before and after it. Afterwards the output is the old or the new one as a
whole, the exit code tells which way it went, words say why, a JSON document is whole; and the next call
leaves nothing behind that a call on which nothing fails would not leave.
"""

import collections
import errno
import os
import signal
import sys
import tempfile
import pathlib

from outcomes import calls_in, complaints, content_of, moments_of, options_of

OPENING = [errno.EACCES, errno.EMFILE, errno.EIO, errno.EINTR]
WRITING = [errno.ENOSPC, errno.EIO, errno.EINTR, "short"]
CHANGING = [errno.EACCES, errno.EIO, errno.ENOSPC]
LOOKING = [errno.EACCES, errno.EIO]
WAYS = {
    "open": OPENING, "openat": OPENING, "fopen": OPENING, "opendir": OPENING,
    "read": [errno.EIO, errno.EINTR, "short"], "readdir": [errno.EIO],
    "readlink": LOOKING,
    "write": WRITING, "writev": WRITING, "truncate": CHANGING,
    "fsync": [errno.EIO, errno.ENOSPC, errno.EINTR], "fdatasync": [errno.EIO, errno.EINTR],
    "close": [errno.EIO, errno.ENOSPC], "fclose": [errno.EIO, errno.ENOSPC],
    "rename": [*CHANGING, errno.EBUSY], "link": CHANGING, "symlink": CHANGING,
    "remove": LOOKING, "unlink": LOOKING, "unlinkat": LOOKING, "rmdir": LOOKING, "mkdir": CHANGING,
    "stat": LOOKING, "lstat": LOOKING, "stat64": LOOKING, "lstat64": LOOKING,
    "fstat": LOOKING, "fstat64": LOOKING, "flock": [errno.EIO, errno.ENOLCK, errno.EINTR],
}
WORDS = ["cannot be read", "can be read", "cannot be written"]
ENDS = ["kill", "killed-after"]


class Sweep:
    def __init__(self, call, options, library, scratch):
        self.call = call
        self.program = options.program
        self.scratch = scratch
        self.environment = {"LD_PRELOAD": str(library), "CAMJOB_FAULT_ROOT": str(scratch)}
        call.prepare()
        self.old = content_of(call.folder)
        self.old_whole = content_of(call.folder, hidden=True)
        log = scratch.with_suffix(".log")
        done = call.run(self.program, **self.environment, CAMJOB_FAULT_LOG=str(log))
        self.usual = done
        self.new = content_of(call.folder)
        self.new_whole = content_of(call.folder, hidden=True)
        if call.name.startswith("run"):
            call.run_again(self.program)
        self.new_again = content_of(call.folder, hidden=True)
        self.calls = log.read_text().split()
        self.tried = collections.Counter()
        self.faults = 0

    def tell(self, moment, how, complaint):
        self.faults += 1
        how = errno.errorcode.get(how, how)
        print(f"{self.call.name}, {how} at call {moment} of {len(self.calls)}, {self.calls[moment - 1]}: "
              f"{complaint}")

    def check_next(self, moment, how):
        """The next call makes the new output and clears away what the last one left."""
        if content_of(self.call.folder, hidden=True) in (self.old_whole, self.new_whole):
            return
        done = self.call.run_again(self.program)
        if done.returncode != self.usual.returncode:
            self.tell(moment, how, f"the next call ends with {done.returncode}: {done.stderr.decode()}")
        elif content_of(self.call.folder, hidden=True) not in (self.new_whole, self.new_again):
            self.tell(moment, how, "the next call leaves something behind")

    def does_without(self, done, words):
        """Files that a job cannot be drafted from are left out of it, and told; so is an earlier output that a
        run cannot be compared with, by its page."""
        if done.returncode != self.usual.returncode or content_of(self.call.folder) == self.new:
            return False
        if self.call.name == "init":
            return any(word in done.stderr.decode() for word in words)
        page = self.call.folder / "new-report.html"
        return page.is_file() and "new-run.json: cannot be read" in page.read_text("utf-8")

    def fail(self, moment, how):
        self.tried[how in ENDS] += 1
        done = self.call.run(self.program, **self.environment, CAMJOB_FAULT_AT=str(moment),
                             CAMJOB_FAULT=str(how))
        if how in ENDS:
            if done.returncode != -signal.SIGKILL:
                self.tell(moment, how, "it goes on")
        else:
            words = WORDS if how == "short" else [*WORDS, os.strerror(how)]
            if self.does_without(done, words):
                return
            for complaint in complaints(self.call, done, self.old, self.new, self.usual.returncode, words):
                self.tell(moment, how, complaint)
            if done.returncode == self.usual.returncode and done.stdout != self.usual.stdout:
                if not any(word in (done.stdout + done.stderr).decode() for word in words):
                    self.tell(moment, how, "it prints something else, and not why")
        self.check_next(moment, how)

    def fail_everywhere(self, points, seed):
        for moment in moments_of(len(self.calls), points, seed):
            for how in WAYS[self.calls[moment - 1]] + ENDS:
                self.fail(moment, how)
        print(f"{self.call.name}: {len(self.calls)} calls of the system, {self.tried[False]} failures, "
              f"{self.tried[True]} ends, {self.faults} faults")
        return self.faults


def main():
    options = options_of(__doc__, "library")
    with tempfile.TemporaryDirectory() as name:
        scratch = pathlib.Path(name) / "work"
        scratch.mkdir()
        faults = sum(
            Sweep(call, options, options.library, scratch).fail_everywhere(options.points, options.seed)
            for call in calls_in(options.program, scratch)
            if call.name.startswith(options.only)
        )
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
