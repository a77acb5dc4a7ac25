// clsDataBCStudy against the sandbox server: every path of its ten methods,
// with the statements sent, the results, the reports, what rs is left as for
// the next call, and what t_bcstudy and t_sitemno hold afterwards.
#include "corvane/customers/customer_study.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/customers/day_row_sql.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::InsertCounterSql;
using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::corvane::testing::QueryConditionSql;
using ::corvane::testing::RemoveCounterSql;
using ::corvane::testing::SandboxTest;
using ::corvane::testing::UpdateCounterSql;
using ::testing::HasSubstr;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;
using Reports_ = std::vector<Report>;

// The statements of the class, with the values put in.
std::string LargestSql() {
  return "select * from t_bcstudy where F_InvestNo in (select max(F_InvestNo) from t_bcstudy)";
}
std::string LargestOfDaySql(const std::string& day) {
  return "select max(F_InvestNo) as f_investno from t_bcstudy where F_InvestDate ='" + day + "'";
}
std::string NumberTakenSql(const std::string& no) {
  return "select * from t_bcstudy where F_InvestNo='" + no + "'";
}
std::string EditSql(const std::string& no) {
  return "select * from t_bcstudy where F_InvestNo ='" + no + "' ";
}
std::string DeleteSql(const std::string& no) {
  return "delete from t_bcstudy where F_InvestNo ='" + no + "' ";
}
std::string DocumentsOfDaySql(const std::string& day) {
  return "select * from t_bcstudy where f_InvestDate='" + day + "'";
}
std::string FollowMaxSql(const std::string& day, const std::string& name) {
  return "update t_sitemno set F_No= (select max(F_InvestNo) from t_bcstudy where F_InvestDate='" +
         day + "') where F_FnDate='" + day + "' and F_TableName='" + name + "'";
}
std::string QueryAllSql() { return "select distinct F_CustNo from t_bcstudy order by F_CustNo asc"; }
std::string QueryAlldetaileSql(const std::string& cust) {
  return "select F_InvestNo from t_bcstudy where F_CustNo='" + cust + "'";
}
std::string BackEntitySql(const std::string& item) {
  return "select F_InvestDate,F_CustNo,F_Director,F_SendQc,F_SendDate,F_Service,F_Result,"
         "F_Suggestion,F_SendQcDesc,F_SendDateDesc,F_ServiceDesc from t_bcstudy where "
         "F_InvestNo='" +
         item + "'";
}
std::string QueryDateSql() { return "select curdate() as f_date"; }

const char kNoRowWords[] = "Either BOF or EOF is True, or the current record has been deleted";
const char kOpenWords[] = "Operation is not allowed when the object is open";
const char kSyntax[] = "You have an error in your SQL syntax";

const Date kDay = Date::FromParts(2026, 11, 2);

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

// A study with every column set.
clsEntBCStudy FullStudy(double no) {
  clsEntBCStudy e;
  e.InvestNo = no;
  e.InvestDate = kDay;
  e.CustNo = "C001";
  e.Director = "wang";
  e.SendQc = 4;
  e.SendDate = 3;
  e.Service = 5;
  e.Result = 2;
  e.Suggestion = "faster samples";
  e.SendQcDesc = "good";
  e.SendDateDesc = "late once";
  e.ServiceDesc = "friendly";
  return e;
}

