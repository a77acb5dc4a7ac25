// clsDataBOrdChange::UpdateBOrderiRecord against the sandbox server: the
// approval of a change request and the carrying-over of its quantity and date
// into t_porderchk, T_POrder and T_BOrderi.
#include "corvane/orders/order_change.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;
using Rows = std::vector<std::vector<std::string>>;
using Texts = std::vector<std::string>;

const std::string kQueryTF =
    "select * from T_BOrdChange where left(cast(F_upNo as char),8)=cast(curdate()+0 as char)";

// The approval's statements, step by step.
std::string LineSelect(const std::string& prod) {
  return "select * from T_BOrderi  where F_ProdNo= " + prod;
}
std::string CheckListSelect(const std::string& prod) {
  return "select * from t_porderchk  where F_ProdNo= '" + prod + "'";
}
std::string CheckListUpdate(const std::string& qty, const std::string& date,
                            const std::string& prod) {
  return "update t_porderchk set F_OrderCount =" + qty + ",F_DeliverDate =' " + date +
         "' where F_ProdNo=" + prod;
}
std::string ProductionUpdate(const std::string& qty, const std::string& date,
                             const std::string& s, const std::string& prod) {
  return "update T_POrder set F_OrdQty =" + qty +
         ", f_balqty = (ifnull(f_ordqty, 0) - ifnull(f_outqty, 0) + ifnull(f_outbkqty, "
         "0)),F_DeliverDate =' " +
         date + "',F_Status=" + s + " where F_ProdNo=" + prod;
}
std::string LineUpdate(const std::string& qty, const std::string& date, const std::string& bk,
                       const std::string& s, const std::string& prod) {
  return "update  T_BOrderi set F_OrdQty =" + qty + ",F_DeliverDate =' " + date +
         "' ,F_BkQty='" + bk + "',F_Flags=1,F_status=" + s + " where F_ProdNo= '" + prod + "'";
}
std::string Approve(const std::string& user, const std::string& prod, const std::string& up_no) {
  return "update T_BOrdChange set F_Flags=1,F_Approve ='" + user +
         "',F_ApproveTime =now() where F_ProdNo='" + prod + "' and F_UpNo=" + up_no;
}

// The request to approve: new quantity 120, new date 2026-12-15, new spare
// quantity 3.5. Its own ProdNo is not what the approval uses.
clsEntBOrdChange Request() {
  clsEntBOrdChange e;
  e.UpNo = 20261103001;
  e.ProdNo = 9999;
  e.NewQty = 120;
  e.NewDate = Date::FromParts(2026, 12, 15);
  e.NewBkQty = 3.5;
  e.OldQty = 100;
  return e;
}

class OrdChangeApprovalTest : public SandboxTest {
 protected:
  // Line 3001, the one to change, and line 3002 beside it, in all four tables.
  void SetUp() override {
    SandboxTest::SetUp();
    db().Exec(
        "insert into t_porderchk (F_ProdNo,F_OrderCount,F_DeliverDate) values "
        "(3001,100,'2026-12-01'),(3002,40,'2026-12-02')");
    db().Exec(
        "insert into t_porder "
        "(F_ProdNo,f_orderno,F_OrdQty,F_OutQty,f_outbkqty,f_balqty,F_DeliverDate,F_Status) values "
        "(3001,20261101001,100,30,5,75,'2026-12-01',9),"
        "(3002,20261101001,40,0,0,40,'2026-12-02',9)");
    db().Exec(
        "insert into t_borderi "
        "(F_OrderNo,F_ItemNo,F_No,F_ProdNo,F_OrdQty,F_DeliverDate,F_BkQty,F_Flags,F_Status,F_OutQty) "
        "values (20261101001,'ITM-7','1',3001,100,'2026-12-01',2,0,9,30),"
        "(20261101001,'ITM-8','2',3002,40,'2026-12-02',1,0,9,0)");
    db().Exec(
        "insert into t_bordchange (F_UpNo,F_ProdNo,F_OldQty,F_NewQty,F_Flags) values "
        "(20261103001,3001,100,120,0),(20261103002,3002,40,50,0)");
  }

