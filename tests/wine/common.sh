# Shared by the checks of this folder; sourced.
# shellcheck shell=bash

VKSYSTEMINFO_WINEPREFIX=$(mktemp -d)
export VKSYSTEMINFO_WINEPREFIX
failures=0

end_prefix() {
  WINEPREFIX=$VKSYSTEMINFO_WINEPREFIX wineserver -k >/dev/null 2>&1 || true
  rm -rf "$VKSYSTEMINFO_WINEPREFIX"
}
trap end_prefix EXIT

wine_run() { "$WINE_RUN" "$@" 2>/dev/null; }

# value KEY NAME: the data of a registry value as Wine's reg.exe tells it; empty when
# there is none.
value() {
  wine_run reg query "$1" /v "$2" | tr -d '\r' | sed -n 's/^ \{1,\}[^ ].* REG_[A-Z_]* \{1,\}//p' | head -n 1
}

# check WHAT ACTUAL EXPECTED
check() {
  if [ "$2" = "$3" ]; then
    echo "ok      $1: $2"
  else
    printf 'FAILED  %s\n    actual:   %s\n    expected: %s\n' "$1" "$2" "$3"
    failures=$(( failures + 1 ))
  fi
}
