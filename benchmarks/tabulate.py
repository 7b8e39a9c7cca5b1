"""Turns Google Benchmark's JSON into docs/benchmarks.md: ratios to each case's baseline, with their spread."""

import argparse
import collections
import datetime
import json
import platform
import re
import statistics
import sys


def read_runs(path):
    """Maps each case's name to its repetitions: time in nanoseconds and the run's data."""
    with open(path, encoding="utf-8") as file:
        data = json.load(file)
    runs = collections.defaultdict(dict)
    for run in data["benchmarks"]:
        if run.get("run_type") == "aggregate":
            continue
        if run.get("error_occurred"):
            sys.exit(f"{run['name']}: {run['error_message']}")
        name = re.sub(r"/(real_time|threads:\d+)", "", run["run_name"])
        unit = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}[run["time_unit"]]
        runs[name][run["repetition_index"]] = (run["real_time"] * unit, run)
    return data["context"], runs


def readable(nanoseconds):
    for unit, scale in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= scale:
            return f"{nanoseconds / scale:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def median_time(repetitions):
    return statistics.median(time for time, _ in repetitions.values())


def pair_rows(runs):
    for name in runs:
        if not name.endswith("/ours"):
            continue
        case = name.removesuffix("/ours")
        ours, baseline = runs[name], runs[case + "/baseline"]
        ratios = sorted(ours[index][0] / baseline[index][0] for index in ours)
        ratio = median_time(ours) / median_time(baseline)
        any_run = next(iter(baseline.values()))[1]
        target = any_run["target"]
        verdict = "yes" if ratio <= target else f"no, by {ratio / target - 1:.0%}"
        yield (f"| {case} | {any_run.get('label', '')} | {readable(median_time(ours))} | "
               f"{readable(median_time(baseline))} | {ratio:.2f} | {ratios[0]:.2f} to {ratios[-1]:.2f} | "
               f"{target:g} | {verdict} |")


def growth_rows(runs):
    sizes = collections.defaultdict(dict)
    for name, repetitions in runs.items():
        if "/growth/" in name:
            case, size = name.split("/growth/")
            sizes[case][int(size)] = median_time(repetitions)
    for case, times in sizes.items():
        small, middle, large = sorted(times)
        yield (f"| {case} | {small} | {readable(times[small])} | {readable(times[middle])} | {readable(times[large])} | "
               f"{times[middle] / times[small]:.1f} | {times[large] / times[middle]:.1f} |")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("results")
    parser.add_argument("--notes", required=True, help="Markdown that explains missed targets")
    parser.add_argument("--output", required=True)
    options = parser.parse_args()
    context, runs = read_runs(options.results)
    with open(options.notes, encoding="utf-8") as notes, open(options.output, "w", encoding="utf-8") as page:
        page.write(
            "# Benchmarks\n\n"
            "`scripts/benchmark` writes this page. Each case is measured beside a baseline that does the same work\n"
            "without the library, interleaved in one run; the ratio is that of the medians, the spread that of the\n"
            "single repetitions.\n\n"
            f"{datetime.date.today():%Y-%m-%d}, {platform.machine()}, {context['num_cpus']} processors of "
            f"{context['mhz_per_cpu']} MHz.\n\n"
            "| case | baseline | ours | baseline's time | ratio | spread | target | met |\n"
            "|---|---|---|---|---|---|---|---|\n")
        page.writelines(row + "\n" for row in pair_rows(runs))
        page.write("\n## Growth\n\nTime at 1, 10 and 100 times an input, and the factor of each step: 10 is linear.\n\n"
                   "| case | smallest input | 1× | 10× | 100× | first step | second step |\n"
                   "|---|---|---|---|---|---|---|\n")
        page.writelines(row + "\n" for row in growth_rows(runs))
        page.write("\n" + notes.read())


main()
