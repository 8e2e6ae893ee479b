# Loads plx's pretty printers and commands by hand: `source .../share/plx-3/gdb/load.py`, typed or in gdb's own start-up
# file. For programs that are linked statically, and where gdb must not load files that lie beside libraries.

import os
import sys

_folder = os.path.dirname(os.path.realpath(__file__))
if _folder not in sys.path:
    sys.path.insert(0, _folder)
_before = sys.dont_write_bytecode
# The folder belongs to an installed tree, which is to be removed as it came.
sys.dont_write_bytecode = True
try:
    import plx_printers
finally:
    sys.dont_write_bytecode = _before
plx_printers.register()
