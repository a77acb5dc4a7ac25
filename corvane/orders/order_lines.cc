// Sales order lines: reading, adding, changing, renumbering and deleting the
// rows of T_BOrderi, and the one read of the production table T_POrder.
#include "corvane/orders/order_lines.h"

namespace corvane {

void clsDataBOrderi::ReadFlagsToBaseLine(clsEntBOrderi& e) {
  e.Flags = Nz("F_Flags", 0).CInt();
  e.SendMode = Nz("F_SendMode", 0).CStr();
  e.Rate = Nz("F_Rate", 0).CDbl();
  e.TaxSort = Nz("F_TaxSort", 0).CStr();
  e.Tax = Nz("F_Tax", 0).CDbl();
  e.CustItemNo = Nz("F_CustItemNo", "").CStr();
  e.DisPerRow = Nz("F_DisPerRow", 0).CDbl();
  e.PrjCode = Nz("F_PrjCode", "").CStr();
  e.ItemName = Nz("F_ItemName", "").CStr();
  e.FcTotal = Nz("F_FcTotal", 0).CDbl();
  e.LcTotal = Nz("F_LcTotal", 0).CDbl();
  e.CustOrderNo = Nz("F_CustOrderNo", "").CStr();
  e.ItemGross = Nz("F_ItemGross", 0).CDbl();
  e.TrgType = Nz("F_TrgType", "").CStr();
  e.TrgCode = Nz("F_TrgCode", 0).CDbl();
  e.TrgLine = Nz("F_TrgLine", "").CStr();
  e.BaseType = Nz("F_BaseType", "").CStr();
  e.BaseCode = Nz("F_BaseCode", 0).CDbl();
  e.BaseLine = Nz("F_BaseLine", "").CStr();
}

void clsDataBOrderi::WriteFlagsToBaseLine(const clsEntBOrderi& e) {
  Write("F_Flags", e.Flags);
  Write("F_SendMode", e.SendMode);
  Write("F_Rate", e.Rate);
  Write("F_TaxSort", e.TaxSort);
  Write("F_Tax", e.Tax);
  Write("F_CustItemNo", e.CustItemNo);
  Write("F_DisPerRow", e.DisPerRow);
  Write("F_PrjCode", e.PrjCode);
  Write("F_ItemName", e.ItemName);
  Write("F_FcTotal", e.FcTotal);
  Write("F_LcTotal", e.LcTotal);
  Write("F_CustOrderNo", e.CustOrderNo);
  Write("F_ItemGross", e.ItemGross);
  Write("F_TrgType", e.TrgType);
  Write("F_TrgCode", e.TrgCode);
  Write("F_TrgLine", e.TrgLine);
  Write("F_BaseType", e.BaseType);
  Write("F_BaseCode", e.BaseCode);
  Write("F_BaseLine", e.BaseLine);
}

std::int16_t clsDataBOrderi::QueryBkQty(clsEntBOrderi& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    FreshRs();
    Open("Select * From T_BOrderi Where F_ProdNo='" + Text(Entity.ProdNo) + "'", 1, 2);
    if (NoRow()) {
      ResetRs();
      result = 0;
      return;
    }
    Entity.BkQty = Nz("F_BkQty", "0").CDbl();
    result = 1;
    ResetRs();
  }, [&] { result = 2; });
  return result;
}

Variant clsDataBOrderi::UpdateNo(clsEntBOrderi& Entity) {
  Variant result;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("Select * From  T_BOrderi  where F_OrderNo= '" + Text(Entity.OrderNo) +
             "' order by cast(F_NO  as SIGNED)",
         1, 2);
    if (NoRow()) {
      ResetRs();
      return;
    }
    std::int32_t counter = 0;
    while (!rs().Eof()) {
      rs().Update();  // nothing is pending here; the call is kept as it was
      counter = counter + 1;
      Write("F_No", counter);
      rs().Update();
      rs().MoveNext();
    }
    ResetRs();
  });
  return result;
}

std::int16_t clsDataBOrderi::QueryByID(clsEntBOrderi& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select * from T_BOrderi where F_OrderNo ='" + Text(Entity.OrderNo) +
             "' and F_ItemNo = '" + Entity.ItemNo + "'");
    if (NoRow()) {
      result = 0;
      rs().Close();
      return;
    }
    Entity.OrderNo = Nz("F_OrderNo", "").CDbl();
    Entity.ItemNo = Nz("F_ItemNo", "").CStr();
    Entity.Package = Nz("F_Package", "").CStr();
    Entity.Currency = Nz("F_Currency", "").CStr();
    Entity.Price = Nz("F_Price", 0).CDbl();
    Entity.OrdQty = Nz("F_OrdQty", "").CDbl();
    Entity.BkQty = Nz("F_BkQty", 0).CDbl();
    Entity.No = Nz("F_No", "").CStr();
    Entity.DeliverDate = Nz("F_DeliverDate", 0).CDate();
    Entity.Remark = Nz("F_Remark", 0).CStr();
    Entity.ProdNo = Nz("F_ProdNo", 0).CDbl();
    Entity.InQty = Nz("F_InQty", 0).CDbl();
    Entity.InDate = Nz("F_InDate", 0).CDate();
    Entity.OutQty = Nz("F_OutQty", 0).CDbl();
    Entity.OutDate = Nz("F_OutDate", 0).CDate();
    Entity.Status = Nz("F_Status", 0).CInt();
    ReadFlagsToBaseLine(Entity);
    result = 1;
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOrderi::DeleteAllRecorder(double OrderNo) {
  std::int16_t result = 0;
  Guard(kAlertReport, [&] {
    FreshRs();
    Open("select * from T_BOrderi where F_OrderNo =" + Text(OrderNo), 1, 2);
    if (NoRow()) {
      result = 2;  // rs stays open
      return;
    }
    rs().Delete(1);
    rs().Update();
    result = 1;
    rs().Close();
  });
  return result;
}

