// Sales order headers.
#include "corvane/orders/order_header.h"

#include "corvane/numbering/family_b.h"
#include "corvane/rights/data_rights.h"

namespace corvane {
namespace {

// The order numbers of the day, kept as "T_BOrderh" in t_sitemno.
const numbering::FamilyBTexts kNumbers{
    .table_name = "T_BOrderh",
    .query_tf =
        "select * from T_BOrderh where left(cast(F_OrderNo as char),8)=cast(curdate()+0 as char)",
    .last_of_today =
        "select si.* from t_sitemno si,T_BOrderh wo  where  si.f_tablename='T_BOrderh' and "
        "si.f_no=(select max(f_orderNo) from T_BOrderh where left(cast(f_orderNo as char),8) "
        "=cast(curdate()+0 as char)) and left(cast(si.f_no as char),8) =cast(curdate()+0 as char)",
    .counter_of_today =
        "select * from T_SitemNo where  F_TableName='T_BOrderh'and "
        "left(cast(F_No as char),8)=left(cast(curdate()+0 as char),8)",
    .open_counter =
        "insert into T_SitemNo(F_TableName,F_No,F_FnDate) "
        "values('T_BOrderh',0+cast(concat(cast(curdate()+0 as char),'001') as signed),curdate())",
    .advance_counter =
        "update t_sitemno set f_no=f_no+1,f_fndate=curdate() where F_TableName='T_BOrderh'and "
        "left(cast(f_no as char),8) =cast(curdate()+0 as char) ",
    .number_taken = "select * from T_BOrderh where F_OrderNo= '{N}'",
    .whole_table = "select * from T_BOrderh",
    .document = "select * from T_BOrderh where F_OrderNo ='{N}' ",
    .held_by_counter =
        "select Qi.* from  T_BOrderh Qi,t_sitemno si where Qi.f_OrderNo=si.f_no and si.f_no='{N}'",
    .delete_unheld = "delete  from T_BOrderh where F_OrderNo ='{N}' ",
    .delete_held = "delete from T_BOrderh where F_OrderNo ='{N}' ",
    .documents_of_day = "select * from T_BOrderh  where   left(cast(f_OrderNo as char),8)='{P}'",
    .remove_counter =
        "delete from t_sitemno  where f_tablename='T_BOrderh' and left(cast(f_no as char),8)='{P}'",
    .lower_counter =
        "update t_sitemno set f_no=(select max(f_OrderNo) from T_BOrderh where "
        "left(cast(f_OrderNo as char),8)='{P}') where f_tablename='T_BOrderh' and "
        "left(cast(f_no as char),8)='{P}'",
};

}  // namespace

void clsDataBOrderh::ReadPayDayToDelivery(clsEntBOrderh& e) {
  e.payday = Nz("F_PayDay", "0").CInt();
  e.Tabler = Nz("F_Tabler", "").CStr();
  e.Tabletime = Nz("F_TableTime", "0:00:00").CDate();
  e.Checker = Nz("F_Checker", "").CStr();
  e.CheckerTime = Nz("F_CheckerTime", "0:00:00").CDate();
  e.Approve = Nz("F_Approve", "").CStr();
  e.approveTime = Nz("F_ApproveTime", "0:00:00").CDate();
  e.Flags = Nz("F_Flags", 5).CInt();
  e.DeliverAddr = Nz("F_DeliverAddr", "").CStr();
  e.Package = Nz("F_Package", "").CStr();
  e.TotalBefore = Nz("F_TotalBefore", 0).CDbl();
  e.DisCount = Nz("F_DisCount", 0).CDbl();
  e.Greight = Nz("F_Greight", 0).CDbl();
  e.Tax = Nz("F_Tax", 0).CDbl();
  e.Total = Nz("F_Total", 0).CDbl();
  e.DocType = Nz("F_DocType", "").CStr();
  e.CustName = Nz("F_CustName", "").CStr();
  e.jrnlMemo = Nz("F_jrnlMemo", "").CStr();
  e.DueDate = Nz("F_DueDate", "0").CDate();
  e.TaxDate = Nz("F_TaxDate", "0").CDate();
  e.UpdataUser = Nz("F_UpdataUser", "").CStr();
  e.PayMonth = Nz("F_PayMonth", 0).CInt();
  e.Comments = Nz("F_Comments", "").CStr();
  e.attn = Nz("F_attn", "F_Attn", "").CStr();
  e.Currency = Nz("F_Currency", "").CStr();
  e.Delivery = Nz("F_Delivery", "").CStr();
}

void clsDataBOrderh::WriteFlagsToDelivery(const clsEntBOrderh& Entity) {
  Write("F_Flags", Entity.Flags);
  Write("F_DeliverAddr", Entity.DeliverAddr);
  Write("F_Package", Entity.Package);
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
  Write("F_Attn", Entity.attn);
  Write("F_Currency", Entity.Currency);
  Write("F_Delivery", Entity.Delivery);
}

std::int16_t clsDataBOrderh::QueryForPreMoney(clsEntBOrderh& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select * from T_BOrderh where F_CustNo = '" + Entity.CustNo +
             "' and F_COrderNo = '" + Entity.CorderNo + "'");
    result = NoRow() ? 0 : 1;
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOrderh::UpdateRecord(clsEntBOrderh& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    const std::string sql =
        "select * from T_BOrderh where F_OrderNo= '" + Text(Entity.OrderNo) + "'";
    FreshRs();
    ReadOpen(sql);
    if (NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    rs().Close();
    FreshRs();
    Open(sql, 2, 3);
    rs().Update();  // nothing pending yet: it changes nothing
    Write("F_SalerId", Entity.SalerId);
    Write("F_CustNo", Entity.CustNo);
    Write("F_CorderNo", Entity.CorderNo);
    Write("F_OrderType", Entity.OrderType);
    Write("F_IncoMode", Entity.IncoMode);
    Write("F_payday", Entity.payday);
    WriteFlagsToDelivery(Entity);
    rs().Update();
    ResetRs();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOrderh::UpdateApprove(const std::string& Approve, double OrderNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("update T_BOrderh set F_Approve='" + Approve +
             "',F_ApproveTime=Now() where F_OrderNo=" + Text(OrderNo),
         1, 4);
    result = 1;
    ResetRs();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOrderh::UpdateChecke(const std::string& Checker, double OrderNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("update T_BOrderh set F_Checker='" + Checker +
             "',F_CheckerTime=Now() where F_OrderNo=" + Text(OrderNo),
         1, 4);
    result = 1;
    ResetRs();
  }, [&] { result = 0; });
  return result;
}

std::string clsDataBOrderh::ServerDate() {
  std::string result;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("select Now() as SDate", 2, 1);
    result = Value("SDate").CStr();
    rs().Close();
  });
  return result;
}

