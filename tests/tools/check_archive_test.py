#!/usr/bin/env python3
"""Checks that the checker refuses a sound archive with one thing damaged."""

import pathlib
import plistlib

from check_archive import UID, Archive, Fault

SOUND = (pathlib.Path(__file__).parents[1] / "bridge/golden/batch.archive").read_bytes()
DAMAGES = {
    "wrong header": lambda top, root: top.update({"$version": 1}),
    "nobody refers to slot": lambda top, root: top["$objects"].append("x"),
    "refers to no slot": lambda top, root: root["NS.objects"].append(UID(9999)),
    "holds itself": lambda top, root: root["NS.objects"].append(UID(1)),
    "holds the absent object": lambda top, root: root["NS.objects"].append(UID(0)),
    "has other keys": lambda top, root: root.update({"other": 1}),
    "the chain": lambda top, root: top["$objects"][root["$class"].data]["$classes"].reverse(),
}


def refusal(data):
    try:
        Archive(data)
    except Fault as fault:
        return str(fault)
    return "none"


for expected, damage in {"none": lambda *_: None, **DAMAGES}.items():
    top = plistlib.loads(SOUND)
    damage(top, top["$objects"][1])
    fault = refusal(plistlib.dumps(top, fmt=plistlib.FMT_BINARY, sort_keys=False))
    assert expected in fault, f"{expected!r} gives {fault!r}"
for bit in range(256):
    flipped = int.from_bytes(SOUND, "big") ^ 1 << bit
    assert refusal(flipped.to_bytes(len(SOUND), "big")) != "none", f"bit {bit} of the trailer"