class CustomerStudyTest : public SandboxTest {
 protected:
  void Study(const std::string& no, const std::string& day, const std::string& cust) {
    db().Exec(
        "insert into t_bcstudy values (" + no + ", '" + day + "', '" + cust +
        "', 'li', 1, 2, 3, 4, 'sugg', 'qc', 'date', 'service')");
  }
  Rows Studies() {
    return db().Rows(
        "select F_InvestNo, date_format(F_InvestDate, '%Y-%m-%d %H:%i:%s'), F_CustNo, F_Director, "
        "F_SendQc, F_SendDate, F_Service, F_Result, F_Suggestion, F_SendQcDesc, F_SendDateDesc, "
        "F_ServiceDesc from t_bcstudy order by F_InvestNo");
  }
  Rows Counters() {
    return db().Rows(
        "select F_TableName, F_No, date_format(F_FnDate, '%Y-%m-%d') from t_sitemno order by "
        "F_TableName, F_FnDate, F_No");
  }
  Strings RowChanges() const {
    Strings out;
    for (const auto& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
  std::string Table() const { return "`" + Lower(database()) + "`.`t_bcstudy`"; }
  void ExpectOnePlainReport(const std::string& words) {
    ASSERT_EQ(1u, Reports().size());
    EXPECT_THAT(Reports()[0].text, HasSubstr(words));
    EXPECT_EQ(64, Reports()[0].style);
    EXPECT_EQ("塔恩维克", Reports()[0].title);
  }
};

const Rows kFullRow{{"2026110201", "2026-11-02 00:00:00", "C001", "wang", "4", "3", "5", "2",
                     "faster samples", "good", "late once", "friendly"}};

std::vector<double> Numbers(const Collection<clsEntBCStudy>& coll) {
  std::vector<double> out;
  for (const auto& e : coll) out.push_back(e->InvestNo);
  return out;
}
Strings Customers(const Collection<clsEntBCStudy>& coll) {
  Strings out;
  for (const auto& e : coll) out.push_back(e->CustNo);
  return out;
}

// ------------------------------------------------------------ QueryMaxItem

TEST_F(CustomerStudyTest, QueryMaxItemOnAnEmptyTableGives0AndLeavesTheEntity) {
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(5);
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  EXPECT_EQ(5, e.InvestNo);
  EXPECT_EQ("wang", e.Director);
  EXPECT_EQ(Strings{LargestSql()}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryMaxItemReadsTheLargestNumberOfTheWholeTable) {
  Study("2026110201", "2026-11-02", "C001");
  Study("2026110302", "2026-11-03", "C002");
  Study("2026110202", "2026-11-02", "C003");
  clsDataBCStudy repo;
  clsEntBCStudy e;
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  EXPECT_EQ(2026110302, e.InvestNo);
  EXPECT_EQ(Date::FromParts(2026, 11, 3), e.InvestDate);
  EXPECT_EQ("C002", e.CustNo);
  EXPECT_EQ("li", e.Director);
  EXPECT_EQ(1, e.SendQc);
  EXPECT_EQ(2, e.SendDate);
  EXPECT_EQ(3, e.Service);
  EXPECT_EQ(4, e.Result);
  EXPECT_EQ("sugg", e.Suggestion);
  EXPECT_EQ("qc", e.SendQcDesc);
  EXPECT_EQ("date", e.SendDateDesc);
  EXPECT_EQ("service", e.ServiceDesc);
  // rs was closed: the next call reads again.
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  EXPECT_EQ((Strings{LargestSql(), LargestSql()}), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryMaxItemReadsNullTextsAsEmptyText) {
  db().Exec("insert into t_bcstudy (F_InvestNo, F_InvestDate, F_SendQc, F_SendDate, F_Service, "
            "F_Result) values (7, '2026-11-02 10:30:00', 0, 0, 0, 0)");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(1);
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  EXPECT_EQ(7, e.InvestNo);
  EXPECT_EQ(Date::FromParts(2026, 11, 2, 10, 30), e.InvestDate);
  EXPECT_EQ("", e.CustNo);
  EXPECT_EQ("", e.Director);
  EXPECT_EQ(0, e.Result);
  EXPECT_EQ("", e.Suggestion);
  EXPECT_EQ("", e.ServiceDesc);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryMaxItemFailsOnANullDateWithTheEntityFilledUpToIt) {
  db().Exec("insert into t_bcstudy (F_InvestNo, F_CustNo, F_SendQc) values (9, 'C001', 1)");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(1);
  e.InvestDate = Date::FromParts(2020, 1, 1);
  EXPECT_EQ(2, repo.QueryMaxItem(e));
  EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
  EXPECT_EQ(9, e.InvestNo);                             // read before the failure
  EXPECT_EQ(Date::FromParts(2020, 1, 1), e.InvestDate);  // not read
  EXPECT_EQ("wang", e.Director);
}

TEST_F(CustomerStudyTest, QueryMaxItemFailsOnEachNullMark) {
  for (const std::string mark : {"F_SendQc", "F_SendDate", "F_Service", "F_Result"}) {
    db().Exec("delete from t_bcstudy");
    Study("3", "2026-11-02", "C009");
    db().Exec("update t_bcstudy set " + mark + " = null");
    Clear();
    clsDataBCStudy repo;
    clsEntBCStudy e;
    EXPECT_EQ(2, repo.QueryMaxItem(e)) << mark;
    EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports()) << mark;
    EXPECT_EQ("C009", e.CustNo) << mark;
    EXPECT_EQ("", e.Suggestion) << mark;  // after the marks: not read
  }
}

TEST_F(CustomerStudyTest, QueryMaxItemReportsBeforeItResetsRs) {
  // Its handler shows the report with rs still open, and resets it after.
  db().Exec("insert into t_bcstudy (F_InvestNo) values (9)");
  clsDataBCStudy repo;
  std::vector<Date> inner;
  int reports = 0;
  SetReportHandler([&](const Report&) {
    if (++reports == 1) inner.push_back(repo.QueryDate());
  });
  clsEntBCStudy e;
  EXPECT_EQ(2, repo.QueryMaxItem(e));
  EXPECT_EQ(2, reports);
  // QueryDate found rs open and failed with the zero date.
  EXPECT_EQ(std::vector<Date>{Date()}, inner);
  EXPECT_EQ((Strings{LargestSql()}), Commands());
  // Reset after the report: the object works again.
  EXPECT_NE(Date(), repo.QueryDate());
}

TEST_F(CustomerStudyTest, QueryMaxItemReportsAServerFailure) {
  db().Exec("drop table t_bcstudy");
  clsDataBCStudy repo;
  clsEntBCStudy e;
  EXPECT_EQ(2, repo.QueryMaxItem(e));
  ExpectOnePlainReport("t_bcstudy' doesn't exist");
}

// ------------------------------------------------------------ QueryMaxItemDelete

TEST_F(CustomerStudyTest, QueryMaxItemDeleteGivesTheLargestNumberOfTheDate) {
  Study("2026110201", "2026-11-02", "C001");
  Study("2026110202", "2026-11-02", "C001");
  Study("2026110301", "2026-11-03", "C001");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(1);
  EXPECT_EQ(1, repo.QueryMaxItemDelete(e, kDay));
  EXPECT_EQ(2026110202, e.InvestNo);
  EXPECT_EQ("wang", e.Director);  // only the number is set
  EXPECT_EQ(Strings{LargestOfDaySql("2026-11-02")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryMaxItemDeleteOnADateWithoutStudiesFailsWith2) {
  Study("2026110301", "2026-11-03", "C001");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(4);
  EXPECT_EQ(2, repo.QueryMaxItemDelete(e, kDay));
  EXPECT_EQ(Reports_{PlainReport("Invalid use of Null")}, Reports());
  EXPECT_EQ(4, e.InvestNo);
  // The date with its time goes into the text as it stands.
  Clear();
  EXPECT_EQ(2, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 3, 8, 0)));
  EXPECT_EQ(Strings{LargestOfDaySql("2026-11-03 08:00:00")}, Commands());
  Clear();
  EXPECT_EQ(1, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 3)));
  EXPECT_EQ(2026110301, e.InvestNo);
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ AddRecord

TEST_F(CustomerStudyTest, AddRecordWithStatus0StoresTheStudyAndInsertsTheDaysRow) {
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110201);
  EXPECT_EQ(1, repo.AddRecord(e, " t_bcstudy ", 0));
  EXPECT_EQ((Strings{NumberTakenSql("2026110201"),
                     InsertCounterSql("t_bcstudy", "2026110201", "2026-11-02")}),
            Commands());
  EXPECT_EQ(Strings{"INSERT INTO " + Table() +
                    " (`F_InvestNo`,`F_InvestDate`,`F_CustNo`,`F_Director`,`F_SendQc`,"
                    "`F_SendDate`,`F_Service`,`F_Result`,`F_Suggestion`,`F_SendQcDesc`,"
                    "`F_SendDateDesc`,`F_ServiceDesc`) VALUES (2026110201,'2026-11-02 00:00:00',"
                    "'C001','wang',4,3,5,2,'faster samples','good','late once','friendly')"},
            RowChanges());
  EXPECT_EQ(kFullRow, Studies());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110201", "2026-11-02"}}), Counters());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, AddRecordWithAnotherStatusPointsTheDaysRowAtTheNumber) {
  Study("2026110201", "2026-11-02", "C001");
  db().Exec("insert into t_sitemno values ('t_bcstudy', 2026110201, '2026-11-02'), "
            "('t_bsample', 2026110201, '2026-11-02')");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110202);
  EXPECT_EQ(1, repo.AddRecord(e, "t_bcstudy", 1));
  clsEntBCStudy third = FullStudy(2026110203);
  EXPECT_EQ(1, repo.AddRecord(third, "t_bcstudy", -7));
  EXPECT_EQ((Strings{NumberTakenSql("2026110202"),
                     UpdateCounterSql("2026110202", "2026-11-02", "t_bcstudy"),
                     NumberTakenSql("2026110203"),
                     UpdateCounterSql("2026110203", "2026-11-02", "t_bcstudy")}),
            Commands());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bsample", "2026110201", "2026-11-02"}}),
            db().Rows("select F_TableName, F_No, date_format(F_FnDate, '%Y-%m-%d') from "
                      "t_sitemno order by F_TableName"));
  EXPECT_EQ(3u, Studies().size());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, AddRecordOfATakenNumberGives0AndWritesNothing) {
  Study("2026110201", "2026-11-02", "C001");
  db().Exec("insert into t_sitemno values ('t_bcstudy', 2026110201, '2026-11-02')");
  const Rows before = Studies();
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110201);
  EXPECT_EQ(0, repo.AddRecord(e, "t_bcstudy", 0));
  EXPECT_EQ(0, repo.AddRecord(e, "t_bcstudy", 1));
  EXPECT_EQ(Strings(2, NumberTakenSql("2026110201")), Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(before, Studies());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110201", "2026-11-02"}}), Counters());
  // The refusal closed rs: the next number goes in.
  clsEntBCStudy next = FullStudy(2026110202);
  EXPECT_EQ(1, repo.AddRecord(next, "t_bcstudy", 1));
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110202", "2026-11-02"}}), Counters());
}

