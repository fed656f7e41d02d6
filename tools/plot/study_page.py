"""Makes the page of a study: study.html with its pictures beside it."""

import os

import confidence_picture
import corrections_picture
import keyboard_picture
import paired_picture
from html_parts import figure, items, page, paragraph, section, table
from measures import paired_measures, paired_rows, repeated_codes
from paired import LEAST_PAIRS, RESAMPLES, SEED
from pictures import counted, participants
from tables import read_study

CAVEAT = (
    "Session 2 always came after session 1, had another sentence, and was the one with the cycle "
    "key. Practice, tiredness, sentence and cycle key cannot be told apart here: a difference "
    "between the sessions is not the effect of the cycle key. Only a study that gives both "
    "conditions in balanced order to comparable participants could say that.")


def write_page(folder, output, title="Typing study"):
    """Answers the path of the page; raises TableError or OSError."""
    study = read_study(folder)
    os.makedirs(output, exist_ok=True)
    sections = [_data(study), _sessions(study, output), _corrections(study, output),
                _confidence(study, output), _keyboard(study, output), _methods()]
    path = os.path.join(output, "study.html")
    with open(path + ".part", "w", encoding="utf-8") as file:
        file.write(page(title, sections))
    os.replace(path + ".part", path)
    return path


def _data(study):
    return section("Data", items(data_lines(study)))


def data_lines(study):
    sessions = study.sessions
    typed = sessions[sessions["keystrokes"] > 0]
    lines = [f"{counted(participants(sessions), 'participant')}, "
             f"{counted(len(typed), 'session')} with typing in it."]
    for session in (1, 2):
        chosen = typed[typed["session"] == session]
        lines.append(f"Session {session}: {counted(participants(chosen), 'participant')}.")
    return lines + _lacking(study, typed) + _doubts(typed)


def _lacking(study, typed):
    lines = []
    number = typed.groupby("participant")["session"].nunique()
    single = sorted(number[number < 2].index)
    if single:
        lines.append(f"Only one session, so in no pair: {', '.join(single)}.")
    repeated = repeated_codes(study.participants)
    if repeated:
        lines.append("Codes with more than one study, left out of the comparison of the sessions, "
                     f"as nobody can tell whether it is one person: {', '.join(repeated)}.")
    without_record = int((typed["record"] == "").sum())
    if without_record:
        lines.append(f"{counted(without_record, 'session')} without a session record: no times of "
                     "keys, so nothing on speed, intervals and holds.")
    return lines


def _doubts(typed):
    lines = []
    for column, text in (("final_reproduced", "the keys do not give the final text (text was "
                                              "pasted, or typed elsewhere than at its end): error "
                                              "rates of what was typed are estimates"),
                         ("report_matches", "report and record do not agree: look at both files")):
        count = int((typed[column] == False).sum())  # noqa: E712  (unknown is neither)
        if count:
            lines.append(f"In {counted(count, 'session')} {text}.")
    resets = typed[typed["resets"] > 0]
    if len(resets) > 0:
        lines.append(f"Reset was pressed in {counted(len(resets), 'session')}; what came before "
                     "the last time is not in the figures.")
    layouts = sorted(set(typed["layout"]) - {""})
    if layouts:
        lines.append(f"Keyboard layouts: {', '.join(layouts)}.")
    return lines


def _sessions(study, output):
    measures = paired_measures(study.participants)
    pairs = len(paired_rows(study.participants))
    parts = [paragraph(CAVEAT)]
    if max(entry.comparison.pairs for entry in measures) == 0:
        parts.append(paragraph("No participant has typed both sessions, so there is nothing to "
                               "compare."))
        return section("Session 1 and session 2", *parts)
    paired_picture.draw(measures, output)
    parts.append(figure(paired_picture.NAME, paired_picture.alt(measures),
                        "A line is a participant with both values. Diamonds are the medians, the "
                        "bars beside them 95 % intervals, drawn from "
                        f"{LEAST_PAIRS} pairs on."))
    parts.append(table(
        f"Medians and differences, participants with both values ({counted(pairs, 'participant')} "
        "in all)",
        ("Measure", "Pairs", "Session 1 (95 % interval)", "Session 2 (95 % interval)",
         "Difference 2 \u2212 1 (95 % interval)", "Wilcoxon signed-rank", "p (Holm)",
         "Rank-biserial r"),
        [_measure_row(entry) for entry in measures]))
    parts.append(paragraph(
        "Difference: the median of each participant's difference, which need not be the difference "
        "of the medians. A positive r: session 2 is higher."))
    return section("Session 1 and session 2", *parts)


def _measure_row(entry):
    measure, result = entry.measure, entry.comparison
    if result.pairs == 0:
        return (measure.label, "0", "no pair", "no pair", "no pair", "not tested", "", "")
    return (measure.label, str(result.pairs),
            *(_median(measure, value, interval)
              for value, interval in zip((*result.medians, result.difference),
                                         (*result.intervals, result.difference_interval))),
            *_test_cells(entry))


def _median(measure, value, interval):
    return measure.text(value) + (f" ({measure.span(interval)})" if interval else "")


def _test_cells(entry):
    test = entry.comparison.test
    if test is None:
        return (f"not tested: fewer than {LEAST_PAIRS} differences other than zero", "", "")
    return (f"n = {test.n}, W+ = {test.w_plus:g}, W\u2212 = {test.w_minus:g}, {p_text(test.p)}",
            p_text(entry.adjusted_p), f"{test.rank_biserial:.2f}".replace("-", "\u2212"))


