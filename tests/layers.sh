#!/bin/sh
# Refuses an include that leads from one folder of src/ into a folder it may not see.
#   usage: layers.sh SRC
# The table is the one of docs/architecture.md. Before the tree is judged, the check judges a small tree of its own
# that breaks the rules, so that it cannot pass by being blind.
set -eu

allowed() {
  case "$1" in
    platform|model) echo "$1" ;;
    store) echo "store model platform" ;;
    render) echo "render model store platform" ;;
    einvoice) echo "einvoice model platform" ;;
    exchange) echo "exchange model store einvoice platform" ;;
    plugins) echo "plugins model store platform" ;;
    textparser) echo "textparser model platform" ;;
    app) echo "app render einvoice exchange plugins textparser store model platform" ;;
    cli|ui) echo "$1 app render einvoice exchange plugins textparser store model platform" ;;
  esac
}

# Libraries that only the named folder may include, as "pattern:folder folder".
reserved='<qpdf/:platform <zip:platform <simdjson:store <expat:einvoice <zlib:platform <fontconfig:render <QWebEngine:render,ui <QtWidgets:ui <jsc/:plugins <seccomp:plugins'

judge() {
  root=$1
  broken=0
  for folder in "$root"/*/; do
    name=$(basename "$folder")
    may=$(allowed "$name")
    if [ -z "$may" ]; then
      echo "src/$name: a folder that the table of layers does not know"
      broken=1
      continue
    fi
    for file in $(find "$folder" -name '*.h' -o -name '*.cpp'); do
      for target in $(sed -n 's|^#include "\([a-z]*\)/.*|\1|p' "$file" | sort -u); do
        case " $may " in
          *" $target "*) ;;
          *) echo "$file: $name may not include $target/"; broken=1 ;;
        esac
      done
      for rule in $reserved; do
        case ",${rule#*:}," in
          *",$name,"*) ;;
          *) if grep -q "^#include ${rule%%:*}" "$file"; then
               echo "$file: only ${rule#*:} may include ${rule%%:*}…>"; broken=1
             fi ;;
        esac
      done
    done
  done
  return $broken
}

trial=$(mktemp -d)
trap 'rm -rf "$trial"' EXIT
mkdir -p "$trial/model" "$trial/render" "$trial/attic"
echo '#include "store/json_reader.h"' > "$trial/model/upwards.h"
echo '#include <qpdf/QPDF.hh>' > "$trial/render/foreign.cpp"
found=$(judge "$trial" || true)
for expected in 'model may not include store/' 'only platform may include <qpdf/' 'does not know'; do
  case "$found" in
    *"$expected"*) ;;
    *) echo "the check is blind to: $expected"; exit 2 ;;
  esac
done

judge "$1"
