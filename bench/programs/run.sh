#!/bin/bash
# Whole programs that others wrote, from Debian's sources: built twice at the same level, by plx-c++ and by its compiler
# with the host's library, and run on the same input; what they print must be the same.
#
#   bench/programs/run.sh [--time [N]] [NAME...]     N (7) interleaved runs of each build; the least of their user times
#
# Of each program NAME: package_NAME, Debian's name of its sources; build_NAME, in a folder with them, with CC, CXX and
# STD in the environment; run_NAME, in that folder, prints what is compared and fails when it finds something wrong;
# input_NAME makes what both runs read, once, in the folder $input, with the sources beside it. Builds are kept as long
# as plx does not change. PLX_PREFIX is the build tree or installed prefix, PLX_FOREIGN the folder for all of it.
# shellcheck disable=SC2034 # package_NAME
set -u
export LC_ALL=C
here=$(cd "$(dirname "$0")" && pwd)
prefix=$(cd "${PLX_PREFIX:?}" && pwd) || exit 1
mkdir -p "${PLX_FOREIGN:?}" || exit 1
cache=$(cd "$PLX_FOREIGN" && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/plx-foreign.XXXXXX")
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM
. "$here/sources.bash"
unset CXXFLAGS CFLAGS LDFLAGS MAKEFLAGS MAKELEVEL

times='' rounds=7
if [ "${1:-}" = --time ]; then
  times=1
  shift
  case ${1:-} in [1-9]*) rounds=$1; shift ;; esac
fi

# ---- The programs --------------------------------------------------------------------------------------------------

