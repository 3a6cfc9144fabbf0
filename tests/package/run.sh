#!/usr/bin/env bash
# Installs the kit into an empty folder, moves it, builds and runs hosts and programs there, and uninstalls it.
# Usage: run.sh <build folder of the kit> <build type> <components: core[,quick[,web]]> <qmllint; empty without screens>
#   [<compiler flags>]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 type=$2 components=$3 qmllint=$4 flags=${5:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake --install "$build" --prefix "$work/installed" >/dev/null
cp "$build/install_manifest.txt" "$work"
mv "$work/installed" "$work/kit"  # so that no path of the build can be what makes it work

"$here/hosts.sh" "$work/kit" "$work" "$components" "$type" "$flags"
if [ -n "$qmllint" ]; then
  "$qmllint" -I "$(cat "$work/cmake/qml-import-path")" "$here/Host.qml"
  echo "qmllint knows Orrelo"
  "$here/examples.sh" "$work/kit" "$work" "$qmllint" "$(cat "$work/cmake/qml-import-path")"
fi
if [ -e "$work/kit/bin/orrelo-devservice" ]; then
  "$here/tools.sh" "$work/kit" "$work"
  "$here/readme.sh" "$work/kit" "$work" "$flags"
fi

mv "$work/kit" "$work/installed"
cmake -D MANIFEST="$work/install_manifest.txt" -P "$here/../../cmake/Uninstall.cmake" >/dev/null
if [ ! -d "$work/installed" ] || [ -n "$(ls -A "$work/installed")" ]; then
  echo "uninstalling does not leave the empty prefix, but:" >&2
  find "$work/installed" >&2
  exit 1
fi
