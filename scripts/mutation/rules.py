"""How scripts/mutate breaks a rule: reads a C++ source as tokens and finds what can be broken.

It relies on clang-format: blanks stand around a comparison, not around the angle brackets of a
template. What is taken for a rule by mistake does not compile, and so is no mutant."""

import collections
import re

TOKEN = re.compile(r"""
    (?P<comment> //[^\n]* | /\*.*?\*/ )
  | (?P<directive> ^[ \t]*\#(?:\\\n|[^\n])* )
  | (?P<text> R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)" | "(?:\\.|[^"\\\n])*" | '(?:\\.|[^'\\\n])+' )
  | (?P<number> 0[xX][\da-fA-F']+[uUlL]* | (?:\d[\d']*\.?[\d']*|\.\d+)(?:[eE][-+]?\d+)?[fFlLuU]* )
  | (?P<word> \w+ )
  | (?P<sign> <=>|<<=|>>=|->\*|\.\.\.|::|->|<<|>>|<=|>=|==|!=|&&|\|\||\+\+|--|[-+*/%&|^]=|[^\s\w] )
  """, re.X | re.S | re.M)
CLOSING = (")", "]", "}")
# Statements that are left alone.
QUIET = re.compile(r"static_assert|\*?(std::)?((log_?|cout|cerr|console|errors)\s*<<"
                   r"|(v?f?printf|f?puts|log|print)\(|DebugLog::)")
SIGNS = {"+": "-", "-": "+", "+=": "-=", "-=": "+="}
COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
ASSIGNMENTS = ("=", "+=", "-=", "*=", "/=", "%=", "|=", "&=", "^=", "<<=", ">>=")
GUARDED = ("return", "continue", "break", "throw")
KEYWORDS = ("return", "case", "throw", "delete", "else", "new", "sizeof", "if", "for", "while",
            "switch", "do", "using", "default")
SYMMETRIC = ("min", "max", "minmax", "hypot")
# Two words in a row, or a type with its * or &: parameters and not arguments.
DECLARATION = re.compile(r"\w\s+\w|\w[*&]+\s+\w|>[*&]*\s\w|[*&](,|$)")

# `text[start:end]` of the file becomes `after`; the statement around it begins in line `begin`. The
# key stays the same when other lines change.
Mutant = collections.namedtuple("Mutant", "file line operator start end after begin key")


