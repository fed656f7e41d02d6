"""Word vectors as small whole numbers."""


def scaled_vectors(embedding, wanted, count):
    """(word, whole numbers from -127 to 127) of the `count` most frequent wanted words. Every vector
    is stretched to the full range: only its direction counts."""
    dimensions = embedding["dimensions"]
    chosen = [word for word in embedding["words"] if word in wanted][:count]
    for word in chosen:
        values = embedding["vectors"][word][:dimensions]
        largest = max(abs(value) for value in values)
        yield word, [round(127 * value / largest) for value in values]
