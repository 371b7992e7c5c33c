"""A small flat picture: shapes on a grid finer than its pixels, and the transparent GIF that becomes of them.

Coordinates are pixels of the finished picture, with 0, 0 at its upper left corner; angles are degrees,
clockwise from 3 o'clock. A colour is (red, green, blue), None makes transparent again.
"""
import math

SIZE = 32  # pixels each way
FINE = 8   # places of the grid in a pixel, each way
SIDE = SIZE * FINE


class Picture:
    def __init__(self):
        self.places = [None] * (SIDE * SIDE)
        self.moves = []

    def turned(self, degrees, x=16, y=16):
        """Turns what is drawn from now on around x, y."""
        c, s = math.cos(math.radians(degrees)), math.sin(math.radians(degrees))
        self.moves.append(lambda px, py: (x + (px - x) * c - (py - y) * s, y + (px - x) * s + (py - y) * c))
        return self

    def mirrored(self, x=16):
        """Mirrors what is drawn from now on at the upright line through x."""
        self.moves.append(lambda px, py: (2 * x - px, py))
        return self

    def placed(self, x, y, scale=1.0):
        """Draws the point 16, 16 at x, y from now on, and all around it `scale` times as large."""
        self.moves.append(lambda px, py: (x + (px - 16) * scale, y + (py - 16) * scale))
        return self

    def straight(self):
        """Ends turning, mirroring and placing."""
        self.moves = []
        return self

    def polygon(self, points, colour):
        for move in reversed(self.moves):
            points = [move(x, y) for x, y in points]
        ends = list(zip(points, points[1:] + points[:1]))
        for row in range(SIDE):
            y = (row + 0.5) / FINE
            cuts = sorted(ax + (y - ay) * (bx - ax) / (by - ay) for (ax, ay), (bx, by) in ends
                          if (ay <= y) != (by <= y))
            for left, right in zip(cuts[::2], cuts[1::2]):
                first = max(0, math.ceil(left * FINE - 0.5))
                last = min(SIDE, math.ceil(right * FINE - 0.5))
                for column in range(first, last):
                    self.places[row * SIDE + column] = colour

    def oval(self, x, y, across, down, colour):
        """across, down: half the width and half the height."""
        steps = [math.tau * k / 72 for k in range(72)]
        self.polygon([(x + across * math.cos(a), y + down * math.sin(a)) for a in steps], colour)

    def disc(self, x, y, radius, colour):
        self.oval(x, y, radius, radius, colour)

    def box(self, left, top, right, bottom, colour, corner=0.0):
        points = []
        for x, y, begin in ((right - corner, bottom - corner, 0), (left + corner, bottom - corner, 90),
                            (left + corner, top + corner, 180), (right - corner, top + corner, 270)):
            points += bow(x, y, corner, begin, begin + 90) if corner else [(x, y)]
        self.polygon(points, colour)

    def line(self, points, width, colour):
        """Round ends and corners."""
        for (ax, ay), (bx, by) in zip(points, points[1:]):
            long = math.hypot(bx - ax, by - ay) or 1.0
            dx, dy = (by - ay) / long * width / 2, (ax - bx) / long * width / 2
            self.polygon([(ax + dx, ay + dy), (bx + dx, by + dy), (bx - dx, by - dy), (ax - dx, ay - dy)],
                         colour)
        for x, y in points:
            self.disc(x, y, width / 2, colour)

    def arc(self, x, y, radius, begin, end, width, colour):
        self.line(bow(x, y, radius, begin, end), width, colour)

    def pixels(self):
        """Rows of colours, None where less than half of a pixel is covered. The rim is darker."""
        rows = [[self._mixed(x, y) for x in range(SIZE)] for y in range(SIZE)]

        def inside(x, y):
            return 0 <= x < SIZE and 0 <= y < SIZE and rows[y][x] is not None

        def shaded(x, y):
            colour = rows[y][x]
            around = ((x + 1, y), (x - 1, y), (x, y + 1), (x, y - 1))
            if colour is None or all(inside(*place) for place in around):
                return colour
            return tuple(part * 66 // 100 for part in colour)

        return [[shaded(x, y) for x in range(SIZE)] for y in range(SIZE)]

    def _mixed(self, x, y):
        seen = []
        for row in range(y * FINE, (y + 1) * FINE):
            first = row * SIDE + x * FINE
            seen += [c for c in self.places[first:first + FINE] if c is not None]
        if len(seen) * 2 < FINE * FINE:
            return None
        # In steps of 8, so that the colours of any picture fit a table of 256.
        return tuple(min(255, (sum(c[k] for c in seen) // len(seen) + 4) // 8 * 8) for k in range(3))


def bow(x, y, radius, begin, end):
    """Points of a part of a circle."""
    steps = max(2, math.ceil(abs(end - begin) / 6))
    angles = [math.radians(begin + (end - begin) * k / steps) for k in range(steps + 1)]
    return [(x + radius * math.cos(a), y + radius * math.sin(a)) for a in angles]


def gif(rows):
    """The bytes of a GIF of these rows of colours; its colour 0 is the transparent one."""
    colours = sorted({c for row in rows for c in row if c is not None})
    number = {c: k + 1 for k, c in enumerate(colours)}
    number[None] = 0
    bits = max(2, len(colours).bit_length())
    table = b"".join(bytes(c) for c in [(255, 255, 255)] + colours).ljust(3 << bits, b"\0")
    high, wide = (n.to_bytes(2, "little") for n in (len(rows), len(rows[0])))
    packed = compressed(bytes(number[c] for row in rows for c in row), bits)
    blocks = b"".join(bytes([len(packed[k:k + 255])]) + packed[k:k + 255] for k in range(0, len(packed), 255))
    return (b"GIF89a" + wide + high + bytes([0xF0 | bits - 1, 0, 0]) + table +
            b"\x21\xF9\x04\x01\0\0\0\0" +                       # colour 0 is transparent
            b"\x2C\0\0\0\0" + wide + high + b"\0" +
            bytes([bits]) + blocks + b"\0\x3B")


def compressed(numbers, bits):
    """The code stream of a GIF: numbers of `bits` bits as variable-length codes, lowest bit first."""
    clear, stop = 1 << bits, (1 << bits) + 1
    known, width, stream, length = {}, bits + 1, 0, 0

    def put(code):
        nonlocal stream, length
        stream |= code << length
        length += width

    put(clear)
    begun = b""
    for value in numbers:
        longer = begun + bytes([value])
        if len(longer) == 1 or longer in known:
            begun = longer
            continue
        put(known[begun] if len(begun) > 1 else begun[0])
        known[longer] = stop + 1 + len(known)  # 1024 pixels never fill the 4096 codes
        if known[longer] == 1 << width:
            width += 1
        begun = longer[-1:]
    put(known[begun] if len(begun) > 1 else begun[0])
    put(stop)
    return stream.to_bytes((length + 7) // 8, "little")
