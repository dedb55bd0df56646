"""Tests of scripts/mutate: its pure parts, and the whole script on the small checkout beside it.

Ends with 77 where the bindings of clang are missing.
"""

import os
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

HERE = Path(__file__).resolve().parent
SCRIPT = HERE.parents[1] / "scripts" / "mutate"
sys.dont_write_bytecode = True
sys.path.insert(0, str(SCRIPT))

# pylint: disable=wrong-import-position
import reasons  # noqa: E402
from rewrite import SWITCH, Change, Wrap, flat, instrumented, number_changes, wrapped  # noqa: E402
from tree import error_lines  # noqa: E402
from trials import Test, Unit, judged, read_reach, start_seconds, taking_part, units_of  # noqa: E402


def change(text, *wraps, function="f", line=1):
    return Change("part/A.cpp", line, function, text, list(wraps))


class Rewriting(unittest.TestCase):
    def test_a_text_becomes_one_line_without_comments(self):
        self.assertEqual(flat('call("a // b",  // why\n     /* what */ \'"\');'),
                         "call(\"a // b\", '\"');")

    def test_changes_stand_in_each_other_and_keep_the_lines(self):
        source = "if (a <\n    1)\n    stop();\n"
        changes = [
            change("drop", Wrap(19, 26, "{ if (!" + SWITCH + ") { ", " } }")),
            change("compare", Wrap(4, 13, "(" + SWITCH + " ? a > 1 : (", "))")),
            change("literal", Wrap(12, 13, "(" + SWITCH + " ? 2 : ", ")")),
        ]
        number_changes(changes)
        self.assertEqual(
            wrapped(source, changes),
            "if ((orvixMutant(1) ? a > 1 : (a <\n    (orvixMutant(2) ? 2 : 1))))\n"
            "    { if (!orvixMutant(0)) { stop(); } }\n")

    def test_neighbours_close_before_they_open(self):
        changes = [change("one", Wrap(0, 2, "<", ">")), change("two", Wrap(2, 4, "[", "]"))]
        self.assertEqual(wrapped("a;b;", changes), "<a;>[b;]")

    def test_crossing_changes_are_refused(self):
        changes = [change("one", Wrap(0, 3, "<", ">")), change("two", Wrap(2, 4, "[", "]"))]
        with self.assertRaises(ValueError):
            wrapped("a;b;", changes)

    def test_equal_changes_of_a_function_get_numbers(self):
        changes = [change("1 + 1"), change("1 + 1"), change("1 + 1", function="g")]
        number_changes(changes)
        self.assertEqual([c.text for c in changes], ["1 + 1", "1 + 1 (#2)", "1 + 1"])
        self.assertEqual(changes[1].key(), "part/A.cpp:1")

    def test_the_switch_stands_above_the_first_line(self):
        self.assertEqual(instrumented("int a;\n", "part/A.cpp", [], "switch\n"), "int a;\n")
        changes = [change("one", Wrap(4, 5, "b", "c"))]
        number_changes(changes)
        self.assertEqual(instrumented("int a;\n", "part/A.cpp", changes, "switch\n"),
                         '#define ORVIX_FILE "part/A.cpp"\n#define ORVIX_COUNT 1\n'
                         "switch\n#line 1\nint bac;\n")


class Reasons(unittest.TestCase):
    def test_a_place_has_changes_with_reasons(self):
        read = reasons.read("# why\npart/A.cpp, UTL::f\n  change: a, b -> c\n  reason: x: y\n"
                            "  change: d\n  reason: z\npart/B.cpp, g\n  change: e\n  reason: w\n")
        self.assertEqual([str(entry) for entry in read],
                         ["part/A.cpp, UTL::f: a, b -> c", "part/A.cpp, UTL::f: d",
                          "part/B.cpp, g: e"])
        self.assertEqual(read[0].reason, "x: y")
        self.assertTrue(read[1].fits(change("d", function="UTL::f")))
        self.assertFalse(read[1].fits(change("d", function="f")))

    def test_what_is_no_list_is_refused(self):
        for text in ("part/A.cpp\n", "  change: a\n", "part/A.cpp, f\n  reason: b\n",
                     "part/A.cpp, f\n  change: a\n", "part/A.cpp, f\n  change: a\n  change: b\n",
                     "part/A.cpp, f\n  change: a\npart/A.cpp, g\n"):
            with self.subTest(text), self.assertRaises(reasons.ReasonsError):
                reasons.read(text)


