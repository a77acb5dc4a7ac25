#!/usr/bin/env bash
# A three-node MariaDB Galera cluster on this machine, loopback only.
#
#   scripts/cluster.sh start         start the nodes that are not running (the first
#                                    one that starts with none running bootstraps)
#   scripts/cluster.sh stop          stop all nodes (the first one last)
#   scripts/cluster.sh status        one line per node; exit 0 when all three are synced
#   scripts/cluster.sh kill N        SIGKILL node N (1, 2 or 3)
#   scripts/cluster.sh restart N     start node N again (state transfer from the others)
#                                    and wait until it is synced; kill it first if it runs
#   scripts/cluster.sh client N ...  a SQL client on node N (extra arguments go to it)
#   scripts/cluster.sh text [DB]     the library's connection text naming all three nodes
#
# Everything lives under $CORVANE_CLUSTER (default: build/cluster): node1, node2,
# node3, each with its data folder, socket, pid file and log. Node N listens for SQL
# its own ports on 127.0.0.1:
#   node 1: SQL 4306, group 4567, IST 4568, SST 4444
#   node 2: SQL 4307, group 4577, IST 4578, SST 4454
#   node 3: SQL 4308, group 4587, IST 4588, SST 4464
# The settings are the sandbox's (table names without regard to case, utf8mb4,
# the sql_mode), durable (log flushed at every commit, doublewrite on), with
# small buffers. A statement that loses a conflict with a write of another node
# is refused, not run again by the server (wsrep_retry_autocommit=0). The nodes run as the mysql account, which owns the folders, so
# that the rsync state transfer works. Account for the library: "corvane" /
# "corvane", all rights (made once on the bootstrap node, replicated).
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
base=${CORVANE_CLUSTER:-$root/build/cluster}
provider=/usr/lib/galera/libgalera_smm.so
account=mysql

sql_port() { echo $((4305 + $1)); }
group_port() { echo $((4557 + 10 * $1)); }
ist_port() { echo $((4558 + 10 * $1)); }
sst_port() { echo $((4434 + 10 * $1)); }
dir() { echo "$base/node$1"; }
sock() { echo "$(dir "$1")/mysqld.sock"; }
pidfile() { echo "$(dir "$1")/mysqld.pid"; }

members() {
  echo "127.0.0.1:$(group_port 1),127.0.0.1:$(group_port 2),127.0.0.1:$(group_port 3)"
}

write_config() {
  local n=$1 d
  d=$(dir "$n")
  mkdir -p "$d"
  cat >"$d/my.cnf" <<CNF
[mysqld]
user=$account
datadir=$d/data
socket=$(sock "$n")
pid-file=$(pidfile "$n")
log-error=$d/mysqld.log
bind-address=127.0.0.1
port=$(sql_port "$n")
skip-name-resolve
lower_case_table_names=1
character-set-server=utf8mb4
collation-server=utf8mb4_general_ci
sql_mode=STRICT_TRANS_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION
innodb_buffer_pool_size=64M
innodb_log_file_size=32M
innodb_flush_log_at_trx_commit=1
innodb_doublewrite=1
innodb_file_per_table=0
innodb_autoinc_lock_mode=2
default_storage_engine=InnoDB
binlog_format=ROW
max_connections=200
max_allowed_packet=256M
performance_schema=OFF
wsrep_on=ON
wsrep_provider=$provider
wsrep_cluster_name=corvane
wsrep_cluster_address=gcomm://$(members)
wsrep_node_name=node$n
wsrep_node_address=127.0.0.1:$(group_port "$n")
wsrep_provider_options="gmcast.listen_addr=tcp://127.0.0.1:$(group_port "$n");ist.recv_addr=127.0.0.1:$(ist_port "$n");gcache.size=32M;gcs.fc_limit=64"
wsrep_sst_method=rsync
wsrep_sst_receive_address=127.0.0.1:$(sst_port "$n")
wsrep_slave_threads=2
# A statement that lost against another node's write of the same row fails
# (error 1213) instead of being run again by the server behind the caller's back.
wsrep_retry_autocommit=0
CNF
}

admin() { mariadb --defaults-file=/dev/null --socket="$(sock "$1")" -uroot "${@:2}"; }

answers() { admin "$1" -N -e "select 1" >/dev/null 2>&1; }

