#!/usr/bin/env bash
# Installs the kit into an empty folder, and builds and runs a host against it, by CMake and by pkg-config.
# Usage: run.sh <build folder of the kit> <build type> <1 with web pages, else 0> <qmllint; empty without screens>
#   [<compiler flags>]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
build=$1 type=$2 web=$3 qmllint=$4 flags=${5:-}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export TMPDIR=$work HOME=$work

cmake --install "$build" --prefix "$work/installed" >/dev/null
mv "$work/installed" "$work/kit"  # so that no path of the build can be what makes it work

cmake -S "$here/cmake" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$work/kit" -DCMAKE_BUILD_TYPE="$type" \
  -DWITH_WEB="$web"   -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$work/cmake" >/dev/null
echo "by CMake:"
# A host that ends right after it has reported an event meets the kit's threads at work: it must end well each time.
for _ in {1..20}; do "$work/cmake/packaged-host"; done | sort -u
if [ "$web" = 1 ]; then
  QT_QPA_PLATFORM=offscreen "$work/cmake/packaged-web-host" "$here/Host.qml"
fi
if [ -n "$qmllint" ]; then
  "$qmllint" -I "$(cat "$work/cmake/qml-import-path")" "$here/Host.qml"
  echo "qmllint knows Orrelo"
fi

PKG_CONFIG_PATH=$(dirname "$(find "$work/kit" -name orrelosdk.pc)")
export PKG_CONFIG_PATH
read -ra options <<<"$flags $(pkg-config --cflags --libs orrelosdk)"
"${CXX:-c++}" "$here/host.cpp" "${options[@]}" -Wl,-rpath,"$(pkg-config --variable=libdir orrelosdk)" \
  -o "$work/packaged-by-pkgconfig"
echo "by pkg-config:"
"$work/packaged-by-pkgconfig"
