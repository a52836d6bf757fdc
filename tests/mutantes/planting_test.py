#!/usr/bin/env python3
"""Where tools/mutantes plants a fault, on small texts; and that a seed gives the same faults."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOLS = pathlib.Path(__file__).resolve().parents[2] / 'tools'
sys.path.insert(0, str(TOOLS / 'mutantes.d'))
import planting  # noqa: E402


def planted(kind, text, enums=None):
    """The text after each fault of that kind that can be planted."""
    return [text[:start] + new + text[end:]
            for site in planting.sites(text, enums or {})[kind] for start, end, new in site]


class SitesTest(unittest.TestCase):
    def test_comparisons(self):
        self.assertEqual(planted('comparación', 'if (a == b) c();'), ['if (a != b) c();'])
        self.assertEqual(planted('comparación', 'i < 2 && j >= 3'),
                         ['i <= 2 && j >= 3', 'i < 2 && j > 3'])

    def test_brackets_of_templates_and_streams_are_no_comparisons(self):
        for text in ('#include <map>\n', 'std::map<int, std::vector<int>> all;', 'out << a >> b;',
                     'template <class T>\n', 'auto f() -> int;', 'a <=> b', '// a == b\n',
                     '"WHERE a == b"', "x = '<';", '/* a < b */'):
            self.assertEqual(planted('comparación', text), [], text)

    def test_logic(self):
        self.assertEqual(planted('lógica', 'a && !b || c'), ['a || !b || c', 'a && !b && c'])
        self.assertEqual(planted('lógica', 'auto&& x = y; T&& z;'), [])

    def test_negations(self):
        self.assertEqual(planted('negación', 'if (!a && b != c) d(!(e));'),
                         ['if (a && b != c) d(!(e));', 'if (!a && b != c) d((e));'])

    def test_numbers_and_truths(self):
        self.assertEqual(planted('constante', "f(19, 20'000, true);"),
                         ["f(20, 20'000, true);", 'f(19, 20001, true);', "f(19, 20'000, false);"])
        self.assertEqual(planted('constante', 'std::int32_t a1; 0x1F; 1.5; // 7\n#define N 8\n'), [])

    def test_values_of_enumerations(self):
        enums = planting.enumerations(['enum class Pointer { Default = 0, Hourglass = 11, };'])
        self.assertEqual(enums, {'Pointer': ['Default', 'Hourglass']})
        self.assertEqual(planted('constante', 'p(Pointer::Default);', enums), ['p(Pointer::Hourglass);'])

    def test_a_letter_of_a_text(self):
        self.assertEqual(planted('constante', r'f("a\nZ9é");'),
                         [r'f("b\nZ9é");', r'f("a\nY9é");', r'f("a\nZ8é");'])
        self.assertEqual(planted('constante', 'f(R"(q)");'), ['f(R"(r)");'])

    def test_blanks_of_statements_alone(self):
        self.assertEqual(planted('blanco', 'f("a b", " AND");'),
                         ['f("a b", "AND");', 'f("a b", "  AND");'])
        self.assertEqual(planted('blanco', 'x = 1; // SELECT a\n'), [])

    def test_dropped_calls(self):
        text = 'void f() {\n  a.b(c).d();\n  if (e) g(); else h(1,\n  2);\n}'
        self.assertEqual(planted('llamada', text),
                         [text.replace('a.b(c).d();', '{}'), text.replace('g();', '{}'),
                          text.replace('h(1,\n  2);', '{}')])

    def test_inside_what_is_given_as_an_argument(self):
        text = 'Each([this] { A(); });'
        self.assertEqual(planted('llamada', text), ['Each([this] { {} });'])

    def test_what_is_no_call_stays(self):
        for text in ('return f();', 'throw E(1);', 'int g(int a);', 'auto x = f();', 'T name(1);',
                     'for (a(); b(); c()) d;', 'using A = B();', 'x = f();', 'case 1: break;'):
            self.assertEqual(planted('llamada', text), [], text)

    def test_swapped_neighbours(self):
        self.assertEqual(planted('orden', '{ a(); x.y = 2; ++n; }'),
                         ['{ x.y = 2; a(); ++n; }', '{ a(); ++n; x.y = 2; }'])
        self.assertEqual(planted('orden', 'case 1:\n a();\n b();'), [])

    def test_declarations_and_what_is_decided_upon_are_not_swapped(self):
        for text in ('auto x = a(); b();', 'if (a) b(); c();', 'a(); return b();', 'a(); } b();',
                     'a(); a();', 'b(); for (;;) c();'):
            self.assertEqual(planted('orden', text), [], text)

    def test_looks_are_not_swapped_for_it_shows_nowhere(self):
        self.assertEqual(planted('orden', 'a.Caption("x"); a.Place(1, 2, 3, 4);'), [])
        self.assertEqual(len(planted('orden', 't.AddTab("x"); t.AddTab("y");')), 1)


class FaultTest(unittest.TestCase):
    TEXT = 'one\n  two(\n    3);\nfour\n'

    def test_it_tells_its_lines(self):
        start = self.TEXT.index('two')
        fault = planting.Fault('llamada', 'a/B.cpp', start, self.TEXT.index(';') + 1, '{}')
        self.assertEqual(fault.apply(self.TEXT), 'one\n  {}\nfour\n')
        self.assertEqual(fault.line(self.TEXT), 2)
        self.assertEqual(fault.lines(self.TEXT), ('two( ⏎ 3);', '{}'))


class DrawTest(unittest.TestCase):
    TEXTS = {f'grades/{name}': f'void {name[0]}() {{\n' + 'if (a == 1) b(2);\n' * 5 + '}\n'
             for name in ('A.cpp', 'B.cpp', 'C.cpp', 'D.h')}

    @staticmethod
    def drawn(texts, seed, count=10):
        draw = planting.Draw(texts, seed)
        return [draw.next(kind) for _ in range(count) for kind in ('comparación', 'llamada')]

    def test_a_seed_gives_the_same_in_whatever_order_the_files_come(self):
        backwards = dict(reversed(self.TEXTS.items()))
        self.assertEqual(self.drawn(self.TEXTS, 7), self.drawn(backwards, 7))
        self.assertNotEqual(self.drawn(self.TEXTS, 7), self.drawn(self.TEXTS, 8))

    def test_a_kind_is_drawn_by_itself(self):
        draw = planting.Draw(self.TEXTS, 7)
        alone = [draw.next('llamada') for _ in range(10)]
        self.assertEqual(alone, self.drawn(self.TEXTS, 7)[1::2])

    def test_none_twice_and_then_none(self):
        draw = planting.Draw(self.TEXTS, 7)
        faults = [draw.next('comparación') for _ in range(21)]
        self.assertIsNone(faults.pop())
        self.assertEqual(len(set(faults)), 20)

    def test_evenly_over_files_and_seldom_in_headers(self):
        first = [fault.file for fault in self.drawn(self.TEXTS, 7)[0:12:2]]
        sources = [first.count(file) for file in self.TEXTS if file.endswith('.cpp')]
        self.assertGreaterEqual(min(sources), 1)
        self.assertLessEqual(first.count('grades/D.h'), 1)

    def test_the_share_of_each_kind(self):
        self.assertEqual(sum(planting.share(100).values()), 100)
        self.assertEqual(set(planting.share(14).values()), {2})


class ExplainedTest(unittest.TestCase):
    def test_a_line_is_known_in_whatever_folder_its_file_lies(self):
        explained = planting.Explained('# why\n\ngrades/A.cpp | if (a || b) | if (a && b) | one case\n')
        self.assertEqual(explained.reason('grades/x/A.cpp', 'if (a || b)', 'if (a && b)'), 'one case')
        self.assertIsNone(explained.reason('grades/A.cpp', 'if (a || b)', 'if (a)'))

    def test_a_line_without_its_reason_is_refused(self):
        with self.assertRaisesRegex(ValueError, 'línea 1'):
            planting.Explained('grades/A.cpp | a | b\n')


class ProgramTest(unittest.TestCase):
    def run_tool(self, *arguments):
        return subprocess.run([sys.executable, '-B', TOOLS / 'mutantes', *arguments],
                              capture_output=True, text=True)

    def test_the_list_is_the_same_each_time(self):
        with tempfile.TemporaryDirectory() as folder:
            grades = pathlib.Path(folder, 'grades')
            grades.mkdir()
            pathlib.Path(folder, 'CMakeLists.txt').touch()
            (grades / 'A.cpp').write_text('void f() {\n  if (!a && b == 1) c();\n}\n')
            subprocess.run(['git', 'init', '-q', folder], check=True)
            lists = [self.run_tool('5', '--lista', '--semilla', '3', '--arbol', folder)
                     for _ in range(2)]
            self.assertEqual(lists[0].returncode, 0, lists[0].stderr)
            self.assertIn('comparación:1 grades/A.cpp:2', lists[0].stdout)
            self.assertEqual(lists[0].stdout, lists[1].stdout)
            self.assertEqual(sorted(path.name for path in grades.iterdir()), ['A.cpp'])

    def test_a_folder_that_is_no_copy_of_its_own_is_left_as_it_is(self):
        with tempfile.TemporaryDirectory() as folder:
            letter = pathlib.Path(folder, 'arbol', 'carta.txt')
            letter.parent.mkdir()
            letter.write_text('mío', encoding='utf-8')
            done = self.run_tool('1', '--carpeta', folder)
            self.assertEqual(done.returncode, 2)
            self.assertIn('no es una copia hecha por esta orden', done.stderr)
            self.assertEqual(letter.read_text(encoding='utf-8'), 'mío')

    def test_bad_arguments_end_with_two(self):
        for arguments in ((), ('0',), ('x',), ('3', '--limite', '0'), ('3', '--nada'),
                          ('3', '--arbol', '/no/hay')):
            self.assertEqual(self.run_tool(*arguments).returncode, 2, arguments)


if __name__ == '__main__':
    unittest.main()