def p_text(p):
    return "p < 0.001" if p < 0.001 else f"p = {p:.3f}"


def _corrections(study, output):
    rows = study.corrections
    if rows.empty:
        return section("What each kind of correction did", paragraph("No word was corrected."))
    counts = corrections_picture.counts(rows)
    corrections_picture.draw(counts, output)
    return section(
        "What each kind of correction did",
        figure(corrections_picture.NAME, corrections_picture.alt(counts),
               f"{counted(len(rows), 'correction')} of "
               f"{counted(participants(rows), 'participant')}, "
               "compared with the word of the prompt that was meant. A step of the cycle key that "
               "only passes by counts as a correction, too."),
        table("Corrections by session and kind",
              ("Session", "Kind", "Participants", "Corrections",
               *corrections_picture.EFFECTS.values()),
              [(str(row["session"]),
                corrections_picture.KINDS.get(row["kind"], row["kind"]).replace("\n", " "),
                str(row["participants"]), str(row["all"]),
                *(str(row[effect]) for effect in corrections_picture.EFFECTS))
               for row in counts.to_dict("records")]),
        paragraph("Those of one participant are not independent of each other: no test is made of "
                  "the counts."))


def _confidence(study, output):
    title = "Confidence and correctness"
    rows = confidence_picture.usable(study.corrections)
    automatic = int(study.corrections["kind"].str.startswith("auto").sum())
    if rows.empty:
        return section(title, paragraph("No automatic correction with a confidence and a known "
                                        "word."))
    bins = confidence_picture.bins(study.corrections)
    confidence_picture.draw(bins, output)
    left_out = automatic - len(rows)
    return section(
        title,
        figure(confidence_picture.NAME, confidence_picture.alt(bins),
               f"{counted(len(rows), 'automatic correction')} of "
               f"{counted(participants(rows), 'participant')} in tenths of the confidence, each at "
               "its mean; "
               + (f"{left_out} without a confidence or a known word left out. " if left_out else
                  "none left out. ")
               + f"Bars: 95 % intervals, from {LEAST_PAIRS} participants on. Right is a correction "
               "whose result is the word that was meant."),
        table("Automatic corrections by confidence",
              ("Confidence", "Participants", "Corrections", "Right", "Share right (95 % interval)"),
              [(f"{row.place / 10:.1f} to {(row.place + 1) / 10:.1f}", str(row.participants),
                str(row.all), str(row.right), _share(row)) for row in bins.itertuples()]))


def _share(row):
    interval = f" ({row.interval[0]:.2f} to {row.interval[1]:.2f})" if row.interval else ""
    return f"{row.share:.2f}{interval}"


def _keyboard(study, output):
    title = "The keyboard"
    keys = study.keys
    if keys.empty:
        return section(title, paragraph("No keys."))
    parts = [paragraph(
        f"{counted(len(keys), 'key')} of {counted(participants(keys), 'participant')}, on a US "
        "keyboard whatever the layout was. A darker key has a higher value, which stands on it "
        f"with the number of presses n it was made of; below {keyboard_picture.LEAST_PRESSES} it "
        "is left white with a dotted rim.")]
    for picture in keyboard_picture.PICTURES:
        by_session = keyboard_picture.tables(picture, keys)
        keyboard_picture.draw(picture, keys, by_session, output)
        parts.append(figure(picture.name, keyboard_picture.alt(picture, by_session),
                            f"{picture.title}: {CAPTIONS[picture.name]}"))
    parts.append(_slip_table(keys))
    return section(title, *parts)


CAPTIONS = {
    "keyboard-slips.svg":
        "times it came out otherwise (another key, left out, swapped, wrong case) or was struck "
        "again, of 100 times it was meant, all participants together. Erased slips count. n: times "
        "it was meant. Other characters too many belong to no key and stand in the table only.",
    "keyboard-intervals.svg":
        "from the key press before to this one, presses as meant only. Median over participants of "
        "each one's median. n: presses.",
    "keyboard-holds.svg":
        "from press to release, whatever was meant. Median over participants of each one's median. "
        "n: presses.",
}


def _slip_table(keys):
    rows = []
    for session in (1, 2):
        chosen = keys[keys["session"] == session]
        rows += [(str(session), slip, str(len(of)), str(participants(of)))
                 for slip, of in chosen.groupby("slip") if slip != "none"]
    return table("Slips by kind, erased ones included",
                 ("Session", "Slip", "Keys", "Participants"), rows)


def _methods():
    return section("How it was worked out", items((
        "Only participants with a value in both sessions enter a comparison, measure by measure.",
        "Intervals: percentile bootstrap of the median (of the share for confidence, where whole "
        f"participants are drawn), {RESAMPLES:,} resamples, seed {SEED}: the same tables give the "
        "same figures. Below some 20 participants such intervals tend to be too narrow.",
        "Wilcoxon signed-rank test, two-sided; differences of zero are left out, n is what "
        "remains; p is exact, with mean ranks for ties (normal approximation above 200).",
        f"Below {LEAST_PAIRS} pairs there is neither interval nor p: with five, the least p that "
        "the test can give is 0.0625.",
        "p (Holm): adjusted for all tests of the table. The measures depend on each other, and "
        "none was singled out beforehand: take them as a description unless your plan says more.",
        "Rank-biserial r = (W+ \u2212 W\u2212) / (W+ + W\u2212) (Kerby 2014), \u22121 to 1.",
        "Each measure is defined, with its source, in docs/formats/tables.md of the program.",
    )))
