# `set plx details on|off`: whether printers also show how an object is stored.

import gdb


class _Details(gdb.Parameter):
    """Whether plx's objects are printed with how they are stored.

    For strings the length, the capacity and how many strings share the characters;
    for streams also callbacks, words and the areas of their buffers; and so on."""

    set_doc = "Set whether plx's objects are printed with how they are stored."
    show_doc = "Show whether plx's objects are printed with how they are stored."

    def __init__(self):
        super().__init__("plx details", gdb.COMMAND_DATA, gdb.PARAM_BOOLEAN)
        self.value = False

    def get_set_string(self):
        return ""

    def get_show_string(self, value):
        return "Details of plx's objects are %s." % value


details = None


def create():
    global details
    details = _Details()
