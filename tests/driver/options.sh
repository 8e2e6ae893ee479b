#!/bin/bash
# The drivers do what the compiler does with the usual options, add what programs for plx need, and compile C and C++ on
# one command line each as what it is.
. "$PLX_SOURCE/tests/driver/common.bash"
mkdir headers 'a folder'
echo 'void part(int);' > headers/part.h
printf '%s\n' '-DGREETING="\"read from a file\""' "-I 'headers'" > inner
printf '%s\n' '@inner' 'main.cpp part.cpp' > outer
cp "$PLX_SOURCE/examples/hello.c" generated.c
all="main.cpp part.cpp -I headers"
needed() { readelf -dW "$1" | sed -n 's/.*NEEDED.*\[\(.*\)\]/\1/p' | sort | tr '\n' ' '; }
table < "$tables/options.txt"
finish
