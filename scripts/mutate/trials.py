"""The tests, and the trial of a change against them.

A test is an executable that ctest knows. Of a Qt test only the functions that reach a change are
run.
"""

import math
import os
import re
import resource
import select
import shutil
import signal
import subprocess
import tempfile
import threading
import time
import xml.etree.ElementTree as ElementTree
from dataclasses import dataclass, field
from pathlib import Path

# A test that takes longer takes part only where no other reaches a change.
SLOW_SECONDS = 5.0
# Functions of one test run together up to here, or up to what its start takes: it costs as much.
TOGETHER_SECONDS = 0.25
# A change may make a test so much slower before it counts as one that runs for ever.
PATIENCE = 4.0
OUTPUT_BYTES = 64 << 20
# A test may write a file that is too large for what it tests, a runaway one must not fill the disk.
FILE_BYTES = 512 << 20
MEMORY_BYTES = 8 << 30

NO_FUNCTIONS = {"", "initTestCase", "cleanupTestCase", "init", "cleanup"}


@dataclass
class Test:
    name: str
    command: list
    environment: dict
    folder: str
    timeout: float
    is_qt: bool
    seconds: float = 0.0
    start_seconds: float = 0.0
    functions: dict = field(default_factory=dict)  # seconds by name
    whole_only: bool = False

    @staticmethod
    def of(described, build):
        """The test of an entry of ctest, None for what is no executable of this build."""
        command = described.get("command")
        if not command or not Path(command[0]).is_relative_to(build):
            return None
        properties = {p["name"]: p["value"] for p in described.get("properties", [])}
        environment = dict(entry.split("=", 1) for entry in properties.get("ENVIRONMENT", []))
        return Test(described["name"], command, environment,
                    properties.get("WORKING_DIRECTORY", str(build)),
                    float(properties.get("TIMEOUT", 300)),
                    b"libQt5Test.so" in Path(command[0]).read_bytes())


@dataclass
class Outcome:
    """How a run ended: `failure` is empty when it passed."""

    failure: str
    function: str
    seconds: float
    output: str


@dataclass(frozen=True)
class Unit:
    """What is run at once: a test, or some functions of it."""

    test: str
    functions: tuple
    seconds: float


class Runner:
    """Runs tests, each with folders and limits of its own. Any thread."""

    def __init__(self, folder):
        self._folder = folder
        self._running = set()
        self._lock = threading.Lock()
        self._stopped = False
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)

    def run(self, test, functions, limit, variables):
        """`limit` in seconds, None for the test's own time limit."""
        scratch = tempfile.mkdtemp(dir=self._folder)
        environment = {**os.environ, **test.environment, **variables, "TMPDIR": scratch}
        options = []
        if test.is_qt:
            options = ["-nocrashhandler", "-o", "-,txt", "-o", f"{scratch}/result.xml,xml"]
        with open(f"{scratch}/output.txt", "w+b") as output:
            process = subprocess.Popen(
                [*test.command, *options, *functions], cwd=test.folder, env=environment,
                stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.STDOUT,
                start_new_session=True)
            restrict(process.pid, limit)
            with self._lock:
                self._running.add(process)
                if self._stopped:
                    self._kill(process)
            has_ended, seconds, stretch = wait(
                process, test.timeout if limit is None else 5 + 2.5 * limit)
            # What the test has started goes with it.
            self._kill(process)
            status = process.wait()
            with self._lock:
                self._running.discard(process)
            output.seek(0)
            text = output.read(OUTPUT_BYTES).decode("utf-8", "replace")
        failure, function = judged(status if has_ended else None, text, test.is_qt)
        durations = function_seconds(f"{scratch}/result.xml", stretch) if test.is_qt else {}
        shutil.rmtree(scratch, ignore_errors=True)
        return Outcome(failure, function, seconds, text), durations

    def stop(self):
        with self._lock:
            self._stopped = True
            for process in self._running:
                self._kill(process)

    @staticmethod
    def _kill(process):
        try:
            os.killpg(process.pid, signal.SIGKILL)
        except ProcessLookupError:
            pass


def restrict(pid, seconds):
    """Takes from a process what a change may make it waste."""
    limits = {resource.RLIMIT_CORE: 0, resource.RLIMIT_FSIZE: FILE_BYTES,
              resource.RLIMIT_AS: MEMORY_BYTES}
    if seconds is not None:
        # Time of the processor: what a busy machine does to the clock says nothing.
        limits[resource.RLIMIT_CPU] = math.ceil(seconds)
    try:
        for limit, value in limits.items():
            resource.prlimit(pid, limit, (value, value))
    except ProcessLookupError:
        pass


def wait(process, seconds):
    """Waits until a process ends, or has had `seconds`. The time in which it could have run and the
    machine was busy with others does not count. Returns whether it has ended, its seconds, and how
    much longer they took by the clock."""
    began = time.monotonic()
    ends = select.poll()
    descriptor = os.pidfd_open(process.pid)
    try:
        ends.register(descriptor, select.POLLIN)
        had = 0.0
        while True:
            has_ended = bool(ends.poll(1000 * max(0.05, seconds - had)))
            by_clock = time.monotonic() - began
            had = max(0.001, by_clock - queued_seconds(process.pid))
            if has_ended or had >= seconds:
                return has_ended, had, by_clock / had
    finally:
        os.close(descriptor)


def queued_seconds(pid):
    """The time that a process, running or just ended, was ready and had no processor."""
    try:
        return int(Path(f"/proc/{pid}/schedstat").read_text().split()[1]) / 1e9
    except (OSError, IndexError, ValueError):
        return 0.0


