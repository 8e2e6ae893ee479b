# Names of types as the runtime's records have them: descriptors of generated code hold the name as in source, those of
# C++ compilers the encoded one. And what an exception's message is.

from .layout import (
    BASE_CLASS, BASE_VIRTUAL, CLAUSE, TYPE, TYPE_CONST, TYPE_ELLIPSIS, TYPE_LAST, TYPE_POINTER, TYPE_VOLATILE, Record,
)
from .memory import Invalid, demangled, number, quoted, shortened, symbol_at, text

_MOST = 256  # elements of a list, classes of a hierarchy: more is garbage


def _table_of(type):
    """The class of a descriptor itself, by its virtual table."""
    name, offset = symbol_at(number(type))
    if offset != 8 or not name.startswith("vtable for "):
        raise Invalid("no type at 0x%x" % type)
    return name[len("vtable for "):]


def type_name(type):
    of = _table_of(type)
    name = text(number(type + TYPE["name"][0])).lstrip("*")
    if of == "std::type_info":
        return name
    full = demangled("_ZTI" + name)
    return shortened(full[len("typeinfo for "):]) if full.startswith("typeinfo for ") else name


def qualified_name(type, flags):
    """As a throw or a clause of generated code states it."""
    name = type_name(type)
    if not flags & TYPE_POINTER:
        return name
    const = " const" if flags & TYPE_CONST else ""
    volatile = " volatile" if flags & TYPE_VOLATILE else ""
    return name + const + volatile + "*"


def clause_names(list):
    """The types of a clause list or specification of generated code."""
    names = []
    for i in range(_MOST):
        clause = Record(CLAUSE, list + 8 * i)
        flags = clause["flags"]
        names.append("..." if flags & TYPE_ELLIPSIS else qualified_name(clause["type"], flags))
        if flags & TYPE_LAST:
            return names
    raise Invalid("the list at 0x%x does not end" % list)


def _base_and_offset(type):
    """A base on the way to std::exception, as (descriptor, offset): the first, unless it is virtual; or None."""
    of = _table_of(type)
    if of == "__cxxabiv1::__si_class_type_info":
        return number(type + 8), 0
    if of == "__cxxabiv1::__vmi_class_type_info" and number(type + 12) != 0:
        flags = number(type + 20, "i")
        return None if flags & 1 else (number(type + 16), flags >> 8)
    bases = number(type + TYPE["bases"][0]) if of == "std::type_info" else 0
    if bases == 0:
        return None
    base = Record(BASE_CLASS, bases)
    return None if base["flags"] & BASE_VIRTUAL else (base["base"], base["offset"])


def message(type, object):
    """The message that an exception class of the library holds in an object, in quotes; "" when there is none."""
    for _ in range(_MOST):
        if type_name(type) == "std::exception":
            string = number(object + 4) if number(object + 8, "B") else 0
            if string == 0:
                return ""
            rep = number(string)
            return quoted(text(number(rep + 8), 1024))
        base = _base_and_offset(type)
        if base is None:
            return ""
        type, object = base[0], object + base[1]
    return ""
