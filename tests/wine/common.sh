# Shared by the checks of this folder; sourced.
# shellcheck shell=bash

# shellcheck source=scripts/lib/common.sh
. "$(dirname "$WINE_RUN")/common.sh"

use_one_cpu last # the tests that share a prefix use the first one

VKSYSTEMINFO_WINEPREFIX=$(mktemp -d)
export VKSYSTEMINFO_WINEPREFIX
WINEPREFIX=$VKSYSTEMINFO_WINEPREFIX
mark_new_prefix # the prefix must still be empty
export LC_ALL=C.UTF-8 # sets Wine's code page
unset TZ              # as for Wine's programs: a check compares local times
failures=0

# Starts an X server for this check, so that its windows do not take the keyboard's focus from other tests. The server
# chooses a free number.
start_display() {
  local pipe=$VKSYSTEMINFO_WINEPREFIX/display number
  mkfifo "$pipe"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$pipe" >/dev/null 2>&1 &
  display_server=$!
  read -r number <"$pipe" || fail 'Xvfb does not start'
  rm "$pipe"
  export DISPLAY=:$number
}

end_prefix() {
  WINEPREFIX=$VKSYSTEMINFO_WINEPREFIX wineserver -k >/dev/null 2>&1 || true
  kill "$display_server" 2>/dev/null || true
  rm -rf "$VKSYSTEMINFO_WINEPREFIX"
}
trap end_prefix EXIT
display_server=
start_display

# Volatile keys last until the server ends, so it stays up.
WINEPREFIX=$VKSYSTEMINFO_WINEPREFIX wineserver -p

wine_run() { "$WINE_RUN" "$@" 2>/dev/null; }

# Runs a program that changes Windows.
wine_change() {
  require_throw_away_prefix
  wine_run "$@"
}

# value KEY NAME: prints the data of a registry value, from Wine's reg.exe; empty without one
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

# Wine rewrites the registry keys of its displays when the first window opens. A window that stays
# open prevents that.
keep_a_window() {
  wine_run notepad &
  wine_run "$VKREPORT" --platform-name >/dev/null
}

# Imports the keys of the described workstation that are valid on another machine: adapters,
# drivers, devices, products. The keys of the video adapters are volatile.
import_workstation() {
  local folder line wanted=yes # includes the first line of the file
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
