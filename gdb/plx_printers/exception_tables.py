# What the tables of C++ say of a call: .eh_frame_hdr leads to the entry of a function in .eh_frame, that to its exception
# table, and that to what the call catches and cleans up. Layouts: the Linux Standard Base and the C++ ABI; the library
# reads the same in unwind/frame_table.cpp and unwind/exception_table.cpp.

import re

import gdb

from .memory import Invalid, number, symbol_at, text
from .type_names import type_name

_MOST = 256
_OMITTED = 0xFF
_SIZES = {0: "I", 2: "H", 3: "I", 10: "h", 11: "i"}


class _Reader:
    def __init__(self, address):
        self.at = address

    def take(self, code):
        value = number(self.at, code)
        self.at += {"B": 1, "H": 2, "h": 2}.get(code, 4)
        return value

    def uleb(self):
        value = shift = 0
        while shift <= 35:
            byte = self.take("B")
            value |= (byte & 0x7F) << shift
            shift += 7
            if byte < 0x80:
                return value
        raise Invalid("no table at 0x%x" % self.at)

    def sleb(self):
        start = self.at
        value = self.uleb()
        bits = 7 * (self.at - start)
        return value - (1 << bits) if value >> (bits - 1) & 1 else value

    def pointer(self, encoding, data=0, function=0):
        if encoding == _OMITTED:
            return 0
        base = {0x10: self.at, 0x30: data, 0x40: function}.get(encoding & 0x70, 0)
        format = encoding & 0x0F
        value = self.uleb() if format == 1 else self.sleb() if format == 9 else self.take(_SIZES[format])
        if value == 0:
            return 0
        value = value + base & 0xFFFFFFFF
        return number(value) if encoding & 0x80 else value


class Objects:
    """The program and its shared objects, by what they have in memory."""

    def __init__(self):
        self._sections = {}
        for line in gdb.execute("info files", to_string=True).splitlines():
            found = re.match(r"\s*0x(\w+) - 0x(\w+) is (\S+)(?: in (.*))?$", line)
            if found:
                start, end = int(found.group(1), 16), int(found.group(2), 16)
                self._sections.setdefault(found.group(4), []).append((start, end, found.group(3)))

    def exception_table(self, address):
        """(function, exception table) of code in C++ that has one; the table is 0 for code without, None without tables."""
        for sections in self._sections.values():
            if any(start <= address < end for start, end, _ in sections):
                for start, _, name in sections:
                    if name == ".eh_frame_hdr":
                        return _find(start, address)
                return 0, None
        return 0, 0


def _find(header, address):
    reader = _Reader(header)
    version, frame, count, table = (reader.take("B") for _ in range(4))
    if version != 1 or table != 0x3B:
        raise Invalid("no index of frames at 0x%x" % header)
    reader.pointer(frame, header)
    high = reader.pointer(count, header)
    low, first = 0, reader.at
    while low < high:
        middle = (low + high) // 2
        if (number(first + 8 * middle, "i") + header) & 0xFFFFFFFF <= address:
            low = middle + 1
        else:
            high = middle
    if low == 0:
        return 0, None
    return _entry((number(first + 8 * low - 4, "i") + header) & 0xFFFFFFFF, address)


def _entry(at, address):
    reader = _Reader(at + 4)
    common = _Reader(reader.at - reader.take("I") + 9)
    augmentation = text(common.at)
    common.at += len(augmentation) + 1
    common.uleb(), common.sleb(), common.take("B")
    code = personality = 0
    table = _OMITTED
    if augmentation.startswith("z"):
        common.uleb()
    for letter in augmentation[1:]:
        if letter == "R":
            code = common.take("B")
        elif letter == "L":
            table = common.take("B")
        elif letter == "P":
            personality = common.pointer(common.take("B"))
    function = reader.pointer(code)
    if not function <= address < function + reader.pointer(code & 0x0F):
        return 0, None
    # Other languages have tables of other kinds.
    name = symbol_at(personality)[0] if personality else ""
    if not augmentation.startswith("z") or name not in ("__gxx_personality_v0", "__gcc_personality_v0", ""):
        return function, 0
    reader.uleb()
    return function, reader.pointer(table, 0, function)


class ExceptionTable:
    def __init__(self, function, table):
        self._function = function
        reader = _Reader(table)
        reader.pointer(reader.take("B"))
        self._encoding = reader.take("B")
        self._types = 0
        if self._encoding != _OMITTED:
            offset = reader.uleb()
            self._types = reader.at + offset
        self._call_sites = reader.take("B")
        length = reader.uleb()
        self._first = reader.at
        self._actions = reader.at + length

    def _type(self, index):
        size = 2 if self._encoding & 0x07 == 2 else 4
        type = _Reader(self._types - index * size).pointer(self._encoding, 0, self._function)
        return type_name(type) if type else "..."

    def allowed_names(self, filter):
        """The types of an exception specification: indices into the table of types, ended by 0."""
        reader = _Reader(self._types - filter - 1)
        names = []
        for _ in range(_MOST):
            index = reader.uleb()
            if index == 0:
                return names
            names.append(self._type(index))
        raise Invalid("the list at 0x%x does not end" % reader.at)

    def actions(self, address):
        """What a call does with exceptions: texts such as "catch int", "throw ()", "cleanup"; none where it does nothing."""
        reader = _Reader(self._first)
        while reader.at < self._actions:
            start = self._function + reader.pointer(self._call_sites)
            length = reader.pointer(self._call_sites)
            landing_pad = reader.pointer(self._call_sites)
            action = reader.uleb()
            if start <= address < start + length:
                return self._chain(action) if landing_pad else []
        return ["nothing may leave: std::terminate"]

    def _chain(self, action):
        if action == 0:
            return ["cleanup"]
        texts = []
        reader = _Reader(self._actions + action - 1)
        for _ in range(_MOST):
            filter = reader.sleb()
            here = reader.at
            step = reader.sleb()
            if filter < 0:
                texts.append("throw (%s)" % ", ".join(self.allowed_names(filter)))
            else:
                texts.append("catch " + self._type(filter) if filter else "cleanup")
            if step == 0:
                return texts
            reader.at = here + step
        raise Invalid("the actions at 0x%x do not end" % here)
