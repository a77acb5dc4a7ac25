// The corvane tool run as a script runs it, against a fresh database on the
// sandbox server: calls of each subsystem with their exact JSON output and
// exit status, the statements of --trace, the registry, and usage errors.
#include <dlfcn.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"
#include "tests/cli/run.h"
#include "tests/support/sandbox.h"

namespace corvane::testing {
namespace {

using Json = nlohmann::ordered_json;
using Strings = std::vector<std::string>;

// The output the tool prints for that JSON.
std::string Printed(const std::string& json) { return Json::parse(json).dump(2) + "\n"; }

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// Every property of the entity class at its empty value, then the values given.
Json Entity(const char* name, const Json& values = Json::object()) {
  const automation::EntityInfo* info = automation::FindEntity(name);
  Json out = Json::object();
  for (const automation::PropertyInfo& p : info->properties) {
    if (p.type == VT_BSTR) out[p.name] = "";
    if (p.type == VT_R8 || p.type == VT_I2 || p.type == VT_I4) out[p.name] = 0;
    if (p.type == VT_DATE) out[p.name] = "1899-12-30";
  }
  for (const auto& [key, value] : values.items()) {
    EXPECT_TRUE(out.contains(key)) << key;
    out[key] = value;
  }
  return out;
}

class Cli : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    folder_ = std::filesystem::temp_directory_path() /
              ("corvane-cli-" + database());
    std::filesystem::create_directories(folder_);
    registry_ = (folder_ / "registry.json").string();
  }
  void TearDown() override {
    std::filesystem::remove_all(folder_);
    SandboxTest::TearDown();
  }

  std::string Connection() const {
    return ServerAddress::FromEnvironment().ConnectionText(database());
  }
  // No registry, the module named by CORVANE_COMPONENT.
  Strings Env() const {
    return {"CORVANE_REGISTRY=" + registry_, "CORVANE_COMPONENT=" CORVANE_COMPONENT_PATH,
            "CORVANE_CONNECT=", "XDG_DATA_HOME="};
  }
  Outcome Call(Strings args) {
    args.insert(args.begin(), {"call", "--connect", Connection()});
    return RunTool(args, Env());
  }

  std::filesystem::path folder_;
  std::string registry_;
};

TEST_F(Cli, OrdersOrderTypeAddedThenListedWithTheStatementsSent) {
  Outcome added = Call({"clsDataBOrderType", "AddRecord", R"({"OrderType":"Export"})"});
  EXPECT_EQ(added.status, 0) << added.err;
  EXPECT_EQ(added.out, Printed(R"({"result": 1, "args": {"Entity": {"OrderType": "Export"}},
                                   "reports": []})"));
  EXPECT_EQ(db().Rows("select F_OrderType from T_BOrderType"),
            (std::vector<Strings>{{"Export"}}));

  db().Exec("insert into T_BOrderType values ('Domestic')");
  Outcome listed = Call({"--trace", "clsDataBOrderType", "QueryAll"});
  EXPECT_EQ(listed.status, 0) << listed.err;
  EXPECT_EQ(listed.out, Printed(R"({"result": 0,
      "args": {"objColl": [{"OrderType": "Domestic"}, {"OrderType": "Export"}]},
      "reports": [],
      "statements": [{"kind": "command", "text": "Select * From T_BOrderType "}]})"));
  EXPECT_EQ(listed.err, "");
}

TEST_F(Cli, OrdersAddOfAnExistingTypeAndARefusedDeleteRunWithTheirResults) {
  db().Exec("insert into T_BOrderType values ('Export')");
  Outcome again = Call({"clsDataBOrderType", "addrecord", R"({"ordertype":"Export"})"});
  EXPECT_EQ(again.status, 0);
  EXPECT_EQ(again.out, Printed(R"({"result": 2, "args": {"Entity": {"OrderType": "Export"}},
                                   "reports": []})"));
  // A failure of the method is a report and a result; the call still ran.
  Outcome missing = Call({"clsDataBOrderType", "DeleteRecord", R"({"OrderType":"None"})"});
  EXPECT_EQ(missing.status, 0);
  EXPECT_EQ(missing.out, Printed(R"({"result": 0, "args": {"Entity": {"OrderType": "None"}},
      "reports": [{"text": "Either BOF or EOF is True, or the current record has been deleted",
                   "style": 64, "title": "塔恩维克"}]})"));
}

