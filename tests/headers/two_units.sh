#!/bin/sh
# All public headers at once, in two units that are linked together: nothing is defined twice, nothing is missing, and
# the order of the headers does not matter.
set -u
folder=$(mktemp -d) || exit 1
trap 'rm -rf "$folder"' EXIT
cd "$PLX_PREFIX/include/plx-3" || exit 1
headers=$(grep -d skip -L '^#error' -- *)
for header in $headers; do echo "#include <$header>"; done > "$folder/one.cpp"
for header in $headers; do echo "#include <$header>"; done | sort -r > "$folder/two.cpp"
echo 'int main() { return 0; }' >> "$folder/two.cpp"

for std in gnu++98 gnu++11 gnu++17 gnu++20; do
  "$PLX_PREFIX/bin/plx-c++" -std=$std -O1 -Wall -Wextra -Werror "$folder/one.cpp" "$folder/two.cpp" -o "$folder/program" ||
    exit 1
  "$folder/program" || { echo "the program ends with status $?"; exit 1; }
done
