"""The command behind scripts/plot-study."""

import argparse
import importlib.util
import sys

PACKAGES = {"numpy": "python3-numpy", "pandas": "python3-pandas", "scipy": "python3-scipy",
            "matplotlib": "python3-matplotlib"}


def missing_packages():
    return [package for module, package in PACKAGES.items()
            if importlib.util.find_spec(module) is None]


def arguments():
    parser = argparse.ArgumentParser(
        prog="plot-study",
        description="Makes study.html, a page with pictures, of the tables that mirvane-analyse "
                    "wrote.")
    parser.add_argument("folder", help="where the tables are")
    parser.add_argument("--output", help="where the page goes; the same folder by default")
    parser.add_argument("--title", default="Typing study", help="heading of the page")
    return parser.parse_args()


def main():
    options = arguments()
    missing = missing_packages()
    if missing:
        print("plot-study: packages are missing: apt-get install " + " ".join(missing),
              file=sys.stderr)
        sys.exit(2)
    from study_page import write_page  # only now: it needs the packages
    from tables import TableError
    try:
        print(write_page(options.folder, options.output or options.folder, options.title))
    except (TableError, OSError) as error:
        print(f"plot-study: {error}", file=sys.stderr)
        sys.exit(2)


main()
