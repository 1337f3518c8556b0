"""Unpacks the packages of tools/package into empty places and tries them out there.

usage: check_package.py DIRECTORY-OF-PACKAGES

Every program of the ZIP runs under Wine with a prefix that knows nothing yet; those of the archive
and of the Debian package run on this machine, and all answer alike. Hosts are built against the
unpacked archives. The Debian package names what it needs and holds nothing but what belongs to /usr.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

from check_consumer import run, serve_host

SOURCE = pathlib.Path(__file__).parent.parent.parent
TOOLCHAIN = SOURCE / "cmake" / "windows" / "toolchain.cmake"
DATA = "share/zelstandard"
EXAMPLES = [
    ["flat", f"{DATA}/ActionTypes.xml"],
    ["load_cases", f"{DATA}/ActionTypes.xml", f"{DATA}/StateAttributes.xml"],
    ["host", DATA],
    ["host", DATA, "de"],
    ["save_settings", "changed.xml", "DIN-EN"],
]
QUESTIONS = [["explain", "wind", "psi0", "--code", "BS", "--for", "building"],
             ["combine", "G1", "snow", "wind", "--rule", "fundamental", "--code", "EC", "--for", "road", "--format", "csv"]]
REQUIRED = ["README.md", "docs/data-files.md", "examples/flat.c", "examples/CMakeLists.txt"]
NEEDED = ["libc6", "libpugixml1v5", "libsodium23", "libstdc++6"]


def ensure(holds, fault):
    if not holds:
        sys.exit(fault)


def only(directory, pattern):
    found = list(directory.glob(pattern))
    ensure(len(found) == 1, f"{directory} holds {len(found)} files {pattern} where there is one package")
    return found[0]


def answers(root, programs, wine):
    """What the examples say in the unpacked package, and the file that one of them writes."""
    prefix = ["wine"] if wine else []
    suffix = ".exe" if wine else ""
    changed = root / "changed.xml"
    shutil.copy(root / DATA / "Profiles" / "Standard.xml", changed)
    texts = [run(*prefix, programs / (name + suffix), *arguments, cwd=root, env=wine)
             for name, *arguments in EXAMPLES]
    ensure("<STANDARD_MODE>DIN-EN<" in changed.read_text(encoding="utf-8"),
           f"{programs}: save_settings did not save")
    texts.append(changed.read_text(encoding="utf-8"))
    changed.unlink()
    command = root / "bin" / ("zelstandard" + suffix)
    texts += [run(*prefix, command, *words, cwd=root, env=wine) for words in QUESTIONS]
    # The other programs at least start.
    for program in sorted((root / "bin").glob("*" + suffix)):
        if program.suffix == suffix and program.stem not in {name for name, *_ in EXAMPLES}:
            run(*prefix, program, "--help", cwd=root, env=wine)
    return texts


def is_whole(root):
    for name in REQUIRED:
        ensure((root / "share/doc/zelstandard" / name).is_file(), f"{root}: no {name}")
    for path in root.rglob("*"):
        if path.is_file() and not path.is_symlink():
            ensure(str(SOURCE).encode() not in path.read_bytes(),
                   f"{path} holds a path of the machine that built it")


def archive_for_linux(package, version, work):
    shutil.unpack_archive(package, work)
    root = only(work, "*")
    is_whole(root)
    serve_host(root, work / "host")
    run("cmake", "-S", root / "share/doc/zelstandard/examples", "-B", work / "examples",
        f"-DCMAKE_PREFIX_PATH={root}")
    run("cmake", "--build", work / "examples")
    for name in ("man/man1/zelstandard.1", "bash-completion/completions/zelstandard"):
        ensure("combine" in (root / "share" / name).read_text(encoding="utf-8"), f"{package}: no {name}")
    search = dict(os.environ, PKG_CONFIG_PATH=str(root / "lib/pkgconfig"))
    found = run("pkg-config", "--modversion", "zelstandard", env=search).strip()
    ensure(found == version, f"pkg-config knows {found} in the package of {version}")
    flags = run("pkg-config", "--cflags", "--libs", "zelstandard", env=search).split()
    run("gcc", "-std=c99", SOURCE / "examples/flat.c", *flags, f"-Wl,-rpath,{root}/lib",
        "-o", work / "flat")
    run(work / "flat", f"{root}/{DATA}/ActionTypes.xml")
    return answers(root, root / "lib/zelstandard/examples", None)


def package_of_debian(package, version, work):
    def field(name):
        return run("dpkg-deb", "-f", package, name).strip()

    ensure(field("Version") == version and field("Architecture") == "amd64",
           f"{package} is for {field('Version')} {field('Architecture')}")
    depends = re.findall(r"[\w.+-]+(?= \()", field("Depends"))
    missing = [name for name in NEEDED if name not in depends]
    ensure(not missing, f"{package} does not depend on {', '.join(missing)}")
    for line in run("dpkg-deb", "-c", package).splitlines():
        ensure(re.match(r"[dl-]rw[x-](r-[x-]){2} root/root .* \./(usr/(bin|include|lib|share)?.*)?$", line)
               or line.startswith("lrwxrwxrwx root/root"), f"{package}: {line}")
    run("dpkg-deb", "-x", package, work)
    root = work / "usr"
    is_whole(root)
    return answers(root, root / "lib/zelstandard/examples", None)


def archive_for_windows(package, work):
    shutil.unpack_archive(package, work)
    ensure(package.stat().st_size < 3_000_000, f"{package} has {package.stat().st_size} bytes")
    root = only(work, "*")
    is_whole(root)
    licences = list((root / "share/doc/zelstandard/licences").glob("*.txt"))
    ensure(len(licences) == 4, f"{package} holds the terms {licences}")
    wine = dict(os.environ, WINEPREFIX=str(work / "wine"), WINEDEBUG="-all")
    wine.pop("WINEPATH", None)
    server = shutil.which("wineserver") or str(next(pathlib.Path("/usr/lib/wine").glob("wineserver*")))
    try:
        texts = answers(root, root / "bin", wine)
        serve_host(root, work / "host", TOOLCHAIN, env=wine)
        return texts
    finally:
        subprocess.run([server, "-k"], env=wine, check=False)  # that of this prefix
        subprocess.run([server, "-w"], env=wine, check=False, timeout=60)


def main():
    packages = pathlib.Path(sys.argv[1])
    linux = only(packages, "*-linux-x86_64.tar.gz")
    windows = only(packages, "*-windows-x86_64.zip")
    version = re.fullmatch(r"zelstandard-([\d.]+)-linux-x86_64\.tar\.gz", linux.name).group(1)
    ensure(f"-{version}-" in windows.name, f"{windows.name} is of another version than {linux.name}")
    with tempfile.TemporaryDirectory() as directory:
        places = [pathlib.Path(directory) / name for name in ("tar", "deb", "zip")]
        for place in places:
            place.mkdir()
        expected = archive_for_linux(linux, version, places[0])
        ensure(package_of_debian(only(packages, "*.deb"), version, places[1]) == expected,
               "the programs of the Debian package answer otherwise than those of the archive")
        ensure(archive_for_windows(windows, places[2]) == expected,
               "the programs answer otherwise on Windows than on Linux")
    print("the packages work in empty places, and their programs answer alike")


main()
