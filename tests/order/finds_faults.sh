#!/usr/bin/env bash
# A tree with one include against the order, and one third-party include in a public header, must be refused.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/src/reactive" "$work/include/orrelo"
for i in $(seq 120); do echo '#include <vector>'; done >"$work/src/reactive/Many.h"
echo '#include "network/HTTPClient.h"' >"$work/src/reactive/Upward.h"
echo '#include <curl/curl.h>' >"$work/include/orrelo/Date.h"
found=$(bash "$here/include_order.sh" "$work") && { echo "nothing was found"; exit 1; }
grep -q 'Upward.h:1: reactive may not include from network' <<<"$found"
grep -q 'Date.h:1: a public header includes <curl/curl.h>' <<<"$found"
grep -q '^2 faults' <<<"$found"
