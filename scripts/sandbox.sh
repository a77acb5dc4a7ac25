#!/usr/bin/env bash
# Private MariaDB server for the demo and the tests.
#
#   scripts/sandbox.sh start   initialise (first time) and start; reuses a running server
#   scripts/sandbox.sh stop    stop the server
#   scripts/sandbox.sh status  exit 0 when the server answers
#   scripts/sandbox.sh client  open a SQL client on it (extra arguments go to the client)
#
# Everything lives under $CORVANE_SANDBOX (default: build/sandbox): data folder, socket,
# pid file, log. The server listens on 127.0.0.1:$CORVANE_SANDBOX_PORT (default 3306).
# Account for the library: user "corvane", password "corvane", all rights.
#
# The server is durable: what it has acknowledged survives a crash (the log is
# flushed at every commit, pages go through the doublewrite buffer). With
# CORVANE_SANDBOX_FAST=1 (the test script sets it) start turns the flush at
# commit off for speed; a later start without it turns it on again, also on a
# server that is already running.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
box=${CORVANE_SANDBOX:-$root/build/sandbox}
port=${CORVANE_SANDBOX_PORT:-3306}
data=$box/data
sock=$box/mysqld.sock
pidf=$box/mysqld.pid
log=$box/mysqld.log
cnf=$box/my.cnf

write_config() {
  mkdir -p "$box"
  cat >"$cnf" <<CNF
[mysqld]
user=root
datadir=$data
socket=$sock
pid-file=$pidf
log-error=$log
bind-address=127.0.0.1
port=$port
skip-name-resolve
lower_case_table_names=1
character-set-server=utf8mb4
collation-server=utf8mb4_general_ci
sql_mode=STRICT_TRANS_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION
innodb_buffer_pool_size=256M
innodb_log_file_size=64M
innodb_flush_log_at_trx_commit=1
innodb_doublewrite=1
innodb_file_per_table=0
max_connections=500
# A statement carries an attachment escaped, up to twice its size: 256M takes
# files of 64 MiB whatever their bytes. A larger one fails on this limit.
max_allowed_packet=256M
general_log=0
general_log_file=$box/general.log
CNF
}

answers() {
  mariadb-admin --defaults-file=/dev/null --socket="$sock" -uroot ping >/dev/null 2>&1
}

# The flush at commit: off only when CORVANE_SANDBOX_FAST=1 asks for speed.
durability() {
  local flush=1 mode=durable
  if [ "${CORVANE_SANDBOX_FAST:-}" = 1 ]; then flush=0; mode=fast; fi
  mariadb --defaults-file=/dev/null --socket="$sock" -uroot \
    -e "SET GLOBAL innodb_flush_log_at_trx_commit=$flush"
  echo "$mode"
}

start() {
  if answers; then
    echo "sandbox: running (socket $sock, port $port, $(durability))"
    return 0
  fi
  write_config
  if [ ! -d "$data/mysql" ]; then
    rm -rf "$data"
    mkdir -p "$data"
    mariadb-install-db --defaults-file="$cnf" --auth-root-authentication-method=normal \
      --skip-test-db >"$box/install.log" 2>&1 || { cat "$box/install.log"; exit 1; }
  fi
  # A stale pid file from a killed server would stop the new one.
  rm -f "$pidf" "$sock"
  mariadbd --defaults-file="$cnf" >>"$log" 2>&1 &
  for _ in $(seq 1 300); do
    if answers; then break; fi
    sleep 0.1
  done
  if ! answers; then
    echo "sandbox: server did not start; log follows" >&2
    tail -n 40 "$log" >&2
    exit 1
  fi
  mariadb --defaults-file=/dev/null --socket="$sock" -uroot <<'SQL'
CREATE USER IF NOT EXISTS 'corvane'@'127.0.0.1' IDENTIFIED BY 'corvane';
CREATE USER IF NOT EXISTS 'corvane'@'localhost' IDENTIFIED BY 'corvane';
GRANT ALL PRIVILEGES ON *.* TO 'corvane'@'127.0.0.1' WITH GRANT OPTION;
GRANT ALL PRIVILEGES ON *.* TO 'corvane'@'localhost' WITH GRANT OPTION;
SQL
  echo "sandbox: started (socket $sock, port $port, $(durability))"
}

stop() {
  if answers; then
    mariadb-admin --defaults-file=/dev/null --socket="$sock" -uroot shutdown
  fi
  echo "sandbox: stopped"
}

case "${1:-start}" in
  start) start ;;
  stop) stop ;;
  status) answers ;;
  client) shift; exec mariadb --defaults-file=/dev/null --socket="$sock" -uroot "$@" ;;
  *) echo "usage: $0 start|stop|status|client" >&2; exit 2 ;;
esac
