#!/usr/bin/env python3
"""Draws every picture of the example packages.

    /usr/bin/python3 examples/tools/make-images.py [NAME ...]

Needs numpy and PIL (Debian: python3-numpy python3-pil) and the DejaVu fonts. Each picture is a function of fixed
random seeds, so a second run draws the same pictures. NAME limits the run to pictures whose path contains it.
"""

import math
import sys
from pathlib import Path

import numpy as np
from PIL import Image, ImageDraw, ImageFilter, ImageFont

EXAMPLES = Path(__file__).resolve().parent.parent
FONTS = Path("/usr/share/fonts/truetype/dejavu")


# ---------------------------------------------------------------------------------------------- tools

def rgb(text):
    text = text.lstrip("#")
    return np.array([int(text[i:i + 2], 16) for i in (0, 2, 4)], float) / 255


def mix(a, b, t):
    return a + (b - a) * t


def smooth(a, b, x):
    t = np.clip((x - a) / (b - a), 0, 1)
    return t * t * (3 - 2 * t)


def wave(width, seed, period, octaves=6, fall=0.5):
    """One-dimensional noise in about -1..1; `period` is the length of its longest wave in pixels."""
    rng = np.random.default_rng(seed)
    x = np.arange(width)
    total, weight, result = 0.0, 1.0, np.zeros(width)
    for _ in range(octaves):
        count = int(width / period) + 3
        knots = rng.uniform(-1, 1, count)
        at = x / period
        index = at.astype(int)
        t = at - index
        t = t * t * (3 - 2 * t)
        result += weight * (knots[index] * (1 - t) + knots[index + 1] * t)
        total += weight
        weight *= fall
        period = max(period / 2, 2)
    return result / total * 1.6


def noise(height, width, seed, period, octaves=5, fall=0.5, stretch=1.0):
    """Two-dimensional noise in about 0..1; `stretch` widens it sideways."""
    rng = np.random.default_rng(seed)
    result, total, weight = np.zeros((height, width)), 0.0, 1.0
    for _ in range(octaves):
        rows, columns = int(height / period) + 3, int(width / (period * stretch)) + 3
        small = Image.fromarray(rng.random((rows, columns)).astype(np.float32))
        big = small.resize((int(columns * period * stretch) + 1, int(rows * period) + 1), Image.BICUBIC)
        result += weight * np.asarray(big, float)[:height, :width]
        total += weight
        weight *= fall
        period = max(period / 2, 2)
    return result / total


def gradient(height, width, *stops):
    """A vertical blend: stops are (place 0..1, "#rrggbb")."""
    places = [place for place, _ in stops]
    colours = np.array([rgb(colour) for _, colour in stops])
    y = np.linspace(0, 1, height)
    column = np.stack([np.interp(y, places, colours[:, channel]) for channel in range(3)], axis=1)
    return np.repeat(column[:, None, :], width, axis=1)


def lay(image, colour, mask):
    """Lays a colour (or a picture) over the image where the mask is 1."""
    return mix(image, colour, mask[..., None])


def glow(image, x, y, radius, colour, strength=1.0, power=2.0):
    height, width = image.shape[:2]
    yy, xx = np.mgrid[0:height, 0:width]
    distance = np.hypot(xx - x, yy - y) / radius
    light = strength * np.exp(-distance ** (2 / power) * 2.2)
    return 1 - (1 - image) * (1 - np.clip(light, 0, 1)[..., None] * rgb(colour))


def disc(image, x, y, radius, colour):
    height, width = image.shape[:2]
    yy, xx = np.mgrid[0:height, 0:width]
    return lay(image, rgb(colour), np.clip(radius - np.hypot(xx - x, yy - y) + 0.5, 0, 1))


def stars(image, count, bottom, seed):
    height, width = image.shape[:2]
    rng = np.random.default_rng(seed)
    layer = np.zeros((height, width))
    for _ in range(count):
        x, y = rng.integers(2, width - 2), int(rng.random() ** 1.2 * bottom)
        light = rng.random() ** 3 * 0.95 + 0.05
        layer[y, x] = max(layer[y, x], light)
        if light > 0.62:
            for dx, dy in ((1, 0), (-1, 0), (0, 1), (0, -1)):
                layer[max(y + dy, 0), x + dx] = max(layer[max(y + dy, 0), x + dx], light * 0.35)
    fade = 1 - smooth(0.6, 1.0, np.arange(height) / max(bottom, 1))
    return np.clip(image + layer[..., None] * fade[:, None, None] * rgb("#f4f1ff"), 0, 1)


def clouds(image, seed, top, bottom, colour, cover=0.5, period=120, stretch=3.0, strength=0.8):
    height, width = image.shape[:2]
    field = noise(height, width, seed, period, 6, 0.55, stretch)
    y = np.arange(height) / height
    window = smooth(top, (top + bottom) / 2, y) * (1 - smooth((top + bottom) / 2, bottom, y))
    return lay(image, rgb(colour), smooth(1 - cover - 0.12, 1 - cover + 0.16, field) * window[:, None] * strength)


def conifers(ridge, seed, density, tall):
    """Raises a ridge line by the outlines of firs."""
    rng = np.random.default_rng(seed)
    width = len(ridge)
    result = ridge.copy()
    groves = wave(width, seed + 1, width / 5, 3)
    for x in np.sort(rng.uniform(0, width, int(width * density))):
        if groves[int(x)] < rng.uniform(-0.9, 0.5):
            continue
        size = tall * rng.uniform(0.45, 1.0)
        half = size * rng.uniform(0.16, 0.24)
        left, right = max(int(x - half), 0), min(int(x + half) + 1, width)
        columns = np.arange(left, right)
        side = np.abs(columns - x) / half
        teeth = 0.10 * np.abs(((side * 5) % 1) - 0.5)
        outline = ridge[int(x)] - size * np.clip(1 - side + teeth, 0, 1)
        result[left:right] = np.minimum(result[left:right], outline)
    return result


def ground(image, ridge, top, bottom, reach, seed=0, grain=0.05, stretch=2.0):
    """Fills below the ridge with a blend from `top` to `bottom` over `reach` pixels, lightly modelled."""
    height, width = image.shape[:2]
    y = np.arange(height)[:, None]
    depth = np.clip((y - ridge[None, :]) / reach, 0, 1)[..., None]
    colour = mix(rgb(top), rgb(bottom), depth)
    if grain:
        colour = colour * (1 + grain * 2 * (noise(height, width, seed, 60, 5, 0.6, stretch)[..., None] - 0.5))
    return lay(image, np.clip(colour, 0, 1), np.clip(y - ridge[None, :] + 0.5, 0, 1))


def mist(image, centre, spread, colour, strength, seed):
    height, width = image.shape[:2]
    y = np.arange(height)[:, None]
    band = np.exp(-((y - centre - 18 * wave(width, seed, width / 2, 3)[None, :]) / spread) ** 2)
    field = 0.55 + 0.9 * (noise(height, width, seed + 1, 130, 5, 0.5, 3.5) - 0.3)
    return lay(image, rgb(colour), np.clip(band * field * strength, 0, 1))


def water(image, line, tint, depth="#000000", seed=0, strength=0.35, ripple=1.0, squeeze=1.0):
    """Mirrors what stands above `line` into the part below it, broken by ripples."""
    height, width = image.shape[:2]
    rows = height - line
    distance = np.arange(rows, dtype=float)
    near = distance / rows
    field = noise(rows, width, seed, 14, 4, 0.6, 7.0) - 0.5
    fine = noise(rows, width, seed + 7, 5, 2, 0.6, 6.0) - 0.5
    offset = (field * 46 + fine * 18) * (0.12 + near[:, None]) * ripple
    source = np.clip(line - 1 - distance[:, None] * squeeze - offset, 0, line - 1).astype(int)
    sideways = np.clip(np.arange(width)[None, :] + fine * 26 * near[:, None] * ripple, 0, width - 1).astype(int)
    mirrored = image[source, sideways]
    tinted = mix(mirrored, mix(rgb(tint), rgb(depth), near[:, None, None]), strength + 0.25 * near[:, None, None])
    tinted = np.clip(tinted * (1 + 0.35 * fine[..., None] * ripple), 0, 1)
    result = image.copy()
    result[line:] = tinted
    return result


def shape(image, paint, scale=3):
    """Draws with `paint(draw, scale)` on a clear layer of `scale` times the size and lays it over."""
    height, width = image.shape[:2]
    layer = Image.new("RGBA", (width * scale, height * scale), (0, 0, 0, 0))
    paint(ImageDraw.Draw(layer, "RGBA"), scale)
    small = np.asarray(layer.resize((width, height), Image.LANCZOS), float) / 255
    alpha = small[..., 3:]
    colour = np.where(alpha > 0.003, small[..., :3], 0)
    return image * (1 - alpha) + colour * alpha


def tint(colour, alpha=255):
    return tuple(int(round(part * 255)) for part in rgb(colour)) + (alpha,)


def blur(image, radius):
    picture = Image.fromarray((np.clip(image, 0, 1) * 255).astype(np.uint8)).filter(ImageFilter.GaussianBlur(radius))
    return np.asarray(picture, float) / 255


def vignette(image, strength=0.25):
    height, width = image.shape[:2]
    yy, xx = np.mgrid[0:height, 0:width]
    far = np.hypot((xx - width / 2) / width, (yy - height / 2) / height) / 0.707
    return image * (1 - strength * smooth(0.45, 1.05, far))[..., None]


def grained(image, amount=0.012, seed=5):
    rng = np.random.default_rng(seed)
    return np.clip(image + rng.normal(0, amount, image.shape[:2])[..., None], 0, 1)


