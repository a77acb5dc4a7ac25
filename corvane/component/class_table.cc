// The table of the seventeen classes: each class's identifiers and its
// methods in slot order, with the names of their arguments and whether each
// is passed by value (kVal) or by reference (kRef). The argument and result
// types come from the C++ signatures (binding.h).
#include <memory>

#include "corvane/component/binding.h"
#include "corvane/component/method_table.h"
#include "corvane/corvane.h"

namespace corvane::component {
namespace {

template <class C>
ClassInfo Class(std::string_view name, const CLSID& clsid, const IID& iid,
                std::vector<MethodInfo> methods) {
  return ClassInfo{name, &clsid, &iid, std::move(methods),
                   []() -> std::shared_ptr<void> { return std::make_shared<C>(); }};
}

std::vector<ClassInfo> MakeClasses() {
  std::vector<ClassInfo> classes;
  classes.push_back(Class<clsDataBOrderh>(
      "clsDataBOrderh", CLSID_clsDataBOrderh, IID__clsDataBOrderh,
      {
          Bind<&clsDataBOrderh::QueryForPreMoney, kRef>::Info("QueryForPreMoney", {"Entity"}),
          Bind<&clsDataBOrderh::UpdateRecord, kRef>::Info("UpdateRecord", {"Entity"}),
          Bind<&clsDataBOrderh::UpdateApprove, kRef, kRef>::Info("UpdateApprove",
                                                                 {"Approve", "OrderNo"}),
          Bind<&clsDataBOrderh::UpdateChecke, kRef, kRef>::Info("UpdateChecke",
                                                                {"Checker", "OrderNo"}),
          Bind<&clsDataBOrderh::ServerDate>::Info("ServerDate", {}),
          Bind<&clsDataBOrderh::QueryTF>::Info("QueryTF", {}),
          Bind<&clsDataBOrderh::QueryChkitemiNo, kRef>::Info("QueryChkitemiNo", {"objQitemh"}),
          Bind<&clsDataBOrderh::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBOrderh::QueryAllRecord, kRef>::Info("QueryAllRecord", {"objColl"}),
          Bind<&clsDataBOrderh::QueryAllRecordPre, kRef, kRef, kRef>::Info(
              "QueryAllRecordPre", {"objColl", "StrDate", "UserId"}),
          Bind<&clsDataBOrderh::QueryOrderNoRecord, kRef>::Info("QueryOrderNoRecord", {"Entity"}),
          Bind<&clsDataBOrderh::QueryMonthDate, kRef, kRef>::Info("QueryMonthDate",
                                                                  {"objColl", "UserId"}),
          Bind<&clsDataBOrderh::UpdateAddSitemNo>::Info("UpdateAddSitemNo", {}),
          Bind<&clsDataBOrderh::DeleteRecord, kRef>::Info("DeleteRecord", {"Entity"}),
      }));
  classes.push_back(Class<clsDataBOrderi>(
      "clsDataBOrderi", CLSID_clsDataBOrderi, IID__clsDataBOrderi,
      {
          Bind<&clsDataBOrderi::QueryBkQty, kRef>::Info("QueryBkQty", {"Entity"}),
          Bind<&clsDataBOrderi::UpdateNo, kRef>::Info("UpdateNo", {"Entity"}),
          Bind<&clsDataBOrderi::QueryByID, kRef>::Info("QueryByID", {"Entity"}),
          Bind<&clsDataBOrderi::DeleteAllRecorder, kRef>::Info("DeleteAllRecorder", {"OrderNo"}),
          Bind<&clsDataBOrderi::DeleteBOrderi, kRef>::Info("DeleteBOrderi", {"Entityi"}),
          Bind<&clsDataBOrderi::QueryAllRecord, kRef, kRef>::Info("QueryAllRecord",
                                                                  {"objColl", "OrderNo"}),
          Bind<&clsDataBOrderi::AddBOrderi, kRef>::Info("AddBOrderi", {"Entityi"}),
          Bind<&clsDataBOrderi::UpdateRecord, kRef>::Info("UpdateRecord", {"Entity"}),
          Bind<&clsDataBOrderi::QueryOutQtyProdNo, kRef>::Info("QueryOutQtyProdNo", {"Entity"}),
          Bind<&clsDataBOrderi::QueryByProdNo, kRef>::Info("QueryByProdNo", {"Entity"}),
          Bind<&clsDataBOrderi::UpdateRecordByProdNo, kRef>::Info("UpdateRecordByProdNo",
                                                                  {"Entity"}),
          Bind<&clsDataBOrderi::QueryBuyForMreqBuy, kRef>::Info("QueryBuyForMreqBuy",
                                                                {"collAllNeedPurItem"}),
          Bind<&clsDataBOrderi::QueryOutForOrder, kRef, kRef, kRef>::Info(
              "QueryOutForOrder", {"collAllNeedOutItem", "CardCode", "OrderNo"}),
          Bind<&clsDataBOrderi::UpdateFCorLC, kRef>::Info("UpdateFCorLC", {"OrderNo"}),
      }));
  classes.push_back(Class<clsDataBOrderType>(
      "clsDataBOrderType", CLSID_clsDataBOrderType, IID__clsDataBOrderType,
      {
          Bind<&clsDataBOrderType::QueryAll, kRef>::Info("QueryAll", {"objColl"}),
          Bind<&clsDataBOrderType::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBOrderType::DeleteRecord, kRef>::Info("DeleteRecord", {"Entity"}),
          Bind<&clsDataBOrderType::UpdateRecord, kRef, kRef>::Info("UpdateRecord",
                                                                   {"Entity", "PrdNo"}),
      }));
  classes.push_back(Class<clsDataBOrdChange>(
      "clsDataBOrdChange", CLSID_clsDataBOrdChange, IID__clsDataBOrdChange,
      {
          Bind<&clsDataBOrdChange::QueryQty>::Info("QueryQty", {}),
          Bind<&clsDataBOrdChange::QueryNewQty, kRef>::Info("QueryNewQty", {"ProdNo"}),
          Bind<&clsDataBOrdChange::UpdateBOrderiRecord, kRef, kRef, kRef, kRef, kRef>::Info(
              "UpdateBOrderiRecord", {"Entity", "ProdNo", "Username", "status", "i"}),
          Bind<&clsDataBOrdChange::UpdateRecord, kRef>::Info("UpdateRecord", {"Entity"}),
          Bind<&clsDataBOrdChange::QueryMonthDate, kRef>::Info("QueryMonthDate", {"objColl"}),
          Bind<&clsDataBOrdChange::QueryTF>::Info("QueryTF", {}),
          Bind<&clsDataBOrdChange::QueryChkitemiNo, kRef>::Info("QueryChkitemiNo", {"objQitemh"}),
          Bind<&clsDataBOrdChange::QueryUpNo, kRef>::Info("QueryUpNo", {"objColl"}),
          Bind<&clsDataBOrdChange::QueryRecord, kRef>::Info("QueryRecord", {"Entity"}),
          Bind<&clsDataBOrdChange::UpdateAddSitemNo>::Info("UpdateAddSitemNo", {}),
          Bind<&clsDataBOrdChange::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBOrdChange::DeleteRecord, kRef>::Info("DeleteRecord", {"Entity"}),
      }));
  classes.push_back(Class<clsDataBPriceh>(
      "clsDataBPriceh", CLSID_clsDataBPriceh, IID__clsDataBPriceh,
      {
          Bind<&clsDataBPriceh::QueryPrice, kRef, kRef, kRef>::Info(
              "QueryPrice", {"objColl", "CustNo", "QuotNo"}),
          Bind<&clsDataBPriceh::QueryMaxItem, kRef>::Info("QueryMaxItem", {"maxitem"}),
          Bind<&clsDataBPriceh::QueryCurrencyName, kRef, kVal>::Info("QueryCurrencyName",
                                                                     {"Entity", "CurrencyID"}),
          Bind<&clsDataBPriceh::QueryCurrencyID, kRef, kVal>::Info("QueryCurrencyID",
                                                                   {"Entity", "CurrencyName"}),
          Bind<&clsDataBPriceh::AddRecord, kRef, kRef, kRef>::Info(
              "AddRecord", {"Entity", "strTableName", "Istatus"}),
          Bind<&clsDataBPriceh::UpdateFlags, kRef>::Info("UpdateFlags", {"OrderNo"}),
          Bind<&clsDataBPriceh::UpdateApprove, kRef, kRef>::Info("UpdateApprove",
                                                                 {"Approve", "OrderNo"}),
          Bind<&clsDataBPriceh::UpdateChecke, kRef, kRef>::Info("UpdateChecke",
                                                                {"Checker", "OrderNo"}),
          Bind<&clsDataBPriceh::UpdateRecord, kRef, kRef>::Info("UpdateRecord",
                                                                {"Entity", "QuotNo"}),
          Bind<&clsDataBPriceh::QueryMaxItemDelete, kRef, kVal>::Info(
              "QueryMaxItemDelete", {"maxitemdelete", "currentdate"}),
          Bind<&clsDataBPriceh::DeleteRecord, kRef, kVal, kVal>::Info(
              "DeleteRecord", {"Entity", "DeleteStatus", "strTableName"}),
          Bind<&clsDataBPriceh::QueryAllCustNo, kRef, kRef>::Info("QueryAllCustNo",
                                                                  {"CollALL", "UserId"}),
          Bind<&clsDataBPriceh::QueryAlldetaile, kRef, kRef>::Info("QueryAlldetaile",
                                                                   {"CollALL2", "CustNo"}),
          Bind<&clsDataBPriceh::GetItemByID, kRef>::Info("GetItemByID", {"Entity"}),
      }));
  classes.push_back(Class<clsDataBPricei>(
      "clsDataBPricei", CLSID_clsDataBPricei, IID__clsDataBPricei,
      {
          Bind<&clsDataBPricei::QueryPrice, kRef, kRef>::Info("QueryPrice", {"objColl", "PItemNo"}),
          Bind<&clsDataBPricei::QueryBPricei, kRef, kVal, kRef>::Info(
              "QueryBPricei", {"Entity", "QuotNo", "collBPricei"}),
          Bind<&clsDataBPricei::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBPricei::UpdateRecord, kRef, kVal, kVal>::Info(
              "UpdateRecord", {"Entity", "QuotNo", "varItemNo"}),
          Bind<&clsDataBPricei::DeleteRecord, kRef, kVal>::Info("DeleteRecord",
                                                                {"Entity", "QuotNo"}),
      }));
  classes.push_back(Class<clsDataBPriceAttach>(
      "clsDataBPriceAttach", CLSID_clsDataBPriceAttach, IID__clsDataBPriceAttach,
      {
          Bind<&clsDataBPriceAttach::ReadAttach, kRef, kVal, kVal>::Info(
              "ReadAttach", {"AttachArray", "ItemNo", "QuotNo"}),
          Bind<&clsDataBPriceAttach::GetAttach, kVal, kVal>::Info("GetAttach",
                                                                  {"ItemNo", "QuotNo"}),
          Bind<&clsDataBPriceAttach::AddAttach, kVal, kVal, kVal, kVal>::Info(
              "AddAttach", {"FilePath", "FileName", "ItemNo", "QuotNo"}),
          Bind<&clsDataBPriceAttach::DelAttach, kVal, kVal>::Info("DelAttach",
                                                                  {"ItemNo", "QuotNo"}),
      }));
  classes.push_back(Class<clsDataBOutMakeh>(
      "clsDataBOutMakeh", CLSID_clsDataBOutMakeh, IID__clsDataBOutMakeh,
      {
          Bind<&clsDataBOutMakeh::ChkNoByProviderName, kVal, kVal>::Info(
              "ChkNoByProviderName", {"OrderoutNo", "ProviderName"}),
          Bind<&clsDataBOutMakeh::QueryChkItem, kRef>::Info("QueryChkItem", {"Entity"}),
          Bind<&clsDataBOutMakeh::QueryMaxItem, kRef>::Info("QueryMaxItem", {"maxitem"}),
          Bind<&clsDataBOutMakeh::QueryOrderoutNo, kRef, kVal>::Info("QueryOrderoutNo",
                                                                     {"Entity", "OrderoutDate"}),
          Bind<&clsDataBOutMakeh::QueryDateTime>::Info("QueryDateTime", {}),
          Bind<&clsDataBOutMakeh::QueryStatus, kRef>::Info("QueryStatus", {"Entity"}),
          Bind<&clsDataBOutMakeh::AddRecord, kRef, kRef, kRef>::Info(
              "AddRecord", {"Entity", "strTableName", "Istatus"}),
          Bind<&clsDataBOutMakeh::UpdateRecord, kRef, kRef, kVal>::Info(
              "UpdateRecord", {"Entity", "OrderoutNo", "UpdateCondition"}),
          Bind<&clsDataBOutMakeh::QueryMaxItemDelete, kRef, kVal>::Info(
              "QueryMaxItemDelete", {"maxitemdelete", "currentdate"}),
          Bind<&clsDataBOutMakeh::DeleteRecord, kRef, kVal, kVal>::Info(
              "DeleteRecord", {"Entity", "DeleteStatus", "strTableName"}),
          Bind<&clsDataBOutMakeh::QueryLasted12month, kRef, kRef>::Info("QueryLasted12month",
                                                                        {"objcollMonth", "UserId"}),
          Bind<&clsDataBOutMakeh::QueryMonthItem, kRef, kRef, kRef>::Info(
              "QueryMonthItem", {"objcollMonthItem", "OutMonth", "UserId"}),
      }));
  classes.push_back(Class<clsDataBOutMakei>(
      "clsDataBOutMakei", CLSID_clsDataBOutMakei, IID__clsDataBOutMakei,
      {
          Bind<&clsDataBOutMakei::QueryByProdNo, kRef, kVal>::Info("QueryByProdNo",
                                                                   {"colBOutMakei", "dblProdNo"}),
          Bind<&clsDataBOutMakei::QueryBOutMakei, kRef, kVal, kRef>::Info(
              "QueryBOutMakei", {"Entity", "OrderoutNo", "collBOutMakei"}),
          Bind<&clsDataBOutMakei::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBOutMakei::UpdateRecord, kRef, kVal, kVal>::Info(
              "UpdateRecord", {"Entity", "OrderoutNo", "ProdNo"}),
          Bind<&clsDataBOutMakei::DeleteRecord, kVal, kVal>::Info("DeleteRecord",
                                                                  {"OrderoutNo", "Entity"}),
          Bind<&clsDataBOutMakei::ChkInputCount, kRef>::Info("ChkInputCount", {"Entity"}),
          Bind<&clsDataBOutMakei::ChkProdNobyOrderOutNo, kRef>::Info("ChkProdNobyOrderOutNo",
                                                                     {"Entity"}),
          Bind<&clsDataBOutMakei::QueryProdNo, kRef, kVal>::Info("QueryProdNo",
                                                                 {"clsEntBOutMakei", "ProdNo"}),
      }));
  classes.push_back(Class<clsDataBCosth>(
      "clsDataBCosth", CLSID_clsDataBCosth, IID__clsDataBCosth,
      {
          Bind<&clsDataBCosth::GetBCostBySql, kRef, kVal>::Info("GetBCostBySql",
                                                                {"Entity", "strSql"}),
          Bind<&clsDataBCosth::DeleteRecord, kRef>::Info("DeleteRecord", {"Entity"}),
          Bind<&clsDataBCosth::UpdateRecord, kRef>::Info("UpdateRecord", {"Entity"}),
          Bind<&clsDataBCosth::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBCosth::QueryMaxEstNo, kRef, kRef>::Info("QueryMaxEstNo",
                                                                {"mydate", "maxEstNo"}),
          Bind<&clsDataBCosth::QueryDate, kRef>::Info("QueryDate", {"mydate"}),
          Bind<&clsDataBCosth::QueryByEstNo, kRef>::Info("QueryByEstNo", {"Entity"}),
          Bind<&clsDataBCosth::QueryEstNoByItemNo, kRef, kVal, kRef>::Info(
              "QueryEstNoByItemNo", {"dblBCosthEstNo", "strItemNo", "UserId"}),
          Bind<&clsDataBCosth::QueryItemNo, kRef, kRef>::Info("QueryItemNo",
                                                              {"strBCosthItemNo", "UserId"}),
          Bind<&clsDataBCosth::QueryAll, kRef>::Info("QueryAll", {"colBCosth"}),
      }));
  classes.push_back(Class<clsDataBCosti>(
      "clsDataBCosti", CLSID_clsDataBCosti, IID__clsDataBCosti,
      {
          Bind<&clsDataBCosti::DeleteRecord, kRef>::Info("DeleteRecord", {"Entity"}),
          Bind<&clsDataBCosti::UpdateRecord, kRef>::Info("UpdateRecord", {"Entity"}),
          Bind<&clsDataBCosti::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBCosti::QueryAll, kRef, kRef>::Info("QueryAll", {"colBCosti", "dblEstNo"}),
          Bind<&clsDataBCosti::QueryByEstNo, kRef>::Info("QueryByEstNo", {"Entity"}),
      }));
  classes.push_back(Class<clsDataBCosts>(
      "clsDataBCosts", CLSID_clsDataBCosts, IID__clsDataBCosts,
      {
          Bind<&clsDataBCosts::DeleteRecord, kRef>::Info("DeleteRecord", {"Entity"}),
          Bind<&clsDataBCosts::UpdateRecord, kRef>::Info("UpdateRecord", {"Entity"}),
          Bind<&clsDataBCosts::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBCosts::QueryByEstNoWage, kRef>::Info("QueryByEstNoWage", {"Entity"}),
          Bind<&clsDataBCosts::QueryByEstNo, kRef, kRef>::Info("QueryByEstNo",
                                                               {"colBCosts", "dblEstNo"}),
      }));
  classes.push_back(Class<clsDataBWageSort>(
      "clsDataBWageSort", CLSID_clsDataBWageSort, IID__clsDataBWageSort,
      {
          Bind<&clsDataBWageSort::DeleteRecord, kRef>::Info("DeleteRecord", {"Entity"}),
          Bind<&clsDataBWageSort::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBWageSort::QueryByGoodType, kRef, kRef>::Info(
              "QueryByGoodType", {"colBWageSort", "strGoodType"}),
      }));
  classes.push_back(Class<clsDataBCustom>(
      "clsDataBCustom", CLSID_clsDataBCustom, IID__clsDataBCustom,
      {
          Bind<&clsDataBCustom::QueryByStrSql, kVal, kRef, kRef>::Info(
              "QueryByStrSql", {"strSql", "objCollSql", "UserId"}),
          Bind<&clsDataBCustom::queryBCustom, kRef>::Info("queryBCustom", {"Entity"}),
          Bind<&clsDataBCustom::QueryAllCustNo, kRef>::Info("QueryAllCustNo", {"CollALL"}),
          Bind<&clsDataBCustom::QueryAllByGroupCode, kRef, kRef>::Info("QueryAllByGroupCode",
                                                                       {"colBCustom", "GroupCode"}),
          Bind<&clsDataBCustom::QueryAll, kRef, kRef>::Info("QueryAll", {"colBCustom", "UserId"}),
          Bind<&clsDataBCustom::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBCustom::QueryBCustNo, kRef>::Info("QueryBCustNo", {"Entity"}),
          Bind<&clsDataBCustom::QueryArea, kRef, kRef>::Info("QueryArea", {"ColArea", "CustNo"}),
          Bind<&clsDataBCustom::DeleteRecord, kRef>::Info("DeleteRecord", {"Entity"}),
          Bind<&clsDataBCustom::UpdateRecord, kRef, kRef>::Info("UpdateRecord",
                                                                {"Entity", "CustNo"}),
      }));
  classes.push_back(Class<clsDataBSaler>(
      "clsDataBSaler", CLSID_clsDataBSaler, IID__clsDataBSaler,
      {
          Bind<&clsDataBSaler::QueryByID, kRef>::Info("QueryByID", {"Entity"}),
          Bind<&clsDataBSaler::QueryAll, kRef>::Info("QueryAll", {"colSaler"}),
          Bind<&clsDataBSaler::AddRecord, kRef>::Info("AddRecord", {"Entity"}),
          Bind<&clsDataBSaler::UpdateRecord, kRef, kRef>::Info("UpdateRecord",
                                                               {"Entity", "TempId"}),
          Bind<&clsDataBSaler::DeleteRecord, kRef>::Info("DeleteRecord", {"Entity"}),
          Bind<&clsDataBSaler::QuerySalerName, kRef, kRef>::Info("QuerySalerName",
                                                                 {"colSaler", "SalerID"}),
      }));
  classes.push_back(Class<clsDataBCStudy>(
      "clsDataBCStudy", CLSID_clsDataBCStudy, IID__clsDataBCStudy,
      {
          Bind<&clsDataBCStudy::QueryMaxItem, kRef>::Info("QueryMaxItem", {"maxitem"}),
          Bind<&clsDataBCStudy::QueryMaxItemDelete, kRef, kVal>::Info(
              "QueryMaxItemDelete", {"maxitemdelete", "currentdate"}),
          Bind<&clsDataBCStudy::AddRecord, kRef, kRef, kRef>::Info(
              "AddRecord", {"Entity", "strTableName", "Istatus"}),
          Bind<&clsDataBCStudy::UpdateRecord, kRef, kVal>::Info("UpdateRecord",
                                                                {"Entity", "InvestNo"}),
          Bind<&clsDataBCStudy::DeleteRecord, kRef, kVal, kVal>::Info(
              "DeleteRecord", {"Entity", "DeleteStatus", "strTableName"}),
          Bind<&clsDataBCStudy::QueryAll, kRef>::Info("QueryAll", {"CollALL"}),
          Bind<&clsDataBCStudy::QueryAlldetaile, kRef, kRef>::Info("QueryAlldetaile",
                                                                   {"CollALL2", "CustName"}),
          Bind<&clsDataBCStudy::BackEntity, kVal, kRef>::Info("BackEntity",
                                                              {"Entity", "Chooseitem"}),
          Bind<&clsDataBCStudy::QueryCondition, kRef, kRef, kRef>::Info(
              "QueryCondition", {"InvestnoDate", "TableName", "Entity"}),
          Bind<&clsDataBCStudy::QueryDate>::Info("QueryDate", {}),
      }));
  classes.push_back(Class<clsDataBSample>(
      "clsDataBSample", CLSID_clsDataBSample, IID__clsDataBSample,
      {
          Bind<&clsDataBSample::GetSampleRecord, kRef>::Info("GetSampleRecord", {"Entity"}),
          Bind<&clsDataBSample::QueryMaxItem, kRef>::Info("QueryMaxItem", {"maxitem"}),
          Bind<&clsDataBSample::QueryEGoodsType, kRef>::Info("QueryEGoodsType", {"CollEGoodsType"}),
          Bind<&clsDataBSample::AddRecord, kVal, kVal, kVal, kVal>::Info(
              "AddRecord", {"Entity", "strTableName", "Istatus", "currentdate"}),
          Bind<&clsDataBSample::UpdateRecord, kRef, kVal>::Info("UpdateRecord",
                                                                {"Entity", "NumNo"}),
          Bind<&clsDataBSample::QueryMaxItemDelete, kRef, kVal>::Info(
              "QueryMaxItemDelete", {"maxitemdelete", "currentdate"}),
          Bind<&clsDataBSample::DeleteRecord, kRef, kVal, kVal>::Info(
              "DeleteRecord", {"Entity", "DeleteStatus", "strTableName"}),
          Bind<&clsDataBSample::QueryAllCustmo, kRef>::Info("QueryAllCustmo", {"CollALL"}),
          Bind<&clsDataBSample::QueryAlldetaile, kRef, kRef>::Info("QueryAlldetaile",
                                                                   {"CollALL2", "NumNo"}),
          Bind<&clsDataBSample::QueryCondition, kRef, kRef, kRef>::Info(
              "QueryCondition", {"InvestnoDate", "TableName", "Entity"}),
      }));
  return classes;
}

}  // namespace

const std::vector<ClassInfo>& Classes() {
  static const std::vector<ClassInfo> classes = MakeClasses();
  return classes;
}

}  // namespace corvane::component