TEST_F(CustomerStudyTest, AddRecordOnADayWithoutARowAndAStatusOtherThan0RemembersNothing) {
  clsDataBCStudy repo;
  clsEntSitemNo counter;
  EXPECT_EQ(0, repo.QueryCondition(kDay, "t_bcstudy", counter));
  clsEntBCStudy e = FullStudy(2026110201);
  EXPECT_EQ(1, repo.AddRecord(e, "t_bcstudy", 1));
  EXPECT_EQ(1u, Studies().size());
  EXPECT_TRUE(Counters().empty());
  EXPECT_EQ((Strings{QueryConditionSql("t_bcstudy", "2026-11-02"),
                     NumberTakenSql("2026110201"),
                     UpdateCounterSql("2026110201", "2026-11-02", "t_bcstudy")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, AddRecordWithStatus0OnADayWithARowInsertsASecondRow) {
  db().Exec("insert into t_sitemno values ('t_bcstudy', 2026110201, '2026-11-02')");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110202);
  EXPECT_EQ(1, repo.AddRecord(e, "t_bcstudy", 0));
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110201", "2026-11-02"},
                  {"t_bcstudy", "2026110202", "2026-11-02"}}),
            Counters());
  // QueryCondition then reads the first of the two.
  clsEntSitemNo counter;
  EXPECT_EQ(1, repo.QueryCondition(kDay, "t_bcstudy", counter));
  EXPECT_EQ(2026110201, counter.no);
}

TEST_F(CustomerStudyTest, AddRecordUntrimmedNameInTheUpdateFindsNoRow) {
  db().Exec("insert into t_sitemno values ('t_bcstudy', 2026110201, '2026-11-02')");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110202);
  EXPECT_EQ(1, repo.AddRecord(e, "t_bcstudy  x", 2));
  EXPECT_EQ(UpdateCounterSql("2026110202", "2026-11-02", "t_bcstudy  x"), Commands().back());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110201", "2026-11-02"}}), Counters());
}

TEST_F(CustomerStudyTest, AddRecordWritesTheDateWithItsTimeAndEmptyTextsAsTheyStand) {
  clsDataBCStudy repo;
  clsEntBCStudy e;
  e.InvestNo = 12;
  e.InvestDate = Date::FromParts(2026, 11, 2, 9, 15, 30);
  EXPECT_EQ(1, repo.AddRecord(e, "t_bcstudy", 0));
  EXPECT_EQ(InsertCounterSql("t_bcstudy", "12", "2026-11-02 09:15:30"), Commands().back());
  EXPECT_EQ((Rows{{"12", "2026-11-02 09:15:30", "", "", "0", "0", "0", "0", "", "", "", ""}}),
            Studies());
}

