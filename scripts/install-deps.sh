#!/usr/bin/env bash
# Installs the Debian packages the project builds, tests and runs with.
# Idempotent: does nothing when every package is already there.
set -euo pipefail

packages=(
  build-essential cmake ninja-build pkg-config ccache
  qt6-base-dev qt6-base-dev-tools libqt6sql6-sqlite libgl-dev
  mdbtools-dev libsqlite3-dev libcups2-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  poppler-utils clang-format clang-tidy python3
  onboard cups-daemon cups-client lintian
  libpq-dev postgresql-15
  libcpp-httplib-dev libssl-dev libsodium-dev libxlsxwriter-dev openssl
  chromium chromium-driver python3-selenium
)

missing=()
for package in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$package")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

sudo=""
if [ "$(id -u)" -ne 0 ]; then sudo="sudo"; fi
echo "Installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}"
