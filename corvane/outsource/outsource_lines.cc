// Outsource order lines.
#include "corvane/outsource/outsource_lines.h"

#include <string>
#include <utility>

namespace corvane {
namespace {

// Adds a line at the end of the caller's collection; there must be one.
void Append(Collection<clsEntBOutMakei>* collection, std::shared_ptr<clsEntBOutMakei> line) {
  if (collection == nullptr) throw Error(errc::kObjectRequired, "Object required");
  collection->Add(std::move(line));
}

// The waiting quantity summed on a recordset of its own: null, or no row,
// as 0.
double WaitQty(Recordset& waiting) {
  if (waiting.Bof() && waiting.Eof()) return 0;
  const bool is_null = waiting.Fields("F_WaitQty").IsNull();
  return is_null ? 0 : waiting.Fields("F_WaitQty").Value().CDbl();
}

}  // namespace

void clsDataBOutMakei::ReadSItemNoToEname(clsEntBOutMakei& e) {
  e.SItemNo = Nz("F_SItemNo", "").CStr();
  e.DisPerRow = Nz("F_DisPerRow", 0).CDbl();
  e.Rate = Nz("F_Rate", 0).CDbl();
  e.TaxSort = Nz("F_TaxSort", "").CStr();
  e.Tax = Nz("F_Tax", 0).CDbl();
  e.FcTotal = Nz("F_FcTotal", 0).CDbl();
  e.LcTotal = Nz("F_LcTotal", 0).CDbl();
  e.StepCode = Nz("F_StepCode", "").CStr();
  e.Eitem = Nz("F_Eitem", "").CStr();
  e.Ename = Nz("F_Ename", "").CStr();
}

void clsDataBOutMakei::ReadCustNoToEname(clsEntBOutMakei& e) {
  e.CustNo = Nz("F_CustNo", "").CStr();
  e.CorderNo = Nz("F_CorderNo", "").CStr();
  e.ItemName = Nz("F_ItemName", "").CStr();
  e.BKQty = Nz("F_BKQty", 0).CDbl();
  ReadSItemNoToEname(e);
}

void clsDataBOutMakei::WriteCorderNoToStatus(const clsEntBOutMakei& Entity) {
  Write("F_CorderNo", Entity.CorderNo);
  Write("F_CurrencyID", Entity.CurrencyID);
  Write("F_CustNo", Entity.CustNo);
  Write("F_DeliverDate", Entity.DeliverDate);
  Write("F_ItemNo", Entity.ItemNo);
  Write("F_OrderoutNo", Entity.OrderoutNo);
  Write("f_OrdoutQty", Entity.OrdoutQty);
  Write("F_Price", Entity.Price);
  Write("F_ProdNo", Entity.ProdNo);
  Write("F_Remark", Entity.Remark);
  Write("F_SupportPart", Entity.SupportPart);
  Write("F_Status", Entity.Status);
}

void clsDataBOutMakei::WriteItemNameToEname(const clsEntBOutMakei& Entity) {
  Write("F_ItemName", Entity.ItemName);
  Write("F_BkQty", Entity.BKQty);
  Write("F_SItemNo", Entity.SItemNo);
  Write("F_DisPerRow", Entity.DisPerRow);
  Write("F_Rate", Entity.Rate);
  Write("F_TaxSort", Entity.TaxSort);
  Write("F_Tax", Entity.Tax);
  Write("F_FcTotal", Entity.FcTotal);
  Write("F_LcTotal", Entity.LcTotal);
  Write("F_StepCode", Entity.StepCode);
  Write("F_Eitem", Entity.Eitem);
  Write("F_Ename", Entity.Ename);
}

std::int16_t clsDataBOutMakei::QueryByProdNo(Collection<clsEntBOutMakei>* colBOutMakei,
                                             double dblProdNo) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from T_BOutMakei where F_ProdNo = '" + Text(dblProdNo) + "'");
    while (!rs().Eof()) {
      auto e = std::make_shared<clsEntBOutMakei>();
      e->OrderoutNo = Nz("F_OrderoutNo", 0).CDbl();
      e->ProdNo = Nz("F_ProdNo", 0).CDbl();
      e->ItemNo = Nz("F_ItemNo", "").CStr();
      e->CurrencyID = Nz("F_CurrencyID", "").CStr();
      e->Price = Nz("F_Price", 0).CDbl();
      e->OrdoutQty = Nz("F_OrdoutQty", 0).CDbl();
      e->DeliverDate = Nz("F_DeliverDate", 0).CDate();
      e->SupportPart = Nz("F_SupportPart", 0).CInt();
      e->Remark = Nz("F_Remark", "").CStr();
      e->InQty = Nz("F_InQty", 0).CDbl();
      e->InDate = Nz("F_InDate", 0).CDate();
      e->Status = Nz("F_Status", 0).CInt();
      ReadCustNoToEname(*e);
      rs().MoveNext();
      Append(colBOutMakei, std::move(e));
      result = 1;
    }
    // The recordset is not closed: rs stays open at its end.
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOutMakei::QueryBOutMakei(std::shared_ptr<clsEntBOutMakei>& Entity,
                                              double OrderoutNo,
                                              Collection<clsEntBOutMakei>* collBOutMakei) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from t_boutmakei where F_OrderOutNo='" + Text(OrderoutNo) + "'");
    while (!rs().Eof()) {
      // The caller's entity is the work variable; the order number is not
      // read. A null number, price, quantity, delivery date or support part
      // cannot be converted and ends the call.
      Entity = std::make_shared<clsEntBOutMakei>();
      Entity->ProdNo = Nz("F_ProdNo", "").CDbl();
      Entity->ItemNo = Nz("F_ItemNo", "").CStr();
      Entity->CorderNo = Nz("F_CorderNo", "").CStr();
      Entity->CustNo = Nz("F_Custno", "").CStr();
      Entity->CurrencyID = Nz("F_CurrencyID", "").CStr();
      Entity->Price = Nz("F_Price", "").CDbl();
      Entity->OrdoutQty = Nz("F_OrdoutQty", "").CDbl();
      Entity->DeliverDate = Nz("F_DeliverDate", "").CDate();
      Entity->InQty = Nz("F_Inqty", 0).CDbl();
      Entity->InDate = Nz("F_InDate", 0).CDate();
      Entity->Status = Nz("F_status", 0).CInt();
      Entity->SupportPart = Nz("F_SupportPart", "").CInt();
      Entity->Remark = Nz("F_Remark", "").CStr();
      Entity->ItemName = Nz("F_ItemName", "").CStr();
      Entity->BKQty = Nz("F_BKQty", 0).CDbl();
      ReadSItemNoToEname(*Entity);
      rs().MoveNext();
      Append(collBOutMakei, Entity);
      Entity = nullptr;
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOutMakei::AddRecord(clsEntBOutMakei& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    KeysetEditByReadOpen("select * from t_boutmakei where F_OrderOutNo='" +
                         Text(Entity.OrderoutNo) + "'and F_prodno='" + Text(Entity.ProdNo) + "'");
    if (!NoRow()) {
      result = 0;
      rs().Close();
      return;
    }
    // A new line gets no received quantity or date.
    rs().AddNew();
    WriteCorderNoToStatus(Entity);
    WriteItemNameToEname(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOutMakei::UpdateRecord(clsEntBOutMakei& Entity, double OrderoutNo,
                                            double ProdNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    KeysetEditByReadOpen("select * from t_boutmakei where F_OrderOutNo ='" + Text(OrderoutNo) +
                         "'and F_prodno='" + Text(ProdNo) + "'");
    if (NoRow()) {
      result = 0;
      rs().Close();
      return;
    }
    WriteCorderNoToStatus(Entity);
    Write("F_InDate", Entity.InDate);
    Write("F_InQty", Entity.InQty);
    WriteItemNameToEname(Entity);
    rs().Update();
    result = 1;
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOutMakei::DeleteRecord(double OrderoutNo, const clsEntBOutMakei& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    Open("delete from t_boutmakei where F_OrderOutNo ='" + Text(OrderoutNo) + "'and F_prodno='" +
             Text(Entity.ProdNo) + "'",
         2, 3);
    result = 1;
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOutMakei::ChkInputCount(clsEntBOutMakei& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    double produced = 0, sold_back = 0, given_out = 0;
    ReadOpen("select f_Ordqty from t_porder where f_prodno='" + Text(Entity.ProdNo) + "'");
    if (!rs().Bof() && !rs().Eof()) produced = Nz("f_Ordqty", 0).CDbl();
    rs().Close();
    ReadOpen("select F_BKQty from t_Borderi where f_prodno='" + Text(Entity.ProdNo) + "'");
    if (!rs().Bof() && !rs().Eof()) sold_back = Nz("F_BKQty", 0).CDbl();
    rs().Close();
    // Every line of the number, in every order and state, this one too.
    ReadOpen("select sum(f_OrdoutQty) as f_OrdoutQty from t_boutmakei where f_prodno='" +
             Text(Entity.ProdNo) + "'");
    if (!rs().Bof() && !rs().Eof()) given_out = Nz("f_OrdoutQty", 0).CDbl();
    rs().Close();
    Entity.OrdoutQty = sold_back + produced - given_out;
    result = 1;
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOutMakei::ChkProdNobyOrderOutNo(clsEntBOutMakei& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from T_BOutMakei where F_ProdNo='" + Text(Entity.ProdNo) +
             "' and F_OrderOutNo='" + Text(Entity.OrderoutNo) + "'");
    if (NoRow()) {
      result = 0;
      rs().Close();
      return;
    }
    Entity.ItemNo = Nz("F_ItemNo", "").CStr();
    Entity.OrdoutQty = Nz("F_OrdoutQty", 0).CDbl();
    Entity.CurrencyID = Nz("F_CurrencyID", "").CStr();
    Entity.Price = Nz("F_Price", 0).CDbl();
    Entity.DeliverDate = Nz("F_DeliverDate", 0).CDate();
    Entity.SupportPart = Nz("F_SupportPart", 0).CInt();
    Entity.Remark = Nz("F_Remark", "").CStr();
    Entity.InQty = Nz("F_InQty", 0).CDbl();
    Entity.InDate = Nz("F_InDate", 0).CDate();
    Entity.Status = Nz("F_Status", 0).CInt();
    ReadCustNoToEname(Entity);
    result = 1;
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBOutMakei::QueryProdNo(clsEntBOutMakei& clsEntBOutMakei, std::int16_t ProdNo) {
  auto& e = clsEntBOutMakei;
  std::int16_t result = 0;
  Guard(kAlertReport, [&] {
    result = 0;
    FreshRs();
    switch (ProdNo) {
      case 1: {  // a work order, its number in OrderoutNo
        Open("select Mh.* from T_MMakePlanh Mh Where mh.F_WoNo='" + Text(e.OrderoutNo) + "' ", 1,
             4);
        if (NoRow()) {
          result = 2;
          rs().Close();
          return;
        }
        e.ItemNo = Nz("F_ItemNo", "").CStr();
        e.ProdNo = Nz("F_ProdNo", 0).CDbl();
        double waiting = 0;
        {
          Recordset local;
          local.Open(
              "Select Sum(F_WaitQty) As F_WaitQty From T_WItemi Wi,( select * From T_WItemh "
              "Where F_QType=1) Wh  Where Wi.F_WaitTestNo=Wh.F_WaitTestNo And Wi.F_ItemNo='" +
                  e.ItemNo + "' And Wi.F_ProdNo='" + Text(e.ProdNo) + "' And Wi.F_WoNo='" +
                  Text(e.OrderoutNo) + "'",
              session().Connection(), 1, 2, -1);
          waiting = WaitQty(local);
        }  // dropped without Close
        if (Nz("F_OrdQty", 0).CDbl() - waiting <= 0) {
          rs().Close();
          result = 2;
          return;
        }
        e.OrdoutQty = Nz("F_OrdQty", 0).CDbl() - waiting;
        e.OrderoutNo = Nz("F_WoNo", 0).CDbl();
        result = 1;
        rs().Close();
        break;
      }
      case 2: {  // an outsource order of supplier CustNo
        Open("select * from T_BOutMakei,(select F_OrderOutNo as PurNo from T_BOutMakeh where "
             "F_Approve<>'' and F_ProviderNo='" +
                 e.CustNo + "' ) h where F_OrderOutNo='" + Text(e.OrderoutNo) +
                 "' And F_ProdNo='" + Text(e.ProdNo) +
                 "' and F_OrderOutNo=h.PurNo and F_Status=0",
             1, 4);
        if (NoRow()) {
          result = 2;
          rs().Close();
          return;
        }
        e.ItemNo = Nz("F_ItemNo", "").CStr();
        e.ProdNo = Nz("F_ProdNo", 0).CDbl();
        e.OrderoutNo = Nz("F_OrderoutNo", 0).CDbl();
        double waiting = 0;
        {
          Recordset local;
          local.Open(
              "Select Sum(F_WaitQty) As F_WaitQty From T_WItemi Wi,( select * From T_WItemh "
              "Where F_QType=2) Wh  Where Wi.F_WaitTestNo=Wh.F_WaitTestNo And  "
              "Wi.F_OrderOutNo='" +
                  Text(e.OrderoutNo) + "' And Wi.F_ItemNo='" + e.ItemNo + "' And Wi.F_ProdNo='" +
                  Text(e.ProdNo) + "'",
              session().Connection(), 1, 2, -1);
          waiting = WaitQty(local);
        }  // dropped without Close
        if (Nz("F_OrdOutQty", 0).CDbl() - waiting <= 0) {
          rs().Close();
          result = 2;
          return;
        }
        e.OrdoutQty = Nz("F_OrdOutQty", 0).CDbl() - waiting;
        result = 1;
        rs().Close();
        break;
      }
      case 3: {  // a purchase order of supplier CustNo
        Open("select T_CPuri.* from T_CPuri,(select F_PurNo as PurNo from T_CPurh where "
             "F_Approve<>'' and F_Status=2 and F_ProviderNo='" +
                 e.CustNo + "') h where F_PurNo='" + Text(e.OrderoutNo) + "' And F_ItemNo= '" +
                 e.ItemNo + "' and F_PurNo=h.PurNo and F_Status=2",
             1, 4);
        if (NoRow()) {
          result = 2;
          rs().Close();
          return;
        }
        double waiting = 0;
        {
          Recordset local;
          local.Open("Select Sum(i.F_WaitQty) As F_WaitQty From T_WItemi i  Where  i.F_PurNo='" +
                         Text(e.OrderoutNo) + "' And i.F_ItemNo='" + e.ItemNo + "'",
                     session().Connection(), 1, 2, -1);
          waiting = WaitQty(local);
        }  // dropped without Close
        if (Nz("F_PurQty", 0).CDbl() - waiting <= 0) {
          rs().Close();
          result = 2;
          return;
        }
        e.ItemNo = Nz("F_ItemNo", "").CStr();
        e.ProdNo = Nz("F_ProdNo", 0).CDbl();
        e.OrdoutQty = Nz("F_PurQty", 0).CDbl() - waiting;
        e.OrderoutNo = Nz("F_PurNo", 0).CDbl();
        result = 1;
        rs().Close();
        break;
      }
      default:  // an unknown kind: no statement
        break;
    }
  }, [&] { result = 0; });
  return result;
}

}  // namespace corvane
