// A dropped link and time-outs on the sandbox server: an object whose
// connection the server has ended works again at its next call, without a
// report and without a statement sent twice; a statement that fails under a
// dropped link reports and is not sent again; a server that does not answer
// ends a call within the read time-out; a socket named alone is used.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>
#include <string>
#include <vector>

#include "corvane/frame/internal/link.h"
#include "corvane/orders/order_type.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;
using ::corvane::testing::ServerAddress;
using Strings = std::vector<std::string>;

class RecoveryTest : public SandboxTest {
 protected:
  // The ids of the library's connections to this test's database.
  std::vector<std::string> LibraryConnections() {
    std::vector<std::string> ids;
    for (const auto& row : db().Rows("select id from information_schema.processlist where db='" +
                                     database() + "' and id <> connection_id() order by id")) {
      ids.push_back(row[0]);
    }
    return ids;
  }
  void KillLibraryConnections() {
    for (const std::string& id : LibraryConnections()) db().Exec("kill connection " + id);
  }
  std::vector<std::string> Names(const Collection<clsEntBOrderType>& coll) {
    std::vector<std::string> out;
    for (const auto& e : coll) out.push_back(e->OrderType);
    return out;
  }
};

TEST_F(RecoveryTest, AnObjectWhoseConnectionWasKilledWorksAtItsNextCall) {
  db().Exec("insert into t_bordertype values ('Export')");
  clsDataBOrderType repo;
  Collection<clsEntBOrderType> before;
  repo.QueryAll(&before);
  ASSERT_EQ(1u, LibraryConnections().size());
  const std::string old_id = LibraryConnections()[0];
  KillLibraryConnections();
  Clear();

  Collection<clsEntBOrderType> after;
  EXPECT_EQ(0, repo.QueryAll(&after));
  EXPECT_EQ(Strings{"Export"}, Names(after));
  clsEntBOrderType added{"Sample"};
  EXPECT_EQ(1, repo.AddRecord(added));
  EXPECT_TRUE(Reports().empty());
  // Each statement went out once, on the new link.
  EXPECT_EQ((Strings{"Select * From T_BOrderType ",
                     "select * from T_BOrderType where F_OrderType = 'Sample'",
                     "select * from T_BOrderType"}),
            Commands());
  ASSERT_EQ(1u, LibraryConnections().size());
  EXPECT_NE(old_id, LibraryConnections()[0]);
  EXPECT_EQ(2, db().Count("t_bordertype"));
}

TEST_F(RecoveryTest, EveryKillIsFollowedByAWorkingCall) {
  clsDataBOrderType repo;
  for (int i = 0; i < 5; ++i) {
    clsEntBOrderType t{"T" + std::to_string(i)};
    EXPECT_EQ(1, repo.AddRecord(t)) << i;
    KillLibraryConnections();
  }
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(5, db().Count("t_bordertype"));
}

TEST_F(RecoveryTest, AStatementCutOffUnderwayReportsAndIsNotSentAgain) {
  // The connection is killed while its statement runs: the call reports the
  // lost connection and fails; the statement is not repeated on a new link.
  Recordset rs;
  clsDbSession session;
  session.Open();
  // A second session's statement that sleeps, killed from outside while it
  // runs; the kill is sent by a thread after the sleep has begun.
  const auto conn = session.Connection();
  const std::string sleeper = "select sleep(5) as s";
  std::thread killer([&] {
    testing::Direct admin;
    for (int i = 0; i < 200; ++i) {
      const auto rows = admin.Rows(
          "select id from information_schema.processlist where info like 'select sleep(5)%'");
      if (!rows.empty()) {
        admin.Exec("kill connection " + rows[0][0]);
        return;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  });
  Clear();
  try {
    rs.Open(sleeper, conn);
    FAIL() << "the cut statement must fail";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kProvider, e.Number());
  }
  killer.join();
  // The next statement goes out on a new link; the cut one was sent once.
  rs.Open("select 1 as one", conn);
  EXPECT_EQ(1, rs.Fields("one").Value().CLng());
  rs.Close();
  EXPECT_EQ((Strings{sleeper, "select 1 as one"}), Commands());
  EXPECT_EQ(1u, conn->link().reconnects());
}

TEST_F(RecoveryTest, AServerThatDoesNotAnswerEndsTheCallWithinTheReadTimeOut) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  SetSessionConnectionString(a.ConnectionText(database()) + ";READ_TIMEOUT=1");
  clsDbSession session;
  session.Open();
  Recordset rs;
  const auto start = std::chrono::steady_clock::now();
  try {
    rs.Open("select sleep(4) as s", session.Connection());
    FAIL() << "the statement must time out";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kProvider, e.Number());
  }
  const auto waited = std::chrono::steady_clock::now() - start;
  EXPECT_LT(waited, std::chrono::milliseconds(3500));
  // The link that timed out is replaced for the next statement.
  rs.Open("select 2 as two", session.Connection());
  EXPECT_EQ(2, rs.Fields("two").Value().CLng());
  rs.Close();
}

TEST_F(RecoveryTest, ASocketNamedWithoutAServerIsUsed) {
  const std::string socket = db().Scalar("select @@socket").value_or("");
  ASSERT_FALSE(socket.empty());
  const ServerAddress a = ServerAddress::FromEnvironment();
  if (a.server != "127.0.0.1" && a.server != "localhost") GTEST_SKIP() << "server not local";
  SetSessionConnectionString("SOCKET=" + socket + ";DATABASE=" + database() + ";UID=" + a.user +
                             ";PWD=" + a.password);
  clsDbSession session;
  session.Open();
  Recordset rs;
  rs.Open("select user() as u", session.Connection());
  EXPECT_EQ(a.user + "@localhost", rs.Fields("u").Value().CStr());
  rs.Close();
  // With a server named too, the server is used.
  SetSessionConnectionString("SERVER=127.0.0.1;PORT=" + std::to_string(a.port) + ";SOCKET=" +
                             socket + ";DATABASE=" + database() + ";UID=" + a.user +
                             ";PWD=" + a.password);
  clsDbSession tcp;
  tcp.Open();
  rs.Open("select user() as u", tcp.Connection());
  EXPECT_EQ(a.user + "@127.0.0.1", rs.Fields("u").Value().CStr());
  rs.Close();
}

}  // namespace
}  // namespace corvane
