#!/usr/bin/env bash
# Runs every test: installs what is missing, builds build/ (everything) and build-asan/ (the
# finite element half with AddressSanitizer and UndefinedBehaviorSanitizer), then runs both
# CTest suites, the GUI tests under Xvfb. Ends with CTest's summary of the full suite.
set -euo pipefail
TEV_ROOT=$(cd "$(dirname "$0")/.." && pwd)
source "$TEV_ROOT/scripts/common.sh"

"$TEV_ROOT/scripts/install-deps.sh"
tev_build "$TEV_ROOT/build"
tev_build "$TEV_ROOT/build-asan" -DTEV_WITH_VIEWER=OFF -DTEV_SANITIZE=ON -DTEV_BUILD_BENCH=OFF

status=0
echo "== finite element tests under AddressSanitizer and UndefinedBehaviorSanitizer"
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=1
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
(cd "$TEV_ROOT/build-asan" && ctest --output-on-failure -j "$(nproc)") || status=1
echo "== all tests"
(cd "$TEV_ROOT/build" && tev_xvfb ctest --output-on-failure -j "$(nproc)") || status=1
exit $status