TEST_F(CustomerStudyTest, AddRecordOfATooLongValueShowsTheLengthReportAndGives2) {
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110201);
  e.CustNo = std::string(51, 'c');
  EXPECT_EQ(2, repo.AddRecord(e, "t_bcstudy", 0));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_EQ(Strings{NumberTakenSql("2026110201")}, Commands());
  EXPECT_TRUE(Studies().empty());
  EXPECT_TRUE(Counters().empty());
  // rs was reset: the object goes on.
  e.CustNo = "C001";
  EXPECT_EQ(1, repo.AddRecord(e, "t_bcstudy", 0));
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(CustomerStudyTest, AddRecordThatFailsOnTheDaysRowKeepsTheStoredStudy) {
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110201);
  const std::string name = "t_bcstudy'x";
  EXPECT_EQ(2, repo.AddRecord(e, name, 0));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kFullRow, Studies());
  EXPECT_TRUE(Counters().empty());
  // A table name too long for F_TableName: the length report.
  Clear();
  clsEntBCStudy next = FullStudy(2026110202);
  EXPECT_EQ(2, repo.AddRecord(next, std::string(51, 'n'), 0));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_EQ(2u, Studies().size());
  EXPECT_TRUE(Counters().empty());
}

// ------------------------------------------------------------ UpdateRecord

TEST_F(CustomerStudyTest, UpdateRecordOverwritesAllColumnsAndCanRenumber) {
  Study("2026110201", "2026-11-02", "C001");
  db().Exec("insert into t_sitemno values ('t_bcstudy', 2026110201, '2026-11-02')");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110207);
  e.InvestDate = Date::FromParts(2026, 11, 5);
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201"));
  EXPECT_EQ(Strings{EditSql("2026110201")}, Commands());
  EXPECT_EQ(Strings{"UPDATE " + Table() +
                    " SET `F_InvestNo`=2026110207,`F_InvestDate`='2026-11-05 00:00:00',"
                    "`F_CustNo`='C001',`F_Director`='wang',`F_SendQc`=4,`F_SendDate`=3,"
                    "`F_Service`=5,`F_Result`=2,`F_Suggestion`='faster samples',"
                    "`F_SendQcDesc`='good',`F_SendDateDesc`='late once',"
                    "`F_ServiceDesc`='friendly' WHERE `F_InvestNo` <=> 2026110201 LIMIT 1"},
            RowChanges());
  EXPECT_EQ((Rows{{"2026110207", "2026-11-05 00:00:00", "C001", "wang", "4", "3", "5", "2",
                   "faster samples", "good", "late once", "friendly"}}),
            Studies());
  // t_sitemno is left alone, though number and date changed.
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110201", "2026-11-02"}}), Counters());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, UpdateRecordReadsTheKeyTextByItsLeadingDigits) {
  Study("12", "2026-11-02", "C012");
  Study("0", "2026-11-02", "C000");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(12);
  e.CustNo = "by 00012";
  EXPECT_EQ(1, repo.UpdateRecord(e, "00012"));
  e.CustNo = "by 12abc";
  EXPECT_EQ(1, repo.UpdateRecord(e, "12abc"));
  clsEntBCStudy zero = FullStudy(0);
  zero.CustNo = "by abc";
  EXPECT_EQ(1, repo.UpdateRecord(zero, "abc"));
  zero.CustNo = "by empty";
  EXPECT_EQ(1, repo.UpdateRecord(zero, ""));
  EXPECT_EQ((Strings{EditSql("12"), EditSql("12"), EditSql("0"), EditSql("0")}), Commands());
  EXPECT_EQ((Rows{{"0", "by empty"}, {"12", "by 12abc"}}),
            db().Rows("select F_InvestNo, F_CustNo from t_bcstudy order by F_InvestNo"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, UpdateRecordOfAnUnknownNumberGives2WithAReport) {
  Study("2026110201", "2026-11-02", "C001");
  const Rows before = Studies();
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110209);
  EXPECT_EQ(2, repo.UpdateRecord(e, "2026110209"));
  // The length report of a failure that is not about length: its words.
  EXPECT_EQ(Reports_{PlainReport(kNoRowWords)}, Reports());
  EXPECT_EQ(Strings{EditSql("2026110209")}, Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(before, Studies());
  // rs was reset: the next update works.
  e.InvestNo = 2026110201;
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201"));
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(CustomerStudyTest, UpdateRecordResetsRsBeforeItsReport) {
  // A call made while the report is up finds rs already reset.
  clsDataBCStudy repo;
  std::vector<Date> inner;
  int reports = 0;
  SetReportHandler([&](const Report&) {
    if (++reports == 1) inner.push_back(repo.QueryDate());
  });
  clsEntBCStudy e = FullStudy(1);
  EXPECT_EQ(2, repo.UpdateRecord(e, "1"));
  ASSERT_EQ(1u, inner.size());
  EXPECT_NE(Date(), inner[0]);
  EXPECT_EQ((Strings{EditSql("1"), QueryDateSql()}), Commands());
}

TEST_F(CustomerStudyTest, UpdateRecordOfATooLongValueShowsTheLengthReport) {
  Study("2026110201", "2026-11-02", "C001");
  const Rows before = Studies();
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110201);
  e.Director = std::string(101, 'd');
  EXPECT_EQ(2, repo.UpdateRecord(e, "2026110201"));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(before, Studies());
}

TEST_F(CustomerStudyTest, UpdateRecordToATakenNumberReportsTheServer) {
  Study("1", "2026-11-02", "C001");
  Study("2", "2026-11-02", "C002");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2);
  EXPECT_EQ(2, repo.UpdateRecord(e, "1"));
  ExpectOnePlainReport("Duplicate entry '2' for key 'PRIMARY'");
  EXPECT_EQ((Rows{{"1", "C001"}, {"2", "C002"}}),
            db().Rows("select F_InvestNo, F_CustNo from t_bcstudy order by 1"));
}

