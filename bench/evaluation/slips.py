"""Slips of a trembling hand on a US keyboard. The shares of their kinds are assumed, not measured
of people: they say what is compared here, not how anybody types."""

import math

KINDS = {"nearby": 40, "repeat": 25, "nearby-insertion": 10, "omission": 10, "transposition": 10,
         "two": 5}
ROWS = (("qwertyuiop", 0.0), ("asdfghjkl", 0.25), ("zxcvbnm", 0.75))
PLACES = {key: (left + column, depth) for depth, (row, left) in enumerate(ROWS)
          for column, key in enumerate(row)}
FARTHEST = 1.3  # key widths


def neighbours(key):
    """Its neighbours with how likely they are hit: the nearer, the likelier."""
    if key not in PLACES:
        return {}
    distances = {other: math.dist(PLACES[key], place) for other, place in PLACES.items()
                 if other != key}
    return {other: math.exp(-distance ** 2) for other, distance in distances.items()
            if distance < FARTHEST}


def slip(word, random):
    """A kind, and what was typed instead of the word, which has three lower-case letters or more.
    It differs from the word."""
    while True:
        kind = random.choices(list(KINDS), KINDS.values())[0]
        typed = SLIPS[kind](word, random)
        if typed != word:
            return kind, typed


def _nearby_key(key, random):
    keys = neighbours(key)
    return random.choices(list(keys), keys.values())[0] if keys else key


def _nearby(word, random):
    at = random.randrange(len(word))
    return word[:at] + _nearby_key(word[at], random) + word[at + 1:]


def _repeat(word, random):
    at = random.randrange(len(word))
    return word[:at] + word[at] * random.choice((1, 1, 2, 3)) + word[at:]


def _nearby_insertion(word, random):
    at = random.randrange(len(word))
    key = _nearby_key(word[at], random)
    place = at + random.choice((0, 1))
    return word[:place] + key + word[place:] if key != word[at] else word


def _omission(word, random):
    at = random.randrange(1, len(word))
    return word[:at] + word[at + 1:]


def _transposition(word, random):
    at = random.randrange(len(word) - 1)
    return word[:at] + word[at + 1] + word[at] + word[at + 2:]


def _two(word, random):
    return _repeat(_nearby(word, random), random)


SLIPS = {"nearby": _nearby, "repeat": _repeat, "nearby-insertion": _nearby_insertion,
         "omission": _omission, "transposition": _transposition, "two": _two}
