"""Small wrong changes of C++ sources that are written in this project's style.

mutants(text) gives them all, in a fixed order. Comments and preprocessor lines stay
as they are. What does not compile is found out by compiling it.
"""
import hashlib
import re
from typing import NamedTuple

TOKEN = re.compile(r'''
    (?P<skip>//[^\n]*|/\*.*?\*/|^[ \t]*\#[^\n]*|\s+)
  | (?P<string>(?:L|u8)?"(?:\\.|[^"\\])*")
  | (?P<char>L?'(?:\\.|[^'\\])+')
  | (?P<number>0[xX][0-9a-fA-F]+|\d+(?:\.\d+)?)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<sign>->|\+\+|--|<=|>=|==|!=|&&|\|\||\+=|-=|>>=|<<=|<<|>>|::|.)
''', re.X | re.M | re.S)

OTHER_SIGNS = {
    '==': ['!='], '!=': ['=='], '<': ['<=', '>='], '<=': ['<', '>'], '>': ['>=', '<='], '>=': ['>', '<'],
    '&&': ['||'], '||': ['&&'], '+': ['-'], '-': ['+'], '*': ['/'], '/': ['*'], '%': ['/'],
    '<<': ['>>'], '>>': ['<<'], '&': ['|'], '|': ['&'],
}
OTHER_WORDS = {'true': 'false', 'false': 'true', 'FALSE': 'TRUE',
               'HKEY_LOCAL_MACHINE': 'HKEY_CURRENT_USER', 'HKEY_CURRENT_USER': 'HKEY_LOCAL_MACHINE',
               'HKEY_CLASSES_ROOT': 'HKEY_LOCAL_MACHINE', 'min': 'max'}
CONSTANT = re.compile(r'(?:KEY|ERROR|CSIDL|SEM|SM|REG|GL|MAX|VKSYSTEMINFO|QT)_[A-Z0-9_]+$')
CHAIN_ENDS = set('( [ { } ; , ? : = += + | && || return == != < > <= >= << >> * / %'.split())
DECLARATION = re.compile(
    r'(?:const|constexpr|static|auto|using|struct|enum|class|explicit)\b'
    r'|(?!return\b|delete\b|else\b)[A-Za-z_][\w:]*(?:<[^;=()]*>)?\s*[*&]*\s+[*&]*\w+\s*(?:[=;({\[]|$)')
PLAIN_RESULTS = {'QString()', 'QStringList()', 'true', 'false', 'nullptr', 'std::nullopt', ''}


class Token(NamedTuple):
    kind: str
    text: str
    start: int
    end: int


class Mutant(NamedTuple):
    operator: str
    start: int
    end: int
    text: str  # in place of what stands there

    def apply(self, source):
        return source[:self.start] + self.text + source[self.end:]


