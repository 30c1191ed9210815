#!/usr/bin/env python3
"""Puts one-token faults into copies of the sources, one at a time, and sees whether the tests notice.

A fault that the tests do not notice survives. Those that change nothing that a program could see
stand in tools/equivalent_mutants.txt, each with its reason, and do not count. Of the others 95 of 100
must be caught. The faults are a sample of all possible ones, the same for the same seed.
"""

import argparse
import concurrent.futures
import pathlib
import queue
import random
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
WORK = ROOT / 'build' / 'mutate'
EQUIVALENT = ROOT / 'tools' / 'equivalent_mutants.txt'
REQUIRED_SHARE = 0.95
# The slow ones come last, and those that take minutes without a compiler's help are left out.
TOOL_CASES = ['convert', 'strict', 'compute', 'lines', 'tables', 'units', 'usage']


class Layer:
    """What is built for a fault in a part of the sources, and which programs hold that part."""

    def __init__(self, targets, tests):
        self.targets = targets
        self.tests = tests


def replayed(fuzzer):
    return [f'tests/replay_{fuzzer}', f'@tests/fuzz/corpus/{fuzzer}']


def of_tool(script, *arguments):
    return [sys.executable, f'@tests/tool/{script}', *arguments, 'value-object']


RUN_CASES = [of_tool('run_cases.py', f'@tests/tool/cases/{name}.txt', '--') for name in TOOL_CASES]
OF_MEASUREMENTS = Layer(['ValueObjectMeasurement', 'measurement_inside_tests', 'value-object'],
                        [['tests/measurement_tests'], ['tests/measurement_inside_tests'], replayed('measurements'),
                         *RUN_CASES])
LAYERS = {
    'src/tool/': Layer(['value-object'], [*RUN_CASES, of_tool('streams_test.py'), of_tool('documents_test.py')]),
    'src/text/': Layer(['ValueObjectText', 'value-object'],
                       [['tests/value_object_text_tests', '--gtest_fail_fast'],
                        ['tests/text_formatting_tests', '--gtest_fail_fast'],
                        replayed('parsing'), replayed('printing'), *RUN_CASES]),
    'src/c/': Layer(['c_test'], [['tests/c_test']]),
    'src/measurement/': OF_MEASUREMENTS,
    'src/enclosing/': OF_MEASUREMENTS,
    'src/': Layer(['ValueObject', 'value_object_inside_tests'],
                  [['tests/value_object_tests', '--gtest_fail_fast'], ['tests/value_object_inside_tests'],
                   replayed('units'), replayed('operations')]),
}


def layer_of(path):
    return next(layer for folder, layer in LAYERS.items() if path.startswith(folder))

# What one token becomes: a pattern, and the text in its place.
TOKENS = [
    (r' == ', ' != '), (r' != ', ' == '),
    (r' < ', ' <= '), (r' > ', ' >= '), (r' <= ', ' < '), (r' >= ', ' > '),
    (r' \+ ', ' - '), (r' - ', ' + '), (r' \* ', ' / '), (r' / ', ' * '),
    (r' \+= ', ' -= '), (r' \*= ', ' /= '), (r' \|= ', ' &= '),
    (r' && ', ' || '), (r' \|\| ', ' && '), (r' \| ', ' & '), (r' & ', ' | '), (r' \^ ', ' | '),
    (r'(?<![\w)=!])!(?=[\w(])', ''),
    (r'\btrue\b', 'false'), (r'\bfalse\b', 'true'),
    (r'\bcontinue;', 'break;'), (r'\bbreak;', 'continue;'),
    (r'\bminus_err\b', 'plus_err'), (r'\bplus_err\b', 'minus_err'),
    (r'\bleft\b', 'right'), (r'\bright\b', 'left'),
    (r'\bfrom\b', 'to'), (r'\bto\b', 'from'), (r'\bfirst\b', 'second'), (r'\bsecond\b', 'first'),
    (r'(?<=if )\(', '(!'),
    (r'\breturn (?!false|0|std::string\(\)|std::nullopt)(?=[\w!][^;]*;$)', 'return {}; '),
    (r'(?<=[a-z%])"', 'x"'),
]
# A statement that is left out: a call, an assignment, a throw.
STATEMENT = re.compile(r'^\s+(?!return|break|continue|using|throw;|case|[\w:<>]+( const)?&? \w+( =|\(|;)|[\w:<> ]+ const )[\w:.<>]+.*;$')
NUMBER = re.compile(r'(?<![\w."])\d+(?:\.\d+)?(?:e-?\d+)?(?![\w."])')


