#!/usr/bin/env bash
# Installs what building, testing and the demo need, where it is missing:
# a C++20 compiler, CMake, pkg-config, MariaDB Connector/C, the MariaDB server,
# GoogleTest, and clang with its sanitizer and libFuzzer runtimes for
# scripts/fuzz.sh, dpkg-dev and lintian for the Debian packages, Doxygen for
# the API reference, Galera and rsync for the cluster, nlohmann-json and CLI11
# for the command-line tool (Debian packages).
set -euo pipefail

packages=(g++ make cmake pkg-config libmariadb-dev mariadb-server mariadb-client libgtest-dev libbenchmark-dev
          clang libclang-rt-14-dev dpkg-dev lintian doxygen galera-4 rsync nlohmann-json3-dev libcli11-dev)
missing=()
for p in "${packages[@]}"; do
  dpkg -s "$p" >/dev/null 2>&1 || missing+=("$p")
done
if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi
echo "install-deps: installing ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
# The package's own server start is not wanted: the project runs a private one.
policy_added=""
if [ ! -e /usr/sbin/policy-rc.d ]; then
  printf '#!/bin/sh\nexit 101\n' | $sudo tee /usr/sbin/policy-rc.d >/dev/null
  $sudo chmod +x /usr/sbin/policy-rc.d
  policy_added=yes
fi
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
[ -z "$policy_added" ] || $sudo rm -f /usr/sbin/policy-rc.d
