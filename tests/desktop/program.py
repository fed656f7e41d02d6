"""A running program, seen the way assistive technology and the window manager see it."""

import os
import signal
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib  # noqa: E402

from windows import Windows  # noqa: E402

BUILD = os.environ["MIRVANE_PROGRAMS"]
PATIENCE = 10  # seconds until something awaited counts as missing
ANSWER = 2000  # ms that a program may take for one answer


# Where things stand in /proc/PID/stat once the name of the program is left out.
_PID, _PARENT, _USER_TICKS, _SYSTEM_TICKS, _STARTED = 0, 2, 12, 13, 20
_TYPED_INTO = (Atspi.StateType.EDITABLE, Atspi.StateType.FOCUSED)


class NotShown(AssertionError):
    pass


def wait_for(condition, what, patience=PATIENCE):
    """The first true answer of `condition`."""
    deadline = time.monotonic() + patience
    while True:
        try:
            answer = condition()
        except GLib.Error:  # an element that is just going away
            answer = None
        if answer:
            return answer
        if time.monotonic() > deadline:
            raise NotShown(what)
        time.sleep(0.02)


def await_text(read, wanted, whose="the field"):
    """Until `read()` answers the wanted text."""
    try:
        wait_for(lambda: read() == wanted, "text", patience=3)
    except NotShown:
        raise AssertionError(f"{whose} reads {difference(read(), wanted)}") from None


def difference(seen, wanted):
    """Both texts from where they part, shortened."""
    start = max(0, len(os.path.commonprefix([seen, wanted])) - 30)
    return f"{seen[start:start + 90]!r}, not {wanted[start:start + 90]!r}, at {start}"


def has_state(element, state):
    return element.get_state_set().contains(state)


def text_of(element):
    text = element.get_text_iface()
    return text.get_text(0, text.get_character_count())


class Program:
    complaints = None  # where its standard error goes: here, when none is said

    def __init__(self, command, environment=None):
        Atspi.set_timeout(ANSWER, ANSWER)
        self.windows = Windows()
        self._process = subprocess.Popen(command, env={**os.environ, **(environment or {})},
                                         stderr=self.complaints)
        self._tree = None

    @property
    def pid(self):
        return self._process.pid

    @property
    def is_running(self):
        return self._process.poll() is None

    @property
    def exit_code(self):
        return self._process.wait()

    def close(self):
        """Ends it, stopped or not."""
        if self.is_running:
            self._process.terminate()
            self.resume()
        self._process.wait()

    def kill(self):
        self._process.kill()
        self._process.wait()

    def stop(self):
        self._process.send_signal(signal.SIGSTOP)

    def resume(self):
        self._process.send_signal(signal.SIGCONT)

    def window(self):
        return wait_for(lambda: self.windows.of_process(self.pid), "a window")[-1]

    def activate(self):
        """Brings its newest window to the front and waits until the keys go there."""
        window = self.window()
        self.windows.activate(window)
        wait_for(lambda: self.windows.active() == window, "the window in front")

    def request_activation(self):
        self.windows.activate(self.window())

    def close_window(self):
        self.windows.close(self.window())

    def answer(self):
        """Asks the program for something that it has to look up itself."""
        self._tree.clear_cache()
        return self._tree.get_child_count()

    def await_tree(self):
        self._tree = wait_for(self._find_tree, "the program on the accessibility bus")

    def _find_tree(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for index in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(index)
            if child and child.get_process_id() == self.pid:
                return child
        return None

    def await_idle(self, seconds=0.5):
        """Until it and the programs it started have done next to nothing for so long."""
        def is_idle():
            before = self._processor_seconds()
            time.sleep(seconds)
            return self._processor_seconds() - before < 0.05 * seconds
        wait_for(is_idle, "the end of its work", patience=60)

    def _processor_seconds(self):
        stats = [stat for stat in map(_stat_of, os.listdir("/proc")) if stat]
        family = {str(self.pid)}
        for stat in sorted(stats, key=lambda stat: int(stat[_STARTED])):
            if stat[_PARENT] in family:
                family.add(stat[_PID])
        ticks = sum(int(stat[_USER_TICKS]) + int(stat[_SYSTEM_TICKS]) for stat in stats
                    if stat[_PID] in family)
        return ticks / os.sysconf("SC_CLK_TCK")

    def elements(self):
        """Every element of the program, each before its children."""
        return _walk(self._tree)

    def find(self, name):
        """The shown element of this name; none when there is none."""
        for element in self.elements():
            if element.get_name() == name and has_state(element, Atspi.StateType.SHOWING):
                return element
        return None

    def await_element(self, name, patience=PATIENCE):
        return wait_for(lambda: self.find(name), f"'{name}' is not shown", patience)

    def await_absence(self, name, patience=PATIENCE):
        wait_for(lambda: self.find(name) is None, f"'{name}' is still shown", patience)

    def focused_text_element(self):
        """The text element with the focus; none when something else has it."""
        for element in self.elements():
            if element.get_text_iface() and all(has_state(element, state) for state in _TYPED_INTO):
                return element
        return None


def _stat_of(pid):
    """What the system says of a process; none when it has gone or is not one."""
    try:
        with open(f"/proc/{pid}/stat", encoding="utf-8") as file:
            head, _, tail = file.read().rpartition(") ")
    except OSError:
        return None
    return [head.partition(" ")[0], *tail.split()]


def _walk(element):
    element.clear_cache()
    for index in range(element.get_child_count()):
        child = element.get_child_at_index(index)
        if child is None:
            continue
        yield child
        yield from _walk(child)
