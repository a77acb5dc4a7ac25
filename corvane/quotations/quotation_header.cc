// Quotation headers.
#include "corvane/quotations/quotation_header.h"

#include "corvane/numbering/family_a.h"
#include "corvane/rights/data_rights.h"

namespace corvane {
namespace {

// The quotation numbers: the statements of the number steps, spelled as the
// class writes them.
const numbering::FamilyATexts kNumbers{
    .largest = "select * from t_bpriceh where F_QuotNo in (select max(F_QuotNo) from t_bpriceh)",
    .largest_of_day = "select max(F_QuotNO) as F_QuotNO from t_bpriceh where F_Quotdate ='{D}'",
    .number_taken = "select * from t_bpriceh where F_QuotNo='{N}'",
    .delete_document = "delete from t_bpriceh where F_QuotNO ='{N}' ",
    .documents_of_day = "select * from t_bpriceh where F_Quotdate='{D}'",
    .max_of_day = "(select max(F_QuotNO) from t_bpriceh where F_Quotdate='{D}')",
};

// Runs steps; a failure goes on with mark in front of the words the length
// report gives it, so that a plain report shows how far the steps came.
template <class Steps>
void WithMark(const std::string& mark, Steps&& steps) {
  try {
    steps();
  } catch (const Error& failure) {
    throw Error(failure.Number(), mark + ReportFor(Handling::Report::kLength, failure).text);
  }
}

}  // namespace

void clsDataBPriceh::ReadHeader(clsEntBPriceh& e) {
  e.QuotNo = Nz("F_QuotNo", 0).CDbl();
  e.Attn = Nz("F_Attn", "").CStr();
  e.CC = Nz("F_CC", "").CStr();
  e.Custno = Nz("F_Custno", "").CStr();
  e.Delivery = Nz("F_Delivery", "").CStr();
  e.CurrencyID = Nz("F_CurrencyID", "").CStr();
  e.PayDay = Nz("F_PayDay", 0).CInt();
  e.PayMode = Nz("F_PayMode", "").CStr();
  e.QuotDate = Nz("F_QuotDate", "").CDate();  // a null fails: "" is no date
  e.Tabler = Nz("F_Tabler", "").CStr();
  e.TablerTime = Nz("F_TablerTime", "0:00:00").CDate();
  e.Checker = Nz("F_Checker", "").CStr();
  e.CheckerTime = Nz("F_CheckerTime", "0:00:00").CDate();
  e.Approve = Nz("F_Approve", "").CStr();
  e.ApproveTime = Nz("F_ApproveTime", "0:00:00").CDate();
  e.SalerID = Nz("F_SalerID", "").CStr();
  e.COrderNo = Nz("F_COrderNo", "").CStr();
  e.Flags = Nz("F_Flags", 5).CInt();  // a flag never set reads 5
  e.DeliverAddr = Nz("F_DeliverAddr", "").CStr();
  e.OrderType = Nz("F_OrderType", "").CStr();
  e.TotalBefore = Nz("F_TotalBefore", 0).CDbl();
  e.DisCount = Nz("F_DisCount", 0).CDbl();
  e.Greight = Nz("F_Greight", 0).CDbl();
  e.Tax = Nz("F_Tax", 0).CDbl();
  e.Total = Nz("F_Total", 0).CDbl();
  e.DocType = Nz("F_DocType", "").CStr();
  e.CustName = Nz("F_CustName", "").CStr();
  e.jrnlMemo = Nz("F_jrnlMemo", "").CStr();
  e.DueDate = Nz("F_DueDate", "0").CDate();  // a null fails: "0" is no date
  e.TaxDate = Nz("F_TaxDate", "0").CDate();  // likewise
  e.UpdataUser = Nz("F_UpdataUser", "").CStr();
  e.PayMonth = Nz("F_PayMonth", 0).CInt();
  e.Comments = Nz("F_Comments", "").CStr();
}

void clsDataBPriceh::WriteQuotNoToQuotDate(const clsEntBPriceh& Entity) {
  Write("F_QuotNo", Entity.QuotNo);
  Write("F_Attn", Entity.Attn);
  Write("F_CC", Entity.CC);
  Write("F_CustNo", Entity.Custno);
  Write("F_Delivery", Entity.Delivery);
  Write("F_CurrencyID", Entity.CurrencyID);
  Write("F_payday", Entity.PayDay);
  Write("F_paymode", Entity.PayMode);
  Write("F_QuotDate", Entity.QuotDate);
}

void clsDataBPriceh::WriteSalerIdToComments(const clsEntBPriceh& Entity) {
  Write("F_SalerId", Entity.SalerID);
  Write("F_CorderNo", Entity.COrderNo);
  Write("F_DeliverAddr", Entity.DeliverAddr);
  Write("F_OrderType", Entity.OrderType);
  Write("F_TotalBefore", Entity.TotalBefore);
  Write("F_DisCount", Entity.DisCount);
  Write("F_Greight", Entity.Greight);
  Write("F_Tax", Entity.Tax);
  Write("F_Total", Entity.Total);
  Write("F_DocType", Entity.DocType);
  Write("F_CustName", Entity.CustName);
  Write("F_jrnlMemo", Entity.jrnlMemo);
  Write("F_DueDate", Entity.DueDate);
  Write("F_TaxDate", Entity.TaxDate);
  Write("F_UpdataUser", Entity.UpdataUser);
  Write("F_PayMonth", Entity.PayMonth);
  Write("F_Comments", Entity.Comments);
}

std::int16_t clsDataBPriceh::QueryPrice(Collection<clsEntBPriceh>* objColl,
                                        const std::string& CustNo, const std::string& QuotNo) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = 0;
    FreshRs();
    // QuotNo holds an item number. The approval is tested in the join, so a
    // line of an unapproved quotation meets no header and the where clause
    // drops it.
    ReadOpen(
        "select t2.f_quotno as f_quotno,t2.f_itemno as f_itemno,t2.f_price as f_price,"
        "t1.f_custno as f_custno,t2.F_Currency as f_currencyid from t_bpricei t2 left join "
        "t_bpriceh t1 on t1.F_QuotNo=t2.F_QuotNo and ifnull(F_Approve,'')<>''  where "
        "t1.F_CustNo='" +
        CustNo + "'and t2.F_ItemNo='" + QuotNo + "'");
    // The item number and the price travel in Approve and Checker.
    FillCollection(objColl, [&](clsEntBPriceh& e) {
      e.QuotNo = Nz("F_QuotNo", 0).CDbl();
      e.Custno = Nz("F_Custno", "").CStr();
      e.CurrencyID = Nz("F_CurrencyID", "").CStr();
      e.Approve = Nz("f_itemno", "").CStr();
      e.Checker = Nz("f_price", "").CStr();
      result = 1;
    }, AddOrder::kBeforeMoveNext);
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceh::QueryMaxItem(clsEntBPriceh& maxitem) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::QueryMaxItem(*this, kNumbers, [&] { ReadHeader(maxitem); });
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceh::QueryCurrencyName(clsEntSCurrency& Entity,
                                               const std::string& CurrencyID) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from t_scurrency where F_CurrencyID='" + CurrencyID + "'");
    if (!NoRow()) {
      Entity.CurrencyName = Nz("F_CurrencyName", "").CStr();
      result = 1;
    }
    rs().Close();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceh::QueryCurrencyID(clsEntSCurrency& Entity,
                                             const std::string& CurrencyName) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from t_scurrency where F_CurrencyName='" + CurrencyName + "'");
    if (!NoRow()) {
      Entity.CurrencyID = Nz("F_CurrencyID", "").CStr();
      result = 1;
    }
    rs().Close();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceh::AddRecord(clsEntBPriceh& Entity,
                                       const std::string& /*strTableName*/,
                                       std::int16_t Istatus) {
  std::int16_t result = 0;
  // How far the add came: Istatus 0 marks "1" from the start and "4" before
  // the Update; another Istatus marks nothing until "8" before the Update and
  // "9" after the Close. A failure shows the mark in front of its words.
  std::string mark;
  Guard(kPlainReport.ResetFirst(), [&] {
    WithMark(mark, [&] {
      const bool first_of_day = Istatus == 0;
      if (first_of_day) mark = "1";
      result = 0;
      rs().SetCursorType(Recordset::kKeyset);
      rs().SetLockType(Recordset::kOptimistic);
      result = numbering::StoreDocument(*this, kNumbers, Text(Entity.QuotNo), [&] {
        WriteQuotNoToQuotDate(Entity);
        Write("F_Tabler", Entity.Tabler);
        Write("F_TablerTime", Entity.TablerTime);
        WriteSalerIdToComments(Entity);
        // The signatures, their times and F_Flags keep the table's default.
        mark = first_of_day ? "4" : "8";
      });
      if (result == 1 && !first_of_day) mark = "9";
    });
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBPriceh::UpdateFlags(double OrderNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("update t_bpriceh set F_Flags=1 where F_QuotNO=" + Text(OrderNo), 1, 4);
    result = 1;
    ResetRs();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceh::UpdateApprove(const std::string& Approve, double OrderNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("update t_bpriceh set F_Approve='" + Approve +
             "',F_ApproveTime=Now() where F_QuotNO=" + Text(OrderNo),
         1, 4);
    result = 1;
    ResetRs();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceh::UpdateChecke(const std::string& Checker, double OrderNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("update t_bpriceh set F_Checker='" + Checker +
             "',F_CheckerTime=Now() where F_QuotNO=" + Text(OrderNo),
         1, 4);
    result = 1;
    ResetRs();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceh::UpdateRecord(clsEntBPriceh& Entity, const std::string& QuotNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    // No row test: on a number that does not exist the first write fails.
    KeysetEdit("select * from t_bpriceh where F_QuotNO ='" + QuotNo + "'");
    WriteQuotNoToQuotDate(Entity);
    WriteSalerIdToComments(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceh::QueryMaxItemDelete(clsEntBPriceh& maxitemdelete,
                                                const Date& currentdate) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    // On a date without quotations the maximum is null and reads as 0.
    result = numbering::QueryMaxItemDelete(*this, kNumbers, currentdate, [&] {
      maxitemdelete.QuotNo = Nz("F_QuotNO", 0).CDbl();
    });
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBPriceh::DeleteRecord(clsEntBPriceh& Entity, std::int16_t DeleteStatus,
                                          const std::string& strTableName) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::DeleteDocument(*this, kNumbers, DeleteStatus,
                                       numbering::NumberText(Entity.QuotNo), Entity.QuotDate,
                                       strTableName);
  }, [&] { result = 0; });
  return result;
}

Variant clsDataBPriceh::QueryAllCustNo(Collection<clsEntBPriceh>* CollALL,
                                       const std::string& UserId) {
  Variant result;
  Guard(kPlainReport, [&] {
    const std::string filtered =
        "select distinct t0.F_Custno from t_bpriceh t0 inner join t_dataright t1 on "
        "t1.f_moduleid='C' and t1.f_rightid=t0.f_custno and t1.f_userid='" +
        UserId + "' order by F_Custno asc";
    const std::string unfiltered = "select distinct F_Custno from t_bpriceh order by F_Custno asc";
    ReadOpen(rights::Choose(*this, rights::Module::kCustomers, UserId, rights::FreshRs::kNo,
                            filtered, unfiltered));
    FillCollection(CollALL, [&](clsEntBPriceh& e) { e.Custno = Nz("F_Custno", "").CStr(); });
  }, [&] { result = std::int16_t{0}; });
  return result;
}

std::int16_t clsDataBPriceh::QueryAlldetaile(Collection<clsEntBPriceh>* CollALL2,
                                             const std::string& CustNo) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from t_bpriceh where F_Custno='" + CustNo + "'");
    FillCollection(CollALL2, [&](clsEntBPriceh& e) {
      ReadHeader(e);
      result = 1;
    });
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceh::GetItemByID(clsEntBPriceh& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from t_bpriceh where F_QuotNo ='" + Text(Entity.QuotNo) + "'");
    if (!NoRow()) {
      ReadHeader(Entity);
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

}  // namespace corvane
