#!/usr/bin/env bash
# Installs what is missing, builds, and runs the program's feedback flow on the built-in demo
# content: the question catalogue it asks, the letter as PDF and the file for the DaMe outbox.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh
cli=build/src/app/orvenna-cli

echo "Built-in question catalogue:"
"$cli" questions ""
echo
echo "Demo feedback (built-in template and demo content):"
"$cli" demo --out "$PWD/demo-output"
