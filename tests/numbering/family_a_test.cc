// The steps of the caller's document numbers against the sandbox server, run
// on a bare repository over the outsource order table: the statements sent,
// the results, what t_sitemno and the document table hold afterwards.
#include "corvane/numbering/family_a.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;

// A repository with no methods of its own: the steps run on it directly.
class Probe : public Repository {};

const numbering::FamilyATexts kTexts{
    .largest = "select * from t_boutmakeh where F_OrderoutNo in (select max(F_OrderoutNo) from "
               "t_boutmakeh)",
    .largest_of_day = "select max(F_OrderoutNo) as F_OrderoutNo from t_boutmakeh where "
                      "F_OrderoutDate ='{D}'",
    .number_taken = "select * from t_boutmakeh where F_OrderoutNo='{N}'",
    .delete_document = "delete from t_boutmakeh where F_OrderoutNo ='{N}' ",
    .documents_of_day = "select * from t_boutmakeh where F_OrderoutDate='{D}'",
    .max_of_day = "(select max(F_OrderoutNo) from t_boutmakeh where F_OrderoutDate='{D}')",
};

class FamilyATest : public SandboxTest {
 protected:
  void Order(const std::string& no, const std::string& date) {
    db().Exec("insert into t_boutmakeh (F_OrderoutNo, F_OrderoutDate) values (" + no + ", '" +
              date + "')");
  }
  Rows Counters() {
    return db().Rows(
        "select F_TableName, F_No, date_format(F_FnDate, '%Y-%m-%d') from t_sitemno order by "
        "F_TableName, F_FnDate");
  }
  Rows Orders() {
    return db().Rows(
        "select F_OrderoutNo, date_format(F_OrderoutDate, '%Y-%m-%d') from t_boutmakeh order by "
        "F_OrderoutNo");
  }
  const Date kDay = Date::FromParts(2026, 11, 2);
};

TEST_F(FamilyATest, NumberTextIsTheNumberReadBackAndWrittenAgain) {
  EXPECT_EQ("2026110201", numbering::NumberText(2026110201));
  EXPECT_EQ("12.5", numbering::NumberText(12.5));
  EXPECT_EQ("1E+15", numbering::NumberText(1e15));
}

TEST_F(FamilyATest, QueryMaxItemReadsTheRowWithTheLargestNumberOfTheTable) {
  Probe repo;
  int reads = 0;
  EXPECT_EQ(0, numbering::QueryMaxItem(repo, kTexts, [&] { ++reads; }));
  EXPECT_EQ(0, reads);
  Order("2026110101", "2026-11-01");
  Order("2026110201", "2026-11-02");
  double read = 0;
  EXPECT_EQ(1, numbering::QueryMaxItem(repo, kTexts, [&] {
              read = repo.Value("F_OrderoutNo").CDbl();
            }));
  EXPECT_EQ(2026110201, read);
  EXPECT_EQ(0, repo.rs().State());
  EXPECT_EQ(Strings(2, kTexts.largest), Commands());
}

TEST_F(FamilyATest, QueryMaxItemDeleteAsksForTheMaximumOfTheDate) {
  Order("2026110201", "2026-11-02");
  Order("2026110202", "2026-11-02");
  Order("2026110301", "2026-11-03");
  Probe repo;
  Variant read;
  EXPECT_EQ(1, numbering::QueryMaxItemDelete(repo, kTexts, kDay, [&] {
              read = repo.Value("F_OrderoutNo");
            }));
  EXPECT_EQ(2026110202, read.CDbl());
  // A date without documents still gives one row, holding null.
  EXPECT_EQ(1, numbering::QueryMaxItemDelete(repo, kTexts, Date::FromParts(2026, 1, 1), [&] {
              read = repo.Value("F_OrderoutNo");
            }));
  EXPECT_TRUE(read.IsNull());
  EXPECT_EQ((Strings{"select max(F_OrderoutNo) as F_OrderoutNo from t_boutmakeh where "
                     "F_OrderoutDate ='2026-11-02'",
                     "select max(F_OrderoutNo) as F_OrderoutNo from t_boutmakeh where "
                     "F_OrderoutDate ='2026-01-01'"}),
            Commands());
}

