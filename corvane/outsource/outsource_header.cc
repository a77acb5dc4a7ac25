// Outsource order headers.
#include "corvane/outsource/outsource_header.h"

#include "corvane/numbering/family_a.h"
#include "corvane/rights/data_rights.h"

namespace corvane {
namespace {

// The texts of the order numbers of t_boutmakeh.
const numbering::FamilyATexts kNumbers{
    .largest = "select * from t_boutmakeh where F_OrderoutNo in (select max(F_OrderoutNo) from "
               "t_boutmakeh)",
    .largest_of_day = "select max(F_OrderoutNo) as F_OrderoutNo from t_boutmakeh where "
                      "F_OrderoutDate ='{D}'",
    .number_taken = "select * from t_boutmakeh where F_OrderoutNo='{N}'",
    .delete_document = "delete from t_boutmakeh where F_OrderoutNo ='{N}' ",
    .documents_of_day = "select * from t_boutmakeh where F_OrderoutDate='{D}'",
    .max_of_day = "(select max(F_OrderoutNo) from t_boutmakeh where F_OrderoutDate='{D}')",
};

}  // namespace

void clsDataBOutMakeh::ReadOrder(clsEntBOutMakeh& e) {
  // A null number cannot become a number; a null delivery mode or supplier
  // reads as the text "0".
  e.OrderoutNo = Nz("F_OrderOutNo", "").CDbl();
  e.Approve = Nz("F_Approve", "").CStr();
  e.ApproveTime = Nz("F_ApproveTime", 0).CDate();
  e.Checker = Nz("F_Checker", "").CStr();
  e.CheckerTime = Nz("F_CheckerTime", 0).CDate();
  e.DeliverAddr = Nz("F_DeliverAddr", "").CStr();
  e.DeliverMode = Nz("F_DeliverMode", 0).CStr();
  e.Flags = Nz("F_Flags", 0).CInt();
  e.OrderoutDate = Nz("F_OrderoutDate", 0).CDate();
  e.PayDay = Nz("F_PayDay", 0).CInt();
  e.PayMode = Nz("F_PayMode", "").CStr();
  e.ProviderNo = Nz("F_ProviderNo", 0).CStr();
  e.Tabler = Nz("F_Tabler", "").CStr();
  e.Tabletime = Nz("F_Tabletime", 0).CDate();
  e.BuYerID = Nz("F_BuYerID", "").CStr();
  e.SOrderNo = Nz("F_SOrderNo", "").CStr();
  e.OrderType = Nz("F_OrderType", "").CStr();
  e.Package = Nz("F_Package", "").CStr();
  e.TotalBefore = Nz("F_TotalBefore", 0).CDbl();
  e.DisCount = Nz("F_DisCount", 0).CDbl();
  e.Greight = Nz("F_Greight", 0).CDbl();
  e.Tax = Nz("F_Tax", 0).CDbl();
  e.Total = Nz("F_Total", 0).CDbl();
  e.DocType = Nz("F_DocType", "").CStr();
  e.ProviderName = Nz("F_ProviderName", "").CStr();
  e.jrnlMemo = Nz("F_jrnlMemo", "").CStr();
  e.DueDate = Nz("F_DueDate", 0).CDate();
  e.TaxDate = Nz("F_TaxDate", 0).CDate();
  e.UpdataUser = Nz("F_UpdataUser", "").CStr();
  e.PayMonth = Nz("F_PayMonth", 0).CInt();
  e.Comments = Nz("F_Comments", "").CStr();
  e.Attn = Nz("F_Attn", "").CStr();
  e.Currency = Nz("F_Currency", "").CStr();
}

void clsDataBOutMakeh::WriteNumberToDeliverAddr(const clsEntBOutMakeh& Entity) {
  Write("F_OrderoutNo", Entity.OrderoutNo);
  Write("F_OrderoutDate", Entity.OrderoutDate);
  Write("F_ProviderNo", Entity.ProviderNo);
  Write("F_paymode", Entity.PayMode);
  Write("F_payday", Entity.PayDay);
  Write("F_DeliverMode", Entity.DeliverMode);
  Write("F_DeliverAddr", Entity.DeliverAddr);
}

void clsDataBOutMakeh::WriteProviderNameToJrnlMemo(const clsEntBOutMakeh& Entity) {
  Write("f_ProviderName", Entity.ProviderName);
  Write("F_SorderNo", Entity.SOrderNo);
  Write("F_OrderType", Entity.OrderType);
  Write("F_DueDate", Entity.DueDate);
  Write("F_TaxDate", Entity.TaxDate);
  Write("F_Currency", Entity.Currency);
  Write("F_Attn", Entity.Attn);
  Write("f_BuYerID", Entity.BuYerID);
  Write("F_Package", Entity.Package);
  Write("F_PayMonth", Entity.PayMonth);
  Write("F_Comments", Entity.Comments);
  Write("F_TotalBefore", Entity.TotalBefore);
  Write("F_DisCount", Entity.DisCount);
  Write("F_Greight", Entity.Greight);
  Write("F_Tax", Entity.Tax);
  Write("F_Total", Entity.Total);
  Write("F_jrnlMemo", Entity.jrnlMemo);
}

std::int16_t clsDataBOutMakeh::ChkNoByProviderName(double OrderoutNo,
                                                   const std::string& ProviderName) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select F_orderoutNo from t_boutmakeh where F_ProviderNo in(select F_ProviderNo "
             "from t_cprovider where F_Name='" +
             ProviderName + "') and F_orderoutNo='" + Text(OrderoutNo) + "'");
    result = NoRow() ? 0 : 1;
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOutMakeh::QueryChkItem(clsEntBOutMakeh& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from t_boutmakeh where F_OrderoutNo ='" + Text(Entity.OrderoutNo) + "'");
    if (!NoRow()) {
      ReadOrder(Entity);
      result = 1;
    }
    rs().Close();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOutMakeh::QueryMaxItem(clsEntBOutMakeh& maxitem) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::QueryMaxItem(*this, kNumbers, [&] { ReadOrder(maxitem); });
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOutMakeh::QueryOrderoutNo(clsEntBOutMakeh& Entity, const Date& OrderoutDate) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select max(F_OrderoutNo) AS F_OrderoutNo from t_boutmakeh where F_OrderoutDate='" +
             Text(OrderoutDate) + "'");
    if (!NoRow()) {
      // A day without orders gives one row holding null: 0.
      Entity.OrderoutNo = Nz("F_OrderoutNo", 0).CDbl();
      result = Entity.OrderoutNo != 0 ? 1 : 0;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

Date clsDataBOutMakeh::QueryDateTime() {
  Date result;
  Guard(kPlainReport, [&] {
    Open("select now() as f_datetime", 1, 2);
    result = Value("f_datetime").CDate();
    rs().Close();
  }, [&] { result = Date(); });
  return result;
}

std::int16_t clsDataBOutMakeh::QueryStatus(clsEntBOutMakeh& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select F_Flags from t_boutmakeh where F_OrderOutNo ='" + Text(Entity.OrderoutNo) +
             "'");
    if (NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    // No null test: a null flag is simply not 1.
    const Variant flags = Value("F_Flags");
    result = !flags.IsNull() && flags.CDbl() == 1 ? 1 : 2;
    rs().Close();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOutMakeh::AddRecord(clsEntBOutMakeh& Entity, const std::string& strTableName,
                                         std::int16_t Istatus) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    result = numbering::StoreDocument(*this, kNumbers, Text(Entity.OrderoutNo), [&] {
      WriteNumberToDeliverAddr(Entity);
      Write("F_Tabler", Entity.Tabler);
      Write("F_Tabletime", Date::Now());  // the client's time, not the entity's
      WriteProviderNameToJrnlMemo(Entity);
    });
    if (result == 0) return;  // the number is taken: t_sitemno stays as it is
    numbering::RememberNumber(*this, Istatus, strTableName, Entity.OrderoutNo,
                              Entity.OrderoutDate);
    result = 1;
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOutMakeh::UpdateRecord(clsEntBOutMakeh& Entity, const std::string& OrderoutNo,
                                            std::int16_t UpdateCondition) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    rs().SetCursorType(Recordset::kKeyset);
    rs().SetLockType(Recordset::kOptimistic);
    switch (UpdateCondition) {
      case 1:
        KeysetEdit("select * from t_boutmakeh where F_OrderoutNo ='" + OrderoutNo + "'");
        if (NoRow()) {
          result = 0;
          rs().Close();
          return;
        }
        // The entity's number is written too, so the order can move.
        WriteNumberToDeliverAddr(Entity);
        WriteProviderNameToJrnlMemo(Entity);
        rs().Update();
        rs().Close();
        break;
      case 2:
        Open("update t_boutmakeh set F_Checker='" + Entity.Checker +
                 "',F_CheckerTime = now() where F_OrderoutNo ='" + OrderoutNo + "'",
             2, 3);
        break;
      case 3:
        Open("update t_boutmakeh set F_Approve='" + Entity.Approve +
                 "',F_ApproveTime = now() where F_OrderoutNo ='" + OrderoutNo + "'",
             2, 3);
        break;
      case 4:
        Open("update t_boutmakeh set F_Flags='" + Text(Entity.Flags) +
                 "' where F_OrderoutNo ='" + OrderoutNo + "'",
             2, 3);
        break;
      default:
        break;
    }
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOutMakeh::QueryMaxItemDelete(clsEntBOutMakeh& maxitemdelete,
                                                  const Date& currentdate) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::QueryMaxItemDelete(*this, kNumbers, currentdate, [&] {
      // No null test: a day without orders fails here.
      maxitemdelete.OrderoutNo = Value("F_OrderoutNo").CDbl();
    });
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOutMakeh::DeleteRecord(clsEntBOutMakeh& Entity, std::int16_t DeleteStatus,
                                            const std::string& strTableName) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::DeleteDocument(*this, kNumbers, DeleteStatus,
                                       numbering::NumberText(Entity.OrderoutNo),
                                       Entity.OrderoutDate, strTableName);
  }, [&] { result = 0; });
  return result;
}

