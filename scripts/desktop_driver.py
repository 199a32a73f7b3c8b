"""Drives the player as a person would: finds things by their accessible names, sends real key and
pointer events, takes screenshots. Needs a display, a session bus and at-spi-bus-launcher."""

import os
import signal
import subprocess
import time

import pyatspi
from gi.repository import GLib

from desktop_input import desktop, run

TIMEOUT = 40  # seconds after which what was waited for counts as not coming
PASSWORD = "p&ss+1"  # with characters that addresses need escaped, but that every keyboard has


def difference(picture, other):
    """Of two pictures of one size: 0 to 1."""
    told = subprocess.run(["compare", "-metric", "RMSE", picture, other, "null:"], capture_output=True,
                          text=True).stderr
    return float(told.split("(")[1].rstrip(")"))


def extents(node):
    return node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)


def window_of(node):
    while node.parent and node.parent.getRole() != pyatspi.ROLE_APPLICATION:
        node = node.parent
    return node


class Failed(Exception):
    pass


def start_accessibility():
    launcher = "/usr/libexec/at-spi-bus-launcher"
    process = subprocess.Popen([launcher, "--launch-immediately"],
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    time.sleep(0.5)
    return process


class Simulator:
    """The simulated provider as a child process."""

    def __init__(self, build, *options, password=PASSWORD):
        self.process = subprocess.Popen(
            [f"{build}/sim/vantor-sim", "--media", os.environ["VANTOR_SIM_MEDIA"],
             "--password", password, *options],
            stdout=subprocess.PIPE, text=True)
        self.said = {}
        for line in self.process.stdout:
            name, _, value = line.strip().partition(": ")
            self.said[name.strip().lower()] = value.strip()
            if "password" in self.said:
                break
        else:
            raise Failed("the simulator did not start")

    def value(self, *words):
        for name, value in self.said.items():
            if all(word in name for word in words):
                return value
        raise Failed(f"the simulator did not say its {words}: {self.said}")

    def stop(self):
        self.process.send_signal(signal.SIGTERM)
        self.process.wait(timeout=10)


class Player:
    """The player in its window, and what can be done with it."""

    def __init__(self, build, output, config_url, *arguments, **process):
        """`process` goes to Popen."""
        self.output = output
        self.desktop = desktop()
        self.shots = 0
        self.told = []  # names of what assistive programs were told to look at
        pyatspi.Registry.registerEventListener(self.hear, "object:state-changed:focused")
        self.record = open(os.path.join(output, "tour.txt"), "w")
        environment = dict(os.environ, VANTOR_CONFIG_URL=config_url,
                           QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", VANTOR_AUDIO="none")
        self.process = subprocess.Popen([f"{os.path.abspath(build)}/src/app/vantor", *arguments],
                                        env=environment, **process)
        self.wait("the window", lambda: self.application() is not None)
        self.wait("the window on screen", lambda: self.desktop.focus("Vantor Player"))

    def say(self, text):
        print(text, flush=True)
        self.record.write(text + "\n")
        self.record.flush()

    def wait(self, what, condition, timeout=TIMEOUT):
        end = time.monotonic() + timeout
        while time.monotonic() < end:
            if self.process.poll() is not None and what != "the end":
                raise Failed(f"the player ended with {self.process.returncode} before {what}")
            try:
                result = condition()
            except Exception as error:  # the tree changes while it is read
                result = None
                last = error
            if result:
                return result
            time.sleep(0.1)
        self.shot("failed")
        raise Failed(f"{what} did not come")

    # What there is

    def application(self):
        desktop = pyatspi.Registry.getDesktop(0)
        for application in desktop:
            if application and application.get_process_id() == self.process.pid:
                return application if application.childCount > 0 else None
        return None

    def all(self):
        def walk(node):
            try:
                for child in node:
                    if child is None:
                        continue
                    yield child
                    yield from walk(child)
            except Exception:
                return
        application = self.application()
        return walk(application) if application else iter(())

    def find(self, name, role=None, showing=True):
        """The first thing on screen with that name; a name that ends with "…" is a beginning."""
        for node in self.all():
            try:
                matches = (node.name.startswith(name[:-1]) if name.endswith("…")
                           else node.name == name)
                if not matches or (role and role not in node.getRoleName()):
                    continue
                if showing and not node.getState().contains(pyatspi.STATE_SHOWING):
                    continue
                return node
            except Exception:
                continue
        return None

    def listed(self):
        """The rows of every list on screen."""
        return [node for node in self.all() if node.getRoleName() == "list item"]

    def chosen(self, list_name):
        """The name of the entry that the highlight of a list is on."""
        shown = self.find(list_name, "list")
        for node in shown or ():
            if node.getState().contains(pyatspi.STATE_SELECTED):
                return node.name
        return None

    def expect(self, name, role=None):
        return self.wait(f'"{name}"', lambda: self.find(name, role))

    def expect_gone(self, name):
        self.wait(f'the end of "{name}"', lambda: self.find(name) is None)

    def hear(self, event):
        if event.detail1:
            self.told.append(event.source.name)

    def expect_told(self, what, name):
        """Assistive programs were told of it since the last key press."""
        def told():
            while GLib.MainContext.default().iteration(False):
                pass
            return name() in self.told
        self.wait(f"a word to assistive programs of {what}", told)

    def box(self, node):
        told = extents(node)
        if self.desktop.windows_know_their_place:
            return told.x, told.y, told.width, told.height
        window = extents(window_of(node))
        left, top = self.desktop.origin
        return left + told.x - window.x, top + told.y - window.y, told.width, told.height

    def focused(self):
        for node in self.all():
            try:
                if node.getState().contains(pyatspi.STATE_FOCUSED):
                    return node
            except Exception:
                continue
        return None

    def value(self, node):
        return node.queryValue().currentValue

    # What a person does

    def type(self, text):
        self.desktop.type(text)

    def press(self, *keys):
        for key in keys:
            self.told.clear()
            self.desktop.press(key)
            time.sleep(0.08)

    def tab_to(self, name, role=""):
        """Presses Tab until the control of that name has the focus."""
        for _ in range(60):
            focused = self.focused()
            if focused and focused.name == name and role in focused.getRoleName():
                return
            self.press("Tab")
        raise Failed(f'Tab does not reach "{name}"')

    def tab_round(self):
        """Presses Tab until the focus is where it was; the names that it passed."""
        start = self.wait("the focus", self.focused)
        first = start.name, self.box(start)
        names = []
        for _ in range(60):
            self.press("Tab")
            focused = self.wait("the focus", self.focused)
            names.append(focused.name)
            if (focused.name, self.box(focused)) == first:
                return names
        raise Failed(f"Tab does not come back: {names}")

    def point(self, node, clicks=1, button=1):
        """Clicks a thing; buttons 4 and 5 turn the wheel over it up and down."""
        x, y, width, height = self.box(node)
        self.desktop.move(x + width // 2, y + height // 2)
        self.desktop.click(button, clicks)
        # A pointer that rests on a list that drops down chooses from it.
        self.desktop.move(1590, 990)

    def shot(self, name):
        self.shots += 1
        path = os.path.join(self.output, f"{self.shots:02}-{name}.png")
        self.desktop.picture(path)
        return path

    def picture_moves(self, node):
        """Whether the screen under `node` shows something that moves, and is not one colour."""
        x, y, width, height = self.box(node)
        # Away from the edges, where other things may be drawn over the picture.
        middle = (x + width // 10, y + height // 10, width * 8 // 10, height * 6 // 10)

        def frame(number):
            path = os.path.join(self.output, f".frame-{number}.png")
            self.desktop.picture(path, middle)
            return path

        first = frame(0)
        spread = float(run("convert", first, "-colorspace", "Gray", "-format",
                           "%[fx:standard_deviation]", "info:"))
        moved = 0
        # What moves may do so once a second only, as the digits of a test card do.
        for _ in range(3):
            time.sleep(0.4)
            moved = max(moved, difference(first, frame(1)))
            if moved > 0.005:
                break
        return spread > 0.02 and moved > 0.005

    def expect_picture(self, node_name):
        self.expect(node_name)
        self.wait("a moving picture", lambda: self.picture_moves(self.find(node_name)))

    def expect_sharp(self, node):
        """On a screen of two pixels a point, which are all the same where a picture was enlarged."""
        drawn, enlarged = (os.path.join(self.output, name) for name in (".frame-0.png", ".frame-1.png"))
        self.desktop.picture(drawn, self.box(node))
        run("convert", drawn, "-sample", "50%", "-sample", "200%", enlarged)
        if difference(drawn, enlarged) < 0.01:
            raise Failed(f'"{node.name}" is drawn with half of the pixels')

    def quit(self):
        """Ends the player as the desktop does, and says whether it ended well."""
        self.press("ctrl+q")
        end = time.monotonic() + 10
        while self.process.poll() is None and time.monotonic() < end:
            time.sleep(0.05)
        if self.process.poll() is None:
            self.process.kill()
            raise Failed("the player did not quit")
        if self.process.returncode != 0:
            raise Failed(f"the player ended with {self.process.returncode}")
