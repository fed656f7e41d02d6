"""Plain sentences, put together by a grammar. Both were written for this program and have its
licence. What is in angle brackets is replaced by one of the lines of that name."""

import re

RULES = {
    "sentence": """
        <Person> <did> the <thing> <where>.
        <Person> <did> a <quality> <thing> and went <place>.
        The <thing> <where> was too <quality> for <person>.
        Please <do> the <thing> before you go <place>.
        Can you <do> the <quality> <thing> for <person>?
        <When> we <did> the <thing> <where>.
        I never thought that <person> would <do> the <thing>.
        There is a <quality> <thing> <where>, and nobody wants to <do> it.
        When <person> came <place>, the <thing> was still <where>.
        It takes <time> to <do> a <quality> <thing>.
        <Person> said that the <thing> looked <quality>.
        We should <do> the <thing>, or <person> will be angry.
        If it rains <then>, <person> will stay <where>.
        My <relative> <did> <number> <things> <when>.
        Do not forget to <do> the <things> <where>.
        <When> the <things> <where> were <quality> and cheap.
        Would you rather <do> the <thing> or walk <place>?
        <Person> has <number> <things>, but only one of them is <quality>.
        What did <person> <do> <when>?
        After <time> the <relative> of <person> came <place>.
        Nobody knows why the <thing> <where> is so <quality>.
        Thank you for the <quality> <things> that you sent <when>.
        <Person> and <person> want to <do> the <thing> together.
        Call <person> <then> and ask about the <thing>.""",
    "person": """
        my sister|our neighbor|the doctor|her teacher|the old man|his friend|the manager
        that woman|the driver|your brother|the captain|a young student|the farmer|the children""",
    "relative": "mother|father|uncle|cousin|daughter|grandmother|husband|nephew|aunt|wife",
    "did": """
        opened|painted|carried|cleaned|found|bought|repaired|dropped|wrapped|noticed|borrowed
        remembered|brought|finished|measured|moved|sold|lost|changed|checked""",
    "do": """
        open|paint|carry|clean|find|buy|repair|watch|wrap|notice|borrow|remember|bring|finish
        measure|move|sell|fetch|change|check""",
    "thing": """
        window|letter|kitchen|basket|bicycle|garden|picture|blanket|ticket|machine|bottle|table
        ladder|camera|coat|suitcase|story|bridge|lamp|newspaper|engine|umbrella|clock|boat|chair""",
    "things": """
        apples|letters|flowers|books|pictures|blankets|potatoes|tickets|shirts|glasses|candles
        stones|pencils|boxes|eggs|buttons|keys|stamps|shoes|sandwiches""",
    "quality": """
        heavy|bright|quiet|strange|small|beautiful|broken|clean|expensive|narrow|simple|warm|dirty
        comfortable|empty|famous|dangerous|large|modern|useful|wooden|yellow|soft|ordinary""",
    "where": """
        in the kitchen|behind the house|on the table|near the river|under the stairs|at the station
        beside the road|in the village|at the market|on the second floor|next to the hospital
        across the street|in front of the school|by the lake""",
    "place": """
        home|to the station|to the market|upstairs|to the library|outside|to the beach|downtown
        to the office|across the field|through the forest|back to the hotel""",
    "when": """
        yesterday|this morning|last summer|on Sunday|after lunch|tomorrow|in the evening|next week
        every winter|before dinner|two days ago|at noon|in October""",
    "then": "tomorrow|on Sunday|after lunch|in the evening|next week|before dinner|at noon",
    "time": "an hour|three weeks|a long time|several days|half the night|ten minutes|two years",
    "number": "two|three|seven|twelve|many|several|hundreds of|a few|twenty",
}
SEPARATORS = {"sentence": r"\n"}
LINES = {name: [line.strip() for line in re.split(SEPARATORS.get(name, r"\||\n"), text)
                if line.strip()]
         for name, text in RULES.items()}


def sentence(random):
    return _expanded(random.choice(LINES["sentence"]), random)


def _expanded(text, random):
    def replace(match):
        name = match.group(1)
        chosen = _expanded(random.choice(LINES[name.lower()]), random)
        return chosen if name.islower() else chosen[0].upper() + chosen[1:]
    return _with_article(re.sub(r"<(\w+)>", replace, text))


def _with_article(text):
    return re.sub(r"\b([Aa]) (?=[aeiou])", r"\1n ", text)


def sentences(random, count):
    """So many, none twice."""
    found = {}
    while len(found) < count:
        found[sentence(random)] = True
    return list(found)
