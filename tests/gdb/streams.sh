#!/bin/bash
# Streams in every state, their buffers, and locales, as gdb prints them.
. "$PLX_SOURCE/tests/gdb/common.bash"
transcripts streams.cpp
finish
