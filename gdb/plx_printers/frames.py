# Which function an eh stack entry on the stack belongs to: the one whose frame holds the entry's address. Entries come
# innermost first, so the frames are walked once.

import gdb


class Frames:
    def __init__(self):
        try:
            self.frame = gdb.newest_frame()
        except gdb.error:
            self.frame = None

    def at(self, address):
        """"function at file:line" of the frame that an address lies in, or ""."""
        try:
            while self.frame is not None:
                older = self.frame.older()
                # Inlined functions have the frame of the one around them.
                while older is not None and self.frame.type() == gdb.INLINE_FRAME:
                    self.frame, older = older, older.older()
                if older is None or address < int(older.read_register("sp")) & 0xFFFFFFFF:
                    return _described(self.frame)
                self.frame = older
        except gdb.error:
            self.frame = None
        return ""


def _described(frame):
    name = frame.name() or "0x%x" % frame.pc()
    line = frame.find_sal()
    return "%s at %s:%d" % (name, line.symtab.filename, line.line) if line.symtab else name
