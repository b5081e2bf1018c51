"""What debug/orvil_gdb.py shows of the objects of subject.cpp, and whether debug/orvil.natvis names what there is.

Run by gdb over the program, with its variable $root as the root of the source tree. Exit code 1 when something fails.
"""

import os
import re
import traceback
import xml.etree.ElementTree as ElementTree

import gdb

ROOT = gdb.convenience_variable("root").string()

SHOWN = {
    "no_text": '""',
    "text": r'"one \"two\""',
    "no_texts": "CExtStrArray of 0",
    "texts": 'CExtStrArray of 3 = {"alpha", 0x0, "gamma"}',
    "points": "CExtArray<C2DPoint> of 3 = {(1.5, -2), 0x0, (3, 4)}",
    "words": 'CExtStrList of 2 = {"alpha", ""}',
    "lines": "CExtList<C2DLine> of 2 = {(1, 1) to (1, 2), (0, 0) to (4, 3)}",
    "no_names": "CExtStrHash of 0",
    "names": 'CExtStrHash of 2 = {[-7] = "red", ["sky"] = "blue"}',
    "counts": 'CExtHash<int> of 3 = {[0.5] = 3, [5] = 2, [""] = 1}',
    "no_token": "none at -1:-1",
    "token": "hexadecimal 0x1F at 3:12",
    "root": "block = {block View = {character {, Width = 640 ;, Title = Main view ;, character }}, hexadecimal 0x1F}",
    "listing": "listing = {decimal 12}",
    "point": "(0.12345678901234, 1e+30)",
    "corner": "(1, 2, 3)",
    "line": "(0, 0) to (4, 3)",
    "edge": "(0, 0, 1) to (4, 3, 1)",
    "ray": "(1, 2) along (3, 4)",
    "beam": "(1, 2, 3) along (0, 0, 1)",
    "arc": "centre (1, 1), axis (2, 0), ratio 0.5, from 0 to 3",
}

# A type of the program for each name with a wildcard.
INSTANCES = {
    "CExtArray<*>": "CExtArray<CLexTokenBlock>",
    "CExtList<*>": "CExtList<C2DLine>",
    "CExtHash<*>": "CExtHash<int>",
    "orvil::detail::ValueNode<*>": "orvil::detail::ValueNode<int>",
}

failures = []


def expect(condition, text):
    if not condition:
        failures.append(text)


def expect_objects_are_shown():
    for variable, expected in SHOWN.items():
        shown = gdb.parse_and_eval(variable).format_string()
        expect(shown == expected, "%s is shown as\n  %s\ninstead of\n  %s" % (variable, shown, expected))


# --- natvis -----------------------------------------------------------------------------------------------------------


def local(element):
    return element.tag.rsplit("}", 1)[-1]


def members_of(kind):
    """The members of a class and of what it derives from, by name."""
    kind = kind.strip_typedefs()
    if kind.code in (gdb.TYPE_CODE_PTR, gdb.TYPE_CODE_ARRAY):
        return members_of(kind.target())
    members = {}
    if kind.code == gdb.TYPE_CODE_STRUCT:
        for field in kind.fields():
            if field.is_base_class:
                members.update(members_of(field.type))
            else:
                members[field.name] = field.type
    return members


def expect_members(kind, expression, where):
    """Each chain of names in an expression, such as children_.size_, must lead from member to member."""
    for chain in re.findall(r"[A-Za-z_]\w*(?:(?:\.|->)[A-Za-z_]\w*)*", re.sub(r"\$i|,\s*s\b", "", expression)):
        at = kind
        for name in re.split(r"\.|->", chain):
            members = members_of(at)
            if name not in members:
                failures.append("%s: %s has no member %s" % (where, at, name))
                break
            at = members[name]


def expressions_of(element):
    """The expressions of an element that are of its type; those of nodes are looked at apart."""
    if "Condition" in element.attrib:
        yield element.attrib["Condition"]
    name = local(element)
    if name == "DisplayString":
        yield from re.findall(r"\{([^{}]+)\}", (element.text or "").replace("{{", "").replace("}}", ""))
    elif name in ("Item", "StringView", "ExpandedItem", "Size", "HeadPointer", "ValuePointer"):
        yield element.text
    elif name == "ValueNode":
        yield element.text
    for child in element:
        if name != "LinkedListItems" or local(child) not in ("NextPointer", "ValueNode"):
            yield from expressions_of(child)


def expect_view(view, name):
    kind = gdb.lookup_type(INSTANCES.get(name, name))
    found = [expression for part in view if local(part) != "AlternativeType" for expression in expressions_of(part)]
    expect(found, "%s shows nothing" % name)
    for expression in found:
        expect_members(kind, expression, name)
    for chain in view.iter():
        if local(chain) == "LinkedListItems":
            head = next(part.text for part in chain if local(part) == "HeadPointer")
            for part in chain:
                if local(part) in ("NextPointer", "ValueNode"):
                    expect_members(members_of(kind)[head], part.text, name)


def expect_natvis_names_members():
    views = ElementTree.parse(os.path.join(ROOT, "debug", "orvil.natvis")).getroot()
    names = []
    for view in views:
        for name in [view.attrib["Name"]] + [part.attrib["Name"] for part in view if local(part) == "AlternativeType"]:
            names.append(name)
            expect_view(view, name)
    for variable in SHOWN:
        kind = str(gdb.parse_and_eval(variable).type.unqualified())
        expect(re.sub("<.*>", "<*>", kind) in names, "the natvis file does not show %s" % kind)


def run():
    gdb.execute("source " + os.path.join(ROOT, "debug", "orvil_gdb.py"))
    gdb.execute("break look")
    gdb.execute("run", to_string=True)
    gdb.execute("up", to_string=True)
    expect_objects_are_shown()
    expect_natvis_names_members()


try:
    run()
except Exception:
    failures.append(traceback.format_exc())
print("\n".join(failures) if failures else "%d objects are shown as they should be" % len(SHOWN))
gdb.execute("quit %d" % (1 if failures else 0))
