// clsDataBOrderh's month listings under data rights against the sandbox
// server: QueryAllRecordPre (the orders of a month) and QueryMonthDate (the
// twelve latest months), each filtered by t_dataright for module "C".
#include "corvane/orders/order_header.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;
using ::testing::HasSubstr;

constexpr char kTitle[] = "塔恩维克";
constexpr char kSyntax[] = "You have an error in your SQL syntax";

std::string RightsTest(const std::string& user) {
  return "select * from t_dataright where F_ModuleID='C' and f_userid='" + user + "'";
}
std::string PreFiltered(const std::string& user, const std::string& month) {
  return "select t0.* from T_BOrderh t0 inner join t_dataright t1 on t1.f_moduleid='C' and "
         "t1.f_rightid=t0.f_custno and t1.f_userid='" +
         user + "' and left(t0.F_OrderDate,7)='" + month + "' ";
}
std::string PreUnfiltered(const std::string& month) {
  return "select * from T_BOrderh where left(F_OrderDate,7)='" + month + "'";
}
std::string MonthsFiltered(const std::string& user) {
  return "select distinct  left(t0.F_OrderDate,7) as F_OrderDate  from T_BOrderh t0 inner join "
         "t_dataright t1 on t1.f_moduleid='C' and t1.f_rightid=t0.f_custno and t1.f_userid='" +
         user + "' order by F_OrderDate desc limit 0,12";
}
const std::string kMonthsUnfiltered =
    "select distinct  left(F_OrderDate,7) as F_OrderDate  from T_BOrderh  order by F_OrderDate "
    "desc limit 0,12";

class OrderRightsTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    // March 2024: three customers; April 2024: one.
    InsertOrder("20240301001", "2024-03-01 08:00:00", "C001");
    InsertOrder("20240305001", "2024-03-05 10:30:00", "C002");
    InsertOrder("20240331001", "2024-03-31 23:59:59", "C003");
    InsertOrder("20240402001", "2024-04-02 00:00:00", "C001");
  }

  void InsertOrder(const std::string& no, const std::string& date, const std::string& cust) {
    db().Exec("insert into t_borderh (F_OrderNo,F_OrderDate,F_CustNo,F_DueDate,F_TaxDate) values (" +
              no + ",'" + date + "','" + cust + "','2026-12-01','2026-12-02')");
  }
  void Right(const std::string& module, const std::string& user, const std::string& id) {
    db().Exec("insert into t_dataright values ('" + module + "','" + user + "','" + id + "')");
  }

  // OrderNo and OrderDate of each entity, as "number date".
  static std::vector<std::string> Listed(const Collection<clsEntBOrderh>& c) {
    std::vector<std::string> out;
    for (const auto& e : c) out.push_back(Text(e->OrderNo) + " " + Text(e->OrderDate));
    return out;
  }
  // OrderDate of each entity, and that nothing else was set.
  static std::vector<std::string> Months(const Collection<clsEntBOrderh>& c) {
    std::vector<std::string> out;
    for (const auto& e : c) {
      EXPECT_EQ(e->OrderNo, 0);
      EXPECT_EQ(e->CustNo, "");
      out.push_back(Text(e->OrderDate));
    }
    return out;
  }

  void ExpectOneSyntaxReport() {
    ASSERT_EQ(Reports().size(), 1u);
    EXPECT_THAT(Reports()[0].text, HasSubstr(kSyntax));
    EXPECT_EQ(Reports()[0].style, 64);
    EXPECT_EQ(Reports()[0].title, kTitle);
  }
};

// --- QueryAllRecordPre --------------------------------------------------------

TEST_F(OrderRightsTest, QueryAllRecordPreWithoutRightsListsTheWholeMonth) {
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-03", "ann"), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{RightsTest("ann"), PreUnfiltered("2024-03")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Listed(c), (std::vector<std::string>{"20240301001 2024-03-01 08:00:00",
                                                 "20240305001 2024-03-05 10:30:00",
                                                 "20240331001 2024-03-31 23:59:59"}));
  // Only the number and the date are read.
  EXPECT_EQ(c.Item(1).CustNo, "");
  EXPECT_EQ(c.Item(1).DueDate, Date());
}

