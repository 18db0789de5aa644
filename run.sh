#!/usr/bin/env bash
# Installs what is missing, builds, and starts the desktop program when there is a display.
# Without one it runs the program's feedback flow on the built-in demo content: the question
# catalogue it asks, the letter as PDF and the file for the DaMe outbox.
set -euo pipefail
cd "$(dirname "$0")"
scripts/install-deps.sh
scripts/build.sh
cli=build/src/app/orvenna-cli

# With a display the desktop program comes up, with the options given to run.sh; the
# feedback flow below runs only without one.
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
    exec build/src/app/orvenna "$@"
fi

echo "Built-in question catalogue:"
"$cli" questions ""
echo
echo "Demo feedback (built-in template and demo content):"
"$cli" demo --out "$PWD/demo-output"
echo
echo "Demo export (the finish of the wizard on the demo content, into a new database and outbox):"
# a machine-wide folder of its own, so that the real database stays untouched
appdata=$(mktemp -d -t orvenna-demo-XXXXXX)
demo_cli() { ORVENNA_COMMON_APPDATA="$appdata" "$cli" "$@"; }
db=$(demo_cli open-database | sed -n 's/^database=//p')
mkdir -p "$appdata/outbox"
"$cli" config set --db "$db" --code DAME --user SYSTEM "ExportFolder=$appdata/outbox"
result=$(demo_cli export --demo)
echo "$result"
document=$(sed -n 's/^document=//p' <<<"$result")
echo "Stored row of tblDokumente:"
"$cli" db query --db "$db" \
    "SELECT DOCID, PATID, ADRID, DOCDatum, DOCThema, DOCDiagName, LENGTH(DOCDokumentPDF) AS Bytes FROM tblDokumente WHERE DOCID = ?" \
    "$document"
echo "The letter of the outbox file as PDF:"
"$cli" pdf-from-outbox "$(sed -n 's/^outbox=//p' <<<"$result")" --out "$PWD/demo-output/export-letter.pdf"
