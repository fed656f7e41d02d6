"""Which words the dictionary accepts, and which of them it offers."""

import os
import re

SPELLINGS = ("english", "american", "british", "british_z")
LEVELS = (10, 20, 35, 40, 50, 55, 60, 70, 80)
WORD = re.compile(r"[a-z]+\Z")
CONTRACTION = re.compile(r"[a-z]+(?:'[a-z]+)+\Z")

# log10 probability from which a word is frequent enough, by what kind of entry it is. Rare short
# words and names cost more than they give: they turn slips of the finger into known words.
COMMON_LEVEL = 50
RARE_WORD = {3: -5.85, 4: -6.6}
RARE_WORD_LONGER = -7.3
VERY_RARE_WORD = {3: -5.3, 4: -5.9, 5: -6.3}
VERY_RARE_WORD_LONGER = -6.7
NAME = {3: -5.0, 4: -5.6, 5: -5.9}
NAME_LONGER = -6.3
COMMON_THREE_LETTERS = -5.95


def lines(path):
    with open(path, encoding="utf-8") as text:
        return [line.strip() for line in text if line.strip()]


class WordList:
    """Builds the list from the folder of a word-list package and the frequencies."""

    def __init__(self, scowl, hand_lists, frequency):
        self._scowl = scowl
        self._hand = hand_lists
        self._frequency = frequency
        self.accepted = set()
        self.contractions = set()

    def build(self):
        for level in LEVELS:
            for spelling in SPELLINGS:
                self._take_words(spelling, level)
                self._take_names(spelling, level)
        for level in (10, 35, 40, 50, 60):
            self._take_contractions(level)
        self._take_hand_lists()
        return self

    def pieces(self):
        """What an apostrophe cuts from a contraction, and every single letter."""
        cut = {piece for word in self.contractions for piece in word.split("'")}
        return cut | set("abcdefghijklmnopqrstuvwxyz")

    def _entries(self, spelling, kind, level):
        path = os.path.join(self._scowl, f"{spelling}-{kind}.{level}")
        return lines(path) if os.path.exists(path) else []

    def _frequent(self, word, by_length, longer):
        return self._frequency.get(word, -99.0) >= by_length.get(len(word), longer)

    def _take_words(self, spelling, level):
        for word in self._entries(spelling, "words", level):
            if WORD.match(word) and len(word) > 2 and self._word_belongs(word, level):
                self.accepted.add(word)

    def _word_belongs(self, word, level):
        if len(word) == 3 and level <= 60:
            return self._frequency.get(word, -99.0) >= COMMON_THREE_LETTERS
        if level <= COMMON_LEVEL and len(word) > 4:
            return True
        if level <= 60:
            return self._frequent(word, RARE_WORD, RARE_WORD_LONGER)
        return self._frequent(word, VERY_RARE_WORD, VERY_RARE_WORD_LONGER)

    def _take_names(self, spelling, level):
        for kind in ("upper", "proper-names"):
            for entry in self._entries(spelling, kind, level):
                name = entry.lower()
                if WORD.match(name) and len(name) > 2 and self._frequent(name, NAME, NAME_LONGER):
                    self.accepted.add(name)

    def _take_contractions(self, level):
        for entry in self._entries("english", "contractions", level):
            if CONTRACTION.match(entry.lower()):
                self.contractions.add(entry.lower())

    def _take_hand_lists(self):
        for name in ("two_letter_words", "added_words"):
            self.accepted.update(lines(os.path.join(self._hand, name + ".txt")))
        self.accepted.difference_update(lines(os.path.join(self._hand, "left_out_words.txt")))

    def offered(self):
        """Words for guesses, completions and ranking: all but single letters and loose pieces."""
        single = {word for word in self.accepted if len(word) == 1}
        return (self.accepted - single) | self.contractions | {"a", "i"}