TEST_F(FamilyATest, QueryConditionFindsTheRowOfTheKindAndDay) {
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110203, '2026-11-02')");
  Probe repo;
  clsEntSitemNo e;
  EXPECT_EQ(1, numbering::QueryCondition(repo, kDay, "t_boutmakeh", e));
  EXPECT_EQ(2026110203, e.no);
  clsEntSitemNo none;
  none.no = 7;
  EXPECT_EQ(0, numbering::QueryCondition(repo, kDay, "t_bcstudy", none));
  EXPECT_EQ(7, none.no);
  EXPECT_EQ((Strings{"select * from t_sitemno where F_TableName='t_boutmakeh'and "
                     "F_FnDate='2026-11-02'",
                     "select * from t_sitemno where F_TableName='t_bcstudy'and "
                     "F_FnDate='2026-11-02'"}),
            Commands());
  EXPECT_EQ(0, repo.rs().State());
}

TEST_F(FamilyATest, QueryConditionReadsANullNumberWithoutATestAndFails) {
  db().Exec("insert into t_sitemno values ('t_boutmakeh', null, '2026-11-02')");
  Probe repo;
  clsEntSitemNo e;
  try {
    numbering::QueryCondition(repo, kDay, "t_boutmakeh", e);
    FAIL() << "a null F_No must not read";
  } catch (const Error& failure) {
    EXPECT_EQ(errc::kInvalidUseOfNull, failure.Number());
  }
}

TEST_F(FamilyATest, StoreDocumentAddsOnlyAFreeNumber) {
  Order("2026110201", "2026-11-02");
  Probe repo;
  int writes = 0;
  EXPECT_EQ(0, numbering::StoreDocument(repo, kTexts, "2026110201", [&] { ++writes; }));
  EXPECT_EQ(0, writes);
  EXPECT_EQ(0, repo.rs().State());
  EXPECT_EQ(1, numbering::StoreDocument(repo, kTexts, "2026110202", [&] {
              repo.Write("F_OrderoutNo", 2026110202.0);
              repo.Write("F_OrderoutDate", kDay);
            }));
  EXPECT_EQ(0, repo.rs().State());
  EXPECT_EQ((Rows{{"2026110201", "2026-11-02"}, {"2026110202", "2026-11-02"}}), Orders());
  EXPECT_EQ((Strings{"select * from t_boutmakeh where F_OrderoutNo='2026110201'",
                     "select * from t_boutmakeh where F_OrderoutNo='2026110202'"}),
            Commands());
  EXPECT_TRUE(Counters().empty());
}

TEST_F(FamilyATest, AppendDocumentAddsToTheWholeTableWithoutACheck) {
  Order("2026110201", "2026-11-02");
  Probe repo;
  numbering::AppendDocument(repo, "select * from t_boutmakeh", [&] {
    repo.Write("F_OrderoutNo", 2026110202.0);
    repo.Write("F_OrderoutDate", kDay);
  });
  EXPECT_EQ((Rows{{"2026110201", "2026-11-02"}, {"2026110202", "2026-11-02"}}), Orders());
  // A used number: only the table's key refuses it, when the row is stored.
  try {
    numbering::AppendDocument(repo, "select * from t_boutmakeh", [&] {
      repo.Write("F_OrderoutNo", 2026110201.0);
      repo.Write("F_OrderoutDate", kDay);
    });
    FAIL() << "the key must refuse the number";
  } catch (const Error& failure) {
    EXPECT_EQ(errc::kProvider, failure.Number());
    EXPECT_EQ("Duplicate entry '2026110201' for key 'PRIMARY'", failure.Description());
  }
  EXPECT_EQ(2u, Orders().size());
  EXPECT_EQ(Strings(2, "select * from t_boutmakeh"), Commands());
}

TEST_F(FamilyATest, RememberNumberInsertsWithStatusZeroAndTrimsNameAndDate) {
  Probe repo;
  numbering::RememberNumber(repo, 0, "  t_boutmakeh ", 2026110201, kDay);
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110201", "2026-11-02"}}), Counters());
  EXPECT_EQ(Strings{"insert into t_sitemno values ('t_boutmakeh' ,'2026110201','2026-11-02')"},
            Commands());
  EXPECT_EQ(0, repo.rs().State());
}

