"""A sign, its page in a headless chromium, and vxctl beside it: what the scenarios of browserTest.py are made of."""
import base64
import os
import re
import subprocess
import tempfile
import time
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By

LONGEST_WAIT = 15  # seconds, far beyond what anything takes

# How far the canvas is from a PNG at most, in a channel, and how many pixels shine. Run in the page.
DISTANCE = """
const [png, done] = [Uint8Array.from(atob(arguments[0]), (c) => c.charCodeAt(0)), arguments[1]];
const pixelsOf = (source, {width, height}) => {
    const context = new OffscreenCanvas(width, height).getContext("2d");
    context.drawImage(source, 0, 0);
    return context.getImageData(0, 0, width, height).data;
};
createImageBitmap(new Blob([png])).then((wanted) => {
    const lamps = document.getElementById("lamps");
    if (wanted.width !== lamps.width || wanted.height !== lamps.height)
        return done([255, 0]);
    const [one, other] = [pixelsOf(wanted, wanted), pixelsOf(lamps, wanted)];
    let far = 0, lit = 0;
    for (let i = 0; i < one.length; ++i) {
        far = Math.max(far, Math.abs(one[i] - other[i]));
        lit += i % 4 !== 3 && other[i] > 128;
    }
    done([far, lit]);
}, () => done([255, 0]));  // half a picture
"""


def until(condition, what):
    """Waits for a condition, and gives what it gave. What is missing until then may raise errors of its own."""
    end = time.monotonic() + LONGEST_WAIT
    while True:
        try:
            found, error = condition(), None
        except Exception as caught:  # an element that is replaced just now, a file that is not there yet
            found, error = None, caught
        if found:
            return found
        if time.monotonic() > end:
            raise AssertionError(f"in vain for {what}") from error
        time.sleep(0.02)


class Sign:
    """vxsim with a page, and vxctl that speaks to it."""

    def __init__(self, programs, folder, *options, port=0, web=0):
        self.programs, self.folder = programs, Path(folder)
        self.png = self.folder / "face.png"
        self.png.unlink(missing_ok=True)
        self.process = subprocess.Popen(
            [programs / "vxsim", "--dir", self.folder / "sign", "--port", str(port), "--web", str(web), *options,
             *([] if "--count" in options else ["--png", self.png])], stdout=subprocess.PIPE, text=True)
        lines = {}
        while "web" not in lines:
            line = self.process.stdout.readline()
            if not line:
                raise AssertionError(f"vxsim ended with {self.process.wait()}")
            name, _, value = line.strip().partition(" ")
            lines[name] = value
        self.url, self.address = lines["web"], lines.get("udp") or lines["sign"].split()[1]  # the last one of many
        self.port, self.web = (int(re.search(r":(\d+)", text)[1]) for text in (self.address, self.url.removeprefix("http:")))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def end(self):
        self.process.terminate()
        status = self.process.wait()
        self.process.stdout.close()
        assert status == 0, f"vxsim ended with {status}"

    def run(self, *arguments, status=0):
        """What vxctl says, all of it. It has to end with that status."""
        done = subprocess.run([self.programs / "vxctl", "-s", f"udp://{self.address}", *arguments], text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
        assert done.returncode == status, f"vxctl {' '.join(map(str, arguments))}: {done.returncode}\n{done.stdout}"
        return done.stdout

    def vxsim(self, verb, *arguments):
        subprocess.run([self.programs / "vxsim", verb, "--dir", self.folder / "sign", *arguments], check=True)


class Page:
    """A chromium of its own with the page of a sign."""

    def __init__(self):
        self.profile = tempfile.TemporaryDirectory()
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for argument in ["headless=new", "window-size=1200,1000", "force-device-scale-factor=1", "use-angle=swiftshader", "disable-gpu-compositing",
                         "enable-unsafe-swiftshader", "disable-dev-shm-usage", f"user-data-dir={self.profile.name}"]:
            options.add_argument(f"--{argument}")
        if os.geteuid() == 0:
            options.add_argument("--no-sandbox")  # which it does not have as root
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        self.driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
        self.driver.set_page_load_timeout(LONGEST_WAIT)

    def close(self):
        self.driver.quit()
        self.profile.cleanup()

    def open(self, sign, tab=""):
        self.driver.get("about:blank")  # so that another tab of the same page loads it anew
        self.driver.get(f"{sign.url}#/{tab}")
        self.live()

    def live(self):
        until(lambda: self.find("#live").get_attribute("data-live") == "yes", "a page that is live")

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def all(self, selector):
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def text(self, selector):
        return self.find(selector).text

    def says(self, selector, text):
        until(lambda: text in self.text(selector), f"'{text}' in {selector}")

    def click(self, selector, text=None):
        """Clicks the element, or the one among several that has this text."""
        def act():
            for found in self.all(selector):
                if text is None or found.text == text or found.get_attribute("aria-label") == text:
                    found.click()
                    return True
            return False
        until(act, f"{selector} {text or ''} to click")

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def distance(self, png):
        """How far the canvas is from the picture at most, and how much of it shines."""
        return self.driver.execute_async_script(DISTANCE, base64.b64encode(Path(png).read_bytes()).decode())

    def complaints(self):
        """What the browser complained of since it was asked last."""
        return [entry["message"] for entry in self.driver.get_log("browser") if entry["level"] == "SEVERE"]
