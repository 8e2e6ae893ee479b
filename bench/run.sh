#!/bin/bash
# Measures plx against the host's C++ library, each with g++ and with clang++: times of every case, those of exceptions
# in static programs too, then what exception handling costs in instructions where nothing is thrown, then sizes,
# start-up and what is taken in of two small programs, with shared libraries and static.
#
#   bench/run.sh [NAME...]     NAME: a program (exceptions), part of a case's name ("append"), `static`, `instructions`,
#                              `scaling` or `size`
#
# PLX_PREFIX is the build tree or installed prefix to measure; without it only the peers run. BENCH_ROUNDS (7) runs of
# every case are interleaved build by build, so that a machine that slows down slows all, and the medians compared.
# A ratio is the time with the compiler's own library divided by ours with the same compiler: above 1 we are faster.
# "behind" marks a case of which one of the two ratios is more than 3 % below the target; less is noise. Exits 1 when something could not be built or run, or when builds of one case computed
# different results; never because of a time.
set -u
export LC_ALL=C
source_dir=$(cd "$(dirname "$0")" && pwd)
rounds=${BENCH_ROUNDS:-7}
prefix=${PLX_PREFIX:-}
work=$(mktemp -d "${TMPDIR:-/tmp}/plx-bench.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM
failures=0

fail() {
  echo "bench: $*" >&2
  failures=$((failures + 1))
}

# The builds that take part; plx comes first when it is there. All are built for 32 bits and a fixed address, because
# position-independent code on this processor pays for itself at every call.
gcc=g++
clang=$(command -v clang++-14) || clang="clang++"
takes_part() {
  echo '#include <string>
    int main(int argc, char **argv) { return std::string(argv[0]).size() == argc; }' > "$work/probe.cpp"
  "$2" -m32 "$work/probe.cpp" -o "$work/probe" > "$work/log" 2>&1 && builds+=(${prefix:+"plx-$1"} "$1") && pairs+=("$1") && return
  echo "without $1: it does not build 32-bit C++ programs on this machine"
}
builds=() pairs=()
[ -n "$prefix" ] || echo "PLX_PREFIX is not set: only the peers are measured"
takes_part gcc "$gcc"
takes_part clang "$clang"
if [ ${#builds[@]} -eq 0 ]; then
  echo "bench: nothing to measure" >&2
  exit 1
fi

# compile BUILD SOURCE OUTPUT [OPTION...]: one program, with the same options everywhere.
compile() {
  local build=$1 source=$2 output=$3 with compiler
  case $build in *clang) with=$clang ;; *) with=$gcc ;; esac
  case $build:$source in
    plx-*:*/mixed.c) compiler=("$prefix/bin/plx-c++") ;;
    plx-*:*.c) compiler=("$prefix/bin/plx-cc") ;;
    plx-*) compiler=("$prefix/bin/plx-c++" -std=gnu++98) ;;
    *) compiler=("$with" -m32 -std=gnu++98) ;;
  esac
  # The C compiler that belongs to a C++ compiler has nearly its name.
  PLX_CXX=$with PLX_CC=$(sed 's/clang++/clang/; t; s/g++/gcc/' <<< "$with") "${compiler[@]}" -O2 -fno-pic -no-pie \
    "$source" -o "$output" "${@:4}" 2> "$work/log" && return
  fail "$source does not build with ${compiler[0]##*/}:"
  head -5 "$work/log" >&2
  return 1
}

