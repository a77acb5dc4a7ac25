// Wage sorts.
#include "corvane/costing/wage_sort.h"

namespace corvane {

std::int16_t clsDataBWageSort::DeleteRecord(clsEntBWageSort& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    KeysetEdit("select * from T_BWageSort where F_ID ='" + Entity.ID + "' and F_WageItem = '" +
               Entity.WageItem + "'");
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

std::int16_t clsDataBWageSort::AddRecord(clsEntBWageSort& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    ReadOpen("select * from T_BWageSort where F_ID = '" + Entity.ID + "' and F_WageItem = '" +
             Entity.WageItem + "'");
    if (!NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    rs().Close();
    Open("select * from T_BWageSort", 2, 3);
    rs().AddNew();
    Write("F_ID", Entity.ID);
    Write("F_WageItem", Entity.WageItem);
    Write("F_Wage", Entity.Wage);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBWageSort::QueryByGoodType(Collection<clsEntBWageSort>* colBWageSort,
                                               const std::string& strGoodType) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    ReadOpen(
        "select * from T_BWageSort where F_ID in (select F_ID from T_EHalfGType where "
        "F_HalfGtype = '" +
        strGoodType +
        "') or F_ID in (select F_ID from T_EGoodsType where F_GoodStype = '" + strGoodType +
        "')");
    FillCollection(colBWageSort, [&](clsEntBWageSort& e) {
      e.ID = Nz("F_ID", 0).CStr();  // null texts read as "0"
      e.WageItem = Nz("F_WageItem", 0).CStr();
      e.Wage = Nz("F_Wage", 0).CDbl();
      result = 1;
    });
  }, [&] { result = 2; });
  return result;
}

}  // namespace corvane
