#!/bin/bash
# A program that knows nothing of plx, from Debian's sources, built by the drivers of an installed prefix: it passes its
# own tests, and prints what it prints with the host's library. `./dev foreign` has more of them. Where apt gives no
# sources, the test is skipped; they are kept in the build tree.
. "$PLX_SOURCE/tests/install/common.bash"
need apt-get make tar timeout
kept=$PLX_PREFIX/foreign
moved_prefix
mkdir -p "$kept" foreign
cp "$kept"/*.orig.tar.* foreign 2> log
PLX_PREFIX=$prefix PLX_FOREIGN=$work/foreign "$PLX_SOURCE/bench/programs/run.sh" tinyxml
status=$?
cp foreign/*.orig.tar.* "$kept" 2> log
exit $status
