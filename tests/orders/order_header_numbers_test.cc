// clsDataBOrderh's order numbers of the day against the sandbox server:
// QueryTF, QueryChkitemiNo, AddRecord's number check, UpdateAddSitemNo and the
// counter rollback of DeleteRecord, over t_sitemno.
#include "corvane/orders/order_header.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;
using ::testing::HasSubstr;
using Rows = std::vector<std::vector<std::string>>;

constexpr char kTitle[] = "塔恩维克";

const std::string kQueryTF =
    "select * from T_BOrderh where left(cast(F_OrderNo as char),8)=cast(curdate()+0 as char)";
const std::string kLastOfToday =
    "select si.* from t_sitemno si,T_BOrderh wo  where  si.f_tablename='T_BOrderh' and "
    "si.f_no=(select max(f_orderNo) from T_BOrderh where left(cast(f_orderNo as char),8) "
    "=cast(curdate()+0 as char)) and left(cast(si.f_no as char),8) =cast(curdate()+0 as char)";
const std::string kTodayNumber = "select curdate()+0 as f_no";
const std::string kTodayDate = "select curdate() as f_fndate";
const std::string kCounterOfToday =
    "select * from T_SitemNo where  F_TableName='T_BOrderh'and left(cast(F_No as char),8)"
    "=left(cast(curdate()+0 as char),8)";
const std::string kOpenCounter =
    "insert into T_SitemNo(F_TableName,F_No,F_FnDate) values('T_BOrderh',0+cast(concat(cast("
    "curdate()+0 as char),'001') as signed),curdate())";
const std::string kAdvanceCounter =
    "update t_sitemno set f_no=f_no+1,f_fndate=curdate() where F_TableName='T_BOrderh'and "
    "left(cast(f_no as char),8) =cast(curdate()+0 as char) ";
const std::string kWholeTable = "select * from T_BOrderh";

std::string NumberTaken(const std::string& no) {
  return "select * from T_BOrderh where F_OrderNo= '" + no + "'";
}
std::string Document(const std::string& no) {
  return "select * from T_BOrderh where F_OrderNo ='" + no + "' ";
}
std::string HeldByCounter(const std::string& no) {
  return "select Qi.* from  T_BOrderh Qi,t_sitemno si where Qi.f_OrderNo=si.f_no and si.f_no='" +
         no + "'";
}
std::string DeleteUnheld(const std::string& no) {
  return "delete  from T_BOrderh where F_OrderNo ='" + no + "' ";
}
std::string DeleteHeld(const std::string& no) {
  return "delete from T_BOrderh where F_OrderNo ='" + no + "' ";
}
std::string DocumentsOfDay(const std::string& day) {
  return "select * from T_BOrderh  where   left(cast(f_OrderNo as char),8)='" + day + "'";
}
std::string RemoveCounter(const std::string& day) {
  return "delete from t_sitemno  where f_tablename='T_BOrderh' and left(cast(f_no as char),8)='" +
         day + "'";
}
std::string LowerCounter(const std::string& day) {
  return "update t_sitemno set f_no=(select max(f_OrderNo) from T_BOrderh where "
         "left(cast(f_OrderNo as char),8)='" +
         day + "') where f_tablename='T_BOrderh' and left(cast(f_no as char),8)='" + day + "'";
}

class OrderNumbersTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    today_ = db().Scalar("select curdate()+0").value();
    today_text_ = db().Scalar("select curdate()").value();
  }

  // yyyymmdd of the server's date, and the day's number k as text.
  const std::string& Today() const { return today_; }
  std::string No(int k) const {
    std::string three = std::to_string(k);
    while (three.size() < 3) three.insert(three.begin(), '0');
    return today_ + three;
  }
  Date TodayDate() const {
    return Date::FromParts(std::stoi(today_.substr(0, 4)), std::stoi(today_.substr(4, 2)),
                           std::stoi(today_.substr(6, 2)));
  }
  std::string TodayMidnight() const { return today_text_ + " 00:00:00"; }

  void InsertOrder(const std::string& no) {
    db().Exec("insert into t_borderh (F_OrderNo,F_CustNo,F_DueDate,F_TaxDate) values (" + no +
              ",'C001','2026-12-01','2026-12-02')");
  }
  void InsertCounter(const std::string& kind, const std::string& no, const std::string& day) {
    db().Exec("insert into t_sitemno values ('" + kind + "'," + no + "," + day + ")");
  }
  Rows Counters() {
    return db().Rows("select F_TableName, F_No, F_FnDate from t_sitemno order by F_TableName, F_No");
  }
  Rows Orders() { return db().Rows("select F_OrderNo from t_borderh order by F_OrderNo"); }

  static clsEntBOrderh OrderOf(double no) {
    clsEntBOrderh e;
    e.OrderNo = no;
    e.CustNo = "C001";
    return e;
  }

  void ExpectOneReport(const std::string& words) {
    ASSERT_EQ(Reports().size(), 1u);
    EXPECT_THAT(Reports()[0].text, HasSubstr(words));
    EXPECT_EQ(Reports()[0].style, 64);
    EXPECT_EQ(Reports()[0].title, kTitle);
  }

 private:
  std::string today_;
  std::string today_text_;
};

