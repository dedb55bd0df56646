"""The copy of the checkout in which the changes are compiled, and its build.

The copy is kept in step by content, and written to only where it differs, so that a later run
builds what has changed and nothing else. Its build folder lies in it as the build folder of
`./dev test` lies in the checkout.
"""

import json
import os
import re
import shlex
import shutil
import subprocess
from pathlib import Path

NOT_COPIED = {".git", ".cache", "build", "tour"}
PRESET = "dev"


class BuildError(Exception):
    """The build cannot go on."""


class Tree:
    def __init__(self, checkout, folder):
        self.checkout = checkout
        self.root = folder / "tree"
        self.build = self.root / "build" / PRESET
        self._log = folder / "build.log"
        self._environment = {
            **os.environ,
            "CCACHE_BASEDIR": str(self.root),
            "CCACHE_NOHASHDIR": "1",
            "LC_ALL": "C.UTF-8",
        }

    def synchronise(self, texts, *, keeping=lambda path: False):
        """Makes the copy equal to the checkout but for `texts`, bytes by relative path. What is
        `keeping` may stay as an earlier run has left it."""
        wanted = set()
        for folder, folders, files in os.walk(self.checkout):
            top = folder == str(self.checkout)
            folders[:] = [name for name in folders if not (top and name in NOT_COPIED)
                          and name != "__pycache__"]
            for name in files:
                if not (top and name in NOT_COPIED):
                    wanted.add(os.path.relpath(os.path.join(folder, name), self.checkout))
        for path in wanted:
            if not (keeping(path) and (self.root / path).exists()):
                self._write(path, texts.get(path))
        for folder, folders, files in os.walk(self.root):
            if folder == str(self.root):
                folders[:] = [name for name in folders if name not in NOT_COPIED]
            for name in files:
                path = os.path.relpath(os.path.join(folder, name), self.root)
                if path not in wanted:
                    (self.root / path).unlink()

    def _write(self, path, text):
        source, target = self.checkout / path, self.root / path
        if text is None:
            text = source.read_bytes()
        mode = source.stat().st_mode & 0o777
        if not target.exists() or target.read_bytes() != text:
            target.parent.mkdir(parents=True, exist_ok=True)
            target.write_bytes(text)
        if target.stat().st_mode & 0o777 != mode:
            target.chmod(mode)

    def configure(self):
        # g++ takes everything that a change makes of the code, once switch.h has told it not to warn.
        options = ["-DORVIX_BENCH=OFF", "-DORVIX_FUZZ=OFF", "-DCMAKE_CXX_COMPILER=g++"]
        if shutil.which("ccache"):
            options.append("-DCMAKE_CXX_COMPILER_LAUNCHER=ccache")
        # Ninja configures again by itself, but knows nothing of presets, nor of a moved checkout.
        ninja, presets = self.build / "build.ninja", self.root / "CMakePresets.json"
        home = f"CMAKE_HOME_DIRECTORY:INTERNAL={self.root}\n"
        if ninja.exists() and ninja.stat().st_mtime > presets.stat().st_mtime and (
                home in (self.build / "CMakeCache.txt").read_text()):
            return
        self._run(["cmake", "--fresh", "--preset", PRESET, *options],
                  "The build could not be configured")
        ninja.touch()

    def compiled(self):
        """The arguments of the compiler for each source, by relative path."""
        result = {}
        for entry in json.loads((self.build / "compile_commands.json").read_text()):
            source = Path(entry["directory"], entry["file"])
            if not source.is_relative_to(self.root):
                continue
            words = iter(shlex.split(entry["command"]))
            arguments = []
            for word in words:
                if word == "-o":
                    next(words)
                elif word == "-include":
                    header = next(words)
                    # One that is compiled is the other compiler's; each file names what it needs.
                    if not Path(header + ".gch").exists():
                        arguments += [word, header]
                elif word.startswith("-") and word != "-c":
                    arguments.append(word)
                    if word in ("-I", "-isystem", "-D"):
                        arguments.append(next(words))
            result[str(source.relative_to(self.root))] = arguments
        return result

    def make_object(self, path):
        """Compiles one source, and makes what it includes first."""
        self._run(["ninja", "-C", str(self.build), f"{self.root / path}^"],
                  f"{path} does not compile")

    def targets(self, names):
        """Those of the names that can be built."""
        text = subprocess.run(["ninja", "-C", str(self.build), "-t", "targets", "all"],
                              env=self._environment, capture_output=True, text=True, check=True)
        known = {line.split(": ")[0] for line in text.stdout.splitlines()}
        return [name for name in names if name in known]

    def make(self, targets):
        """Builds, and returns what the compiler printed where that failed."""
        done = subprocess.run(["ninja", "-k", "0", "-C", str(self.build), *targets],
                              env=self._environment, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, errors="replace", check=False)
        self._log.write_text(done.stdout)
        return None if done.returncode == 0 else done.stdout

    def tests(self):
        """All tests that ctest knows, as it describes them."""
        done = subprocess.run(["ctest", "--test-dir", str(self.build), "--show-only=json-v1"],
                              env=self._environment, capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise BuildError(done.stderr)
        return json.loads(done.stdout)["tests"]

    def _run(self, command, failure):
        done = subprocess.run(command, cwd=self.root, env=self._environment,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                              errors="replace", check=False)
        if done.returncode != 0:
            raise BuildError(f"{failure}:\n{done.stdout[-4000:]}")


def error_lines(output, root):
    """The places that the compiler complains about: sets of lines by relative path. A complaint
    about a header counts for the line from which it was reached."""
    lines = {}
    place = re.compile(r"^(\S+?\.(?:cpp|h)):(\d+):(?:\d+:)? +(?:error|required from here)",
                       re.MULTILINE)
    for path, line in place.findall(output):
        path = os.path.normpath(os.path.join(root, "build", PRESET, path))
        if path.startswith(f"{root}/"):
            lines.setdefault(os.path.relpath(path, root), set()).add(int(line))
    return lines
