"""Where faults can be planted in C++ sources as clang-format lays them out, and their draw by lot."""
import dataclasses
import random
import re

SQL_WORD = re.compile(r'\b(SELECT|INSERT|UPDATE|DELETE|FROM|WHERE|AND|OR|IN|NOT|SET|ORDER BY|JOIN|ON|'
                      r'VALUES|LIKE|IS NULL)\b')
HEADER_WEIGHT = 0.08  # A header costs the compilation of all that include it.
LINE_END = ' ⏎ '


@dataclasses.dataclass(frozen=True)
class Fault:
    """`text[start:end]` of a file becomes `replacement`."""
    kind: str
    file: str
    start: int
    end: int
    replacement: str

    def apply(self, text):
        return text[:self.start] + self.replacement + text[self.end:]

    def line(self, text):
        return text.count('\n', 0, self.start) + 1

    def lines(self, text):
        """The lines that it stands on, before and after, each as one line of text."""
        first = text.rfind('\n', 0, self.start) + 1
        last = text.find('\n', self.end)
        last = len(text) if last < 0 else last
        after = text[first:self.start] + self.replacement + text[self.end:last]
        return one_line(text[first:last]), one_line(after)


def one_line(text):
    return LINE_END.join(line.strip() for line in text.strip().splitlines())


def mask(text):
    """The text with comments, preprocessor lines and what is between quotes blanked, and the spans
    between the quotes. Everything stays where it stood."""
    pattern = re.compile(r'//[^\n]*|/\*.*?\*/|R"(?P<tag>[^\s()\\]*)\((?P<raw>.*?)\)(?P=tag)"|'
                         r'"(?P<string>(?:\\.|[^"\\\n])*)"|(?<!\w)\'(?:\\.|[^\'\\\n])+\'|'
                         r'^[ \t]*#(?:\\\n|[^\n])*', re.S | re.M)
    strings = []

    def blank(match):
        for group in ('raw', 'string'):
            if match[group] is not None:
                strings.append(match.span(group))
        inside = re.sub(r'[^\n]', ' ', match[0])
        return inside if match['string'] is None else '"' + inside[1:-1] + '"'

    return pattern.sub(blank, text), strings


def comparisons(masked):
    other = {'==': '!=', '!=': '==', '<': '<=', '<=': '<', '>': '>=', '>=': '>'}
    for match in re.finditer(r'(?<=\s)(==|!=|<=|>=|<|>)(?=\s)', masked):
        yield [(*match.span(), other[match[0]])]


def logic(masked):
    # A reference to a temporary, as in `auto&& x`, has no blank before it.
    for match in re.finditer(r'(?<=\s)(&&|\|\|)(?=\s)', masked):
        yield [(*match.span(), '||' if match[0] == '&&' else '&&')]


def negations(masked):
    for match in re.finditer(r'!(?=[\w(*:])', masked):
        yield [(*match.span(), '')]


def letters(text, start, end):
    """A letter or digit of a text, changed to its neighbour."""
    options = []
    for match in re.finditer(r'\\.|[A-Za-z0-9]', text[start:end]):
        if len(match[0]) == 1:
            place = start + match.start()
            near = chr(ord(match[0]) - 1) if match[0] in 'Zz9' else chr(ord(match[0]) + 1)
            options.append((place, place + 1, near))
    return options


def constants(text, masked, strings, enums):
    for match in re.finditer(r"(?<![\w.'])\d[\d']*(?![\w.'])", masked):
        yield [(*match.span(), str(int(match[0].replace("'", '')) + 1))]
    for match in re.finditer(r'\b(true|false)\b', masked):
        yield [(*match.span(), 'false' if match[0] == 'true' else 'true')]
    for match in re.finditer(r'\b(\w+)::(\w+)\b(?!\s*[(:<])', masked):
        values = enums.get(match[1], [])
        if match[2] in values:
            yield [(*match.span(2), value) for value in values if value != match[2]]
    for start, end in strings:
        yield letters(text, start, end)


def is_statement(text):
    return SQL_WORD.search(text) is not None


def blanks(text, strings):
    for start, end in strings:
        if is_statement(text[start:end]):
            yield [(start + match.start(), start + match.end(), new)
                   for match in re.finditer(' ', text[start:end]) for new in ('', '  ')]


CONTROL = re.compile(r'(?:if(?:\s+constexpr)?|for|while|switch)\s*(?=\()')
LABEL = re.compile(r'(?:else|do)\b|(?:case\b[^:;]*(?:::[^:;]*)*|default|public|private|protected)'
                   r'\s*:(?!:)')
WORDS = r'(?!(?:return|throw|delete|new|using|static_assert|goto|co_\w+|break|continue|friend)\b)'
CALL = re.compile(WORDS + r'[A-Za-z_][\w:]*[^\s(){}]*\(.*\)', re.S)
ASSIGNMENT = re.compile(WORDS + r'\*?[A-Za-z_][^\s={}]*\s[-+*/|&%]?=\s.+', re.S)
STEP = re.compile(r'(?:\+\+|--)[\w.>:-]+')


def closing(masked, opening):
    depth = 0
    for place in range(opening, len(masked)):
        depth += {'(': 1, ')': -1}.get(masked[place], 0)
        if depth == 0:
            return place + 1
    return len(masked)


