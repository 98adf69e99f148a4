#!/usr/bin/env python3
"""Prints what programs are linked with, one fact a line, from one of libabigail's dumps on standard input.

Each exported name and function, and of the types that these reach each record's size, each field's place and type, and each
enumerator's value. Types stand by their names, because a dump's own numbers for them differ from run to run.
"""

import sys
from xml.etree import ElementTree


def named(types, number):
    """The type's name as C writes it, as far as it stands without the names of others."""
    node = types.get(number)
    if node is None:
        return "void"
    to = named(types, node.get("type-id")) if node.get("type-id") else ""
    if node.tag == "pointer-type-def":
        return to + " *"
    if node.tag == "qualified-type-def":
        return to + "".join(f" {word}" for word in ("const", "volatile") if node.get(word) == "yes")
    if node.tag == "array-type-def":
        return to + "".join(f"[{row.get('length')}]" for row in node.findall("subrange"))
    if node.tag == "function-type":
        return signature(types, node)
    return node.get("name")


def signature(types, node):
    taken = ["..." if one.get("is-variadic") else named(types, one.get("type-id")) for one in node.findall("parameter")]
    return f"{named(types, node.find('return').get('type-id'))}({', '.join(taken)})"


def fact(types, node):
    """What a program that was linked with this type or function relies on, without the types that it is made of."""
    name = node.get("name")
    if node.tag == "function-decl":
        yield f"{name} is {signature(types, node)}"
    elif node.tag == "typedef-decl":
        yield f"{name} stands for {named(types, node.get('type-id'))}"
    elif node.tag == "enum-decl":
        yield from (f"{name}::{one.get('name')} = {one.get('value')}" for one in node.findall("enumerator"))
    elif node.tag in ("class-decl", "union-decl") and not node.get("is-declaration-only"):
        yield f"{name} has {node.get('size-in-bits')} bits"
        for member in node.findall("data-member"):
            field = member.find("var-decl")
            yield (f"{name}.{field.get('name')} at bit {member.get('layout-offset-in-bits', '0')}: "
                   f"{named(types, field.get('type-id'))}")


def facts(dump):
    types = {node.get("id"): node for node in dump.iter() if node.get("id")}
    open_ends = [node for node in dump.iter("function-decl") if node.get("elf-symbol-id")]
    seen = set()
    while open_ends:
        node = open_ends.pop()
        yield from fact(types, node)
        for number in {part.get("type-id") for part in node.iter()} - seen:
            seen.add(number)
            if number in types:
                open_ends.append(types[number])
    yield from (f"exports {node.get('name')}" for node in dump.iter("elf-symbol"))


print("\n".join(sorted(set(facts(ElementTree.parse(sys.stdin).getroot())))))
