// Order change requests and their approval.
#include "corvane/orders/order_change.h"

#include "corvane/numbering/family_b.h"

namespace corvane {
namespace {

// The day numbering of T_BOrdChange, in this table's own spellings.
const numbering::FamilyBTexts kNumbers{
    .table_name = "T_BOrdChange",
    .query_tf =
        "select * from T_BOrdChange where left(cast(F_upNo as char),8)=cast(curdate()+0 as char)",
    .last_of_today =
        "select si.* from t_sitemno si,T_BOrdChange wo  where  si.f_tablename='T_BOrdChange' and "
        "si.f_no=(select max(f_UpNo) from T_BOrdChange where left(cast(f_UpNo as char),8) "
        "=cast(curdate()+0 as char)) and left(cast(si.f_no as char),8) =cast(curdate()+0 as char)",
    .counter_of_today =
        "select * from T_SitemNo where  F_TableName='T_BOrdChange'and left(cast(F_No as "
        "char),8)=left(cast(curdate()+0 as char),8)",
    .open_counter =
        "insert into T_SitemNo(F_TableName,F_No,F_FnDate) "
        "values('T_BOrdChange',0+cast(concat(cast(curdate()+0 as char),'001') as "
        "signed),curdate())",
    .advance_counter =
        "update t_sitemno set f_no=f_no+1,f_fndate=curdate() where F_TableName='T_BOrdChange'and "
        "left(cast(f_no as char),8) =cast(curdate()+0 as char) ",
    .number_taken = "select * from T_BOrdChange where F_upNo= '{N}'",
    .whole_table = "select * from T_BOrdChange",
    .document = "select * from T_BOrdChange where F_UpNo ='{N}' ",
    .held_by_counter =
        "select Qi.* from  T_BOrdChange Qi,t_sitemno si where Qi.f_upNo=si.f_no and si.f_no='{N}'",
    .delete_unheld = "delete  from T_BOrdChange where F_upNo ='{N}' ",
    .delete_held = "delete from T_BOrdChange where F_upNo ='{N}' ",
    .documents_of_day = "select * from T_BOrdChange  where   left(cast(f_upNo as char),8)='{P}'",
    .remove_counter =
        "delete from t_sitemno  where f_tablename='T_BOrdChange' and left(cast(f_no as "
        "char),8)='{P}'",
    .lower_counter =
        "update t_sitemno set f_no=(select max(f_upNo) from T_BOrdChange where left(cast(f_upNo "
        "as char),8)='{P}') where f_tablename='T_BOrdChange' and left(cast(f_no as "
        "char),8)='{P}'",
};

}  // namespace

void clsDataBOrdChange::WriteQtyUpToCancel(const clsEntBOrdChange& Entity) {
  Write("F_QtyUp", Entity.QtyUp);
  Write("F_DateUp", Entity.DateUp);
  Write("F_ItemUp", Entity.ItemUp);
  Write("F_Other", Entity.Other);
  Write("F_UpCause", Entity.UpCause);
  Write("F_UpDesc", Entity.UpDesc);
  Write("F_PurDesc", Entity.PurDesc);
  Write("F_WhDesc", Entity.WhDesc);
  Write("F_SgDesc", Entity.SgDesc);
  Write("F_EgDesc", Entity.EgDesc);
  Write("F_BsDecide", Entity.BsDecide);
  Write("F_Burden", Entity.Burden);
  Write("F_Deal", Entity.Deal);
  Write("F_Tabler", Entity.Tabler);
  Write("F_Tabletime", Entity.Tabletime);
  Write("F_OldcorderNo", Entity.OldcorderNo);
  Write("F_NewcorderNo", Entity.NewcorderNo);
  Write("F_NewcustNo", Entity.NewcustNo);
  Write("F_Flags", Entity.Flags);
  Write("F_Cancel", Entity.Cancel);
}

std::int16_t clsDataBOrdChange::QueryQty() {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("select count(*) as F_Count from T_BOrderi Oi,T_BOrdChange OC where "
         "Oi.F_ProdNo=OC.F_ProdNo and OC.F_NewQty=Oi.F_OutQty and OC.F_NewQty>0",
         1, 2);
    result = Value("F_Count").CDbl() == 0 ? 2 : 1;
    ResetRs();
  }, [&] { result = 0; });
  return result;
}

