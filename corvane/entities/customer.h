/// \file
/// clsEntBCustom: one customer, a row of t_bcustom. The members stand in the
/// order in which the repository maps the columns; each comment names the
/// column as it is read, and as it is written where that differs.
#ifndef CORVANE_ENTITIES_CUSTOMER_H_
#define CORVANE_ENTITIES_CUSTOMER_H_

#include <cstdint>
#include <string>

#include "corvane/frame/date.h"

namespace corvane {

/// One customer, a row of t_bcustom.
struct clsEntBCustom {
  std::string custno;          ///< F_custno (written F_CustNo), the key; data rights match on it
  std::string countryid;       ///< F_countryid; QueryArea puts "code-name" here
  std::string provinceid;      ///< F_provinceid; QueryArea puts "code-name" here
  std::string cityname;        ///< F_cityname
  std::string CustName;        ///< F_CustName
  std::string CustFullName;    ///< F_CustFullName (written F_custfullname)
  std::string EnglishName;     ///< F_EnglishName (written F_englishname)
  std::string corp;            ///< F_corp
  std::string Linkman_1st;     ///< F_Linkman_1st
  std::string SalerID;         ///< F_SalerID (written F_SalerId), a T_BSaler identifier
  std::string Linkman_m;       ///< F_Linkman_m, read only
  std::string Linkman_last;    ///< F_Linkman_last, read only
  std::string Comb;            ///< F_Comb (written F_comb)
  std::string Fax;             ///< F_Fax (written F_fax)
  std::string tel;             ///< F_tel
  std::string zip;             ///< F_zip
  std::string Address;         ///< F_Address (written F_address)
  std::string bank;            ///< F_bank
  std::string bankid1;         ///< F_bankid1
  std::string bankid2;         ///< F_bankid2
  std::string Stand;           ///< F_Stand (written F_stand)
  std::string PayMode;         ///< F_PayMode (written F_paymode)
  std::int16_t payday = 0;     ///< F_payday
  std::string email;           ///< F_email
  std::string www;             ///< F_www
  std::string GoodsAddr1;      ///< F_GoodsAddr1 (written F_goodsaddr1)
  std::string GoodsAddr2;      ///< F_GoodsAddr2 (written F_goodsaddr2)
  std::string GoodsAddr3;      ///< F_GoodsAddr3 (written F_goodsaddr3)
  Date CreateDate;             ///< F_CreateDate (written F_createdate); a null fails the read
  Date EditDate;               ///< F_EditDate (written F_editdate); a null fails the read
  std::string descr;           ///< F_descr
  std::int16_t Status = 0;     ///< F_Status; a null fails the read
  std::string GroupCode;       ///< F_GroupCode, the group QueryAllByGroupCode lists
  std::string CurrencyId;      ///< F_CurrencyId (written F_CurrencyID)
  std::string ProjectCode;     ///< F_ProjectCode
  std::string Technology;      ///< F_Technology
  std::string Priority;        ///< F_Priority
  std::string PackPage;        ///< F_PackPage
  std::int16_t Paymonth = 0;   ///< F_Paymonth (written F_PayMonth)
  std::string PriceList;       ///< F_PriceList
  double CreditLimit = 0;      ///< F_CreditLimit
  std::string VatgroupCode;    ///< F_VatgroupCode
  double AccountBlance = 0;    ///< F_AccountBlance
  double Deliveries = 0;       ///< F_Deliveries
  double Orders = 0;           ///< F_Orders
  double Opports = 0;          ///< F_Opports
  std::string YusAcct;         ///< F_YusAcct
  std::string YinsAcct;        ///< F_YinsAcct
  std::string othAcct;         ///< F_othAcct
  std::string SendMode;        ///< F_SendMode
  std::string ZyywsrAcct;      ///< F_ZyywsrAcct
  std::string XscbAcct;        ///< F_XscbAcct
  std::string KcspAcct;        ///< F_KcspAcct
};

}  // namespace corvane

#endif  // CORVANE_ENTITIES_CUSTOMER_H_
