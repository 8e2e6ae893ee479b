# plx eh-stack: what would happen if an exception came now, from the innermost frame outwards: entries of the eh stack and
# calls of C++ functions in one order, as unwind/walk.cpp draws it.

from .exception_tables import ExceptionTable, Objects
from .frames import frames
from .layout import (
    ARRAY, ARRAY_INFO, ARRAY_RECORD, DETOUR, DETOUR_ENTRY, ENTRY, FUNCTION, GUARD, HEADER, IN_PROGRESS, LANDING,
    NO_REGION, PLAN, REGION, REGION_ARRAY, REGION_CLEAR, REGION_CONDITIONAL, REGION_DEALLOCATE, REGION_INDIRECT,
    SPECIFICATION, TERMINATE_BARRIER, THROW, TRY_BLOCK, UNEXPECTED_GUARD, Record,
)
from .memory import Invalid, named_address, number
from .roots import current_region, eh_stack
from .throw_stack import described_throw, state_of
from .type_names import clause_names

_MOST_REGIONS = 1000


def _try_block(entry, region):
    list = entry["body.try_block.clause_list"]
    yield "try block"
    handled = entry["body.try_block.handled_exception"]
    if handled:
        yield "handles " + described_throw(handled)
    if list == 0:
        yield "catches everything"
        return
    for i, name in enumerate(clause_names(list), 1):
        yield "clause %d: catch (%s)" % (i, name)


def _objects(entry, region):
    """The objects that exist in a region, newest first, with what would end them."""
    table = entry["body.function.region_table"]
    addresses = entry["body.function.object_addresses"]
    for _ in range(_MOST_REGIONS):
        if region == NO_REGION:
            return
        record = Record(REGION, table + 12 * region)
        flags = record["flags"]
        array = None
        index = record["object_index"]
        if flags & REGION_ARRAY:
            array = Record(ARRAY_RECORD, entry["body.function.array_table"] + 12 * index)
            index = array["object_index"]
        object = number(addresses + 4 * index)
        if flags & REGION_INDIRECT:
            object = number(object)
        if flags & REGION_CONDITIONAL:
            carrier = Record(REGION, table + 12 * (region + 1))
            exists = number(number(addresses + 4 * carrier["object_index"])) != 0
        else:
            exists = True
        if flags & REGION_CLEAR:
            what = "cleared to null"
        elif flags & REGION_DEALLOCATE:
            what = "memory for " + named_address(record["routine"])
        elif array:
            what = "%d elements of %d bytes for %s" % (array["count"], array["size"], named_address(record["routine"]))
        else:
            what = named_address(record["routine"])
        yield "region %d: 0x%x, %s%s" % (region, object, what, "" if exists else " (does not exist)")
        region = record["next_region"]
    raise Invalid("the chain of regions does not end")


def _function(entry, region):
    yield "function"
    yield from _objects(entry, region)


def _specification(entry, region):
    list = entry["body.specification.allowed_list"]
    yield "specification"
    yield "throw (%s)" % (", ".join(clause_names(list)) if list else "")


def _in_progress(entry, region):
    yield "exception in progress"
    yield described_throw(entry.address - THROW["marker"][0])


def _array(entry, region):
    info = Record(ARRAY_INFO, entry["body.array.info"])
    construction = info["is_construction"]
    yield "array"
    yield "%s of %d elements of %d bytes at 0x%x: %d %s" % (
        "construction" if construction else "destruction", info["count"], info["size"], info["array"], info["progress"],
        "done" if construction else "begun",
    )


def _unexpected_guard(entry, region):
    guard = Record(GUARD, entry.address)
    plan = Record(PLAN, guard["plan"])
    yield "unexpected handler at work"
    table = ExceptionTable(plan["function"], plan["exception_table"])
    yield "throw (%s)" % ", ".join(table.allowed_names(guard["filter"]))


def _terminate_barrier(entry, region):
    yield "terminate handler at work"


