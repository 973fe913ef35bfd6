#!/usr/bin/env python3
"""Checks keyed archives against the rules of their strictest readers, or prints them as JSON.

Knows nothing of the library's own reader: the frame is taken apart byte by byte here, the objects
are loaded with the standard library's plistlib, and the records are compared with the tables below.
Exit status: 0 when every file is sound, 1 when one is not, 2 when it was called wrongly.
"""

import argparse
import datetime
import json
import plistlib
import sys

UID = plistlib.UID
DEEPEST = 512
MAGIC = b"bplist00"
TRAILER = 32

# What stands under each key of a record, in the order in which it is written.
RECORDS = {
    "HGTaskProxy": {
        "HGTaskProxyUriRepresentation": "url",
        "HGTaskProxyTitle": "text",
        "HGTaskProxyNotes": "text",
        "HGTaskProxyStatus": "code",
        "HGTaskProxyStarred": "flag",
        "HGTaskProxyPriority": "code",
        "HGTaskProxyDue": "EXDateOnly",
        "HGTaskProxyRepeat": "flag",
        "HGTaskProxyProjectName": "text",
        "HGTaskProxyCategoryName": "text",
        "HGTaskProxyCategoryColor": "code",
        "HGTaskProxyCategoryIndicator": "code",
        "HGTaskProxyContributorName": "text",
        "HGTaskProxyAttachmentProxies": "list of HGAttachmentProxy",
    },
    "HGProjectProxy": {
        "HGProjectProxyUriRepresentation": "url",
        "HGProjectProxyName": "text",
        "HGProjectProxyTaskProxyURIs": "list of url",
        "HGProjectProxyCategoryName": "text",
        "HGProjectProxyCategoryColor": "code",
        "HGProjectProxyCategoryIndicator": "code",
    },
    "HGCategoryProxy": {
        "HGCategoryProxyUriRepresentation": "url",
        "HGCategoryProxyName": "text",
        "HGCategoryProxyColor": "code",
        "HGCategoryProxyIndicator": "code",
    },
    "HGPortfolioProxy": {
        "HGPortfolioProxyUriRepresentation": "url",
        "HGPortfolioProxyName": "text",
        "HGPortfolioProxyProjectProxyURIs": "list of url",
    },
    "HGAttachmentProxy": {
        "HGAttachmentProxyUriRepresentation": "url",
        "HGAttachmentProxyURL": "text",
        "HGAttachmentProxyType": "code",
    },
    "HGTaskProxyList": {
        "HGTaskProxyListTaskProxies": "growable list of HGTaskProxy",
        "HGTaskProxyListIdentifier": "text",
        "HGTaskProxyListTitle": "text",
    },
    "HGTaskProxyModel": {
        "HGTaskProxyModelTaskProxyLists": "list of HGTaskProxyList",
    },
    "HGSharedRepository": {
        "HGSharedRepositoryGeneralProjectProxy": "HGProjectProxy",
        "HGSharedRepositoryCategoryProxies": "map of HGCategoryProxy",
        "HGSharedRepositoryCategoryProxyURIs": "list of url",
        "HGSharedRepositoryPortfolioProxies": "map of HGPortfolioProxy",
        "HGSharedRepositoryPortfolioProxyURIs": "list of url",
        "HGSharedRepositoryProjectProxies": "map of HGProjectProxy",
        "HGSharedRepositoryTopLevelProjectProxyURIs": "list of url",
        "HGSharedRepositoryTaskProxies": "map of HGTaskProxy",
    },
    "EXDateOnly": {"EXDateOnlyEncodedValue": "integer"},
}

# The maps of a shared info, which are no records, by the keys that tell them.
MODELS = {"HGSharedInfoTaskProxyModel%sKey" % v for v in ("Inbox", "Today", "Next", "WaitingFor")}
BADGES = {
    "HGSharedInfoBadgeValue%sKey" % v
    for v in ("Inbox", "Today", "TodayForTomorrow", "Next", "WaitingFor")
}
INFO = {"HGSharedInfoTaskProxyModelsKey", "HGSharedInfoBadgeValuesKey"}

