#!/usr/bin/env bash
# --format json|csv against the text reports: results_check.py runs every
# command of its table in each form and compares them.
set -u
command -v python3 >/dev/null || { echo "FAIL: python3 is needed to read the JSON results"; exit 1; }
exec python3 "$2/cli/results_check.py" "$1"
