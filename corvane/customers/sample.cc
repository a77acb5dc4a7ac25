// Samples and goods types.
#include "corvane/customers/sample.h"

#include "corvane/customers/internal/number_key.h"
#include "corvane/numbering/family_a.h"

namespace corvane {
namespace {

// The sample numbers of the day. A new sample is appended to the whole table
// (kWholeTable), so the number check of number_taken is never run.
const numbering::FamilyATexts kNumbers{
    .largest = "select * from t_bsample where F_NumNO in (select max(F_NumNo) from t_bsample)",
    .largest_of_day = "select max(F_NumNo) as F_NumNo from t_bsample where F_TableTime ='{D}'",
    .number_taken = "",
    .delete_document = "delete from t_bsample where F_NumNo ='{N}' ",
    .documents_of_day = "select * from t_bsample where F_TableTime='{D}'",
    .max_of_day = "(select max(F_NumNo) from t_bsample where F_TableTime='{D}')",
};
const char kWholeTable[] = "select * from t_bsample";

}  // namespace

void clsDataBSample::WriteColumns(const clsEntBSample& Entity) {
  Write("F_Appgist", Entity.Appgist);
  Write("F_AskEmp", Entity.AskEmp);
  Write("F_CitemNO", Entity.Citemno);
  Write("F_CreaDate", Entity.CreaDate);
  Write("F_CustNo", Entity.Custno);
  Write("F_DeForm", Entity.Deform);
  Write("F_ItemDesc", Entity.ItemDesc);
  Write("F_ItemName", Entity.ItemName);
  Write("F_ModeDesc", Entity.ModeDesc);
  Write("F_ModelNo", Entity.ModelNo);
  Write("F_Modoption", Entity.Modoption);
  Write("F_NumNo", Entity.NumNo);
  Write("F_OkDate", Entity.OkDate);
  Write("F_OrderNo", Entity.OrderNo);
  Write("F_Qty", Entity.Qty);
  Write("F_Remark", Entity.Remark);
  Write("F_ReqDate", Entity.ReqDate);
  Write("F_Samask", Entity.Samask);
  Write("F_SampleType", Entity.SampleType);
  Write("F_SenDate", Entity.SenDate);
  Write("F_SendQty", Entity.SendQty);
  Write("F_Tabler", Entity.Tabler);
  Write("F_Tabletime", Entity.Tabletime);
  Write("F_Timber", Entity.Timber);
  Write("F_TimberNumber", Entity.TimberNumber);
  Write("F_Useful", Entity.Useful);
  Write("F_PlaceID", Entity.PlaceID);
}

std::string clsDataBSample::ReadPlaceID() { return Nz("F_Useful", "F_PlaceID", "").CStr(); }

std::int16_t clsDataBSample::GetSampleRecord(clsEntBSample& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select * from t_bsample where F_NumNO ='" + Text(Entity.NumNo) + "'");
    if (!NoRow()) {
      // Numbers and dates read a null as 0 and the zero date; F_Appgist as "0".
      Entity.NumNo = Nz("F_NumNo", 0).CDbl();
      Entity.Appgist = Nz("F_Appgist", 0).CStr();
      Entity.AskEmp = Nz("F_AskEmp", "").CStr();
      Entity.Citemno = Nz("F_Citemno", "").CStr();
      Entity.CreaDate = Nz("F_CreaDate", 0).CDate();
      Entity.Custno = Nz("F_Custno", "").CStr();
      Entity.Deform = Nz("F_Deform", 0).CLng();
      Entity.ItemDesc = Nz("F_ItemDesc", "").CStr();
      Entity.ItemName = Nz("F_ItemName", "").CStr();
      Entity.ModeDesc = Nz("F_ModeDesc", "").CStr();
      Entity.ModelNo = Nz("F_ModelNo", "").CStr();
      Entity.Modoption = Nz("F_Modoption", 0).CInt();
      Entity.OkDate = Nz("F_OkDate", 0).CDate();
      Entity.OrderNo = Nz("F_OrderNo", "").CStr();
      Entity.Qty = Nz("F_Qty", 0).CLng();
      Entity.Remark = Nz("F_Remark", "").CStr();
      Entity.ReqDate = Nz("F_ReqDate", 0).CDate();
      Entity.Samask = Nz("F_Samask", "").CStr();
      Entity.SampleType = Nz("F_SampleType", "").CStr();
      Entity.SenDate = Nz("F_SenDate", 0).CDate();
      Entity.SendQty = Nz("F_SendQty", 0).CLng();
      Entity.Tabler = Nz("F_Tabler", "").CStr();
      Entity.Tabletime = Nz("F_Tabletime", 0).CDate();
      Entity.Timber = Nz("F_Timber", "").CStr();
      Entity.TimberNumber = Nz("F_TimberNumber", "").CStr();
      Entity.Useful = Nz("F_Useful", "").CStr();
      Entity.PlaceID = ReadPlaceID();
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBSample::QueryMaxItem(clsEntBSample& maxitem) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::QueryMaxItem(*this, kNumbers, [&] {
      // As GetSampleRecord reads, but a null F_Custno reads as "0" here and a
      // null F_Deform does not read.
      maxitem.NumNo = Nz("F_NumNo", 0).CDbl();
      maxitem.Appgist = Nz("F_Appgist", 0).CStr();
      maxitem.AskEmp = Nz("F_AskEmp", "").CStr();
      maxitem.Citemno = Nz("F_Citemno", "").CStr();
      maxitem.CreaDate = Nz("F_CreaDate", 0).CDate();
      maxitem.Custno = Nz("F_Custno", 0).CStr();
      maxitem.Deform = Nz("F_Deform", "").CLng();
      maxitem.ItemDesc = Nz("F_ItemDesc", "").CStr();
      maxitem.ItemName = Nz("F_ItemName", "").CStr();
      maxitem.ModeDesc = Nz("F_ModeDesc", "").CStr();
      maxitem.ModelNo = Nz("F_ModelNo", "").CStr();
      maxitem.Modoption = Nz("F_Modoption", 0).CInt();
      maxitem.OkDate = Nz("F_OkDate", 0).CDate();
      maxitem.OrderNo = Nz("F_OrderNo", "").CStr();
      maxitem.Qty = Nz("F_Qty", 0).CLng();
      maxitem.Remark = Nz("F_Remark", "").CStr();
      maxitem.ReqDate = Nz("F_ReqDate", 0).CDate();
      maxitem.Samask = Nz("F_Samask", "").CStr();
      maxitem.SampleType = Nz("F_SampleType", "").CStr();
      maxitem.SenDate = Nz("F_SenDate", 0).CDate();
      maxitem.SendQty = Nz("F_SendQty", 0).CLng();
      maxitem.Tabler = Nz("F_Tabler", "").CStr();
      maxitem.Tabletime = Nz("F_Tabletime", 0).CDate();
      maxitem.Timber = Nz("F_Timber", "").CStr();
      maxitem.TimberNumber = Nz("F_TimberNumber", "").CStr();
      maxitem.Useful = Nz("F_Useful", "").CStr();
      maxitem.PlaceID = ReadPlaceID();
    });
  }, [&] { result = 0; });
  return result;
}

