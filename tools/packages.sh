#!/usr/bin/env bash
# Installs what is missing of Debian's packages. `packages.sh build` for ./run, `packages.sh all` for ./test,
# `packages.sh bench` for bench/run.
set -euo pipefail

build=(cmake ninja-build g++ llvm pkg-config qt6-base-dev libsqlitecpp-dev libsqlite3-dev libqpdf-dev libcli11-dev
       nlohmann-json3-dev libgtest-dev libgmock-dev googletest fonts-liberation)
check=(clang clang-format libclang-rt-dev g++-multilib libbenchmark-dev xvfb xauth xdotool qpdf poppler-utils python3)
bench=(libcups2-dev)

wanted=("${build[@]}")
[ "${1:-build}" != build ] && wanted+=("${check[@]}")
[ "${1:-build}" = bench ] && wanted+=("${bench[@]}")

missing=()
for package in "${wanted[@]}"; do
    status=$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$status" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=()
if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "packages.sh: root or sudo is needed to install: ${missing[*]}" >&2; exit 1; }
    sudo=(sudo)
fi
echo "Installing ${missing[*]}"
"${sudo[@]}" apt-get update -qq
"${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
