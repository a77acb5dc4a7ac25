// Order types.
#include "corvane/orders/order_type.h"

namespace corvane {

std::int16_t clsDataBOrderType::QueryAll(Collection<clsEntBOrderType>* objColl) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    ReadOpen("Select * From T_BOrderType ");
    FillCollection(objColl, [&](clsEntBOrderType& e) {
      e.OrderType = Nz("F_OrderType", "").CStr();
    });
  });
  return result;
}

std::int16_t clsDataBOrderType::AddRecord(clsEntBOrderType& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    ReadOpen("select * from T_BOrderType where F_OrderType = '" + Entity.OrderType + "'");
    if (!NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    rs().Close();
    Open("select * from T_BOrderType", 2, 3);
    rs().AddNew();
    Write("F_OrderType", Entity.OrderType);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBOrderType::DeleteRecord(clsEntBOrderType& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    rs().SetCursorType(1);
    rs().SetLockType(3);
    Open("select * from T_BOrderType where F_OrderType ='" + Entity.OrderType + "' ", 1, 2);
    rs().Delete(1);
    rs().UpdateBatch(3);
    rs().Close();
  });
  return result;
}

std::int16_t clsDataBOrderType::UpdateRecord(clsEntBOrderType& Entity, const std::string& PrdNo) {
  std::int16_t result = 0;
  Guard(kLengthReport.WithoutReset(), [&] {
    rs().SetCursorType(1);
    rs().SetLockType(3);
    Open("update T_BOrderType set F_OrderType= '" + Entity.OrderType + " 'where F_OrderType ='" +
             PrdNo + "'",
         1, 2);
    ResetRs();
    result = 1;
  }, [&] { result = 3; });
  return result;
}

}  // namespace corvane