Variant clsDataBSample::QueryEGoodsType(Collection<clsEntEGoodsType>* CollEGoodsType) {
  Variant result;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select distinct F_GoodStype from t_egoodstype order by F_GoodStype asc");
    FillCollection(CollEGoodsType, [&](clsEntEGoodsType& e) {
      result = std::int16_t{1};
      e.GoodStype = Nz("F_GoodStype", "").CStr();
    });
    if (result != Variant(std::int16_t{1})) result = std::int16_t{0};
  }, [&] { result = std::int16_t{0}; });
  return result;
}

std::int16_t clsDataBSample::AddRecord(clsEntBSample& Entity, const std::string& strTableName,
                                       std::int16_t Istatus, Date currentdate) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    // No look at the number first: only the database can refuse a used one.
    numbering::AppendDocument(*this, kWholeTable, [&] { WriteColumns(Entity); });
    // The day's row is keyed on currentdate, not on the sample's F_Tabletime.
    numbering::RememberNumber(*this, Istatus, strTableName, Entity.NumNo, currentdate);
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBSample::UpdateRecord(clsEntBSample& Entity, const std::string& NumNo) {
  std::int16_t result = 0;
  Guard(kLengthReport.ResetFirst(), [&] {
    KeysetEdit("select * from t_bsample where F_NumNo ='" + customers::NumberKey(NumNo) + "' ");
    // No row test: with no row the first write fails.
    WriteColumns(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBSample::QueryMaxItemDelete(clsEntBSample& maxitemdelete, Date currentdate) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::QueryMaxItemDelete(*this, kNumbers, currentdate, [&] {
      maxitemdelete.NumNo = Value("F_NumNo").CDbl();
    });
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBSample::DeleteRecord(clsEntBSample& Entity, std::int16_t DeleteStatus,
                                          const std::string& strTableName) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    // The number is written once as text, and the day is the sample's own.
    result = numbering::DeleteDocument(*this, kNumbers, DeleteStatus, Text(Entity.NumNo),
                                       Entity.Tabletime, strTableName);
  }, [&] { result = 0; });
  return result;
}

Variant clsDataBSample::QueryAllCustmo(Collection<clsEntBSample>* CollALL) {
  Variant result;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select distinct F_Custno from t_bsample order by F_Custno asc");
    FillCollection(CollALL, [&](clsEntBSample& e) { e.Custno = Nz("F_Custno", "").CStr(); });
  }, [&] { result = std::int16_t{0}; });
  return result;
}

