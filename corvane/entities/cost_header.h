/// \file
/// clsEntBCosth: one cost estimate of an item for a customer, a row of
/// T_BCosth, with its cost sums and up to five quotation steps.
#ifndef CORVANE_ENTITIES_COST_HEADER_H_
#define CORVANE_ENTITIES_COST_HEADER_H_

#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One cost estimate of an item for a customer, a row of T_BCosth, with its
/// cost sums and up to five quotation steps.
struct clsEntBCosth {
  double EstNo = 0;          ///< F_EstNo: the estimate's number, the key
  Date EstDate{};            ///< F_EstDate: day of the estimate
  std::string ItemNo;        ///< F_ItemNo: the item costed
  std::string CustNo;        ///< F_CustNo: the customer
  std::string Remark;        ///< F_Remark
  std::string Tabler;        ///< F_Tabler: who entered it
  Date TableTime{};          ///< F_TableTime: when it was entered
  std::string CurrencyID;    ///< F_CurrencyID
  double PartCost = 0;       ///< F_PartCost: cost of parts
  double WageCost = 0;       ///< F_WageCost: cost of wages
  double ManageCost = 0;     ///< F_ManageCost: overhead
  double TotCost = 0;        ///< F_TotCost: total cost
  double QuotPrice_1 = 0;    ///< F_QuotPrice_1
  double QuotPrice_2 = 0;    ///< F_QuotPrice_2
  double QuotPrice_3 = 0;    ///< F_QuotPrice_3
  double QuotPrice_4 = 0;    ///< F_QuotPrice_4
  double QuotPrice_5 = 0;    ///< F_QuotPrice_5
  double ProFit_1 = 0;       ///< F_ProFit_1
  double ProFit_2 = 0;       ///< F_ProFit_2
  double ProFit_3 = 0;       ///< F_ProFit_3
  double ProFit_4 = 0;       ///< F_ProFit_4
  double ProFit_5 = 0;       ///< F_ProFit_5
  double TaxPrice = 0;       ///< F_TaxPrice
  double SalePrice_1 = 0;    ///< F_SalePrice_1
  double SalePrice_2 = 0;    ///< F_SalePrice_2
  double SalePrice_3 = 0;    ///< F_SalePrice_3
  double SalePrice_4 = 0;    ///< F_SalePrice_4
  double SalePrice_5 = 0;    ///< F_SalePrice_5
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_COST_HEADER_H_
