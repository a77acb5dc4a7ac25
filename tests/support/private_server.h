// Test support for fault injection: a MariaDB server of the test's own, in a
// data folder under the build tree, that the test starts, kills with SIGKILL
// and starts again. It is durable as the sandbox is (the log is flushed at
// every commit, pages go through the doublewrite buffer), listens on a free
// loopback port, and has the library's account "corvane"/"corvane".
#ifndef CORVANE_TESTS_SUPPORT_PRIVATE_SERVER_H_
#define CORVANE_TESTS_SUPPORT_PRIVATE_SERVER_H_

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace corvane::testing {

// A free TCP port on 127.0.0.1 (free when asked: the caller binds it soon).
unsigned FreeLoopbackPort();

class PrivateServer {
 public:
  // Initialises a new data folder named after name (mariadb-install-db);
  // settings are extra "name=value" lines of the server's configuration.
  explicit PrivateServer(const std::string& name, const std::vector<std::string>& settings = {});
  // Kills the server if it runs and removes its folder.
  ~PrivateServer();
  PrivateServer(const PrivateServer&) = delete;
  PrivateServer& operator=(const PrivateServer&) = delete;

  // Starts the server and returns when it answers; throws when it has not
  // answered within the deadline or has ended.
  void Start(std::chrono::seconds deadline = std::chrono::seconds(60));
  // SIGKILL: the server ends at once, without flushing anything.
  void Kill();
  bool running() const { return pid_ > 0; }

  unsigned port() const { return port_; }
  // A connection text for the library, over TCP to the server's port.
  std::string ConnectionText(const std::string& database) const;

  // Statements as root over the socket (several, separated by ";").
  void Exec(const std::string& sql, const std::string& database = "");
  // All rows, each cell as text or "NULL".
  std::vector<std::vector<std::string>> Rows(const std::string& sql,
                                             const std::string& database = "");

 private:
  // Whether root can connect over the socket now.
  bool Answers() const;
  std::string LogTail() const;

  std::string folder_;
  std::string config_;
  std::string socket_;
  std::string log_;
  unsigned port_ = 0;
  pid_t pid_ = 0;
  bool account_made_ = false;
};

}  // namespace corvane::testing

#endif  // CORVANE_TESTS_SUPPORT_PRIVATE_SERVER_H_