class Judging(unittest.TestCase):
    def test_the_end_of_a_run_is_told(self):
        totals = "Totals: 2 passed, 0 failed, 0 skipped, 0 blacklisted, 1ms\n"
        rows = [
            ("passes", 0, totals, True, ("", "")),
            ("no Qt test", 0, "", False, ("", "")),
            ("fails", 1, "PASS   : TestA::one()\nFAIL!  : TestA::two(row) no\n" + totals, True,
             ("fails", "two")),
            ("leaves by itself", 0, "PASS   : TestA::one()\n", True, ("ends early", "after one")),
            ("crashes", -11, "PASS   : TestA::one()\n", True, ("crashes", "after one")),
            ("never begins", -11, "", True, ("crashes", "")),
            ("time of the processor is over", -24, "", True, ("runs on", "")),
            ("time is over", None, "", False, ("runs on", "")),
            ("status", 3, "", False, ("fails", "")),
        ]
        for name, status, output, is_qt, expected in rows:
            with self.subTest(name):
                self.assertEqual(judged(status, output, is_qt), expected)

    def test_reach_is_by_change(self):
        self.assertEqual(read_reach("a.cpp:1 one\na.cpp:1 two\na.cpp:2 \n"),
                         {"a.cpp:1": {"one", "two"}, "a.cpp:2": {""}})

    def test_functions_run_together_while_they_are_quick(self):
        test = Test("t", [], {}, "", 1, True, seconds=3.0, start_seconds=0.5,
                    functions={"a": 0.125, "b": 0.0625, "c": 0.0625, "d": 2.0})
        self.assertEqual(units_of(test, {"d", "a", "c", "b"}),
                         [Unit("t", ("b", "c", "a"), 0.75), Unit("t", ("d",), 2.5)])
        test.start_seconds = 2.125
        self.assertEqual(units_of(test, {"d", "a", "c", "b"}),
                         [Unit("t", ("b", "c", "a"), 2.375), Unit("t", ("d",), 4.125)])
        test.start_seconds = 2.25
        self.assertEqual(units_of(test, {"d", "a", "c", "b"}),
                         [Unit("t", ("b", "c", "a", "d"), 4.5)])
        whole = [Unit("t", (), 3.0)]
        self.assertEqual(units_of(test, {"a", ""}), whole)
        self.assertEqual(units_of(test, {"initTestCase"}), whole)
        self.assertEqual(units_of(test, {"unknown"}), whole)
        test.whole_only = True
        self.assertEqual(units_of(test, {"a"}), whole)

    def test_every_run_does_what_stands_around_the_functions(self):
        self.assertAlmostEqual(start_seconds(3.0, {"a": 0.5, "b": 0.25}), 2.25)
        self.assertAlmostEqual(
            start_seconds(60.0, {"initTestCase": 50.0, "a": 1.0, "cleanupTestCase": 2.0}), 59.0)
        self.assertEqual(start_seconds(1.0, {"a": 2.0}), 0.0)

    def test_slow_tests_take_part_where_no_other_does(self):
        quick, slow = Unit("a", (), 5.0), Unit("b", (), 5.5)
        self.assertEqual(taking_part([slow, quick]), [quick])
        self.assertEqual(taking_part([slow]), [slow])

    def test_complaints_have_places(self):
        output = ("../../part/A.cpp:7:3: error: no\n../../part/A.cpp:9:3: note: no\n"
                  "../../part/A.h:2:1:   required from here\n/usr/include/x.h:1:1: error: no\n")
        self.assertEqual(error_lines(output, Path("/tree")), {"part/A.cpp": {7}, "part/A.h": {2}})


