#!/usr/bin/python3
"""Installs the build into a temporary prefix and starts the installed binary in a fresh home
with one notebook: it must seed the style folder from the styles under its own prefix, and end
with status 0 on SIGTERM.

    install_test.py --build BUILD_DIR [--cmake CMAKE]
"""

import argparse
import filecmp
import os
import signal
import subprocess
import sys
import tempfile
import time

STYLE_SHEETS = ["Standard.css", "Delicious Contrast.css", "Delicious White.css", "Standard Night.css"]
# Written into the installed copy only, so a seeded copy holding it came from the prefix.
MARKER = b"\n/* installed copy */\n"


def fail(message, log_path=None):
    print("FAIL: " + message, flush=True)
    if log_path and os.path.exists(log_path):
        with open(log_path, "rb") as handle:
            print(handle.read().decode("utf-8", "replace")[-3000:])
    sys.exit(1)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", required=True)
    parser.add_argument("--cmake", default="cmake")
    args = parser.parse_args()

    with tempfile.TemporaryDirectory(prefix="vellox-install-") as root:
        prefix = os.path.join(root, "prefix")
        subprocess.run([args.cmake, "--install", args.build, "--prefix", prefix], check=True,
                       stdout=subprocess.DEVNULL)
        binary = os.path.join(prefix, "bin", "vellox")
        installed_styles = os.path.join(prefix, "share", "vellox", "styles")
        if not os.access(binary, os.X_OK):
            fail("no executable at " + binary)
        for sheet in STYLE_SHEETS:
            with open(os.path.join(installed_styles, sheet), "ab") as handle:
                handle.write(MARKER)

        home = os.path.join(root, "home")
        notebook = os.path.join(home, "Notebook")
        os.makedirs(notebook)
        config = os.path.join(home, ".config", "Vellox")
        os.makedirs(config)
        with open(os.path.join(config, "Vellox.conf"), "w", encoding="utf-8") as handle:
            handle.write("[DiarySaveDestinations]\n1\\DiaryName=Notebook\n"
                         "1\\DiaryDocumentPath=%s\nsize=1\n" % notebook)
        env = dict(os.environ)
        env.update({
            "HOME": home,
            "XDG_CONFIG_HOME": os.path.join(home, ".config"),
            "XDG_DATA_HOME": os.path.join(home, ".local", "share"),
            "XDG_CACHE_HOME": os.path.join(home, ".cache"),
            # A Vellox the developer runs must not take this one's start (root is private).
            "XDG_RUNTIME_DIR": root,
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=" + os.path.join(root, "no-bus"),
            "QT_QPA_PLATFORM": "offscreen",
            "QTWEBENGINE_DISABLE_SANDBOX": "1",
        })
        styles = os.path.join(home, ".local", "share", "Vellox", "CSSStyles")
        log_path = os.path.join(root, "vellox.log")
        # Started from elsewhere, so nothing can be found relative to the working folder.
        with open(log_path, "wb") as log:
            process = subprocess.Popen([binary], env=env, cwd=root, stdout=log,
                                       stderr=subprocess.STDOUT)
        try:
            deadline = time.monotonic() + 60
            seeded = []
            while time.monotonic() < deadline:
                if process.poll() is not None:
                    fail("vellox ended by itself with status %d" % process.returncode, log_path)
                seeded = [s for s in STYLE_SHEETS if os.path.isfile(os.path.join(styles, s))]
                if len(seeded) == len(STYLE_SHEETS):
                    break
                time.sleep(0.1)
            if len(seeded) != len(STYLE_SHEETS):
                fail("the style folder holds only %r" % seeded, log_path)
            process.send_signal(signal.SIGTERM)
            status = process.wait(timeout=60)
        finally:
            if process.poll() is None:
                process.kill()
                process.wait()
        if status != 0:
            fail("vellox ended with status %d after SIGTERM" % status, log_path)
        for sheet in STYLE_SHEETS:
            if not filecmp.cmp(os.path.join(styles, sheet), os.path.join(installed_styles, sheet),
                               shallow=False):
                fail("%s was not copied from the installed styles" % sheet)
    print("PASS: the installed vellox seeded its styles from %s" % installed_styles)
    return 0


if __name__ == "__main__":
    sys.exit(main())
