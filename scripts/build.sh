#!/usr/bin/env bash
# Builds what is shipped and leaves it in dist/: dist/win32 and dist/linux.
set -euo pipefail
cd "$(dirname "$0")/.."

echo "== Build: 32-bit Windows"
cmake --preset win32 >/dev/null
cmake --build --preset win32 --target tarvex
cmake --preset win32-tools >/dev/null
cmake --build --preset win32-tools --target tarvexcf tarvexcf_window
echo "== Build: Linux"
cmake --preset linux >/dev/null
cmake --build --preset linux --target tarvexcf

mkdir -p dist/win32 dist/linux
install -m 0755 build/win32/tarvex.exe build/win32-tools/tarvexcf.com build/win32-tools/tarvexcf.exe \
    dist/win32/
install -m 0755 build/linux/tarvexcf dist/linux/
dist/linux/tarvexcf man >dist/linux/tarvexcf.1
dist/linux/tarvexcf completion bash >dist/linux/tarvexcf.bash
echo "== In dist/:"
ls -l dist/win32 dist/linux