std::int16_t clsDataBSample::QueryAlldetaile(Collection<clsEntBSample>* CollALL2,
                                             const std::string& NumNo) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    bool seen = false;
    ReadOpen("select * from t_bsample where F_Custno='" + NumNo + "'");
    FillCollection(CollALL2, [&](clsEntBSample& e) {
      seen = true;
      // Only F_Appgist and F_OkDate fall back to 0, and the texts to empty
      // text: a null in any other number or date does not read.
      e.NumNo = Nz("F_NumNo", "").CDbl();
      e.Appgist = Nz("F_Appgist", 0).CStr();
      e.AskEmp = Nz("F_AskEmp", "").CStr();
      e.Citemno = Nz("F_Citemno", "").CStr();
      e.CreaDate = Nz("F_CreaDate", "").CDate();
      e.Custno = Nz("F_Custno", "").CStr();
      e.Deform = Nz("F_Deform", "").CLng();
      e.ItemDesc = Nz("F_ItemDesc", "").CStr();
      e.ItemName = Nz("F_ItemName", "").CStr();
      e.ModeDesc = Nz("F_ModeDesc", "").CStr();
      e.ModelNo = Nz("F_ModelNo", "").CStr();
      e.Modoption = Nz("F_Modoption", "").CInt();
      e.OkDate = Nz("F_OkDate", 0).CDate();
      e.OrderNo = Nz("F_OrderNo", "").CStr();
      e.Qty = Nz("F_Qty", "").CLng();
      e.Remark = Nz("F_Remark", "").CStr();
      e.ReqDate = Nz("F_ReqDate", "").CDate();
      e.Samask = Nz("F_Samask", "").CStr();
      e.SampleType = Nz("F_SampleType", "").CStr();
      e.SenDate = Nz("F_SenDate", "").CDate();
      e.SendQty = Nz("F_SendQty", "").CLng();
      e.Tabler = Nz("F_Tabler", "").CStr();
      e.Tabletime = Nz("F_Tabletime", "").CDate();
      e.Timber = Nz("F_Timber", "").CStr();
      e.TimberNumber = Nz("F_TimberNumber", "").CStr();
      e.Useful = Nz("F_Useful", "").CStr();
      e.PlaceID = ReadPlaceID();
    });
    result = seen ? 1 : 0;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBSample::QueryCondition(const Date& InvestnoDate, const std::string& TableName,
                                            clsEntSitemNo& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::QueryCondition(*this, InvestnoDate, TableName, Entity);
  }, [&] { result = 2; });
  return result;
}

}  // namespace corvane
