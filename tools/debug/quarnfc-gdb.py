# SPDX-License-Identifier: MIT
# How gdb shows the library's classes. gdb loads this file by itself when it stands beside the
# library under the name LIBRARY-gdb.py, in a folder that gdb trusts; otherwise: source FILE.
#
# Strings are read as text of code page 936; `set quarnfc-code-page cp1252` chooses another one.
# Records behind pointers are shown where the library's debug information is at hand. Nothing here
# calls a function of the program, so that core files are shown like live programs.
import gdb
import gdb.printing

MAX_TEXT = 4096
MAX_ITEMS = 200


class CodePage(gdb.Parameter):
    """The code page of QuarnFC's 8-bit text, as Python names it."""

    set_doc = show_doc = __doc__

    def __init__(self):
        super().__init__("quarnfc-code-page", gdb.COMMAND_DATA, gdb.PARAM_STRING)
        self.value = "gbk"

    def get_set_string(self):
        return ""

    def get_show_string(self, value):
        return "QuarnFC text is shown as " + value


code_page = CodePage()


def quoted(raw, cut=False):
    text = raw.decode(code_page.value or "gbk", "replace")
    for plain, escaped in (("\\", "\\\\"), ('"', '\\"'), ("\n", "\\n"), ("\r", "\\r"), ("\t", "\\t")):
        text = text.replace(plain, escaped)
    return '"' + text + '"' + ("..." if cut else "")


def read(address, length):
    return bytes(gdb.selected_inferior().read_memory(address, length))


def zero_terminated(pointer):
    """The text that a char* points at."""
    address = int(pointer)
    if address == 0:
        return "null"
    raw = b""
    while len(raw) < MAX_TEXT:
        byte = read(address + len(raw), 1)
        if byte == b"\0":
            return quoted(raw)
        raw += byte
    return quoted(raw, True)


def string_text(value):
    """The text of a CQNString: its length stands in the two words before the characters."""
    if int(value["cell_"]) == 0:  # moved from
        return '""'
    characters = int(value["cell_"].dereference())
    length = int.from_bytes(read(characters - 8, 4), "little", signed=True)
    if not 0 <= length < 1 << 31:
        return "<not a string>"
    return quoted(read(characters, min(length, MAX_TEXT)), length > MAX_TEXT)


def vector_items(vector):
    """The elements of a std::vector of libstdc++."""
    begin, end = vector["_M_impl"]["_M_start"], vector["_M_impl"]["_M_finish"]
    return [(begin + index).dereference() for index in range(min(int(end - begin), MAX_ITEMS))]


def list_items(items, kind):
    """The elements of a list of the JSON records, of this type: they stand behind its head."""
    head = items["head_"]
    if int(head) == 0:
        return []
    first = (head + 1).cast(kind.pointer())
    return [(first + index).dereference() for index in range(min(int(head["size"]), MAX_ITEMS))]


def shared_text(text):
    """A text of the JSON records: its bytes stand behind a block with their number."""
    block = text["block_"]
    if int(block) == 0:
        return '""'
    length = int(block["length"])
    return quoted(read(int(block + 1), min(length, MAX_TEXT)), length > MAX_TEXT)


def values(items):
    """The values of a list of pointers to them."""
    return [item.dereference() for item in list_items(items, gdb.lookup_type("CMyJsonValue").pointer())]


def keys(inside):
    return list_items(inside["keys"], gdb.lookup_type("quarnfc::json::SharedText"))


def elements(inside):
    """The elements of an array; in one that is packed, numbers stand in the place of values."""
    if inside["packed"]:
        return list_items(inside["array"], gdb.lookup_type("double"))
    return values(inside["array"])


def record(value, field="imp_"):
    """What a private pointer points at, or None without the library's debug information."""
    try:
        pointer = value[field]
    except gdb.error:  # not even the class itself is described
        return None
    if int(pointer) == 0:
        return None
    target = pointer.dereference()
    return target if target.type.strip_typedefs().sizeof > 1 else complete(pointer)