// ------------------------------------------------------------ DeleteRecord

class CustomerStudyDeleteTest : public CustomerStudyTest {
 protected:
  void SetUp() override {
    CustomerStudyTest::SetUp();
    Study("2026110201", "2026-11-02", "C001");
    Study("2026110202", "2026-11-02", "C001");
    Study("2026110203", "2026-11-02", "C002");
    Study("2026110301", "2026-11-03", "C002");
    db().Exec("insert into t_sitemno values ('t_bcstudy', 2026110203, '2026-11-02'), "
              "('t_bcstudy', 2026110301, '2026-11-03'), ('t_bsample', 2026110203, "
              "'2026-11-02')");
  }
  Rows Left() { return db().Rows("select F_InvestNo from t_bcstudy order by 1"); }
};

TEST_F(CustomerStudyDeleteTest, WithAStatusOtherThan1OnlyTheStudyGoes) {
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110203);
  EXPECT_EQ(1, repo.DeleteRecord(e, 0, "t_bcstudy"));
  EXPECT_EQ(Strings{DeleteSql("2026110203")}, Commands());
  EXPECT_EQ((Rows{{"2026110201"}, {"2026110202"}, {"2026110301"}}), Left());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bcstudy", "2026110301", "2026-11-03"},
                  {"t_bsample", "2026110203", "2026-11-02"}}),
            Counters());
  // An unknown number: the statement deletes nothing, the answer is 1 all
  // the same; rs is closed, so the object goes on.
  clsEntBCStudy missing = FullStudy(99);
  EXPECT_EQ(1, repo.DeleteRecord(missing, 2, "t_bcstudy"));
  EXPECT_EQ(3u, Left().size());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyDeleteTest, WithStatus1TheDaysRowFollowsTheLargestNumberLeft) {
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110203);
  EXPECT_EQ(1, repo.DeleteRecord(e, 1, "t_bcstudy"));
  EXPECT_EQ((Strings{DeleteSql("2026110203"), DocumentsOfDaySql("2026-11-02"),
                     FollowMaxSql("2026-11-02", "t_bcstudy")}),
            Commands());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110202", "2026-11-02"},
                  {"t_bcstudy", "2026110301", "2026-11-03"},
                  {"t_bsample", "2026110203", "2026-11-02"}}),
            Counters());
  // Whichever study goes, the row follows the maximum.
  clsEntBCStudy first = FullStudy(2026110201);
  EXPECT_EQ(1, repo.DeleteRecord(first, 1, "t_bcstudy"));
  EXPECT_EQ("2026110202",
            db().Scalar("select F_No from t_sitemno where F_TableName='t_bcstudy' and "
                        "F_FnDate='2026-11-02'"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyDeleteTest, WithStatus1TheLastStudyOfTheDayRemovesTheRowAndGives2) {
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110301);
  e.InvestDate = Date::FromParts(2026, 11, 3);
  EXPECT_EQ(2, repo.DeleteRecord(e, 1, "t_bcstudy"));
  EXPECT_EQ((Strings{DeleteSql("2026110301"), DocumentsOfDaySql("2026-11-03"),
                     RemoveCounterSql("2026-11-03", "t_bcstudy")}),
            Commands());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bsample", "2026110203", "2026-11-02"}}),
            Counters());
  EXPECT_TRUE(Reports().empty());
  // The number is free again.
  clsEntBCStudy again = FullStudy(2026110301);
  EXPECT_EQ(1, repo.AddRecord(again, "t_bcstudy", 0));
}

TEST_F(CustomerStudyDeleteTest, TheDayComesFromTheEntityNotFromTheNumber) {
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110301);  // InvestDate 2026-11-02
  EXPECT_EQ(1, repo.DeleteRecord(e, 1, "t_bcstudy"));
  EXPECT_EQ(FollowMaxSql("2026-11-02", "t_bcstudy"), Commands().back());
  // The row of the 3rd stays, pointing at the deleted number.
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bcstudy", "2026110301", "2026-11-03"},
                  {"t_bsample", "2026110203", "2026-11-02"}}),
            Counters());
}

TEST_F(CustomerStudyDeleteTest, AFailureGives2WithThePlainReportAndKeepsWhatRan) {
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110203);
  EXPECT_EQ(2, repo.DeleteRecord(e, 1, "t_bcstudy'"));
  ExpectOnePlainReport(kSyntax);
  EXPECT_EQ((Strings{DeleteSql("2026110203"), DocumentsOfDaySql("2026-11-02"),
                     FollowMaxSql("2026-11-02", "t_bcstudy'")}),
            Commands());
  // The study is gone; the day's row still names it.
  EXPECT_EQ((Rows{{"2026110201"}, {"2026110202"}, {"2026110301"}}), Left());
  EXPECT_EQ("2026110203",
            db().Scalar("select F_No from t_sitemno where F_TableName='t_bcstudy' and "
                        "F_FnDate='2026-11-02'"));
  // rs was reset: the object goes on.
  Clear();
  EXPECT_EQ(1, repo.DeleteRecord(e, 0, "t_bcstudy"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyDeleteTest, AServerFailureOfTheFirstStatementGives2) {
  db().Exec("drop table t_sitemno");
  db().Exec("rename table t_bcstudy to t_bcstudy_gone");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110203);
  EXPECT_EQ(2, repo.DeleteRecord(e, 0, "t_bcstudy"));
  ExpectOnePlainReport("t_bcstudy' doesn't exist");
  EXPECT_EQ(Strings{DeleteSql("2026110203")}, Commands());
}

