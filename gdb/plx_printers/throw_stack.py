# plx throw-stack: the exception objects that exist and the rethrows of them, newest first.

from .layout import ENTRY, HEADER, THROW, THROW_STATE, TYPE_POINTER, Record
from .memory import Invalid
from .roots import throw_stack
from .type_names import message, qualified_name, type_name


def state_of(thrown):
    """What the runtime keeps in the body of a throw's marker."""
    return Record(THROW_STATE, thrown.address + THROW["marker"][0] + ENTRY["body.function.region_table"][0])


def _native(thrown):
    """A C++ compiler's record of the thrown type, or 0."""
    state = state_of(thrown)
    return Record(HEADER, state["exception"])["native"] if state["has_header"] else 0


def thrown_type(thrown):
    native = _native(thrown)
    if native:
        return type_name(native)
    # C++ code names the type when the object is complete.
    return qualified_name(thrown["type"], thrown["flags"]) if thrown["type"] else "object"


def described_throw(address):
    thrown = Record(THROW, address)
    return "%s at 0x%x" % (thrown_type(thrown), thrown["object"])


def _state(thrown):
    if thrown["destroyed"]:
        return "destroyed"
    if thrown["released"]:
        return "released"
    if thrown["handled"]:
        return "caught" if state_of(thrown)["caught"] else "handled"
    return "in flight" if thrown["thrown"] else "not thrown yet"


def _message(thrown):
    if not thrown["thrown"] or thrown["destroyed"]:
        return ""
    native = _native(thrown)
    if native:
        return message(native, thrown["object"])
    return "" if thrown["flags"] & TYPE_POINTER else message(thrown["type"], thrown["object"])


def lines(count):
    places = {}
    entries = []
    address = throw_stack()
    while address != 0:
        if address in places:
            raise Invalid("the throw stack goes in circles at 0x%x" % address)
        places[address] = len(entries)
        entries.append(Record(THROW, address))
        address = entries[-1]["next"]
    if not entries:
        yield "No exception exists."
    for i, thrown in enumerate(entries):
        if i == count:
            yield "(more entries)"
            return
        line = "#%-3d %s at 0x%x, %s" % (i, thrown_type(thrown), thrown["object"], _state(thrown))
        if thrown["is_rethrow"]:
            line += ", rethrow of #%d" % places[thrown["source"]]
        else:
            line += ", references %d" % thrown["reference_count"]
        yield line
        text = _message(thrown)
        if text:
            yield "        " + text
