#!/usr/bin/env python3
"""Checks keyed archives against the rules of their strictest readers: check_archive.py FILE...

Knows nothing of the library's own reader: the frame is taken apart byte by byte here, and the
objects are loaded with the standard library's plistlib. The exact keys of the records are pinned by
the golden files. Exit status: 0 when every file is sound, 1 when one is not.
"""

import datetime
import plistlib
import sys

UID = plistlib.UID
DEEPEST = 512
TRAILER = 32

RECORDS = {"HG%sProxy" % kind for kind in ("Task", "Project", "Category", "Portfolio", "Attachment")}
RECORDS |= {"HGTaskProxyList", "HGTaskProxyModel", "HGSharedRepository", "EXDateOnly", "CVIndexPath"}
# The keys of the built-in classes, which are the same for their growable forms.
BUILT_IN = {
    "NSArray": {"NS.objects"},
    "NSDictionary": {"NS.keys", "NS.objects"},
    "NSString": {"NS.string"},
    "NSData": {"NS.data"},
    "NSURL": {"NS.base", "NS.relative"},
    "NSDate": {"NS.time"},
    "NSNull": set(),
}


class Fault(Exception):
    """What is wrong with a file."""


def require(condition, fault):
    if not condition:
        raise Fault(fault)


class Frame:
    """The binary property list around the archive, as raw bytes."""

    def __init__(self, data):
        require(data.startswith(b"bplist00") and len(data) > 8 + TRAILER, "no property list")
        trailer = data[-TRAILER:]
        require(not any(trailer[:6]), "unused bytes of the trailer are not 0")
        self.data = data
        offset_size, self.ref_size = trailer[6:8]
        self.count, top, self.table = (
            int.from_bytes(trailer[at : at + 8], "big") for at in (8, 16, 24)
        )
        require(1 <= offset_size <= 8 and 1 <= self.ref_size <= 8, "bad width in the trailer")
        length = self.table + self.count * offset_size + TRAILER
        require(len(data) == length, "the length is not that of objects, table and trailer")
        require(self.count < 256**self.ref_size, "too many objects for the width of references")
        require(self.table < 256**offset_size, "too long for the width of offsets")
        require(top < self.count, "the top object does not exist")
        offsets = self.numbers(self.table, self.count, offset_size)
        require(all(8 <= at < self.table for at in offsets), "an offset lies outside the objects")
        contents = [self.content_of(f"object {n}", at) for n, at in enumerate(offsets)]
        level, depth = {top}, 0
        while level:
            depth += 1
            require(depth <= DEEPEST, "nested too deep, or an object holds itself")
            level = {ref for number in level for ref in contents[number]}

    def numbers(self, start, count, size):
        end = start + count * size
        return [int.from_bytes(self.data[at : at + size], "big") for at in range(start, end, size)]

    def content_of(self, what, at):
        """Checks one object by itself and returns the numbers of those in it."""
        kind, low = self.data[at] >> 4, self.data[at] & 15
        at += 1
        widths = {0: (8, 9), 1: range(5), 2: (2, 3), 3: (3,), 8: range(8)}
        if kind in widths:
            require(low in widths[kind], f"{what} has an unknown marker")
            length = {0: 0, 8: low + 1}.get(kind, 1 << low)
            require(at + length <= self.table, f"{what} is cut off")
            return []
        require(kind in (4, 5, 6, 10, 13), f"{what} has an unknown marker")
        if low == 15:
            require(at < self.table and self.data[at] in range(0x10, 0x14), f"{what} has no size")
            width = 1 << (self.data[at] & 15)
            low = int.from_bytes(self.data[at + 1 : at + 1 + width], "big", signed=width == 8)
            at += 1 + width
        unit = {4: 1, 5: 1, 6: 2, 10: self.ref_size, 13: 2 * self.ref_size}[kind]
        require(0 <= low <= (self.table - at) // unit, f"{what} is cut off")
        require(kind != 5 or self.data[at : at + low].isascii(), f"{what} is not ASCII")
        if kind < 10:
            return []
        content = self.numbers(at, low * unit // self.ref_size, self.ref_size)
        require(all(ref < self.count for ref in content), f"{what} refers to no object")
        require(kind == 10 or len(set(content[:low])) == low, f"{what} has a key twice")
        return content


class Archive:
    """The objects in the frame, walked from the root as a reader would: `root` is (kind, content)."""

    def __init__(self, data):
        self.frame = Frame(data)
        try:
            top = plistlib.loads(data, fmt=plistlib.FMT_BINARY)
            header = (top["$version"], top["$archiver"], list(top["$top"]))
            self.slots = top["$objects"]
        except Exception as fault:
            raise Fault(f"no archive: {fault!r}") from fault
        require(header == (100000, "NSKeyedArchiver", ["root"]), f"wrong header {header}")
        require(isinstance(self.slots, list) and self.slots[:1] == ["$null"], "no $null in front")
        self.classes = {}  # names by slot
        self.keys = {}  # of the records, by class
        self.values = {}  # by slot; None while one is being read
        self.root = self.value(top["$top"]["root"], "the root")
        unreached = set(range(1, len(self.slots))) - set(self.values) - set(self.classes)
        require(not unreached, f"nobody refers to slot {min(unreached, default=0)}")

    def slot(self, uid, what):
        require(isinstance(uid, UID), f"{what} is no reference")
        require(uid.data < len(self.slots), f"{what} refers to no slot")
        return uid.data

    def value(self, uid, what):
        """The object that a UID refers to, as (kind, content); ("absent", None) for UID 0."""
        number = self.slot(uid, what)
        if number == 0:
            return ("absent", None)
        if number not in self.values:
            self.values[number] = None
            self.values[number] = self.read(self.slots[number], f"slot {number}")
        require(self.values[number] is not None, f"slot {number} holds itself")
        return self.values[number]

    def read(self, raw, what):
        if isinstance(raw, dict):
            require("$class" in raw, f"{what} has no class")
            return self.read_object(self.class_name(raw["$class"], what), raw, what)
        require(isinstance(raw, (int, float, str, bytes, datetime.datetime)), f"{what} is a list")
        require(raw != "$null", f"{what} is a second absent object")
        return (type(raw).__name__, raw)

    def class_name(self, uid, what):
        number = self.slot(uid, f"the class of {what}")
        if number not in self.classes:
            description = self.slots[number]
            keys = set(description if isinstance(description, dict) else [])
            require(keys == {"$classname", "$classes"}, f"{what} has no class description")
            name, chain = description["$classname"], description["$classes"]
            bases = ["NS" + name[9:]] if name.startswith("NSMutable") else []
            require(chain == [name, *bases, "NSObject"], f"the chain of {name} is wrong")
            require(name not in self.classes.values(), f"{name} is described twice")
            self.classes[number] = name
        return self.classes[number]

    def references(self, raw, key, what):
        require(isinstance(raw[key], list), f"{what} has no list under {key}")
        values = [self.value(uid, f"an element of {what}") for uid in raw[key]]
        require(("absent", None) not in values, f"{what} holds the absent object")
        return values

    def read_object(self, name, raw, what):
        what = f"{name} in {what}"
        if name in RECORDS:
            keys = [key for key in raw if key != "$class"]
            require(all(key.startswith(name) for key in keys), f"{what} has other keys")
            require(self.keys.setdefault(name, keys) == keys, f"{what} has other keys than others")
            held = ((key, raw[key]) for key in keys)
            return (name, {k: v if isinstance(v, int) else self.value(v, what) for k, v in held})
        plain_name = name.replace("NSMutable", "NS")
        require(plain_name in BUILT_IN, f"{what}: the class is unknown")
        require(set(raw) == BUILT_IN[plain_name] | {"$class"}, f"{what} has other keys")
        if plain_name == "NSArray":
            return (name, self.references(raw, "NS.objects", what))
        if plain_name == "NSDictionary":
            keys, items = (self.references(raw, "NS." + key, what) for key in ("keys", "objects"))
            require(len(keys) == len(items), f"{what} has more keys than values, or fewer")
            require(len(set(map(repr, keys))) == len(keys), f"{what} has a key twice")
            return (name, list(zip(keys, items)))
        if plain_name == "NSURL":
            held = [self.value(raw[key], what) for key in ("NS.base", "NS.relative")]
            require(held[1][0] == "str", f"{what} has no text")
            return (name, tuple(held))
        return (name, next((raw[key] for key in raw if key != "$class"), None))


def main():
    status = 0
    for path in sys.argv[1:]:
        try:
            with open(path, "rb") as file:
                archive = Archive(file.read())
            print(f"{path}: {archive.frame.count} objects, {len(archive.slots)} slots")
        except (Fault, OSError) as fault:
            print(f"{path}: {fault}", file=sys.stderr)
            status = 1
    return status


if __name__ == "__main__":
    sys.exit(main())