std::int16_t clsDataBOrderh::QueryTF() {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] { result = numbering::QueryTF(*this, kNumbers); });
  return result;
}

Variant clsDataBOrderh::QueryChkitemiNo(clsEntSitemNo& objQitemh) {
  Guard(kLengthReport, [&] {
    FreshRs();
    // A null day of the row reads as the zero date here.
    numbering::QueryChkitemiNo(*this, kNumbers, objQitemh, "0:00:00");
  });
  return Variant();
}

std::int16_t clsDataBOrderh::AddRecord(clsEntBOrderh& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    result = numbering::AddRecord(*this, kNumbers, Entity.OrderNo, [&] {
      Write("F_OrderNo", Entity.OrderNo);
      Write("F_OrderDate", Entity.OrderDate);
      Write("F_SalerId", Entity.SalerId);
      Write("F_CustNo", Entity.CustNo);
      Write("F_CorderNo", Entity.CorderNo);
      Write("F_OrderType", Entity.OrderType);
      Write("F_IncoMode", Entity.IncoMode);
      Write("F_payday", Entity.payday);
      Write("F_Tabler", Entity.Tabler);
      Write("F_Tabletime", Entity.Tabletime);
      Write("F_Checker", Entity.Checker);
      Write("F_CheckerTime", Entity.CheckerTime);
      Write("F_approve", Entity.Approve);
      Write("F_approveTime", Entity.approveTime);
      WriteFlagsToDelivery(Entity);
    });
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOrderh::QueryAllRecord(Collection<clsEntBOrderh>* objColl) {
  std::int16_t result = 0;
  Guard(kAlertReport.ResetFirst(), [&] {
    FreshRs();
    ReadOpen("select * from T_BOrderh");
    // OrderType is not read: it stays as a new entity has it.
    FillCollection(objColl, [&](clsEntBOrderh& e) {
      e.OrderNo = Nz("F_OrderNo", "").CDbl();
      e.OrderDate = Nz("F_OrderDate", "").CDate();
      e.SalerId = Nz("F_SalerID", "").CStr();
      e.CorderNo = Nz("F_COrderNo", "0").CStr();
      e.CustNo = Nz("F_CustNo", "").CStr();
      e.IncoMode = Nz("F_IncoMode", "").CStr();
      ReadPayDayToDelivery(e);
      // The last three once more, to the same values.
      e.attn = Nz("F_attn", "F_Attn", "").CStr();
      e.Currency = Nz("F_Currency", "").CStr();
      e.Delivery = Nz("F_Delivery", "").CStr();
    });
  });
  return result;
}

std::int16_t clsDataBOrderh::QueryAllRecordPre(Collection<clsEntBOrderh>* objColl,
                                               const std::string& StrDate,
                                               const std::string& UserId) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    const std::string filtered =
        "select t0.* from T_BOrderh t0 inner join t_dataright t1 on t1.f_moduleid='C' and "
        "t1.f_rightid=t0.f_custno and t1.f_userid='" +
        UserId + "' and left(t0.F_OrderDate,7)='" + StrDate + "' ";
    const std::string unfiltered =
        "select * from T_BOrderh where left(F_OrderDate,7)='" + StrDate + "'";
    ReadOpen(rights::Choose(*this, rights::Module::kCustomers, UserId, rights::FreshRs::kYes,
                            filtered, unfiltered));
    FillCollection(objColl, [&](clsEntBOrderh& e) {
      e.OrderNo = Nz("F_OrderNo", "0").CDbl();
      e.OrderDate = Nz("F_OrderDate", "0:00:00").CDate();
    });
  });
  return result;
}

