"""Small changes to a source file, found by its syntax tree."""

import re
from pathlib import Path

from clang.cindex import (
    Config,
    Cursor,
    CursorKind as Kind,
    Diagnostic,
    Index,
    LibclangError,
    StorageClass,
    TranslationUnit,
    TypeKind,
)

from rewrite import SWITCH, Change, Wrap, flat, number_changes, shown

# Two neighbouring statements are swapped where both call one of these or emit a signal. The order
# of others shows nowhere.
HOST_HEADERS = ("/contract/HostServices.h", "/contract/DOC_Interface.h")

COMPARISONS = {
    "<": ("<=", ">="),
    "<=": ("<", ">"),
    ">": (">=", "<="),
    ">=": (">", "<"),
    "==": ("!=",),
    "!=": ("==",),
}
# The comparisons of a class by what it has anyway: not every class has all six.
CLASS_COMPARISONS = {
    "<": {"<=": "!({b} < {a})", ">=": "!({a} < {b})"},
    "<=": {"<": "!({b} <= {a})", ">": "!({a} <= {b})"},
    ">": {">=": "!({b} > {a})", "<=": "!({a} > {b})"},
    ">=": {">": "!({b} >= {a})", "<": "!({a} >= {b})"},
    "==": {"!=": "!({a} == {b})"},
    "!=": {"==": "!({a} != {b})"},
}
OPPOSITES = {"&&": "||", "||": "&&", "+": "-", "-": "+", "+=": "-=", "-=": "+="}

# Macros that expand to nothing, so that a statement may begin behind them.
EMPTY_MACROS = {"emit", "Q_EMIT"}

FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR,
             Kind.CONVERSION_FUNCTION}
SCOPES = {Kind.NAMESPACE, Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.UNION_DECL, Kind.LINKAGE_SPEC}
LOOPS = {Kind.FOR_STMT, Kind.WHILE_STMT, Kind.DO_STMT, Kind.CXX_FOR_RANGE_STMT}
LABELS = {Kind.CASE_STMT, Kind.DEFAULT_STMT, Kind.LABEL_STMT}
JUMPS = {Kind.RETURN_STMT, Kind.BREAK_STMT, Kind.CONTINUE_STMT, Kind.GOTO_STMT}
WRAPPERS = {Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR}

# Below these nothing can change at run time.
FIXED = {Kind.ENUM_DECL, Kind.STATIC_ASSERT, Kind.PARM_DECL, Kind.FIELD_DECL, Kind.TYPE_REF,
         Kind.TEMPLATE_REF, Kind.CXX_UNARY_EXPR, Kind.DECL_REF_EXPR, Kind.FUNCTION_TEMPLATE,
         Kind.CLASS_TEMPLATE, Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION, Kind.TYPEDEF_DECL,
         Kind.TYPE_ALIAS_DECL}


class ParseError(Exception):
    """A file that the compiler's front end cannot read."""


def check_front_end():
    """Raises ImportError where the front end is not there."""
    try:
        Config().lib
    except LibclangError as error:
        raise ImportError(str(error)) from error


class Unit:
    """A file with its syntax tree."""

    def __init__(self, path, file, source, arguments):
        """`path` is where the file stands for the compiler, `file` its name in reports."""
        text = source.encode("latin-1").decode("utf-8", "replace")
        tree = Index.create().parse(
            str(path), args=[*arguments, "-w"], unsaved_files=[(str(path), text)],
            options=TranslationUnit.PARSE_DETAILED_PROCESSING_RECORD)
        errors = [d for d in tree.diagnostics if d.severity >= Diagnostic.Error]
        if errors:
            raise ParseError(f"{errors[0].location.file}:{errors[0].location.line}: "
                             f"{errors[0].spelling}")
        self.file = file
        self.source = source
        self._tree = tree

        own = [cursor for cursor in tree.cursor.get_children()
               if cursor.location.file and cursor.location.file.name == tree.spelling]
        macros = [(cursor.extent.start.offset, cursor.extent.end.offset, cursor.spelling)
                  for cursor in own if cursor.kind == Kind.MACRO_INSTANTIATION]
        # The cursors at the top of the file itself, the ranges of its macros, and the places of
        # `emit`.
        self.top = [cursor for cursor in own if not cursor.kind.is_preprocessing()]
        self.macros = [macro for macro in macros if macro[2] not in EMPTY_MACROS]
        self.emits = [start for start, _, name in macros if name in EMPTY_MACROS]


