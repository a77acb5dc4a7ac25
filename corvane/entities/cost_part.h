/// \file
/// clsEntBCosti: one part of a cost estimate, a row of T_BCosti.
#ifndef CORVANE_ENTITIES_COST_PART_H_
#define CORVANE_ENTITIES_COST_PART_H_

#include <string>

namespace corvane {

/// One part of a cost estimate, a row of T_BCosti.
struct clsEntBCosti {
  double EstNo = 0;          ///< F_EstNo: the estimate of T_BCosth, key
  std::string ItemNo;        ///< F_ItemNo: the part, key
  std::string CurrencyID;    ///< F_CurrencyID
  double Dosage = 0;         ///< F_Dosage: quantity used
  double Waste = 0;          ///< F_Waste
  double Price = 0;          ///< F_Price
  double CostPrice = 0;      ///< F_CostPrice
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_COST_PART_H_
