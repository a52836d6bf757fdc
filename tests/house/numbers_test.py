#!/usr/bin/env python3
"""Holds that numbers of command lines are read by one reader: PlainNumber, or tools/numeros.py where the
program is Python. The language's own readers take more than plain decimals, or a part of a text; where one
stands, what it reads comes from no user."""
import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / 'tools'))
import numeros  # noqa: E402

FOLDERS = ('adapters', 'apps', 'bench', 'frame', 'fuzz', 'grades', 'platform', 'register', 'selection', 'tests',
           'tools')
CPP = re.compile(r'\b(?:ato[ifl]|atoll|strto\w+|sto(?:i|l|ll|ul|ull|f|d)|sscanf|from_chars)\b\s*\(')
# An argument of Qt's comes as a text, too.
QT = re.compile(r'\b(?:argv|arguments?|at\)?)(?:\[[^]]*\])?(?:->|\.)to(?:U?Int|U?Long|Double)\(')
PYTHON = re.compile(r'type=(?:int|float)\b|\b(?:int|float)\((?:sys\.)?argv')
# The whole text of a number, and what else is read from.
ELSEWHERE = {
    'platform/text/PlainNumber.h': 'the reader itself',
    'platform/data/Value.cpp': 'what a database holds',
    'platform/host/Application.cpp': 'the version, of digits and points',
    'selection/LeerFecha.cpp': 'digits of a date',
    'adapters/odbc/ColumnReader.cpp': 'what a driver gives',
    'adapters/odbc/ServerSockets.cpp': 'the system\'s list of connections',
    'adapters/odbc/SupportedServer.cpp': 'the version that a server tells',
    'apps/escuela/CellLiteral.cpp': 'what a database holds',
    'apps/escuela/repair/UndoLiteral.cpp': 'what a database holds',
    'apps/quorvane-escuela/HistoryCommand.cpp': 'digits of a date',
    'bench/GuionMemory.cpp': 'the system\'s list of processes',
    'tests/crowd/CrowdConnection.cpp': 'a statement of our own',
    'tests/escuela/SchoolImportTest.cpp': 'what a database holds',
    'tests/escuela/SchoolYearTest.cpp': 'what a tool printed',
    'tests/kills/FormsOpen.h': 'what a database holds',
    'tests/kills/Kills.cpp': 'what a database holds',
    'tests/servidor/KeepaliveTest.cpp': 'the system\'s list of open files',
    'tests/support/SmallSchool.cpp': 'what a database holds',
}


def texts():
    """All sources with their names, and what is Python without saying so by its name."""
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).rglob('*')):
            if not path.is_file() or path == pathlib.Path(__file__).resolve():
                continue
            if path.suffix in ('.h', '.cpp', '.py') or path.parent == ROOT / 'tools' and not path.suffix:
                yield path.relative_to(ROOT).as_posix(), path.read_text(encoding='utf-8')


def readers(name, text):
    if name.endswith(('.h', '.cpp')):
        return CPP.findall(re.sub(r'//[^\n]*', '', text)) + QT.findall(text)
    return PYTHON.findall(text)


class ReadersTest(unittest.TestCase):
    def test_no_program_has_a_reader_of_its_own(self):
        found = {name for name, text in texts() if readers(name, text)}
        self.assertEqual(found, set(ELSEWHERE))

    def test_those_that_are_none_are_seen(self):
        for name, line in (('a.cpp', 'size = std::atoi(argument.c_str());'), ('a.cpp', 'std::stoul(text)'),
                           ('a.cpp', 'look.points = (++at)->toInt();'), ('a.cpp', 'arguments[1].toInt()'),
                           ('a.py', "add_argument('N', type=int)"), ('a.py', 'int(sys.argv[2])')):
            self.assertTrue(readers(name, line), line)


class NumbersTest(unittest.TestCase):
    def test_a_plain_decimal_is_read(self):
        for text, number in (('0', 0), ('7', 7), ('-12', -12), ('1000000', 1000000)):
            self.assertEqual(numeros.plain_number(text), number)

    def test_nothing_else_is(self):
        for text in ('', ' 1', '1 ', '01', '-0', '+1', '0x1', '1e0', '1_000', '1.0', '١', '1\n', 'uno', '--1'):
            with self.assertRaises(ValueError):
                numeros.plain_number(text)
            with self.assertRaises(numeros.argparse.ArgumentTypeError):
                numeros.positive(text)
        for text in ('0', '-1'):
            with self.assertRaises(numeros.argparse.ArgumentTypeError):
                numeros.positive(text)


if __name__ == '__main__':
    unittest.main()
