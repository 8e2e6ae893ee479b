# The exception tables of clang's frames (clang/exception_table.h draws them): what one call site catches.

from .memory import Invalid, number, read
from .type_names import type_name

_MOST = 256


class _Reader:
    def __init__(self, address):
        self.at = address

    def byte(self):
        self.at += 1
        return read(self.at - 1, 1)[0]

    def uleb(self):
        value = shift = 0
        while True:
            byte = self.byte()
            value |= (byte & 0x7F) << shift
            shift += 7
            if byte < 0x80:
                return value
            if shift > 35:
                raise Invalid("no exception table at 0x%x" % self.at)

    def sleb(self):
        start = self.at
        value = self.uleb()
        bits = 7 * (self.at - start)
        return value - (1 << bits) if value >> (bits - 1) & 1 else value


def allowed_names(list, types):
    """The types of an exception specification: indices into the table of types, ended by 0."""
    names = []
    reader = _Reader(list)
    for _ in range(_MOST):
        index = reader.uleb()
        if index == 0:
            return names
        names.append(type_name(number(types - 4 * index)))
    raise Invalid("the list at 0x%x does not end" % list)


def call_site_actions(table, call_site):
    """What a call site does with exceptions: texts such as "catch int", "throw ()", "cleanup"."""
    reader = _Reader(table)
    if reader.byte() != 0xFF:
        raise Invalid("no exception table at 0x%x" % table)
    types = 0
    if reader.byte() != 0xFF:
        offset = reader.uleb()
        types = reader.at + offset
    reader.byte()
    length = reader.uleb()
    actions = reader.at + length
    action = 0
    for _ in range(call_site):
        if reader.at >= actions:
            raise Invalid("there is no call site %d" % call_site)
        reader.uleb()
        action = reader.uleb()
    if action == 0:
        return ["cleanup"]
    texts = []
    reader.at = actions + action - 1
    for _ in range(_MOST):
        filter = reader.sleb()
        here = reader.at
        step = reader.sleb()
        if filter == 0:
            texts.append("cleanup")
        elif filter > 0:
            type = number(types - 4 * filter)
            texts.append("catch %s" % (type_name(type) if type else "..."))
        else:
            texts.append("throw (%s)" % ", ".join(allowed_names(types - filter - 1, types)))
        if step == 0:
            return texts
        reader.at = here + step
    raise Invalid("the actions of call site %d do not end" % call_site)
