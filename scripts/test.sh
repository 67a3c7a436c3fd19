#!/usr/bin/env bash
# Builds and runs every test: once under AddressSanitizer, UndefinedBehaviorSanitizer and leak detection with
# warnings as errors, and once as the domain libraries alone, without any screen.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/install-deps.sh

cmake --preset asan
cmake --build --preset asan
ctest --preset asan

cmake --preset core-only
cmake --build --preset core-only
ctest --preset core-only
