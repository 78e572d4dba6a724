#!/usr/bin/env bash
# window-pictures.sh FOLDER DPI, in a Wine session of its own: pictures of the configurator's window on a
# screen of that resolution.
set -euo pipefail
cd "$(dirname "$0")/../.."
# shellcheck source=sample.sh
. scripts/lib/sample.sh

wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$2" /f \
    >/dev/null 2>&1 </dev/null
sample_install >/dev/null
rm -rf "$1"
sample_window "$1"
