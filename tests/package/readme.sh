#!/usr/bin/env bash
# Does what the quick start of README says, with the installed kit: starts the local service, pastes the field that the
# service prints into the program, runs it, and looks for its events at the service.
# Usage: readme.sh <prefix of the kit> <work folder> [<compiler flags>]
set -euo pipefail
readme=$(cd "$(dirname "$0")/../.." && pwd)/README.md
prefix=$1 work=$2/readme flags=${3:-}
mkdir -p "$work"
export HOME=$work
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name orrelosdk.pc)")
export PKG_CONFIG_PATH

coproc service { exec "$prefix/bin/orrelo-devservice" --port 0 --data "$work/service"; }
servicePid=$service_PID
trap 'kill $servicePid' EXIT
read -r _ _ url <&"${service[0]}"

field=$("$prefix/bin/orrelo-devservice" --print-cpp --port "${url##*:}" --data "$work/service")
awk -v field="$field" '
  /^```/ { if (inside) exit; inside = ($0 == "```cpp"); next }
  inside && /\.developmentService =/ { print field; pasted = 1; next }
  inside { print }
  END { exit !pasted }' "$readme" >"$work/shop.cpp"
read -ra options <<<"$flags $(pkg-config --cflags --libs orrelosdk)"
"${CXX:-c++}" -std=c++20 -Wall -Wextra -Werror "$work/shop.cpp" "${options[@]}" \
  -Wl,-rpath,"$(pkg-config --variable=libdir orrelosdk)" -o "$work/shop"
timeout 60 "$work/shop"
curl -sS --cacert "$work/service/certificate.pem" "$url/admin/state" >"$work/state.json"
for event in ol_set_user_profile purchase; do
  grep -q "$event" "$work/state.json" || { echo "the quick start's event $event did not arrive" >&2; exit 1; }
done
echo "the quick start's events arrived"