  Rows CheckList() {
    return db().Rows("select F_ProdNo,F_OrderCount,F_DeliverDate from t_porderchk order by F_ProdNo");
  }
  Rows Production() {
    return db().Rows(
        "select F_ProdNo,F_OrdQty,F_OutQty,f_outbkqty,f_balqty,F_DeliverDate,F_Status from t_porder "
        "order by F_ProdNo");
  }
  Rows OrderLines() {
    return db().Rows(
        "select F_ProdNo,F_OrdQty,F_DeliverDate,F_BkQty,F_Flags,F_Status,F_OutQty from t_borderi "
        "order by F_ProdNo");
  }
  Rows Requests() {
    return db().Rows(
        "select F_UpNo,F_ProdNo,F_NewQty,F_Flags,F_Approve,F_ApproveTime is null from t_bordchange "
        "order by F_UpNo");
  }
  Rows Everything() {
    Rows all = CheckList();
    for (const Rows& part : {Production(), OrderLines(),
                             db().Rows("select * from t_bordchange order by F_UpNo")}) {
      all.insert(all.end(), part.begin(), part.end());
    }
    return all;
  }
  // Whether the request's approval time is the server's now, give or take.
  bool ApprovedJustNow(const std::string& up_no) {
    return db().Scalar("select abs(timestampdiff(second,F_ApproveTime,now())) <= 5 from "
                       "t_bordchange where F_UpNo=" +
                       up_no) == "1";
  }
  // The five statements of a carried-over approval of Request() on line 3001.
  Texts CarriedOver(const std::string& s, const std::string& user = "boss") {
    return {LineSelect("3001"),
            CheckListSelect("3001"),
            CheckListUpdate("120", "2026-12-15", "3001"),
            ProductionUpdate("120", "2026-12-15", s, "3001"),
            LineUpdate("120", "2026-12-15", "3.5", s, "3001"),
            Approve(user, "3001", "20261103001")};
  }
  void ExpectOnlyCommands() {
    for (const auto& sent : Sent()) EXPECT_EQ(sent.kind, StatementKind::kCommand) << sent.text;
  }
  // rs was dropped: QueryTF, which uses rs as it stands, works at once.
  void ExpectRsNotOpen(clsDataBOrdChange& repo) {
    Clear();
    EXPECT_EQ(repo.QueryTF(), 1);
    EXPECT_EQ(Commands(), Texts{kQueryTF});
    EXPECT_TRUE(Reports().empty());
  }
};

class OrdChangeCarryOverTest : public OrdChangeApprovalTest,
                               public ::testing::WithParamInterface<int> {};

TEST_P(OrdChangeCarryOverTest, CarriesTheChangeIntoTheThreeTablesAndApproves) {
  const std::int16_t status = static_cast<std::int16_t>(GetParam());
  const std::string s = std::to_string(status);
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", status, 0), 1);
  EXPECT_EQ(Commands(), CarriedOver(s));
  ExpectOnlyCommands();
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(CheckList(), (Rows{{"3001", "120", "2026-12-15 00:00:00"},
                               {"3002", "40", "2026-12-02 00:00:00"}}));
  // The balance takes the new ordered quantity: 120 - 30 + 5.
  EXPECT_EQ(Production(), (Rows{{"3001", "120", "30", "5", "95", "2026-12-15 00:00:00", s},
                                {"3002", "40", "0", "0", "40", "2026-12-02 00:00:00", "9"}}));
  EXPECT_EQ(OrderLines(), (Rows{{"3001", "120", "2026-12-15 00:00:00", "3.5", "1", s, "30"},
                            {"3002", "40", "2026-12-02 00:00:00", "1", "0", "9", "0"}}));
  EXPECT_EQ(Requests(), (Rows{{"20261103001", "3001", "120", "1", "boss", "0"},
                              {"20261103002", "3002", "50", "0", "NULL", "1"}}));
  EXPECT_TRUE(ApprovedJustNow("20261103001"));
  // The entity is only read.
  EXPECT_EQ(e.Flags, 0);
  EXPECT_EQ(e.ProdNo, 9999);
  ExpectRsNotOpen(repo);
}

