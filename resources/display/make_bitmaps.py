#!/usr/bin/env python3
"""Draws the images of the display libraries and the program icon.

Every image is a set of vector shapes in design units, rasterised at the target resolution
(96 dpi: one unit = 1 pixel; 192 dpi: one unit = 2 pixels) with 4 x 4 samples per pixel, so both
libraries are drawn for their resolution rather than scaled up from each other. Only the Python
standard library is used and the output is byte for byte reproducible:

    python3 resources/display/make_bitmaps.py

writes resources/display/*_96dpi.bmp, resources/display/*_192dpi.bmp and resources/program.ico.
The bitmaps are 24-bit BMP files; transparent parts are filled with each bitmap's mask colour.
"""

import math
import os
import struct

SAMPLES = 4  # samples per pixel along each axis

# ---- Colours -----------------------------------------------------------------------------------
WHITE = (255, 255, 255)
BLACK = (0, 0, 0)
INK = (40, 48, 60)


def shade(colour, factor):
    """Darker (factor < 1) or lighter (factor > 1, towards white) variant of a colour."""
    if factor <= 1:
        return tuple(int(round(c * factor)) for c in colour)
    t = factor - 1
    return tuple(int(round(c + (255 - c) * t)) for c in colour)


def vertical_gradient(top_colour, bottom_colour, y0, y1):
    def fill(x, y):
        t = min(1.0, max(0.0, (y - y0) / float(y1 - y0)))
        return tuple(int(round(a + (b - a) * t)) for a, b in zip(top_colour, bottom_colour))
    return fill


# ---- Shapes: predicates in design units with a bounding box -------------------------------------
class Shape:
    def __init__(self, box, inside):
        self.box = box          # (x0, y0, x1, y1) in design units
        self.inside = inside    # (x, y) -> bool


def rect(x0, y0, x1, y1):
    return Shape((x0, y0, x1, y1), lambda x, y: x0 <= x < x1 and y0 <= y < y1)


def rounded_rect(x0, y0, x1, y1, r):
    def inside(x, y):
        if not (x0 <= x < x1 and y0 <= y < y1):
            return False
        cx = min(max(x, x0 + r), x1 - r)
        cy = min(max(y, y0 + r), y1 - r)
        return (x - cx) ** 2 + (y - cy) ** 2 <= r * r
    return Shape((x0, y0, x1, y1), inside)


def ellipse(cx, cy, rx, ry=None):
    ry = rx if ry is None else ry
    return Shape((cx - rx, cy - ry, cx + rx, cy + ry),
                 lambda x, y: ((x - cx) / rx) ** 2 + ((y - cy) / ry) ** 2 <= 1.0)


def polygon(points):
    xs = [p[0] for p in points]
    ys = [p[1] for p in points]

    def inside(x, y):
        result = False
        j = len(points) - 1
        for i in range(len(points)):
            xi, yi = points[i]
            xj, yj = points[j]
            if (yi > y) != (yj > y) and x < (xj - xi) * (y - yi) / (yj - yi) + xi:
                result = not result
            j = i
        return result
    return Shape((min(xs), min(ys), max(xs), max(ys)), inside)


def segment(x0, y0, x1, y1, width, round_caps=True):
    """A thick line; with round caps it is a capsule."""
    half = width / 2.0
    dx, dy = x1 - x0, y1 - y0
    length_sq = dx * dx + dy * dy or 1e-9

    def inside(x, y):
        t = ((x - x0) * dx + (y - y0) * dy) / length_sq
        if not round_caps and (t < 0 or t > 1):
            return False
        t = min(1.0, max(0.0, t))
        px, py = x0 + t * dx, y0 + t * dy
        return (x - px) ** 2 + (y - py) ** 2 <= half * half
    return Shape((min(x0, x1) - half, min(y0, y1) - half, max(x0, x1) + half, max(y0, y1) + half), inside)


def polyline(points, width):
    parts = [segment(points[i][0], points[i][1], points[i + 1][0], points[i + 1][1], width)
             for i in range(len(points) - 1)]
    return union(parts)


def union(shapes):
    box = (min(s.box[0] for s in shapes), min(s.box[1] for s in shapes),
           max(s.box[2] for s in shapes), max(s.box[3] for s in shapes))
    return Shape(box, lambda x, y: any(s.inside(x, y) for s in shapes))


