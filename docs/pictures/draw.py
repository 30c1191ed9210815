#!/usr/bin/env python3
"""draw.py TOOL: draws the pictures of the documents beside itself, with the numbers that TOOL (value-object) gives.

They are read in light and in dark surroundings: colours are those of the reader's scheme.
"""

import json
import math
import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).parent
STYLE = """
:root { color-scheme: light dark }
text { font: 14px system-ui, sans-serif; fill: #222 }
.small { font-size: 12px; fill: #555 }
.code { font-family: ui-monospace, monospace }
.middle { text-anchor: middle } .right { text-anchor: end }
.line { stroke: #555; fill: none } .thin { stroke: #999; stroke-dasharray: 3 3; fill: none }
.box { fill: #eef4fb; stroke: #4a78a8 } .box2 { fill: #fdf3e2; stroke: #b98427 }
.ours { stroke: #2463a8; fill: #2463a8 } .rules { stroke: #b4711a; fill: #b4711a }
text.ours, text.rules { stroke: none }
@media (prefers-color-scheme: dark) {
  text { fill: #eee } .small { fill: #bbb } .line { stroke: #bbb } .thin { stroke: #777 }
  .box { fill: #1d2b3a; stroke: #6ea3d8 } .box2 { fill: #3a2e1a; stroke: #e0ab4f }
  .ours { stroke: #7ab4f0; fill: #7ab4f0 } .rules { stroke: #eeb35a; fill: #eeb35a }
}"""


class Picture:
    def __init__(self, width, height, title):
        self.parts = [f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" '
                      f'width="{width}" height="{height}" role="img">',
                      f'<title>{title}</title>', f'<style>{STYLE}</style>']

    def add(self, part):
        self.parts.append(part)

    def text(self, x, y, text, kind=''):
        text = text.replace('&', '&amp;').replace('<', '&lt;')
        self.add(f'<text x="{x:g}" y="{y:g}" class="{kind}">{text}</text>')

    def line(self, x1, y1, x2, y2, kind='line', width=1.5):
        self.add(f'<line x1="{x1:g}" y1="{y1:g}" x2="{x2:g}" y2="{y2:g}" class="{kind}" stroke-width="{width:g}"/>')

    def box(self, x, y, width, height, lines, kind='box'):
        self.add(f'<rect x="{x:g}" y="{y:g}" width="{width:g}" height="{height:g}" rx="5" class="{kind}"/>')
        first = y + height / 2 + 5 - 9 * (len(lines) - 1)
        for number, line in enumerate(lines):
            self.text(x + width / 2, first + 18 * number, line, 'middle' + (' small' if number else ''))

    def arrow(self, x1, y1, x2, y2):
        self.line(x1, y1, x2, y2)
        angle = math.atan2(y2 - y1, x2 - x1)
        ends = ' '.join(f'{x2 - 9 * math.cos(angle + turn):.1f},{y2 - 9 * math.sin(angle + turn):.1f}' for turn in (.4, -.4))
        self.add(f'<polyline points="{ends.split()[0]} {x2:g},{y2:g} {ends.split()[1]}" class="line" stroke-width="1.5"/>')

    def interval(self, y, lower, value, upper, kind):
        """Places, and not numbers."""
        self.line(lower, y, upper, y, kind, 3)
        for end in (lower, upper):
            self.line(end, y - 6, end, y + 6, kind, 2)
        self.add(f'<circle cx="{value:g}" cy="{y:g}" r="4.5" class="{kind}"/>')

    def save(self, name):
        (HERE / name).write_text('\n'.join(self.parts) + '\n</svg>\n', encoding='utf-8')


def answer_of(*arguments):
    return subprocess.run([sys.argv[1], *arguments], check=True, capture_output=True, text=True).stdout.strip()


def ask(*arguments):
    """Lower bound, value and upper bound of an answer of the tool."""
    answer = json.loads(answer_of(*arguments, '--json'))
    return answer.get('lower', answer['value']), answer['value'], answer.get('upper', answer['value'])


