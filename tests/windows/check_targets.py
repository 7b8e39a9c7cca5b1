"""Installs the library into a scratch folder, builds an outside project of programs and modules written for Windows
with the package's CMake functions, and runs them."""

import argparse
import os
import pathlib
import shlex
import shutil
import subprocess
import sys
import unittest

HERE = pathlib.Path(__file__).resolve().parent
OPTIONS = argparse.Namespace()


def run(*command, **options):
    return subprocess.run([str(word) for word in command], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          encoding="utf-8", errors="surrogateescape", **options)


def must_succeed(result):
    if result.returncode != 0:
        sys.exit(f"{' '.join(result.args)}:\n{result.stdout}")


def configure(source, build):
    return run("cmake", "-S", source, "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={OPTIONS.prefix}",
               *OPTIONS.configure)


class BuiltProject(unittest.TestCase):
    def program(self, name, *arguments, **environment):
        kept = {key: value for key, value in os.environ.items() if not key.startswith(("LC_", "LANG"))}
        # The emulator finds the cross compiler's libraries by this variable; the project's own are found without it.
        return run(*OPTIONS.emulator, OPTIONS.build / name, *arguments, cwd="/", env={**kept, **environment})

    def assert_prints(self, result, output, status=0):
        self.assertEqual((result.stdout, result.returncode), (output, status))

    def assert_build_fails(self, target, *messages):
        result = run("ninja", "-C", OPTIONS.build, target)
        self.assertNotEqual(result.returncode, 0, result.stdout)
        for message in messages:
            self.assertIn(message, result.stdout)


class Entries(BuiltProject):
    def test_every_form_of_wmain_gets_wide_arguments(self):
        for form in ("TEXTS", "CONSTANT_TEXTS", "CONSTANTS", "ALL_CONSTANTS", "C_LINKAGE"):
            with self.subTest(form):
                self.assert_prints(self.program(f"entry_WMAIN_{form}", "plain", "", "Größe 語 😀"),
                                   "wmain [plain] [] [Größe 語 😀]\n", 7)
        self.assert_prints(self.program("entry_WMAIN_WITHOUT"), "wmain()\n", 7)
        self.assert_prints(self.program("entry_in_c", "Größe"), "wmain in C [Größe]\n", 7)

    def test_wmain_gets_the_environment_without_what_is_no_text(self):
        for form in ("ENVIRONMENT", "CONSTANT_ENVIRONMENT"):
            with self.subTest(form):
                result = self.program(f"entry_WMAIN_{form}", "a", KEST_SHOWN="ä", KEST_BAD=os.fsdecode(b"\xff"))
                self.assert_prints(result, "KEST_SHOWN=ä wmain [a]\n", 7)

    def test_main_gets_its_arguments_as_they_are(self):
        self.assert_prints(self.program("entry_MAIN", os.fsdecode(b"\xff")), os.fsdecode(b"main [\xff]\n"), 7)

    def test_window_programs_get_a_command_line_that_splits_again(self):
        arguments = ["a", "b c", "", 'say "hi"', "end\\", "in\\side", "sp ace\\", '\\"', "ä"]
        line = 'a "b c" "" "say \\"hi\\"" end\\ in\\side "sp ace\\\\" "\\\\\\"" ä'
        self.assert_prints(self.program("entry_WWINMAIN", *arguments), f"wWinMain [{line}] 1 1\n", 7)
        self.assert_prints(self.program("entry_WINMAIN", *arguments), f"WinMain [{line}] 1 1\n", 7)
        self.assert_prints(self.program("entry_WWINMAIN"), "wWinMain [] 1 1\n", 7)

    def test_an_argument_that_is_no_text_is_named(self):
        bad = os.fsdecode(b"caf\xe9")
        for form in ("WMAIN_TEXTS", "WWINMAIN"):
            with self.subTest(form):
                self.assert_prints(self.program(f"entry_{form}", "good", bad),
                                   f"entry_{form}: argument 2 is not text in the encoding UTF-8: {bad}\n", 127)

    def test_a_program_without_entry_says_so(self):
        self.assert_prints(self.program("entry_NOTHING"),
                           "entry_NOTHING: defines neither main nor wmain, WinMain or wWinMain\n", 127)


class Surroundings(BuiltProject):
    def test_the_reference_host_is_the_hub_unless_another_is_named(self):
        self.assert_prints(self.program("reference_hosted"), "key 0, root known, UTF-8, numbers C\n")

    def test_the_hub_comes_from_the_named_factory(self):
        self.assert_prints(self.program("team_hosted"), "key 42, root known, UTF-8, numbers C\n")
        self.assert_prints(self.program("hostless"), "no hub\n")

    def test_text_is_utf8_and_numbers_are_plain_in_every_environment(self):
        for name in ("C", "POSIX", "C.UTF-8", "xx_XX.ISO-8859-1"):
            with self.subTest(name):
                self.assert_prints(self.program("reference_hosted", LC_ALL=name),
                                   "key 0, root known, UTF-8, numbers C\n")

    def test_a_named_locale_is_set_or_missed_by_name(self):
        self.assert_prints(self.program("other_locale"), "key 0, root known, ANSI_X3.4-1968, numbers C\n")
        self.assert_prints(self.program("missing_locale"),
                           "missing_locale: the locale xx_XX.UTF-8 is not installed\n", 127)


