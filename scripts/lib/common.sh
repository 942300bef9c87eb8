# Shared by the scripts of this folder; sourced, never run.
# shellcheck shell=bash

repo_dir=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
# Everything that is kept between clones and is costly to make again.
cache_dir=${VKSYSTEMINFO_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/vksysteminfo}

say() { printf '%s\n' "$*" >&2; }
fail() { say "$*"; exit 1; }
fail_usage() { say "$*"; exit 2; }

qt_for_windows_prefix() { printf '%s\n' "${VKSYSTEMINFO_QT_WINDOWS:-$cache_dir/qt5-mingw64}"; }

# Environment for wine: its own prefix, silent, our DLLs found.
use_wine() {
  local qt; qt=$(qt_for_windows_prefix)
  export WINEPREFIX="${WINEPREFIX:-$cache_dir/wine-prefix}"
  export WINEDEBUG="${WINEDEBUG:--all}"
  export WINEDLLOVERRIDES="${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=d}"
  local runtime; runtime=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)")
  export WINEPATH="$qt/bin;$runtime;/usr/x86_64-w64-mingw32/lib${WINEPATH:+;$WINEPATH}"
  export QT_PLUGIN_PATH="${QT_PLUGIN_PATH:-$qt/plugins}"
  mkdir -p "$(dirname "$WINEPREFIX")"
}
