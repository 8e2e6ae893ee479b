# std::string, and the exception classes with their messages.

from . import settings
from .memory import Invalid, base_part, check_readable
from .printer import Printer, prints

_UNSHAREABLE = 0xFFFFFFFF


def representation(string):
    """What a std::string points to; checked."""
    address = int(string["_rep_"])
    check_readable(address, string["_rep_"].type.target().sizeof)
    rep = string["_rep_"].dereference()
    if int(rep["length"]) >= int(rep["_room"]):
        raise Invalid("no characters behind 0x%x" % address)
    check_readable(int(rep["data"]), int(rep["length"]) + 1)
    return rep


def characters(string):
    """The text, for gdb to print as much of it as it likes."""
    rep = representation(string)
    return rep["data"].lazy_string(length=int(rep["length"]))


@prints("std::basic_string")
class String(Printer):
    members = ("_rep_",)
    kind = "string"

    def check(self):
        self.rep = representation(self.value)
        if settings.details.value:
            self.children = self.details

    def text(self):
        return characters(self.value)

    def details(self):
        count = int(self.rep["count"])
        yield "length", str(self.rep["length"])
        yield "capacity", str(self.rep["capacity"])
        yield "shared", "yes" if 1 < count < _UNSHAREABLE else "no"
        # Unshareable: a reference into the characters may be in use, so that copies are deep.
        yield "count", "unshareable" if count == _UNSHAREABLE else str(count)


@prints(
    "std::exception", "std::bad_exception", "std::bad_alloc", "std::bad_cast", "std::bad_typeid",
    "std::logic_error", "std::domain_error", "std::invalid_argument", "std::length_error", "std::out_of_range",
    "std::runtime_error", "std::range_error", "std::overflow_error", "std::underflow_error",
)
class Exception_(Printer):
    @classmethod
    def fits(cls, type):
        while "_message_" not in [field.name for field in type.fields()]:
            bases = [field.type for field in type.fields() if field.is_base_class]
            if not bases:
                return False
            type = bases[0]
        return True

    def check(self):
        message = base_part(self.value, "std::exception")["_message_"]
        if int(message):
            self.message = message.dereference()
            representation(self.message)
            self.children = lambda: [("message", self.message)]
