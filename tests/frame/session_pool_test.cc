// How sessions keep their connections, on the sandbox server: a released
// object's connection waits in the pool and serves the next object; one the
// server has ended is not handed out; the pool keeps at most its limit and
// closes what waited too long; objects of one thread share a connection,
// objects of different threads do not; with the pool off each object has a
// connection of its own. And a whole-table rowset left unread under AddNew
// gives up its connection instead of reading the table to its end.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "corvane/frame/internal/session_pool.h"
#include "corvane/orders/order_type.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;
using Strings = std::vector<std::string>;

class SessionPoolTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    // Start from an empty pool: idle connections of earlier tests go.
    SetSessionPool(SessionPoolOptions{.max_idle = 0});
    SetSessionPool(SessionPoolOptions{});
  }
  // The server's ids of the connections to this test's database, but the
  // test's own.
  std::set<std::string> Connections() {
    std::set<std::string> ids;
    for (const auto& row : db().Rows("select id from information_schema.processlist where db='" +
                                     database() + "' and id <> connection_id()")) {
      ids.insert(row[0]);
    }
    return ids;
  }
  // The id of the connection a session holds.
  static std::string IdOf(clsDbSession& session) {
    Recordset rs;
    rs.Open("select connection_id() as id", session.Connection());
    const std::string id = rs.Fields("id").Value().CStr();
    rs.Close();
    return id;
  }
  // Waits a bounded time for the server to see the connections go.
  void AwaitConnections(std::size_t n) {
    for (int i = 0; i < 200 && Connections().size() != n; ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }
};

TEST_F(SessionPoolTest, AReleasedConnectionServesTheNextSession) {
  std::string first;
  {
    clsDbSession s;
    s.Open();
    first = IdOf(s);
    s.Close();
  }
  EXPECT_EQ(1u, internal::IdleConnections());
  clsDbSession next;
  next.Open();
  EXPECT_EQ(0u, internal::IdleConnections());
  EXPECT_EQ(first, IdOf(next));
  EXPECT_EQ(std::set<std::string>{first}, Connections());
}

TEST_F(SessionPoolTest, ARepositoryReleasedGivesItsConnectionToTheNext) {
  db().Exec("insert into t_bordertype values ('Export')");
  for (int i = 0; i < 20; ++i) {
    clsDataBOrderType repo;
    Collection<clsEntBOrderType> coll;
    repo.QueryAll(&coll);
    EXPECT_EQ(1u, coll.Count());
  }
  EXPECT_EQ(1u, Connections().size());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SessionPoolTest, AConnectionTheServerEndedIsNotHandedOut) {
  std::string first;
  {
    clsDbSession s;
    s.Open();
    first = IdOf(s);
    s.Close();
  }
  db().Exec("kill connection " + first);
  AwaitConnections(0);
  clsDataBOrderType repo;
  Collection<clsEntBOrderType> coll;
  Clear();
  EXPECT_EQ(0, repo.QueryAll(&coll));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Strings{"Select * From T_BOrderType "}, Commands());
  const std::set<std::string> now = Connections();
  ASSERT_EQ(1u, now.size());
  EXPECT_NE(first, *now.begin());
}

TEST_F(SessionPoolTest, ThePoolKeepsAtMostItsLimitAndClosesTheRest) {
  SetSessionPool(SessionPoolOptions{.share_within_thread = false, .max_idle = 2});
  {
    std::vector<std::unique_ptr<clsDbSession>> sessions;
    for (int i = 0; i < 4; ++i) {
      sessions.push_back(std::make_unique<clsDbSession>());
      sessions.back()->Open();
    }
    EXPECT_EQ(4u, Connections().size());
    for (auto& s : sessions) s->Close();
  }
  EXPECT_EQ(2u, internal::IdleConnections());
  AwaitConnections(2);
  EXPECT_EQ(2u, Connections().size());
}

TEST_F(SessionPoolTest, AConnectionIdleLongerThanTheTimeOutIsClosed) {
  SetSessionPool(SessionPoolOptions{.idle_timeout = std::chrono::seconds(1)});
  {
    clsDbSession s;
    s.Open();
    s.Close();
  }
  EXPECT_EQ(1u, internal::IdleConnections());
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  // Looked at when the pool is next used.
  clsDbSession next;
  next.Open();
  EXPECT_EQ(0u, internal::IdleConnections());
  AwaitConnections(1);
  EXPECT_EQ(1u, Connections().size());
}

TEST_F(SessionPoolTest, ObjectsOfOneThreadShareAConnectionWhileTheyLive) {
  db().Exec("insert into t_bordertype values ('Export')");
  clsDataBOrderType a;
  clsDataBOrderType b;
  Collection<clsEntBOrderType> coll;
  a.QueryAll(&coll);
  b.QueryAll(&coll);
  EXPECT_EQ(1u, Connections().size());
  // Another thread's object has a connection of its own.
  std::thread other([&] {
    clsDataBOrderType c;
    Collection<clsEntBOrderType> mine;
    c.QueryAll(&mine);
    EXPECT_EQ(2u, Connections().size());
  });
  other.join();
  EXPECT_EQ(2u, coll.Count());
}

TEST_F(SessionPoolTest, WithThePoolOffEachObjectHasItsOwnConnectionUntilReleased) {
  SetSessionPool(SessionPoolOptions{.enabled = false, .share_within_thread = false});
  {
    clsDataBOrderType a;
    clsDataBOrderType b;
    EXPECT_EQ(2u, Connections().size());
  }
  EXPECT_EQ(0u, internal::IdleConnections());
  AwaitConnections(0);
  EXPECT_EQ(0u, Connections().size());
}

