#!/usr/bin/env python3
"""The manual tells every message, shows every screen, and leads nowhere that isn't there."""
import unittest

import manual


PARTS = ('Para qué sirve', 'Cómo se llega', 'Controles', 'Teclado', 'Qué se guarda', 'Mensajes')


class MessagesTest(unittest.TestCase):
    def setUp(self):
        self.manual = manual.Manual.read()

    def test_every_message_of_the_module_stands_in_it(self):
        messages = manual.module_messages()
        self.assertGreater(len(messages), 25)
        self.assertEqual(self.manual.lacks(messages), [])

    def test_no_message_of_the_module_escapes_the_reader(self):
        routines_told_the_text = {'AperturaFinal', 'FormularioEncogido', 'Intentos', 'PasosPasoDos',
                                  'TrabajoNotas'}
        text_that_is_not_there = {'frmNotaSeccionAlumno1', 'frmNotaSeccionMateria1'}
        self.assertEqual(manual.messages_by_name(),
                         routines_told_the_text | text_that_is_not_there)
        self.assertTrue(self.manual.holds('No se encuentra el recurso con el identificador 28001'))

    def test_every_message_of_the_host_stands_in_it(self):
        messages = manual.host_messages()
        self.assertGreater(len(messages), 10)
        self.assertEqual(self.manual.lacks(messages), [])

    def test_every_finding_of_the_school_tool_stands_in_it(self):
        findings = manual.tool_messages()
        self.assertGreater(len(findings), 8)
        self.assertEqual(self.manual.lacks(findings), [])

    def test_every_error_number_stands_in_it_with_its_text(self):
        errors = manual.error_numbers()
        self.assertGreater(len(errors), 12)
        index = self.manual.section('Índice de números de error')
        for number, text in errors.items():
            self.assertRegex(index, rf'(?m)^\| {number} \|.*{text}', f'error {number}')

    def test_the_index_of_messages_is_in_alphabetical_order_and_whole(self):
        lines = [line for line in self.manual.section('Índice de mensajes').splitlines()
                 if line.startswith('| «')]
        texts = [line.split('»')[0][3:] for line in lines]
        self.assertEqual(texts, sorted(texts, key=alphabetical))
        listed = manual.Manual('\n'.join(lines))
        self.assertEqual(listed.lacks(manual.module_messages()), [])

    def test_a_message_that_is_left_out_is_found(self):
        for message in manual.module_messages():
            doctored = manual.Manual(self.manual.flat.replace(message, 'otra cosa'))
            self.assertIn(message, doctored.lacks([message]))


class PagesTest(unittest.TestCase):
    def setUp(self):
        self.manual = manual.Manual.read()

    def test_every_screen_has_its_page_with_a_picture(self):
        forms = manual.forms()
        self.assertEqual(len(forms), 19)
        for form in forms:
            with self.subTest(form):
                self.assertRegex(self.manual.page_of(form), rf'!\[[^]]*\]\(pantallas/{form}\W')

    def test_every_page_tells_its_use_way_controls_keys_saving_and_messages(self):
        for form in manual.forms():
            for part in PARTS:
                with self.subTest(form, part=part):
                    self.assertIn(f'**{part}', self.manual.page_of(form))

    def test_every_window_of_the_host_is_told_as_whole_as_a_screen(self):
        for window in ('Inicio', 'Conectar con un servidor', 'Entrar', 'Ventana principal',
                       'Buscar docente', 'Publicaciones y bloqueos', 'Estado de la evaluación',
                       'Historial de notas', 'Informe de pendientes', 'Importar el registro', 'Sentencias'):
            for part in PARTS:
                with self.subTest(window, part=part):
                    self.assertIn(f'**{part}', self.manual.section(window))
            self.assertIn('](pantallas/', self.manual.section(window))

    def test_every_caption_of_a_screen_is_told_on_its_page(self):
        for form in manual.forms():
            page = manual.Manual(self.manual.page_of(form))
            for caption in manual.captions(form):
                with self.subTest(form, caption=caption):
                    self.assertTrue(page.holds(caption))

    def test_every_caption_of_the_host_is_told(self):
        captions = manual.host_captions()
        self.assertGreater(len(captions), 30)
        self.assertEqual(self.manual.lacks(captions), [])

    def test_every_message_of_a_screen_is_told_on_its_page(self):
        for text, files in manual.module_messages().items():
            for form in manual.forms():
                if files & {form, form + 'Rejilla', form + 'Notas'}:
                    with self.subTest(form, message=text):
                        self.assertEqual(manual.Manual(self.manual.page_of(form)).lacks([text]), [])

    def test_every_picture_is_there(self):
        self.assertGreater(len(self.manual.pictures), 40)
        missing = [picture for picture in self.manual.pictures
                   if not (manual.MANUAL.parent / picture).is_file()]
        self.assertEqual(missing, [])

    def test_every_link_leads_somewhere(self):
        self.assertGreater(len(self.manual.links), 60)
        self.assertEqual(self.manual.broken_links(), [])

    def test_a_broken_link_is_found(self):
        text = '# Uno\n[a](#uno) [b](#dos) [c](no-hay.md) [d](manual.md)\n'
        self.assertEqual(manual.Manual(text).broken_links(), ['#dos', 'no-hay.md'])


class ReadingTest(unittest.TestCase):
    def test_literals_side_by_side_are_one(self):
        self.assertEqual(manual.literals('f("a "\n  "b", "c\\n")'), ['a b', 'c\n'])

    def test_the_arguments_of_a_call_end_at_its_parenthesis(self):
        self.assertEqual(list(manual.arguments('f(g(1), "(") + f(2)', 'f(')), ['g(1), "("', '2'])

    def test_what_is_filled_in_at_run_time_may_have_any_name(self):
        page = manual.Manual('En «IES Ejemplo» no hay ningún usuario 9.')
        self.assertTrue(page.holds('En «%1» no hay ningún usuario %2.'))
        self.assertFalse(page.holds('En «%1» no hay ninguna usuaria %2.'))


def alphabetical(text):
    """As a Spanish reader looks a text up: without case, accents or signs."""
    folded = text.lower().translate(str.maketrans('áéíóúü', 'aeiouu')).replace('ñ', 'n\uffff')
    return [letter for letter in folded if letter.isalnum() or letter in ' \uffff']


if __name__ == '__main__':
    unittest.main()