TEST_F(FamilyATest, RememberNumberUpdatesWithAnyOtherStatusAndKeepsTheNameAsItIs) {
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110201, '2026-11-02')");
  Probe repo;
  numbering::RememberNumber(repo, 3, "t_boutmakeh", 2026110202, kDay);
  // Blanks around the name are not trimmed here, so this update finds no row.
  numbering::RememberNumber(repo, -1, " t_boutmakeh", 2026110209, kDay);
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02"}}), Counters());
  EXPECT_EQ((Strings{"update t_sitemno set F_No='2026110202' where F_FnDate='2026-11-02' and "
                     "F_TableName='t_boutmakeh'",
                     "update t_sitemno set F_No='2026110209' where F_FnDate='2026-11-02' and "
                     "F_TableName=' t_boutmakeh'"}),
            Commands());
}

TEST_F(FamilyATest, RememberNumberWithStatusZeroOnADayWithARowAddsASecondRow) {
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110201, '2026-11-02')");
  Probe repo;
  numbering::RememberNumber(repo, 0, "t_boutmakeh", 2026110202, kDay);
  EXPECT_EQ(2, db().Count("t_sitemno"));
}

TEST_F(FamilyATest, DeleteDocumentWithAStatusOtherThanOneLeavesTheCounter) {
  Order("2026110201", "2026-11-02");
  Order("2026110202", "2026-11-02");
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110202, '2026-11-02')");
  Probe repo;
  EXPECT_EQ(1, numbering::DeleteDocument(repo, kTexts, 0, "2026110202", kDay, "t_boutmakeh"));
  EXPECT_EQ((Rows{{"2026110201", "2026-11-02"}}), Orders());
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02"}}), Counters());
  EXPECT_EQ(Strings{"delete from t_boutmakeh where F_OrderoutNo ='2026110202' "}, Commands());
}

TEST_F(FamilyATest, DeleteDocumentWithStatusOnePointsTheRowAtTheLargestLeft) {
  Order("2026110201", "2026-11-02");
  Order("2026110202", "2026-11-02");
  Order("2026110203", "2026-11-02");
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110203, '2026-11-02')");
  Probe repo;
  EXPECT_EQ(1, numbering::DeleteDocument(repo, kTexts, 1, "2026110203", kDay, "t_boutmakeh"));
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02"}}), Counters());
  // Any document deleted: the row follows the maximum, whichever went.
  EXPECT_EQ(1, numbering::DeleteDocument(repo, kTexts, 1, "2026110201", kDay, "t_boutmakeh"));
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02"}}), Counters());
  EXPECT_EQ((Strings{
                "delete from t_boutmakeh where F_OrderoutNo ='2026110203' ",
                "select * from t_boutmakeh where F_OrderoutDate='2026-11-02'",
                "update t_sitemno set F_No= (select max(F_OrderoutNo) from t_boutmakeh where "
                "F_OrderoutDate='2026-11-02') where F_FnDate='2026-11-02' and "
                "F_TableName='t_boutmakeh'",
                "delete from t_boutmakeh where F_OrderoutNo ='2026110201' ",
                "select * from t_boutmakeh where F_OrderoutDate='2026-11-02'",
                "update t_sitemno set F_No= (select max(F_OrderoutNo) from t_boutmakeh where "
                "F_OrderoutDate='2026-11-02') where F_FnDate='2026-11-02' and "
                "F_TableName='t_boutmakeh'",
            }),
            Commands());
}

TEST_F(FamilyATest, DeleteDocumentWithStatusOneRemovesTheRowOfAnEmptiedDay) {
  Order("2026110201", "2026-11-02");
  Order("2026110301", "2026-11-03");
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110201, '2026-11-02'), "
            "('t_boutmakeh', 2026110301, '2026-11-03'), ('t_bcstudy', 2026110201, "
            "'2026-11-02')");
  Probe repo;
  EXPECT_EQ(2, numbering::DeleteDocument(repo, kTexts, 1, "2026110201", kDay, "t_boutmakeh"));
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110201", "2026-11-02"},
                  {"t_boutmakeh", "2026110301", "2026-11-03"}}),
            Counters());
  EXPECT_EQ((Strings{"delete from t_boutmakeh where F_OrderoutNo ='2026110201' ",
                     "select * from t_boutmakeh where F_OrderoutDate='2026-11-02'",
                     "delete from t_sitemno where F_FnDate ='2026-11-02' and "
                     "F_TableName='t_boutmakeh'"}),
            Commands());
  EXPECT_EQ(0, repo.rs().State());
}

}  // namespace
}  // namespace corvane