std::int16_t clsDataBOrderh::QueryOrderNoRecord(clsEntBOrderh& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    ReadOpen("select * from T_BOrderh where F_OrderNo=" + Text(Entity.OrderNo));
    if (NoRow()) {
      rs().Close();
      return;
    }
    Entity.OrderNo = Nz("F_OrderNo", 0).CDbl();
    Entity.OrderDate = Nz("F_OrderDate", 0).CDate();
    Entity.SalerId = Nz("F_SalerID", "").CStr();
    Entity.CorderNo = Nz("F_COrderNo", "").CStr();
    Entity.CustNo = Nz("F_CustNo", "").CStr();
    Entity.OrderType = Nz("F_OrderType", "").CStr();
    Entity.IncoMode = Nz("F_IncoMode", "").CStr();
    ReadPayDayToDelivery(Entity);
    result = 1;
    rs().Close();
  });
  return result;
}

std::int16_t clsDataBOrderh::QueryMonthDate(Collection<clsEntBOrderh>* objColl,
                                            const std::string& UserId) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    const std::string filtered =
        "select distinct  left(t0.F_OrderDate,7) as F_OrderDate  from T_BOrderh t0 inner join "
        "t_dataright t1 on t1.f_moduleid='C' and t1.f_rightid=t0.f_custno and t1.f_userid='" +
        UserId + "' order by F_OrderDate desc limit 0,12";
    const std::string unfiltered =
        "select distinct  left(F_OrderDate,7) as F_OrderDate  from T_BOrderh  order by "
        "F_OrderDate desc limit 0,12";
    ReadOpen(rights::Choose(*this, rights::Module::kCustomers, UserId, rights::FreshRs::kYes,
                            filtered, unfiltered));
    // The month text "yyyy-mm" becomes the first of that month.
    FillCollection(objColl, [&](clsEntBOrderh& e) {
      e.OrderDate = Nz("F_OrderDate", "0:00:00").CDate();
    });
  });
  return result;
}

Variant clsDataBOrderh::UpdateAddSitemNo() {
  Guard(kLengthReport, [&] {
    FreshRs();
    numbering::UpdateAddSitemNo(*this, kNumbers);
  });
  return Variant();
}

std::int16_t clsDataBOrderh::DeleteRecord(clsEntBOrderh& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    // What the delete answers is not passed on: the result stays 0.
    numbering::DeleteRecord(*this, kNumbers, Entity.OrderNo, 0);
  });
  return result;
}

}  // namespace corvane
