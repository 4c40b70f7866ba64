"""Drives a headless Chromium through its WebDriver service, with the standard library alone."""

import json
import subprocess
import tempfile
import time
import urllib.error
import urllib.request

ARGUMENTS = [
    "--headless=new",
    "--remote-debugging-pipe",  # no port, and so no name to look up
    "--no-sandbox",
    "--disable-gpu",
    "--disable-quic",
    "--no-first-run",
    "--disable-background-networking",
    "--disable-component-update",
    "--disable-sync",
    "--disable-dev-shm-usage",
    "--window-size=1200,800",
]


class Browser:
    def __init__(self):
        self.profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self.service = subprocess.Popen(
            ["chromedriver", "--port=0"], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True
        )
        self.port = self._port()
        options = {"args": [*ARGUMENTS, f"--user-data-dir={self.profile.name}"]}
        capabilities = {"goog:chromeOptions": options, "goog:loggingPrefs": {"browser": "ALL"}}
        try:
            answer = self._call("POST", "/session", {"capabilities": {"alwaysMatch": capabilities}})
        except RuntimeError:
            self._end_service()
            raise
        self.session = f"/session/{answer['sessionId']}"

    def _port(self):
        for line in self.service.stdout:
            if "started successfully on port" in line:
                return int(line.rstrip(".\n").rsplit(" ", 1)[1])
        raise RuntimeError("chromedriver did not start")

    def _call(self, method, path, body=None):
        request = urllib.request.Request(
            f"http://127.0.0.1:{self.port}{path}",
            method=method,
            data=None if body is None else json.dumps(body).encode(),
            headers={"Content-Type": "application/json"},
        )
        try:
            with urllib.request.urlopen(request, timeout=120) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise RuntimeError(error.read().decode()) from error

    def open(self, url):
        self._call("POST", self.session + "/url", {"url": url})

    def run(self, script, *arguments):
        return self._call("POST", self.session + "/execute/sync", {"script": script, "args": list(arguments)})

    def size(self, width, height):
        """Gives the page a screen of that many pixels."""
        screen = {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False}
        self._call("POST", self.session + "/goog/cdp/execute", {"cmd": "Emulation.setDeviceMetricsOverride", "params": screen})
        self.settle()

    def settle(self):
        """Waits until the page has drawn."""
        self._call(
            "POST",
            self.session + "/execute/async",
            {"script": "const done = arguments[0]; requestAnimationFrame(() => requestAnimationFrame(() => done()));", "args": []},
        )

    def milliseconds_a_frame(self, script, frames=12):
        """Runs the script before each of some frames: what a frame takes then, the median."""
        measure = """
            let [script, left, done] = arguments;  // the last is the driver's own
            const change = new Function(script), times = [];
            const frame = (now) => {
              times.push(now);
              if (left-- > 0) { change(); requestAnimationFrame(frame); return; }
              const took = times.slice(1).map((time, i) => time - times[i]).sort((a, b) => a - b);
              done(took[took.length >> 1]);
            };
            requestAnimationFrame(frame);"""
        return self._call("POST", self.session + "/execute/async", {"script": measure, "args": [script, frames]})

    def pointer(self, *actions):
        """Moves, presses and releases the mouse: ("move", x, y), ("down",), ("up",)."""
        steps = []
        for name, *where in actions:
            if name == "move":
                steps.append({"type": "pointerMove", "x": round(where[0]), "y": round(where[1]), "duration": 0})
            else:
                steps.append({"type": "pointer" + name.capitalize(), "button": 0})
        mouse = {"type": "pointer", "id": "mouse", "parameters": {"pointerType": "mouse"}, "actions": steps}
        self._call("POST", self.session + "/actions", {"actions": [mouse]})

    def click(self, x, y):
        self.pointer(("move", x, y), ("down",), ("up",))

    def touch(self, *fingers):
        """Puts fingers down, moves all of them together from point to point, and lifts them: a list of points each."""
        sources = []
        for number, (first, *others) in enumerate(fingers):
            moves = [{"type": "pointerMove", "x": x, "y": y, "duration": 0} for x, y in (first, *others)]
            steps = [moves[0], {"type": "pointerDown", "button": 0}, *moves[1:], {"type": "pointerUp", "button": 0}]
            sources.append({"type": "pointer", "id": f"finger{number}", "parameters": {"pointerType": "touch"}, "actions": steps})
        self._call("POST", self.session + "/actions", {"actions": sources})

    def wheel(self, x, y, delta):
        step = {"type": "scroll", "x": round(x), "y": round(y), "deltaX": 0, "deltaY": delta, "duration": 0}
        self._call("POST", self.session + "/actions", {"actions": [{"type": "wheel", "id": "wheel", "actions": [step]}]})

    def complaints(self):
        """Errors and warnings of the page's console since the last call."""
        entries = self._call("POST", self.session + "/se/log", {"type": "browser"})
        return [entry["message"] for entry in entries if entry["level"] in ("SEVERE", "WARNING")]

    def screenshot(self, path):
        import base64

        data = self._call("GET", self.session + "/screenshot")
        with open(path, "wb") as file:
            file.write(base64.b64decode(data))

    def close(self):
        try:
            self._call("DELETE", self.session)
        finally:
            self._end_service()

    def _end_service(self):
        self.service.terminate()
        self.service.wait(timeout=20)
        self.service.stdout.close()
        time.sleep(0.1)
        self.profile.cleanup()
