#!/usr/bin/env python3
"""The page "Where is...?" answers its questions, each with one file that is there."""
import re
import unittest

import manual

PAGE = manual.ROOT / 'docs' / 'where-is.md'
LEAST = 30

LINK = re.compile(r'\[([^\]]+)\]\(([^)]+)\)')


class WherePage(unittest.TestCase):
    def setUp(self):
        self.answers = [line for line in PAGE.read_text(encoding='utf-8').splitlines()
                        if line.startswith('- ')]

    def test_answers_at_least_so_many_questions(self):
        self.assertGreaterEqual(len(self.answers), LEAST)

    def test_asks_nothing_twice(self):
        questions = [answer.partition('?')[0] for answer in self.answers]
        self.assertEqual(len(questions), len(set(questions)))

    def test_answers_each_with_one_file_that_is_there(self):
        for answer in self.answers:
            with self.subTest(answer):
                self.assertRegex(answer, r'^- Where [^?\[]*\? \[')
                links = LINK.findall(answer)
                self.assertEqual(len(links), 1)
                name, target = links[0]
                self.assertEqual(target, f'../{name}')
                self.assertTrue((PAGE.parent / target).is_file())

    def test_names_files_beside_the_answer_that_are_there(self):
        for name in re.findall(r'`(\w+/[\w/]+\.\w+)`', '\n'.join(self.answers)):
            self.assertTrue((manual.ROOT / name).is_file(), name)


if __name__ == '__main__':
    unittest.main()
