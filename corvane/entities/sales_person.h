/// \file
/// clsEntBSaler: one sales person, a row of T_BSaler.
#ifndef CORVANE_ENTITIES_SALES_PERSON_H_
#define CORVANE_ENTITIES_SALES_PERSON_H_

#include <string>

namespace corvane {

/// One sales person, a row of T_BSaler.
struct clsEntBSaler {
  std::string SalerId;     ///< F_SalerId, the key; customers hold it in F_SalerID
  std::string Saler_1st;   ///< F_Saler_1st, the name in use; QuerySalerName puts "id-name" here
  std::string Saler_m;     ///< F_Saler_m, read by QueryByID only
  std::string Saler_last;  ///< F_Saler_last, read by QueryByID only
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_SALES_PERSON_H_
