/// \file
/// clsEntBWageSort: one wage item and its rate in a wage sort, a row of
/// T_BWageSort.
#ifndef CORVANE_ENTITIES_WAGE_SORT_H_
#define CORVANE_ENTITIES_WAGE_SORT_H_

#include <string>

namespace corvane {

/// One wage item and its rate in a wage sort, a row of T_BWageSort.
struct clsEntBWageSort {
  std::string ID;            ///< F_ID: the wage sort, key
  std::string WageItem;      ///< F_WageItem: key
  double Wage = 0;           ///< F_Wage: the rate
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_WAGE_SORT_H_