class Finding(unittest.TestCase):
    """The changes to a text, each with its line."""

    maxDiff = None

    def changes(self, text):
        import changes  # pylint: disable=import-outside-toplevel
        unit = changes.Unit("/part/A.cpp", "part/A.cpp", text,
                            ["-std=c++17", f"-I{HERE / 'checkout'}"])
        knowledge = changes.Knowledge()
        knowledge.learn(unit)
        knowledge.close()
        found = changes.Finder(unit, knowledge).changes()
        # What was found can be put together.
        self.assertEqual(wrapped(text, found).count("\n"), text.count("\n"))
        return [f"{change.line} {change.text}" for change in found]

    def test_loops(self):
        self.assertEqual(self.changes("int f(int n)\n{\n"
                                      "    int sum = 0;\n"
                                      "    for (int i = 0; i < n; ++i) {\n"
                                      "        if (i == 3)\n"
                                      "            continue;\n"
                                      "        sum += i;\n"
                                      "    }\n"
                                      "    do\n"
                                      "        --sum;\n"
                                      "    while (sum);\n"
                                      "    return sum;\n}\n"),
                         ["3 0 + 1 in int sum = [0]", "4 0 + 1 in int i = [0]",
                          "4 i < n -> i <= n", "4 i < n -> i >= n", "5 i == 3 -> i != 3",
                          "5 3 + 1 in i == [3]", "6 dropped: continue;", "7 sum += i -> sum -= i",
                          "7 dropped: sum += i;", "10 dropped: --sum;", "11 negated: sum"])

    def test_conditions(self):
        self.assertEqual(self.changes("int f(bool a, bool b)\n{\n"
                                      "    auto both = [&] { return a && !b; };\n"
                                      "    return both() ? 1 : 2;\n}\n"
                                      "int g(int *p)\n{\n"
                                      "    if (int *q = p)\n"
                                      "        return *q;\n"
                                      "    while (true)\n"
                                      "        ++*p;\n"
                                      "}\n"),
                         ["3 a && !b -> a || !b", "4 negated: both()", "4 1 + 1 in both() ? [1] : 2",
                          "4 2 + 1 in both() ? 1 : [2]", "9 dropped: return *q;",
                          "10 false in while ( [true] ) ++*p", "11 dropped: ++*p;"])

    def test_operators_of_a_class(self):
        self.assertEqual(self.changes("struct Key { bool operator<(const Key &) const; };\n"
                                      "Key operator+(Key, Key);\n"
                                      "bool f(Key a, Key b)\n{\n"
                                      "    return a < b + a;\n}\n"),
                         ["5 a < b + a -> a <= b + a", "5 a < b + a -> a >= b + a"])

    def test_jumps(self):
        self.assertEqual(self.changes("void f(int a)\n{\n"
                                      "    switch (a) {\n"
                                      "    case 1:\n"
                                      "        f(a);\n"
                                      "        return;\n"
                                      "    case 2:\n"
                                      "        f(a);\n"
                                      "        break;\n"
                                      "    default:\n"
                                      "        break;\n"
                                      "    }\n}\n"
                                      "int g(int a)\n{\n"
                                      "    switch (a) {\n"
                                      "    case 1:\n"
                                      "        return a;\n"
                                      "    default:\n"
                                      "        return a;\n"
                                      "    }\n}\n"),
                         ["5 dropped: f(a);", "6 dropped: return;", "8 dropped: f(a); (#2)",
                          "18 dropped: return a;"])

    def test_order_of_what_reaches_the_host(self):
        self.assertEqual(self.changes('#include "contract/HostServices.h"\n'
                                      "#define emit\n"
                                      "struct Tool {\n"
                                      "    HostServices *host;\n"
                                      "    int m_a, m_b;\n"
                                      "    void bell(); void changed(); void work();\n"
                                      "};\n"
                                      "void Tool::bell()\n{\n"
                                      "    host->ring();\n}\n"
                                      "void Tool::work()\n{\n"
                                      "    m_a = m_b;\n"
                                      "    host->open();\n"
                                      "    if (m_a)\n"
                                      "        bell();\n"
                                      "    emit changed();\n"
                                      "    changed();\n}\n"),
                         ["10 dropped: host->ring();", "14 dropped: m_a = m_b;",
                          "15 swapped: host->open(); and if (m_a) bell();",
                          "15 dropped: host->open();", "16 swapped: if (m_a) bell(); and changed();",
                          "16 negated: m_a", "17 dropped: bell();", "18 dropped: changed();",
                          "19 dropped: changed(); (#2)"])


