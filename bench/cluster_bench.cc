// The order road on the three-node Galera cluster of scripts/cluster.sh
// against one server with the same settings (durable, started here), printed
// as a ratio of one run on one machine; beside it what a link to the cluster
// costs to set up, and what a read costs when the session waits for the
// cluster's writes (wsrep_sync_wait=1) against one that does not.
//
//   scripts/cluster.sh start && build-rel/bench/corvane_cluster_bench [orders]
#include <mysql.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "bench/order_road.h"
#include "corvane/corvane.h"
#include "tests/support/private_server.h"

namespace {

using Clock = std::chrono::steady_clock;
const char kDatabase[] = "corvane_cluster_bench";

double Seconds(Clock::duration d) { return std::chrono::duration<double>(d).count(); }

std::string Schema() {
  std::ifstream in(std::string(CORVANE_SOURCE_DIR) + "/schema/corvane.sql");
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

MYSQL* Connect(unsigned port, const char* database, unsigned long flags = 0) {
  MYSQL* m = mysql_init(nullptr);
  mysql_options(m, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  if (mysql_real_connect(m, "127.0.0.1", "corvane", "corvane", database, port, nullptr, flags) ==
      nullptr) {
    throw std::runtime_error(std::string("127.0.0.1:") + std::to_string(port) + ": " +
                             mysql_error(m) + " (is the cluster running? scripts/cluster.sh start)");
  }
  return m;
}

void Run(MYSQL* m, const std::string& sql) {
  if (mysql_real_query(m, sql.data(), sql.size()) != 0) {
    throw std::runtime_error(std::string(mysql_error(m)) + "\n" + sql.substr(0, 200));
  }
  do {
    if (MYSQL_RES* r = mysql_store_result(m)) mysql_free_result(r);
  } while (mysql_next_result(m) == 0);
}

void FreshClusterDatabase() {
  MYSQL* m = Connect(4306, nullptr, CLIENT_MULTI_STATEMENTS);
  Run(m, std::string("DROP DATABASE IF EXISTS ") + kDatabase);
  Run(m, std::string("CREATE DATABASE ") + kDatabase);
  Run(m, std::string("USE ") + kDatabase);
  Run(m, Schema());
  Run(m, std::string("DROP DATABASE IF EXISTS ") + kDatabase + "_one");
  mysql_close(m);
}

// The road of n orders: day number, order, two lines, totals, check, approval.
double Road(int n) {
  const Clock::time_point start = Clock::now();
  corvane::clsDataBOrderh orders;
  corvane::clsDataBOrderi lines;
  for (int i = 0; i < n; ++i) corvane::bench::OneOrder(orders, lines);
  return Seconds(Clock::now() - start);
}

// Opens and closes n connections with the text; seconds per connection.
double Connects(const std::string& text, int n) {
  const Clock::time_point start = Clock::now();
  for (int i = 0; i < n; ++i) {
    corvane::Connection c;
    c.SetConnectionString(text);
    c.Open();
    c.Close();
  }
  return Seconds(Clock::now() - start) / n;
}

// n reads of the order types on node 1 with the session's wsrep_sync_wait.
double Reads(int sync_wait, int n) {
  MYSQL* m = Connect(4306, kDatabase);
  Run(m, "SET SESSION wsrep_sync_wait=" + std::to_string(sync_wait));
  const Clock::time_point start = Clock::now();
  for (int i = 0; i < n; ++i) Run(m, "select * from T_BOrderType");
  const double s = Seconds(Clock::now() - start) / n;
  mysql_close(m);
  return s;
}

}  // namespace

int main(int argc, char** argv) {
  const int n = argc > 1 ? std::atoi(argv[1]) : 200;
  bool failed = false;
  corvane::SetReportHandler([&failed](const corvane::Report& r) {
    std::fprintf(stderr, "report: %s\n", r.text.c_str());
    failed = true;
  });
  try {
    // One server with the settings of a node, durable, without replication.
    corvane::testing::PrivateServer one(
        "cluster_bench_one", {"innodb_buffer_pool_size=64M", "innodb_log_file_size=32M"});
    one.Start();
    one.Exec("CREATE DATABASE bench");
    one.Exec(Schema(), "bench");
    FreshClusterDatabase();
    const std::string cluster_text = std::string("SERVER=127.0.0.1:4306,127.0.0.1:4307,127.0.0.1:"
                                                 "4308;DATABASE=") + kDatabase +
                                     ";UID=corvane;PWD=corvane";
    const std::string node1_text =
        std::string("SERVER=127.0.0.1;PORT=4306;DATABASE=") + kDatabase + ";UID=corvane;PWD=corvane";

    // Two rounds each, taken in turn; the faster round of each side counts.
    // The log flushes of each side are counted too: both flush at commit.
    const auto fsyncs_one = [&] {
      return std::atol(one.Rows("SHOW GLOBAL STATUS LIKE 'Innodb_data_fsyncs'")[0][1].c_str());
    };
    MYSQL* node1 = Connect(4306, nullptr);
    const auto fsyncs_node1 = [&] {
      const std::string sql = "SHOW GLOBAL STATUS LIKE 'Innodb_data_fsyncs'";
      if (mysql_real_query(node1, sql.data(), sql.size()) != 0) throw std::runtime_error(mysql_error(node1));
      MYSQL_RES* r = mysql_store_result(node1);
      const long v = std::atol(mysql_fetch_row(r)[1]);
      mysql_free_result(r);
      return v;
    };
    double single = 1e9;
    double cluster = 1e9;
    long flushes_one = 0;
    long flushes_cluster = 0;
    for (int round = 0; round < 2; ++round) {
      corvane::SetSessionConnectionString(one.ConnectionText("bench"));
      long before = fsyncs_one();
      single = std::min(single, Road(n));
      flushes_one += fsyncs_one() - before;
      corvane::SetSessionConnectionString(cluster_text);
      before = fsyncs_node1();
      cluster = std::min(cluster, Road(n));
      flushes_cluster += fsyncs_node1() - before;
    }
    mysql_close(node1);
    corvane::SetSessionConnectionString("");
    if (failed) throw std::runtime_error("a call of the road failed");
    std::printf("road, %d orders: one server %.2f ms/order, three-node cluster %.2f ms/order, "
                "ratio %.2f\n",
                n, single * 1e3 / n, cluster * 1e3 / n, cluster / single);
    std::printf("fsyncs per order: one server %.1f, node 1 of the cluster %.1f\n",
                static_cast<double>(flushes_one) / (2 * n),
                static_cast<double>(flushes_cluster) / (2 * n));

    const double plain_link = Connects(node1_text, 100);
    const double cluster_link = Connects(cluster_text, 100);
    std::printf("link set-up: node 1 alone %.2f ms, three-server text %.2f ms (+%.2f ms)\n",
                plain_link * 1e3, cluster_link * 1e3, (cluster_link - plain_link) * 1e3);

    const double plain_read = Reads(0, 2000);
    const double causal_read = Reads(1, 2000);
    std::printf("read on node 1: wsrep_sync_wait=0 %.0f us, wsrep_sync_wait=1 %.0f us (+%.0f us)\n",
                plain_read * 1e6, causal_read * 1e6, (causal_read - plain_read) * 1e6);
    MYSQL* m = Connect(4306, nullptr);
    Run(m, std::string("DROP DATABASE ") + kDatabase);
    mysql_close(m);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "cluster bench: %s\n", e.what());
    return 1;
  }
  return 0;
}
