# Shared by the checks of this folder; sourced.
# shellcheck shell=bash

# shellcheck source=scripts/lib/common.sh
. "$(dirname "$WINE_RUN")/common.sh"

VKSYSTEMINFO_WINEPREFIX=$(mktemp -d)
export VKSYSTEMINFO_WINEPREFIX
WINEPREFIX=$VKSYSTEMINFO_WINEPREFIX
mark_new_prefix # before Wine puts anything into it
export LC_ALL=C.UTF-8 # Wine takes its code page from it
failures=0

end_prefix() {
  WINEPREFIX=$VKSYSTEMINFO_WINEPREFIX wineserver -k >/dev/null 2>&1 || true
  rm -rf "$VKSYSTEMINFO_WINEPREFIX"
}
trap end_prefix EXIT

# Windows stays up until the end: some keys do not outlive it.
WINEPREFIX=$VKSYSTEMINFO_WINEPREFIX wineserver -p

wine_run() { "$WINE_RUN" "$@" 2>/dev/null; }

# Runs a program that changes Windows.
wine_change() {
  require_throw_away_prefix
  wine_run "$@"
}

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

# Wine writes down its displays anew for each window that is the first one. So there is
# one that stays.
keep_a_window() {
  wine_run notepad &
  wine_run "$VKREPORT" --platform-name >/dev/null
}

# Brings the keys of the described workstation that make sense on another machine into
# the registry: adapters, drivers, devices, products. The video adapters as keys that
# last as long as Windows is up.
import_workstation() {
  local folder line wanted=yes # the file's first line, too
  local keys='\\Control\\Class|\\Enum\\|\\DEVICEMAP\\|SharedDLLs|OpenGLDrivers|OEMInformation|^\[HKEY_(CLASSES_ROOT|CURRENT_USER)'
  folder=$(mktemp -d)
  while IFS= read -r line; do
    if [[ $line == '['* ]]; then
      if [[ $line =~ $keys ]]; then wanted=yes; else wanted=; fi
    fi
    [ -z "$wanted" ] || printf '%s\n' "$line"
  done < "$MACHINES/workstation/registry.reg" > "$folder/keys.reg"
  { printf '\xff\xfe'; iconv -f UTF-8 -t UTF-16LE "$folder/keys.reg"; } > "$folder/keys16.reg"
  wine_change regedit /S "$folder/keys16.reg"
  wine_change "$IMPORT_REGISTRY" "$MACHINES/workstation/registry.reg" 'SYSTEM\CurrentControlSet\Control\Video'
  rm -rf "$folder"
}
