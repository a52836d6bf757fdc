#!/usr/bin/env python3
"""Turn the manual into a page that any browser shows: tools/manual_html.py docs/manual.md manual.html

It knows the part of Markdown that the manual is written in, and stops at what it doesn't know.
"""
import html
import pathlib
import re
import sys

STYLE = '''
body { font: 16px/1.55 "Noto Sans", "DejaVu Sans", Verdana, sans-serif; color: #1b2530;
       max-width: 60rem; margin: 0 auto; padding: 1rem 1.5rem 6rem; }
h1, h2, h3 { color: #1d4f73; line-height: 1.25; }
h2 { border-bottom: 2px solid #1d4f73; margin-top: 3.5rem; padding-bottom: .2rem; }
h3 { margin-top: 2.5rem; }
img { max-width: 100%; display: block; margin: 1rem 0; }
table { border-collapse: collapse; margin: 1rem 0; width: 100%; }
th, td { border: 1px solid #c4ccd4; padding: .35rem .6rem; text-align: left; vertical-align: top; }
th { background: #e3eef6; }
tr:nth-child(even) td { background: #f6f8fa; }
code { background: #eef1f4; padding: .05rem .25rem; border-radius: 3px; font-size: 90%; }
pre { background: #eef1f4; padding: .8rem 1rem; overflow-x: auto; border-radius: 6px; }
pre code { padding: 0; }
blockquote { border-left: 4px solid #c4ccd4; margin: 1rem 0; padding: .1rem 1rem; }
a { color: #1d5f93; }
:target { background: #fff6cc; }
@media print { body { max-width: none; } h3 { page-break-after: avoid; } img { max-height: 40vh; } }
'''


def anchor(heading):
    """The name that links give to a heading."""
    text = re.sub(r'[`*]', '', heading).strip().lower()
    return re.sub(r'[^\w\- ]', '', text).replace(' ', '-')


def inline(text):
    """A text with its code, bold words, pictures and links."""
    kept = []

    def keep(markup):
        kept.append(markup)
        return f'\0{len(kept) - 1}\0'

    text = re.sub(r'`([^`]+)`', lambda m: keep(f'<code>{html.escape(m[1])}</code>'), text)
    text = re.sub(r'<a id="([\w-]+)"></a>', lambda m: keep(f'<span id="{m[1]}"></span>'), text)
    text = html.escape(text, quote=False)
    text = re.sub(r'!\[([^\]]*)\]\(([^)\s]+)\)',
                  lambda m: keep(f'<img src="{m[2]}" alt="{html.escape(m[1])}">'), text)
    text = re.sub(r'\[([^\]]*)\]\(([^)\s]+)\)',
                  lambda m: keep(f'<a href="{m[2]}">') + m[1] + keep('</a>'), text)
    text = re.sub(r'\*\*([^*]+)\*\*', r'<strong>\1</strong>', text)
    return re.sub(r'\0(\d+)\0', lambda m: kept[int(m[1])], text)


def cells(line):
    return [cell.strip().replace('\\|', '|') for cell in re.split(r'(?<!\\)\|', line.strip()[1:-1])]


def table(lines):
    heading, rows = cells(lines[0]), [cells(line) for line in lines[2:]]
    for row in rows:
        if len(row) != len(heading):
            raise ValueError(f'A table of {len(heading)} columns has a row of {len(row)}: {row}')
    line = '<tr>' + ''.join(f'<th>{inline(cell)}</th>' for cell in heading) + '</tr>'
    body = ['<tr>' + ''.join(f'<td>{inline(cell)}</td>' for cell in row) + '</tr>' for row in rows]
    return '\n'.join(['<table>', line, *body, '</table>'])


def listing(lines):
    ordered = lines[0][0].isdigit()
    items = []
    for line in lines:
        match = re.match(r'(?:- |\d+\. )(.*)', line)
        if match:
            items.append(match[1])
        else:
            items[-1] += ' ' + line.strip()
    tag = 'ol' if ordered else 'ul'
    return '\n'.join([f'<{tag}>', *(f'<li>{inline(item)}</li>' for item in items), f'</{tag}>'])


def block(lines):
    """What stands between two blank lines."""
    heading = re.match(r'(#{1,6}) +(.+?)\s*$', lines[0])
    if heading:
        if len(lines) > 1:
            raise ValueError(f'No blank line behind the heading {lines[0]}')
        level = len(heading[1])
        return f'<h{level} id="{anchor(heading[2])}">{inline(heading[2])}</h{level}>'
    if lines[0].startswith('|'):
        return table(lines)
    if re.match(r'- |\d+\. ', lines[0]):
        return listing(lines)
    if lines[0].startswith('> '):
        return f'<blockquote><p>{inline(" ".join(line[2:] for line in lines))}</p></blockquote>'
    text = inline(' '.join(lines))
    return text if re.fullmatch(r'(<span id="[^"]+"></span>|<img [^>]+>)', text) else f'<p>{text}</p>'


def blocks(text):
    waiting, code = [], None
    for line in [*text.splitlines(), '']:
        if line.startswith('```'):
            if code is None:
                code = []
            else:
                yield '<pre><code>' + html.escape('\n'.join(code)) + '</code></pre>'
                code = None
        elif code is not None:
            code.append(line)
        elif line.strip():
            waiting.append(line)
        elif waiting:
            yield block(waiting)
            waiting = []
    if code is not None:
        raise ValueError('A sample of a terminal has no end')


def page(text):
    title = re.match(r'# +(.+)', text)[1]
    head = ('<!DOCTYPE html>\n<html lang="es">\n<head>\n<meta charset="utf-8">\n'
            '<meta name="viewport" content="width=device-width">\n'
            f'<title>{html.escape(title)}</title>\n<style>{STYLE}</style>\n</head>\n<body>\n')
    return head + '\n'.join(blocks(text)) + '\n</body>\n</html>\n'


def main(source, target):
    pathlib.Path(target).write_text(page(pathlib.Path(source).read_text('utf-8')), 'utf-8')


if __name__ == '__main__':
    if len(sys.argv) != 3:
        sys.exit('Uso: tools/manual_html.py MANUAL.md PAGINA.html')
    main(*sys.argv[1:])
