"""The data of bench/evaluate: the same for everybody, and what its kinds of slips say."""

import collections
import random
import re
import unittest

import make_data
import slips
from sentences import LINES, sentences

WORDS = ["".join(letters) for letters in
         zip(*(random.Random(i).choices("abcdefghijklmnopqrstuvwxyz", k=4000) for i in range(5)))]


def is_subsequence(short, long):
    letters = iter(long)
    return all(letter in letters for letter in short)


# What the pair typed, meant of each kind must be like.
SIGNS = {
    "nearby": lambda typed, meant: len(typed) == len(meant) and sum(
        a != b for a, b in zip(typed, meant)) == 1,
    "repeat": lambda typed, meant: len(typed) > len(meant) and is_subsequence(meant, typed)
    and set(typed) == set(meant),
    "nearby-insertion": lambda typed, meant: len(typed) == len(meant) + 1
    and is_subsequence(meant, typed),
    "omission": lambda typed, meant: len(typed) == len(meant) - 1 and typed[0] == meant[0]
    and is_subsequence(typed, meant),
    "transposition": lambda typed, meant: sorted(typed) == sorted(meant) and sum(
        a != b for a, b in zip(typed, meant)) == 2,
    "two": lambda typed, meant: len(typed) > len(meant),
}


class Slips(unittest.TestCase):
    def test_each_kind_does_what_it_says_and_always_something(self):
        source = random.Random(1)
        kinds = collections.Counter()
        for word in WORDS:
            kind, typed = slips.slip(word, source)
            kinds[kind] += 1
            self.assertNotEqual(typed, word)
            self.assertTrue(SIGNS[kind](typed, word), (kind, typed, word))
        for kind, share in slips.KINDS.items():
            self.assertAlmostEqual(kinds[kind] / len(WORDS), share / 100, delta=0.03)

    def test_neighbours_touch_and_the_nearest_are_likeliest(self):
        self.assertEqual(set(slips.neighbours("g")), set("fhtyvb"))
        self.assertEqual(set(slips.neighbours("q")), set("wa"))
        by_distance = slips.neighbours("s")
        self.assertEqual(sorted(by_distance, key=by_distance.get)[-2:], ["a", "d"])
        self.assertEqual(slips.neighbours("'"), {})


class Data(unittest.TestCase):
    def setUp(self):
        self.data = make_data.data(sorted(set(WORDS)))

    def test_the_seed_decides_everything(self):
        self.assertEqual(make_data.data(sorted(set(WORDS))), self.data)

    def test_sentences_keep_their_words_one_for_one(self):
        wrong = words = 0
        for line in self.data["sentences.tsv"]:
            typed, meant = line.split("\t")
            self.assertEqual(len(typed.split(" ")), len(meant.split(" ")))
            wrong += sum(a != b for a, b in zip(typed.split(" "), meant.split(" ")))
            words += len(meant.split(" "))
        self.assertGreater(wrong / words, 0.08)
        self.assertLess(wrong / words, make_data.SHARE_OF_SLIPS)

    def test_sizes_are_those_that_were_asked_for(self):
        sizes = {name: len(set(lines)) for name, lines in self.data.items()}
        self.assertEqual(sizes["words.txt"], make_data.WORDS)
        self.assertEqual(sizes["faultless.tsv"], make_data.SENTENCES)
        self.assertEqual(len(self.data["pairs.tsv"]), make_data.PAIRS)


class Sentences(unittest.TestCase):
    def test_every_part_is_filled_in_and_articles_fit(self):
        for text in sentences(random.Random(2), 400):
            self.assertRegex(text, r"^[A-Z][A-Za-z, ]+[.?]$")
            self.assertIsNone(re.search(r"\b[Aa] [aeiou]|\b[Aa]n [^aeiou]", text.replace(
                "an hour", "")), text)

    def test_every_part_is_used(self):
        named = set(re.findall(r"<(\w+)>", " ".join(sum(LINES.values(), []))))
        self.assertEqual({name.lower() for name in named}, set(LINES) - {"sentence"})


if __name__ == "__main__":
    unittest.main()
