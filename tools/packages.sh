# SPDX-License-Identifier: MIT
# The Debian packages that ./run and ./test need, in one place; to be sourced.
# shellcheck shell=bash

# CPack asks `file` which of the installed files are programs.
build_packages=(build-essential cmake ninja-build qt6-base-dev qt6-svg-dev file)
# The last group is for the tests that start the program on a display of their own.
test_packages=(libgtest-dev libgmock-dev libbenchmark-dev
  clang clang-format clang-tidy libclang-rt-14-dev
  desktop-file-utils appstream man-db
  xvfb xauth xdotool openbox x11-utils imagemagick fonts-dejavu-core)

is_installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    env DEBIAN_FRONTEND=noninteractive "$@"
  else
    sudo env DEBIAN_FRONTEND=noninteractive "$@"
  fi
}

# Installs those of the named packages that are missing; leaves apt alone if none is.
install_missing() {
  local package missing=()
  for package in "$@"; do
    is_installed "$package" || missing+=("$package")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  echo "Installing ${missing[*]}"
  as_root apt-get update -qq
  as_root apt-get install -qq -y --no-install-recommends "${missing[@]}"
}
