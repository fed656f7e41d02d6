"""Writes the data of bench/evaluate: make_data.py WORD-LIST-FOLDER OUTPUT-FOLDER

words.txt        correct words, one a line
pairs.tsv        typed, meant, kind of slip
sentences.tsv    typed, meant: about one word in seven with a slip
faultless.tsv    the same sentences typed without one
"""

import os
import random
import re
import sys

from sentences import sentences
from slips import slip

SEED = 20261123
WORDS, PAIRS, SENTENCES = 3000, 3000, 600
LISTS = ("english-words.10", "english-words.20", "english-words.35",
         "american-words.10", "american-words.20", "american-words.35")
SHARE_OF_SLIPS = 1 / 7


def common_words(folder):
    """Lower-case words of three letters and more, sorted."""
    words = set()
    for name in LISTS:
        with open(os.path.join(folder, name), encoding="latin-1") as file:
            words.update(line.strip() for line in file)
    return sorted(word for word in words if re.fullmatch("[a-z]{3,}", word))


def typed_badly(sentence, source):
    def typed(match):
        word = match.group()
        return slip(word, source)[1] if source.random() < SHARE_OF_SLIPS else word
    return re.sub(r"(?<![\w'])[a-z]{3,}(?![\w'])", typed, sentence)


def data(words):
    """File name to lines, each file from a seed of its own."""
    def source(name):
        return random.Random(f"{SEED} {name}")
    chosen = source("words")
    pairs = source("pairs")
    meant = source("meant")
    plain = sentences(source("sentences"), SENTENCES)
    slips = source("slips")
    return {
        "words.txt": chosen.sample(words, WORDS),
        "pairs.tsv": [f"{typed}\t{word}\t{kind}" for word in meant.choices(words, k=PAIRS)
                      for kind, typed in [slip(word, pairs)]],
        "sentences.tsv": [f"{typed_badly(sentence, slips)}\t{sentence}" for sentence in plain],
        "faultless.tsv": [f"{sentence}\t{sentence}" for sentence in plain],
    }


def main(list_folder, output):
    os.makedirs(output, exist_ok=True)
    for name, lines in data(common_words(list_folder)).items():
        with open(os.path.join(output, name), "w", encoding="utf-8") as file:
            file.write("".join(line + "\n" for line in lines))


if __name__ == "__main__":
    main(*sys.argv[1:])