std::int16_t clsDataBOrderi::DeleteBOrderi(clsEntBOrderi& Entityi) {
  std::int16_t result = 0;
  Guard(kAlertReport, [&] {
    FreshRs();
    Open("select * from T_BOrderi where F_OrderNo =" + Text(Entityi.OrderNo) + " and F_ItemNo='" +
             Entityi.ItemNo + "'",
         1, 2);
    if (NoRow()) {
      rs().AddNew();  // left pending on an open rs; nothing is stored
      result = 2;
      return;
    }
    rs().Delete(1);
    result = 1;
    rs().Close();
  });
  return result;
}

std::int16_t clsDataBOrderi::QueryAllRecord(Collection<clsEntBOrderi>* objColl, double OrderNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    ReadOpen("select * from T_BOrderi where F_OrderNo=" + Text(OrderNo) + " order by F_ItemNo");
    FillCollection(objColl, [&](clsEntBOrderi& e) {
      e.OrderNo = Nz("F_OrderNo", "").CDbl();
      e.ItemNo = Nz("F_ItemNo", "").CStr();
      e.Package = Nz("F_Package", "").CStr();
      e.ProdNo = Nz("F_ProdNo", "0").CDbl();
      e.Currency = Nz("F_Currency", "").CStr();
      e.Price = Nz("F_Price", 0).CDbl();
      e.OrdQty = Nz("F_OrdQty", "").CDbl();
      e.DeliverDate = Nz("F_DeliverDate", 0).CDate();
      e.Remark = Nz("F_Remark", 0).CStr();
      e.InQty = Nz("F_InQty", 0).CDbl();
      e.InDate = Nz("F_InDate", 0).CDate();
      e.OutQty = Nz("F_OutQty", 0).CDbl();
      e.BkQty = Nz("F_BkQty", 0).CDbl();
      e.No = Nz("F_No", "").CStr();
      e.OutDate = Nz("F_OutDate", 0).CDate();
      e.Status = Nz("F_Status", 0).CInt();
      ReadFlagsToBaseLine(e);
    });
  });
  return result;
}

Variant clsDataBOrderi::AddBOrderi(clsEntBOrderi& Entityi) {
  Variant result;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("select * from T_BOrderi where F_OrderNo =" + Text(Entityi.OrderNo) + " and F_No='" +
             Entityi.No + "'",
         1, 2);
    if (!NoRow()) {
      result = std::int16_t{2};
      rs().Close();
      return;
    }
    rs().AddNew();
    Write("F_OrderNo", Entityi.OrderNo);
    Write("F_ItemNo", Entityi.ItemNo);
    Write("F_Currency", Entityi.Currency);
    Write("F_Price", Entityi.Price);
    Write("F_OrdQty", Entityi.OrdQty);
    Write("F_DeliverDate", Entityi.DeliverDate);
    Write("F_Remark", Entityi.Remark);
    Write("F_ProdNo", std::int16_t{0});
    Write("F_InQty", std::int16_t{0});
    Write("F_OutQty", std::int16_t{0});
    Write("F_BkQty", Entityi.BkQty);
    Write("F_No", Entityi.No);
    Write("F_OutDate", Entityi.OutDate);
    Write("F_Status", Entityi.Status);
    Write("F_Flags", std::int16_t{0});
    Write("F_SendMode", Entityi.SendMode);
    Write("F_Package", Entityi.Package);
    Write("F_Rate", Entityi.Rate);
    Write("F_TaxSort", Entityi.TaxSort);
    Write("F_Tax", Entityi.Tax);
    Write("F_CustItemNo", Entityi.CustItemNo);
    Write("F_DisPerRow", Entityi.DisPerRow);
    Write("F_PrjCode", Entityi.PrjCode);
    Write("F_ItemName", Entityi.ItemName);
    Write("F_FcTotal", Entityi.FcTotal);
    Write("F_LcTotal", Entityi.LcTotal);
    Write("F_CustOrderNo", Entityi.CustOrderNo);
    Write("F_ItemGross", Entityi.ItemGross);
    Write("F_TrgType", Entityi.TrgType);
    Write("F_TrgCode", Entityi.TrgCode);
    Write("F_TrgLine", Entityi.TrgLine);
    Write("F_BaseType", Entityi.BaseType);
    Write("F_BaseCode", Entityi.BaseCode);
    Write("F_BaseLine", Entityi.BaseLine);
    rs().Update();
    rs().Close();
    result = std::int16_t{1};
  });
  return result;
}

