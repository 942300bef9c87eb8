# Shared by the scripts of this folder; sourced, never run.
# shellcheck shell=bash

repo_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# Shared by all clones: results that take long to build.
cache_dir=${VKSYSTEMINFO_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/vksysteminfo}

say() { printf '%s\n' "$*" >&2; }
fail() { say "$*"; exit 1; }
fail_usage() { say "$*"; exit 2; }

# Prints the comment at the top of a script, which is its help.
print_help() { sed -n '2,/^[^#]/{/^#/s/^# \{0,1\}//p}' "$1"; }

qt_for_windows_prefix() { printf '%s\n' "${VKSYSTEMINFO_QT_WINDOWS:-$cache_dir/qt5-mingw64}"; }
qt_for_msvc_abi_prefix() { printf '%s\n' "${VKSYSTEMINFO_QT_MSVC_ABI:-$cache_dir/qt5-msvc-abi}"; }

# configure PRESET: the presets share most objects, and ccache compiles them once. Objects of one build folder serve in another
# one of the same depth, because their paths are relative.
configure() {
  if [ -z "${CMAKE_CXX_COMPILER_LAUNCHER+set}" ] && command -v ccache >/dev/null 2>&1; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache
  fi
  run_quietly cmake --preset "$1"
}
export CCACHE_BASEDIR="${CCACHE_BASEDIR:-$repo_dir}" CCACHE_NOHASHDIR="${CCACHE_NOHASHDIR:-1}"
export CCACHE_SLOPPINESS="${CCACHE_SLOPPINESS:-pch_defines,time_macros}" # GCC's precompiled headers

# build PRESET [TARGET]...: installs missing packages, configures once, builds. Prints to
# standard error only: standard output belongs to the program that runs next.
build() {
  local preset=$1; shift
  local part=native
  case "$preset" in *-msvc-abi) part=msvc ;; windows*) part=windows ;; *-fuzz) part=fuzz ;; esac
  "$repo_dir/scripts/install-dependencies" "$part"
  [ "$part" != windows ] || "$repo_dir/scripts/build-qt-for-windows"
  mkdir -p "$repo_dir/build"
  (
    flock 8
    cd "$repo_dir" || exit
    if ! [ -e "build/$preset/build.ninja" ]; then
      say "Configuring $preset"
      configure "$preset"
    fi
    local targets=()
    [ $# -eq 0 ] || targets=(--target "$@")
    if ! cmake --build "build/$preset" "${targets[@]}" -- -n | grep -q 'no work to do'; then
      say "Building $preset"
      cmake --build "build/$preset" "${targets[@]}" >&2
    fi
  ) 8>"$repo_dir/build/.$preset.lock"
}

# Runs a command and prints its output only if it fails.
run_quietly() {
  local log; log=$(mktemp)
  if "$@" >"$log" 2>&1; then rm -f "$log"; return 0; fi
  cat "$log" >&2; rm -f "$log"; return 1
}

# with_display COMMAND...: runs the command with the existing display, or with its own X
# server if there is none. OpenGL needs a display.
with_display() {
  if [ -n "${DISPLAY:-}" ]; then "$@"; else xvfb-run -a -s '-screen 0 1280x1024x24' "$@"; fi
}

# keep_display ARGUMENT...: without a display, runs the whole script again with one. Wine
# starts its desktop with the first program. If that program has no display, no later program
# has OpenGL.
keep_display() {
  [ -z "${DISPLAY:-}" ] || return 0
  local status=0
  with_display "$0" "$@" || status=$?
  exit "$status"
}

# use_one_cpu first|last: lets this shell and what it starts run only on the first or the last
# of the processors that it may use. Where that is not permitted it changes nothing.
use_one_cpu() {
  local allowed cpu
  allowed=$(taskset -cp "$BASHPID" 2>/dev/null) || return 0
  allowed=${allowed##*: } # such as 0-3,6
  case "$1" in
    first) cpu=${allowed%%[-,]*} ;;
    last) cpu=${allowed##*[-,]} ;;
  esac
  taskset -cp "$cpu" "$BASHPID" >/dev/null 2>&1 || true
}

# Sets the environment of Wine: the project's own prefix, no debug output, the path of our DLLs.
# One processor: at a call that needs Wine's server, the program and the server wait for each other.
# On two processors of a busy virtual machine 150 reports took 15 times as long.
use_wine() {
  use_one_cpu first
  local qt; qt=$(qt_for_windows_prefix)
  export WINEPREFIX="${VKSYSTEMINFO_WINEPREFIX:-$cache_dir/wine-prefix}"
  export WINEDEBUG="${WINEDEBUG:--all}"
  # winemenubuilder would add menus and file types to the user's desktop.
  export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=};winemenubuilder.exe=d"
  local runtime; runtime=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
  export WINEPATH="$qt/bin;$runtime;/usr/x86_64-w64-mingw32/lib${WINEPATH:+;$WINEPATH}"
  unset TZ # the Windows run-time library would read the name of a Linux zone as its own form
  mkdir -p "$(dirname "$WINEPREFIX")"
  mark_new_prefix
}

# A prefix that this project creates has a mark. Programs that change more of Windows than
# their own keys and files require it (tests/support/throw_away_windows.h).
throw_away_mark=drive_c/vksysteminfo-throw-away
is_throw_away_prefix() { [ -e "$WINEPREFIX/$throw_away_mark" ]; }
mark_new_prefix() {
  ! is_throw_away_prefix || return 0
  if [ "$WINEPREFIX" = "$cache_dir/wine-prefix" ] || [ -z "$(ls -A "$WINEPREFIX" 2>/dev/null)" ]; then
    mkdir -p "$WINEPREFIX/drive_c"
    : >"$WINEPREFIX/$throw_away_mark"
  fi
}
require_throw_away_prefix() {
  is_throw_away_prefix || fail "This project did not create the Wine prefix $WINEPREFIX; nothing in it is changed." \
    "Set VKSYSTEMINFO_WINEPREFIX to a folder that is empty or does not exist."
}

# Keeps the services of Windows running until the script ends. Without a program they end after
# 3 seconds. The next test would start them; they inherit its output, and ctest waits until they
# close it. The program that stays reads from a pipe of the script.
keep_wine_services() {
  coproc { exec "$repo_dir/scripts/lib/wine-run" cmd 2>/dev/null; }
  IFS= read -r -t 120 _ <&"${COPROC[0]}" || fail 'Wine does not run cmd' # its first line
}

# Ends the processes of Wine in the project's prefix.
end_wine() {
  use_wine
  ! is_throw_away_prefix || wineserver -k >/dev/null 2>&1 || true
}
