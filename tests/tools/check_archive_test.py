#!/usr/bin/env python3
"""Checks that the checker finds faults: each archive here is a sound one with one thing wrong."""

import plistlib
import unittest

from check_archive import Archive, Fault, plain

UID = plistlib.UID


def described(name, *bases):
    return {"$classname": name, "$classes": [name, *bases, "NSObject"]}


def archive(*slots, root=1, **changes):
    top = {
        "$version": 100000,
        "$archiver": "NSKeyedArchiver",
        "$top": {"root": UID(root)},
        "$objects": ["$null", *slots],
    }
    top.update({"$" + key: value for key, value in changes.items()})
    return plistlib.dumps(top, fmt=plistlib.FMT_BINARY, sort_keys=False)


def category(**changes):
    record = {
        "HGCategoryProxyUriRepresentation": UID(0),
        "HGCategoryProxyName": UID(3),
        "HGCategoryProxyColor": 1,
        "HGCategoryProxyIndicator": -2,
        "$class": UID(2),
    }
    record.update(changes)
    return archive(record, described("HGCategoryProxy"), "Home")


def array(*elements):
    return {"NS.objects": [UID(element) for element in elements], "$class": UID(2)}


LIST_CLASS = described("NSArray")
SOUND = archive(array(3, 3), LIST_CLASS, "a")
TABLE = int.from_bytes(SOUND[-8:], "big")


def changed(at, byte, data=SOUND):
    at %= len(data)
    return data[:at] + bytes([byte]) + data[at + 1 :]


def nested(depth):
    return [nested(depth - 1)] if depth else []


def wide():
    """256 objects with references of one byte."""
    objects = b"".join(b"\x10" + bytes([n]) for n in range(255)) + b"\xa0"
    offsets = b"".join((8 + 2 * n).to_bytes(2, "big") for n in range(256))
    numbers = b"".join(n.to_bytes(8, "big") for n in (256, 255, 8 + len(objects)))
    return b"bplist00" + objects + offsets + bytes(6) + b"\x02\x01" + numbers


class CheckArchive(unittest.TestCase):
    def test_sound_archives(self):
        self.assertEqual(plain(Archive(SOUND).root), ["a", "a"])
        self.assertEqual(
            plain(Archive(category()).root),
            {
                "class": "HGCategoryProxy",
                "HGCategoryProxyUriRepresentation": None,
                "HGCategoryProxyName": "Home",
                "HGCategoryProxyColor": 1,
                "HGCategoryProxyIndicator": -2,
            },
        )
        self.assertEqual(Archive(archive(root=0)).root, ("absent", None))

    def test_faults(self):
        names = {"NS.keys": [UID(3)], "NS.objects": [], "$class": UID(2)}
        cases = {
            "too short": b"bplist00",
            "does not begin": b"b" + SOUND,
            "unused bytes": changed(-32, 1),
            "bad width": changed(-26, 0),
            "the length": SOUND[:TABLE] + b"\0" + SOUND[TABLE:],
            "too many objects": wide(),
            "the top object": changed(-9, 200),
            "an offset": changed(TABLE, 7),
            "unknown marker": changed(8, 0xF0),
            "refers to no object": changed(9, 250),
            "holds itself": changed(9, 0),
            "nested too deep": plistlib.dumps(nested(600), fmt=plistlib.FMT_BINARY),
            "wrong $version": archive("a", version=1),
            "wrong $archiver": archive("a", archiver="x"),
            "not one root": archive("a", top={"root": UID(1), "other": UID(1)}),
            "refers to no slot": archive(array(9), LIST_CLASS),
            "slot 1 holds itself": archive(array(1), LIST_CLASS),
            "holds the absent object": archive(array(0), LIST_CLASS),
            "a second absent object": archive("$null"),
            "no reference": archive({"NS.objects": ["a"], "$class": UID(2)}, LIST_CLASS),
            "nobody refers to slot 3": archive(array(), LIST_CLASS, "a"),
            "has no class": archive({"NS.objects": []}),
            "no class description": archive(array(), "NSArray"),
            "is no object": archive(array(), {"$classname": "NSArray", "$classes": ["NSArray"]}),
            "does not begin with it": archive(array(), described("NSArray") | {"$classname": "A"}),
            "the chain of NSMutableArray": archive(array(), described("NSMutableArray")),
            "the class is unknown": archive(array(), described("Unknown")),
            "more keys than values": archive(names, described("NSDictionary"), "k"),
            "HGCategoryProxyColor of": category(HGCategoryProxyColor=True),
            "is out of range": category(HGCategoryProxyIndicator=70000),
            "HGCategoryProxyUriRepresentation of": category(HGCategoryProxyUriRepresentation=UID(3)),
            "other keys": category(Unknown=1),
        }
        for fault, data in cases.items():
            with self.subTest(fault), self.assertRaisesRegex(Fault, fault.replace("$", r"\$")):
                Archive(data)

    def test_no_single_wrong_byte_of_the_trailer_passes(self):
        for at in range(-32, 0):
            for bit in range(8):
                with self.subTest(at=at, bit=bit), self.assertRaises(Fault):
                    Archive(changed(at, SOUND[at] ^ 1 << bit))


if __name__ == "__main__":
    unittest.main()
