#!/usr/bin/env bash
# Holds every include of the kit to the order of its folders: a folder may include itself and what stands before it.
# Usage: include_order.sh <source folder>
set -euo pipefail
cd "$1"

layers=(base platform reactive "model page" network config events ui image viewkit modular campaign
  "rewards referral inappmessage push" navigation kit)

# The public headers, by the folder that they belong to.
declare -A owner=(
  [Date]=base [EventValue]=base [Export]=base [ORLLogger]=base [Url]=base [Uuid]=base
  [MainLoop]=platform [Platform]=platform [UserDefaults]=platform [platform/Clock]=platform
  [ORLCampaignType]=model [ORLConfig]=model [ORLDelegates]=model [ORLUser]=model
  [ORLUserEvent]=model [UnsupportedEventValueException]=model
  [IOrrelo]=kit [Orrelo]=kit)

declare -A rank
for i in "${!layers[@]}"; do
  for folder in ${layers[i]}; do rank[$folder]=$i; done
done

# The innermost folder of the order that holds a path, e.g. "platform" for platform/http/HttpUrl.h.
folder_of() {
  local path=$1
  while [[ $path == */* ]]; do
    path=${path%/*}
    [ -n "${rank[$path]:-}" ] && { echo "$path"; return; }
  done
  return 1
}

faults=0
count=0
complain() { echo "$1"; faults=$((faults + 1)); }

while IFS=: read -r file line text; do
  count=$((count + 1))
  if [[ $file == include/orrelo/* ]]; then
    name=${file#include/orrelo/} name=${name%.h}
    from=${owner[$name]:-}
    [ -n "$from" ] || { complain "$file: not in the list of public headers"; continue; }
    [[ $text =~ \<orrelo/|\<[a-z_]+\>$ ]] || complain "$file:$line: a public header includes $text"
  else
    from=$(folder_of "${file#src/}") || { complain "$file: in no folder of the order"; continue; }
  fi
  if [[ $text =~ \<orrelo/([A-Za-z/]+)\.h\> ]]; then
    to=${owner[${BASH_REMATCH[1]}]:-}
    [ -n "$to" ] || { complain "$file:$line: unknown public header $text"; continue; }
  elif [[ $text =~ \"([^\"]+)\" ]]; then
    to=$(folder_of "${BASH_REMATCH[1]}") || { complain "$file:$line: names no folder: $text"; continue; }
  else
    continue
  fi
  [ "${rank[$from]}" -ge "${rank[$to]}" ] && { [ "${rank[$from]}" -ne "${rank[$to]}" ] || [ "$from" = "$to" ]; } ||
    complain "$file:$line: $from may not include from $to"
done < <(grep -rnE '^#include' src include --include='*.h' --include='*.cpp' | sed -E 's/#include +//')

[ "$count" -gt 100 ] || complain "only $count includes were found: is this the source folder?"
[ "$faults" -eq 0 ] || { echo "$faults faults"; exit 1; }
echo "$count includes in order"
