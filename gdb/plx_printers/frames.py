# Which function an eh stack entry belongs to. Entries come innermost first, so the frames are walked once.
#
# Clang writes no unwind tables for C++ with this exception scheme: in optimised programs without frame pointers gdb may
# lose its way. Then nothing is said rather than something wrong.

import gdb

from .memory import shortened, symbol_at


class Frames:
    def __init__(self):
        try:
            self.frame = gdb.newest_frame()
        except gdb.error:
            self.frame = None

    def _holding(self, address):
        """The frame that an address lies in, or None."""
        try:
            while self.frame is not None:
                older = self.frame.older()
                # Inlined functions have the frame of the one around them.
                while older is not None and self.frame.type() == gdb.INLINE_FRAME:
                    self.frame, older = older, older.older()
                if older is None or address < int(older.read_register("sp")) & 0xFFFFFFFF:
                    return self.frame
                self.frame = older
        except gdb.error:
            self.frame = None
        return None

    def around(self, address):
        """"function at file:line" of the frame that holds an address, or ""."""
        frame = self._holding(address)
        if frame is None or not frame.name():
            return ""
        return _with_line(frame.name(), frame)

    def of_code(self, code, address):
        """The same of the function that a piece of code belongs to, and whose frame holds an address."""
        name = _function_at(code)
        frame = self._holding(address)
        if frame is None or not name or _function_at(_pc(frame)) != name:
            return _brief(name)
        return _with_line(name, frame)


def _pc(frame):
    # Of a call that does not return the next instruction may be another function's.
    return frame.pc() - (0 if frame == gdb.newest_frame() else 1)


def _function_at(code):
    """As gdb names functions: without parameters."""
    name = shortened(symbol_at(code)[0])
    if "operator" in name:
        return name
    depth = 0
    for i, character in enumerate(name):
        if character == "(" and depth == 0 and not name.startswith("(anonymous namespace)", i):
            return name[:i]
        depth += {"<": 1, ">": -1}.get(character, 0)
    return name


def _brief(name):
    """A name that fits a line: arguments of templates are left out where it is long."""
    if len(name) <= 80 or "operator" in name:
        return name
    kept = ""
    depth = 0
    for character in name:
        depth -= character == ">"
        if depth == 0:
            kept += "...>" if character == ">" else character
        depth += character == "<"
    return kept


def _with_line(name, frame):
    line = frame.find_sal()
    return "%s at %s:%d" % (_brief(name), line.symtab.filename, line.line) if line.symtab else _brief(name)
