#!/usr/bin/env python3
"""Runs every fuzz target of a build folder for a short while and ends with the line `N passed, N failed`.

    tools/run_fuzzers.py BUILD_FOLDER [SECONDS]

SECONDS (10 unless given) is for each target. What a target starts from is in tests/fuzz/corpus/NAME/, where that folder
exists; what it finds, and an input that breaks it, goes to BUILD_FOLDER/corpus/NAME/."""

import concurrent.futures
import os
import pathlib
import subprocess
import sys

SEEDS = pathlib.Path(__file__).resolve().parent.parent / "tests" / "fuzz" / "corpus"


def fuzz(program, seconds):
    """What went wrong, as text; empty when nothing did."""
    corpus = program.parent / "corpus" / program.name
    corpus.mkdir(parents=True, exist_ok=True)
    seeds = [SEEDS / program.name] if (SEEDS / program.name).is_dir() else []
    command = [program, f"-max_total_time={seconds}", "-timeout=10", "-rss_limit_mb=1024", "-print_final_stats=1",
               f"-artifact_prefix={corpus}-", corpus, *seeds]
    try:
        run = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                             timeout=seconds + 60)
    except subprocess.TimeoutExpired:
        return "did not end"
    output = run.stdout.decode("utf-8", "replace")
    if run.returncode == 0 and "stat::number_of_executed_units:" in output:
        return ""
    return f"exit status {run.returncode}\n{output[-6000:]}"


def main():
    build = pathlib.Path(sys.argv[1]).resolve()
    seconds = int(sys.argv[2]) if len(sys.argv) > 2 else 10
    programs = sorted(path for path in build.glob("*_fuzz") if os.access(path, os.X_OK))
    failed = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for program, trouble in zip(programs, pool.map(lambda program: fuzz(program, seconds), programs)):
            print(f"{'FAILED' if trouble else 'ok'}: {program.name}{trouble and chr(10) + trouble}", flush=True)
            failed += bool(trouble)
    print(f"{len(programs) - failed} passed, {failed} failed")
    sys.exit(1 if failed or not programs else 0)


if __name__ == "__main__":
    main()
