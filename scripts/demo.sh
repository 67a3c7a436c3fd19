#!/usr/bin/env bash
# Builds the program, writes the demonstration site and runs the main job on it.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh

cmake --preset release
cmake --build --preset release

site="$PWD/build/demo-site"
build/release/demo/qlon-demo-site "$site"
build/release/app/qlon --drive "C=$site" --write-report-template
build/release/app/qlon --drive "C=$site" --script demo/main-job.qlon
echo
echo "The printed report is $site/ItemsSold.pdf and the export $site/ExportSales.CSV."
