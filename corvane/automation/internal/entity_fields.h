// The property table of every entity class: one read/write property per
// member, named as the member, in member order. Written by
// scripts/gen-entity-fields.py from corvane/entities/*.h; do not edit.
#ifndef CORVANE_AUTOMATION_INTERNAL_ENTITY_FIELDS_H_
#define CORVANE_AUTOMATION_INTERNAL_ENTITY_FIELDS_H_

#include <array>

#include "corvane/automation/internal/field.h"
#include "corvane/entities/cost_header.h"
#include "corvane/entities/cost_part.h"
#include "corvane/entities/cost_wage.h"
#include "corvane/entities/currency.h"
#include "corvane/entities/customer.h"
#include "corvane/entities/customer_study.h"
#include "corvane/entities/goods_type.h"
#include "corvane/entities/order_change.h"
#include "corvane/entities/order_header.h"
#include "corvane/entities/order_line.h"
#include "corvane/entities/order_type.h"
#include "corvane/entities/outsource_header.h"
#include "corvane/entities/outsource_line.h"
#include "corvane/entities/quotation_header.h"
#include "corvane/entities/quotation_line.h"
#include "corvane/entities/sales_person.h"
#include "corvane/entities/sample.h"
#include "corvane/entities/sitemno.h"
#include "corvane/entities/wage_sort.h"

// X(entity) for every entity class, in the order of the list.
#define CORVANE_FOR_EACH_ENTITY(X) \
  X(clsEntBOrderType) \
  X(clsEntBOrderh) \
  X(clsEntBOrderi) \
  X(clsEntBOrdChange) \
  X(clsEntSitemNo) \
  X(clsEntBPriceh) \
  X(clsEntBPricei) \
  X(clsEntSCurrency) \
  X(clsEntBOutMakeh) \
  X(clsEntBOutMakei) \
  X(clsEntBCosth) \
  X(clsEntBCosti) \
  X(clsEntBCosts) \
  X(clsEntBWageSort) \
  X(clsEntEGoodsType) \
  X(clsEntBCustom) \
  X(clsEntBSaler) \
  X(clsEntBCStudy) \
  X(clsEntBSample)