class Source:
    """One file as tokens, with the partner of each bracket and the begin of each statement."""

    def __init__(self, name, text):
        self.name, self.text = name, text
        self.includes = re.findall(r'^#include "(.*)"', text, re.M)
        self.tokens = [(match.lastgroup, match.group(), match.start(), match.end())
                       for match in TOKEN.finditer(text)
                       if match.lastgroup not in ("comment", "directive")]
        self.code_lines = {self.line(token[2]) for token in self.tokens}
        self.partner = {}
        self.scope = []  # of each token: "code", "type" (or namespace), "value" or "bracket"
        self.begin = []  # of each token: the first token of its statement
        self.keys = collections.Counter()
        self._read_brackets()

    def line(self, position):
        return self.text.count("\n", 0, position) + 1

    def word(self, i):
        return self.tokens[i][1] if 0 <= i < len(self.tokens) else ""

    def kind(self, i):
        return self.tokens[i][0] if 0 <= i < len(self.tokens) else ""

    def _read_brackets(self):
        stack = [[None, "type", 0]]  # bracket, what is within it, begin of the statement there
        for i, (kind, text, _, _) in enumerate(self.tokens):
            if text in CLOSING and len(stack) > 1:
                self.partner[i] = stack.pop()[0]
                self.partner[self.partner[i]] = i
            _, scope, begin = stack[-1]
            self.scope.append(scope)
            self.begin.append(begin)
            if text in ("(", "["):
                stack.append([i, "bracket", begin])
            elif text == "{":
                inner = self._scope_of_brace(i)
                stack.append([i, inner, begin if inner == "value" else i + 1])
            elif scope in ("code", "type") and self._ends_statement(i):
                stack[-1][2] = i + 1

    def _scope_of_brace(self, i):
        head = [token[1] for token in self.tokens[self.begin[i]:i]]
        if "(" not in head and {"namespace", "class", "struct", "union", "enum"} & set(head):
            return "type"
        before = self.word(i - 1)
        if before in (")", "]", "const", "noexcept", "override", "else", "do", "try", "mutable"):
            return "code"
        if before in (";", "{", "}", ":") and self.scope[i] != "value" or "->" in head:
            return "code"
        return "value"

    def _ends_statement(self, i):
        text = self.word(i)
        if text == ":":
            return self.word(self.begin[i]) in ("case", "default", "public", "private", "protected")
        if text == ")":
            return self.word(self.partner.get(i, 0) - 1) in ("if", "for", "while", "constexpr")
        if text == "}":
            return self.word(i + 1) not in (",", ")", ";", ".")
        return text in (";", "else", "do")

    def _end_of_statement(self, i):
        """The ";" of the statement that begins at token `i`, or None."""
        while self.word(i) != ";":
            if self.word(i) in CLOSING + ("",):
                return None
            i = self.partner.get(i, i) + 1
        return i

    def mutants(self):
        """All that can be broken in the file. To be called once."""
        quiet = -1  # the last token of a statement that is left alone
        for i, (_, _, start, _) in enumerate(self.tokens):
            last = self._end_of_statement(i) if self.begin[i] == i else None
            if last is not None:
                end = self.tokens[last][3]
                if QUIET.match(self.text, start):
                    quiet = max(quiet, last)
                elif i > quiet and self.scope[i] == "code" and self._is_droppable(i, last):
                    lines = self.text.count("\n", start, end)
                    yield self._mutant(i, "dropped statement", start, end, ";" + "\n" * lines)
            if i > quiet:
                for change in self._changes(i, *self.tokens[i]):
                    yield self._mutant(i, *change)

    def _mutant(self, i, operator, start, end, after):
        begin = self.line(self.tokens[self.begin[i]][2])
        line = self.text[self.text.rfind("\n", 0, start) + 1:self.text.find("\n", end)].strip()
        key = f"{self.name} {operator} {line} | {self.text[start:end]} -> {after}"
        self.keys[key] += 1
        return Mutant(self.name, self.line(start), operator, start, end, after, begin,
                      f"{key} #{self.keys[key]}")

    def _is_droppable(self, i, last):
        """A call, an assignment, or the way out that an `if` guards; a declaration is not."""
        if self.word(i) in GUARDED:
            return self.word(i - 1) == ")" and self.word(self.partner[i - 1] - 1) == "if"
        acts = False
        i += self.word(i) == "*"
        while i < last and self.word(i) not in ASSIGNMENTS:
            text = self.word(i)
            named = self.kind(i) == "word" and text not in KEYWORDS and self.kind(i + 1) != "word"
            if not named and text not in ("::", ".", "->", "++", "--", "(", "["):
                return False
            acts |= text in ("++", "--", "(")
            i = (self.partner[i] if text in ("(", "[") else i) + 1
        return acts or i < last

    def _changes(self, i, kind, text, start, end):
        """What can be broken at one token: operator, start, end, what stands there then."""
        before, before_kind = self.word(i - 1), self.kind(i - 1)
        close = self.partner.get(i)
        named = before_kind == "word" and before not in KEYWORDS
        if kind == "number" and (before, self.word(i + 1)) != ("[", "]"):
            yield "constant", start, end, other_number(text)
        elif text in COMPARISONS and before != "template" and (
                self.text[start - 1].isspace() and self.text[end].isspace()):
            yield "comparison", start, end, COMPARISONS[text]
        elif text in SIGNS and "text" not in (before_kind, self.kind(i + 1)) and (
                text == "-" or named or before_kind == "number" or before in CLOSING):
            yield "sign", start, end, SIGNS[text]
        elif text == "[" and close > i + 1 and (
                before in (")", "]") or named and self.kind(i - 2) != "word"
                and self.word(i - 2) not in (">", "*", "&")):
            index = self.text[end:self.tokens[close][2]]
            yield ("index", end, end + len(index),
                   f"{index if index.isalnum() else f'({index})'} + 1")
        elif text == "(" and before in ("if", "while"):
            inits = [j for j in range(i, close) if self.word(j) == ";"]
            first, last = self.tokens[max(inits, default=i) + 1][2], self.tokens[close][2]
            yield "negated condition", first, last, f"!({self.text[first:last]})"
        elif text in ("(", "{") and named and before not in SYMMETRIC and (
                not self.text[start - 1].isspace()):
            yield from self._swaps(i, close)

    def _swaps(self, i, close):
        pieces, first = [], i + 1  # the first and the last token of each argument
        while i < close:
            i = self.partner[i] + 1 if i > first - 1 and self.word(i) in ("(", "[", "{") else i + 1
            if self.word(i) == "," or i == close:
                pieces.append((self.tokens[first][2], self.tokens[i - 1][3]))
                first = i + 1
        for (a, b), (c, d) in zip(pieces, pieces[1:]):
            left, right = self.text[a:b], self.text[c:d]
            sorts = [(piece[:1] == '"', piece == "nullptr") for piece in (left, right)]
            if left and right and left != right and sorts[0] == sorts[1] and (
                    not DECLARATION.search(f"{left},{right}")):
                yield "swapped arguments", a, d, right + self.text[b:c] + left


def other_number(text):
    """The next one for a small whole number, half as much again for any other."""
    digits, suffix = re.fullmatch(r"(0[xX][\da-fA-F']+|[\d'.]+(?:[eE][-+]?\d+)?)(.*)", text).groups()
    digits = digits.replace("'", "")
    if digits[:2] in ("0x", "0X"):
        return hex(int(digits, 16) + 1) + suffix
    if digits.isdigit():
        return str(int(digits) + 1 if int(digits) < 10 else int(digits) * 3 // 2) + suffix
    return repr(float(digits) * 1.5 or 1.0) + suffix
