// Customer studies.
#include "corvane/customers/customer_study.h"

#include "corvane/customers/internal/number_key.h"
#include "corvane/numbering/family_a.h"

namespace corvane {
namespace {

// The study numbers of the day.
const numbering::FamilyATexts kNumbers{
    .largest =
        "select * from t_bcstudy where F_InvestNo in (select max(F_InvestNo) from t_bcstudy)",
    .largest_of_day =
        "select max(F_InvestNo) as f_investno from t_bcstudy where F_InvestDate ='{D}'",
    .number_taken = "select * from t_bcstudy where F_InvestNo='{N}'",
    .delete_document = "delete from t_bcstudy where F_InvestNo ='{N}' ",
    .documents_of_day = "select * from t_bcstudy where f_InvestDate='{D}'",
    .max_of_day = "(select max(F_InvestNo) from t_bcstudy where F_InvestDate='{D}')",
};

}  // namespace

void clsDataBCStudy::WriteColumns(const clsEntBCStudy& Entity) {
  Write("F_InvestNo", Entity.InvestNo);
  Write("F_InvestDate", Entity.InvestDate);
  Write("F_CustNo", Entity.CustNo);
  Write("F_Director", Entity.Director);
  Write("F_SendQc", Entity.SendQc);
  Write("F_SendDate", Entity.SendDate);
  Write("F_Service", Entity.Service);
  Write("F_Result", Entity.Result);
  Write("F_Suggestion", Entity.Suggestion);
  Write("F_SendQcDesc", Entity.SendQcDesc);
  Write("F_SendDateDesc", Entity.SendDateDesc);
  Write("F_ServiceDesc", Entity.ServiceDesc);
}

std::int16_t clsDataBCStudy::QueryMaxItem(clsEntBCStudy& maxitem) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::QueryMaxItem(*this, kNumbers, [&] {
      // A null date or mark has no number 0 to fall back on: it does not read.
      maxitem.InvestNo = Nz("F_InvestNo", 0).CDbl();
      maxitem.InvestDate = Nz("F_InvestDate", "").CDate();
      maxitem.CustNo = Nz("F_CustNo", "").CStr();
      maxitem.Director = Nz("F_Director", "").CStr();
      maxitem.SendQc = Nz("F_SendQc", "").CInt();
      maxitem.SendDate = Nz("F_SendDate", "").CInt();
      maxitem.Service = Nz("F_Service", "").CInt();
      maxitem.Result = Nz("F_Result", "").CInt();
      maxitem.Suggestion = Nz("F_Suggestion", "").CStr();
      maxitem.SendQcDesc = Nz("F_SendQcDesc", "").CStr();
      maxitem.SendDateDesc = Nz("F_SendDateDesc", "").CStr();
      maxitem.ServiceDesc = Nz("F_ServiceDesc", "").CStr();
    });
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCStudy::QueryMaxItemDelete(clsEntBCStudy& maxitemdelete, Date currentdate) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::QueryMaxItemDelete(*this, kNumbers, currentdate, [&] {
      maxitemdelete.InvestNo = Value("f_investno").CDbl();
    });
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCStudy::AddRecord(clsEntBCStudy& Entity, const std::string& strTableName,
                                       std::int16_t Istatus) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    // Istatus 0 (the first study of the day) and any other value store alike;
    // they differ in the write to t_sitemno.
    if (numbering::StoreDocument(*this, kNumbers, Text(Entity.InvestNo),
                                 [&] { WriteColumns(Entity); }) == 0) {
      result = 0;
      return;
    }
    numbering::RememberNumber(*this, Istatus, strTableName, Entity.InvestNo, Entity.InvestDate);
    if (rs().State() == 1) rs().Close();
    result = 1;
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCStudy::UpdateRecord(clsEntBCStudy& Entity, const std::string& InvestNo) {
  std::int16_t result = 0;
  Guard(kLengthReport.ResetFirst(), [&] {
    KeysetEdit("select * from t_bcstudy where F_InvestNo ='" + customers::NumberKey(InvestNo) +
               "' ");
    // No row test: with no row the first write fails.
    WriteColumns(Entity);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCStudy::DeleteRecord(clsEntBCStudy& Entity, std::int16_t DeleteStatus,
                                          const std::string& strTableName) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::DeleteDocument(*this, kNumbers, DeleteStatus,
                                       numbering::NumberText(Entity.InvestNo), Entity.InvestDate,
                                       strTableName);
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCStudy::QueryAll(Collection<clsEntBCStudy>* CollALL) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select distinct F_CustNo from t_bcstudy order by F_CustNo asc");
    FillCollection(CollALL, [&](clsEntBCStudy& e) {
      e.CustNo = Nz("F_CustNo", "").CStr();
      result = 1;
    });
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCStudy::QueryAlldetaile(Collection<clsEntBCStudy>* CollALL2,
                                             const std::string& CustName) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select F_InvestNo from t_bcstudy where F_CustNo='" + CustName + "'");
    FillCollection(CollALL2, [&](clsEntBCStudy& e) {
      e.InvestNo = Nz("F_InvestNo", 0).CDbl();
      result = 1;
    });
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCStudy::BackEntity(clsEntBCStudy& Entity, const std::string& Chooseitem) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen(
        "select F_InvestDate,F_CustNo,F_Director,F_SendQc,F_SendDate,F_Service,F_Result,"
        "F_Suggestion,F_SendQcDesc,F_SendDateDesc,F_ServiceDesc from t_bcstudy where "
        "F_InvestNo='" +
        Chooseitem + "'");
    if (!NoRow()) {
      // A null date or mark has no number 0 to fall back on: it does not read.
      Entity.InvestDate = Nz("F_InvestDate", "").CDate();
      Entity.CustNo = Nz("F_CustNo", "").CStr();
      Entity.Director = Nz("F_Director", "").CStr();
      Entity.SendQc = Nz("F_SendQc", "").CInt();
      Entity.SendDate = Nz("F_SendDate", "").CInt();
      Entity.Service = Nz("F_Service", "").CInt();
      Entity.Result = Nz("F_Result", "").CInt();
      Entity.Suggestion = Nz("F_Suggestion", "").CStr();
      Entity.SendQcDesc = Nz("F_SendQcDesc", "").CStr();
      Entity.SendDateDesc = Nz("F_SendDateDesc", "").CStr();
      Entity.ServiceDesc = Nz("F_ServiceDesc", "").CStr();
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

std::int16_t clsDataBCStudy::QueryCondition(const Date& InvestnoDate, const std::string& TableName,
                                            clsEntSitemNo& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport, [&] {
    result = numbering::QueryCondition(*this, InvestnoDate, TableName, Entity);
  }, [&] { result = 2; });
  return result;
}

Date clsDataBCStudy::QueryDate() {
  Date result;
  Guard(kPlainReport, [&] {
    Open("select curdate() as f_date", 1, 2);
    result = Value("f_date").CDate();
    rs().Close();
  }, [&] { result = Date(); });
  return result;
}

}  // namespace corvane
