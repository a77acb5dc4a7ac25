// Test support: a fresh business database on the sandbox server for each
// test, a direct line to it for setting up rows and reading tables back, and
// recorders for the statements the library sends and the reports it shows.
#ifndef CORVANE_TESTS_SUPPORT_SANDBOX_H_
#define CORVANE_TESTS_SUPPORT_SANDBOX_H_

#include <mysql.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "corvane/corvane.h"

namespace corvane::testing {

// Where the sandbox server is: CORVANE_TEST_SERVER, CORVANE_TEST_PORT,
// CORVANE_TEST_USER, CORVANE_TEST_PASSWORD, defaults 127.0.0.1, 3306,
// corvane, corvane.
struct ServerAddress {
  std::string server, user, password;
  unsigned port;
  static ServerAddress FromEnvironment();
  std::string ConnectionText(const std::string& database) const;
};

// A plain client connection, outside the library, for setting up and
// checking tables.
class Direct {
 public:
  explicit Direct(const std::string& database = "");
  ~Direct();
  Direct(const Direct&) = delete;
  Direct& operator=(const Direct&) = delete;

  void Exec(const std::string& sql);
  // Runs a file of statements separated by ";" at line ends.
  void ExecFile(const std::string& path);
  // All rows, each cell as text or "NULL".
  std::vector<std::vector<std::string>> Rows(const std::string& sql);
  // The first cell of the first row; nullopt for no row or a null.
  std::optional<std::string> Scalar(const std::string& sql);
  long long Count(const std::string& table);

 private:
  MYSQL* mysql_;
};

struct SentStatement {
  StatementKind kind;
  std::string text;
};

// A fresh database per test, with the business schema loaded, the library's
// session pointed at it, and every statement and report recorded.
class SandboxTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  Direct& db() { return *direct_; }
  const std::string& database() const { return database_; }

  // Statements of the repository methods, as sent, since the last Clear().
  std::vector<std::string> Commands() const;
  // Everything sent, row changes and catalog questions included.
  const std::vector<SentStatement>& Sent() const { return sent_; }
  const std::vector<Report>& Reports() const { return reports_; }
  void Clear() {
    sent_.clear();
    reports_.clear();
  }

  // Loads an extra schema file of the repository (e.g. the attachment one).
  void LoadSchema(const std::string& file);

 private:
  std::string database_;
  std::unique_ptr<Direct> direct_;
  std::vector<SentStatement> sent_;
  std::vector<Report> reports_;
};

// The report of a failure as the library words it.
inline Report PlainReport(const std::string& text) { return Report{text, 64, "塔恩维克"}; }
inline Report AlertReport(const std::string& text) { return Report{text, 16, "错误提示"}; }
inline Report LengthReport() { return Report{"你输入的内容超过了允许长度，请检查", 64, "塔恩维克"}; }

}  // namespace corvane::testing

namespace corvane {
// How GoogleTest prints a report.
void PrintTo(const Report& r, std::ostream* os);
}  // namespace corvane

#endif  // CORVANE_TESTS_SUPPORT_SANDBOX_H_