def intersect(a, b):
    box = (max(a.box[0], b.box[0]), max(a.box[1], b.box[1]), min(a.box[2], b.box[2]), min(a.box[3], b.box[3]))
    return Shape(box, lambda x, y: a.inside(x, y) and b.inside(x, y))


def difference(shape, *holes):
    return Shape(shape.box, lambda x, y: shape.inside(x, y) and not any(h.inside(x, y) for h in holes))


def arc(cx, cy, radius, width, start_deg, end_deg):
    """A circular band between two angles (degrees, counter-clockwise from east, y down)."""
    half = width / 2.0
    span = (end_deg - start_deg) % 360

    def inside(x, y):
        d = math.hypot(x - cx, y - cy)
        if abs(d - radius) > half:
            return False
        angle = math.degrees(math.atan2(cy - y, x - cx)) % 360
        return (angle - start_deg) % 360 <= span
    r = radius + half
    return Shape((cx - r, cy - r, cx + r, cy + r), inside)


def point_on_circle(cx, cy, radius, deg):
    return (cx + radius * math.cos(math.radians(deg)), cy - radius * math.sin(math.radians(deg)))


def arrow_head(cx, cy, radius, deg, size, clockwise):
    """Triangle at angle `deg` of a circle, pointing along the circle."""
    tip_deg = deg - size / radius * 57.3 if clockwise else deg + size / radius * 57.3
    tip = point_on_circle(cx, cy, radius, tip_deg)
    inner = point_on_circle(cx, cy, radius - size * 0.9, deg)
    outer = point_on_circle(cx, cy, radius + size * 0.9, deg)
    return polygon([inner, outer, tip])


def gear(cx, cy, outer, inner, teeth, tooth_width_deg):
    """Gear outline: a disc of radius `inner` with `teeth` rectangular teeth out to `outer`."""
    def inside(x, y):
        d = math.hypot(x - cx, y - cy)
        if d <= inner:
            return True
        if d > outer:
            return False
        angle = math.degrees(math.atan2(y - cy, x - cx)) % (360.0 / teeth)
        half_width = tooth_width_deg / 2.0 * (inner / d) ** 0.35  # slightly tapered teeth
        return angle <= half_width or angle >= 360.0 / teeth - half_width
    return Shape((cx - outer, cy - outer, cx + outer, cy + outer), inside)


def glyph_a(x0, y0, height):
    """A bold capital A with a counter, `height` units tall, left edge at x0."""
    w = height * 0.9
    stroke = height * 0.24
    apex_half = stroke * 0.55
    outer = polygon([(x0, y0 + height), (x0 + w / 2 - apex_half, y0), (x0 + w / 2 + apex_half, y0),
                     (x0 + w, y0 + height), (x0 + w - stroke, y0 + height),
                     (x0 + w / 2, y0 + height * 0.22), (x0 + stroke, y0 + height)])
    bar = polygon([(x0 + w * 0.27, y0 + height * 0.58), (x0 + w * 0.73, y0 + height * 0.58),
                   (x0 + w * 0.79, y0 + height * 0.76), (x0 + w * 0.21, y0 + height * 0.76)])
    return union([outer, bar])