def changed_number(text):
    return {'0': '1', '1': '2', '1.0': '2.0', '0.0': '1.0'}.get(text) or (
        str(int(text) + 1) if text.isdigit() else repr(float(text) * 1.5))


def code_of(line):
    """The line without its comment; nothing where there is no code to change."""
    code = re.sub(r'\s*//.*', '', line)
    skipped = ('#', 'static_assert', 'template', 'using', '[[', 'namespace', 'struct', 'class', '*')
    return '' if code.strip().startswith(skipped) else code


def faults_of(path):
    """All one-token faults of a source: (file, number of the line, line, changed line)."""
    for number, line in enumerate(path.read_text().splitlines()):
        code = code_of(line)
        changes = []
        for pattern, replacement in TOKENS:
            changes += [(match, replacement) for match in re.finditer(pattern, code)]
        changes += [(match, changed_number(match.group())) for match in NUMBER.finditer(code)]
        if STATEMENT.match(code):
            changes.append((re.match(r'(?P<indent>\s*)(?P<rest>.*)', code), ';'))
        for match, replacement in changes:
            yield (path.relative_to(ROOT).as_posix(), number, line,
                   line[:match.start()] + replacement + line[match.end():])


def read_equivalent():
    """The faults known to change nothing, as (file, line before, line, changed line)."""
    known, path, before, line = set(), None, None, None
    for entry in EQUIVALENT.read_text().splitlines():
        if entry.startswith('@ '):
            before = entry[2:]
        elif entry.startswith('- '):
            line = entry[2:]
        elif entry.startswith('+ '):
            known.add((path, before, line, entry[2:]))
            before = None
        elif entry.startswith('src/'):
            path = entry
    return known


def keys_of(fault):
    """How the list of equivalent faults may name this one."""
    path, number, line, changed = fault
    before = (ROOT / path).read_text().splitlines()[number - 1].strip()
    return {(path, context, line.strip(), changed.strip()) for context in (None, before)}


