# Streams: their state and format, and the buffer under them.

from . import settings
from .locales import locale_name
from .memory import base_part, complete_object
from .printer import Printer, prints

_STATE = ((1, "bad"), (2, "eof"), (4, "fail"))
_FLAGS = (
    (0x0001, "boolalpha"), (0x0002, "dec"), (0x0004, "fixed"), (0x0008, "hex"), (0x0010, "internal"), (0x0020, "left"),
    (0x0040, "oct"), (0x0080, "right"), (0x0100, "scientific"), (0x0200, "showbase"), (0x0400, "showpoint"),
    (0x0800, "showpos"), (0x1000, "skipws"), (0x2000, "unitbuf"), (0x4000, "uppercase"),
)
MODES = ((1, "app"), (2, "ate"), (4, "binary"), (8, "in"), (16, "out"), (32, "trunc"))


def bits(value, names, none):
    """The names of the bits that are set, and what is left over as a number."""
    value = int(value)
    set_bits = [name for bit, name in names if value & bit]
    rest = value & ~sum(bit for bit, _ in names)
    if rest:
        set_bits.append("0x%x" % (rest & 0xFFFFFFFF))
    return " | ".join(set_bits) or none


@prints(
    "std::basic_ios", "std::basic_istream", "std::basic_ostream", "std::basic_iostream",
    "std::basic_ifstream", "std::basic_ofstream", "std::basic_fstream",
    "std::basic_istringstream", "std::basic_ostringstream", "std::basic_stringstream",
    "std::isstream", "std::istrstream", "std::ostrstream", "std::strstream",
)
class Stream(Printer):
    @classmethod
    def fits(cls, type):
        # The shared base is plx's own.
        while True:
            fields = type.fields()
            if any(field.name == "_sb_" for field in fields):
                return True
            bases = [field.type for field in fields if field.is_base_class]
            if not bases:
                return False
            type = bases[0]

    def check(self):
        self.ios = base_part(self.value, "std::basic_ios<")
        # Something that is no stream has no locale either.
        self.locale = locale_name(self.ios["_loc_"])

    def text(self):
        return "%s, %s" % (self.title, bits(self.ios["_state_"], _STATE, "good"))

    def children(self):
        ios = self.ios
        yield "flags", bits(ios["_flags_"], _FLAGS, "none")
        yield "width", ios["_width_"]
        yield "precision", ios["_precision_"]
        yield "fill", ios["_fill_"]
        yield "exceptions", bits(ios["_exceptions_"], _STATE, "none")
        yield "tie", ios["_tie_"]
        yield "locale", self.locale
        istream = base_part(self.value, "std::basic_istream<")
        if istream is not None:
            yield "gcount", istream["_gcount_"]
        if settings.details.value:
            yield "callbacks", ios["_callback_count_"]
            yield "iword", ios["_iwords_"]
            yield "pword", ios["_pwords_"]
        buffer = ios["_sb_"]
        yield "buffer", complete_object(buffer) if int(buffer) else "none"
