#!/usr/bin/env bash
# Compares a header of the C interface with its list, and the list with the names that the library exports. A program that
# was built with an older list must run with a newer library; therefore lines are only ever added to a list, by
# ORRELO_UPDATE=1.
# Usage: symbols.sh <list> <header> <library> <C compiler> <include folders, separated by ":"> [<list of a library below>...]
set -euo pipefail
list=$1 header=$2 library=$3 compiler=$4
export C_INCLUDE_PATH=$5
shift 5

# One declaration a line, without comments and macros: functions, types and enumerations.
declared=$(echo "#include <$header>" | "$compiler" -std=c11 -E -P -x c - | tr -s '\n\t ' ' ' | sed 's/; /;\n/g' |
  sed -E 's/__attribute__\(\(visibility\("default"\)\)\) //; s/^ //' | grep -E 'orrelo_|ORRELO_' |
  grep -vxFf <(cat "$@" /dev/null))
[ "${ORRELO_UPDATE:-}" != 1 ] || printf '%s\n' "$declared" >"$list"
failed=0
diff -u "$list" <(printf '%s\n' "$declared") || { echo "$header differs from its list"; failed=1; }
exported=$(nm --dynamic --defined-only --extern-only --format=posix "$library" | cut -d' ' -f1 | grep '^orrelo_' | LC_ALL=C sort)
diff -u <(grep -oE '\borrelo_[a-z_]+\(' "$list" | tr -d '(' | LC_ALL=C sort) <(printf '%s\n' "$exported") ||
  { echo "$library does not export what the list of $header has"; failed=1; }
echo "$header: $(wc -l <"$list") declarations, $(wc -l <<<"$exported") functions"
exit $failed
