/// \file
/// clsEntBCStudy: one study of a customer, a row of t_bcstudy. The members
/// stand in the order of the table's columns.
#ifndef CORVANE_ENTITIES_CUSTOMER_STUDY_H_
#define CORVANE_ENTITIES_CUSTOMER_STUDY_H_

#include <cstdint>
#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One study of a customer, a row of t_bcstudy.
struct clsEntBCStudy {
  double InvestNo = 0;           ///< F_InvestNo, the key: the study number of its day
  Date InvestDate;               ///< F_InvestDate, the day of the study and of its number
  std::string CustNo;            ///< F_CustNo, the customer
  std::string Director;          ///< F_Director, who led the study
  std::int16_t SendQc = 0;       ///< F_SendQc, mark
  std::int16_t SendDate = 0;     ///< F_SendDate, mark (a number, not a date)
  std::int16_t Service = 0;      ///< F_Service, mark
  std::int16_t Result = 0;       ///< F_Result, mark
  std::string Suggestion;        ///< F_Suggestion
  std::string SendQcDesc;        ///< F_SendQcDesc, the words to SendQc
  std::string SendDateDesc;      ///< F_SendDateDesc, the words to SendDate
  std::string ServiceDesc;       ///< F_ServiceDesc, the words to Service
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_CUSTOMER_STUDY_H_
