"""A keyboard and a pointer: key events that the X server itself delivers (XTEST)."""

import itertools
import json
import subprocess
import time

from Xlib import X, XK, display
from Xlib.ext import xtest

XK.load_keysym_group("xkb")

SHIFT, CONTROL, LEFT_ALT, RIGHT_ALT = 50, 37, 64, 108
LEFT_BUTTON = 1
TYPING_KEYS = range(9, 95)  # the main block; the keys of a keypad or of media have other signs
# Where a key's signs stand in the server's table: alone, with Shift, with AltGr, with both.
_MODIFIERS = {0: (), 1: (SHIFT,), 4: (RIGHT_ALT,), 5: (SHIFT, RIGHT_ALT)}
_FLAGS = {SHIFT: 0x20000, RIGHT_ALT: 0x80000}
_NAMED_KEYS = {"\r": XK.XK_Return, "\b": XK.XK_BackSpace, "\t": XK.XK_Tab, "\x1b": XK.XK_Escape,
               # A combining accent stands for the dead key, which is struck before its letter.
               "\u0300": XK.XK_dead_grave, "\u0301": XK.XK_dead_acute,
               "\u0302": XK.XK_dead_circumflex, "\u0308": XK.XK_dead_diaeresis}


def _keysym(character):
    scalar = ord(character)
    return _NAMED_KEYS.get(character) or (scalar if scalar < 0x100 else 0x1000000 + scalar)


class Keyboard:
    """The XTEST keyboard, as on-screen keyboards use it, and the pointer."""

    def __init__(self):
        self._display = display.Display()
        self._read_layout()

    def _read_layout(self):
        rows = self._display.get_keyboard_mapping(TYPING_KEYS.start, len(TYPING_KEYS))
        self._keys = {}
        for level, modifiers in _MODIFIERS.items():
            for code, keysyms in zip(TYPING_KEYS, rows):
                if level < len(keysyms):
                    self._keys.setdefault(keysyms[level], (code, modifiers))

    def use_layout(self, name):
        subprocess.run(["setxkbmap", name], check=True)
        self._read_layout()

    def key_of(self, character):
        """The key code of a character, and the modifier keys that go with it."""
        return self._keys[_keysym(character)]

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
        self.strike(self.key_of(character)[0])
        self.up(modifier)

    def press(self, character):
        """Leaves the character's key down, and none of its modifiers."""
        code, modifiers = self.key_of(character)
        for modifier in modifiers:
            self.down(modifier)
        self.down(code)
        for modifier in reversed(modifiers):
            self.up(modifier)
        return code

    def type(self, text, keys_per_second=15):
        """Strikes the keys one after the other, each held for half its share of the second."""
        self.play(self.evenly(text, keys_per_second))

    def evenly(self, text, keys_per_second):
        """The events of a recording of this text, typed at an even pace."""
        return self.timed(text, itertools.repeat(1 / keys_per_second))

    def timed(self, text, gaps):
        """The same with the seconds from each key to the next."""
        instant = 0
        for character, gap in zip(text, gaps):
            code, modifiers = self.key_of(character)
            key = {"keyCode": virtual_key_of(code)}
            flags = sum(_FLAGS[modifier] for modifier in modifiers)
            yield {"t": instant, "type": "down", **key, "text": character, "flags": flags}
            yield {"t": instant + gap / 2, "type": "up", **key}
            instant += gap
        yield {"t": instant, "type": "done"}

    def click(self, x, y):
        xtest.fake_input(self._display, X.MotionNotify, x=x, y=y)
        for kind in (X.ButtonPress, X.ButtonRelease):
            xtest.fake_input(self._display, kind, LEFT_BUTTON)
        self._display.sync()

    def play(self, recording, pick_chip=None):
        """Types a recording at its own times; `pick_chip(index)` clicks a chip."""
        start = time.monotonic()
        for event in recording:
            _sleep_until(start + event["t"])
            kind = event["type"]
            if kind == "down":
                self.press(event["text"])
            elif kind == "up":
                self.up(_CODE_OF_VIRTUAL[event["keyCode"]])
            elif kind == "flags":
                self._change_flags(event)
            elif kind == "chip":
                pick_chip(event["index"])
            elif kind == "done":
                return

    def _change_flags(self, event):
        assert event["keyCode"] == 61, "a recording's only modifier key is the cycle key"
        (self.down if event["flags"] & _FLAGS[RIGHT_ALT] else self.up)(RIGHT_ALT)


def _sleep_until(instant):
    time.sleep(max(0, instant - time.monotonic()))


# The virtual key codes of the letters, digits and signs, row by row from the key code on.
_VIRTUAL_ROWS = {
    9: [53, 18, 19, 20, 21, 23, 22, 26, 28, 25, 29, 27, 24, 51, 48],
    24: [12, 13, 14, 15, 17, 16, 32, 34, 31, 35, 33, 30, 36],
    38: [0, 1, 2, 3, 5, 4, 38, 40, 37, 41, 39, 50],
    51: [42, 6, 7, 8, 9, 11, 45, 46, 43, 47, 44],
    65: [49],
    94: [10],
}
_CODE_OF_VIRTUAL = {virtual: start + index for start, row in _VIRTUAL_ROWS.items()
                    for index, virtual in enumerate(row)}
_VIRTUAL_OF_CODE = {code: virtual for virtual, code in _CODE_OF_VIRTUAL.items()}


def virtual_key_of(code):
    """None for a modifier key."""
    return _VIRTUAL_OF_CODE.get(code)


def write_recording(path, header, events):
    with open(path, "w", encoding="utf-8") as file:
        for line in ({"recording": 1, **header}, *events):
            print(json.dumps(line), file=file)


def read_header(path):
    with open(path, encoding="utf-8") as lines:
        return json.loads(next(lines))


def read_recording(path):
    """The events of a recording, without its first line."""
    with open(path, encoding="utf-8") as lines:
        return [json.loads(line) for line in lines][1:]
