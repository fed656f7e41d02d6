"""Time and memory that mirvane-analyse takes for many sessions. The sessions of 50 simulated
participants stand under many names; each name is read and analysed as a study of its own. See
measure-analysis."""

import json
import os
import pathlib
import subprocess
import tempfile
import time
from datetime import datetime

PROGRAMS = pathlib.Path(os.environ["MIRVANE_PROGRAMS"])
PEOPLE = 50
START = datetime.fromisoformat("2026-01-01T00:00:00+00:00")


def run(program, *arguments):
    return subprocess.run([PROGRAMS / program, *map(str, arguments)], check=True,
                          capture_output=True, text=True).stdout


def corrections(session, number):
    """The log of a replayed session as events of a recording of version 2."""
    for entry in session["correctionLog"]:
        yield {"session": number,
               "t": (datetime.fromisoformat(entry["timestamp"].replace("Z", "+00:00"))
                     - START).total_seconds(),
               "type": "correction", "kind": entry["type"], "original": entry["originalWord"],
               "corrected": entry["correctedWord"], "wordIndex": entry["wordIndex"],
               "confidence": entry["confidence"]}


def study_events(recording, number):
    """The events of a recording of version 1 as version 2 has them."""
    session = json.loads(run("mirvane-replay", "--json", recording))["sessions"][0]
    lines = recording.read_text(encoding="utf-8").splitlines()
    events = [{"session": number, **json.loads(line)} for line in lines[1:]]
    for event in events:
        if event["type"] == "done":
            event["text"] = session["finalText"]
    # Sorting keeps the order of equal times: a correction comes after its key.
    return session["prompt"], sorted(events + list(corrections(session, number)),
                                     key=lambda event: event["t"])


def make_study(folder, seed):
    """A simulated participant: recordings of version 1, a record of version 2 and a report."""
    recordings = []
    for number in (1, 2):
        recordings.append(folder / f"{seed}-session{number}.jsonl")
        recordings[-1].write_text(run("mirvane-typist", "--seed", seed * 2 + number, "--session",
                                      number), encoding="utf-8")
    sessions = [study_events(recording, i + 1) for i, recording in enumerate(recordings)]
    start = START.strftime("%Y-%m-%dT%H:%M:%S.000Z")
    header = {"recording": 2, "program": "0.2.0", "data": None, "participant": None,
              "prompts": [prompt for prompt, _ in sessions], "layout": "us", "settings": {},
              "timeZone": "UTC",
              "sessions": [{"session": number, "start": start, "firstKey": None, "lastKey": None,
                            "resets": []} for number in (1, 2)]}
    record = folder / f"{seed}.jsonl"
    lines = [header] + [event for _, events in sessions for event in events]
    record.write_text("".join(json.dumps(line) + "\n" for line in lines), encoding="utf-8")
    report = folder / f"{seed}.txt"
    report.write_text(run("mirvane-replay", *recordings), encoding="utf-8")
    return {"version 1": recordings, "record": [record], "report": [report]}


def spread(studies, kinds, count, folder):
    """Puts `count` studies into a folder, the same ones under many names."""
    folder.mkdir()
    for i in range(count):
        for kind in kinds:
            for file in studies[i % len(studies)][kind]:
                suffix = file.name[len(file.stem.split("-")[0]):]
                os.link(file, folder / f"P{i:05}{suffix}")


def measure(folder, output):
    """Processor seconds, wall-clock seconds and peak memory in MB, on one core."""
    start = time.monotonic()
    program = subprocess.Popen(["taskset", "--cpu-list", "0", PROGRAMS / "mirvane-analyse", folder,
                                "--output", output])
    _, status, usage = os.wait4(program.pid, 0)
    if status != 0:
        raise SystemExit("mirvane-analyse failed")
    return (usage.ru_utime + usage.ru_stime, time.monotonic() - start, usage.ru_maxrss / 1024)


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        studies = [make_study(folder, seed) for seed in range(PEOPLE)]
        for kinds in (["record", "report"], ["record"], ["report"], ["version 1"]):
            for sessions in (1000, 10000):
                place = folder / f"{'-'.join(kinds)}-{sessions}"
                spread(studies, kinds, sessions // 2, place)
                processor, wall, megabytes = measure(place, folder / "tables")
                print(f"{' and '.join(kinds)}, {sessions} sessions: {processor:.1f} s processor "
                      f"time, {wall:.1f} s, {megabytes:.0f} MB", flush=True)


if __name__ == "__main__":
    main()
