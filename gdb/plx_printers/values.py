# bitset, complex and auto_ptr.

import gdb

from .memory import base_part
from .printer import Printer, prints


@prints("std::bitset")
class Bitset(Printer):
    """The bits as operator<< writes them, the highest first."""

    members = ("_words_",)

    def check(self):
        self.n = int(self.value.type.strip_typedefs().template_argument(0))
        self.words = self.value["_words_"]

    def text(self):
        limit = gdb.parameter("print elements") or self.n
        bits = []
        for i in range(self.n - 1, max(self.n - 1 - limit, -1), -1):
            bits.append("01"[int(self.words[i // 32]) >> i % 32 & 1])
        return "%s<%d> %s%s" % (self.title, self.n, "".join(bits), "..." if self.n > limit else "")


@prints("std::complex")
class Complex(Printer):
    def text(self):
        parts = base_part(self.value, "__zor::_complex_parts<")
        return "(%s,%s)" % (parts["_re_"].format_string(), parts["_im_"].format_string())

    @classmethod
    def fits(cls, type):
        return any(field.is_base_class and field.name.startswith("__zor::") for field in type.fields())


@prints("std::auto_ptr")
class AutoPtr(Printer):
    members = ("_object_",)

    def children(self):
        yield "get()", self.value["_object_"]