TEST_F(Cli, OrdersApprovalTakesTextAndNumberByReference) {
  db().Exec("insert into T_BOrderh (F_OrderNo) values (20240315007)");
  Outcome approved = Call({"--trace", "clsDataBOrderh", "UpdateApprove", "boss", "20240315007"});
  EXPECT_EQ(approved.status, 0) << approved.err;
  EXPECT_EQ(approved.out, Printed(R"({"result": 1,
      "args": {"Approve": "boss", "OrderNo": 20240315007}, "reports": [],
      "statements": [{"kind": "command",
        "text": "update T_BOrderh set F_Approve='boss',F_ApproveTime=Now() where F_OrderNo=20240315007"}]})"));
  EXPECT_EQ(db().Scalar("select F_Approve from T_BOrderh"), "boss");
}

TEST_F(Cli, QuotationsCurrencyNameFillsTheEntity) {
  db().Exec("insert into t_scurrency values ('RMB', '人民币'), ('USD', 'US dollar')");
  Outcome found = Call({"--trace", "clsDataBPriceh", "QueryCurrencyName", "{}", "USD"});
  EXPECT_EQ(found.status, 0) << found.err;
  EXPECT_EQ(found.out, Printed(R"({"result": 1,
      "args": {"Entity": {"CurrencyID": "", "CurrencyName": "US dollar"}}, "reports": [],
      "statements": [{"kind": "command",
                      "text": "select * from t_scurrency where F_CurrencyID='USD'"}]})"));
  Outcome none = Call({"clsDataBPriceh", "QueryCurrencyName", R"({"CurrencyName":"old"})", "EUR"});
  EXPECT_EQ(none.out, Printed(R"({"result": 0,
      "args": {"Entity": {"CurrencyID": "", "CurrencyName": "old"}}, "reports": []})"));
}

TEST_F(Cli, OutsourceStatusOfAnOrder) {
  db().Exec("insert into t_boutmakeh (F_OrderoutNo, F_Flags) values (20261123001, 1)");
  Outcome status =
      Call({"--trace", "clsDataBOutMakeh", "QueryStatus", R"({"OrderoutNo": 20261123001})"});
  EXPECT_EQ(status.status, 0) << status.err;
  Json expected;
  expected["result"] = 1;
  expected["args"]["Entity"] = Entity("clsEntBOutMakeh", {{"OrderoutNo", 20261123001}});
  expected["reports"] = Json::array();
  expected["statements"] = Json::parse(R"([{"kind": "command",
      "text": "select F_Flags from t_boutmakeh where F_OrderOutNo ='20261123001'"}])");
  EXPECT_EQ(status.out, expected.dump(2) + "\n");
}

TEST_F(Cli, CostingPartsAndWageRatesAsCollections) {
  db().Exec(
      "insert into t_bcosti (F_EstNo, F_ItemNo, F_CurrencyID, F_Dosage, F_Waste, F_Price, "
      "F_CostPrice) values (20261123001, 'P1', 'RMB', 2, 0.5, 3.25, 7)");
  Outcome parts = Call({"--trace", "clsDataBCosti", "QueryAll", "[]", "20261123001"});
  EXPECT_EQ(parts.status, 0) << parts.err;
  EXPECT_EQ(parts.out, Printed(R"({"result": 1,
      "args": {"colBCosti": [{"EstNo": 20261123001, "ItemNo": "P1", "CurrencyID": "RMB",
                              "Dosage": 2, "Waste": 0.5, "Price": 3.25, "CostPrice": 7}],
               "dblEstNo": 20261123001},
      "reports": [],
      "statements": [{"kind": "command",
                      "text": "select * from T_BCosti where F_EstNo  = '20261123001'"}]})"));

  db().Exec("insert into t_bwagesort values ('G1', 'cut', 1.5), ('G1', 'weld', 2.25)");
  db().Exec("insert into T_EGoodsType (F_ID, F_GoodStype) values ('G1', 'chair')");
  // An item already in the caller's collection stays; the rows follow it.
  Outcome wages = Call({"clsDataBWageSort", "QueryByGoodType",
                        R"([{"ID": "G0", "WageItem": "kept", "Wage": 1}])", "chair"});
  EXPECT_EQ(wages.status, 0) << wages.err;
  EXPECT_EQ(wages.out, Printed(R"({"result": 1,
      "args": {"colBWageSort": [{"ID": "G0", "WageItem": "kept", "Wage": 1},
                                {"ID": "G1", "WageItem": "cut", "Wage": 1.5},
                                {"ID": "G1", "WageItem": "weld", "Wage": 2.25}],
               "strGoodType": "chair"},
      "reports": []})"));
}

