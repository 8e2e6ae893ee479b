# std::locale: its name and the classes of its facets.

import re

from .memory import Invalid, check_readable, number, symbol_at
from .printer import Printer, prints
from .strings import characters


def implementation(locale):
    address = int(locale["_imp_"])
    check_readable(address, 20)
    imp = locale["_imp_"].dereference()
    facets = imp["_facets_"]
    check_readable(int(facets["_data_"]), 4 * int(facets["_size_"]))
    # A table has a slot for every facet of the library at least.
    if int(facets["_size_"]) == 0:
        raise Invalid("no facets at 0x%x" % address)
    return imp


def locale_name(locale):
    return characters(implementation(locale)["_name_"])


def _facet_class(facet):
    """The class of a facet by its virtual table, which needs no debug information."""
    name, _ = symbol_at(number(facet))
    if not name.startswith("vtable for "):
        return "0x%x" % facet
    # Without the iterators that everybody uses.
    return re.sub(r", std::[io]streambuf_iterator<char, std::char_traits<char> > >$", ">", name[len("vtable for "):])


@prints("std::locale")
class Locale(Printer):
    members = ("_imp_",)

    def check(self):
        self.imp = implementation(self.value)
        characters(self.imp["_name_"])

    def children(self):
        yield "name", characters(self.imp["_name_"])
        yield "handles", self.imp["_refcount_"]
        facets = self.imp["_facets_"]
        for i in range(int(facets["_size_"])):
            facet = int((facets["_data_"] + i).dereference())
            if facet:
                yield "[%d]" % i, _facet_class(facet)
