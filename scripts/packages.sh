#!/usr/bin/env bash
# Builds the Debian packages libcorvane1, libcorvane-dev and corvane-tools in a
# Release build with Debian's build flags (build-release/, or
# $CORVANE_PACKAGE_BUILD) into its packages/ folder, and runs lintian on them:
# an error fails, warnings are shown. Extra arguments go to the CMake configure
# step. The build also holds the test that installs the packages
# (ctest --test-dir build-release -L packages).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
cd "$root"

scripts/install-deps.sh
build=${CORVANE_PACKAGE_BUILD:-$root/build-release}
extra=()
[ -z "${CI:-}" ] || extra+=(-DCORVANE_WERROR=ON)
# Debian's compiler and linker flags, hardening included.
export DEB_BUILD_MAINT_OPTIONS=hardening=+all
cxxflags="$(dpkg-buildflags --get CPPFLAGS) $(dpkg-buildflags --get CXXFLAGS)"
ldflags=$(dpkg-buildflags --get LDFLAGS)
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=Release -DCMAKE_INSTALL_PREFIX=/usr \
  -DCMAKE_CXX_FLAGS="$cxxflags" -DCMAKE_SHARED_LINKER_FLAGS="$ldflags" \
  -DCMAKE_EXE_LINKER_FLAGS="$ldflags" -DCMAKE_MODULE_LINKER_FLAGS="$ldflags" \
  -DCORVANE_BUILD_TESTS=OFF -DCORVANE_BUILD_EXAMPLES=ON -DCORVANE_BUILD_BENCH=OFF \
  -DCORVANE_TEST_PACKAGES=ON "${extra[@]}" "$@" >/dev/null
cmake --build "$build" -j"$(nproc)"
rm -rf "$build/packages"
(cd "$build" && cpack --config CPackConfig.cmake -B "$build/packages" >/dev/null)
debs=("$build"/packages/*.deb)
for deb in "${debs[@]}"; do
  echo "packages: ${deb#"$root"/}"
  dpkg-deb --field "$deb" Package Version Architecture Depends | sed 's/^/  /'
done
lintian --fail-on error "${debs[@]}"
echo "packages: lintian reports no error"
