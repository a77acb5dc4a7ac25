#!/usr/bin/env bash
# Makes the Debian packages of a build (configured with
# CMAKE_INSTALL_PREFIX=/usr, scripts/packages.sh), installs them into this
# machine with apt-get, builds the demo client against the installed packages
# alone (outside the source tree, through find_package and through
# pkg-config), runs both against throwaway databases on the sandbox server,
# compares what they print with what the build tree's demo prints, and removes
# the packages again, also when a step failed. Needs root.
set -euo pipefail
build=$1
source=$2
packages=(libcorvane-dev corvane-tools libcorvane1)
[ "$(id -u)" -eq 0 ] || { echo "packages test: apt-get needs root" >&2; exit 1; }
[ -x "$build/examples/corvane_demo" ] || { echo "packages test: no demo in $build" >&2; exit 1; }

server=${CORVANE_TEST_SERVER:-127.0.0.1}
port=${CORVANE_TEST_PORT:-${CORVANE_SANDBOX_PORT:-3306}}
user=${CORVANE_TEST_USER:-corvane}
password=${CORVANE_TEST_PASSWORD:-corvane}
databases=(corvane_pkg_$$_tree corvane_pkg_$$_cmake corvane_pkg_$$_pc)
work=$(mktemp -d)
chmod 755 "$work"   # apt reads the packages as its own user
sql() { mariadb --protocol=tcp -h "$server" -P "$port" -u "$user" -p"$password" "$@"; }
cleanup() {
  local status=$?
  dpkg --purge "${packages[@]}" >/dev/null 2>&1 || status=1
  for db in "${databases[@]}"; do
    sql -e "DROP DATABASE IF EXISTS $db; DROP DATABASE IF EXISTS ${db}_pic" || true
  done
  rm -rf "$work"
  exit "$status"
}
trap cleanup EXIT
fail() { echo "FAILED: $*" >&2; exit 1; }

# Nothing of an earlier run stays installed.
dpkg --purge "${packages[@]}" >/dev/null 2>&1

