"""usage: stamped_stub_test.py STAMP_STUB ICON STUB...

Each stub must hold every place once (icons twice) before it is stamped; afterwards the version texts and icons that
wrestool and icotool find in it must be the user's. Stubs that do not exist are passed over, but not the first.
"""
import os
import re
import subprocess
import sys
import tempfile

PLACES = ["COMPANY-NAME-FIELD-PLACEHOLDER-ABCDEFGHI", "FILE-DESCRIPTION-FIELD-PLACEHOLDER-ABCDE",
          "LEGAL-COPYRIGHT-FIELD-PLACEHOLDER-ABCDEF", "9999012345678901234567890123456789012345",
          "0123456789012345678901234567890123456789", "Application.exe"]
TEXTS = {"CompanyName": "Exämple Company", "FileDescription": "A description that is longer than forty ",
         "LegalCopyright": "", "LegalTrademarks": "Trademarks of 0123456789", "ProductName": "Product"}


def tool(*arguments):
    return subprocess.run(arguments, check=True, stdout=subprocess.PIPE).stdout


def version_texts(exe):
    """The strings of a version resource: key, NULs up to a multiple of four bytes, value."""
    texts = {}
    block = tool("wrestool", "-x", "--raw", "-t", "16", exe).decode("utf-16-le")
    for key in list(TEXTS) + ["OriginalFilename"]:
        start = block.index(key + "\0")
        length = ord(block[start - 2])  # wLength, wValueLength, wType, key
        value = start + len(key) + 1
        value += value % 2
        texts[key] = block[value:value + length].split("\0")[0]
    return texts


def pixels(icon, folder):
    out = os.path.join(folder, os.path.basename(icon) + ".png")
    tool("icotool", "-x", "-o", out, icon)
    with open(out, "rb") as file:
        return file.read()


def outside(image, places):
    """The image with all places blanked."""
    image = bytearray(image)
    for start, end in places:
        image[start:end] = bytes(end - start)
    return bytes(image)


def check(stamp, icon, stub, folder):
    with open(stub, "rb") as file:
        image = file.read()
    for place in PLACES:
        count = image.count(place.encode("utf-16-le"))
        assert count == 1, f"{stub}: {place} occurs {count} times"
    places = [run.span() for run in re.finditer(b"\x99{192,}", image)]
    assert [end - start for start, end in places] == [640, 640], f"{stub}: fillers {places}"
    for place in PLACES:
        start = image.index(place.encode("utf-16-le"))
        places.append((start, start + 2 * len(place)))
    expected = pixels(icon, folder)
    for name, original in (("short", "short.exe"), ("twelve-chars", "Application.exe")):
        out = os.path.join(folder, name + ".exe")
        tool(stamp, stub, icon, name, out)
        with open(out, "rb") as file:
            stamped = file.read()
        assert outside(stamped, places) == outside(image, places), f"{stub}: stamped where it must not be"
        assert version_texts(out) == {**TEXTS, "OriginalFilename": original}, version_texts(out)
        for number in ("1", "2"):
            path = os.path.join(folder, number + ".ico")
            tool("wrestool", "-x", "-t", "14", "-n", number, "-o", path, out)
            assert pixels(path, folder) == expected, f"{stub}: icon {number} differs"


def main():
    stamp, icon, *stubs = sys.argv[1:]
    for number, stub in enumerate(stubs):
        if number == 0 or os.path.exists(stub):
            with tempfile.TemporaryDirectory() as folder:
                check(stamp, icon, stub, folder)
            print(stub, "can be stamped")


main()