INSTANTIATE_TEST_SUITE_P(StatusZeroOneTwo, OrdChangeCarryOverTest, ::testing::Values(0, 1, 2));

class OrdChangeApproveOnlyTest : public OrdChangeApprovalTest,
                                 public ::testing::WithParamInterface<int> {};

TEST_P(OrdChangeApproveOnlyTest, AnyOtherStatusApprovesWithNothingCarriedOver) {
  const std::int16_t status = static_cast<std::int16_t>(GetParam());
  const Rows check_list = CheckList(), production = Production(), lines = OrderLines();
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", status, 0), 1);
  EXPECT_EQ(Commands(), (Texts{LineSelect("3001"), CheckListSelect("3001"),
                               Approve("boss", "3001", "20261103001")}));
  ExpectOnlyCommands();
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(CheckList(), check_list);
  EXPECT_EQ(Production(), production);
  EXPECT_EQ(OrderLines(), lines);
  EXPECT_EQ(Requests(), (Rows{{"20261103001", "3001", "120", "1", "boss", "0"},
                              {"20261103002", "3002", "50", "0", "NULL", "1"}}));
  EXPECT_TRUE(ApprovedJustNow("20261103001"));
  ExpectRsNotOpen(repo);
}

INSTANTIATE_TEST_SUITE_P(OtherStatus, OrdChangeApproveOnlyTest, ::testing::Values(3, -1, 7));

TEST_F(OrdChangeApprovalTest, WithoutACheckListRowNothingChangesWhateverTheStatus) {
  db().Exec("delete from t_porderchk where F_ProdNo=3001");
  const Rows before = Everything();
  clsDataBOrdChange repo;
  for (std::int16_t status : {0, 1, 2, 3}) {
    clsEntBOrdChange e = Request();
    Clear();
    EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", status, 0), 2) << status;
    EXPECT_EQ(Commands(), (Texts{LineSelect("3001"), CheckListSelect("3001")}));
    EXPECT_TRUE(Reports().empty());
    EXPECT_EQ(Everything(), before);
    ExpectRsNotOpen(repo);
  }
}

TEST_F(OrdChangeApprovalTest, NullShippedAndReturnedQuantitiesCountAsZeroInTheBalance) {
  db().Exec("update t_porder set F_OutQty=NULL where F_ProdNo=3001");
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 0, 0), 1);
  EXPECT_EQ(db().Scalar("select f_balqty from t_porder where F_ProdNo=3001"), "125");
  db().Exec("update t_porder set F_OutQty=30, f_outbkqty=NULL where F_ProdNo=3001");
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 0, 0), 1);
  EXPECT_EQ(db().Scalar("select f_balqty from t_porder where F_ProdNo=3001"), "90");
  db().Exec("update t_porder set F_OutQty=NULL, f_outbkqty=NULL where F_ProdNo=3001");
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 0, 0), 1);
  EXPECT_EQ(db().Scalar("select f_balqty from t_porder where F_ProdNo=3001"), "120");
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeApprovalTest, ANegativeBalanceIsNotRefused) {
  clsEntBOrdChange e = Request();
  e.NewQty = 20;  // 20 - 30 + 5
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 1, 0), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_OrdQty,f_balqty from t_porder where F_ProdNo=3001"),
            (Rows{{"20", "-5"}}));
}

