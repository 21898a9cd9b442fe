"""The small changes that scripts/mutate makes to a source, each of which a test should notice.

The sources are formatted, and that is relied on: a binary operator stands between blanks, and no other use of
the same characters does.
"""
import re
from typing import Iterator, NamedTuple

OPERATORS = {
    '==': ['!='], '!=': ['=='],
    '<': ['<=', '>='], '<=': ['<', '>'], '>': ['>=', '<='], '>=': ['>', '<'],
    '+': ['-'], '-': ['+'], '*': ['/'], '/': ['*'], '%': ['*'],
    '+=': ['-='], '-=': ['+='],
    '&': ['|'], '|': ['&'], '<<': ['>>'], '>>': ['<<'],
    '&&': ['||'], '||': ['&&'],
}
COMPARISON = re.compile(r' (==|!=|<=?|>=?) ')
BINARY = re.compile(r'(?<=[\w)\]}] )([-+*/%&|<>=!]{1,2})(?=\s)')
STEP = re.compile(r'\+\+|--')
NOT = re.compile(r'(?<!\w)!(?=[\w(*])')
NUMBER = re.compile(r'(?<![\w.])(?:0x[0-9a-fA-F]+|\d+)(?![\w.])')
JUMP = re.compile(r'\b(?:break|continue)(?=;)')
TRUTH = re.compile(r'\b(?:true|false)\b')
CONDITION = re.compile(r'\b(?:if|while) (?=\()')
RETURN = re.compile(r'\breturn ([^;{}]+);')
PLAIN_RESULT = re.compile(r'nullptr|true|false|-?\d+')
STATEMENT = re.compile(r'(?:(?<=[;{}]\s)|(?<=:\n)|(?<=\belse )|(?<=\)\s))\s*(?P<prefix>(?:\+\+|--|\*|delete )*)'
                       r'(?!(?:return|throw|if|while|for|switch|do|else|template|using)\b)(?=[A-Za-z_])')
LINK = re.compile(r'(?:->|\.|::)?[A-Za-z_]\w*(?:::\w+)*(?:<[\w:&* ]+>(?=\())?')
ASSIGNMENT = re.compile(r' [-+*/%&|]?= (?!delete|default)')
NOT_CODE = re.compile(r'//[^\n]*|/\*.*?\*/|R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\''
                      r'|^#(?:[^\n]*\\\n)*[^\n]*|\bstatic_assert\((?:[^;])*\);', re.MULTILINE | re.DOTALL)

Change = tuple[int, int, str]  # from where to where, and the new text
OLD = '{old}'  # in a new text: the old one


class Mutant(NamedTuple):
    path: str
    begin: int
    end: int
    after: str
    line: int
    before_line: str
    after_line: str

    def apply(self, text: str) -> str:
        return text[:self.begin] + self.after + text[self.end:]

    def __str__(self) -> str:
        return f'{self.path}:{self.line}: {self.before_line} -> {self.after_line}'


def code_only(text: str) -> str:
    """The text with comments and directives as blanks, and literals as names; nothing changes its place."""
    def blank(match: re.Match) -> str:
        filler = '_' if match[0][0] in '"\'R' else ' '
        return re.sub(r'[^\n]', filler, match[0])
    return NOT_CODE.sub(blank, text)


def closing(code: str, opening: int) -> int:
    """The place of the bracket that closes the one at `opening`."""
    depth = 0
    for at in range(opening, len(code)):
        depth += (code[at] in '([{') - (code[at] in ')]}')
        if depth == 0:
            return at
    return len(code)


def statement_end(code: str, match: re.Match) -> int:
    """Just past a statement that is a call or an assignment; 0 for a declaration and anything else."""
    at, acts = match.end(), match['prefix'] not in ('', '*')
    while at < len(code):
        if code[at] in '([':
            acts = code[at] == '(' or acts
            at = closing(code, at) + 1
        elif link := LINK.match(code, at):
            at = link.end()
        else:
            break
    if ASSIGNMENT.match(code, at) or code.startswith(('++;', '--;'), at):
        acts = True
        while at < len(code) and code[at] not in ';)]}':
            at = closing(code, at) + 1
    return at + 1 if acts and code[at:at + 1] == ';' else 0


def changed_tokens(code: str) -> Iterator[Change]:
    for match in BINARY.finditer(code):
        for after in OPERATORS.get(match[1], []):
            yield *match.span(1), after
    for match in STEP.finditer(code):
        yield *match.span(), '--' if match[0] == '++' else '++'
    for match in NOT.finditer(code):
        yield *match.span(), ''
    for match in TRUTH.finditer(code):
        yield *match.span(), 'false' if match[0] == 'true' else 'true'


def changed_numbers(code: str) -> Iterator[Change]:
    for match in NUMBER.finditer(code):
        number = int(match[0], 0)
        yield *match.span(), str(number + 1)
        if number > 0:
            yield *match.span(), str(number - 1)


def negated_conditions(code: str) -> Iterator[Change]:
    """Conditions whose negation is not among the changed tokens."""
    for match in CONDITION.finditer(code):
        begin, end = match.end() + 1, closing(code, match.end())
        condition = code[begin:end]
        single = '&&' not in condition and '||' not in condition
        has_own = single and (condition[0] == '!' or COMPARISON.search(condition))
        if not has_own and ' = ' not in condition:
            yield begin, end, f'!({OLD})'


def emptied_results(code: str) -> Iterator[Change]:
    for match in RETURN.finditer(code):
        if not PLAIN_RESULT.fullmatch(match[1]):
            yield *match.span(1), '{}'


def removed_statements(code: str) -> Iterator[Change]:
    for match in STATEMENT.finditer(code):
        if end := statement_end(code, match):
            yield match.start('prefix'), end, ';'
    for match in JUMP.finditer(code):
        yield *match.span(), ''


def changes(code: str) -> set[Change]:
    kinds = changed_tokens, changed_numbers, negated_conditions, emptied_results, removed_statements
    return {change for kind in kinds for change in kind(code)}


def mutants_of(path: str, text: str) -> list[Mutant]:
    """All mutants of a source, in the order of their places."""
    found = []
    for begin, end, after in sorted(changes(code_only(text))):
        after = after.replace(OLD, text[begin:end])
        first = text.rfind('\n', 0, begin) + 1
        last = text.find('\n', end)
        before_line = ' '.join(text[first:last].split())
        after_line = ' '.join((text[first:begin] + after + text[end:last]).split())
        found.append(Mutant(path, begin, end, after, text.count('\n', 0, begin) + 1, before_line, after_line))
    return found