def _detour(entry, region):
    yield "unexpected handler at work"
    yield "frames that are done with are left out"


_KINDS = {
    TRY_BLOCK: _try_block, FUNCTION: _function, SPECIFICATION: _specification, IN_PROGRESS: _in_progress, ARRAY: _array,
    DETOUR_ENTRY: _detour, UNEXPECTED_GUARD: _unexpected_guard, TERMINATE_BARRIER: _terminate_barrier,
}


def _marker_position(address):
    """Where an exception stands: in the frame that it has landed in; before that where it was thrown."""
    thrown = Record(THROW, address - THROW["marker"][0])
    state = state_of(thrown)
    if state["exception"]:
        header = Record(HEADER, state["exception"])
        if header["thrown"] == thrown.address and header["landed"]:
            return Record(LANDING, header["landed"])["cfa"]
    return state["position"]


class _Entries:
    """The entries of the eh stack: the head, its place among the frames, and the region that is current there."""

    def __init__(self):
        self._region = current_region()
        self._seen = set()
        self._place = 0
        self._next = eh_stack()
        self.head = None
        self.advance()

    def advance(self):
        self.head = None
        if self._next == 0:
            return
        if self._next in self._seen:
            raise Invalid("the eh stack goes in circles at 0x%x" % self._next)
        self._seen.add(self._next)
        entry = Record(ENTRY, self._next)
        self.kind = entry["kind"]
        if self.kind not in _KINDS:
            raise Invalid("an entry of kind %d at 0x%x" % (self.kind, entry.address))
        self.region = self._region
        if self.kind == FUNCTION:
            self._region = entry["body.function.saved_region"]
        self._next = entry["next"]
        self.head = entry

    def place(self, stack_pointer):
        """One that is not on the stack counts as next to the one before."""
        if self.kind == IN_PROGRESS:
            self._place = _marker_position(self.head.address)
        elif self.head.address >= stack_pointer:
            self._place = self.head.address
        return self._place

    def parts(self):
        return _KINDS[self.kind](self.head, self.region)


def _described(address, parts, where):
    """One item: its first line, then its parts."""
    text = "0x%08x  %s%s" % (address, next(parts), " in " + where if where else "")
    try:
        for part in parts:
            text += "\n        " + part
    except Exception as error:
        text += "\n        <invalid: %s>" % (str(error) or type(error).__name__)
    return text


def _call(function, table, address):
    yield "C++ frame"
    yield from ExceptionTable(function, table).actions(address)


def _items():
    """Entries and frames in the order in which an exception meets them."""
    entries = _Entries()
    objects = Objects()
    stack_pointer = done_with = None
    for frame in frames():
        if stack_pointer is None:
            stack_pointer = frame.stack_pointer
        if done_with is not None and frame.cfa < done_with:
            continue
        while entries.head is not None and entries.place(stack_pointer) < frame.cfa:
            entry = entries.head
            without_place = entries.kind in (IN_PROGRESS, TERMINATE_BARRIER, DETOUR_ENTRY) or entry.address < stack_pointer
            yield _described(entry.address, entries.parts(), "" if without_place else frame.where())
            if entries.kind == DETOUR_ENTRY:
                done_with = Record(DETOUR, entry.address)["next.cfa"]
            entries.advance()
            if done_with is not None and frame.cfa < done_with:
                break
        else:
            if frame.address is not None:
                function, table = objects.exception_table(frame.address)
                if table:
                    text = _described(frame.base(), _call(function, table, frame.address), frame.where())
                    if "\n" in text:
                        yield text
    # What gdb lost the frames of.
    while entries.head is not None:
        yield _described(entries.head.address, entries.parts(), "")
        entries.advance()


def lines(count):
    number = 0
    for item in _items():
        if number == count:
            yield "(more entries)"
            return
        yield "#%-3d %s" % (number, item)
        number += 1
    if number == 0:
        yield "Nothing would handle an exception or clean up."
