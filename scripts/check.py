#!/usr/bin/env python3
"""Checks what no compiler checks: formatting, layers, and that every source and test on disk is
listed in a CMakeLists.txt."""

import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent

# A folder may include those before it.
LAYERS = ["platform", "toolkit", "logging", "views", "vocabulary", "dates", "bridge", "preferences",
          "models", "formats", "table", "controls", "qt", "testing"]

# Value headers that stand on their own and may be included from anywhere.
FREE_HEADERS = {"corvane/dates/EXDateOnly.h", "corvane/dates/EXTimeOnly.h",
                "corvane/dates/PackedParts.h"}

INCLUDE = re.compile(r'^\s*#include "(.+)"', re.MULTILINE)
LONGEST_SOURCE = 600


def tracked(*patterns):
    names = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", *patterns], cwd=ROOT,
                           check=True, capture_output=True, text=True).stdout.split("\n")
    return [name for name in names if name and (ROOT / name).exists()]


def badly_formatted():
    sources = tracked("*.h", "*.cpp")
    result = subprocess.run(["clang-format", "--dry-run", "-Werror", *sources], cwd=ROOT,
                            capture_output=True, text=True)
    files = {line.split(":")[0] for line in result.stderr.split("\n") if ": error:" in line}
    return [f"{name}: not formatted (./dev format)" for name in sorted(files)]


def against_the_layers():
    problems = []
    for name in tracked("corvane/*.h", "corvane/*.cpp"):
        text = (ROOT / name).read_text()
        layer = LAYERS.index(name.split("/")[1])
        if name.endswith(".h") and "#pragma once" not in text:
            problems.append(f"{name}: no #pragma once")
        for include in INCLUDE.findall(text):
            if not include.startswith("corvane/"):
                problems.append(f'{name}: includes "{include}" without the whole path')
            elif include not in FREE_HEADERS and LAYERS.index(include.split("/")[1]) > layer:
                problems.append(f'{name}: includes "{include}" of a higher layer')
            elif name in FREE_HEADERS and include not in FREE_HEADERS:
                problems.append(f'{name}: must stand on its own, but includes "{include}"')
    return problems


def not_listed():
    problems = []
    for name in tracked("corvane/*.cpp", "apps/*.cpp", "tests/*.cpp", "bench/*.cpp", "fuzz/*.cpp"):
        path = ROOT / name
        lists = path.parent / "CMakeLists.txt"
        stem = path.stem.removesuffix("_test")
        listed = lists.exists() and re.search(rf"\b{re.escape(stem)}\b", lists.read_text())
        if not listed:
            problems.append(f"{name}: not listed in {lists.relative_to(ROOT)}")
    return problems


def too_long():
    lengths = {name: len((ROOT / name).read_text().splitlines())
               for name in tracked("corvane/*", "apps/*.cpp", "apps/*.h", "tests/*.cpp")
               if name.endswith((".h", ".cpp"))}
    return [f"{name}: {length} lines; a concept is hiding in it"
            for name, length in lengths.items() if length > LONGEST_SOURCE]


def unused_texts():
    sources = "\n".join((ROOT / name).read_text() for name in tracked("corvane/*.cpp", "corvane/*.h"))
    return [f"{name}: nothing shows the text of {key}"
            for name in tracked("corvane/vocabulary/strings/*.strings")
            for key in re.findall(r"(?m)^(\w+) *=", (ROOT / name).read_text())
            if not re.search(rf'"{key}"|\$\{{{key}\}}', sources)]


def main():
    problems = badly_formatted() + against_the_layers() + not_listed() + too_long()
    problems += unused_texts()
    for problem in problems:
        print(problem)
    print(f"check: {len(problems)} problem(s)")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
