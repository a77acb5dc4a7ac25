/// \file
/// clsEntBOrdChange: one order change request, a row of T_BOrdChange. The
/// approval columns F_Approve and F_ApproveTime have no property: only the
/// approval itself writes them.
#ifndef CORVANE_ENTITIES_ORDER_CHANGE_H_
#define CORVANE_ENTITIES_ORDER_CHANGE_H_

#include <cstdint>
#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One order change request, a row of T_BOrdChange.
struct clsEntBOrdChange {
  double UpNo = 0;            ///< F_UpNo, the change number yyyymmdd + three digits; the key
  Date UpDate;                ///< F_UpDate, date of the change
  double ProdNo = 0;          ///< F_ProdNo, the order line concerned
  std::string ItemNo;         ///< F_ItemNo
  std::string CustNo;         ///< F_CustNo
  double OldQty = 0;          ///< F_OldQty, quantity before
  double NewQty = 0;          ///< F_NewQty, quantity after
  double OldBkQty = 0;        ///< F_OldBkQty, spare quantity before
  double NewBkQty = 0;        ///< F_NewBkQty, spare quantity after
  Date Oldate;                ///< F_Oldate, delivery date before
  Date NewDate;               ///< F_NewDate, delivery date after
  std::int16_t QtyUp = 0;     ///< F_QtyUp, the change concerns the quantity
  std::int16_t DateUp = 0;    ///< F_DateUp, the change concerns the date
  std::int16_t ItemUp = 0;    ///< F_ItemUp, the change concerns the item
  std::string Other;          ///< F_Other, other kind of change
  std::string UpCause;        ///< F_UpCause, cause
  std::string UpDesc;         ///< F_UpDesc, description of the change
  std::string PurDesc;        ///< F_PurDesc, opinion of purchasing
  std::string WhDesc;         ///< F_WhDesc, opinion of the warehouse
  std::string SgDesc;         ///< F_SgDesc
  std::string EgDesc;         ///< F_EgDesc
  std::string BsDecide;       ///< F_BsDecide, decision
  std::string Burden;         ///< F_Burden, who bears the cost
  std::string Deal;           ///< F_Deal, how it is dealt with
  std::string Tabler;         ///< F_Tabler, who entered it
  Date Tabletime;             ///< F_Tabletime, when
  std::string OldcorderNo;    ///< F_OldcorderNo, customer order number before
  std::string NewcorderNo;    ///< F_NewcorderNo, customer order number after
  std::string NewcustNo;      ///< F_NewcustNo, new customer
  std::int16_t Flags = 0;     ///< F_Flags, 1 once approved
  std::int16_t Cancel = 0;    ///< F_Cancel, cancelled
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_ORDER_CHANGE_H_