// --- the turn of a day's numbers ---------------------------------------------

TEST_F(OrderNumbersTest, AWholeDaysRoad) {
  clsDataBOrderh repo;
  // No order today yet.
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_EQ(Commands(), std::vector<std::string>{kQueryTF});
  Clear();

  // The first number of the day comes from the server's date.
  clsEntSitemNo item;
  EXPECT_TRUE(repo.QueryChkitemiNo(item).IsEmpty());
  EXPECT_EQ(Commands(), (std::vector<std::string>{kLastOfToday, kTodayNumber, kTodayDate}));
  EXPECT_EQ(item.no, std::stod(No(1)));
  EXPECT_EQ(item.tablename, "T_BOrderh");
  EXPECT_EQ(item.fndate, TodayDate());
  Clear();

  // Store it, then advance the counter: the day's row is born with it.
  clsEntBOrderh first = OrderOf(item.no);
  EXPECT_EQ(repo.AddRecord(first), 1);
  EXPECT_EQ(Commands(), (std::vector<std::string>{NumberTaken(No(1)), kWholeTable}));
  EXPECT_EQ(Counters(), Rows{});
  Clear();
  EXPECT_TRUE(repo.UpdateAddSitemNo().IsEmpty());
  EXPECT_EQ(Commands(), (std::vector<std::string>{kCounterOfToday, kOpenCounter}));
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(1), TodayMidnight()}}));
  Clear();

  // Now today has an order, and the counter gives the stored row.
  EXPECT_EQ(repo.QueryTF(), 2);
  clsEntSitemNo second_item;
  EXPECT_TRUE(repo.QueryChkitemiNo(second_item).IsEmpty());
  EXPECT_EQ(Commands(), (std::vector<std::string>{kQueryTF, kLastOfToday}));
  EXPECT_EQ(second_item.no, std::stod(No(1)));  // the last one issued, not the next
  EXPECT_EQ(second_item.tablename, "T_BOrderh");
  EXPECT_EQ(second_item.fndate, TodayDate());
  Clear();

  // The caller adds one; store, advance.
  clsEntBOrderh second = OrderOf(second_item.no + 1);
  EXPECT_EQ(repo.AddRecord(second), 1);
  EXPECT_TRUE(repo.UpdateAddSitemNo().IsEmpty());
  EXPECT_EQ(Commands(), (std::vector<std::string>{NumberTaken(No(2)), kWholeTable,
                                                  kCounterOfToday, kAdvanceCounter}));
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(2), TodayMidnight()}}));
  Clear();

  // And the next number after that.
  clsEntSitemNo third_item;
  repo.QueryChkitemiNo(third_item);
  EXPECT_EQ(Commands(), std::vector<std::string>{kLastOfToday});
  EXPECT_EQ(third_item.no, std::stod(No(2)));
  EXPECT_EQ(Orders(), (Rows{{No(1)}, {No(2)}}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderNumbersTest, QueryTFCountsByTheNumberNotByTheOrderDate) {
  InsertOrder("20240105001");
  db().Exec("update t_borderh set F_OrderDate=now()");
  clsDataBOrderh repo;
  EXPECT_EQ(repo.QueryTF(), 1);
  InsertOrder(No(7));
  EXPECT_EQ(repo.QueryTF(), 2);
  EXPECT_EQ(Commands(), (std::vector<std::string>{kQueryTF, kQueryTF}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderNumbersTest, CounterBehindTheOrdersGivesTheFirstNumberAgain) {
  // An order stored without advancing the counter.
  clsDataBOrderh repo;
  clsEntBOrderh first = OrderOf(std::stod(No(1)));
  ASSERT_EQ(repo.AddRecord(first), 1);
  Clear();
  EXPECT_EQ(repo.QueryTF(), 2);
  clsEntSitemNo item;
  repo.QueryChkitemiNo(item);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{kQueryTF, kLastOfToday, kTodayNumber, kTodayDate}));
  EXPECT_EQ(item.no, std::stod(No(1)));
  Clear();
  clsEntBOrderh again = OrderOf(item.no);
  EXPECT_EQ(repo.AddRecord(again), 2);
  EXPECT_EQ(Commands(), std::vector<std::string>{NumberTaken(No(1))});
  EXPECT_EQ(Orders(), Rows{{No(1)}});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderNumbersTest, CounterAheadOfTheOrdersGivesTheFirstNumberAgain) {
  clsDataBOrderh repo;
  clsEntBOrderh first = OrderOf(std::stod(No(1)));
  ASSERT_EQ(repo.AddRecord(first), 1);
  repo.UpdateAddSitemNo();
  repo.UpdateAddSitemNo();  // advanced with no order stored
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(2), TodayMidnight()}}));
  Clear();
  clsEntSitemNo item;
  repo.QueryChkitemiNo(item);
  EXPECT_EQ(Commands(), (std::vector<std::string>{kLastOfToday, kTodayNumber, kTodayDate}));
  EXPECT_EQ(item.no, std::stod(No(1)));
  clsEntBOrderh again = OrderOf(item.no);
  EXPECT_EQ(repo.AddRecord(again), 2);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderNumbersTest, QueryChkitemiNoReadsOnlyTheRowOfTheOrders) {
  // A row of another kind holding the same number does not count.
  InsertOrder(No(1));
  InsertCounter("T_BOrdChange", No(1), "curdate()");
  clsDataBOrderh repo;
  clsEntSitemNo item;
  item.tablename = "x";
  repo.QueryChkitemiNo(item);
  EXPECT_EQ(Commands(), (std::vector<std::string>{kLastOfToday, kTodayNumber, kTodayDate}));
  EXPECT_EQ(item.tablename, "T_BOrderh");
  EXPECT_EQ(item.no, std::stod(No(1)));
  EXPECT_EQ(item.fndate, TodayDate());
}