# troff on a long text: its own manual pages, four times. Of C++ it uses the language only. As it is; its configure
# script wants a tool for documents that are not made.
package_groff=groff
input_groff() {
  mkdir "$input/devps" || return
  cp groff/font/devps/* "$input/devps" 2> /dev/null
  { cat groff/font/devps/DESC.in; echo "papersize a4"; } > "$input/devps/DESC"
  find groff -name '*.man' | sort > pages
  for _ in 1 2 3 4; do xargs cat < pages; done > "$input/pages"
}
build_groff() {
  printf '#!/bin/sh\necho "makeinfo (GNU texinfo) 6.8"\n' > makeinfo
  chmod +x makeinfo
  echo 'built: $(BUILT_SOURCES)' > built.mk
  PATH=$PWD:$PATH ./configure --without-x CFLAGS=-O2 CXX="$CXX $STD" CXXFLAGS=-O2 &&
    make -f Makefile -f built.mk built && make troff
}
run_groff() { ./troff -Tps -man -F "$input" -M tmac "$input/pages"; }

# A solver of formulas, with containers of its own. A friend may not declare a default argument; zlib.h is not needed.
package_minisat=minisat2
input_minisat() {
  awk 'BEGIN {
    variables = 200; clauses = 852; x = 12; print "p cnf", variables, clauses
    for (i = 0; i < clauses; ++i) {
      split("", used); line = ""
      for (k = 0; k < 3;) {
        x = (x * 1103515245 + 12345) % 2147483648; v = int(x / 65536) % variables + 1
        if (v in used) continue
        used[v] = 1; ++k
        x = (x * 1103515245 + 12345) % 2147483648
        line = line (int(x / 65536) % 2 ? "-" : "") v " "
      }
      print line 0
    }
  }' > "$input/formula"
}
build_minisat() {
  printf '%s\n' '#include <stdio.h>' 'typedef FILE *gzFile;' '#define gzopen fopen' '#define gzdopen fdopen' \
    '#define gzclose fclose' '#define gzread(file, to, size) fread(to, 1, size, file)' > zlib.h
  sed -i '/friend Lit mkLit/s/ = false//; /^inline *Lit *mkLit/s/bool sign)/bool sign = false)/' \
    minisat/core/SolverTypes.h
  $CXX $STD -O2 -w -DNDEBUG -D__STDC_LIMIT_MACROS -D__STDC_FORMAT_MACROS -I. minisat/{core,utils}/*.cc -o minisat_core
}
run_minisat() {
  ./minisat_core -verb=0 "$input/formula" model
  case $? in 10) cat model ;; 20) ;; *) return 1 ;; esac
}

# Cryptography: strings, exceptions, streams, maps, virtual bases; its own tests. Without the one function that
# makes a string of wchar_t.
package_cryptopp=libcrypto++
build_cryptopp() {
  sed -i '/^std::wstring StringWiden(const char \*str, bool throwOnError)/,/^}/d' misc.cpp
  sed -i '/^std::wstring StringWiden/d' misc.h
  make -j"$jobs" CXX="$CXX" CXXFLAGS="-O2 -DNDEBUG $STD" static cryptest.exe
}
run_cryptopp() {
  ./cryptest.exe v > tests.log && awk '/^passed/ { ++n } /FAILED/ { print } END { print n, "passed" }' tests.log
}

# Convex hulls by C with a C++ interface: vectors of vectors, exceptions, formatted numbers. A header is missing.
package_qhull=qhull
build_qhull() {
  mkdir -p bin lib
  make -j"$jobs" M32= CC="$CC" CC_OPTS1="-O2 -w -Isrc" CXX="$CXX $STD" CXX_OPTS1="-O2 -w -include stdio.h -Isrc" \
    bin/user_eg3
}
run_qhull() {
  local what
  for what in eg-100 eg-convex eg-delaunay eg-voronoi 'eg-fifo'; do bin/user_eg3 $what; done
  bin/user_eg3 rbox '5000 D3 t1' qhull 'd o' facets
  bin/user_eg3 rbox '1000 D4 t2' eg-convex
}

# Spelling: vectors of strings, streams, maps. As it is; a word list of another package.
package_hunspell="hunspell scowl"
input_hunspell() {
  (cd scowl && ./mk-list -d final --accents=strip en_US 60 2> /dev/null | sort -u |
    perl speller/munch-list munch speller/en.aff) > words
  { wc -l < words; iconv -f latin1 -t utf-8 words; } > "$input/en.dic"
  cp scowl/speller/en.aff "$input"
  cat scowl/final/{english,british,american}-words.* | iconv -f latin1 -t utf-8 > "$input/words"
  awk 'NR % 400 == 0 { print substr($0, 2) "e" }' "$input/words" > "$input/wrong"
}
build_hunspell() {
  ./configure --disable-shared --disable-nls CC="$CC" CXX="$CXX ${STD/98/11}" CXXFLAGS="-O2 -w" CFLAGS=-O2 &&
    make -j"$jobs"
}
run_hunspell() {
  src/tools/hunspell -i utf-8 -d "$input/en" -l "$input/words" &&
    src/tools/hunspell -i utf-8 -d "$input/en" -a "$input/wrong"
}

# The scanner of flex and the parser of bison in C++, whose values are strings, numbers and vectors of them: a calculator
# on 10 MB, twice.
input_calculator() {
  awk 'BEGIN {
    for (i = 0; i < 220000; ++i)
      printf "v%d = (%d + v%d) * %d.5 - max(%d, -v%d / 3, 1e%d)\n", i % 500, i, i % 77, i % 11, i % 97, i % 31, i % 9
  }' > "$input/lines"
}
build_calculator() {
  bison -d -o parser.cc "$here/calculator.yy" && flex -o scanner.cc "$here/calculator.ll" &&
    $CXX $STD -O2 -w -I. -I"$here" parser.cc scanner.cc -o calculator &&
    $CXX ${STD/98/11} -O2 -w -I. -I"$here" parser.cc scanner.cc -o calculator11
}
run_calculator() { ./calculator < "$input/lines" && ./calculator11 < "$input/lines"; }

# Compression: vectors, strings, exceptions; its own tests, and itself. As it is.
package_lzip=lzip
build_lzip() { ./configure CXX="$CXX $STD" CXXFLAGS=-O2 && make; }
run_lzip() { make check > tests.log 2>&1 && cat ./*.cc *.h doc/* | ./lzip -9 | tee packed && ./lzip -d < packed; }

# XML: strings and streams; its own tests, and a reader of 50 MB. As it is.
package_tinyxml=tinyxml
input_tinyxml() {
  awk 'BEGIN {
    print "<?xml version=\"1.0\"?>\n<orders>"
    for (i = 0; i < 40000; ++i)
      printf "  <order id=\"%d\" price=\"%d.25\"><name>Customer %d &amp; sons</name><part no=\"%d\"/>some text</order>\n", i, i % 977, i % 1013, i % 31
    print "</orders>"
  }' > "$input/orders.xml"
}
build_tinyxml() {
  make CXX="$CXX $STD" LD="$CXX" TINYXML_USE_STL=YES RELEASE_CXXFLAGS="-O2 -w" &&
    $CXX $STD -O2 -w -DTIXML_USE_STL -I. "$here/reader.cpp" tinyxml.o tinyxmlparser.o tinyxmlerror.o tinystr.o -o reader
}
run_tinyxml() {
  ./xmltest | tee tests.log && tail -n 2 tests.log | grep -qx 'Pass [1-9][0-9]*, Fail 0' && ./reader "$input/orders.xml"
}

# Mail: streams and their iterators, lists of lists, strings with other traits; its tests are 65 functions. A pointer is
# compared with 0 by `>`, which later dialects made an error; a header is missing.
package_mimetic=mimetic
build_mimetic() {
  sed -i 's/if(m_beg > 0)/if(m_beg != 0)/' mimetic/os/mmfile.cxx
  ./configure --disable-shared --disable-dependency-tracking CXX="$CXX $STD" CXXFLAGS='-O2 -w -include stdint.h' &&
    make -j"$jobs" -C mimetic && make -C test check
}
run_mimetic() { cd test && ./runtest | tee tests.log && grep -q 'Failed  *0  *0' tests.log; }

# Metrics of sources, a program: streams to files, maps, strings, and parsers that it generates. As it is. Debian leaves
# the texts of two tests out.
package_cccc=cccc
build_cccc() { make mini cccc CCC="$CXX $STD" LD="$CXX" CPP="$CC -E"; }
run_cccc() {
  cd test || return
  # shellcheck disable=SC2046
  make -f posix.mak $(ls prn*.cc prn*.java | sed 's/\..*/.do_the_test/') > tests.log 2>&1 || return
  [ "$(grep '^diff prn.*\.dbref' tests.log | tee compared | wc -l)" -ge 13 ] && cat compared
}

