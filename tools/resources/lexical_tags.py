"""The most usual lexical class of each word."""

import json
import os
import subprocess

# In the order of the program's LexicalClass.
NOUN, VERB, ADJECTIVE, PRONOUN, DETERMINER, PREPOSITION, OTHER = range(7)

BY_TAG = {
    **dict.fromkeys(("NN", "NNS", "NNP", "NNPS"), NOUN),
    **dict.fromkeys(("VB", "VBD", "VBG", "VBN", "VBP", "VBZ", "MD"), VERB),
    **dict.fromkeys(("JJ", "JJR", "JJS"), ADJECTIVE),
    **dict.fromkeys(("PRP", "WP", "EX"), PRONOUN),
    **dict.fromkeys(("DT", "PDT", "WDT", "PRP$", "WP$"), DETERMINER),
    **dict.fromkeys(("IN", "TO"), PREPOSITION),
}

# Words whose first tag in the list is not their usual one, or that it lacks.
NUMERALS = """one two three four five six seven eight nine ten eleven twelve thirteen fourteen fifteen
sixteen seventeen eighteen nineteen twenty thirty forty fifty sixty seventy eighty ninety hundred
thousand million billion trillion zero""".split()
BY_HAND = {"i": PRONOUN, "o'clock": OTHER, "ma'am": NOUN, "let's": VERB, "ok": OTHER, "okay": OTHER,
           **dict.fromkeys(NUMERALS, OTHER)}

# Endings of inflected words: (ending, what stands there in the base form, class of the base, class).
ENDINGS = (("ies", "y", "noun", NOUN), ("es", "", "noun", NOUN), ("s", "", "noun", NOUN),
           ("ied", "y", "verb", VERB), ("ed", "", "verb", VERB), ("ed", "e", "verb", VERB),
           ("ing", "", "verb", VERB), ("ing", "e", "verb", VERB),
           ("er", "", "adj", ADJECTIVE), ("er", "e", "adj", ADJECTIVE),
           ("est", "", "adj", ADJECTIVE), ("est", "e", "adj", ADJECTIVE))


class Tags:
    def __init__(self, brill, wordnet):
        self._brill = self._read_brill(brill)
        self._senses = {part: self._read_senses(os.path.join(wordnet, f"index.{part}"))
                        for part in ("noun", "verb", "adj", "adv")}

    def of(self, word):
        """The class of a lower-case word, or None."""
        if word in BY_HAND:
            return BY_HAND[word]
        if word.endswith("n't"):
            return VERB
        if "'" in word:
            return self.of(word.split("'")[0])
        if word in self._brill:
            return BY_TAG.get(self._brill[word], OTHER)
        return self._from_wordnet(word)

    def _from_wordnet(self, word):
        counts = {part: senses[word] for part, senses in self._senses.items() if word in senses}
        if counts:
            part = max(counts, key=counts.get)
            return {"noun": NOUN, "verb": VERB, "adj": ADJECTIVE}.get(part, OTHER)
        for ending, base_ending, part, lexical_class in ENDINGS:
            stem = word[:-len(ending)] + base_ending
            if word.endswith(ending) and stem in self._senses[part]:
                return lexical_class
        return None

    @staticmethod
    def _read_brill(folder):
        """First tags by lower-case word; an entry in lower case goes before a capitalised one."""
        module = os.path.join(os.path.abspath(folder), "package/lib/index.js")
        script = f"import({json.dumps(module)}).then(m => console.log(JSON.stringify(m.brill)))"
        listing = subprocess.run(["node", "-e", script], check=True, capture_output=True,
                                 text=True).stdout
        tags = {word: tag[0] if isinstance(tag, list) else tag
                for word, tag in json.loads(listing).items()}
        first = {}
        for word in sorted(tags, key=lambda entry: (entry != entry.lower(), entry)):
            first.setdefault(word.lower(), tags[word].split("|")[0])
        return first

    @staticmethod
    def _read_senses(path):
        """lemma -> how often its senses were seen in tagged text."""
        senses = {}
        with open(path, encoding="ascii") as lines:
            for line in lines:
                if line.startswith(" "):
                    continue
                fields = line.split()
                pointers = int(fields[3])
                senses[fields[0]] = int(fields[5 + pointers])
        return senses
