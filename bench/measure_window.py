"""Times of the window as a participant meets them, taken from outside: keys go in through the X
server, what is painted is read from the screen. See measure-window."""

import statistics
import subprocess
import time

from Xlib import X, display

from program import BUILD, wait_for
from study import Study, set_accessibility

DEEP = (20, 48, 133)
TEXT = ("the quick brown fox jumps over the lazy dog she sells sea shells by the sea shore "
        "every morning ")
IDLE_SECONDS = 20


class Screen:
    def __init__(self):
        self._root = display.Display().screen().root

    def pixels(self, x, y, width, height):
        return self._root.get_image(x, y, width, height, X.ZPixmap, 0xFFFFFFFF).data

    def has_button_in_column(self, x, height):
        blue, green, red = DEEP[2], DEEP[1], DEEP[0]
        data = self.pixels(x, height // 2, 1, height // 2)
        wanted = bytes((blue, green, red))
        return any(data[i:i + 3] == wanted for i in range(0, len(data), 4))


def measure_start(screen, runs=10):
    """Seconds from starting the program until its button is on the screen."""
    times = []
    for _ in range(runs):
        start = time.monotonic()
        program = subprocess.Popen([BUILD + "/mirvanetest"])
        wait_for(lambda: screen.has_button_in_column(400, 640), "the intro")
        times.append(time.monotonic() - start)
        program.terminate()
        program.wait()
        wait_for(lambda: not screen.has_button_in_column(400, 640), "an empty screen")
    return times


def bar_of(study):
    """The strip of the screen that shows the texts of the chips."""
    study.keyboard.type("hel")
    chip = study.await_element("Apply " + wait_for(study.chips, "chips")[0])
    box = chip.get_component_iface().get_extents(0)
    study.click("Reset")
    study.await_text("")
    return 240, box.y + box.height // 2 - 5, 520, 10


def measure_keys(screen, study, rounds=3):
    """Seconds from a key press until the chips have changed, for keys that change them."""
    strip = bar_of(study)
    times = []
    for character in TEXT * rounds:
        before = screen.pixels(*strip)
        start = time.monotonic()
        code = study.keyboard.press(character)
        while screen.pixels(*strip) == before:
            if time.monotonic() - start > 0.15:
                break
        else:
            times.append(time.monotonic() - start)
        study.keyboard.up(code)
        time.sleep(0.03)
    return times


def read_status(pid):
    with open(f"/proc/{pid}/status", encoding="ascii") as file:
        parts = (line.partition(":") for line in file)
        return {name: value.strip() for name, _, value in parts}


def wake_ups(pid):
    return int(read_status(pid)["voluntary_ctxt_switches"])


def cpu_seconds(pid):
    with open(f"/proc/{pid}/stat", encoding="ascii") as file:
        fields = file.read().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / 100


def measure_idle(study):
    """Wake-ups of the main thread a second, and the share of one core in use."""
    time.sleep(2)
    wakes, cpu = wake_ups(study.pid), cpu_seconds(study.pid)
    time.sleep(IDLE_SECONDS)
    return ((wake_ups(study.pid) - wakes) / IDLE_SECONDS,
            (cpu_seconds(study.pid) - cpu) / IDLE_SECONDS)


def percentile(values, share):
    return sorted(values)[min(len(values) - 1, int(len(values) * share))]


def report_times(label, times):
    print(f"{label}: median {statistics.median(times) * 1000:.1f} ms, "
          f"p99 {percentile(times, 0.99) * 1000:.1f} ms, "
          f"max {max(times) * 1000:.1f} ms, {len(times)} measured")


def main():
    set_accessibility(True)
    screen = Screen()
    report_times("Start to the intro painted", measure_start(screen))
    study = Study()
    study.go_to_session1()
    report_times("Key press to the suggestions painted", measure_keys(screen, study))
    wakes, share = measure_idle(study)
    print(f"Idle in a session: {wakes:.1f} wake-ups a second, {share * 100:.2f} % of a core")
    print(f"Peak memory: {int(read_status(study.pid)['VmHWM'].split()[0]) / 1024:.0f} MB")
    study.close()


if __name__ == "__main__":
    main()
