#!/bin/bash
# Strings, containers, iterators and small values, as gdb prints them; and that `print elements` bounds them.
. "$PLX_SOURCE/tests/gdb/common.bash"
transcripts containers.cpp
transcripts containers.cpp -std=gnu++20
finish
