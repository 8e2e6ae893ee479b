#!/bin/bash
# A C library that holds the host's C++ library and unwinder, linked and opened: each side works, exceptions of the one are
# none to the other, and our frames are cleaned up when the other unwinder passes (foreign.cc).
. "$PLX_SOURCE/tests/driver/common.bash"
here=$PLX_SOURCE/tests/unwind
[ -z "${PLX_SANITIZE:-}" ] || { echo "skipped: sanitizers bring the host's unwinder along"; exit 77; }
g++ -m32 -O0 -w -fPIC -shared -DFOREIGN "$here/foreign.cc" -o libforeign.so || exit 1
common='~ours3 ~ours23 ours caught 3 ~ours13 theirs says 11C(1,0) ours says 11C(1,0) 
~ours1 ~ours21 ours caught ours ~ours11 ~theirs1 ~ours21 ~ours11 ~theirs21 theirs caught theirs ~theirs11 
~ours2 ~ours22 ours caught 2 ~ours12 ~theirs2 ~ours22 ~ours12 ~theirs22 theirs caught 2 ~theirs12 '
for compiler in g++ clang++-14; do
  command -v $compiler > /dev/null || continue
  for flags in '-O2 -fPIE -pie' '-O0 -no-pie -std=gnu++98' '-O0 -DOPENED'; do
    library="-L. -lforeign -Wl,-rpath,."
    [ "${flags%OPENED}" = "$flags" ] || library=
    # shellcheck disable=SC2086 # words
    PLX_CXX=$compiler plx-c++ -w $flags "$here/foreign.cc" $library -o program 2> log ||
      { wrong "$compiler $flags: does not build"; continue; }
    while IFS=: read -r how status end; do
      { ./program "$how"; } > got 2>&1
      [ $? -eq "$status" ] || wrong "$compiler $flags, $how: status $?, not $status: $(cat got)"
      [ "$(head -n 3 got)" = "$common" ] && grep -q -- "$end" got || wrong "$compiler $flags, $how: $(cat got)"
    done << 'END'
-:0:the library ends
e:0:~ours3 the library ends
c:0:~ours3 ~theirs23 ~theirs13 the library ends
n:134:terminate
u:134:uncaught exception of type std::runtime_error: ours
END
  done
done
finish
