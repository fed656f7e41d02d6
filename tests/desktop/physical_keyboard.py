"""The keyboard on the desk, a device of its own beside XTEST's, and what came from it."""

import time
import unicodedata

from Xlib import X, display
from Xlib.ext import ge, xinput, xtest
from Xlib.protocol import rq

from keyboard import Keyboard, virtual_key_of

_SLAVE_KEYBOARD = 4
# The device events of the X Input extension follow its first event, valuators, in this order.
_DEVICE_EVENT = {X.KeyPress: 1, X.KeyRelease: 2}

_RawKeyEvent = rq.Struct(rq.Card16("deviceid"), rq.Card32("time"), rq.Card32("detail"))


class _FakeDeviceInput(rq.Request):
    """XTEST's request with a device (XTestFakeDeviceKeyEvent of libXtst)."""

    _request = rq.Struct(rq.Card8("opcode"), rq.Opcode(2), rq.RequestLength(),
                         rq.Card8("event_type"), rq.Card8("detail"), rq.Pad(2), rq.Card32("time"),
                         rq.Pad(23), rq.Card8("device"))


def _use_extension(connection):
    """In its version 2.2: before 2.1, raw events kept away from all others while one program had
    the keyboard to itself."""
    xinput.XIQueryVersion(display=connection.display, major_version=2, minor_version=2,
                          opcode=connection.display.get_extension_major(xinput.extname))


def _find_keyboard(connection, is_xtest):
    _use_extension(connection)
    devices = connection.xinput_query_device(xinput.AllDevices).devices
    return next(device.deviceid for device in devices
                if device.use == _SLAVE_KEYBOARD and ("XTEST" in device.name) == is_xtest)


def find_physical_keyboard(connection):
    """The device number of the first keyboard that is not XTEST's."""
    return _find_keyboard(connection, is_xtest=False)


def find_xtest_keyboard(connection):
    return _find_keyboard(connection, is_xtest=True)


class PhysicalKeyboard(Keyboard):
    def __init__(self):
        super().__init__()
        self._device = find_physical_keyboard(self._display)
        self._first_event = self._display.query_extension("XInputExtension").first_event

    def _send(self, kind, detail):
        _FakeDeviceInput(display=self._display.display,
                         opcode=self._display.display.get_extension_major(xtest.extname),
                         event_type=self._first_event + _DEVICE_EVENT[kind], detail=detail,
                         time=X.CurrentTime, device=self._device)
        self._display.sync()


class KeyWitness:
    """Sees the key events of one keyboard as the X server stamps them, whoever has the focus."""

    def __init__(self, find_device=find_physical_keyboard):
        self._display = display.Display()
        self._device = find_device(self._display)
        for kind in (xinput.RawKeyPress, xinput.RawKeyRelease):
            self._display.ge_add_event_data(
                self._display.display.get_extension_major(xinput.extname), kind, _RawKeyEvent)
        self._display.screen().root.xinput_select_events(
            [(self._device, xinput.RawKeyPressMask | xinput.RawKeyReleaseMask)])
        self._display.sync()

    def take(self):
        """What came since the last call: whether down, the key code, the server's seconds."""
        self._display.sync()
        events = [self._display.next_event() for _ in range(self._display.pending_events())]
        return [(event.evtype == xinput.RawKeyPress, event.data.detail, event.data.time / 1000)
                for event in events if event.type == ge.GenericEventCode]

    def is_quiet(self, seconds):
        """Whether nothing more comes for so long."""
        time.sleep(seconds)
        return not self.take()

    def recording_of(self, played):
        """The events of what was played, each at the time the server gave it."""
        typed = {True: [], False: []}
        for event in composed(played):
            typed[event["type"] == "down"].append(event)
        for is_down, code, seconds in self.take():
            if virtual_key_of(code) is None:
                continue  # a modifier key: it shows in the flags of the others
            event = typed[is_down].pop(0)
            assert event["keyCode"] == virtual_key_of(code), f"{event} came as key {code}"
            yield {**event, "t": seconds}
        assert not typed[True] and not typed[False], f"{typed} did not come"


def composed(events):
    """Key events with the texts that they give: a dead key gives none, its letter the accent."""
    accent = ""
    for event in events:
        if event["type"] == "down":
            sign = event["text"]
            is_dead = bool(unicodedata.combining(sign))
            text = "" if is_dead else unicodedata.normalize("NFC", sign + accent)
            accent = sign if is_dead else ""
            event = {**event, "text": text}
        if event["type"] in ("down", "up"):
            yield event