# Function, change and fate of every change to part/Door.cpp.
GATE_FATES = """\
isOpenAt|hour > 8 -> hour >= 8|SURVIVED
isOpenAt|hour > 8 -> hour <= 8|test_door fails
isOpenAt|8 + 1 in hour > [8]|SURVIVED
"""

FATES = """\
Door::enter|negated: isLocked()|test_door fails
Door::enter|isLocked() -> m_locked|test_door fails
Door::enter|dropped: return;|test_door fails
Door::enter|swapped: host->open(); and host->ring();|test_door fails
Door::enter|dropped: host->open();|test_door fails
Door::enter|dropped: host->ring();|test_door fails
Door::leave|0 + 1 in NOTHING == [0]|SURVIVED, no test reaches it
countDown|0 + 1 in int steps = [0]|test_door fails
countDown|from > 0 -> from >= 0|test_door fails
countDown|from > 0 -> from <= 0|test_door fails
countDown|0 + 1 in from > [0]|test_door fails
countDown|dropped: --from;|test_door runs on
countDown|dropped: ++steps;|test_door fails
valueAt|negated: !place|test_door crashes
price|sum -= 2 -> sum += 2|test_door fails
price|dropped: sum -= 2;|test_door fails
price|2 + 1 in sum -= [2]|test_door fails
price|dropped: break;|test_door fails
price|dropped: sum = next(sum);|SURVIVED, no test reaches it
price|sum + early -> sum - early|test_door fails
"""
REASONS = """\
part/Door.cpp, Door::leave
    change: 0 + 1 in NOTHING == [0]
    reason: nobody leaves
"""