def descendants(cursor, *, into_lambdas=True):
    for child in cursor.get_children():
        yield child
        if into_lambdas or child.kind != Kind.LAMBDA_EXPR:
            yield from descendants(child, into_lambdas=into_lambdas)


def bare(cursor):
    """The expression without parentheses and conversions around it."""
    while cursor.kind in WRAPPERS:
        inner = list(cursor.get_children())
        if len(inner) != 1:
            break
        cursor = inner[0]
    return cursor


def function_name(cursor):
    names = []
    while cursor and cursor.kind != Kind.TRANSLATION_UNIT:
        if cursor.kind != Kind.LINKAGE_SPEC and cursor.spelling and "(" not in cursor.spelling:
            names.insert(0, cursor.spelling)
        cursor = cursor.semantic_parent
    return "::".join(names)


class Knowledge:
    """What holds for all files of a run: which functions are getters of a field, and which reach
    the host, a document or a signal."""

    def __init__(self):
        self.getters = {}
        self._calls = {}
        self._reaching = set()

    def learn(self, unit):
        for cursor in unit.top:
            self._learn_below(cursor, unit.emits)

    def _learn_below(self, cursor, emits):
        if cursor.kind in SCOPES:
            for child in cursor.get_children():
                self._learn_below(child, emits)
        elif cursor.kind in FUNCTIONS and cursor.is_definition():
            self._learn_function(cursor, emits)

    def _learn_function(self, cursor, emits):
        usr = cursor.get_usr()
        calls = self._calls.setdefault(usr, set())
        extent = cursor.extent
        if any(extent.start.offset <= at < extent.end.offset for at in emits):
            self._reaching.add(usr)
        for node in descendants(cursor):
            if node.kind == Kind.CALL_EXPR and node.referenced:
                if is_of_host(node.referenced):
                    self._reaching.add(usr)
                calls.add(node.referenced.get_usr())
        field = getter_field(cursor)
        if field:
            self.getters[usr] = field

    def close(self):
        """To be called when all files are known."""
        grows = True
        while grows:
            more = {usr for usr, calls in self._calls.items()
                    if usr not in self._reaching and calls & self._reaching}
            self._reaching |= more
            grows = bool(more)

    def reaches_host(self, cursor, emits):
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        # `emit` stands in front of the statement that it belongs to.
        if any(start - 8 <= at < end for at in emits):
            return True
        return any(
            node.kind == Kind.CALL_EXPR and node.referenced
            and (is_of_host(node.referenced) or node.referenced.get_usr() in self._reaching)
            for node in (cursor, *descendants(cursor)))


def is_of_host(function):
    if function.kind != Kind.CXX_METHOD or not function.location.file:
        return False
    return function.location.file.name.endswith(HOST_HEADERS)


def getter_field(cursor):
    """`field` of a virtual `type getter() { return field; }`."""
    if cursor.kind != Kind.CXX_METHOD or not cursor.is_virtual_method():
        return None
    children = list(cursor.get_children())
    body = children[-1] if children else None
    if body is None or body.kind != Kind.COMPOUND_STMT or list(cursor.get_arguments()):
        return None
    statements = list(body.get_children())
    if len(statements) != 1 or statements[0].kind != Kind.RETURN_STMT:
        return None
    words = [token.spelling for token in statements[0].get_tokens()][:3]
    field = next((node for node in descendants(statements[0])
                  if node.kind == Kind.MEMBER_REF_EXPR), None)
    if field is None or words not in (["return", field.spelling], ["return", field.spelling, ";"]):
        return None
    return field.spelling


