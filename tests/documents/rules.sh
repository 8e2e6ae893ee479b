#!/bin/bash
# The rules that CONTRIBUTING.md states for the library's sources and that no compiler checks: who may touch the eh stack,
# no exceptions syntax, comments at the top, nobody's own paths. data/rules has a command for each.
. "$PLX_SOURCE/tests/driver/common.bash"
cd "$PLX_SOURCE" || exit 1
sources() { find libC exceptions string containers numbers locale iostream cxxabi unwind -name '*.cpp' -o -name '*.h'; }
headers() { find include ! -name '*.md' ! -name '.*' -type f; }
syntax() { plx-c++ -nostdinc++ -I include -fno-exceptions -fsyntax-only -x c++ "$@" - 2>&1 | grep error; }
table < tests/documents/data/rules
finish
