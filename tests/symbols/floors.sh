#!/bin/bash
# Folders are floors, from below; rooms of one floor are joined by a comma. Sources: an object needs no symbol that only
# a higher floor defines, but for those listed below. Headers: none includes one of a higher floor.
. "$PLX_SOURCE/tests/driver/common.bash"
sources="libC,cxxabi unwind string exceptions containers numbers locale iostream"
headers="base string,algorithms containers,numerics locale streambuf facets iostream"

# What a lower floor asks of a higher one by a declaration of its own. The language's own exceptions, and those of
# strings, hold strings (libC/above.h, string/representation.h). Facets read stream buffers: through one class, and by
# inline members that know the vtable of file buffers.
asked="__default_new_handler __throw_bad_cast __throw_bad_typeid _ZN5__zor25oldest_needed_destructionE
  _ZN5__zor20set_up_bad_exceptionEv _ZN5__zor10message_ofEPvPK16a_type_info_impl
  _ZN5__zor17fail_out_of_rangeEv _ZN5__zor11fail_lengthEv _ZN5__zor20_string_out_of_rangeEv
  _ZN5__zor17_streambuf_source6_fetchEPNS_17_character_sourceE _ZN5__zor17_streambuf_source7_finishEv"
inlined='^locale/.* _Z(TVSt13basic_filebuf|NK?St15basic_streambuf)'

floors_of='function floors_of(list, a, b, i, j, n) {
  n = split(list, a, " ")
  for (i = 1; i <= n; i++) { split(a[i], b, ","); for (j in b) floor[b[j]] = i }
}'

cd "$PLX_SOURCE" || exit 1
# Objects of sources that are gone may still lie there.
found=$(cd "$PLX_PREFIX/CMakeFiles" && find plx_common.dir plx.dir -name '*.o' | while read -r object; do
  source=${object#*/}
  [ ! -f "$PLX_SOURCE/${source%.o}" ] || echo "$object"
done | xargs nm -AP | sed 's|^[^/]*/||; s|\.o: | |' | awk -v list="$sources" -v asked="$asked" -v inlined="$inlined" "$floors_of"'
  BEGIN { floors_of(list); n = split(asked, a, /[ \n]+/); for (i = 1; i <= n; i++) listed[a[i]] = 1 }
  { from = $1; sub(/\/.*/, "", from); count[from]++; if (!(from in floor)) floor[from] = 99 }
  $3 == "U" { needs[$1 " " $2]; next }
  $3 ~ /[A-Wu]/ && (!($2 in at) || floor[from] < floor[at[$2]]) { at[$2] = from }
  END {
    for (need in needs) {
      split(need, a, " "); from = a[1]; sub(/\/.*/, "", from)
      if (!(a[2] in at) || floor[at[a[2]]] <= floor[from]) continue
      if (a[2] in listed) met[a[2]] = 1
      else if (need !~ inlined) print a[1] " needs " a[2] " of " at[a[2]]
    }
    for (name in listed) if (name != "" && !(name in met)) print name " is listed, and nobody asks for it"
    for (name in count) if (floor[name] == 99) print name " is on no floor"
    if (length(count) < 7) print "objects are missing"
  }' | sort)
[ -z "$found" ] || wrong "an object needs what stands above it: $found"

found=$(grep -HE '^ *# *include <plx/[a-z]+/' include/plx/*/*.h | sed -E 's|^include/(plx/([a-z]+)/[^:]*):.*<plx/([a-z]+)/.*|\1 \2 \3|' |
  awk -v list="$headers" "$floors_of"'
  BEGIN { floors_of(list) }
  !($2 in floor) || !($3 in floor) || floor[$3] > floor[$2] { print $1 " includes what is in " $3 }
  END { if (NR < 100) print "headers are missing" }')
[ -z "$found" ] || wrong "a header includes what stands above it: $found"
finish
