/// \file
/// clsDataBOrderType keeps the list of order types, table T_BOrderType, that
/// sales orders carry in F_OrderType. None of its methods replaces rs.
#ifndef CORVANE_ORDERS_ORDER_TYPE_H_
#define CORVANE_ORDERS_ORDER_TYPE_H_

#include <cstdint>
#include <string>

#include "corvane/entities/order_type.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The order types of sales orders, table T_BOrderType.
/// \see corvane/orders/order_type.h for the whole description of the class.
class CORVANE_EXPORT clsDataBOrderType : private Repository {
 public:
  /// Opens the session; a failure throws corvane::Error with the server's words
  /// and no object comes to exist.
  clsDataBOrderType() = default;

  /// Appends one entity per row to objColl. Always 0.
  /// A failure shows the length report.
  std::int16_t QueryAll(Collection<clsEntBOrderType>* objColl);
  /// Stores a new order type. 1 added, 2 the name exists, 0 failure.
  /// A failure shows the length report.
  std::int16_t AddRecord(clsEntBOrderType& Entity);
  /// Deletes the row without looking whether it is there. Always 0: a failure
  /// shows only in its report.
  /// A failure shows the length report.
  std::int16_t DeleteRecord(clsEntBOrderType& Entity);
  /// Renames PrdNo to Entity.OrderType (with a blank after it). 1 done,
  /// 3 failure; the failure leaves rs as it is.
  /// A failure shows the length report.
  std::int16_t UpdateRecord(clsEntBOrderType& Entity, const std::string& PrdNo);
};

}  // namespace corvane

#endif  // CORVANE_ORDERS_ORDER_TYPE_H_
