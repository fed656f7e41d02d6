"""What the tests in other programs share: the study in session 2, and typing into one of them."""

import json
import os
import re

import editor
from keyboard import read_header, read_recording, write_recording
from physical_keyboard import KeyWitness, PhysicalKeyboard
from study_case import StudyTest, record, replay, without_times

EDITOR = getattr(editor, os.environ.get("EDITOR", "Mousepad"))


def about_the_keys(report):
    """A report without what depends on the clock or on the text of the study's own field."""
    report = re.sub(r"^KSPC: .*$", "", without_times(report), flags=re.M)
    return re.sub(r"^Corrected: .*?^(?=\[ Typing Efficiency \])", "", report, flags=re.M | re.S)


class ElsewhereTest(StudyTest):
    maxDiff = 4000

    def setUp(self):
        super().setUp()
        self.study.go_to_session2()
        self.keyboard = PhysicalKeyboard()
        self.witness = KeyWitness()
        self.played = []

    def open(self, text="", kind=EDITOR):
        """A program that shows this text, is in front and ready to be typed into."""
        program = kind(text)
        self.addCleanup(program.close)
        return program.await_ready()

    def open_at(self, before, behind, kind=EDITOR):
        """The same, with the caret between these two parts of its text."""
        program = self.open(before + behind, kind)
        program.await_idle()  # large texts take a while to load
        program.place_caret(before)
        return program

    def mistyped(self, text, seed):
        """What a participant with a tremor makes of a text."""
        events = read_recording(record(self.folder, 2, seed, "--text", text))
        return "".join(event["text"] for event in events if event["type"] == "down")

    def play(self, events):
        events = list(events)
        self.played += events
        self.keyboard.play(events)

    def type(self, text, keys_per_second=10):
        self.play(self.keyboard.evenly(text, keys_per_second))

    def report(self):
        """Ends the study."""
        self.study.activate()
        return self.study.report(self.folder)

    def record_what_was_typed(self, before="", behind=""):
        """The recording of all keys so far, typed between these two parts of a text."""
        path = record(self.folder, 2, 1)
        header = {"session": 2, "prompt": read_header(path)["prompt"],
                  "field": {"text": before + behind, "caret": len(before.encode("utf-16-le")) // 2}}
        write_recording(path, header, self.witness.recording_of(self.played))
        return path

    def assert_as_replayed(self, program, before="", behind=""):
        """The program's text, and the report of the study, which ends here."""
        recording = self.record_what_was_typed(before, behind)
        report = replay(recording)
        self.assertIn("[auto-", report, "nothing to correct was typed")
        program.await_text(final_text(recording))
        self.assertMultiLineEqual(about_the_keys(self.report()), about_the_keys(report))


def final_text(recording):
    return json.loads(replay("--json", recording))["sessions"][0]["finalText"]


def add_cycle_step(recording):
    """The cycle key, struck after everything else."""
    events = read_recording(recording)
    instant = events[-1]["t"] + 0.1
    for flags in (0x80000, 0):
        events.append({"t": instant, "type": "flags", "keyCode": 61, "flags": flags})
    write_recording(recording, read_header(recording), events)


def raw_typed(report):
    """What the last session's report says was typed."""
    return re.findall(r"^Raw Typed: (.*?)$", report, flags=re.M)[-1]
