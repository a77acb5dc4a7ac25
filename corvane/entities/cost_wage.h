/// \file
/// clsEntBCosts: one wage of a cost estimate, a row of T_BCosts.
#ifndef CORVANE_ENTITIES_COST_WAGE_H_
#define CORVANE_ENTITIES_COST_WAGE_H_

#include <string>

namespace corvane {

/// One wage of a cost estimate, a row of T_BCosts.
struct clsEntBCosts {
  double EstNo = 0;          ///< F_EstNo: the estimate of T_BCosth, key
  std::string WageItem;      ///< F_WageItem: the wage item, key
  double Wage = 0;           ///< F_Wage
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_COST_WAGE_H_