TEST_F(OrdChangeApprovalTest, ASecondApprovalRunsEverythingAgainAndMovesTheTime) {
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 0, 0), 1);
  db().Exec("update t_bordchange set F_ApproveTime='2000-01-01 00:00:00' where F_UpNo=20261103001");
  Clear();
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "chief", 2, 0), 1);
  EXPECT_EQ(Commands(), CarriedOver("2", "chief"));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Requests()[0], (std::vector<std::string>{"20261103001", "3001", "120", "1", "chief", "0"}));
  EXPECT_TRUE(ApprovedJustNow("20261103001"));
  EXPECT_EQ(db().Rows("select F_Status from t_porder where F_ProdNo=3001"), Rows{{"2"}});
  EXPECT_EQ(db().Rows("select F_Status from t_borderi where F_ProdNo=3001"), Rows{{"2"}});
}

TEST_F(OrdChangeApprovalTest, MissingProductionAndLineRowsAreNotDetected) {
  db().Exec("delete from t_porder where F_ProdNo=3001");
  db().Exec("delete from t_borderi where F_ProdNo=3001");
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 1, 0), 1);
  EXPECT_EQ(Commands(), CarriedOver("1"));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(CheckList()[0], (std::vector<std::string>{"3001", "120", "2026-12-15 00:00:00"}));
  EXPECT_EQ(Production().size(), 1u);  // line 3002 only, untouched
  EXPECT_EQ(Production()[0][6], "9");
  EXPECT_EQ(OrderLines().size(), 1u);
  EXPECT_EQ(OrderLines()[0][4], "0");
  EXPECT_EQ(Requests()[0], (std::vector<std::string>{"20261103001", "3001", "120", "1", "boss", "0"}));
}

TEST_F(OrdChangeApprovalTest, AProdNoOtherThanTheRequestsChangesTheOrderButNotTheRequest) {
  // The request is about line 3001; the caller names line 3002.
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3002, "boss", 0, 0), 1);
  EXPECT_EQ(Commands(),
            (Texts{LineSelect("3002"), CheckListSelect("3002"),
                   CheckListUpdate("120", "2026-12-15", "3002"),
                   ProductionUpdate("120", "2026-12-15", "0", "3002"),
                   LineUpdate("120", "2026-12-15", "3.5", "0", "3002"),
                   Approve("boss", "3002", "20261103001")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(CheckList(), (Rows{{"3001", "100", "2026-12-01 00:00:00"},
                               {"3002", "120", "2026-12-15 00:00:00"}}));
  EXPECT_EQ(Production()[1],
            (std::vector<std::string>{"3002", "120", "0", "0", "120", "2026-12-15 00:00:00", "0"}));
  EXPECT_EQ(OrderLines()[1],
            (std::vector<std::string>{"3002", "120", "2026-12-15 00:00:00", "3.5", "1", "0", "0"}));
  // Neither request is approved: 20261103001 is not about 3002.
  EXPECT_EQ(Requests(), (Rows{{"20261103001", "3001", "120", "0", "NULL", "1"},
                              {"20261103002", "3002", "50", "0", "NULL", "1"}}));
}

TEST_F(OrdChangeApprovalTest, AFailureHalfWayLeavesTheEarlierStatementsApplied) {
  db().Exec(
      "create trigger stop_line before update on t_borderi for each row "
      "signal sqlstate '45000' set message_text = 'order line is locked'");
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 1, 0), 0);
  Texts five = CarriedOver("1");
  five.pop_back();
  EXPECT_EQ(Commands(), five);
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].text.find("order line is locked"), std::string::npos) << Reports()[0].text;
  EXPECT_EQ(Reports()[0].style, 64);
  EXPECT_EQ(Reports()[0].title, "塔恩维克");
  // The check list and the production order changed; the line and the request did not.
  EXPECT_EQ(CheckList()[0], (std::vector<std::string>{"3001", "120", "2026-12-15 00:00:00"}));
  EXPECT_EQ(Production()[0],
            (std::vector<std::string>{"3001", "120", "30", "5", "95", "2026-12-15 00:00:00", "1"}));
  EXPECT_EQ(OrderLines()[0],
            (std::vector<std::string>{"3001", "100", "2026-12-01 00:00:00", "2", "0", "9", "30"}));
  EXPECT_EQ(Requests()[0], (std::vector<std::string>{"20261103001", "3001", "120", "0", "NULL", "1"}));
  ExpectRsNotOpen(repo);
  // The statements repeat: once the line is free the same call goes through.
  db().Exec("drop trigger stop_line");
  Clear();
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 1, 0), 1);
  EXPECT_EQ(Commands(), CarriedOver("1"));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Production()[0],
            (std::vector<std::string>{"3001", "120", "30", "5", "95", "2026-12-15 00:00:00", "1"}));
  EXPECT_EQ(OrderLines()[0],
            (std::vector<std::string>{"3001", "120", "2026-12-15 00:00:00", "3.5", "1", "1", "30"}));
  EXPECT_EQ(Requests()[0], (std::vector<std::string>{"20261103001", "3001", "120", "1", "boss", "0"}));
}

