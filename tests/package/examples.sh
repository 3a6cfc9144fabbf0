#!/usr/bin/env bash
# Compiles the complete programs in docs, and checks the complete QML pages there with qmllint.
# Usage: examples.sh <prefix of the kit> <work folder> <qmllint> <folder of the installed QML module>
set -euo pipefail
docs=$(cd "$(dirname "$0")/../../docs" && pwd)
prefix=$1 work=$2/examples qmllint=$3 qml=$4
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name orrelosdk.pc)")
export PKG_CONFIG_PATH
read -ra options <<<"$(pkg-config --cflags orrelosdk-quick)"
mkdir -p "$work"
for document in screens entryviews c; do
  # A block is complete if it begins with its includes or imports.
  awk -v prefix="$work/$document" '
    /^```/ { if (file) { close(file); file = "" } else { kind = substr($0, 4); first = 1 }; next }
    first && (kind ~ /^c(pp)?$/ && /^#include/ || kind == "qml" && /^import/) { count++; file = prefix count "." kind }
    { first = 0 } file { print > file }' "$docs/$document.md"
done
for source in "$work"/*.cpp; do
  "${CXX:-c++}" -std=c++20 -fPIC -Wall -Wextra -Werror -fsyntax-only "${options[@]}" "$source"
done
for source in "$work"/*.c; do
  "${CC:-cc}" -std=c11 -pedantic -Wall -Wextra -Werror -fsyntax-only "${options[@]}" "$source"
done
"$qmllint" -I "$qml" "$work"/*.qml
echo "$(find "$work" -name '*.*' -type f | wc -l) examples of docs are complete"
