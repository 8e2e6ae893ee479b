# What the tests of the installation share: ./dev of this checkout for the build tree under test, and a prefix that was
# installed elsewhere and moved.
. "$PLX_SOURCE/tests/driver/common.bash"
export PLX_PRESET=${PLX_PREFIX##*/} PLX_BUILD=${PLX_PREFIX%/*}
unset DESTDIR CXX CC CXXFLAGS CFLAGS LDFLAGS MAKEFLAGS MAKELEVEL PKG_CONFIG_PATH

dev() { "$PLX_SOURCE/dev" "$@" > "$work/log" 2>&1; }

# Sets `prefix`, with its drivers first in PATH.
moved_prefix() {
  dev install "$work/first place" || { wrong "./dev install"; finish; }
  mv "$work/first place" "$work/moved"
  prefix=$work/moved
  PATH=$prefix/bin:$PATH
}

# need COMMAND...: skips the test where one of them is not there.
need() {
  local tool
  for tool; do command -v "$tool" > /dev/null || { echo "skipped: there is no $tool"; exit 77; }; done
}
