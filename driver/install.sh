#!/bin/sh
# install.sh BUILD PREFIX: installs the build tree BUILD below PREFIX, an absolute path; DESTDIR is put before it. Called
# by `./dev install`.
#
# What was installed is listed in PREFIX/share/plx-3/install-manifest, for uninstall.sh: a path below PREFIX in each line,
# directories with a slash at the end, and only those that were not there before. An installation over an older one
# removes what the older one had and this one has not.
set -eu
umask 022
build=$1 prefix=$2
target=${DESTDIR:-}$prefix
manifest=share/plx-3/install-manifest

fail() {
  printf 'dev: install: %s\n' "$*" >&2
  exit 1
}

# Look before the work, at the directory that is there already.
nearest=$target
while [ ! -e "$nearest" ] && [ ! -h "$nearest" ]; do nearest=$(dirname "$nearest"); done
[ -d "$nearest" ] || fail "$nearest is not a directory"
[ -w "$nearest" ] || fail "no permission to write to $nearest"

stage=$(mktemp -d) || fail "cannot make a temporary directory"
trap 'rm -rf "$stage"' EXIT
trap 'exit 130' INT TERM
DESTDIR=$stage/files cmake --install "$build" --prefix "$prefix" > "$stage/log" 2>&1 || {
  cat "$stage/log" >&2
  fail "CMake failed"
}
cd "$stage/files$prefix"
export LC_ALL=C
mkdir -p share/plx-3
: > $manifest
find . ! -type d | sed 's|^\./||' | sort > "$stage/new"
find . -type d | sed 's|^\.$|./|; s|^\./\(.\)|\1|; s|[^/]$|&/|' | sort > "$stage/directories"

: > "$stage/old"
[ ! -f "$target/$manifest" ] || sort "$target/$manifest" > "$stage/old"
# Directories are ours when they are made now, or were when an older installation made them.
while read -r directory; do
  if [ ! -d "$target/$directory" ] || grep -qxF -- "$directory" "$stage/old"; then echo "$directory"; fi
done < "$stage/directories" > "$stage/ours"
grep '/$' "$stage/old" > "$stage/kept" || :
sort -u "$stage/new" "$stage/ours" "$stage/kept" > $manifest

# The list comes first: an installation that is broken off can then be removed.
mkdir -p "$target/share/plx-3" || fail "cannot make $target/share/plx-3"
cp $manifest "$target/$manifest.new" || fail "cannot write to $target"
cat "$stage/old" >> "$target/$manifest.new"
mv -f "$target/$manifest.new" "$target/$manifest"

while read -r directory; do
  mkdir -p "$target/$directory" || fail "cannot make $target/$directory"
  # Files in use are replaced, not written over.
  find "$directory" -maxdepth 1 ! -type d \
    -exec cp -P --preserve=mode,timestamps --remove-destination -t "$target/$directory" {} + ||
    fail "cannot write to $target/$directory"
done < "$stage/directories"

comm -13 "$stage/new" "$stage/old" | grep -v '/$' | while read -r file; do rm -f "$target/$file"; done
echo "installed below $target"