TEST_F(Cli, CostingDateLeftOutIsPassedEmpty) {
  Outcome none = Call({"--trace", "clsDataBCosth", "QueryDate"});
  EXPECT_EQ(none.status, 0) << none.err;
  EXPECT_EQ(none.out, Printed(R"({"result": 0, "args": {"mydate": "1899-12-30"}, "reports": [],
      "statements": [{"kind": "command",
                      "text": "select * from T_BCosth where F_EstDate = '1899-12-30'"}]})"));
}

TEST_F(Cli, CustomersSalesPersonAddedWithItsRowChangeAndReadBack) {
  Outcome added =
      Call({"--trace", "clsDataBSaler", "AddRecord", R"({"SalerId": "S01", "Saler_1st": "王"})"});
  EXPECT_EQ(added.status, 0) << added.err;
  Json expected = Json::parse(R"({"result": 1,
      "args": {"Entity": {"SalerId": "S01", "Saler_1st": "王", "Saler_m": "", "Saler_last": ""}},
      "reports": [],
      "statements": [{"kind": "command", "text": "select * from T_BSaler where F_SalerId= 'S01'"},
                     {"kind": "command", "text": "select * from T_BSaler"}]})");
  // The row change names the database, which is this test's own, in the
  // server's lower case.
  Json sent = Json::parse(added.out);
  ASSERT_EQ(sent["statements"].size(), 3u) << added.out;
  expected["statements"].push_back(
      {{"kind", "row change"},
       {"text", "INSERT INTO `" + Lower(database()) +
                    "`.`t_bsaler` (`F_SalerId`,`F_Saler_1st`) VALUES ('S01','王')"}});
  EXPECT_EQ(added.out, expected.dump(2) + "\n");
  EXPECT_EQ(db().Rows("select F_SalerId, F_Saler_1st, F_Saler_m from t_bsaler"),
            (std::vector<Strings>{{"S01", "王", "NULL"}}));

  Outcome read = Call({"clsDataBSaler", "QueryByID", R"({"SalerId": "S01"})"});
  EXPECT_EQ(read.out, Printed(R"({"result": 1,
      "args": {"Entity": {"SalerId": "S01", "Saler_1st": "王", "Saler_m": "", "Saler_last": ""}},
      "reports": []})"));
}

TEST_F(Cli, TheRegisteredModuleAndTypeLibraryAreUsed) {
  void* module = dlopen(CORVANE_COMPONENT_PATH, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(module, nullptr) << dlerror();
  auto register_server =
      reinterpret_cast<CorvaneDllRegisterServerFn>(dlsym(module, "DllRegisterServer"));
  ASSERT_NE(register_server, nullptr);
  setenv("CORVANE_REGISTRY", registry_.c_str(), 1);
  ASSERT_EQ(register_server(), S_OK);
  unsetenv("CORVANE_REGISTRY");
  ASSERT_TRUE(std::filesystem::exists(registry_));

  // Nothing beside a copy of the tool and no CORVANE_COMPONENT: only the
  // registry can lead to the module.
  const std::filesystem::path tool = folder_ / "corvane";
  std::filesystem::copy_file(CORVANE_CLI_PATH, tool);
  db().Exec("insert into T_BOrderType values ('Export')");
  const Strings env{"CORVANE_REGISTRY=" + registry_, "CORVANE_COMPONENT=",
                    "CORVANE_CONNECT=" + Connection()};
  Outcome listed = RunToolAt(tool.string(), {"call", "Corvane.clsDataBOrderType", "QueryAll"}, env);
  EXPECT_EQ(listed.status, 0) << listed.err;
  EXPECT_EQ(listed.out, Printed(R"({"result": 0, "args": {"objColl": [{"OrderType": "Export"}]},
                                    "reports": []})"));
  Outcome list = RunToolAt(tool.string(), {"list"}, env);
  EXPECT_EQ(list.status, 0) << list.err;
  const Json classes = Json::parse(list.out)["classes"];
  ASSERT_EQ(classes.size(), 17u);
  EXPECT_EQ(classes[2]["name"], "clsDataBOrderType");
  EXPECT_EQ(classes[2]["progid"], "Corvane.clsDataBOrderType");
  EXPECT_EQ(classes[2]["clsid"], "{F2CDF3A6-2DEE-5A35-B31E-A58E0E18BDE4}");
  EXPECT_EQ(classes[2]["methods"],
            Json::parse(R"(["QueryAll", "AddRecord", "DeleteRecord", "UpdateRecord"])"));

  // Unregistered, the copy finds no module.
  auto unregister_server =
      reinterpret_cast<CorvaneDllUnregisterServerFn>(dlsym(module, "DllUnregisterServer"));
  setenv("CORVANE_REGISTRY", registry_.c_str(), 1);
  ASSERT_EQ(unregister_server(), S_OK);
  unsetenv("CORVANE_REGISTRY");
  Outcome lost = RunToolAt(tool.string(), {"call", "clsDataBOrderType", "QueryAll"}, env);
  EXPECT_EQ(lost.status, 1);
  EXPECT_EQ(lost.out, "");
  EXPECT_NE(lost.err.find("no component module"), std::string::npos) << lost.err;
}

TEST_F(Cli, DescribeShowsTheMethodsAndTheEntitiesTheyTake) {
  Outcome described = RunTool({"describe", "clsDataBWageSort"}, Env());
  EXPECT_EQ(described.status, 0) << described.err;
  const Json doc = Json::parse(described.out);
  EXPECT_EQ(doc["interface"]["name"], "_clsDataBWageSort");
  ASSERT_EQ(doc["interface"]["methods"].size(), 3u);
  EXPECT_EQ(doc["interface"]["methods"][2], Json::parse(R"({"name": "QueryByGoodType",
      "dispid": 3, "slot": 9, "result": "I2",
      "args": [{"name": "colBWageSort", "type": "COLLECTION", "byref": true,
                "entity": "clsEntBWageSort"},
               {"name": "strGoodType", "type": "BSTR", "byref": true}]})"));
  EXPECT_EQ(doc["entities"], Json::parse(R"([{"name": "clsEntBWageSort", "properties": [
      {"name": "ID", "type": "BSTR"}, {"name": "WageItem", "type": "BSTR"},
      {"name": "Wage", "type": "R8"}]}])"));
  Outcome entity = RunTool({"describe", "clsEntBCosts"}, Env());
  EXPECT_EQ(entity.out, Printed(R"({"name": "clsEntBCosts", "properties": [
      {"name": "EstNo", "type": "R8"}, {"name": "WageItem", "type": "BSTR"},
      {"name": "Wage", "type": "R8"}]})"));
}