def judged(status, output, is_qt):
    """The failure of a run, empty if there is none, and the function that failed."""
    if status is None or status in (-signal.SIGXCPU, -signal.SIGKILL):
        return "runs on", last_function(output)
    if status < 0:
        return "crashes", last_function(output)
    # With -nocrashhandler Qt Test still ends some crashes by itself.
    failed = re.search(r"^(?:FAIL!|XPASS|QFATAL) +: +(?:\w+::)?(\w+)", output, re.MULTILINE)
    if failed:
        return "fails", failed.group(1)
    if status > 0:
        return "fails", last_function(output)
    if is_qt and not re.search(r"^Totals: ", output, re.MULTILINE):
        return "ends early", last_function(output)
    return "", ""


def last_function(output):
    """The last function of which a Qt test has written something."""
    found = re.findall(r"^(?:PASS|FAIL!|SKIP|QWARN|QFATAL|QDEBUG|QINFO|QSYSTEM) *: +\w+::(\w+)",
                       output, re.MULTILINE)
    return f"after {found[-1]}" if found else ""


def function_seconds(path, stretch):
    """The time that each function of a Qt test took, on a machine that was slow by `stretch`."""
    try:
        root = ElementTree.parse(path).getroot()
    except (OSError, ElementTree.ParseError):
        return {}
    result = {}
    for entry in root.iter("TestFunction"):
        duration = entry.find("Duration")
        if duration is not None:
            result[entry.get("name")] = float(duration.get("msecs")) / 1000 / stretch
    return result


def start_seconds(seconds, durations):
    """What each run of a Qt test costs, whichever of its functions run: its start, and what it
    does before the first and behind the last."""
    return max(0.0, seconds - sum(duration for function, duration in durations.items()
                                  if function not in NO_FUNCTIONS))


def read_reach(text):
    """The functions of a test that reach a change, by the key of the change."""
    reach = {}
    for line in text.splitlines():
        key, _, function = line.partition(" ")
        reach.setdefault(key, set()).add(function)
    return reach


def units_of(test, functions):
    """What of a test is run for a change that these functions reach, the quickest first."""
    if test.whole_only or functions & NO_FUNCTIONS or not functions <= set(test.functions):
        return [Unit(test.name, (), test.seconds)]
    units = []
    together, seconds = [], 0.0
    most = max(TOGETHER_SECONDS, test.start_seconds)
    for function in sorted(functions, key=lambda name: (test.functions[name], name)):
        if together and seconds + test.functions[function] > most:
            units.append(Unit(test.name, tuple(together), test.start_seconds + seconds))
            together, seconds = [], 0.0
        together.append(function)
        seconds += test.functions[function]
    if together:
        units.append(Unit(test.name, tuple(together), test.start_seconds + seconds))
    return units


def taking_part(units):
    """The quick units; all where there is none."""
    quick = [unit for unit in units if unit.seconds <= SLOW_SECONDS]
    return quick or units


class Trials:
    """Tries changes against tests. Any thread."""

    def __init__(self, tests, runner):
        self._tests = {test.name: test for test in tests}
        self._runner = runner
        self._reach = {}
        self._kills = {}
        self._proven = set()
        self._lock = threading.Lock()

    def record(self, test, folder):
        """Runs a test on the unchanged program and learns what it reaches. Returns the outcome."""
        reached = folder / f"{test.name}.reached"
        reached.unlink(missing_ok=True)
        outcome, durations = self._runner.run(test, (), None,
                                              {"ORVIX_MUTANTS_REACHED": str(reached)})
        test.seconds = outcome.seconds
        test.functions = durations
        test.start_seconds = start_seconds(outcome.seconds, durations)
        reach = read_reach(reached.read_text()) if reached.exists() else {}
        with self._lock:
            for key, functions in reach.items():
                self._reach.setdefault(key, {})[test.name] = functions
        return outcome

    def is_reached(self, change):
        return change.key() in self._reach

    def units(self, change):
        """What is run for a change, in order: quick first, and what has killed its neighbours."""
        found = []
        for name, functions in self._reach.get(change.key(), {}).items():
            found.extend(units_of(self._tests[name], functions))

        def cost(unit):
            here = self._kills.get((unit.test, change.file, change.function), 0)
            near = self._kills.get((unit.test, change.file), 0)
            return unit.seconds / (1 + near + 4 * here), unit.test, unit.functions

        with self._lock:
            return sorted(taking_part(found), key=cost)

    def killer(self, change):
        """The test that a change does not survive and how, or None."""
        for unit in self.units(change):
            test = self._tests[unit.test]
            outcome = self._run(test, unit.functions, unit.seconds, change)
            if outcome.failure and not self._stands_alone(test, unit.functions, unit.seconds):
                outcome = self._run(test, (), test.seconds, change)
            if outcome.failure:
                with self._lock:
                    for place in ((unit.test, change.file),
                                  (unit.test, change.file, change.function)):
                        self._kills[place] = self._kills.get(place, 0) + 1
                name = test.name + (f"::{outcome.function}" if outcome.function else "")
                return f"{name} {outcome.failure}".replace("::after ", " after ")
        return None

    def _run(self, test, functions, seconds, change):
        limit = 1 + PATIENCE * seconds
        variables = {"ORVIX_MUTANT": change.key()} if change else {}
        return self._runner.run(test, functions, limit, variables)[0]

    def _stands_alone(self, test, functions, seconds):
        """Whether some functions of a test pass on the unchanged program without the others."""
        if not functions or (test.name, functions) in self._proven:
            return True
        if self._run(test, functions, seconds, None).failure:
            test.whole_only = True
            return False
        self._proven.add((test.name, functions))
        return True
