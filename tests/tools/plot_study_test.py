"""The page of a study: its statistics against values worked out otherwise, its words and pictures
for studies of every size, and its complaints."""

import csv
import itertools
import os
import subprocess
import tempfile
import unittest
import xml.etree.ElementTree
from html.parser import HTMLParser

import numpy as np
from scipy import stats

import confidence_picture
import corrections_picture
import keyboard_picture
import paired
from measures import paired_measures
from study_page import write_page
from tables import COLUMNS, TableError, read_study, read_table

PLOT_STUDY = os.path.join(os.path.dirname(__file__), "../../scripts/plot-study")


class Statistics(unittest.TestCase):
    def test_six_rises_give_the_least_p_of_the_table(self):
        test = paired.signed_rank_test([1, 2, 3, 4, 5, 6])
        self.assertEqual((test.n, test.w_plus, test.w_minus), (6, 21, 0))
        self.assertEqual(test.p, 2 / 64)
        self.assertEqual(test.rank_biserial, 1)

    def test_without_ties_p_is_that_of_scipy(self):
        random = np.random.default_rng(7)
        for n in (6, 9, 12, 30):
            differences = random.normal(0.4, 1, n)
            expected = stats.wilcoxon(differences, method="exact").pvalue
            self.assertAlmostEqual(paired.signed_rank_test(differences).p, expected, 12)

    def test_with_ties_p_counts_all_signs(self):
        differences = np.array([1, 1, -1, 2, 2, 3, -2, 4])
        test = paired.signed_rank_test(np.append(differences, [0, 0]))
        ranks = stats.rankdata(abs(differences))
        sums = [sum(rank for rank, sign in zip(ranks, signs) if sign)
                for signs in itertools.product((0, 1), repeat=len(ranks))]
        smaller = min(test.w_plus, test.w_minus)
        expected = sum(min(one, ranks.sum() - one) <= smaller for one in sums) / len(sums)
        self.assertEqual(test.n, 8)  # zeros are left out
        self.assertEqual((test.w_plus, test.w_minus), (29, 7))
        self.assertAlmostEqual(test.p, expected, 12)

    def test_differences_that_only_rounding_tells_apart_are_ties(self):
        test = paired.signed_rank_test([0.3 - 0.2, 0.2 - 0.1, 0.1, 0.1, 0.1, -0.1, 0.5 - 0.5])
        self.assertEqual((test.n, test.w_plus, test.w_minus), (6, 17.5, 3.5))

    def test_few_pairs_get_neither_test_nor_interval(self):
        result = paired.compare([1, 2, 3, 4, 5], [2, 3, 5, 7, 9])
        self.assertEqual((result.pairs, result.medians, result.difference), (5, (3, 5), 2))
        self.assertEqual((result.test, result.intervals), (None, (None, None)))
        self.assertIsNone(paired.signed_rank_test([1, 2, 3, 4, 5, 0, 0]))
        self.assertEqual(paired.compare([], []).pairs, 0)

    def test_only_complete_pairs_count(self):
        result = paired.compare([1, np.nan, 3, 100], [4, 5, 8, np.nan])
        self.assertEqual((result.pairs, result.medians, result.difference), (2, (2, 6), 4))

    def test_the_interval_of_a_median_is_that_of_its_binomial_distribution(self):
        # The median of 11 draws is at most k when 6 of them are: the limits are known exactly.
        at_most = [stats.binom.sf(5, 11, k / 11) for k in range(1, 12)]
        expected = tuple(next(k for k, share in enumerate(at_most, 1) if share >= limit)
                         for limit in (0.025, 0.975))
        self.assertEqual(paired.median_interval(np.arange(1.0, 12)), expected)

    def test_the_interval_of_a_share_draws_whole_participants(self):
        # Three who are always right and three who never are: the share is a binomial sixth.
        low, high = paired.share_interval([10, 10, 10, 0, 0, 0], [10] * 6)
        self.assertAlmostEqual(low, stats.binom.ppf(0.025, 6, 0.5) / 6)
        self.assertAlmostEqual(high, stats.binom.ppf(0.975, 6, 0.5) / 6)
        self.assertIsNone(paired.share_interval([1] * 5, [1] * 5))

    def test_holm_steps_down_over_the_tests_that_were_made(self):
        adjusted = paired.holm([0.01, None, 0.04, 0.03, 0.9])
        for value, expected in zip(adjusted, [0.04, None, 0.09, 0.09, 0.9]):
            self.assertEqual(value, expected) if expected is None else \
                self.assertAlmostEqual(value, expected)


def defaults(table):
    kinds = COLUMNS[table]
    return {**{name: "" for name in kinds["text"]}, **{name: "" for name in kinds["number"]},
            **{name: "" for name in kinds["truth"]}}


