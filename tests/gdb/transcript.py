# Runs in gdb. The comments of a source are a transcript: at each call of stop(), or of the function that PLX_STOP names,
# in the frame of the caller,
#
#   //> COMMAND          is executed; `continue` goes on to the next call
#   //= TEXT             lines that it must print, all of them
#
# Addresses are compared as 0xN, and places in the source by their text instead of a number. The last line that is
# printed says how it went.

import os
import re

import gdb

source = os.environ["PLX_TRANSCRIPT"]


def without_addresses(text):
    return re.sub("0x[0-9a-f]{4,}", "0xN", text)


def steps():
    found = []
    for number, line in enumerate(open(source), 1):
        match = re.match(r"\s*//([>=]) ?(.*)$", line)
        if match and match.group(1) == ">":
            found.append((number, match.group(2), []))
        elif match:
            found[-1][2].append(without_addresses(match.group(2)).rstrip())
    return found


def to_stop(command):
    gdb.execute(command, to_string=True)
    gdb.execute("up", to_string=True)


def line_of_source(found):
    return os.path.basename(source) + ": " + open(source).readlines()[int(found.group(1)) - 1].strip()


def printed(command):
    try:
        text = gdb.execute(command, to_string=True)
    except gdb.error as error:
        text = "error: %s" % error
    text = without_addresses(text.replace(os.path.dirname(source) + "/", ""))
    text = re.sub(re.escape(os.path.basename(source)) + r":(\d+)", line_of_source, text)
    # What the library's own functions are called is its compiler's affair.
    text = re.sub("(0xN  array) in .*", r"\1", text)
    text = re.sub("(__cxa_call_unexpected) at .*", r"\1", text)
    return [line.rstrip() for line in text.splitlines()]


def run():
    for setting in ("pagination off", "width 0", "confirm off"):
        gdb.execute("set " + setting)
    gdb.execute("break " + os.environ.get("PLX_STOP", "stop"), to_string=True)
    to_stop("run")
    wrong = count = 0
    for number, command, expected in steps():
        count += 1
        if command == "continue":
            to_stop(command)
            continue
        actual = printed(command)
        if actual != expected:
            wrong += 1
            print("%s:%d: %s" % (os.path.basename(source), number, command))
            print("\n".join(["  expected: " + line for line in expected] + ["  printed:  " + line for line in actual]))
    gdb.execute("kill", to_string=True)
    print("transcript: %d commands, %s" % (count, "%d not as expected" % wrong if wrong else "all as expected"))


run()
