"""Installs the library into a scratch prefix, builds an outside project against it with the CMake package and with
pkg-config, and runs both programs. Also builds the Debian packages and looks at what they hold."""

import argparse
import os
import pathlib
import shlex
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent

def run(*command, **options):
    result = subprocess.run([str(word) for word in command], capture_output=True, text=True, **options)
    if result.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}:\n{result.stdout}{result.stderr}")
    return result.stdout

def expect_runs(program, emulator, library_folder):
    environment = dict(os.environ, LD_LIBRARY_PATH=str(library_folder))
    output = run(*emulator, program, env=environment)
    if output != "no hub\n":
        sys.exit(f"{program} prints {output!r}")

def check_cmake_package(options, prefix, library_folder, scratch):
    build = scratch / "cmake"
    run("cmake", "-S", HERE / "outside_project", "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={prefix}",
        *options.configure)
    run("cmake", "--build", build)
    expect_runs(build / "outside_program", options.emulator, library_folder)

def check_pkg_config(options, prefix, library_folder, scratch):
    environment = dict(os.environ, PKG_CONFIG_PATH=str(library_folder / "pkgconfig"))
    flags = shlex.split(run("pkg-config", "--cflags", "--libs", "kest-platform-base", env=environment))
    windows = run("pkg-config", "--variable=windowsincludedir", "kest-platform-base", env=environment).strip()
    program = scratch / "outside_program"
    run(options.compiler, "-std=c++11", HERE / "outside_project" / "outside_program.cpp", "-isystem", windows, *flags,
        "-o", program)
    expect_runs(program, options.emulator, library_folder)

def check_debian_packages(options, scratch):
    run("cpack", "--config", pathlib.Path(options.build) / "CPackConfig.cmake", "-B", scratch / "packages")
    packages = sorted((scratch / "packages").glob("*.deb"))
    contents = {package.name.split("_")[0]: run("dpkg-deb", "--contents", package) for package in packages}
    if contents.keys() != {"libkestplatformbase", "libkestplatformbase-dev"}:
        sys.exit(f"the packages are {', '.join(contents)}")
    if "libKestPlatformBase.so" not in contents["libkestplatformbase"]:
        sys.exit("the runtime package lacks the library")
    for name in ("kest/kernel.h", "KestPlatformBaseConfig.cmake", "kest-platform-base.pc"):
        if name not in contents["libkestplatformbase-dev"]:
            sys.exit(f"the development package lacks {name}")

def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", required=True)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--emulator", type=lambda text: text.split(";") if text else [], default=[])
    parser.add_argument("--configure", type=shlex.split, default=[], help="arguments for the outside project's CMake")
    parser.add_argument("--debian", action="store_true", help="build the Debian packages too")
    options = parser.parse_args()

    with tempfile.TemporaryDirectory(prefix="kest-packaging-") as folder:
        scratch = pathlib.Path(folder)
        prefix = scratch / "prefix"

        run("cmake", "--install", options.build, "--prefix", prefix)
        library = next(prefix.rglob("libKestPlatformBase.so"))
        check_cmake_package(options, prefix, library.parent, scratch)
        check_pkg_config(options, prefix, library.parent, scratch)
        if options.debian:
            check_debian_packages(options, scratch)
    print("the installed package builds and runs an outside project")

main()
