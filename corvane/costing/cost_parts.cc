// Cost estimate parts.
#include "corvane/costing/cost_parts.h"

#include <string>

namespace corvane {

void clsDataBCosti::WriteAll(const clsEntBCosti& Entity) {
  Write("F_EstNo", Entity.EstNo);
  Write("F_ItemNo", Entity.ItemNo);
  Write("F_CurrencyID", Entity.CurrencyID);
  Write("F_Dosage", Entity.Dosage);
  Write("F_Waste", Entity.Waste);
  Write("F_Price", Entity.Price);
  Write("F_CostPrice", Entity.CostPrice);
}

std::int16_t clsDataBCosti::DeleteRecord(clsEntBCosti& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    KeysetEdit("select * from T_BCosti where F_EstNo ='" + Text(Entity.EstNo) +
               "' and F_ItemNo = '" + Entity.ItemNo + "'");
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

std::int16_t clsDataBCosti::UpdateRecord(clsEntBCosti& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    KeysetEditByReadOpen("select * from T_BCosti where F_EstNo = '" + Text(Entity.EstNo) +
                         "' and F_ItemNo = '" + Entity.ItemNo + "'");
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

std::int16_t clsDataBCosti::AddRecord(clsEntBCosti& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    ReadOpen("select * from T_BCosti where F_EstNo = '" + Text(Entity.EstNo) +
             "' and F_ItemNo = '" + Entity.ItemNo + "'");
    if (!NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    rs().Close();
    Open("select * from T_BCosti", 2, 3);
    rs().AddNew();
    WriteAll(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBCosti::QueryAll(Collection<clsEntBCosti>* colBCosti, double dblEstNo) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from T_BCosti where F_EstNo  = '" + Text(dblEstNo) + "'");
    FillCollection(colBCosti, [&](clsEntBCosti& e) {
      e.EstNo = Nz("F_EstNo", 0).CDbl();
      e.ItemNo = Nz("F_ItemNo", "").CStr();
      e.Dosage = Nz("F_Dosage", 0).CDbl();
      e.Waste = Nz("F_Waste", 0).CDbl();
      e.CurrencyID = Nz("F_CurrencyID", "").CStr();
      e.Price = Nz("F_Price", 0).CDbl();
      e.CostPrice = Nz("F_CostPrice", 0).CDbl();
      result = 1;
    });
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCosti::QueryByEstNo(clsEntBCosti& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from T_BCosti where F_EstNo = '" + Text(Entity.EstNo) +
             "' and F_ItemNo = '" + Entity.ItemNo + "'");
    if (!NoRow()) {
      Entity.Dosage = Nz("F_Dosage", 0).CDbl();
      Entity.Waste = Nz("F_Waste", 0).CDbl();
      Entity.CurrencyID = Nz("F_CurrencyID", "").CStr();
      Entity.Price = Nz("F_Price", 0).CDbl();
      Entity.CostPrice = Nz("F_CostPrice", 0).CDbl();
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

}  // namespace corvane
