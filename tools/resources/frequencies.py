"""How often English words occur, from speech and from written text together."""

import math


def read_language_model(path):
    """(word -> log10 probability, iterator of (first, second, log10 P(second | first)))."""
    words = {}
    pairs = []
    with open(path, encoding="utf-8") as lines:
        for line in lines:
            fields = line.split()
            if len(fields) == 2 and not fields[0].startswith("<"):
                words[fields[0]] = float(fields[1])
            elif len(fields) == 3 and "<" not in line:
                pairs.append((fields[0], fields[1], float(fields[2])))
    return words, pairs


def combined(spoken, written_order):
    """word -> log10 probability: the mean of the spoken probability and the one a written rank
    stands for. A word that only one source knows gets half of what that source says."""
    rank_of = {word: rank for rank, word in enumerate(written_order)}
    # Ranks are of running text, so the true slope is Zipf's; a regression would flatten it.
    total = sum(1 / (rank + 10) for rank in range(len(written_order)))
    result = {}
    for word in spoken.keys() | rank_of.keys():
        says = 10 ** spoken[word] if word in spoken else 0.0
        writes = 1 / (rank_of[word] + 10) / total if word in rank_of else 0.0
        result[word] = math.log10((says + writes) / 2)
    return result