TEST_F(OrderNumbersTest, QueryChkitemiNoReadsANullDayAsTheZeroDate) {
  InsertOrder(No(1));
  InsertOrder(No(2));
  InsertCounter("T_BOrderh", No(2), "null");
  clsDataBOrderh repo;
  clsEntSitemNo item;
  item.fndate = TodayDate();
  EXPECT_TRUE(repo.QueryChkitemiNo(item).IsEmpty());
  EXPECT_EQ(Commands(), std::vector<std::string>{kLastOfToday});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(item.no, std::stod(No(2)));
  EXPECT_EQ(item.tablename, "T_BOrderh");
  EXPECT_EQ(item.fndate, Date());
}

TEST_F(OrderNumbersTest, TheNineHundredNinetyNinthNumberRollsTheCounterOutOfToday) {
  InsertOrder(No(999));
  InsertCounter("T_BOrderh", No(999), "curdate()");
  const std::string rolled = std::to_string((std::stoll(Today()) + 1) * 1000);  // next prefix, 000
  clsDataBOrderh repo;
  EXPECT_TRUE(repo.UpdateAddSitemNo().IsEmpty());
  EXPECT_EQ(Commands(), (std::vector<std::string>{kCounterOfToday, kAdvanceCounter}));
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", rolled, TodayMidnight()}}));
  Clear();
  // The row no longer counts as today's.
  clsEntSitemNo item;
  repo.QueryChkitemiNo(item);
  EXPECT_EQ(Commands(), (std::vector<std::string>{kLastOfToday, kTodayNumber, kTodayDate}));
  EXPECT_EQ(item.no, std::stod(No(1)));
  Clear();
  // The next advance opens a fresh row for today.
  repo.UpdateAddSitemNo();
  EXPECT_EQ(Commands(), (std::vector<std::string>{kCounterOfToday, kOpenCounter}));
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(1), TodayMidnight()},
                              {"T_BOrderh", rolled, TodayMidnight()}}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderNumbersTest, QueryTFFailureGivesZeroAndTheLengthReport) {
  db().Exec("drop table t_borderh");
  clsDataBOrderh repo;
  EXPECT_EQ(repo.QueryTF(), 0);
  EXPECT_EQ(Commands(), std::vector<std::string>{kQueryTF});
  ExpectOneReport("doesn't exist");
}

