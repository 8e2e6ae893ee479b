#!/bin/bash
# What the README tells to paste and run does what it says: each `<!-- file: NAME -->` block is a file, the `./dev run`
# line after it is built, and what it prints is the block after `<!-- prints -->`. Links lead somewhere.
. "$PLX_SOURCE/tests/driver/common.bash"
awk '
  /^<!-- file: / { name = $3; kind = "file"; next }
  /^<!-- prints -->/ { kind = "prints"; next }
  /^```/ {
    if (inside) { inside = 0; kind = ""; close(target) }
    else if (kind != "") { inside = 1; target = kind == "file" ? name : name ".expected"; printf "" > target }
    next
  }
  inside { print > target }
  /^    \.\/dev run / { print $3 > "runs" }
' "$PLX_SOURCE/README.md"

[ "$(wc -l < runs)" -ge 2 ] || wrong "fewer programs than expected"
while read -r file; do
  case $file in *.c) driver=plx-cc ;; *) driver=plx-c++ ;; esac
  $driver -Wall -Wextra -Werror "$file" -o program 2> log || { wrong "$file does not build"; continue; }
  ./program > output || wrong "$file ends with status $?"
  diff "$file.expected" output > log || wrong "$file prints something else"
done < runs

grep -o '](\([^)]*\))' "$PLX_SOURCE/README.md" | tr -d ']()' | while read -r target; do
  [ -e "$PLX_SOURCE/$target" ] || echo "$target"
done > missing
[ ! -s missing ] || wrong "links to nothing: $(tr '\n' ' ' < missing)"

# What the README says of ./dev is what it knows.
"$PLX_SOURCE/dev" help > help || wrong "./dev help"
grep -o '\./dev [a-z]*' "$PLX_SOURCE/README.md" | sort -u | while read -r _ verb; do
  [ "$verb" = help ] || grep -q "^  $verb " help || echo "$verb"
done > missing
[ ! -s missing ] || wrong "verbs that ./dev help does not list: $(tr '\n' ' ' < missing)"
finish
