"""Pictures of every screen of the real program: take_screens.py FOLDER SUFFIX"""

import os
import subprocess
import sys
import time

from study import Study, set_accessibility


def take(name):
    time.sleep(0.4)
    folder, suffix = sys.argv[1:]
    subprocess.run(["import", "-window", "MirvaneTest", "-strip",
                    os.path.join(folder, f"{name}-{suffix}.png")], check=True)


def main():
    set_accessibility(True)
    study = Study()
    study.await_element("Start")
    take("intro")
    study.go_to_practice()
    study.keyboard.type("helo")
    study.await_element("Apply hello")
    take("practice")
    study.keyboard.type(" ")
    study.await_text("hello ", "Type a single word")
    study.keyboard.strike(108)
    study.await_enabled("Start Session 1")
    study.press_by_keyboard("Start Session 1")
    study.await_focus("Type the sentence here")
    study.keyboard.type("Teh quick brown foxx jumps ovr the lazy dgo")
    take("session1")
    study.press_by_keyboard("Done — Continue to Session 2")
    study.await_element("Done — See Results")
    study.await_focus("Type the sentence here")
    study.keyboard.type("Please call Stella and ask hre")
    take("session2")
    study.press_by_keyboard("Done — See Results")
    study.await_element("Save Results…")
    take("results")
    set_accessibility(False)
    study.await_element("Accessibility required")
    take("gate")
    study.close()


if __name__ == "__main__":
    main()
