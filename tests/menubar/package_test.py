#!/usr/bin/python3
"""Builds the Debian package with cpack into a temporary folder and checks what it holds: the
binary, the shipped files, the desktop entry, the hicolor icons and the AppStream metadata, and
a dependency on every run-time package of debian-packages.txt besides the linked libraries.

    package_test.py --build BUILD_DIR --packages scripts/debian-packages.txt
"""

import argparse
import glob
import os
import re
import subprocess
import sys
import tempfile

WANTED = [
    "./usr/bin/vellox",
    "./usr/share/applications/vellox.desktop",
    "./usr/share/metainfo/io.github.vellox.Vellox.metainfo.xml",
    "./usr/share/icons/hicolor/scalable/apps/vellox.svg",
    "./usr/share/icons/hicolor/48x48/apps/vellox.png",
    "./usr/share/icons/hicolor/256x256/apps/vellox.png",
    "./usr/share/vellox/styles/Standard.css",
]


def fail(message):
    print("FAIL: " + message, flush=True)
    sys.exit(1)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True)
    parser.add_argument("--packages", required=True)
    args = parser.parse_args()
    run_time = []
    with open(args.packages, encoding="utf-8") as handle:
        for line in handle:
            if re.search(r"#.*run-time", line) and not line.lstrip().startswith("#"):
                run_time.append(line.split()[0])
    if not run_time:
        fail("no package of %s is marked run-time" % args.packages)

    with tempfile.TemporaryDirectory(prefix="vellox-deb-") as out:
        result = subprocess.run(["cpack", "-G", "DEB", "-B", out, "--config",
                                 os.path.join(args.build, "CPackConfig.cmake")],
                                stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if result.returncode != 0:
            fail("cpack failed:\n" + result.stdout[-3000:])
        debs = glob.glob(os.path.join(out, "*.deb"))
        if len(debs) != 1:
            fail("cpack made %r" % debs)
        listing = subprocess.run(["dpkg-deb", "--contents", debs[0]], check=True,
                                 stdout=subprocess.PIPE, text=True).stdout
        paths = {line.split()[-1] for line in listing.splitlines() if line.strip()}
        missing = [path for path in WANTED if path not in paths]
        if missing:
            fail("the package lacks %r" % missing)
        # Caches the desktop's triggers rebuild belong to no package.
        stray = [path for path in paths
                 if "tst_" in path or "render_icon" in path or path.endswith(".cache")]
        if stray:
            fail("the package holds build helpers %r" % stray)
        depends = subprocess.run(["dpkg-deb", "--field", debs[0], "Depends"], check=True,
                                 stdout=subprocess.PIPE, text=True).stdout
        names = {re.split(r"[ (]", item.strip())[0] for item in depends.split(",")}
        absent = [package for package in run_time if package not in names]
        if absent:
            fail("Depends lacks %r: %s" % (absent, depends))
        if not any(name.startswith("libqt6widgets6") for name in names):
            fail("Depends lacks the Qt libraries: " + depends)
    print("PASS: %s holds the application and depends on %d run-time packages"
          % (os.path.basename(debs[0]), len(run_time)))
    return 0


if __name__ == "__main__":
    sys.exit(main())
