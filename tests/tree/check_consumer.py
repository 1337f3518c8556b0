"""Installs a build and builds a host of its own against the installation alone: tests/windows/consumer.

usage: check_consumer.py BUILD-DIRECTORY [TOOLCHAIN-FILE]

With a toolchain file the host is built and run for Windows.
"""

import pathlib
import subprocess
import sys
import tempfile

HOST = pathlib.Path(__file__).parent.parent / "windows" / "consumer"


def run(*command, seconds=300, **more):
    done = subprocess.run([str(word) for word in command], capture_output=True, encoding="utf-8",
                          timeout=seconds, check=False, **more)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, command))}: exit {done.returncode}\n"
                 f"{done.stdout}{done.stderr}")
    return done.stdout


def serve_host(prefix, work, toolchain=None, **more):
    """Builds the host in the folder work against the installation below prefix, and runs it."""
    config = next(pathlib.Path(prefix).rglob("zelstandardConfig.cmake"))
    run("cmake", "-S", HOST, "-B", work, "-G", "Ninja", f"-Dzelstandard_DIR={config.parent}",
        *([f"-DCMAKE_TOOLCHAIN_FILE={toolchain}"] if toolchain else []))
    run("cmake", "--build", work)
    if toolchain:
        return run("wine", pathlib.Path(prefix) / "bin" / "consumer.exe", **more)
    return run(work / "consumer", **more)


def main():
    build, *toolchain = sys.argv[1:]
    with tempfile.TemporaryDirectory() as directory:
        prefix = pathlib.Path(directory) / "installed"
        run("cmake", "--install", build, "--prefix", prefix)
        print(serve_host(prefix, pathlib.Path(directory) / "host", *toolchain).strip())


if __name__ == "__main__":
    main()
