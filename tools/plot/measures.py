"""The measures that are compared between the sessions, as columns of the tables."""

from dataclasses import dataclass

import numpy as np

from paired import compare, holm


@dataclass(frozen=True)
class Measure:
    column: str
    name: str
    unit: str
    factor: float = 1  # from the column's unit to this one
    decimals: int = 1

    @property
    def label(self):
        return f"{self.name} ({self.unit})"

    def text(self, value):
        return f"{value:.{self.decimals}f}".replace("-", "\u2212")

    def span(self, interval):
        """What an interval is called in running text."""
        return f"{self.text(interval[0])} to {self.text(interval[1])}"


MEASURES = (
    Measure("wpm", "Words per minute, first to last key", "words/min"),
    Measure("adjusted_wpm", "Adjusted words per minute", "words/min"),
    Measure("typed_msd_error_rate", "Error rate of what was typed", "MSD, %", 100),
    Measure("final_msd_error_rate", "Error rate of what remained", "MSD, %", 100),
    Measure("final_total_error_rate", "Total error rate", "%", 100),
    Measure("kspc", "Keystrokes per character", "keys/character", 1, 3),
    Measure("words_fixed", "Words put right by corrections", "words"),
    Measure("words_broken", "Words made wrong by corrections", "words"),
    Measure("precision", "Automatic corrections that are right", "%", 100),
    Measure("interval_median_ms", "Median interval between keys", "ms", 1, 0),
    Measure("hold_median_ms", "Median hold of a key", "ms", 1, 0),
)


@dataclass
class PairedMeasure:
    measure: Measure
    values: np.ndarray  # one row a participant, session 1 and session 2
    comparison: object
    adjusted_p: object = None


def paired_rows(participants):
    """One row a participant; codes that stand twice are nobody's pair."""
    return participants[~participants["participant"].duplicated(keep=False)]


def repeated_codes(participants):
    codes = participants["participant"]
    return sorted(set(codes[codes.duplicated()]))


def paired_measures(participants):
    rows = paired_rows(participants)
    result = []
    for measure in MEASURES:
        values = rows[[measure.column + "_1", measure.column + "_2"]].to_numpy(float)
        values = values * measure.factor
        result.append(PairedMeasure(measure, values[~np.isnan(values).any(axis=1)],
                                    compare(values[:, 0], values[:, 1])))
    tests = [entry.comparison.test for entry in result]
    for entry, p in zip(result, holm([test.p if test else None for test in tests])):
        entry.adjusted_p = p
    return result
