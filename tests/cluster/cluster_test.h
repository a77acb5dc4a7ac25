// The frame of the cluster tests: the three-node Galera cluster of
// scripts/cluster.sh (started when it is not running), a database of the
// test's own on it with the business schema, connection texts that name all
// three nodes starting from any one of them, statements sent to one node by
// hand, the reports counted, and the counts of a run printed as one line.
#ifndef CORVANE_TESTS_CLUSTER_CLUSTER_TEST_H_
#define CORVANE_TESTS_CLUSTER_CLUSTER_TEST_H_

#include <gtest/gtest.h>
#include <mysql.h>

#include <cctype>
#include <cstdio>
#include <memory>
#include <cstdlib>
#include <fstream>
#include <mutex>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "corvane/corvane.h"

namespace corvane::testing {

inline constexpr int kNodes = 3;

// The SQL port of node n (1, 2, 3), as scripts/cluster.sh gives them.
inline unsigned NodePort(int n) { return 4305u + static_cast<unsigned>(n); }

// Time-outs short enough that a call never waits long on a dead node.
inline constexpr char kClusterTimeouts[] = ";CONNECT_TIMEOUT=5;READ_TIMEOUT=30;WRITE_TIMEOUT=30";

// All three nodes, the list starting at node first.
inline std::string ClusterText(const std::string& database, int first = 1) {
  std::string servers;
  for (int i = 0; i < kNodes; ++i) {
    const int n = (first - 1 + i) % kNodes + 1;
    servers += (i == 0 ? "" : ",") + std::string("127.0.0.1:") + std::to_string(NodePort(n));
  }
  return "SERVER=" + servers + ";DATABASE=" + database + ";UID=corvane;PWD=corvane" +
         kClusterTimeouts;
}

// Runs scripts/cluster.sh with the arguments; throws when it fails.
inline void ClusterScript(const std::string& arguments) {
  const std::string command =
      std::string(CORVANE_SOURCE_DIR) + "/scripts/cluster.sh " + arguments + " >/dev/null";
  if (std::system(command.c_str()) != 0) {
    throw std::runtime_error("scripts/cluster.sh " + arguments + " failed");
  }
}

// A connection by hand to one node, as the library's account. Its reads wait
// until the node has applied what the cluster acknowledged before them.
class Node {
 public:
  explicit Node(int n, const std::string& database = "", unsigned long flags = 0)
      : m_(mysql_init(nullptr)) {
    mysql_options(m_, MYSQL_SET_CHARSET_NAME, "utf8mb4");
    const unsigned timeout = 30;
    mysql_options(m_, MYSQL_OPT_READ_TIMEOUT, &timeout);
    if (mysql_real_connect(m_, "127.0.0.1", "corvane", "corvane",
                           database.empty() ? nullptr : database.c_str(), NodePort(n), nullptr,
                           flags | CLIENT_FOUND_ROWS) == nullptr) {
      const std::string message = mysql_error(m_);
      mysql_close(m_);
      throw std::runtime_error("node " + std::to_string(n) + ": " + message);
    }
    Exec("SET SESSION wsrep_sync_wait=1");
  }
  ~Node() { mysql_close(m_); }
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  // Runs statements (several with CLIENT_MULTI_STATEMENTS); throws on failure.
  void Exec(const std::string& sql) {
    if (mysql_real_query(m_, sql.data(), sql.size()) != 0) Fail(sql);
    do {
      if (MYSQL_RES* r = mysql_store_result(m_)) mysql_free_result(r);
    } while (mysql_next_result(m_) == 0);
    if (mysql_errno(m_) != 0) Fail(sql);
  }
  // All rows, each cell as text or "NULL".
  std::vector<std::vector<std::string>> Rows(const std::string& sql) {
    if (mysql_real_query(m_, sql.data(), sql.size()) != 0) Fail(sql);
    std::vector<std::vector<std::string>> rows;
    MYSQL_RES* r = mysql_store_result(m_);
    if (r == nullptr) return rows;
    const unsigned columns = mysql_num_fields(r);
    while (MYSQL_ROW row = mysql_fetch_row(r)) {
      std::vector<std::string> cells;
      for (unsigned i = 0; i < columns; ++i) cells.emplace_back(row[i] ? row[i] : "NULL");
      rows.push_back(std::move(cells));
    }
    mysql_free_result(r);
    return rows;
  }
  std::string Value(const std::string& sql) {
    const auto rows = Rows(sql);
    return rows.empty() || rows[0].empty() ? "" : rows[0][0];
  }
  unsigned LastErrno() { return mysql_errno(m_); }

