"""A headless Chromium, driven over the plain HTTP of its driver."""

import base64
import json
import re
import shutil
import struct
import subprocess
import tempfile
import urllib.request
import zlib

ARGUMENTS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
             "--disable-background-networking", "--disable-component-update", "--disable-sync",
             "--hide-scrollbars", "--window-size=1200,1600"]


def is_installed():
    return all(shutil.which(program) for program in ("chromium", "chromedriver"))


class Browser:
    """One window, with a profile of its own. A context manager."""

    def __init__(self, scripts=True):
        self.scripts = scripts

    def __enter__(self):
        self.profile = tempfile.mkdtemp(prefix="norvo-browser-")
        self.driver = subprocess.Popen(["chromedriver", "--port=0"], stdout=subprocess.PIPE,
                                       stderr=subprocess.DEVNULL, text=True)
        self.session = None
        try:
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def _start(self):
        for line in self.driver.stdout:
            port = re.search(r"successfully on port (\d+)", line)
            if port:
                self.address = f"http://127.0.0.1:{port[1]}"
                break
        options = {"args": ARGUMENTS + [f"--user-data-dir={self.profile}"],
                   "binary": shutil.which("chromium")}
        if not self.scripts:
            options["prefs"] = {"profile.managed_default_content_settings.javascript": 2}
        answer = self.call("/session", {"capabilities": {"alwaysMatch": {
            "goog:chromeOptions": options, "goog:loggingPrefs": {"browser": "ALL"}}}})
        self.session = answer["sessionId"]

    def __exit__(self, *_):
        if self.session:
            self.call("", method="DELETE")
        self.driver.terminate()
        self.driver.wait()
        self.driver.stdout.close()
        shutil.rmtree(self.profile, ignore_errors=True)

    def call(self, path, body=None, method="POST"):
        place = self.address + (f"/session/{self.session}" if self.session else "") + path
        data = None if body is None else json.dumps(body).encode()
        request = urllib.request.Request(place, data, {"Content-Type": "application/json"},
                                         method=method)
        with urllib.request.urlopen(request, timeout=120) as answer:
            return json.load(answer)["value"]

    def open(self, path):
        self.call("/url", {"url": path.as_uri()})

    def run(self, script, *arguments):
        return self.call("/execute/sync", {"script": script, "args": arguments})

    def type_into(self, selector, text):
        """As a person does it, in place of what stands there."""
        element = self.call("/element", {"using": "css selector", "value": selector})
        place = f"/element/{next(iter(element.values()))}"
        self.call(place + "/clear", {})
        if text:
            self.call(place + "/value", {"text": text})

    def click(self, selector):
        element = self.call("/element", {"using": "css selector", "value": selector})
        self.call(f"/element/{next(iter(element.values()))}/click", {})

    def text_of(self, selector):
        """What a person can read there."""
        element = self.call("/element", {"using": "css selector", "value": selector})
        return self.call(f"/element/{next(iter(element.values()))}/text", method="GET")

    def complaints(self):
        return [entry["message"] for entry in self.call("/se/log", {"type": "browser"})]

    def screenshot(self):
        return base64.b64decode(self.call("/screenshot", method="GET"))


def share_of_ink(png):
    """How much of a picture differs from what is beside it: nothing of a blank one."""
    data = b""
    at = 8
    while at < len(png):
        length, kind = struct.unpack(">I4s", png[at:at + 8])
        if kind == b"IDAT":
            data += png[at + 8:at + 8 + length]
        at += length + 12
    rows = zlib.decompress(data)
    return 1 - rows.count(0) / len(rows)