namespace corvane::automation::internal {

template <>
struct EntityFields<clsEntBOrderType> {
  static constexpr const char* kName = "clsEntBOrderType";
  static constexpr std::array<Field<clsEntBOrderType>, 1> kFields = {{
      {"OrderType", &clsEntBOrderType::OrderType},
  }};
};

template <>
struct EntityFields<clsEntBOrderh> {
  static constexpr const char* kName = "clsEntBOrderh";
  static constexpr std::array<Field<clsEntBOrderh>, 33> kFields = {{
      {"OrderNo", &clsEntBOrderh::OrderNo},
      {"OrderDate", &clsEntBOrderh::OrderDate},
      {"SalerId", &clsEntBOrderh::SalerId},
      {"CustNo", &clsEntBOrderh::CustNo},
      {"CorderNo", &clsEntBOrderh::CorderNo},
      {"OrderType", &clsEntBOrderh::OrderType},
      {"IncoMode", &clsEntBOrderh::IncoMode},
      {"payday", &clsEntBOrderh::payday},
      {"Tabler", &clsEntBOrderh::Tabler},
      {"Tabletime", &clsEntBOrderh::Tabletime},
      {"Checker", &clsEntBOrderh::Checker},
      {"CheckerTime", &clsEntBOrderh::CheckerTime},
      {"Approve", &clsEntBOrderh::Approve},
      {"approveTime", &clsEntBOrderh::approveTime},
      {"Flags", &clsEntBOrderh::Flags},
      {"DeliverAddr", &clsEntBOrderh::DeliverAddr},
      {"Package", &clsEntBOrderh::Package},
      {"TotalBefore", &clsEntBOrderh::TotalBefore},
      {"DisCount", &clsEntBOrderh::DisCount},
      {"Greight", &clsEntBOrderh::Greight},
      {"Tax", &clsEntBOrderh::Tax},
      {"Total", &clsEntBOrderh::Total},
      {"DocType", &clsEntBOrderh::DocType},
      {"CustName", &clsEntBOrderh::CustName},
      {"jrnlMemo", &clsEntBOrderh::jrnlMemo},
      {"DueDate", &clsEntBOrderh::DueDate},
      {"TaxDate", &clsEntBOrderh::TaxDate},
      {"UpdataUser", &clsEntBOrderh::UpdataUser},
      {"PayMonth", &clsEntBOrderh::PayMonth},
      {"Comments", &clsEntBOrderh::Comments},
      {"attn", &clsEntBOrderh::attn},
      {"Currency", &clsEntBOrderh::Currency},
      {"Delivery", &clsEntBOrderh::Delivery},
  }};
};

template <>
struct EntityFields<clsEntBOrderi> {
  static constexpr const char* kName = "clsEntBOrderi";
  static constexpr std::array<Field<clsEntBOrderi>, 35> kFields = {{
      {"OrderNo", &clsEntBOrderi::OrderNo},
      {"ItemNo", &clsEntBOrderi::ItemNo},
      {"Currency", &clsEntBOrderi::Currency},
      {"Price", &clsEntBOrderi::Price},
      {"OrdQty", &clsEntBOrderi::OrdQty},
      {"DeliverDate", &clsEntBOrderi::DeliverDate},
      {"Remark", &clsEntBOrderi::Remark},
      {"ProdNo", &clsEntBOrderi::ProdNo},
      {"InQty", &clsEntBOrderi::InQty},
      {"OutQty", &clsEntBOrderi::OutQty},
      {"BkQty", &clsEntBOrderi::BkQty},
      {"No", &clsEntBOrderi::No},
      {"OutDate", &clsEntBOrderi::OutDate},
      {"Status", &clsEntBOrderi::Status},
      {"Flags", &clsEntBOrderi::Flags},
      {"SendMode", &clsEntBOrderi::SendMode},
      {"Package", &clsEntBOrderi::Package},
      {"Rate", &clsEntBOrderi::Rate},
      {"TaxSort", &clsEntBOrderi::TaxSort},
      {"Tax", &clsEntBOrderi::Tax},
      {"CustItemNo", &clsEntBOrderi::CustItemNo},
      {"DisPerRow", &clsEntBOrderi::DisPerRow},
      {"PrjCode", &clsEntBOrderi::PrjCode},
      {"ItemName", &clsEntBOrderi::ItemName},
      {"FcTotal", &clsEntBOrderi::FcTotal},
      {"LcTotal", &clsEntBOrderi::LcTotal},
      {"CustOrderNo", &clsEntBOrderi::CustOrderNo},
      {"ItemGross", &clsEntBOrderi::ItemGross},
      {"TrgType", &clsEntBOrderi::TrgType},
      {"TrgCode", &clsEntBOrderi::TrgCode},
      {"TrgLine", &clsEntBOrderi::TrgLine},
      {"BaseType", &clsEntBOrderi::BaseType},
      {"BaseCode", &clsEntBOrderi::BaseCode},
      {"BaseLine", &clsEntBOrderi::BaseLine},
      {"InDate", &clsEntBOrderi::InDate},
  }};
};

template <>
struct EntityFields<clsEntBOrdChange> {
  static constexpr const char* kName = "clsEntBOrdChange";
  static constexpr std::array<Field<clsEntBOrdChange>, 31> kFields = {{
      {"UpNo", &clsEntBOrdChange::UpNo},
      {"UpDate", &clsEntBOrdChange::UpDate},
      {"ProdNo", &clsEntBOrdChange::ProdNo},
      {"ItemNo", &clsEntBOrdChange::ItemNo},
      {"CustNo", &clsEntBOrdChange::CustNo},
      {"OldQty", &clsEntBOrdChange::OldQty},
      {"NewQty", &clsEntBOrdChange::NewQty},
      {"OldBkQty", &clsEntBOrdChange::OldBkQty},
      {"NewBkQty", &clsEntBOrdChange::NewBkQty},
      {"Oldate", &clsEntBOrdChange::Oldate},
      {"NewDate", &clsEntBOrdChange::NewDate},
      {"QtyUp", &clsEntBOrdChange::QtyUp},
      {"DateUp", &clsEntBOrdChange::DateUp},
      {"ItemUp", &clsEntBOrdChange::ItemUp},
      {"Other", &clsEntBOrdChange::Other},
      {"UpCause", &clsEntBOrdChange::UpCause},
      {"UpDesc", &clsEntBOrdChange::UpDesc},
      {"PurDesc", &clsEntBOrdChange::PurDesc},
      {"WhDesc", &clsEntBOrdChange::WhDesc},
      {"SgDesc", &clsEntBOrdChange::SgDesc},
      {"EgDesc", &clsEntBOrdChange::EgDesc},
      {"BsDecide", &clsEntBOrdChange::BsDecide},
      {"Burden", &clsEntBOrdChange::Burden},
      {"Deal", &clsEntBOrdChange::Deal},
      {"Tabler", &clsEntBOrdChange::Tabler},
      {"Tabletime", &clsEntBOrdChange::Tabletime},
      {"OldcorderNo", &clsEntBOrdChange::OldcorderNo},
      {"NewcorderNo", &clsEntBOrdChange::NewcorderNo},
      {"NewcustNo", &clsEntBOrdChange::NewcustNo},
      {"Flags", &clsEntBOrdChange::Flags},
      {"Cancel", &clsEntBOrdChange::Cancel},
  }};
};

template <>
struct EntityFields<clsEntSitemNo> {
  static constexpr const char* kName = "clsEntSitemNo";
  static constexpr std::array<Field<clsEntSitemNo>, 3> kFields = {{
      {"no", &clsEntSitemNo::no},
      {"fndate", &clsEntSitemNo::fndate},
      {"tablename", &clsEntSitemNo::tablename},
  }};
};

template <>
struct EntityFields<clsEntBPriceh> {
  static constexpr const char* kName = "clsEntBPriceh";
  static constexpr std::array<Field<clsEntBPriceh>, 33> kFields = {{
      {"QuotNo", &clsEntBPriceh::QuotNo},
      {"Attn", &clsEntBPriceh::Attn},
      {"CC", &clsEntBPriceh::CC},
      {"Custno", &clsEntBPriceh::Custno},
      {"Delivery", &clsEntBPriceh::Delivery},
      {"CurrencyID", &clsEntBPriceh::CurrencyID},
      {"PayDay", &clsEntBPriceh::PayDay},
      {"PayMode", &clsEntBPriceh::PayMode},
      {"QuotDate", &clsEntBPriceh::QuotDate},
      {"Tabler", &clsEntBPriceh::Tabler},
      {"TablerTime", &clsEntBPriceh::TablerTime},
      {"Checker", &clsEntBPriceh::Checker},
      {"CheckerTime", &clsEntBPriceh::CheckerTime},
      {"Approve", &clsEntBPriceh::Approve},
      {"ApproveTime", &clsEntBPriceh::ApproveTime},
      {"SalerID", &clsEntBPriceh::SalerID},
      {"COrderNo", &clsEntBPriceh::COrderNo},
      {"Flags", &clsEntBPriceh::Flags},
      {"DeliverAddr", &clsEntBPriceh::DeliverAddr},
      {"OrderType", &clsEntBPriceh::OrderType},
      {"TotalBefore", &clsEntBPriceh::TotalBefore},
      {"DisCount", &clsEntBPriceh::DisCount},
      {"Greight", &clsEntBPriceh::Greight},
      {"Tax", &clsEntBPriceh::Tax},
      {"Total", &clsEntBPriceh::Total},
      {"DocType", &clsEntBPriceh::DocType},
      {"CustName", &clsEntBPriceh::CustName},
      {"jrnlMemo", &clsEntBPriceh::jrnlMemo},
      {"DueDate", &clsEntBPriceh::DueDate},
      {"TaxDate", &clsEntBPriceh::TaxDate},
      {"UpdataUser", &clsEntBPriceh::UpdataUser},
      {"PayMonth", &clsEntBPriceh::PayMonth},
      {"Comments", &clsEntBPriceh::Comments},
  }};
};

template <>
struct EntityFields<clsEntBPricei> {
  static constexpr const char* kName = "clsEntBPricei";
  static constexpr std::array<Field<clsEntBPricei>, 17> kFields = {{
      {"CitemNO", &clsEntBPricei::CitemNO},
      {"ItemNo", &clsEntBPricei::ItemNo},
      {"Price", &clsEntBPricei::Price},
      {"QuotNo", &clsEntBPricei::QuotNo},
      {"Remark", &clsEntBPricei::Remark},
      {"Currency", &clsEntBPricei::Currency},
      {"OrdQty", &clsEntBPricei::OrdQty},
      {"DeliverDate", &clsEntBPricei::DeliverDate},
      {"BkQty", &clsEntBPricei::BkQty},
      {"No", &clsEntBPricei::No},
      {"Rate", &clsEntBPricei::Rate},
      {"TaxSort", &clsEntBPricei::TaxSort},
      {"Tax", &clsEntBPricei::Tax},
      {"DisPerRow", &clsEntBPricei::DisPerRow},
      {"ItemName", &clsEntBPricei::ItemName},
      {"FcTotal", &clsEntBPricei::FcTotal},
      {"LcTotal", &clsEntBPricei::LcTotal},
  }};
};

template <>
struct EntityFields<clsEntSCurrency> {
  static constexpr const char* kName = "clsEntSCurrency";
  static constexpr std::array<Field<clsEntSCurrency>, 2> kFields = {{
      {"CurrencyID", &clsEntSCurrency::CurrencyID},
      {"CurrencyName", &clsEntSCurrency::CurrencyName},
  }};
};

template <>
struct EntityFields<clsEntBOutMakeh> {
  static constexpr const char* kName = "clsEntBOutMakeh";
  static constexpr std::array<Field<clsEntBOutMakeh>, 33> kFields = {{
      {"OrderoutNo", &clsEntBOutMakeh::OrderoutNo},
      {"Approve", &clsEntBOutMakeh::Approve},
      {"ApproveTime", &clsEntBOutMakeh::ApproveTime},
      {"Checker", &clsEntBOutMakeh::Checker},
      {"CheckerTime", &clsEntBOutMakeh::CheckerTime},
      {"DeliverAddr", &clsEntBOutMakeh::DeliverAddr},
      {"DeliverMode", &clsEntBOutMakeh::DeliverMode},
      {"Flags", &clsEntBOutMakeh::Flags},
      {"OrderoutDate", &clsEntBOutMakeh::OrderoutDate},
      {"PayDay", &clsEntBOutMakeh::PayDay},
      {"PayMode", &clsEntBOutMakeh::PayMode},
      {"ProviderNo", &clsEntBOutMakeh::ProviderNo},
      {"Tabler", &clsEntBOutMakeh::Tabler},
      {"Tabletime", &clsEntBOutMakeh::Tabletime},
      {"BuYerID", &clsEntBOutMakeh::BuYerID},
      {"SOrderNo", &clsEntBOutMakeh::SOrderNo},
      {"OrderType", &clsEntBOutMakeh::OrderType},
      {"Package", &clsEntBOutMakeh::Package},
      {"TotalBefore", &clsEntBOutMakeh::TotalBefore},
      {"DisCount", &clsEntBOutMakeh::DisCount},
      {"Greight", &clsEntBOutMakeh::Greight},
      {"Tax", &clsEntBOutMakeh::Tax},
      {"Total", &clsEntBOutMakeh::Total},
      {"DocType", &clsEntBOutMakeh::DocType},
      {"ProviderName", &clsEntBOutMakeh::ProviderName},
      {"jrnlMemo", &clsEntBOutMakeh::jrnlMemo},
      {"DueDate", &clsEntBOutMakeh::DueDate},
      {"TaxDate", &clsEntBOutMakeh::TaxDate},
      {"UpdataUser", &clsEntBOutMakeh::UpdataUser},
      {"PayMonth", &clsEntBOutMakeh::PayMonth},
      {"Comments", &clsEntBOutMakeh::Comments},
      {"Attn", &clsEntBOutMakeh::Attn},
      {"Currency", &clsEntBOutMakeh::Currency},
  }};
};

template <>
struct EntityFields<clsEntBOutMakei> {
  static constexpr const char* kName = "clsEntBOutMakei";
  static constexpr std::array<Field<clsEntBOutMakei>, 26> kFields = {{
      {"OrderoutNo", &clsEntBOutMakei::OrderoutNo},
      {"ProdNo", &clsEntBOutMakei::ProdNo},
      {"ItemNo", &clsEntBOutMakei::ItemNo},
      {"CurrencyID", &clsEntBOutMakei::CurrencyID},
      {"Price", &clsEntBOutMakei::Price},
      {"OrdoutQty", &clsEntBOutMakei::OrdoutQty},
      {"DeliverDate", &clsEntBOutMakei::DeliverDate},
      {"SupportPart", &clsEntBOutMakei::SupportPart},
      {"Remark", &clsEntBOutMakei::Remark},
      {"InQty", &clsEntBOutMakei::InQty},
      {"InDate", &clsEntBOutMakei::InDate},
      {"Status", &clsEntBOutMakei::Status},
      {"CustNo", &clsEntBOutMakei::CustNo},
      {"CorderNo", &clsEntBOutMakei::CorderNo},
      {"ItemName", &clsEntBOutMakei::ItemName},
      {"BKQty", &clsEntBOutMakei::BKQty},
      {"SItemNo", &clsEntBOutMakei::SItemNo},
      {"DisPerRow", &clsEntBOutMakei::DisPerRow},
      {"Rate", &clsEntBOutMakei::Rate},
      {"TaxSort", &clsEntBOutMakei::TaxSort},
      {"Tax", &clsEntBOutMakei::Tax},
      {"FcTotal", &clsEntBOutMakei::FcTotal},
      {"LcTotal", &clsEntBOutMakei::LcTotal},
      {"StepCode", &clsEntBOutMakei::StepCode},
      {"Eitem", &clsEntBOutMakei::Eitem},
      {"Ename", &clsEntBOutMakei::Ename},
  }};
};

template <>
struct EntityFields<clsEntBCosth> {
  static constexpr const char* kName = "clsEntBCosth";
  static constexpr std::array<Field<clsEntBCosth>, 28> kFields = {{
      {"EstNo", &clsEntBCosth::EstNo},
      {"EstDate", &clsEntBCosth::EstDate},
      {"ItemNo", &clsEntBCosth::ItemNo},
      {"CustNo", &clsEntBCosth::CustNo},
      {"Remark", &clsEntBCosth::Remark},
      {"Tabler", &clsEntBCosth::Tabler},
      {"TableTime", &clsEntBCosth::TableTime},
      {"CurrencyID", &clsEntBCosth::CurrencyID},
      {"PartCost", &clsEntBCosth::PartCost},
      {"WageCost", &clsEntBCosth::WageCost},
      {"ManageCost", &clsEntBCosth::ManageCost},
      {"TotCost", &clsEntBCosth::TotCost},
      {"QuotPrice_1", &clsEntBCosth::QuotPrice_1},
      {"QuotPrice_2", &clsEntBCosth::QuotPrice_2},
      {"QuotPrice_3", &clsEntBCosth::QuotPrice_3},
      {"QuotPrice_4", &clsEntBCosth::QuotPrice_4},
      {"QuotPrice_5", &clsEntBCosth::QuotPrice_5},
      {"ProFit_1", &clsEntBCosth::ProFit_1},
      {"ProFit_2", &clsEntBCosth::ProFit_2},
      {"ProFit_3", &clsEntBCosth::ProFit_3},
      {"ProFit_4", &clsEntBCosth::ProFit_4},
      {"ProFit_5", &clsEntBCosth::ProFit_5},
      {"TaxPrice", &clsEntBCosth::TaxPrice},
      {"SalePrice_1", &clsEntBCosth::SalePrice_1},
      {"SalePrice_2", &clsEntBCosth::SalePrice_2},
      {"SalePrice_3", &clsEntBCosth::SalePrice_3},
      {"SalePrice_4", &clsEntBCosth::SalePrice_4},
      {"SalePrice_5", &clsEntBCosth::SalePrice_5},
  }};
};

template <>
struct EntityFields<clsEntBCosti> {
  static constexpr const char* kName = "clsEntBCosti";
  static constexpr std::array<Field<clsEntBCosti>, 7> kFields = {{
      {"EstNo", &clsEntBCosti::EstNo},
      {"ItemNo", &clsEntBCosti::ItemNo},
      {"CurrencyID", &clsEntBCosti::CurrencyID},
      {"Dosage", &clsEntBCosti::Dosage},
      {"Waste", &clsEntBCosti::Waste},
      {"Price", &clsEntBCosti::Price},
      {"CostPrice", &clsEntBCosti::CostPrice},
  }};
};

template <>
struct EntityFields<clsEntBCosts> {
  static constexpr const char* kName = "clsEntBCosts";
  static constexpr std::array<Field<clsEntBCosts>, 3> kFields = {{
      {"EstNo", &clsEntBCosts::EstNo},
      {"WageItem", &clsEntBCosts::WageItem},
      {"Wage", &clsEntBCosts::Wage},
  }};
};

template <>
struct EntityFields<clsEntBWageSort> {
  static constexpr const char* kName = "clsEntBWageSort";
  static constexpr std::array<Field<clsEntBWageSort>, 3> kFields = {{
      {"ID", &clsEntBWageSort::ID},
      {"WageItem", &clsEntBWageSort::WageItem},
      {"Wage", &clsEntBWageSort::Wage},
  }};
};

template <>
struct EntityFields<clsEntEGoodsType> {
  static constexpr const char* kName = "clsEntEGoodsType";
  static constexpr std::array<Field<clsEntEGoodsType>, 1> kFields = {{
      {"GoodStype", &clsEntEGoodsType::GoodStype},
  }};
};

template <>
struct EntityFields<clsEntBCustom> {
  static constexpr const char* kName = "clsEntBCustom";
  static constexpr std::array<Field<clsEntBCustom>, 53> kFields = {{
      {"custno", &clsEntBCustom::custno},
      {"countryid", &clsEntBCustom::countryid},
      {"provinceid", &clsEntBCustom::provinceid},
      {"cityname", &clsEntBCustom::cityname},
      {"CustName", &clsEntBCustom::CustName},
      {"CustFullName", &clsEntBCustom::CustFullName},
      {"EnglishName", &clsEntBCustom::EnglishName},
      {"corp", &clsEntBCustom::corp},
      {"Linkman_1st", &clsEntBCustom::Linkman_1st},
      {"SalerID", &clsEntBCustom::SalerID},
      {"Linkman_m", &clsEntBCustom::Linkman_m},
      {"Linkman_last", &clsEntBCustom::Linkman_last},
      {"Comb", &clsEntBCustom::Comb},
      {"Fax", &clsEntBCustom::Fax},
      {"tel", &clsEntBCustom::tel},
      {"zip", &clsEntBCustom::zip},
      {"Address", &clsEntBCustom::Address},
      {"bank", &clsEntBCustom::bank},
      {"bankid1", &clsEntBCustom::bankid1},
      {"bankid2", &clsEntBCustom::bankid2},
      {"Stand", &clsEntBCustom::Stand},
      {"PayMode", &clsEntBCustom::PayMode},
      {"payday", &clsEntBCustom::payday},
      {"email", &clsEntBCustom::email},
      {"www", &clsEntBCustom::www},
      {"GoodsAddr1", &clsEntBCustom::GoodsAddr1},
      {"GoodsAddr2", &clsEntBCustom::GoodsAddr2},
      {"GoodsAddr3", &clsEntBCustom::GoodsAddr3},
      {"CreateDate", &clsEntBCustom::CreateDate},
      {"EditDate", &clsEntBCustom::EditDate},
      {"descr", &clsEntBCustom::descr},
      {"Status", &clsEntBCustom::Status},
      {"GroupCode", &clsEntBCustom::GroupCode},
      {"CurrencyId", &clsEntBCustom::CurrencyId},
      {"ProjectCode", &clsEntBCustom::ProjectCode},
      {"Technology", &clsEntBCustom::Technology},
      {"Priority", &clsEntBCustom::Priority},
      {"PackPage", &clsEntBCustom::PackPage},
      {"Paymonth", &clsEntBCustom::Paymonth},
      {"PriceList", &clsEntBCustom::PriceList},
      {"CreditLimit", &clsEntBCustom::CreditLimit},
      {"VatgroupCode", &clsEntBCustom::VatgroupCode},
      {"AccountBlance", &clsEntBCustom::AccountBlance},
      {"Deliveries", &clsEntBCustom::Deliveries},
      {"Orders", &clsEntBCustom::Orders},
      {"Opports", &clsEntBCustom::Opports},
      {"YusAcct", &clsEntBCustom::YusAcct},
      {"YinsAcct", &clsEntBCustom::YinsAcct},
      {"othAcct", &clsEntBCustom::othAcct},
      {"SendMode", &clsEntBCustom::SendMode},
      {"ZyywsrAcct", &clsEntBCustom::ZyywsrAcct},
      {"XscbAcct", &clsEntBCustom::XscbAcct},
      {"KcspAcct", &clsEntBCustom::KcspAcct},
  }};
};

template <>
struct EntityFields<clsEntBSaler> {
  static constexpr const char* kName = "clsEntBSaler";
  static constexpr std::array<Field<clsEntBSaler>, 4> kFields = {{
      {"SalerId", &clsEntBSaler::SalerId},
      {"Saler_1st", &clsEntBSaler::Saler_1st},
      {"Saler_m", &clsEntBSaler::Saler_m},
      {"Saler_last", &clsEntBSaler::Saler_last},
  }};
};

template <>
struct EntityFields<clsEntBCStudy> {
  static constexpr const char* kName = "clsEntBCStudy";
  static constexpr std::array<Field<clsEntBCStudy>, 12> kFields = {{
      {"InvestNo", &clsEntBCStudy::InvestNo},
      {"InvestDate", &clsEntBCStudy::InvestDate},
      {"CustNo", &clsEntBCStudy::CustNo},
      {"Director", &clsEntBCStudy::Director},
      {"SendQc", &clsEntBCStudy::SendQc},
      {"SendDate", &clsEntBCStudy::SendDate},
      {"Service", &clsEntBCStudy::Service},
      {"Result", &clsEntBCStudy::Result},
      {"Suggestion", &clsEntBCStudy::Suggestion},
      {"SendQcDesc", &clsEntBCStudy::SendQcDesc},
      {"SendDateDesc", &clsEntBCStudy::SendDateDesc},
      {"ServiceDesc", &clsEntBCStudy::ServiceDesc},
  }};
};

template <>
struct EntityFields<clsEntBSample> {
  static constexpr const char* kName = "clsEntBSample";
  static constexpr std::array<Field<clsEntBSample>, 27> kFields = {{
      {"NumNo", &clsEntBSample::NumNo},
      {"Appgist", &clsEntBSample::Appgist},
      {"AskEmp", &clsEntBSample::AskEmp},
      {"Citemno", &clsEntBSample::Citemno},
      {"CreaDate", &clsEntBSample::CreaDate},
      {"Custno", &clsEntBSample::Custno},
      {"Deform", &clsEntBSample::Deform},
      {"ItemDesc", &clsEntBSample::ItemDesc},
      {"ItemName", &clsEntBSample::ItemName},
      {"ModeDesc", &clsEntBSample::ModeDesc},
      {"ModelNo", &clsEntBSample::ModelNo},
      {"Modoption", &clsEntBSample::Modoption},
      {"OkDate", &clsEntBSample::OkDate},
      {"OrderNo", &clsEntBSample::OrderNo},
      {"Qty", &clsEntBSample::Qty},
      {"Remark", &clsEntBSample::Remark},
      {"ReqDate", &clsEntBSample::ReqDate},
      {"Samask", &clsEntBSample::Samask},
      {"SampleType", &clsEntBSample::SampleType},
      {"SenDate", &clsEntBSample::SenDate},
      {"SendQty", &clsEntBSample::SendQty},
      {"Tabler", &clsEntBSample::Tabler},
      {"Tabletime", &clsEntBSample::Tabletime},
      {"Timber", &clsEntBSample::Timber},
      {"TimberNumber", &clsEntBSample::TimberNumber},
      {"Useful", &clsEntBSample::Useful},
      {"PlaceID", &clsEntBSample::PlaceID},
  }};
};

}  // namespace corvane::automation::internal

#endif  // CORVANE_AUTOMATION_INTERNAL_ENTITY_FIELDS_H_
