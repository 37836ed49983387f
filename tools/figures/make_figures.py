#!/usr/bin/env python3
"""Writes the walking figures of the maze as SVG frames under assets/pictures/figures/.

One drawing per figure and view; each of the seven frames of a step moves the legs, the
arms, the hair and the body's bob. The SVGs it writes are committed and are what the build
bakes; run this again only to change the figures:

    python3 tools/figures/make_figures.py

The canvas is 32 x 64, one unit a pixel, the feet on the bottom centre. Both views walk
along the same screen axis, 54 px across for 14 up or down: the back view up and right,
the front view down and left. In both, the figure's side toward the viewer is on the right
of the picture, so the near arm and leg are drawn on the right, over the body, and the far
ones on the left, under it. Nothing is one-sided: the game mirrors the pictures for the
other two directions.
"""
import math
import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
OUT = os.path.normpath(os.path.join(HERE, '..', '..', 'assets', 'pictures', 'figures'))

# Palette families: base, shadow, highlight, outline.
RED = ('#E84A3C', '#B02A25', '#FF9A8A', '#5A1418')
BLUE = ('#3D8BE8', '#2563B8', '#9CCBFF', '#173A73')
YELLOW = ('#FFD23F', '#E0A100', '#FFF1A8', '#7A5200')
ORANGE = ('#FF8C2B', '#C85F12', '#FFC27A', '#6E2E05')
PURPLE = ('#8E5BD6', '#5E3A9E', '#C9A8F5', '#2E1B55')
PINK = ('#FF8FB8', '#D65A8A', '#FFC8DC', '#6E2040')
BROWN = ('#A8703F', '#744826', '#DBA570', '#3D2412')
BOOT = ('#744826', '#5A3620', '#A8703F', '#3D2412')
SNOW = ('#F4FAFF', '#BFD8EE', '#FFFFFF', '#3E5A78')
SKIN = ('#F2C69A', '#D99A6E', '#FFE2C2', '#7A4424')
EYE = '#2A1A10'
WHITE = '#FFFFFF'

OUTLINE = 1.0   # the silhouette's outline, a pixel wide
DETAIL = 0.8    # inner lines


class Frame:
    """One moment of the step. swing 1 puts the near foot forward and the far one back;
    lift raises a foot that is swinging through; bob lowers the body by whole pixels while
    the feet are apart; sway is the lagging swing of hair and hem."""

    def __init__(self, swing, bob, lift_near, lift_far, sway):
        self.swing = swing
        self.bob = bob
        self.lift_near = lift_near
        self.lift_far = lift_far
        self.sway = sway


# Frame 0 stands; the near foot steps, the far one passes and steps, and the last frame
# brings the near foot back beside the other, so that standing follows without a jump.
FRAMES = [
    Frame(0.0, 0, 0.0, 0.0, 0.0),
    Frame(0.55, 1, 1.8, 0.0, -0.5),
    Frame(1.0, 1, 0.0, 0.0, -1.0),
    Frame(0.05, 0, 0.0, 2.2, -0.3),
    Frame(-1.0, 1, 0.0, 0.0, 0.8),
    Frame(-0.5, 1, 1.6, 0.0, 1.0),
    Frame(-0.12, 0, 0.6, 0.0, 0.3),
]

STRIDE = 5.2       # how far a foot moves across along the walking axis, in pixels
FOOT_DROP = 0.1    # and down per pixel across: less than the axis' 14 in 54, so that a
                   # foot stepping toward the viewer stays on the canvas
NEAR_DROP = 0.25   # the near side of the body stands a little lower on the screen
ARM_SWING = 4.2
ANKLE_Y = 60.0     # the standing soles end on the bottom row
SHOULDER_Y = 25.4


def f(v):
    """A number as short SVG text."""
    s = ('%.2f' % v).rstrip('0').rstrip('.')
    return '0' if s in ('-0', '') else s


def pts(points):
    return ' '.join('%s %s' % (f(x), f(y)) for x, y in points)