double clsDataBOrdChange::QueryNewQty(double ProdNo) {
  double result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("select F_OutQty  from T_BOrderi where F_ProdNo=" + Text(ProdNo), 1, 2);
    if (!NoRow()) result = Value("F_OutQty").CDbl();
    ResetRs();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOrdChange::UpdateBOrderiRecord(clsEntBOrdChange& Entity, double ProdNo,
                                                    const std::string& Username,
                                                    std::int16_t status,
                                                    [[maybe_unused]] std::int16_t i) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    const std::string prod = Text(ProdNo);
    FreshRs();
    Open("select * from T_BOrderi  where F_ProdNo= " + prod, 1, 2);
    ResetRs();

    FreshRs();
    Open("select * from t_porderchk  where F_ProdNo= '" + prod + "'", 1, 2);
    if (NoRow()) {
      result = 2;
      ResetRs();
      return;
    }
    ResetRs();

    if (status == 0 || status == 1 || status == 2) {
      const std::string qty = Text(Entity.NewQty);
      const std::string date = Text(Entity.NewDate);
      const std::string s = Text(status);
      FreshRs();
      Open("update t_porderchk set F_OrderCount =" + qty + ",F_DeliverDate =' " + date +
               "' where F_ProdNo=" + prod,
           1, 2);
      ResetRs();
      FreshRs();
      Open("update T_POrder set F_OrdQty =" + qty +
               ", f_balqty = (ifnull(f_ordqty, 0) - ifnull(f_outqty, 0) + ifnull(f_outbkqty, "
               "0)),F_DeliverDate =' " +
               date + "',F_Status=" + s + " where F_ProdNo=" + prod,
           1, 2);
      ResetRs();
      FreshRs();
      Open("update  T_BOrderi set F_OrdQty =" + qty + ",F_DeliverDate =' " + date +
               "' ,F_BkQty='" + Text(Entity.NewBkQty) + "',F_Flags=1,F_status=" + s +
               " where F_ProdNo= '" + prod + "'",
           1, 2);
      ResetRs();
    }

    FreshRs();
    Open("update T_BOrdChange set F_Flags=1,F_Approve ='" + Username +
             "',F_ApproveTime =now() where F_ProdNo='" + prod + "' and F_UpNo=" +
             Text(Entity.UpNo),
         1, 2);
    ResetRs();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOrdChange::UpdateRecord(clsEntBOrdChange& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    const std::string sql = "select * from T_BOrdChange where F_UpNo= '" + Text(Entity.UpNo) + "'";
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
    rs().Update();  // nothing pending yet: stores nothing
    Write("F_ProdNo", Entity.ProdNo);
    Write("F_ItemNo", Entity.ItemNo);
    Write("F_CustNo", Entity.CustNo);
    Write("F_OldQty", Entity.OldQty);
    Write("F_NewQty", Entity.NewQty);
    Write("F_Oldate", Entity.Oldate);
    Write("F_NewDate", Entity.NewDate);
    Write("F_OldBkQty", Entity.OldBkQty);
    Write("F_NewBkQty", Entity.NewBkQty);
    WriteQtyUpToCancel(Entity);
    rs().Update();
    ResetRs();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOrdChange::QueryMonthDate(Collection<clsEntBOrdChange>* objColl) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    ReadOpen("select distinct  left(F_UpDate,7) as F_UpDate  from T_BOrdChange   limit 0,12");
    FillCollection(objColl, [&](clsEntBOrdChange& e) {
      e.UpDate = Nz("F_UpDate", "").CDate();
    });
  });
  return result;
}

std::int16_t clsDataBOrdChange::QueryTF() {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    result = numbering::QueryTF(*this, kNumbers);
  }, [&] { result = 0; });
  return result;
}

Variant clsDataBOrdChange::QueryChkitemiNo(clsEntSitemNo& objQitemh) {
  Variant result;
  Guard(kLengthReport, [&] {
    FreshRs();
    numbering::QueryChkitemiNo(*this, kNumbers, objQitemh, "");
  });
  return result;
}

