#!/usr/bin/python3
"""Writes down the fields of every record of the public headers, for those who print, name or walk them.

  record-fields.py write   reads the headers and writes src/catalogue/records.inc
  record-fields.py check   reads the headers and compares: fails when the committed file is stale

Reads them through clang's C parser (python3-clang-14); nobody needs either to use the file.
"""
import pathlib
import re
import sys

from clang.cindex import CursorKind, Diagnostic, Index, TypeKind

ROOT = pathlib.Path(__file__).resolve().parent.parent
HEADERS = ROOT / "include"
LIST = pathlib.Path("src/catalogue/records.inc")

# Their structs tell of the library and of frames, not of messages.
NO_RECORDS = {"catalogue.h", "frame.h"}

NUMBERS = {
    "int8_t": "INT8",
    "uint8_t": "UINT8",
    "int16_t": "INT16",
    "uint16_t": "UINT16",
    "int": "INT32",
    "int32_t": "INT32",
    "unsigned int": "UINT32",
    "uint32_t": "UINT32",
    "int64_t": "INT64",
    "uint64_t": "UINT64",
    "float": "FLOAT",
    "double": "DOUBLE",
}

HEAD = """\
// The fields of every record of the public headers. Written by `make records`; .ci/run compares.
//
// Define what you need of the macros below, then include this file, as often as you like: it gives those that you left
// out no meaning, and forgets all of them at its end. Everything stands in the order of the headers, so that a row type
// comes before the records that hold it. Offsets differ between machines: offsetof(STRUCT, FIELD) has them.
//
//   ZEL_RECORD(NAME)           begins a record: a struct with an exported NAME_init. Left out, it is a ZEL_STRUCT.
//   ZEL_STRUCT(NAME)           begins a struct without an init: rows, nested blocks, extensions.
//   ZEL_NOTE(NAME, COMMENT)    what its header says of it, a string literal; where it says something.
//   ZEL_FIELD(STRUCT, FIELD, TYPE, DIM1, DIM2, COMMENT)
//                              its next field. TYPE is INT8, UINT8, INT16, UINT16, INT32, UINT32, INT64, UINT64, FLOAT,
//                              DOUBLE, TEXT, POINTER or STRUCT(NAME): paste it, PREFIX_##TYPE, and define PREFIX_INT32
//                              and the others, with PREFIX_STRUCT(NAME) as a macro with an argument. DIM1 and DIM2 are
//                              the array's sizes, 0 where there is none. A TEXT has its size in DIM2, and in DIM1 how
//                              many of them there are, 0 for a single one. COMMENT is the header's, a string literal.
//   ZEL_END(NAME)              ends the record or struct.
//   ZEL_ALIAS(NAME, ORIGINAL)  another name of ORIGINAL, with an exported NAME_init.
#ifndef ZEL_STRUCT
#define ZEL_STRUCT(NAME)
#endif
#ifndef ZEL_RECORD
#define ZEL_RECORD(NAME) ZEL_STRUCT(NAME)
#endif
#ifndef ZEL_NOTE
#define ZEL_NOTE(NAME, COMMENT)
#endif
#ifndef ZEL_FIELD
#define ZEL_FIELD(STRUCT, FIELD, TYPE, DIM1, DIM2, COMMENT)
#endif
#ifndef ZEL_END
#define ZEL_END(NAME)
#endif
#ifndef ZEL_ALIAS
#define ZEL_ALIAS(NAME, ORIGINAL)
#endif
"""

TAIL = """
#undef ZEL_STRUCT
#undef ZEL_RECORD
#undef ZEL_NOTE
#undef ZEL_FIELD
#undef ZEL_END
#undef ZEL_ALIAS
"""


def fail(text):
    sys.exit(f"{sys.argv[0]}: {text}")


def place(cursor):
    return f"{pathlib.Path(cursor.location.file.name).relative_to(ROOT)}:{cursor.location.line}"


def parse():
    header = HEADERS / "zel_protocol/zel_protocol.h"
    unit = Index.create().parse(str(header), args=["-x", "c", "-std=c11", f"-I{HEADERS}"])
    errors = [str(d) for d in unit.diagnostics if d.severity >= Diagnostic.Error]
    if errors:
        fail("\n".join(["the headers don't compile:"] + errors))
    ours = [c for c in unit.cursor.get_children() if HEADERS in pathlib.Path(str(c.location.file)).parents]
    read = {pathlib.Path(c.location.file.name) for c in ours}
    for path in sorted(HEADERS.glob("zel_protocol/*.h")):
        if path not in read and "typedef struct" in path.read_text():
            fail(f"{path.relative_to(ROOT)} isn't included by {header.relative_to(ROOT)}")
    return [c for c in ours if pathlib.Path(c.location.file.name).name not in NO_RECORDS]


def struct_of(kind):
    """The name of the struct that a type is in the end, or None."""
    kind = kind.get_canonical()
    return kind.get_declaration().spelling if kind.kind == TypeKind.RECORD else None


