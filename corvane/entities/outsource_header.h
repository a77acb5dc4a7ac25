/// \file
/// clsEntBOutMakeh: one outsource order header, a row of t_boutmakeh. The
/// members stand in the order in which a full read maps the columns.
#ifndef CORVANE_ENTITIES_OUTSOURCE_HEADER_H_
#define CORVANE_ENTITIES_OUTSOURCE_HEADER_H_

#include <cstdint>
#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One outsource order header, a row of t_boutmakeh.
struct clsEntBOutMakeh {
  double OrderoutNo = 0;      ///< F_OrderoutNo, the key, chosen by the caller; its first six
                              ///< digits are the month
  std::string Approve;        ///< F_Approve, who approved; empty = not approved
  Date ApproveTime;           ///< F_ApproveTime, the server's time of the approval
  std::string Checker;        ///< F_Checker, who checked
  Date CheckerTime;           ///< F_CheckerTime, the server's time of the check
  std::string DeliverAddr;    ///< F_DeliverAddr
  std::string DeliverMode;    ///< F_DeliverMode
  std::int16_t Flags = 0;     ///< F_Flags; 1 is the state QueryStatus tells apart
  Date OrderoutDate;          ///< F_OrderoutDate, the day of the number
  std::int16_t PayDay = 0;    ///< F_PayDay
  std::string PayMode;        ///< F_PayMode
  std::string ProviderNo;     ///< F_ProviderNo, the supplier; data rights match on it
  std::string Tabler;         ///< F_Tabler, who entered the order
  Date Tabletime;             ///< F_Tabletime, the client's time of the entry
  std::string BuYerID;        ///< F_BuYerID
  std::string SOrderNo;       ///< F_SOrderNo
  std::string OrderType;      ///< F_OrderType
  std::string Package;        ///< F_Package
  double TotalBefore = 0;     ///< F_TotalBefore
  double DisCount = 0;        ///< F_DisCount
  double Greight = 0;         ///< F_Greight, freight
  double Tax = 0;             ///< F_Tax
  double Total = 0;           ///< F_Total
  std::string DocType;        ///< F_DocType, never written here
  std::string ProviderName;   ///< F_ProviderName
  std::string jrnlMemo;       ///< F_jrnlMemo
  Date DueDate;               ///< F_DueDate
  Date TaxDate;               ///< F_TaxDate
  std::string UpdataUser;     ///< F_UpdataUser, never written here
  std::int16_t PayMonth = 0;  ///< F_PayMonth
  std::string Comments;       ///< F_Comments
  std::string Attn;           ///< F_Attn
  std::string Currency;       ///< F_Currency
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_OUTSOURCE_HEADER_H_
