#!/usr/bin/env bash
# Installs what is missing, builds, and starts the program.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh
exec build/src/app/orvenna-cli questions ""
