"""Interleaved measuring of pairs, and the results as rows of a table."""

import gc
import os
import time
from statistics import median

# Time on the processor, where its clock is fine enough: other programs then disturb less.
clock = time.perf_counter if os.name == "nt" else getattr(time, "thread_time", time.process_time)

FULL = {"rounds": 15, "slice": 0.010, "runs": 9}
QUICK = {"rounds": 5, "slice": 0.004, "runs": 3}


class Goal:
    """What a figure has to reach: a ratio, or a limit for our side alone."""

    def __init__(self, text="", reached=None):
        self.text = text
        self.reached = reached

    def verdict(self, row):
        if self.reached is None:
            return ""
        return "ok" if self.reached(row) else "missed"


def at_most(ratio):
    # Judged as printed: the third decimal is noise.
    return Goal(f"<= {ratio:.2f} x", lambda row: round(row.ratio, 2) <= ratio)


def times_faster(factor):
    return Goal(f">= {factor} x faster", lambda row: row.ratio * factor <= 1.0)


def limit(value, text):
    return Goal(f"<= {text}", lambda row: row.ours <= value)


NO_GOAL = Goal()


class Row:
    """One line of the table. Times are seconds per element, sizes are bytes."""

    def __init__(self, name, ours, baseline, ratio, goal, unit="s"):
        self.name = name
        self.ours = ours
        self.baseline = baseline
        self.ratio = ratio
        self.goal = goal.text
        self.unit = unit
        self.verdict = goal.verdict(self)

    def as_dict(self):
        return dict(vars(self))

    def cells(self):
        return (
            self.name,
            shown(self.ours, self.unit),
            shown(self.baseline, self.unit),
            f"{self.ratio:.2f}" if self.ratio >= 0.5 else f"1/{1 / self.ratio:.1f}",
            self.goal,
            self.verdict,
        )


def shown(value, unit):
    if unit == "B":
        return f"{value:.0f} B"
    for factor, name in ((1e-3, "ms"), (1e-6, "us")):
        if value >= factor:
            return f"{value / factor:.2f} {name}"
    return f"{value * 1e9:.1f} ns"


HEADING = ("", "ours", "baseline", "ratio", "goal", "")
WIDTHS = (52, 10, 10, 7, 15, 6)


def line(cells):
    first, *others = zip(cells, WIDTHS)
    return "  ".join([first[0].ljust(first[1])] + [text.rjust(width) for text, width in others])


class Pair:
    """Two functions that do the same work on `count` elements, measured in turns.

    `setup` makes both; what it makes is gone when the measuring is over.
    """

    def __init__(self, name, setup, count=1, goal=NO_GOAL):
        self.name = name
        self.setup = setup
        self.count = count
        self.goal = goal

    def run(self, effort):
        functions = self.setup()
        for function in functions:
            function()
            function()
        repeats = [enough_repeats(function, effort["slice"]) for function in functions]
        times = ([], [])
        gc.collect()
        gc.disable()
        try:
            for turn in range(effort["rounds"]):
                # Neither side is always the one that finds the caches cold.
                for side in (0, 1) if turn % 2 == 0 else (1, 0):
                    took = time_of(functions[side], repeats[side])
                    times[side].append(took / repeats[side] / self.count)
        finally:
            gc.enable()
        ratio = median(ours / baseline for ours, baseline in zip(*times))
        return Row(self.name, median(times[0]), median(times[1]), ratio, self.goal)


class Figure:
    """Something that is measured in a way of its own; `measure` gives ours and the baseline."""

    def __init__(self, name, measure, goal=NO_GOAL, unit="s"):
        self.name = name
        self.measure = measure
        self.goal = goal
        self.unit = unit

    def run(self, effort):
        ours, baseline = self.measure(effort)
        return Row(self.name, ours, baseline, ours / baseline, self.goal, self.unit)


def time_of(function, repeats):
    begin = clock()
    for _ in range(repeats):
        function()
    return clock() - begin


def enough_repeats(function, seconds):
    repeats = 1
    while True:
        took = time_of(function, repeats)
        if took >= seconds:
            return repeats
        repeats = max(repeats + 1, int(repeats * min(10.0, 1.2 * seconds / max(took, 1e-9))))
