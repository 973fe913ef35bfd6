"""The gallery's window, as it reports itself."""

import json
import shutil
import time

from desktop import Failed, expect, wait

# On the screen, of what is inside the frame.
PLACE = (20, 40)


def parts(part, role=None):
    """The part and all that it holds, or those of a role."""
    if role is None or part["role"] == role:
        yield part
    for child in part.get("children", []):
        yield from parts(child, role)


def top(part):
    return part["rect"][1]


def has(part, state):
    return state in part.get("states", [])


def center(part, dx=0, dy=0):
    x, y, width, height = part["rect"]
    return x + width // 2 + dx, y + height // 2 + dy


class Gallery:
    """The gallery's window, as its report tells it. Rows are known by their titles, other parts by
    their names."""

    def __init__(self, desktop, build, pictures):
        self.desktop = desktop
        self.build = build
        self.pictures = pictures
        self.report = desktop.folder / "report.json"
        self.log = desktop.folder / "log"
        self.report.unlink(missing_ok=True)
        # Of the step before, such as where dividers were.
        shutil.rmtree(desktop.folder / "settings", ignore_errors=True)
        self.log.unlink(missing_ok=True)
        self.process = desktop.start(
            [build / "apps/gallery/corvane-gallery", "--report", self.report], output=self.log)

    def show(self):
        """Waits until it can be used."""
        self.window = self.desktop.window("Gallery")
        self.desktop.do("windowmove", "--sync", self.window, *PLACE)
        self.desktop.do("windowactivate", "--sync", self.window)
        wait(self.is_ready, "for the gallery to be active and to know where it is")

    def is_ready(self):
        if not self.report.exists():
            return False
        window = next(self.all_parts())
        return has(window, "active") and tuple(window["rect"][:2]) == PLACE

    def all_parts(self):
        for window in json.loads(self.report.read_text()):
            yield from parts(window)

    def said(self):
        """What the tables told their delegates."""
        return self.log.read_text().splitlines()

    def expect_said(self, *lines):
        """In this order, whatever was said between them."""

        def is_said():
            all_lines = iter(self.said())
            return all(line in all_lines for line in lines)

        wait(is_said, f"for {lines} among {self.said()}")

    def host(self, name):
        """What the pane is scrolled in."""
        return next(part for part in self.all_parts()
                    if any(child.get("name") == name for child in part.get("children", [])))

    def pane(self, name):
        return next(part for part in self.all_parts()
                    if part.get("name") == name and part["role"] in ("List", "Table"))

    def rows(self, name):
        return sorted(parts(self.pane(name), "ListItem"), key=top)

    @staticmethod
    def title(row):
        return next(parts(row, "EditableText")).get("value", "")

    def row(self, name, title):
        for row in self.rows(name):
            if self.title(row) == title:
                return row
        raise Failed(f"{name} has no row {title}")

    def titles(self, name):
        return [self.title(row) for row in self.rows(name)]

    def section(self, name, title):
        """The titles below a header."""
        found, inside = [], False
        both = [part for part in parts(self.pane(name)) if part["role"] in ("Heading", "ListItem")]
        for part in sorted(both, key=top):
            if part["role"] == "Heading":
                inside = part.get("name") == title
            elif inside:
                found.append(self.title(part))
        return found

    def selected(self, name):
        return [self.title(row) for row in self.rows(name) if has(row, "selected")]

    # Anything.

    def part(self, role, name):
        """None where there is none."""
        return next((part for part in self.all_parts()
                     if part["role"] == role and part.get("name") == name), None)

    def wait_for(self, role, name):
        return wait(lambda: self.part(role, name), f"for the {role} {name}")

    def press(self, role, name, **how):
        self.desktop.click(center(self.wait_for(role, name)), **how)

    def open(self, page):
        """By a click in the source list."""
        self.press("ListItem", page)
        wait(lambda: has(self.part("ListItem", page), "selected"), f"for the page {page}")

    def pop_over(self, role):
        """The parts of that role in windows beside the gallery's, such as choosers and menus."""
        windows = json.loads(self.report.read_text())
        return [part for window in windows if window.get("name") != "Gallery"
                for part in parts(window, role)]

    def in_pop_over(self, role, name):
        """When it has found its place."""
        found = lambda: next((part for part in self.pop_over(role) if part.get("name") == name),
                             None)

        def settled():
            before = found()
            time.sleep(0.15)
            return before if before and before == found() else None

        return wait(settled, f"for {name} beside")

    def value(self, role, name):
        part = self.part(role, name)
        return part.get("value", "") if part else None

    def focused(self):
        """Role and name of the innermost part that has the focus."""
        focused = [part for part in self.all_parts() if has(part, "focused")]
        return (focused[-1]["role"], focused[-1].get("name", "")) if focused else None

    def tab(self):
        """Where Tab leads."""
        before = self.focused()
        self.desktop.key("Tab")
        wait(lambda: self.focused() not in (None, before), f"for Tab to leave {before}")
        return self.focused()

    # The page with lists.

    def focus(self):
        """A pane and a row's title, or a pane with the name and the text of a field; a pane alone
        where none of its rows has the focus."""
        for name in ("Home", "Work", "Shopping"):
            if has(self.pane(name), "focused"):
                return (name,)
            for row in self.rows(name):
                if has(row, "focused"):
                    return (name, self.title(row))
                for field in parts(row, "EditableText"):
                    if has(field, "focused"):
                        return (name, field.get("name"), field.get("value", ""))
        return None

    def indicator(self, name):
        """Where the drop would land: the picture that is in the pane and in no row of it."""
        return next((part for part in self.pane(name).get("children", [])
                     if part["role"] == "Graphic"), None)

    def picture(self, name):
        self.desktop.picture(self.pictures / f"{name}.png")

    def click(self, name, title, **how):
        self.desktop.click(center(self.row(name, title)), **how)

    def edit(self, name, title):
        self.click(name, title, count=2)
        expect(lambda: self.focus(), (name, "Title", title), f"{title} is edited")

    def drag(self, source, title, target, place, picture):
        self.desktop.drag(center(self.row(source, title)), place, lambda: self.indicator(target),
                          lambda: self.picture(picture))
        wait(lambda: not self.indicator(target), "for the drop")
