"""gdb's view of programs that use plx: pretty printers for the library's classes, and the command plx.

load.py and the auto-load file call register() once for each object file they are loaded for.
"""

import gdb

from . import commands
from . import buffers, iterators, locales, sequences, streams, strings, trees, values  # noqa: F401, they register
from .printer import Collection

_registered = False


def register(objfile=None):
    """Adds the printers to an object file's, or to gdb's own where there is none, and the commands once."""
    global _registered
    if not _registered:
        commands.create()
        _registered = True
    holder = gdb if objfile is None else objfile
    if not any(isinstance(printer, Collection) for printer in holder.pretty_printers):
        holder.pretty_printers.append(Collection())
