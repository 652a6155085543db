#!/bin/bash
# Fails when a library exports other names than the list beside this script says.
#
#   compare.sh <library>
set -euo pipefail
library=$(realpath "$1")
cd "$(dirname "$0")"
list=$(basename "$1" .so).txt
if ! ../../tools/exported-symbols "$library" |
  diff --unified=0 --label "wanted: tests/symbols/$list" --label "exported: $library" "$list" -; then
  echo "If users are meant to get or to lose these names: make symbols, and commit the list." >&2
  exit 1
fi