# ---- Canvas ------------------------------------------------------------------------------------
class Canvas:
    """Samples of one image; None is a transparent sample."""

    def __init__(self, units_w, units_h, scale):
        self.scale = scale
        self.w = int(round(units_w * scale))
        self.h = int(round(units_h * scale))
        self.sw = self.w * SAMPLES
        self.sh = self.h * SAMPLES
        self.samples = [None] * (self.sw * self.sh)

    def draw(self, shape, fill):
        """Paints the shape; fill is a colour, a function (x, y) -> colour, or None to erase."""
        unit = 1.0 / (self.scale * SAMPLES)
        x0, y0, x1, y1 = shape.box
        sx0 = max(0, int(math.floor(x0 * self.scale * SAMPLES)))
        sy0 = max(0, int(math.floor(y0 * self.scale * SAMPLES)))
        sx1 = min(self.sw, int(math.ceil(x1 * self.scale * SAMPLES)) + 1)
        sy1 = min(self.sh, int(math.ceil(y1 * self.scale * SAMPLES)) + 1)
        constant = not callable(fill)
        for sy in range(sy0, sy1):
            y = (sy + 0.5) * unit
            row = sy * self.sw
            for sx in range(sx0, sx1):
                x = (sx + 0.5) * unit
                if shape.inside(x, y):
                    self.samples[row + sx] = fill if constant else fill(x, y)

    def outlined(self, shape, fill, outline, width=1.0):
        """Paints the shape with an outline `width` units wide inside its edge."""
        self.draw(shape, outline)
        self.draw(inset(shape, width), fill)

    def pixels(self):
        """Yields rows of (coverage, average colour of the covered samples)."""
        n = SAMPLES * SAMPLES
        for py in range(self.h):
            row = []
            for px in range(self.w):
                r = g = b = count = 0
                for sy in range(py * SAMPLES, (py + 1) * SAMPLES):
                    base = sy * self.sw + px * SAMPLES
                    for c in self.samples[base:base + SAMPLES]:
                        if c is not None:
                            r += c[0]
                            g += c[1]
                            b += c[2]
                            count += 1
                if count:
                    row.append((count / float(n), (r / count, g / count, b / count)))
                else:
                    row.append((0.0, None))
            yield row


def inset(shape, width):
    """The part of a shape at least `width` units away from its outside (sampled test)."""
    offsets = [(width * math.cos(a), width * math.sin(a)) for a in [i * math.pi / 4 for i in range(8)]]
    x0, y0, x1, y1 = shape.box
    return Shape((x0 + width, y0 + width, x1 - width, y1 - width),
                 lambda x, y: all(shape.inside(x + dx, y + dy) for dx, dy in offsets))


def inflate(shape, width):
    """The shape grown by `width` units on every side (sampled test)."""
    offsets = [(0, 0)] + [(width * math.cos(a), width * math.sin(a)) for a in [i * math.pi / 4 for i in range(8)]]
    x0, y0, x1, y1 = shape.box
    return Shape((x0 - width, y0 - width, x1 + width, y1 + width),
                 lambda x, y: any(shape.inside(x + dx, y + dy) for dx, dy in offsets))


def resolve(canvas, mask, matte):
    """RGB rows of a canvas: transparent pixels get the mask colour. With a matte colour, edge
    pixels are blended with it (for images shown on that background); without one, a pixel is
    opaque when at least half of it is covered."""
    rows = []
    for row in canvas.pixels():
        out = []
        for coverage, colour in row:
            if matte is None:
                value = colour if coverage >= 0.5 else None
            elif coverage < 0.25:
                value = None
            else:
                value = tuple(c * coverage + m * (1 - coverage) for c, m in zip(colour, matte))
            if value is None:
                out.append(mask)
                continue
            value = tuple(int(round(c)) for c in value)
            if value == mask:
                value = (value[0], value[1] ^ 1, value[2])  # never the mask colour by accident
            out.append(value)
        rows.append(out)
    return rows


# ---- BMP and ICO writers -----------------------------------------------------------------------
def write_bmp(path, rows, dpi):
    height = len(rows)
    width = len(rows[0])
    stride = (width * 3 + 3) & ~3
    ppm = int(round(dpi / 0.0254))
    data = bytearray()
    for row in reversed(rows):
        line = bytearray()
        for r, g, b in row:
            line += bytes((b, g, r))
        line += b"\0" * (stride - len(line))
        data += line
    header = struct.pack("<2sIHHI", b"BM", 14 + 40 + len(data), 0, 0, 14 + 40)
    info = struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, len(data), ppm, ppm, 0, 0)
    with open(path, "wb") as f:
        f.write(header + info + data)