class Finder:
    """Finds the changes of one file."""

    def __init__(self, unit, knowledge):
        self._unit = unit
        self._source = unit.source
        self._knowledge = knowledge
        self._function = ""
        self._known = set()
        self._changes = []

    def changes(self):
        for cursor in self._unit.top:
            self._declaration(cursor)
        self._changes.sort(key=lambda change: (change.wraps[0].start, change.wraps[0].end))
        number_changes(self._changes)
        return self._changes

    # Text

    def _text(self, cursor):
        return self._source[cursor.extent.start.offset:cursor.extent.end.offset]

    def _in_macro(self, *offsets):
        return any(start <= at < end for start, end, _ in self._unit.macros for at in offsets)

    def _after_space(self, offset):
        """The next place that is neither blank nor comment."""
        space = re.compile(r"(?:\s|//[^\n]*|/\*.*?\*/)*", re.DOTALL)
        return space.match(self._source, offset).end()

    def _statement(self, cursor):
        """Start and end of a statement with its semicolon, or None where it cannot be told."""
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        if end <= start or self._in_macro(start, end - 1):
            return None
        after = self._after_space(end)
        if self._source[after:after + 1] == ";":
            return start, after + 1
        return (start, end) if self._source[end - 1] in "};" else None

    def _copied(self, start, end):
        """The text for a second place, or None where it cannot stand on one line."""
        text = self._source[start:end]
        if re.search(r'^\s*#|\bR"', text, re.MULTILINE):
            return None
        return flat(text)

    def _add(self, offset, text, *wraps):
        known = (text, wraps)
        if known in self._known:
            return
        self._known.add(known)
        line = self._source.count("\n", 0, offset) + 1
        self._changes.append(Change(self._unit.file, line, self._function, text, list(wraps)))

    def _expression(self, cursor, instead, *, text, original=""):
        """Offers `instead` in place of an expression; `original` converts the expression itself."""
        start, end = cursor.extent.start.offset, cursor.extent.end.offset
        if end <= start or self._in_macro(start, end - 1):
            return
        self._add(start, text, Wrap(start, end, f"({SWITCH} ? ({instead}) : {original}(", "))"))

    # Walking

    def _declaration(self, cursor):
        if cursor.kind in SCOPES:
            for child in cursor.get_children():
                self._declaration(child)
        elif cursor.kind in FUNCTIONS and cursor.is_definition():
            self._function_body(cursor)

    def _function_body(self, cursor):
        head = self._source[cursor.extent.start.offset:cursor.location.offset]
        if re.search(r"\b(constexpr|template)\b", head) or self._in_macro(
                cursor.extent.start.offset):
            return
        outer = self._function
        self._function = function_name(cursor)
        for child in cursor.get_children():
            # Its body, and what a constructor initialises; the rest belongs to types.
            if child.kind == Kind.COMPOUND_STMT or cursor.kind == Kind.CONSTRUCTOR and (
                    child.extent.start.offset > cursor.location.offset):
                self._node(child, [cursor])
        self._function = outer

    def _node(self, cursor, parents):
        kind = cursor.kind
        if kind in FIXED:
            return
        if kind in SCOPES or kind in FUNCTIONS:
            self._declaration(cursor)
            return
        if kind == Kind.VAR_DECL and self._is_fixed_variable(cursor):
            return

        children = list(cursor.get_children())
        if kind == Kind.VAR_DECL:
            # What stands before the name belongs to the type.
            children = [child for child in children
                        if child.extent.start.offset >= cursor.location.offset]
        if kind == Kind.CASE_STMT:
            children = children[1:]
        if kind == Kind.IF_STMT and self._is_constexpr_if(cursor):
            children = children[1:]

        if kind == Kind.COMPOUND_STMT:
            self._swaps(children)
        self._operators(cursor, children)
        self._literals(cursor, parents)
        self._getter(cursor, children)
        condition = self._condition(cursor, children)
        if condition:
            self._negation(condition)
        if self._is_statement(cursor, parents):
            self._drop(cursor, parents)
        for child in children:
            self._node(child, [*parents, cursor])

    def _is_fixed_variable(self, cursor):
        line_start = self._source.rfind("\n", 0, cursor.extent.start.offset) + 1
        head = self._source[line_start:cursor.location.offset]
        return (cursor.storage_class == StorageClass.STATIC
                or re.search(r"\b(constexpr|static|thread_local)\b", head) is not None)

    # Expressions

    def _operator(self, cursor, children):
        """The two operands of an operator and its text."""
        if len(children) < 2:
            return None
        operands = sorted((children[0], children[-1]), key=lambda c: c.extent.start.offset)
        start, end = operands[0].extent.end.offset, operands[1].extent.start.offset
        if start <= 0 or end <= start or self._in_macro(start, end):
            return None
        return operands, flat(self._source[start:end])

    def _operators(self, cursor, children):
        is_call = cursor.kind == Kind.CALL_EXPR and cursor.spelling.startswith("operator")
        if not is_call and cursor.kind not in (Kind.BINARY_OPERATOR,
                                               Kind.COMPOUND_ASSIGNMENT_OPERATOR):
            return
        found = self._operator(cursor, children)
        if not found:
            return
        operands, operator = found
        texts = [self._copied(o.extent.start.offset, o.extent.end.offset) for o in operands]
        if None in texts:
            return
        a, b = (f"({text})" for text in texts)
        if is_call:
            if cursor.spelling != f"operator{operator}":
                return
            for other, form in CLASS_COMPARISONS.get(operator, {}).items():
                self._expression(cursor, form.format(a=a, b=b),
                                 text=self._operator_text(texts, operator, other))
        elif operator in COMPARISONS:
            for other in COMPARISONS[operator]:
                self._expression(cursor, f"{a} {other} {b}",
                                 text=self._operator_text(texts, operator, other))
        elif operator in ("&&", "||") or operator in OPPOSITES and all(
                is_number(o.type) for o in (cursor, *operands)):
            other = OPPOSITES[operator]
            self._expression(cursor, f"{a} {other} {b}",
                             text=self._operator_text(texts, operator, other))

    @staticmethod
    def _operator_text(texts, operator, other):
        a, b = (shown(text, 60) for text in texts)
        return f"{a} {operator} {b} -> {a} {other} {b}"

    def _literals(self, cursor, parents):
        text = self._text(cursor)
        if cursor.kind in (Kind.INTEGER_LITERAL, Kind.FLOATING_LITERAL):
            if text[:1].isdigit() or text[:1] == ".":
                self._expression(cursor, f"{text} + 1",
                                 text=f"{text} + 1 in {self._around(cursor, parents)}")
        elif cursor.kind == Kind.CXX_BOOL_LITERAL_EXPR and text in ("true", "false"):
            start, end = cursor.extent.start.offset, cursor.extent.end.offset
            if self._in_macro(start):
                return
            other = "false" if text == "true" else "true"
            self._add(start, f"{other} in {self._around(cursor, parents)}",
                      Wrap(start, end, f"({SWITCH} ? {other} : ", ")"))

    def _around(self, cursor, parents):
        """What surrounds a literal, with a mark around the literal itself."""
        at, end = cursor.extent.start.offset, cursor.extent.end.offset
        for parent in reversed(parents):
            start, stop = parent.extent.start.offset, parent.extent.end.offset
            if parent.kind in FUNCTIONS or parent.kind == Kind.COMPOUND_STMT:
                start, stop = at, end
            if (start, stop) != (at, end) or parent.kind in FUNCTIONS:
                break
        else:
            start, stop = at, end
        start, stop = max(start, at - 50), min(stop, end + 50)
        return (f"{shown(self._source[start:at])} [{self._source[at:end]}] "
                f"{shown(self._source[end:stop])}").strip()

    def _getter(self, cursor, children):
        if cursor.kind != Kind.CALL_EXPR or not cursor.referenced:
            return
        field = self._knowledge.getters.get(cursor.referenced.get_usr())
        text = self._text(cursor)
        if field and re.fullmatch(r"\w+\(\)", text):
            self._expression(cursor, f"static_cast<decltype({text})>({field})",
                             text=f"{text} -> {field}")

    # Conditions

    def _condition(self, cursor, children):
        kind = cursor.kind
        if kind == Kind.DO_STMT:
            return children[-1] if children else None
        if kind == Kind.FOR_STMT:
            return self._for_condition(cursor, children)
        if kind not in (Kind.IF_STMT, Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR) or not children:
            return None
        if kind == Kind.IF_STMT and self._is_constexpr_if(cursor):
            return None
        return children[0]

    def _is_constexpr_if(self, cursor):
        return re.match(r"if\s+constexpr\b", self._text(cursor)) is not None

    def _for_condition(self, cursor, children):
        """The child between the two semicolons of the head."""
        depth = 0
        semicolons = []
        start = cursor.extent.start.offset
        for at in range(start, cursor.extent.end.offset):
            letter = self._source[at]
            depth += (letter in "({[") - (letter in ")}]")
            if letter == ";" and depth == 1:
                semicolons.append(at)
            if len(semicolons) == 2:
                break
        else:
            return None
        for child in children:
            if semicolons[0] < child.extent.start.offset and (
                    child.extent.end.offset <= semicolons[1]):
                return child
        return None

    def _negation(self, condition):
        if not condition.kind.is_expression():
            return
        inner = bare(condition)
        if inner.kind == Kind.CXX_BOOL_LITERAL_EXPR:
            return
        children = list(inner.get_children())
        if inner.kind == Kind.BINARY_OPERATOR or inner.kind == Kind.CALL_EXPR and (
                inner.spelling.startswith("operator")):
            found = self._operator(inner, children)
            if found and found[1] in COMPARISONS:
                return
        copy = self._copied(condition.extent.start.offset, condition.extent.end.offset)
        if copy is not None:
            self._expression(condition, f"!({copy})", original="static_cast<bool>",
                             text=f"negated: {shown(copy)}")

    # Statements

    @staticmethod
    def _is_statement(cursor, parents):
        parent = parents[-1]
        if parent.kind == Kind.COMPOUND_STMT:
            return True
        if parent.kind in LABELS or parent.kind in LOOPS or parent.kind == Kind.IF_STMT:
            children = list(parent.get_children())
            if parent.kind == Kind.DO_STMT:
                return cursor == children[0]
            if parent.kind == Kind.IF_STMT:
                return cursor in children[1:]
            return cursor == children[-1]
        return False

    def _drop(self, cursor, parents):
        kind = cursor.kind
        if kind in JUMPS or bare(cursor).kind == Kind.CXX_THROW_EXPR:
            if kind == Kind.GOTO_STMT or not self._goes_on_without(cursor, parents):
                return
        elif not kind.is_expression():
            return
        found = self._statement(cursor)
        if not found:
            return
        start, end = found
        self._add(start, f"dropped: {shown(self._source[start:end])}",
                  Wrap(start, end, f"{{ if (!{SWITCH}) {{ ", " } }"))

    @staticmethod
    def _goes_on_without(cursor, parents):
        """Whether another statement follows a jump that is left out, in its loop, its switch or its
        function; else nothing changes, or a value is missing."""
        child = cursor
        for parent in reversed(parents):
            if parent.kind == Kind.COMPOUND_STMT:
                siblings = list(parent.get_children())
                following = siblings[siblings.index(child) + 1:]
                if any(Finder._does_more_than_break(s) for s in following):
                    return True
            elif parent.kind in LOOPS:
                return cursor.kind != Kind.CONTINUE_STMT
            elif parent.kind == Kind.SWITCH_STMT and cursor.kind == Kind.BREAK_STMT:
                return False
            elif parent.kind in FUNCTIONS or parent.kind == Kind.LAMBDA_EXPR:
                return False
            child = parent
        return False

    @staticmethod
    def _does_more_than_break(statement):
        while statement.kind in LABELS:
            children = list(statement.get_children())
            if not children:
                return False
            statement = children[-1]
        return statement.kind not in (Kind.BREAK_STMT, Kind.NULL_STMT)

    def _swaps(self, statements):
        for first, second in zip(statements, statements[1:]):
            while first.kind in LABELS:
                first = list(first.get_children())[-1]
            if not (self._may_move(first) and self._may_move(second)):
                continue
            ranges = self._statement(first), self._statement(second)
            if None in ranges:
                continue
            copy = self._copied(*ranges[1])
            if copy is None:
                continue
            one, other = (shown(self._source[start:end], 70) for start, end in ranges)
            self._add(ranges[0][0], f"swapped: {one} and {other}",
                      Wrap(*ranges[0], f"{{ if ({SWITCH}) {{ {copy} }} ", " }"),
                      Wrap(*ranges[1], f"{{ if (!{SWITCH}) {{ ", " } }"))

    def _may_move(self, cursor):
        if cursor.kind in LABELS or cursor.kind in JUMPS or cursor.kind == Kind.DECL_STMT:
            return False
        if any(node.kind in JUMPS for node in descendants(cursor, into_lambdas=False)):
            return False
        return self._knowledge.reaches_host(cursor, self._unit.emits)


def is_number(kind):
    canonical = kind.get_canonical().kind
    return (TypeKind.BOOL.value <= canonical.value <= TypeKind.LONGDOUBLE.value
            and canonical != TypeKind.BOOL)


def read_source(path):
    return Path(path).read_bytes().decode("latin-1")
