#!/bin/bash
# Programs that know nothing of plx, from Debian's sources, built by plx-c++ of an installed prefix and tested by their own
# tests. Their sources are fetched by apt and kept in the build tree; where apt has none, the test is skipped. What had to
# be changed in a program stands beside it.
. "$PLX_SOURCE/tests/install/common.bash"
need apt-get make tar xz timeout
cache=$PLX_PREFIX/foreign
mkdir -p "$cache"

# A set-up of apt of its own: this machine's is not changed, and sources of programs are often not among its own.
# Fails where the machine's main source of packages is not Debian's.
own_apt() {
  local site suite keys=/usr/share/keyrings/debian-archive-keyring.gpg
  local codename=
  [ ! -r /etc/os-release ] || codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
  read -r site suite < <(apt-get indextargets --format '$(SITE) $(RELEASE) $(COMPONENT)' "Created-By: Packages" 2> /dev/null |
    awk -v codename="$codename" '$3 == "main" && $2 ~ "^(" codename "|stable|testing|unstable|sid)$" { print; exit }')
  [ -n "$suite" ] || return 1
  mkdir -p apt/lists/partial apt/cache/archives/partial apt/parts
  echo "deb-src $([ ! -f $keys ] || echo "[signed-by=$keys]") $site ${suite%% *} main" > apt/sources.list
  cat > apt/apt.conf << END
Dir::Etc::sourcelist "$work/apt/sources.list";
Dir::Etc::sourceparts "$work/apt/parts";
Dir::State::lists "$work/apt/lists";
Dir::Cache "$work/apt/cache";
Acquire::Languages "none";
Acquire::Retries "0";
Acquire::http::Timeout "10";
Acquire::https::Timeout "10";
APT::Sandbox::User "root";
END
  export APT_CONFIG=$work/apt/apt.conf
  timeout 60 apt-get -qq update > log 2>&1
}

# fetch NAME: its sources are in the folder NAME.
fetch() {
  local archive
  for archive in "$cache/$1"_*.orig.tar.*; do
    if [ ! -f "$archive" ]; then
      [ "${apt:=$(own_apt && echo works)}" = works ] || return 1
      rm -rf fetched && mkdir fetched
      (cd fetched && APT_CONFIG=$work/apt/apt.conf timeout 20 apt-get -qq source --tar-only "$1" && rm -f ./*.asc) \
        > log 2>&1 || return 1
      mv fetched/*.orig.tar.* "$cache" || return 1
      archive=$(echo "$cache/$1"_*.orig.tar.*)
    fi
    mkdir "$1" && tar -xf "$archive" -C "$1" --strip-components=1
    return
  done
}

# Compression: vectors, strings, exceptions. As it is.
try_lzip() {
  ./configure CXX=plx-c++ CXXFLAGS=-O1 && make && make check && tail -n 1 "$work/log" | grep -q 'completed successfully'
}

# XML: strings and streams. As it is.
try_tinyxml() {
  make CXX=plx-c++ LD=plx-c++ TINYXML_USE_STL=YES RELEASE_CXXFLAGS=-w && ./xmltest | tail -n 2 | grep -x 'Pass [1-9][0-9]*, Fail 0'
}

# Mail: streams and their iterators, lists of lists, strings with other traits. Its tests are 65 functions.
try_mimetic() {
  # A pointer is compared with 0 by `>`, which later dialects made an error.
  sed -i 's/if(m_beg > 0)/if(m_beg != 0)/' mimetic/os/mmfile.cxx
  # uint32_t without a header that declares it.
  ./configure --disable-shared --disable-dependency-tracking CC=plx-cc CXX=plx-c++ CXXFLAGS='-O0 -w -include stdint.h' &&
    make -C mimetic && make -C test && grep -q 'Failed  *0  *0' "$work/log"
}

# Metrics of sources, a program: streams to files, maps, strings, and parsers that it generates. As it is.
try_cccc() {
  make mini cccc CC=plx-cc CCC=plx-c++ LD=plx-c++ CPP="plx-cc -E" || return
  cd test || return
  # Debian leaves the texts of two tests out.
  # shellcheck disable=SC2046
  make -f posix.mak $(ls prn*.cc prn*.java | sed 's/\..*/.do_the_test/') &&
    [ "$(grep -c '^diff prn.*\.dbref' "$work/log")" -ge 13 ]
}

programs="lzip tinyxml mimetic cccc" missing=
for program in $programs; do fetch "$program" || missing="$missing $program"; done
if [ "$missing" = " $programs" ]; then
  echo "skipped: apt has no sources here"
  exit 77
fi
[ -z "$missing" ] || echo "not tested, because apt does not give them:$missing"

moved_prefix
for program in $programs; do
  [ -d "$program" ] || continue
  (cd "$program" && "try_$program") > "$work/log" 2>&1 || { tail -n 40 log > end; mv end log; wrong "$program"; }
done
finish