def joint(start, end, upper, lower, bend_x):
    """The middle joint of a two-part limb from start to end, bent toward bend_x."""
    dx, dy = end[0] - start[0], end[1] - start[1]
    d = math.hypot(dx, dy)
    if d >= upper + lower - 1e-6:
        t = upper / (upper + lower)
        return (start[0] + dx * t, start[1] + dy * t)
    a = (upper * upper - lower * lower + d * d) / (2 * d)
    h = math.sqrt(max(0.0, upper * upper - a * a))
    ux, uy = dx / d, dy / d
    px, py = -uy, ux
    if px * bend_x < 0:
        px, py = -px, -py
    return (start[0] + a * ux + h * px, start[1] + a * uy + h * py)


def limb(points, width, colours):
    """A rounded limb along a polyline: outline, then the shadow tone, then the base tone
    narrower and shifted left, so that the shadow shows as a strip on the lower right."""
    base, shadow, _, line = colours
    d = 'M' + pts(points[:1]) + ' L' + pts(points[1:])
    return ('<path d="%s" fill="none" stroke="%s" stroke-width="%s"/>' % (d, line, f(width + 2 * OUTLINE)) +
            '<path d="%s" fill="none" stroke="%s" stroke-width="%s"/>' % (d, shadow, f(width)) +
            '<path d="%s" fill="none" stroke="%s" stroke-width="%s" transform="translate(%s 0)"/>'
            % (d, base, f(width * 0.55), f(-width * 0.22)))


def outlined(tag, colours, width=OUTLINE, fill_index=0):
    """An SVG element (without its closing) filled with a tone and outlined."""
    return '<%s fill="%s" stroke="%s" stroke-width="%s"/>' % (tag, colours[fill_index], colours[3], f(width))


def forward(front):
    """Which way the figure walks across the screen: left seen from the front."""
    return -1.0 if front else 1.0


def boot(ankle, knee, forward, colours):
    """A boot from the lower shin to the foot, its toe toward the walking direction."""
    base, shadow, hl, line = colours
    top = (ankle[0] + (knee[0] - ankle[0]) * 0.3, ankle[1] + (knee[1] - ankle[1]) * 0.3)
    cx, cy = ankle[0] + forward * 1.4, ankle[1] + 1.2
    return (limb([top, ankle], 4.4, colours) +
            '<ellipse cx="%s" cy="%s" rx="3" ry="1.8" fill="%s" stroke="%s" stroke-width="%s"/>'
            % (f(cx), f(cy), base, line, f(OUTLINE)) +
            '<path d="M%s %s h3" stroke="%s" stroke-width="0.9" fill="none"/>' % (f(cx - 1.5), f(cy + 1.0), shadow) +
            '<path d="M%s %s h1.4" stroke="%s" stroke-width="0.7" fill="none"/>' % (f(cx - 1.6), f(cy - 0.8), hl))


def leg(figure, frame, front, near):
    """One leg, hip to toe: the figure's trouser or skin colour, then its boot."""
    side = 1 if near else -1
    fx = forward(front)
    x = 16 + side * figure.hip_side
    hip = (x, figure.hip_y + side * NEAR_DROP + frame.bob)
    s = frame.swing * side
    lift = frame.lift_near if near else frame.lift_far
    ankle = (x + s * STRIDE * fx, ANKLE_Y + side * NEAR_DROP - s * STRIDE * fx * FOOT_DROP - lift)
    length = (ANKLE_Y - figure.hip_y) / 2
    knee = joint(hip, ankle, length, length, fx)
    return limb([hip, knee, ankle], figure.leg_width, figure.legs) + boot(ankle, knee, fx, BOOT)


