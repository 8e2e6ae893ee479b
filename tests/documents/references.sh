#!/bin/bash
# What the documents name is there: targets of links with their anchors, files of this tree, verbs of ./dev, names in the
# files that docs/internals.md leads to, and for each row of docs/deviations.md a test. The reference names every entry
# point of the header that it explains; the changelog keeps its form.
. "$PLX_SOURCE/tests/driver/common.bash"
cd "$PLX_SOURCE" || exit 1
# The text of a document without its blocks of code.
text_of() { awk '/^ *```/ { inside = !inside; next } !inside' "$1"; }
# Anchors are made of a heading as web pages of repositories make them.
anchors() { text_of "$1" | sed -nE 's/^#+ +//p' | tr 'A-Z' 'a-z' | sed -E 's/[^a-z0-9 _-]//g; s/ /-/g'; }
quoted() { grep -oE '`[^`]+`' | tr -d '\140'; }
folders=$(ls -d -- [a-zA-Z]*/ | grep -v build | tr -s '/\n' '|')
./dev help > "$work/help" || wrong "./dev help"
for document in README.md CONTRIBUTING.md CHANGELOG.md docs/*.md; do
  text_of "$document" | grep -oE '\]\([^)]+\)' | tr -d ']()' | grep -vE '^https?://' | while read -r link; do
    target=$(dirname "$document")/${link%%#*}
    case $link in '#'*) target=$document ;; esac
    [ -e "$target" ] || echo "$document: a link to nothing: $link"
    case $link in *'#'*) anchors "$target" | grep -qx -- "${link#*#}" || echo "$document: no such heading: $link" ;; esac
  done
  # Names in code quotes that look like files of this tree: `folder/name`. Tests go by their names too.
  text_of "$document" | quoted | grep -E "^(${folders%|})/[^ ]*$" | grep -vE 'NAME|FOLDER' | sort -u | while read -r name; do
    compgen -G "$name" > "$work/found" || compgen -G "tests/${name#tests/}*" > "$work/found" || echo "$document: no such file: $name"
  done
  grep -oE '\./dev( --preset[ =][a-z]+)? [a-z]+' "$document" | awk '{ print $NF }' | sort -u | while read -r verb; do
    grep -q "^  $verb\b" "$work/help" || echo "$document: ./dev does not know $verb"
  done
done > "$work/missing"
cd "$work" || exit 1
[ ! -s missing ] || wrong "$(cat missing)"

# In docs/internals.md a row `file` | `name`, ... says where names are.
awk -F '|' 'NF == 5 && $3 ~ /^ `[^`]+` $/ && $4 ~ /`/ { print $3 "|" $4 }' "$PLX_SOURCE/docs/internals.md" > steps
[ "$(wc -l < steps)" -ge 30 ] || wrong "docs/internals.md: only $(wc -l < steps) steps were found"
while IFS='|' read -r file names; do
  file=$(tr -d '\140 ' <<< "$file")
  quoted <<< "$names" | while read -r name; do
    grep -qF -- "$name" "$PLX_SOURCE/$file" || echo "docs/internals.md: $file has no $name"
  done
done < steps > missing
[ ! -s missing ] || wrong "$(cat missing)"

# Each deviation has a test that CTest knows: a source, a script, a folder of sources, or a header.
tests_of() { awk -F '|' '/^\|/ && !/^\|[-| ]*$/ && $0 !~ /\| Test \|$/ { print FNR ":" $(NF - 1) }' "$PLX_SOURCE/docs/deviations.md"; }
rows=0
while IFS=: read -r line names; do
  rows=$((rows + 1))
  quoted=$(grep -oE '`[a-z_]+(/[a-z_.]+)+`' <<< "$names" | tr -d '\140')
  [ "$(tr -d ' ,' <<< "$names")" = "$(printf '`%s`' $quoted)" ] || wrong "docs/deviations.md:$line: tests as \`folder/name\`, please"
  for name in $quoted; do
    case $name in headers/*) [ ! -f "$PLX_SOURCE/include/${name#headers/}" ] || continue ;; esac
    ls -d "$PLX_SOURCE/tests/$name"{.cpp,.c,.sh,/} 2> found | grep -q . || wrong "docs/deviations.md:$line: there is no test $name"
  done
done < <(tests_of)
[ $rows -ge 100 ] || wrong "docs/deviations.md: only $rows rows were found"

# Names of the contract: guide and reference tell of everything that the header declares or defines, except the parts that
# make other names; the reference's tables have a row for each function and datum, and for nothing else.
names_of() { grep -oE '\b(_[_A-Za-z][A-Za-z0-9_]+|PLX_[A-Z_]+[A-Z])\b' | sort -u; }
names_of < "$PLX_SOURCE/include/plx/runtime.h" |
  grep -vE '^(PLX_(LAYOUT_ASSERT|NORETURN|RUNTIME_H|DECLARE_TYPE)|_CONST|_VOLATILE|_ZTS|__GNUC__|__cplusplus|__noreturn__|_dtor|_ref)$' |
  while read -r name; do grep -qF -- "$name" "$PLX_SOURCE"/docs/{protocol,reference}.md || echo "$name"; done > missing
[ ! -s missing ] || wrong "the contract's documents do not tell of $(tr '\n' ' ' < missing)"
gcc -m32 -E -P -I "$PLX_SOURCE/include" -include plx/runtime.h -x c /dev/null | tr '\n' ' ' | tr ';' '\n' > declarations
gcc -m32 -E -P -I "$PLX_SOURCE/include" -include setjmp.h -include stddef.h -include stdio.h -x c /dev/null | names_of > not_ours
names_of < declarations | grep -vxFf not_ours | grep -vE '^(__TID?_|__visibility__|__attribute__|__noreturn__|__builtin_)' > declared
awk -F '|' '/^\| `/ { print $2 }' "$PLX_SOURCE/docs/reference.md" | names_of > told
[ "$(wc -l < told)" -ge 60 ] || wrong "docs/reference.md: only $(wc -l < told) names"
diff declared told > missing || wrong "docs/reference.md (>) has other entry points than the header (<): $(cat missing)"
finish
