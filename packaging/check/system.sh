#!/bin/bash
# Inside a bare system, as root: see scripts/check-package.
#   usage: system.sh FILE.deb
set -uo pipefail
package=$1
failures=0
export DEBIAN_FRONTEND=noninteractive

# check NAME COMMAND…: runs it, and shows what it printed only when it fails.
check() {
  local name=$1 output
  shift
  if output=$("$@" 2>&1); then
    echo "ok    $name"
  else
    echo "FAIL  $name"
    sed 's/^/      /' <<<"$output" | tail -n 40
    failures=$((failures + 1))
  fi
}

install() { apt-get install -y -qq --no-install-recommends "$@" >/var/tmp/apt.log 2>&1 || { tail -n 20 /var/tmp/apt.log; return 1; }; }
as_user() { runuser -u tester -- env HOME=/home/tester LC_ALL=C.UTF-8 "$@"; }
same() { [ "$1" = "$2" ] || { echo "\"$1\" is not \"$2\""; return 1; }; }
is_pdf() { head -c 5 "$1" | grep -q '%PDF-'; }

own_files() { # what is left of the package, outside of homes and of dpkg's and apt's own lists
  find / -xdev \( -path /home -o -path /check -o -path /proc -o -path /var/lib/apt -o -path /var/log -o -path /var/cache/apt -o \
    -path /var/tmp \) -prune -o -iname '*ledra*' -print
}

type_of() { gio info -a standard::content-type "$1" | sed -n 's/.*content-type: //p'; }

apt-get update -qq >/dev/null
useradd -m tester

echo "== Installing"
# Nothing but the package and its dependencies: what is forgotten there shows now.
check "apt installs it" install "$package"
examples=/usr/share/doc/ledra/examples
cd /home/tester || exit 1
check "the program starts" as_user ledra --version
check "a document is printed" as_user ledra export $examples/invoice-design-de.json -o letter.pdf
check "it is a PDF" is_pdf letter.pdf
check "a record is made" as_user ledra new invoice --set date=2020-01-31 --item 'Design;1;hour;10'
check "a plugin is installed" as_user ledra plugin install $examples/plugins/bookkeeping.ledraplugin
check "its script runs, so the runner is found" as_user ledra plugin run bookkeeping exportInvoices -o bookings.csv

echo "== The files for desktops"
check "tools" install desktop-file-utils appstream lintian man-db libglib2.0-bin bash-completion file
check "desktop file" desktop-file-validate /usr/share/applications/de.ledra.Ledra.desktop
check "its types are known" grep -q 'x-scheme-handler/ledra=de.ledra.Ledra.desktop' /usr/share/applications/mimeinfo.cache
check "metainfo" appstreamcli validate --no-net /usr/share/metainfo/de.ledra.Ledra.metainfo.xml
as_user ledra profile export -o data.ledradata >/dev/null
as_user ledra styling set accentColor=C8360B
as_user ledra styling export -o look.ledrastyle >/dev/null
cp look.ledrastyle plugin.ledraplugin.zip
check "type of data files" same "$(type_of data.ledradata)" application/x-ledra-data
check "type of style files" same "$(type_of look.ledrastyle)" application/x-ledra-style
check "type of plugins" same "$(type_of plugin.ledraplugin.zip)" application/x-ledra-plugin
# A minimal Debian leaves manual pages out when it unpacks a package; the page is looked at as it is in the package.
unpacked=$(mktemp -d)
dpkg-deb -x "$package" "$unpacked"
check "manual page" same "$(man --warnings -l "$unpacked"/usr/share/man/man1/ledra.1.gz 2>&1 >/dev/null)" ""
check "bash completion" bash -c '. /usr/share/bash-completion/completions/ledra && complete -p ledra'
check "lintian" lintian --allow-root --fail-on error "$package"

echo "== In a session"
check "tools" install xvfb xdotool dbus dbus-x11 at-spi2-core python3-pyatspi procps
runuser -u tester -- env -i PATH="$PATH" HOME=/home/tester LC_ALL=C.UTF-8 LANG=C.UTF-8 bash /check/session.sh 2>/var/tmp/session.log || {
  failures=$((failures + 1))
  tail -n 20 /var/tmp/session.log
}

echo "== Upgrading and removing"
before=$(find /home/tester/.local/share/Ledra -type f -exec sha256sum {} + | sort)
check "upgrade over itself" dpkg -i "$package"
check "the program still starts" as_user ledra --version
check "dpkg removes it" dpkg -P ledra
check "nothing is left of it" same "$(own_files)" ""
check "no list of types names it" same "$(grep -rl 'ledra' /usr/share/applications /usr/share/mime 2>/dev/null)" ""
check "what the user wrote is untouched" same "$(find /home/tester/.local/share/Ledra -type f -exec sha256sum {} + | sort)" "$before"

if [ $failures = 0 ]; then echo "All is well."; else echo "$failures checks failed."; exit 1; fi