def arm(figure, frame, front, near):
    """One arm, shoulder to hand, swinging against the leg on its side."""
    side = 1 if near else -1
    fx = forward(front)
    shoulder = (16 + side * figure.shoulder_side, SHOULDER_Y + side * 0.4 + frame.bob)
    a = -frame.swing * side
    hand = (shoulder[0] + a * ARM_SWING * fx, shoulder[1] + 10.6 - abs(a) * 0.9)
    elbow = joint(shoulder, hand, 5.6, 5.6, -fx)
    parts = [limb([shoulder, elbow, hand], 3.4, figure.sleeves)]
    if figure.puff:
        parts.append('<circle cx="%s" cy="%s" r="2.5" fill="%s" stroke="%s" stroke-width="%s"/>'
                     % (f(shoulder[0]), f(shoulder[1] + 0.6), figure.puff[0], figure.puff[3], f(OUTLINE)))
        parts.append('<circle cx="%s" cy="%s" r="0.8" fill="%s"/>'
                     % (f(shoulder[0] - 0.8), f(shoulder[1] - 0.2), figure.puff[2]))
    parts.append('<circle cx="%s" cy="%s" r="1.8" fill="%s" stroke="%s" stroke-width="%s"/>'
                 % (f(hand[0]), f(hand[1] + 0.7), SKIN[0], SKIN[3], f(OUTLINE)))
    return ''.join(parts)


def eyes(cy, far_x, near_x):
    """Two big eyes of a face turned a little to the left, each with a catch-light."""
    p = []
    for cx, rx in ((far_x, 1.1), (near_x, 1.35)):
        p.append('<ellipse cx="%s" cy="%s" rx="%s" ry="1.95" fill="%s"/>' % (f(cx), f(cy), f(rx), EYE))
        p.append('<circle cx="%s" cy="%s" r="0.6" fill="%s"/>' % (f(cx - 0.35), f(cy - 0.75), WHITE))
    return ''.join(p)


def smile(cx, cy):
    """A small open smile."""
    return ('<path d="M%s %s Q%s %s %s %s Z" fill="#8A3A30" stroke="%s" stroke-width="0.6"/>'
            % (f(cx - 1.3), f(cy), f(cx), f(cy + 1.9), f(cx + 1.3), f(cy), SKIN[3]))


def back_of_head(back_hair, skin, hair, crown_ry):
    """The head seen from behind: the nape, the hair's outline and its lit crown."""
    return [outlined('ellipse cx="17.8" cy="14.8" rx="6.8" ry="6.6"', skin),
            '<path d="%s" fill="%s"/>' % (back_hair, hair[1]),
            '<g clip-path="url(#backhair)">'
            '<ellipse cx="14.2" cy="11" rx="8.4" ry="%s" fill="%s"/>'
            '<path d="M9 10.6 C9.8 7.6 12.2 5.6 15.2 5.4" stroke="%s" stroke-width="1.2" fill="none"/>'
            '</g>' % (f(crown_ry), hair[0], hair[2]),
            '<path d="%s" fill="none" stroke="%s" stroke-width="%s"/>' % (back_hair, hair[3], f(OUTLINE))]


def svg(title, defs, body):
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="32" height="64" viewBox="0 0 32 64">\n'
            '  <!-- %s -->\n' % title +
            ('  <defs>%s</defs>\n' % defs if defs else '') +
            '  <g stroke-linejoin="round" stroke-linecap="round">\n' +
            '\n'.join('  ' + b for b in body) + '\n  </g>\n</svg>\n')


# ---------------------------------------------------------------- the boy