class Source:
    """Tokens, the partner of each bracket, and which braces hold statements."""

    def __init__(self, text):
        self.text = text
        self.tokens = [Token(m.lastgroup, m.group(), m.start(), m.end())
                       for m in TOKEN.finditer(text) if m.lastgroup != 'skip']
        self.partner = {}
        opened = []
        for i, token in enumerate(self.tokens):
            if token.kind == 'sign' and token.text in '([{':
                opened.append(i)
            elif token.kind == 'sign' and token.text in ')]}':
                j = opened.pop()
                self.partner[i], self.partner[j] = j, i
        self.fixed = self._ranges_of_static_assertions()

    def word(self, i):
        return self.tokens[i].text if 0 <= i < len(self.tokens) and self.tokens[i].kind != 'string' else ''

    def between(self, first, last):
        return self.text[self.tokens[first].start:self.tokens[last].end]

    def is_spaced(self, i):
        token = self.tokens[i]
        return self.text[token.start - 1].isspace() and self.text[token.end].isspace()

    def _ranges_of_static_assertions(self):
        return [(self.tokens[i].start, self.tokens[self.partner[i + 1]].end)
                for i in range(len(self.tokens)) if self.word(i) == 'static_assert']

    def head_of(self, i):
        """The word in front of a parenthesis that closes just before token i."""
        return self.word(self.partner[i - 1] - 1) if self.word(i - 1) == ')' else ''

    def is_block(self, i):
        """Whether brace i holds statements, not a list, a class or a namespace."""
        before = self.word(i - 1)
        if before == ':': # of a case; a list that a for walks is in parentheses
            return self.word(i - 3) == 'case'
        if before == '{':
            return self.is_block(i - 1)
        return before in (')', 'else', 'do', 'const', 'noexcept', 'override', ';', '}')

    def list_level(self, i):
        """1 for a brace that opens a list, 2 for a row of it and so on; else 0."""
        if self.word(i) != '{' or self.is_block(i):
            return 0
        before = self.word(i - 1)
        if before in ('=', ':'):
            return 1
        around = max((k for k in self.partner if self.word(k) == '{' and k < i < self.partner[k]), default=None)
        level = self.list_level(around) if before in ('{', ',') and around is not None else 0
        return level + 1 if level else 0

    def elements(self, i):
        """First and last token of each element of the list that brace i opens."""
        parts = []
        first = k = i + 1
        while k < self.partner[i]:
            if self.word(k) == ',':
                parts.append((first, k - 1))
                first = k + 1
            k = self.partner.get(k, k) + 1
        return parts + [(first, self.partner[i] - 1)] if first < self.partner[i] else parts

    def is_function(self, i):
        return self.is_block(i) and self.head_of(i) not in ('if', 'for', 'while', 'switch') \
            and self.word(i - 1) not in ('else', 'do', ':')

    def end_of_statement(self, i):
        while self.word(i) != ';':
            i = self.partner.get(i, i) + 1
        return i

    def operand(self, i, step):
        """The token furthest from sign i that belongs to its operand on that side."""
        last = i
        while True:
            following = last + step
            text = self.word(following)
            is_bracket = text in ('(', '[', '{') if step > 0 else text in (')', ']', '}')
            if not is_bracket and (text in CHAIN_ENDS or text in (')', ']', '}')):
                return last
            last = self.partner.get(following, following)


def changed_character(character):
    if character.isalpha() or character.isdigit():
        return {'z': 'a', 'Z': 'A', '9': '0'}.get(character, chr(ord(character) + 1))
    return {' ': '_', ':': ';', '.': ','}.get(character, '#')


def of_strings(source):
    for token in source.tokens:
        if token.kind not in ('string', 'char'):
            continue
        quote = '"' if token.kind == 'string' else "'"
        first = token.text.index(quote) + 1
        body = token.text[first:-1]

        def replaced(begin, end, text):
            return Mutant('text', token.start + first + begin, token.start + first + end, text)

        if not body:
            yield replaced(0, 0, 'x')
            continue
        if token.kind == 'char':
            yield replaced(0, len(body), '1' if body.startswith('\\') else changed_character(body))
            continue
        special = [m.span() for m in re.finditer(r'\\.|%\w', body)]
        places = [i for i in range(len(body)) if not any(a <= i < b for a, b in special)]
        letters = [i for i in places if body[i].isalnum()] or places
        if letters: # any of them, but the same one each time
            i = letters[hashlib.sha1(body.encode()).digest()[0] % len(letters)]
            yield replaced(i, i + 1, changed_character(body[i]))
        blanks = [i for i in places if body[i] == ' ']
        if blanks:
            i = blanks[hashlib.sha1(body.encode()).digest()[1] % len(blanks)]
            yield replaced(i, i + 1, '')
        if special:
            begin, end = special[hashlib.sha1(body.encode()).digest()[2] % len(special)]
            yield replaced(begin, end, '')


def of_numbers(source):
    for i, token in enumerate(source.tokens):
        if token.kind != 'number':
            continue
        if [token.text, source.word(i + 1), source.word(i + 2)] == ['0', ',', '16']: # a field width: 1 is the same
            yield Mutant('number', token.start, token.end, '20')
            continue
        if '.' in token.text:
            yield Mutant('number', token.start, token.end, token.text + '1')
            continue
        value = int(token.text, 0)
        form = '0x{:x}' if token.text.lower().startswith('0x') else '{}'
        yield Mutant('number', token.start, token.end, form.format(value + 1))
        if value > 0:
            yield Mutant('number', token.start, token.end, form.format(value - 1))