TEST_F(OrderRightsTest, QueryAllRecordPreUnknownAndEmptyUsersAreUnrestricted) {
  Right("C", "bob", "C002");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-04", "nobody"), 0);
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-04", ""), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{RightsTest("nobody"), PreUnfiltered("2024-04"),
                                      RightsTest(""), PreUnfiltered("2024-04")}));
  // The collection is appended to.
  EXPECT_EQ(Listed(c), (std::vector<std::string>{"20240402001 2024-04-02",
                                                 "20240402001 2024-04-02"}));
}

TEST_F(OrderRightsTest, QueryAllRecordPreWithRightsForSuppliersOnlyIsUnrestricted) {
  Right("S", "ann", "C002");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-03", "ann"), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{RightsTest("ann"), PreUnfiltered("2024-03")}));
  EXPECT_EQ(c.Count(), 3u);
}

TEST_F(OrderRightsTest, QueryAllRecordPreWithRightsListsTheAllowedCustomersOnly) {
  Right("C", "ann", "C001");
  Right("C", "ann", "C003");
  Right("C", "bob", "C002");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-03", "ann"), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{RightsTest("ann"), PreFiltered("ann", "2024-03")}));
  EXPECT_TRUE(Reports().empty());
  std::vector<std::string> listed = Listed(c);
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(listed, (std::vector<std::string>{"20240301001 2024-03-01 08:00:00",
                                              "20240331001 2024-03-31 23:59:59"}));
}

TEST_F(OrderRightsTest, QueryAllRecordPreComparesTheUserAsTheDatabaseComparesText) {
  Right("C", "ann", "C002");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  // The database's collation ignores case; the user id goes in as it stands.
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-03", "ANN"), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{RightsTest("ANN"), PreFiltered("ANN", "2024-03")}));
  EXPECT_EQ(Listed(c), std::vector<std::string>{"20240305001 2024-03-05 10:30:00"});
  // A blank after it is no longer the same user.
  Clear();
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-04", " ann"), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{RightsTest(" ann"), PreUnfiltered("2024-04")}));
  EXPECT_EQ(c.Count(), 2u);
}

TEST_F(OrderRightsTest, QueryAllRecordPreWithRightsMatchingNothingListsNothing) {
  Right("C", "ann", "C999");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-03", "ann"), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{RightsTest("ann"), PreFiltered("ann", "2024-03")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(c.Count(), 0u);
  // The recordset was closed after the fill.
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderRightsTest, QueryAllRecordPreWithADuplicateRightListsTheOrderTwice) {
  Right("C", "ann", "C002");
  Right("C", "ann", "C002");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-03", "ann"), 0);
  EXPECT_EQ(Listed(c), (std::vector<std::string>{"20240305001 2024-03-05 10:30:00",
                                                 "20240305001 2024-03-05 10:30:00"}));
}

TEST_F(OrderRightsTest, QueryAllRecordPreWithAQuoteInTheUserFailsInTheRightsTest) {
  Right("C", "ann", "C001");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-03", "O'Neil"), 0);
  // No fall back to the unfiltered query.
  EXPECT_EQ(Commands(), std::vector<std::string>{RightsTest("O'Neil")});
  ExpectOneSyntaxReport();
  EXPECT_EQ(c.Count(), 0u);
}

TEST_F(OrderRightsTest, QueryAllRecordPreWithAQuoteInTheMonthFailsInTheListing) {
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024'03", "ann"), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{RightsTest("ann"), PreUnfiltered("2024'03")}));
  ExpectOneSyntaxReport();
  EXPECT_EQ(c.Count(), 0u);
  // rs was reset: the next call works.
  Clear();
  EXPECT_EQ(repo.QueryAllRecordPre(&c, "2024-04", "ann"), 0);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(c.Count(), 1u);
}

TEST_F(OrderRightsTest, QueryAllRecordPreWithoutACollectionFailsOnTheFirstRowOnly) {
  clsDataBOrderh repo;
  EXPECT_EQ(repo.QueryAllRecordPre(nullptr, "2023-01", "ann"), 0);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(repo.QueryAllRecordPre(nullptr, "2024-03", "ann"), 0);
  EXPECT_EQ(Reports(), (std::vector<Report>{Report{"Object required", 64, kTitle}}));
}

// --- QueryMonthDate -----------------------------------------------------------

