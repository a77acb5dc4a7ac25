// Cost estimate wages.
#include "corvane/costing/cost_wages.h"

#include <string>

namespace corvane {

void clsDataBCosts::WriteAll(const clsEntBCosts& Entity) {
  Write("F_EstNo", Entity.EstNo);
  Write("F_WageItem", Entity.WageItem);
  Write("F_Wage", Entity.Wage);
}

std::int16_t clsDataBCosts::DeleteRecord(clsEntBCosts& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    KeysetEdit("select * from T_BCosts where F_EstNo ='" + Text(Entity.EstNo) +
               "' and F_WageItem = '" + Entity.WageItem + "'");
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

std::int16_t clsDataBCosts::UpdateRecord(clsEntBCosts& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    KeysetEditByReadOpen("select * from T_BCosts where F_EstNo = '" + Text(Entity.EstNo) +
                         "' and F_WageItem = '" + Entity.WageItem + "'");
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

std::int16_t clsDataBCosts::AddRecord(clsEntBCosts& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    ReadOpen("select * from T_BCosts where F_EstNo = '" + Text(Entity.EstNo) +
             "' and F_WageItem = '" + Entity.WageItem + "'");
    if (!NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    rs().Close();
    Open("select * from T_BCosts", 2, 3);
    rs().AddNew();
    WriteAll(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBCosts::QueryByEstNoWage(clsEntBCosts& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from T_BCosts where F_EstNo = '" + Text(Entity.EstNo) +
             "' and F_WageItem = '" + Entity.WageItem + "'");
    if (!NoRow()) {
      Entity.Wage = Nz("F_Wage", 0).CDbl();
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCosts::QueryByEstNo(Collection<clsEntBCosts>* colBCosts, double dblEstNo) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen("select * from T_BCosts where F_EstNo  = '" + Text(dblEstNo) + "'");
    FillCollection(colBCosts, [&](clsEntBCosts& e) {
      e.EstNo = Nz("F_EstNo", 0).CDbl();
      e.WageItem = Nz("F_WageItem", 0).CStr();  // a null reads as "0"
      e.Wage = Nz("F_Wage", 0).CDbl();
      result = 1;
    });
  }, [&] { result = 2; });
  return result;
}

}  // namespace corvane
