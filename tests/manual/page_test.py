#!/usr/bin/env python3
"""The page that the manual is turned into is whole, and its links lead somewhere."""
import html.parser
import sys
import unittest

import manual

sys.path.insert(0, str(manual.ROOT / 'tools'))
import manual_html

VOID = {'meta', 'img'}


class Reader(html.parser.HTMLParser):
    """Holds a page's names, links, pictures and text, and each tag that isn't closed in its turn."""

    def __init__(self, page):
        super().__init__()
        self.open, self.wrong, self.names = [], [], []
        self.links, self.pictures, self.texts = [], [], []
        self.feed(page)
        self.wrong += self.open

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        if 'id' in attributes:
            self.names.append(attributes['id'])
        if tag == 'a':
            self.links.append(attributes['href'])
        if tag == 'img':
            self.pictures.append(attributes['src'])
        if tag not in VOID:
            self.open.append(tag)

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.wrong.append(tag)

    def handle_data(self, data):
        if not {'code', 'style'} & set(self.open):
            self.texts.append(data)


class PageTest(unittest.TestCase):
    def setUp(self):
        self.manual = manual.Manual.read()
        self.page = Reader(manual_html.page(self.manual.text))

    def test_every_tag_is_closed_in_its_turn(self):
        self.assertEqual(self.page.wrong, [])

    def test_it_has_the_links_the_pictures_and_the_names_of_the_manual(self):
        self.assertEqual(self.page.pictures, self.manual.pictures)
        self.assertEqual(self.page.links, self.manual.links)
        self.assertEqual(set(self.page.names), self.manual.anchors)
        self.assertEqual(len(self.page.names), len(set(self.page.names)))

    def test_no_markup_is_left_in_its_text(self):
        for text in self.page.texts:
            for markup in ('**', '](', '|', '`', '\0', '<a id'):
                self.assertNotIn(markup, text)

    def test_every_message_stands_in_it(self):
        shown = manual.Manual(' '.join(self.page.texts))
        self.assertEqual(shown.lacks(manual.module_messages()), [])

    def test_what_is_not_understood_is_refused(self):
        with self.assertRaises(ValueError):
            manual_html.page('# Uno\n\n| a | b |\n|---|---|\n| 1 |\n')
        with self.assertRaises(ValueError):
            manual_html.page('# Uno\n\n## Dos\nseguido\n')
        with self.assertRaises(ValueError):
            manual_html.page('# Uno\n\n```\nsin fin\n')

    def test_signs_of_html_are_shown_as_they_are(self):
        page = manual_html.page('# Uno\n\nEl botón «<- Agregar» & `a < b`.\n')
        self.assertIn('«&lt;- Agregar» &amp; <code>a &lt; b</code>', page)


if __name__ == '__main__':
    unittest.main()