class Boy:
    """Red jacket with a yellow hem, blue trousers, brown spiky hair and a brown backpack."""
    legs = BLUE
    sleeves = RED
    puff = None
    leg_width = 4.4
    shoulder_side = 5.4
    hip_y = 38.6
    hip_side = 2.4

    JACKET = ('M10.2 25.4 C10.4 23.4 12.4 22.6 16 22.6 C19.6 22.6 21.6 23.4 21.8 25.4 L21.7 35.4 '
              'Q22.4 38.6 22 39.8 L10 39.8 Q9.6 38.6 10.3 35.4 Z')

    BACK_HAIR = ('M7 13.4 C6.8 7.4 10.6 4 16 4 C21 4 24.2 7.2 24.2 12 C24.2 14.8 23.2 17.2 22 19 L20.6 21.2 '
                 'L19.2 19.8 L17.8 22 L16.2 20.2 L14.4 22 L13 19.8 L11.2 21.2 L10.6 19.2 L8.8 19.4 '
                 'C7.6 17.6 7 15.6 7 13.4 Z')

    def defs(self, front, frame):
        clips = '<clipPath id="jacket"><path d="%s"/></clipPath>' % self.JACKET
        return clips + ('' if front else '<clipPath id="backhair"><path d="%s"/></clipPath>' % self.BACK_HAIR)

    def torso(self, front, frame):
        base, shadow, hl, line = RED
        p = ['<path d="%s" fill="%s"/>' % (self.JACKET, base),
             '<g clip-path="url(#jacket)">'
             '<path d="M19.4 20 C20.2 28 20.4 34 20 42 L26 42 L26 20 Z" fill="%s"/>'
             '<path d="M11.4 26.4 C11.3 30 11.3 33 11.5 36" stroke="%s" stroke-width="1.1" fill="none"/>'
             '<path d="M6 38.8 H26" stroke="%s" stroke-width="1.6"/>'
             '<path d="M6 38.8 H13" stroke="%s" stroke-width="0.7" transform="translate(0 -0.4)"/>'
             '</g>' % (shadow, hl, YELLOW[0], YELLOW[2]),
             '<path d="%s" fill="none" stroke="%s" stroke-width="%s"/>' % (self.JACKET, line, f(OUTLINE))]
        if front:
            # the bag's two straps, a yellow neckerchief and the jacket's front edge
            for x0, x1 in ((12.2, 12.4), (19.2, 19.0)):
                strap = 'M%s 23.2 C%s 27 %s 30 %s 33' % (f(x0), f(x1), f(x1), f(x0))
                p.append('<path d="%s" stroke="%s" stroke-width="1.9" fill="none"/>' % (strap, BROWN[3]))
                p.append('<path d="%s" stroke="%s" stroke-width="0.9" fill="none"/>' % (strap, BROWN[0]))
            p.append('<path d="M15 29 V39.4" stroke="%s" stroke-width="%s"/>' % (line, f(DETAIL)))
            p.append(outlined('path d="M12.2 22.8 L18.4 22.8 L15.2 28.8 Z"', YELLOW, DETAIL))
            p.append('<path d="M13.4 23.6 L15.2 26.6" stroke="%s" stroke-width="0.7"/>' % YELLOW[2])
        else:
            # the backpack: a brown bag with a lighter flap and a yellow buckle, its straps at the shoulders
            b = BROWN
            for x in (12.2, 19.8):
                p.append('<path d="M%s 23.4 V25.6" stroke="%s" stroke-width="2.2"/>' % (f(x), b[3]))
                p.append('<path d="M%s 23.6 V25.6" stroke="%s" stroke-width="1"/>' % (f(x), b[0]))
            p.append(outlined('rect x="10.6" y="25" width="10.8" height="12.4" rx="2.6"', b))
            p.append('<path d="M19.2 30 C19.8 32 19.9 34.4 19.6 36.6 L20.8 36.4 C21.2 34.4 21.2 32 20.8 30 Z" '
                     'fill="%s"/>' % b[1])
            p.append(outlined('path d="M11 31 C10.8 26.8 12.2 25.4 16 25.4 C19.8 25.4 21.2 26.8 21 31 '
                              'C19 31.8 13 31.8 11 31 Z"', b, DETAIL, 2))
            p.append('<path d="M12.4 27.4 C13 26.6 14 26.3 15 26.3" stroke="%s" stroke-width="0.8" fill="none"/>'
                     % YELLOW[2])
            p.append(outlined('rect x="14.5" y="30" width="3" height="3" rx="0.7"', YELLOW, 0.8))
            p.append('<path d="M12.6 35.4 H19.4" stroke="%s" stroke-width="%s"/>' % (b[1], f(DETAIL)))
        return p

    def head(self, front, frame):
        hair, s = BROWN, SKIN
        p = ['<rect x="14" y="20" width="4" height="4.4" fill="%s"/>' % s[1]]
        if front:
            p.append(outlined('ellipse cx="16.6" cy="12.8" rx="9" ry="8.8"', hair, fill_index=1))
            p.append(outlined('ellipse cx="15.2" cy="14.9" rx="7.3" ry="6.9"', s))
            p.append('<path d="M20.6 11 C22.2 14.4 22 18.6 19.4 21.2 C21.8 20.6 22.6 16.6 22.4 12.4 Z" fill="%s"/>'
                     % s[1])
            p.append(outlined('ellipse cx="22.4" cy="15.8" rx="1.5" ry="2.1"', s, DETAIL))
            # spiky fringe and a tuft on the crown
            p.append(outlined('path d="M7.2 14.2 C6.6 7.4 10.6 3.8 16.4 3.8 C22 3.8 25.8 7.4 25.2 13 L23 12 L21.8 14 '
                              'L20 10.8 L17.8 13 L16.4 10.2 L14.2 12.8 L12.6 10.2 L10.6 13.4 L9.4 11.4 Z"', hair))
            p.append('<path d="M9.6 9 C10.8 6.6 13 5.4 15.6 5.2" stroke="%s" stroke-width="1" fill="none"/>' % hair[2])
            p.append('<path d="M21.4 6.4 C23 7.8 24 9.6 24.2 11.6" stroke="%s" stroke-width="1" fill="none"/>'
                     % hair[1])
            p.append(outlined('path d="M16.2 4 L18.4 1.2 L19.4 4.4"', hair))
            p.append(eyes(16, 11.7, 16.7))
            p.append(smile(14.3, 19.3))
            p.append('<ellipse cx="19" cy="18.6" rx="1.1" ry="0.6" fill="%s"/>' % RED[2])
        else:
            p += back_of_head(self.BACK_HAIR, s, hair, 8.6)
            p.append('<path d="M12.6 16.4 L13.6 19 M17.4 17.6 L18 19.6" stroke="%s" stroke-width="%s" fill="none"/>'
                     % (hair[1], f(DETAIL)))
            p.append(outlined('path d="M13.6 4.4 L14.4 1.2 L16.8 4"', hair))
            p.append(outlined('ellipse cx="22.6" cy="15.2" rx="1.4" ry="2"', s, DETAIL))
        return p


