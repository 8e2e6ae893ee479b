#!/bin/bash
# All public headers at once, in two units that are linked together: nothing is defined twice, nothing is missing, and
# the order of the headers does not matter; nor does what the C library's own checks make of its functions.
. "$PLX_SOURCE/tests/driver/common.bash"
headers=$(cd "$PLX_PREFIX/include/plx-3" && grep -d skip -L '^#error' -- *)
printf '#include <%s>\n' $headers > one.cpp
sort -r one.cpp > two.cpp
echo 'int main() { return 0; }' >> two.cpp
for std in "c++98 -D_FORTIFY_SOURCE=2" gnu++98 gnu++11 gnu++17 gnu++20; do
  # shellcheck disable=SC2086 # words
  plx-c++ -std=$std -O1 -Wall -Wextra -Werror one.cpp two.cpp -o program 2> log && ./program || wrong "-std=$std"
done
finish
