#!/usr/bin/env bash
# Installs everything (Debian 12, as root), builds the library, the tests and the demo host into
# build/, and runs the demo host. With no display the host runs under Xvfb and saves a
# screenshot to build/demo.png. Idempotent: a second run only rebuilds what changed.
set -euo pipefail
TEV_ROOT=$(cd "$(dirname "$0")/.." && pwd)
source "$TEV_ROOT/scripts/common.sh"

"$TEV_ROOT/scripts/install-deps.sh"
tev_build "$TEV_ROOT/build"

demo="$TEV_ROOT/build/examples/tev_demo_host"
shot="$TEV_ROOT/build/demo.png"
if [ -n "${DISPLAY:-}" ] && [ -z "${CI:-}" ]; then
  "$demo"
else
  tev_xvfb "$demo" --screenshot "$shot"
  echo "setup: demo screenshot saved to $shot"
fi
