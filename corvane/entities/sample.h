/// \file
/// clsEntBSample: one sample made for a customer, a row of t_bsample. The
/// members stand in the order in which the columns are read.
#ifndef CORVANE_ENTITIES_SAMPLE_H_
#define CORVANE_ENTITIES_SAMPLE_H_

#include <cstdint>
#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One sample made for a customer, a row of t_bsample.
struct clsEntBSample {
  double NumNo = 0;            ///< F_NumNo, the sample number of its day
  std::string Appgist;         ///< F_Appgist
  std::string AskEmp;          ///< F_AskEmp
  std::string Citemno;         ///< F_Citemno (written as F_CitemNO)
  Date CreaDate;               ///< F_CreaDate
  std::string Custno;          ///< F_Custno (written as F_CustNo), the customer
  std::int32_t Deform = 0;     ///< F_Deform (written as F_DeForm)
  std::string ItemDesc;        ///< F_ItemDesc
  std::string ItemName;        ///< F_ItemName
  std::string ModeDesc;        ///< F_ModeDesc
  std::string ModelNo;         ///< F_ModelNo
  std::int16_t Modoption = 0;  ///< F_Modoption
  Date OkDate;                 ///< F_OkDate
  std::string OrderNo;         ///< F_OrderNo
  std::int32_t Qty = 0;        ///< F_Qty
  std::string Remark;          ///< F_Remark
  Date ReqDate;                ///< F_ReqDate
  std::string Samask;          ///< F_Samask
  std::string SampleType;      ///< F_SampleType
  Date SenDate;                ///< F_SenDate
  std::int32_t SendQty = 0;    ///< F_SendQty
  std::string Tabler;          ///< F_Tabler, who entered the sample
  Date Tabletime;              ///< F_Tabletime, the day of the sample number on delete
  std::string Timber;          ///< F_Timber
  std::string TimberNumber;    ///< F_TimberNumber
  std::string Useful;          ///< F_Useful
  std::string PlaceID;         ///< F_PlaceID, read only where F_Useful holds a value
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_SAMPLE_H_
