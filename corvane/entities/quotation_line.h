/// \file
/// clsEntBPricei: one quotation line, a row of t_bpricei, keyed by quotation
/// and item. The order columns of the table (F_ProdNo, F_InQty, F_OutQty,
/// F_Flags) have no member: a quotation line always stores them as 0.
#ifndef CORVANE_ENTITIES_QUOTATION_LINE_H_
#define CORVANE_ENTITIES_QUOTATION_LINE_H_

#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One quotation line, a row of t_bpricei, keyed by quotation and item.
struct clsEntBPricei {
  std::string CitemNO;     ///< F_CitemNO, the customer's item number
  std::string ItemNo;      ///< F_ItemNo, the item; with QuotNo the key
  double Price = 0;        ///< F_Price, unit price
  double QuotNo = 0;       ///< F_QuotNo, the quotation
  std::string Remark;      ///< F_Remark
  std::string Currency;    ///< F_Currency, the line's currency
  double OrdQty = 0;       ///< F_OrdQty, quantity
  Date DeliverDate;        ///< F_DeliverDate
  double BkQty = 0;        ///< F_BkQty, spare quantity
  std::string No;          ///< F_No, the line number as text
  double Rate = 0;         ///< F_Rate, exchange rate
  std::string TaxSort;     ///< F_TaxSort, tax class
  double Tax = 0;          ///< F_Tax
  double DisPerRow = 0;    ///< F_DisPerRow, discount of the line
  std::string ItemName;    ///< F_ItemName
  double FcTotal = 0;      ///< F_FcTotal, line total in the line's currency
  double LcTotal = 0;      ///< F_LcTotal, line total in local currency
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_QUOTATION_LINE_H_