timed="groff minisat qhull hunspell cryptopp calculator lzip tinyxml"

# ---- Building and comparing ----------------------------------------------------------------------------------------

failures=0
wrong() {
  echo "wrong: $*"
  failures=$((failures + 1))
}
say() { [ ! -t 1 ] || printf '\r%-60s\r' "$*"; }

# The two builds. Both compilers make code for a fixed address, and C++98 unless the program wants more.
jobs=$(nproc)
host_cxx=${PLX_CXX:-g++}
case $host_cxx in *clang*) host_cc=clang ;; *) host_cc=gcc ;; esac
with() {
  case $1 in
    plx) export CC=$prefix/bin/plx-cc CXX=$prefix/bin/plx-c++ ;;
    host) export CC="${PLX_CC:-$host_cc} -m32 -fno-pie -no-pie" CXX="$host_cxx -m32 -fno-pie -no-pie" ;;
  esac
  export STD=-std=gnu++98
}

# outdated FOLDER: must it be built again?
outdated() {
  [ -f "$1/.built" ] || return 0
  [[ $1 = *.plx && -n $(find -L "$prefix/bin" "$prefix/lib" "$prefix/include" -newer "$1/.built" -print -quit) ]]
}

# prepare NAME: its sources, its input and both builds. Returns 1 when they cannot be had; what does not build is wrong.
prepare() {
  local name=$1 packages package build folder
  packages=package_$name packages=${!packages:-}
  input=$cache/$name.input
  for package in $packages; do
    [ -d "$work/$package" ] || (cd "$work" && fetch_source "$package") || return
  done
  if [ ! -d "$input" ] && declare -F "input_$name" > /dev/null; then
    mkdir "$input"
    (cd "$work" && "input_$name") > "$work/log" 2>&1 || { rm -rf "$input"; return 1; }
  fi
  for build in plx host; do
    folder=$cache/$name.$build
    outdated "$folder" || continue
    say "building $name, $build"
    rm -rf "$folder"
    # Times are kept: what is generated shall not be generated again.
    if [ -n "$packages" ]; then cp -a "$work/${packages%% *}" "$folder"; else mkdir "$folder"; fi
    (with $build; cd "$folder" && "build_$name") > "$cache/$name.$build.log" 2>&1 || {
      wrong "$name: the build by $build fails, see $cache/$name.$build.log"
      return
    }
    touch "$folder/.built"
  done
}

# run NAME BUILD: its output and exit status.
run() { (input=$cache/$1.input; cd "$cache/$1.$2" && "run_$1") > "$cache/$1.$2.out" 2> "$cache/$1.$2.err"; }

compare() {
  local name=$1 build
  for build in plx host; do
    say "running $name, $build"
    run "$name" $build || { wrong "$name: $build ends with status $?, see $cache/$name.$build.err"; return; }
  done
  cmp "$cache/$name.plx.out" "$cache/$name.host.out" || { wrong "$name: the outputs differ"; return; }
  say
  echo "$name: the same output, $(wc -c < "$cache/$name.plx.out") bytes"
}

measure() {
  local name=$1 round build TIMEFORMAT='%U'
  for ((round = 0; round < rounds; ++round)); do
    for build in plx host; do echo "$build $({ time run "$name" $build; } 2>&1)"; done
  done | awk -v name="$name" '
    !($1 in least) || $2 < least[$1] { least[$1] = $2 }
    END { printf "%-12s %8.2f %8.2f %6.2f\n", name, least["plx"], least["host"], least["host"] / least["plx"] }'
}

all=$(declare -F | sed -n 's/^declare -f build_//p' | tr '\n' ' ')
programs=${*:-$all}
for name in $programs; do
  declare -F "build_$name" > /dev/null || { echo "foreign: there is no $name; there are $all" >&2; exit 2; }
done
unavailable='' prepared=''
for name in $programs; do
  before=$failures
  prepare "$name" || { unavailable="$unavailable $name"; continue; }
  [ $failures -ne $before ] || prepared="$prepared $name"
done
say
[ -z "$unavailable" ] || echo "skipped, because apt gives no sources here (is there a network?):$unavailable"
for name in $prepared; do compare "$name"; done
if [ -n "$times" ]; then
  printf '%-12s %8s %8s %6s\n' "user time, s" plx host ratio
  for name in $prepared; do
    case " $timed " in *" $name "*) measure "$name" ;; esac
  done
fi
[ -n "$prepared" ] || [ "$failures" -gt 0 ] || exit 77
[ "$failures" -eq 0 ]
