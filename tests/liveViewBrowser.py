#!/usr/bin/env python3
"""The live view in headless Chromium: the page loads and shows the picture; after the controller changes the
mode and draws a line, the same page (no reload) shows the new mode, the line in its object list and a newer
picture; a screenshot is kept; when the emulator leaves, the page says so. Chromium is driven over its
DevTools pipe (file descriptors 3 and 4, messages ended by a zero byte), so nothing but the standard library is
needed.

    liveViewBrowser.py DRIVER PAGE.html ARTIFACT_DIR

Exits 77 (skipped) when Chromium is not installed.
"""
import base64
import json
import os
import shutil
import subprocess
import sys
import tempfile
import time

SKIPPED = 77


class Browser:
    def __init__(self, binary, profile):
        to_browser_r, self.to_browser = os.pipe()
        self.from_browser, from_browser_w = os.pipe()

        def pipes():  # the browser reads commands on fd 3 and writes answers on fd 4
            reads, writes = os.dup(to_browser_r), os.dup(from_browser_w)  # out of the way of 3 and 4 first
            os.dup2(reads, 3)
            os.dup2(writes, 4)

        self.process = subprocess.Popen(
            [binary, "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
             "--disable-background-networking", "--disable-component-update", "--disable-sync",
             "--remote-debugging-pipe", "--user-data-dir=" + profile, "--window-size=1400,1000",
             "about:blank"],
            close_fds=False, preexec_fn=pipes,
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(to_browser_r)
        os.close(from_browser_w)
        self.buffer = b""
        self.next_id = 0
        self.session = None

    def call(self, method, params=None, session=True):
        self.next_id += 1
        message = {"id": self.next_id, "method": method, "params": params or {}}
        if session and self.session:
            message["sessionId"] = self.session
        os.write(self.to_browser, json.dumps(message).encode() + b"\0")
        while True:
            while b"\0" not in self.buffer:
                chunk = os.read(self.from_browser, 1 << 16)
                if not chunk:
                    raise RuntimeError("the browser closed its pipe")
                self.buffer += chunk
            raw, self.buffer = self.buffer.split(b"\0", 1)
            answer = json.loads(raw)
            if answer.get("id") == self.next_id:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]

    def attach(self):
        targets = self.call("Target.getTargets", session=False)["targetInfos"]
        page = next(t for t in targets if t["type"] == "page")
        self.session = self.call("Target.attachToTarget", {"targetId": page["targetId"], "flatten": True},
                                 session=False)["sessionId"]

    def evaluate(self, expression):
        result = self.call("Runtime.evaluate", {"expression": expression, "returnByValue": True})
        return result["result"].get("value")

    def wait_for(self, expression, what, limit=20.0):
        until = time.monotonic() + limit
        while time.monotonic() < until:
            if self.evaluate(expression):
                return
            time.sleep(0.05)
        raise AssertionError(f"the page did not show {what}; it shows: " +
                             str(self.evaluate("document.body.innerText.slice(0, 600)")))

    def close(self):
        try:
            self.call("Browser.close", session=False)
        except (RuntimeError, OSError):
            pass
        try:
            self.process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self.process.kill()


def main():
    driver_path, page_path, artifacts = sys.argv[1:4]
    binary = shutil.which("chromium") or shutil.which("chromium-browser")
    if binary is None:
        print("SKIPPED: chromium is not installed (scripts/install-deps.sh installs it)")
        return SKIPPED
    os.makedirs(artifacts, exist_ok=True)
    driver = subprocess.Popen([driver_path, page_path], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    url = driver.stdout.readline().strip().removeprefix("live view at ")
    assert url.startswith("http://127.0.0.1:"), url
    profile = tempfile.mkdtemp(prefix="liveview-chromium-")
    browser = Browser(binary, profile)
    checks = 0
    try:
        browser.attach()
        browser.call("Page.navigate", {"url": url})
        browser.wait_for("document.body && document.body.dataset.state === 'live' && "
                         "document.getElementById('picture').naturalWidth > 0", "the first picture")
        assert browser.evaluate("document.getElementById('mode').textContent") == "VcAbsolute"
        checks += 1
        first = int(browser.evaluate("document.body.dataset.version"))
        browser.evaluate("window.sameDocument = 'yes'")  # a reload would lose it

        driver.stdin.write("orbit\nline\n")
        driver.stdin.flush()
        browser.wait_for("document.getElementById('mode').textContent === 'VcOrbit' && "
                         "document.querySelector('#objects tr[data-id=\"901\"][data-kind=\"line\"]') !== null",
                         "the orbit mode and the line")
        assert browser.evaluate("window.sameDocument") == "yes", "the page was reloaded"
        assert int(browser.evaluate("document.body.dataset.version")) > first
        fields = browser.evaluate("document.getElementById('fields').innerText")
        assert "radius" in fields and "150" in fields and "1:3001:12" in fields, fields
        log = browser.evaluate("document.getElementById('log').innerText")
        assert "VcOrbit" in log and "1:3001:12" in log, log
        browser.wait_for("document.getElementById('picture').complete && "
                         "document.getElementById('picture').naturalWidth > 0", "the new picture")
        checks += 1

        shot = browser.call("Page.captureScreenshot", {"format": "png"})
        path = os.path.join(artifacts, "liveView.png")
        with open(path, "wb") as out:
            out.write(base64.b64decode(shot["data"]))
        print("screenshot:", path)

        driver.stdin.write("quit\n")
        driver.stdin.flush()
        browser.wait_for("document.body.dataset.state === 'gone'", "that the emulator has gone")
        assert browser.evaluate("document.getElementById('mode').textContent") == "VcOrbit"
        checks += 1
        assert driver.wait(timeout=20) == 0
    finally:
        browser.close()
        if driver.poll() is None:
            driver.kill()
        shutil.rmtree(profile, ignore_errors=True)
    print(f"{checks} passed, 0 failed")
    return 0


if __name__ == "__main__":
    sys.exit(main())
