#!/bin/bash
# A clang is checked by running programs when it is first seen, once; one that fails is refused with a message. Unfit
# compilers are played by scripts in front of the real one.
. "$PLX_SOURCE/tests/driver/common.bash"
[ -z "$PLX_SANITIZE" ] || { echo "skipped: what it checks is the same without sanitizers, and much faster"; exit 77; }
real=$(command -v "${PLX_CLANG:-clang-14}")
export XDG_CACHE_HOME=$work/cache
echo 'int main() { return 0; }' > main.cpp

# played NAME LINES: a clang that counts its calls, with LINES before it does the real one's work.
played() {
  printf '#!/bin/sh\necho call >> "%s/calls"\n%s\nexec "%s" "$@"\n' "$work" "$2" "$real" > "$1"
  chmod +x "$1"
  : > calls
}

played sound-clang ''
export PLX_CLANG=$work/sound-clang
plx-c++ main.cpp -o program && ./program || wrong "a sound compiler is refused"
[ "$(wc -l < calls)" -ge 5 ] || wrong "the canary did not run when the compiler was first seen"
: > calls
plx-c++ main.cpp -o program || wrong "a sound compiler is refused the second time"
[ "$(wc -l < calls)" -eq 1 ] || wrong "the canary ran again"
: > calls
plx-c++ -E main.cpp > out && plx-c++ --version > out
[ "$(wc -l < calls)" -eq 2 ] || wrong "the canary runs where nothing is compiled"

# The compiler changed: another size, then another time with the same size.
echo '# more' >> sound-clang
: > calls
plx-c++ main.cpp -o program
[ "$(wc -l < calls)" -ge 5 ] || wrong "a compiler of another size was not checked"
touch -d '2001-01-01' sound-clang
: > calls
plx-c++ main.cpp -o program
[ "$(wc -l < calls)" -ge 5 ] || wrong "an older compiler in the same place was not checked"

# Lost handlers: at -O2 one of the canary's handlers is for another type than what is thrown.
sed 's/catch (int k)/catch (short k)/' "$PLX_PREFIX/share/plx-3/canary/handlers.cpp" > miscompiled.cpp
played unfit-clang 'case " $* " in
  *" -O2 "*canary/handlers.cpp*)
    for arg do
      shift
      case $arg in */handlers.cpp) arg='"$work"'/miscompiled.cpp ;; esac
      set -- "$@" "$arg"
    done ;;
esac'
PLX_CLANG=$work/unfit-clang plx-c++ main.cpp -o never > log 2>&1 && wrong "an unfit compiler is accepted"
grep -q "unfit-clang miscompiles exception handlers (handlers.cpp at -O2: .*uncaught.*): use clang 14" log ||
  wrong "the message about an unfit compiler"
[ ! -f never ] || wrong "an unfit compiler was used"

played wrong-clang 'case " $* " in
  *canary*) exec "'"$real"'" "$@" -fno-exceptions -Dtry= "-Dcatch(x)=if(0)" -Dthrow=return\;int\ unused\[\]= ;;
esac'
PLX_CLANG=$work/wrong-clang plx-c++ main.cpp -o never > log 2>&1 && wrong "a compiler that cannot build is accepted"
grep -q "wrong-clang cannot build handlers.cpp, which checks a clang before it is used" log || wrong "its message"

# Something that is no clang at all.
printf '#!/bin/sh\necho "what is this" >&2\nexit 1\n' > no-clang
chmod +x no-clang
PLX_CLANG=$work/no-clang plx-c++ main.cpp -o never > log 2>&1 && wrong "what is no clang is accepted"
grep -q "what is this" log || wrong "what the compiler says is not shown"

# No place to remember it at home: it works all the same, and the result is kept elsewhere.
played sound-clang ''
export PLX_CLANG=$work/sound-clang TMPDIR=$work/tmp
mkdir tmp
unset XDG_CACHE_HOME
HOME=/dev/null plx-c++ main.cpp -o program || wrong "no cache at home"
: > calls
HOME=/dev/null plx-c++ main.cpp -o program
[ "$(wc -l < calls)" -eq 1 ] || wrong "the result is not kept below TMPDIR"
: > calls
env -u HOME "$PLX_PREFIX/bin/plx-c++" main.cpp -o program
[ "$(wc -l < calls)" -eq 1 ] || wrong "without HOME the result is not kept"
finish
