# map, multimap, set and multiset: a red-black tree whose header is no element (include/plx/containers/rb_tree_base.h).

from .memory import Invalid, base_part, behind, check_readable, number
from .printer import Printer, class_name, prints
from .sequences import counted

LINKS = 16  # left, right, parent, color
LEFT, RIGHT, PARENT = 0, 4, 8
STRING_DIGEST = 8  # nodes with strings as keys keep the first characters too
_HIGHEST = 128  # no tree that fits into memory is higher


def _step(node, towards, back):
    """The next node on one side: the outermost below on that side, or the first above from the other side."""
    below = number(node + towards)
    above = node
    for _ in range(_HIGHEST):
        if below == 0:
            break
        if number(below + PARENT) != above:
            raise Invalid("a node does not link back")
        above, below = below, number(below + back)
    else:
        raise Invalid("its nodes go in circles")
    if above != node:
        return above
    for _ in range(_HIGHEST):
        above = number(node + PARENT)
        if number(above + towards) != node:
            return above
        node = above
    raise Invalid("its nodes go in circles")


def next_node(node):
    return _step(node, RIGHT, LEFT)


def previous_node(node):
    """Also of the header: its left link leads to the last node."""
    if is_header(node):
        return number(node + LEFT) or node
    return _step(node, LEFT, RIGHT)


def is_header(node):
    """Only the header's left link leads to the last node, which has nothing on its right and is no child of it."""
    root = number(node + PARENT)
    if root == 0:
        return True
    if number(root + PARENT) != node or number(node + RIGHT) != 0:
        return False
    # The root fits so far when it is the last node. Its left child links to it; the header's last node does not,
    # unless it is the root: and then the header's left link and its parent are the same.
    left = number(node + LEFT)
    return left == root or left != 0 and number(left + PARENT) != node


class Tree(Printer):
    kind = "array"

    @classmethod
    def fits(cls, type):
        bases = [field.type for field in type.fields() if field.is_base_class]
        return bool(bases) and class_name(bases[0]).startswith("__zor::")

    def check(self):
        container = base_part(self.value, "__zor::_tree_container<")
        tree = base_part(container["_tree_"], "__zor::rb_tree_base_data")
        self.element = container.type.template_argument(1)
        self.n = int(tree["node_count"])
        self.header = int(tree["header"])
        self.leftmost = int(tree["leftmost"])
        key, compare = container.type.template_argument(0), container.type.template_argument(4)
        by_digest = class_name(key) == "std::basic_string" and class_name(compare) == "std::less"
        self.before_value = LINKS + (STRING_DIGEST if by_digest else 0)
        check_readable(self.header, LINKS)
        check_readable(self.leftmost, LINKS)
        if (self.n == 0) != (self.leftmost == self.header) or self.n and not is_header(self.header):
            raise Invalid("its header does not fit it")

    def text(self):
        return counted(self.title, self.n)

    def values(self):
        node = self.leftmost
        for _ in range(self.n):
            if node == self.header:
                raise Invalid("there are fewer nodes")
            yield behind(node, self.before_value, self.element)
            node = next_node(node)

    def children(self):
        for i, value in enumerate(self.values()):
            yield "[%d]" % i, value


@prints("std::map", "std::multimap")
class Map(Tree):
    kind = "map"

    def children(self):
        for i, value in enumerate(self.values()):
            yield "[%d].first" % i, value["first"]
            yield "[%d].second" % i, value["second"]


prints("std::set", "std::multiset")(Tree)
