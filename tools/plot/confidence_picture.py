"""How often an automatic correction is right, by the confidence that the engine stated."""

import numpy as np
import pandas as pd

from paired import share_interval
from pictures import DARK, LIGHT, MIDDLE, counted, participants, plt, save

NAME, TITLE = "confidence.svg", "Confidence and correctness of automatic corrections"
BINS = 10


def usable(corrections):
    automatic = corrections[corrections["kind"].str.startswith("auto")]
    return automatic[automatic["confidence"].notna() & automatic["right"].notna()]


def bins(corrections):
    """A row for each tenth of the confidence in which there are corrections."""
    rows = usable(corrections)
    number = np.minimum(np.floor(rows["confidence"] * BINS + 1e-9), BINS - 1)
    result = [_bin(int(place), chosen) for place, chosen in rows.groupby(number)]
    return pd.DataFrame(result, columns=["place", "all", "right", "participants", "confidence",
                                         "share", "interval"])


def _bin(place, rows):
    right = rows["right"].astype(bool)
    by_person = right.groupby(rows["participant"])
    return {"place": place, "all": len(rows), "right": int(right.sum()),
            "participants": participants(rows), "confidence": rows["confidence"].mean(),
            "share": right.mean(), "interval": share_interval(by_person.sum(), by_person.count())}


def draw(table, folder):
    figure, (upper, lower) = plt.subplots(2, 1, figsize=(6.5, 5.5), sharex=True,
                                          height_ratios=(3, 1), layout="constrained")
    upper.plot((0, 1), (0, 1), color=MIDDLE, linestyle="--", linewidth=1)
    upper.text(0.30, 0.34, "as often right as stated", rotation=38, color=DARK, fontsize=8)
    for row in table.itertuples():
        if row.interval:
            upper.plot((row.confidence,) * 2, row.interval, color=DARK, linewidth=2)
        upper.plot(row.confidence, row.share, marker="o", color=DARK, markersize=6)
        upper.annotate(f"{row.right} of {row.all}", (row.confidence, row.share), (-7, 0),
                       textcoords="offset points", ha="right", va="center", fontsize=8)
    upper.set_ylabel("share that is right (0 to 1)")
    upper.set_ylim(-0.03, 1.05)
    lower.bar((table["place"] + 0.5) / BINS, table["all"], width=0.9 / BINS, color=LIGHT,
              edgecolor=DARK)
    lower.set_ylabel("corrections")
    lower.set_xlabel("confidence stated by the engine (0 to 1)")
    lower.set_xlim(0, 1.02)
    save(figure, folder, NAME, TITLE)


def alt(table):
    parts = [f"confidence {row.place / BINS:.1f} to {(row.place + 1) / BINS:.1f}: {row.right} of "
             f"{row.all} right, {counted(row.participants, 'participant')}"
             for row in table.itertuples()]
    return ("Share of automatic corrections that are right against the stated confidence. "
            + ("; ".join(parts) if parts else "No correction with a confidence") + ".")
