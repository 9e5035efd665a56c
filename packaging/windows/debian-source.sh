#!/bin/sh
# Fetches Debian source packages into a folder and unpacks them there.
#
#   debian-source.sh FOLDER PACKAGE...
#
# The system's apt configuration stays as it is: Debian's own entries of it (one-line or deb822;
# never other parties') become source entries of a private configuration in FOLDER/apt.
set -eu
folder=$1
shift
apt=$folder/apt
mkdir -p "$apt/lists/partial"

keyring=/usr/share/keyrings/debian-archive-keyring.gpg
option=""
[ ! -f $keyring ] || option="[signed-by=$keyring] "

# Origin is known once the package lists are there: a fresh machine may have none yet.
list_entries() {
  # shellcheck disable=SC2016
  apt-get indextargets --format '$(ORIGIN)|$(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' | sed -n "s#^Debian|#deb-src $option#p" | sort -u
}
list_entries >"$apt/sources.list"
if [ ! -s "$apt/sources.list" ] && [ "$(id -u)" = 0 ]; then
  apt-get -q update
  list_entries >"$apt/sources.list"
fi
if [ ! -s "$apt/sources.list" ]; then
  echo "No package source of Debian is configured (or apt-get update never ran)." >&2
  exit 1
fi

private_apt() {
  apt-get -q -o Dir::Etc::SourceList="$apt/sources.list" -o Dir::Etc::SourceParts=- \
    -o Dir::State::Lists="$apt/lists" -o Dir::Cache="$apt" -o APT::Sandbox::User="$(id -un)" \
    -o Acquire::Retries=3 "$@"
}
private_apt update
cd "$folder"
private_apt source "$@"
