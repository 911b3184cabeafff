#!/usr/bin/env bash
# Runs a Windows program of the build in the build's own Wine prefix.
set -eu
root=$(cd "$(dirname "$0")/.." && pwd)
export WINEPREFIX="${ROWLARK_WINEPREFIX:-$root/build/wine}" WINEDEBUG="${WINEDEBUG:--all}"
exec wine "$@"
