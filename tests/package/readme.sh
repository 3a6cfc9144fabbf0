#!/usr/bin/env bash
# Follows the quick start of README with the installed kit and README's own commands: starts the local service, pastes the
# field that the service prints into the program, compiles and runs it, compares what it says with what README promises, and
# looks for its events at the service.
# Usage: readme.sh <prefix of the kit> <work folder> [<compiler flags>]
set -euo pipefail
readme=$(cd "$(dirname "$0")/../.." && pwd)/README.md
prefix=$1 work=$2/readme flags=${3:-}
mkdir -p "$work"
cd "$work"
export HOME=$work
ln -sfn "$prefix" "$HOME/orrelo"

# The only command of README that begins so.
commandOf() {
  local lines
  lines=$(grep -F "    $1" "$readme") && [ "$(wc -l <<<"$lines")" = 1 ] || { echo "README lacks one line: $1" >&2; exit 1; }
  echo "$lines"
}
settings=$(commandOf 'export PATH=')
compile=$(commandOf 'c++ -std=')
run=$(commandOf 'ORRELO_LOG=info ./shop')
eval "$settings"

coproc service { exec orrelo-devservice --port 0 --data "$work/service"; }
servicePid=$service_PID
trap 'kill $servicePid' EXIT
read -r _ _ url <&"${service[0]}"

field=$(orrelo-devservice --print-cpp --port "${url##*:}" --data "$work/service")
awk -v field="$field" '
  /^```/ { if (inside) exit; inside = ($0 == "```cpp"); next }
  inside && /\.developmentService =/ { print field; pasted = 1; next }
  inside { print }
  END { exit !pasted }' "$readme" >shop.cpp
c++() {
  local options
  read -ra options <<<"-Wall -Wextra -Werror $flags"
  command "${CXX:-c++}" "${options[@]}" "$@"
}
eval "$compile"
eval "timeout 60 env $run" 2>said.txt || { cat said.txt >&2; exit 1; }
grep '^    \[Orrelo\] ' "$readme" | sed "s|^    ||; s|https://localhost:9443|$url|" >promised.txt
grep -xFf promised.txt said.txt | diff promised.txt - ||
  { echo "the quick start does not say what README promises, but:" >&2; cat said.txt >&2; exit 1; }
curl -sS --cacert "$work/service/certificate.pem" "$url/admin/state" >state.json
for event in ol_set_user_profile purchase; do
  grep -q "$event" state.json || { echo "the quick start's event $event did not arrive" >&2; exit 1; }
done
echo "the quick start says and does what README promises"
