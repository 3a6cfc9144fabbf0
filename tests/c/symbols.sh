#!/usr/bin/env bash
# Compiles a header of the C interface as strict C11, and compares it with its list, and the list with the names that the
# library exports. A program that was built with an older list must run with a newer library; therefore ORRELO_UPDATE=1
# adds lines to a list, and refuses to remove one.
# Usage: symbols.sh <list> <header> <library> <C compiler> <include folders, separated by ":"> [<list of a library below>...]
set -euo pipefail
list=$1 header=$2 library=$3 compiler=$4
export CPATH=$5
shift 5

"$compiler" -std=c11 -pedantic -Wall -Wextra -Werror -fsyntax-only -x c - <<<"#include <$header>
int main(void) { return 0; }"

# One declaration a line, without comments and macros: functions, types and enumerations.
declared=$(echo "#include <$header>" | "$compiler" -std=c11 -E -P -x c - | tr -s '\n\t ' ' ' | sed 's/; /;\n/g' |
  sed -E 's/__attribute__\(\(visibility\("default"\)\)\) //; s/^ //' | grep -E 'orrelo_|ORRELO_' |
  grep -vxFf <(cat "$@" /dev/null))
if [ "${ORRELO_UPDATE:-}" = 1 ]; then
  touch "$list"
  enumerators='/^enum/ { s/^enum { //; s/ };$//; s/, /\n/g }'  # an enumeration may grow
  present=$(sed "$enumerators" <<<"$declared") former=$(sed "$enumerators" "$list")
  if [ -n "$former" ] && grep -vxFf <(echo "$present") <<<"$former"; then
    echo "$header lacks these declarations of its list, which programs may use: bring them back" >&2
    exit 1
  fi
  printf '%s\n' "$declared" >"$list"
fi
failed=0
diff -u "$list" <(printf '%s\n' "$declared") || { echo "$header differs from its list"; failed=1; }
exported=$(nm --dynamic --defined-only --extern-only --format=posix "$library" | cut -d' ' -f1 | grep '^orrelo_' | LC_ALL=C sort)
diff -u <(grep -oE '\borrelo_[a-z_]+\(' "$list" | tr -d '(' | LC_ALL=C sort) <(printf '%s\n' "$exported") ||
  { echo "$library does not export what the list of $header has"; failed=1; }
echo "$header: $(wc -l <"$list") declarations, $(wc -l <<<"$exported") functions"
exit $failed
