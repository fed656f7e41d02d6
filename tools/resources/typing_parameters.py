"""The tuning values of the engine and which keys lie beside which on a US keyboard."""

import math

ROWS = ("qwertyuiop", "asdfghjkl", "zxcvbnm")
ROW_SHIFTS = (0.0, 0.25, 0.75)  # in key widths
FARTHEST = 1.3
# From here on the engine applies a single neighbouring-key correction instead of offering it.
APPLIED = 0.1755


def _positions():
    return {letter: (column + shift, row)
            for row, (letters, shift) in enumerate(zip(ROWS, ROW_SHIFTS))
            for column, letter in enumerate(letters)}


def _probability(dx, dy):
    # A finger lands around the key it aims at, a little less spread along a column than along a row.
    spread = 0.6
    return 0.25 * math.exp(-(dx * dx + 1.25 * dy * dy - 1) / (2 * spread * spread))


def nearby_keys():
    positions = _positions()
    table = {}
    for typed, (x, y) in positions.items():
        row = {}
        for meant, (other_x, other_y) in positions.items():
            distance = math.hypot(x - other_x, y - other_y)
            if 0 < distance < FARTHEST:
                probability = max(APPLIED, _probability(x - other_x, y - other_y))
                row[meant] = round(probability, 4)
        table[typed] = dict(sorted(row.items(), key=lambda entry: (-entry[1], entry[0])))
    return dict(sorted(table.items()))


def typing_parameters():
    return {
        "maxInputGap": 140.0,
        "hesitationThreshold": 1000.0,
        "minimumRepeatCount": 2,
        "nearbyKeyMap": nearby_keys(),
        "holdTime": {
            "controlMedian": 95.0,
            "pdMedian": 152.0,
            "boundary": 130.0,
            "minSamplesForPersonalBaseline": 50,
        },
        "motorPriorWeights": {"motorBoost": 1.4, "phoneticDamp": 0.85},
        "autoApplyThreshold": {"default": 0.85, "min": 0.78, "max": 0.92},
    }
