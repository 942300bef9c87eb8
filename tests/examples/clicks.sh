# What a person does with the hosts; sourced by check_hosts, in an X server without a window manager.
# shellcheck shell=bash disable=SC2154

# window TITLE: waits for a visible window and prints its number
window() {
  local number
  for _ in $(seq 100); do
    number=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -n 1 || true)
    if [ -n "$number" ]; then sleep 0.3; printf '%s\n' "$number"; return; fi
    sleep 0.1
  done
  fail "no window '$1'" >&2
}

# press WINDOW KEY...: without a window manager nobody else gives the window the focus.
press() {
  local number=$1; shift
  xdotool windowfocus --sync "$number"
  xdotool key "$@"
}

# type_name WINDOW NAME: the name of a file into a dialog
type_name() {
  xdotool windowfocus --sync "$1"
  xdotool type --delay 5 "$2"
  xdotool key Return
}

# until_true COMMAND...: waits for it
until_true() {
  for _ in $(seq 200); do
    if "$@"; then return; fi
    sleep 0.1
  done
  fail "in vain: $*"
}
has_ended() { ! kill -0 "$1" 2>/dev/null; }

# check_clicks LOAD START BIN_DIR
check_clicks() {
  local host main question dialog
  : >"$folder/output"

  # load-library makes no report before its user agrees.
  "$1" --library "$3/vkSystemInfo" >"$folder/output" 2>&1 & host=$!
  main=$(window '^A host that loads')
  press "$main" alt+m
  question=$(window '^System report$')
  press "$question" alt+n
  sleep 1
  press "$main" alt+s # the button is disabled
  sleep 1
  if xdotool search --onlyvisible --name '^Save the report$' >/dev/null 2>&1; then fail 'a report without consent'; fi
  press "$main" alt+m
  question=$(window '^System report$')
  press "$question" alt+y
  sleep 3
  press "$main" alt+s
  dialog=$(window '^Save the report$')
  type_name "$dialog" "$folder/clicked.txt"
  until_true test -s "$folder/clicked.txt"
  starts_with_heading "$folder/clicked.txt"
  kill "$host"; wait "$host" || true

  # start-vkreport cancels while the program runs.
  printf '#!/bin/sh\necho $$ >"%s/started"\nexec sleep 600\n' "$folder" >"$folder/hanging"
  "$2" --vkreport "$folder/hanging" >"$folder/output" 2>&1 & host=$!
  main=$(window '^A host that starts')
  press "$main" alt+m
  dialog=$(window '^Save the report as$')
  type_name "$dialog" "$folder/cancelled.json"
  until_true test -s "$folder/started"
  ! has_ended "$(cat "$folder/started")" || fail 'the program ended by itself'
  sleep 2 # seconds pass on the window
  press "$main" alt+c
  until_true has_ended "$(cat "$folder/started")"
  ! has_ended "$host" || fail 'the host ended, too'
  [ ! -e "$folder/cancelled.json" ] || fail 'a file of a cancelled report'
  rm "$folder/started"
  kill "$host"; wait "$host" || true
}
