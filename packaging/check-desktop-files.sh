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
XDG_DATA_HOME=$work update-mime-database "$work/mime" >"$work/log" 2>&1
if [ -s "$work/log" ]; then
  cat "$work/log" >&2
  exit 1
fi
grep -q 'application/x-packwright-product:\*\.product' "$work/mime/globs"

for page in ../man/*.1; do
  groff -man -Tutf8 -ww -z "$page" 2>"$work/log"
  if [ -s "$work/log" ]; then
    cat "$work/log" >&2
    exit 1
  fi
done
echo "Desktop entry, file type, metainfo, icons and man pages are valid"