class Workshop:
    """A copy of the project, built once, in which one fault after the other is tried."""

    def __init__(self, name, compiler, options):
        self.sources = WORK / name
        self.build = WORK / f'{name}-build'
        subprocess.run([ROOT / 'tools/copy_sources.sh', self.sources], check=True)
        self.run(['cmake', '-G', 'Ninja', '-S', self.sources, '-B', self.build, '-DCMAKE_BUILD_TYPE=Debug',
                  f'-DCMAKE_CXX_COMPILER={compiler}', f'-DCMAKE_CXX_FLAGS=-g0 -w {options}',
                  '-DCMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE=PRE_TEST', '-DVALUE_OBJECT_EXAMPLES=OFF'], check=True)
        self.run(['cmake', '--build', self.build], check=True, timeout=1800)
        for layer in LAYERS.values():
            if self.failing_test(layer):
                sys.exit(f'{self.failing_test(layer)} fails without a fault')

    @staticmethod
    def run(command, check=False, timeout=600, **options):
        return subprocess.run(command, check=check, timeout=timeout, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, **options)

    def place_of(self, word):
        """A word of a command: with @ a file of the sources, otherwise one of the build if there is one."""
        if word.startswith('@'):
            return self.sources / word[1:]
        return self.build / word if (self.build / word).is_file() else word

    def failing_test(self, layer):
        """The first test program of a layer that fails, crashes or hangs."""
        for test in layer.tests:
            try:
                failed = self.run([self.place_of(word) for word in test], timeout=120).returncode != 0
            except subprocess.TimeoutExpired:
                failed = True
            if failed:
                return ' '.join(test)
        return None

    def try_fault(self, fault):
        """'caught', 'survived', or 'not code' where it does not compile."""
        path, number, _, changed = fault
        source = self.sources / path
        original = source.read_text()
        lines = original.splitlines()
        lines[number] = changed
        source.write_text('\n'.join(lines) + '\n')
        try:
            built = self.run(['cmake', '--build', self.build, '--target', *layer_of(path).targets])
            if built.returncode != 0:
                return 'not code'
            return 'caught' if self.failing_test(layer_of(path)) else 'survived'
        finally:
            source.write_text(original)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument('--sample', type=int, default=300, help='how many faults are tried (300); 0 for all')
    parser.add_argument('--seed', type=int, default=1, help='which sample of that size (1)')
    parser.add_argument('--jobs', type=int, default=2, help='how many are tried at once (2)')
    parser.add_argument('--only', default='', help='try only faults of sources whose paths contain this')
    arguments = parser.parse_args()

    faults = [fault for path in sorted((ROOT / 'src').rglob('*.*')) if path.suffix in ('.h', '.cpp')
              for fault in faults_of(path) if arguments.only in path.as_posix()]
    total = len(faults)
    known = read_equivalent()
    for path, _, line, changed in known - {key for fault in faults for key in keys_of(fault)} if not arguments.only else ():
        print(f'{EQUIVALENT.name} names a fault that cannot be made any more:\n{path}\n- {line}\n+ {changed}')
    random.Random(arguments.seed).shuffle(faults)
    faults = faults[:arguments.sample or total]
    print(f'{len(faults)} of {total} faults', flush=True)

    shutil.rmtree(WORK, ignore_errors=True)
    workshops = queue.Queue()
    for k in range(arguments.jobs):
        workshops.put(Workshop(f'copy{k}', 'g++', ''))
    careful_workshops = queue.Queue()  # slower, for what the others let pass
    careful_workshops.put(Workshop('careful', 'clang++', '-fsanitize=address,undefined -fno-sanitize-recover=all'))

    counts = {'caught': 0, 'survived': 0, 'not code': 0, 'equivalent': 0}

    def try_in_one_of(choice, fault):
        workshop = choice.get()
        try:
            return workshop.try_fault(fault)
        finally:
            choice.put(workshop)

    def try_fault(fault):
        outcome = try_in_one_of(workshops, fault)
        return fault, try_in_one_of(careful_workshops, fault) if outcome == 'survived' else outcome

    with concurrent.futures.ThreadPoolExecutor(arguments.jobs) as pool:
        for fault, outcome in pool.map(try_fault, faults):
            path, number, line, changed = fault
            is_known = bool(keys_of(fault) & known)
            if outcome == 'caught' and is_known:
                print(f'{path}:{number + 1}: listed as equivalent, but caught\n+ {changed.strip()}', flush=True)
            if outcome == 'survived' and is_known:
                outcome = 'equivalent'
            counts[outcome] += 1
            if sum(counts.values()) % 50 == 0:
                print(f'{sum(counts.values())} tried', flush=True)
            if outcome == 'survived':
                print(f'survived at line {number + 1}\n{path}\n- {line.strip()}\n+ {changed.strip()}', flush=True)

    behaviour = counts['caught'] + counts['survived']
    share = counts['caught'] / behaviour if behaviour else 1.0
    print(f"caught {counts['caught']} of {behaviour} faults ({share:.1%}); {counts['equivalent']} more change nothing, "
          f"{counts['not code']} do not compile")
    return 0 if share >= REQUIRED_SHARE else 1


if __name__ == '__main__':
    sys.exit(main())
