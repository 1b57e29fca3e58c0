#!/usr/bin/env bash
# Builds OCCT's VTK bridge (TKIVtk) from Debian's own OCCT source package, matching the
# installed OCCT version, into .deps/occt-ivtk. The source archive and a built copy are kept in
# /var/cache/tev so that a fresh clone on the same machine only copies them.
set -euo pipefail
here=$(cd "$(dirname "$0")/.." && pwd)
prefix="$here/.deps/occt-ivtk"
cache=${TEV_CACHE_DIR:-/var/cache/tev}

version=$(dpkg-query -W -f='${Version}' libocct-foundation-dev)
recipe=$(cat "$here/cmake/ivtk/CMakeLists.txt" "$0" | sha1sum | cut -c1-12)
stamp="$version $recipe"

as_root() { if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi; }

if [ -f "$prefix/lib/libTKIVtk.so" ] && [ "$(cat "$prefix/stamp" 2>/dev/null)" = "$stamp" ]; then
  exit 0
fi
built="$cache/occt-ivtk-$version-$recipe"
if [ -f "$built/lib/libTKIVtk.so" ]; then
  rm -rf "$prefix"; mkdir -p "$(dirname "$prefix")"; cp -a "$built" "$prefix"
  echo "$stamp" > "$prefix/stamp"
  exit 0
fi

as_root mkdir -p "$cache"
as_root chmod 1777 "$cache" 2>/dev/null || true
cd "$cache"
upstream=${version%-*}
if [ ! -f "opencascade_${upstream}.orig.tar.xz" ] || [ ! -f "opencascade_${version}.debian.tar.xz" ]; then
  src_list=/etc/apt/sources.list.d/tev-deb-src.sources
  if ! apt-cache showsrc "opencascade=$version" 2>/dev/null | grep -q '^Package: opencascade'; then
    # Source entries for the same suites as the binary ones.
    printf '%s\n' 'Types: deb-src' 'URIs: http://deb.debian.org/debian' \
      'Suites: bookworm bookworm-updates' 'Components: main' \
      'Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg' | as_root tee "$src_list" >/dev/null
    as_root apt-get update -q
  fi
  apt-get source -q --download-only "opencascade=$version"
fi

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
tar xJf "$cache/opencascade_${upstream}.orig.tar.xz" --wildcards '*/src/IVtk*' '*/src/TKIVtk/*'
src=$(ls -d "$work"/*/ | head -n 1)
tar xJf "$cache/opencascade_${version}.debian.tar.xz" debian/patches
# Debian's patches that touch the bridge, if any, apply as they do for the binary packages.
while read -r p; do
  [ -n "$p" ] && [ "${p#\#}" = "$p" ] || continue
  if grep -q '^+++ .*/src/IVtk' "debian/patches/$p"; then (cd "$src" && patch -s -p1 < "$work/debian/patches/$p"); fi
done < debian/patches/series

cmake -S "$here/cmake/ivtk" -B "$work/build" -DOCCT_SOURCE_DIR="$src" \
  -DCMAKE_INSTALL_PREFIX="$built" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_RPATH_USE_LINK_PATH=ON >/dev/null
cmake --build "$work/build" -j "$(nproc)"
cmake --install "$work/build" >/dev/null
rm -rf "$prefix"; mkdir -p "$(dirname "$prefix")"; cp -a "$built" "$prefix"
echo "$stamp" > "$prefix/stamp"
echo "build-ivtk: TKIVtk $version built into $prefix"
