#!/usr/bin/env bash
# sbatch slurm-array.sh FOLDER: each task of the array is a worker. Submit it again after a task was killed: what is
# finished stays.
#SBATCH --job-name=camjob
#SBATCH --array=0-3
#SBATCH --ntasks=1
#SBATCH --cpus-per-task=1
#SBATCH --output=/dev/null
set -euo pipefail
# Slurm runs a copy of this file.
"$SLURM_SUBMIT_DIR/work.sh" "$1" "$SLURM_ARRAY_TASK_ID" "$SLURM_ARRAY_TASK_COUNT"