// ------------------------------------------------------------ QueryAll

TEST_F(CustomerStudyTest, QueryAllOnAnEmptyTableGives0AndAddsNothing) {
  clsDataBCStudy repo;
  Collection<clsEntBCStudy> coll;
  coll.Add(std::make_shared<clsEntBCStudy>(FullStudy(1)));
  EXPECT_EQ(0, repo.QueryAll(&coll));
  EXPECT_EQ(1u, coll.Count());
  // With no rows a null collection is not touched.
  EXPECT_EQ(0, repo.QueryAll(nullptr));
  EXPECT_EQ(Strings(2, QueryAllSql()), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryAllListsEachCustomerOnceInOrderAfterWhatIsThere) {
  Study("3", "2026-11-02", "C002");
  Study("1", "2026-11-02", "C001");
  Study("2", "2026-11-02", "C002");
  Study("4", "2026-11-03", "C003");
  // A customer of the customer table deleted long ago: nothing joins it.
  db().Exec("insert into t_bcustom (F_custno) values ('C001')");
  db().Exec("delete from t_bcustom");
  clsDataBCStudy repo;
  Collection<clsEntBCStudy> coll;
  coll.Add(std::make_shared<clsEntBCStudy>(FullStudy(1)));
  EXPECT_EQ(1, repo.QueryAll(&coll));
  EXPECT_EQ((Strings{"C001", "C001", "C002", "C003"}), Customers(coll));
  // Only CustNo is read.
  EXPECT_EQ(0, coll.Item(2).InvestNo);
  EXPECT_EQ("", coll.Item(2).Director);
  EXPECT_EQ(Date(), coll.Item(2).InvestDate);
  EXPECT_EQ(Strings{QueryAllSql()}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryAllReadsANullCustomerAsEmptyText) {
  db().Exec("insert into t_bcstudy (F_InvestNo) values (1)");
  Study("2", "2026-11-02", "C001");
  clsDataBCStudy repo;
  Collection<clsEntBCStudy> coll;
  EXPECT_EQ(1, repo.QueryAll(&coll));
  EXPECT_EQ((Strings{"", "C001"}), Customers(coll));
}

TEST_F(CustomerStudyTest, QueryAllWithANullCollectionGives2AndResetsBeforeTheReport) {
  Study("1", "2026-11-02", "C001");
  clsDataBCStudy repo;
  std::vector<std::int16_t> inner;
  int reports = 0;
  SetReportHandler([&](const Report&) {
    Collection<clsEntBCStudy> coll;
    if (++reports == 1) inner.push_back(repo.QueryAll(&coll));
  });
  EXPECT_EQ(2, repo.QueryAll(nullptr));
  // rs was reset before the report: the call made meanwhile works.
  EXPECT_EQ(std::vector<std::int16_t>{1}, inner);
  EXPECT_EQ(Strings(2, QueryAllSql()), Commands());
}

TEST_F(CustomerStudyTest, QueryAllReportsAServerFailure) {
  db().Exec("drop table t_bcstudy");
  clsDataBCStudy repo;
  Collection<clsEntBCStudy> coll;
  EXPECT_EQ(2, repo.QueryAll(&coll));
  ExpectOnePlainReport("t_bcstudy' doesn't exist");
  EXPECT_EQ(0u, coll.Count());
}

// ------------------------------------------------------------ QueryAlldetaile

TEST_F(CustomerStudyTest, QueryAlldetaileListsTheNumbersOfOneCustomer) {
  Study("2026110201", "2026-11-02", "C001");
  Study("2026110202", "2026-11-02", "C002");
  Study("2026110301", "2026-11-03", "C001");
  clsDataBCStudy repo;
  Collection<clsEntBCStudy> coll;
  EXPECT_EQ(1, repo.QueryAlldetaile(&coll, "C001"));
  std::vector<double> numbers = Numbers(coll);
  std::sort(numbers.begin(), numbers.end());
  EXPECT_EQ((std::vector<double>{2026110201, 2026110301}), numbers);
  // Only InvestNo is read.
  EXPECT_EQ("", coll.Item(1).CustNo);
  EXPECT_EQ(Strings{QueryAlldetaileSql("C001")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryAlldetaileOfACustomerWithoutStudiesGives0) {
  Study("2026110201", "2026-11-02", "C001");
  clsDataBCStudy repo;
  Collection<clsEntBCStudy> coll;
  EXPECT_EQ(0, repo.QueryAlldetaile(&coll, "C404"));
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ(Strings{QueryAlldetaileSql("C404")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryAlldetaileWithAQuoteOrANullCollectionGives2) {
  Study("2026110201", "2026-11-02", "C001");
  clsDataBCStudy repo;
  Collection<clsEntBCStudy> coll;
  EXPECT_EQ(2, repo.QueryAlldetaile(&coll, "O'Brien"));
  ExpectOnePlainReport(kSyntax);
  Clear();
  EXPECT_EQ(2, repo.QueryAlldetaile(nullptr, "C001"));
  EXPECT_EQ(Reports_{PlainReport("Object required")}, Reports());
  // A quote can also change what is selected.
  EXPECT_EQ(1, repo.QueryAlldetaile(&coll, "x' or '1'='1"));
  EXPECT_EQ(1u, coll.Count());
}

// ------------------------------------------------------------ BackEntity

TEST_F(CustomerStudyTest, BackEntityFillsAllButTheNumber) {
  db().Exec("insert into t_bcstudy values (2026110201, '2026-11-02 14:05:00', 'C001', 'li', 1, "
            "2, 3, 4, 'sugg', 'qc', 'date', 'service')");
  clsDataBCStudy repo;
  clsEntBCStudy e;
  e.InvestNo = 77;
  EXPECT_EQ(1, repo.BackEntity(e, "2026110201"));
  EXPECT_EQ(77, e.InvestNo);
  EXPECT_EQ(Date::FromParts(2026, 11, 2, 14, 5), e.InvestDate);
  EXPECT_EQ("C001", e.CustNo);
  EXPECT_EQ("li", e.Director);
  EXPECT_EQ(1, e.SendQc);
  EXPECT_EQ(2, e.SendDate);
  EXPECT_EQ(3, e.Service);
  EXPECT_EQ(4, e.Result);
  EXPECT_EQ("sugg", e.Suggestion);
  EXPECT_EQ("qc", e.SendQcDesc);
  EXPECT_EQ("date", e.SendDateDesc);
  EXPECT_EQ("service", e.ServiceDesc);
  // The text goes in as it stands; the server compares by value.
  EXPECT_EQ(1, repo.BackEntity(e, "02026110201.0"));
  EXPECT_EQ((Strings{BackEntitySql("2026110201"), BackEntitySql("02026110201.0")}), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, BackEntityReadsNullTextsAsEmptyText) {
  db().Exec("insert into t_bcstudy (F_InvestNo, F_InvestDate, F_SendQc, F_SendDate, F_Service, "
            "F_Result) values (5, '2026-11-02', 9, 8, 7, 6)");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(5);
  EXPECT_EQ(1, repo.BackEntity(e, "5"));
  EXPECT_EQ("", e.CustNo);
  EXPECT_EQ("", e.Director);
  EXPECT_EQ(9, e.SendQc);
  EXPECT_EQ(6, e.Result);
  EXPECT_EQ("", e.Suggestion);
  EXPECT_EQ("", e.SendQcDesc);
  EXPECT_EQ("", e.SendDateDesc);
  EXPECT_EQ("", e.ServiceDesc);
}

TEST_F(CustomerStudyTest, BackEntityOfAnUnknownNumberGives0AndLeavesTheEntity) {
  Study("2026110201", "2026-11-02", "C001");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(3);
  EXPECT_EQ(0, repo.BackEntity(e, "2026110299"));
  EXPECT_EQ(0, repo.BackEntity(e, "abc"));
  EXPECT_EQ(0, repo.BackEntity(e, ""));
  EXPECT_EQ(3, e.InvestNo);
  EXPECT_EQ("wang", e.Director);
  EXPECT_EQ(kDay, e.InvestDate);
  EXPECT_TRUE(Reports().empty());
  // rs was closed: the next call reads.
  EXPECT_EQ(1, repo.BackEntity(e, "2026110201"));
  EXPECT_EQ("li", e.Director);
}

TEST_F(CustomerStudyTest, BackEntityOnANullMarkGives2WithTheEntityHalfFilled) {
  db().Exec("insert into t_bcstudy (F_InvestNo, F_InvestDate, F_CustNo, F_Director, F_SendQc, "
            "F_SendDate, F_Result, F_Suggestion) values (5, '2026-11-02', 'C001', 'li', 1, 2, 4, "
            "'sugg')");
  clsDataBCStudy repo;
  clsEntBCStudy e;
  e.Service = 99;
  e.Result = 98;
  EXPECT_EQ(2, repo.BackEntity(e, "5"));
  EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
  EXPECT_EQ("li", e.Director);
  EXPECT_EQ(2, e.SendDate);
  EXPECT_EQ(99, e.Service);
  EXPECT_EQ(98, e.Result);
  EXPECT_EQ("", e.Suggestion);
}

TEST_F(CustomerStudyTest, BackEntityOnANullDateGives2AndReadsNothing) {
  db().Exec("insert into t_bcstudy (F_InvestNo, F_CustNo, F_SendQc, F_SendDate, F_Service, "
            "F_Result) values (5, 'C001', 1, 2, 3, 4)");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(5);
  EXPECT_EQ(2, repo.BackEntity(e, "5"));
  EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
  EXPECT_EQ("C001", e.CustNo);  // as it was: the date is read first
  EXPECT_EQ(kDay, e.InvestDate);
  EXPECT_EQ("wang", e.Director);
}

TEST_F(CustomerStudyTest, BackEntityWithAQuoteBreaksTheStatementAndGives2) {
  Study("2026110201", "2026-11-02", "C001");
  clsDataBCStudy repo;
  std::vector<std::int16_t> inner;
  clsEntBCStudy e = FullStudy(3);
  int reports = 0;
  SetReportHandler([&](const Report& r) {
    EXPECT_THAT(r.text, HasSubstr(kSyntax));
    // rs was reset before the report.
    if (++reports == 1) inner.push_back(repo.BackEntity(e, "2026110201"));
  });
  EXPECT_EQ(2, repo.BackEntity(e, "1'"));
  EXPECT_EQ(std::vector<std::int16_t>{1}, inner);
  EXPECT_EQ((Strings{BackEntitySql("1'"), BackEntitySql("2026110201")}), Commands());
}

// ------------------------------------------------------------ QueryCondition

TEST_F(CustomerStudyTest, QueryConditionFindsTheRowOfTheNameAndDay) {
  db().Exec("insert into t_sitemno values ('t_bcstudy', 2026110204, '2026-11-02'), "
            "('t_bsample', 2026110207, '2026-11-02'), ('t_bcstudy', 2026110301, '2026-11-03')");
  clsDataBCStudy repo;
  clsEntSitemNo e;
  e.tablename = "kept";
  EXPECT_EQ(1, repo.QueryCondition(kDay, "t_bcstudy", e));
  EXPECT_EQ(2026110204, e.no);
  EXPECT_EQ("kept", e.tablename);  // only the number is read
  EXPECT_EQ(Date(), e.fndate);
  clsEntSitemNo none;
  none.no = 5;
  EXPECT_EQ(0, repo.QueryCondition(Date::FromParts(2026, 11, 4), "t_bcstudy", none));
  EXPECT_EQ(5, none.no);
  EXPECT_EQ((Strings{QueryConditionSql("t_bcstudy", "2026-11-02"),
                     QueryConditionSql("t_bcstudy", "2026-11-04")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryConditionFailsOnANullNumberAndOnAQuote) {
  db().Exec("insert into t_sitemno values ('t_bcstudy', null, '2026-11-02')");
  clsDataBCStudy repo;
  clsEntSitemNo e;
  e.no = 5;
  EXPECT_EQ(2, repo.QueryCondition(kDay, "t_bcstudy", e));
  EXPECT_EQ(Reports_{PlainReport("Invalid use of Null")}, Reports());
  EXPECT_EQ(5, e.no);
  Clear();
  EXPECT_EQ(2, repo.QueryCondition(kDay, "t_b'cstudy", e));
  ExpectOnePlainReport(kSyntax);
}

// ------------------------------------------------------------ QueryDate

TEST_F(CustomerStudyTest, QueryDateGivesTheServersDate) {
  const std::string today = db().Scalar("select curdate()+0").value();
  clsDataBCStudy repo;
  const Date d = repo.QueryDate();
  EXPECT_EQ(Date::FromParts(std::stoi(today.substr(0, 4)), std::stoi(today.substr(4, 2)),
                            std::stoi(today.substr(6, 2))),
            d);
  EXPECT_EQ(d, repo.QueryDate());  // rs was closed
  EXPECT_EQ(Strings(2, QueryDateSql()), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerStudyTest, QueryDateOnAnOpenRsGivesTheZeroDateAndResets) {
  // QueryMaxItem shows its report before it resets rs (see above): a call
  // made then finds rs open.
  db().Exec("insert into t_bcstudy (F_InvestNo) values (9)");
  clsDataBCStudy repo;
  std::vector<Date> inner;
  std::vector<Report> seen;
  SetReportHandler([&](const Report& r) {
    seen.push_back(r);
    if (seen.size() != 1) return;
    inner.push_back(repo.QueryDate());
    inner.push_back(repo.QueryDate());  // reset by the failure before: works
  });
  clsEntBCStudy e;
  EXPECT_EQ(2, repo.QueryMaxItem(e));
  ASSERT_EQ(2u, inner.size());
  EXPECT_EQ(Date(), inner[0]);
  EXPECT_NE(Date(), inner[1]);
  EXPECT_EQ((Reports_{PlainReport("Type mismatch"), PlainReport(kOpenWords)}), seen);
  EXPECT_EQ((Strings{LargestSql(), QueryDateSql()}), Commands());
}

// ------------------------------------------------------------ rs across calls

TEST_F(CustomerStudyTest, ReadsAfterAKeysetEditTakeOverItsCursorAndReadAsEver) {
  Study("2026110201", "2026-11-02", "C001");
  Study("2026110202", "2026-11-02", "C002");
  clsDataBCStudy repo;
  clsEntBCStudy e = FullStudy(2026110201);
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201"));
  // rs is closed with CursorType 1 and LockType 3 set on it; the read-opens
  // that follow use them.
  Collection<clsEntBCStudy> customers;
  EXPECT_EQ(1, repo.QueryAll(&customers));
  EXPECT_EQ((Strings{"C001", "C002"}), Customers(customers));
  clsEntBCStudy back;
  EXPECT_EQ(1, repo.BackEntity(back, "2026110202"));
  EXPECT_EQ("C002", back.CustNo);
  Collection<clsEntBCStudy> numbers;
  EXPECT_EQ(1, repo.QueryAlldetaile(&numbers, "C001"));
  EXPECT_EQ(std::vector<double>{2026110201}, Numbers(numbers));
  clsEntBCStudy largest;
  EXPECT_EQ(1, repo.QueryMaxItem(largest));
  EXPECT_EQ(2026110202, largest.InvestNo);
  clsEntSitemNo counter;
  EXPECT_EQ(0, repo.QueryCondition(kDay, "t_bcstudy", counter));
  EXPECT_EQ(1u, RowChanges().size());  // the update alone
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ the day's turn

TEST_F(CustomerStudyTest, TwoStudiesOfADay) {
  clsDataBCStudy repo;
  const Date today = repo.QueryDate();
  clsEntSitemNo counter;
  EXPECT_EQ(0, repo.QueryCondition(today, "t_bcstudy", counter));
  clsEntBCStudy first = FullStudy(1);
  first.InvestDate = today;
  EXPECT_EQ(1, repo.AddRecord(first, "t_bcstudy", 0));
  EXPECT_EQ(1, repo.QueryCondition(today, "t_bcstudy", counter));
  EXPECT_EQ(1, counter.no);
  clsEntBCStudy second = FullStudy(counter.no + 1);
  second.InvestDate = today;
  EXPECT_EQ(1, repo.AddRecord(second, "t_bcstudy", 1));
  EXPECT_EQ(1, repo.QueryCondition(today, "t_bcstudy", counter));
  EXPECT_EQ(2, counter.no);
  clsEntBCStudy last;
  EXPECT_EQ(1, repo.QueryMaxItemDelete(last, today));
  EXPECT_EQ(2, last.InvestNo);
  EXPECT_EQ(1, db().Count("t_sitemno"));
  EXPECT_TRUE(Reports().empty());
}

}  // namespace
}  // namespace corvane
