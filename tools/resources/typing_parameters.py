"""The tuning values of the engine and which keys lie beside which on a US keyboard."""

import math

ROWS = ("qwertyuiop", "asdfghjkl", "zxcvbnm")
ROW_SHIFTS = (0.0, 0.25, 0.75)  # in key widths, of a US keyboard
FARTHEST = 1.4  # in key widths: both keys above and both below, not the second in the row
# Every neighbour alike: which of them was meant is for the frequency of the words to say. From 0.175
# on the engine applies a replaced key by itself; more than that lifts it over rarer kinds of slips.
PROBABILITY = 0.35


def _positions():
    return {letter: (column + shift, row)
            for row, (letters, shift) in enumerate(zip(ROWS, ROW_SHIFTS))
            for column, letter in enumerate(letters)}


def _distance(dx, dy):
    # Fingers slip along a row rather than along a column.
    return math.sqrt(dx * dx + 1.25 * dy * dy)


def nearby_keys():
    positions = _positions()
    table = {}
    for typed, (x, y) in positions.items():
        distances = {meant: _distance(x - other_x, y - other_y)
                     for meant, (other_x, other_y) in positions.items() if meant != typed}
        near = sorted((distance, meant) for meant, distance in distances.items()
                      if distance < FARTHEST)
        table[typed] = {meant: PROBABILITY for _, meant in near}
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
