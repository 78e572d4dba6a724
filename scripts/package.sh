#!/usr/bin/env bash
# Builds everything and packs what a vendor needs into dist/tarvex-VERSION-win32.zip. The same sources
# give the same bytes.
set -euo pipefail
cd "$(dirname "$0")/.."

./scripts/setup.sh
./scripts/build.sh
/usr/bin/python3 scripts/lib/package.py dist/win32 dist
