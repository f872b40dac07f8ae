#!/bin/bash
# Submits every case of a ZELMO-QRN project as one Slurm job array and, with
# --wait, waits for it and prints how each case ended.
#
#   contrib/slurm/submit.sh [--wait] <project folder> [sbatch options...]
#
# The output of task k goes to <project folder>/slurm-<job>_<k>.out.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
wait_for_it=
if [ "${1:-}" = --wait ]; then
  wait_for_it=--wait
  shift
fi
project=$(cd "${1:?usage: submit.sh [--wait] <project folder> [sbatch options...]}" && pwd)
shift
zelmo=${ZELMO:-zelmo}
count=$("$zelmo" list-cases "$project" | wc -l)
if [ "$count" -eq 0 ]; then
  echo "submit: $project has no cases" >&2
  exit 1
fi
# Export ZELMO so that the tasks find the same command.
ZELMO=$zelmo sbatch --parsable $wait_for_it --array=1-"$count" \
  --output="$project/slurm-%A_%a.out" "$@" "$here/zelmo-case.sbatch" "$project"
