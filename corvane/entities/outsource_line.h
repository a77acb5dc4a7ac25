/// \file
/// clsEntBOutMakei: one outsource order line, a row of t_boutmakei: one
/// production number of one order. The members stand in the order in which
/// QueryByProdNo maps the columns.
#ifndef CORVANE_ENTITIES_OUTSOURCE_LINE_H_
#define CORVANE_ENTITIES_OUTSOURCE_LINE_H_

#include <cstdint>
#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One outsource order line, a row of t_boutmakei: one production number of one
/// order.
struct clsEntBOutMakei {
  double OrderoutNo = 0;         ///< F_OrderoutNo, the order; with ProdNo the key
  double ProdNo = 0;             ///< F_ProdNo, the production number
  std::string ItemNo;            ///< F_ItemNo
  std::string CurrencyID;        ///< F_CurrencyID
  double Price = 0;              ///< F_Price
  double OrdoutQty = 0;          ///< F_OrdoutQty, the quantity given out
  Date DeliverDate;              ///< F_DeliverDate
  std::int16_t SupportPart = 0;  ///< F_SupportPart
  std::string Remark;            ///< F_Remark
  double InQty = 0;              ///< F_InQty, the quantity received
  Date InDate;                   ///< F_InDate
  std::int16_t Status = 0;       ///< F_Status; 0 counts as open
  std::string CustNo;            ///< F_CustNo; QueryProdNo takes the supplier from it
  std::string CorderNo;          ///< F_CorderNo
  std::string ItemName;          ///< F_ItemName
  double BKQty = 0;              ///< F_BKQty
  std::string SItemNo;           ///< F_SItemNo
  double DisPerRow = 0;          ///< F_DisPerRow
  double Rate = 0;               ///< F_Rate
  std::string TaxSort;           ///< F_TaxSort
  double Tax = 0;                ///< F_Tax
  double FcTotal = 0;            ///< F_FcTotal
  double LcTotal = 0;            ///< F_LcTotal
  std::string StepCode;          ///< F_StepCode
  std::string Eitem;             ///< F_Eitem
  std::string Ename;             ///< F_Ename
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_OUTSOURCE_LINE_H_
