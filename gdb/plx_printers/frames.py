# The frames of the machine's stack, as gdb finds them: innermost first, functions that were inlined as part of the
# function around them.

import re

import gdb

from .memory import shortened


class Frame:
    def __init__(self, frame, older, address):
        self._frame = frame
        self.stack_pointer = int(frame.read_register("sp")) & 0xFFFFFFFF
        # Entries of the eh stack that belong to the frame lie below its canonical frame address. All do for the last.
        self.cfa = int(older.read_register("sp")) & 0xFFFFFFFF if older is not None else 0xFFFFFFFF
        # The call that the frame is making; of one that a signal interrupted the next instruction. None: it makes none.
        self.address = address

    def base(self):
        """The canonical frame address, of the last frame too."""
        text = gdb.execute("info frame level %d" % self._frame.level(), to_string=True)
        found = re.search(r"frame at (0x\w+)", text)
        return int(found.group(1), 16) if found else self.cfa

    def where(self):
        """"function at file:line", or ""."""
        name = self._frame.name()
        if not name:
            return ""
        line = self._frame.find_sal()
        # gdb knows of the library's functions the parameters, too.
        name = _brief(re.sub(r"(?<!operator)\((?!anonymous namespace\)).*", "", shortened(name)))
        return "%s at %s:%d" % (name, line.symtab.filename, line.line) if line.symtab else name


def frames():
    """All frames. They end before the stack does where gdb loses its way."""
    try:
        frame = gdb.newest_frame()
        address = None
        while frame is not None:
            while frame.type() in (gdb.INLINE_FRAME, gdb.TAILCALL_FRAME):
                frame = frame.older()
            older = frame.older()
            if older is None and frame.unwind_stop_reason() > gdb.FRAME_UNWIND_OUTERMOST:
                return
            yield Frame(frame, older, address)
            if older is not None:
                # Behind a call that does not return another function may begin.
                address = older.pc() - (0 if frame.type() == gdb.SIGTRAMP_FRAME else 1)
            frame = older
    except gdb.error:
        return


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
