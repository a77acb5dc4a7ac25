// clsDataBOutMakeh's listings under the supplier rights against the sandbox
// server: QueryLasted12month (the twelve latest months) and QueryMonthItem
// (the orders of a month), each chosen by t_dataright for module "S".
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "corvane/outsource/outsource_header.h"
#include "tests/outsource/outsource_support.h"

namespace corvane {
namespace {

using namespace ::corvane::outsource_testing;
using ::corvane::testing::PlainReport;
using ::testing::HasSubstr;

std::string RightsSql(const std::string& user) {
  return "select * from t_dataright where F_ModuleID='S' and f_userid='" + user + "'";
}
std::string MonthsFiltered(const std::string& user) {
  return "select distinct left(F_OrderoutNo,6) as F_OrderoutNo  from t_boutmakeh t0 inner join "
         "t_dataright t1 on t1.f_moduleid='S' and t1.f_rightid=t0.F_ProviderNo and t1.f_userid='" +
         user + "' order by F_OrderoutNo desc limit 0,12";
}
const std::string kMonthsUnfiltered =
    "select distinct left(F_OrderoutNo,6) as F_OrderoutNo  from t_boutmakeh order by F_OrderoutNo "
    "desc limit 0,12";
std::string MonthFiltered(const std::string& user, const std::string& month) {
  return "select t0.* from t_boutmakeh t0 inner join t_dataright t1 on t1.f_moduleid='S' and "
         "t1.f_rightid=t0.F_ProviderNo and t1.f_userid='" +
         user + "' and left(F_OrderoutNo,6)='" + month + "'";
}
std::string MonthUnfiltered(const std::string& month) {
  return "select * from t_boutmakeh where left(F_OrderoutNo,6)='" + month + "'";
}

const Variant kOne(std::int16_t{1});
const Variant kZero(std::int16_t{0});

class OutsourceRightsTest : public OutsourceTest {
 protected:
  void SetUp() override {
    OutsourceTest::SetUp();
    // November 2026: two suppliers; October 2026: one; December: another.
    Order("2026110201", "2026-11-02", "P01");
    Order("2026110202", "2026-11-02", "P02");
    Order("2026100501", "2026-10-05", "P01");
    Order("2026120101", "2026-12-01", "P03");
  }
  void Right(const std::string& module, const std::string& user, const std::string& id) {
    db().Exec("insert into t_dataright values ('" + module + "','" + user + "','" + id + "')");
  }
  // The numbers of the entities, and that nothing else was set.
  static Strings Numbers(const Collection<clsEntBOutMakeh>& c) {
    Strings out;
    for (const auto& e : c) {
      EXPECT_EQ("", e->ProviderNo);
      EXPECT_EQ(Date(), e->OrderoutDate);
      out.push_back(Text(e->OrderoutNo));
    }
    return out;
  }
  // Number and supplier of each full entity.
  static Strings Listed(const Collection<clsEntBOutMakeh>& c) {
    Strings out;
    for (const auto& e : c) out.push_back(Text(e->OrderoutNo) + " " + e->ProviderNo);
    return out;
  }
};

// ------------------------------------------------------------ QueryLasted12month

TEST_F(OutsourceRightsTest, QueryLasted12monthListsEveryMonthForAUserWithoutRights) {
  Right("C", "lin", "C001");  // rights in another module do not count
  clsDataBOutMakeh repo;
  for (const std::string user : {"lin", "", "nobody"}) {
    Clear();
    Collection<clsEntBOutMakeh> coll;
    EXPECT_EQ(kOne, repo.QueryLasted12month(&coll, user));
    EXPECT_EQ((Strings{"202612", "202611", "202610"}), Numbers(coll)) << user;
    EXPECT_EQ((Strings{RightsSql(user), kMonthsUnfiltered}), Commands());
    EXPECT_TRUE(Reports().empty());
  }
}

TEST_F(OutsourceRightsTest, QueryLasted12monthListsOnlyTheMonthsOfTheUsersSuppliers) {
  Right("S", "wu", "P01");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  coll.Add(std::make_shared<clsEntBOutMakeh>());  // appended to, never cleared
  EXPECT_EQ(kOne, repo.QueryLasted12month(&coll, "wu"));
  EXPECT_EQ((Strings{"0", "202611", "202610"}), Numbers(coll));
  EXPECT_EQ((Strings{RightsSql("wu"), MonthsFiltered("wu")}), Commands());
  // Two alike rights rows do not double a distinct month.
  Right("S", "wu", "P01");
  Collection<clsEntBOutMakeh> again;
  EXPECT_EQ(kOne, repo.QueryLasted12month(&again, "wu"));
  EXPECT_EQ((Strings{"202611", "202610"}), Numbers(again));
}

TEST_F(OutsourceRightsTest, QueryLasted12monthGivesOneWithNoRowsAndDoesNotWidenRights) {
  Right("S", "wu", "P99");  // a supplier without orders
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(kOne, repo.QueryLasted12month(&coll, "wu"));
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ((Strings{RightsSql("wu"), MonthsFiltered("wu")}), Commands());
  // With no rows a null collection is not touched.
  EXPECT_EQ(kOne, repo.QueryLasted12month(nullptr, "wu"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceRightsTest, QueryLasted12monthKeepsTheTwelveNewestMonths) {
  for (int m = 1; m <= 12; ++m) {
    const std::string month = (m < 10 ? "20250" : "2025") + std::to_string(m);
    Order(month + "0101", month.substr(0, 4) + "-" + month.substr(4) + "-01");
  }
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(kOne, repo.QueryLasted12month(&coll, "lin"));
  EXPECT_EQ((Strings{"202612", "202611", "202610", "202512", "202511", "202510", "202509",
                     "202508", "202507", "202506", "202505", "202504"}),
            Numbers(coll));
}

TEST_F(OutsourceRightsTest, QueryLasted12monthStopsAtANullMonth) {
  // Without the key the number may be null, and so may its month, which
  // sorts last: the months before it stay collected, the null fails.
  db().Exec("alter table t_boutmakeh drop primary key, modify F_OrderOutNo double null");
  db().Exec("insert into t_boutmakeh (F_OrderOutNo, F_Tabler) values (null, 'ann')");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(kZero, repo.QueryLasted12month(&coll, "lin"));
  EXPECT_EQ((Strings{RightsSql("lin"), kMonthsUnfiltered}), Commands());
  EXPECT_EQ(ReportList{PlainReport("Type mismatch")}, Reports());
  EXPECT_EQ((Strings{"202612", "202611", "202610"}), Numbers(coll));
  // rs was reset: the next call gets as far again.
  Collection<clsEntBOutMakeh> again;
  EXPECT_EQ(kZero, repo.QueryLasted12month(&again, "lin"));
  EXPECT_EQ(3u, again.Count());
  EXPECT_EQ(2u, Reports().size());
}

TEST_F(OutsourceRightsTest, QueryLasted12monthWithANullCollectionGivesZero) {
  clsDataBOutMakeh repo;
  EXPECT_EQ(kZero, repo.QueryLasted12month(nullptr, "lin"));
  EXPECT_EQ(ReportList{PlainReport("Object required")}, Reports());
  // rs was reset: the next call works.
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(kOne, repo.QueryLasted12month(&coll, "lin"));
  EXPECT_EQ(3u, coll.Count());
}

TEST_F(OutsourceRightsTest, QueryLasted12monthWithAFailingRightsTestNeverFallsBack) {
  db().Exec("drop table t_dataright");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(kZero, repo.QueryLasted12month(&coll, "lin"));
  EXPECT_EQ(Strings{RightsSql("lin")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_dataright' doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(0u, coll.Count());
}

TEST_F(OutsourceRightsTest, QueryLasted12monthWithAQuoteInTheUserFails) {
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(kZero, repo.QueryLasted12month(&coll, "o'neil"));
  EXPECT_EQ(Strings{RightsSql("o'neil")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr(kSyntax));
}

// ------------------------------------------------------------ QueryMonthItem

TEST_F(OutsourceRightsTest, QueryMonthItemListsEveryOrderOfTheMonthForAUserWithoutRights) {
  Right("C", "lin", "C001");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(1, repo.QueryMonthItem(&coll, "202611", "lin"));
  EXPECT_EQ((Strings{"2026110201 P01", "2026110202 P02"}), Listed(coll));
  EXPECT_EQ((Strings{RightsSql("lin"), MonthUnfiltered("202611")}), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceRightsTest, QueryMonthItemReadsAllThirtyThreeColumns) {
  InsertFullOrder("2026110203");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(1, repo.QueryMonthItem(&coll, "202611", ""));
  ASSERT_EQ(3u, coll.Count());
  ExpectSameOrder(FullOrder(2026110203), coll.Item(3));
  // The others have nulls: the delivery mode reads as "0", as does a null
  // supplier.
  EXPECT_EQ("0", coll.Item(1).DeliverMode);
  db().Exec("update t_boutmakeh set F_ProviderNo=null where F_OrderOutNo=2026110201");
  Collection<clsEntBOutMakeh> again;
  EXPECT_EQ(1, repo.QueryMonthItem(&again, "202611", ""));
  EXPECT_EQ("0", again.Item(1).ProviderNo);
  EXPECT_EQ("", again.Item(1).PayMode);
}

TEST_F(OutsourceRightsTest, QueryMonthItemListsOnlyTheOrdersOfTheUsersSuppliers) {
  Right("S", "wu", "P02");
  Right("S", "wu", "P03");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(1, repo.QueryMonthItem(&coll, "202611", "wu"));
  EXPECT_EQ((Strings{"2026110202 P02"}), Listed(coll));
  EXPECT_EQ((Strings{RightsSql("wu"), MonthFiltered("wu", "202611")}), Commands());
  // A month with none of the user's suppliers: nothing, and no fall back.
  Collection<clsEntBOutMakeh> october;
  EXPECT_EQ(0, repo.QueryMonthItem(&october, "202610", "wu"));
  EXPECT_EQ(0u, october.Count());
  EXPECT_EQ(MonthFiltered("wu", "202610"), Commands().back());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceRightsTest, QueryMonthItemComparesTheUserAsTheDatabaseComparesText) {
  Right("S", "wu", "P02");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  // No trimming or case folding by the library: the table's collation
  // ignores case, and a leading blank makes another user.
  EXPECT_EQ(1, repo.QueryMonthItem(&coll, "202611", "WU"));
  EXPECT_EQ((Strings{"2026110202 P02"}), Listed(coll));
  EXPECT_EQ(MonthFiltered("WU", "202611"), Commands().back());
  Collection<clsEntBOutMakeh> blank;
  EXPECT_EQ(1, repo.QueryMonthItem(&blank, "202611", " wu"));
  EXPECT_EQ(2u, blank.Count());  // unrestricted
  EXPECT_EQ(MonthUnfiltered("202611"), Commands().back());
}

TEST_F(OutsourceRightsTest, QueryMonthItemGivesAnOrderTwiceForTwoAlikeRights) {
  Right("S", "wu", "P01");
  Right("S", "wu", "P01");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(1, repo.QueryMonthItem(&coll, "202611", "wu"));
  EXPECT_EQ((Strings{"2026110201 P01", "2026110201 P01"}), Listed(coll));
}

TEST_F(OutsourceRightsTest, QueryMonthItemWithAMonthOfAnotherLengthFindsNothing) {
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(0, repo.QueryMonthItem(&coll, "2026-11", "lin"));
  EXPECT_EQ(0, repo.QueryMonthItem(&coll, "20261", "lin"));
  EXPECT_EQ(0, repo.QueryMonthItem(&coll, "2026110", "lin"));
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ(MonthUnfiltered("2026110"), Commands().back());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceRightsTest, QueryMonthItemStopsAtARowWithANullNumber) {
  // Without the key the number may be null; a quote in the month widens the
  // condition so that such a row comes back. The first row stays collected.
  db().Exec("delete from t_boutmakeh");
  db().Exec("alter table t_boutmakeh drop primary key, modify F_OrderOutNo double null");
  Order("2026110201", "2026-11-02");
  db().Exec("insert into t_boutmakeh (F_OrderOutNo, F_Tabler) values (null, 'ann')");
  Order("2026110202", "2026-11-02");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  const std::string month = "202611' or F_OrderOutNo is null or '";
  EXPECT_EQ(0, repo.QueryMonthItem(&coll, month, "lin"));
  EXPECT_EQ((Strings{RightsSql("lin"), MonthUnfiltered(month)}), Commands());
  EXPECT_EQ(ReportList{PlainReport("Type mismatch")}, Reports());
  EXPECT_EQ((Strings{"2026110201 P01"}), Listed(coll));
  // rs was reset: the next call works.
  Collection<clsEntBOutMakeh> november;
  EXPECT_EQ(1, repo.QueryMonthItem(&november, "202611", "lin"));
  EXPECT_EQ(2u, november.Count());
}

TEST_F(OutsourceRightsTest, QueryMonthItemWithANullCollectionGivesZero) {
  clsDataBOutMakeh repo;
  EXPECT_EQ(0, repo.QueryMonthItem(nullptr, "202611", "lin"));
  EXPECT_EQ(ReportList{PlainReport("Object required")}, Reports());
  // No rows: a null collection is not touched.
  EXPECT_EQ(0, repo.QueryMonthItem(nullptr, "209901", "lin"));
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(OutsourceRightsTest, QueryMonthItemWithAFailingRightsTestNeverFallsBack) {
  db().Exec("drop table t_dataright");
  clsDataBOutMakeh repo;
  Collection<clsEntBOutMakeh> coll;
  EXPECT_EQ(0, repo.QueryMonthItem(&coll, "202611", "lin"));
  EXPECT_EQ(Strings{RightsSql("lin")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_dataright' doesn't exist"));
  EXPECT_EQ(0u, coll.Count());
}

}  // namespace
}  // namespace corvane
