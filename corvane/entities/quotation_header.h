/// \file
/// clsEntBPriceh: one quotation header, a row of t_bpriceh. The members stand
/// in the order in which the header is read. Two of them, Approve and Checker,
/// carry the item number and the price in the rows of clsDataBPriceh's
/// QueryPrice.
#ifndef CORVANE_ENTITIES_QUOTATION_HEADER_H_
#define CORVANE_ENTITIES_QUOTATION_HEADER_H_

#include <cstdint>
#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One quotation header, a row of t_bpriceh.
struct clsEntBPriceh {
  double QuotNo = 0;          ///< F_QuotNo, the key: a number the caller chose
  std::string Attn;           ///< F_Attn, the addressee
  std::string CC;             ///< F_CC, copy to
  std::string Custno;         ///< F_Custno, the customer; data rights match on it
  std::string Delivery;       ///< F_Delivery, delivery terms
  std::string CurrencyID;     ///< F_CurrencyID, a key of t_scurrency
  std::int16_t PayDay = 0;    ///< F_PayDay
  std::string PayMode;        ///< F_PayMode
  Date QuotDate;              ///< F_QuotDate, the day of the number
  std::string Tabler;         ///< F_Tabler, who entered the quotation
  Date TablerTime;            ///< F_TablerTime
  std::string Checker;        ///< F_Checker, stamped by UpdateChecke
  Date CheckerTime;           ///< F_CheckerTime, the server's time of the check
  std::string Approve;        ///< F_Approve, stamped by UpdateApprove; not empty = approved
  Date ApproveTime;           ///< F_ApproveTime, the server's time of the approval
  std::string SalerID;        ///< F_SalerID, the sales person
  std::string COrderNo;       ///< F_COrderNo, the customer's order number
  std::int16_t Flags = 0;     ///< F_Flags, set to 1 by UpdateFlags; a null reads as 5
  std::string DeliverAddr;    ///< F_DeliverAddr
  std::string OrderType;      ///< F_OrderType
  double TotalBefore = 0;     ///< F_TotalBefore, total before discount and tax
  double DisCount = 0;        ///< F_DisCount
  double Greight = 0;         ///< F_Greight, freight
  double Tax = 0;             ///< F_Tax
  double Total = 0;           ///< F_Total
  std::string DocType;        ///< F_DocType
  std::string CustName;       ///< F_CustName
  std::string jrnlMemo;       ///< F_jrnlMemo
  Date DueDate;               ///< F_DueDate
  Date TaxDate;               ///< F_TaxDate
  std::string UpdataUser;     ///< F_UpdataUser, who changed the quotation last
  std::int16_t PayMonth = 0;  ///< F_PayMonth
  std::string Comments;       ///< F_Comments
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_QUOTATION_HEADER_H_
