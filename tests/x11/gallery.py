"""The gallery's window, as it reports itself."""

import json

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
    """The gallery's window, as its report tells it. Rows are known by their titles."""

    def __init__(self, desktop, build, pictures):
        self.desktop = desktop
        self.build = build
        self.pictures = pictures
        self.report = desktop.folder / "report.json"
        self.log = desktop.folder / "log"
        self.report.unlink(missing_ok=True)
        self.log.unlink(missing_ok=True)
        self.process = desktop.start(
            [build / "apps/gallery/corvane-gallery", "--report", self.report], output=self.log)

    def show(self):
        """Waits until it can be used."""
        window = self.desktop.window("Gallery")
        self.desktop.do("windowmove", "--sync", window, *PLACE)
        self.desktop.do("windowactivate", "--sync", window)
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
