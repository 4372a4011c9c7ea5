#!/usr/bin/env python3
"""Runs every fuzz target of a build folder for a short while and ends with the line `N passed, N failed`.

    tools/run_fuzzers.py BUILD_FOLDER [SECONDS]
    tools/run_fuzzers.py BUILD_FOLDER --keep

SECONDS (3 unless given) is for each target. What a target starts from is in tests/fuzz/corpus/NAME/; what it finds goes to
BUILD_FOLDER/corpus/NAME/, and an input that breaks it beside that folder. --keep, after a long run, takes over into
tests/fuzz/corpus what reaches code that nothing there reaches, inputs of at most 256 bytes."""

import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys

SEEDS = pathlib.Path(__file__).resolve().parent.parent / "tests" / "fuzz" / "corpus"


def found(program):
    """Where its own inputs are."""
    corpus = program.parent / "corpus" / program.name
    corpus.mkdir(parents=True, exist_ok=True)
    return corpus


def keep(program):
    """How many inputs are new in the seeds."""
    seeds = SEEDS / program.name
    seeds.mkdir(parents=True, exist_ok=True)
    before = len(list(seeds.iterdir()))
    command = [program, "-set_cover_merge=1", "-use_counters=0", "-max_len=256", seeds, found(program)]
    subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=600,
                   check=True)
    return len(list(seeds.iterdir())) - before


def fuzz(program, seconds):
    """What went wrong, and how many inputs were tried."""
    corpus = found(program)
    seeds = [SEEDS / program.name] if (SEEDS / program.name).is_dir() else []
    command = [program, f"-max_total_time={seconds}", "-timeout=100", "-rss_limit_mb=1024", "-print_final_stats=1",
               f"-artifact_prefix={corpus}-", corpus, *seeds]
    try:
        run = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                             timeout=seconds + 60)
    except subprocess.TimeoutExpired:
        return "did not end", 0
    output = run.stdout.decode("utf-8", "replace")
    tried = re.search(r"stat::number_of_executed_units: *(\d+)", output)
    if run.returncode == 0 and tried:
        return "", int(tried[1])
    return f"exit status {run.returncode}\n{output[-6000:]}", 0


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    programs = sorted(path for path in build.glob("*_fuzz") if os.access(path, os.X_OK))
    if sys.argv[2:] == ["--keep"]:
        for program in programs:
            print(f"{program.name}: {keep(program)} new inputs kept")
        return
    seconds = int(sys.argv[2]) if len(sys.argv) > 2 else 3
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for program, (trouble, tried) in zip(programs, pool.map(lambda program: fuzz(program, seconds), programs)):
            print(f"FAILED: {program.name}\n{trouble}" if trouble else f"ok: {program.name}, {tried:,} inputs", flush=True)
            failed += bool(trouble)
    print(f"{len(programs) - failed} passed, {failed} failed")
    sys.exit(1 if failed or not programs else 0)


if __name__ == "__main__":
    main()
