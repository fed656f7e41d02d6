"""A real keyboard and pointer: key events that the X server itself delivers (XTEST)."""

import json
import time

from Xlib import X, display
from Xlib.ext import xtest

_ROWS = {10: "1234567890-=", 24: "qwertyuiop[]", 38: "asdfghjkl;'`", 51: "\\zxcvbnm,./"}
_SHIFTED = dict(zip('!@#$%^&*()_+{}:"~|<>?', "1234567890-=[];'`\\,./"))

KEYS = {character: start + index for start, row in _ROWS.items()
        for index, character in enumerate(row)}
KEYS.update({" ": 65, "\r": 36, "\b": 22, "\t": 23, "\x1b": 9})

SHIFT, CONTROL, LEFT_ALT, RIGHT_ALT = 50, 37, 64, 108
BUTTONS = 1


def _key_of(character):
    """The key code of a character on the US layout, and whether Shift goes with it."""
    if character in _SHIFTED:
        return KEYS[_SHIFTED[character]], True
    return KEYS[character.lower()], character.isupper()


class Keyboard:
    def __init__(self):
        self._display = display.Display()

    def down(self, code):
        self._send(X.KeyPress, code)

    def up(self, code):
        self._send(X.KeyRelease, code)

    def _send(self, kind, detail):
        xtest.fake_input(self._display, kind, detail)
        self._display.sync()

    def strike(self, code, hold=0.03):
        self.down(code)
        time.sleep(hold)
        self.up(code)

    def chord(self, modifier, character):
        self.down(modifier)
        self.strike(_key_of(character)[0])
        self.up(modifier)

    def press(self, character):
        code, is_shifted = _key_of(character)
        if is_shifted:
            self.down(SHIFT)
        self.down(code)
        if is_shifted:
            self.up(SHIFT)
        return code

    def type(self, text, keys_per_second=15):
        """Strikes the keys one after the other, each held for half its share of the second."""
        half = 0.5 / keys_per_second
        start = time.monotonic()
        for index, character in enumerate(text):
            _sleep_until(start + 2 * half * index)
            code = self.press(character)
            _sleep_until(start + 2 * half * index + half)
            self.up(code)
        time.sleep(half)

    def click(self, x, y):
        xtest.fake_input(self._display, X.MotionNotify, x=x, y=y)
        self._send(X.ButtonPress, BUTTONS)
        self._send(X.ButtonRelease, BUTTONS)

    def play(self, recording, pick_chip):
        """Types a recording at its own times; `pick_chip(index)` clicks a chip."""
        start = time.monotonic()
        for event in recording:
            _sleep_until(start + event["t"])
            kind = event["type"]
            if kind == "down":
                self.press(event["text"])
            elif kind == "up":
                self.up(_code_of_virtual_key(event["keyCode"]))
            elif kind == "flags":
                self._change_flags(event)
            elif kind == "chip":
                pick_chip(event["index"])
            elif kind == "done":
                return

    def _change_flags(self, event):
        assert event["keyCode"] == 61, "a recording's only modifier key is the cycle key"
        option = 0x80000
        (self.down if event["flags"] & option else self.up)(RIGHT_ALT)


def _sleep_until(instant):
    time.sleep(max(0, instant - time.monotonic()))


# The virtual key codes of the letters, digits and signs, in the order of the rows above.
_VIRTUAL = {
    10: [18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24],
    24: [12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30],
    38: [0, 1, 2, 3, 5, 4, 38, 40, 37, 41, 39, 50],
    51: [42, 6, 7, 8, 9, 11, 45, 46, 43, 47, 44],
}
_CODE_OF_VIRTUAL = {virtual: start + index for start, row in _VIRTUAL.items()
                    for index, virtual in enumerate(row)}
_CODE_OF_VIRTUAL.update({49: 65, 36: 36, 51: 22})


_VIRTUAL_OF_CODE = {code: virtual for virtual, code in _CODE_OF_VIRTUAL.items()}


def _code_of_virtual_key(virtual):
    return _CODE_OF_VIRTUAL[virtual]


def write_recording(path, session, text, keys_per_second):
    """The recording of a text in small letters, typed at an even pace."""
    gap = 1 / keys_per_second
    with open(path, "w", encoding="utf-8") as file:
        def line(**fields):
            print(json.dumps(fields), file=file)

        line(recording=1, session=session, prompt=text)
        for index, character in enumerate(text):
            virtual = _VIRTUAL_OF_CODE[_key_of(character)[0]]
            line(t=index * gap, type="down", keyCode=virtual, text=character, flags=0)
            line(t=(index + 0.5) * gap, type="up", keyCode=virtual)
        line(t=(len(text) + 1) * gap, type="done")


def read_recording(path):
    """The events of a recording, without its first line."""
    with open(path, encoding="utf-8") as lines:
        return [json.loads(line) for line in lines][1:]
