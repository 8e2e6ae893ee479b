# Runs in gdb, in programs/layout.cpp: every offset and width of plx_printers/layout.py is the compiler's.

import struct

import gdb

gdb.execute("break stop", to_string=True)
gdb.execute("run", to_string=True)

from plx_printers import layout  # gdb knows the folder now that the library is loaded

compared = 0
wrong = 0


def number(expression):
    return int(gdb.parse_and_eval(expression))


def compare(what, known, expression):
    global compared, wrong
    compared += 1
    actual = number(expression)
    if known != actual:
        wrong += 1
        print("%s is %d, not %d" % (what, actual, known))


for record, fields in layout.RECORDS.items():
    for field, (offset, code) in fields.items():
        member = "((%s *)0)->%s" % (record, field)
        compare("%s.%s" % (record, field), offset, "(unsigned long)&" + member)
        if field != "marker":
            compare("the width of %s.%s" % (record, field), struct.calcsize("<" + code), "sizeof(%s)" % member)

compare("an unexpected guard's plan", layout.GUARD["plan"][0], "sizeof(__zor::an_unexpected_guard)")
compare("a region record's size", 12, "sizeof(a_region_record)")
compare("an array record's size", 12, "sizeof(an_array_record)")
compare("a clause's size", 8, "sizeof(an_exception_type_specification)")
compare("the kind of detours", layout.DETOUR_ENTRY, "__zor::eh_detour")
compare("the kind of unexpected guards", layout.UNEXPECTED_GUARD, "__zor::eh_unexpected_guard")
compare("the kind of terminate barriers", layout.TERMINATE_BARRIER, "__zor::eh_terminate_barrier")
print("transcript: %d commands, %s" % (compared, "%d not as expected" % wrong if wrong else "all as expected"))
gdb.execute("kill", to_string=True)
