#!/bin/bash
# A C library that holds the host's C++ library and unwinder, linked and loaded: each side works, exceptions of the one are
# none to the other, and our frames are cleaned up when the other unwinder passes (foreign.cc, foreign_library.cc).
. "$PLX_SOURCE/tests/driver/common.bash"
here=$PLX_SOURCE/tests/unwind
[ -z "${PLX_SANITIZE:-}" ] || { echo "skipped: sanitizers bring the host's unwinder along"; exit 77; }
g++ -m32 -O1 -fPIC -shared "$here/foreign_library.cc" -o libforeign.so || exit 1
common='~ours3 inner 3 line 2 ~foreign3 3 mine
~ours1 main got ours ~ours11 ~ours1 foreign caught theirs 
~ours2 main got 2 ~ours12 ~ours2 foreign caught 2 
backtrace 1 new 1'
for compiler in g++ clang++-14; do
  command -v $compiler > /dev/null || continue
  for flags in -O0 '-O2 -fPIE -pie -DLINKED' '-O2 -no-pie -std=gnu++98 -DLINKED'; do
    library=
    [ "${flags%LINKED}" = "$flags" ] || library="-L. -lforeign -Wl,-rpath,."
    # shellcheck disable=SC2086 # words
    PLX_CXX=$compiler plx-c++ -w $flags "$here/foreign.cc" $library -o program 2> log ||
      { wrong "$compiler $flags: does not build"; continue; }
    while IFS=: read -r how status end; do
      { ./program "$how" ./libforeign.so; } > got 2>&1
      [ $? -eq "$status" ] || wrong "$compiler $flags, $how: status $?, not $status: $(cat got)"
      [ "$(head -n 4 got)" = "$common" ] && grep -q -- "$end" got || wrong "$compiler $flags, $how: $(cat got)"
    done << 'END'
-:0:the library ends
e:0:~ours3 the library ends
c:0:~ours3 ~foreign3 the library ends
n:134:terminate
u:134:uncaught exception of type std::runtime_error: ours
END
  done
done
finish
