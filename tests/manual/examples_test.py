#!/usr/bin/env python3
"""The steps that the manual tells are played, each on a fresh sample school.

In an example, `# Se juega con:` tells the arguments, `# N.` is a step that the manual tells word
for word, and `# =>` is a line that must come out after the command above it.
"""
import contextlib
import os
import pathlib
import re
import sqlite3
import subprocess
import tempfile
import unittest

import manual

SCHOOL_TOOL = os.environ['QUORVANE_ESCUELA']
PLAYER = os.environ['QUORVANE_GUION']
STEP = re.compile(r'^# (\d+\. .+)$')
EXPECTED = re.compile(r'^# => (.+)$')
REFUSALS = ('rechazo ', 'error ')


class Example:
    def __init__(self, text):
        self.lines = text.splitlines()
        options = re.search(r'^# Se juega con: (.+)$', text, flags=re.M)
        self.options = options[1].split() if options else []
        self.steps = [match[1] for match in map(STEP.match, self.lines) if match]

    def expected(self):
        """For each command, in order, what must come out before the next."""
        found = []
        for line in self.lines:
            match = EXPECTED.match(line)
            if match:
                found[-1][1].append(match[1])
            elif line.strip() and not line.startswith('#'):
                found.append((line, []))
        return found

    def idle_steps(self):
        """Steps behind which nothing is done before the next."""
        idle, waiting = [], None
        for line in [*self.lines, '# 0. end']:
            match = STEP.match(line)
            if match:
                idle += [waiting] if waiting else []
                waiting = match[1]
            elif line.strip() and not line.startswith('#'):
                waiting = None
        return idle


def play(example, text):
    with tempfile.TemporaryDirectory() as folder:
        school = os.path.join(folder, 'escuela.sqlite')
        subprocess.run([SCHOOL_TOOL, 'demo', school], check=True, capture_output=True)
        played = subprocess.run([PLAYER, '--bd', school, *example.options], input=text,
                                text=True, capture_output=True, check=False)
        return played.returncode, played.stdout.splitlines(), played.stderr


def outputs(lines):
    """What came out at each command."""
    groups = []
    for line in lines:
        if line.startswith('> '):
            groups.append([])
        elif groups:
            groups[-1].append(line)
    return groups


def problems(text):
    """What is wrong with an example: empty when it goes as it says."""
    example = Example(text)
    status, lines, errors = play(example, text)
    found = [f'estado {status}: {errors}'] if status else []
    found += [line for line in lines if line.startswith(REFUSALS)]
    groups = outputs(lines)
    commands = example.expected()
    if len(groups) != len(commands):
        found.append(f'{len(groups)} órdenes de {len(commands)}')
    for (command, wanted), got in zip(commands, groups):
        rest = iter(got)
        found += [f'{command}: {line}' for line in wanted if line not in rest]
        unforeseen = [line for line in got if line.startswith('mensaje ') and line not in wanted]
        found += [f'{command}: {line}' for line in unforeseen]
    return found


class ExamplesTest(unittest.TestCase):
    def setUp(self):
        self.examples = {path.name: path.read_text(encoding='utf-8')
                         for path in sorted(manual.EXAMPLES.glob('*.guion'))}

    def test_every_example_goes_as_it_says(self):
        self.assertGreaterEqual(len(self.examples), 6)
        for name, text in self.examples.items():
            with self.subTest(name):
                self.assertEqual(problems(text), [])

    def test_something_is_expected_of_every_example_and_done_at_every_step(self):
        for name, text in self.examples.items():
            with self.subTest(name):
                self.assertTrue(any(wanted for _, wanted in Example(text).expected()))
                self.assertEqual(Example(text).idle_steps(), [])

    def test_the_manual_tells_the_same_steps(self):
        pages = manual.Manual.read()
        for name, text in self.examples.items():
            with self.subTest(name):
                self.assertIn(f'](ejemplos/{name})', pages.text)
                told = steps_before_link(pages.text, name)
                self.assertEqual(told, Example(text).steps)

    def test_an_example_that_goes_otherwise_is_found(self):
        text = (pathlib.Path(manual.EXAMPLES) / 'tutora.guion').read_text(encoding='utf-8')
        self.assertNotEqual(problems(text.replace('"7"]', '"8"]')), [])
        self.assertNotEqual(problems(text.replace('pulsar cmdSiguiente', 'pulsar cmdNinguno')), [])
        self.assertNotEqual(problems(text.replace('--hoy 03/03/2025', '--hoy 03/03/2024')), [])