LISTS = ("NSArray", "NSMutableArray")
MAPS = ("NSDictionary", "NSMutableDictionary")
BUILT_IN = {
    "NSArray": {"NS.objects"},
    "NSMutableArray": {"NS.objects"},
    "NSDictionary": {"NS.keys", "NS.objects"},
    "NSMutableDictionary": {"NS.keys", "NS.objects"},
    "NSString": {"NS.string"},
    "NSMutableString": {"NS.string"},
    "NSData": {"NS.data"},
    "NSMutableData": {"NS.data"},
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
        require(len(data) > len(MAGIC) + TRAILER, "too short")
        require(data.startswith(MAGIC), "does not begin as a binary property list")
        trailer = data[-TRAILER:]
        require(not any(trailer[:6]), "unused bytes of the trailer are not 0")
        self.data = data
        self.offset_size, self.ref_size = trailer[6], trailer[7]
        self.count, self.top, self.table = (
            int.from_bytes(trailer[at : at + 8], "big") for at in (8, 16, 24)
        )
        require(1 <= self.offset_size <= 8 and 1 <= self.ref_size <= 8, "bad width in the trailer")
        require(
            len(data) == self.table + self.count * self.offset_size + TRAILER,
            "the length is not that of objects, table and trailer",
        )
        require(self.count < 256**self.ref_size, "too many objects for the width of references")
        require(self.table < 256**self.offset_size, "too long for the width of offsets")
        require(self.top < self.count, "the top object does not exist")
        self.offsets = self.numbers(self.table, self.count, self.offset_size)
        require(
            all(len(MAGIC) <= offset < self.table for offset in self.offsets),
            "an offset lies outside the objects",
        )
        self.contents = [self.content_of(number) for number in range(self.count)]
        self.check_nesting()

    def numbers(self, start, count, size):
        end = start + count * size
        return [
            int.from_bytes(self.data[at : at + size], "big") for at in range(start, end, size)
        ]

    def content_of(self, number):
        """Checks one object by itself and returns the numbers of those in it."""
        at = self.offsets[number]
        kind, low = self.data[at] >> 4, self.data[at] & 15
        what = f"object {number}"
        at += 1
        if kind == 0:
            require(low in (8, 9), f"{what} has an unknown marker")
            return []
        if kind in (1, 2, 3, 8):
            allowed = {1: (0, 1, 2, 3, 4), 2: (2, 3), 3: (3,), 8: range(8)}[kind]
            require(low in allowed, f"{what} has a width that does not exist")
            require(at + (low + 1 if kind == 8 else 1 << low) <= self.table, f"{what} is cut off")
            return []
        require(kind in (4, 5, 6, 10, 13), f"{what} has an unknown marker")
        if low == 15:
            require(at < self.table and self.data[at] >> 4 == 1, f"{what} has no size")
            width = 1 << (self.data[at] & 15)
            require(width <= 8 and at + 1 + width <= self.table, f"{what} has no size")
            low = int.from_bytes(self.data[at + 1 : at + 1 + width], "big", signed=width == 8)
            at += 1 + width
        unit = {4: 1, 5: 1, 6: 2, 10: self.ref_size, 13: 2 * self.ref_size}[kind]
        require(0 <= low <= (self.table - at) // unit, f"{what} is cut off")
        if kind == 5:
            require(self.data[at : at + low].isascii(), f"{what} is not ASCII")
        if kind < 10:
            return []
        content = self.numbers(at, low * unit // self.ref_size, self.ref_size)
        require(all(ref < self.count for ref in content), f"{what} refers to no object")
        require(kind == 10 or len(set(content[:low])) == low, f"{what} has a key twice")
        return content

    def check_nesting(self):
        """Looks for cycles and for nesting that is too deep, from the top object on."""
        # 0 while an object's contents are being looked at
        depths = {number: 1 for number, content in enumerate(self.contents) if not content}
        stack = [self.top]
        while stack:
            number = stack[-1]
            if number not in depths:
                depths[number] = 0
                for ref in self.contents[number]:
                    require(depths.get(ref) != 0, f"object {ref} holds itself")
                    if ref not in depths:
                        stack.append(ref)
                continue
            stack.pop()
            if depths[number] == 0:
                inner = [depths[ref] for ref in self.contents[number]]
                require(all(inner), f"object {number} holds itself")
                depths[number] = 1 + max(inner)
                require(depths[number] <= DEEPEST, "nested too deep")


class Archive:
    """The objects in the frame, walked from the root as a reader would."""

    def __init__(self, data):
        self.frame = Frame(data)
        try:
            top = plistlib.loads(data, fmt=plistlib.FMT_BINARY)
        except Exception as fault:
            raise Fault(f"plistlib: {fault!r}") from fault
        require(isinstance(top, dict), "the top object is no dictionary")
        require(top.get("$version") == 100000, "wrong $version")
        require(top.get("$archiver") == "NSKeyedArchiver", "wrong $archiver")
        self.slots = top.get("$objects")
        require(isinstance(self.slots, list), "$objects is no list")
        require(self.slots and self.slots[0] == "$null", "$objects does not begin with $null")
        roots = top.get("$top")
        require(isinstance(roots, dict) and set(roots) == {"root"}, "$top is not one root")
        self.classes = {}
        self.values = {}  # by slot; None while one is being read
        self.root = self.value(roots["root"], 0)
        unreached = set(range(1, len(self.slots))) - set(self.values) - set(self.classes)
        require(not unreached, f"nobody refers to slot {min(unreached, default=0)}")
        self.check_info()

    def slot(self, uid, what):
        require(isinstance(uid, UID), f"{what} is no reference")
        require(uid.data < len(self.slots), f"{what} refers to no slot")
        return uid.data

    def value(self, uid, depth, what="the root"):
        """The object that a UID refers to, as (kind, content); ("absent", None) for UID 0."""
        number = self.slot(uid, what)
        if number == 0:
            return ("absent", None)
        if number not in self.values:
            require(depth <= DEEPEST, "objects hold one another too deep")
            self.values[number] = None
            self.values[number] = self.read(number, depth + 1)
        require(self.values[number] is not None, f"slot {number} holds itself")
        return self.values[number]

    def read(self, number, depth):
        raw = self.slots[number]
        if isinstance(raw, dict):
            return self.read_object(raw, f"slot {number}", depth)
        kinds = {bool: "flag", int: "integer", float: "real", str: "text", bytes: "data"}
        kinds[datetime.datetime] = "date"
        require(type(raw) in kinds, f"slot {number} holds a {type(raw).__name__}")
        require(raw != "$null", f"slot {number} is a second absent object")
        return (kinds[type(raw)], raw)

    def class_name(self, uid, what):
        number = self.slot(uid, f"the class of {what}")
        if number not in self.classes:
            description = self.slots[number]
            require(
                isinstance(description, dict) and set(description) == {"$classname", "$classes"},
                f"{what} has no class description",
            )
            name, chain = description["$classname"], description["$classes"]
            require(
                isinstance(chain, list) and all(isinstance(c, str) for c in chain),
                f"{name} has a chain of something else than names",
            )
            require(chain[0] == name, f"the chain of {name} does not begin with it")
            require(len(chain) > 1 and chain[-1] == "NSObject", f"{name} is no object by its chain")
            expected = [name, "NS" + name[9:], "NSObject"] if name.startswith("NSMutable") else chain
            require(chain == expected, f"the chain of {name} is wrong")
            require(name not in self.classes.values(), f"{name} is described twice")
            self.classes[number] = name
        return self.classes[number]

    def references(self, raw, key, what, depth):
        uids = raw[key]
        require(isinstance(uids, list), f"{what} has no list under {key}")
        values = [self.value(uid, depth, f"an element of {what}") for uid in uids]
        require(all(kind != "absent" for kind, _ in values), f"{what} holds the absent object")
        return values

    def read_object(self, raw, what, depth):
        require("$class" in raw, f"{what} has no class")
        name = self.class_name(raw["$class"], what)
        what = f"{name} in {what}"
        if name in RECORDS:
            return self.read_record(name, raw, what, depth)
        require(name in BUILT_IN, f"{what}: the class is unknown")
        require(set(raw) == BUILT_IN[name] | {"$class"}, f"{what} has other keys than its class")
        if name in LISTS:
            return (name, self.references(raw, "NS.objects", what, depth))
        if name in MAPS:
            keys = self.references(raw, "NS.keys", what, depth)
            items = self.references(raw, "NS.objects", what, depth)
            require(len(keys) == len(items), f"{what} has more keys than values, or fewer")
            require(len(set(map(repr, keys))) == len(keys), f"{what} has a key twice")
            return (name, list(zip(keys, items)))
        if name == "NSURL":
            base = self.value(raw["NS.base"], depth, what)
            relative = self.value(raw["NS.relative"], depth, what)
            require(base[0] in ("absent", "url"), f"{what} has a base that is no URL")
            require(relative[0] == "text", f"{what} has no text")
            return ("url", relative[1] if base[1] is None else f"{base[1]} -> {relative[1]}")
        if name == "NSNull":
            return ("null", None)
        content = raw[next(iter(BUILT_IN[name]))]
        kind = {"NSDate": float, "NSData": bytes, "NSMutableData": bytes}.get(name, str)
        require(isinstance(content, kind), f"{what} has no {kind.__name__}")
        return ({float: "date", bytes: "data", str: "text"}[kind], content)

    def read_record(self, name, raw, what, depth):
        fields = RECORDS[name]
        keys = [key for key in raw if key != "$class"]
        require(keys == list(fields), f"{what} has other keys, or another order of them")
        record = {}
        for key, wanted in fields.items():
            if wanted in ("integer", "code", "flag"):
                record[key] = raw[key]
                allowed = bool if wanted == "flag" else int
                require(type(raw[key]) is allowed, f"{key} of {what} is no {wanted}")
                if wanted == "code":
                    require(-(2**15) <= raw[key] < 2**15, f"{key} of {what} is out of range")
            else:
                record[key] = self.value(raw[key], depth, f"{key} of {what}")
                require(self.fits(record[key], wanted), f"{key} of {what} is no {wanted}")
        return (name, record)

    def fits(self, value, wanted):
        kind, content = value
        if kind in ("absent", wanted):
            return True
        container, _, item = wanted.partition(" of ")
        if container == "map":
            return kind == "NSDictionary" and all(
                key[0] == "url" and entry[0] == item for key, entry in content
            )
        if container not in ("list", "growable list"):
            return False
        name = "NSArray" if container == "list" else "NSMutableArray"
        return kind == name and all(element[0] == item for element in content)

    def check_info(self):
        """Where the root is a shared info, checks what its maps hold."""
        kind, entries = self.root
        if kind not in MAPS or not any(key[1] in INFO for key, _ in entries):
            return
        require(kind == "NSMutableDictionary", "the shared info is no growable map")
        require({key[1] for key, _ in entries} <= INFO, "the shared info has unknown keys")
        for key, (inner, items) in entries:
            holds_models = key[1] == "HGSharedInfoTaskProxyModelsKey"
            known, wanted = (MODELS, "HGTaskProxyModel") if holds_models else (BADGES, "integer")
            require(inner in MAPS, f"{key[1]} is no map")
            require({name[1] for name, _ in items} <= known, f"{key[1]} has unknown keys")
            require(all(item[0] == wanted for _, item in items), f"{key[1]} holds no {wanted}")


def plain(value):
    """The value as JSON has it: URLs as their text, dates as seconds since 2001."""
    if not isinstance(value, tuple):
        return value
    kind, content = value
    if kind in LISTS:
        return [plain(item) for item in content]
    if kind in MAPS:
        return {str(plain(key)): plain(item) for key, item in content}
    if kind in RECORDS:
        return {"class": kind} | {key: plain(field) for key, field in content.items()}
    if kind == "data":
        return content.hex()
    if isinstance(content, datetime.datetime):
        return (content - datetime.datetime(2001, 1, 1)).total_seconds()
    return content


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--json", action="store_true", help="print the contents as JSON")
    parser.add_argument("files", nargs="+", metavar="FILE")
    arguments = parser.parse_args()
    sys.setrecursionlimit(10 * DEEPEST)
    sound = True
    for path in arguments.files:
        try:
            with open(path, "rb") as file:
                archive = Archive(file.read())
        except (Fault, OSError) as fault:
            print(f"{path}: {fault}", file=sys.stderr)
            sound = False
            continue
        if arguments.json:
            print(json.dumps(plain(archive.root), ensure_ascii=False, indent=2))
        else:
            print(f"{path}: {archive.frame.count} objects, {len(archive.slots)} slots")
    return 0 if sound else 1


if __name__ == "__main__":
    sys.exit(main())
