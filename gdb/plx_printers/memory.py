# Reading the program: memory, names of addresses, and types. Everything here works on core files too, since nothing
# calls functions of the program. What cannot be read raises Invalid, gdb.error or gdb.MemoryError; the printers
# (printer.py) and commands (commands.py) turn each of them into "<invalid ...>".

import re
import struct

import gdb

_SIZES = {"B": 1, "H": 2, "h": 2, "i": 4, "I": 4}


class Invalid(Exception):
    """The object cannot be what it should be; the text says why."""


def read(address, size):
    return bytes(gdb.selected_inferior().read_memory(address & 0xFFFFFFFF, size))


def number(address, code="I"):
    """The number at an address; code is struct's. The programs are 32-bit and little-endian."""
    return struct.unpack("<" + code, read(address, _SIZES[code]))[0]


def check_readable(address, size):
    """Whether the first and the last byte of a range are there: enough to tell garbage from objects."""
    if size == 0:
        return
    try:
        if not 0 < address <= address + size - 1 <= 0xFFFFFFFF:
            raise Invalid("no memory at 0x%x" % address)
        read(address, 1)
        read(address + size - 1, 1)
    except gdb.MemoryError:
        raise Invalid("no memory at 0x%x" % address)


def text(address, limit=512):
    """A C string, cut at the limit."""
    characters = b""
    while len(characters) < limit:
        # Up to the end of a page, so that nothing behind the string is asked for.
        step = min(limit - len(characters), 0x1000 - (address + len(characters)) % 0x1000, 64)
        piece = read(address + len(characters), step)
        end = piece.find(b"\0")
        if end >= 0:
            return (characters + piece[:end]).decode("latin-1")
        characters += piece
    return characters.decode("latin-1")


def quoted(string):
    """As gdb prints strings, cut at `print elements`."""
    limit = gdb.parameter("print elements") or len(string)
    escaped = "".join(
        "\\" + c if c in '"\\' else c if " " <= c <= "~" else "\\%03o" % ord(c) for c in string[:limit]
    )
    return '"%s"%s' % (escaped, "..." if len(string) > limit else "")


def address_of_symbol(*names):
    """The address of the first of these linker symbols that is there, or None."""
    for name in names:
        try:
            return int(gdb.parse_and_eval("(unsigned long)&'%s'" % name)) & 0xFFFFFFFF
        except gdb.error:
            pass
    return None


def symbol_at(address):
    """(name, offset) of the symbol that holds an address; ("", 0) when there is none."""
    value = gdb.Value(address & 0xFFFFFFFF).cast(gdb.lookup_type("unsigned long"))
    with gdb.with_parameter("print asm-demangle", True), gdb.with_parameter("print symbol-filename", False):
        with gdb.with_parameter("print max-symbolic-offset", None):
            found = re.search(r"<(.*?)(?:\+(\d+))?>$", value.format_string(format="a"))
    # Some names come with a version, or are those of a stub.
    return (re.sub(r"@@?\w+$", "", found.group(1)), int(found.group(2) or 0)) if found else ("", 0)


def named_address(address):
    name, offset = symbol_at(address)
    if not name:
        return "0x%x" % address
    return shortened(name) + ("+%d" % offset if offset else "")


def shortened(name):
    """A C++ name with the library's usual arguments left out."""
    return re.sub(
        r"std::basic_(\w+)<char, std::char_traits<char>(, std::allocator<char>)? >", r"std::\1", name
    )


def demangled(symbol):
    """In C++'s words; a name that is not encoded as it is."""
    result = gdb.execute("demangle -l c++ -- " + symbol, to_string=True).strip()
    return symbol if result.startswith("Can't demangle") else result


def object_at(address, type):
    return gdb.Value(address & 0xFFFFFFFF).cast(type.pointer()).dereference()


def behind(node, size, type):
    """The object behind the first `size` bytes at an address, at the next one that fits its alignment."""
    return object_at(node + ((size + type.alignof - 1) & -type.alignof), type)


def plain(type):
    return type.strip_typedefs().unqualified()


def base_part(value, pattern):
    """The base-class part of an object whose class name begins so, at any depth; virtual bases too."""
    if plain(value.type).name.startswith(pattern):
        return value
    for field in plain(value.type).fields():
        if field.is_base_class:
            found = base_part(value[field], pattern)
            if found is not None:
                return found
    return None


def complete_object(pointer):
    """What a pointer to a polymorphic class points to, as an object of its own class where that is known."""
    try:
        return pointer.cast(pointer.dynamic_type).dereference()
    except gdb.error:
        return pointer.dereference()
