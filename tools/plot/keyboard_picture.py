"""A US keyboard with the slips, intervals or holds of each key."""

from dataclasses import dataclass

import pandas as pd
from matplotlib import colors
from matplotlib.patches import Rectangle

from pictures import DARK, SESSIONS, counted, participants, plt, save

# The key at the left end of each row, in key widths, then its keys from left to right.
ROWS = ((0.0, "qwertyuiop"), (0.25, "asdfghjkl;'"), (0.75, "zxcvbnm,./"))
SPACE_LEFT, SPACE_WIDTH = 2.75, 5.0
SHADES = colors.LinearSegmentedColormap.from_list("shades", ("#ffffff", "#8f8f8f"))
INK = "#111111"  # stands out from every shade
LEAST_PRESSES = 5  # of fewer, a key is drawn without a shade


@dataclass(frozen=True)
class Picture:
    name: str
    title: str
    unit: str
    values: object  # of keys.csv rows: a table by key with the columns value and presses
    decimals: int = 0


def slips(keys):
    """Slips of 100 times that a key was meant. A key struck too often is a slip of that key; any
    other character too many belongs to no key."""
    meant = _key(keys["meant"]).where(keys["slip"] != "repeat", _key(keys["typed"]))
    rows = pd.DataFrame({"key": meant, "slip": keys["slip"] != "none",
                         "presses": keys["meant"] != ""})
    by_key = rows[rows["key"] != ""].groupby("key").sum()
    by_key = by_key[by_key["presses"] > 0]
    return pd.DataFrame({"value": 100 * by_key["slip"] / by_key["presses"],
                         "presses": by_key["presses"]})


def intervals(keys):
    return _medians(keys[keys["slip"] == "none"], "gap_ms")


def holds(keys):
    return _medians(keys, "hold_ms")


def _medians(keys, column):
    """The median over participants of each one's median: whoever types more counts no more."""
    rows = keys[keys[column].notna()].assign(key=_key(keys["typed"]))
    rows = rows[rows["key"] != ""]
    each = rows.groupby(["key", "participant"])[column].median()
    return pd.DataFrame({"value": each.groupby("key").median(),
                         "presses": rows.groupby("key").size()})


def _key(characters):
    """The key of a character; empty for what no key of the picture types."""
    lower = characters.str.lower().replace({'"': "'", ":": ";", "?": "/", "<": ",", ">": "."})
    known = {key for _, row in ROWS for key in row} | {" "}
    return lower.where(lower.isin(known), "")


PICTURES = (
    Picture("keyboard-slips.svg", "Slips of each key", "slips of 100 times the key was meant",
            slips, 1),
    Picture("keyboard-intervals.svg", "Time before each key",
            "ms from the key press before, median", intervals),
    Picture("keyboard-holds.svg", "How long each key was held", "ms held, median", holds),
)


def tables(picture, keys):
    return [picture.values(keys[keys["session"] == session]) for session in SESSIONS]


def draw(picture, keys, by_session, folder):
    figure, panels = plt.subplots(1, 2, figsize=(12, 3.6), layout="constrained")
    scale = _scale(by_session)
    for panel, session, values in zip(panels, SESSIONS, by_session):
        people = counted(participants(keys[keys["session"] == session]), "participant")
        panel.set_title(f"Session {session}, {people}" + ("" if len(values) > 0 else ": no data"))
        _draw_keyboard(panel, values, scale, picture.decimals)
    bar = figure.colorbar(plt.cm.ScalarMappable(scale, SHADES), ax=panels, location="bottom",
                          aspect=60, shrink=0.5)
    bar.set_label(picture.unit)
    save(figure, folder, picture.name, picture.title)


def _scale(by_session):
    shaded = pd.concat(by_session)
    shaded = shaded[shaded["presses"] >= LEAST_PRESSES]["value"]
    low, high = (shaded.min(), shaded.max()) if len(shaded) > 0 else (0, 1)
    return colors.Normalize(low, high if high > low else low + 1)


def _draw_keyboard(panel, values, scale, decimals):
    for depth, (left, row) in enumerate(ROWS):
        for place, key in enumerate(row):
            _draw_key(panel, left + place, -depth, 1.0, key, values, scale, decimals)
    _draw_key(panel, SPACE_LEFT, -len(ROWS), SPACE_WIDTH, " ", values, scale, decimals)
    panel.set_xlim(-0.1, 11.4)
    panel.set_ylim(-len(ROWS) - 0.1, 1.1)
    panel.set_aspect("equal")
    panel.set_axis_off()


def _draw_key(panel, left, bottom, width, key, values, scale, decimals):
    value, presses = values.loc[key] if key in values.index else (None, 0)
    is_shaded = presses >= LEAST_PRESSES
    shade = SHADES(scale(value)) if is_shaded else "white"
    panel.add_patch(Rectangle((left + 0.08, bottom + 0.08), width - 0.16, 0.84, facecolor=shade,
                              edgecolor=DARK, linewidth=0.8, linestyle="-" if is_shaded else ":"))
    middle = left + width / 2
    panel.text(middle, bottom + 0.76, "Space" if key == " " else key.upper(), ha="center",
               va="center", color=INK, fontsize=8, fontweight="bold")
    if is_shaded:
        panel.text(middle, bottom + 0.46, f"{value:.{decimals}f}", ha="center", va="center",
                   color=INK, fontsize=7.5)
    panel.text(middle, bottom + 0.22, f"n={int(presses)}" if presses else "none", ha="center",
               va="center", color=INK, fontsize=6)


def alt(picture, by_session):
    parts = []
    for session, values in zip(SESSIONS, by_session):
        shaded = values[values["presses"] >= LEAST_PRESSES]["value"].sort_values(ascending=False)
        highest = ", ".join(f"{'Space' if key == ' ' else key.upper()} "
                            f"{value:.{picture.decimals}f}" for key, value in shaded[:3].items())
        parts.append(f"Session {session}, highest: {highest or 'no key with enough presses'}.")
    return f"Two keyboards, each key with its value ({picture.unit}). " + " ".join(parts)