TEST_F(SessionPoolTest, ObjectsOnSeveralThreadsCreatedAndReleasedPerCall) {
  constexpr int kThreads = 4, kCalls = 25;
  std::atomic<int> added{0}, reports{0};
  // The fixture's recorders are for one thread: count reports instead.
  SetStatementObserver(nullptr);
  SetReportHandler([&](const Report&) { ++reports; });
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < kCalls; ++i) {
        clsDataBOrderType repo;
        clsEntBOrderType e{"T" + std::to_string(t) + "_" + std::to_string(i)};
        if (repo.AddRecord(e) == 1) ++added;
      }
    });
  }
  for (auto& th : threads) th.join();
  EXPECT_EQ(kThreads * kCalls, added.load());
  EXPECT_EQ(kThreads * kCalls, db().Count("t_bordertype"));
  EXPECT_EQ(0, reports.load());
  EXPECT_LE(Connections().size(), static_cast<std::size_t>(kThreads));
}

// ------------------------------------------------------------ an abandoned whole-table read

TEST_F(SessionPoolTest, AddingToALargeTableGivesUpTheConnectionOfTheUnreadRows) {
  db().Exec(
      "insert into t_bordertype select concat('N', seq) from seq_1_to_20000");
  clsDataBOrderType repo;
  clsEntBOrderType probe{"none"};
  repo.DeleteRecord(probe);  // the session is in use
  Clear();
  const std::set<std::string> before = Connections();
  clsEntBOrderType e{"Added"};
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ((Strings{"select * from T_BOrderType where F_OrderType = 'Added'",
                     "select * from T_BOrderType"}),
            Commands());
  const std::set<std::string> after = Connections();
  EXPECT_NE(before, after);
  EXPECT_EQ(20001, db().Count("t_bordertype"));
  EXPECT_EQ("1", db().Scalar("select count(*) from t_bordertype where F_OrderType='Added'"));
  // The next call works on the new connection.
  Clear();
  Collection<clsEntBOrderType> all;
  repo.QueryAll(&all);
  EXPECT_EQ(20001u, all.Count());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SessionPoolTest, AGivenUpConnectionIsReplacedByASpareDialledBeforehand) {
  db().Exec("insert into t_bordertype select concat('N', seq) from seq_1_to_20000");
  clsDataBOrderType repo;
  clsEntBOrderType first{"First"};
  EXPECT_EQ(1, repo.AddRecord(first));
  // The first give-up dials in place; the pool has a spare dialled for the
  // next one.
  internal::SettleSpares();
  ASSERT_EQ(1u, internal::IdleConnections());
  // A session of this thread shares the connection the repository holds.
  clsDbSession same;
  same.Open();
  const std::string held = IdOf(same);
  AwaitConnections(2);  // the given-up one gone; the one held and the spare
  std::set<std::string> spare = Connections();
  spare.erase(held);
  ASSERT_EQ(1u, spare.size());

  Clear();
  clsEntBOrderType second{"Second"};
  EXPECT_EQ(1, repo.AddRecord(second));
  EXPECT_EQ((Strings{"select * from T_BOrderType where F_OrderType = 'Second'",
                     "select * from T_BOrderType"}),
            Commands());
  EXPECT_EQ(*spare.begin(), IdOf(same));
  internal::SettleSpares();
  EXPECT_EQ(1u, internal::IdleConnections());
  EXPECT_EQ(20002, db().Count("t_bordertype"));
  EXPECT_EQ("1", db().Scalar("select count(*) from t_bordertype where F_OrderType='Second'"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SessionPoolTest, NoSpareIsDialledWhenThePoolKeepsNothing) {
  SetSessionPool(SessionPoolOptions{.enabled = false});
  db().Exec("insert into t_bordertype select concat('N', seq) from seq_1_to_20000");
  clsDataBOrderType repo;
  clsEntBOrderType e{"Added"};
  EXPECT_EQ(1, repo.AddRecord(e));
  internal::SettleSpares();
  EXPECT_EQ(0u, internal::IdleConnections());
  // On the server, only the connection that took the given-up one's place.
  AwaitConnections(1);
  EXPECT_EQ(1u, Connections().size());
  EXPECT_EQ(20001, db().Count("t_bordertype"));
}

TEST_F(SessionPoolTest, ASpareAskedForIsSettledBeforeNewOptionsTakeHold) {
  db().Exec("insert into t_bordertype select concat('N', seq) from seq_1_to_20000");
  {
    clsDataBOrderType repo;
    clsEntBOrderType e{"Added"};
    EXPECT_EQ(1, repo.AddRecord(e));
  }
  // Whether or not the spare was dialled yet, none is left once the pool is
  // told to keep nothing, and none comes afterwards.
  SetSessionPool(SessionPoolOptions{.max_idle = 0});
  EXPECT_EQ(0u, internal::IdleConnections());
  internal::SettleSpares();
  EXPECT_EQ(0u, internal::IdleConnections());
}

TEST_F(SessionPoolTest, AddingToASmallTableKeepsTheConnection) {
  db().Exec("insert into t_bordertype select concat('N', seq) from seq_1_to_50");
  clsDataBOrderType repo;
  clsEntBOrderType probe{"none"};
  repo.DeleteRecord(probe);
  const std::set<std::string> before = Connections();
  clsEntBOrderType e{"Added"};
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ(before, Connections());
  EXPECT_EQ(51, db().Count("t_bordertype"));
}

}  // namespace
}  // namespace corvane
