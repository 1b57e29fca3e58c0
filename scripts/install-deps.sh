#!/usr/bin/env bash
# Installs what the project needs on Debian 12, as root, and builds OCCT's VTK bridge into
# .deps/occt-ivtk (ignored by git). Quick and silent when everything is already there.
#   TEV_FE_ONLY=1  install only what the finite element half needs.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)

fe_packages=(cmake g++ make ccache libgtest-dev libbenchmark-dev
  gmsh calculix-ccx admesh assimp-utils)  # independent readers and a solver that check our decks
viewer_packages=(qtbase5-dev libvtk9-dev libvtk9-qt-dev
  libocct-foundation-dev libocct-modeling-data-dev libocct-modeling-algorithms-dev
  libocct-ocaf-dev libocct-visualization-dev libocct-data-exchange-dev
  libx11-dev xvfb xauth libgl1-mesa-dri dpkg-dev xz-utils patch
  fonts-wqy-microhei  # glyphs for the status bar's Chinese selection count
  libgmsh-dev)        # the demo host's volume mesher

packages=("${fe_packages[@]}")
[ "${TEV_FE_ONLY:-0}" = 1 ] || packages+=("${viewer_packages[@]}")

as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'ok installed' || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "install-deps: installing ${missing[*]}"
  as_root apt-get update -q
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
fi

[ "${TEV_FE_ONLY:-0}" = 1 ] && exit 0
exec "$here/scripts/build-ivtk.sh"
