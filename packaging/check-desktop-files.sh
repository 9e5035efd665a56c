#!/bin/sh
# Validates what tells desktops about Packwright: the entry, the file type, the metainfo, the icons
# and the man pages.
set -eu
cd "$(dirname "$0")/linux"

desktop-file-validate packwright.desktop
# "pedantic" hints (a homepage, a release list) are for shops; anything above them fails.
appstreamcli validate --no-net --explain org.packwright.Packwright.metainfo.xml
xmllint --noout packwright-symbolic.svg ../../resources/icons/*.svg

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/mime/packages"
cp packwright-mime.xml "$work/mime/packages/packwright.xml"
update-mime-database "$work/mime" >"$work/log" 2>&1
if [ -s "$work/log" ]; then
  cat "$work/log" >&2
  exit 1
fi
grep -q 'application/x-packwright-product:\*\.product' "$work/mime/globs"

for page in ../man/*.1; do
  LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null | tee "$work/man"
  [ ! -s "$work/man" ]
done
