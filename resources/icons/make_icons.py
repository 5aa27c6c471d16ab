#!/usr/bin/env python3
"""Draws the sample pictures the device seeding installs (scripts/seed-device.sh):

- category icons, 12 x 12 pixels on pure green (transparent), named after categories of the
  device's default set, into categories/;
- one icon set, sets/Flat.bmp: the nine item icons in a flat style, 16 x 16 each, side by side on
  magenta (transparent), in the order of the item flags 1, 2, 4 ... 256.

The shapes and the writer come from resources/display/make_bitmaps.py; the output is byte for
byte reproducible:

    python3 resources/icons/make_icons.py
"""

import importlib.util
import os

HERE = os.path.dirname(os.path.abspath(__file__))
_spec = importlib.util.spec_from_file_location(
    "make_bitmaps", os.path.join(HERE, "..", "display", "make_bitmaps.py"))
mb = importlib.util.module_from_spec(_spec)
_spec.loader.exec_module(mb)

GREEN = (0, 255, 0)
MAGENTA = (255, 0, 255)
WHITE = mb.WHITE


# ---- Category icons (12 units) -----------------------------------------------------------------
def business(c):
    brown = (120, 80, 40)
    c.draw(mb.rounded_rect(1, 3.5, 11, 11, 1), brown)
    c.draw(mb.rounded_rect(2, 4.5, 10, 10, 0.6), (180, 130, 70))
    c.draw(mb.difference(mb.rect(4, 1.5, 8, 4), mb.rect(5, 2.5, 7, 4)), brown)
    c.draw(mb.rect(1.5, 6.8, 10.5, 7.6), brown)


def personal(c):
    blue = (40, 100, 200)
    c.draw(mb.ellipse(6, 3.5, 2.5), blue)
    c.draw(mb.intersect(mb.ellipse(6, 11.5, 5, 5), mb.rect(0, 0, 12, 11.5)), blue)


def holiday(c):
    yellow = (245, 180, 20)
    for i in range(8):
        x0, y0 = mb.point_on_circle(6, 6, 3.2, i * 45)
        x1, y1 = mb.point_on_circle(6, 6, 5.5, i * 45)
        c.draw(mb.segment(x0, y0, x1, y1, 1.1), yellow)
    c.draw(mb.ellipse(6, 6, 2.8), (250, 140, 20))


def travel(c):
    grey = (70, 90, 120)
    c.draw(mb.segment(6, 1, 6, 10.5, 1.8), grey)
    c.draw(mb.polygon([(1, 7), (6, 4.5), (11, 7), (11, 8), (6, 6.5), (1, 8)]), grey)
    c.draw(mb.polygon([(3.8, 11), (6, 9.5), (8.2, 11)]), grey)


def family(c):
    red = (190, 50, 40)
    c.draw(mb.polygon([(0.5, 6), (6, 1), (11.5, 6)]), red)
    c.draw(mb.rect(2, 5.5, 10, 11), (230, 200, 150))
    c.draw(mb.rect(5, 7.5, 7, 11), (120, 80, 40))


def gifts(c):
    purple = (150, 60, 170)
    c.draw(mb.rect(1.5, 4.5, 10.5, 11), purple)
    c.draw(mb.rect(1, 3.5, 11, 5.5), mb.shade(purple, 0.7))
    c.draw(mb.rect(5.2, 3.5, 6.8, 11), (250, 210, 60))
    c.draw(mb.ellipse(4.2, 2.4, 1.6, 1.1), (250, 210, 60))
    c.draw(mb.ellipse(7.8, 2.4, 1.6, 1.1), (250, 210, 60))


CATEGORY_ICONS = [("Business", business), ("Personal", personal), ("Holiday", holiday),
                  ("Travel", travel), ("Family", family), ("Gifts", gifts)]


# ---- The flat icon set (16 units): a coloured disc or square with a white sign -----------------
def badge(c, colour, square=False):
    shape = mb.rounded_rect(1, 1, 15, 15, 2.5) if square else mb.ellipse(8, 8, 7)
    c.draw(shape, colour)


def flat_note(c):
    badge(c, (230, 170, 20), True)
    for y in (4.5, 7.5, 10.5):
        c.draw(mb.rect(4, y, 12, y + 1.4), WHITE)


def flat_reminder(c):
    badge(c, (240, 120, 20))
    c.draw(mb.segment(8, 4, 8, 8.5, 1.6), WHITE)
    c.draw(mb.segment(8, 8.5, 11, 10, 1.6), WHITE)


def flat_recurring(c):
    badge(c, (40, 110, 210))
    c.draw(mb.arc(8, 8, 3.8, 1.6, 30, 330), WHITE)
    c.draw(mb.arrow_head(8, 8, 3.8, 30, 2.6, True), WHITE)


def flat_private(c):
    badge(c, (100, 110, 130), True)
    c.draw(mb.ellipse(8, 6.5, 2), WHITE)
    c.draw(mb.polygon([(7, 7), (9, 7), (9.8, 12), (6.2, 12)]), WHITE)


def flat_category(c):
    badge(c, (236, 120, 30))
    c.draw(mb.difference(mb.polygon([(3.5, 8), (6.5, 5), (12, 5), (12, 11), (6.5, 11)]), mb.ellipse(6.6, 8, 1)), WHITE)


def flat_priority(c):
    badge(c, (210, 30, 30))
    c.draw(mb.segment(8, 3.8, 8, 9, 2), WHITE)
    c.draw(mb.ellipse(8, 11.6, 1.2), WHITE)


def flat_regenerated(c):
    badge(c, (40, 150, 60))
    c.draw(mb.polyline([(4.6, 8.2), (7, 10.6), (11.4, 5.4)], 1.8), WHITE)


def flat_meeting(c):
    badge(c, (30, 150, 150))
    for cx in (5.6, 10.4):
        c.draw(mb.ellipse(cx, 6.2, 1.6), WHITE)
        c.draw(mb.intersect(mb.ellipse(cx, 11.8, 2.6, 3), mb.rect(0, 0, 16, 12)), WHITE)


def flat_category_color(c):
    for (x, y), colour in zip(((1, 1), (8, 1), (1, 8), (8, 8)),
                              ((220, 50, 50), (40, 160, 70), (40, 110, 220), (250, 200, 30))):
        c.draw(mb.rounded_rect(x, y, x + 7, y + 7, 1.5), colour)


FLAT_SET = [flat_note, flat_reminder, flat_recurring, flat_private, flat_category, flat_priority,
            flat_regenerated, flat_meeting, flat_category_color]


def main():
    os.makedirs(os.path.join(HERE, "categories"), exist_ok=True)
    os.makedirs(os.path.join(HERE, "sets"), exist_ok=True)
    for name, paint in CATEGORY_ICONS:
        rows = mb.strip([paint], 12, 12, 1, GREEN, None)
        mb.write_bmp(os.path.join(HERE, "categories", name + ".bmp"), rows, 96)
    mb.write_bmp(os.path.join(HERE, "sets", "Flat.bmp"), mb.strip(FLAT_SET, 16, 16, 1, MAGENTA, None), 96)


if __name__ == "__main__":
    main()
