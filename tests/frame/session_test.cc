// The connection provider and the connection against the sandbox server: the
// items of the connection text, my.ini in the parent of the application path
// when no text is set, its fallbacks and its cut of long values, and the
// open and closed states.
#include "corvane/frame/session.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "corvane/frame/connection.h"
#include "corvane/frame/error.h"
#include "corvane/frame/host.h"
#include "corvane/frame/recordset.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;
using ::corvane::testing::SandboxTest;
using ::corvane::testing::ServerAddress;

std::optional<Error> FailureOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& e) {
    return e;
  }
  return std::nullopt;
}

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

// One value of a statement run over a connection.
std::string Ask(const std::shared_ptr<Connection>& cn, const std::string& sql) {
  Recordset rs;
  rs.Open(sql, cn);
  const std::string value = rs.Fields("v").Value().CStr();
  rs.Close();
  return value;
}

class SessionTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    static int counter = 0;
    root_ = fs::temp_directory_path() /
            ("cvt_ini_" + std::to_string(getpid()) + "_" + std::to_string(counter++));
    fs::remove_all(root_);
    fs::create_directories(root_ / "app");
  }
  void TearDown() override {
    SetApplicationPath("");
    std::error_code ignored;
    fs::remove_all(root_, ignored);
    if (!long_user_.empty()) db().Exec("drop user if exists '" + long_user_ + "'@'127.0.0.1'");
    SandboxTest::TearDown();
  }

  // Points the application path at <root>/app and writes <root>/my.ini.
  void WriteIni(const std::string& text) {
    SetApplicationPath((root_ / "app").string());
    std::ofstream out(root_ / "my.ini", std::ios::binary);
    out << text;
  }

  // The usual my.ini for the test database.
  std::string Ini(const std::string& server, const std::string& database, const std::string& uid,
                  const std::string& pwd) const {
    return "[serverIP]\nkey=" + server + "\n[servername]\nkey=" + database + "\n[serverUID]\nkey=" +
           uid + "\n[serverPWD]\nkey=" + pwd + "\n";
  }

  std::string DatabaseOf(clsDbSession& s) {
    return Lower(Ask(s.Connection(), "select database() as v"));
  }
  std::string UserOf(clsDbSession& s) { return Ask(s.Connection(), "select current_user() as v"); }

  fs::path root_;
  std::string long_user_;
};

// ------------------------------------------------------------ connection text

TEST_F(SessionTest, TheItemsOfTheConnectionText) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  SetSessionConnectionString("SERVER=" + a.server + ";PORT=" + std::to_string(a.port) +
                             ";DATABASE=" + database() + ";UID=" + a.user + ";PWD=" + a.password);
  clsDbSession s;
  EXPECT_EQ(nullptr, s.Connection());
  s.Open();
  ASSERT_NE(nullptr, s.Connection());
  EXPECT_EQ(1, s.Connection()->State());
  EXPECT_EQ(Lower(database()), DatabaseOf(s));
  EXPECT_EQ(a.user + "@" + a.server, UserOf(s));
  s.Close();
}

TEST_F(SessionTest, ItemNamesInAnyCaseWithBlanksAndItemsThatAreIgnored) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  SetSessionConnectionString("DRIVER={MySQL ODBC 3.51 Driver; any};  server = " + a.server +
                             " ;Port=" + std::to_string(a.port) + ";database=" + database() +
                             "; User=" + a.user + ";Password=" + a.password + ";OPTION=3;");
  clsDbSession s;
  s.Open();
  EXPECT_EQ(Lower(database()), DatabaseOf(s));
  s.Close();
}

TEST_F(SessionTest, AWrongPortOrPasswordFailsTheOpen) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  SetSessionConnectionString("SERVER=" + a.server + ";PORT=1;DATABASE=" + database() +
                             ";UID=" + a.user + ";PWD=" + a.password);
  clsDbSession s;
  const std::optional<Error> port = FailureOf([&] { s.Open(); });
  ASSERT_TRUE(port.has_value());
  EXPECT_EQ(errc::kProvider, port->Number());
  EXPECT_NE(std::string::npos, port->Description().find("Can't connect")) << port->Description();
  EXPECT_EQ(nullptr, s.Connection());
  EXPECT_NO_THROW(s.Close());

  SetSessionConnectionString("SERVER=" + a.server + ";PORT=" + std::to_string(a.port) +
                             ";DATABASE=" + database() + ";UID=" + a.user + ";PWD=x");
  const std::optional<Error> pwd = FailureOf([&] { s.Open(); });
  ASSERT_TRUE(pwd.has_value());
  EXPECT_EQ(errc::kProvider, pwd->Number());
  EXPECT_EQ(0u, pwd->Description().find("Access denied for user")) << pwd->Description();
}

