# plx eh-stack: what would happen if an exception came now, from the innermost entry outwards.

from .exception_tables import allowed_names, call_site_actions
from .frames import Frames
from .layout import (
    ARRAY, ARRAY_INFO, ARRAY_RECORD, CONTEXT, ENTRY, FOREIGN_FRAME, FUNCTION, GUARD, IN_PROGRESS, NO_REGION,
    REGION, REGION_ARRAY, REGION_CLEAR, REGION_CONDITIONAL, REGION_DEALLOCATE, REGION_INDIRECT, SPECIFICATION,
    TERMINATE_BARRIER, THROW, TRY_BLOCK, UNEXPECTED_GUARD, Record,
)
from .memory import Invalid, named_address, number
from .roots import current_region, eh_stack
from .throw_stack import described_throw
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


def _foreign_frame(entry, region):
    context = Record(CONTEXT, entry.address - CONTEXT["next"][0])
    yield "C++ frame"
    call_site = context["call_site"]
    if call_site <= 0:
        yield "nothing to do here"
        return
    for action in call_site_actions(context["exception_table"], call_site):
        yield action


def _unexpected_guard(entry, region):
    guard = Record(GUARD, entry.address)
    yield "unexpected handler at work"
    yield "throw (%s)" % ", ".join(allowed_names(guard["allowed"], guard["types"]))


def _terminate_barrier(entry, region):
    yield "terminate handler at work"


_KINDS = {
    TRY_BLOCK: _try_block, FUNCTION: _function, SPECIFICATION: _specification, IN_PROGRESS: _in_progress, ARRAY: _array,
    FOREIGN_FRAME: _foreign_frame, UNEXPECTED_GUARD: _unexpected_guard, TERMINATE_BARRIER: _terminate_barrier,
}


def _where(frames, entry, kind):
    if kind in (IN_PROGRESS, TERMINATE_BARRIER):
        return ""
    if kind == FOREIGN_FRAME:
        context = Record(CONTEXT, entry.address - CONTEXT["next"][0])
        return frames.of_code(context["landing_address"], entry.address)
    return frames.around(entry.address)


def lines(count):
    frames = Frames()
    region = current_region()
    address = eh_stack()
    seen = set()
    if address == 0:
        yield "The eh stack is empty."
    while address != 0:
        if len(seen) == count:
            yield "(more entries)"
            return
        if address in seen:
            raise Invalid("the eh stack goes in circles at 0x%x" % address)
        seen.add(address)
        entry = Record(ENTRY, address)
        kind = entry["kind"]
        if kind not in _KINDS:
            raise Invalid("an entry of kind %d at 0x%x" % (kind, address))
        where = _where(frames, entry, kind)
        parts = _KINDS[kind](entry, region)
        yield "#%-3d 0x%08x  %s%s" % (len(seen) - 1, address, next(parts), " in " + where if where else "")
        try:
            for part in parts:
                yield "        " + part
        except Exception as error:
            yield "        <invalid: %s>" % (str(error) or type(error).__name__)
        if kind == FUNCTION:
            region = entry["body.function.saved_region"]
        address = entry["next"]
