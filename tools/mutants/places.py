"""Finds the places of a C++ source that can be changed by a little, and what they become."""

import bisect
import dataclasses
import re
import sys

try:
    import clang.cindex as cindex
except ImportError:
    # Debian installs the binding for its own interpreter, which need not be the first of the path.
    sys.path.append("/usr/lib/python3/dist-packages")
    import clang.cindex as cindex

Kind = cindex.CursorKind

# An operator and what it becomes.
OPERATORS = {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">",
             "&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/", "/": "*", "%": "*",
             "+=": "-=", "-=": "+=", "&": "|", "|": "&"}
COMPARISONS = ("==", "!=")
FUNCTIONS = (Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR,
             Kind.FUNCTION_TEMPLATE, Kind.CONVERSION_FUNCTION)
REFERENCES = (cindex.TypeKind.LVALUEREFERENCE, cindex.TypeKind.RVALUEREFERENCE)
LOOPS = (Kind.FOR_STMT, Kind.CXX_FOR_RANGE_STMT, Kind.WHILE_STMT, Kind.DO_STMT)
# Marks the place of the text around which a schema is written.
HERE = "\0"


@dataclasses.dataclass
class Mutant:
    """One small change of the text from start to end: what to write around it so that VxMutant can
    choose (`schema`), and what it becomes alone (`plain`). One that is `apart` has no schema: it
    is compiled in a source of its own."""
    start: int
    end: int
    rank: int  # of schemata around the same text the larger is outside
    what: str
    schema: str
    plain: str
    function: str = ""
    line: int = 0
    name: str = ""
    number: int = 0
    apart: bool = False


def short(text, most=72):
    """In one line, without its middle if it is long."""
    text = " ".join(text.split())
    return text if len(text) <= most else f"{text[:most // 2]} ... {text[-most // 2:]}"


