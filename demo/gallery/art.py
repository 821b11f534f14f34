#!/usr/bin/env python3
"""Draws the gallery's toolbar strips (16 x 15 images in the 16 standard
colours, 4 bits per pixel as toolbars are usually kept, so that the system
colours are remapped; the button face grey as background, which the toolbar
masks out) and writes them as Windows BMP files beside this script."""
import os
import struct

FACE = (192, 192, 192)
W, H = 16, 15


def blank():
    return [[FACE for _ in range(W)] for _ in range(H)]


def rect(img, x0, y0, x1, y1, c, fill=None):
    for y in range(y0, y1 + 1):
        for x in range(x0, x1 + 1):
            edge = x in (x0, x1) or y in (y0, y1)
            if edge:
                img[y][x] = c
            elif fill is not None:
                img[y][x] = fill


def line(img, x0, y0, x1, y1, c):
    n = max(abs(x1 - x0), abs(y1 - y0), 1)
    for i in range(n + 1):
        img[round(y0 + (y1 - y0) * i / n)][round(x0 + (x1 - x0) * i / n)] = c


BLACK, WHITE, GREY = (0, 0, 0), (255, 255, 255), (128, 128, 128)
NAVY, BLUE, YELLOW = (0, 0, 128), (0, 0, 255), (255, 255, 0)
OLIVE, RED, GREEN = (128, 128, 0), (255, 0, 0), (0, 128, 0)


def page():
    i = blank()
    rect(i, 3, 1, 12, 14, BLACK, WHITE)
    line(i, 9, 1, 12, 4, BLACK)
    for y in (5, 7, 9, 11):
        line(i, 5, y, 10, y, GREY)
    return i


def folder():
    i = blank()
    rect(i, 1, 4, 14, 13, BLACK, YELLOW)
    rect(i, 2, 2, 6, 4, BLACK, YELLOW)
    line(i, 2, 7, 13, 7, OLIVE)
    return i


def disk():
    i = blank()
    rect(i, 1, 1, 14, 14, BLACK, NAVY)
    rect(i, 4, 2, 11, 7, BLACK, WHITE)
    rect(i, 5, 10, 10, 13, BLACK, GREY)
    return i


def cut():
    i = blank()
    line(i, 4, 1, 10, 9, BLACK)
    line(i, 11, 1, 5, 9, BLACK)
    rect(i, 2, 9, 6, 13, BLUE)
    rect(i, 9, 9, 13, 13, BLUE)
    return i


def copy():
    i = blank()
    rect(i, 1, 1, 8, 10, BLACK, WHITE)
    rect(i, 6, 4, 14, 14, BLACK, WHITE)
    for y in (7, 9, 11):
        line(i, 8, y, 12, y, NAVY)
    return i


def paste():
    i = blank()
    rect(i, 2, 2, 11, 13, BLACK, OLIVE)
    rect(i, 5, 1, 8, 3, BLACK, GREY)
    rect(i, 7, 6, 14, 14, BLACK, WHITE)
    return i


def printer():
    i = blank()
    rect(i, 4, 1, 11, 6, BLACK, WHITE)
    rect(i, 1, 6, 14, 11, BLACK, (192, 192, 192))
    rect(i, 4, 10, 11, 14, BLACK, WHITE)
    i[8][12] = GREEN
    return i


def help_():
    i = blank()
    rect(i, 3, 1, 12, 13, NAVY, BLUE)
    for x, y in ((6, 4), (7, 3), (8, 3), (9, 4), (9, 5), (8, 6), (7, 7), (7, 8), (7, 11)):
        i[y][x] = WHITE
    return i


def welcome():
    i = blank()
    rect(i, 1, 2, 14, 13, BLACK, WHITE)
    rect(i, 1, 2, 14, 4, BLACK, NAVY)
    line(i, 3, 7, 12, 7, GREY)
    line(i, 3, 10, 9, 10, GREY)
    return i


def controls():
    i = blank()
    rect(i, 1, 4, 14, 10, BLACK, WHITE)
    rect(i, 10, 5, 13, 9, GREY, (192, 192, 192))
    line(i, 11, 6, 12, 6, BLACK)
    i[7][11] = BLACK
    i[7][12] = BLACK
    line(i, 3, 7, 7, 7, BLACK)
    return i


def grid():
    i = blank()
    rect(i, 1, 1, 14, 13, BLACK, WHITE)
    for x in (5, 10):
        line(i, x, 1, x, 13, GREY)
    for y in (5, 9):
        line(i, 1, y, 14, y, GREY)
    rect(i, 5, 5, 10, 9, RED)
    return i


# The 16 standard colours, in the order of the usual 16-colour palette.
PALETTE = [(0, 0, 0), (128, 0, 0), (0, 128, 0), (128, 128, 0), (0, 0, 128), (128, 0, 128),
           (0, 128, 128), (192, 192, 192), (128, 128, 128), (255, 0, 0), (0, 255, 0),
           (255, 255, 0), (0, 0, 255), (255, 0, 255), (0, 255, 255), (255, 255, 255)]


def write_bmp(path, images):
    width, height = W * len(images), H
    row = ((width * 4 + 31) // 32) * 4
    data = bytearray()
    for y in range(height - 1, -1, -1):
        pixels = [PALETTE.index(img[y][x]) for img in images for x in range(W)]
        if len(pixels) % 2:
            pixels.append(0)
        line_ = bytes((pixels[k] << 4) | pixels[k + 1] for k in range(0, len(pixels), 2))
        data += line_ + bytes(row - len(line_))
    table = b''.join(bytes((b, g, r, 0)) for r, g, b in PALETTE)
    offset = 14 + 40 + len(table)
    header = struct.pack('<2sIHHI', b'BM', offset + len(data), 0, 0, offset)
    info = struct.pack('<IiiHHIIiiII', 40, width, height, 1, 4, 0, len(data), 2835, 2835, 16, 0)
    with open(path, 'wb') as f:
        f.write(header + info + table + data)


here = os.path.dirname(os.path.abspath(__file__))
write_bmp(os.path.join(here, 'toolbar_main.bmp'), [page(), folder(), disk(), cut(), copy(), paste(), printer(), help_()])
write_bmp(os.path.join(here, 'toolbar_pages.bmp'), [welcome(), controls(), grid(), printer()])