Variant clsDataBOutMakeh::QueryLasted12month(Collection<clsEntBOutMakeh>* objcollMonth,
                                             const std::string& UserId) {
  Variant result;
  Guard(kPlainReport, [&] {
    const std::string filtered =
        "select distinct left(F_OrderoutNo,6) as F_OrderoutNo  from t_boutmakeh t0 inner join "
        "t_dataright t1 on t1.f_moduleid='S' and t1.f_rightid=t0.F_ProviderNo and t1.f_userid='" +
        UserId + "' order by F_OrderoutNo desc limit 0,12";
    const std::string unfiltered =
        "select distinct left(F_OrderoutNo,6) as F_OrderoutNo  from t_boutmakeh order by "
        "F_OrderoutNo desc limit 0,12";
    ReadOpen(rights::Choose(*this, rights::Module::kSuppliers, UserId, rights::FreshRs::kNo,
                            filtered, unfiltered));
    // The month's six digits become the number.
    FillCollection(objcollMonth, [&](clsEntBOutMakeh& e) {
      e.OrderoutNo = Nz("F_OrderoutNo", "").CDbl();
    });
    result = Variant(std::int16_t{1});
  }, [&] { result = Variant(std::int16_t{0}); });
  return result;
}

std::int16_t clsDataBOutMakeh::QueryMonthItem(Collection<clsEntBOutMakeh>* objcollMonthItem,
                                              const std::string& OutMonth,
                                              const std::string& UserId) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    const std::string filtered =
        "select t0.* from t_boutmakeh t0 inner join t_dataright t1 on t1.f_moduleid='S' and "
        "t1.f_rightid=t0.F_ProviderNo and t1.f_userid='" +
        UserId + "' and left(F_OrderoutNo,6)='" + OutMonth + "'";
    const std::string unfiltered =
        "select * from t_boutmakeh where left(F_OrderoutNo,6)='" + OutMonth + "'";
    ReadOpen(rights::Choose(*this, rights::Module::kSuppliers, UserId, rights::FreshRs::kNo,
                            filtered, unfiltered));
    bool found = false;  // set by the first row
    FillCollection(objcollMonthItem, [&](clsEntBOutMakeh& e) {
      ReadOrder(e);
      found = true;
    });
    result = found ? 1 : 0;
  }, [&] { result = 0; });
  return result;
}

}  // namespace corvane
