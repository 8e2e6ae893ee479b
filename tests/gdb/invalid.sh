#!/bin/bash
# Objects that were never constructed or that something overwrote are printed as such, shortly and without errors.
. "$PLX_SOURCE/tests/gdb/common.bash"
transcripts invalid.cpp -Wno-everything
finish
