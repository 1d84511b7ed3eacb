#!/usr/bin/python3
"""Drives the real Vellox binary under Xvfb with keys and window names only, for what needs a
real X server and a real process: exit statuses and signals.

    vellox_e2e.py --app build/src/app/vellox SCENARIO [SCENARIO ...]
    vellox_e2e.py --list

Without a display of its own the script re-runs itself under `xvfb-run -a`, so the app and
xdotool share one private X server. Every scenario gets a fresh HOME (and XDG folders); on
failure that folder is kept and the app's output is printed.
"""

import argparse
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time

WINDOW_TIMEOUT = 60.0
EXIT_TIMEOUT = 40.0


class ScenarioFailed(Exception):
    pass


def check(condition, message):
    if not condition:
        raise ScenarioFailed(message)


def log(message):
    print("[e2e %s] %s" % (time.strftime("%H:%M:%S"), message), flush=True)


def xdotool(*args):
    result = subprocess.run(["xdotool"] + [str(a) for a in args], capture_output=True, text=True,
                            timeout=30)
    return result.returncode, result.stdout.strip()


def keys(*names):
    xdotool("key", "--delay", 60, *names)


def type_text(text):
    xdotool("type", "--delay", 30, "--", text)


class Session:
    """One run of the app in a private home."""

    def __init__(self, app, name):
        self.app = app
        self.home = tempfile.mkdtemp(prefix="vellox-e2e-%s-" % name)
        self.config = os.path.join(self.home, ".config")
        self.settings_file = os.path.join(self.config, "Vellox", "Vellox.conf")
        self.log_path = os.path.join(self.home, "vellox.log")
        self.process = None

    def folder(self, name):
        path = os.path.join(self.home, name)
        os.makedirs(path, exist_ok=True)
        return path

    def write_settings(self, name, path):
        """One notebook, written the way QSettings stores the array."""
        os.makedirs(os.path.dirname(self.settings_file), exist_ok=True)
        with open(self.settings_file, "w", encoding="utf-8") as handle:
            handle.write("[DiarySaveDestinations]\n1\\DiaryName=%s\n1\\DiaryDocumentPath=%s\n"
                         "size=1\n" % (name, path))

    def start(self):
        env = dict(os.environ)
        env.pop("QT_QPA_PLATFORM", None)
        runtime = os.path.join(self.home, ".runtime")
        os.makedirs(runtime, mode=0o700, exist_ok=True)
        env.update({
            "HOME": self.home,
            "XDG_CONFIG_HOME": self.config,
            "XDG_DATA_HOME": os.path.join(self.home, ".local", "share"),
            "XDG_CACHE_HOME": os.path.join(self.home, ".cache"),
            "XDG_RUNTIME_DIR": runtime,
            # No session bus: a Vellox the developer runs must not take this one's start.
            "DBUS_SESSION_BUS_ADDRESS": "unix:path=" + os.path.join(runtime, "no-bus"),
            "QTWEBENGINE_DISABLE_SANDBOX": "1",
            "LANG": "C.UTF-8",
            "LC_ALL": "C.UTF-8",
        })
        with open(self.log_path, "ab") as output:
            self.process = subprocess.Popen([self.app], env=env, cwd=self.home, stdout=output,
                                            stderr=subprocess.STDOUT)

    def wait_exit(self):
        try:
            return self.process.wait(timeout=EXIT_TIMEOUT)
        except subprocess.TimeoutExpired:
            raise ScenarioFailed("vellox did not exit within %.0f s" % EXIT_TIMEOUT)

    def find_window(self, title_regex):
        """Waits for a visible window of the app with that name and gives it the focus (no
        window manager runs under Xvfb, so the X input focus is set directly)."""
        deadline = time.monotonic() + WINDOW_TIMEOUT
        while time.monotonic() < deadline:
            check(self.process.poll() is None, "vellox exited (status %s) while waiting for %r"
                  % (self.process.poll(), title_regex))
            code, out = xdotool("search", "--onlyvisible", "--pid", self.process.pid, "--name",
                                title_regex)
            if code == 0 and out:
                window = out.splitlines()[-1]
                xdotool("windowraise", window)
                xdotool("windowfocus", "--sync", window)
                time.sleep(0.3)
                return window
            time.sleep(0.1)
        raise ScenarioFailed("no window named %r appeared within %.0f s" % (title_regex,
                                                                          WINDOW_TIMEOUT))

    def finish(self, keep):
        if self.process and self.process.poll() is None:
            self.process.kill()
            self.process.wait(timeout=20)
        if keep:
            with open(self.log_path, "rb") as handle:
                tail = handle.read().decode("utf-8", "replace")[-3000:]
            print("---- vellox output (tail) ----\n%s\n---- home kept at %s" % (tail, self.home))
        else:
            shutil.rmtree(self.home, ignore_errors=True)