TEST_F(OrderNumbersTest, QueryChkitemiNoFailureLeavesTheEntity) {
  db().Exec("drop table t_sitemno");
  clsDataBOrderh repo;
  clsEntSitemNo item;
  item.no = 42;
  item.tablename = "mine";
  EXPECT_TRUE(repo.QueryChkitemiNo(item).IsEmpty());
  EXPECT_EQ(Commands(), std::vector<std::string>{kLastOfToday});
  ExpectOneReport("doesn't exist");
  EXPECT_EQ(item.no, 42);
  EXPECT_EQ(item.tablename, "mine");
  EXPECT_EQ(item.fndate, Date());
}

TEST_F(OrderNumbersTest, UpdateAddSitemNoFailureIsEmptyToo) {
  db().Exec(
      "create trigger sitemno_closed before insert on t_sitemno for each row "
      "signal sqlstate '45000' set message_text='counter closed'");
  clsDataBOrderh repo;
  EXPECT_TRUE(repo.UpdateAddSitemNo().IsEmpty());
  EXPECT_EQ(Commands(), (std::vector<std::string>{kCounterOfToday, kOpenCounter}));
  EXPECT_EQ(Reports(), (std::vector<Report>{Report{"counter closed", 64, kTitle}}));
  EXPECT_EQ(Counters(), Rows{});
  // The handler reset rs: the next call of a method that uses it as it stands
  // works.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderNumbersTest, AddRecordLeavesTheCounterAlone) {
  InsertCounter("T_BOrderh", No(3), "curdate()");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(std::stod(No(4)));
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(3), TodayMidnight()}}));
}

TEST_F(OrderNumbersTest, UpdateRecordLeavesTheCounterAlone) {
  InsertOrder(No(3));
  InsertCounter("T_BOrderh", No(3), "curdate()");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(std::stod(No(3)));
  e.OrderDate = Date::FromParts(2020, 1, 1);
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Commands(), (std::vector<std::string>{NumberTaken(No(3)), NumberTaken(No(3))}));
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(3), TodayMidnight()}}));
}

// --- DeleteRecord -----------------------------------------------------------

TEST_F(OrderNumbersTest, DeleteRecordOfAnUnknownNumberDoesNothing) {
  InsertOrder(No(1));
  InsertCounter("T_BOrderh", No(1), "curdate()");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(std::stod(No(2)));
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), std::vector<std::string>{Document(No(2))});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Orders(), Rows{{No(1)}});
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(1), TodayMidnight()}}));
}

TEST_F(OrderNumbersTest, DeleteRecordOfANumberTheCounterDoesNotHoldLeavesAHole) {
  InsertOrder(No(1));
  InsertOrder(No(2));
  InsertCounter("T_BOrderh", No(2), "curdate()");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(std::stod(No(1)));
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{Document(No(1)), HeldByCounter(No(1)),
                                                  DeleteUnheld(No(1))}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Orders(), Rows{{No(2)}});
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(2), TodayMidnight()}}));
}

TEST_F(OrderNumbersTest, DeleteRecordOfTheHeldNumberLowersTheCounterToTheLargestLeft) {
  InsertOrder(No(1));
  InsertOrder(No(3));
  InsertOrder(No(5));
  InsertCounter("T_BOrderh", No(5), "curdate()");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(std::stod(No(5)));
  EXPECT_EQ(repo.DeleteRecord(e), 0);  // 0 after a successful delete too
  EXPECT_EQ(Commands(), (std::vector<std::string>{Document(No(5)), HeldByCounter(No(5)),
                                                  DeleteHeld(No(5)), DocumentsOfDay(Today()),
                                                  LowerCounter(Today())}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Orders(), (Rows{{No(1)}, {No(3)}}));
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(3), TodayMidnight()}}));
}

