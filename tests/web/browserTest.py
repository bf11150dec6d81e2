#!/usr/bin/python3
"""The page of vxsim in a real browser: browserTest.py FOLDER_OF_THE_PROGRAMS [--screenshot FILE] [SCENARIO...]

With --screenshot it makes the picture of the documents in place of a test. Debian's python3-selenium belongs to Debian's
Python, whichever else there is.
"""
import base64
import contextlib
import sys
import tempfile
import unittest
from pathlib import Path

from browser import Page, Sign, until
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys

HOSTILE = "<img src=x onerror=document.title='taken'>"
HOSTILE_USER = "<img onerror>"  # as long as a user's name may be


def bytes_of(dump):
    """The bytes in lines such as "0000  55 A7  sync" or "0000  55 a7   U·" that stand together."""
    found = ""
    for line in dump.splitlines():
        columns = line.strip().split("  ")
        if len(columns) > 1 and len(columns[0]) == 4 and int(columns[0], 16) == len(found) // 2:
            found += columns[1].replace(" ", "").lower()
    return found


class Scenarios(unittest.TestCase):
    programs = None
    page = None

    @classmethod
    def setUpClass(cls):
        cls.page = Page()

    @classmethod
    def tearDownClass(cls):
        cls.page.close()

    def setUp(self):
        work = tempfile.TemporaryDirectory()
        self.addCleanup(work.cleanup)
        self.work = Path(work.name)
        self.page.driver.get("about:blank")  # no page that looks for the sign of another scenario
        self.page.complaints()

    def sign(self, *options, **ports):
        return self.enterContext(Sign(self.programs, self.work, *options, **ports))

    def as_the_png(self, sign, lit, what):
        """Waits until the face is that of the PNG; `lit` says whether something shines then."""
        def same():
            far, shining = self.page.distance(sign.png)
            return far <= 2 and (shining > 0) == lit
        until(same, f"a face as the PNG's: {what}")

    def test_face_is_that_of_the_png(self):
        sign = self.sign()
        for with_card in [False, True]:
            if with_card:  # the one that the processor plays, which the page does not take under its own name
                added = self.page.driver.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": """
                    const {getParameter} = WebGL2RenderingContext.prototype;
                    WebGL2RenderingContext.prototype.getParameter = function (name) {
                        const value = getParameter.call(this, name);
                        return typeof value === "string" ? "a card" : value;
                    };"""})
                self.addCleanup(self.page.driver.execute_cdp_cmd, "Page.removeScriptToEvaluateOnNewDocument", added)
            self.page.open(sign)
            self.assertEqual(self.page.run("return lamps.getContext('webgl2') !== null"), with_card)
            for lit, *command in [(True, "show", "HELLO 42", "--colour", "yellow"), (True, "bright", "3"),
                                  (True, "test", "colour", "blue"), (True, "test", "stop"), (False, "blank"),
                                  (True, "unblank"), (False, "power", "off"), (True, "power", "on"), (True, "bright", "8")]:
                sign.run(*command)
                self.as_the_png(sign, lit, " ".join(command))


    def pixel(self, *places):
        """Clicks a pixel of the face, or drags from the first place to the second."""
        spots = self.page.run("""
            const marks = document.getElementById("marks"), lamps = document.getElementById("lamps");
            marks.scrollIntoView({block: "center"});
            const {width, height} = marks.getBoundingClientRect();
            const pitch = 8;  // of the window that the browser has
            return arguments[0].map(([x, y]) => [12 + (x + 0.5) * pitch - width / 2, 12 + (y + 0.5) * pitch - height / 2]);
            """, places)
        marks = self.page.find("#marks")
        actions = ActionChains(self.page.driver, duration=0)
        actions.move_to_element_with_offset(marks, *map(round, spots[0])).click_and_hold()
        actions.move_to_element_with_offset(marks, *map(round, spots[-1])).release().perform()

    def test_lamps_break_by_click_drag_and_key(self):
        sign = self.sign()
        self.page.open(sign)
        sign.run("test", "colour", "blue")
        self.as_the_png(sign, True, "blue")
        self.pixel([5, 3])
        self.page.says("#menu", "#0000ff")
        self.page.click("#menu button", "All: Dark")
        self.page.says("#faults", "3 bad lamps in 1 pixel")
        self.as_the_png(sign, True, "a dark pixel")
        self.assertRegex(sign.run("pixels"), r"(?m)^5 +3 +pixel +Red Pixel Bad")

        self.page.click("#menu button", "Red: Works")  # the other lamps stay dark
        self.page.says("#faults", "2 bad lamps in 1 pixel")
        self.page.click("#menu button", "Close")
        self.pixel([20, 10], [22, 11])
        self.page.says("#menu", "6 pixels")
        self.page.click("#menu button", "Red: Stuck")
        self.page.says("#faults", "8 bad lamps in 7 pixels")
        self.as_the_png(sign, True, "stuck pixels")

        sign.vxsim("pixel", "--good", "all")  # the same state, changed elsewhere
        self.page.says("#faults", "all lamps work")
        ActionChains(self.page.driver).send_keys(Keys.ESCAPE).perform()
        self.page.find("#marks").send_keys(Keys.ARROW_RIGHT, Keys.ARROW_DOWN, Keys.ENTER)
        until(lambda: self.page.run("return document.activeElement.ariaLabel") == "All: Works", "the focus in the menu")
        ActionChains(self.page.driver).send_keys(Keys.TAB, Keys.ENTER).perform()
        self.page.says("#faults", "3 bad lamps in 1 pixel")

    def test_tiles_and_door(self):
        sign = self.sign()
        self.page.open(sign)
        self.page.click("#tools button", "Tiles")
        self.pixel([17, 2])
        self.page.says("#menu", "Tile 2")
        self.page.click("#menu button", "Hot")
        self.page.says("#faults", "hot: 2")
        self.page.find("#menu select").send_keys("bus")
        self.page.says("#faults", "2 answers “bus”")
        sign.run("tile", "status", "2", status=1)
        self.page.click("#faults button", "Mend all")
        self.page.says("#faults", "all tiles work")
        sign.run("tile", "status", "2")
        sign.vxsim("door", "open")
        until(lambda: self.page.find("#box button[aria-label='Door open']").get_attribute("aria-checked") == "true",
              "an open door")

    def test_box(self):
        sign = self.sign()
        self.page.open(sign)
        self.page.click("#box button", "Power")
        until(lambda: "off" in sign.run("power", "status"), "power off")
        self.page.says("#badge", "power is off")
        sign.run("power", "on")
        until(lambda: not self.page.find("#badge").is_displayed(), "power on")
        self.page.find("#box input").send_keys(Keys.HOME, *[Keys.ARROW_RIGHT] * 3)
        self.page.says("#box", "3 of 8")
        sign.run("bright", "5")
        self.page.says("#box", "5 of 8")
        self.page.click("#box button", "One hour ahead")
        self.page.says("#box", "1 h ahead")

    def test_line(self):
        sign = self.sign()
        self.page.open(sign)
        ask = ["--timeout", "150", "--retries", "1", "playing"]
        sign.run(*ask)
        for break_it, mend_it in [
                (lambda: self.page.click("#line button", "Unplugged"), lambda: self.page.click("#line button", "Unplugged")),
                (lambda: self.page.find("#line input").send_keys(Keys.END), lambda: self.page.click("#line button", "A good line")),
        ]:
            break_it()
            until(lambda: self.page.find("#line").get_attribute("class").endswith("bad"), "a bad line")
            self.assertRegex(sign.run(*ask, status=1), "(?i)time ?-?out|no answer|not answer")
            mend_it()
            until(lambda: not self.page.find("#line").get_attribute("class").endswith("bad"), "a good line")
            sign.run(*ask)

    def rows(self):
        return [row.text.split("\n") for row in self.page.all(".exchange")]

    def test_traffic(self):
        sign = self.sign()
        self.page.open(sign)
        said = sign.run("raw", "1", "8", "--payload", "01 02 03 04", status=1)
        until(lambda: self.rows() and "36870 Incorrect data packet length!" in self.rows()[0], "the refused command")
        self.assertIn("read file", self.rows()[0])
        request, reply = (bytes_of(part) for part in said.split("reply\n"))
        self.page.click(".exchange")
        shown = until(lambda: self.page.run(
            "return [...document.querySelectorAll('.packets .bytes')].map((dump) => dump.textContent)"), "the packets")
        self.assertEqual([bytes_of(dump) for dump in shown], [request, reply])
        self.page.says(".packets", "01 02 03 04")

        file = self.page.driver.execute_async_script("""
            const done = arguments[0];
            fetch(document.querySelector("a[download='vxsim.pcap']").href).then((answer) => answer.arrayBuffer()).then(
                (buffer) => done([...new Uint8Array(buffer)].map((byte) => byte.toString(16).padStart(2, "0")).join("")));""")
        self.assertTrue(file.startswith("d4c3b2a1") and request in file and reply in file, "no pcap file of both packets")

        self.page.click("#traffic button", "Pause")
        sign.run("playing")
        self.page.says("#traffic .count", "more while paused")
        self.assertEqual(len(self.rows()), 1)
        self.page.click("#traffic button", "Go on")
        until(lambda: len(self.rows()) > 1, "what was held back")
        self.page.find("#traffic input[type=search]").send_keys("36870")
        until(lambda: len(self.rows()) == 1, "the filter")

    def test_files(self):
        sign = self.sign()
        sign.run("mkdir", "D:/T")
        self.page.open(sign, "drives")
        message = self.work / "up.nmg"
        sign.run("message", "UP", "-o", message)
        for folder in ["D:", "T"]:
            self.page.click("#drives button", folder)
            self.page.says("#drives [aria-current]", folder)
        self.page.find("#drives input[type=file]").send_keys(str(message))
        self.page.says("#drives table", "up.nmg")
        sign.run("play", "D:/T/up.nmg")
        self.page.says("#playing", "up.nmg")
        self.as_the_png(sign, True, "the file that was uploaded")
        self.assertEqual(self.page.driver.execute_async_script("""
            const done = arguments[0];
            fetch(document.querySelector("#drives a[download]").href).then((answer) => answer.arrayBuffer()).then(
                (buffer) => done(btoa(String.fromCharCode(...new Uint8Array(buffer)))));"""),
            base64.b64encode(message.read_bytes()).decode())
        self.page.click("#drives button", "Delete up.nmg")
        self.page.click("dialog button", "Delete")
        until(lambda: not self.page.all("#drives a[download]"), "a deleted file")
        self.assertFalse((self.work / "sign" / "D" / "T" / "up.nmg").exists())

    def test_hostile_names_stay_text(self):
        sign = self.sign("--login", f"{HOSTILE_USER}:pw")
        (self.work / "sign" / "D" / f"{HOSTILE}.nmg").write_bytes(b"")
        sign.run("login", HOSTILE_USER, "--password", "pw")
        sign.run("show", HOSTILE)
        self.page.open(sign, "state")
        self.page.says("#state", HOSTILE_USER)
        for tab, text in [("Drives", "D:"), ("Play list", ""), ("Logs", HOSTILE_USER), ("Traffic", "log in")]:
            self.page.click("#tabs button", tab)
            self.page.says("[role=tabpanel]:not([hidden])", text)
        self.page.click("#tabs button", "Drives")
        self.page.click("#drives button", "D:")
        self.page.says("#drives", HOSTILE)
        self.assertEqual(self.page.run("return document.querySelectorAll('img:not(.thumbnail)').length"), 1)
        self.assertNotEqual(self.page.driver.title, "taken")

    def test_eight_pages(self):
        sign = self.sign()
        driver = self.page.driver
        first = driver.current_window_handle
        for _ in range(8):
            driver.switch_to.new_window("tab")
            self.page.open(sign)
        sign.run("show", "EIGHT")
        for tab in driver.window_handles:
            driver.switch_to.window(tab)
            if tab != first:
                self.as_the_png(sign, True, "one page of eight")
                driver.close()
        driver.switch_to.window(first)

    def test_sign_that_goes_and_comes(self):
        sign = self.sign()
        self.page.open(sign)
        sign.run("playing")
        until(self.rows, "an exchange")
        sign.end()
        until(lambda: self.page.find("#gone").is_displayed(), "a page that tells")
        self.page.click("#box button", "Power")
        self.page.says("#toasts", "The sign does not answer.")
        again = self.sign("--size", "64x16", port=sign.port, web=sign.web)
        self.page.live()
        self.assertFalse(self.page.find("#gone").is_displayed())
        self.page.says("#about", "64 × 16")
        until(lambda: not self.rows(), "no exchanges of the former sign")
        again.run("show", "BACK")
        until(self.rows, "exchanges of this one")
        self.page.complaints()  # of what could not be reached

    def test_phone(self):
        sign = self.sign()
        (self.work / "sign" / "D" / ("long" * 30 + ".nmg")).write_bytes(b"1")
        sign.run("raw", "1", "8", "--payload", "01 02 03 04", status=1)
        driver = self.page.driver
        size = {"width": 390, "height": 844, "deviceScaleFactor": 3, "mobile": True}
        driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", size)
        try:
            self.page.open(sign)
            until(self.rows, "an exchange")
            self.page.click(".exchange")
            until(lambda: self.page.all(".packets pre"), "its packets")
            self.page.find("#marks").click()
            for card in ["#box", "#line", "#faults"]:
                self.page.click(f"{card} summary")
            for tab in [None, "Play list", "Logs", "State", "Devices", "Drives"]:
                if tab is not None:
                    self.page.click("#tabs button", tab)
                    until(lambda: self.page.text("[role=tabpanel]:not([hidden])"), tab)
                self.assertLessEqual(self.page.run("return document.documentElement.scrollWidth"), 390, tab)
            self.page.click("#drives button", "D:")
            self.page.says("#drives", "long")
            self.assertLessEqual(self.page.run("return document.documentElement.scrollWidth"), 390)
        finally:
            driver.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})

    def test_many_signs(self):
        fleet = self.sign("--count", "500")
        fleet.run("show", "HELLO")
        self.page.open(fleet)
        self.assertEqual(len(self.page.all("#signs li")), 500)
        self.assertEqual(self.page.all("#signs canvas"), [], "those out of sight have no face")
        self.page.find("#filter").send_keys("0500")
        until(lambda: self.page.all("#signs canvas"), "the face of the last sign")
        lit = "const c = document.querySelector('#signs canvas'); " \
              "return c.getContext('2d').getImageData(0, 0, c.width, c.height).data.some((v, at) => at % 4 < 3 && v > 0)"
        until(lambda: self.page.run(lit), "its text")
        self.page.click("#signs li:not([hidden]) a")
        self.page.live()
        self.page.says("#about", "sign-0500")
        self.page.click("#power, #box .switch")
        until(lambda: "power is off" in self.page.text("#badge"), "a sign without power")
        fleet.run("show", "AGAIN")
        until(lambda: self.page.all(".exchange"), "its traffic")
        self.page.click("#all")
        until(lambda: len(self.page.all("#signs li")) == 500, "all of them again")

    def test_controls_have_names(self):
        self.page.open(self.sign())
        for tab in self.page.all("#tabs button"):
            tab.click()
            self.assertEqual(self.page.run("""
                return [...document.querySelectorAll("button, input, select, a, canvas[tabindex], pre[tabindex]")]
                    .filter((one) => one.checkVisibility()).filter((one) => !(one.ariaLabel || one.textContent.trim() ||
                        one.labels?.[0]?.textContent.trim())).map((one) => one.outerHTML)"""), [])

    def tearDown(self):
        self.assertEqual(self.page.complaints(), [])


def take_picture(programs, file):
    """The page with a text, some traffic and a hot tile, in the dark."""
    with tempfile.TemporaryDirectory() as work, Sign(programs, work) as sign, contextlib.closing(Page()) as page:
        page.driver.execute_cdp_cmd("Emulation.setScrollbarsHidden", {"hidden": True})
        page.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                    {"width": 1110, "height": 740, "deviceScaleFactor": 1, "mobile": False})
        page.driver.execute_cdp_cmd("Emulation.setEmulatedMedia",
                                    {"features": [{"name": "prefers-color-scheme", "value": "dark"}]})
        page.open(sign)
        sign.run("show", "--markup", "{yellow}ROAD WORKS{line}{red}next 7 km")
        for command in ["info", "get D:/NIGHT.NMG night.nmg", "ls D:/T", "playing", "bright 8", "clock"]:
            sign.run(*command.split(), status=int(command.startswith("get")))
        until(lambda: page.distance(sign.png)[1] > 0 and page.all(".exchange.refused"), "all that the picture shows")
        Path(file).write_bytes(page.driver.get_screenshot_as_png())


def main(programs, *rest):
    programs = Path(programs).resolve()
    if rest and rest[0] == "--screenshot":
        return take_picture(programs, *rest[1:])
    Scenarios.programs = programs
    return unittest.main(argv=[sys.argv[0], *rest], verbosity=2)


if __name__ == "__main__":
    main(*sys.argv[1:])
