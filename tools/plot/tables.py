"""Reads the tables of an analysed study (docs/formats/tables.md)."""

import os
from dataclasses import dataclass

import pandas as pd

# What the page needs of each table, by the type of its values. Further columns are not looked at.
SIDE_BY_SIDE = ("wpm", "adjusted_wpm", "typed_msd_error_rate", "final_msd_error_rate",
                "final_uncorrected_error_rate", "final_total_error_rate", "kspc", "words_fixed",
                "words_broken", "precision", "interval_median_ms", "hold_median_ms")
COLUMNS = {
    "sessions": {"text": ("participant", "record", "report", "layout"),
                 "number": ("session", "resets", "keystrokes"),
                 "truth": ("final_reproduced", "report_matches")},
    "corrections": {"text": ("participant", "kind", "effect"),
                    "number": ("session", "confidence"),
                    "truth": ("right",)},
    "keys": {"text": ("participant", "meant", "typed", "slip"),
             "number": ("session", "gap_ms", "hold_ms"),
             "truth": ()},
    "participants": {"text": ("participant",),
                     "number": tuple(f"{name}_{session}" for name in SIDE_BY_SIDE
                                     for session in (1, 2)),
                     "truth": ()},
}
TRUTHS = {"true": True, "false": False}


class TableError(Exception):
    """A table that cannot be used, and why."""


@dataclass
class Study:
    """The tables; a value that is not known is NaN, in texts the empty string."""
    sessions: pd.DataFrame
    corrections: pd.DataFrame
    keys: pd.DataFrame
    participants: pd.DataFrame


def read_study(folder):
    """Raises TableError for a table that is missing, damaged or empty of sessions."""
    if not os.path.isdir(folder):
        raise TableError(f"{folder}: no such folder")
    study = Study(**{name: read_table(folder, name) for name in COLUMNS})
    if study.sessions.empty:
        raise TableError(f"{folder}: sessions.csv has no sessions, so there is nothing to show")
    return study


def read_table(folder, name):
    path = os.path.join(folder, name + ".csv")
    rows = _read_texts(path)
    kinds = COLUMNS[name]
    wanted = [column for columns in kinds.values() for column in columns]
    missing = [column for column in wanted if column not in rows.columns]
    if missing:
        raise TableError(f"{path}: columns are missing: {', '.join(missing)}")
    rows = rows[wanted].copy()
    for column in kinds["text"]:
        rows[column] = rows[column].str.replace(r"^'", "", regex=True)
    for column in kinds["number"]:
        rows[column] = _converted(path, rows[column], float, "a number")
    for column in kinds["truth"]:
        rows[column] = _converted(path, rows[column], TRUTHS.__getitem__, "true or false")
    _check_sessions(path, rows)
    return rows


def _read_texts(path):
    """Every field as it stands: a participant may well type "null" or "007"."""
    try:
        return pd.read_csv(path, dtype=str, keep_default_na=False, encoding="utf-8")
    except FileNotFoundError:
        raise TableError(f"{path}: there is no such table; write it with mirvane-analyse") from None
    except (ValueError, UnicodeDecodeError) as error:  # the parser's own errors are ValueErrors
        raise TableError(f"{path}: {str(error).strip()}") from None


def _converted(path, column, convert, wanted):
    values = []
    for row, text in enumerate(column):
        try:
            values.append(float("nan") if text == "" else convert(text))
        except (ValueError, KeyError):
            raise TableError(f"{path}: row {row + 1}, column {column.name}: "
                             f"\"{text}\" is not {wanted}") from None
    return pd.Series(values, index=column.index, dtype=object if wanted != "a number" else float)


def _check_sessions(path, rows):
    if "session" not in rows:
        return
    odd = rows.index[~rows["session"].isin((1, 2))]
    if len(odd) > 0:
        raise TableError(f"{path}: row {odd[0] + 1}: the session is neither 1 nor 2")
