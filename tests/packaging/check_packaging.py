"""Installs the libraries into a scratch prefix, builds an outside project against each with the CMake package and with
pkg-config, and runs the programs. Also builds the Debian packages and looks at what they hold."""

import argparse
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent


class Library:
    """What an outside project gets to see of a library, and what its program prints when all is well."""

    def __init__(self, target, project, pkg_config, header, needs, output):
        self.target = target
        self.project = HERE / project
        self.file = f"lib{target}.so"
        self.targets_file = f"{target}Targets.cmake"
        self.package = f"lib{target}".lower()
        self.pkg_config = pkg_config
        self.header = header
        self.needs = needs
        self.output = output


# Every library that is installed, with the project beside this file that uses it and the packages that it needs beside
# the C++ library's.
LIBRARIES = {library.target: library for library in (
    Library("KestPlatformBase", "platform_base", "kest-platform-base", "kest/kernel.h", {"libc6"}, "no hub\n"),
    Library("KestCompanions", "companions", "kest-companions", "kest/companions/kernel.h",
            {"libc6", "libkestplatformbase"}, "the companions answer\n"),
    Library("KestReferenceHost", "reference_host", "kest-reference-host", "kest/reference_host.h",
            {"libc6", "libkestplatformbase", "libsqlite3-0"}, "the reference host answers\n"),
)}


def run(*command, **options):
    result = subprocess.run([str(word) for word in command], capture_output=True, text=True, **options)
    if result.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}:\n{result.stdout}{result.stderr}")
    return result.stdout


def expect_prints(program, emulator, expected):
    output = run(*emulator, program)
    if output != expected:
        sys.exit(f"{program} prints {output!r}")


def check_cmake_package(options, library, prefix, scratch):
    build = scratch / library.project.name / "cmake"
    run("cmake", "-S", library.project, "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={prefix}", *options.configure)
    run("cmake", "--build", build)
    expect_prints(build / "outside_program", options.emulator, library.output)


def check_pkg_config(options, library, library_folder, scratch):
    package = library.pkg_config
    environment = dict(os.environ, PKG_CONFIG_PATH=str(library_folder / "pkgconfig"))
    flags = shlex.split(run("pkg-config", "--cflags", "--libs", package, env=environment))
    windows = run("pkg-config", "--variable=windowsincludedir", package, env=environment).strip()
    program = scratch / library.project.name / "pkg_config_program"
    run(options.compiler, "-std=c++11", library.project / "outside_program.cpp", "-isystem", windows, *flags,
        f"-Wl,-rpath,{library_folder}", "-o", program)
    expect_prints(program, options.emulator, library.output)


def check_tracer(options, prefix, scratch):
    """The installed tracer finds its library, wherever the installation stands."""
    tracer = prefix / "bin" / "kest-trace"
    program = scratch / options.libraries[0].project.name / "cmake" / "outside_program"
    emulator = ["--emulator", shlex.join(options.emulator)] if options.emulator else []
    report = scratch / "report.txt"
    run(*options.emulator, tracer, "--output", report, *emulator, program)
    if "reached in" not in report.read_text():
        sys.exit(f"{tracer} reports:\n{report.read_text()}")


def check_debian_packages(options, scratch):
    run("cpack", "--config", pathlib.Path(options.build) / "CPackConfig.cmake", "-B", scratch / "packages")
    packages = {package.name.split("_")[0]: package for package in (scratch / "packages").glob("*.deb")}
    expected = {library.package + suffix for library in options.libraries for suffix in ("", "-dev")}
    if options.tools:
        expected.add("kest-tools")
    if packages.keys() != expected:
        sys.exit(f"the packages are {', '.join(sorted(packages))}")
    for library in options.libraries:
        expect_holds(packages[library.package], library.file)
        expect_needs(packages[library.package], library.needs)
        expect_holds(packages[library.package + "-dev"], library.header, library.targets_file, library.pkg_config + ".pc")
    expect_holds(packages["libkestplatformbase-dev"], "KestPlatformBaseConfig.cmake", "KestWindowsPrograms.cmake",
                 "kest-windows/windows.h", "exports.tsv")
    if "libkestcompanions-dev" in packages:
        expect_holds(packages["libkestcompanions-dev"], "companions.tsv")
    if "libkestreferencehost" in packages:
        expect_holds(packages["libkestreferencehost"], "bin/kest-reg")
    if options.tools:
        expect_holds(packages["kest-tools"], *(f"bin/{tool}" for tool in options.tools))


def expect_holds(package, *files):
    contents = run("dpkg-deb", "--contents", package)
    for file in files:
        if not any(line.endswith("/" + file) for line in contents.splitlines()):
            sys.exit(f"{package.name} lacks {file}")


def expect_needs(package, needs):
    depends = run("dpkg-deb", "--field", package, "Depends")
    names = {alternative.split()[0] for alternative in depends.split(",")}
    if names - {"libgcc-s1", "libstdc++6"} != needs:
        sys.exit(f"{package.name} depends on {', '.join(sorted(names))}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--emulator", type=shlex.split, default=[])
    parser.add_argument("--configure", type=shlex.split, default=[], help="arguments for the outside projects' CMake")
    parser.add_argument("--debian", action="store_true", help="build the Debian packages too")
    parser.add_argument("--tool", action="append", dest="tools", default=[], help="a tool that is installed, too")
    parser.add_argument("libraries", nargs="+", type=LIBRARIES.__getitem__, metavar="library")
    options = parser.parse_args()

    with tempfile.TemporaryDirectory(prefix="kest-packaging-") as folder:
        scratch = pathlib.Path(folder)
        prefix = scratch / "prefix"
        run("cmake", "--install", options.build, "--prefix", prefix)
        for library in options.libraries:
            (scratch / library.project.name).mkdir()
            check_cmake_package(options, library, prefix, scratch)
            library_folder = next(prefix.rglob(library.file)).parent
            check_pkg_config(options, library, library_folder, scratch)
        if "kest-trace" in options.tools:
            check_tracer(options, prefix, scratch)
        if options.debian:
            check_debian_packages(options, scratch)
    print(f"the installed packages build and run {len(options.libraries)} outside projects")


main()
