# Where the fields of the runtime's records are, by offset. Programs in C++ and a library without debug information do
# not describe these records, so this is the one place that knows them; the offsets are a part of the contract with
# generated code (include/plx/runtime.h), or the library's own affair. What the test gdb/transcripts compares is read by
# them.
#
# A field is named as C would name it; codes are struct's.

from .memory import number

# include/plx/runtime.h
TYPE = {"name": (4, "I"), "bases": (12, "I")}
BASE_CLASS = {"base": (0, "I"), "offset": (4, "h"), "flags": (6, "B")}
CLAUSE = {"type": (0, "I"), "flags": (4, "B")}
REGION = {"routine": (0, "I"), "object_index": (4, "H"), "next_region": (6, "H"), "flags": (8, "B")}
ARRAY_RECORD = {"object_index": (0, "H"), "size": (4, "I"), "count": (8, "I")}
ARRAY_INFO = {
    "array": (0, "I"), "count": (4, "I"), "size": (8, "I"), "progress": (12, "I"), "is_construction": (16, "i"),
}
ENTRY = {
    "next": (0, "I"),
    "kind": (4, "B"),
    "body.try_block.clause_list": (164, "I"),
    "body.try_block.handled_exception": (168, "I"),
    "body.function.region_table": (8, "I"),
    "body.function.object_addresses": (12, "I"),
    "body.function.array_table": (16, "I"),
    "body.function.saved_region": (20, "H"),
    "body.specification.allowed_list": (8, "I"),
    "body.array.info": (8, "I"),
}
THROW = {
    "next": (0, "I"), "type": (4, "I"), "flags": (12, "B"), "object": (20, "I"), "source": (32, "I"),
    "reference_count": (36, "i"), "is_rethrow": (40, "B"), "released": (41, "B"), "destroyed": (42, "B"),
    "handled": (43, "B"), "thrown": (45, "B"), "marker": (48, "I"),
}
DESTRUCTION = {"next": (0, "I"), "object": (4, "I"), "destructor": (8, "I")}

# libC/eh_state.h: the body of a throw's marker, the header before an object of C++, a place on the way out.
THROW_STATE = {"caught": (17, "B"), "has_header": (18, "B"), "exception": (20, "I"), "position": (28, "I")}
HEADER = {"landed": (12, "I"), "thrown": (16, "I"), "native": (20, "I")}
LANDING = {"cfa": (36, "I")}

# libC/frames.h
DETOUR = {"next.cfa": (212, "I")}

# unwind/call_unexpected.cpp: what follows the entry of an unexpected handler at work; and unwind/plan.h.
GUARD = {"plan": (184, "I"), "filter": (188, "i")}
PLAN = {"function": (52, "I"), "exception_table": (56, "I")}

# libC/debugger_view.cpp
VIEW = {"version": (0, "I"), "throw_stack": (4, "I"), "destructions": (8, "I")}

# The C library's FILE.
FILE = {
    "_IO_read_ptr": (4, "I"), "_IO_read_end": (8, "I"), "_IO_write_base": (16, "I"), "_IO_write_ptr": (20, "I"),
    "_fileno": (56, "i"),
}

TRY_BLOCK, FUNCTION, SPECIFICATION, IN_PROGRESS, ARRAY = 0, 1, 2, 3, 4
DETOUR_ENTRY, UNEXPECTED_GUARD, TERMINATE_BARRIER = 0xC1, 0xC2, 0xC3

TYPE_POINTER, TYPE_CONST, TYPE_VOLATILE, TYPE_ELLIPSIS, TYPE_LAST = 0x01, 0x02, 0x04, 0x10, 0x20
BASE_VIRTUAL = 0x01
REGION_INDIRECT, REGION_CONDITIONAL, REGION_DEALLOCATE, REGION_ARRAY, REGION_CLEAR = 0x01, 0x02, 0x04, 0x08, 0x80
NO_REGION = 0xFFFF
END_OF_DESTRUCTIONS = 17


class Record:
    """Fields of a record in the program's memory, read when they are asked for."""

    def __init__(self, layout, address):
        self.layout = layout
        self.address = address

    def __getitem__(self, name):
        offset, code = self.layout[name]
        return number(self.address + offset, code)
