"""Session 1 beside session 2, a line for each participant."""

import textwrap

import numpy as np

from pictures import DARK, MIDDLE, SESSIONS, counted, plt, save

NAME, TITLE = "sessions.svg", "Session 1 and session 2 of each participant"
COLUMNS = 4


def draw(measures, folder):
    rows = -(-len(measures) // COLUMNS)
    figure, panels = plt.subplots(rows, COLUMNS, figsize=(11, 3.1 * rows),
                                  layout="constrained", squeeze=False)
    for panel, entry in zip(panels.flat, measures):
        _draw_panel(panel, entry)
    for panel in panels.flat[len(measures):]:
        panel.set_axis_off()
    save(figure, folder, NAME, TITLE)


def _draw_panel(panel, entry):
    panel.set_title("\n".join(textwrap.wrap(entry.measure.name, 26)))
    panel.set_ylabel(entry.measure.unit)
    panel.set_xlim(0.6, 2.4)
    panel.set_xticks(SESSIONS, ["Session 1", "Session 2"])
    panel.set_xlabel(counted(entry.comparison.pairs, "pair"))
    if entry.comparison.pairs == 0:
        panel.text(1.5, 0.5, "no pair", ha="center", transform=panel.get_xaxis_transform())
        panel.set_yticks([])
        return
    # One line with gaps takes a third of the bytes that a line for each would.
    gap = np.full((len(entry.values), 1), np.nan)
    panel.plot(np.tile((*SESSIONS, np.nan), len(gap)), np.hstack([entry.values, gap]).ravel(),
               color=MIDDLE, linewidth=0.8, marker=".", markersize=4)
    _draw_medians(panel, entry.comparison)
    if entry.values.min() >= 0:
        panel.set_ylim(0, None if entry.values.max() > 0 else 1)


def _draw_medians(panel, comparison):
    places = (0.85, 2.15)
    panel.plot(places, comparison.medians, linestyle="none", marker="D", markersize=6, color=DARK)
    for place, interval in zip(places, comparison.intervals):
        if interval:
            panel.plot((place, place), interval, color=DARK, linewidth=2)


def alt(measures):
    parts = [f"{entry.measure.name}: {entry.measure.text(entry.comparison.medians[0])} and "
             f"{entry.measure.text(entry.comparison.medians[1])} {entry.measure.unit}"
             for entry in measures if entry.comparison.pairs > 0]
    return ("Small panels, one a measure, with a line for each participant from session 1 to "
            "session 2. Medians: " + ("; ".join(parts) if parts else "none") + ".")