class Folder(unittest.TestCase):
    """A folder of tables that a case fills."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.write(sessions=[], corrections=[], keys=[], participants=[])

    def write(self, **tables):
        for name, rows in tables.items():
            with open(os.path.join(self.folder, name + ".csv"), "w", newline="") as file:
                writer = csv.DictWriter(file, defaults(name))
                writer.writeheader()
                writer.writerows({**defaults(name), **row} for row in rows)

    def write_study(self, participants):
        """Everybody is two words a minute faster in session 2."""
        codes = [f"P{number}" for number in range(1, participants + 1)]
        both = [(code, session) for code in codes for session in (1, 2)]
        self.write(
            sessions=[{"participant": code, "session": session, "keystrokes": 50,
                       "record": f"{code}.jsonl", "resets": 0, "final_reproduced": "true"}
                      for code, session in both],
            participants=[{"participant": code, "wpm_1": 20 + place, "wpm_2": 22 + place * 1.5}
                          for place, code in enumerate(codes)],
            corrections=[{"participant": code, "session": session, "kind": "auto-nearby",
                          "effect": "fixed", "right": "true", "confidence": 0.85}
                         for code, session in both],
            keys=[{"participant": code, "session": session, "meant": "e", "typed": typed,
                   "slip": slip, "gap_ms": 200, "hold_ms": 100}
                  for code, session in both for typed, slip in (("e", "none"), ("r", "nearby"))])

    def page(self):
        with open(write_page(self.folder, self.folder), encoding="utf-8") as file:
            return file.read()


class Tables(Folder):
    def test_texts_stand_as_they_were_typed(self):
        self.write(keys=[{"participant": "007", "session": 1, "meant": "'=", "typed": " "},
                         {"participant": "null", "session": 2, "meant": "''", "typed": "1"}])
        keys = read_table(self.folder, "keys")
        self.assertEqual(list(keys["participant"]), ["007", "null"])
        self.assertEqual(list(keys["meant"]), ["=", "'"])
        self.assertEqual(list(keys["typed"]), [" ", "1"])

    def test_what_cannot_be_used_is_named(self):
        def spoil(name, text):
            def act():
                with open(os.path.join(self.folder, name), "w", encoding="latin-1") as file:
                    file.write(text)
            return act
        head = ",".join(defaults("corrections")) + "\n"
        rows = (
            (lambda: None, "sessions.csv has no sessions"),
            (spoil("sessions.csv", "participant\nP1\n"), "columns are missing: record, report"),
            (spoil("sessions.csv", ""), "sessions.csv: No columns"),
            (spoil("corrections.csv", head + "P1,auto,fixed,1,much,true\n"),
             'row 1, column confidence: "much" is not a number'),
            (spoil("corrections.csv", head + "P1,auto,fixed,1,1,yes\n"),
             'row 1, column right: "yes" is not true or false'),
            (spoil("corrections.csv", head + "P1,auto,fixed,3,1,true\n"), "row 1: the session"),
            (spoil("corrections.csv", head + "P1,a\u00fcto,fixed,1,1,true\n"), "utf-8"),
            (lambda: os.remove(os.path.join(self.folder, "keys.csv")), "there is no such table"),
        )
        for act, complaint in rows:
            with self.subTest(complaint):
                self.setUp()
                act()
                with self.assertRaises(TableError) as raised:
                    read_study(self.folder)
                self.assertIn(complaint, str(raised.exception))

    def test_the_command_says_what_is_wrong_and_fails(self):
        for arguments, complaint in (([self.folder + "/nowhere"], "no such folder"),
                                     ([self.folder], "has no sessions")):
            outcome = subprocess.run([PLOT_STUDY, *arguments], capture_output=True, text=True)
            self.assertEqual((outcome.returncode, outcome.stdout), (2, ""))
            self.assertEqual(outcome.stderr.count("\n"), 1)
            self.assertIn(complaint, outcome.stderr)


class Figures(Folder):
    def test_corrections_are_counted_by_session_kind_and_effect(self):
        self.write(corrections=[
            {"participant": who, "session": session, "kind": kind, "effect": effect}
            for who, session, kind, effect in (
                ("A", 1, "auto-nearby", "fixed"), ("B", 1, "auto-nearby", "broken"),
                ("B", 1, "auto-nearby", ""), ("B", 2, "cycle", "wrong"), ("B", 2, "new", "same"))])
        counts = corrections_picture.counts(read_table(self.folder, "corrections"))
        self.assertEqual(counts.values.tolist(), [
            [1, "auto-nearby", 3, 2, 1, 0, 0, 1, 1], [2, "cycle", 1, 1, 0, 0, 1, 0, 0],
            [2, "new", 1, 1, 0, 1, 0, 0, 0]])

    def test_confidence_counts_automatic_corrections_of_a_known_word(self):
        self.write(corrections=[
            {"participant": who, "session": 1, "kind": kind, "confidence": confidence,
             "right": right}
            for who, kind, confidence, right in (
                ("A", "auto-nearby", 0.85, "true"), ("B", "auto-nearby", 0.8, "false"),
                ("B", "auto-repeat", 1, "true"), ("B", "auto-other", "", "true"),
                ("B", "auto-other", 0.9, ""), ("B", "manual", 0.9, "true"))])
        bins = confidence_picture.bins(read_table(self.folder, "corrections"))
        self.assertEqual(bins[["place", "all", "right", "participants"]].values.tolist(),
                         [[8, 2, 1, 2], [9, 1, 1, 1]])
        self.assertEqual(list(bins["interval"]), [None, None])

    def test_keys_get_their_slips_intervals_and_holds(self):
        self.write(keys=[
            {"participant": who, "session": 1, "meant": meant, "typed": typed, "slip": slip,
             "gap_ms": gap, "hold_ms": gap}
            for who, meant, typed, slip, gap in (
                ("A", "e", "e", "none", 100), ("A", "E", "E", "none", 300),
                ("A", "e", "r", "nearby", 900), ("A", "e", "", "omission", ""),
                ("A", "", "e", "repeat", 70), ("A", "", "x", "insertion", 50),
                ("B", "e", "e", "none", 400))])
        keys = read_table(self.folder, "keys")
        # Five times meant; one other key, one left out, one struck again.
        self.assertEqual(keyboard_picture.slips(keys).loc["e"].tolist(), [60, 5])
        self.assertNotIn("x", keyboard_picture.slips(keys).index)
        # A's median is 200, B's 400.
        self.assertEqual(keyboard_picture.intervals(keys).loc["e"].tolist(), [300, 3])
        self.assertEqual(keyboard_picture.holds(keys).loc["r"].tolist(), [900, 1])

    def test_a_code_that_stands_twice_is_in_no_pair(self):
        self.write(participants=[{"participant": code, "wpm_1": one, "wpm_2": two}
                                 for code, one, two in (("A", 10, 20), ("B", 1, 2), ("B", 3, 4))])
        speed = paired_measures(read_table(self.folder, "participants"))[0]
        self.assertEqual(speed.values.tolist(), [[10, 20]])


class Outline(HTMLParser):
    """What somebody meets who does not see the page."""

    def __init__(self, text):
        super().__init__()
        self.heads, self.images, self.captions, self.open = [], [], 0, []
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        if tag in ("h1", "h2"):
            self.heads.append(tag)
        if tag == "img":
            self.images.append(dict(attributes))
        if tag == "caption":
            self.captions += 1
        if tag not in ("img", "meta"):
            self.open.append(tag)

    def handle_endtag(self, tag):
        assert self.open.pop() == tag, tag


class Page(Folder):
    def test_pictures_are_there_titled_and_described(self):
        self.write_study(8)
        page = self.page()
        outline = Outline(page)
        self.assertEqual(outline.heads, ["h1"] + ["h2"] * 6)
        self.assertEqual(outline.open, [])
        self.assertEqual(outline.captions, page.count("<table>"))
        self.assertEqual(len(outline.images), 6)
        for image in outline.images:
            self.assertGreater(len(image["alt"]), 60)
            root = xml.etree.ElementTree.parse(os.path.join(self.folder, image["src"])).getroot()
            self.assertTrue(root.find("{http://www.w3.org/2000/svg}title").text)
        self.assertFalse([name for name in os.listdir(self.folder) if name.endswith(".part")])

    def test_pairs_are_tested_and_the_order_of_sessions_is_warned_of(self):
        self.write_study(8)
        page = self.page()
        self.assertIn("n = 8, W+ = 36, W\u2212 = 0, p = 0.008", page)
        self.assertIn("a difference between the sessions is not the effect of the cycle key", page)

    def test_the_same_tables_give_the_same_bytes(self):
        self.write_study(7)
        contents = []
        for _ in range(2):
            self.page()
            contents.append([open(os.path.join(self.folder, name), "rb").read()
                             for name in sorted(os.listdir(self.folder))])
        self.assertEqual(*contents)

    def test_few_participants_are_described_and_not_tested(self):
        self.write_study(3)
        page = self.page()
        self.assertIn("not tested: fewer than 6 differences", page)
        self.assertNotIn("W+ =", page.split("How it was worked out")[0])

    def test_one_participant_with_one_session_gives_a_page(self):
        self.write(sessions=[{"participant": "<P&1>", "session": 2, "keystrokes": 5}],
                   participants=[{"participant": "<P&1>", "wpm_2": 20}])
        page = self.page()
        self.assertIn("Only one session, so in no pair: &lt;P&amp;1&gt;.", page)
        self.assertIn("No participant has typed both sessions", page)
        self.assertIn("No word was corrected.", page)
        self.assertIn("1 session without a session record", page)
        self.assertEqual(Outline(page).images, [])

    def test_doubts_about_the_data_are_said(self):
        self.write_study(6)
        self.write(sessions=[{"participant": "P1", "session": 1, "keystrokes": 9, "resets": 2,
                              "record": "a", "final_reproduced": "false", "report_matches": "false",
                              "layout": "de"},
                             {"participant": "P1", "session": 2, "keystrokes": 0, "resets": 0}])
        page = self.page()
        for text in ("In 1 session the keys do not give the final text",
                     "In 1 session report and record do not agree",
                     "Reset was pressed in 1 session",
                     "Keyboard layouts: de.", "Session 2: 0 participants."):
            self.assertIn(text, page)


if __name__ == "__main__":
    unittest.main()
