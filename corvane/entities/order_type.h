/// \file
/// clsEntBOrderType: one order type, a row of T_BOrderType.
#ifndef CORVANE_ENTITIES_ORDER_TYPE_H_
#define CORVANE_ENTITIES_ORDER_TYPE_H_

#include <string>

namespace corvane {

/// One order type, a row of T_BOrderType.
struct clsEntBOrderType {
  std::string OrderType;  ///< F_OrderType, the key
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_ORDER_TYPE_H_