TEST_F(SessionTest, TheSocketItem) {
  const std::string socket = std::string(CORVANE_SOURCE_DIR) + "/build/sandbox/mysqld.sock";
  if (!fs::exists(socket)) GTEST_SKIP() << "no sandbox socket at " << socket;
  const ServerAddress a = ServerAddress::FromEnvironment();
  // Over the socket the port does not matter, and the server sees a local
  // client.
  SetSessionConnectionString("SERVER=localhost;PORT=1;SOCKET=" + socket + ";DATABASE=" +
                             database() + ";UID=" + a.user + ";PWD=" + a.password);
  clsDbSession s;
  s.Open();
  EXPECT_EQ(Lower(database()), DatabaseOf(s));
  EXPECT_EQ(a.user + "@localhost", UserOf(s));
  s.Close();
  // A socket that is not there.
  SetSessionConnectionString("SERVER=localhost;SOCKET=" + (root_ / "none.sock").string() +
                             ";DATABASE=" + database() + ";UID=" + a.user + ";PWD=" + a.password);
  clsDbSession missing;
  const std::optional<Error> e = FailureOf([&] { missing.Open(); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(errc::kProvider, e->Number());
}

// ------------------------------------------------------------ open and close

TEST_F(SessionTest, ConnectionHandsOutTheOneOpenConnection) {
  // Each session with a connection of its own, neither pooled nor shared.
  SetSessionPool(SessionPoolOptions{.enabled = false, .share_within_thread = false});
  clsDbSession s;
  s.Open();
  const std::shared_ptr<Connection> first = s.Connection();
  EXPECT_EQ(first, s.Connection());
  EXPECT_EQ(Ask(first, "select connection_id() as v"),
            Ask(s.Connection(), "select connection_id() as v"));
  // Another session has a connection of its own.
  clsDbSession other;
  other.Open();
  EXPECT_NE(first, other.Connection());
  EXPECT_NE(Ask(first, "select connection_id() as v"),
            Ask(other.Connection(), "select connection_id() as v"));
  other.Close();
  s.Close();
  EXPECT_EQ(0, first->State());
  // Closing again, or closing a session never opened, does nothing.
  EXPECT_NO_THROW(s.Close());
  clsDbSession never;
  EXPECT_NO_THROW(never.Close());
}

TEST_F(SessionTest, CloseEndsTheServersConnection) {
  // Each session with a connection of its own, neither pooled nor shared.
  SetSessionPool(SessionPoolOptions{.enabled = false, .share_within_thread = false});
  clsDbSession s;
  s.Open();
  const std::string id = Ask(s.Connection(), "select connection_id() as v");
  const std::string count = "select count(*) from information_schema.processlist where id = " + id;
  EXPECT_EQ("1", db().Scalar(count));
  s.Close();
  std::string left = "1";
  for (int i = 0; i < 100 && left != "0"; ++i) {
    left = db().Scalar(count).value_or("?");
    if (left != "0") std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_EQ("0", left);
}

TEST_F(SessionTest, AClosedConnectionCannotRunAStatement) {
  // Each session with a connection of its own, neither pooled nor shared.
  SetSessionPool(SessionPoolOptions{.enabled = false, .share_within_thread = false});
  clsDbSession s;
  s.Open();
  std::shared_ptr<Connection> cn = s.Connection();
  s.Close();
  Recordset rs;
  const std::optional<Error> e = FailureOf([&] { rs.Open("select 1 as v", cn); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(errc::kNoConnection, e->Number());
}

// ------------------------------------------------------------ the connection

TEST_F(SessionTest, TheConnectionsOwnOperations) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  auto cn = std::make_shared<Connection>();
  EXPECT_EQ(0, cn->State());
  EXPECT_EQ(15, cn->ConnectionTimeout());
  EXPECT_EQ(errc::kObjectClosed, FailureOf([&] { cn->Close(); })->Number());
  cn->SetConnectionTimeout(5);
  EXPECT_EQ(5, cn->ConnectionTimeout());
  cn->SetConnectionString(a.ConnectionText(database()));
  EXPECT_EQ(a.ConnectionText(database()), cn->ConnectionString());
  cn->Open();
  EXPECT_EQ(1, cn->State());
  EXPECT_EQ(errc::kObjectOpen, FailureOf([&] { cn->Open(); })->Number());
  EXPECT_EQ(errc::kObjectOpen, FailureOf([&] { cn->SetConnectionString("SERVER=x"); })->Number());
  EXPECT_EQ(errc::kObjectOpen, FailureOf([&] { cn->SetConnectionTimeout(1); })->Number());
  EXPECT_EQ(a.ConnectionText(database()), cn->ConnectionString());
  EXPECT_EQ(Lower(database()), Lower(Ask(cn, "select database() as v")));
  cn->Close();
  EXPECT_EQ(0, cn->State());
  EXPECT_EQ(errc::kObjectClosed, FailureOf([&] { cn->Close(); })->Number());
}

TEST_F(SessionTest, TheConnectionTimeOutBoundsTheWaitForAServerThatDoesNotAnswer) {
  // A socket that takes connections and never says a word.
  const int listener = socket(AF_INET, SOCK_STREAM, 0);
  ASSERT_GE(listener, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  inet_pton(AF_INET, "127.0.0.1", &address.sin_addr);
  ASSERT_EQ(0, bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address));
  ASSERT_EQ(0, listen(listener, 4));
  socklen_t length = sizeof address;
  getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
  auto cn = std::make_shared<Connection>();
  cn->SetConnectionString("SERVER=127.0.0.1;PORT=" + std::to_string(ntohs(address.sin_port)) +
                          ";UID=u;PWD=p");
  cn->SetConnectionTimeout(2);
  const auto start = std::chrono::steady_clock::now();
  const std::optional<Error> e = FailureOf([&] { cn->Open(); });
  const double waited =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  close(listener);
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(errc::kProvider, e->Number());
  EXPECT_EQ(0u, e->Description().find("Lost connection")) << e->Description();
  EXPECT_GE(waited, 1.5);
  EXPECT_LT(waited, 10.0);
  EXPECT_EQ(0, cn->State());
}

TEST_F(SessionTest, ConnectionOpenWithTextUserAndPassword) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  auto cn = std::make_shared<Connection>();
  // The text given replaces the one set; the user and password given win
  // over UID and PWD.
  cn->SetConnectionString("SERVER=nowhere.invalid");
  const std::string text = "SERVER=" + a.server + ";PORT=" + std::to_string(a.port) +
                           ";DATABASE=" + database() + ";UID=nobody;PWD=nothing";
  cn->Open(text, a.user, a.password);
  EXPECT_EQ(text, cn->ConnectionString());
  EXPECT_EQ(a.user + "@" + a.server, Ask(cn, "select current_user() as v"));
  cn->Close();
  // Without them, UID and PWD of the text are used, and refused.
  const std::optional<Error> e = FailureOf([&] { cn->Open(); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(0u, e->Description().find("Access denied for user 'nobody'")) << e->Description();
}

// ------------------------------------------------------------ my.ini

TEST_F(SessionTest, WithNoConnectionTextTheSessionReadsMyIni) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  if (a.port != 3306) GTEST_SKIP() << "my.ini sessions connect on port 3306";
  SetSessionConnectionString("");
  WriteIni(Ini("127.0.0.1", database(), a.user, a.password));
  clsDbSession s;
  s.Open();
  EXPECT_EQ(Lower(database()), DatabaseOf(s));
  EXPECT_EQ(a.user + "@127.0.0.1", UserOf(s));
  s.Close();
}

TEST_F(SessionTest, MyIniNamesAndValuesAsTheProfileReaderTakesThem) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  if (a.port != 3306) GTEST_SKIP() << "my.ini sessions connect on port 3306";
  SetSessionConnectionString("");
  // Sections and keys in any case, blanks around, quotes around a value,
  // comments and other sections, the first match winning.
  WriteIni("; the business database\r\n[other]\r\nkey=nothing\r\n[SERVERIP]\r\n KEY = 127.0.0.1 \r\n"
           "[ServerName]\r\nkey=\"" + database() + "\"\r\nkey=second\r\n[serveruid]\r\nKey=" +
           a.user + "\r\n[serverPWD]\r\nkey='" + a.password + "'\r\n");
  clsDbSession s;
  s.Open();
  EXPECT_EQ(Lower(database()), DatabaseOf(s));
  s.Close();
}

TEST_F(SessionTest, AConnectionTextSetWinsOverMyIni) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  WriteIni(Ini("127.0.0.1", "tarnwick_not_here", a.user, a.password));
  SetSessionConnectionString(a.ConnectionText(database()));
  clsDbSession s;
  s.Open();
  EXPECT_EQ(Lower(database()), DatabaseOf(s));
  s.Close();
  // An empty text returns to my.ini.
  SetSessionConnectionString("");
  EXPECT_EQ("", SessionConnectionString());
  clsDbSession from_ini;
  const std::optional<Error> e = FailureOf([&] { from_ini.Open(); });
  ASSERT_TRUE(e.has_value());
  EXPECT_NE(std::string::npos, e->Description().find("Unknown database 'tarnwick_not_here'"))
      << e->Description();
}

TEST_F(SessionTest, WithoutServerAndDatabaseInMyIniTheSessionTriesTarnwickOnThisMachine) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  if (a.port != 3306 || a.server != "127.0.0.1") {
    GTEST_SKIP() << "the fallback is 127.0.0.1 on port 3306";
  }
  if (db().Scalar("select count(*) from information_schema.schemata where schema_name = "
                  "'tarnwick'") != "0") {
    GTEST_SKIP() << "a database tarnwick exists on the sandbox server";
  }
  SetSessionConnectionString("");
  WriteIni("[serverUID]\nkey=" + a.user + "\n[serverPWD]\nkey=" + a.password + "\n");
  clsDbSession s;
  const std::optional<Error> e = FailureOf([&] { s.Open(); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(errc::kProvider, e->Number());
  EXPECT_EQ("Unknown database 'tarnwick'", e->Description());
  EXPECT_EQ(nullptr, s.Connection());
}

TEST_F(SessionTest, AMissingMyIniFailsTheOpen) {
  SetSessionConnectionString("");
  SetApplicationPath((root_ / "app").string());
  ASSERT_FALSE(fs::exists(root_ / "my.ini"));
  clsDbSession s;
  const std::optional<Error> e = FailureOf([&] { s.Open(); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(errc::kProvider, e->Number());
  EXPECT_EQ(nullptr, s.Connection());
}

TEST_F(SessionTest, MyIniValuesAreCutAfter254Characters) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  if (a.port != 3306) GTEST_SKIP() << "my.ini sessions connect on port 3306";
  // A user whose password is 254 characters long.
  std::string password;
  for (int i = 0; i < 254; ++i) password += static_cast<char>('a' + (i * 7) % 26);
  long_user_ = "cvt_long_" + std::to_string(getpid());
  db().Exec("drop user if exists '" + long_user_ + "'@'127.0.0.1'");
  db().Exec("create user '" + long_user_ + "'@'127.0.0.1' identified by '" + password + "'");
  db().Exec("grant all on `" + database() + "`.* to '" + long_user_ + "'@'127.0.0.1'");
  const std::string longer = password + std::string(46, 'X');  // 300 characters

  // Through a connection text the whole of it is sent, and refused.
  SetSessionConnectionString("SERVER=127.0.0.1;PORT=3306;DATABASE=" + database() + ";UID=" +
                             long_user_ + ";PWD=" + longer);
  clsDbSession whole;
  const std::optional<Error> refused = FailureOf([&] { whole.Open(); });
  ASSERT_TRUE(refused.has_value());
  EXPECT_EQ(0u, refused->Description().find("Access denied")) << refused->Description();

  // From my.ini only its first 254 characters are read.
  SetSessionConnectionString("");
  WriteIni(Ini("127.0.0.1", database(), long_user_, longer));
  clsDbSession cut;
  cut.Open();
  EXPECT_EQ(long_user_ + "@127.0.0.1", UserOf(cut));
  cut.Close();

  // 253 characters are not enough.
  WriteIni(Ini("127.0.0.1", database(), long_user_, password.substr(0, 253)));
  clsDbSession shorter;
  const std::optional<Error> short_refused = FailureOf([&] { shorter.Open(); });
  ASSERT_TRUE(short_refused.has_value());
  EXPECT_EQ(0u, short_refused->Description().find("Access denied"));
}

TEST_F(SessionTest, TheApplicationPathDefaultsToTheLibrarysFolder) {
  SetApplicationPath((root_ / "app").string());
  EXPECT_EQ((root_ / "app").string(), ApplicationPath());
  SetApplicationPath("");
  const fs::path folder = ApplicationPath();
  ASSERT_FALSE(folder.empty());
  bool found = false;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().filename().string().rfind("libcorvane.so", 0) == 0) found = true;
  }
  EXPECT_TRUE(found) << folder;
}

}  // namespace
}  // namespace corvane