def axis(picture, y, first, last, place, unit, above):
    picture.line(place(first), y, place(last), y)
    for number in range(first, last + 1):
        picture.line(place(number), y - 4, place(number), y + 4)
        picture.text(place(number), y - 12 if above else y + 24, f'{number}'.replace('-', '−'), 'middle small')
    picture.text(place(last) + 18, y + 5, unit)


def draw_conversion():
    picture = Picture(640, 240, '70 dBµV between 69 and 71 across 50 ohm to 5 % is -36.99 dBm, between -38.202 and -35.766')
    question = ('convert', '70 dBuV [69, 71]', 'dBm', '--with', '50 ± 2.5 ohm')
    lower, value, upper = ask(*question)
    above = lambda number: 60 + (number - 67) * 80
    below = lambda number: 60 + (number + 40) * 80
    axis(picture, 70, 67, 73, above, 'dBµV', True)
    axis(picture, 170, -40, -34, below, 'dBm', False)
    for left, right in ((69, lower), (70, value), (71, upper)):
        picture.line(above(left), 78, below(right), 162, 'thin')
    picture.interval(70, above(69), above(70), above(71), 'ours')
    picture.interval(170, below(lower), below(value), below(upper), 'ours')
    picture.text(300, 22, '70 dBµV [69, 71]', 'middle')
    picture.text(560, 124, '50 ± 2.5 ohm', 'middle')
    picture.text(300, 226, answer_of(*question).replace('-', '−'), 'middle')
    picture.save('conversion.svg')


def draw_layers():
    picture = Picture(640, 390, 'The layers: each calls those below it alone')
    rows = [('tool', 'Python', 'C'), ('measurements',), ('texts',), ('value objects, converters',),
            ('unit algebra',), ('unit model and catalogue',), ('errors',)]
    folders = ['src/tool  python  src/c', 'src/measurement  src/enclosing', 'src/text', 'src/conversion  src/value',
               'Units_library.cpp', 'Units.cpp  src/units', 'exceptions.cpp  src/errors']
    for number, (row, folder) in enumerate(zip(rows, folders)):
        width = 380 / len(row)
        for place, name in enumerate(row):
            picture.box(10 + place * width, 10 + 53 * number, width - 6, 42, [name], 'box2' if number < 3 else 'box')
        picture.text(405, 36 + 53 * number, folder, 'small code')
        if number:
            picture.arrow(197, 53 * number - 1, 197, 53 * number + 9)
    picture.save('layers.svg')


def draw_sizes():
    picture = Picture(700, 170, 'The 72 bytes of a value object, of which 48 are its unit')
    scale = 9.2
    fields = [(0, 8, 'lower', 'box2'), (8, 8, 'upper', 'box2'), (16, 8, 'value', 'box2'), (24, 4, 'dB', 'box'), (28, 4, 'pre', 'box')]
    for first, size, name, kind in fields:
        picture.box(15 + first * scale, 50, size * scale - 2, 44, [name], kind)
    for number in range(5):
        picture.box(15 + (32 + 8 * number) * scale, 50, 8 * scale - 2, 44, ['unit', 'power'], 'box')
    for byte in (0, 8, 16, 24, 32, 40, 48, 56, 64, 72):
        picture.text(15 + byte * scale, 112, str(byte), 'middle small')
    picture.text(15 + 12 * scale, 36, 'three doubles, in the unit', 'middle')
    picture.text(15 + 48 * scale, 36, 'Units: 48 bytes', 'middle')
    picture.text(15, 146, 'km/h: no dB, kilo, metre^1 hour^-1 and three empty slots. Nothing is owned, nothing is freed.', 'small')
    picture.save('sizes.svg')


