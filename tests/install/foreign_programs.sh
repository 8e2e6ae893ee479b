#!/bin/bash
# A program that knows nothing of plx, from Debian's sources, built by the drivers of an installed prefix: it passes its own
# tests, and prints what it prints with the host's library. `./dev foreign` has more of them. Where apt gives no sources, the
# test is skipped.
. "$PLX_SOURCE/tests/install/common.bash"
need apt-get make tar timeout
moved_prefix
PLX_PREFIX=$prefix PLX_FOREIGN=$PLX_PREFIX/foreign "$PLX_SOURCE/tests/foreign/run.sh" tinyxml
