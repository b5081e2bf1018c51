"""Shows ORVIL's objects in gdb by what they hold.

    (gdb) source debug/orvil_gdb.py

or the same line in ~/.gdbinit. `print/r` shows an object as it is stored. What the classes consist of must be in the
debug information: that of a library built with -g, or that of a host compiled with -g -femit-class-debug-always.
"""

import gdb
import gdb.printing

KINDS = [
    "none", "empty", "character", "decimal", "hexadecimal", "double", "string", "symbol", "comment", "comment",
    "preprocessor line",
]
ASSIGNMENT, BLOCK, LISTING = 1, 2, 3

# Keys that are no texts are stored as a letter between these bytes, and the value as text.
KEY_MARK = b"\xff\xff"
KEY_KINDS = {b"s": "int", b"u": "unsigned", b"d": "double", b"p": "pointer"}


def text_of(string):
    """The text of a CExtString, a quoted lazy string; bytes behind a zero are shown too."""
    buffer = string["buffer_"]
    if int(buffer) == 0:
        return ""
    return buffer.lazy_string(length=int(string["length_"]))


def plain_text(string):
    """The text of a CExtString, without quotes."""
    buffer = string["buffer_"]
    return "" if int(buffer) == 0 else buffer.string(errors="replace", length=int(string["length_"]))


def element_of(pointer):
    return pointer if int(pointer) == 0 else pointer.dereference()


def numbers(value, names):
    return "(" + ", ".join("%.15g" % float(value[name]) for name in names) + ")"


class StringPrinter:
    """CExtString"""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return text_of(self.value)

    def display_hint(self):
        return "string"


class ArrayPrinter:
    """CExtArray, CExtStrArray: owned elements; an empty slot is shown as a null pointer"""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "%s of %d" % (self.value.type.strip_typedefs().name, self.size())

    def size(self):
        return 0 if int(self.value["slots_"]) == 0 else int(self.value["size_"])

    def children(self):
        slots = self.value["slots_"]
        for i in range(self.size()):
            yield "[%d]" % i, element_of(slots[i])

    def display_hint(self):
        return "array"


class ListPrinter:
    """CExtList, CExtStrList"""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "%s of %d" % (self.value.type.strip_typedefs().name, int(self.value["count_"]))

    def children(self):
        node = self.value["head_"]
        # The count ends the walk over a list that is damaged.
        for i in range(int(self.value["count_"])):
            if int(node) == 0:
                return
            yield "[%d]" % i, self.item(node)
            node = node["next"]

    @staticmethod
    def item(node):
        if not any(field.name == "item" for field in node.type.target().fields()):
            return node["value"]
        return element_of(node["item"])

    def display_hint(self):
        return "array"


class HashPrinter:
    """CExtHash, CExtStrHash: the entries in the order of buckets"""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "%s of %d" % (self.value.type.strip_typedefs().name, int(self.value["count_"]))

    def nodes(self):
        buckets = self.value["buckets_"]
        if int(buckets) == 0:
            return
        left = int(self.value["count_"])
        for i in range(int(self.value["table_size_"])):
            node = buckets[i]
            while int(node) != 0 and left > 0:
                yield node
                left -= 1
                node = node["next"]

    @staticmethod
    def key(node):
        length = int(node["key_length"])
        stored = b""
        if length > 0:
            stored = bytes(gdb.selected_inferior().read_memory(int(node["key"]), length))
        kind = KEY_KINDS.get(stored[2:3])
        if kind is None or stored[:2] != KEY_MARK or stored[3:5] != KEY_MARK:
            return node["key"].lazy_string(length=length)
        shown = stored[5:].decode("latin-1")
        if kind == "double":
            return float(shown)
        number = int(shown, 16)
        return number - (1 << 32) if kind == "int" and number >> 31 else number

    def children(self):
        for i, node in enumerate(self.nodes()):
            yield "key %d" % i, self.key(node)
            yield "value %d" % i, node["value"]

    def display_hint(self):
        return "map"


def token_text(token):
    kind = int(token["kind_"])
    name = KINDS[kind] if 0 <= kind < len(KINDS) else "kind %d" % kind
    text = plain_text(token["text_"])
    return name + (" " + text if text else "")


class TokenPrinter:
    """CLexToken: its kind, text, line and column"""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "%s at %d:%d" % (token_text(self.value), int(self.value["line_"]), int(self.value["column_"]))


class NodePrinter:
    """CLexTokenBlock: a form with its name, and its children below it; an assignment with its values"""

    def __init__(self, value):
        self.value = value
        self.slots = ArrayPrinter(value["children_"])

    def to_string(self):
        form = int(self.value["grammar_type_"])
        name = plain_text(self.value["text_"])
        if form == ASSIGNMENT:
            return " ".join([name] + [plain_text(child["text_"]) for child in self.tokens()])
        if form == BLOCK:
            return "block " + name if name else "block"
        if form == LISTING:
            return "listing"
        return token_text(self.value)

    def tokens(self):
        for _, child in self.slots.children():
            if child.type.code != gdb.TYPE_CODE_PTR:
                yield child

    def children(self):
        return iter(()) if int(self.value["grammar_type_"]) == ASSIGNMENT else self.slots.children()

    def display_hint(self):
        return "array" if self.slots.size() and int(self.value["grammar_type_"]) != ASSIGNMENT else None


class PointPrinter:
    """C2DPoint, C3DPoint"""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return point_text(self.value)


def point_text(point):
    return numbers(point, [field.name for field in point.type.strip_typedefs().fields() if field.name in ("x", "y", "z")])


class LinePrinter:
    """C2DLine, C3DLine: from start to end"""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "%s to %s" % (point_text(self.value["start"]), point_text(self.value["end"]))


class VectorLinePrinter:
    """C2DVectorLine, C3DVectorLine: from a base along a vector"""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "%s along %s" % (point_text(self.value["base"]), point_text(self.value["vector"]))


class EllipsePrinter:
    """C2DEllipse; angles in radians"""

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "centre %s, axis %s, ratio %.15g, from %.15g to %.15g" % (
            point_text(self.value["center"]), point_text(self.value["axis"]), float(self.value["ratio"]),
            float(self.value["start"]), float(self.value["end"]))


PRINTERS = [
    ("string", "^CExtString$", StringPrinter),
    ("array", "^(CExtStrArray|CExtArray<.*>)$", ArrayPrinter),
    ("list", "^(CExtStrList|CExtList<.*>)$", ListPrinter),
    ("hash", "^(CExtStrHash|CExtHash<.*>)$", HashPrinter),
    ("token", "^CLexToken$", TokenPrinter),
    ("node", "^CLexTokenBlock$", NodePrinter),
    ("point", "^C[23]DPoint$", PointPrinter),
    ("line", "^C[23]DLine$", LinePrinter),
    ("vector line", "^C[23]DVectorLine$", VectorLinePrinter),
    ("ellipse", "^C2DEllipse$", EllipsePrinter),
]


def register():
    collection = gdb.printing.RegexpCollectionPrettyPrinter("orvil")
    for name, pattern, printer in PRINTERS:
        collection.add_printer(name, pattern, printer)
    gdb.printing.register_pretty_printer(None, collection, replace=True)


register()