# ---------------------------------------------------------------- the girl

class Girl:
    """Purple dress with a pink sash, puffed sleeves, an orange ponytail with a pink band."""
    legs = SKIN
    sleeves = SKIN
    puff = PURPLE
    leg_width = 3.6
    shoulder_side = 5.0
    hip_y = 40.0
    hip_side = 2.2

    def dress(self, sway):
        # The hem swings a little behind the legs.
        l, r = 8.6 + sway * 0.7, 23.4 + sway * 0.7
        return ('M10.8 25.2 C11 23.4 12.8 22.6 16 22.6 C19.2 22.6 21 23.4 21.2 25.2 L20.8 32.4 '
                'C22 35.6 %s 40 %s 44 C%s 45.6 %s 45.6 %s 44 C%s 40 10 35.6 11.2 32.4 Z'
                % (f(r - 0.8), f(r), f(r - 4.2), f(l + 4.2), f(l), f(l + 0.8)))

    BACK_HAIR = ('M7 13.2 C6.8 7.4 10.6 3.8 16 3.8 C21 3.8 24.4 7.2 24.2 12.4 C24.2 16 23.4 19.2 22 21.6 '
                 'C18 22.6 12 22.6 8.6 21.4 C7.6 19 7 16 7 13.2 Z')

    def defs(self, front, frame):
        clips = '<clipPath id="dress"><path d="%s"/></clipPath>' % self.dress(frame.sway)
        return clips + ('' if front else '<clipPath id="backhair"><path d="%s"/></clipPath>' % self.BACK_HAIR)

    def torso(self, front, frame):
        base, shadow, hl, line = PURPLE
        d = self.dress(frame.sway)
        p = ['<path d="%s" fill="%s"/>' % (d, base),
             '<g clip-path="url(#dress)">'
             '<path d="M19.2 20 C20 26 20 30 19.6 33 C21 37 21.4 41 21 47 L28 47 L28 20 Z" fill="%s"/>'
             '<path d="M11.8 26.4 C11.7 28.6 11.7 30.4 11.9 32" stroke="%s" stroke-width="1.1" fill="none"/>'
             '<path d="M11.4 35.6 C10.6 38 10.2 40.4 10.2 42.6" stroke="%s" stroke-width="1.1" fill="none"/>'
             '<path d="M15.4 36 C15.2 39 15.2 42 15.4 45 M18.6 35.8 C19 39 19.2 42 19.2 45" stroke="%s" '
             'stroke-width="%s" fill="none"/>'
             '<path d="M4 43.4 C10 45.6 22 45.6 28 43.4" stroke="%s" stroke-width="1.3" fill="none"/>'
             '</g>' % (shadow, hl, hl, shadow, f(DETAIL), PINK[0]),
             '<path d="%s" fill="none" stroke="%s" stroke-width="%s"/>' % (d, line, f(OUTLINE)),
             # the sash
             outlined('path d="M10.8 31.4 C14 32.2 18 32.2 21.2 31.4 L21.1 34 C18 34.8 14 34.8 10.9 34 Z"', PINK,
                      DETAIL),
             '<path d="M12 32.6 C13.4 33 14.6 33.1 15.6 33.1" stroke="%s" stroke-width="0.7" fill="none"/>'
             % PINK[2]]
        if front:
            # a round white collar, even on both sides
            p.append(outlined('path d="M12 23 C12.4 25.8 14.6 26.4 16 24.4 C17.4 26.4 19.6 25.8 20 23 '
                              'C18 22.4 14 22.4 12 23 Z"', SNOW, DETAIL))
            p.append('<circle cx="16" cy="28" r="0.8" fill="%s"/>' % PINK[0])
        return p

    def ponytail(self, front, sway):
        h = ORANGE
        if front:
            # seen past the back of the head, curving out on the right
            tx, ty = 27 + sway * 0.6, 23
            d = ('M21.8 6.4 C26.4 5.8 28.8 9.4 28.6 13.6 C28.4 17.4 %s %s %s %s '
                 'C25.8 20.4 25.6 17.6 25.6 14.8 C25.6 12 24.6 10 22.2 9.6 Z'
                 % (f(tx + 1), f(ty - 3.4), f(tx), f(ty)))
            return [outlined('path d="%s"' % d, h),
                    '<path d="M26.6 9.6 C27.6 12.4 27.6 15.4 27 18" stroke="%s" stroke-width="1" fill="none"/>'
                    % h[1],
                    outlined('ellipse cx="22.6" cy="7.8" rx="1.4" ry="2"', PINK, DETAIL)]
        tx, ty = 16 + sway * 1.6, 29
        d = ('M14.2 9.6 C13 12.6 12.8 17.4 13.6 21.2 C14.2 24.6 %s %s %s %s '
             'C%s %s 18.2 24.6 18.6 21.2 C19.2 17.4 19 12.6 17.8 9.6 Z'
             % (f(tx - 1.2), f(ty - 1.6), f(tx), f(ty), f(tx + 1.2), f(ty - 2.4)))
        return [outlined('path d="%s"' % d, h),
                '<path d="M17.2 12.4 C17.8 15.4 17.8 19 17 22.8" stroke="%s" stroke-width="1.1" fill="none"/>' % h[1],
                '<path d="M14.8 12.4 C14.4 15 14.4 17.4 14.8 19.6" stroke="%s" stroke-width="0.9" fill="none"/>' % h[2],
                outlined('ellipse cx="16" cy="9.4" rx="2.5" ry="1.4"', PINK, DETAIL),
                '<path d="M14.6 9 H16" stroke="%s" stroke-width="0.7"/>' % PINK[2]]

    def head(self, front, frame):
        hair, s = ORANGE, SKIN
        p = ['<rect x="14" y="20" width="4" height="4.4" fill="%s"/>' % s[1]]
        if front:
            p += self.ponytail(True, frame.sway)
            # hair behind the face falls to the jaw on both sides
            p.append(outlined('path d="M7.4 13 C7.2 7.4 11 3.8 16.2 3.8 C21.4 3.8 25.2 7.4 25 13 C25 16.4 24.6 19.4 '
                              '23.6 21.6 C21.6 22.4 10.6 22.4 8.6 21.6 C7.8 19 7.4 16 7.4 13 Z"', hair, fill_index=1))
            p.append(outlined('ellipse cx="15.3" cy="15" rx="7.1" ry="6.8"', s))
            p.append('<path d="M20.4 11 C22 14.4 21.8 18.6 19.4 21 C21.6 20.4 22.4 16.6 22.2 12.4 Z" fill="%s"/>'
                     % s[1])
            # a rounded fringe of even scallops, no parting
            p.append(outlined('path d="M7.2 14.6 C6.6 7.6 10.6 3.6 16.2 3.6 C21.8 3.6 25.6 7.4 25 14 '
                              'C24 12.2 23 11.2 21.8 11 C21 12.4 19.6 12.8 18.6 11.6 C17.6 12.8 15.6 12.8 14.6 11.6 '
                              'C13.6 12.8 11.8 12.8 11.2 11.4 C9.6 11.6 8.2 12.6 7.2 14.6 Z"', hair))
            p.append('<path d="M9.4 9 C10.6 6.6 12.8 5.2 15.4 5" stroke="%s" stroke-width="1" fill="none"/>' % hair[2])
            p.append('<path d="M21.6 6.4 C23.2 7.8 24.2 9.8 24.4 12" stroke="%s" stroke-width="1" fill="none"/>'
                     % hair[1])
            # locks framing the cheeks
            p.append(outlined('path d="M7.6 13.4 C7.4 16.6 7.8 19.4 8.8 21.8 L10.6 20.4 C9.8 18.2 9.4 15.8 9.4 13.4 Z"',
                              hair))
            p.append(eyes(16.1, 11.8, 16.8))
            p.append('<path d="M10.3 14.3 L10.9 14.9 M18.3 14.2 L17.7 14.9" stroke="%s" stroke-width="0.7"/>' % EYE)
            p.append(smile(14.4, 19.4))
            p.append('<ellipse cx="19" cy="18.6" rx="1.2" ry="0.65" fill="%s"/>' % PINK[0])
            p.append('<ellipse cx="10.6" cy="18.4" rx="0.8" ry="0.55" fill="%s"/>' % PINK[0])
        else:
            p += back_of_head(self.BACK_HAIR, s, hair, 8.8)
            p.append(outlined('ellipse cx="22.8" cy="15.4" rx="1.3" ry="1.9"', s, DETAIL))
            p += self.ponytail(False, frame.sway)
        return p


