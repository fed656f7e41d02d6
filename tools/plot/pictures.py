"""What the pictures share: one look, readable without colour, and the same bytes every time."""

import os

import matplotlib

matplotlib.use("svg")
from matplotlib import pyplot as plt  # noqa: E402  (the backend is chosen before)

LIGHT, MIDDLE, DARK = "#d9d9d9", "#8c8c8c", "#222222"
SESSIONS = (1, 2)

plt.rcParams.update({
    "svg.fonttype": "none",  # texts stay texts: they can be searched, read aloud and enlarged
    "svg.hashsalt": "plot-study",
    "font.family": "sans-serif",
    "font.sans-serif": ["DejaVu Sans"],
    "font.size": 9,
    "axes.spines.top": False,
    "axes.spines.right": False,
    "axes.titlesize": 9,
    "hatch.linewidth": 0.7,
})


def save(figure, folder, name, title):
    path = os.path.join(folder, name)
    figure.savefig(path + ".part", format="svg", metadata={"Title": title, "Date": None})
    plt.close(figure)
    os.replace(path + ".part", path)


def participants(rows):
    return rows["participant"].nunique()


def counted(number, noun):
    return f"{number:,} {noun}" + ("" if number == 1 else "s")
