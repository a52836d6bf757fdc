"""What the manual says, and what the sources say: read from both, so that they can be compared."""
import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parents[2]
MANUAL = ROOT / 'docs' / 'manual.md'
EXAMPLES = ROOT / 'docs' / 'ejemplos'

# What shows a text to the user: in the module, and in the desktop host.
BOXES = ('MessageBox(', 'BeepAndMessage(', 'MostrarAnimacion(')
# Routines of several forms that hand a form's text on to one.
MODULE_CALLS = BOXES + ('EmpezarCarga(', 'EmpezarGrabacion(', 'EmpezarGuardado(', 'CerrarSinNotas(')
NAMED_TEXT = re.compile(r'constexpr const char\* (k\w+) =\s*("[^;]*");')
MODULE_FOLDERS = ('register', 'selection', 'grades', 'frame')
HOST_FOLDERS = ('apps/zendria',)
HOST_CALLS = ('SchoolError(', 'QMessageBox box(', 'setInformativeText(', 'showMessage(')
# In these the texts of a box are told apart from where it is shown.
HOST_WHOLE_FILES = ('FailureBox.cpp', 'NodeRunner.cpp')
TOOL_FILES = ('apps/escuela/SchoolCheck.cpp', 'apps/quorvane-escuela/Commands.cpp',
              'apps/escuela/repair/SchoolRepair.cpp', 'apps/quorvane-escuela/RepairCommand.cpp',
              'apps/quorvane-escuela/ImportCommand.cpp', 'apps/quorvane-escuela/StateCommand.cpp',
              'apps/quorvane-escuela/ReportCommand.cpp', 'apps/escuela/report/ReportReader.cpp',
              'apps/quorvane-escuela/HistoryCommand.cpp')
# Not for the reader: names of objects, formats and the like.
SHORTEST_TEXT = 12

LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')


def literals(code):
    """The string literals of C++ code, those that stand side by side joined, in order."""
    found = []
    end = None
    for match in LITERAL.finditer(code):
        text = match[1].replace('\\n', '\n').replace('\\r', '\r').replace('\\"', '"')
        text = text.replace('\\\\', '\\')
        if end is not None and not code[end:match.start()].strip():
            found[-1] += text
        else:
            found.append(text)
        end = match.end()
    return found


def arguments(code, call):
    """The text between the parentheses of each call."""
    at = code.find(call)
    while at >= 0:
        start = at + len(call)
        depth, end, quoted = 1, start, False
        while depth:
            letter = code[end]
            if letter == '"' and code[end - 1] != '\\':
                quoted = not quoted
            elif not quoted:
                depth += {'(': 1, ')': -1}.get(letter, 0)
            end += 1
        yield code[start:end - 1]
        at = code.find(call, start)


def without_comments(code):
    return re.sub(r'^\s*(//|#include).*$', '', code, flags=re.M)


def sources(folders, endings=('.cpp',)):
    for folder in folders:
        for path in sorted((ROOT / folder).rglob('*')):
            if path.suffix in endings:
                yield path, without_comments(path.read_text(encoding='utf-8'))


def module_units():
    """The module's sources with their headers: the name, the code, the texts that have a name there."""
    units = {}
    for path, code in sources(MODULE_FOLDERS, ('.cpp', '.h')):
        units[path.stem] = units.get(path.stem, '') + code
    for name, code in units.items():
        yield name, code, {key: literals(text)[0] for key, text in NAMED_TEXT.findall(code)}


def shown_texts(inside, named):
    """The texts among what a call is given."""
    return literals(inside) or [text for key, text in named.items() if re.search(rf'\b{key}\b', inside)]


def module_messages():
    """The texts of the module's message boxes and busy signs, each with the files it stands in."""
    found = {}
    for name, code, named in module_units():
        texts = [text for call in MODULE_CALLS for inside in arguments(code, call)
                 for text in shown_texts(inside, named)]
        # Texts that go to a box by way of a routine which tries a statement again.
        texts += [text for text in literals(code) if text.startswith('Error al ')]
        for text in texts:
            found.setdefault(text.strip(), set()).add(name)
    return found


def messages_by_name():
    """The sources that show a text which doesn't stand in them."""
    return {name for name, code, named in module_units()
            for call in BOXES for inside in arguments(code, call) if not shown_texts(inside, named)}


def host_messages():
    """The texts of the host's boxes, but for a word or two, each with the files it stands in."""
    found = {}
    for path, code in sources(HOST_FOLDERS):
        texts = [text for call in HOST_CALLS for inside in arguments(code, call)
                 for text in literals(inside)]
        if path.name in HOST_WHOLE_FILES:
            texts += literals(code)
        for line in '\n'.join(texts).split('\n'):
            if len(line) >= SHORTEST_TEXT:
                found.setdefault(line.strip(), set()).add(path.stem)
    return found


