#!/usr/bin/env bash
# Runs every fuzz target in a folder for a number of seconds, its corpus
# started from the files of the program tree its .seeds file lists. A crash
# or a leak fails the run.
set -euo pipefail
cd "$(dirname "$0")/.."
folder=$1
seconds=${2:-15}
corpora=$(mktemp -d)
trap 'rm -rf "$corpora"' EXIT
for target in "$folder"/*_fuzz; do
  name=$(basename "$target" _fuzz)
  mkdir -p "$corpora/$name"
  if [ -f "fuzz/$name.seeds" ]; then
    while IFS= read -r seed; do
      [ -n "$seed" ] && cp "system/tree/$seed" "$corpora/$name/"
    done <"fuzz/$name.seeds"
  fi
  echo "-- $name: $seconds s"
  "$target" -max_total_time="$seconds" -print_final_stats=0 "$corpora/$name" 2>"$corpora/$name.log" ||
    { tail -n 40 "$corpora/$name.log"; exit 1; }
  grep -E "^(#[0-9]+\s+DONE|Done)" "$corpora/$name.log" | tail -n 1
done
