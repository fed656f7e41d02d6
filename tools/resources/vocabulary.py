"""Weights of words and of pairs of words, for ranking by context."""

import re

KEY = re.compile(r"[a-z]+(?:'[a-z]+)*\Z")


def word_weights(words, frequency):
    """word -> 0 to 1, from the decades its frequency lies above one in a thousand million."""
    weights = {}
    for word in words:
        if word in frequency:
            per_million = frequency[word] + 6
            weights[word] = round(min(1.0, max(0.0, (3 + per_million) / 7.6)), 3)
    return weights


def pair_weights(pairs, spoken, offered, count):
    """"first second" -> 0 to 1, for the pairs that running text is likeliest to hold."""
    candidates = []
    for first, second, after in pairs:
        if second in offered and KEY.match(first) and after > -5:
            candidates.append((-(spoken[first] + after), f"{first} {second}", after))
    candidates.sort()
    return {pair: round(1 + after / 5, 2) for _, pair, after in candidates[:count]}