# ---------------------------------------------------------------- frames

def frame_svg(figure, front, frame, title):
    body = [arm(figure, frame, front, near=False),
            leg(figure, frame, front, False),
            leg(figure, frame, front, True)]
    upper = figure.torso(front, frame) + figure.head(front, frame)
    body.append('<g transform="translate(0 %d)">' % frame.bob)
    body += ['  ' + u for u in upper]
    body.append('</g>')
    body.append(arm(figure, frame, front, near=True))
    return svg(title, figure.defs(front, frame), body)


SETS = [
    # file name pattern, figure, seen from the front, what it shows
    ('boy-back-%d.svg', Boy(), False, 'The boy seen from behind, walking up and right'),
    ('boy-front-%d.svg', Boy(), True, 'The boy seen from the front, walking down and left'),
    ('girl-back-%d.svg', Girl(), False, 'The girl seen from behind, walking up and right'),
    ('girl-front-%d.svg', Girl(), True, 'The girl seen from the front, walking down and left'),
]


def main():
    os.makedirs(OUT, exist_ok=True)
    for pattern, figure, front, what in SETS:
        for i, frame in enumerate(FRAMES):
            state = 'standing' if i == 0 else 'step frame %d of 6' % i
            title = '%s, %s. %s' % (what, state, figure.__doc__)
            with open(os.path.join(OUT, pattern % i), 'w') as out:
                out.write(frame_svg(figure, front, frame, title))
    return 0


if __name__ == '__main__':
    sys.exit(main())