def text(draw, place, words, size, colour, face="DejaVuSerif-Italic", anchor="mm"):
    draw.text(place, words, font=ImageFont.truetype(str(FONTS / f"{face}.ttf"), int(size)), fill=colour, anchor=anchor)


PICTURES = {}


def picture(path, quality=80, grain=0.008):
    """Registers a function that returns an image for the file `path` below examples/."""
    def register(function):
        PICTURES[path] = (function, quality, grain)
        return function
    return register


# ---------------------------------------------------------------------------------------------- long-feature

def ferry(image, x, line, size, hull="#10141f", lit=True):
    """A small car ferry lying on the water line, `size` pixels long."""
    u = size / 100

    def paint(draw, s):
        def poly(points, colour):
            draw.polygon([((x + px * u) * s, (line + py * u) * s) for px, py in points], fill=colour)

        dark = tint(hull)
        poly([(-50, -9), (-46, 0), (42, 0), (53, -12), (30, -10.5)], dark)
        poly([(-36, -17), (-38, -9.5), (32, -10), (26, -17)], tint("#1a2130"))
        poly([(-20, -24), (-22, -17), (20, -17), (15, -24)], tint("#141a27"))
        poly([(2, -29.5), (0, -24), (17, -24), (13, -29.5)], tint("#1a2130"))
        poly([(-14, -34), (-15, -24), (-5, -24), (-6, -34)], tint("#7c2f2a"))
        poly([(-14, -34), (-14.2, -31.5), (-5.8, -31.5), (-6, -34)], tint("#0b0d14"))
        draw.line([((x + 8 * u) * s, (line - 29 * u) * s), ((x + 8 * u) * s, (line - 44 * u) * s)], fill=dark, width=max(int(0.7 * u * s), 1))
        draw.line([((x + 8 * u) * s, (line - 43 * u) * s), ((x + 46 * u) * s, (line - 12 * u) * s)], fill=tint("#10141f", 150), width=max(int(0.25 * u * s), 1))
        if lit:
            for px in np.arange(-33, 25, 5.2):
                poly([(px, -15.4), (px, -12.4), (px + 3, -12.4), (px + 3, -15.4)], tint("#ffd58a"))
            for px in np.arange(-18, 12, 4.6):
                poly([(px, -22.4), (px, -20), (px + 2.6, -20), (px + 2.6, -22.4)], tint("#ffe3ad"))
            poly([(4, -28.4), (4, -26), (14.5, -26), (12.9, -28.4)], tint("#ffe9c2"))

    result = shape(image, paint)
    if lit:
        result = glow(result, x - 4 * u, line - 15 * u, size * 0.55, "#ffb55c", 0.55, 2.2)
        result = glow(result, x + 8 * u, line - 44 * u, size * 0.10, "#ffffff", 0.95)
        result = glow(result, x + 51 * u, line - 12 * u, size * 0.06, "#52e08a", 0.8)
    return result


@picture("long-feature/images/night-boat.jpg")
def night_boat(width=1600, height=1000):
    image = gradient(height, width, (0, "#050917"), (0.3, "#0c1733"), (0.52, "#24365c"), (0.63, "#5d6c8c"), (0.665, "#b88f86"), (1, "#b88f86"))
    image = stars(image, 1500, height * 0.6, 3)
    band = noise(height, width, 41, 260, 6, 0.6, 1.6)
    yy, xx = np.mgrid[0:height, 0:width]
    along = np.exp(-(((yy - 0.42 * xx + 120) / 150) ** 2))
    image = np.clip(image + (along * smooth(0.42, 0.75, band) * 0.16 * (1 - smooth(0.35, 0.6, yy / height)))[..., None] * rgb("#b9c3ff"), 0, 1)
    image = clouds(image, 9, 0.48, 0.68, "#121a30", 0.5, 60, 6, 0.85)
    line = int(height * 0.665)
    image = ground(image, line - 62 - 46 * wave(width, 12, 620, 7) - 60 * smooth(900, 1500, np.arange(width)), "#33405f", "#5b6482", 130, 2, 0.03)
    image = ground(image, line - 6 - 30 * smooth(640, 60, np.arange(width)) - 12 * wave(width, 15, 300, 6) * smooth(700, 300, np.arange(width)), "#131a2e", "#1b2238", 60, 3, 0.03)
    for x, y in ((118, 30), (164, 22), (206, 18), (260, 14), (334, 10)):
        image = glow(image, x, line - y, 9, "#ffca7a", 0.9)
    image = ferry(image, 960, line + 3, 250)
    image = glow(image, 1395, line - 78, 8, "#ffffff", 1)
    image = glow(image, 1395, line - 78, 80, "#ffe9b8", 0.4)
    image = water(image, line, "#0a1226", "#03060f", 21, 0.28, 0.8)
    for step in range(26):  # the wake
        image = glow(image, 820 - step * 26, line + 8 + step * 1.4, 16 + step, "#c9d4f2", 0.10 * (1 - step / 26))
    return vignette(image, 0.3)


