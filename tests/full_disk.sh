#!/bin/bash
# On a full disk a command fails with one line and changes nothing; with room again the same command works. Once all
# of the program's files are on the small disk, once only the data files, so that the save itself fails and not
# already its entry in the journal. Returns 77 where no disk can be mounted.
#   usage: full_disk.sh LEDRA
set -euo pipefail
ledra=$1

if [ "${2:-}" != inside ]; then
  root=()
  [ "$(id -u)" = 0 ] || root=(--user --map-root-user)
  if ! unshare "${root[@]}" --mount sh -c 'mount -t tmpfs -o size=1m none /mnt' 2>/dev/null; then
    echo "not run: no file system can be mounted here"
    exit 77
  fi
  exec unshare "${root[@]}" --mount "$0" "$ledra" inside
fi

home=$(mktemp -d)
trap 'umount "$disk" 2>/dev/null || true; rm -rf "$home"' EXIT
fail() { echo "$disk: $*"; exit 1; }
checksums() { (cd "$data" && find . -type f ! -name fill -exec sha256sum {} + | sort); }
fill() { dd if=/dev/zero of="$disk/fill" bs=4k 2>/dev/null || true; }

# expect_refused COMMAND…: it fails, says why in one line, and leaves the data files as they are
expect_refused() {
  local before code=0
  before=$(checksums)
  "$ledra" "$@" >"$home/out" 2>"$home/errors" || code=$?
  [ $code = 1 ] || fail "exit code $code of ${*:0:60}"
  [ "$(wc -l <"$home/errors")" = 1 ] || fail "not one line: $(cut -c1-300 "$home/errors")"
  grep -q "No space left on device" "$home/errors" || fail "another reason: $(cat "$home/errors")"
  [ "$(checksums)" = "$before" ] || fail "the data files have changed"
  [ "$("$ledra" show "$id" --json | sha256sum)" = "$shown" ] || fail "the record reads differently"
}

for place in Ledra Ledra/Data; do
  export XDG_DATA_HOME=$home/$place/data XDG_CONFIG_HOME=$home/$place/config
  data=$XDG_DATA_HOME/Ledra/Data
  disk=$XDG_DATA_HOME/$place
  mkdir -p "$disk"
  mount -t tmpfs -o size=1m none "$disk"
  id=$("$ledra" new invoice --set "recipient.name=Ada")
  shown=$("$ledra" show "$id" --json | sha256sum)
  long=$(head -c 100000 /dev/zero | tr '\0' n)

  fill
  expect_refused set "$id" "note=$long"
  expect_refused new invoice --set "note=$long"
  rm "$disk/fill"
  "$ledra" set "$id" "note=$long" >/dev/null || fail "set fails with room again"
  "$ledra" new invoice --set "note=$long" >/dev/null || fail "new fails with room again"
  [ "$("$ledra" list --json | grep -c '"id"')" = 2 ] || fail "not two records"
  [ -z "$(find "$XDG_DATA_HOME/Ledra/Journal" -type f ! -name lock)" ] || fail "something is left in the journal"
  umount "$disk"
done
