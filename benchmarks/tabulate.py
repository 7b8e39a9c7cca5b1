"""Turns the benchmark program's JSON into docs/benchmarks.md: ratios to each case's baseline, and how times grow."""

import argparse
import collections
import datetime
import fnmatch
import json
import pathlib
import platform
import re
import statistics
import sys


def read_cases(path):
    """Maps each case's name, in the program's order, to its repetitions."""
    with open(path, encoding="utf-8") as file:
        data = json.load(file)
    cases = collections.defaultdict(list)
    for run in data["benchmarks"]:
        if run["run_type"] == "aggregate":
            continue
        if run.get("error_occurred"):
            sys.exit(f"{run['name']}: {run['error_message']}")
        cases[run["run_name"].removesuffix("/manual_time")].append(run)
    in_order = sorted(cases.items(), key=lambda case: case[1][0]["family_index"])
    return data["context"], dict(in_order)


def processor():
    try:
        with open("/proc/cpuinfo", encoding="utf-8") as file:
            names = re.findall(r"^model name\s*: (.*)$", file.read(), re.MULTILINE)
    except OSError:
        names = []
    return names[0] if names else platform.machine()


def readable(nanoseconds):
    for unit, scale in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if nanoseconds >= scale:
            return f"{nanoseconds / scale:.3g} {unit}"
    return f"{nanoseconds:.3g} ns"


def median_of(runs, field):
    return statistics.median(run[field] for run in runs)


def read_notes(path):
    """The notes on missed targets: a line each, '- cases: why', the cases as a shell pattern."""
    notes = []
    for number, line in enumerate(pathlib.Path(path).read_text(encoding="utf-8").splitlines(), 1):
        if not line:
            continue
        match = re.fullmatch(r"- ([^:]+(?:::[^:]+)*): (.+)", line)
        if match is None:
            sys.exit(f"{path}:{number}: not a note: {line}")
        notes.append((match[1], match[2]))
    return notes


def note_on(case, notes):
    return next((why for pattern, why in notes if fnmatch.fnmatchcase(case, pattern)), None)


def write_pairs(page, cases, notes):
    """Returns the cases that miss their target beyond doubt without a note that says why."""
    families = collections.defaultdict(list)
    for name, runs in cases.items():
        if not name.startswith("growth/"):
            family, case = name.split("/", 1)
            families[family].append((case, runs))
    missed = []
    undecided = set()
    count = 0
    for family, members in families.items():
        page.write(f"\n## {family[0].upper()}{family[1:]}\n\n"
                   "| case | baseline | ours | baseline's time | ratio | spread | target | met |\n"
                   "|---|---|---|---|---|---|---|---|\n")
        for case, runs in members:
            count += 1
            ratios = sorted(run["ratio"] for run in runs)
            ratio = statistics.median(ratios)
            target = runs[0]["target"]
            met = "yes"
            if round(ratio, 2) > target:
                met = f"no, by {ratio / target - 1:.0%}"
                missed.append(f"{family}/{case}")
                if ratios[0] <= target:
                    undecided.add(missed[-1])
            page.write(f"| {case} | {runs[0]['label']} | {readable(median_of(runs, 'ours'))} | "
                       f"{readable(median_of(runs, 'baseline'))} | {ratio:.2f} | {ratios[0]:.2f} to {ratios[-1]:.2f} | "
                       f"{target:g} | {met} |\n")
    page.write(f"\n## Missed targets\n\n{count - len(missed)} of {count} cases meet their target.\n\n")
    reasons = collections.defaultdict(list)
    for case in missed:
        why = note_on(case, notes)
        if why is None and case in undecided:
            why = "the spread reaches from within the target to beyond it: this run does not tell."
        reasons[why].append(case)
    unexplained = reasons.pop(None, [])
    page.writelines(f"- {'; '.join(members)}: {why}\n" for why, members in reasons.items())
    page.writelines(f"- {case}: not explained.\n" for case in unexplained)
    return unexplained


def write_growth(page, cases, notes):
    page.write("\n## Growth\n\n"
               "Time at 1, 10 and 100 times an input, and the factor of each step: 10 is linear, less is better than\n"
               "linear or a fixed cost; more, up to some 20 in one step and 10 in the other, is memory that the nearest of the\n"
               "processor's caches no longer hold. A quadratic cost would show as 100. Functions that share their code (both\n"
               "ways of folding bytes, say) have one row. Names that do not exist show what the text costs, not the file.\n\n"
               "| function | smallest input | 1× | 10× | 100× | first step | second step |\n"
               "|---|---|---|---|---|---|---|\n")
    for name, runs in cases.items():
        if name.startswith("growth/"):
            once, tenfold, hundredfold = (min(run[field] for run in runs) for field in ("once", "tenfold", "hundredfold"))
            page.write(f"| {name.removeprefix('growth/')} | {runs[0]['size']:.0f} {runs[0]['label']} | "
                       f"{readable(once)} | {readable(tenfold)} | {readable(hundredfold)} | "
                       f"{tenfold / once:.1f} | {hundredfold / tenfold:.1f} |\n")
    page.write("\n")
    page.writelines(f"- {pattern.removeprefix('growth/')}: {why}\n" for pattern, why in notes
                    if pattern.startswith("growth/"))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("results")
    parser.add_argument("--notes", required=True, help="why cases miss their targets")
    parser.add_argument("--output", required=True)
    options = parser.parse_args()
    context, cases = read_cases(options.results)
    notes = read_notes(options.notes)
    with open(options.output, "w", encoding="utf-8") as page:
        page.write(
            "# Benchmarks\n\n"
            "`scripts/benchmark` writes this page. Each case stands beside a baseline that does the same work without the\n"
            "library: the C library's call, the bare system calls, the bare virtual calls, and whatever else the contract\n"
            "itself asks for (a shell, a locale call). Both run in short batches that take turns; the ratio is the median\n"
            "of the ratios of neighbouring batches, the spread that of the repetitions' medians.\n\n"
            f"{datetime.date.today():%Y-%m-%d}, {processor()}, {context['num_cpus']} processors, "
            f"{platform.system()} {platform.release()}, {platform.libc_ver()[0]} {platform.libc_ver()[1]}, GCC -O2, "
            f"scratch files in {context.get('scratch', 'a temporary folder')}.\n")
        unexplained = write_pairs(page, cases, notes)
        write_growth(page, cases, notes)
    faults = [f"{case} misses its target, and {options.notes} does not say why" for case in unexplained]
    faults += [f"{options.notes} has a note on {pattern}, and there is no such case" for pattern, _ in notes
               if not fnmatch.filter(cases, pattern)]
    if faults:
        sys.exit(f"{options.output} is written, but:\n" + "\n".join(faults))


main()
