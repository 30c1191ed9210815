#!/usr/bin/env python3
"""check_playground.py PAGE TOOL SCREENSHOT: the playground, in headless Chromium, answers as the tool does.

Each question is an address of the page; what it then shows is compared with what TOOL prints.
"""

import html
import pathlib
import re
import subprocess
import sys
import tempfile
import urllib.parse

QUESTIONS = [
    ('70 dBuV [69, 71]', 'dBm', '50 ± 2.5 ohm'),
    ('98.6 degF', 'degC', ''),
    ('60 mph * 2 s', 'm', ''),
    ('10 dBm [9, 11] + 3 dB', '', ''),
    ('10 V [9.9, 10.1] / 50 ohm [49, 51]', 'mA', ''),
    ('0.1 W', 'uW', ''),
    ('20 dBm == 100 mW', '', ''),
    ('1e300 km', 'um', ''),
    ('1013.25 hPa', 'inHg', ''),
    ('30 psi', 'bar', ''),
    ('5 lb/gal', 'kg/l', ''),
    ('3000 rpm * 2 N*m', 'kW', ''),
    ('12 µT', 'mG', ''),
    ('100 pF * 10 kohm', 'µs', ''),
    ('2500 kg/h * 3.5 h', 't', ''),
    ('1 eV', 'J', ''),
    ('70 kg * 9.81 m/s^2', 'N', ''),
    # Refused, with a caret under the place where there is one.
    ('10 dBm + 10 dBm', '', ''),
    ('5 pinch', 'm', ''),
    ('5 m', 'm/s', ''),
    ('70 dBuV + 3 dB', 'dBm', '50 ohm'),
    ('10 dBm [9, 11] + 3 dB', 'dBm', 'zzz'),
    ('20 dBm == 100 mW', 'W', ''),
    # What nobody means.
    ('5 [4, nan] V', 'V', ''),
    ('<img src=x onerror=document.body.remove()>', '</output>', '"&'),
    ('5 m', '\u202e\U0001f4a9', ''),
    ('1e999 m', 'm', ''),
    ('9' * 5000 + ' m', 'km', ''),
    ('5 ' + '(' * 3000, 'm', ''),
]


def chromium(*arguments, seconds=60):
    """Time passes faster there, but not for the compilation of the library: on a busy machine it takes its own."""
    with tempfile.TemporaryDirectory() as profile:
        return subprocess.run(['chromium', '--headless', '--no-sandbox', '--disable-gpu', f'--virtual-time-budget={1000 * seconds}',
                               f'--user-data-dir={profile}', *arguments], check=True, capture_output=True, text=True, timeout=120).stdout


def address(page, question):
    return page.resolve().as_uri() + '#' + '&'.join(urllib.parse.quote(part, safe='') for part in question)


def shown(page, question):
    """The answer, whether it looks like a refusal, and whether there is a picture of it."""
    for seconds in (60, 300, 1500):
        document = chromium('--dump-dom', address(page, question), seconds=seconds)
        if 'data-ready="yes"' in document:
            found = re.search(r'<output id="answer"([^>]*)>(.*?)</output>', document, re.DOTALL)
            return html.unescape(found[2]), 'class="refused"' in found[1], '<line class="bounds"' in document
    raise RuntimeError('the page did not load its library: ' + document[-2000:])


def expected(tool, question):
    text, unit, across = question
    if re.search(r' ([-+*/<>]|[<>=!]=) ', text) or not unit:
        command = ['compute', text, *(['--to', unit] if unit else []), *(['--with', across] if across else [])]
    else:
        command = ['convert', text, unit, *(['--with', across] if across else [])]
    done = subprocess.run([tool, *command], capture_output=True, text=True, check=False)
    return (done.stdout + done.stderr).rstrip('\n').removeprefix('value-object: '), done.returncode != 0


def main(page, tool, screenshot):
    failures = 0
    for question in QUESTIONS:
        answer, looks_refused, has_picture = shown(page, question)
        wanted, is_refused = expected(tool, question)
        if answer != wanted:
            failures += 1
            print(f'{question}\n  the tool: {wanted!r}\n  the page: {answer!r}')
        if looks_refused != is_refused:
            failures += 1
            print(f'{question}: {answer} looks like {"a refusal" if looks_refused else "an answer"}')
        if has_picture != bool(re.fullmatch(r'-?\d[^[]*\[.*\]', answer)):
            failures += 1
            print(f'{question}: {"a" if has_picture else "no"} picture of {answer}')
    chromium(f'--screenshot={screenshot}', '--window-size=900,700', address(page, QUESTIONS[0]))
    print(f'{len(QUESTIONS)} questions, {failures} answered wrongly; see {screenshot}')
    return 1 if failures else 0


if __name__ == '__main__':
    sys.exit(main(pathlib.Path(sys.argv[1]), sys.argv[2], sys.argv[3]))
