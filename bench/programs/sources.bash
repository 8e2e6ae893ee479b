# Sources of Debian's packages: `fetch_source PACKAGE` puts one into the current directory, as a folder of its name.
# Archives are kept in $cache. Fails where apt has no Debian sources or there is no network.

# own_apt: a set-up of apt of its own in $work: this machine's is not changed, and sources are often not among its own.
# Fails where the machine's main source of packages is not Debian's.
own_apt() {
  local site suite keys=/usr/share/keyrings/debian-archive-keyring.gpg
  local codename=
  [ ! -r /etc/os-release ] || codename=$(. /etc/os-release && echo "${VERSION_CODENAME:-}")
  # shellcheck disable=SC2016 # apt's own
  read -r site suite < <(apt-get indextargets --format '$(SITE) $(RELEASE) $(COMPONENT)' "Created-By: Packages" \
    2> /dev/null | awk -v codename="$codename" \
      '$3 == "main" && $2 ~ "^(" codename "|stable|testing|unstable|sid)$" { print; exit }')
  [ -n "$suite" ] || return 1
  mkdir -p "$work"/apt/lists/partial "$work"/apt/cache/archives/partial "$work"/apt/parts
  echo "deb-src $([ ! -f $keys ] || echo "[signed-by=$keys]") $site ${suite%% *} main" > "$work/apt/sources.list"
  cat > "$work/apt/apt.conf" << END
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
  APT_CONFIG=$work/apt/apt.conf timeout 60 apt-get -qq update
}

fetch_source() {
  local archive
  for archive in "$cache/$1"_*.orig.tar.*; do
    if [ ! -f "$archive" ]; then
      [ "${apt:=$(own_apt > "$work/apt.log" 2>&1 && echo works || echo fails)}" = works ] || return 1
      rm -rf "$work/fetched" && mkdir "$work/fetched"
      (cd "$work/fetched" && APT_CONFIG=$work/apt/apt.conf timeout 120 apt-get -qq source --tar-only "$1" &&
        rm -f ./*.asc) > "$work/apt.log" 2>&1 || return 1
      mv "$work"/fetched/*.orig.tar.* "$cache" || return 1
      archive=$(echo "$cache/$1"_*.orig.tar.*)
    fi
    mkdir "$1" && tar -xf "$archive" -C "$1" --strip-components=1
    return
  done
}
