# Iterators print what they point to. The end of a map or set is known as such; that of another container cannot be
# told from a place with an element, so what is printed there is whatever memory holds.

import gdb

from .memory import behind, check_readable, number, object_at
from .printer import Printer, class_name, prints
from .sequences import DEQUE_BLOCK, LINKS
from .trees import is_header, previous_node


class Iterator(Printer):
    """place() is the address where an iterator stands, 0 for a singular one; previous() the place before; target()
    what lies at a place, a value or a text."""

    def __init__(self, value):
        super().__init__(value)
        self.title = self.title.split("::")[-1].lstrip("_")

    def place(self):
        return int(self.value[self.members[0]])

    def text(self):
        return self.shown(self.place())

    def reversed(self):
        """What a reverse iterator over this one points to."""
        return self.shown(self.place() and self.previous())

    def shown(self, place):
        if place == 0:
            return "<singular %s>" % self.title
        target = self.target(place)
        if isinstance(target, gdb.Value):
            check_readable(int(target.address), target.type.sizeof)
        return target


class ToElement(Iterator):
    """One whose place is the element's own address."""

    def check(self):
        self.element = self.value[self.members[0]].type.strip_typedefs().target()

    def target(self, place):
        return object_at(place, self.element)

    def previous(self):
        return self.place() - self.element.sizeof


@prints("__zor::_pointer_iterator")
class PointerIterator(ToElement):
    members = ("_at_",)


@prints("__zor::_deque_iterator")
class DequeIterator(ToElement):
    members = ("_cur", "_last", "_node")

    def previous(self):
        size = self.element.sizeof
        if self.place() != int(self.value["_last"]) - DEQUE_BLOCK * size:
            return self.place() - size
        return int((self.value["_node"] - 1).dereference()) + (DEQUE_BLOCK - 1) * size


@prints("__zor::_list_iterator")
class ListIterator(Iterator):
    members = ("_node",)

    def target(self, place):
        return behind(place, LINKS, self.value.type.strip_typedefs().template_argument(0))

    def previous(self):
        return number(self.place() + 4)


@prints("__zor::_tree_iterator")
class TreeIterator(Iterator):
    members = ("_at_",)

    def target(self, place):
        if is_header(place):
            return "<end>"
        return object_at(place, self.value.type.strip_typedefs().template_argument(0))["value"]

    def previous(self):
        return previous_node(self.place())


@prints("__zor::_bit_iterator")
class BitIterator(Iterator):
    members = ("_word", "_bit")

    def target(self, place):
        return _bit(place, int(self.value["_bit"]))

    def reversed(self):
        place, bit = self.place(), int(self.value["_bit"])
        if place == 0:
            return self.shown(0)
        return _bit(place, bit - 1) if bit else _bit(place - 4, 31)


def _bit(word, bit):
    return "true" if number(word) >> bit & 1 else "false"


@prints("__zor::_bit_reference")
class BitReference(Iterator):
    members = ("_word_", "_mask_")

    def target(self, place):
        return "true" if number(place) & int(self.value["_mask_"]) else "false"


@prints("std::reverse_iterator")
class ReverseIterator(Printer):
    """Over the library's iterators and pointers; a program's own iterators stay as they are."""

    @classmethod
    def fits(cls, type):
        current = [field.type.strip_typedefs() for field in type.fields() if field.name == "current"]
        if not current:
            return False
        is_pointer = current[0].code == gdb.TYPE_CODE_PTR and current[0].sizeof == 4
        return is_pointer or class_name(current[0]) in _KINDS

    def text(self):
        current = self.value["current"]
        kind = _KINDS.get(class_name(current.type))
        if kind is None:
            return (current - 1).dereference() if int(current) else "<singular %s>" % self.title.split("::")[-1]
        inner = kind(current)
        inner.check()
        return inner.reversed()


_KINDS = {
    "__zor::_pointer_iterator": PointerIterator, "__zor::_deque_iterator": DequeIterator,
    "__zor::_list_iterator": ListIterator, "__zor::_tree_iterator": TreeIterator, "__zor::_bit_iterator": BitIterator,
}