def comment_of(field, end):
    """A field's doc comment as one line: the one behind it, before the place `end`, or the one above it."""
    source = pathlib.Path(field.location.file.name).read_bytes()
    # Clang itself sees none behind a declaration that goes over two lines.
    behind = re.search(rb"/\*\*<.*?\*/|(\s*///<[^\n]*)+", source[field.extent.end.offset : end], re.DOTALL)
    return plain(behind.group().decode().strip() if behind else field.raw_comment or "")


def plain(text):
    """A doc comment's text as one line."""
    text = re.sub(r"^/\*\*<?|\*/$", "", text)
    text = re.sub(r"^\s*(\*|///<?)(?=\s|$)", "", text, flags=re.MULTILINE)
    return " ".join(text.split())


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def number(kind):
    """The name of a number's type, whatever other names were given to it."""
    while kind.spelling not in NUMBERS and kind.kind in (TypeKind.TYPEDEF, TypeKind.ELABORATED):
        declaration = kind.get_declaration()
        if declaration.kind != CursorKind.TYPEDEF_DECL:
            return None
        kind = declaration.underlying_typedef_type
    return NUMBERS.get(kind.spelling)


def describe(field):
    """TYPE, DIM1, DIM2 of a field."""
    dims = []
    kind = field.type
    while kind.kind == TypeKind.CONSTANTARRAY:
        dims.append(kind.element_count)
        kind = kind.element_type
    if field.is_bitfield() or kind.kind == TypeKind.INCOMPLETEARRAY:
        fail(f"{place(field)}: {field.spelling} is a bit field or an array without a size")
    struct = struct_of(kind)
    if kind.kind in (TypeKind.CHAR_S, TypeKind.CHAR_U) and dims:
        name = "TEXT"
        dims = [0] * (2 - len(dims)) + dims
    elif kind.get_canonical().kind == TypeKind.POINTER:
        name = "POINTER"
    elif struct:
        name = f"STRUCT({struct})"
    else:
        name = number(kind)
        if not name:
            fail(f"{place(field)}: {field.spelling} has a type without a fixed width: {kind.spelling}")
    if len(dims) > 2:
        fail(f"{place(field)}: {field.spelling} has more than two dimensions")
    return name, *(dims + [0, 0])[:2]


def records():
    cursors = parse()
    inits = {
        c.spelling[: -len("_init")]
        for c in cursors
        if c.kind == CursorKind.FUNCTION_DECL and c.spelling.endswith("_init")
    }
    named = set()
    lines = []
    for cursor in cursors:
        name = cursor.spelling
        if cursor.kind == CursorKind.UNION_DECL:
            fail(f"{place(cursor)}: a union")
        if cursor.kind == CursorKind.STRUCT_DECL and cursor.is_definition():
            if not name or not name.isidentifier():
                fail(f"{place(cursor)}: a struct without a name")
            lines.append(f"\n{'ZEL_RECORD' if name in inits else 'ZEL_STRUCT'}({name})")
            if cursor.raw_comment:
                lines.append(f"ZEL_NOTE({name}, {quoted(plain(cursor.raw_comment))})")
            fields = list(cursor.get_children())
            if any(field.kind != CursorKind.FIELD_DECL for field in fields):
                fail(f"{place(cursor)}: {name} holds something other than fields")
            ends = [field.extent.start.offset for field in fields[1:]] + [cursor.extent.end.offset]
            for field, end in zip(fields, ends):
                kind, first, second = describe(field)
                comment = quoted(comment_of(field, end))
                lines.append(f"ZEL_FIELD({name}, {field.spelling}, {kind}, {first}, {second}, {comment})")
            lines.append(f"ZEL_END({name})")
            named.add(name)
        elif cursor.kind == CursorKind.TYPEDEF_DECL and name in inits and name not in named:
            original = struct_of(cursor.underlying_typedef_type)
            if not original:
                fail(f"{place(cursor)}: {name} has an init and is no struct")
            lines.append(f"\nZEL_ALIAS({name}, {original})")
            named.add(name)
    if inits - named:
        fail("an init without a record: " + ", ".join(sorted(inits - named)))
    return HEAD + "\n".join(lines) + "\n" + TAIL


def main():
    if sys.argv[1:] not in (["write"], ["check"]):
        print(f"usage: {sys.argv[0]} write|check", file=sys.stderr)
        sys.exit(2)
    text = records()
    path = ROOT / LIST
    if sys.argv[1] == "write":
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)
        print(f"{LIST}: {text.count('ZEL_FIELD(') - HEAD.count('ZEL_FIELD(')} fields")
        return
    committed = path.read_text().splitlines() if path.exists() else []
    made = text.splitlines()
    if committed != made:
        both = min(len(committed), len(made))
        at = next((i for i in range(both) if committed[i] != made[i]), both)
        fail(
            f"{LIST} is stale: make records\n"
            f"  line {at + 1} is      {committed[at] if at < len(committed) else 'missing'}\n"
            f"  and would be {made[at] if at < len(made) else 'gone'}"
        )
    print(f"{LIST} agrees with the headers")


main()
