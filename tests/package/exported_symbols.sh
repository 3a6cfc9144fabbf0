#!/usr/bin/env bash
# Fails, with their names, if a library exports a symbol that is not the kit's own, or none at all, or if `dlclose` would
# unload it.
# Usage: exported_symbols.sh <library>...
set -euo pipefail
own='^(_Z(T[VIST]|T[hv][0-9n_]+|Tc.*|GV)?Z?NK?6orrelo|orrelo_[a-z])'
isClean=0
for library in "$@"; do
  mapfile -t symbols < <(nm --dynamic --defined-only --extern-only --format=posix "$library" | cut -d' ' -f1)
  foreign=$(printf '%s\n' "${symbols[@]}" | grep -Ev "$own" | c++filt || true)
  echo "$library: ${#symbols[@]} symbols"
  if [ ${#symbols[@]} -eq 0 ] || [ -n "$foreign" ]; then
    printf '  not the kit'\''s own: %s\n' "${foreign:-the table is empty}"
    isClean=1
  fi
  if ! readelf --dynamic "$library" | grep -q 'FLAGS_1.*NODELETE'; then
    echo "  dlclose unloads it"
    isClean=1
  fi
done
exit $isClean