std::int16_t clsDataBOrdChange::QueryUpNo(Collection<clsEntBOrdChange>* objColl) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("select f_UpNo ,F_UpDate from T_BOrdChange Order By F_UpNo Desc", 1, 4);
    FillCollection(objColl, [&](clsEntBOrdChange& e) {
      e.UpNo = Value("f_UpNo").CDbl();
      e.UpDate = Value("F_UpDate").CDate();
    });
  });
  return result;
}

std::int16_t clsDataBOrdChange::QueryRecord(clsEntBOrdChange& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("select *  from T_BOrdChange where F_UpNo=" + Text(Entity.UpNo), 1, 4);
    if (NoRow()) return;  // rs stays open
    Entity.UpNo = Nz("F_UpNo", "").CDbl();
    Entity.UpDate = Nz("F_UpDate", "0:00:00").CDate();
    Entity.ProdNo = Nz("F_ProdNo", "0").CDbl();
    Entity.ItemNo = Nz("F_ItemNo", "").CStr();
    Entity.CustNo = Nz("F_CustNo", "").CStr();
    Entity.OldQty = Nz("F_OldQty", "0").CDbl();
    Entity.NewQty = Nz("F_NewQty", "0").CDbl();
    Entity.OldBkQty = Nz("F_OldBkQty", "0").CDbl();
    Entity.NewBkQty = Nz("F_NewBkQty", "0").CDbl();
    Entity.Oldate = Nz("F_Oldate", "0:00:00").CDate();
    Entity.NewDate = Nz("F_NewDate", "0:00:00").CDate();
    Entity.QtyUp = Nz("F_QtyUp", "").CInt();
    Entity.DateUp = Nz("F_DateUp", "").CInt();
    Entity.ItemUp = Nz("F_ItemUp", "").CInt();
    Entity.Other = Nz("F_Other", "").CStr();
    Entity.UpCause = Nz("F_UpCause", "").CStr();
    Entity.UpDesc = Nz("F_UpDesc", "").CStr();
    Entity.PurDesc = Nz("F_PurDesc", "").CStr();
    Entity.WhDesc = Nz("F_WhDesc", "").CStr();
    Entity.SgDesc = Nz("F_SgDesc", "").CStr();
    Entity.EgDesc = Nz("F_EgDesc", "").CStr();
    Entity.BsDecide = Nz("F_BsDecide", "").CStr();
    Entity.Burden = Nz("F_Burden", "").CStr();
    Entity.Deal = Nz("F_Deal", "").CStr();
    Entity.OldcorderNo = Nz("F_OldcorderNo", "").CStr();
    Entity.NewcorderNo = Nz("F_NewcorderNo", "").CStr();
    Entity.NewcustNo = Nz("F_NewcustNo", "").CStr();
    Entity.Flags = Nz("F_Flags", "0").CInt();
    Entity.Cancel = Nz("F_Cancel", "0").CInt();
    rs().Close();
  });
  return result;
}

Variant clsDataBOrdChange::UpdateAddSitemNo() {
  Variant result;
  Guard(kLengthReport, [&] {
    FreshRs();
    numbering::UpdateAddSitemNo(*this, kNumbers);
  });
  return result;
}

std::int16_t clsDataBOrdChange::AddRecord(clsEntBOrdChange& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    result = numbering::AddRecord(*this, kNumbers, Entity.UpNo, [&] {
      Write("F_upNo", Entity.UpNo);
      Write("F_UpDate", Entity.UpDate);
      Write("F_ProdNo", Entity.ProdNo);
      Write("F_ItemNo", Entity.ItemNo);
      Write("F_CustNo", Entity.CustNo);
      Write("F_OldQty", Entity.OldQty);
      Write("F_NewQty", Entity.NewQty);
      Write("F_OldBkQty", Entity.OldBkQty);
      Write("F_NewBkQty", Entity.NewBkQty);
      Write("F_Oldate", Entity.Oldate);
      Write("F_NewDate", Entity.NewDate);
      WriteQtyUpToCancel(Entity);
    });
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOrdChange::DeleteRecord(clsEntBOrdChange& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    result = numbering::DeleteRecord(*this, kNumbers, Entity.UpNo, 1);
  }, [&] { result = 0; });
  return result;
}

}  // namespace corvane
