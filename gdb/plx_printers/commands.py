# The commands of gdb: plx eh-stack, plx throw-stack, plx destructions, plx streams, plx details.

import gdb

from . import destructions, eh_stack, roots, settings, throw_stack
from .memory import address_of_symbol


class _Plx(gdb.Command):
    """What plx's run-time library knows: exceptions, static objects, streams."""

    def __init__(self):
        super().__init__("plx", gdb.COMMAND_DATA, gdb.COMPLETE_NONE, True)


class _SetPlx(gdb.Command):
    """Settings of plx's pretty printers."""

    def __init__(self):
        super().__init__("set plx", gdb.COMMAND_DATA, gdb.COMPLETE_NONE, True)


class _ShowPlx(gdb.Command):
    """Settings of plx's pretty printers."""

    def __init__(self):
        super().__init__("show plx", gdb.COMMAND_DATA, gdb.COMPLETE_NONE, True)


class _List(gdb.Command):
    """A command that prints lines until one cannot be read."""

    def __init__(self, name, lines):
        self.lines = lines
        self.name = name
        super().__init__("plx " + name, gdb.COMMAND_STACK, gdb.COMPLETE_NONE)

    def invoke(self, argument, from_tty):
        roots.check_running()
        argument = argument.strip()
        if argument and not argument.isdigit():
            raise gdb.GdbError("plx %s: an optional COUNT is all that it takes." % self.name)
        try:
            # Names are read as C++ has them, whatever the language of the current function.
            with gdb.with_parameter("language", "c++"):
                for line in self.lines(int(argument) if argument else None):
                    gdb.write(line + "\n")
        except Exception as error:
            gdb.write("<invalid: %s>\n" % (str(error) or type(error).__name__))


class _EhStack(_List):
    """Print the eh stack, innermost entry first: plx eh-stack [COUNT].

    Each entry is shown with its address and the function in whose frame it lies.
    Below it stands what it means for an exception: a try block's clauses and what
    it handles, a function's objects that exist now with their destructors, the
    types of a specification, and for a function of C++ what the call that it is
    making catches or cleans up."""

    def __init__(self):
        super().__init__("eh-stack", eh_stack.lines)


class _ThrowStack(_List):
    """Print the throw stack, newest exception first: plx throw-stack [COUNT].

    Each exception object is shown with its type, its address, its state
    (not thrown yet, in flight, handled, released or destroyed) and how many
    throws refer to it; exceptions of the library also with their message."""

    def __init__(self):
        super().__init__("throw-stack", throw_stack.lines)


class _Destructions(_List):
    """Print what exit will destroy or call, in that order: plx destructions [COUNT].

    Each record is shown with its address, the static object and its destructor,
    or the function that was registered with atexit."""

    def __init__(self):
        super().__init__("destructions", destructions.lines)


class _Streams(gdb.Command):
    """Print the standard streams: plx streams.

    Programs declare cin, cout, cerr and clog but do not define them, so that
    `print std::cout` finds nothing. What they are must be described by the
    program: it must include <iostream> and be compiled with -g."""

    def __init__(self):
        super().__init__("plx streams", gdb.COMMAND_DATA, gdb.COMPLETE_NONE)

    def invoke(self, argument, from_tty):
        roots.check_running()
        for name, type in (("cin", "istream"), ("cout", "ostream"), ("cerr", "ostream"), ("clog", "ostream")):
            address = address_of_symbol("_ZSt%d%s" % (len(name), name))
            try:
                stream_type = gdb.lookup_type("std::basic_%s<char, std::char_traits<char> >" % type)
            except gdb.error:
                raise gdb.GdbError("The program does not describe its streams: compile it with -g.")
            if address is None:
                raise gdb.GdbError("The program has no standard streams.")
            stream = gdb.Value(address).cast(stream_type.pointer()).dereference()
            gdb.write("%s = %s\n" % (name, stream.format_string()))


class _Details(gdb.Command):
    """Print an expression with details of how objects are stored: plx details EXPRESSION.

    This is `print EXPRESSION` with `set plx details on`."""

    def __init__(self):
        super().__init__("plx details", gdb.COMMAND_DATA, gdb.COMPLETE_EXPRESSION)

    def invoke(self, argument, from_tty):
        with gdb.with_parameter("plx details", True):
            gdb.execute("print " + argument, from_tty)


def create():
    for command in (_Plx, _SetPlx, _ShowPlx, _EhStack, _ThrowStack, _Destructions, _Streams, _Details):
        command()
    settings.create()
