#!/usr/bin/env bash
# Reports an event with the installed console to the installed local service, and looks for it at the service. Compares
# the options of both programs with their manual pages.
# Usage: tools.sh <prefix of the kit> <work folder>
set -euo pipefail
prefix=$1 work=$2
export HOME=$work

for program in orrelo-devservice orrelo-console; do
  page=$(find "$prefix/share/man" -name "$program.1*")
  { "$prefix/bin/$program" --help 2>&1 || true; } | grep -oE -- '--[a-z-]+' | sort -u | while read -r option; do
    zcat -f "$page" | tr -d '\\' | grep -qF -- "$option" || { echo "$page lacks $option" >&2; exit 1; }
  done
done

coproc service { exec "$prefix/bin/orrelo-devservice" --port 0 --data "$work/service"; }
servicePid=$service_PID
trap 'kill $servicePid' EXIT
read -r _ _ url <&"${service[0]}"
certificate=$work/service/certificate.pem
{
  printf '%s\n' 'signin user-1' 'send packaged-event price=39.9'
  until curl -sS --cacert "$certificate" "$url/admin/state" | grep -q packaged-event; do sleep 0.1; done
} | timeout 60 "$prefix/bin/orrelo-console" --data "$work/console" --service "$url" --certificate "$certificate" \
  >/dev/null
echo "the service has the event"