def host_captions():
    """What the host's menus, buttons, fields and hints say, without the marks of their keys."""
    patterns = (r'add(?:Action|Menu|Button)\("([^"]+)"', r'QPushButton\("([^"]+)"',
                r'QLabel\("([^"]+)"\)', r'setWindowTitle\("([^"]+)"', r'addRow\("([^"]+)"',
                r'\b\w+_\("([^"]+)"', r'setPlaceholderText\("([^"]+)"')
    found = set()
    for _, code in sources(HOST_FOLDERS):
        for pattern in patterns:
            found.update(text.replace('&', '') for text in re.findall(pattern, code))
    return found


def tool_messages():
    """What the school's tool finds, and how it ends: the beginnings of its lines."""
    found = set()
    for name in TOOL_FILES:
        code = without_comments((ROOT / name).read_text(encoding='utf-8'))
        for text in literals(code):
            if re.match(r'[A-Z][a-zé]\w* \w', text) and ' JOIN ' not in text:
                found.add(text.strip())
    return found


def error_numbers():
    """The numbers of the runtime's errors, and the runtime's own text for each."""
    header = (ROOT / 'platform/RuntimeError.h').read_text(encoding='utf-8')
    numbers = dict(re.findall(r'^\s*(\w+) = (-?\d+),', header, flags=re.M))
    body = (ROOT / 'platform/RuntimeError.cpp').read_text(encoding='utf-8')
    texts = dict(re.findall(r'case ErrorNumber::(\w+):\s*return "([^"]*)";', body))
    return {numbers[name]: texts[name] for name in numbers}


def forms():
    """The names of the module's form classes."""
    found = set()
    for folder in MODULE_FOLDERS:
        for path in (ROOT / folder).rglob('frm*.h'):
            found.update(re.findall(r'^class (frm\w+)[^;]*: public Form\b', path.read_text('utf-8'),
                                    flags=re.M))
    return found


def captions(form):
    """The captions that a form's own sources give it and its controls."""
    found = set()
    for folder in MODULE_FOLDERS:
        for path in (ROOT / folder).rglob(form + '*.cpp'):
            code = without_comments(path.read_text(encoding='utf-8'))
            found.update(re.findall(r'Caption\("([^"]+)"\)', code))
    return found


def anchor(heading):
    """The anchor that a heading gets on the pages that show the manual."""
    text = re.sub(r'[`*]', '', heading).strip().lower()
    return re.sub(r'[^\w\- ]', '', text).replace(' ', '-')


class Manual:
    """A manual's text, its headings, links and pictures."""

    def __init__(self, text):
        self.text = text
        # A message may stand anywhere on a line or run over a line's end.
        self.flat = re.sub(r'\s+', ' ', text.replace('\\|', '|'))
        prose = re.sub(r'```.*?```', '', text, flags=re.S)
        self.headings = re.findall(r'^#+ +(.+?)\s*$', prose, flags=re.M)
        self.anchors = {anchor(heading) for heading in self.headings}
        self.anchors.update(re.findall(r'<a id="([^"]+)">', prose))
        self.pictures = re.findall(r'!\[[^\]]*\]\(([^)]+)\)', prose)
        self.links = re.findall(r'(?<!!)\[[^\]]*\]\(([^)\s]+)\)', prose)

    @classmethod
    def read(cls):
        return cls(MANUAL.read_text(encoding='utf-8'))

    def lacks(self, texts):
        """Those of the texts that the manual doesn't hold. What is filled in at run time may have
        any name."""
        return sorted(text for text in texts if not self.holds(text))

    def holds(self, text):
        pieces = [piece for piece in re.split(r'%\d', text) if piece.strip(' .:,«»')]
        return all(re.sub(r'\s+', ' ', piece).strip() in self.flat for piece in pieces)

    def section(self, heading):
        """From a heading to the next of its level or above."""
        match = re.search(r'^(#+) +' + re.escape(heading) + r'\s*$', self.text, flags=re.M)
        if match is None:
            return ''
        rest = self.text[match.end():]
        end = re.search(r'^#{1,%d} ' % len(match[1]), rest, flags=re.M)
        return rest[:end.start()] if end else rest

    def page_of(self, form):
        """The section whose heading names the class."""
        for heading in self.headings:
            if re.search(r'`' + form + r'`', heading):
                return self.section(heading)
        return ''

    def broken_links(self):
        broken = []
        for link in self.links:
            target, _, place = link.partition('#')
            if re.match(r'[a-z]+:', link):
                continue
            if target and not (MANUAL.parent / target).exists():
                broken.append(link)
            elif not target and place not in self.anchors:
                broken.append(link)
        return broken
