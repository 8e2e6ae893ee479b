# Stream buffers: what they still have to read and what they hold unwritten.

import gdb

from . import settings
from .locales import locale_name
from .layout import FILE, Record
from .memory import Invalid, base_part, check_readable
from .printer import Printer, prints
from .streams import MODES, bits

_IN, _OUT = 8, 16  # of ios_base::openmode


def _area(buffer, names):
    """(begin, next, end) of the get or put area as pointers; None when there is none."""
    begin, next, end = (buffer[name] for name in names)
    if int(next) == 0:
        return None
    if not int(begin) <= int(next) <= int(end):
        raise Invalid("an area from 0x%x to 0x%x, at 0x%x" % (int(begin), int(end), int(next)))
    check_readable(int(begin), int(end) - int(begin))
    return begin, next, end


def _between(first, last):
    return first.lazy_string(length=int(last) - int(first))


class Buffer(Printer):
    def check(self):
        self.base = base_part(self.value, "std::basic_streambuf<")
        self.get = _area(self.base, ("_eback_", "_gptr_", "_egptr_"))
        self.put = _area(self.base, ("_pbase_", "_pptr_", "_epptr_"))
        self.locale = locale_name(self.base["_loc_"])

    def areas(self):
        if self.get:
            begin, next, end = self.get
            yield "get area", "%d of %d read" % (int(next) - int(begin), int(end) - int(begin))
            yield "unread", _between(next, end)
        else:
            yield "get area", "none"
        if self.put:
            begin, next, end = self.put
            yield "put area", "%d of %d written" % (int(next) - int(begin), int(end) - int(begin))
            yield "written", _between(begin, next)
        else:
            yield "put area", "none"
        yield "locale", self.locale

    children = areas


@prints("std::basic_streambuf")
class StreamBuffer(Buffer):
    members = ("_eback_",)


@prints("std::basic_stringbuf")
class StringBuffer(Buffer):
    members = ("_mode_", "_buffer_end_", "_written_")

    def children(self):
        mode = int(self.value["_mode_"])
        yield "text", self.whole(mode)
        yield "mode", bits(mode, MODES, "none")
        if mode & _IN:
            yield "read position", str(self.read_position())
        if mode & _OUT:
            yield "write position", str(int(self.put[1]) - int(self.put[0])) if self.put else "0"
        if settings.details.value:
            yield "room", str(int(self.value["_room_end_"]) - int(self.value["_block_"]))
            yield from self.areas()


    def whole(self, mode):
        """As str() has it: what was written, as far as it was ever written, else what can be read."""
        begin = end = None
        if self.get:
            begin, end = self.get[0], self.get[2]
        if self.put and mode & _OUT:
            put_begin, next, put_end = self.put
            written = self.value["_written_"]
            if int(next) < int(written) <= int(put_end):
                next = written
            if begin is None or int(begin) != int(put_begin) or int(end) < int(next):
                end = next
            begin = put_begin
        return '""' if begin is None else _between(begin, end)

    def read_position(self):
        if not self.get:
            return 0
        # While it is written the get area is hidden, all but its position.
        start = self.value["_block_"] if self.value["_wide_"] else self.get[0]
        return int(self.get[1]) - int(start)


@prints("std::basic_filebuf")
class FileBuffer(Buffer):
    members = ("_file_",)

    def children(self):
        file = self.value["_file_"]
        yield "file", file
        if int(file):
            # The characters are stdio's.
            record = Record(FILE, int(file))
            yield "descriptor", str(record["_fileno"])
            yield "unread", self._stdio(record, "_IO_read_ptr", "_IO_read_end")
            yield "unwritten", self._stdio(record, "_IO_write_base", "_IO_write_ptr")
        if settings.details.value:
            yield from self.areas()

    def _stdio(self, record, first, last):
        first, last = record[first], record[last]
        if last < first:
            # Writing has not begun since the last reading, or the other way round.
            last = first
        check_readable(first, last - first)
        character = gdb.lookup_type("char").pointer()
        return _between(gdb.Value(first).cast(character), gdb.Value(last).cast(character)) if first else '""'


@prints("std::strstreambuf")
class ArrayBuffer(Buffer):
    members = ("_state_", "_alsize_")
    _STATE = ((1, "allocated"), (2, "constant"), (4, "dynamic"), (8, "frozen"))

    def children(self):
        yield "state", bits(self.value["_state_"], self._STATE, "none")
        yield from self.areas()
