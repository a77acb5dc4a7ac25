// The frame of the fault-injection tests: a private server per test with the
// business schema in database "faults", the library's session pointed at it
// (or at a proxy in front of it), the reports counted, and the counts of a
// run printed as one line.
#ifndef CORVANE_TESTS_FAULTS_FAULT_TEST_H_
#define CORVANE_TESTS_FAULTS_FAULT_TEST_H_

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "corvane/corvane.h"
#include "tests/support/private_server.h"

namespace corvane::testing {

// Time-outs short enough that a call never waits long on a dead server.
inline constexpr char kShortTimeouts[] = ";CONNECT_TIMEOUT=5;READ_TIMEOUT=20;WRITE_TIMEOUT=20";

struct FaultCounts {
  long calls = 0;         // repository calls made
  long acknowledged = 0;  // rows whose add returned its success code
  long found = 0;         // rows in the table at the end
  long reports = 0;       // reports shown
};

class FaultTest : public ::testing::Test {
 protected:
  void StartServer(const std::vector<std::string>& settings = {}) {
    const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
    server_ = std::make_unique<PrivateServer>(info->name(), settings);
    server_->Start();
    server_->Exec("CREATE DATABASE faults");
    std::ifstream in(std::string(CORVANE_SOURCE_DIR) + "/schema/corvane.sql");
    std::stringstream schema;
    schema << in.rdbuf();
    server_->Exec(schema.str(), "faults");
    SetSessionConnectionString(server_->ConnectionText("faults") + kShortTimeouts);
    SetReportHandler([this](const Report& r) { reports_.push_back(r); });
  }
  void TearDown() override {
    SetReportHandler(nullptr);
    SetSessionConnectionString("");
    server_.reset();
  }

  PrivateServer& server() { return *server_; }
  const std::vector<Report>& reports() const { return reports_; }

  // The order types in the table now.
  std::set<std::string> OrderTypes() {
    std::set<std::string> names;
    for (const auto& row : server_->Rows("select F_OrderType from t_bordertype", "faults")) {
      names.insert(row[0]);
    }
    return names;
  }

  static void Print(const char* what, const FaultCounts& c) {
    std::printf("faults %s: calls %ld, acknowledged rows %ld, rows found %ld, reports %ld\n", what,
                c.calls, c.acknowledged, c.found, c.reports);
    std::fflush(stdout);
  }

 private:
  std::unique_ptr<PrivateServer> server_;
  std::vector<Report> reports_;
};

}  // namespace corvane::testing

#endif  // CORVANE_TESTS_FAULTS_FAULT_TEST_H_
