#!/usr/bin/env bash
# Formats every source, or with --check only says which ones are not formatted.
set -euo pipefail
cd "$(dirname "$0")/.."
tool=$(command -v clang-format-14 || command -v clang-format)
mode=(-i)
[ "${1:-}" = --check ] && mode=(--dry-run -Werror)
git ls-files -- '*.cc' '*.h' ':!pclui/resources/*' | xargs -r "$tool" "${mode[@]}"
