"""Which words the dictionary accepts, and which of them it offers."""

import os
import re
import unicodedata

SPELLINGS = ("english", "american", "british", "british_z")
# Correct as well, but the usual spelling is the one to offer.
VARIANTS = ("british_variant_1", "variant_1", "variant_2")
LEVELS = (10, 20, 35, 40, 50, 55, 60, 70, 80)
WORD = re.compile(r"[a-z]+\Z")
OWNER = re.compile(r"([odl]')?[a-z]+\Z")
CONTRACTION = re.compile(r"[a-z]+(?:'[a-z]+)+\Z")

# log10 probability from which a word is frequent enough, by its length and by the level of its
# list. Rare short words and names cost more than they give: they turn slips of the finger into
# known words, and each that is a slip away from what was typed competes with the meant word. Rare
# words of the common lists are accepted all the same, as people do write them, but not offered.
COMMON_LEVEL = 35
COMMON_WORD = {3: -5.4, 4: -5.85, 5: -6.2, 6: -6.6, 7: -7.0}
RARE_LEVEL = 60
RARE_WORD = {3: -5.2, 4: -5.4, 5: -5.9, 6: -6.3, 7: -6.8}
VERY_RARE_WORD = {3: -5.2, 4: -5.4, 5: -5.8, 6: -6.2}
VERY_RARE_WORD_LONGER = -6.5
NAME = {3: -4.8, 4: -5.2, 5: -5.5}
NAME_LONGER = -6.1
ANY = -99.0  # what a word without a known frequency has


def without_accents(word):
    decomposed = unicodedata.normalize("NFD", word)
    return "".join(letter for letter in decomposed if not unicodedata.combining(letter))


def lines(path):
    with open(path, encoding="utf-8") as text:
        return [line.strip() for line in text if line.strip()]


class WordList:
    """Builds the list from the folder of a word-list package and the frequencies."""

    def __init__(self, scowl, hand_lists, frequency):
        self._scowl = scowl
        self._hand = hand_lists
        self._frequency = frequency
        self._offered = set()
        self._accepted_only = set()
        self._contractions = set()

    def build(self):
        for level in LEVELS:
            for spelling in SPELLINGS:
                self._take_words(spelling, level)
                self._take_names(spelling, level)
            for spelling in VARIANTS:
                self._take_variants(spelling, level)
        for level in (10, 35, 40, 50, 60):
            self._take_contractions(level)
        self._take_hand_lists()
        return self

    def offered(self):
        """Words for guesses, completions and ranking."""
        return (self._offered | self._contractions) - self._never_offered()

    def accepted(self):
        """Every word that is correct; what an apostrophe cuts from a word is a word of its own. The
        program itself knows the possessives of words that it offers."""
        silent = self._accepted_only | self._never_offered()
        whole = self._offered | self._contractions | silent
        pieces = {piece for word in whole if "'" in word for piece in word.split("'") if piece}
        possessives = {word + "'s" for word in silent if OWNER.match(word)}
        return whole | pieces | possessives | set("abcdefghijklmnopqrstuvwxyz")

    def _entries(self, spelling, kind, level):
        path = os.path.join(self._scowl, f"{spelling}-{kind}.{level}")
        return map(without_accents, lines(path)) if os.path.exists(path) else []

    def _words(self, spelling, level):
        return [word for word in self._entries(spelling, "words", level)
                if WORD.match(word) and len(word) > 2]

    def _frequent(self, word, by_length, longer):
        return self._frequency.get(word, ANY) >= by_length.get(len(word), longer)

    def _take_words(self, spelling, level):
        for word in self._words(spelling, level):
            if self._word_belongs(word, level):
                self._offered.add(word)
            elif level <= COMMON_LEVEL:
                self._accepted_only.add(word)

    def _take_variants(self, spelling, level):
        self._accepted_only.update(word for word in self._words(spelling, level)
                                   if self._word_belongs(word, level))

    def _word_belongs(self, word, level):
        if level <= COMMON_LEVEL:
            return self._frequent(word, COMMON_WORD, ANY)
        if level <= RARE_LEVEL:
            return self._frequent(word, RARE_WORD, ANY)
        return self._frequent(word, VERY_RARE_WORD, VERY_RARE_WORD_LONGER)

    def _take_names(self, spelling, level):
        for kind in ("upper", "proper-names"):
            for entry in self._entries(spelling, kind, level):
                name = entry.lower()
                if WORD.match(name) and len(name) > 2 and self._frequent(name, NAME, NAME_LONGER):
                    self._offered.add(name)

    def _take_contractions(self, level):
        for entry in self._entries("english", "contractions", level):
            if CONTRACTION.match(entry.lower()):
                self._contractions.add(entry.lower())

    def _take_hand_lists(self):
        for name in ("two_letter_words", "added_words", "abbreviations"):
            self._offered.update(self._by_hand(name))
        self._offered |= {"a", "i"}
        self._accepted_only.update(self._by_hand("accepted_words"))
        for words in (self._offered, self._accepted_only):
            words.difference_update(self._by_hand("left_out_words"))

    def _never_offered(self):
        return set(self._by_hand("never_offered"))

    def _by_hand(self, name):
        return lines(os.path.join(self._hand, name + ".txt"))
