#!/bin/bash
# Whole programs that others wrote, from Debian's sources: built twice at the same level, by plx-c++ and by its compiler
# with the host's library, and run on the same input; what they print must be the same.
#
#   tests/foreign/run.sh [NAME...]
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

# ---- The programs --------------------------------------------------------------------------------------------------

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

# Compression: vectors, strings, exceptions; its own tests, and itself. As it is.
package_lzip=lzip
build_lzip() { ./configure CXX="$CXX $STD" CXXFLAGS=-O2 && make; }
run_lzip() { make check > tests.log 2>&1 && cat ./*.cc *.h doc/* | ./lzip -9 | tee packed && ./lzip -d < packed; }

# XML: strings and streams. As it is.
package_tinyxml=tinyxml
build_tinyxml() { make CXX="$CXX $STD" LD="$CXX" TINYXML_USE_STL=YES RELEASE_CXXFLAGS="-O2 -w"; }
run_tinyxml() { ./xmltest | tee tests.log && tail -n 2 tests.log | grep -qx 'Pass [1-9][0-9]*, Fail 0'; }

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

# ---- Building and comparing ----------------------------------------------------------------------------------------

failures=0
wrong() {
  echo "wrong: $*"
  failures=$((failures + 1))
}

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

# prepare NAME: its sources, its input and both builds. Fails when they cannot be had; what does not build is wrong.
prepare() {
  local name=$1 packages=package_$1 package build folder
  packages=${!packages} input=$cache/$name.input
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
    rm -rf "$folder"
    cp -a "$work/${packages%% *}" "$folder"  # with its times: what is generated shall not be generated again
    if (with $build; cd "$folder" && "build_$name") > "$folder.log" 2>&1; then
      touch "$folder/.built"
    else
      wrong "$name: the build by $build fails, see $folder.log"
    fi
  done
}

# run NAME BUILD: its output and exit status.
run() { (input=$cache/$1.input; cd "$cache/$1.$2" && "run_$1") > "$cache/$1.$2.out" 2> "$cache/$1.$2.err"; }

compare() {
  local name=$1 build
  for build in plx host; do
    [ -f "$cache/$name.$build/.built" ] || return
    run "$name" $build || { wrong "$name: $build ends with status $?, see $cache/$name.$build.err"; return; }
  done
  cmp "$cache/$name.plx.out" "$cache/$name.host.out" || { wrong "$name: the outputs differ"; return; }
  echo "$name: the same output, $(wc -c < "$cache/$name.plx.out") bytes"
}

all=$(declare -F | sed -n 's/^declare -f build_//p' | tr '\n' ' ')
compared=''
for name in ${*:-$all}; do
  declare -F "build_$name" > /dev/null || { echo "foreign: there is no $name; there are $all" >&2; exit 2; }
  prepare "$name" || { echo "skipped, because apt gives no sources here (is there a network?): $name"; continue; }
  compare "$name"
  compared=1
done
[ -n "$compared" ] || exit 77
[ "$failures" -eq 0 ]
