#!/usr/bin/env bash
# Start-up cost of the program: time from process start to the main menu
# shown, and peak memory (maximum resident set size), over several runs.
#
#   bench/startup.sh [path/to/orvane] [runs]
#
# The program ends itself right after showing the menu when
# ORVANE_QUIT_AFTER_SHOW=1, and prints how long that took from main().
# Runs headless (QT_QPA_PLATFORM=offscreen) unless a display is set.
# Targets: under 400 ms and under 80 MB.
set -euo pipefail
here="$(cd "$(dirname "$0")/.." && pwd)"
prog="${1:-$here/build/orvane}"
runs="${2:-10}"
[ -x "$prog" ] || { echo "no program at $prog (build first)" >&2; exit 2; }
[ -x /usr/bin/time ] || { echo "/usr/bin/time is needed (apt-get install time)" >&2; exit 2; }
export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
export ORVANE_QUIT_AFTER_SHOW=1
# A private lock folder, so that a copy the user has open does not refuse us.
export XDG_RUNTIME_DIR="$(mktemp -d)"
trap 'rm -rf "$XDG_RUNTIME_DIR"' EXIT

walls=(); rss=(); inner=()
for i in $(seq "$runs"); do
  out="$( { /usr/bin/time -f '%e %M' "$prog" 2>&1 1>/dev/null; } 2>&1 )"
  inner+=("$(printf '%s\n' "$out" | sed -n 's/.*menu shown after \([0-9]*\) ms.*/\1/p' | tail -1)")
  last="$(printf '%s\n' "$out" | tail -1)"
  walls+=("$(echo "$last" | awk '{printf "%d", $1*1000}')")
  rss+=("$(echo "$last" | awk '{print $2}')")
done
median() { printf '%s\n' "$@" | sort -n | awk '{a[NR]=$1} END {print a[int((NR+1)/2)]}'; }
max() { printf '%s\n' "$@" | sort -n | tail -1; }
echo "runs:                         $runs"
echo "menu shown (from main), ms:   median $(median "${inner[@]}")  max $(max "${inner[@]}")"
echo "whole process (wall), ms:     median $(median "${walls[@]}")  max $(max "${walls[@]}")"
echo "peak memory (max RSS), MB:    median $(( $(median "${rss[@]}") / 1024 ))  max $(( $(max "${rss[@]}") / 1024 ))"
