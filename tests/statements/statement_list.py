"""The list of the statements that the module can issue, tests/sqlite/statements.txt."""
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
LIST = ROOT / 'tests/sqlite/statements.txt'

PLACE = re.compile(r'(\{[nbl]\})')
FILLED = {'{n}': '-?[0-9]+', '{b}': '(?:1|-1|0)', '{l}': '-?[0-9]+(?:,-?[0-9]+)*'}

# Headings that name the forms of a folder before grades/.
NOT_GRADES = re.compile(r'step-one forms|frmNota\w+1\b|frm(Pendientes|Alumno|Materia|PropMatProf)')


class Line:
    """A line of the list, `of_grades` when only grades/ issues it; `mark` is "~" for a statement
    that no event reaches and "?" for another joining of the line above it."""

    def __init__(self, number, text, of_grades):
        self.number, self.of_grades = number, of_grades
        self.mark = text[0] if text[:2] in ('~ ', '? ') else ''
        self.text = text[2:] if self.mark else text
        self.whole = PLACE.sub('{}', self.text)  # as `Sql` spells it
        self.head = PLACE.split(self.text)[0]

    def issued_as(self):
        """What a trace shows of it."""
        return re.compile(''.join(FILLED.get(part) or re.escape(part)
                                  for part in PLACE.split(self.text)))


def read_list():
    lines, of_grades = [], False
    for number, text in enumerate(LIST.read_text(encoding='utf-8').split('\n'), 1):
        if text.startswith('#'):
            of_grades = NOT_GRADES.search(text) is None
        elif text:
            lines.append(Line(number, text, of_grades))
    return lines
