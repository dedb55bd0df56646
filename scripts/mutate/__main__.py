"""Shows what the tests do not hold: small changes to the code, each tried against the tests.

All changes to the sources of the folders are compiled at once, each behind a switch, in a copy of
the checkout (build/mutate/tree); the environment picks the one that holds. The unchanged program is
run first, once for all folders, and tells which test reaches which change. A change is killed when one of these tests fails,
crashes, or runs for ever. tests/mutants.txt lists the changes that may survive, with reasons.

Ends with 1 when the tests kill less than 90 % of a folder's changes, when the unchanged program fails its
tests, and when a reason fits no survivor; with 2 when asked for something that is not there.
"""

import argparse
import hashlib
import json
import os
import re
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import reasons as reason_list
from rewrite import instrumented
from tree import BuildError, Tree, error_lines
from trials import SLOW_SECONDS, Runner, Test, Trials

LEAST_KILLED = 0.90
MOST_REASONS = 0.03
REASONS = "tests/mutants.txt"
BUILDS = 8


class Failure(Exception):
    """Ends the script with a message."""

    def __init__(self, message, status=1):
        super().__init__(message)
        self.status = status


def say(text):
    print(f"\n== {text}", flush=True)


def main():
    options = parse_options()
    checkout = options.checkout.resolve()
    subjects = [subject_of(checkout, path) for path in options.paths]
    for place, subject in enumerate(subjects):
        if is_in_any(subject, subjects[:place] + subjects[place + 1:]):
            raise Failure(f"{subject}: told twice", 2)
    try:
        import changes as front_end
        front_end.check_front_end()
    except ImportError as error:
        raise Failure(f"The bindings of clang are missing (python3-clang-14): {error}", 2)

    work = checkout / "build" / "mutate"
    work.mkdir(parents=True, exist_ok=True)
    tree = Tree(checkout, work)
    reasons = [entry for entry in read_reasons(checkout)
               if is_in_any(entry.file, subjects) or not (checkout / entry.file).is_file()]

    began = time.monotonic()
    say(f"Looking for changes in {', '.join(subjects)}")
    tree.synchronise({}, keeping=lambda path: is_in_any(path, subjects) and path.endswith(".cpp"))
    tree.configure()
    pool = ThreadPoolExecutor(options.jobs)
    try:
        changes = find_changes(front_end, tree, subjects, pool)
    except front_end.ParseError as error:
        raise Failure(str(error)) from error
    print(f"{len(changes)} changes, {time.monotonic() - began:.0f} s")
    for entry in reasons:
        if not any(entry.fits(change) for change in changes):
            raise Failure(f"{REASONS}: a reason fits nothing: {entry}")
    if options.list:
        for change in changes:
            print(f"{change.file}:{change.line}  {change.function}  {change.text}")
        return 0

    say(f"Building {tree.root}")
    changes = build(tree, changes, options.tests, work)
    tests = chosen_tests(tree, options.tests)

    runner = Runner(work / "scratch")
    trials = Trials(tests, runner)
    try:
        say(f"Running {len(tests)} tests on the unchanged program")
        record(pool, trials, tests, changes, work)
        status = 0
        for subject in subjects:
            own = [change for change in changes if is_in(change.file, subject)]
            say(f"Trying {len(own)} changes to {subject}")
            killers = try_all(pool, trials, own)
            status |= report(own, killers, trials, reasons_in(reasons, subject), subject, work,
                             time.monotonic() - began)
    except BaseException:
        runner.stop()
        pool.shutdown(cancel_futures=True)
        raise
    pool.shutdown()
    return status


def parse_options():
    parser = argparse.ArgumentParser(prog="./dev mutate", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("paths", metavar="FOLDER|FILE", nargs="+", help="sources, such as plugin")
    parser.add_argument("--tests", metavar="REGEX", type=re.compile,
                        help="build and run only the tests with such names")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="changes tried at once")
    parser.add_argument("--list", action="store_true", help="print the changes, try none")
    parser.add_argument("--checkout", type=Path, help=argparse.SUPPRESS,
                        default=Path(__file__).resolve().parents[2])
    return parser.parse_args()


def subject_of(checkout, path):
    """The folder or file as it is called in the checkout."""
    full = Path(path).resolve()
    if not full.exists():
        full = (checkout / path).resolve()
    if not full.exists() or not full.is_relative_to(checkout) or full == checkout:
        raise Failure(f"{path}: no folder or file of this checkout", 2)
    subject = str(full.relative_to(checkout))
    if subject.split("/")[0] in ("build", "tests"):
        raise Failure(f"{path}: no sources of the product", 2)
    return subject