class WindowsBranches(BuiltProject):
    def test_only_the_named_sources_of_the_target_see_win32(self):
        self.assert_prints(self.program("windows_branch"), "Linux, shared Windows, narrow\n")
        self.assert_prints(self.program("linux_branch"), "Linux, shared Linux, wide\n")

    def test_the_standard_file_system_is_refused_under_win32_alone(self):
        message = "cannot be used by a source that is compiled with _WIN32"
        self.assert_build_fails("filesystem_user", "#error", "<filesystem> " + message)
        self.assert_build_fails("experimental_filesystem_user", "#error", "<experimental/filesystem> " + message)
        self.assert_prints(self.program("filesystem_user_without_win32"), "")


class Modules(BuiltProject):
    def test_each_module_is_found_beside_the_program_by_the_name_that_code_uses(self):
        files = {"Tools.dll": "libTools.so", "Tools": "libTools.so", "Plugin.qlx": "libPlugin.qlx",
                 "libPrefixed.DLL": "libPrefixed.so", "lib.dll": "liblib.so", "a.b.dll": "liba.b.so",
                 "Extensionless": "libExtensionless.so", "libVersioned.so.1": "libVersioned.so.1"}
        for name, file in files.items():
            with self.subTest(name):
                self.assert_prints(self.program("loading", name), f"{name}: 42 from /{file}, hidden 1\n(unloaded) ")

    def test_a_module_without_dllmain_has_one_of_its_own(self):
        self.assert_prints(self.program("loading", "Entryless.dll"),
                           "Entryless.dll: 41 from /libEntryless.so, hidden 1\n")

    def test_an_undefined_symbol_stops_the_link(self):
        self.assert_build_fails("Lacking", "undefined", "definedNowhere")


class Refusals(unittest.TestCase):
    def test_a_wrong_call_is_named(self):
        cases = {
            "kest_add_windows_executable(a)": "kest_add_windows_executable(a): names no sources",
            "kest_add_windows_module(a UNICODE)": "kest_add_windows_module(a): names no sources",
            "kest_add_windows_module(a a.cpp FILE)": "kest_add_windows_module(a): no value after FILE",
            "kest_add_windows_module(a a.cpp FILE sub/a.dll)":
                'kest_add_windows_module(a): FILE "sub/a.dll" is not a file name',
            "kest_add_windows_executable(a a.cpp WIN32_SOURCES b.cpp)":
                'kest_add_windows_executable(a): "b.cpp" of WIN32_SOURCES is none of the sources',
            "kest_add_windows_executable(a a.cpp HOST_FACTORY make-host)":
                'kest_add_windows_executable(a): HOST_FACTORY "make-host" is not the name of a function',
        }
        source = OPTIONS.scratch / "refused"
        source.mkdir()
        for call, message in cases.items():
            with self.subTest(call):
                (source / "CMakeLists.txt").write_text(
                    "cmake_minimum_required(VERSION 3.25)\nproject(Refused LANGUAGES CXX)\n"
                    f"find_package(KestPlatformBase REQUIRED)\n{call}\n", encoding="utf-8")
                result = configure(source, OPTIONS.scratch / "refused_build")
                self.assertNotEqual(result.returncode, 0)
                self.assertIn(message, " ".join(result.stdout.split()))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True)
    parser.add_argument("--emulator", type=shlex.split, default=[])
    parser.add_argument("--configure", type=shlex.split, default=[], help="arguments for the outside project's CMake")
    parser.add_argument("--scratch", type=pathlib.Path, required=True,
                        help="folder to build in; of the same name each time, so that a compiler cache knows it again")
    options, rest = parser.parse_known_args()

    scratch = options.scratch
    shutil.rmtree(scratch, ignore_errors=True)
    scratch.mkdir()
    OPTIONS.__dict__.update(vars(options), prefix=scratch / "prefix", build=scratch / "build")
    try:
        must_succeed(run("cmake", "--install", options.build, "--prefix", OPTIONS.prefix))
        must_succeed(configure(HERE / "outside_project", OPTIONS.build))
        must_succeed(run("ninja", "-k", "0", "-C", OPTIONS.build))
        return unittest.main(argv=[sys.argv[0], *rest], exit=False).result.wasSuccessful()
    finally:
        shutil.rmtree(scratch)


sys.exit(0 if main() else 1)
