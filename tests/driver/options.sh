#!/bin/bash
# The drivers do what the compiler does with the usual options, add what programs for plx need, and compile C and C++ on
# one command line each as what it is.
. "$PLX_SOURCE/tests/driver/common.bash"
all="main.cpp part.cpp -I headers"
needed() { readelf -dW "$1" | sed -n 's/.*NEEDED.*\[\(.*\)\]/\1/p' | sort | tr '\n' ' '; }
table < "$tables/options.txt"
finish
