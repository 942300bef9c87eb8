"""Small wrong changes of C++ sources in the style of this project.

mutants(source) yields (kind, start, end, text): text in place of source[start:end]. Most come from RULES: a kind, a
pattern, and what replaces a match. Matches may overlap. The patterns see comments, preprocessor lines and static
assertions as blanks, and every text as "____". What does not compile, the compiler finds out.
"""
import re

HIDDEN = re.compile(r'//[^\n]*|/\*.*?\*/|^ *\#[^\n]*|\bstatic_assert\b[^;]*;|(["\'])(?:\\.|(?!\1).)*\1', re.M | re.S)
BRACKETS = r'(?!)'
for _ in range(8): # levels
    BRACKETS = rf'[(\[{{](?:[^()\[\]{{}}]|{BRACKETS})*+[)\]}}]'
ANYTHING = rf'(?:[^()\[\]{{}};]|{BRACKETS})*' # up to the end of a statement
CHOICE = rf'(?:[^()\[\]{{}};,?:]|::|{BRACKETS})+' # on either side of a colon
OPERAND = rf'(?<=[\s(\[{{])[!*&-]*(?:["\'\w.]|::|->|<[\w:* ]+>(?=\()|\s+(?=\.\w)|{BRACKETS})+' # of + and |
CONDITION = rf'(?<![=!<>]=\s)(?<!\s[<>]\s){OPERAND}(?:\s(?:[=!<>]=|[<>&*/%+-]|>>)\s{OPERAND})*+' # of && and ||
NUMBER = r'[\w.(]*(?:\b\d+|[sS]ize|more|index|position|height)\b' # what is added to a number, not to a text
CONSTANT = r'\b(?:CSIDL|ERROR|GL|MAX|PROCESSOR|PRODUCT|QT|REG|SEM|SM|VER_NT|VKSYSTEMINFO)_\w+'
PLAIN = r'(?:QString\(\)|QStringList\(\)|true|false|nullptr|std::nullopt|\{\});' # as good a result as {}

BEFORE_STATEMENT = r'([;{}):] *\n\s+|\{ |\belse\s+)'
DECLARATION = (r'(?:const|constexpr|static|inline|auto|using|struct|enum|class|explicit|template|namespace|friend)\b'
               r'|[A-Za-z_][\w:]*(?:<[^;=()]*>)?\s*[*&]*\s+(?:[*&]*\w+\s*[=;({\[]|\(\*)|.*= (?:delete|default);')
KEYWORD = r'(?:return|if|for|while|switch|case|default|do|else|public|private)\b'
STATEMENT = rf'(?!{KEYWORD}|{DECLARATION})(?:\w|[+-]{{2}}|[*(](?!\s))(?:[^;()\[\]{{}}]|(?!\{{){BRACKETS})*;'
APPENDING = rf'(\b(?:if {BRACKETS}\s+)?(?:\w+ \+= {ANYTHING};|append\w*{BRACKETS};)|\bif {BRACKETS} {BRACKETS})'
END_OF_FUNCTION = r'\s?\}|\n    \}\n(?:\n|\};)'


def other_texts(literal):
    """The first letter, or what else there is, changed; the first blank dropped; the first escape or %1 dropped."""
    quote = literal[-1]
    prefix, body = literal[:-1].split(quote, 1)
    units = re.findall(r'\\.|%\w|.', body) or ['']
    i = min(range(len(units)), key=lambda i: (not units[i].isalnum(), len(units[i])))
    texts = [''.join(units[:i] + ['~'] + units[i + 1:])]
    if quote == '"':
        texts += [body.replace(' ', '', 1), re.sub(r'\\.|%\w', '', body, count=1)]
    return [prefix + quote + text + quote for text in texts]


def other_numbers(number):
    if '.' in number:
        return [number + '1']
    value, form = int(number, 0), '{:#x}' if number[:2] in ('0x', '0X') else '{}'
    return [form.format(other) for other in (value + 1, value - 1) if other >= 0]


