"""Session 1 against session 2: statistics of values that come in pairs, one pair a participant."""

from dataclasses import dataclass
from typing import Optional

import numpy as np
from scipy import stats

SEED = 1
RESAMPLES = 10_000
# Below six differences no outcome of the signed-rank test is below 0.05 (2 / 2**5 = 0.0625), and
# resampling so few values says little about where the median lies.
LEAST_PAIRS = 6
MOST_FOR_EXACT_TEST = 200


@dataclass
class Comparison:
    """`differences` are session 2 minus session 1. What cannot be said of so few pairs is None."""
    pairs: int
    medians: Optional[tuple] = None
    intervals: Optional[tuple] = None
    difference: Optional[float] = None
    difference_interval: Optional[tuple] = None
    test: Optional["SignedRankTest"] = None


@dataclass
class SignedRankTest:
    """Wilcoxon's signed-rank test, two-sided. `n` leaves out differences of zero."""
    n: int
    w_plus: float
    w_minus: float
    p: float

    @property
    def rank_biserial(self):
        """Matched-pairs rank-biserial correlation, -1 to 1 (Kerby 2014)."""
        return (self.w_plus - self.w_minus) / (self.w_plus + self.w_minus)


def compare(first, second):
    """Two equally long series, NaN where unknown; only complete pairs count."""
    pairs = np.column_stack([np.asarray(first, float), np.asarray(second, float)])
    pairs = pairs[~np.isnan(pairs).any(axis=1)]
    if len(pairs) == 0:
        return Comparison(0)
    differences = pairs[:, 1] - pairs[:, 0]
    return Comparison(
        pairs=len(pairs),
        medians=(float(np.median(pairs[:, 0])), float(np.median(pairs[:, 1]))),
        intervals=(median_interval(pairs[:, 0]), median_interval(pairs[:, 1])),
        difference=float(np.median(differences)),
        difference_interval=median_interval(differences),
        test=signed_rank_test(differences))


def median_interval(values):
    """95 % percentile bootstrap interval of the median; None for too few values."""
    if len(values) < LEAST_PAIRS:
        return None
    samples = np.random.default_rng(SEED).choice(values, (RESAMPLES, len(values)))
    low, high = np.percentile(np.median(samples, axis=1), (2.5, 97.5))
    return float(low), float(high)


def signed_rank_test(differences):
    """None below LEAST_PAIRS differences other than zero."""
    # Values come with a few decimals: what differs by less is the same, and ties are ties.
    differences = np.round(np.asarray(differences, float), 9)
    differences = differences[differences != 0]
    if len(differences) < LEAST_PAIRS:
        return None
    ranks = stats.rankdata(np.abs(differences))
    w_plus = float(ranks[differences > 0].sum())
    w_minus = float(ranks[differences < 0].sum())
    return SignedRankTest(len(differences), w_plus, w_minus,
                          _two_sided_p(differences, ranks, min(w_plus, w_minus)))


def _two_sided_p(differences, ranks, smaller):
    if len(differences) > MOST_FOR_EXACT_TEST:
        return float(stats.wilcoxon(differences, method="approx").pvalue)
    return exact_p(ranks, smaller)


def exact_p(ranks, smaller):
    """The share of all ways to give the ranks signs whose smaller rank sum is at most `smaller`.
    Exact with ties too, where the usual tables are not. Mean ranks are whole when doubled."""
    doubled = np.rint(2 * np.asarray(ranks)).astype(int)
    share = np.zeros(doubled.sum() + 1)
    share[0] = 1
    for rank in doubled:
        share /= 2
        share[rank:] += share[:-rank].copy()
    return float(min(1, 2 * share[:int(round(2 * smaller)) + 1].sum()))


def holm(p_values):
    """Adjusted for that many tests (Holm 1979); None stays None and is no test."""
    known = sorted((p, position) for position, p in enumerate(p_values) if p is not None)
    adjusted = [None] * len(p_values)
    largest = 0.0
    for done, (p, position) in enumerate(known):
        largest = max(largest, min(1.0, (len(known) - done) * p))
        adjusted[position] = largest
    return adjusted


def share_interval(hits, cases):
    """95 % interval of sum(hits) / sum(cases), one number each a participant: participants are
    resampled, as what one person did is not independent. None for too few participants."""
    hits, cases = np.asarray(hits, float), np.asarray(cases, float)
    if len(cases) < LEAST_PAIRS:
        return None
    chosen = np.random.default_rng(SEED).integers(len(cases), size=(RESAMPLES, len(cases)))
    shares = hits[chosen].sum(axis=1) / cases[chosen].sum(axis=1)
    low, high = np.percentile(shares, (2.5, 97.5))
    return float(low), float(high)