class SmallCheckout(unittest.TestCase):
    """The script from end to end. The build of a copy is kept from one run to the next, so this is
    one story."""

    maxDiff = None

    def setUp(self):
        # pylint: disable=consider-using-with
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name) / "checkout"
        shutil.copytree(HERE / "checkout", self.root)

    def mutate(self, *arguments):
        environment = {name: value for name, value in os.environ.items()
                       if not name.startswith("ORVIX_")}
        return subprocess.run([sys.executable, "-B", SCRIPT, "--checkout", self.root, *arguments],
                              cwd=self.root, env=environment, capture_output=True, text=True,
                              check=False)

    def fates(self, table):
        """Function, change and fate as they stand in a table."""
        lines = (self.root / "build" / "mutate" / table).read_text().splitlines()
        starts = [lines[0].index(word) for word in ("place", "function", "change", "killed by")]
        self.assertEqual(starts[0], 0)
        rows = []
        for line in lines[1:lines.index("")]:
            rows.append("|".join((line[starts[1]:starts[2]].strip(),
                                  line[starts[2]:starts[3]].strip(), line[starts[3]:])) + "\n")
        return "".join(rows)

    def replace(self, path, old, new):
        text = (self.root / path).read_text()
        self.assertIn(old, text)
        (self.root / path).write_text(text.replace(old, new))

    def test_story(self):
        # A folder that is not there, one without sources, one outside.
        for name in ("nowhere", "contract", "tests", "..", "."):
            with self.subTest(name):
                done = self.mutate(name)
                self.assertEqual((done.returncode, done.stderr.count("\n")), (2, 1), done.stderr)

        # Every change has its fate: killed by a failure, an endless loop, a crash, one of them
        # before main; or not at all. What does not compile is left out.
        done = self.mutate("part")
        self.assertEqual(self.fates("part.txt"), FATES, done.stdout + done.stderr)
        self.assertEqual(done.returncode, 0, done.stdout)
        self.assertIn("1 changes do not compile and are left out:\n    part/Door.cpp:77  "
                      "0 + 1 in const char *none = [0]\n", done.stdout)
        self.assertRegex(done.stdout, r"\npart +20 +0 +20 +18 +90.0\n")
        self.assertRegex(done.stdout, r"\nall +20 +0 +20 +18 +90.0\n")

        # Several folders in one run have a table and a count each; one that is not told has none.
        self.assertFalse((self.root / "build" / "mutate" / "gate.txt").exists())
        done = self.mutate("part", "gate")
        self.assertEqual(self.fates("part.txt"), FATES, done.stdout + done.stderr)
        self.assertEqual(self.fates("gate.txt"), GATE_FATES, done.stdout + done.stderr)
        self.assertEqual(done.returncode, 1, done.stdout)
        self.assertEqual(done.stdout.count("Less than 90% of the changes are killed\n"), 1)
        self.assertEqual(done.stdout.count("Running 1 tests on the unchanged program"), 1)
        done = self.mutate("part/Door.cpp", "gate", "part")
        self.assertEqual((done.returncode, done.stderr), (2, "part/Door.cpp: told twice\n"))

        # A reason takes a survivor out of the count, in a folder only for three in a hundred.
        (self.root / "tests" / "mutants.txt").write_text(REASONS)
        done = self.mutate("part/Door.cpp", "--tests", "door")
        self.assertEqual(done.returncode, 0, done.stdout + done.stderr)
        self.assertRegex(done.stdout, r"\nall +20 +1 +19 +18 +94.7\n")
        self.assertIn("survives for a reason", done.stdout)
        done = self.mutate("part")
        self.assertEqual(done.returncode, 1)
        self.assertIn("More than 3% of the changes survive for a reason\n", done.stdout)

        # A reason for a change that is killed, and for one that is not there.
        killed = REASONS.replace("Door::leave", "Door::enter").replace(
            "0 + 1 in NOTHING == [0]", "dropped: host->ring();")
        (self.root / "tests" / "mutants.txt").write_text(killed)
        done = self.mutate("part/Door.cpp")
        self.assertEqual(done.returncode, 1)
        self.assertIn("killed, so that its reason fits nothing: "
                      "part/Door.cpp, Door::enter: dropped: host->ring();\n", done.stdout)
        (self.root / "tests" / "mutants.txt").write_text(killed.replace("ring", "sing"))
        done = self.mutate("part")
        self.assertEqual((done.returncode, done.stderr),
                         (1, "tests/mutants.txt: a reason fits nothing: "
                             "part/Door.cpp, Door::enter: dropped: host->sing();\n"))
        (self.root / "tests" / "mutants.txt").unlink()

        # Tests that hold less, then tests that fail.
        self.replace("tests/test_door.cpp", "price(1) == 6 &&", "")
        self.replace("tests/test_door.cpp", "price(3) == 8 && ", "")
        done = self.mutate("part")
        self.assertEqual(done.returncode, 1)
        self.assertIn("Less than 90% of the changes are killed\n", done.stdout)
        self.replace("tests/test_door.cpp", "countDown(3) == 3", "countDown(3) == 4")
        done = self.mutate("part")
        self.assertEqual((done.returncode, done.stderr),
                         (1, "The unchanged program fails 1 of 1 tests\n"))
        self.assertIn("test_door fails on the unchanged program", done.stdout)


if __name__ == "__main__":
    try:
        import clang.cindex
        clang.cindex.Config().lib
    except Exception as error:  # pylint: disable=broad-except
        print(f"No bindings of clang: {error}")
        sys.exit(77)
    unittest.main(verbosity=2)