TEST_F(OrderRightsTest, QueryMonthDateWithoutRightsListsEveryMonthNewestFirst) {
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryMonthDate(&c, "ann"), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{RightsTest("ann"), kMonthsUnfiltered}));
  EXPECT_TRUE(Reports().empty());
  // Each month, once, as the first of that month.
  EXPECT_EQ(Months(c), (std::vector<std::string>{"2024-04-01", "2024-03-01"}));
}

TEST_F(OrderRightsTest, QueryMonthDateListsTheLatestTwelveOfMoreMonths) {
  // Fourteen more months, May 2024 to June 2025.
  for (int k = 0; k < 14; ++k) {
    const int year = 2024 + (4 + k) / 12;
    const int month = (4 + k) % 12 + 1;
    char no[16], date[16];
    std::snprintf(no, sizeof no, "%04d%02d10001", year, month);
    std::snprintf(date, sizeof date, "%04d-%02d-10", year, month);
    InsertOrder(no, date, "C001");
  }
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryMonthDate(&c, "ann"), 0);
  EXPECT_EQ(Months(c), (std::vector<std::string>{
                           "2025-06-01", "2025-05-01", "2025-04-01", "2025-03-01", "2025-02-01",
                           "2025-01-01", "2024-12-01", "2024-11-01", "2024-10-01", "2024-09-01",
                           "2024-08-01", "2024-07-01"}));
}

TEST_F(OrderRightsTest, QueryMonthDateWithRightsListsTheMonthsOfTheAllowedCustomers) {
  Right("C", "bob", "C002");
  Right("S", "bob", "C001");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryMonthDate(&c, "bob"), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{RightsTest("bob"), MonthsFiltered("bob")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Months(c), std::vector<std::string>{"2024-03-01"});
}

TEST_F(OrderRightsTest, QueryMonthDateWithRightsForSuppliersOnlyIsUnrestricted) {
  Right("S", "bob", "C002");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryMonthDate(&c, "bob"), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{RightsTest("bob"), kMonthsUnfiltered}));
  EXPECT_EQ(Months(c), (std::vector<std::string>{"2024-04-01", "2024-03-01"}));
}

TEST_F(OrderRightsTest, QueryMonthDateWithRightsMatchingNothingListsNothing) {
  Right("C", "bob", "C999");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryMonthDate(&c, "bob"), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{RightsTest("bob"), MonthsFiltered("bob")}));
  EXPECT_EQ(c.Count(), 0u);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderRightsTest, QueryMonthDateWithDuplicateRightsListsEachMonthOnce) {
  Right("C", "ann", "C001");
  Right("C", "ann", "C001");
  Right("C", "ann", "C003");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryMonthDate(&c, "ann"), 0);
  EXPECT_EQ(Months(c), (std::vector<std::string>{"2024-04-01", "2024-03-01"}));
}

TEST_F(OrderRightsTest, QueryMonthDateReadsANullMonthAsTheZeroDate) {
  db().Exec("update t_borderh set F_OrderDate=null where F_OrderNo=20240331001");
  db().Exec("update t_borderh set F_OrderDate=null where F_OrderNo=20240305001");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryMonthDate(&c, "ann"), 0);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Months(c), (std::vector<std::string>{"2024-04-01", "2024-03-01", "1899-12-30"}));
}

TEST_F(OrderRightsTest, QueryMonthDateWithAQuoteInTheUserFailsInTheRightsTest) {
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryMonthDate(&c, "O'Neil"), 0);
  EXPECT_EQ(Commands(), std::vector<std::string>{RightsTest("O'Neil")});
  ExpectOneSyntaxReport();
  EXPECT_EQ(c.Count(), 0u);
  Clear();
  EXPECT_EQ(repo.QueryMonthDate(&c, "ann"), 0);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(c.Count(), 2u);
}

TEST_F(OrderRightsTest, QueryMonthDateFailureOfTheListingIsReported) {
  // A rights test that passes and a listing that fails: the table is gone.
  db().Exec("drop table t_borderh");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> c;
  EXPECT_EQ(repo.QueryMonthDate(&c, "ann"), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{RightsTest("ann"), kMonthsUnfiltered}));
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_THAT(Reports()[0].text, HasSubstr("doesn't exist"));
  EXPECT_EQ(Reports()[0].style, 64);
  EXPECT_EQ(Reports()[0].title, kTitle);
}

}  // namespace
}  // namespace corvane
