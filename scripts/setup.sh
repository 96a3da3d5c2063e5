#!/usr/bin/env bash
# Installs the Debian packages of packages.txt, which building needs, and of packages-NAME.txt for each
# NAME: scripts/setup.sh [test] [bench]. Does nothing, and says nothing, when they are there.
# ZAVGEO_NO_SETUP=1 skips it.
set -euo pipefail
[[ -z "${ZAVGEO_NO_SETUP:-}" ]] || exit 0

here=$(cd "$(dirname "$0")" && pwd)
lists=("$here/packages.txt")
for name in "$@"; do lists+=("$here/packages-$name.txt"); done
mapfile -t packages < <(sed 's/#.*//; s/[[:space:]]//g; /^$/d' "${lists[@]}")

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
  echo "setup: this is no Debian system, so nothing can be installed. Please install what these" >&2
  echo "Debian 12 packages hold, then run again with ZAVGEO_NO_SETUP=1:" >&2
  echo "  ${packages[*]}" >&2
  exit 1
fi

declare -A installed=()
while read -r package status; do
  if [[ $status == installed ]]; then installed[$package]=1; fi
done < <(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "${packages[@]}" 2>/dev/null || true)
missing=()
for package in "${packages[@]}"; do
  if [[ -z "${installed[$package]:-}" ]]; then missing+=("$package"); fi
done
if ((${#missing[@]} == 0)); then exit 0; fi

as_root=()
if ((EUID != 0)); then
  if ! command -v sudo >/dev/null; then
    echo "setup: packages are missing. Please run as root:" >&2
    echo "  apt-get update && apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
  fi
  as_root=(sudo)
fi
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=300)
echo "setup: installing ${missing[*]}"
"${apt[@]}" update </dev/null
"${apt[@]}" install -y --no-install-recommends "${missing[@]}" </dev/null