class SampleOutputTest(unittest.TestCase):
    """What the manual shows of a terminal is what a terminal shows."""

    def test_every_sample_of_our_own_tools_is_true(self):
        told = [(command, output) for command, output in terminal_samples(manual.Manual.read().text)
                if command.startswith(('quorvane-', 'cat '))]
        self.assertGreaterEqual(len(told), 7)
        with tempfile.TemporaryDirectory() as folder:
            make_damaged_school(os.path.join(folder, 'escuela.sqlite'))
            for command, output in told:
                with self.subTest(command):
                    self.assertEqual(run_sample(folder, command, output), output)


class CureTest(unittest.TestCase):
    """What the technician is given to type does what is said of it."""

    def test_doubled_teachers_are_removed_and_the_ones_that_teach_stay(self):
        statement = re.search(r'"(DELETE FROM Profesor_Pte [^"]+)"', manual.Manual.read().text)[1]
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, 'escuela.sqlite')
            subprocess.run([SCHOOL_TOOL, 'demo', path], check=True, capture_output=True)
            with contextlib.closing(sqlite3.connect(path)) as school:
                before = sorted(school.execute('SELECT * FROM Profesor_Pte'))
                school.executescript('INSERT INTO Profesor_Pte SELECT 0, CodMatDet '
                                     'FROM Profesor_Pte;')
                self.assertEqual(opened_register(path), 'error 457')
                school.executescript(statement)
                self.assertEqual(sorted(school.execute('SELECT * FROM Profesor_Pte')), before)
            self.assertEqual(opened_register(path), 'muestra frmAlumnoPendiente')


def opened_register(path):
    """How the opening of a section's register ends."""
    script = ('nodo 123\nelegir cboTEnsenanza =3\nelegir cboCurso "3º ESO"\n'
              'elegir cboSeccion "3º ESO A"\npulsar cmdAceptar\n')
    played = subprocess.run([PLAYER, '--bd', path], input=script, text=True, capture_output=True,
                            check=False)
    return ' '.join(played.stdout.splitlines()[-1].split()[:2])


def terminal_samples(text):
    """Each command behind a `$`, and the lines that stand below it."""
    samples = []
    for block in re.findall(r'^```\n(\$.*?)^```', text, flags=re.S | re.M):
        for line in block.splitlines():
            if line.startswith('$ '):
                samples.append((line[2:], []))
            else:
                samples[-1][1].append(line)
    return samples


def run_sample(folder, command, output):
    if command.startswith('cat '):
        # A script that the manual shows before it is played.
        pathlib.Path(folder, command.split()[1]).write_text('\n'.join(output) + '\n', 'utf-8')
    if 'copia.sqlite' in command:
        subprocess.run([SCHOOL_TOOL, 'demo', 'copia.sqlite'], cwd=folder, check=True,
                       capture_output=True)
    tools = [os.path.dirname(SCHOOL_TOOL), os.path.dirname(PLAYER), os.environ['PATH']]
    ran = subprocess.run(['sh', '-c', command], cwd=folder, capture_output=True, text=True,
                         check=False, env={**os.environ, 'PATH': os.pathsep.join(tools)})
    return (ran.stdout + ran.stderr).splitlines()


def make_damaged_school(path):
    """Orphans, a double and locks without a publication, for the tool to find."""
    subprocess.run([SCHOOL_TOOL, 'demo', path], check=True, capture_output=True)
    with contextlib.closing(sqlite3.connect(path)) as school:
        school.executescript(
            "DELETE FROM Alumno WHERE Apellido_1='Ramírez';"
            'INSERT INTO BloqueoPte VALUES (0,2,14,3,55);'
            'INSERT INTO AlumnoPte_MatDet SELECT 900,CodAlumno,CodMatDet,3,0 FROM AlumnoPte_MatDet '
            'WHERE IDAlumnoPte_MatDet=1;')


def steps_before_link(text, name):
    """The numbered steps of the list that stands last before the link to the example."""
    before = text[:text.index(f'](ejemplos/{name})')]
    steps = []
    for line in before.splitlines():
        match = re.match(r'(\d+)\. (.+)', line)
        if match and match[1] == '1':
            steps = []
        if match:
            steps.append(line)
    return steps


if __name__ == '__main__':
    unittest.main()
