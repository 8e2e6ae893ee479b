# What all printers have in common: the table of printers by class name, and that garbage never becomes a Python error.

import gdb

from .memory import object_at, plain

_table = {}


def prints(*names):
    """Registers a printer for classes and templates of these names, without template arguments."""

    def register(printer):
        for name in names:
            _table.setdefault(name, []).append(printer)
        return printer

    return register


def class_name(type):
    name = plain(type).name
    return name.split("<", 1)[0] if name else ""


class Printer:
    """Prints one object. `members` are fields that tell plx's class from another library's of the same name.

    check() raises Invalid for what cannot be such an object, and whatever reading raises; text() is what is printed
    first. Printers with parts have children(), pairs of a name and a value or a text, of which gdb takes as many as it
    wants to print; `kind` tells gdb how to: 'array', 'map' or 'string'.
    """

    members = ()
    kind = None

    def __init__(self, value):
        self.value = value
        self.title = class_name(value.type).replace("std::basic_", "std::", 1)

    @classmethod
    def fits(cls, type):
        fields = [field.name for field in type.fields()]
        return all(name in fields for name in cls.members)

    def check(self):
        pass

    def text(self):
        return self.title


def invalid(title, error):
    return "<invalid %s: %s>" % (title, str(error) or type(error).__name__)


class _Childless:
    """What gdb sees of a printer."""

    def __init__(self, printer):
        self.printer = printer

    def to_string(self):
        try:
            return self.printer.text()
        except Exception as error:
            return invalid(self.printer.title, error)

    def display_hint(self):
        return self.printer.kind


class _WithChildren(_Childless):
    def children(self):
        try:
            for child in self.printer.children():
                yield child
        except Exception as error:
            yield "...", invalid("rest", error)
            if self.printer.kind == "map":
                yield "...", "..."


class _Invalid:
    def __init__(self, text):
        self.text = text

    def to_string(self):
        return self.text


def printer_class(type):
    """The printer for objects of a type, or None where plx has none."""
    type = plain(type)
    if type.code == gdb.TYPE_CODE_STRUCT:
        for factory in _table.get(class_name(type), ()):
            if factory.fits(type):
                return factory
    return None


def printer_for(value):
    try:
        factory = printer_class(value.type)
        if factory is None or value.is_optimized_out:
            return None
        # Afresh by its address: gdb confuses the bases of what it knows to be a part of a larger object.
        made = factory(value if value.address is None else object_at(int(value.address), value.type))
    except Exception:
        return None
    try:
        made.check()
    except Exception as error:
        return _Invalid(invalid(made.title, error))
    return _WithChildren(made) if hasattr(made, "children") else _Childless(made)


class Collection:
    """What gdb's lists of printers hold: `info pretty-printer` shows the name, `disable pretty-printer` takes it."""

    name = "plx"
    enabled = True
    subprinters = None

    def __call__(self, value):
        return printer_for(value)
