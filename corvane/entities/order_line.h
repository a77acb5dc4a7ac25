/// \file
/// clsEntBOrderi: one sales order line, a row of T_BOrderi. The demand
/// queries reuse it for their result rows, with OutQty and InQty then holding
/// the quantities those queries compute.
#ifndef CORVANE_ENTITIES_ORDER_LINE_H_
#define CORVANE_ENTITIES_ORDER_LINE_H_

#include <cstdint>
#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One sales order line, a row of T_BOrderi.
struct clsEntBOrderi {
  double OrderNo = 0;          ///< F_OrderNo: the order the line belongs to
  std::string ItemNo;          ///< F_ItemNo
  std::string Currency;        ///< F_Currency
  double Price = 0;            ///< F_Price: unit price
  double OrdQty = 0;           ///< F_OrdQty: ordered quantity
  Date DeliverDate{};          ///< F_DeliverDate
  std::string Remark;          ///< F_Remark
  double ProdNo = 0;           ///< F_ProdNo: production number
  double InQty = 0;            ///< F_InQty
  double OutQty = 0;           ///< F_OutQty
  double BkQty = 0;            ///< F_BkQty
  std::string No;              ///< F_No: line number within the order, as text
  Date OutDate{};              ///< F_OutDate
  std::int16_t Status = 0;     ///< F_Status: 0 is an open line
  std::int16_t Flags = 0;      ///< F_Flags
  std::string SendMode;        ///< F_SendMode
  std::string Package;         ///< F_Package
  double Rate = 0;             ///< F_Rate: exchange rate, 0 counts as 1
  std::string TaxSort;         ///< F_TaxSort
  double Tax = 0;              ///< F_Tax: tax in percent
  std::string CustItemNo;      ///< F_CustItemNo
  double DisPerRow = 0;        ///< F_DisPerRow: line discount in percent
  std::string PrjCode;         ///< F_PrjCode
  std::string ItemName;        ///< F_ItemName
  double FcTotal = 0;          ///< F_FcTotal: foreign-currency total
  double LcTotal = 0;          ///< F_LcTotal: local-currency total
  std::string CustOrderNo;     ///< F_CustOrderNo
  double ItemGross = 0;        ///< F_ItemGross
  std::string TrgType;         ///< F_TrgType
  double TrgCode = 0;          ///< F_TrgCode
  std::string TrgLine;         ///< F_TrgLine
  std::string BaseType;        ///< F_BaseType
  double BaseCode = 0;         ///< F_BaseCode
  std::string BaseLine;        ///< F_BaseLine
  Date InDate{};               ///< F_InDate
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_ORDER_LINE_H_
