# Shared by ./demo, ./test and tools/gates: where things are, what has to be installed, how builds are made.
# Everything is written below build/, compiler cache and temporary files included; only where the variable CI is set does
# the compiler cache lie in the user's cache folder, so that it outlives the checkout.
# shellcheck shell=bash

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
jobs=${ZOR_JOBS:-$(nproc 2>/dev/null || echo 2)}

mkdir -p "$root/build/tmp"
export TMPDIR=$root/build/tmp
if [[ -n ${CI:-} ]]; then
  export CCACHE_DIR=${CCACHE_DIR:-${XDG_CACHE_HOME:-$HOME/.cache}/zor-ccache}
else
  export CCACHE_DIR=${CCACHE_DIR:-$root/build/ccache}
fi
export CCACHE_BASEDIR=${CCACHE_BASEDIR:-$root}
export CCACHE_NOHASHDIR=1
# Precompiled headers are served too; no source asks for the date or the time.
export CCACHE_SLOPPINESS=pch_defines,time_macros
export PYTHONDONTWRITEBYTECODE=1

die() {
  printf '%s\n' "$*" >&2
  exit 1
}

# Packages of this set (demo, test or all) and of those before it that are not there.
missing_packages() {
  local wanted=$1 set package program
  while read -r set package program; do
    case $set in
      demo) ;;
      test) [[ $wanted != demo ]] || continue ;;
      all) [[ $wanted == all ]] || continue ;;
      *) continue ;;
    esac
    if [[ $program != - ]]; then
      command -v "$program" >/dev/null || printf '%s\n' "$package"
    elif command -v dpkg-query >/dev/null; then
      [[ $(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null) == installed ]] || printf '%s\n' "$package"
    fi
  done <"$root/tools/packages"
}

# A machine that has just started updates its packages by itself and keeps others from it for minutes: wait that long.
patience=300

# update_lists [sudo]: apt-get waits for the lock of the packages by itself, for that of the lists it does not.
update_lists() {
  local log=$root/build/tmp/apt-update.log until=$((SECONDS + patience)) waits=no
  until "$@" env LC_ALL=C apt-get -q -o "DPkg::Lock::Timeout=$patience" update >"$log" 2>&1; do
    if ((SECONDS >= until)) || ! grep -q 'Could not get lock' "$log"; then
      cat "$log"
      return 1
    fi
    [[ $waits == yes ]] || printf 'Another program is using apt; waiting for it, at most %d seconds.\n' "$patience"
    waits=yes
    sleep 3
  done
}

# need_packages SET MAY_INSTALL: installs what is missing, or prints the line that would and stops.
need_packages() {
  local missing line as_root=()
  mapfile -t missing < <(missing_packages "$1")
  ((${#missing[@]})) || return 0
  line="apt-get update && apt-get install -y --no-install-recommends ${missing[*]}"
  if ((EUID != 0)); then
    line="sudo sh -c '$line'"
    as_root=(sudo)
  fi
  if [[ $2 != yes ]] || ! command -v apt-get >/dev/null || { ((EUID != 0)) && ! command -v sudo >/dev/null; }; then
    printf 'Some packages are missing. On Debian this line installs them:\n' >&2
    die "$line"
  fi
  printf 'Installing %s\n' "${missing[*]}"
  update_lists "${as_root[@]}" || die 'The lists of packages could not be fetched.'
  "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o "DPkg::Lock::Timeout=$patience" install -y \
    --no-install-recommends "${missing[@]}" || die 'The packages could not be installed.'
}

# configure PRESET [option...]: into build/PRESET, with the settings of the preset.
configure() {
  (cd "$root" && cmake --preset "$@" >"$root/build/tmp/configure-$1.log" 2>&1) || {
    cat "$root/build/tmp/configure-$1.log"
    die "cmake --preset $* failed"
  }
}

# build PRESET [target...]
build() {
  local preset=$1 target=()
  shift
  (($# == 0)) || target=(--target "$@")
  cmake --build "$root/build/$preset" -j "$jobs" "${target[@]}"
}