def of_words(source):
    for i, token in enumerate(source.tokens):
        if token.kind != 'word':
            continue
        if token.text in OTHER_WORDS:
            yield Mutant('constant', token.start, token.end, OTHER_WORDS[token.text])
        elif CONSTANT.match(token.text): # of a mask the next bit, as the lowest may be in both
            change = '<< 1' if token.text.startswith('KEY_') else '+ 1'
            yield Mutant('constant', token.start, token.end, f'({token.text} {change})')
        elif token.text == 'sizeof':
            last = source.partner[i + 1] if source.word(i + 1) == '(' else i + 1
            if source.word(i + 1) == '*':
                last = i + 2
            size = source.between(i, last)
            for change in ('+ 1', '- 1'):
                yield Mutant('size', token.start, source.tokens[last].end, f'({size} {change})')


def is_text_chain(source, i):
    """Whether the operands of a plus are texts, as far as names tell."""
    left, right = source.operand(i, -1), source.operand(i, 1)
    words = re.compile(r'newline|QString|separator|[Tt]ext|Lines?\b|[nN]ame|[pP]ath|label|Block|rule\(|comma|report|start\b'
                       r'|Suffix|edition|toString|version\b|registered|command|suffix')
    return bool(words.search(source.between(left, right)))


def of_signs(source):
    for i, token in enumerate(source.tokens):
        if token.kind != 'sign':
            continue
        if token.text == '!' and not source.text[token.end].isspace():
            yield Mutant('negation', token.start, token.end, '')
        if token.text in ('++', '--'):
            yield Mutant('operator', token.start, token.end, {'++': '--', '--': '++'}[token.text])
        if token.text == '+=':
            yield Mutant('operator', token.start, token.end, '=')
        if token.text == '>>=':
            yield Mutant('operator', token.start, token.end, '<<=')
        if token.text not in OTHER_SIGNS or not source.is_spaced(i):
            continue
        if not (token.text == '+' and is_text_chain(source, i)):
            for other in OTHER_SIGNS[token.text]:
                yield Mutant('operator', token.start, token.end, other)


def of_operands(source):
    """One operand dropped, two neighbours swapped."""
    for i, token in enumerate(source.tokens):
        if token.kind != 'sign' or token.text not in ('+', '|', '&&', '||') or not source.is_spaced(i):
            continue
        left, right = source.operand(i, -1), source.operand(i, 1)
        if left == i or right == i:
            continue
        begin, end = source.tokens[left].start, source.tokens[right].end
        first, second = source.between(left, i - 1), source.between(i + 1, right)
        yield Mutant('operand dropped', source.tokens[i - 1].end, end, '')
        if source.word(left - 1) != token.text:
            yield Mutant('operand dropped', begin, source.tokens[i + 1].start, '')
        if token.text == '+' and first != second and is_text_chain(source, i):
            between = source.text[source.tokens[i - 1].end:source.tokens[i + 1].start]
            yield Mutant('operands swapped', begin, end, second + between + first)


def of_arguments(source):
    """One .arg() dropped, two neighbours swapped."""
    for i in range(len(source.tokens) - 2):
        if [source.word(i), source.word(i + 1), source.word(i + 2)] != ['.', 'arg', '(']:
            continue
        end = source.partner[i + 2]
        yield Mutant('argument dropped', source.tokens[i].start, source.tokens[end].end, '')
        if [source.word(end + 1), source.word(end + 2), source.word(end + 3)] == ['.', 'arg', '(']:
            second_end = source.partner[end + 3]
            first, second = source.between(i, end), source.between(end + 1, second_end)
            if first != second:
                yield Mutant('arguments swapped', source.tokens[i].start, source.tokens[second_end].end, second + first)


def of_choices(source):
    for i, token in enumerate(source.tokens):
        if token.text == '?' and token.kind == 'sign':
            colon = source.operand(i, 1) + 1
            if source.word(colon) == '+': # a chain between ? and :
                while source.word(colon) != ':':
                    colon = source.partner.get(colon, colon) + 1
            if source.word(colon) != ':':
                continue
            last = colon + 1
            while source.word(last) not in (')', ']', '}', ';', ','):
                last = source.partner.get(last, last) + 1
            first, second = source.between(i + 1, colon - 1), source.between(colon + 1, last - 1)
            yield Mutant('choice', source.tokens[i + 1].start, source.tokens[last - 1].end, f'{second} : {first}')
        if token.text in ('if', 'while') and token.kind == 'word':
            end = source.partner[i + 2 if source.word(i + 1) == 'constexpr' else i + 1]
            condition = source.between(i + 2, end - 1)
            if re.search(r'[^=!<>]=[^=]', condition):
                continue # declares what it tests
            if condition.startswith('!') and not re.search(r'&&|\|\|', condition):
                continue # the negation is another mutant
            yield Mutant('condition', source.tokens[i + 2].start, source.tokens[end - 1].end, f'!({condition})')