def write_ico(path, canvases):
    images = []
    for canvas in canvases:
        size = canvas.w
        xor = bytearray()
        and_stride = ((size + 31) // 32) * 4
        and_mask = bytearray()
        rows = list(canvas.pixels())
        for row in reversed(rows):
            mask_row = bytearray(and_stride)
            for x, (coverage, colour) in enumerate(row):
                alpha = int(round(coverage * 255))
                r, g, b = (int(round(c)) for c in colour) if colour else (0, 0, 0)
                xor += bytes((b, g, r, alpha))
                if alpha == 0:
                    mask_row[x // 8] |= 0x80 >> (x % 8)
            and_mask += mask_row
        info = struct.pack("<IiiHHIIiiII", 40, size, size * 2, 1, 32, 0, len(xor) + len(and_mask), 0, 0, 0, 0)
        images.append((size, info + xor + and_mask))
    header = struct.pack("<HHH", 0, 1, len(images))
    offset = 6 + 16 * len(images)
    entries = b""
    blobs = b""
    for size, blob in images:
        entries += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(blob), offset + len(blobs))
        blobs += blob
    with open(path, "wb") as f:
        f.write(header + entries + blobs)


# ---- Page icons (32 units) ---------------------------------------------------------------------
def icon_general(c):
    steel = (88, 124, 166)
    c.draw(gear(16, 16, 14.5, 11, 8, 22), shade(steel, 0.55))
    c.draw(gear(16, 16, 13.5, 10, 8, 19), vertical_gradient(shade(steel, 1.35), steel, 2, 30))
    c.draw(ellipse(16, 16, 6.5), shade(steel, 0.55))
    c.draw(ellipse(16, 16, 5.5), shade(steel, 1.6))
    c.draw(ellipse(16, 16, 3.5), None)


def icon_calendar(c):
    red = (214, 48, 49)
    c.draw(rounded_rect(3, 5, 29, 30, 2.5), INK)
    c.draw(rounded_rect(4, 6, 28, 29, 1.6), WHITE)
    c.draw(rect(4, 6, 28, 12), vertical_gradient(shade(red, 1.2), red, 6, 12))
    for x in (9, 23):
        c.draw(rounded_rect(x - 1.5, 2, x + 1.5, 9, 1.5), INK)
        c.draw(rect(x - 0.5, 3, x + 0.5, 8), (200, 205, 215))
    for row in range(3):
        for col in range(4):
            x = 6 + col * 5.5
            y = 14 + row * 5
            colour = red if (row, col) == (1, 2) else (176, 186, 200)
            c.draw(rect(x, y, x + 3.5, y + 3), colour)


def icon_tasks(c):
    board = (164, 110, 60)
    green = (46, 160, 67)
    c.draw(rounded_rect(4, 3, 28, 31, 2.5), shade(board, 0.6))
    c.draw(rounded_rect(5, 4, 27, 30, 1.8), board)
    c.draw(rect(7, 7, 25, 28), WHITE)
    c.draw(rounded_rect(11, 1.5, 21, 7, 1.5), (120, 128, 140))
    c.draw(rect(12, 3, 20, 6), (200, 206, 214))
    for i, done in enumerate((True, True, False)):
        y = 10 + i * 6
        c.draw(rect(9, y, 14, y + 5), INK)
        c.draw(rect(10, y + 1, 13, y + 4), WHITE)
        c.draw(rect(16, y + 2, 23, y + 3), (150, 160, 175))
        if done:
            c.draw(polyline([(9.8, y + 2.2), (11.5, y + 4), (15.5, y - 1)], 1.6), green)


def icon_notes(c):
    yellow = (252, 214, 80)
    c.draw(polygon([(4, 3), (28, 3), (28, 22), (21, 29), (4, 29)]), (170, 130, 20))
    c.draw(polygon([(5, 4), (27, 4), (27, 21.6), (20.6, 28), (5, 28)]),
           vertical_gradient(shade(yellow, 1.4), yellow, 4, 28))
    c.draw(polygon([(20, 28.5), (20, 21), (27.5, 21)]), (214, 170, 40))
    c.draw(rect(5, 4, 27, 8), (240, 180, 40))
    for y in (12, 16, 20):
        c.draw(rect(8, y, 24 if y < 20 else 18, y + 1), (176, 140, 60))
    # pencil across the corner
    c.draw(polygon([(17, 27), (29, 15), (31, 17), (19, 29), (16, 30)]), (60, 60, 70))
    c.draw(polygon([(18, 26.6), (28.6, 16), (30, 17.4), (19.4, 28)]), (230, 120, 40))
    c.draw(polygon([(16.6, 28.2), (18, 26.6), (19.4, 28), (17.4, 29.4)]), (240, 210, 170))


def icon_contacts(c):
    card = (94, 156, 222)
    c.draw(rounded_rect(1.5, 6, 30.5, 27, 2.5), shade(card, 0.55))
    c.draw(rounded_rect(2.5, 7, 29.5, 26, 1.8), vertical_gradient(shade(card, 1.75), shade(card, 1.45), 7, 26))
    c.draw(rect(2.5, 7, 29.5, 10), card)
    frame = rounded_rect(5, 12, 15, 24, 1.2)
    c.draw(frame, WHITE)
    c.draw(intersect(ellipse(10, 24, 4.6, 4), frame), (70, 110, 170))
    c.draw(ellipse(10, 16.8, 2.7, 3), (236, 188, 150))
    for y, right in ((14, 27), (18, 25), (22, 26)):
        c.draw(rect(17, y, right, y + 1.4), (70, 100, 140))


def icon_messages(c):
    blue = (52, 110, 190)
    c.draw(rect(2, 7, 30, 26), shade(blue, 0.6))
    c.draw(rect(3, 8, 29, 25), vertical_gradient(WHITE, (226, 234, 246), 8, 25))
    c.draw(polyline([(3.5, 24.5), (13, 17), (19, 17), (28.5, 24.5)], 1.1), (150, 170, 200))
    c.draw(polygon([(3, 8), (29, 8), (16, 18.5)]), shade(blue, 0.6))
    c.draw(polygon([(4.6, 8.6), (27.4, 8.6), (16, 17.3)]), vertical_gradient(shade(blue, 1.3), blue, 8, 18))
    c.draw(ellipse(16, 16, 2.4), (220, 60, 50))


def icon_special_events(c):
    red = (210, 40, 60)
    gold = (246, 196, 40)
    c.draw(rect(4, 15, 28, 30), shade(red, 0.55))
    c.draw(rect(5, 16, 27, 29), vertical_gradient(red, shade(red, 0.8), 16, 29))
    c.draw(rect(2.5, 10, 29.5, 16), shade(red, 0.55))
    c.draw(rect(3.5, 11, 28.5, 15), shade(red, 1.2))
    c.draw(rect(14, 10, 18, 30), shade(gold, 0.7))
    c.draw(rect(14.8, 11, 17.2, 29), gold)
    # bow
    c.draw(polygon([(16, 10), (7, 4), (6, 9.5)]), shade(gold, 0.7))
    c.draw(polygon([(16, 10), (25, 4), (26, 9.5)]), shade(gold, 0.7))
    c.draw(polygon([(15, 9.5), (8, 5.3), (7.4, 8.8)]), gold)
    c.draw(polygon([(17, 9.5), (24, 5.3), (24.6, 8.8)]), gold)
    c.draw(ellipse(16, 10, 2.2), shade(gold, 0.7))
    c.draw(ellipse(16, 10, 1.3), shade(gold, 1.3))


def icon_fonts(c):
    navy = (36, 60, 130)
    c.draw(glyph_a(3.5, 3.5, 23), (200, 210, 230))  # soft shadow
    c.draw(glyph_a(2, 2, 23), vertical_gradient((70, 100, 190), navy, 2, 25))
    orange = (236, 120, 30)
    # a small "a" in the corner
    c.draw(ellipse(25, 25, 4.8, 4.6), orange)
    c.draw(ellipse(25, 25, 2.4, 2.3), None)
    c.draw(rect(28, 20.5, 30.4, 30), orange)
    c.draw(rect(2, 28, 20, 30), orange)


def icon_colors(c):
    wood = (222, 180, 120)
    palette = difference(union([ellipse(16, 16, 14.5, 12), ellipse(9, 24, 7, 5)]), ellipse(21.5, 21.5, 2.8, 2.6),
                         ellipse(25.5, 29.5, 6.5, 4.5))
    c.draw(palette, shade(wood, 0.55))
    c.draw(inset(palette, 1), vertical_gradient(shade(wood, 1.3), wood, 4, 28))
    blobs = [((9, 11), (220, 40, 40)), ((15.5, 8), (250, 200, 30)), ((22.5, 9.5), (40, 170, 70)),
             ((26, 15.5), (40, 110, 220)), ((8, 18.5), (150, 60, 190))]
    for (x, y), colour in blobs:
        c.draw(ellipse(x, y, 3.2), shade(colour, 0.6))
        c.draw(ellipse(x, y, 2.4), colour)


def icon_pim(c):
    body = (70, 80, 96)
    c.draw(rounded_rect(7, 1.5, 25, 30.5, 3.5), shade(body, 0.6))
    c.draw(rounded_rect(8, 2.5, 24, 29.5, 2.8), vertical_gradient(shade(body, 1.4), body, 2, 30))
    c.draw(rect(10, 5, 22, 20), (30, 36, 44))
    c.draw(rect(11, 6, 21, 19), vertical_gradient((150, 220, 240), (70, 170, 210), 6, 19))
    c.draw(rect(11, 6, 21, 8), (40, 110, 180))
    for y in (10, 13, 16):
        c.draw(rect(12.5, y, 19.5, y + 1), (30, 90, 140))
    c.draw(ellipse(16, 24.5, 2.6), (30, 36, 44))
    c.draw(ellipse(16, 24.5, 1.8), (120, 200, 120))
    c.draw(ellipse(11, 24.5, 1.2), (200, 205, 215))
    c.draw(ellipse(21, 24.5, 1.2), (200, 205, 215))


def icon_tabs(c):
    colours = [(120, 170, 60), (60, 140, 210), (240, 140, 30)]
    outline = INK
    for i in (0, 1):
        x = 2 + i * 9
        c.draw(polygon([(x, 14), (x + 2, 6), (x + 10, 6), (x + 12, 14)]), outline)
        c.draw(polygon([(x + 1.2, 14), (x + 2.8, 7), (x + 9.2, 7), (x + 10.8, 14)]), colours[i])
    c.draw(rect(2, 13, 30, 30), outline)
    front = colours[2]
    c.draw(polygon([(18, 14), (20, 5), (28, 5), (30, 14)]), outline)
    c.draw(polygon([(19.2, 15), (20.8, 6), (27.2, 6), (28.8, 15)]), front)
    c.draw(rect(3, 14, 29, 29), vertical_gradient(front, shade(front, 1.5), 14, 29))
    for y in (18, 22):
        c.draw(rect(6, y, 25, y + 1.4), WHITE)


def icon_categories(c):
    def tag(dx, dy, colour):
        shape = polygon([(dx + 2, dy + 9), (dx + 9, dy + 2), (dx + 20, dy + 2), (dx + 20, dy + 16),
                         (dx + 9, dy + 16)])
        shape = difference(shape, ellipse(dx + 8, dy + 9, 1.8))
        c.draw(shape, shade(colour, 0.55))
        c.draw(inset(shape, 1), vertical_gradient(shade(colour, 1.3), colour, dy + 2, dy + 16))
    tag(10, 3, (60, 170, 90))
    tag(2, 13, (240, 130, 40))
    c.draw(polyline([(8.5, 22), (5, 27), (3, 29)], 1.0), INK)
    c.draw(rect(13, 18, 20, 19.4), (255, 236, 210))
    c.draw(rect(13, 21.5, 18, 22.9), (255, 236, 210))


PAGE_ICONS = [icon_general, icon_calendar, icon_tasks, icon_notes, icon_contacts, icon_messages,
              icon_special_events, icon_fonts, icon_colors, icon_pim, icon_tabs, icon_categories]


# ---- Menu bar buttons (16 units): 0 Cancel, 1 Done ----------------------------------------------
def button_cancel(c):
    red = (200, 40, 40)
    c.draw(union([segment(3.5, 3.5, 12.5, 12.5, 4.2), segment(12.5, 3.5, 3.5, 12.5, 4.2)]), shade(red, 0.55))
    c.draw(union([segment(3.5, 3.5, 12.5, 12.5, 2.4), segment(12.5, 3.5, 3.5, 12.5, 2.4)]), red)


def button_done(c):
    green = (30, 150, 50)
    c.draw(polyline([(2.5, 8.5), (6.2, 12.3), (13.5, 3.5)], 4.2), shade(green, 0.55))
    c.draw(polyline([(2.5, 8.5), (6.2, 12.3), (13.5, 3.5)], 2.4), green)


MENU_BUTTONS = [button_cancel, button_done]


# ---- Up-folder icon (20 units) -------------------------------------------------------------------
def up_folder(c):
    yellow = (240, 196, 70)
    edge = (150, 110, 20)
    c.draw(polygon([(1, 5), (7, 5), (9, 7), (19, 7), (19, 18), (1, 18)]), edge)
    c.draw(polygon([(2, 6), (6.6, 6), (8.6, 8), (18, 8), (18, 17), (2, 17)]),
           vertical_gradient(shade(yellow, 1.3), yellow, 6, 17))
    c.draw(rect(2, 9.5, 18, 10.5), shade(yellow, 0.8))
    arrow = polygon([(10, 1), (16, 7.5), (12.3, 7.5), (12.3, 15), (7.7, 15), (7.7, 7.5), (4, 7.5)])
    c.draw(arrow, (20, 90, 30))
    c.draw(inset(arrow, 0.8), (60, 170, 70))


# ---- Preview arrows (20 x 12 units): lower format (left half), raise format (right half) ----------
def preview_arrows(c):
    blue = (40, 80, 150)
    left = polygon([(1, 6), (9, 1), (9, 11)])
    right = polygon([(19, 6), (11, 1), (11, 11)])
    for shape in (left, right):
        c.draw(shape, shade(blue, 0.6))
        c.draw(inset(shape, 0.9), vertical_gradient(shade(blue, 1.6), blue, 1, 11))


# ---- Item icons (16 units), in the order of the item flags 1, 2, 4 ... 256 ------------------------
def item_note(c):
    c.draw(polygon([(3, 1.5), (13, 1.5), (13, 10.5), (9, 14.5), (3, 14.5)]), (150, 115, 20))
    c.draw(polygon([(4, 2.5), (12, 2.5), (12, 10), (8.5, 13.5), (4, 13.5)]), (252, 220, 90))
    c.draw(polygon([(8.4, 14), (8.4, 10), (12.5, 10)]), (214, 170, 40))
    for y in (5, 7.5):
        c.draw(rect(5.5, y, 10.5, y + 1), (170, 130, 40))


def item_reminder(c):
    gold = (232, 170, 20)
    bell = union([ellipse(8, 6.5, 4.3, 4.5), polygon([(3.7, 6.5), (12.3, 6.5), (13.8, 12), (2.2, 12)])])
    c.draw(bell, shade(gold, 0.5))
    c.draw(inset(bell, 1), vertical_gradient(shade(gold, 1.5), gold, 2, 12))
    c.draw(rect(1.5, 11, 14.5, 12.6), shade(gold, 0.5))
    c.draw(ellipse(8, 13.8, 1.8), shade(gold, 0.5))
    c.draw(ellipse(8, 1.6, 1.2), shade(gold, 0.5))


def item_recurring(c):
    blue = (40, 110, 200)
    c.draw(arc(8, 8, 5, 2.2, 20, 160), blue)
    c.draw(arrow_head(8, 8, 5, 20, 3, True), blue)
    c.draw(arc(8, 8, 5, 2.2, 200, 340), blue)
    c.draw(arrow_head(8, 8, 5, 200, 3, True), blue)


def item_private(c):
    grey = (110, 120, 135)
    c.draw(arc(8, 7, 3.6, 2, 0, 180), grey)
    c.draw(rect(3.4, 6.8, 5.4, 8), grey)
    c.draw(rect(10.6, 6.8, 12.6, 8), grey)
    body = rounded_rect(2.5, 7.5, 13.5, 15, 1.2)
    c.draw(body, (150, 100, 10))
    c.draw(inset(body, 1), vertical_gradient((252, 210, 80), (224, 160, 30), 8, 15))
    c.draw(ellipse(8, 10.5, 1.3), (90, 60, 10))
    c.draw(rect(7.4, 10.5, 8.6, 13.2), (90, 60, 10))


def item_category(c):
    orange = (236, 120, 30)
    shape = difference(polygon([(1, 8), (6.5, 2.5), (15, 2.5), (15, 13.5), (6.5, 13.5)]), ellipse(6, 8, 1.5))
    c.draw(shape, shade(orange, 0.55))
    c.draw(inset(shape, 1), vertical_gradient(shade(orange, 1.35), orange, 2.5, 13.5))


def item_regenerated(c):
    green = (40, 150, 60)
    c.draw(arc(8, 8.3, 5.4, 2.2, 60, 390), green)
    c.draw(arrow_head(8, 8.3, 5.4, 60, 3.2, False), green)
    c.draw(polyline([(5.3, 8.4), (7.3, 10.4), (10.8, 6.2)], 1.6), shade(green, 0.7))


def item_priority(c):
    red = (210, 30, 30)
    c.draw(polygon([(5.2, 1), (10.8, 1), (9.4, 10.5), (6.6, 10.5)]), red)
    c.draw(ellipse(8, 13.3, 1.9), red)


def item_meeting(c):
    def person(cx, top, colour):
        body = intersect(ellipse(cx, top + 10, 4.4, 5), rect(0, 0, 16, 15))
        head = ellipse(cx, top + 2.6, 2.5)
        return body, head, colour
    back = person(10.8, 1.5, (40, 160, 160))
    front = person(5.4, 3, (40, 90, 200))
    c.draw(back[0], back[2])
    c.draw(back[1], back[2])
    c.draw(union([inflate(front[0], 0.9), inflate(front[1], 0.9)]), WHITE)
    c.draw(front[0], front[2])
    c.draw(front[1], front[2])


def item_category_color(c):
    c.draw(rect(2, 2, 14, 14), INK)
    c.draw(rect(3, 3, 8, 8), (220, 50, 50))
    c.draw(rect(8, 3, 13, 8), (40, 160, 70))
    c.draw(rect(3, 8, 8, 13), (40, 110, 220))
    c.draw(rect(8, 8, 13, 13), (250, 200, 30))


ITEM_ICONS = [item_note, item_reminder, item_recurring, item_private, item_category, item_priority,
              item_regenerated, item_meeting, item_category_color]


# ---- Program icon ------------------------------------------------------------------------------
def program_icon(c):
    blue = (40, 96, 180)
    c.draw(rounded_rect(1, 1, 31, 31, 6), shade(blue, 0.6))
    c.draw(rounded_rect(2, 2, 30, 30, 5), vertical_gradient(shade(blue, 1.4), blue, 2, 30))
    c.draw(gear(16, 16, 11.5, 8.5, 8, 22), WHITE)
    c.draw(ellipse(16, 16, 4.2), vertical_gradient(shade(blue, 1.3), blue, 12, 20))
    c.draw(ellipse(16, 16, 2), WHITE)


# ---- Strips ------------------------------------------------------------------------------------
def strip(painters, unit_w, unit_h, scale, mask, matte):
    rows = None
    for paint in painters:
        canvas = Canvas(unit_w, unit_h, scale)
        paint(canvas)
        image = resolve(canvas, mask, matte)
        rows = image if rows is None else [a + b for a, b in zip(rows, image)]
    return rows


MASK_MENU_BUTTONS = (0xDE, 0xCF, 0xC6)  # COLORREF 0x00C6CFDE
MASK_GREEN = (0, 255, 0)                # page icons and up-folder icon
MASK_RED = (255, 0, 0)                  # preview arrows
MASK_MAGENTA = (255, 0, 255)            # item icons

BITMAPS = [
    # file name stem, painters, image width and height in units, mask colour, matte colour
    ("menu_buttons", MENU_BUTTONS, 16, 16, MASK_MENU_BUTTONS, None),
    ("page_icons", PAGE_ICONS, 32, 32, MASK_GREEN, WHITE),
    ("up_folder", [up_folder], 20, 20, MASK_GREEN, WHITE),
    ("preview_arrows", [preview_arrows], 20, 12, MASK_RED, WHITE),
    ("item_icons", ITEM_ICONS, 16, 16, MASK_MAGENTA, None),
]


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    for scale, dpi in ((1, 96), (2, 192)):
        for name, painters, unit_w, unit_h, mask, matte in BITMAPS:
            rows = strip(painters, unit_w, unit_h, scale, mask, matte)
            write_bmp(os.path.join(here, "%s_%ddpi.bmp" % (name, dpi)), rows, dpi)
    icons = []
    for size in (16, 32):
        canvas = Canvas(32, 32, size / 32.0)
        program_icon(canvas)
        icons.append(canvas)
    write_ico(os.path.join(here, "..", "program.ico"), icons)


if __name__ == "__main__":
    main()
