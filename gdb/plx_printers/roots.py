# Where the runtime's lists begin. __curr_eh_stack_entry and __eh_curr_region are exported; the others stand in the
# record __zor_debugger_view, which survives stripping. A static program that lacks it has their own symbols.

import gdb

from .layout import VIEW, Record
from .memory import Invalid, address_of_symbol, number


def _view(field, *symbols):
    view = address_of_symbol("__zor_debugger_view")
    if view is not None:
        record = Record(VIEW, view)
        if record["version"] != 1:
            raise Invalid("these commands are of another version than the library")
        return record[field]
    return _address(*symbols)


def _address(*symbols):
    address = address_of_symbol(*symbols)
    if address is None:
        raise Invalid("the program does not use plx, or has no symbols")
    return address


def check_running():
    if gdb.selected_inferior().pid == 0 and not gdb.selected_inferior().threads():
        raise gdb.GdbError("The program is not being run.")


def eh_stack():
    return number(_address("__curr_eh_stack_entry"))


def current_region():
    return number(_address("__eh_curr_region"), "H")


def throw_stack():
    return number(_view("throw_stack", "_ZN5__zor22curr_throw_stack_entryE"))


def destructions():
    return number(_view("destructions", "_ZN5__zor23needed_destruction_headE"))
