#!/usr/bin/env bash
# A tree with includes against the order, one of the front's into the core's depths, a third-party include in a public
# header, and a folder whose kinds are not listed must be refused.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/src/reactive" "$work/include/orrelo" "$work/src/campaign/stamp" "$work/quick/campaign/stamp" "$work/quick/viewkit"
for i in $(seq 120); do echo '#include <vector>'; done >"$work/src/reactive/Many.h"
echo '#include "network/HTTPClient.h"' >"$work/src/reactive/Upward.h"
echo '#include <curl/curl.h>' >"$work/include/orrelo/Date.h"
echo '#include "quick/campaign/result/CampaignResultBridge.h"' >"$work/quick/campaign/stamp/Sideways.h"
echo '#include "network/HTTPClient.h"' >"$work/quick/viewkit/Deep.h"
echo '#include "campaign/result/CampaignResultView.h"' >"$work/src/campaign/stamp/Sideways.h"
echo 'Kinds stampKinds() {' >"$work/quick/campaign/stamp/kinds.cpp"
echo 'Kinds resultKinds();' >"$work/quick/kinds.cpp"
found=$(bash "$here/include_order.sh" "$work") && { echo "nothing was found"; exit 1; }
grep -q 'Upward.h:1: reactive may not include from network' <<<"$found"
grep -q 'Date.h:1: a public header includes <curl/curl.h>' <<<"$found"
grep -q 'Sideways.h:1: quick/campaign/stamp may not include from quick/campaign/result' <<<"$found"
grep -q 'Deep.h:1: quick/viewkit may not reach network' <<<"$found"
grep -q 'Sideways.h:1: stamp may not include from result' <<<"$found"
grep -q 'quick/campaign/stamp/kinds.cpp: stampKinds is not listed' <<<"$found"
grep -q '^6 faults' <<<"$found"
