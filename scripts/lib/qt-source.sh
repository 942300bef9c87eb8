# Shared by the scripts that build Qt from Debian's source package; sourced, never run.
# shellcheck shell=bash

# fetch FOLDER PACKAGE...: downloads source packages from the package sources of this machine, with
# package lists in the folder: the configuration of the machine does not change.
fetch() {
  local work=$1; shift
  local apt="$work/apt"
  mkdir -p "$apt/lists/partial" "$apt/cache" "$apt/sources"
  : > "$apt/sources/debian.sources"
  : > "$apt/sources/debian.list"
  local file
  for file in /etc/apt/sources.list.d/*.sources; do
    [ -e "$file" ] || continue
    grep -q 'debian-archive-keyring' "$file" || continue
    { sed 's/^Types:.*/Types: deb-src/' "$file"; echo; } >> "$apt/sources/debian.sources"
  done
  for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
    [ -e "$file" ] || continue
    sed -n '/debian\/\? \|debian-security/s/^deb \(.*\)$/deb-src \1/p' "$file" >> "$apt/sources/debian.list"
  done
  if ! [ -s "$apt/sources/debian.sources" ] && ! [ -s "$apt/sources/debian.list" ]; then
    fail "${0##*/}: this machine has no Debian package source for $1"
  fi
  local apt_options=(-q -o "Dir::Etc::sourcelist=/dev/null" -o "Dir::Etc::sourceparts=$apt/sources"
    -o "Dir::State::lists=$apt/lists" -o "Dir::Cache=$apt/cache" -o "APT::Sandbox::User=root")
  apt-get "${apt_options[@]}" update && ( cd "$work" && apt-get "${apt_options[@]}" --download-only source "$@" )
}

# unpack_package DOWNLOADS PACKAGE FOLDER
unpack_package() {
  local descriptions=("$1/$2"_*.dsc)
  rm -rf "$3"
  dpkg-source --no-check --no-copy -x "${descriptions[-1]}" "$3"
}

# use_debians_tools SOURCE
# Debian's moc, rcc and uic have the same version and are used instead of Qt's own. qmake
# still reads the projects of these tools, which must then have nothing to build.
use_debians_tools() {
  local source=$1
  local project
  for project in mkspecs/features/qt_tool.prf src/tools/bootstrap/bootstrap.pro; do
    cat >> "$source/$project" <<'PROJECT'
!isEmpty(HOST_QT_TOOLS) {
    TEMPLATE = aux
    SOURCES =
    HEADERS =
    OBJECTIVE_SOURCES =
}
PROJECT
  done
}