RULES = [
    ('text', r'L?"_*"|L?\'_*\'', other_texts),
    ('number', r'(?<![\w.])0(?=, 16\))', r'20'), # a field width: 1 gives the same text
    ('number', r'(?<![\w.])(?!0, 16\))(?:0[xX][0-9a-fA-F]+|\d+(?:\.\d+)?)', other_numbers),
    ('constant', r'\btrue\b', r'false'),
    ('constant', r'\b(false|FALSE)\b', r'true'),
    ('constant', r'\bHKEY_(?:CURRENT_USER|CLASSES_ROOT)\b', r'HKEY_LOCAL_MACHINE'),
    ('constant', r'\bHKEY_LOCAL_MACHINE\b', r'HKEY_CURRENT_USER'),
    ('constant', r'\bmin\b', r'max'),
    ('constant', r'\b(?:KEY|VER_SUITE)_\w+', r'(\0 << 1)'), # the next bit
    ('constant', CONSTANT, r'(\0 + 1)'),
    ('size', rf'\bsizeof(?: \*?\w+| "_*"|{BRACKETS})', r'(\0 + 1)'),
    ('size', rf'\bsizeof(?: \*?\w+| "_*"|{BRACKETS})', r'(\0 - 1)'),
    ('negation', r'!(?=[\w(])', r''),
    ('operator', r'\+\+', r'--'),
    ('operator', r'--', r'++'),
    ('operator', r'\+=', r'='),
    ('operator', r'>>=', r'<<='),
    ('operator', rf'(?<=\s)\+(?=\s{NUMBER})', r'-'),
    *(('operator', rf'(?<=\s){re.escape(sign)}(?=\s)', other) for sign, others in {
        '==': ['!='], '!=': ['=='], '<': ['<=', '>='], '<=': ['<', '>'], '>': ['>=', '<='], '>=': ['>', '<'],
        '&&': ['||'], '||': ['&&'], '-': ['+'], '*': ['/'], '/': ['*'], '%': ['/'], '<<': ['>>'], '>>': ['<<'],
        '&': ['|'], '|': ['&']}.items() for other in others),
    ('operand dropped', rf'{OPERAND}\s+[+|]\s+(?={OPERAND})', r''),
    ('operand dropped', rf'(?<=\S)\s+[+|]\s+{OPERAND}', r''),
    ('operand dropped', rf'{CONDITION}\s+(?:&&|\|\|)\s+', r''),
    ('operand dropped', rf'(?<=\S)\s+(?:&&|\|\|)\s+{CONDITION}', r''),
    ('operands swapped', rf'({OPERAND})(\s+\+\s+)(?!{NUMBER})({OPERAND})', r'\3\2\1'),
    ('argument dropped', rf'\.arg{BRACKETS}', r''),
    ('arguments swapped', rf'(\.arg{BRACKETS})(\s*)(\.arg{BRACKETS})', r'\3\2\1'),
    ('choice', rf'\? ({CHOICE}) : ({CHOICE})', r'? \2 : \1'),
    ('condition', rf'\b(if|while) \((?!!|const\b)({ANYTHING})\)', r'\1 (!(\2))'),
    ('early return', rf'\breturn (?!{PLAIN}){ANYTHING};', r'return {};'),
    ('statement dropped', rf'\breturn\b{ANYTHING};(?!{END_OF_FUNCTION})', r';'),
    ('statement dropped', rf'{BEFORE_STATEMENT}{STATEMENT}', r'\1;'),
    ('statements swapped', rf'{APPENDING}(\s+){APPENDING}', r'\3\2\1'),
    ('not initialised', r'(\n +\w[\w:<> ]* [*&]?\w+(?:\[[^\]]*\])?) = (?:\{\}|0|nullptr|-1|false|true);', r'\1;'),
]


def elements(code, brace):
    """The spans of the elements of the list that the brace opens, and its end."""
    end = re.compile(BRACKETS).match(code, brace).end() - 1
    pattern = re.compile(rf'(?=[^\s,])(?:[^,()\[\]{{}}]|{BRACKETS})+')
    return [match.span() for match in pattern.finditer(code, brace + 1, end)], end


def of_list(code, source, brace):
    """Rows dropped, two rows swapped, their first members swapped, and the same of lists in rows."""
    rows, end = elements(code, brace)
    members = [elements(code, first)[0] if code[first] == '{' else [] for first, _ in rows]
    starts = [first for first, _ in rows] + [end]
    for first, following in zip(starts, starts[1:] if len(rows) > 1 else []):
        yield 'row dropped', first, following, ''
    for (a, b), (c, d), one, other in zip(rows, rows[1:], members, members[1:]):
        yield 'rows swapped', a, d, source[c:d] + source[b:c] + source[a:b]
        if one and other:
            (a, b), (c, d) = one[0], other[0]
            yield 'members swapped', a, d, source[c:d] + source[b:c] + source[a:b]
    for first, _ in sum(members, []):
        if code[first] == '{':
            yield from of_list(code, source, first)


def mutants(source):
    code = HIDDEN.sub(lambda m: m[1] + '_' * (len(m[0]) - 2) + m[1] if m[1] else re.sub(r'\S', ' ', m[0]), source)
    for kind, rule, other in RULES:
        pattern, begin = re.compile(rule), 0
        while match := pattern.search(code, begin):
            begin = match.start() + 1
            if callable(other):
                texts = other(source[match.start():match.end()])
            else:
                texts = [re.sub(r'\\(\d)', lambda group: source[slice(*match.span(int(group[1])))], other)]
            yield from ((kind, *match.span(), text) for text in texts)
    for match in re.finditer(r'(?:[=:]|\breturn|QStringList)\s*(?=\{)', code):
        yield from of_list(code, source, match.end())
