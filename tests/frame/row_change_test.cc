// Row changes with large and awkward values against the sandbox server: the
// insert and update statements that AddNew and column writes send, byte for
// byte, with every kind of value escaped into one buffer; the values the
// current row reads after them; and the pieces of the frame for classes with
// their own report words and their own hold on the session.
#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "corvane/frame/connection.h"
#include "corvane/frame/error.h"
#include "corvane/frame/recordset.h"
#include "corvane/frame/repository.h"
#include "corvane/frame/session.h"
#include "corvane/frame/variant.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;
using Bytes = std::vector<std::uint8_t>;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;

std::optional<Error> FailureOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& e) {
    return e;
  }
  return std::nullopt;
}

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

// The bytes a binary literal escapes, and some it does not.
const Bytes kAwkward = {'a', 0, '\'', '\\', '"', '\n', '\r', 0x1A, 0xFF, 0xE5, 'z'};
// The same as the statement carries it.
const char kAwkwardLiteral[] = "_binary'a\\0\\'\\\\\\\"\\n\\r\\Z\xFF\xE5z'";

class RowChangeTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    session_.Open();
    db().Exec("create table blobs (id int not null primary key, t varchar(20) null, "
              "b longblob null, v varbinary(4) null, d datetime null, f double null)");
    Clear();
  }
  void TearDown() override {
    session_.Close();
    SandboxTest::TearDown();
  }

  std::shared_ptr<Connection> cn() { return session_.Connection(); }
  Strings RowChanges() const {
    Strings out;
    for (const auto& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
  std::string Table() const { return "`" + Lower(database()) + "`.`blobs`"; }

 private:
  clsDbSession session_;
};

TEST_F(RowChangeTest, AnInsertCarriesEveryKindOfValue) {
  Recordset rs;
  rs.Open("select * from blobs where 1=2", cn(), 2, 3);
  rs.AddNew();
  rs.SetCollect("id", std::int32_t{1});
  rs.SetCollect("t", "it's \\ \"x\"");
  rs.SetCollect("b", kAwkward);
  rs.SetCollect("v", Variant::Null());
  rs.SetCollect("d", Date::FromParts(2026, 11, 23, 18, 5, 0));
  rs.SetCollect("f", 0.5);
  rs.Update();
  // The new row reads what was written.
  EXPECT_EQ(Variant(kAwkward), rs.Fields("b").Value());
  EXPECT_EQ(Variant("it's \\ \"x\""), rs.Fields("t").Value());
  rs.Close();
  EXPECT_EQ(Strings{"INSERT INTO " + Table() +
                    " (`id`,`t`,`b`,`v`,`d`,`f`) VALUES (1,'it\\'s \\\\ \\\"x\\\"'," +
                    kAwkwardLiteral + ",NULL,'2026-11-23 18:05:00',0.5)"},
            RowChanges());
  EXPECT_EQ((Rows{{"1", "it's \\ \"x\"", "6100275C220A0D1AFFE57A", "NULL", "2026-11-23 18:05:00",
                   "0.5"}}),
            db().Rows("select id, t, hex(b), ifnull(hex(v), 'NULL'), d, f from blobs"));
}

TEST_F(RowChangeTest, AnUpdateCarriesTheValueEscapedOnce) {
  db().Exec("insert into blobs (id, b) values (1, x'00')");
  Recordset rs;
  rs.Open("select * from blobs where id = 1", cn(), 1, 3);
  rs.SetCollect("b", kAwkward);
  rs.SetCollect("t", "O'Neil");
  rs.Update();
  EXPECT_EQ(Variant(kAwkward), rs.Fields("b").Value());
  rs.Close();
  EXPECT_EQ(Strings{"UPDATE " + Table() + " SET `t`='O\\'Neil',`b`=" + kAwkwardLiteral +
                    " WHERE `id` <=> 1 LIMIT 1"},
            RowChanges());
  EXPECT_EQ((Rows{{"O'Neil", "6100275C220A0D1AFFE57A"}}), db().Rows("select t, hex(b) from blobs"));
}

TEST_F(RowChangeTest, ABatchUpdateSendsTheSameTextLater) {
  db().Exec("insert into blobs (id, b) values (1, x'00')");
  Recordset rs;
  rs.Open("select * from blobs where id = 1", cn(), 1, 4);
  rs.SetCollect("b", kAwkward);
  rs.Update();
  EXPECT_TRUE(RowChanges().empty());
  rs.UpdateBatch(3);
  rs.Close();
  EXPECT_EQ(Strings{"UPDATE " + Table() + " SET `b`=" + kAwkwardLiteral +
                    " WHERE `id` <=> 1 LIMIT 1"},
            RowChanges());
  EXPECT_EQ("6100275C220A0D1AFFE57A", db().Scalar("select hex(b) from blobs"));
}

TEST_F(RowChangeTest, AKeylessRowIsFoundByItsBinaryValue) {
  db().Exec("create table keyless (b blob null, n int null)");
  db().Exec("insert into keyless values (x'61005C27', 1)");
  Recordset rs;
  rs.Open("select * from keyless", cn(), 2, 3);
  rs.SetCollect("n", std::int32_t{2});
  rs.Update();
  rs.Close();
  EXPECT_EQ(Strings{"UPDATE `" + Lower(database()) +
                    "`.`keyless` SET `n`=2 WHERE `b` <=> _binary'a\\0\\\\\\'' AND `n` <=> 1 LIMIT 1"},
            RowChanges());
  EXPECT_EQ("2", db().Scalar("select n from keyless"));
}

TEST_F(RowChangeTest, ALargeValueGoesWhole) {
  Bytes big(3 << 20);
  for (std::size_t i = 0; i < big.size(); ++i) big[i] = static_cast<std::uint8_t>(i * 7 + i / 251);
  Recordset rs;
  rs.Open("select id, b from blobs where 1=2", cn(), 2, 3);
  rs.AddNew();
  rs.SetCollect("id", std::int32_t{1});
  rs.SetCollect("b", big);
  rs.Update();
  rs.Close();
  rs.Open("select b from blobs where id = 1", cn());
  EXPECT_TRUE(rs.Fields("b").Value() == Variant(big));
  rs.Close();
}

TEST_F(RowChangeTest, AByteArrayLongerThanItsColumnDoesNotFit) {
  Recordset rs;
  rs.Open("select * from blobs where 1=2", cn(), 2, 3);
  rs.AddNew();
  const std::optional<Error> e = FailureOf([&] { rs.SetCollect("v", Bytes{1, 2, 3, 4, 5}); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(errc::kMultipleStep, e->Number());
  EXPECT_NO_THROW(rs.SetCollect("v", Bytes{1, 2, 3, 4}));
}

TEST(VariantBytes, TheByteArrayWithoutACopy) {
  const Variant bytes(Bytes{1, 2});
  ASSERT_NE(nullptr, bytes.Bytes());
  EXPECT_EQ((Bytes{1, 2}), *bytes.Bytes());
  EXPECT_EQ(nullptr, Variant("12").Bytes());
  EXPECT_EQ(nullptr, Variant().Bytes());
}

// ------------------------------------------------------------ own words

Report Worded(const Error& failure) { return Report{"worded: " + failure.Description(), 0, "T"}; }

// A class that holds the session itself and reports in its own words.
class clsDataBWorded : private Repository {
 public:
  clsDataBWorded() : Repository(SessionKeptByClass{}) {}
  ~clsDataBWorded() { Guard(Worded, [&] { session().Close(); }); }

  bool SessionOpen() { return session().Connection() != nullptr; }
  void OpenSession() { session().Open(); }
  std::shared_ptr<Connection> Cn() { return session().Connection(); }

  // Opens sql and leaves rs open; 1 done, 2 failure.
  std::int16_t Run(const std::string& sql) {
    std::int16_t result = 0;
    Guard(Worded, [&] {
      ReadOpen(sql);
      result = 1;
    }, [&] { result = 2; });
    return result;
  }
};

TEST_F(RowChangeTest, AClassThatKeepsTheSessionOpensAndClosesItItself) {
  // A session with a connection of its own, neither pooled nor shared.
  SetSessionPool(SessionPoolOptions{.enabled = false, .share_within_thread = false});
  std::shared_ptr<Connection> cn;
  {
    clsDataBWorded repo;
    EXPECT_FALSE(repo.SessionOpen());
    repo.OpenSession();
    cn = repo.Cn();
    ASSERT_NE(nullptr, cn);
    EXPECT_EQ(1, cn->State());
  }
  EXPECT_EQ(0, cn->State());
  // A session never opened: the base closes nothing and nothing fails.
  { clsDataBWorded never; }
  EXPECT_TRUE(Reports().empty());
}

TEST_F(RowChangeTest, TheGuardWithOwnWordsReportsAndResets) {
  clsDataBWorded repo;
  repo.OpenSession();
  EXPECT_EQ(1, repo.Run("select 1 as one"));
  // rs was left open: the next open fails, is reported in the class's words,
  // and rs is reset, so the one after works.
  EXPECT_EQ(2, repo.Run("select 1 as one"));
  EXPECT_EQ((std::vector<Report>{
                Report{"worded: Operation is not allowed when the object is open", 0, "T"}}),
            Reports());
  EXPECT_EQ(1, repo.Run("select 1 as one"));
  EXPECT_EQ(1u, Reports().size());
}

}  // namespace
}  // namespace corvane
