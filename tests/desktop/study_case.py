"""What the tests of the real program share: one run of it, and the replay to compare it with."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest

from program import BUILD
from study import Study, set_accessibility


def record(folder, session, seed, *options):
    """The path of a recording that the typist makes."""
    path = os.path.join(folder, f"session{session}.jsonl")
    with open(path, "wb") as file:
        subprocess.run([os.path.join(BUILD, "mirvane-typist"), "--session", str(session),
                        "--seed", str(seed), *options], stdout=file, check=True)
    return path


def replay(*recordings):
    return subprocess.run([os.path.join(BUILD, "mirvane-replay"), *recordings],
                          capture_output=True, text=True, check=True).stdout


def without_times(report):
    """A report without what depends on the clock."""
    report = re.sub(r"^(Generated|Elapsed|WPM): .*$", r"\1", report, flags=re.M)
    return re.sub(r"  t=\d\d:\d\d:\d\d$", "", report, flags=re.M).strip()


def forget_unsaved_study():
    """So that the next case starts afresh, whatever this one left unsaved."""
    shutil.rmtree(os.path.expanduser("~/.local/state/mirvanetest"), ignore_errors=True)


class StudyTest(unittest.TestCase):
    environment = {}  # of the study, beside that of the desktop
    arguments = ()  # of the study's command line

    def setUp(self):
        set_accessibility(True)
        self.addCleanup(forget_unsaved_study)  # after the study has ended
        self.study = Study(self.environment, self.arguments)
        self.addCleanup(self.study.close)
        self.keyboard = self.study.keyboard
        self.folder = tempfile.mkdtemp(dir=os.environ["HOME"])
