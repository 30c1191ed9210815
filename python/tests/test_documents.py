"""What the documents and the docstrings show is what happens."""

import doctest
import pathlib
import re

import pytest

import varnix_value as vv
from varnix_value import Quantity

DOCS = pathlib.Path(__file__).resolve().parents[2] / 'docs'


def docstrings():
    """Every docstring of the package that has an example, the compiled ones too."""
    yield 'varnix_value', vv.__doc__
    for name in vv.__all__:
        thing = getattr(vv, name)
        yield name, thing.__doc__
        for member, value in vars(thing).items() if isinstance(thing, type) else ():
            yield f'{name}.{member}', getattr(value, '__doc__', None)


EXAMPLES = [(name, text) for name, text in docstrings() if text and '>>>' in text]


def failures_of(name, text):
    test = doctest.DocTestParser().get_doctest(text, dict(vars(vv)), name, name, 0)
    reports = []
    runner = doctest.DocTestRunner(verbose=False)
    runner.run(test, out=reports.append)
    return ''.join(reports)


def test_docstrings_have_examples():
    assert len(EXAMPLES) > 15


@pytest.mark.parametrize('name, text', EXAMPLES, ids=[name for name, _ in EXAMPLES])
def test_docstring(name, text):
    assert failures_of(name, text) == ''


def test_guide(monkeypatch, tmp_path):
    monkeypatch.chdir(tmp_path)
    assert failures_of('python.md', re.sub('^```.*$', '', (DOCS / 'python.md').read_text(), flags=re.M)) == ''


def test_readme(capsys):
    """Each line prints what stands behind it, or raises it."""
    (block,) = re.findall(r'^```python\n(.*?)^```', (DOCS.parent / 'README.md').read_text(), re.DOTALL | re.MULTILINE)
    names, checked = {}, 0
    for line in block.strip().split('\n'):
        statement, _, expected = (part.strip() for part in line.partition('  # '))
        if expected.startswith('raises: '):
            with pytest.raises(vv.MeasurementRefused, match=expected.removeprefix('raises: ')):
                exec(statement, names)
        else:
            exec(statement, names)
            assert capsys.readouterr().out.strip() == expected
        checked += expected != ''
    assert checked == 4


# ---- The questions of docs/measurement.md

ROWS = re.findall(r'^\| (\S[^|]*?) \| ([^|]+?) \| [^|]*\|$', (DOCS / 'measurement.md').read_text(), re.M)
QUESTIONS = [(question, answer) for question, answer in ROWS if re.match(r'-?\d', question)]
OPERATIONS = {
    '+': lambda x, y: x + y,
    '-': lambda x, y: x - y,
    '*': lambda x, y: x * y,
    '/': lambda x, y: x / y,
    '==': lambda x, y: vv.compare(x, y) is vv.Order.EQUAL,
    '<': lambda x, y: 'undecided' if vv.compare(x, y) is vv.Order.UNDECIDED else vv.certainly_less(x, y),
}


def answer_to(question):
    rest, _, other = question.partition(' with ')
    expression, _, unit = rest.partition(' to ')
    operation = re.fullmatch(r'(.*) (\+|-|\*|/|==|<) (.*)', expression)
    if operation:
        result = OPERATIONS[operation[2]](Quantity(operation[1]), Quantity(operation[3]))
    else:
        result = Quantity(expression)
    return result.to(unit, with_=other or None) if unit else result


def test_there_are_questions():
    assert len(QUESTIONS) > 20


@pytest.mark.parametrize('question, answer', QUESTIONS)
def test_question(question, answer):
    if answer.startswith('refused: '):
        with pytest.raises(vv.MeasurementRefused) as refused:
            answer_to(question)
        reason = answer[len('refused: '):].partition('; ')[0]  # the way out is the tool's
        assert f': {reason}' in str(refused.value)
    elif answer in ('true', 'undecided'):
        assert answer_to(question) == {'true': True}.get(answer, answer)
    else:
        result, shown = answer_to(question), Quantity(answer)
        if result.unit != shown.unit:  # V*A is shown as W
            result = result.to(shown.unit)
        for part in ('value', 'lower', 'upper'):
            assert getattr(result, part) == pytest.approx(getattr(shown, part), rel=1e-3)
