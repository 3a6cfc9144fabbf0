#!/usr/bin/env bash
# Holds every include of the kit to the order of its folders: a folder may include itself and what stands before it.
# Usage: include_order.sh <source folder>
set -euo pipefail
cd "$1"

layers=(base platform reactive "model page" network config events ui image viewkit modular campaign
  "rewards referral inappmessage push" navigation kit c)
# The front's folders lie above all of them. `quick` itself has the list of the kinds and stands above their folders.
features="quick/campaign/attendance quick/campaign/entry quick/campaign/list quick/campaign/optinmarketing
  quick/campaign/referral quick/campaign/result quick/campaign/stamp"
layers+=(quick/include quick/platform quick/bridge quick/image quick/viewkit quick/modular
  "quick/modular/content quick/modular/roulette quick/modular/scratch" quick/campaign "$features quick/campaign/update"
  "quick/rewards/externalpoint quick/rewards/gifticon quick/rewards/point" "quick/rewards quick/referral quick/inappmessage"
  quick/navigation quick/host quick/c quick quick/inspector quick/web)

# What the front takes of the core beside its public headers: screens, views and pictures, and nothing that decides
# what stands in them.
drawn="ui image viewkit modular campaign rewards referral inappmessage navigation"
# Further folders of the core, for the front's ground.
declare -A ground=(
  [quick/platform]="base platform"  # realises the interfaces of the machine
  [quick/bridge]="base reactive"    # colours and explanations; subscriptions to states
  [quick/rewards/externalpoint]="base"  # the explanations
  [quick/host]="base platform model"  # the explanations; whether the user wants less movement; delegates
  [quick/inspector]="base"          # the explanations
  [quick/c]="c"                     # the statuses and handles of the C interface
  [quick/web]="base network c")     # the explanations; the environment whose certificate web pages may have

# The public headers, by the folder that they belong to.
declare -A owner=(
  [Date]=base [Error]=base [EventValue]=base [Export]=base [ORLExplanations]=base [ORLLogger]=base
  [Url]=base [Uuid]=base
  [MainLoop]=platform [Platform]=platform [UserDefaults]=platform
  [ORLCampaignType]=model [ORLConfig]=model [ORLDelegates]=model [ORLUser]=model
  [ORLUserEvent]=model [NotificationResponse]=model [BackgroundFetchResult]=model [UnsupportedEventValueException]=model
  [ORLDiagnostics]=base [IOrrelo]=kit [Orrelo]=kit [OrreloWebKit]=kit
  [orrelo_c]=c [orrelo_values_c]=c [orrelo_quick_c]=quick/include [orrelo_web_c]=quick/web
  [quick/ExternalPointEntryView]=quick/include [quick/ORLCampaignEntryView]=quick/include
  [quick/ORLCampaignFloatingActionButton]=quick/include [quick/OrreloQuick]=quick/include [quick/OrreloWeb]=quick/web)

declare -A rank
for i in "${!layers[@]}"; do
  for folder in ${layers[i]}; do rank[$folder]=$i; done
done

# Sets `folder` to the innermost of the order that holds a path, e.g. "platform" for platform/http/HttpUrl.h.
find_folder() {
  folder=$1
  while [[ $folder == */* ]]; do
    folder=${folder%/*}
    [ -n "${rank[$folder]:-}" ] && return
  done
  return 1
}

faults=0
count=0
complain() { echo "$1"; faults=$((faults + 1)); }

while IFS=: read -r file line text; do
  count=$((count + 1))
  if [[ $file == *include/orrelo/* ]]; then
    name=${file#*include/orrelo/} name=${name%.h}
    [[ $name == platform/* ]] && from=platform || from=${owner[$name]:-}
    [ -n "$from" ] || { complain "$file: not in the list of public headers"; continue; }
    # Those of the front are for hosts that use Qt.
    [[ $text =~ \<orrelo/|\<[a-z_]+\>$|\<std[a-z]+\.h\>$ || ( $name == quick/* && $text =~ \<Q[A-Za-z]+\>$ ) ]] || complain "$file:$line: a public header includes $text"
  else
    find_folder "${file#src/}" || { complain "$file: in no folder of the order"; continue; }
    from=$folder
  fi
  if [[ $text =~ \<orrelo/([A-Za-z/_]+)\.h\> ]]; then
    [[ ${BASH_REMATCH[1]} == platform/* ]] && to=platform || to=${owner[${BASH_REMATCH[1]}]:-}
    [ -n "$to" ] || { complain "$file:$line: unknown public header $text"; continue; }
  elif [[ $text =~ \"([^\"]+)\" ]]; then
    [[ $text == '"moc_'* && $file == quick/* ]] && continue
    find_folder "${BASH_REMATCH[1]}" || { complain "$file:$line: names no folder: $text"; continue; }
    to=$folder
    if [[ $from == quick* && $to != quick* && " $drawn ${ground[$from]:-} " != *" $to "* ]]; then
      complain "$file:$line: $from may not reach $to"
      continue
    fi
  else
    continue
  fi
  # The features in one folder of the core do not know each other; only files of the folder itself, such as its table
  # of kinds, include from them.
  if [[ "$file $text" =~ ^src/(campaign|modular|rewards|referral|inappmessage|push)/([a-z]+)/.*\"(campaign|modular|rewards|referral|inappmessage|push)/([a-z]+)/ ]] &&
    [ "${BASH_REMATCH[1]}" = "${BASH_REMATCH[3]}" ] && [ "${BASH_REMATCH[2]}" != "${BASH_REMATCH[4]}" ]; then
    complain "$file:$line: ${BASH_REMATCH[2]} may not include from ${BASH_REMATCH[4]}"
  fi
  [ "${rank[$from]}" -ge "${rank[$to]}" ] && { [ "${rank[$from]}" -ne "${rank[$to]}" ] || [ "$from" = "$to" ]; } ||
    complain "$file:$line: $from may not include from $to"
done < <(grep -rnE '^#include' src include quick --include='*.h' --include='*.cpp' | sed -E 's/#include +//')

# A folder of the front whose kinds are not listed would never be drawn.
while IFS=: read -r file function; do
  [ "$(grep -c "\b$function()" quick/kinds.cpp)" -eq 2 ] || complain "$file: $function is not listed in quick/kinds.cpp"
done < <(grep -roE --include=kinds.cpp '^Kinds \w+Kinds\(' quick/*/ | sed 's/Kinds //; s/($//')

[ "$count" -gt 100 ] || complain "only $count includes were found: is this the source folder?"
[ "$faults" -eq 0 ] || { echo "$faults faults"; exit 1; }
echo "$count includes in order"
