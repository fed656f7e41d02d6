"""Prints the results of mirvane-evaluate as a table: print_table.py FOLDER"""

import json
import os
import sys

ROWS = (
    ("pairs", "words with a slip, without context", "pairs",
     ("top1", "top3", "missing")),
    ("sentences", "sentences with slips", "words", ("fixed", "broken", "precision", "offeredTop3")),
    ("faultless", "the same sentences, faultless", "words", ("broken",)),
    ("words", "correct words", "words", ("rejected",)),
)


def main(folder):
    print("| Data | Cases | Figures |\n|---|---|---|")
    for name, title, cases, figures in ROWS:
        result = read(folder, name)
        values = ", ".join(f"{figure} {result[figure]:.4f}" for figure in figures)
        print(f"| {title} | {result[cases]:,} {cases} | {values} |")
    print("\n| Kind of slip | Pairs | top1 | top3 | missing |\n|---|---|---|---|---|")
    for kind, result in read(folder, "pairs")["kinds"].items():
        print(f"| {kind} | {result['pairs']} | {result['top1']:.3f} | {result['top3']:.3f} "
              f"| {result['missing']:.3f} |")


def read(folder, name):
    with open(os.path.join(folder, name + ".json"), encoding="utf-8") as file:
        return json.load(file)


main(sys.argv[1])