def scenario_firstrun_cancel(session):
    """A new user leaves the first-run panel: status 0, and no setting is written."""
    session.start()
    session.find_window("^Welcome to Vellox")
    # A name alone does not enable OK: Return (the default button) does nothing.
    type_text("Diary")
    keys("Return")
    time.sleep(1.0)
    check(session.process.poll() is None, "Return with a name but no folder ended the app")
    keys("Escape")
    status = session.wait_exit()
    check(status == 0, "leaving the first run ended the app with status %d, expected 0" % status)
    check(not os.path.exists(session.settings_file)
          or not open(session.settings_file, encoding="utf-8").read().strip(),
          "leaving the first run wrote settings")


def scenario_sigterm(session):
    """SIGTERM while a save is pending: the text reaches the disk and the exit status is 0."""
    folder = session.folder("Pending")
    entry = os.path.join(folder, "draft.txt")
    session.write_settings("Pending", folder)
    for attempt in (1, 2):
        with open(entry, "wb") as handle:
            handle.write(b"start")
        session.start()
        session.find_window("^" + re.escape("Pending"))
        # The window opens with the focus in the title field: naming the entry opens it, and
        # Return moves on to its text.
        type_text("draft")
        keys("Return", "ctrl+End")
        type_text(" pending")
        # Let the keys reach the app, but stay well inside the 1.0 s before the save is due.
        time.sleep(0.5)
        before = open(entry, "rb").read()
        session.process.send_signal(signal.SIGTERM)
        status = session.wait_exit()
        if before != b"start" and attempt == 1:
            log("the save came before SIGTERM (%r); trying once more" % before)
            continue
        check(before == b"start", "saved before SIGTERM (%r): nothing was pending" % before)
        check(status == 0, "vellox exited with status %d after SIGTERM" % status)
        after = open(entry, "rb").read()
        check(after == b"start pending", "after SIGTERM the entry holds %r" % after)
        return


SCENARIOS = {"firstrun_cancel": scenario_firstrun_cancel, "sigterm": scenario_sigterm}


def run(app, names):
    failures = 0
    for name in names:
        session = Session(app, name)
        log("scenario %s in %s" % (name, session.home))
        try:
            SCENARIOS[name](session)
        except ScenarioFailed as error:
            failures += 1
            log("FAIL %s: %s" % (name, error))
            session.finish(keep=True)
            continue
        session.finish(keep=False)
        log("PASS %s" % name)
    return 1 if failures else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--app", help="path to the vellox binary")
    parser.add_argument("--list", action="store_true", help="list the scenarios")
    parser.add_argument("scenarios", nargs="*", help="scenarios to run (default: all)")
    args = parser.parse_args()
    if args.list:
        print("\n".join(SCENARIOS))
        return 0
    if not args.app or not os.access(args.app, os.X_OK):
        parser.error("--app must name the vellox binary")
    unknown = [n for n in args.scenarios if n not in SCENARIOS]
    if unknown:
        parser.error("unknown scenarios: %s" % ", ".join(unknown))
    if os.environ.get("VELLOX_E2E_XVFB") != "1":
        env = dict(os.environ, VELLOX_E2E_XVFB="1")
        command = ["xvfb-run", "-a", "-s", "-screen 0 1600x1000x24 -nolisten tcp",
                   sys.executable, os.path.abspath(__file__), "--app", os.path.abspath(args.app)]
        return subprocess.call(command + args.scenarios, env=env)
    return run(os.path.abspath(args.app), args.scenarios or list(SCENARIOS))


if __name__ == "__main__":
    sys.exit(main())