TEST_F(OrderNumbersTest, DeleteRecordOfTheLastOrderOfTheDayRemovesTheCounterRow) {
  InsertOrder(No(1));
  InsertCounter("T_BOrderh", No(1), "curdate()");
  InsertCounter("T_BOrdChange", No(1), "curdate()");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(std::stod(No(1)));
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{Document(No(1)), HeldByCounter(No(1)),
                                                  DeleteHeld(No(1)), DocumentsOfDay(Today()),
                                                  RemoveCounter(Today())}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Orders(), Rows{});
  // Only the row of the orders goes.
  EXPECT_EQ(Counters(), (Rows{{"T_BOrdChange", No(1), TodayMidnight()}}));
  // The number is free again.
  Clear();
  clsEntSitemNo item;
  repo.QueryChkitemiNo(item);
  EXPECT_EQ(item.no, std::stod(No(1)));
}

TEST_F(OrderNumbersTest, DeleteRecordCountsARowOfAnotherKindWithTheSameNumberAsHeld) {
  InsertOrder(No(1));
  InsertOrder(No(2));
  InsertCounter("T_BOrdChange", No(1), "curdate()");
  InsertCounter("T_BOrderh", No(2), "curdate()");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(std::stod(No(1)));
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{Document(No(1)), HeldByCounter(No(1)),
                                                  DeleteHeld(No(1)), DocumentsOfDay(Today()),
                                                  LowerCounter(Today())}));
  EXPECT_EQ(Orders(), Rows{{No(2)}});
  EXPECT_EQ(Counters(), (Rows{{"T_BOrdChange", No(1), TodayMidnight()},
                              {"T_BOrderh", No(2), TodayMidnight()}}));
}

TEST_F(OrderNumbersTest, DeleteRecordOfAPastDaysNumberWorksOnThatDaysRow) {
  InsertOrder("20240105001");
  InsertOrder("20240105002");
  InsertOrder(No(1));
  InsertCounter("T_BOrderh", "20240105002", "'2024-01-05'");
  InsertCounter("T_BOrderh", No(1), "curdate()");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(20240105002);
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{Document("20240105002"), HeldByCounter("20240105002"),
                                      DeleteHeld("20240105002"), DocumentsOfDay("20240105"),
                                      LowerCounter("20240105")}));
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", "20240105001", "2024-01-05 00:00:00"},
                              {"T_BOrderh", No(1), TodayMidnight()}}));
  Clear();
  e.OrderNo = 20240105001;
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{Document("20240105001"), HeldByCounter("20240105001"),
                                      DeleteHeld("20240105001"), DocumentsOfDay("20240105"),
                                      RemoveCounter("20240105")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Orders(), Rows{{No(1)}});
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(1), TodayMidnight()}}));
}

TEST_F(OrderNumbersTest, DeleteRecordFailureAfterTheDeleteLeavesTheCounterAsItStood) {
  InsertOrder(No(1));
  InsertOrder(No(2));
  InsertCounter("T_BOrderh", No(2), "curdate()");
  db().Exec(
      "create trigger sitemno_locked before update on t_sitemno for each row "
      "signal sqlstate '45000' set message_text='counter locked'");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(std::stod(No(2)));
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{Document(No(2)), HeldByCounter(No(2)),
                                                  DeleteHeld(No(2)), DocumentsOfDay(Today()),
                                                  LowerCounter(Today())}));
  EXPECT_EQ(Reports(), (std::vector<Report>{Report{"counter locked", 64, kTitle}}));
  // No transaction: the order is gone, the counter still holds its number.
  EXPECT_EQ(Orders(), Rows{{No(1)}});
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", No(2), TodayMidnight()}}));
}

TEST_F(OrderNumbersTest, DeleteRecordFailureBeforeTheDeleteKeepsTheOrder) {
  InsertOrder(No(1));
  db().Exec("drop table t_sitemno");
  clsDataBOrderh repo;
  clsEntBOrderh e = OrderOf(std::stod(No(1)));
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), (std::vector<std::string>{Document(No(1)), HeldByCounter(No(1))}));
  ExpectOneReport("doesn't exist");
  EXPECT_EQ(Orders(), Rows{{No(1)}});
}

}  // namespace
}  // namespace corvane
