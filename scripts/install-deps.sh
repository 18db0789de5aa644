#!/usr/bin/env bash
# Installs the Debian 12 packages the build, the tests and the tools need.
# Safe to run again: it installs only what is missing.
set -euo pipefail

packages=(
    build-essential cmake ninja-build ccache pkg-config clang
    qt6-base-dev qt6-base-dev-tools qt6-5compat-dev
    qt6-pdf-dev libqt6svg6
    libsqlite3-dev zlib1g-dev libldap-dev libquazip1-qt6-dev
    libgtest-dev libgmock-dev googletest libbenchmark-dev rapidjson-dev
    xvfb xauth poppler-utils fonts-dejavu-core fonts-crosextra-carlito
)

missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
        missing+=("$p")
    fi
done

if [ ${#missing[@]} -eq 0 ]; then
    exit 0
fi

echo "Installing: ${missing[*]}"
if [ "$(id -u)" -ne 0 ]; then
    SUDO=sudo
else
    SUDO=
fi
export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}"
