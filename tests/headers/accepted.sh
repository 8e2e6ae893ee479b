#!/bin/bash
# The cases of data/accepted: valid programs that are easily refused, and what they print, in each dialect. plx-c++
# builds them all at once, g++ checks them, and the host's library must agree, where the case is not plx's own.
. "$PLX_SOURCE/tests/driver/common.bash"

# unit FILE STD LIBRARY: the program of the file's cases, and in want.* what it must print.
unit() {
  awk -v std="$2" -v library="$3" -v want="want.$4" '
    /^= / {
      if (open) print "}  // namespace"
      from = 98; to = 20; own = / own /
      if (match($0, /\[[0-9]+-[0-9]+\]/)) { split(substr($0, RSTART + 1, RLENGTH - 2), range, "-"); from = range[1]; to = range[2] }
      wanted = (std + 2) % 100 >= (from + 2) % 100 && (std + 2) % 100 <= (to + 2) % 100 && !(own && library == "host")
      any = 1; open = wanted
      if (!wanted) next
      calls = calls "  std::printf(\"" $2 ":\"), " $2 "::run(), std::puts(\"\");\n"
      text = $0; sub(/.*=> /, "", text); print $2 ": " text > want
      print "namespace " $2 " {\n#line " NR + 1 " \"" FILENAME "\""
      next
    }
    FNR <= 2 && !/^#/ && !any { print "// " $0; next }
    !any || open { print }
    END { if (open) print "}  // namespace"; printf "int main() {\n%s}\n", calls }' "$1" > "unit.$4.cpp"
}

# check FILE STD COMPILER
check() {
  local name
  name=$(basename "$1" .txt).$2.$3
  unit "$1" "$2" "$3" "$name"
  case $3 in
    plx) plx-c++ -std=gnu++$2 -w "unit.$name.cpp" -o "program.$name" ;;
    host) g++ -m32 -std=gnu++$2 -w "unit.$name.cpp" -o "program.$name" ;;
    gcc) g++ -m32 -nostdinc++ -I "$PLX_SOURCE/include" -std=gnu++$2 -w -fsyntax-only "unit.$name.cpp" ;;
  esac > "log.$name" 2>&1 || { echo "wrong: $name is refused:"; grep -m 3 error "log.$name"; return; }
  [ "$3" = gcc ] && return
  "./program.$name" > "got.$name" 2>&1 || echo "wrong: $name ends with status $?"
  sed 's/: /:/; s/:/: /' "got.$name" | diff "want.$name" - > "log.$name" || { echo "wrong: $name prints"; cat "log.$name"; }
}
export -f unit check
export PLX_SOURCE PATH

for file in "$PLX_SOURCE"/tests/headers/data/accepted/*.txt; do
  for std in 98 11 17 20; do echo "$file $std plx"; done
  for std in 98 20; do echo "$file $std gcc"; done
  for std in 98 17; do echo "$file $std host"; done
done > list
[ "$(wc -l < list)" -ge 16 ] || wrong 'cases are missing'
xargs -P 2 -L 1 bash -c 'check "$@"' check < list > complaints
[ ! -s complaints ] || wrong "$(cat complaints)"
finish