def of_lists(source):
    """A row of a table dropped, two rows swapped, their first members swapped."""
    for i in range(len(source.tokens)):
        if source.list_level(i) % 2 == 0: # the members of a row have nothing in common
            continue
        elements = source.elements(i)
        if len(elements) < 2:
            continue
        starts = [source.tokens[first].start for first, _ in elements] + [source.tokens[source.partner[i]].start]
        for begin, end in zip(starts, starts[1:]):
            yield Mutant('row dropped', begin, end, '')
        for (a, b), (c, d) in zip(elements, elements[1:]):
            begin, end = source.tokens[a].start, source.tokens[d].end
            one, two = source.between(a, b), source.between(c, d)
            middle = source.text[source.tokens[b].end:source.tokens[c].start]
            yield Mutant('rows swapped', begin, end, two + middle + one)
            if source.word(a) == source.word(c) == '{':
                member, other = first_member(source, a), first_member(source, c)
                yield Mutant('members swapped', begin, end,
                             '{' + other + one[1 + len(member):] + middle + '{' + member + two[1 + len(other):])


def first_member(source, i):
    k = i + 1
    while source.word(k) != ',' and k != source.partner[i]:
        k = source.partner.get(k, k) + 1
    return source.between(i + 1, k - 1)


def of_statements(source):
    for i, token in enumerate(source.tokens):
        if token.text == '{' and token.kind == 'sign' and source.is_block(i):
            yield from of_block(source, i, source.partner[i])


def of_block(source, opened, closed):
    units = []
    i = start = opened + 1
    while i < closed:
        text = source.word(i)
        if text in ('if', 'while', 'for', 'switch'):
            i = source.partner[i + 2 if source.word(i + 1) == 'constexpr' else i + 1] + 1
            continue
        if text in ('else', 'do'):
            i += 1
            continue
        if text in ('case', 'default'):
            while source.word(i) != ':':
                i += 1
            i = start = i + 1
            continue
        if text == '{':
            end = source.partner[i]
        else:
            end = source.end_of_statement(i)
            yield from of_statement(source, i, end, source.is_function(opened) and end + 1 == closed)
        if source.word(end + 1) != 'else':
            units.append((start, end))
            start = end + 1
        i = end + 1
    for (a, b), (c, d) in zip(units, units[1:]):
        one, two = source.between(a, b), source.between(c, d)
        if c == b + 1 and one != two and re.search(r'\+=', one) and re.search(r'\+=', two):
            middle = source.text[source.tokens[b].end:source.tokens[c].start]
            yield Mutant('statements swapped', source.tokens[a].start, source.tokens[d].end, two + middle + one)


def of_statement(source, first, last, ends_function):
    begin, end = source.tokens[first].start, source.tokens[last].end
    text = source.text[begin:end]
    if text.startswith('static_assert') or text == ';':
        return
    if source.word(first) == 'return':
        result = text[len('return'):-1].strip()
        if result not in PLAIN_RESULTS:
            yield Mutant('early return', begin, end, 'return {};')
        if not ends_function:
            yield Mutant('statement dropped', begin, end, ';')
        return
    if DECLARATION.match(text):
        cleared = re.search(r' = (?:\{\}|0|nullptr|-1|false|true);$', text)
        if cleared:
            yield Mutant('not initialised', begin + cleared.start(), end - 1, '')
        return
    yield Mutant('statement dropped', begin, end, ';')


def of_members(source):
    """Members of classes that are not cleared."""
    for match in re.finditer(r'^    [\w:]+ m_\w+(?:\[[^\]]*\])?( = [^;]+);', source.text, re.M):
        yield Mutant('not initialised', match.start(1), match.end(1), '')


def mutants(text):
    source = Source(text)
    seen = set()
    for generator in (of_strings, of_numbers, of_words, of_signs, of_operands, of_arguments, of_choices, of_lists,
                      of_statements, of_members):
        for mutant in generator(source):
            result = mutant.apply(text)
            fixed = any(a <= mutant.start < b for a, b in source.fixed)
            if result != text and result not in seen and not fixed:
                seen.add(result)
                yield mutant