TEST_F(OrdChangeApprovalTest, AQuoteInTheUserNameBreaksTheLastStatementOnly) {
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "O'Neil", 0, 0), 0);
  EXPECT_EQ(Commands(), CarriedOver("0", "O'Neil"));
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].text.find("You have an error in your SQL syntax"), std::string::npos)
      << Reports()[0].text;
  EXPECT_EQ(Reports()[0].style, 64);
  EXPECT_EQ(Reports()[0].title, "塔恩维克");
  EXPECT_EQ(OrderLines()[0][4], "1");  // carried over
  EXPECT_EQ(Requests()[0], (std::vector<std::string>{"20261103001", "3001", "120", "0", "NULL", "1"}));
}

TEST_F(OrdChangeApprovalTest, NumbersAndDatesGoIntoTheTextAsTheRuntimeWritesThem) {
  db().Exec("update t_porderchk set F_ProdNo=20261122001 where F_ProdNo=3001");
  db().Exec("update t_porder set F_ProdNo=20261122001 where F_ProdNo=3001");
  db().Exec("update t_borderi set F_ProdNo=20261122001 where F_ProdNo=3001");
  db().Exec("update t_bordchange set F_ProdNo=20261122001 where F_ProdNo=3001");
  clsEntBOrdChange e = Request();
  e.NewQty = 120.25;
  e.NewBkQty = 0;
  e.NewDate = Date::FromParts(2026, 12, 15, 8, 30, 0);
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 20261122001, "boss", 2, 0), 1);
  EXPECT_EQ(Commands(),
            (Texts{LineSelect("20261122001"), CheckListSelect("20261122001"),
                   CheckListUpdate("120.25", "2026-12-15 08:30:00", "20261122001"),
                   ProductionUpdate("120.25", "2026-12-15 08:30:00", "2", "20261122001"),
                   LineUpdate("120.25", "2026-12-15 08:30:00", "0", "2", "20261122001"),
                   Approve("boss", "20261122001", "20261103001")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_OrdQty,F_DeliverDate,F_BkQty from t_borderi where "
                      "F_ProdNo=20261122001"),
            (Rows{{"120.25", "2026-12-15 08:30:00", "0"}}));
  EXPECT_EQ(db().Scalar("select F_DeliverDate from t_porderchk where F_ProdNo=20261122001"),
            "2026-12-15 08:30:00");
}

TEST_F(OrdChangeApprovalTest, TheArgumentIIsNotUsed) {
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 0, 0), 1);
  const Texts first = Commands();
  Clear();
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 0, 31), 1);
  EXPECT_EQ(Commands(), first);
}

TEST_F(OrdChangeApprovalTest, AFailureOfTheFirstStatementChangesNothing) {
  db().Exec("drop table t_borderi");
  const Rows check_list = CheckList(), production = Production();
  clsEntBOrdChange e = Request();
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateBOrderiRecord(e, 3001, "boss", 0, 0), 0);
  EXPECT_EQ(Commands(), Texts{LineSelect("3001")});
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].text.find("doesn't exist"), std::string::npos);
  EXPECT_EQ(CheckList(), check_list);
  EXPECT_EQ(Production(), production);
  EXPECT_EQ(Requests()[0][3], "0");
}

}  // namespace
}  // namespace corvane
