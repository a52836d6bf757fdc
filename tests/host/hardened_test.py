#!/usr/bin/env python3
"""The programs, as they are installed, are hardened as Debian's own are."""
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

BUILD = pathlib.Path(sys.argv.pop(1))
PROGRAMS = sys.argv.pop(1).split(',')


def readelf(*arguments):
    return subprocess.run(['readelf', '--wide', *arguments], check=True, capture_output=True,
                          text=True).stdout


class HardenedTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        subprocess.run(['cmake', '--install', BUILD, '--prefix', cls.folder.name, '--component',
                        'programas'], check=True, stdout=subprocess.DEVNULL)
        cls.programs = [pathlib.Path(cls.folder.name, 'bin', name) for name in PROGRAMS]

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def hold(self, pattern, *arguments):
        for program in self.programs:
            with self.subTest(program=program.name, pattern=pattern):
                self.assertRegex(readelf(*arguments, program), pattern)

    def test_they_lie_elsewhere_at_each_start(self):
        self.hold(r'Type:\s+DYN \(Position-Independent Executable file\)', '--file-header')
        self.hold(r'\(FLAGS_1\).*\bPIE\b', '--dynamic')

    def test_nobody_writes_to_their_tables_of_functions(self):
        self.hold(r'\bGNU_RELRO\b', '--program-headers')
        self.hold(r'\((FLAGS_1\).*\bNOW\b|BIND_NOW\))', '--dynamic')

    def test_their_stack_is_no_code(self):
        self.hold(r'GNU_STACK.* RW ', '--program-headers')

    def test_what_overruns_the_stack_ends_them(self):
        self.hold(r'\b__stack_chk_fail\b', '--dyn-syms')

    def test_functions_know_the_size_of_their_buffers(self):
        # Of all the objects together: not every program calls one that needs it.
        checked = set(re.findall(r'\b(__\w+_chk)\b', ''.join(
            readelf('--dyn-syms', program) for program in self.programs))) - {'__stack_chk_fail'}
        self.assertTrue(checked)


if __name__ == '__main__':
    unittest.main()
