// A private MariaDB server for fault injection.
#include "tests/support/private_server.h"

#include <mysql.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <thread>

extern char** environ;

namespace corvane::testing {
namespace {

namespace fs = std::filesystem;

struct CloseMysql {
  void operator()(MYSQL* m) const { mysql_close(m); }
};
using MysqlHandle = std::unique_ptr<MYSQL, CloseMysql>;

// Root over the socket; null when the server does not take the connection.
MysqlHandle ConnectRoot(const std::string& socket, const std::string& database,
                        std::string* error) {
  MysqlHandle m(mysql_init(nullptr));
  const unsigned connect_timeout = 2, read_timeout = 60;
  mysql_options(m.get(), MYSQL_OPT_CONNECT_TIMEOUT, &connect_timeout);
  mysql_options(m.get(), MYSQL_OPT_READ_TIMEOUT, &read_timeout);
  mysql_options(m.get(), MYSQL_SET_CHARSET_NAME, "utf8mb4");
  if (mysql_real_connect(m.get(), "localhost", "root", "",
                         database.empty() ? nullptr : database.c_str(), 0, socket.c_str(),
                         CLIENT_MULTI_STATEMENTS) == nullptr) {
    if (error != nullptr) *error = mysql_error(m.get());
    return nullptr;
  }
  return m;
}

// Runs a program with its output appended to log; returns its pid.
pid_t Spawn(const std::vector<std::string>& args, const std::string& log) {
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0644);
  posix_spawn_file_actions_adddup2(&actions, 1, 2);
  std::vector<char*> argv;
  for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  pid_t pid = 0;
  const int rc = posix_spawnp(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) throw std::runtime_error("cannot run " + args[0]);
  return pid;
}

}  // namespace

unsigned FreeLoopbackPort() {
  const int fd = socket(AF_INET, SOCK_STREAM, 0);
  if (fd < 0) throw std::runtime_error("no socket for a port");
  sockaddr_in addr{};
  addr.sin_family = AF_INET;
  addr.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  addr.sin_port = 0;
  socklen_t len = sizeof addr;
  if (bind(fd, reinterpret_cast<sockaddr*>(&addr), sizeof addr) != 0 ||
      getsockname(fd, reinterpret_cast<sockaddr*>(&addr), &len) != 0) {
    close(fd);
    throw std::runtime_error("no free loopback port");
  }
  close(fd);
  return ntohs(addr.sin_port);
}

PrivateServer::PrivateServer(const std::string& name, const std::vector<std::string>& settings) {
  folder_ = std::string(CORVANE_BINARY_DIR) + "/faults/" + name.substr(0, 24) + "-" +
            std::to_string(getpid());
  fs::remove_all(folder_);
  fs::create_directories(folder_ + "/data");
  fs::create_directories(folder_ + "/tmp");
  config_ = folder_ + "/my.cnf";
  socket_ = folder_ + "/mysqld.sock";
  log_ = folder_ + "/mysqld.log";
  port_ = FreeLoopbackPort();
  std::ofstream cnf(config_);
  cnf << "[mysqld]\n"
      << "user=root\n"
      << "datadir=" << folder_ << "/data\n"
      << "socket=" << socket_ << "\n"
      << "tmpdir=" << folder_ << "/tmp\n"
      << "pid-file=" << folder_ << "/mysqld.pid\n"
      << "log-error=" << log_ << "\n"
      << "bind-address=127.0.0.1\n"
      << "port=" << port_ << "\n"
      << "skip-name-resolve\n"
      << "lower_case_table_names=1\n"
      << "character-set-server=utf8mb4\n"
      << "collation-server=utf8mb4_general_ci\n"
      << "sql_mode=STRICT_TRANS_TABLES,ERROR_FOR_DIVISION_BY_ZERO,NO_ENGINE_SUBSTITUTION\n"
      << "innodb_buffer_pool_size=32M\n"
      << "innodb_log_file_size=16M\n"
      << "innodb_flush_log_at_trx_commit=1\n"
      << "innodb_doublewrite=1\n"
      << "innodb_file_per_table=0\n"
      << "max_connections=100\n";
  for (const std::string& s : settings) cnf << s << "\n";
  cnf.close();
  const pid_t pid = Spawn({"mariadb-install-db", "--defaults-file=" + config_,
                           "--auth-root-authentication-method=normal", "--skip-test-db"},
                          folder_ + "/install.log");
  int status = 0;
  waitpid(pid, &status, 0);
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::ifstream in(folder_ + "/install.log");
    std::stringstream text;
    text << in.rdbuf();
    const std::string log = LogTail();
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
    throw std::runtime_error("mariadb-install-db failed:\n" + text.str() + log);
  }
}