def statements(masked):
    """The simple statements, as (start, end, whether nothing decides on it). The end is behind the
    semicolon. What holds braces of its own is none."""
    start, depth, outer = 0, 0, []
    for place, sign in enumerate(masked):
        if sign == '(':
            depth += 1
        elif sign == ')':
            depth = max(0, depth - 1)
        elif sign == '{':
            outer.append(depth)
            start, depth = place + 1, 0
        elif sign == '}':
            depth = outer.pop() if outer else 0
            start = place + 1
        elif sign == ';' and depth == 0:
            begin, decided = start, False
            while True:
                begin += len(masked[begin:place]) - len(masked[begin:place].lstrip())
                label = LABEL.match(masked, begin, place)
                control = CONTROL.match(masked, begin, place)
                if label:
                    begin = label.end()
                elif control:
                    begin = closing(masked, control.end())
                else:
                    break
                decided = True
            if begin < place:
                yield begin, place + 1, not decided
            start = place + 1


def is_call(statement):
    return CALL.fullmatch(statement.rstrip(';').rstrip()) is not None


def calls(masked):
    for start, end, _ in statements(masked):
        if is_call(masked[start:end]):
            yield [(start, end, '{}')]


# What only notes how something looks: in either order it is the same.
LOOK = re.compile(r'(?:[\w\[\].]+\.)?(?:Caption|Place|Width|Height|AddTab)\([^()]*\);|'
                  r'\w+\.(?:Default|Cancel) = true;')


def swaps(text, masked):
    before = None
    for start, end, free in statements(masked):
        body = masked[start:end - 1].rstrip()
        simple = free and any(form.fullmatch(body) for form in (CALL, ASSIGNMENT, STEP))
        if simple and before and not masked[before[1]:start].strip():
            first, second = text[before[0]:before[1]], text[start:end]
            looks = LOOK.fullmatch(first) and LOOK.fullmatch(second)
            same_call = first.split('(')[0] == second.split('(')[0]
            if first != second and (not looks or same_call and 'AddTab' in first):
                between = text[before[1]:start]
                yield [(before[0], end, second + between + first)]
        before = (start, end) if simple else None


KINDS = ('comparación', 'constante', 'blanco', 'llamada', 'orden', 'lógica', 'negación')


def sites(text, enums):
    """By kind, the places for a fault; each a list of (start, end, replacement) to choose from."""
    masked, strings = mask(text)
    found = {
        'comparación': comparisons(masked),
        'constante': constants(text, masked, strings, enums),
        'blanco': blanks(text, strings),
        'llamada': calls(masked),
        'orden': swaps(text, masked),
        'lógica': logic(masked),
        'negación': negations(masked),
    }
    return {kind: [site for site in found[kind] if site] for kind in KINDS}


def enumerations(texts):
    """The values by the name of the enumeration, of all the sources."""
    found = {}
    for text in texts:
        masked, _ = mask(text)
        for match in re.finditer(r'\benum(?: class)? (\w+)[^{;]*\{([^}]*)\}', masked):
            values = re.findall(r'(?:^|,)\s*(\w+)', match[2])
            found.setdefault(match[1], values)
    return found


class Draw:
    """Faults by lot: evenly over the files, none twice. The same seed and the same texts give the
    same faults in the same order, for each kind by itself."""

    def __init__(self, texts, seed):
        """texts: by file. seed: a number."""
        enums = enumerations(texts[file] for file in sorted(texts))
        self._sites = {kind: {} for kind in KINDS}
        for file in sorted(texts):
            for kind, places in sites(texts[file], enums).items():
                if places:
                    self._sites[kind][file] = places
        self._streams = {kind: self._stream(kind, random.Random(f'{seed} {kind}')) for kind in KINDS}

    def _stream(self, kind, lot):
        left = {file: list(places) for file, places in self._sites[kind].items()}
        while left:
            weights = {file: HEADER_WEIGHT if file.endswith('.h') else 1.0 for file in left}
            order = sorted(left, key=lambda file: lot.random() ** (1 / weights[file]), reverse=True)
            # A header comes up as seldom in the second round as in the first.
            order = order[:max(1, round(sum(weights.values())))]
            for file in order:
                places = left[file]
                start, end, new = lot.choice(places.pop(lot.randrange(len(places))))
                yield Fault(kind, file, start, end, new)
                if not places:
                    del left[file]

    def next(self, kind):
        """The next fault of a kind, or None when there are no more."""
        return next(self._streams[kind], None)


def share(count, kinds=KINDS):
    """How many of each kind make up that count, evenly."""
    return {kind: count // len(kinds) + (place < count % len(kinds))
            for place, kind in enumerate(kinds)}


class Explained:
    """Faults known to be without effect: a line each, `file | line | mutated line | why`."""

    def __init__(self, text):
        self._reasons = {}
        for number, line in enumerate(text.splitlines(), 1):
            if not line.strip() or line.startswith('#'):
                continue
            parts = line.split(' | ')
            if len(parts) != 4 or not parts[3].strip():
                raise ValueError(f'línea {number}: no son cuatro partes separadas por « | »')
            self._reasons[tuple(part.strip() for part in (name_of(parts[0]), *parts[1:3]))] = parts[3].strip()

    def reason(self, file, before, after):
        """Why that fault is without effect, or None. Files are known by their names, which moving
        them to another folder doesn't change."""
        return self._reasons.get((name_of(file), before, after))


def name_of(file):
    return file.strip().rsplit('/', 1)[-1]
