// Quotation lines.
#include "corvane/quotations/quotation_lines.h"

namespace corvane {

void clsDataBPricei::WriteLine(const clsEntBPricei& Entity) {
  Write("F_CitemNO", Entity.CitemNO);
  Write("F_ItemNo", Entity.ItemNo);
  Write("F_Price", Entity.Price);
  Write("F_QuotNo", Entity.QuotNo);
  Write("F_Remark", Entity.Remark);
  Write("F_Currency", Entity.Currency);
  Write("F_OrdQty", Entity.OrdQty);
  Write("F_DeliverDate", Entity.DeliverDate);
  Write("F_ProdNo", std::int16_t{0});
  Write("F_InQty", std::int16_t{0});
  Write("F_OutQty", std::int16_t{0});
  Write("F_BkQty", Entity.BkQty);
  Write("F_No", Entity.No);
  Write("F_Flags", std::int16_t{0});
  Write("F_Rate", Entity.Rate);
  Write("F_TaxSort", Entity.TaxSort);
  Write("F_Tax", Entity.Tax);
  Write("F_DisPerRow", Entity.DisPerRow);
  Write("F_ItemName", Entity.ItemName);
  Write("F_FcTotal", Entity.FcTotal);
  Write("F_LcTotal", Entity.LcTotal);
}

std::int16_t clsDataBPricei::QueryPrice(Collection<clsEntBPricei>* objColl,
                                        const std::string& PItemNo) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    FreshRs();
    KeysetEditByReadOpen("select distinct(F_Price) from t_bpricei where F_ItemNo='" + PItemNo +
                         "'");
    FillCollection(objColl, [&](clsEntBPricei& e) {
      e.Price = Nz("F_Price", "").CDbl();  // a null fails: "" is no number
      result = 1;
    }, AddOrder::kBeforeMoveNext);
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPricei::QueryBPricei(std::shared_ptr<clsEntBPricei>& Entity, double QuotNo,
                                          Collection<clsEntBPricei>* collBPricei) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    KeysetEditByReadOpen("select * from t_bpricei where F_QuotNo='" + Text(QuotNo) + "'");
    while (!rs().Eof()) {
      Entity = std::make_shared<clsEntBPricei>();
      Entity->ItemNo = Nz("F_ItemNo", 0).CStr();  // a null reads as "0"
      Entity->Price = Nz("F_Price", "").CDbl();   // a null fails: "" is no number
      Entity->CitemNO = Nz("F_CitemNO", "").CStr();
      Entity->Remark = Nz("F_Remark", "").CStr();
      Entity->Currency = Nz("F_Currency", "").CStr();
      Entity->OrdQty = Nz("F_OrdQty", 0).CDbl();
      Entity->DeliverDate = Nz("F_DeliverDate", 0).CDate();
      Entity->BkQty = Nz("F_BkQty", 0).CDbl();
      Entity->No = Nz("F_No", "").CStr();
      Entity->Rate = Nz("F_Rate", 0).CDbl();
      Entity->TaxSort = Nz("F_TaxSort", "").CStr();
      Entity->Tax = Nz("F_Tax", 0).CDbl();
      Entity->DisPerRow = Nz("F_DisPerRow", 0).CDbl();
      Entity->ItemName = Nz("F_ItemName", "").CStr();
      Entity->FcTotal = Nz("F_FcTotal", 0).CDbl();
      Entity->LcTotal = Nz("F_LcTotal", 0).CDbl();
      rs().MoveNext();
      if (collBPricei == nullptr) throw Error(errc::kObjectRequired, "Object required");
      collBPricei->Add(Entity);
      result = 1;
    }
    rs().Close();
    if (result != 1) result = 0;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPricei::AddRecord(clsEntBPricei& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    KeysetEditByReadOpen("select * from t_bpricei where F_QuotNo='" + Text(Entity.QuotNo) +
                         "'and F_ItemNo='" + Entity.ItemNo + "'");
    if (!NoRow()) {
      // The pair of quotation and item is unique by this test alone.
      rs().Close();
      result = 0;
      return;
    }
    rs().AddNew();
    WriteLine(Entity);
    rs().Update();
    result = 1;
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBPricei::UpdateRecord(clsEntBPricei& Entity, double QuotNo,
                                          const std::string& varItemNo) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    // No row test: on a line that does not exist the first write fails. The
    // entity's quotation and item replace the key.
    KeysetEditByReadOpen("select * from t_bpricei where F_QuotNO ='" + Text(QuotNo) +
                         "'and F_ItemNo='" + varItemNo + "'");
    WriteLine(Entity);
    rs().Update();
    result = 1;
    rs().Close();
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPricei::DeleteRecord(clsEntBPricei& Entity, double QuotNo) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    // No test whether the line existed; the statement leaves rs closed.
    Open("delete from t_bpricei where F_QuotNO ='" + Text(QuotNo) + "'and F_ItemNo='" +
             Entity.ItemNo + "'",
         2, 3);
    result = 1;
  }, [&] { result = 0; });
  return result;
}

}  // namespace corvane