class Finder:
    """Walks through one source. The result lies in `mutants`, ordered and numbered from 1."""

    def __init__(self, path, arguments):
        self.path = str(path)
        self.bytes = path.read_bytes()
        unit = cindex.Index.create().parse(self.path, arguments)
        broken = [d for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
        if broken:
            raise RuntimeError(f"{self.path}: the parser does not understand it: {broken[0]}")
        self.tokens = list(unit.get_tokens(extent=unit.cursor.extent))
        self.starts = [t.extent.start.offset for t in self.tokens]
        self.mutants = []
        self.compared = set()
        self.function, self.gives_reference = "", False
        for cursor in unit.cursor.get_children():
            if cursor.location.file and cursor.location.file.name == self.path:
                self.visit(cursor, None)
        self.number()

    # --- Text ---

    def text(self, start, end):
        return self.bytes[start:end].decode()

    @staticmethod
    def span(cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def of(self, cursor):
        return self.text(*self.span(cursor))

    def tokens_in(self, start, end):
        first = bisect.bisect_left(self.starts, start)
        return self.tokens[first:bisect.bisect_left(self.starts, end)]

    def statement_end(self, cursor):
        """With the semicolon, which the parser leaves to the surroundings."""
        end = cursor.extent.end.offset
        if self.bytes[end - 1:end] in (b";", b"}"):
            return end
        after = self.tokens[bisect.bisect_left(self.starts, end):][:1]
        return after[0].extent.end.offset if after and after[0].spelling == ";" else end

    # --- What is found ---

    def add(self, start, end, rank, what, schema, plain, apart=False):
        line = self.bytes.count(b"\n", 0, start) + 1
        self.mutants.append(Mutant(start, end, rank, what, schema, plain, self.function, line,
                                   apart=apart))

    def instead(self, cursor, plain, what):
        """The expression is replaced by another one of its type."""
        start, end = self.span(cursor)
        self.add(start, end, 0, what, f"(VxMutant(@) ? ({plain}) : ({HERE}))", f"({plain})")

    def negate(self, cursor):
        start, end = self.span(cursor)
        self.add(start, end, 1, f"negated: {short(self.of(cursor))}",
                 f"(VxMutant(@) != static_cast<bool>({HERE}))", f"(!({self.of(cursor)}))")

    def leave_out(self, cursor):
        start, end = self.span(cursor)
        self.add(start, end, 3, f"left out: {short(self.of(cursor))}",
                 f"(VxMutant(@) ? (void)0 : (void)({HERE}))", "(void)0")

    # --- The walk ---

    def visit(self, cursor, parent):
        kind, outer = cursor.kind, (self.function, self.gives_reference)
        if kind in FUNCTIONS:
            self.function = cursor.spelling
            self.gives_reference = cursor.result_type.kind in REFERENCES
        if kind == Kind.STATIC_ASSERT or self.is_to_be_filled(cursor) or \
                self.is_of_a_type(cursor, parent):
            return
        if parent is not None and kind.is_expression() and self.is_statement(cursor, parent):
            self.leave_out(cursor)
        handler = self.HANDLERS.get(kind)
        if handler:
            handler(self, cursor, parent)
        if kind == Kind.STRING_LITERAL:
            return
        for child in cursor.get_children():
            self.visit(child, cursor)
        self.function, self.gives_reference = outer

    def is_to_be_filled(self, cursor):
        """`{PRO_TYPE_UNUSED, 0, nullptr}` makes a place for an answer and says nothing."""
        return (cursor.kind == Kind.INIT_LIST_EXPR and
                re.match(r"\{\s*\w+_UNUSED\s*,", self.of(cursor)))

    @staticmethod
    def is_statement(cursor, parent):
        kind = parent.kind
        if kind == Kind.COMPOUND_STMT:
            return True
        children = list(parent.get_children())
        if kind == Kind.IF_STMT:
            return any(cursor == child for child in children[-2:]) and cursor != children[0] and \
                not (len(children) > 2 and children[0].kind == Kind.DECL_STMT and
                     cursor == children[1])
        return kind in LOOPS + (Kind.CASE_STMT, Kind.DEFAULT_STMT) and cursor == children[-1]

    def binary(self, cursor, _parent):
        left, right = list(cursor.get_children())[:2]
        for token in self.tokens_in(left.extent.end.offset, right.extent.start.offset):
            if token.spelling in OPERATORS:
                self.change_operator(cursor, token)
                if token.spelling in COMPARISONS:
                    self.compared |= {self.span(left), self.span(right)}
                if token.spelling in ("&&", "||"):
                    self.condition(left)
                    self.condition(right)

    def change_operator(self, cursor, token):
        start, end = self.span(cursor)
        at, to = token.extent.start.offset, OPERATORS[token.spelling]
        if not start < at < end:  # the parser gives a rewritten operator half of its text
            return
        changed = self.text(start, at) + to + self.text(token.extent.end.offset, end)
        self.add(start, end, 0, f"{token.spelling} -> {to}: {short(self.of(cursor))}",
                 f"(VxMutant(@) ? ({changed}) : ({HERE}))", f"({changed})")

    def call(self, cursor, parent):
        operator = re.fullmatch(r"operator([^\w(\[]+)", cursor.spelling or "")
        children = list(cursor.get_children())
        if operator and len(children) == 3:
            for token in self.tokens_in(*self.span(children[1])):
                if token.spelling in OPERATORS:
                    self.change_operator(cursor, token)
            return
        is_status = cursor.type.get_canonical().spelling.split()[-1:] == ["ProErrors"] or \
            cursor.type.spelling == "ProError"
        if is_status and not (parent and self.is_statement(cursor, parent)):
            start, end = self.span(cursor)
            what = f"left out as if it had gone well: {short(self.of(cursor))}"
            self.add(start, end, 0, what, f"(VxMutant(@) ? decltype({self.of(cursor)}){{}} : "
                     f"({HERE}))", f"(decltype({self.of(cursor)}){{}})")

    def condition(self, cursor):
        """A comparison for equality is left to its operator."""
        inner = cursor
        while inner.kind in (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR):
            children = list(inner.get_children())
            if len(children) != 1:
                break
            inner = children[0]
        text = self.of(cursor)
        if inner.kind == Kind.UNARY_OPERATOR and text.startswith("!="):
            return
        if inner.kind in (Kind.BINARY_OPERATOR, Kind.CALL_EXPR, Kind.UNARY_OPERATOR):
            span = self.span(cursor)
            if any(m.start == span[0] and m.end == span[1] and m.what.startswith(COMPARISONS)
                   for m in self.operators_of(inner)):
                return
        if inner.kind != Kind.CXX_BOOL_LITERAL_EXPR:
            self.negate(cursor)

    def operators_of(self, cursor):
        """The changes of the operator of an expression, found without keeping them."""
        kept, self.mutants = self.mutants, []
        if cursor.kind == Kind.BINARY_OPERATOR:
            self.binary_only(cursor)
        elif cursor.kind == Kind.CALL_EXPR:
            self.call(cursor, None)
        elif cursor.kind == Kind.UNARY_OPERATOR and self.of(cursor).startswith("!="):
            for child in cursor.get_children():
                self.call(child, None)
        found, self.mutants = self.mutants, kept
        return found

    def binary_only(self, cursor):
        left, right = list(cursor.get_children())[:2]
        for token in self.tokens_in(left.extent.end.offset, right.extent.start.offset):
            if token.spelling in OPERATORS:
                self.change_operator(cursor, token)

    def first_condition(self, cursor, _parent):
        """Of an if, a while or a choice by `?`; one that declares its name is left alone."""
        children = list(cursor.get_children())
        is_logical = re.search(r"&&|\|\|", self.of(children[0])) and \
            children[0].kind == Kind.BINARY_OPERATOR
        if children[0].kind.is_expression() and not is_logical:
            self.condition(children[0])

    def unary(self, cursor, _parent):
        text = self.of(cursor)
        if text.startswith("-") and not text.startswith("--"):
            self.instead(cursor, text[1:], f"sign of {text}")

    def is_of_a_type(self, cursor, parent):
        """A template's argument, the size of an array, or the label of a case."""
        if parent is None or not cursor.kind.is_expression():
            return False
        start = cursor.extent.start.offset
        if parent.kind == Kind.CASE_STMT:
            return cursor == next(parent.get_children())
        before = self.tokens[bisect.bisect_left(self.starts, start) - 1].spelling
        return parent.kind in (Kind.VAR_DECL, Kind.FIELD_DECL, Kind.PARM_DECL) and (
            start < parent.location.offset or before == "[")

    def number_literal(self, cursor, _parent):
        text = self.of(cursor)
        if re.fullmatch(r"[\d.]+(e[-+]?\d+)?[uUlLfFzZ]*|0[xX][0-9a-fA-F]+[uUlL]*", text):
            self.instead(cursor, f"{text} + 1", f"{text} -> {text} + 1")

    def character(self, cursor, _parent):
        text = self.of(cursor)
        self.instead(cursor, f"static_cast<decltype({text})>({text} + 1)", f"{text} -> its next")

    def boolean(self, cursor, _parent):
        text = self.of(cursor)
        other = {"true": "false", "false": "true"}.get(text)
        if other:
            self.instead(cursor, other, f"{text} -> {other}")

    def literal(self, cursor, _parent):
        text = self.of(cursor)
        if '"' not in text:
            return
        at = text.rindex('"')
        changed = text[:at] + "~" + text[at:]
        start, end = self.span(cursor)
        # Both decay, so that they are of one type however long.
        self.add(start, end, 0, f"{text} -> {changed}",
                 f"(VxMutant(@) ? &({changed})[0] : &({HERE})[0])", changed)

    def reference(self, cursor, _parent):
        constant = cursor.referenced
        if constant is None or constant.kind != Kind.ENUM_CONSTANT_DECL:
            return
        # That a status is compared with another one is what the changed operator says already.
        if constant.spelling == "PRO_TK_NO_ERROR" and self.span(cursor) in self.compared:
            return
        rows = [c for c in constant.semantic_parent.get_children()
                if c.kind == Kind.ENUM_CONSTANT_DECL]
        others = [c for c in rows if c.enum_value != constant.enum_value]
        later = [c for c in others if c.enum_value > constant.enum_value]
        if others:
            text = self.of(cursor)
            other = (later or others)[0].spelling
            changed = text[:len(text) - len(constant.spelling)] + other
            self.instead(cursor, changed, f"{text} -> {changed}")

    def returned(self, cursor, _parent):
        """A reference stays: nothing in its place would be a temporary that is gone at once, with
        the mutant and, as the two share a type, without it."""
        value = next(iter(cursor.get_children()), None)
        if value is None or self.gives_reference:
            return
        text, kind = self.of(value), value.type.get_canonical().kind
        if kind == cindex.TypeKind.VOID:
            self.leave_out(value)
        elif kind == cindex.TypeKind.BOOL:
            if not re.search(r"&&|\|\|", text):
                self.condition(value)
        elif not re.match(r"\{|std::nullopt$|nullptr$|[\d.]+$|[A-Z_][A-Z_0-9]*$|\w+::\w+$", text):
            self.add(*self.span(value), 2, f"returns nothing for: {short(text)}",
                     f"(VxMutant(@) ? std::decay_t<decltype({text})>{{}} : {HERE})",
                     f"std::decay_t<decltype({text})>{{}}")

    def compound(self, cursor, _parent):
        """Neighbours swapped: a chain of statements that declare nothing has one schema; with a
        declaration the source is compiled apart."""
        children = list(cursor.get_children())
        movable = [(c.kind.is_expression() or c.kind in LOOPS) and self.calls(c) for c in children]
        first = 0
        while first < len(children):
            last = first
            while last < len(children) and movable[last]:
                last += 1
            if last - first > 1:
                self.swap_in_chain(children[first:last])
            first = last + 1
        for i in range(len(children) - 1):
            pair = children[i:i + 2]
            kinds = [c.kind == Kind.DECL_STMT for c in pair]
            if any(kinds) and all(m or (k and self.calls(c))
                                  for c, k, m in zip(pair, kinds, movable[i:i + 2])):
                self.swap_apart(*pair)

    @staticmethod
    def calls(cursor):
        """Whether something is called that is not the standard library's."""
        for inner in cursor.walk_preorder():
            called = inner.referenced if inner.kind == Kind.CALL_EXPR else None
            if called is None or called.kind not in (Kind.FUNCTION_DECL, Kind.CXX_METHOD):
                continue
            file = called.location.file.name if called.location.file else "/usr/"
            if not re.match("/usr/|.*/include/c[+][+]/", file) and \
                    not called.spelling.startswith("operator"):
                return True
        return False

    def swap_in_chain(self, chain):
        texts = [self.text(c.extent.start.offset, self.statement_end(c)) for c in chain]
        start, end = chain[0].extent.start.offset, self.statement_end(chain[-1])
        for i in range(len(chain) - 1):
            if texts[i] == texts[i + 1]:
                continue
            order = texts[:i] + [texts[i + 1], texts[i]] + texts[i + 2:]
            changed = " ".join(order)
            self.add(start, end, 4, f"swapped: {short(texts[i])} <-> {short(texts[i + 1])}",
                     f"if (VxMutant(@)) {{ {changed} }} else {{ {HERE} }}", changed)
            self.mutants[-1].line = self.bytes.count(b"\n", 0, chain[i].extent.start.offset) + 1

    def swap_apart(self, one, other):
        start, middle, end = (one.extent.start.offset, self.statement_end(one),
                              self.statement_end(other))
        first, second = self.text(start, middle), self.text(other.extent.start.offset, end)
        self.add(start, end, 5, f"swapped: {short(first)} <-> {short(second)}", "",
                 f"{second} {first}", apart=True)

    HANDLERS = {
        Kind.BINARY_OPERATOR: binary, Kind.COMPOUND_ASSIGNMENT_OPERATOR: binary,
        Kind.CALL_EXPR: call, Kind.IF_STMT: first_condition, Kind.WHILE_STMT: first_condition,
        Kind.CONDITIONAL_OPERATOR: first_condition, Kind.UNARY_OPERATOR: unary,
        Kind.INTEGER_LITERAL: number_literal, Kind.FLOATING_LITERAL: number_literal,
        Kind.CHARACTER_LITERAL: character, Kind.CXX_BOOL_LITERAL_EXPR: boolean,
        Kind.STRING_LITERAL: literal, Kind.DECL_REF_EXPR: reference,
        Kind.RETURN_STMT: returned, Kind.COMPOUND_STMT: compound,
    }

    # --- Order and names ---

    def number(self):
        unique = {(m.start, m.end, m.what): m for m in self.mutants}
        self.mutants = sorted(unique.values(), key=lambda m: (m.start, -m.end, -m.rank, m.what))
        lines = self.bytes.decode().splitlines()
        names = {}
        for number, mutant in enumerate(self.mutants, 1):
            mutant.number = number
            what = " ".join(mutant.what.split())
            if re.match(r".{1,40} -> |sign of", what) and not re.match(r"\W+ -> \W+: ", what):
                what += f", in {' '.join(lines[mutant.line - 1].split())}"
            name = f"{mutant.function}: {what}" if mutant.function else what
            names[name] = names.get(name, 0) + 1
            mutant.name = name if names[name] == 1 else f"{name} ({names[name]})"