# wsrep_local_state 4 (synced) and wsrep_ready on.
synced() {
  local out
  out=$(admin "$1" -N -e "select group_concat(variable_value order by variable_name) from
    information_schema.global_status where variable_name in ('wsrep_local_state','wsrep_ready')" \
    2>/dev/null) || return 1
  [ "$out" = "4,ON" ]
}

running() {
  local p
  p=$(cat "$(pidfile "$1")" 2>/dev/null) || return 1
  [ -n "$p" ] && kill -0 "$p" 2>/dev/null
}

any_running() { running 1 || running 2 || running 3; }

# Waits up to $2 seconds for node $1 to be synced; the node's end fails at once.
wait_synced() {
  local n=$1 limit=$2 i
  for ((i = 0; i < limit * 5; i++)); do
    if synced "$n"; then return 0; fi
    if [ -f "$(pidfile "$n")" ] && ! running "$n"; then break; fi
    sleep 0.2
  done
  echo "cluster: node $n is not synced; log follows" >&2
  tail -n 30 "$(dir "$n")/mysqld.log" >&2
  return 1
}

init_node() {
  local n=$1 d
  d=$(dir "$n")
  write_config "$n"
  if [ ! -d "$d/data/mysql" ]; then
    rm -rf "$d/data"
    mkdir -p "$d/data"
    chown -R "$account:$account" "$d"
    mariadb-install-db --defaults-file="$d/my.cnf" --auth-root-authentication-method=normal \
      --skip-test-db >"$d/install.log" 2>&1 || { cat "$d/install.log"; exit 1; }
  fi
  chown -R "$account:$account" "$d"
}

# Starts node n; bootstrap=1 forms a new cluster from it.
launch() {
  local n=$1 bootstrap=$2 d extra=()
  d=$(dir "$n")
  init_node "$n"
  rm -f "$(pidfile "$n")" "$(sock "$n")"
  if [ "$bootstrap" = 1 ]; then
    extra+=(--wsrep-new-cluster)
    # This node's data is taken as the cluster's: it may form one.
    [ ! -f "$d/data/grastate.dat" ] ||
      sed -i 's/^safe_to_bootstrap: 0/safe_to_bootstrap: 1/' "$d/data/grastate.dat"
  fi
  mariadbd --defaults-file="$d/my.cnf" "${extra[@]}" >>"$d/mysqld.log" 2>&1 &
  # The pid file shows up once the server is under way.
  for _ in $(seq 1 100); do [ -s "$(pidfile "$n")" ] && break; sleep 0.1; done
}

start() {
  local n
  if ! any_running; then
    # The node that left last may form the cluster again; node 1 is stopped last.
    launch 1 1
    wait_synced 1 60
  fi
  for n in 1 2 3; do
    if running "$n"; then continue; fi
    launch "$n" 0
    wait_synced "$n" 120  # a joiner receives the data by state transfer first
  done
  for n in 1 2 3; do wait_synced "$n" 60; done
  make_account_on_any
  echo "cluster: running ($(text))"
}

make_account_on_any() {
  local n
  for n in 1 2 3; do
    if synced "$n"; then
      admin "$n" <<'SQL'
CREATE USER IF NOT EXISTS 'corvane'@'127.0.0.1' IDENTIFIED BY 'corvane';
CREATE USER IF NOT EXISTS 'corvane'@'localhost' IDENTIFIED BY 'corvane';
GRANT ALL PRIVILEGES ON *.* TO 'corvane'@'127.0.0.1' WITH GRANT OPTION;
GRANT ALL PRIVILEGES ON *.* TO 'corvane'@'localhost' WITH GRANT OPTION;
SQL
      return 0
    fi
  done
  return 1
}

stop_node() {
  local n=$1 p i
  running "$n" || return 0
  p=$(cat "$(pidfile "$n")")
  kill -TERM "$p"
  for ((i = 0; i < 600; i++)); do kill -0 "$p" 2>/dev/null || return 0; sleep 0.1; done
  kill -KILL "$p" 2>/dev/null || true
}

stop() {
  stop_node 3
  stop_node 2
  stop_node 1
  echo "cluster: stopped"
}

status() {
  local n all=0 state
  for n in 1 2 3; do
    if ! running "$n"; then
      state=down
      all=1
    elif synced "$n"; then
      state=synced
    else
      state="up, not synced"
      all=1
    fi
    echo "node $n (127.0.0.1:$(sql_port "$n")): $state"
  done
  return $all
}

kill_node() {
  local n=$1 p
  running "$n" || { echo "cluster: node $n is not running"; return 0; }
  p=$(cat "$(pidfile "$n")")
  kill -KILL "$p"
  while kill -0 "$p" 2>/dev/null; do sleep 0.05; done
  echo "cluster: node $n killed"
}

restart_node() {
  local n=$1
  if running "$n"; then kill_node "$n"; fi
  if any_running; then launch "$n" 0; else launch "$n" 1; fi
  wait_synced "$n" 120
  echo "cluster: node $n synced"
}

text() {
  echo "SERVER=127.0.0.1:$(sql_port 1),127.0.0.1:$(sql_port 2),127.0.0.1:$(sql_port 3);DATABASE=${1:-corvane};UID=corvane;PWD=corvane"
}

node_arg() {
  case "${1:-}" in 1 | 2 | 3) ;; *) echo "cluster: node 1, 2 or 3" >&2; exit 2 ;; esac
}

case "${1:-start}" in
  start) start ;;
  stop) stop ;;
  status) status ;;
  kill) node_arg "${2:-}"; kill_node "$2" ;;
  restart) node_arg "${2:-}"; restart_node "$2" ;;
  client) node_arg "${2:-}"; n=$2; shift 2; exec mariadb --defaults-file=/dev/null --socket="$(sock "$n")" -uroot "$@" ;;
  text) text "${2:-}" ;;
  *) echo "usage: $0 start|stop|status|kill N|restart N|client N|text [DB]" >&2; exit 2 ;;
esac