PrivateServer::~PrivateServer() {
  if (running()) Kill();
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

bool PrivateServer::Answers() const { return ConnectRoot(socket_, "", nullptr) != nullptr; }

std::string PrivateServer::LogTail() const {
  std::ifstream in(log_);
  std::stringstream text;
  text << in.rdbuf();
  const std::string all = text.str();
  return all.size() > 4000 ? all.substr(all.size() - 4000) : all;
}

void PrivateServer::Start(std::chrono::seconds deadline) {
  if (running()) return;
  // A pid file or socket left by a killed server would stop the new one.
  fs::remove(folder_ + "/mysqld.pid");
  fs::remove(socket_);
  pid_ = Spawn({"mariadbd", "--defaults-file=" + config_}, log_);
  const auto until = std::chrono::steady_clock::now() + deadline;
  while (!Answers()) {
    int status = 0;
    if (waitpid(pid_, &status, WNOHANG) == pid_) {
      pid_ = 0;
      throw std::runtime_error("the private server ended at start:\n" + LogTail());
    }
    if (std::chrono::steady_clock::now() > until) {
      Kill();
      throw std::runtime_error("the private server did not answer in time:\n" + LogTail());
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  if (!account_made_) {
    Exec("CREATE USER 'corvane'@'127.0.0.1' IDENTIFIED BY 'corvane';"
         "GRANT ALL PRIVILEGES ON *.* TO 'corvane'@'127.0.0.1'");
    account_made_ = true;
  }
}

void PrivateServer::Kill() {
  if (!running()) return;
  kill(pid_, SIGKILL);
  int status = 0;
  waitpid(pid_, &status, 0);
  pid_ = 0;
}

std::string PrivateServer::ConnectionText(const std::string& database) const {
  return "SERVER=127.0.0.1;PORT=" + std::to_string(port_) + ";DATABASE=" + database +
         ";UID=corvane;PWD=corvane";
}

void PrivateServer::Exec(const std::string& sql, const std::string& database) {
  std::string error;
  MysqlHandle m = ConnectRoot(socket_, database, &error);
  if (!m) throw std::runtime_error("cannot reach the private server: " + error);
  if (mysql_real_query(m.get(), sql.data(), sql.size()) != 0) {
    throw std::runtime_error("private statement failed: " + std::string(mysql_error(m.get())));
  }
  do {
    MYSQL_RES* r = mysql_store_result(m.get());
    if (r != nullptr) mysql_free_result(r);
  } while (mysql_next_result(m.get()) == 0);
  if (mysql_errno(m.get()) != 0) {
    throw std::runtime_error("private statement failed: " + std::string(mysql_error(m.get())));
  }
}

std::vector<std::vector<std::string>> PrivateServer::Rows(const std::string& sql,
                                                          const std::string& database) {
  std::string error;
  MysqlHandle m = ConnectRoot(socket_, database, &error);
  if (!m) throw std::runtime_error("cannot reach the private server: " + error);
  if (mysql_real_query(m.get(), sql.data(), sql.size()) != 0) {
    throw std::runtime_error("private query failed: " + std::string(mysql_error(m.get())));
  }
  std::vector<std::vector<std::string>> rows;
  MYSQL_RES* r = mysql_store_result(m.get());
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

}  // namespace corvane::testing
