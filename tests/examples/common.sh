# Shared by the checks of examples/; sourced, never run.
# shellcheck shell=bash

here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
repo_dir=$(cd "$here/../.." && pwd)
# shellcheck disable=SC2034 # for the checks
examples=$repo_dir/examples
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
unset VKSYSTEMINFO_TROUBLE
export VKSYSTEMINFO_MACHINE=$repo_dir/machines/workstation LC_ALL=C.UTF-8

fail() { printf 'wrong: %s\n' "$*" >&2; sed 's/^/  | /' "$folder/output" >&2; exit 1; }

# run EXIT_CODE COMMAND...: runs the command, which must end with this code. Its output is in $folder/output.
run() {
  local expected=$1 status=0; shift
  "$@" >"$folder/output" 2>&1 </dev/null || status=$?
  [ "$status" -eq "$expected" ] || fail "exit code $status, not $expected: $*"
}

# has LINE: the output has this line, white space apart
has() { sed 's/  */ /g; s/ $//; s/\r$//' "$folder/output" | grep -qxF -e "$1" || fail "no line '$1'"; }
has_text() { grep -qF -e "$1" "$folder/output" || fail "no text '$1'"; }
has_not() { ! grep -qF -e "$1" "$folder/output" || fail "unexpected text '$1'"; }

# Programs that behave like a vkreport on a machine with trouble
# fake NAME BODY: makes such a program
fake() { printf '#!/bin/sh\n%s\n' "$2" >"$folder/$1"; chmod +x "$folder/$1"; }
fake incomplete "cat '$here/incomplete.json'; exit 3"
fake nothing "echo 'vkreport: the whole report crashed after 0.4 s (SIGSEGV)' >&2; exit 1"
fake older "echo 'vkreport: unknown option --time-limit' >&2; exit 2"
fake strange 'exit 77'
fake hanging 'exec sleep 600'
