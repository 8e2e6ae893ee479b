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

import os
import re

import gdb

transcript = os.environ["PLX_TRANSCRIPT"]
stop = os.environ.get("PLX_STOP", "stop")
sources = {}


def line_of_source(found):
    name, number = found.groups()
    if name not in sources:
        file = gdb.lookup_symbol("main")[0].symtab.fullname()
        sources[name] = open(os.path.join(os.path.dirname(file), name)).readlines()
    return "%s: %s" % (name, sources[name][int(number) - 1].strip())


def comparable(text):
    text = re.sub("0x[0-9a-f]{4,}", "0xN", text).replace("@PLX_3", "")
    text = re.sub(r"(?:/\S*/)?([\w.]+\.(?:cpp|c)):(\d+)", line_of_source, text)
    # What the library's own functions are called is its compiler's affair.
    text = re.sub("(0xN  (?:array|try block)) in (?!.* at ).*", r"\1", text)
    return [line.rstrip() for line in text.splitlines()]


def steps():
    command, expected = None, []
    for line in open(transcript):
        if line.startswith("(gdb) "):
            if command:
                yield command, expected
            command, expected = line[6:].strip(), []
        elif not line.startswith(";;"):
            expected.append(line.rstrip("\n"))
    yield command, expected


def stopped_at():
    return re.search(r"breakpoint (\d+)", gdb.execute("info program", to_string=True)).group(1)


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
    return stopped_at() + ": " + " ".join(names) + "\n"


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


def execute(command):
    if command == "trail":
        return trail()
    if command.startswith("spoiled "):
        return spoiled(*command[8:].split(" with "))
    return gdb.execute(command, to_string=True)


def printed(command):
    try:
        return comparable(execute(command))
    except gdb.error as error:
        return comparable("error: %s" % error)


def run():
    for setting in ("pagination off", "width 0", "confirm off"):
        gdb.execute("set " + setting)
    gdb.execute("break " + stop, to_string=True)
    go_on("run")
    wrong = count = 0
    for command, expected in steps():
        count += 1
        if command == "continue":
            go_on(command)
            continue
        expected, actual = comparable("\n".join(expected)), printed(command)
        # Where `up` leads is said on the terminal only.
        if actual != expected and not command.startswith("up"):
            wrong += 1
            print("%s: %s" % (os.path.basename(transcript), command))
            print("\n".join(["  expected: " + line for line in expected] + ["  printed:  " + line for line in actual]))
    gdb.execute("kill", to_string=True)
    print("transcript: %d commands, %s" % (count, "%d not as expected" % wrong if wrong else "all as expected"))


run()
