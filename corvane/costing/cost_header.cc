// Cost estimate headers.
#include "corvane/costing/cost_header.h"

#include <utility>

#include "corvane/rights/data_rights.h"

namespace corvane {

void clsDataBCosth::ReadEstDateToSalePrice(clsEntBCosth& e) {
  e.EstDate = Nz("F_EstDate", 0).CDate();
  e.ItemNo = Nz("F_ItemNo", "").CStr();
  e.CustNo = Nz("F_CustNo", "").CStr();
  e.Remark = Nz("F_Remark", "").CStr();
  e.Tabler = Nz("F_Tabler", 0).CStr();  // a null reads as "0"
  e.TableTime = Nz("F_TableTime", 0).CDate();
  e.CurrencyID = Nz("F_CurrencyID", 0).CStr();  // a null reads as "0"
  e.PartCost = Nz("F_PartCost", 0).CDbl();
  e.WageCost = Nz("F_WageCost", 0).CDbl();
  e.ManageCost = Nz("F_ManageCost", 0).CDbl();
  e.TotCost = Nz("F_TotCost", 0).CDbl();
  e.QuotPrice_1 = Nz("F_QuotPrice_1", 0).CDbl();
  e.QuotPrice_2 = Nz("F_QuotPrice_2", 0).CDbl();
  e.QuotPrice_3 = Nz("F_QuotPrice_3", 0).CDbl();
  e.QuotPrice_4 = Nz("F_QuotPrice_4", 0).CDbl();
  e.QuotPrice_5 = Nz("F_QuotPrice_5", 0).CDbl();
  e.ProFit_1 = Nz("F_ProFit_1", 0).CDbl();
  e.ProFit_2 = Nz("F_ProFit_2", 0).CDbl();
  e.ProFit_3 = Nz("F_ProFit_3", 0).CDbl();
  e.ProFit_4 = Nz("F_ProFit_4", 0).CDbl();
  e.ProFit_5 = Nz("F_ProFit_5", 0).CDbl();
  e.TaxPrice = Nz("F_TaxPrice", 0).CDbl();
  e.SalePrice_1 = Nz("F_SalePrice_1", 0).CDbl();
  e.SalePrice_2 = Nz("F_SalePrice_2", 0).CDbl();
  e.SalePrice_3 = Nz("F_SalePrice_3", 0).CDbl();
  e.SalePrice_4 = Nz("F_SalePrice_4", 0).CDbl();
  e.SalePrice_5 = Nz("F_SalePrice_5", 0).CDbl();
}

void clsDataBCosth::WriteAll(const clsEntBCosth& Entity) {
  Write("F_EstNo", Entity.EstNo);
  Write("F_EstDate", Entity.EstDate);
  Write("F_ItemNo", Entity.ItemNo);
  Write("F_CustNo", Entity.CustNo);
  Write("F_Remark", Entity.Remark);
  Write("F_Tabler", Entity.Tabler);
  Write("F_Tabletime", Entity.TableTime);
  Write("F_CurrencyID", Entity.CurrencyID);
  Write("F_PartCost", Entity.PartCost);
  Write("F_WageCost", Entity.WageCost);
  Write("F_ManageCost", Entity.ManageCost);
  Write("F_TotCost", Entity.TotCost);
  Write("F_QuotPrice_1", Entity.QuotPrice_1);
  Write("F_QuotPrice_2", Entity.QuotPrice_2);
  Write("F_QuotPrice_3", Entity.QuotPrice_3);
  Write("F_QuotPrice_4", Entity.QuotPrice_4);
  Write("F_QuotPrice_5", Entity.QuotPrice_5);
  Write("F_ProFit_1", Entity.ProFit_1);
  Write("F_ProFit_2", Entity.ProFit_2);
  Write("F_ProFit_3", Entity.ProFit_3);
  Write("F_ProFit_4", Entity.ProFit_4);
  Write("F_ProFit_5", Entity.ProFit_5);
  Write("F_TaxPrice", Entity.TaxPrice);
  Write("F_SalePrice_1", Entity.SalePrice_1);
  Write("F_SalePrice_2", Entity.SalePrice_2);
  Write("F_SalePrice_3", Entity.SalePrice_3);
  Write("F_SalePrice_4", Entity.SalePrice_4);
  Write("F_SalePrice_5", Entity.SalePrice_5);
}

std::int16_t clsDataBCosth::GetBCostBySql(clsEntBCosth& Entity, const std::string& strSql) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen(strSql);
    if (!NoRow()) {
      Entity.EstNo = Nz("F_EstNo", 0).CDbl();
      ReadEstDateToSalePrice(Entity);
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCosth::DeleteRecord(clsEntBCosth& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    KeysetEdit("select * from T_BCosth where F_EstNo ='" + Text(Entity.EstNo) + "' ");
    if (NoRow()) {
      result = 2;  // rs stays open
      return;
    }
    rs().Delete(1);
    rs().UpdateBatch(3);
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBCosth::UpdateRecord(clsEntBCosth& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    KeysetEditByReadOpen("select * from T_BCosth where F_EstNo = '" + Text(Entity.EstNo) + "'");
    if (NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    WriteAll(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBCosth::AddRecord(clsEntBCosth& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    ReadOpen("select * from T_BCosth where F_EstNo = '" + Text(Entity.EstNo) + "'");
    if (!NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    rs().Close();
    Open("select * from T_BCosth", 2, 3);
    rs().AddNew();
    WriteAll(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBCosth::QueryMaxEstNo(const Date& mydate, double& maxEstNo) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select max(F_EstNo) as dd from T_BCosth where F_EstDate = '" + Text(mydate) + "'");
    if (!rs().Fields("dd").IsNull()) {
      maxEstNo = Value("dd").CDbl();
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCosth::QueryDate(const Date& mydate) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from T_BCosth where F_EstDate = '" + Text(mydate) + "'");
    while (!rs().Eof()) {
      result = 1;
      rs().MoveNext();
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCosth::QueryByEstNo(clsEntBCosth& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from T_BCosth where F_EstNo = '" + Text(Entity.EstNo) + "'");
    if (!NoRow()) {
      ReadEstDateToSalePrice(Entity);
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCosth::QueryEstNoByItemNo(std::vector<double>& dblBCosthEstNo,
                                               const std::string& strItemNo,
                                               const std::string& UserId) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    dblBCosthEstNo.assign(1, 0.0);  // bounds 0 to 0, what it held thrown away
    result = 0;
    const std::string filtered =
        "select t0.F_EstNo from T_BCosth t0 inner join t_dataright t1 on t1.f_moduleid='C' and "
        "t1.f_rightid=t0.f_custno and t1.f_userid='" +
        UserId + "' and F_ItemNo = '" + strItemNo + "' order by F_EstNo desc";
    const std::string unfiltered =
        "select F_EstNo from T_BCosth where F_ItemNo = '" + strItemNo + "' order by F_EstNo desc";
    ReadOpen(rights::Choose(*this, rights::Module::kCustomers, UserId, rights::FreshRs::kNo,
                            filtered, unfiltered));
    while (!rs().Eof()) {
      const double EstNo = Nz("F_EstNo", "").CDbl();  // a null fails the conversion
      rs().MoveNext();
      dblBCosthEstNo.push_back(EstNo);  // upper bound + 1, contents kept
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCosth::QueryItemNo(std::vector<std::string>& strBCosthItemNo,
                                        const std::string& UserId) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    strBCosthItemNo.assign(1, std::string());  // bounds 0 to 0, what it held thrown away
    result = 0;
    const std::string filtered =
        "select distinct t0.F_ItemNo from T_BCosth t0 inner join t_dataright t1 on "
        "t1.f_moduleid='C' and t1.f_rightid=t0.f_custno and t1.f_userid='" +
        UserId + "' ";
    const std::string unfiltered = "select distinct F_ItemNo from T_BCosth";
    ReadOpen(rights::Choose(*this, rights::Module::kCustomers, UserId, rights::FreshRs::kNo,
                            filtered, unfiltered));
    while (!rs().Eof()) {
      std::string ItemNo = Nz("F_ItemNo", "").CStr();
      rs().MoveNext();
      strBCosthItemNo.push_back(std::move(ItemNo));  // upper bound + 1, contents kept
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCosth::QueryAll(Collection<clsEntBCosth>* colBCosth) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from T_BCosth");
    FillCollection(colBCosth, [&](clsEntBCosth& e) {
      e.EstNo = Nz("F_EstNo", 0).CDbl();
      ReadEstDateToSalePrice(e);
      result = 1;
    });
  }, [&] { result = 2; });
  return result;
}

}  // namespace corvane