# wanted NAME...: does one of these names meet the filter? Everything does when there is none.
filter=("$@")
wanted() {
  [ ${#filter[@]} -eq 0 ] && return
  local pattern name
  for pattern in "${filter[@]}"; do
    for name in "$@"; do [[ $name == *"$pattern"* ]] && return; done
  done
  return 1
}

# ---- Times ---------------------------------------------------------------------------------------------------------

# program_of SOURCE -> its name; peer_source SOURCE -> what the peers build in its place.
program_of() { local name=${1##*/}; echo "${name%.c*}"; }
peer_source() { case $1 in *.c) echo "${1%.c}.peer.cpp" ;; *) echo "$1" ;; esac; }

# prepare SOURCE [OPTION...]: builds a program with each build, when the filter wants any of its cases.
# Appends "program<TAB>case<TAB>target" to the plan.
prepare() {
  local source=$1 program build listed=
  shift
  program=$(program_of "$source")
  if [ ${#filter[@]} -gt 0 ] && ! wanted "$program"; then
    # Only a case's name can still match: names stand in the source as string literals.
    local literal found=
    while read -r literal; do wanted "$literal" && found=1; done < <(grep -o '^ *{"[^,].*", [0-9]' "$source")
    [ -z "$found" ] && return
  fi
  for build in "${builds[@]}"; do
    local input=$source
    [[ $build != plx-* ]] && input=$(peer_source "$source")
    compile "$build" "$input" "$work/$program.$build" "$@" || continue
    [ -z "$listed" ] && listed=$("$work/$program.$build" list)
  done
  local name target
  while IFS=$'\t' read -r name target; do
    [ -n "$name" ] && wanted "$program" "$name" && printf '%s\t%s\t%s\n' "$program" "$name" "$target" >> "$work/plan"
  done <<< "$listed"
}

# Runs one case in every build, interleaved; appends "case<TAB>build<TAB>ns<TAB>checksum" lines to the results.
measure() {
  local program=$1 name=$2 round build line
  for ((round = 0; round < rounds; ++round)); do
    for build in "${builds[@]}"; do
      [ -x "$work/$program.$build" ] || continue
      if line=$(timeout 120 "$work/$program.$build" time "$name" 2> "$work/log"); then
        printf '%s\t%s\t%s\n' "$name" "$build" "$line" >> "$work/results"
      else
        fail "$program, \"$name\": the $build build fails"
        rm -f "$work/$program.$build"
      fi
    done
  done
}

# One line of the table: for each compiler the medians of plx and of its own library, and their ratio; then the target.
# Exit status 3 when the checksums differ.
report_case() {
  awk -F '\t' -v name="$1" -v target="$2" -v ratios="$work/ratios" -v pairs="${pairs[*]}" '
    $1 == name { values[$2] = values[$2] " " $3; if (sums != "" && sums != $4) differ = 1; sums = $4 }
    function median(list,   v, n, i, k, t) {
      n = split(list, v, " ")
      for (i = 2; i <= n; ++i) for (k = i; k > 1 && v[k] + 0 < v[k - 1] + 0; --k) { t = v[k]; v[k] = v[k - 1]; v[k - 1] = t }
      return n ? v[int((n + 1) / 2)] + 0 : -1
    }
    function shown(ns) { return ns < 0 ? "-" : sprintf(ns < 100 ? "%.2f" : "%.0f", ns) }
    END {
      printf "%-50s", name
      count = split(pairs, pair, " ")
      for (i = 1; i <= count; ++i) {
        ours = median(values["plx-" pair[i]]); theirs = median(values[pair[i]])
        ratio = ours > 0 && theirs > 0 ? theirs / ours : 0
        printf " %10s %10s %7s", shown(ours), shown(theirs), ratio ? sprintf("%.2f", ratio) : "-"
        if (!ratio) continue
        if (ratio < target * 0.97) behind = 1
        print ratio, pair[i] >> ratios
      }
      if (behind) print 0, "behind" >> ratios
      printf " %7s  %s\n", target, behind ? "behind" : ""
      exit differ ? 3 : 0
    }' "$work/results"
}

# times HEADING SOURCE... [-- OPTION...]: a table.
times() {
  local heading=$1 sources=() source program name target pair current=
  shift
  while [ $# -gt 0 ] && [ "$1" != -- ]; do sources+=("$1"); shift; done
  [ $# -eq 0 ] || shift
  : > "$work/plan"; : > "$work/results"; : > "$work/ratios"
  for source in "${sources[@]}"; do
    case $source in *.peer.cpp) ;; *) prepare "$source" "$@" ;; esac
  done
  [ -s "$work/plan" ] || return
  measured=1
  printf '%-50s' "$heading, median of $rounds"
  for pair in "${pairs[@]}"; do printf ' %10s %10s %7s' "plx $pair" "$pair" ratio; done
  printf ' %7s\n' target
  while IFS=$'\t' read -r program name target; do
    [ "$program" != "$current" ] && echo "$program" && current=$program
    measure "$program" "$name"
    report_case "$name" "$target" || fail "$program, \"$name\": the builds computed different results"
  done < "$work/plan"
  awk '$2 == "behind" { ++behind; next } { sum[$2] += log($1); ++n[$2] } END {
    printf "geometric mean of the ratios:"
    for (pair in n) printf " %.2f of %d with %s,", exp(sum[pair] / n[pair]), n[pair], pair
    printf " behind their target: %d\n", behind }' "$work/ratios"
  echo
}

measured=
run_times() { times "ns per operation" "$source_dir"/*.cpp "$source_dir"/*.c; }

# Exceptions in static programs.
run_static() {
  [ ${#filter[@]} -eq 0 ] || wanted static || return
  [ -f "$prefix/lib/libplx.a" ] || { echo "without static programs: there is no $prefix/lib/libplx.a"; return; }
  local filter=()
  times "ns per operation, static programs" "$source_dir"/{exceptions.cpp,generated.c,mixed.c} -- -static
}

# ---- Growth --------------------------------------------------------------------------------------------------------

# Built by g++ alone: each round takes a minute or two.
run_scaling() {
  wanted scaling || return
  local build round
  for build in "${builds[@]}"; do
    case $build in *gcc) compile "$build" "$source_dir/scaling/scaling.cpp" "$work/scaling.$build" || return ;; esac
  done
  for round in 1 2; do
    for build in plx-gcc gcc; do
      [ -x "$work/scaling.$build" ] && "$work/scaling.$build" | sed "s/\$/\t$build/" >> "$work/growth"
    done
  done
  awk -F '\t' '
    { if (!(($1, $2) in rank)) { rank[$1, $2] = ++rows; row[rows] = sprintf("%-39s %10s", $1, $2) }
      k = rank[$1, $2]; if (!((k, $4) in least) || $3 + 0 < least[k, $4]) least[k, $4] = $3 + 0 }
    function shown(k, build) { return (k, build) in least ? least[k, build] : "-" }
    END { printf "%-50s %10s %10s\n", "ns per operation by size, least of 2", "plx gcc", "gcc"
          for (k = 1; k <= rows; ++k) printf "%s %10s %10s\n", row[k], shown(k, "plx-gcc"), shown(k, "gcc") }' "$work/growth"
  echo
}

# ---- Instructions where nothing is thrown ---------------------------------------------------------------------------

# instructions PROGRAM CASE N: what valgrind counts for N iterations.
instructions() {
  valgrind --tool=callgrind --callgrind-out-file=/dev/null "$1" repeat "$2" "$3" 2>&1 | awk '/Collected/ { print $4 }'
}

run_instructions() {
  wanted instructions || return
  if ! command -v valgrind > "$work/log" 2>&1; then
    echo "instructions per call: skipped, valgrind is not installed"
    return
  fi
  local build name few many
  for build in "${builds[@]}"; do
    [ -x "$work/frames.$build" ] || compile "$build" "$source_dir/frames.cpp" "$work/frames.$build"
  done
  printf '%-50s' "instructions per call"
  printf ' %10s' "${builds[@]}"
  echo
  "$work/frames.${builds[-1]}" list | while IFS=$'\t' read -r name _; do
    printf '%-50s' "$name"
    for build in "${builds[@]}"; do
      few=$(instructions "$work/frames.$build" "$name" 1000)
      many=$(instructions "$work/frames.$build" "$name" 11000)
      printf ' %10s' "$(awk -v few="$few" -v many="$many" 'BEGIN { if (few) printf "%.1f", (many - few) / 10000; else print "-" }')"
    done
    echo
  done
  echo
}

# ---- Sizes, start-up, relocations -----------------------------------------------------------------------------------

# libraries PROGRAM: the C++ run-time libraries that it loads; the C library is common to all.
libraries() { ldd "$1" | sed -nE 's/^.*lib(plx|stdc\+\+|gcc_s|m)\.so[^ ]* => (.*) \(0x[0-9a-f]+\)$/\2/p'; }

# Both take names of files from standard input, one a line.
stripped_size() {
  local file total=0
  while IFS= read -r file; do
    strip -o "$work/stripped" "$file" && total=$((total + $(wc -c < "$work/stripped")))
  done
  echo "$total"
}

relocations() {
  local file
  while IFS= read -r file; do readelf -rW "$file"; done | grep -c ' R_386_'
}

# symbols PROGRAM: how many the dynamic linker looks up before main.
symbols() {
  LD_DEBUG=statistics "$1" 2>&1 > "$work/log" | awk '/total startup/ { start = 1 } start && /number of relocations:/ { print $NF; exit }'
}

# Takes what a linker tells with -t -t; prints the members that it took of the C++ library's archives.
members() { sed -nE 's/^\(.*\/lib(plx|plx_pie|plx_start|stdc\+\+|supc\+\+)\.a\)(.*)$/\2/p' | sort -u; }

# The builds of the small programs: those of the times, and static ones.
declare -a size_builds
prepare_sizes() {
  local build name source
  size_builds=("${builds[@]}")
  for build in "${builds[@]:0:2}"; do
    [[ $build = plx-* && ! -f $prefix/lib/libplx.a ]] || size_builds+=("$build-static")
  done
  for source in "$source_dir"/startup/*.cpp; do
    name=$(program_of "$source")
    for build in "${size_builds[@]}"; do
      case $build in
        *-static) compile "${build%-static}" "$source" "$work/$name.$build" -static -Wl,-t,-t > "$work/trace" || return ;;
        *) compile "$build" "$source" "$work/$name.$build" || return ;;
      esac
      case $build in *-static) members < "$work/trace" > "$work/$name.$build.members" ;; esac
      strip "$work/$name.$build"
    done
  done
}

# size_row LABEL COMMAND...: one value of each build; the command's last argument is the program.
size_row() {
  local label=$1 build
  shift
  printf '%-50s' "$label"
  for build in "${size_builds[@]}"; do printf ' %10s' "$("$@" "$work/$name.$build")"; done
  echo
}
size_of_program() { wc -c < "$1"; }
size_of_libraries() { case $1 in *-static) echo - ;; *) libraries "$1" | stripped_size ;; esac; }
relocations_in_all() { { echo "$1"; case $1 in *-static) ;; *) libraries "$1" ;; esac; } | relocations; }
symbols_looked_up() { case $1 in *-static) echo - ;; *) symbols "$1" ;; esac; }
objects_taken_in() { case $1 in *-static) wc -l < "$1.members" ;; *) echo - ;; esac; }
# once COLUMN PROGRAM: the median of what 41 processes print, in microseconds.
once() { for ((i = 0; i < 41; ++i)); do "$2"; done | sort -n -k "$1,$1" | awk -v column="$1" 'NR == 21 { printf "%.1f", $column / 1000 }'; }
start_up() { awk -v program="$2$([ ! -f "$2.installed" ] || echo .installed)" -v column="$1" '$3 == program { print $column }' "$work/startup"; }

# without_search_path BUILD NAME: NAME.BUILD.installed, linked as where the dynamic linker finds the library by itself.
without_search_path() {
  compile "$1" "$source_dir/startup/$2.cpp" "$work/$2.o" -c &&
    "${CC:-cc}" -m32 -no-pie -s "$work/$2.o" -L"$prefix/lib" -lplx -o "$work/$2.$1.installed" 2> "$work/log"
}

run_size() {
  wanted size || return
  local build name what files=() folder
  prepare_sizes || { fail "the programs of startup/ do not build"; return; }
  "${CC:-cc}" -O2 "$source_dir/startup/spawn.c" -o "$work/spawn" || { fail "startup/spawn.c does not build"; return; }
  for name in hello_throw hello_iostream; do
    for build in "${size_builds[@]}"; do
      case $build in
        plx-*-static | gcc* | clang*) files+=("$work/$name.$build") ;;
        *)
          without_search_path "$build" "$name" || { fail "$name does not link without a search path"; return; }
          files+=("$work/$name.$build.installed:$prefix/lib/libplx.so.3")
          ;;
      esac
    done
  done
  for name in "" -static; do
    "${CC:-cc}" -m32 -O2 $name "$source_dir/startup/hello.c" -o "$work/hello_c$name" && files+=("$work/hello_c$name")
  done
  "$work/spawn" 400 "${files[@]}" > "$work/startup" || fail "a hello fails"
  printf '%-50s' "a hello that throws, one that has <iostream>"
  printf ' %10s' "${size_builds[@]}"
  echo
  for name in hello_throw hello_iostream; do
    what=${name#hello_}
    size_row "$what: the program stripped, bytes" size_of_program
    size_row "$what: its libraries stripped, bytes" size_of_libraries
    size_row "$what: objects of the C++ library in it" objects_taken_in
    size_row "$what: dynamic relocations in all" relocations_in_all
    size_row "$what: symbols looked up at the start" symbols_looked_up
    size_row "$what: from fork to exit, us, least of 400" start_up 1
    size_row "$what: from fork to exit, us, median" start_up 2
  done
  name=first_throw
  size_row "the first throw of a process, us" once 1
  size_row "through 20 frames that are new to it, us" once 2
  echo
  for build in "${builds[@]}"; do
    [[ $build != plx-* && " ${builds[*]} " == *" plx-$build "* ]] && awk -v peer="$build" -v ours="$work/hello_iostream.plx-$build.installed" \
      -v theirs="$work/hello_iostream.$build" '$3 == ours { a = $1; b = $2 } $3 == theirs { c = $1; d = $2 } END {
      printf "hello by <iostream> from fork to exit, of %s'"'"'s time: %.2f by the least, %.2f by the median (target 0.60)\n",
             peer, a / c, b / d }' "$work/startup"
  done
  awk -v c="$work/hello_c" -v ours="$work/hello_iostream.plx-gcc.installed" \
    -v static="$work/hello_iostream.plx-gcc-static" '{ least[$3] = $1 } END {
    printf "hello in C: %s us, static %s us; hello by <iostream> of that: %.2f, static %.2f (target 1.15)\n", least[c],
           least[c "-static"], least[ours] / least[c], least[static] / least[c "-static"] }' "$work/startup"
  [ -f "$work/hello_throw.plx-gcc-static.members" ] || return
  printf '\n%-50s %10s %10s\n' "objects of libplx.a in a static program" throw iostream
  for folder in libC exceptions string containers numbers locale iostream cxxabi unwind; do
    printf '%-50s' "$folder"
    for name in hello_throw hello_iostream; do
      (cd "$source_dir/../$folder" && find . -name '*.cpp' -o -name '*.S') | sed 's/.*\///; s/$/.o/' | sort -u |
        comm -12 - "$work/$name.plx-gcc-static.members" | wc -l | awk '{ printf " %10s", $1 }'
    done
    echo
  done
}

run_times
run_static
run_scaling
run_instructions
run_size
[ -n "$measured" ] || wanted scaling instructions size || fail "nothing is called ${filter[*]}"
[ "$failures" -eq 0 ] || echo "bench: $failures of the measurements failed" >&2
[ "$failures" -eq 0 ]