 private:
  [[noreturn]] void Fail(const std::string& sql) {
    throw std::runtime_error(std::string(mysql_error(m_)) + " in: " + sql.substr(0, 200));
  }
  MYSQL* m_;
};

// Whether node n answers and is synced with the cluster.
inline bool NodeSynced(int n) {
  try {
    Node node(n);
    return node.Rows("SELECT group_concat(variable_value ORDER BY variable_name) FROM "
                     "information_schema.global_status WHERE variable_name IN "
                     "('wsrep_local_state','wsrep_ready')")[0][0] == "4,ON";
  } catch (const std::exception&) {
    return false;
  }
}

// Reports shown on the calling thread so far.
inline thread_local long tl_reports = 0;

// What a run counted.
struct ClusterCounts {
  long calls = 0;         // repository calls made
  long acknowledged = 0;  // documents whose add returned its success code
  long found = 0;         // of those, found on every node at the end
  long reports = 0;       // reports shown
  long failovers = 0;     // links replaced by one to another node
};

inline void PrintCounts(const char* what, const ClusterCounts& c) {
  std::printf("cluster %s: calls %ld, acknowledged %ld, found on every node %ld, reports %ld, "
              "failovers %ld\n",
              what, c.calls, c.acknowledged, c.found, c.reports, c.failovers);
  std::fflush(stdout);
}

class ClusterTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    // Starts what is not running, waits until all three nodes are synced.
    ClusterScript("start");
  }

  void SetUp() override {
    const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
    database_ = "cluster_" + std::string(info->name()).substr(0, 48);
    for (char& c : database_) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    Node node(1, "", CLIENT_MULTI_STATEMENTS);
    node.Exec("DROP DATABASE IF EXISTS " + database_);
    node.Exec("CREATE DATABASE " + database_);
    node.Exec("USE " + database_);
    std::ifstream in(std::string(CORVANE_SOURCE_DIR) + "/schema/corvane.sql");
    std::stringstream schema;
    schema << in.rdbuf();
    node.Exec(schema.str());
    SetSessionConnectionString(ClusterText(database_));
    SetReportHandler([this](const Report& r) {
      ++tl_reports;
      std::lock_guard<std::mutex> lock(reports_mu_);
      reports_.push_back(r);
    });
  }

  void TearDown() override {
    SetReportHandler(nullptr);
    SetSessionConnectionString("");
    try {
      Node(1).Exec("DROP DATABASE IF EXISTS " + database_);
    } catch (const std::exception&) {
    }
  }

  const std::string& database() const { return database_; }
  std::vector<Report> reports() {
    std::lock_guard<std::mutex> lock(reports_mu_);
    return reports_;
  }
  std::size_t report_count() {
    std::lock_guard<std::mutex> lock(reports_mu_);
    return reports_.size();
  }

  // Node n with the test's database.
  std::unique_ptr<Node> OnNode(int n) { return std::make_unique<Node>(n, database_); }

 private:
  std::string database_;
  std::mutex reports_mu_;
  std::vector<Report> reports_;
};

}  // namespace corvane::testing

#endif  // CORVANE_TESTS_CLUSTER_CLUSTER_TEST_H_
