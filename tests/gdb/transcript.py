# Runs in gdb. PLX_TRANSCRIPT is a file of commands, behind "(gdb) ", each followed by all lines that it must print; lines
# that begin with ";;" say what follows. The program stops in stop(), or in the function that PLX_STOP names, and the
# commands see the frame of the caller. Besides gdb's commands:
#
#   continue      goes on to the next stop, there or at a catchpoint, and prints nothing
#   trail         prints the number of the breakpoint, 1 for the one there, and the functions with line numbers on the stack
#   spoiled OBJECT with BYTE
#   spoiled OBJECT with PLACE = WORD
#                 prints the object while all its bytes, or that place, hold something else
#
# Addresses are compared as 0xN, places in the source by their text instead of a number. The last line that is printed
# says how it went.

import linecache
import os
import re

import gdb

transcript = os.environ["PLX_TRANSCRIPT"]
stop = os.environ.get("PLX_STOP", "stop")


def line_of_source(found):
    folder = os.path.dirname(gdb.lookup_symbol("main")[0].symtab.fullname())
    return "%s: %s" % (found[1], linecache.getline(os.path.join(folder, found[1]), int(found[2])).strip())


def comparable(text):
    text = re.sub("0x[0-9a-f]{4,}", "0xN", text).replace("@PLX_3", "")
    text = re.sub(r"(?:/\S*/)?([\w.]+\.(?:cpp|c)):(\d+)", line_of_source, text)
    # What the library's own functions are called is its compiler's affair.
    text = re.sub("(0xN  (?:array|try block)) in (?!.* at ).*", r"\1", text)
    return re.sub(" +$", "", text, flags=re.M).rstrip("\n")


def stopped_at():
    return re.search(r"breakpoint (\d+)", gdb.execute("info program", to_string=True))[1]


def go_on(command):
    gdb.execute(command, to_string=True)
    if stopped_at() == "1" and stop != "main":
        gdb.execute("up", to_string=True)


def trail():
    frame, names = gdb.newest_frame(), []
    while frame is not None:
        if frame.find_sal().symtab and frame.name() and frame.type() == gdb.NORMAL_FRAME:
            names.append(re.sub(r"\(.*", "", frame.name()))
        frame = frame.older()
    return stopped_at() + ": " + " ".join(names)


def spoiled(name, change):
    place, _, word = change.partition(" = ")
    target = gdb.parse_and_eval(place if word else name)
    address, size = int(target.address), target.type.sizeof
    process = gdb.selected_inferior()
    kept = process.read_memory(address, size).tobytes()
    process.write_memory(address, int(gdb.parse_and_eval(word)).to_bytes(4, "little") if word else bytes([int(place, 0)]) * size)
    try:
        return gdb.execute("output " + name, to_string=True)
    finally:
        process.write_memory(address, kept)


def printed(command):
    try:
        if command == "trail":
            return trail()
        if command.startswith("spoiled "):
            return spoiled(*command[8:].split(" with "))
        return gdb.execute(command, to_string=True)
    except gdb.error as error:
        return "error: %s" % error


for setting in ("pagination off", "width 0", "confirm off"):
    gdb.execute("set " + setting)
gdb.execute("break " + stop, to_string=True)
go_on("run")
steps = re.findall(r"^\(gdb\) (.*)\n((?:(?!\(gdb\) ).*\n)*)", re.sub(r"(?m)^;;.*\n", "", open(transcript).read()), re.M)
wrong = 0
for command, expected in steps:
    if command == "continue":
        go_on(command)
        continue
    expected, actual = comparable(expected), comparable(printed(command))
    # Where `up` leads is said on the terminal only.
    if actual != expected and not command.startswith("up"):
        wrong += 1
        print("%s: %s\n  expected: %s\n  printed:  %s" % (os.path.basename(transcript), command, expected, actual))
gdb.execute("kill", to_string=True)
print("transcript: %d commands, %s" % (len(steps), "%d not as expected" % wrong if wrong else "all as expected"))