echo "== the packages"
(cd "$build" && cpack --config CPackConfig.cmake -B "$work/debs" >/dev/null)
ls "$work"/debs/*.deb
(cd "$work/debs" && DEBIAN_FRONTEND=noninteractive apt-get install -y -q ./*.deb >"$work/apt.log" 2>&1) ||
  { cat "$work/apt.log"; fail "apt-get install"; }
for p in "${packages[@]}"; do
  [ "$(dpkg-query -W -f '${Status}' "$p")" = "install ok installed" ] || fail "$p is not installed"
done
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
for f in /usr/lib/$multiarch/libcorvane.so.1 /usr/lib/$multiarch/libcorvane.so \
         /usr/include/corvane/corvane.h /usr/lib/$multiarch/cmake/corvane/corvaneConfig.cmake \
         /usr/lib/$multiarch/pkgconfig/corvane.pc /usr/share/corvane/corvane.sql \
         /usr/share/corvane/corvane_pic.sql /usr/share/doc/libcorvane1/copyright; do
  [ -e "$f" ] || fail "$f is not installed"
done
[ "$(dpkg -S /usr/lib/"$multiarch"/libcorvane.so.1 | cut -d: -f1)" = libcorvane1 ] || fail "libcorvane.so.1 is not libcorvane1's"
[ "$(dpkg -S /usr/include/corvane/corvane.h | cut -d: -f1)" = libcorvane-dev ] || fail "the headers are not libcorvane-dev's"
[ ! -e /usr/include/corvane/frame/internal ] || fail "internal headers are installed"

echo "== the demo, built against the installed packages"
mkdir -p "$work/demo/examples"
cp "$source"/examples/demo*.cc "$source"/examples/demo.h "$work/demo/examples/"
cat >"$work/demo/CMakeLists.txt" <<'CMAKE'
cmake_minimum_required(VERSION 3.20)
project(corvane_demo_from_packages LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
find_package(corvane 1 CONFIG REQUIRED)
file(GLOB sources ${CMAKE_CURRENT_SOURCE_DIR}/examples/demo*.cc)
add_executable(corvane_demo ${sources})
target_include_directories(corvane_demo PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(corvane_demo PRIVATE corvane::corvane)
CMAKE
cmake -S "$work/demo" -B "$work/demo/build" -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF >/dev/null
found=$(sed -n 's/^corvane_DIR:PATH=//p' "$work/demo/build/CMakeCache.txt")
[ "$found" = "/usr/lib/$multiarch/cmake/corvane" ] || fail "find_package found $found"
cmake --build "$work/demo/build" -j"$(nproc)" >/dev/null
# shellcheck disable=SC2046
c++ -std=c++20 -I"$work/demo" "$work"/demo/examples/demo*.cc -o "$work/demo/corvane_demo_pc" \
  $(pkg-config --cflags --libs corvane)
for demo in "$work/demo/build/corvane_demo" "$work/demo/corvane_demo_pc"; do
  lib=$(ldd "$demo" | awk '$1 == "libcorvane.so.1" { print $3 }')
  [ -n "$lib" ] && [ "$(readlink -f "$lib")" = "$(readlink -f /usr/lib/"$multiarch"/libcorvane.so.1)" ] ||
    fail "$demo loads libcorvane.so.1 from '$lib'"
done

echo "== the demo, run against the sandbox server"
# Each run gets a database of its own, made with the installed schema scripts
# and the demo's sample rows, and its attachment database beside it.
run() {  # name of the database, demo program, output
  local db=$1
  sql -e "DROP DATABASE IF EXISTS $db; CREATE DATABASE $db; DROP DATABASE IF EXISTS ${db}_pic; CREATE DATABASE ${db}_pic"
  sql "$db" </usr/share/corvane/corvane.sql
  for f in "$source"/examples/sample*.sql; do sql "$db" <"$f"; done
  sql "${db}_pic" </usr/share/corvane/corvane_pic.sql
  CORVANE_CONNECTION="SERVER=$server;PORT=$port;DATABASE=$db;UID=$user;PWD=$password" "$2" </dev/null >"$3.raw" ||
    fail "$2 ended with status $?"
  # The database's name, the demo's scratch folder and the server's clock
  # differ from run to run.
  sed -E "s/$db/DB/g; s/corvane_demo_[0-9]+/corvane_demo_PID/g; s/[0-9]{2}:[0-9]{2}:[0-9]{2}/hh:mm:ss/g" "$3.raw" >"$3"
}
run "${databases[0]}" "$build/examples/corvane_demo" "$work/tree.out"
run "${databases[1]}" "$work/demo/build/corvane_demo" "$work/cmake.out"
run "${databases[2]}" "$work/demo/corvane_demo_pc" "$work/pc.out"
grep -q "the file and its trailing zero byte" "$work/tree.out" || fail "the build tree's demo did not read its attachment back"
! grep -q DIFFERENT "$work/tree.out" || fail "the build tree's demo read a different attachment"
diff -u "$work/tree.out" "$work/cmake.out" || fail "the demo built with find_package prints something else"
diff -u "$work/tree.out" "$work/pc.out" || fail "the demo built with pkg-config prints something else"
echo "$(grep -c '^  sql \[' "$work/tree.out") statements and $(grep -c '^  report (' "$work/tree.out") reports, alike in all three runs"

echo "== removing the packages"
dpkg --purge "${packages[@]}" >/dev/null
for p in "${packages[@]}"; do
  [ "$(dpkg-query -W -f '${Status}' "$p" 2>/dev/null || true)" != "install ok installed" ] || fail "$p is still installed"
done
[ ! -e /usr/lib/"$multiarch"/libcorvane.so.1 ] || fail "libcorvane.so.1 is still there"
echo "packages installed, used and removed"
