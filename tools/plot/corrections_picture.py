"""What became of the words that were corrected, by kind of correction."""

import pandas as pd

from pictures import MIDDLE, LIGHT, DARK, SESSIONS, counted, participants, plt, save

NAME, TITLE = "corrections.svg", "What each kind of correction did"
KINDS = {"auto-repeat": "Automatic:\nresult shorter", "auto-nearby": "Automatic:\nsame length",
         "auto-other": "Automatic:\nresult longer", "manual": "Suggestion chip",
         "cycle": "Step of the\ncycle key"}
EFFECTS = {"fixed": "wrong before, right after", "same": "right before and after",
           "wrong": "wrong before and after", "broken": "right before, wrong after",
           "": "not known which word was meant"}
LOOKS = {"fixed": ("white", ""), "same": (LIGHT, ""), "wrong": (MIDDLE, "///"),
         "broken": (DARK, ""), "": ("white", "xx")}


def counts(corrections):
    """A row for each session and kind that occurs: how many of each effect, and of whom."""
    rows = []
    for session in SESSIONS:
        for kind in _kinds(corrections):
            chosen = corrections[(corrections["session"] == session)
                                 & (corrections["kind"] == kind)]
            if chosen.empty:
                continue
            effects = chosen["effect"].value_counts()
            rows.append({"session": session, "kind": kind, "all": len(chosen),
                         "participants": participants(chosen),
                         **{effect: int(effects.get(effect, 0)) for effect in EFFECTS}})
    return pd.DataFrame(rows, columns=["session", "kind", "all", "participants", *EFFECTS])


def _kinds(corrections):
    return [*KINDS, *sorted(set(corrections["kind"]) - set(KINDS))]


def draw(table, folder):
    figure, panels = plt.subplot_mosaic([[*SESSIONS], ["legend", "legend"]], figsize=(11, 4.4),
                                        height_ratios=(6, 1), layout="constrained")
    panels[2].sharex(panels[1])
    for session in SESSIONS:
        panel = panels[session]
        rows = table[table["session"] == session].iloc[::-1]
        panel.set_title(f"Session {session}: {counted(int(rows['all'].sum()), 'correction')}")
        panel.set_xlabel("corrections (count)")
        _draw_bars(panel, rows)
    panels["legend"].set_axis_off()
    panels["legend"].legend(*_legend(), loc="center", ncols=3, frameon=False)
    save(figure, folder, NAME, TITLE)


def _draw_bars(panel, rows):
    if rows.empty:
        panel.text(0.5, 0.5, "none", ha="center", transform=panel.transAxes)
        panel.set_yticks([])
        return
    names = [f"{KINDS.get(row.kind, row.kind)}\n({counted(row.participants, 'participant')})"
             for row in rows.itertuples()]
    left = pd.Series(0, index=rows.index)
    for effect in EFFECTS:
        colour, hatch = LOOKS[effect]
        panel.barh(names, rows[effect], left=left, color=colour, hatch=hatch, edgecolor=DARK,
                   height=0.6)
        _label(panel, names, rows[effect], left, "white" if colour == DARK else DARK)
        left = left + rows[effect]


def _label(panel, names, values, left, colour):
    for name, value, start in zip(names, values, left):
        if value > 0:
            panel.text(start + value / 2, name, str(value), ha="center", va="center",
                       color=colour, fontsize=8,
                       bbox={"facecolor": DARK if colour == "white" else "white",
                             "edgecolor": "none", "pad": 1})


def _legend():
    patches = [plt.Rectangle((0, 0), 1, 1, facecolor=colour, hatch=hatch, edgecolor=DARK)
               for colour, hatch in LOOKS.values()]
    return patches, [EFFECTS[effect] for effect in LOOKS]


def alt(table):
    if table.empty:
        return "No corrections."
    parts = [f"session {row.session}, {KINDS.get(row.kind, row.kind)}".replace("\n", " ")
             + f": {row.all}, of them {row.fixed} fixed and {row.broken} broken"
             for row in table.itertuples()]
    return "Bars of how many words each kind of correction changed. " + "; ".join(parts) + "."