def is_in(file, subject):
    return file == subject or file.startswith(f"{subject}/")


def is_in_any(file, subjects):
    return any(is_in(file, subject) for subject in subjects)


def reasons_in(reasons, subject):
    return [entry for entry in reasons if is_in(entry.file, subject)]


def read_reasons(checkout):
    path = checkout / REASONS
    try:
        return reason_list.read(path.read_text()) if path.exists() else []
    except reason_list.ReasonsError as error:
        raise Failure(f"{REASONS}: {error}") from error


def find_changes(front_end, tree, subjects, pool):
    arguments = tree.compiled()
    files = sorted(file for file in arguments if is_in_any(file, subjects))
    for subject in subjects:
        if not any(is_in(file, subject) for file in files):
            raise Failure(f"{subject}: no source that is compiled", 2)

    def read(file):
        source = front_end.read_source(tree.checkout / file)
        try:
            return front_end.Unit(tree.root / file, file, source, arguments[file])
        except front_end.ParseError:
            # It may include what the build makes.
            tree.make_object(file)
            return front_end.Unit(tree.root / file, file, source, arguments[file])

    units = list(pool.map(read, files))
    knowledge = front_end.Knowledge()
    for unit in units:
        knowledge.learn(unit)
    knowledge.close()
    return [change for unit in units for change in front_end.Finder(unit, knowledge).changes()]


class Refused:
    """The changes that do not compile, as earlier runs found them. They are known by their numbers,
    for one content of their file and of this script."""

    def __init__(self, tree, path):
        self._tree = tree
        self._path = path
        self._known = json.loads(path.read_text()) if path.exists() else {}
        self._script = b"".join(source.read_bytes() for source in
                                sorted(Path(__file__).parent.glob("*.*")))

    def _content(self, file):
        source = (self._tree.checkout / file).read_bytes()
        return hashlib.sha256(self._script + source).hexdigest()

    def without(self, changes):
        contents = {file: self._content(file) for file in {change.file for change in changes}}
        return [change for change in changes
                if change.number not in self._known.get(contents[change.file], ())]

    def add(self, changes):
        for change in changes:
            self._known.setdefault(self._content(change.file), []).append(change.number)
        self._path.write_text(json.dumps(self._known))


def build(tree, changes, only, work):
    """Builds the tests with all changes compiled in. Returns those that compile."""
    switch = (Path(__file__).parent / "switch.h").read_text()
    refused = Refused(tree, work / "refused.json")
    found, changes = changes, refused.without(changes)
    for _ in range(BUILDS):
        texts = {}
        for file in sorted({change.file for change in found}):
            source = (tree.checkout / file).read_bytes().decode("latin-1")
            own = [change for change in changes if change.file == file]
            texts[file] = instrumented(source, file, own, switch).encode("latin-1")
        tree.synchronise(texts)
        targets = []
        if only:
            names = [test["name"] for test in tree.tests()]
            targets = tree.targets([name for name in names if only.search(name)])
            if not targets:
                raise Failure(f"--tests {only.pattern}: no such test", 2)
        output = tree.make(targets)
        if output is None:
            told = [change for change in found if change not in changes]
            if told:
                print(f"{len(told)} changes do not compile and are left out:")
            for change in told:
                print(f"    {change.file}:{change.line}  {change.text}")
            return changes
        bad = guilty(changes, error_lines(output, tree.root))
        if not bad:
            raise Failure(f"The copy does not build:\n{output[-4000:]}")
        refused.add(bad)
        changes = [change for change in changes if change not in bad]
    raise Failure(f"After {BUILDS} builds there are still changes that do not compile")


def guilty(changes, lines):
    """The changes that the complaints are about: those of the lines; all of a file where no line
    has one."""
    bad = []
    for file, places in lines.items():
        own = [change for change in changes if change.file == file]
        bad.extend([change for change in own if change.line in places] or own)
    return bad


def chosen_tests(tree, only):
    tests = []
    for described in tree.tests():
        if only is None or only.search(described["name"]):
            test = Test.of(described, tree.build)
            if test:
                tests.append(test)
    if not tests:
        raise Failure("No tests to try the changes against")
    return tests


