/// \file
/// clsEntBOrderh: one sales order header, a row of T_BOrderh. The members stand
/// in the order in which a new order's columns are written.
#ifndef CORVANE_ENTITIES_ORDER_HEADER_H_
#define CORVANE_ENTITIES_ORDER_HEADER_H_

#include <cstdint>
#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One sales order header, a row of T_BOrderh.
struct clsEntBOrderh {
  double OrderNo = 0;         ///< F_OrderNo, the key: yyyymmdd + three digits
  Date OrderDate;             ///< F_OrderDate; its first seven characters are the month
  std::string SalerId;        ///< F_SalerId, the sales person
  std::string CustNo;         ///< F_CustNo, the customer; data rights match on it
  std::string CorderNo;       ///< F_CorderNo, the customer's own order number
  std::string OrderType;      ///< F_OrderType (T_BOrderType)
  std::string IncoMode;       ///< F_IncoMode
  std::int16_t payday = 0;    ///< F_payday
  std::string Tabler;         ///< F_Tabler, who wrote the order
  Date Tabletime;             ///< F_Tabletime
  std::string Checker;        ///< F_Checker, stamped by UpdateChecke
  Date CheckerTime;           ///< F_CheckerTime, the server's time of the check
  std::string Approve;        ///< F_approve, stamped by UpdateApprove; not empty = approved
  Date approveTime;           ///< F_approveTime
  std::int16_t Flags = 0;     ///< F_Flags; 0 lets the order be bought for
  std::string DeliverAddr;    ///< F_DeliverAddr
  std::string Package;        ///< F_Package
  double TotalBefore = 0;     ///< F_TotalBefore, total before discount
  double DisCount = 0;        ///< F_DisCount, discount in percent
  double Greight = 0;         ///< F_Greight, freight
  double Tax = 0;             ///< F_Tax
  double Total = 0;           ///< F_Total
  std::string DocType;        ///< F_DocType
  std::string CustName;       ///< F_CustName
  std::string jrnlMemo;       ///< F_jrnlMemo
  Date DueDate;               ///< F_DueDate
  Date TaxDate;               ///< F_TaxDate
  std::string UpdataUser;     ///< F_UpdataUser, who changed the order last
  std::int16_t PayMonth = 0;  ///< F_PayMonth
  std::string Comments;       ///< F_Comments
  std::string attn;           ///< F_Attn
  std::string Currency;       ///< F_Currency
  std::string Delivery;       ///< F_Delivery
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_ORDER_HEADER_H_
