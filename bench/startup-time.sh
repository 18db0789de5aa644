#!/usr/bin/env bash
# How long the program takes from its start to the first paint of its main window, the
# welcome page with an empty list. Median of RUNS starts (default 7) after one start that
# creates the database, which is reported apart. Needs a display; without one it starts its
# own Xvfb and ends it afterwards.
#     bench/startup-time.sh [BUILD_DIR]        (default: build)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
program=$build/src/app/orvenna
cli=$build/src/app/orvenna-cli
runs=${RUNS:-7}

sandbox=$(mktemp -d)
xvfb_pid=
cleanup() {
    if [ -n "$xvfb_pid" ]; then kill "$xvfb_pid" 2>/dev/null || true; fi
    rm -rf "$sandbox"
}
trap cleanup EXIT

# the program's folders in a sandbox, so that the measurement leaves nothing behind
export ORVENNA_COMMON_APPDATA=$sandbox/common ORVENNA_LOG_DIR=$sandbox/logs XDG_CONFIG_HOME=$sandbox/config
mkdir -p "$ORVENNA_COMMON_APPDATA" "$ORVENNA_LOG_DIR" "$XDG_CONFIG_HOME" "$sandbox/outbox"
unset QT_QPA_PLATFORM

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ]; then
    display=:${XVFB_DISPLAY_NUMBER:-99}
    Xvfb "$display" -screen 0 1280x800x24 -nolisten tcp >/dev/null 2>&1 &
    xvfb_pid=$!
    export DISPLAY=$display
    sleep 1
fi

# milliseconds from the launch to the first paint, as the program reports it
start_once() {
    local start line
    start=$(date +%s%3N)
    line=$(ORVENNA_STARTUP_PROBE=1 "$program" 2>/dev/null | grep '^first-paint-epoch-ms=')
    echo $((${line#*=} - start))
}

first=$(start_once)
# with the outbox set, the welcome page stands alone
"$cli" config set --db "$ORVENNA_COMMON_APPDATA/quillnote/quillnote.s3db" --code DAME --user SYSTEM \
    "ExportFolder=$sandbox/outbox" >/dev/null
times=()
for _ in $(seq "$runs"); do
    times+=("$(start_once)")
done
sorted=$(printf '%s\n' "${times[@]}" | sort -n)
median=$(echo "$sorted" | sed -n "$(((runs + 1) / 2))p")
echo "first start (creates the database): $first ms"
echo "starts: ${times[*]} ms"
echo "median of $runs starts to the first paint: $median ms"
