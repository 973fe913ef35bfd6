#!/usr/bin/env python3
"""Tries the gallery in a real X server, with keys and a pointer as people use them, and checks what
the window then shows. Pictures of it are left behind.
usage: run.py BUILD_FOLDER PICTURES [STEP...]"""

import pathlib
import subprocess
import sys
import tempfile

from desktop import Desktop, Failed
from gallery import Gallery
from steps import STEPS


def passes(step, desktop, build, pictures):
    name = step.__name__.replace("_", " ")
    gallery = Gallery(desktop, build, pictures)
    try:
        gallery.show()
        step(gallery)
        if gallery.process.poll():
            raise Failed("a bad end")
    except (Failed, StopIteration, subprocess.SubprocessError) as failure:
        gallery.picture(f"failed-{step.__name__}")
        print(f"FAILED: {name}: {failure or type(failure).__name__}")
        if gallery.process.poll() is not None:
            print(f"    the gallery has ended with {gallery.process.returncode}")
        print("".join(f"    {line}\n" for line in gallery.said()), end="", flush=True)
        return False
    finally:
        desktop.close_programs()
    print(f"ok: {name}", flush=True)
    return True


def main(build, pictures, *names):
    pictures = pathlib.Path(pictures).resolve()
    pictures.mkdir(parents=True, exist_ok=True)
    for old in pictures.glob("*.png"):
        old.unlink()
    steps = [step for step in STEPS if not names or step.__name__ in names]
    with tempfile.TemporaryDirectory() as folder:
        desktop = Desktop(pathlib.Path(folder))
        try:
            results = [passes(step, desktop, pathlib.Path(build).resolve(), pictures)
                       for step in steps]
        finally:
            desktop.close()
    print(f"x11: {sum(results)} of {len(results)} steps pass; pictures are in {pictures}")
    return 0 if results and all(results) else 1


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
