# vector, vector<bool>, deque, list, the adaptors over them, valarray, and the library's own small array.

from .memory import Invalid, behind, check_readable, number
from .printer import Printer, printer_class, printer_for, prints

DEQUE_BLOCK = 20
LINKS = 8  # of a list's node: next, previous


def distance(first, last):
    """The elements between two pointers, checked."""
    size = first.type.target().sizeof
    bytes = int(last) - int(first)
    if bytes < 0 or bytes % size != 0:
        raise Invalid("its end 0x%x does not fit its begin 0x%x" % (int(last), int(first)))
    check_readable(int(first), bytes)
    return bytes // size


def counted(title, n, capacity=None):
    text = "%s of %d" % (title, n)
    return text if capacity is None else text + ", capacity %d" % capacity


class Array(Printer):
    """Elements side by side: check() sets first, n and, where there is one, capacity."""

    kind = "array"
    capacity = None

    def text(self):
        return counted(self.title, self.n, self.capacity)

    def children(self):
        for i in range(self.n):
            yield "[%d]" % i, (self.first + i).dereference()


@prints("std::vector")
class Vector(Array):
    members = ("_storage_",)

    def check(self):
        storage = self.value["_storage_"]
        self.first = storage["first"]
        self.n = distance(self.first, storage["_last"])
        self.capacity = distance(self.first, storage["_limit"])
        if self.n > self.capacity or self.capacity == 0 and int(self.first) != 0:
            raise Invalid("its end does not fit its block at 0x%x" % int(self.first))


@prints("std::vector")
class VectorOfBool(Printer):
    members = ("_words_", "_size_")
    kind = "array"

    def check(self):
        words = self.value["_words_"]
        self.first = int(words["first"])
        self.capacity = 32 * distance(words["first"], words["_limit"])
        self.n = int(self.value["_size_"])
        if self.n > self.capacity:
            raise Invalid("size %d, capacity %d" % (self.n, self.capacity))

    def text(self):
        return counted(self.title, self.n, self.capacity)

    def children(self):
        for i in range(self.n):
            bit = number(self.first + i // 32 * 4) >> i % 32 & 1
            yield "[%d]" % i, "true" if bit else "false"


@prints("std::valarray")
class Valarray(Array):
    members = ("_block_",)

    def check(self):
        self.first = self.value["_block_"]["_data_"]
        self.n = int(self.value["_block_"]["_size_"])
        check_readable(int(self.first), self.n * self.first.type.target().sizeof)


@prints("__zor::lw_vector")
class LightVector(Array):
    members = ("_data_", "_size_")

    def check(self):
        self.first = self.value["_data_"]
        self.n = int(self.value["_size_"])
        check_readable(int(self.first), self.n * self.first.type.target().sizeof)


@prints("std::deque")
class Deque(Printer):
    members = ("_start_node_", "_start_offset_", "_finish_node_")
    kind = "array"

    def check(self):
        value = self.value
        self.node = value["_start_node_"]
        self.offset = int(value["_start_offset_"])
        blocks = distance(self.node, value["_finish_node_"])
        # The entry of the last block too.
        check_readable(int(self.node), 4 * (blocks + 1))
        last = value["_finish_node_"].dereference()
        in_last = (int(value["_finish_"]) - int(last)) // last.type.target().sizeof
        self.n = blocks * DEQUE_BLOCK + in_last - self.offset
        if not (0 <= self.offset < DEQUE_BLOCK and 0 <= in_last < DEQUE_BLOCK and self.n >= 0):
            raise Invalid("its begin and end do not fit together")

    def text(self):
        return counted(self.title, self.n)

    def children(self):
        for i in range(self.n):
            block, place = divmod(self.offset + i, DEQUE_BLOCK)
            yield "[%d]" % i, ((self.node + block).dereference() + place).dereference()


@prints("std::list")
class List(Printer):
    members = ("_head_", "_size_")
    kind = "array"

    def check(self):
        self.head = self.value["_head_"]
        self.n = int(self.value["_size_"])
        self.element = self.value.type.strip_typedefs().template_argument(0)
        next, prev = int(self.head["_next"]), int(self.head["_prev"])
        check_readable(next, LINKS)
        check_readable(prev, LINKS)
        if number(next + 4) != number(prev):
            raise Invalid("its ring of nodes is broken")

    def text(self):
        return counted(self.title, self.n)

    def children(self):
        node = int(self.head["_next"])
        for i in range(self.n):
            if self.head.address is not None and node == int(self.head.address):
                raise Invalid("there are fewer nodes")
            yield "[%d]" % i, behind(node, LINKS, self.element)
            next = number(node)
            if number(next + 4) != node:
                raise Invalid("a node does not link back")
            node = next


@prints("std::stack", "std::queue", "std::priority_queue")
class Adaptor(Printer):
    """Over the library's containers; what a program's own look like it knows best."""

    @classmethod
    def fits(cls, type):
        return any(field.name == "c" and printer_class(field.type) for field in type.fields())

    def check(self):
        self.inner = printer_for(self.value["c"])
        if hasattr(self.inner, "children"):
            self.kind = self.inner.display_hint()
            self.children = self.inner.children

    def text(self):
        return "%s over %s" % (self.title, self.inner.to_string())