def complete(pointer):
    try:
        return pointer.cast(gdb.lookup_type(pointer.type.target().name).pointer()).dereference()
    except gdb.error:
        return None


HIDDEN = "<needs the debug information of QuarnFC>"


class StringPrinter:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        return string_text(self.value)


class JsonValuePrinter:
    def __init__(self, value):
        self.record = record(value)
        self.kind = str(self.record["type"]).rpartition("::")[2] if self.record is not None else None

    def to_string(self):
        if self.kind is None:
            return HIDDEN
        if self.kind == "eStr":
            return shared_text(self.record["string"])
        if self.kind == "eNumber":
            return "%.15g" % float(self.record["number"])
        if self.kind == "eBool":
            return "true" if self.record["boolean"] else "false"
        if self.kind == "eArr":
            return "array of %d" % len(elements(self.record))
        return "object" if self.kind == "eObj" else "null"

    def children(self):
        if self.kind == "eArr":
            for index, item in enumerate(elements(self.record)):
                yield "[%d]" % index, item
        elif self.kind == "eObj":
            yield from members(self.record["object"].dereference())


def members(value):
    inside = record(value)
    if inside is None:
        return
    yield from zip(map(shared_text, keys(inside)), values(inside["values"]))


class JsonObjectPrinter:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        inside = record(self.value)
        if inside is None:
            return HIDDEN
        return "object of %d" % len(keys(inside))

    def children(self):
        return members(self.value)


class ObjectPrinter:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        inside = record(self.value)
        if inside is None:
            return HIDDEN
        return "%d references, error %d: %s" % (
            int(inside["references"]), int(inside["code"]), zero_terminated(inside["message"]))


class CollectionPrinter:
    """The items of a collection, by the class it was declared as."""

    show = staticmethod(lambda item: "0x%x" % int(item))

    def __init__(self, value):
        inside = record(value, "items_")
        self.items = None if inside is None else vector_items(inside["array"])

    def to_string(self):
        return HIDDEN if self.items is None else "collection of %d" % len(self.items)

    def children(self):
        for index, item in enumerate(self.items or []):
            yield "[%d]" % index, self.show(item)


class StringCollectionPrinter(CollectionPrinter):
    show = staticmethod(zero_terminated)


class ObjectCollectionPrinter(CollectionPrinter):
    @staticmethod
    def show(item):
        if int(item) == 0:
            return "null"
        return item.cast(gdb.lookup_type("CQNObject").pointer()).dereference()


def ellipsoid(value):
    return "a = %.12g m, 1/f = %.12g" % (
        float(value["semi_major_axis_"]), float(value["inverse_flattening_"]))


class GeographicPrinter:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        return ellipsoid(self.value)


class ProjectedPrinter:
    def __init__(self, value):
        self.value = value

    def to_string(self):
        return "central meridian %.12g, false easting %.12g m, false northing %.12g m, scale %.12g; %s" % (
            float(self.value["central_meridian_"]), float(self.value["false_easting_"]),
            float(self.value["false_northing_"]), float(self.value["scale_factor_"]),
            ellipsoid(self.value["geo_"]))


def build():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("QuarnFC")
    for name, printer in (
            ("CQNString", StringPrinter), ("CMyJsonValue", JsonValuePrinter),
            ("CMyJsonObj", JsonObjectPrinter), ("CQNObject", ObjectPrinter),
            ("CQNCollection", CollectionPrinter), ("CQNStringCollection", StringCollectionPrinter),
            ("CQNObjectCollection", ObjectCollectionPrinter),
            ("CQNGeoCoordinateSystem", GeographicPrinter), ("CQNProCoordinateSystem", ProjectedPrinter)):
        printers.add_printer(name, "^%s$" % name, printer)
    return printers


gdb.printing.register_pretty_printer(gdb.current_objfile(), build(), replace=True)
