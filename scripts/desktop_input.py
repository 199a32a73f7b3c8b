"""What a person's hands and eyes are to the driver: keys, pointer and pictures, on an X11 display with
xdotool, xclip and ImageMagick, or on sway with wtype, wl-clipboard, grim and a virtual pointer of our
own. Keys have the names of their keysyms, with modifiers before: "ctrl+k"."""

import atexit
import json
import os
import socket
import struct
import subprocess
import time


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def hold(command, text):
    """Gives a text to a program that stays to hand it out."""
    subprocess.run(command, input=text, text=True, check=True, stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL)


class X11Desktop:
    windows_know_their_place = True

    def focus(self, title):
        """Gives the keyboard to the window of that title; false while there is none."""
        found = run("xdotool", "search", "--onlyvisible", "--name", title).split()
        if found:
            run("xdotool", "windowfocus", "--sync", found[-1])
        return bool(found)

    def type(self, text):
        run("xdotool", "type", "--delay", "15", text)

    def press(self, key):
        run("xdotool", "key", "--delay", "30", key)

    def move(self, x, y):
        run("xdotool", "mousemove", "--sync", str(x), str(y))

    def click(self, button, times):
        """Buttons as X11 numbers them: 1, 2, 3; 4 and 5 turn the wheel up and down."""
        run("xdotool", "click", "--repeat", str(times), "--delay", "60", str(button))

    def copy(self, text):
        """As another program does it."""
        hold(["xclip", "-in", "-selection", "clipboard"], text)

    def copied(self):
        """What another program would paste."""
        return run("xclip", "-out", "-selection", "clipboard")

    def picture(self, path, area=None):
        """A picture of the screen, or of an area (x, y, width, height) of it."""
        crop = ("-crop", "{2}x{3}+{0}+{1}".format(*area), "+repage") if area else ()
        run("import", "-window", "root", *crop, path)


class WaylandDesktop:
    windows_know_their_place = False

    def __init__(self, width, height):
        self.pointer = VirtualPointer(width, height)
        self.screen = next(iter(self.outputs()))  # the one that the window is on
        # A seat has a keyboard only while there is one; wtype's goes with each call.
        keyboard = subprocess.Popen(["wtype", "-s", "100000000"])
        atexit.register(keyboard.kill)

    def focus(self, title):
        """The compositor gives the keyboard to a new window by itself."""
        return any(window["name"] == title for window in self.windows())

    def windows(self):
        def walk(node):
            if node.get("app_id"):
                yield node
            for child in node["nodes"] + node["floating_nodes"]:
                yield from walk(child)
        return list(walk(json.loads(run("swaymsg", "-t", "get_tree"))))

    @property
    def origin(self):
        """Where the window is."""
        (window,) = self.windows()
        return window["rect"]["x"], window["rect"]["y"]

    def type(self, text):
        run("wtype", "-d", "15", text)

    def press(self, key):
        *modifiers, name = key.split("+")
        before = [word for modifier in modifiers for word in ("-M", modifier)]
        after = [word for modifier in reversed(modifiers) for word in ("-m", modifier)]
        run("wtype", *before, "-P", name, "-s", "20", "-p", name, *after)

    def move(self, x, y):
        self.pointer.move(x, y)

    def click(self, button, times):
        for _ in range(times):
            if button in (4, 5):
                self.pointer.turn(1 if button == 5 else -1)
            else:
                self.pointer.click({1: 0x110, 2: 0x112, 3: 0x111}[button])
            time.sleep(0.06)

    def copy(self, text):
        hold(["wl-copy"], text)

    def copied(self):
        return run("wl-paste", "--no-newline")

    def outputs(self):
        return {output["name"]: output for output in json.loads(run("swaymsg", "-t", "get_outputs"))}

    def move_to_screen(self, name):
        run("swaymsg", f'[app_id=".*"] move container to output {name}')
        self.screen = name

    def add_screen(self, scale):
        """Beside the first one, with that many pixels a point. Its name."""
        before = self.outputs()
        (first,) = before.values()
        width, height = first["rect"]["width"], first["rect"]["height"]
        run("swaymsg", "create_output")
        (name,) = self.outputs().keys() - before.keys()
        run("swaymsg", f"output {name} resolution {width * scale}x{height * scale} position {width} 0 "
                       f"scale {scale}")
        self.pointer.size = 2 * width, height
        return name

    def picture(self, path, area=None):
        part = ("-g", "{0},{1} {2}x{3}".format(*area)) if area else ("-o", self.screen)
        run("grim", *part, path)


class VirtualPointer:
    """wlr-virtual-pointer-unstable-v1, as it goes over the compositor's socket."""

    DISPLAY, REGISTRY, CALLBACK, MANAGER, POINTER = range(1, 6)

    def __init__(self, width, height):
        self.size = width, height
        self.connection = socket.socket(socket.AF_UNIX)
        self.connection.connect(os.path.join(os.environ["XDG_RUNTIME_DIR"],
                                             os.environ["WAYLAND_DISPLAY"]))
        self.send(self.DISPLAY, 1, struct.pack("=I", self.REGISTRY))
        self.send(self.DISPLAY, 0, struct.pack("=I", self.CALLBACK))
        self.bind(b"zwlr_virtual_pointer_manager_v1")
        self.send(self.MANAGER, 0, struct.pack("=II", 0, self.POINTER))
        self.move(0, 0)

    def send(self, target, request, arguments):
        self.connection.sendall(
            struct.pack("=IHH", target, request, 8 + len(arguments)) + arguments)

    def receive(self, size):
        data = b""
        while len(data) < size:
            part = self.connection.recv(size - len(data))
            if not part:
                raise ConnectionError("the compositor closed the connection")
            data += part
        return data

    def bind(self, wanted):
        """Looks through the globals, which end where the callback is answered."""
        found = None
        while True:
            target, event, size = struct.unpack("=IHH", self.receive(8))
            body = self.receive(size - 8)
            if target == self.CALLBACK:
                break
            if target == self.REGISTRY and event == 0:
                name, length = struct.unpack_from("=II", body)
                if body[8:8 + length - 1] == wanted:
                    found = name
        if found is None:
            raise ConnectionError("the compositor has no virtual pointers")
        text = wanted + b"\0"
        padded = text + b"\0" * (-len(text) % 4)
        self.send(self.REGISTRY, 0,
                  struct.pack("=II", found, len(text)) + padded + struct.pack("=II", 1, self.MANAGER))

    def now(self):
        return time.monotonic_ns() // 1_000_000 & 0xFFFFFFFF

    def frame(self):
        self.send(self.POINTER, 4, b"")

    def move(self, x, y):
        self.send(self.POINTER, 1, struct.pack("=IIIII", self.now(), x, y, *self.size))
        self.frame()

    def click(self, button):
        for state in (1, 0):
            self.send(self.POINTER, 2, struct.pack("=III", self.now(), button, state))
            self.frame()
            time.sleep(0.02)

    def turn(self, notches):
        """The wheel: 15 units of scrolling a notch, as wheels have."""
        self.send(self.POINTER, 5, struct.pack("=I", 0))
        self.send(self.POINTER, 7, struct.pack("=IIii", self.now(), 0, notches * 15 * 256, notches))
        self.frame()


def desktop():
    """The one that the environment names."""
    if "WAYLAND_DISPLAY" not in os.environ:
        return X11Desktop()
    (output,) = json.loads(run("swaymsg", "-t", "get_outputs"))
    return WaylandDesktop(output["rect"]["width"], output["rect"]["height"])
