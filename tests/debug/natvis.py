# SPDX-License-Identifier: MIT
# Shows variables of a stopped program as a natvis file says, with gdb in the place of Visual Studio:
# gdb evaluates every condition and expression of the file, so a field that is not there, or not
# where the file takes it to be, is found here. What is not understood here is an error, too.
# In gdb:   python natvis_file, natvis_names = "FILE", "VARIABLE ..."
#           source natvis.py
import re
import xml.etree.ElementTree as tree

import gdb

# Elements with the attributes and children that they have, as far as the file needs them.
GRAMMAR = {
    "AutoVisualizer": ("", "Type"),
    "Type": ("Name", "DisplayString StringView Expand"),
    "DisplayString": ("Condition", ""),
    "StringView": ("Condition", ""),
    "Expand": ("", "Item ArrayItems ExpandedItem CustomListItems"),
    "Item": ("Name Condition", ""),
    "ArrayItems": ("Condition Optional", "Size ValuePointer"),
    "Size": ("", ""),
    "ValuePointer": ("", ""),
    "ExpandedItem": ("Condition", ""),
    "CustomListItems": ("Condition", "Variable Loop"),
    "Variable": ("Name InitialValue", ""),
    "Loop": ("Condition", "Item Exec"),
    "Exec": ("", ""),
}
NAMESPACE = "{http://schemas.microsoft.com/vstudio/debugger/natvis/2010}"


def check(element):
    """Holds an element, and those in it, to the grammar; takes the namespace off."""
    if not element.tag.startswith(NAMESPACE):
        raise ValueError("not in the namespace: " + element.tag)
    element.tag = element.tag[len(NAMESPACE):]
    attributes, children = GRAMMAR[element.tag]
    for name in element.attrib:
        if name not in attributes.split():
            raise ValueError("%s has no attribute %s" % (element.tag, name))
    for child in element:
        check(child)
        if child.tag not in children.split():
            raise ValueError("%s holds no %s" % (element.tag, child.tag))


def read_views(file):
    root = tree.parse(file).getroot()
    check(root)
    return {view.get("Name"): view for view in root}


views = read_views(natvis_file)


def bases(kind):
    """A class and those it derives from, nearest first."""
    yield kind
    for field in kind.fields():
        if field.is_base_class:
            yield from bases(field.type.strip_typedefs())


def view_of(value):
    kind = value.type.strip_typedefs().unqualified()
    if kind.code != gdb.TYPE_CODE_STRUCT:
        return None
    return next((views[base.name] for base in bases(kind) if base.name in views), None)


def evaluate(value, expression, variables):
    """An expression as natvis has it: names of fields stand for those of the value."""
    fields = {field.name for base in bases(value.type.strip_typedefs()) for field in base.fields()}

    def place(match):
        name = match.group(0)
        if name in variables:
            return str(variables[name])
        return "$natvis." + name if name in fields else name

    gdb.set_convenience_variable("natvis", value)
    return gdb.parse_and_eval(re.sub(r"(?<![\w.>:])[A-Za-z_]\w*", place, expression.strip()))


def holds(value, element, variables):
    condition = element.get("Condition")
    return condition is None or bool(evaluate(value, condition, variables))


def c_text(pointer):
    raw = b""
    while not raw.endswith(b"\0"):
        raw += bytes(gdb.selected_inferior().read_memory(int(pointer) + len(raw), 1))
    return '"' + raw[:-1].decode("gbk") + '"'


def shown(value):
    """A value in one line."""
    kind = value.type.strip_typedefs().unqualified()
    if kind.code == gdb.TYPE_CODE_PTR and view_of(value.dereference()) is not None:
        return shown(value.dereference())
    if kind.code == gdb.TYPE_CODE_FLT:
        return "%.15g" % float(value)
    if kind.code == gdb.TYPE_CODE_STRUCT and view_of(value) is None:
        return "{" + re.sub("<.*", "", kind.name) + "}"  # shown by a view of the debugger's own
    return display(value) if view_of(value) is not None else str(value)


def fill_in(value, text, variables):
    """A text with expressions in braces."""
    def place(match):
        expression, _, how = match.group(1).partition(",")
        result = evaluate(value, expression, variables)
        return c_text(result) if how == "s" else shown(result)

    return re.sub(r"\{([^}]*)\}", place, text)


def display(value):
    for element in view_of(value).findall("DisplayString"):
        if holds(value, element, {}):
            return fill_in(value, element.text, {})
    raise ValueError("no text for a " + str(value.type))


def array_items(value, element):
    try:
        size = int(evaluate(value, element.find("Size").text, {}))
        pointer = evaluate(value, element.find("ValuePointer").text, {})
    except gdb.error:
        if element.get("Optional") != "true":
            raise
        return
    for index in range(size):
        yield "[%d]" % index, (pointer + index).dereference()


def custom_items(value, element):
    variables = {v.get("Name"): int(v.get("InitialValue")) for v in element.findall("Variable")}
    for loop in element.findall("Loop"):
        while holds(value, loop, variables):
            for step in loop:
                if step.tag == "Item":
                    yield item(value, step, variables)
                else:
                    variables[re.fullmatch(r"\+\+(\w+)", step.text.strip()).group(1)] += 1


def item(value, element, variables):
    text, _, how = element.text.partition(",")
    result = evaluate(value, text, variables)
    return fill_in(value, element.get("Name"), variables), c_text(result) if how == "s" else result


def children(value):
    expand = view_of(value).find("Expand") if view_of(value) is not None else None
    for element in expand if expand is not None else ():
        if not holds(value, element, {}):
            continue
        if element.tag == "Item":
            yield item(value, element, {})
        elif element.tag == "ArrayItems":
            yield from array_items(value, element)
        elif element.tag == "CustomListItems":
            yield from custom_items(value, element)
        else:
            inner = evaluate(value, element.text, {})
            yield from children(inner) if view_of(inner) is not None else [("...", inner)]


def show(name, value, indent=""):
    if isinstance(value, str):
        print("@%s%s = %s" % (indent, name, value))
        return
    if value.type.strip_typedefs().code == gdb.TYPE_CODE_PTR:
        value = value.dereference()
    print("@%s%s = %s" % (indent, name, shown(value)))
    for child, inner in children(value):
        show(child, inner, indent + "  ")


for variable in natvis_names.split():
    show(variable, gdb.parse_and_eval(variable))