def record(pool, trials, tests, changes, work):
    """Runs all tests on the unchanged program."""
    folder = work / "reached"
    folder.mkdir(exist_ok=True)
    outcomes = list(pool.map(lambda test: trials.record(test, folder), tests))
    failed = [(test, outcome) for test, outcome in zip(tests, outcomes) if outcome.failure]
    for test, outcome in failed:
        print(f"\n{test.name} {outcome.failure} on the unchanged program:\n"
              f"{outcome.output[-2000:]}")
    if failed:
        raise Failure(f"The unchanged program fails {len(failed)} of {len(tests)} tests")
    reached = sum(trials.is_reached(change) for change in changes)
    slow = [test.name for test in tests if test.seconds > SLOW_SECONDS]
    print(f"{reached} of {len(changes)} changes are reached; "
          f"{sum(test.seconds for test in tests):.0f} s of tests; "
          f"over {SLOW_SECONDS:.0f} s: {', '.join(slow) or 'none'}")


def try_all(pool, trials, changes):
    """The killer of each change, None for those that survive."""
    killers = []
    began = time.monotonic()
    for change, killer in zip(changes, pool.map(trials.killer, changes)):
        killers.append(killer)
        if killer is None:
            print(f"SURVIVED  {change.file}:{change.line}  {change.function}  {change.text}",
                  flush=True)
        if len(killers) % 100 == 0:
            print(f"{len(killers)} of {len(changes)}, {time.monotonic() - began:.0f} s", flush=True)
    return killers


def report(changes, killers, trials, reasons, subject, work, seconds):
    """Prints and writes the table, and returns the status of the script."""
    excused = {change.key() for change, killer in zip(changes, killers) if killer is None
               and any(entry.fits(change) for entry in reasons)}
    rows = []
    for change, killer in zip(changes, killers):
        if killer is None:
            killer = "survives for a reason" if change.key() in excused else (
                "SURVIVED" if trials.is_reached(change) else "SURVIVED, no test reaches it")
        rows.append((f"{change.file}:{change.line}", change.function, change.text, killer))
    text = table(("place", "function", "change", "killed by"), rows)

    summary = []
    folders = sorted({str(Path(change.file).parent) for change in changes})
    for folder in folders:
        summary.append(count(folder, changes, killers, excused,
                             lambda change, f=folder: str(Path(change.file).parent) == f))
    total = count("all", changes, killers, excused, lambda change: True)
    text += "\n" + table(("folder", "changes", "for a reason", "counted", "killed", "%"),
                         [row for row, _ in (*summary, total)])
    text += f"\n{seconds:.0f} s\n"

    faults = []
    if total[1] < LEAST_KILLED:
        faults.append(f"Less than {LEAST_KILLED:.0%} of the changes are killed")
    if len(excused) > MOST_REASONS * len(changes) and not subject.endswith(".cpp"):
        faults.append(f"More than {MOST_REASONS:.0%} of the changes survive for a reason")
    for entry in reasons:
        if not any(entry.fits(change) and change.key() in excused for change in changes):
            faults.append(f"{REASONS}: killed, so that its reason fits nothing: {entry}")
    text += "".join(f"{fault}\n" for fault in faults)

    path = work / f"{subject.replace('/', '-')}.txt"
    path.write_text(text)
    print(f"\n{text}\nThis table: {path}")
    return 1 if faults else 0


def count(name, changes, killers, excused, belongs):
    own = [(change, killer) for change, killer in zip(changes, killers) if belongs(change)]
    reasons = sum(change.key() in excused for change, _ in own)
    killed = sum(killer is not None for _, killer in own)
    counted = len(own) - reasons
    part = killed / counted if counted else 1.0
    return (name, str(len(own)), str(reasons), str(counted), str(killed), f"{100 * part:.1f}"), part


def table(head, rows):
    widths = [max(len(row[column]) for row in (head, *rows)) for column in range(len(head) - 1)]
    lines = []
    for row in (head, *rows):
        cells = [cell.ljust(width) for cell, width in zip(row, widths)]
        lines.append("  ".join((*cells, row[-1])).rstrip() + "\n")
    return "".join(lines)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except Failure as failure:
        print(failure, file=sys.stderr)
        sys.exit(failure.status)
    except BuildError as failure:
        print(failure, file=sys.stderr)
        sys.exit(1)
    except KeyboardInterrupt:
        sys.exit(130)
