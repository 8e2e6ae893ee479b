# Iterators print what they point to. The end of a map or set is known as such; that of another container cannot be
# told from a place with an element, so what is printed there is whatever memory holds.

from .memory import behind, check_readable, number
from .printer import Printer, prints
from .sequences import LINKS
from .trees import is_header


class Iterator(Printer):
    """check() leaves the address that is singular when null in `address`; target() is what is pointed to."""

    def check(self):
        self.address = int(self.value[self.members[0]])

    def text(self):
        if self.address == 0:
            return "<singular %s>" % self.title.split("::")[-1]
        target = self.target()
        if not isinstance(target, str):
            check_readable(int(target.address), target.type.sizeof)
        return target


@prints("__zor::pointer_iterator")
class PointerIterator(Iterator):
    members = ("_at_",)

    def target(self):
        return self.value["_at_"].dereference()


@prints("__zor::deque_iterator")
class DequeIterator(Iterator):
    members = ("_cur", "_node")

    def target(self):
        return self.value["_cur"].dereference()


@prints("__zor::list_iterator")
class ListIterator(Iterator):
    members = ("_node",)

    def target(self):
        return behind(self.address, LINKS, self.value.type.strip_typedefs().template_argument(0))


@prints("__zor::tree_iterator")
class TreeIterator(Iterator):
    members = ("_at_",)

    def target(self):
        if is_header(self.address):
            return "<end>"
        node = self.value.type.strip_typedefs().template_argument(0)
        return self.value["_at_"].dereference().address.cast(node.pointer()).dereference()["value"]


@prints("__zor::bit_iterator")
class BitIterator(Iterator):
    members = ("_word", "_bit")

    def target(self):
        return "true" if number(self.address) >> int(self.value["_bit"]) & 1 else "false"


@prints("__zor::bit_reference")
class BitReference(Iterator):
    members = ("_word_", "_mask_")

    def target(self):
        return "true" if number(self.address) & int(self.value["_mask_"]) else "false"


@prints("std::reverse_iterator")
class ReverseIterator(Printer):
    """What base() points to: the element after the one that it stands for."""

    members = ("current",)

    def children(self):
        yield "base()", self.value["current"]
