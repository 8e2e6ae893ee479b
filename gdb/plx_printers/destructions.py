# plx destructions: static objects and functions of atexit in the order in which exit runs them.

from .layout import DESTRUCTION, END_OF_DESTRUCTIONS, Record
from .memory import Invalid, named_address, symbol_at
from .roots import destructions


def lines(count):
    address = destructions()
    seen = set()
    if address == END_OF_DESTRUCTIONS:
        yield "Nothing is registered."
    while address != END_OF_DESTRUCTIONS:
        if len(seen) == count:
            yield "(more entries)"
            return
        if address == 0 or address in seen:
            raise Invalid("the list is broken at 0x%x" % address)
        seen.add(address)
        record = Record(DESTRUCTION, address)
        object, destructor = record["object"], record["destructor"]
        if object == 0 or destructor == 0:
            # A function of atexit, in the one field or the other.
            what = "function " + named_address(object or destructor)
        else:
            name, offset = symbol_at(object)
            name = " <%s%s>" % (name, "+%d" % offset if offset else "") if name else ""
            what = "object 0x%x%s, %s" % (object, name, named_address(destructor))
        yield "#%-3d 0x%08x  %s" % (len(seen) - 1, address, what)
        address = record["next"]
