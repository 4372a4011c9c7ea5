#!/usr/bin/env python3
"""Tries ./run and ./test as a newcomer would, on a bare Debian in a folder.

    tools/try_fresh.py SUITE [JOB...] [--busy N] [--folder FOLDER] [--keep]

SUITE is bookworm (12), trixie (13) or another that debootstrap knows. A job is a command line of this project, in quotes
where it has arguments: ./run, ./test, './test --with-32-bit'; `./run` and then `./test` unless given, and they are done one
after the other. Each is started without a display by an ordinary user with sudo, in a clone of this checkout's last commit,
on a system that has a base system, sudo and git, and no more. --busy starts N processes beside it that compute without end.

What the jobs print is shown; the last lines say how each went, and the exit status is 0 when all went well. The system is
removed afterwards unless --keep is given; the jobs' logs, and the tour, are left in FOLDER/results.

It needs root, debootstrap and about 6 GB. Nothing of the machine itself is changed: mounts and processes are the trial's
own and end with it."""

import argparse
import contextlib
import pathlib
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
USER = "listener"
HOME = f"home/{USER}"
KEPT = ("build/test-logs", "build/run.log", "tour")
# In a mount and a process namespace of its own: what a program expects of a running system, then the job.
INSIDE = f"""
mount --make-rprivate /
mount --rbind /dev "$1/dev"
mount -t proc proc "$1/proc"
mount -t sysfs sysfs "$1/sys"
exec chroot "$1" runuser -l {USER} -c "$2"
"""


def make_system(suite, system):
    """A bare Debian with the user, who may become root by sudo."""
    subprocess.run(["debootstrap", "--variant=minbase", "--include=sudo,git,ca-certificates", suite, system], check=True,
                   stdout=subprocess.DEVNULL)
    shutil.copy("/etc/resolv.conf", system / "etc" / "resolv.conf")
    subprocess.run(["chroot", system, "useradd", "--create-home", "--shell", "/bin/bash", USER], check=True)
    (system / "etc" / "sudoers.d" / USER).write_text(f"{USER} ALL=(ALL) NOPASSWD: ALL\n", encoding="ascii")


def clone(system):
    project = system / HOME / "pointalk"
    subprocess.run(["git", "-c", "safe.directory=*", "clone", "-q", "--no-hardlinks", ROOT, project], check=True)
    subprocess.run(["chroot", system, "chown", "-R", f"{USER}:{USER}", f"/{HOME}"], check=True)
    return project


def do(job, system):
    """Does a job and shows what it prints; (exit status, last line, seconds)."""
    began = time.monotonic()
    command = ["unshare", "--mount", "--pid", "--fork", "--kill-child", "sh", "-ec", INSIDE, "sh", system,
               f"cd pointalk && exec {job}"]
    last = ""
    with subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          errors="replace") as process:
        try:
            for line in process.stdout:
                print(line, end="", flush=True)
                last = line.strip() or last
        except BaseException:
            process.kill()  # and with it all that it started
            raise
    return process.returncode, last, time.monotonic() - began


def keep_results(project, results):
    """What the job left to be looked at."""
    for name in KEPT:
        source, place = project / name, results / name
        if source.is_dir():
            shutil.copytree(source, place, dirs_exist_ok=True)
        elif source.exists():
            place.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, place)


@contextlib.contextmanager
def busy(number):
    """Processes that compute without end."""
    spinning = [subprocess.Popen(["sh", "-c", "while :; do :; done"]) for _ in range(number)]
    try:
        yield
    finally:
        for process in spinning:
            process.kill()
            process.wait()


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("suite")
    parser.add_argument("jobs", nargs="*", default=["./run", "./test"], metavar="JOB")
    parser.add_argument("--busy", type=int, default=0, metavar="N")
    parser.add_argument("--folder", type=pathlib.Path, help="a new one in the folder for temporary files unless given")
    parser.add_argument("--keep", action="store_true")
    options = parser.parse_args()
    if not shutil.which("debootstrap"):
        sys.exit("debootstrap is not installed")
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))  # so that what was started is ended
    folder = options.folder or pathlib.Path(tempfile.mkdtemp(prefix="pointalk-fresh-"))
    system = folder / "system"
    if system.exists():
        sys.exit(f"{system} is there already")
    folder.mkdir(parents=True, exist_ok=True)
    outcomes = []
    try:
        print(f"Making a bare {options.suite} in {system}...", flush=True)
        make_system(options.suite, system)
        project = clone(system)
        with busy(options.busy):
            for number, job in enumerate(options.jobs, 1):
                print(f"--- {job}", flush=True)
                outcomes.append((job, *do(job, system)))
                keep_results(project, folder / "results" / f"{number}-{shlex.split(job)[0].strip('./')}")
    finally:
        if not options.keep:
            shutil.rmtree(system, ignore_errors=True)
    print(f"\n{options.suite}, results in {folder / 'results'}:")
    for job, status, last, seconds in outcomes:
        print(f"{'ok    ' if status == 0 else 'FAILED'} {job:24} {seconds:5.0f} s  {last}")
    sys.exit(any(status for _, status, _, _ in outcomes))


if __name__ == "__main__":
    main()
