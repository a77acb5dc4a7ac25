// Customers.
#include "corvane/customers/customer.h"

#include <memory>

#include "corvane/rights/data_rights.h"

namespace corvane {

void clsDataBCustom::ReadAll(clsEntBCustom& e) {
  e.custno = Nz("F_custno", "").CStr();
  e.countryid = Nz("F_countryid", "").CStr();
  e.provinceid = Nz("F_provinceid", "").CStr();
  e.cityname = Nz("F_cityname", "").CStr();
  e.CustName = Nz("F_CustName", "").CStr();
  e.CustFullName = Nz("F_CustFullName", "").CStr();
  e.EnglishName = Nz("F_EnglishName", "").CStr();
  e.corp = Nz("F_corp", "").CStr();
  e.Linkman_1st = Nz("F_Linkman_1st", "").CStr();
  e.SalerID = Nz("F_SalerID", "").CStr();
  e.Linkman_m = Nz("F_Linkman_m", "").CStr();
  e.Linkman_last = Nz("F_Linkman_last", "").CStr();
  e.Comb = Nz("F_Comb", "").CStr();
  e.Fax = Nz("F_Fax", "").CStr();
  e.tel = Nz("F_tel", "").CStr();
  e.zip = Nz("F_zip", "").CStr();
  e.Address = Nz("F_Address", "").CStr();
  e.bank = Nz("F_bank", "").CStr();
  e.bankid1 = Nz("F_bankid1", "").CStr();
  e.bankid2 = Nz("F_bankid2", "").CStr();
  e.Stand = Nz("F_Stand", "").CStr();
  e.PayMode = Nz("F_PayMode", "").CStr();
  e.payday = Nz("F_payday", "0").CInt();
  e.email = Nz("F_email", "").CStr();
  e.www = Nz("F_www", "").CStr();
  e.GoodsAddr1 = Nz("F_GoodsAddr1", "").CStr();
  e.GoodsAddr2 = Nz("F_GoodsAddr2", "").CStr();
  e.GoodsAddr3 = Nz("F_GoodsAddr3", "").CStr();
  // A null in either date or in the status is no date and no number: the
  // read fails there.
  e.CreateDate = Nz("F_CreateDate", "").CDate();
  e.EditDate = Nz("F_EditDate", "").CDate();
  e.descr = Nz("F_descr", "").CStr();
  e.Status = Nz("F_Status", "").CInt();
  e.GroupCode = Nz("F_GroupCode", "").CStr();
  e.CurrencyId = Nz("F_CurrencyId", "").CStr();
  e.ProjectCode = Nz("F_ProjectCode", "").CStr();
  e.Technology = Nz("F_Technology", "").CStr();
  e.Priority = Nz("F_Priority", "").CStr();
  e.PackPage = Nz("F_PackPage", "").CStr();
  e.Paymonth = Nz("F_Paymonth", 0).CInt();
  e.PriceList = Nz("F_PriceList", "").CStr();
  e.CreditLimit = Nz("F_CreditLimit", 0).CDbl();
  e.VatgroupCode = Nz("F_VatgroupCode", "").CStr();
  e.AccountBlance = Nz("F_AccountBlance", 0).CDbl();
  e.Deliveries = Nz("F_Deliveries", 0).CDbl();
  e.Orders = Nz("F_Orders", 0).CDbl();
  e.Opports = Nz("F_Opports", 0).CDbl();
  e.YusAcct = Nz("F_YusAcct", "").CStr();
  e.YinsAcct = Nz("F_YinsAcct", "").CStr();
  e.othAcct = Nz("F_othAcct", "").CStr();
  e.SendMode = Nz("F_SendMode", "").CStr();
  e.ZyywsrAcct = Nz("F_ZyywsrAcct", "").CStr();
  e.XscbAcct = Nz("F_XscbAcct", "").CStr();
  e.KcspAcct = Nz("F_KcspAcct", "").CStr();
}

void clsDataBCustom::WriteAll(const clsEntBCustom& Entity) {
  Write("F_CustNo", Entity.custno);
  Write("F_countryid", Entity.countryid);
  Write("F_provinceid", Entity.provinceid);
  Write("F_cityname", Entity.cityname);
  Write("F_CustName", Entity.CustName);
  Write("F_custfullname", Entity.CustFullName);
  Write("F_englishname", Entity.EnglishName);
  Write("F_corp", Entity.corp);
  Write("F_Linkman_1st", Entity.Linkman_1st);
  Write("F_SalerId", Entity.SalerID);
  // F_Linkman_m and F_Linkman_last are never written.
  Write("F_comb", Entity.Comb);
  Write("F_fax", Entity.Fax);
  Write("F_tel", Entity.tel);
  Write("F_zip", Entity.zip);
  Write("F_address", Entity.Address);
  Write("F_bank", Entity.bank);
  Write("F_bankid1", Entity.bankid1);
  Write("F_bankid2", Entity.bankid2);
  Write("F_stand", Entity.Stand);
  Write("F_paymode", Entity.PayMode);
  Write("F_payday", Entity.payday);
  Write("F_email", Entity.email);
  Write("F_www", Entity.www);
  Write("F_goodsaddr1", Entity.GoodsAddr1);
  Write("F_goodsaddr2", Entity.GoodsAddr2);
  Write("F_goodsaddr3", Entity.GoodsAddr3);
  Write("F_createdate", Entity.CreateDate);
  Write("F_editdate", Entity.EditDate);
  Write("F_descr", Entity.descr);
  Write("F_Status", Entity.Status);
  Write("F_GroupCode", Entity.GroupCode);
  Write("F_CurrencyID", Entity.CurrencyId);
  Write("F_ProjectCode", Entity.ProjectCode);
  Write("F_Technology", Entity.Technology);
  Write("F_Priority", Entity.Priority);
  Write("F_PackPage", Entity.PackPage);
  Write("F_PayMonth", Entity.Paymonth);
  Write("F_PriceList", Entity.PriceList);
  Write("F_CreditLimit", Entity.CreditLimit);
  Write("F_VatgroupCode", Entity.VatgroupCode);
  Write("F_AccountBlance", Entity.AccountBlance);
  Write("F_Deliveries", Entity.Deliveries);
  Write("F_Orders", Entity.Orders);
  Write("F_Opports", Entity.Opports);
  Write("F_YusAcct", Entity.YusAcct);
  Write("F_YinsAcct", Entity.YinsAcct);
  Write("F_othAcct", Entity.othAcct);
  Write("F_SendMode", Entity.SendMode);
  Write("F_ZyywsrAcct", Entity.ZyywsrAcct);
  Write("F_XscbAcct", Entity.XscbAcct);
  Write("F_KcspAcct", Entity.KcspAcct);
}

Variant clsDataBCustom::QueryByStrSql(std::string strSql, Collection<clsEntBCustom>* objCollSql,
                                      const std::string& UserId) {
  Variant result;
  Guard(kPlainReport.ResetFirst(), [&] {
    const std::string filtered =
        "select * from t_bcustom t0 inner join t_dataright t1 on t1.f_moduleid='C' and "
        "t1.f_rightid=t0.f_custno and t1.f_userid='" +
        UserId + "' ";
    // The caller's tail counts only for a user without rights rows.
    const std::string unfiltered = "select * from t_bcustom" + strSql;
    const std::string& chosen = rights::Choose(*this, rights::Module::kCustomers, UserId,
                                               rights::FreshRs::kYes, filtered, unfiltered);
    if (&chosen == &filtered) {
      Open(chosen, 1, 2);
    } else {
      ReadOpen(chosen);
    }
    FillCollection(objCollSql, [&](clsEntBCustom& e) {
      e.custno = Nz("F_Custno", "").CStr();
      e.Linkman_1st = Nz("F_Linkman_1st", "").CStr();
      e.CustName = Nz("F_CustName", "").CStr();
      e.CustFullName = Nz("F_CustFullName", "").CStr();
      result = std::int16_t{1};
    });
  }, [&] { result = std::int16_t{0}; });
  return result;
}

std::int16_t clsDataBCustom::queryBCustom(clsEntBCustom& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    FreshRs();
    ReadOpen("select * from T_bcustom where F_CustNo = '" + Entity.custno + "'");
    if (!NoRow()) {
      ReadAll(Entity);
      result = 1;
    } else {
      result = 0;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

Variant clsDataBCustom::QueryAllCustNo(Collection<clsEntBCustom>* CollALL) {
  Variant result;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select distinct F_CustNo from t_bcustom order by F_CustNo asc");
    // F_Linkman_1st is not selected: its read fails at the first row.
    FillCollection(CollALL, [&](clsEntBCustom& e) {
      e.custno = Nz("F_Custno", "").CStr();
      e.Linkman_1st = Nz("F_Linkman_1st", "").CStr();
      result = std::int16_t{1};
    });
    if (result != Variant(std::int16_t{1})) result = std::int16_t{0};
  }, [&] { result = std::int16_t{2}; });
  return result;
}

Variant clsDataBCustom::QueryAllByGroupCode(Collection<clsEntBCustom>* colBCustom,
                                            const std::string& GroupCode) {
  Guard(kAlertReport, [&] {
    FreshRs();
    Open("select * from t_bcustom where F_GroupCode='" + GroupCode + "'", 1, 2);
    if (NoRow()) return;  // rs stays open
    FillCollection(colBCustom, [&](clsEntBCustom& e) { ReadAll(e); });
  });
  return Variant();
}

Variant clsDataBCustom::QueryAll(Collection<clsEntBCustom>* colBCustom,
                                 const std::string& UserId) {
  Guard(kAlertReport, [&] {
    const std::string filtered =
        "select * from t_bcustom t0 inner join t_dataright t1 on t1.f_moduleid='C' and "
        "t1.f_rightid=t0.f_custno and t1.f_userid='" +
        UserId + "' ";
    Open(rights::Choose(*this, rights::Module::kCustomers, UserId, rights::FreshRs::kYes,
                        filtered, "select * from t_bcustom"),
         1, 2);
    if (NoRow()) return;  // rs stays open
    FillCollection(colBCustom, [&](clsEntBCustom& e) { ReadAll(e); });
  });
  return Variant();
}

std::int16_t clsDataBCustom::AddRecord(clsEntBCustom& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    ReadOpen("select * from T_bcustom where F_custno= '" + Entity.custno + "'");
    if (!NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    rs().Close();
    Open("select * from T_bcustom", 2, 3);
    rs().AddNew();
    WriteAll(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

bool clsDataBCustom::QueryBCustNo(clsEntBCustom& Entity) {
  bool result = false;
  Guard(kPlainReport.ResetFirst(), [&] {
    FreshRs();
    Open("Select Count(*) as YesNo From T_BCustom Where F_CustNo='" + Entity.custno + "'", 1, 2);
    // The count is not closed: its release ends it.
    if (Value("YesNo").CDbl() == 0) {
      ResetRs();
      result = false;
    } else {
      ResetRs();
      result = true;
    }
  }, [&] { result = false; });
  return result;
}

Variant clsDataBCustom::QueryArea(Collection<clsEntBCustom>* ColArea, const std::string& CustNo) {
  Guard(kAlertReport, [&] {
    ReadOpen(
        "select bc.F_CustNo, concat_ws('-',sc.f_countryid ,sc.f_countryname) as F_countryname,"
        " concat_ws('-',sp.f_provinceid ,sp.f_provincename) as F_provincename, ss.F_cityname "
        "F_cityname"
        " from t_BCustom bc ,t_scountry sc,t_sprovince sp,t_scity ss where  "
        "bc.F_countryid=sc.f_countryid and "
        "bc.F_provinceid=sp.F_provinceid and bc.F_countryid=sp.F_countryid and "
        "bc.F_provinceid=ss.F_provinceid "
        "and bc.F_countryid=ss.F_countryid and bc.F_cityname=ss.F_cityname and bc.f_custno='" +
        Trim(CustNo) + "'");
    if (NoRow()) {
      // One blank entity stands for an area that cannot be read; rs stays
      // open.
      auto blank = std::make_shared<clsEntBCustom>();
      blank->countryid = "";
      blank->provinceid = "";
      blank->cityname = "";
      AddTo(ColArea, blank);
      return;
    }
    FillCollection(ColArea, [&](clsEntBCustom& e) {
      e.custno = Nz("F_custno", "").CStr();
      e.countryid = Nz("F_countryname", "").CStr();
      e.provinceid = Nz("F_provincename", "").CStr();
      e.cityname = Nz("F_cityname", "").CStr();
    });
  });
  return Variant();
}

std::int16_t clsDataBCustom::DeleteRecord(clsEntBCustom& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    FreshRs();
    Open("select * from T_Bcustom where F_custno ='" + Entity.custno + "' ", 1, 2);
    if (NoRow()) return;  // rs stays open
    rs().Delete(1);
    rs().Update();
    rs().Close();
  });
  return result;
}

std::int16_t clsDataBCustom::UpdateRecord(clsEntBCustom& Entity, const std::string& CustNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    KeysetEditWithDefaults("select * from T_bcustom where F_custno ='" + CustNo + "' ");
    if (NoRow()) {
      ResetRs();
      result = 0;
      return;
    }
    WriteAll(Entity);
    rs().Update();
    rs().Close();
    // The result stays 0: an update done is not told apart from no row.
  }, [&] { result = 2; });
  return result;
}

}  // namespace corvane
