// Test support over the sandbox server.
#include "tests/support/sandbox.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

namespace corvane::testing {
namespace {

std::string Env(const char* name, const char* fallback) {
  const char* v = std::getenv(name);
  return v != nullptr && *v != '\0' ? v : fallback;
}

std::string TestDatabaseName() {
  static std::atomic<int> counter{0};
  const ::testing::TestInfo* info = ::testing::UnitTest::GetInstance()->current_test_info();
  std::string name = "cvt_" + std::to_string(getpid()) + "_" + std::to_string(counter++);
  if (info != nullptr) {
    std::string test = std::string(info->test_suite_name()) + "_" + info->name();
    for (char& c : test) {
      if (!std::isalnum(static_cast<unsigned char>(c))) c = '_';
    }
    name += "_" + test.substr(0, 40);
  }
  return name;
}

}  // namespace

ServerAddress ServerAddress::FromEnvironment() {
  ServerAddress a;
  a.server = Env("CORVANE_TEST_SERVER", "127.0.0.1");
  a.port = static_cast<unsigned>(std::atoi(Env("CORVANE_TEST_PORT", "3306").c_str()));
  a.user = Env("CORVANE_TEST_USER", "corvane");
  a.password = Env("CORVANE_TEST_PASSWORD", "corvane");
  return a;
}

std::string ServerAddress::ConnectionText(const std::string& database) const {
  return "SERVER=" + server + ";PORT=" + std::to_string(port) + ";DATABASE=" + database +
         ";UID=" + user + ";PWD=" + password;
}

Direct::Direct(const std::string& database) : mysql_(mysql_init(nullptr)) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  mysql_options(mysql_, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  if (mysql_real_connect(mysql_, a.server.c_str(), a.user.c_str(), a.password.c_str(),
                         database.empty() ? nullptr : database.c_str(), a.port, nullptr,
                         CLIENT_MULTI_STATEMENTS) == nullptr) {
    const std::string message = mysql_error(mysql_);
    mysql_close(mysql_);
    throw std::runtime_error("cannot reach the sandbox server: " + message +
                             " (start it with scripts/sandbox.sh start)");
  }
}

Direct::~Direct() { mysql_close(mysql_); }

void Direct::Exec(const std::string& sql) {
  if (mysql_real_query(mysql_, sql.data(), sql.size()) != 0) {
    throw std::runtime_error("direct statement failed: " + std::string(mysql_error(mysql_)) +
                             "\n" + sql);
  }
  // Drain every result of a multi-statement text.
  do {
    MYSQL_RES* r = mysql_store_result(mysql_);
    if (r != nullptr) mysql_free_result(r);
  } while (mysql_next_result(mysql_) == 0);
  if (mysql_errno(mysql_) != 0) {
    throw std::runtime_error("direct statement failed: " + std::string(mysql_error(mysql_)) +
                             "\n" + sql);
  }
}

void Direct::ExecFile(const std::string& path) {
  std::ifstream in(path);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::stringstream text;
  text << in.rdbuf();
  Exec(text.str());
}

std::vector<std::vector<std::string>> Direct::Rows(const std::string& sql) {
  if (mysql_real_query(mysql_, sql.data(), sql.size()) != 0) {
    throw std::runtime_error("direct query failed: " + std::string(mysql_error(mysql_)) + "\n" +
                             sql);
  }
  std::vector<std::vector<std::string>> rows;
  MYSQL_RES* r = mysql_store_result(mysql_);
  if (r == nullptr) return rows;
  const unsigned n = mysql_num_fields(r);
  while (MYSQL_ROW row = mysql_fetch_row(r)) {
    const unsigned long* lengths = mysql_fetch_lengths(r);
    std::vector<std::string> cells;
    for (unsigned i = 0; i < n; ++i) {
      cells.push_back(row[i] == nullptr ? "NULL" : std::string(row[i], lengths[i]));
    }
    rows.push_back(std::move(cells));
  }
  mysql_free_result(r);
  return rows;
}

std::optional<std::string> Direct::Scalar(const std::string& sql) {
  const auto rows = Rows(sql);
  if (rows.empty() || rows[0].empty() || rows[0][0] == "NULL") return std::nullopt;
  return rows[0][0];
}

long long Direct::Count(const std::string& table) {
  return std::stoll(Scalar("select count(*) from " + table).value_or("0"));
}

void SandboxTest::SetUp() {
  database_ = TestDatabaseName();
  {
    Direct admin;
    admin.Exec("DROP DATABASE IF EXISTS " + database_);
    admin.Exec("CREATE DATABASE " + database_);
  }
  direct_ = std::make_unique<Direct>(database_);
  direct_->ExecFile(std::string(CORVANE_SOURCE_DIR) + "/schema/corvane.sql");
  SetSessionConnectionString(ServerAddress::FromEnvironment().ConnectionText(database_));
  SetStatementObserver([this](StatementKind kind, const std::string& text) {
    sent_.push_back(SentStatement{kind, text});
  });
  SetReportHandler([this](const Report& r) { reports_.push_back(r); });
}

void SandboxTest::TearDown() {
  SetStatementObserver(nullptr);
  SetReportHandler(nullptr);
  SetSessionConnectionString("");
  SetSessionPool(SessionPoolOptions{});
  direct_.reset();
  if (!HasFailure() || std::getenv("CORVANE_KEEP_FAILED") == nullptr) {
    Direct admin;
    admin.Exec("DROP DATABASE IF EXISTS " + database_);
  }
}

std::vector<std::string> SandboxTest::Commands() const {
  std::vector<std::string> out;
  for (const SentStatement& s : sent_) {
    if (s.kind == StatementKind::kCommand) out.push_back(s.text);
  }
  return out;
}

void SandboxTest::LoadSchema(const std::string& file) {
  direct_->ExecFile(std::string(CORVANE_SOURCE_DIR) + "/schema/" + file);
}

}  // namespace corvane::testing

namespace corvane {

void PrintTo(const Report& r, std::ostream* os) {
  *os << "Report{\"" << r.text << "\", " << r.style << ", \"" << r.title << "\"}";
}

}  // namespace corvane
