#!/usr/bin/env bash
# Builds and runs the hosts of this folder against an installed kit, by CMake and by pkg-config.
# Usage: hosts.sh <prefix of the kit> <work folder> <components: core[,quick[,web]]> <build type> [<compiler flags>]
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
prefix=$1 work=$2 components=$3 type=$4 flags=${5:-}
export TMPDIR=$work HOME=$work QT_QPA_PLATFORM=offscreen QT_QUICK_BACKEND=software
has() { [[ ,$components, == *,$1,* ]] && echo 1 || echo 0; }

cmake -S "$here/cmake" -B "$work/cmake" -DCMAKE_PREFIX_PATH="$prefix" -DCMAKE_BUILD_TYPE="$type" \
  -DWITH_QUICK="$(has quick)" -DWITH_WEB="$(has web)" -DCMAKE_CXX_FLAGS="$flags" >/dev/null
cmake --build "$work/cmake" --parallel >/dev/null
echo "by CMake:"
# A host that ends right after it has reported an event meets the kit's threads at work: it must end well each time.
for _ in {1..20}; do "$work/cmake/packaged-host"; done | sort -u
"$work/cmake/packaged-own-host"
if [ "$(has quick)" = 1 ]; then
  "$work/cmake/packaged-quick-host" "$here/Host.qml"
  # An archive has no inspector.
  inspector=$(find "$prefix" -name liborrelo_inspector.so)
  said=$(ORRELO_INSPECTOR=1 ORRELO_LOG=info "$work/cmake/packaged-quick-host" "$here/Host.qml" 2>&1 | grep -i inspector)
  echo "$said"
  [[ $said == *"opens the inspector"* ]] || [ -z "$inspector" ]
fi
[ "$(has web)" = 0 ] || "$work/cmake/packaged-web-host" "$here/Host.qml"

PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name orrelosdk.pc)")
export PKG_CONFIG_PATH
byPkgConfig() {
  local source=$1 module=$2 options
  read -ra options <<<"$flags $(pkg-config --cflags --libs "$module")"
  "${CXX:-c++}" -std=c++20 -fPIC "$here/$source.cpp" "${options[@]}" \
    -Wl,-rpath,"$(pkg-config --variable=libdir "$module")" -o "$work/$source-by-pkgconfig"
}
echo "by pkg-config:"
byPkgConfig host orrelosdk
"$work/host-by-pkgconfig"
if [ "$(has quick)" = 1 ]; then
  byPkgConfig quick_host orrelosdk-quick
  "$work/quick_host-by-pkgconfig" "$here/Host.qml"
fi

for missing in "rocket|component \"rocket\" of OrreloSDK is not installed" "quick|needs Qt6Quick"; do
  [ "${missing%%|*}" = rocket ] || [ "$(has quick)" = 1 ] || continue
  if cmake -S "$here/missing" -B "$work/missing" --fresh -DCMAKE_PREFIX_PATH="$prefix" -DWITHOUT_QT=ON \
    -DCOMPONENT="${missing%%|*}" >/dev/null 2>"$work/missing.txt" ||
    ! tr -s ' \n' ' ' <"$work/missing.txt" | grep -q "${missing#*|}"; then
    echo "CMake does not say: ${missing#*|}" >&2
    cat "$work/missing.txt" >&2
    exit 1
  fi
done
