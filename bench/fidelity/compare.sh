#!/usr/bin/env bash
# Builds the demo letter from three templates (the built-in one and the two in templates/), renders
# each once with our engine and once with LibreOffice from our DOCX export, and compares where the
# words stand. Fails if a word lies more than 3 mm from LibreOffice's place or the page counts differ.
#
#   bench/fidelity/compare.sh [BUILD_DIR] [OUTPUT_DIR]
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
build=$(cd "${1:-$root/build}" && pwd)
out=${2:-/tmp/orvenna-fidelity}
limit_mm=3
python=/usr/bin/python3
cli=$build/src/app/orvenna-cli
now="2026-03-02 09:00:00"
memo="Die Patientin führt das Heimübungsprogramm selbständig durch. Eine Kontrolle in sechs Wochen wird empfohlen, bei Verschlechterung früher."

for tool in soffice pdftotext "$python" "$cli"; do
    command -v "$tool" >/dev/null || { echo "missing: $tool" >&2; exit 2; }
done

rm -rf "$out"
mkdir -p "$out/templates" "$out/sandbox"
# the command line tool keeps its folders inside the output folder
export ORVENNA_COMMON_APPDATA=$out/sandbox/common ORVENNA_LOG_DIR=$out/sandbox/log XDG_CONFIG_HOME=$out/sandbox/config

logo=$root/src/resources/feedback-template/word/media/logo.png
"$python" "$here/fidelity.py" pack "$here/templates/letterhead" "$out/templates/letterhead.docx" "word/media/logo.png=$logo"
"$python" "$here/fidelity.py" pack "$here/templates/tabstops" "$out/templates/tabstops.docx" "word/media/stamp.png=stamp"

status=0
for name in builtin letterhead tabstops; do
    dir=$out/$name
    mkdir -p "$dir"
    template=()
    [[ $name == builtin ]] || template=(--template "$out/templates/$name.docx")
    "$cli" --now "$now" letter --content "$root/src/resources/demo-content.json" \
        --questions "$root/src/resources/questions.json" "${template[@]}" --memo "$memo" \
        --pdf "$dir/ours.pdf" --docx "$dir/letter.docx" >/dev/null
    soffice "-env:UserInstallation=file://$out/lo-profile" --headless --convert-to pdf \
        --outdir "$dir/lo" "$dir/letter.docx" >/dev/null 2>&1
    "$python" "$here/fidelity.py" compare "$name" "$dir/ours.pdf" "$dir/lo/letter.pdf" "$limit_mm" || status=1
done
exit $status
