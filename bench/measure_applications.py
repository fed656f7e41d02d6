"""How long a correction takes in other programs: keys go in through the X server, what they give
is read through accessibility. Prints a table. See measure-applications."""

import os
import statistics
import sys
import time
from itertools import cycle, islice

import editor
from keyboard import RIGHT_ALT
from measure_window import percentile
from physical_keyboard import KeyWitness, PhysicalKeyboard, find_xtest_keyboard
from study import Study, set_accessibility

EDITORS = ("Mousepad", "Featherpad", "GnomeTextEditor", "Kate", "Firefox", "Chromium")
CORRECTIONS = int(os.environ.get("CORRECTIONS", "300"))
KEYS_PER_SECOND = 5  # 60 words of five keys a minute
PATIENCE = 0.5  # seconds after which a correction counts as missing
BACKSPACE = 22
MISSPELT = {"teh": "the", "becuase": "because", "recieve": "receive", "freind": "friend",
            "wich": "which", "thier": "their", "tommorow": "tomorrow", "adress": "address"}


def seconds_until(is_done):
    """None when it does not come."""
    start = time.monotonic()
    while not is_done():
        if time.monotonic() > start + PATIENCE:
            return None
        time.sleep(0.0005)
    return time.monotonic() - start


class Measurement:
    def __init__(self, program, study):
        self._program, self._study = program, study
        self._keyboard = PhysicalKeyboard()
        self._posted = KeyWitness(find_xtest_keyboard)
        self._ways = []

    def corrections(self, count):
        """Seconds from each boundary key until the word it corrects has changed."""
        return [self._correct(word) for word in islice(cycle(MISSPELT), count)]

    def _correct(self, word):
        self._keyboard.type(word, KEYS_PER_SECOND)
        self._posted.take()
        key = self._keyboard.press(" ")
        seconds = seconds_until(lambda: self._program.end(20).endswith(MISSPELT[word] + " "))
        time.sleep(0.5 / KEYS_PER_SECOND)
        self._keyboard.up(key)
        if seconds is not None:
            self._ways.append(self._way_of_last_correction())
        time.sleep(0.5 / KEYS_PER_SECOND)
        return seconds

    def _way_of_last_correction(self):
        pressed = [code for is_down, code, _ in self._posted.take() if is_down]
        if not pressed:
            return "fully"
        return "by keys" if BACKSPACE in pressed else "by selection"

    def way(self):
        """How most corrections were made."""
        return statistics.mode(self._ways) if self._ways else "refused"

    def cycle_steps(self, count):
        """Seconds from each press of the cycle key until the next suggestion stands there."""
        self._keyboard.type("helo ", KEYS_PER_SECOND)
        self._program.settled_text()
        self._study.activate()
        ring = [self._program.end(20)]
        while ring.count(ring[0]) == 1 and len(ring) < 10:
            self._keyboard.strike(RIGHT_ALT)
            self._program.settled_text()
            ring.append(self._program.end(20))
        if len(ring) == 2:
            return [None] * count  # nothing changed
        return [self._step_to(shown) for shown in islice(cycle(ring[1:]), count)]

    def _step_to(self, shown):
        self._keyboard.down(RIGHT_ALT)
        seconds = seconds_until(lambda: self._program.end(20) == shown)
        self._keyboard.up(RIGHT_ALT)
        time.sleep(0.1)
        return seconds


def figures(times):
    """Median and p99 in milliseconds, and how many were missing."""
    seen = [seconds * 1000 for seconds in times if seconds is not None]
    if not seen:
        return f"– | – | {len(times)} of {len(times)}"
    return (f"{statistics.median(seen):.1f} | {percentile(seen, 0.99):.1f} | "
            f"{len(times) - len(seen)} of {len(times)}")


def row_of(name):
    study = Study()
    study.go_to_session2()
    program = getattr(editor, name)().await_ready()
    try:
        measurement = Measurement(program, study)
        corrections = figures(measurement.corrections(CORRECTIONS))
        steps = figures(measurement.cycle_steps(CORRECTIONS))
        return f"| {name} | {measurement.way()} | {corrections} | {steps} |"
    finally:
        program.close()
        study.close()


def main():
    set_accessibility(True)
    print("| Program | Works | Boundary key, median ms | p99 ms | missing "
          "| Cycle key, median ms | p99 ms | missing |")
    print("|---|---|---|---|---|---|---|---|")
    for name in sys.argv[1:] or EDITORS:
        print(row_of(name), flush=True)


if __name__ == "__main__":
    main()
