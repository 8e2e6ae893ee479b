#!/bin/bash
# Do the tests notice faults? tests/mutants/*.txt are lists of faults of one place; each in turn goes into a copy of the
# tree, is built, and the tests that it names are run: it is killed when one of them fails, and survives otherwise.
#
#   tests/mutants/run.sh [LIST...] [-k WORD]    all lists, or these; only faults of which some line holds WORD
#
# A fault is a paragraph: what goes wrong, the file and its tests or folders of tests, run in this order until one fails,
# the old text, which stands there once and may be part of a line, and the new one.
#
#   # one element too few is moved
#   include/plx/containers/vector.h: containers/vector algorithms
#   < _last - at
#   > _last - at - 1
set -u
word= lists=()
while [ $# -gt 0 ]; do
  case $1 in -k) word=$2; shift 2 ;; *) lists+=("tests/mutants/${1##*/}.txt"); shift ;; esac
done
[ ${#lists[@]} -gt 0 ] || lists=(tests/mutants/*.txt)
copy=${PLX_BUILD:-$PWD/build}/mutants build=${PLX_BUILD:-$PWD/build}/mutants.build
mkdir -p "$copy"
# By contents: what is the same keeps its time, so that nothing is built again.
(git ls-files -co --exclude-standard; cd "$copy" && find . -type f -printf '%P\n') | sort -u | while read -r file; do
  if [ ! -f "$file" ]; then rm -f "$copy/$file"; else cmp -s "$file" "$copy/$file" || cp --parents "$file" "$copy"; fi
done
# Configured anew in any case: tests come and go.
(cd "$copy" && cmake --preset release -B "$build" -DCMAKE_CXX_FLAGS_RELEASE='-O1 -w' > /dev/null) || exit

# passes TEST...: 0, 1 when one fails, 2 when something does not build. Programs load the library: while only its sources
# change they are not built again.
passes() {
  local pattern targets=
  pattern="^($(IFS='|'; echo "$*"))(\$|[/:])"
  [ "$pass" = sources ] || targets="plx_start $(awk -v pattern="$pattern" '$1 ~ pattern { print $2 }' "$build/tests/targets")"
  case " $* " in *" unwind"* | *" driver"*) targets+=" plx_static plx_pie" ;; esac  # static programs are among these
  # shellcheck disable=SC2086 # a list of words
  ninja -C "$build" --quiet -j"$(nproc)" plx $targets > "$build/log" 2>&1 || return 2
  (ulimit -v 4000000; ctest --test-dir "$build" -j2 --stop-on-failure --no-tests=error -R "$pattern") \
    > "$build/log" 2>&1
}

try() {
  local text rest verdict=survived test tests=$tests kind=sources
  case $file in '') return ;; include/* | */program/*) kind=headers ;; esac
  [ $kind = "$pass" ] && [[ $what$file$tests$old$new = *"$word"* ]] || return
  old=${old%$'\n'} new=${new%$'\n'} text=$(cat "$file")
  rest=${text#*"$old"}
  [ "$rest" != "$text" ] && [ "${rest#*"$old"}" = "$rest" ] || tests='' verdict="is not there, or twice"
  printf '%s\n' "${text%%"$old"*}$new$rest" > "$copy/$file"
  for test in $tests; do
    passes "$test"
    case $? in 0) continue ;; 2) verdict="does not build" ;; *) verdict=killed ;; esac
    break
  done
  cp "$file" "$copy/$file"
  verdicts+=("$verdict")
  printf '%s: %s: %s\n' "$verdict" "$file" "$what"
}

verdicts=() file='' tests='' what='' pass=all
export PLX_RANDOM_SEEDS=${PLX_RANDOM_SEEDS:-10}
trap '[ -z "$file" ] || cp "$file" "$copy/$file"; exit 130' INT TERM
# shellcheck disable=SC2046 # a list of words
passes $(sed -n 's/^[^#<>:]*: //p' "${lists[@]}" | tr ' ' '\n' | sort -u) || { tail -30 "$build/log"; echo "fails without a fault"; exit 1; }
for pass in sources headers; do
  while IFS= read -r line; do
    case $line in
      '') try; file='' ;;
      '#'*) what=${line#'# '} ;;
      '<'*) line=${line#<}; old+=${line# }$'\n' ;;
      '>'*) line=${line#>}; new+=${line# }$'\n' ;;
      *) file=${line%%:*} tests=${line#*: } old='' new='' ;;
    esac
  done < <(for list in "${lists[@]}"; do cat "$list"; echo; done)
done
echo "${#verdicts[@]} faults, $(printf '%s\n' "${verdicts[@]}" | grep -cx killed) killed"