TEST_F(Cli, UsageErrorsExitWithTwoAndSayWhy) {
  const struct {
    Strings args;
    std::string message;
  } cases[] = {
      {{"call", "clsDataBNothing", "QueryAll"}, "corvane: no class clsDataBNothing in "},
      {{"call", "clsDataBOrderType", "QueryNothing"},
       "corvane: clsDataBOrderType has no method QueryNothing\n"},
      {{"call", "clsDataBOrderType", "AddRecord", R"({"Name": "x"})"},
       "corvane: argument Entity: clsEntBOrderType has no property Name\n"},
      {{"call", "clsDataBOrderType", "AddRecord", "[1]"},
       "corvane: argument Entity: expected an object of clsEntBOrderType, got [1]\n"},
      {{"call", "clsDataBOrderType", "QueryAll", "[]", "x"},
       "corvane: QueryAll takes 1 argument(s), 2 given\n"},
      {{"call", "clsDataBCosti", "QueryAll", "[]", "twelve"},
       "corvane: argument dblEstNo (R8): no JSON: twelve\n"},
      {{"call", "clsDataBCosti", "QueryAll", "[]", R"("twelve")"},
       "corvane: argument dblEstNo (R8): Type mismatch for \"twelve\"\n"},
      {{"call", "clsDataBOutMakei", "DeleteRecord"},
       "corvane: missing argument OrderoutNo (R8)\n"},
      {{"call", "clsDataBOrderType"}, "METHOD is required"},
      {{}, "A subcommand is required"},
  };
  for (const auto& c : cases) {
    Strings args = c.args;
    if (!args.empty()) args.insert(args.begin() + 1, {"--connect", Connection()});
    const Outcome o = RunTool(args, Env());
    EXPECT_EQ(o.status, 2) << c.message;
    EXPECT_EQ(o.out, "") << c.message;
    EXPECT_NE(o.err.find(c.message), std::string::npos) << o.err;
  }
}

TEST_F(Cli, AModuleThatIsNotThereEndsWithOne) {
  Outcome o = RunTool({"call", "clsDataBOrderType", "QueryAll"},
                      {"CORVANE_REGISTRY=" + registry_, "CORVANE_COMPONENT=/nonexistent/module.so"});
  EXPECT_EQ(o.status, 1);
  EXPECT_EQ(o.err, "corvane: CORVANE_COMPONENT names no file: /nonexistent/module.so\n");
}

}  // namespace
}  // namespace corvane::testing