std::int16_t clsDataBOrderi::UpdateRecord(clsEntBOrderi& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("select * from T_BOrderi where F_OrderNo =" + Text(Entity.OrderNo) + " and F_No='" +
             Entity.No + "'",
         1, 2);
    if (NoRow()) {
      result = 2;  // rs stays open
      return;
    }
    rs().Update();  // nothing is pending here; the call is kept as it was
    Write("F_ItemNo", Entity.ItemNo);
    Write("F_Package", Entity.Package);
    Write("F_Currency", Entity.Currency);
    Write("F_Price", Entity.Price);
    Write("F_OrdQty", Entity.OrdQty);
    Write("F_DeliverDate", Entity.DeliverDate);
    Write("F_Remark", Entity.Remark);
    Write("F_InQty", Entity.InQty);
    Write("F_InDate", Entity.InDate);
    Write("F_OutQty", Entity.OutQty);
    Write("F_BkQty", Entity.BkQty);
    Write("F_OutDate", Entity.OutDate);
    Write("F_OrdQty", Entity.OrdQty);
    Write("F_Status", Entity.Status);
    WriteFlagsToBaseLine(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  });
  return result;
}

std::int16_t clsDataBOrderi::QueryOutQtyProdNo(clsEntBOrderi& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select f_orderno,F_OutQty from T_POrder where F_ProdNo ='" + Text(Entity.ProdNo) +
             "'");
    if (NoRow()) {
      result = 0;
      rs().Close();
      return;
    }
    Entity.OrderNo = Nz("f_orderno", 0).CDbl();
    Entity.OutQty = Nz("F_OutQty", "0").CDbl();
    result = 1;
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOrderi::QueryByProdNo(clsEntBOrderi& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    if (Entity.ProdNo != 0) {
      ReadOpen("select * from T_BOrderi where F_ProdNo ='" + Text(Entity.ProdNo) + "'");
    } else {
      ReadOpen("select * from T_BOrderi where F_orderno ='" + Text(Entity.OrderNo) +
               "' and f_itemno ='" + Entity.ItemNo + "'");
    }
    if (NoRow()) {
      result = 0;
      rs().Close();
      return;
    }
    Entity.OrderNo = Nz("F_OrderNo", "").CDbl();
    Entity.ItemNo = Nz("F_ItemNo", "").CStr();
    Entity.Package = Nz("F_Package", "").CStr();
    Entity.Currency = Nz("F_Currency", "").CStr();
    Entity.Price = Nz("F_Price", 0).CDbl();
    Entity.OrdQty = Nz("F_OrdQty", "").CDbl();
    Entity.DeliverDate = Nz("F_DeliverDate", 0).CDate();
    Entity.Remark = Nz("F_Remark", 0).CStr();
    Entity.InQty = Nz("F_InQty", 0).CDbl();
    Entity.InDate = Nz("F_InDate", 0).CDate();
    Entity.OutQty = Nz("F_OutQty", 0).CDbl();
    Entity.OutDate = Nz("F_OutDate", 0).CDate();
    Entity.BkQty = Nz("F_BkQty", 0).CDbl();
    Entity.No = Nz("F_No", "").CStr();
    Entity.Status = Nz("F_Status", 0).CInt();
    ReadFlagsToBaseLine(Entity);
    result = 1;
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOrderi::UpdateRecordByProdNo(clsEntBOrderi& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport.ResetFirst(), [&] {
    if (Entity.ProdNo != 0) {
      KeysetEdit("select * from T_BOrderi where F_ProdNo ='" + Text(Entity.ProdNo) + "'");
    } else {
      // The missing equals sign is in the text as it always was; the server
      // rejects it.
      KeysetEdit("select * from T_BOrderi where F_orderno ='" + Text(Entity.OrderNo) +
                 "' and f_itemno'" + Entity.ItemNo + "'");
    }
    Write("F_OrderNo", Entity.OrderNo);
    Write("F_ItemNo", Entity.ItemNo);
    Write("F_Package", Entity.Package);
    Write("F_Currency", Entity.Currency);
    Write("F_Price", Entity.Price);
    Write("F_OrdQty", Entity.OrdQty);
    Write("F_DeliverDate", Entity.DeliverDate);
    Write("F_Remark", Entity.Remark);
    Write("F_InQty", Entity.InQty);
    Write("F_InDate", Entity.InDate);
    Write("F_OutQty", Entity.OutQty);
    Write("F_OutDate", Entity.OutDate);
    Write("F_OrdQty", Entity.OrdQty);
    Write("F_BkQty", Entity.BkQty);
    Write("F_Status", Entity.Status);
    WriteFlagsToBaseLine(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

}  // namespace corvane