def draw_bounds():
    rows = ['10 V [9, 11] + 4 V [2, 6]', '10 V [9, 11] - 4 V [2, 6]', '4 V [3, 5] * 2 A [-1, 4]', '10 V [8, 12] / 2 A [1, 4]']
    picture = Picture(700, 60 + 66 * len(rows), 'Bounds of four operations: of measurements, and by the rules of value objects')
    place = lambda number: 260 + (number + 6) * 16
    picture.text(260, 20, 'measurements: whatever the operands are', 'ours')
    picture.text(260, 38, 'by the rules: lower with lower, upper with upper', 'rules')
    for number, row in enumerate(rows):
        y = 76 + 66 * number
        picture.text(10, y + 6, row, 'code')
        for shift, kind, options in ((-8, 'ours', ()), (12, 'rules', ('--by-the-rules',))):
            picture.interval(y + shift, *(place(end) for end in ask('compute', *options, row)), kind)
        picture.line(place(-6), y + 28, place(20), y + 28, 'thin', 1)
        for tick in range(-5, 21, 5):
            picture.line(place(tick), y + 25, place(tick), y + 31, 'line', 1)
            picture.text(place(tick), y + 43, f'{tick}'.replace('-', '−'), 'middle small')
    picture.save('bounds.svg')


def draw_levels():
    picture = Picture(640, 330, 'Decibels: 10 log10 of a ratio of powers, 20 log10 of a ratio of voltages')
    across = lambda ratio: 80 + (math.log10(ratio) + 1) * 150
    up = lambda decibels: 180 - decibels * 3.4
    for ratio in (0.1, 1, 10, 100):
        picture.line(across(ratio), up(-25), across(ratio), up(42), 'thin', 1)
        picture.text(across(ratio), up(-31), f'{ratio:g}', 'middle small')
    for decibels in (-20, 0, 20, 40):
        picture.line(80, up(decibels), 530, up(decibels), 'thin', 1)
        picture.text(70, up(decibels) + 5, f'{decibels} dB'.replace('-', '−'), 'right small')
    picture.line(across(.1), up(-10), across(100), up(20), 'rules', 2.5)
    picture.line(across(.1), up(-20), across(100), up(40), 'ours', 2.5)
    picture.text(538, up(40), '20 log10', 'ours')
    picture.text(538, up(36), 'V, A', 'small')
    picture.text(538, up(20), '10 log10', 'rules')
    picture.text(538, up(16), 'W, Hz, K', 'small')
    picture.text(300, 322, 'ratio', 'middle small')
    picture.save('levels.svg')


def draw_conversion_way():
    picture = Picture(700, 330, 'The way of a conversion: the short way for units that agree slot by slot, the definition for all others')
    picture.box(10, 20, 150, 50, ['Convert_to', 'quantity, target'])
    picture.box(230, 20, 220, 50, ['do the units agree', 'slot by slot?'], 'box2')
    picture.arrow(160, 45, 228, 45)
    picture.box(520, 20, 170, 50, ['the short way', 'one walk: a factor'])
    picture.arrow(450, 45, 518, 45)
    picture.text(484, 38, 'yes', 'middle small')
    steps = [('from decibels', '10^(x/10)'), ('rules', '°C to K, W by V and A'), ('one factor', 'prefixes, powers'), ('to decibels', '10 log10')]
    picture.arrow(340, 70, 340, 108)
    picture.text(350, 94, 'no: the definition', 'small')
    for number, step in enumerate(steps):
        picture.box(10 + 172 * number, 110, 160, 50, list(step))
        if number:
            picture.arrow(172 * number - 2, 135, 172 * number + 8, 135)
    picture.box(230, 220, 220, 50, ['order the bounds', 'the same bits on either way'], 'box2')
    picture.arrow(606, 160, 452, 232)
    picture.line(697, 45, 697, 245)
    picture.line(690, 45, 697, 45)
    picture.arrow(697, 245, 452, 245)
    picture.text(340, 300, 'a test compares both on random units', 'middle small')
    picture.save('conversion_way.svg')


draw_conversion()
draw_layers()
draw_sizes()
draw_bounds()
draw_levels()
draw_conversion_way()
