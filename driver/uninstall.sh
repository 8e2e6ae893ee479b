#!/bin/sh
# uninstall.sh PREFIX: removes what install.sh put below PREFIX, an absolute path; DESTDIR is put before it. Called by
# `./dev uninstall`. Other files stay, and the directories that they are in.
set -eu
target=${DESTDIR:-}$1
manifest=share/plx-3/install-manifest
export LC_ALL=C

fail() {
  printf 'dev: uninstall: %s\n' "$*" >&2
  exit 1
}

[ -d "$target" ] || fail "there is no directory $target"
[ -f "$target/$manifest" ] || fail "nothing that ./dev install put there is below $target (no $manifest)"
# It is read before anything goes; a list that was tampered with must not lead elsewhere.
list=$(sort -ru "$target/$manifest")
case "
$list/" in
  *"
/"* | *..* ) fail "$target/$manifest is damaged" ;;
esac

# Files first. The list goes with the last of them, so that a removal that fails can be repeated.
printf '%s\n' "$list" | grep -vxF $manifest | while read -r path; do
  case $path in
    */ | '') ;;
    *) rm -f -- "$target/$path" || fail "cannot remove $target/$path" ;;
  esac
done
rm -f "$target/$manifest" || fail "cannot remove $target/$manifest"
# In this order the inner directories come before the outer ones.
printf '%s\n' "$list" | grep '/$' | while read -r directory; do
  [ "$directory" != ./ ] && path=$target/${directory%/} || path=$target
  if [ -d "$path" ] && [ ! -h "$path" ]; then
    rmdir --ignore-fail-on-non-empty "$path" || fail "cannot remove $path"
  fi
done
echo "removed from $target"
