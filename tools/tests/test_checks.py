"""Proves that each check of tools/ passes a clean tree and fails a spoilt one."""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(TOOLS))

import checking  # noqa: E402


class CheckCase(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def put(self, name, text):
        path = self.root / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")
        return path

    def run_tool(self, tool, *arguments, environment=None):
        run = subprocess.run([sys.executable, TOOLS / tool, *arguments], stdin=subprocess.DEVNULL,
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=600,
                             env={**os.environ, "REBASELINE": "", **(environment or {})})
        self.output = run.stdout
        self.last_line = run.stdout.splitlines()[-1] if run.stdout else ""
        return run.returncode

    def passes(self, tool, *arguments, **keywords):
        self.assertEqual(self.run_tool(tool, *arguments, **keywords), 0, self.output)
        self.assertTrue(self.last_line.endswith(" 0 failed"), self.output)

    def fails(self, tool, *arguments, because, **keywords):
        self.assertEqual(self.run_tool(tool, *arguments, **keywords), 1, self.output)
        self.assertTrue(self.last_line.endswith(" 1 failed"), self.output)
        self.assertIn(because, self.output)


class Includes(CheckCase):
    def setUp(self):
        super().setUp()
        self.put("text/a.h", "#pragma once\n#include <vector>\n#include <algorithm>\n")
        self.put("text/b.h", '#pragma once\n#include "text/a.h"\n')

    def test_a_header_of_ours_may_bring_what_is_used(self):
        self.put("text/b.cpp", '#include "text/b.h"\n// std::clamp\nstd::vector<int> a;\n'
                               'const char* b = "std::map";\nint c = std::max(1, 2);\n')
        self.passes("check_includes.py", "--root", self.root)

    def test_a_standard_header_brings_no_other(self):
        self.put("text/b.cpp", '#include "text/b.h"\n\nstd::uint32_t a;\n')
        self.fails("check_includes.py", "--root", self.root, because="text/b.cpp:3: std::uint32_t without <cstdint>")

    def test_a_file_that_is_included_nowhere(self):
        self.put("text/b.cpp", "#include <string>\nstd::vector<int> a;\n")
        self.fails("check_includes.py", "--root", self.root, because="text/b.cpp:2: std::vector without <vector>")

    def test_a_header_of_ours_is_missing(self):
        self.put("tones/port.h", "#pragma once\nclass Port {\n  int Volume();\n};\nint Loudest(Port& port);\n")
        self.put("tones/own.cpp", "struct Port {};\nint Loudest(Port& port) { return 1; }\n")
        self.put("tones/user.cpp", '#include "tones/port.h"\n\nint Half(Port& port) { return Loudest(port) / 2; }\n')
        self.passes("check_includes.py", "--root", self.root)
        self.put("tones/user.cpp", "\nint Half(Port& port) { return Loudest(port) / 2; }\n")
        self.fails("check_includes.py", "--root", self.root, because='tones/user.cpp:2: Port without "tones/port.h"')
        self.assertIn('tones/user.cpp:2: Loudest without "tones/port.h"', self.output)


class Layers(CheckCase):
    def setUp(self):
        super().setUp()
        self.put("platform/clock.h", "#pragma once\n#include <optional>\n// HANDLE, GetMessage\nclass Clock {};\n")
        for room, seen in checking.TABLE.items():
            above_the_seam = "" if room == "text" else '#include "platform/clock.h"\n'
            self.put(f"{room}/a.h", above_the_seam + "".join(f'#include "{lower}/a.h"\n' for lower in seen))
        self.put("CMakeLists.txt", "".join(f"pointalk_room({' '.join((room, *seen))})\n"
                                           for room, seen in checking.TABLE.items()))
        self.put("win32/clock.cpp", '#include <windows.h>\n#include "platform/clock.h"\n#include "app/a.h"\n')
        self.put("sim/clock.cpp", '#include <nlohmann/json.hpp>\n#include "app/a.h"\n')

    def spoilt(self, name, text, because):
        self.put(name, text)
        self.fails("check_layers.py", "--root", self.root, because=because)

    def test_a_tidy_house_passes(self):
        self.passes("check_layers.py", "--root", self.root)

    def test_a_room_includes_the_system(self):
        self.spoilt("tones/a.cpp", "#include <windows.h>\n", "tones/a.cpp:1: <windows.h> is no standard header")

    def test_the_seam_includes_the_system(self):
        self.spoilt("platform/a.h", "\n#include <unistd.h>\n", "platform/a.h:2: <unistd.h>")

    def test_a_room_includes_windows_side(self):
        self.put("win32/a.h", "")
        self.spoilt("tones/a.cpp", '#include "win32/a.h"\n', 'tones/ may not include "win32/a.h"')

    def test_the_simulation_includes_windows_side(self):
        self.put("win32/a.h", "")
        self.spoilt("sim/a.cpp", '#include "win32/a.h"\n', 'sim/ may not include "win32/a.h"')

    def test_the_seam_includes_a_room(self):
        self.put("tones/b.h", "")
        self.spoilt("platform/a.h", '#include "tones/b.h"\n', 'platform/ may not include "tones/b.h"')

    def test_an_include_is_not_seen_from_the_root(self):
        self.spoilt("tones/a.cpp", '#include "tones.h"\n', '"tones.h" is no file of ours')

    def test_every_arrow_that_the_table_lacks(self):
        lacking = [(room, other) for room, seen in checking.TABLE.items() for other in checking.ROOMS
                   if other != room and other not in seen]
        for room, other in lacking:
            self.put(f"{other}/b.h", "")
            self.put(f"{room}/to_{other}.cpp", f'#include "{other}/b.h"\n')
        found = "".join(f'{room}/to_{other}.cpp:1: {room}/ may not include "{other}/b.h"\n' for room, other in sorted(lacking))
        self.fails("check_layers.py", "--root", self.root, because="may not include")
        self.assertEqual("".join(line + "\n" for line in sorted(self.output.splitlines()) if "may not include" in line), found)

    def test_the_ground_includes_the_seam(self):
        self.spoilt("text/b.cpp", '#include "platform/clock.h"\n', 'text/ may not include "platform/clock.h"')

    def test_a_room_is_linked_against_the_table(self):
        lists = self.root / "CMakeLists.txt"
        self.spoilt("CMakeLists.txt", lists.read_text().replace("(tones text)", "(tones text speech)"),
                    "tones is linked to ['text', 'speech']")

    def test_a_room_is_no_library(self):
        lists = self.root / "CMakeLists.txt"
        self.spoilt("CMakeLists.txt", lists.read_text().replace("pointalk_room(crash", "pointalk_roof(crash"),
                    "crash is no library of its own")

    def test_the_seam_has_code(self):
        self.spoilt("platform/clock.cpp", "", "the seam has no code")

    def test_the_seam_speaks_of_handles(self):
        self.spoilt("platform/a.h", "/* x\n*/ HRESULT Open();\n", "platform/a.h:2: HRESULT")

    def test_the_seam_names_a_macro(self):
        self.spoilt("platform/a.h", "bool GetMessage();\n", "<windows.h> has a macro GetMessage")

    def test_includes_form_a_cycle(self):
        self.put("tones/b.h", '#include "tones/c.h"\n')
        self.spoilt("tones/c.h", '#include "tones/b.h"\n', "include cycle")


class Names(CheckCase):
    def test_given_names_and_words_that_only_begin_alike(self):
        self.put("app/a.h", "// theTimer\nint mMuted = 0, then = 0, anchor = 0, another = 0;\n")
        self.put("win32/a.h", "int mouse = 0, theme = 0;\n")
        self.passes("check_given_names.py", "--root", self.root)

    def test_an_article(self):
        self.put("tests/a.h", "\nint theTimer = 0;\n")
        self.fails("check_given_names.py", "--root", self.root, because="tests/a.h:2: theTimer")

    def test_a_field_of_the_form_elsewhere(self):
        self.put("wine/voice/a.h", "int mMuted = 0;\n")
        self.fails("check_given_names.py", "--root", self.root, because="wine/voice/a.h:1: mMuted")


class WithoutTidy(CheckCase):
    def test_it_is_left_out(self):
        self.passes("check_tidy.py", "--root", self.root, self.root / "build", environment={"PATH": str(self.root)})
        self.assertEqual(self.output.splitlines(), [
            "left out: clang-tidy finds no fault in the sources. clang-tidy-14 is not installed", "0 passed, 0 failed"])


@unittest.skipUnless(shutil.which("clang-tidy-14"), "clang-tidy-14 is not installed")
class Tidy(CheckCase):
    def setUp(self):
        super().setUp()
        self.put(".clang-tidy", (TOOLS.parent / ".clang-tidy").read_text())
        self.put("app/a.h", "class A {\n public:\n  int Next();\n\n private:\n  int last_ = 0;\n};\n")
        self.put("app/a.cpp", '#include "app/a.h"\n\nint A::Next() { return ++last_; }\n')
        self.target("app", "app/a.cpp")

    def target(self, name, *sources, compiler="clang++", flags="", others=()):
        """A build folder with one target and others, as CMake leaves it when a target is compiled as one file; returns its entry."""
        includes = "".join(f'#include "{self.root}/{source}"\n' for source in sources)
        unity = self.put(f"build/CMakeFiles/pointalk_{name}.dir/Unity/unity.cxx", includes)
        command = f"ccache /usr/bin/{compiler} -I{self.root} -std=c++20 {flags} -Wall -o pointalk_{name}.dir/unity.o -c {unity}"
        entry = {"directory": f"{self.root}/build", "command": command, "file": str(unity)}
        self.put("build/compile_commands.json", json.dumps([entry, *others]))
        return entry

    def run_tool(self, tool, *arguments, **keywords):
        return super().run_tool(tool, "--root", self.root, self.root / "build", *arguments, **keywords)

    def test_a_clean_target_is_remembered(self):
        self.passes("check_tidy.py")
        self.assertIn("1 of 1 files changed", self.output)
        self.passes("check_tidy.py")
        self.assertIn("0 of 1 files changed", self.output)
        self.assertEqual(self.last_line, "1 passed, 0 failed")

    def test_a_header_of_a_clean_target_is_spoilt(self):
        self.passes("check_tidy.py")
        self.put("app/a.h", "class A {\n public:\n  int Next();\n\n private:\n  int last_ = 0;\n  int mNext = 0;\n};\n")
        for _ in range(2):
            self.fails("check_tidy.py", because="app/a.h:7:7: error: invalid case style for private member 'mNext'")

    def test_a_given_name_is_no_fault(self):
        self.put("app/a.h", "class A {\n public:\n  int Next();\n\n private:\n  int last_ = 0;\n  bool mMuted = false;\n};\n")
        self.passes("check_tidy.py")

    def test_a_source_that_does_not_compile(self):
        self.put("app/a.cpp", '#include "app/missing.h"\n')
        self.fails("check_tidy.py", because="'app/missing.h' file not found")

    def test_targets_for_one_system_are_one_file(self):
        self.put("tones/a.cpp", "int none() { return SOUNDS; }\n\nint main() { return none(); }\n")
        self.put("text/a.cpp", "int Some() { return 1; }\n\nint main() { return Some(); }\n")
        app = self.target("app", "app/a.cpp", "text/a.cpp")
        self.target("tones", "tones/a.cpp", "text/a.cpp", flags="-DSOUNDS=2", others=[app])
        self.fails("check_tidy.py", because="tones/a.cpp:1:5: error: invalid case style for function 'none'")
        self.assertEqual(self.output.count("error:"), 1)
        self.assertIn("1 of 1 files changed", self.output)
        self.assertIn("FAILED: clang-tidy finds no fault in tones, app.", self.output)

    def test_what_needs_xlib_stands_apart(self):
        self.put("linux/a.cpp", "#include <X11/Xlib.h>\n\nBool Some() { return None; }\n")
        app = self.target("app", "app/a.cpp")
        self.target("x", "linux/a.cpp", others=[app])
        self.passes("check_tidy.py")
        self.assertEqual(self.last_line, "2 passed, 0 failed")

    def test_a_target_for_windows(self):
        self.target("win32", "win32/a.cpp", compiler="x86_64-w64-mingw32-g++-posix")
        self.put("win32/a.cpp", "#include <windef.h>\n\n#include <cstdint>\n\nHWND None() { return nullptr; }\n")
        self.passes("check_tidy.py")
        self.put("win32/a.cpp", "#include <windef.h>\n\n#include <cstdint>\n\nHWND none() { return nullptr; }\n")
        self.fails("check_tidy.py", because="win32/a.cpp:5:6: error: invalid case style for function 'none'")


class Format(CheckCase):
    def setUp(self):
        super().setUp()
        self.put(".clang-format", (TOOLS.parent / ".clang-format").read_text())

    def needs_the_program(self):
        if not shutil.which("clang-format-14"):
            self.skipTest("clang-format-14 is not installed")

    def test_left_out_where_its_program_is_missing(self):
        self.put("app/a.h", "int *A( int a );\n")
        self.passes("check_format.py", "--root", self.root, environment={"PATH": str(self.root)})
        self.assertEqual(self.output.splitlines(), [
            "left out: The sources are laid out. clang-format-14 is not installed", "0 passed, 0 failed"])

    def test_laid_out(self):
        self.needs_the_program()
        self.put("app/a.h", "int* A(int a);\n")
        self.passes("check_format.py", "--root", self.root)

    def test_not_laid_out(self):
        self.needs_the_program()
        self.put("app/a.h", "int *A( int a );\n")
        self.fails("check_format.py", "--root", self.root, because="app/a.h:1:")

    def test_fixing(self):
        self.needs_the_program()
        path = self.put("app/a.h", "int *A( int a );\n")
        self.run_tool("check_format.py", "--root", self.root, "--fix")
        self.assertEqual(path.read_text(), "int* A(int a);\n")


@unittest.skipUnless(shutil.which("flake8") and shutil.which("shellcheck"), "flake8 or shellcheck is not installed")
class Scripts(CheckCase):
    def setUp(self):
        super().setUp()
        self.put("tools/a.py", "print('hello')\n")
        self.put("start", "#!/bin/sh\necho hello\n")

    def test_tidy_scripts_pass(self):
        self.passes("check_scripts.py", "--root", self.root)

    def test_python_that_imports_for_no_use(self):
        self.put("tools/a.py", "import os\n")
        self.fails("check_scripts.py", "--root", self.root, because="a.py:1:1: F401")

    def test_shell_that_splits_words(self):
        self.put("start", "#!/bin/sh\necho $1\n")
        self.fails("check_scripts.py", "--root", self.root, because="SC2086")


class TestsBuilt(CheckCase):
    def setUp(self):
        super().setUp()
        names = ("tests/app/a_test.cpp", "tests/fuzz/a_fuzz.cpp", "tests/bench/a_bench.cpp")
        self.tests = [self.put(name, "") for name in names]

    def build(self, files):
        commands = [{"directory": str(self.root / "build"), "file": str(file)} for file in files]
        self.put("build/compile_commands.json", json.dumps(commands))

    def test_all_are_built(self):
        self.build(self.tests)
        self.passes("check_tests_built.py", "--root", self.root, self.root / "build")

    def test_those_of_a_joined_file_are_built(self):
        *others, last = self.tests
        joined = self.put("build/Unity/unity_0_cxx.cxx", f'#include "{last}"\n')
        self.build([*others, joined])
        self.passes("check_tests_built.py", "--root", self.root, self.root / "build")
        joined.write_text("")
        self.fails("check_tests_built.py", "--root", self.root, self.root / "build", because=last.name)

    def test_one_is_in_no_target(self):
        for left_out in self.tests:
            with self.subTest(left_out.name):
                self.build([file for file in self.tests if file != left_out])
                self.fails("check_tests_built.py", "--root", self.root, self.root / "build", because=left_out.name)


if __name__ == "__main__":
    unittest.main()
