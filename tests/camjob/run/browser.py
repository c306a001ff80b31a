"""Chromium without a window, driven over its DevTools pipe."""

import base64
import fcntl
import json
import os
import shutil
import subprocess
import tempfile

PROGRAMS = ("chromium-headless-shell", "chromium")


def find_program():
    return next(filter(None, map(shutil.which, PROGRAMS)), None)


class Browser:
    """One page. What it says to its console, and what it asks the network for, is kept."""

    def __init__(self, width=1400, height=1000):
        self.messages = []
        self.requests = []
        self._folder = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        self._begin_process(width, height)
        self._last = 0
        self._buffer = b""
        self._session = None
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self._session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in "Page", "Runtime", "Log", "Network", "DOM", "Accessibility":
            self.call(f"{domain}.enable")
        self.resize(width, height)

    def _begin_process(self, width, height):
        def out_of_the_way(descriptor):
            return fcntl.fcntl(descriptor, fcntl.F_DUPFD, 50)

        their_in, own_out = map(out_of_the_way, os.pipe())
        own_in, their_out = map(out_of_the_way, os.pipe())

        def join():
            os.dup2(their_in, 3)
            os.dup2(their_out, 4)

        options = ["--headless", "--no-sandbox", "--disable-gpu", "--remote-debugging-pipe", "--hide-scrollbars",
                   f"--user-data-dir={self._folder.name}", f"--window-size={width},{height}"]
        self._process = subprocess.Popen([find_program(), *options], preexec_fn=join, close_fds=True,
                                         pass_fds=(3, 4, their_in, their_out),
                                         stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(their_in)
        os.close(their_out)
        self._in, self._out = own_in, own_out

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.kill()
        self._process.wait()
        os.close(self._in)
        os.close(self._out)
        self._folder.cleanup()

    def call(self, method, **parameters):
        self._last += 1
        message = {"id": self._last, "method": method, "params": parameters}
        if self._session:
            message["sessionId"] = self._session
        os.write(self._out, json.dumps(message).encode() + b"\0") if len(str(message)) < 60000 else self._write(message)
        while True:
            answer = self._read()
            if answer.get("id") == self._last:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']['message']}")
                return answer["result"]
            self._note(answer)

    def _write(self, message):
        rest = json.dumps(message).encode() + b"\0"
        while rest:
            rest = rest[os.write(self._out, rest):]

    def _read(self):
        while b"\0" not in self._buffer:
            read = os.read(self._in, 1 << 20)
            if not read:
                raise RuntimeError("the browser has ended")
            self._buffer += read
        text, self._buffer = self._buffer.split(b"\0", 1)
        return json.loads(text)

    def _note(self, event):
        method, parameters = event.get("method"), event.get("params", {})
        if method == "Runtime.consoleAPICalled":
            self.messages.append(str([each.get("value") for each in parameters["args"]]))
        elif method == "Runtime.exceptionThrown":
            details = parameters["exceptionDetails"]
            self.messages.append(details.get("exception", {}).get("description", details["text"]))
        elif method == "Log.entryAdded":
            self.messages.append(parameters["entry"]["text"])
        elif method == "Network.requestWillBeSent":
            self.requests.append(parameters["request"]["url"])

    def open(self, file, address=""):
        self.call("Page.navigate", url=file.resolve().as_uri() + address)
        self.run("new Promise((done) => (document.readyState === 'complete' ? done() : addEventListener('load', done)))")
        self.settle()

    def run(self, script):
        """The value of an expression, as JSON."""
        result = self.call("Runtime.evaluate", expression=script, awaitPromise=True, returnByValue=True)
        if "exceptionDetails" in result:
            details = result["exceptionDetails"]
            raise RuntimeError(details.get("exception", {}).get("description", details["text"]))
        return result["result"].get("value")

    def settle(self):
        """Until what was begun is painted."""
        self.run("new Promise((done) => requestAnimationFrame(() => requestAnimationFrame(done)))")

    def click(self, selector):
        """With the mouse, in the middle of the first element that fits."""
        place = self.run(f"""(() => {{ const one = document.querySelector({json.dumps(selector)});
            one.scrollIntoView({{ block: 'center' }}); const box = one.getBoundingClientRect();
            return [box.x + box.width / 2, box.y + box.height / 2]; }})()""")
        for kind in "mousePressed", "mouseReleased":
            self.call("Input.dispatchMouseEvent", type=kind, x=place[0], y=place[1], button="left", clickCount=1)
        self.settle()

    def type(self, text):
        self.call("Input.insertText", text=text)
        self.settle()

    def press(self, key):
        self.call("Input.dispatchKeyEvent", type="keyDown", key=key, code=key, text=key if len(key) == 1 else "")
        self.call("Input.dispatchKeyEvent", type="keyUp", key=key, code=key)
        self.settle()

    def resize(self, width, height):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1, mobile=False)

    def use_theme(self, name):
        self.call("Emulation.setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": name}])

    def use_media(self, name):
        self.call("Emulation.setEmulatedMedia", media=name)

    def print(self):
        """The pages as PDF."""
        return base64.b64decode(self.call("Page.printToPDF", preferCSSPageSize=True)["data"])

    def picture(self, file):
        file.write_bytes(base64.b64decode(self.call("Page.captureScreenshot")["data"]))

    def accessible(self):
        """Role and name of all that a screen reader meets."""
        nodes = self.call("Accessibility.getFullAXTree")["nodes"]
        return [(node["role"]["value"], node.get("name", {}).get("value", ""))
                for node in nodes if not node.get("ignored") and "role" in node]