@picture("long-feature/images/harbour-dusk.jpg")
def harbour(width=1400, height=900):
    image = gradient(height, width, (0, "#27345c"), (0.3, "#6a5d86"), (0.48, "#d58b76"), (0.6, "#f6c78a"), (1, "#f6c78a"))
    image = clouds(image, 31, 0.02, 0.5, "#4a4372", 0.52, 110, 4, 0.75)
    image = clouds(image, 32, 0.2, 0.56, "#ffd3a0", 0.42, 60, 6, 0.7)
    line = int(height * 0.6)
    image = ground(image, line - 90 - 60 * wave(width, 51, 560, 7), "#6c5b80", "#c58d83", 170, 1, 0.03)
    image = ground(image, line - 40 - 40 * wave(width, 57, 420, 7) - 40 * smooth(500, 0, np.arange(width)), "#413c63", "#7a5f78", 120, 2, 0.04)
    rng = np.random.default_rng(8)
    walls = ["#e9dccb", "#c8d3d6", "#d9b28c", "#b96f5c", "#efe7da", "#8fa6ad", "#d8c39a", "#a9b7a0"]
    houses = []
    x = 40.0
    while x < 980:
        w = rng.uniform(46, 84)
        houses.append((x, w, rng.uniform(48, 96), walls[rng.integers(len(walls))], rng.random()))
        x += w + rng.uniform(-3, 14)

    def paint(draw, s):
        for hx, w, h, colour, chance in houses:
            wall = tint("#%02x%02x%02x" % tuple(int(v * 255) for v in mix(rgb(colour), rgb("#3c3355"), 0.55)))
            roof = tint("#2a2742" if chance < 0.6 else "#3d2b3d")
            top = line - 6 - h
            draw.rectangle([hx * s, top * s, (hx + w) * s, (line - 4) * s], fill=wall)
            peak = top - w * 0.36
            draw.polygon([((hx - 3) * s, top * s), ((hx + w / 2) * s, peak * s), ((hx + w + 3) * s, top * s)], fill=roof)
            draw.rectangle([(hx + w * 0.68) * s, (peak - 3) * s, (hx + w * 0.8) * s, (top - 5) * s], fill=roof)
            for row in range(int(h // 30)):
                for column in range(int(w // 22)):
                    lit = rng.random() < 0.45
                    wx, wy = hx + 9 + column * (w - 14) / max(int(w // 22), 1), top + 12 + row * 30
                    draw.rectangle([wx * s, wy * s, (wx + 8) * s, (wy + 12) * s], fill=tint("#ffd484" if lit else "#2d2b4b"))
        draw.rectangle([0, (line - 6) * s, 1060 * s, (line + 8) * s], fill=tint("#28233b"))
        for px in range(20, 1060, 58):
            draw.rectangle([px * s, (line + 2) * s, (px + 7) * s, (line + 20) * s], fill=tint("#1d1a2e"))
        for bx, tall in ((720, 128), (806, 104), (884, 118)):
            draw.line([(bx * s, (line + 6) * s), (bx * s, (line - tall) * s)], fill=tint("#1c1930"), width=3 * s)
            draw.line([(bx * s, (line - tall) * s), ((bx + 46) * s, (line - 4) * s)], fill=tint("#1c1930", 190), width=s)
            draw.line([(bx * s, (line - tall) * s), ((bx - 38) * s, (line - 4) * s)], fill=tint("#1c1930", 190), width=s)
            draw.polygon([((bx - 50) * s, (line - 5) * s), ((bx - 38) * s, (line + 14) * s), ((bx + 44) * s, (line + 14) * s), ((bx + 58) * s, (line - 8) * s)], fill=tint("#221d33"))

    image = shape(image, paint)
    for lx in (90, 330, 560, 800, 1040):
        image = glow(image, lx, line - 34, 46, "#ffc46b", 0.5)
        image = glow(image, lx, line - 34, 7, "#fff2cf", 0.9)
    image = ferry(image, 1200, line + 10, 200, "#221d33")
    image = water(image, line + 10, "#5a4a6c", "#241f3c", 61, 0.22, 0.75)
    return vignette(image, 0.22)


def contours(height, width, seed):
    """Height of an invented strait: above 0.5 is land."""
    yy, xx = np.mgrid[0:height, 0:width] / np.array([height, width]).reshape(2, 1, 1)
    field = noise(height, width, seed, 260, 6, 0.52)
    west = 1.05 - 3.4 * xx + 0.5 * np.sin(yy * 5.2)
    island = 0.92 * np.exp(-(((xx - 0.76) / 0.17) ** 2 + ((yy - 0.46) / 0.26) ** 2))
    skerry = 0.34 * np.exp(-(((xx - 0.47) / 0.05) ** 2 + ((yy - 0.74) / 0.07) ** 2))
    return field * 0.75 - 0.28 + np.maximum(np.clip(west, -0.2, 0.7), np.maximum(island, skerry))


@picture("long-feature/images/chart.png", grain=0)
def chart(width=1200, height=860):
    level = contours(height, width, 77)
    image = np.ones((height, width, 3)) * rgb("#dcebf0")
    for limit, colour in ((0.10, "#c9e0e9"), (0.24, "#b3d3e0"), (0.36, "#9cc5d6"), (0.44, "#86b5ca")):
        image = lay(image, rgb(colour), np.clip((level - limit) * 260, 0, 1))
    image = lay(image, rgb("#efe3c2"), np.clip((level - 0.5) * 260, 0, 1))
    for limit in np.arange(0.58, 1.4, 0.09):
        image = lay(image, rgb("#c2a873"), np.clip(1.2 - np.abs(level - limit) * 300, 0, 1) * 0.75)
    image = lay(image, rgb("#4d4634"), np.clip(1.7 - np.abs(level - 0.5) * 330, 0, 1))
    for limit in (0.10, 0.24, 0.36, 0.44):
        image = lay(image, rgb("#5b8da5"), np.clip(1 - np.abs(level - limit) * 330, 0, 1) * 0.55)
    rng = np.random.default_rng(4)
    ink, red = tint("#2c3b4a"), tint("#a3253a")

    def paint(draw, s):
        for gx in range(0, width, 150):
            draw.line([(gx * s, 0), (gx * s, height * s)], fill=tint("#2c3b4a", 40), width=s)
        for gy in range(0, height, 150):
            draw.line([(0, gy * s), (width * s, gy * s)], fill=tint("#2c3b4a", 40), width=s)
        for _ in range(190):
            x, y = rng.integers(40, width - 40), rng.integers(40, height - 40)
            if level[y, x] < 0.40:
                text(draw, (x * s, y * s), str(int(4 + (0.5 - level[y, x]) * 88)), 11 * s, tint("#2c3b4a", 170), "DejaVuSans")
        route = [(310, 520), (390, 486), (470, 462), (560, 470), (640, 500), (700, 514)]
        fine = []
        for i in range(len(route) - 1):
            for t in np.linspace(0, 1, 12, endpoint=False):
                fine.append((route[i][0] + (route[i + 1][0] - route[i][0]) * t, route[i][1] + (route[i + 1][1] - route[i][1]) * t))
        for i in range(0, len(fine) - 2, 3):
            draw.line([(fine[i][0] * s, fine[i][1] * s), (fine[i + 2][0] * s, fine[i + 2][1] * s)], fill=red, width=3 * s)
        for x, y in (route[0], route[-1]):
            draw.ellipse([(x - 8) * s, (y - 8) * s, (x + 8) * s, (y + 8) * s], fill=tint("#fdf8ea"), outline=red, width=3 * s)
        text(draw, (186 * s, 556 * s), "Port Averin", 25 * s, ink, anchor="mm")
        text(draw, (900 * s, 400 * s), "HALLISK", 40 * s, ink, "DejaVuSerif-Bold")
        text(draw, (726 * s, 522 * s), "Skerrow Pier", 21 * s, ink, anchor="lm")
        text(draw, (560 * s, 240 * s), "THE SLOW SOUND", 24 * s, tint("#3f6f88"), "DejaVuSerif-Italic")
        text(draw, (560 * s, 592 * s), "The Sisters", 19 * s, ink)
        cx, cy, r = 545, 100, 62
        draw.ellipse([(cx - r) * s, (cy - r) * s, (cx + r) * s, (cy + r) * s], outline=red, width=s)
        draw.ellipse([(cx - r + 7) * s, (cy - r + 7) * s, (cx + r - 7) * s, (cy + r - 7) * s], outline=red, width=s)
        for k in range(32):
            a = k * math.pi / 16
            inner = r - (16 if k % 8 == 0 else 11 if k % 4 == 0 else 7)
            draw.line([((cx + inner * math.sin(a)) * s, (cy - inner * math.cos(a)) * s), ((cx + r * math.sin(a)) * s, (cy - r * math.cos(a)) * s)], fill=red, width=s)
        draw.polygon([(cx * s, (cy - r + 8) * s), ((cx - 9) * s, cy * s), (cx * s, (cy - 8) * s), ((cx + 9) * s, cy * s)], fill=red)
        draw.polygon([(cx * s, (cy + r - 16) * s), ((cx - 7) * s, cy * s), (cx * s, (cy + 7) * s), ((cx + 7) * s, cy * s)], outline=red, fill=tint("#dcebf0"))
        draw.rectangle([14 * s, 14 * s, (width - 14) * s, (height - 14) * s], outline=ink, width=2 * s)
        draw.rectangle([22 * s, 22 * s, (width - 22) * s, (height - 22) * s], outline=ink, width=s)
        for i in range(4):
            draw.rectangle([(880 + i * 55) * s, 800 * s, (935 + i * 55) * s, 808 * s], fill=ink if i % 2 == 0 else tint("#fdf8ea"), outline=ink, width=s)
        text(draw, (990 * s, 780 * s), "two sea miles", 17 * s, ink)

    image = shape(image, paint)
    return np.clip(image * np.array([1, 0.985, 0.95]), 0, 1)


def bust(image, x, base, size, colour, hat=None, hair=None, rim="#ffffff", rim_shift=(-5, -3), rim_strength=0.8):
    """A head and shoulders as a silhouette, with light along one edge."""
    height, width = image.shape[:2]
    mask = np.zeros((height, width, 3))

    def paint(draw, s):
        def p(px, py):
            return ((x + px * size) * s, (base - py * size) * s)
        white = (255, 255, 255, 255)
        shoulders = [p(-1.15, -0.2)]
        for t in np.linspace(0, 1, 30):
            shoulders.append(p(-1.12 + 0.86 * t, 0.15 + 0.62 * (1 - (1 - t) ** 2.6)))
        for t in np.linspace(0, 1, 30):
            shoulders.append(p(0.26 + 0.86 * t, 0.77 - 0.62 * (t ** 2.6)))
        shoulders.append(p(1.15, -0.2))
        draw.polygon(shoulders, fill=white)
        draw.polygon([p(-0.22, 0.6), p(-0.19, 1.1), p(0.19, 1.1), p(0.22, 0.6)], fill=white)
        face = []
        for a in np.linspace(0, 2 * math.pi, 120):
            cx, cy = math.cos(a), math.sin(a)
            w = 0.355 - (0.055 * (-cy) ** 1.5 if cy < 0 else 0)
            face.append(p(cx * w, 1.34 + cy * (0.46 if cy > 0 else 0.45)))
        draw.polygon(face, fill=white)
        for side in (-1, 1):
            draw.ellipse([*p(side * 0.36 - 0.05, 1.42), *p(side * 0.36 + 0.05, 1.24)], fill=white)
        if hair == "bun":
            draw.ellipse([*p(-0.42, 1.86), *p(0.42, 1.22)], fill=white)
            draw.ellipse([*p(-0.20, 2.14), *p(0.20, 1.78)], fill=white)
        if hair == "long":
            draw.ellipse([*p(-0.46, 1.88), *p(0.46, 1.0)], fill=white)
            draw.polygon([p(-0.46, 1.45), p(-0.52, 0.66), p(-0.1, 0.6), p(0.1, 0.6), p(0.52, 0.66), p(0.46, 1.45)], fill=white)
        if hair == "curls":
            rng = np.random.default_rng(3)
            for _ in range(150):
                a = rng.uniform(-0.25, math.pi + 0.25)
                r = rng.uniform(0.25, 0.46)
                qx, qy = math.cos(a) * r, 1.42 + math.sin(a) * r * 1.05
                draw.ellipse([*p(qx - 0.09, qy + 0.09), *p(qx + 0.09, qy - 0.09)], fill=white)
        if hat == "cap":
            draw.polygon([p(-0.37, 1.50), p(-0.40, 1.74), p(0.40, 1.74), p(0.37, 1.50)], fill=white)
            draw.ellipse([*p(-0.54, 2.00), *p(0.54, 1.66)], fill=white)
        if hat == "wool":
            draw.pieslice([*p(-0.40, 2.0), *p(0.40, 1.2)], 180, 360, fill=white)
            draw.rectangle([*p(-0.41, 1.64), *p(0.41, 1.50)], fill=white)
            draw.ellipse([*p(-0.10, 2.12), *p(0.10, 1.92)], fill=white)

    mask = shape(mask, paint, 2)[..., 0]
    rows = np.clip(np.arange(height) + rim_shift[1], 0, height - 1)
    columns = np.clip(np.arange(width) + rim_shift[0], 0, width - 1)
    shifted = mask[rows][:, columns]
    # Light comes from above: only the upper and outer edges catch it.
    edge = np.clip(mask - shifted, 0, 1)
    soft = np.asarray(Image.fromarray((edge * 255).astype(np.uint8)).filter(ImageFilter.GaussianBlur(2.2)), float) / 255
    yy = np.linspace(0, 1, height)[:, None, None]
    image = lay(image, np.clip(rgb(colour) * (1.35 - 0.6 * yy), 0, 1), mask)
    return lay(image, rgb(rim), np.clip(soft * 1.5, 0, 1) * mask * rim_strength)


@picture("long-feature/images/captain.jpg")
def captain(width=900, height=1100):
    image = gradient(height, width, (0, "#1b2b45"), (0.35, "#3f5f80"), (0.6, "#e0a97a"), (0.72, "#f4cf9b"), (0.74, "#4b6a80"), (1, "#1c2c3d"))
    image = clouds(image, 6, 0.1, 0.72, "#ffdcb0", 0.45, 80, 4, 0.55)
    image = blur(image, 5)
    image = glow(image, 250, 700, 420, "#ffc27d", 0.65)

    def window(draw, s):
        frame = tint("#161a22")
        draw.rectangle([0, 0, width * s, 70 * s], fill=frame)
        draw.rectangle([0, 0, 46 * s, height * s], fill=frame)
        draw.rectangle([(width - 46) * s, 0, width * s, height * s], fill=frame)
        draw.rectangle([610 * s, 0, 642 * s, height * s], fill=frame)
        draw.rectangle([0, 930 * s, width * s, height * s], fill=tint("#12151c"))
    image = shape(image, window, 2)
    rng = np.random.default_rng(2)
    for _ in range(90):  # drops on the glass
        image = glow(image, rng.uniform(60, 600), rng.uniform(80, 900), rng.uniform(2, 4), "#fff1dc", 0.35)
    image = bust(image, 430, 1150, 440, "#161d2b", "cap", None, "#ffc78c", (6, 4), 0.95)
    return vignette(image, 0.3)


@picture("long-feature/images/bridge-fog.jpg")
def bridge(width=1500, height=840):
    image = gradient(height, width, (0, "#b7c3c9"), (0.45, "#dfe3e0"), (0.62, "#efe6d8"), (1, "#c3ccd0"))
    image = glow(image, 1120, 330, 380, "#fff0cf", 0.6)
    line = int(height * 0.72)
    image = ground(image, line - 30 - 30 * wave(width, 3, 600, 6), "#c3cccd", "#dadedb", 80, 1, 0.02)
    towers = [(240, 500, 1.0, "#59666f"), (720, 420, 0.72, "#8b979d"), (1080, 355, 0.5, "#adb6b9"), (1330, 310, 0.34, "#c5cbcb")]

    def paint(draw, s):
        deck = []
        for i, (x, tall, near, colour) in reversed(list(enumerate(towers))):
            c = tint(colour)
            deck_y = line - 92 * near - 30
            base = line + 40 * near
            top = base - tall
            w = 13 * near
            draw.polygon([((x - w * 2.6) * s, base * s), ((x - w * 0.5) * s, top * s), ((x + w * 0.5) * s, top * s), ((x - w * 1.2) * s, base * s)], fill=c)
            draw.polygon([((x + w * 2.6) * s, base * s), ((x + w * 0.5) * s, top * s), ((x - w * 0.5) * s, top * s), ((x + w * 1.2) * s, base * s)], fill=c)
            reach = 250 * near
            for k in range(1, 12):
                t = k / 11
                for side in (-1, 1):
                    draw.line([(x * s, (top + 12 + 50 * near * (1 - t)) * s), ((x + side * reach * t) * s, (deck_y + 6 * side * near) * s)], fill=tint(colour, 170), width=max(int(1.6 * near * s), 1))
            deck.append((x, deck_y, near, colour))
        deck.reverse()
        points = [(-60, deck[0][1] + 26, 1.15, deck[0][3])] + deck + [(1500, line - 52, 0.22, "#d0d5d4")]
        for (x0, y0, n0, c0), (x1, y1, n1, _) in zip(points, points[1:]):
            draw.polygon([(x0 * s, y0 * s), (x1 * s, y1 * s), (x1 * s, (y1 + 13 * n1) * s), (x0 * s, (y0 + 13 * n0) * s)], fill=tint(c0))

    image = shape(image, paint)
    image = water(image, line, "#aebbc0", "#8496a0", 17, 0.42, 0.7)
    image = mist(image, line - 20, 70, "#eceae3", 1.0, 23)
    image = mist(image, line - 220, 60, "#e9ebe8", 0.55, 29)
    image = ferry(image, 560, line + 74, 120, "#46525c", True)
    return vignette(image, 0.12)


@picture("long-feature/images/island-dawn.jpg")
def island(width=1500, height=900):
    image = gradient(height, width, (0, "#86a9c9"), (0.3, "#c4cfd6"), (0.5, "#f4d9bd"), (0.58, "#f7c9a0"), (1, "#f7c9a0"))
    image = clouds(image, 71, 0.0, 0.45, "#ffffff", 0.47, 90, 5, 0.75)
    line = int(height * 0.56)
    image = glow(image, 380, line - 16, 260, "#ffdf9e", 0.75)
    image = disc(image, 380, line - 20, 26, "#fff6de")
    x = np.arange(width)
    image = ground(image, line - 40 - 30 * wave(width, 81, 700, 6), "#a9b4c2", "#dccabd", 70, 1, 0.02)
    body = line + 6 - 190 * np.exp(-((x - 980) / 330.0) ** 2) - 70 * np.exp(-((x - 640) / 120.0) ** 2) - 16 * wave(width, 83, 240, 7) * smooth(430, 700, x)
    image = ground(image, body, "#5c6f6e", "#a29a8d", 190, 5, 0.08)
    image = water(image, line, "#7f9bb0", "#3c5a70", 91, 0.2, 0.7)
    front = 770 - 90 * smooth(700, 1500, x) - 26 * wave(width, 87, 300, 7) + 190 * smooth(520, 120, x)
    image = ground(image, front, "#5b6a42", "#27331f", 240, 9, 0.14, 3)
    rng = np.random.default_rng(12)
    blades = sorted(rng.uniform(0, width, 5200))

    def paint(draw, s):
        for bx in blades:
            y = front[int(bx)] + rng.uniform(-2, 190) ** 1.0
            tall = 7 + (y - front[int(bx)]) * 0.11
            lean = rng.uniform(-0.4, 0.75) * tall
            shade = ["#8d9a5b", "#6f7f48", "#b7a968", "#46562f", "#33421f"][rng.integers(5)]
            draw.line([(bx * s, y * s), ((bx + lean) * s, (y - tall) * s)], fill=tint(shade, 190), width=max(int(0.8 * s), 1))
        for hx, hy, w in ((905, 0, 46), (985, 4, 34)):
            y = front[hx] + 6 + hy
            draw.rectangle([hx * s, (y - w * 0.55) * s, (hx + w) * s, y * s], fill=tint("#f1e8da"))
            draw.polygon([((hx - 3) * s, (y - w * 0.55) * s), ((hx + w / 2) * s, (y - w) * s), ((hx + w + 3) * s, (y - w * 0.55) * s)], fill=tint("#584a49"))
            draw.rectangle([(hx + w * 0.42) * s, (y - w * 0.34) * s, (hx + w * 0.6) * s, y * s], fill=tint("#3b5f73"))
            draw.rectangle([(hx + w * 0.12) * s, (y - w * 0.38) * s, (hx + w * 0.28) * s, (y - w * 0.2) * s], fill=tint("#ffd98e"))
    image = shape(image, paint, 2)
    image = mist(image, line + 4, 26, "#f8e6d2", 0.8, 97)
    return vignette(image, 0.18)


@picture("long-feature/images/parcels.jpg")
def parcels(width=1200, height=800):
    image = gradient(height, width, (0, "#2b2422"), (0.55, "#4b3a30"), (0.56, "#6d4f3a"), (1, "#3a281e"))
    image = glow(image, 820, 120, 520, "#ffce8a", 0.55)
    rng = np.random.default_rng(21)
    boxes = []
    for row, (count, low, high) in enumerate(((7, 150, 230), (6, 120, 190), (4, 90, 150))):
        x = 40 + row * 70.0
        for _ in range(count):
            w, h = rng.uniform(110, 190), rng.uniform(low, high) * 0.8
            boxes.append((x, row, w, h, rng.integers(5)))
            x += w + rng.uniform(4, 16)
    papers = ["#b98a58", "#c79a68", "#a8774a", "#d8b98c", "#96714f"]

    def paint(draw, s):
        placed = []
        for x, row, w, h, kind in boxes:
            base = 700.0 if row == 0 else min([py for px, py, pw in placed if px < x + w - 20 and px + pw > x + 20] or [700.0])
            if base - h < 110 or x + w > 1190:
                continue
            top = base - h
            front = mix(rgb(papers[kind]), rgb("#3a281e"), 0.15 + 0.25 * abs(x + w / 2 - 820) / 820)
            hexed = "#%02x%02x%02x" % tuple(int(v * 255) for v in front)
            lid = "#%02x%02x%02x" % tuple(int(min(v * 1.25, 1) * 255) for v in front)
            draw.rectangle([x * s, top * s, (x + w) * s, base * s], fill=tint(hexed))
            draw.polygon([(x * s, top * s), ((x + 10) * s, (top - 12) * s), ((x + w - 6) * s, (top - 12) * s), ((x + w) * s, top * s)], fill=tint(lid))
            draw.rectangle([x * s, (base - 5) * s, (x + w) * s, base * s], fill=tint("#2a1c14", 110))
            string = tint("#efe2c6", 235) if kind % 2 else tint("#6e2f2a", 235)
            draw.line([((x + w * 0.36) * s, (top - 10) * s), ((x + w * 0.36) * s, base * s)], fill=string, width=3 * s)
            draw.line([(x * s, (top + h * 0.42) * s), ((x + w) * s, (top + h * 0.42) * s)], fill=string, width=3 * s)
            lx, ly = x + w * 0.5, top + h * 0.55
            draw.rectangle([lx * s, ly * s, (lx + w * 0.36) * s, (ly + h * 0.26) * s], fill=tint("#f5ecd8"))
            for k in range(3):
                draw.line([((lx + 6) * s, (ly + 7 + k * h * 0.07) * s), ((lx + w * rng.uniform(0.18, 0.3)) * s, (ly + 7 + k * h * 0.07) * s)], fill=tint("#4a4038", 190), width=2 * s)
            placed.append((x, top, w))

    image = shape(image, paint, 2)
    wood = noise(height, width, 5, 22, 4, 0.6, 14)
    yy = np.arange(height)[:, None]
    image = lay(image, image * (0.72 + 0.5 * wood[..., None]), np.clip((yy - 700) / 2, 0, 1) * np.ones((1, width)))
    image = glow(image, 820, 60, 90, "#fff0cc", 0.9)
    return vignette(image, 0.38)


@picture("long-feature/images/thumbnail-lamp.jpg")
def lamp(width=900, height=600):
    image = gradient(height, width, (0, "#0e1b33"), (0.6, "#35507a"), (0.78, "#a4808a"), (1, "#a4808a"))
    image = stars(image, 400, 380, 9)
    line = 470
    x = np.arange(width)
    image = ground(image, line - 20 - 20 * wave(width, 3, 400, 6), "#33456a", "#6b6f8c", 60, 1, 0.02)
    rock = line + 16 - 90 * np.exp(-((x - 610) / 150.0) ** 2) - 10 * wave(width, 5, 80, 6) * smooth(330, 480, x) * smooth(900, 760, x)

    def tower(draw, s):
        draw.polygon([(586 * s, 424 * s), (598 * s, 226 * s), (628 * s, 226 * s), (640 * s, 424 * s)], fill=tint("#e4ddd0"))
        draw.polygon([(613 * s, 424 * s), (613 * s, 226 * s), (628 * s, 226 * s), (640 * s, 424 * s)], fill=tint("#b3aeb4"))
        for y0, y1 in ((262, 300), (338, 376)):
            draw.polygon([((598 - (y0 - 226) * 0.059) * s, y0 * s), ((628 + (y0 - 226) * 0.059) * s, y0 * s), ((628 + (y1 - 226) * 0.059) * s, y1 * s), ((598 - (y1 - 226) * 0.059) * s, y1 * s)], fill=tint("#9b3b35"))
        draw.rectangle([590 * s, 220 * s, 636 * s, 227 * s], fill=tint("#1d2231"))
        draw.rectangle([601 * s, 194 * s, 625 * s, 220 * s], fill=tint("#fff1c4"))
        draw.polygon([(597 * s, 194 * s), (613 * s, 176 * s), (629 * s, 194 * s)], fill=tint("#1d2231"))
    yy, xx = np.mgrid[0:height, 0:width]
    for side in (-1, 1):
        along = (613 - xx) * side
        angle = (yy - 207 + along * 0.10 * side) / np.maximum(along, 1)
        beam = np.exp(-(angle / 0.06) ** 2) * np.exp(-np.maximum(along, 0) / 420) * (along > 0)
        image = 1 - (1 - image) * (1 - 0.75 * beam[..., None] * rgb("#ffe8b0"))
    image = shape(image, tower)
    image = ground(image, rock, "#1d2436", "#0d1220", 90, 4, 0.1)
    image = glow(image, 613, 207, 60, "#ffe8b0", 0.9)
    image = water(image, line, "#152441", "#070d1c", 8, 0.25, 0.7)
    return vignette(image, 0.25)


# ---------------------------------------------------------------------------------------------- news-report

def city(draw, s, rng, width, base, low, high, wide, wall, window, green, lit, roof_share):
    """One row of buildings with gardens on some of the roofs; returns where the gardens are."""
    gardens = []
    x = -20.0
    while x < width + 20:
        w, h = rng.uniform(*wide), rng.uniform(low, high)
        shade = mix(rgb(wall), rgb("#ffffff"), max(rng.uniform(-0.1, 0.22), 0))
        hexed = "#%02x%02x%02x" % tuple(int(np.clip(v, 0, 1) * 255) for v in shade)
        top = base - h
        draw.rectangle([x * s, top * s, (x + w) * s, base * s], fill=tint(hexed))
        draw.rectangle([(x + w * 0.82) * s, top * s, (x + w) * s, base * s], fill=tint("#20303a", 34))
        step = max(w / max(int(w / 17), 1), 9)
        for row in np.arange(top + 16, base - 6, 19):
            for column in np.arange(x + 7, x + w - 10, step):
                colour = lit if rng.random() < 0.16 else window
                draw.rectangle([column * s, row * s, (column + 7) * s, (row + 10) * s], fill=tint(colour, 200))
        if rng.random() < roof_share:
            gardens.append((x, top, w))
        else:
            draw.rectangle([(x - 2) * s, (top - 4) * s, (x + w + 2) * s, top * s], fill=tint("#5f6468", 170))
            if rng.random() < 0.5:
                tx = x + w * rng.uniform(0.2, 0.7)
                draw.rectangle([tx * s, (top - 20) * s, (tx + 16) * s, (top - 4) * s], fill=tint("#6d6f70", 200))
        x += w + rng.uniform(1, 7)
    for gx, top, w in gardens:
        draw.rectangle([(gx - 2) * s, (top - 3) * s, (gx + w + 2) * s, (top + 2) * s], fill=tint("#4d4238"))
        for _ in range(int(w * 1.1)):
            px, r = gx + rng.uniform(0, w), rng.uniform(2.5, 7)
            py = top - rng.uniform(1, 7)
            colour = green[rng.integers(len(green))]
            draw.ellipse([(px - r) * s, (py - r) * s, (px + r) * s, (py + r) * s], fill=tint(colour, 235))
        for _ in range(rng.integers(0, 3)):
            px = gx + rng.uniform(8, max(w - 8, 9))
            draw.line([(px * s, top * s), (px * s, (top - 22) * s)], fill=tint("#4b3b2c"), width=2 * s)
            for _ in range(16):
                qx, qy, r = px + rng.normal(0, 6), top - 26 + rng.normal(0, 6), rng.uniform(3, 6)
                draw.ellipse([(qx - r) * s, (qy - r) * s, (qx + r) * s, (qy + r) * s], fill=tint(green[rng.integers(len(green))], 235))


@picture("news-report/images/roofs.jpg")
def roofs(width=1500, height=900):
    image = gradient(height, width, (0, "#6fa3c7"), (0.35, "#b9d3db"), (0.56, "#f7e3bf"), (1, "#f7e3bf"))
    image = clouds(image, 14, 0.0, 0.42, "#ffffff", 0.46, 120, 4, 0.7)
    image = glow(image, 1180, 330, 420, "#fff0c4", 0.7)
    x = np.arange(width)
    image = ground(image, 470 - 40 * wave(width, 4, 700, 6), "#9fb4bd", "#dfd8c4", 120, 1, 0.02)
    rng = np.random.default_rng(44)
    rows = [(560, 60, 150, (40, 76), "#c9c6bd", "#9fadb3", ["#9db18e", "#8fa784"], 0.35),
            (660, 70, 170, (54, 100), "#cfb79b", "#7f8f98", ["#7d9c65", "#93ad70", "#6b8b57"], 0.45),
            (780, 80, 180, (80, 130), "#b98a6c", "#566874", ["#5f8a45", "#7ca557", "#4d7539", "#a5bd62"], 0.55),
            (930, 90, 190, (120, 190), "#8c6552", "#384a58", ["#3f6b2f", "#5c8a3c", "#7ba348", "#2f5628", "#c2b84f"], 0.8)]
    for base, low, high, wide, wall, window, green, share in rows:
        image = shape(image, lambda draw, s: city(draw, s, rng, width, base, low, high, wide, wall, window, green, "#ffe3a0", share), 2)
        image = mist(image, base - 30, 60, "#fbeed3", 0.35, base)
    return vignette(image, 0.15)


@picture("news-report/images/heat-map.png", grain=0)
def heat(width=1200, height=780):
    rng = np.random.default_rng(15)
    warmth = 0.52 + 0.5 * (noise(height, width, 6, 240, 4) - 0.5)
    yy, xx = np.mgrid[0:height, 0:width]
    river = height * 0.62 + 70 * np.sin(xx / 210) - xx * 0.12
    away = np.abs(yy - river)
    blocks = np.zeros((height, width))
    angle = 0.22
    u = xx * math.cos(angle) + yy * math.sin(angle)
    v = -xx * math.sin(angle) + yy * math.cos(angle)
    columns, rows = (u // 64).astype(int), ((v + 600) // 48).astype(int)
    values = rng.uniform(-0.2, 0.24, (60, 60))
    green = rng.random((60, 60)) < 0.2
    values[green] = rng.uniform(-0.5, -0.36, green.sum())
    blocks = values[rows % 60, columns % 60]
    street = ((u % 64) < 6) | (((v + 600) % 48) < 6)
    level = np.where(street, warmth + 0.22, warmth + blocks)
    park = np.exp(-(((xx - 850) / 150) ** 2 + ((yy - 190) / 95) ** 2) ** 2)
    level = mix(level, 0.10 + 0.08 * noise(height, width, 3, 40, 3), park)
    level = mix(0.04 + 0.02 * noise(height, width, 8, 40, 3), level, smooth(22, 34, away))
    level = np.clip(level, 0, 1)
    places = [0, 0.2, 0.4, 0.58, 0.75, 0.9, 1]
    table = np.array([rgb(c) for c in ("#16245c", "#2f6aa0", "#6fb7a4", "#f2e28a", "#f0a04b", "#d6452f", "#7a1230")])
    image = np.stack([np.interp(level, places, table[:, k]) for k in range(3)], axis=2)
    image = blur(image, 1.0)

    def paint(draw, s):
        draw.rectangle([width * s - 330 * s, (height - 92) * s, (width - 24) * s, (height - 22) * s], fill=tint("#ffffff", 228))
        for k in range(286):
            value = np.array([np.interp(k / 285, places, table[:, c]) for c in range(3)])
            draw.rectangle([(width - 320 + k) * s, (height - 80) * s, (width - 319 + k) * s, (height - 60) * s], fill=tuple(int(p * 255) for p in value) + (255,))
        for k, label in ((0, "24°"), (143, "36°"), (285, "48 °C")):
            text(draw, ((width - 320 + k) * s, (height - 40) * s), label, 15 * s, tint("#222831"), "DejaVuSans", "lm" if k == 0 else "mm" if k == 143 else "rm")
        for x, y, label in ((850, 190, "Tannery Park"), (300, 560, "River Brenn"), (210, 180, "Old Market"), (930, 420, "Weaver's Quarter")):
            size = ImageFont.truetype(str(FONTS / "DejaVuSans.ttf"), 17 * s).getlength(label) / 2 + 10 * s
            draw.rounded_rectangle([x * s - size, (y - 15) * s, x * s + size, (y + 15) * s], 15 * s, fill=tint("#ffffff", 215))
            text(draw, (x * s, y * s), label, 17 * s, tint("#222831"), "DejaVuSans")
    return shape(image, paint, 2)


@picture("news-report/images/beekeeper.jpg")
def beekeeper(width=1000, height=1000):
    image = gradient(height, width, (0, "#cfe3d4"), (0.5, "#e8ecc9"), (1, "#8aa569"))
    rng = np.random.default_rng(31)

    def leaves(draw, s):
        for _ in range(900):
            x, y, r = rng.uniform(0, width), rng.uniform(260, height), rng.uniform(10, 46)
            draw.ellipse([(x - r) * s, (y - r * 0.7) * s, (x + r) * s, (y + r * 0.7) * s], fill=tint(["#7fa05a", "#a9c077", "#5f8748", "#cdd58c", "#e7c765"][rng.integers(5)], int(60 + 110 * (y / height) ** 2)))
    image = blur(shape(image, leaves, 1), 9)
    for _ in range(40):
        image = glow(image, rng.uniform(0, width), rng.uniform(0, 700), rng.uniform(12, 50), "#fffbe0", 0.28, 0.7)
    image = bust(image, 480, 1030, 420, "#35502f", None, "curls", "#fff3bd", (-6, 4), 0.9)

    def bees(draw, s):
        for _ in range(26):
            x, y = rng.uniform(80, 920), rng.uniform(90, 620)
            z = rng.uniform(3, 6.5)
            draw.ellipse([(x - z * 1.6) * s, (y - z) * s, (x + z * 1.6) * s, (y + z) * s], fill=tint("#5a3d10"))
            draw.rectangle([(x - z * 0.4) * s, (y - z * 0.9) * s, (x + z * 0.3) * s, (y + z * 0.9) * s], fill=tint("#f0b429"))
            draw.ellipse([(x - z * 0.6) * s, (y - z * 2.2) * s, (x + z * 1.2) * s, (y - z * 0.5) * s], fill=tint("#ffffff", 150))
    return vignette(shape(image, bees, 2), 0.2)


@picture("news-report/images/related-tram.jpg")
def tram(width=800, height=533):
    image = gradient(height, width, (0, "#34486e"), (0.6, "#8b7d98"), (0.8, "#e0a88b"), (1, "#4a4455"))
    rng = np.random.default_rng(52)
    image = shape(image, lambda draw, s: city(draw, s, rng, width, 430, 120, 300, (60, 110), "#4d4a63", "#3a3852", ["#40543f"], "#ffd78c", 0.2), 2)

    def paint(draw, s):
        draw.rectangle([0, 428 * s, width * s, height * s], fill=tint("#33303f"))
        for y in (462, 498):
            draw.line([(0, y * s), (width * s, (y + 4) * s)], fill=tint("#c9b7a6", 170), width=3 * s)
        draw.rounded_rectangle([170 * s, 330 * s, 640 * s, 462 * s], 24 * s, fill=tint("#c8433a"))
        draw.rectangle([170 * s, 418 * s, 640 * s, 434 * s], fill=tint("#f3e6cf"))
        for x in range(190, 620, 62):
            draw.rounded_rectangle([x * s, 350 * s, (x + 48) * s, 406 * s], 6 * s, fill=tint("#ffe2a3"))
        for x in (230, 300, 510, 580):
            draw.ellipse([(x - 17) * s, 448 * s, (x + 17) * s, 482 * s], fill=tint("#1b1a22"))
        draw.line([(400 * s, 330 * s), (360 * s, 288 * s)], fill=tint("#1b1a22"), width=4 * s)
        draw.line([(360 * s, 288 * s), (400 * s, 262 * s)], fill=tint("#1b1a22"), width=4 * s)
        draw.line([(0, 258 * s), (width * s, 264 * s)], fill=tint("#1b1a22"), width=2 * s)
    image = shape(image, paint, 2)
    image = glow(image, 636, 436, 60, "#fff1c4", 0.85)
    return vignette(image, 0.25)


@picture("news-report/images/related-swifts.jpg")
def swifts(width=800, height=533):
    image = gradient(height, width, (0, "#5d8fc0"), (0.6, "#c5dbe6"), (1, "#f7e6cc"))
    image = clouds(image, 18, 0.1, 1.0, "#ffffff", 0.5, 90, 3, 0.8)
    rng = np.random.default_rng(66)

    def paint(draw, s):
        for _ in range(34):
            x, y = rng.uniform(30, width - 30), rng.uniform(30, 400)
            z, a = rng.uniform(8, 34), rng.uniform(-0.7, 0.7)
            ca, sa = math.cos(a), math.sin(a)
            points = [(-1.5, -0.55), (-0.6, -0.22), (-0.1, -0.12), (0.22, 0), (-0.1, 0.12), (-0.5, 0.05)]
            wing = [(-1.5, -0.2), (-0.7, -0.5), (0, -0.16), (0.7, -0.5), (1.5, -0.2), (0.72, -0.3), (0.12, 0.1), (0.26, 0.62), (0, 0.42), (-0.26, 0.62), (-0.12, 0.1), (-0.72, -0.3)]
            draw.polygon([((x + (px * ca - py * sa) * z) * s, (y + (px * sa + py * ca) * z) * s) for px, py in wing], fill=tint("#232a33", 230))
        draw.polygon([(0, 533 * s), (0, 470 * s), (180 * s, 400 * s), (330 * s, 470 * s), (520 * s, 440 * s), (640 * s, 480 * s), (800 * s, 430 * s), (800 * s, 533 * s)], fill=tint("#463a40"))
    return vignette(shape(image, paint), 0.15)


# ---------------------------------------------------------------------------------------------- photo-essay

def tree(draw, s, x, y, tall, seed, bark, leaves, fullness):
    """A lone broad-leaved tree. `leaves` are colours, `fullness` is how many there are, 0 for winter."""
    rng = np.random.default_rng(seed)
    tips = []

    def branch(bx, by, length, angle, thick, level):
        ex, ey = bx + math.sin(angle) * length, by - math.cos(angle) * length
        draw.line([(bx * s, by * s), (ex * s, ey * s)], fill=tint(bark), width=max(int(thick * s), 1))
        if level >= 3:
            tips.append((ex, ey))
        if level == 7:
            return
        for _ in range(3 if level in (1, 2) else 2):
            branch(ex, ey, length * rng.uniform(0.66, 0.84), angle + rng.normal(0, 0.42) - 0.06 * angle, thick * 0.64, level + 1)
    branch(x, y, tall * 0.24, 0.03, tall * 0.055, 0)
    if fullness <= 0:
        return
    for tx, ty in tips:
        for _ in range(int(fullness)):
            px, py, r = tx + rng.normal(0, tall * 0.035), ty + rng.normal(0, tall * 0.032), rng.uniform(0.006, 0.016) * tall
            light = np.clip(0.5 + (px - x) / tall * 0.8 - (py - (y - tall * 0.6)) / tall * 0.8 + rng.normal(0, 0.2), 0, 0.999)
            draw.ellipse([(px - r) * s, (py - r) * s, (px + r) * s, (py + r) * s], fill=tint(leaves[int(light * len(leaves))], 215))


def hill(sky, far, mid, near, grass, bark, leaves, fullness, before=None, after=None, width=1400, height=933, blades=3800):
    """The one hill: the same ridges, the same tree, in another light."""
    image = gradient(height, width, *sky)
    if before:
        image = before(image)
    x = np.arange(width)
    image = ground(image, 520 - 60 * wave(width, 101, 800, 7), *far, 150, 1, 0.03)
    image = ground(image, conifers(590 - 60 * wave(width, 103, 620, 7), 7, 0.35, 22), *mid, 170, 2, 0.05)
    crest = 720 - 150 * np.exp(-((x - 860) / 420.0) ** 2) - 14 * wave(width, 107, 340, 7)
    image = ground(image, crest, *near, 330, 3, 0.12, 3)
    rng = np.random.default_rng(17)
    roots = sorted((crest[int(bx)] + 330 * t ** 1.5, bx) for bx, t in zip(rng.uniform(0, width - 1, blades), rng.random(blades)))

    def paint(draw, s):
        tree(draw, s, 905, crest[905] + 4, 330, 23, bark, leaves, fullness)
        for y, bx in roots:
            tall = 4 + (y - crest[int(bx)]) * 0.075
            lean = rng.uniform(-0.5, 0.7) * tall
            draw.line([(bx * s, y * s), ((bx + lean) * s, (y - tall) * s)], fill=tint(grass[rng.integers(len(grass))], 180), width=max(int(0.7 * s), 1))
    image = shape(image, paint, 2)
    return vignette(after(image) if after else image, 0.2)


def falling(image, count, seed, low, high, colour, slant=0.0, length=0.0, strength=0.8):
    height, width = image.shape[:2]
    rng = np.random.default_rng(seed)

    def paint(draw, s):
        for _ in range(count):
            x, y, r = rng.uniform(0, width), rng.uniform(0, height), rng.uniform(low, high)
            shade = tint(colour, int(255 * strength * rng.uniform(0.3, 1)))
            if length:
                draw.line([(x * s, y * s), ((x + slant * length) * s, (y + length * rng.uniform(0.6, 1.2)) * s)], fill=shade, width=max(int(r * s), 1))
            else:
                draw.ellipse([(x - r) * s, (y - r) * s, (x + r) * s, (y + r) * s], fill=shade)
    return shape(image, paint, 2)


@picture("photo-essay/photos/01-january.jpg")
def january():
    return hill(((0, "#a9bccf"), (0.5, "#dfe4ea"), (0.62, "#f3e6e0"), (1, "#ffffff")), ("#b4c0cf", "#dde3ea"), ("#8d9cae", "#d5dde6"),
                ("#f4f7fb", "#c9d6e4"), ["#ffffff", "#e3ebf3", "#b7c4d2", "#a59c88"], "#3a3431", [], 0, blades=900,
                after=lambda image: falling(image, 620, 3, 0.8, 2.8, "#ffffff"))


@picture("photo-essay/photos/02-march.jpg")
def march():
    return hill(((0, "#8fa3ad"), (0.45, "#c3ced0"), (0.65, "#e7e3d6"), (1, "#e7e3d6")), ("#a9b6b8", "#d4d8d2"), ("#7d8c86", "#c8cfc6"),
                ("#8b8f5c", "#4c5a34"), ["#8f9a58", "#6b7f43", "#b3ac6e", "#55663a"], "#3d342c", ["#8aa05a", "#b2c07a", "#cfd69a"], 2,
                before=lambda image: clouds(image, 5, -0.1, 0.6, "#6f7f8a", 0.55, 140, 3, 0.7),
                after=lambda image: mist(mist(image, 610, 60, "#eef0ea", 0.9, 11), 740, 34, "#eef0ea", 0.5, 13))


@picture("photo-essay/photos/03-may.jpg")
def may():
    def blossom(image):
        return falling(image, 130, 9, 1.2, 3.0, "#ffeef4")
    return hill(((0, "#5c9bd1"), (0.5, "#b7d9ea"), (0.66, "#f2f4e4"), (1, "#f2f4e4")), ("#8fb0bf", "#c3d6cd"), ("#5f8a63", "#a8c39a"),
                ("#84b04d", "#3d6d2c"), ["#9cc75a", "#6fa23f", "#4c7f31", "#c7da7a", "#f3e27a", "#ffffff"], "#463a2f",
                ["#c9849c", "#e7adc0", "#f6cfdb", "#fff1f5"], 7,
                before=lambda image: clouds(image, 26, 0.0, 0.55, "#ffffff", 0.5, 130, 3, 0.9), after=blossom)


@picture("photo-essay/photos/04-july-night.jpg")
def july():
    def sky(image):
        image = stars(image, 1700, 600, 8)
        yy, xx = np.mgrid[0:image.shape[0], 0:image.shape[1]]
        band = np.exp(-(((xx - 250 - 1.1 * yy) / 150) ** 2))
        dust = noise(image.shape[0], image.shape[1], 61, 200, 6, 0.6)
        image = np.clip(image + (band * smooth(0.3, 0.75, dust) * 0.34)[..., None] * rgb("#cfc6ff"), 0, 1)
        return glow(image, 1120, 560, 330, "#f2b36b", 0.35)

    def fireflies(image):
        rng = np.random.default_rng(4)
        for _ in range(36):
            image = glow(image, rng.uniform(60, 1340), rng.uniform(640, 900), rng.uniform(4, 10), "#d8ff7a", 0.75)
        return image
    return hill(((0, "#050a1e"), (0.35, "#101d44"), (0.6, "#34406b"), (0.68, "#7b6475"), (1, "#7b6475")), ("#27325a", "#3c4468"), ("#151d38", "#28304e"),
                ("#101b22", "#060b10"), ["#14262a", "#0b161a", "#1c3432"], "#080b12", ["#0a1118", "#0f1a22", "#16262c"], 7, before=sky, after=fireflies)


@picture("photo-essay/photos/05-august-noon.jpg")
def august():
    return hill(((0, "#3f8bc9"), (0.55, "#a9d0e2"), (0.68, "#f4ecd2"), (1, "#f4ecd2")), ("#93a9a8", "#cbd0b6"), ("#6f8350", "#b9b982"),
                ("#e0b84e", "#a8742a"), ["#f2d06b", "#e2ae42", "#c58b32", "#fbe6a0", "#a86f2a"], "#3f3127",
                ["#24471f", "#35602a", "#4b7d36", "#6c9a49", "#92b45e"], 9,
                before=lambda image: clouds(image, 37, 0.1, 0.6, "#ffffff", 0.42, 90, 2.4, 0.85), blades=6200)


@picture("photo-essay/photos/06-september-storm.jpg")
def september():
    def storm(image):
        image = clouds(image, 45, -0.4, 0.72, "#22303d", 0.66, 170, 2.4, 0.9)
        image = clouds(image, 49, -0.2, 0.5, "#7d8c97", 0.4, 90, 3, 0.5)

        def bolt(draw, s):
            rng = np.random.default_rng(10)
            x, y = 330.0, 150.0
            points = [(x * s, y * s)]
            while y < 560:
                x, y = x + rng.normal(2, 15), y + rng.uniform(12, 30)
                points.append((x * s, y * s))
            draw.line(points, fill=tint("#fdf6ff"), width=3 * s)
            for start in (5, 9):
                bx, by = points[start]
                side = [(bx, by)]
                for _ in range(7):
                    bx, by = bx + rng.normal(22, 10) * s, by + rng.uniform(10, 20) * s
                    side.append((bx, by))
                draw.line(side, fill=tint("#e9e2ff", 180), width=2 * s)
        image = glow(image, 345, 330, 330, "#cfc8ff", 0.6)
        return shape(image, bolt)
    return hill(((0, "#2b3946"), (0.5, "#65767f"), (0.66, "#d6c58f"), (1, "#d6c58f")), ("#5f6f76", "#8d9489"), ("#3e4c45", "#6d745f"),
                ("#8c8a45", "#39401f"), ["#a19a4f", "#6a6e34", "#4a5228", "#c0b160"], "#1f1a17",
                ["#1d2c1b", "#2b3f23", "#43552b", "#6b7134"], 8, before=storm,
                after=lambda image: falling(image, 900, 6, 0.5, 1.1, "#dfe8ee", -0.25, 26, 0.35))


@picture("photo-essay/photos/07-october.jpg")
def october():
    def sun(image):
        image = glow(image, 470, 470, 480, "#ffcf7a", 0.85)
        return disc(image, 470, 480, 34, "#fff3cf")
    return hill(((0, "#7c95ad"), (0.4, "#d7c3ad"), (0.6, "#f8cf8d"), (1, "#f8cf8d")), ("#b3937f", "#ecc28e"), ("#7a5140", "#d59a5e"),
                ("#a06a2e", "#4e331d"), ["#c38a3d", "#8d5a29", "#dfab55", "#6a4422", "#b3461f"], "#2c211b",
                ["#7c2a14", "#a8431a", "#cf6a20", "#e99a32", "#f7c75a"], 8, before=sun,
                after=lambda image: falling(mist(image, 620, 44, "#ffdca6", 0.8, 19), 70, 14, 1.8, 4.2, "#d9771f"))


@picture("photo-essay/photos/08-november-fog.jpg")
def november():
    return hill(((0, "#c9cccb"), (0.6, "#dadbd7"), (1, "#dadbd7")), ("#cfd1ce", "#d9dad6"), ("#bfc3c0", "#d6d7d3"),
                ("#9a9a8e", "#77776a"), ["#a7a594", "#84826f", "#8f8c7c"], "#6b6863", ["#9b8a76"], 0.0,
                after=lambda image: mist(mist(image, 560, 170, "#dcddd9", 0.75, 39), 800, 60, "#dcddd9", 0.4, 43))


@picture("photo-essay/photos/09-december-dusk.jpg")
def december():
    def moon(image):
        image = stars(image, 500, 420, 14)
        image = glow(image, 330, 210, 210, "#dfe6ff", 0.5)
        image = disc(image, 330, 210, 42, "#f4f1e4")
        craters = noise(image.shape[0], image.shape[1], 3, 26, 3)
        yy, xx = np.mgrid[0:image.shape[0], 0:image.shape[1]]
        return lay(image, rgb("#c9c8c4"), smooth(0.5, 0.7, craters) * np.clip(41 - np.hypot(xx - 330, yy - 210), 0, 1) * 0.6)

    def window(image):
        def paint(draw, s):
            draw.polygon([(246 * s, 690 * s), (246 * s, 662 * s), (272 * s, 644 * s), (298 * s, 662 * s), (298 * s, 690 * s)], fill=tint("#2a2f44"))
            draw.polygon([(241 * s, 664 * s), (272 * s, 641 * s), (303 * s, 664 * s), (298 * s, 656 * s), (272 * s, 636 * s), (246 * s, 656 * s)], fill=tint("#eef3ff"))
            draw.rectangle([264 * s, 668 * s, 279 * s, 682 * s], fill=tint("#ffcf70"))
        image = shape(image, paint)
        return glow(image, 272, 675, 60, "#ffb84f", 0.6)
    return hill(((0, "#17224a"), (0.4, "#45548a"), (0.6, "#b387a0"), (0.68, "#f0b59a"), (1, "#f0b59a")), ("#5d6796", "#9d91b0"), ("#38446f", "#75789f"),
                ("#c3cdea", "#6f80b0"), ["#dbe3f7", "#9fadd4", "#7583b2"], "#1c1c30", [], 0, before=moon, after=window, blades=900)


@picture("photo-essay/photos/bark.jpg")
def bark(width=1000, height=1000):
    field = noise(height, width, 5, 90, 6, 0.62, 0.28)
    ridge = 1 - np.abs(field - 0.5) * 5
    slope = np.gradient(np.clip(ridge, 0, 1), axis=1)
    light = np.clip(0.42 + 0.35 * ridge + slope * 5, 0, 1)
    image = mix(rgb("#221a15"), rgb("#b79f86"), light[..., None])
    moss = smooth(0.5, 0.68, noise(height, width, 12, 200, 5)) * smooth(0.3, 0.7, light)
    return vignette(lay(image, rgb("#8a9a4b"), moss * 0.6), 0.4)


@picture("photo-essay/photos/frost.jpg")
def frost(width=1000, height=1000):
    image = gradient(height, width, (0, "#16335c"), (1, "#5f93b8"))
    rng = np.random.default_rng(9)

    def paint(draw, s):
        def fern(x, y, length, angle, level):
            steps = max(int(length / 9), 3)
            for k in range(steps):
                nx, ny = x + math.sin(angle) * length / steps, y - math.cos(angle) * length / steps
                draw.line([(x * s, y * s), (nx * s, ny * s)], fill=tint("#eaf6ff", 205 - level * 45), width=max(int((2.6 - level * 0.8) * s), 1))
                if level < 2:
                    rest = length * (1 - k / steps) * 0.42
                    for side in (-1, 1):
                        fern(nx, ny, rest, angle + side * 0.95, level + 1)
                x, y, angle = nx, ny, angle + rng.normal(0.012, 0.03)
        for x, y, length, angle in ((120, 1010, 760, 0.1), (520, 1010, 560, -0.25), (860, 1010, 680, 0.05), (-10, 560, 520, 1.1), (1010, 500, 420, -1.05)):
            fern(x, y, length, angle, 0)
    image = shape(image, paint, 2)
    image = glow(image, 720, 240, 330, "#ffdfb0", 0.5)
    return vignette(image, 0.3)


@picture("photo-essay/photos/photographer.jpg")
def photographer(width=800, height=800):
    image = gradient(height, width, (0, "#46618a"), (0.5, "#d59c7f"), (0.7, "#f4c98d"), (1, "#6d4a3c"))
    image = blur(ground(image, 560 - 60 * wave(width, 5, 500, 6), "#8a5b4a", "#4b352d", 260, 2, 0.05), 6)
    return vignette(bust(image, 400, 830, 330, "#2a2024", "wool", None, "#ffdca0", (5, 4), 0.9), 0.25)


# ---------------------------------------------------------------------------------------------- everything

def silk(width, height, seed, *colours):
    field = noise(height, width, seed, 260, 3, 0.45)
    yy, xx = np.mgrid[0:height, 0:width]
    folds = 0.5 + 0.5 * np.sin(field * 26 + xx / 120 + yy / 210)
    light = np.gradient(folds, axis=0) * 14 + np.gradient(folds, axis=1) * 14
    table = np.array([rgb(colour) for colour in colours])
    image = np.stack([np.interp(folds, np.linspace(0, 1, len(colours)), table[:, k]) for k in range(3)], axis=2)
    return np.clip(image * (1 + 0.35 * np.tanh(light))[..., None], 0, 1)


@picture("everything/images/hero.jpg", 78)
def everything_hero():
    return vignette(silk(1200, 700, 3, "#1d1f4e", "#5b3f8c", "#c65d7b", "#f6b26b", "#fde7b0"), 0.25)


@picture("everything/images/hero-dark.jpg", 72)
def everything_dark():
    return vignette(silk(1200, 700, 3, "#06070f", "#15183a", "#3c2a5a", "#6d3f5f", "#8f6a5a"), 0.35)


@picture("everything/Photo Room/Été à la mer.jpg", 78)
def sea(width=1000, height=666):
    image = gradient(height, width, (0, "#4aa3d8"), (0.5, "#d5eef3"), (1, "#d5eef3"))
    image = clouds(image, 8, 0.0, 0.55, "#ffffff", 0.5, 90, 4, 0.9)
    image = water(image, 330, "#1fa3b8", "#0b5f86", 4, 0.5, 0.9)
    x = np.arange(width)
    image = ground(image, 520 + 60 * np.sin(x / 260) - 10 * wave(width, 3, 160, 5), "#ffffff", "#ffffff", 30, 1, 0)
    image = ground(image, 532 + 60 * np.sin(x / 260) - 10 * wave(width, 5, 160, 5), "#e9cf9c", "#f7e4bd", 200, 7, 0.08)

    def paint(draw, s):
        draw.line([(690 * s, 600 * s), (740 * s, 420 * s)], fill=tint("#7a5a3c"), width=6 * s)
        for k in range(8):
            a0, a1 = math.pi + 0.27 + k * math.pi / 8, math.pi + 0.27 + (k + 1) * math.pi / 8
            draw.polygon([(740 * s, 430 * s)] + [((740 + 130 * math.cos(a)) * s, (430 + 86 * math.sin(a)) * s) for a in np.linspace(a0, a1, 8)], fill=tint("#e4483f" if k % 2 else "#fff6e5"))
        draw.ellipse([560 * s, 596 * s, 880 * s, 640 * s], fill=tint("#8a6a3c", 90))
    return vignette(shape(image, paint), 0.12)


@picture("everything/Photo Room/Blue+Gold.png", grain=0)
def blue_gold(width=640, height=426):
    image = np.ones((height, width, 3)) * rgb("#14285a")

    def paint(draw, s):
        for row in range(9):
            for column in range(13):
                x, y = column * 54 + (27 if row % 2 else 0), row * 52
                for r, colour in ((30, "#d9a83d"), (26, "#14285a"), (20, "#d9a83d"), (17, "#1f3b80"), (8, "#f3d27a")):
                    draw.ellipse([(x - r) * s, (y - r) * s, (x + r) * s, (y + r) * s], fill=tint(colour))
    return shape(image, paint)


@picture("everything/Photo Room/Ink & Paper/SQUARES.PNG", grain=0)
def squares(width=640, height=480):
    image = np.ones((height, width, 3)) * rgb("#f3ead9")
    rng = np.random.default_rng(71)

    def paint(draw, s):
        for row in range(9):
            for column in range(12):
                x, y = 40 + column * 48, 36 + row * 48
                for k in range(4):
                    r = 20 - k * 5
                    j = row * 0.55
                    draw.polygon([((x + dx * r + rng.normal(0, j)) * s, (y + dy * r + rng.normal(0, j)) * s) for dx, dy in ((-1, -1), (1, -1), (1, 1), (-1, 1))], outline=tint(["#2d3142", "#b8432f", "#2f6f73"][(row + column + k) % 3]), width=2 * s)
    return shape(image, paint, 2)


@picture("everything/images/tile.png", grain=0)
def tile(width=64, height=64):
    image = np.ones((height, width, 3)) * rgb("#f7f2e7")

    def paint(draw, s):
        for x, y in ((0, 0), (64, 0), (0, 64), (64, 64), (32, 32)):
            draw.ellipse([(x - 7) * s, (y - 7) * s, (x + 7) * s, (y + 7) * s], fill=tint("#e2d3b2"))
            draw.ellipse([(x - 3) * s, (y - 3) * s, (x + 3) * s, (y + 3) * s], fill=tint("#c7a86b"))
    return shape(image, paint, 4)


@picture("everything/images/portrait.jpg", 78)
def everything_portrait(width=600, height=750):
    image = silk(width, height, 12, "#2b5d63", "#76a59a", "#e6dcb5", "#e8b778")
    return vignette(bust(blur(image, 3), 300, 770, 270, "#1f2a33", None, "bun", "#fff0c9", (-4, 3), 0.9), 0.2)


@picture("everything/images/logo.png", grain=0)
def logo(width=360, height=120):
    image = np.ones((height, width, 3)) * rgb("#ffffff")

    def paint(draw, s):
        draw.ellipse([14 * s, 14 * s, 106 * s, 106 * s], fill=tint("#b8432f"))
        draw.polygon([(38 * s, 88 * s), (84 * s, 24 * s), (70 * s, 70 * s)], fill=tint("#fff6e5"))
        draw.line([(38 * s, 88 * s), (64 * s, 54 * s)], fill=tint("#b8432f"), width=3 * s)
        text(draw, (126 * s, 62 * s), "The Cabinet", 30 * s, tint("#2d3142"), "DejaVuSerif-Bold", "lm")
    return shape(image, paint)


@picture("everything/media/one-second.jpg", 74)
def still(width=640, height=360):
    return vignette(silk(width, height, 21, "#0d2a3f", "#1f6b7a", "#8fd0b8", "#f4f3d0"), 0.25)


def main():
    wanted = sys.argv[1:]
    total = 0
    for path, (function, quality, grain) in PICTURES.items():
        if wanted and not any(name in path for name in wanted):
            continue
        target = EXAMPLES / path
        target.parent.mkdir(parents=True, exist_ok=True)
        image = Image.fromarray((grained(function(), grain) * 255 + 0.5).astype(np.uint8))
        if target.suffix.lower() == ".png":
            image.quantize(192, dither=Image.FLOYDSTEINBERG).save(target, optimize=True)
        else:
            image.save(target, quality=quality, optimize=True, progressive=True)
        total += target.stat().st_size
        print(f"{target.stat().st_size // 1024:5d} KiB  {path}")
    print(f"{total // 1024:5d} KiB  in all")


if __name__ == "__main__":
    main()
