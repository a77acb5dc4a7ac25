// Sales people.
#include "corvane/customers/sales_people.h"


namespace corvane {

const std::shared_ptr<clsEntBSaler>& clsDataBSaler::Work() {
  if (!work_) work_ = std::make_shared<clsEntBSaler>();
  return work_;
}

std::int16_t clsDataBSaler::QueryByID(clsEntBSaler& Entity) {
  std::int16_t result = 0;
  Guard(kPlainReport.ResetFirst(), [&] {
    ReadOpen("select * from T_BSaler where F_SalerID = '" + Entity.SalerId + "'");
    if (NoRow()) {
      result = 0;
    } else {
      Entity.SalerId = Nz("F_SalerID", "").CStr();
      Entity.Saler_1st = Nz("F_Saler_1st", "").CStr();
      Entity.Saler_m = Nz("F_Saler_m", "").CStr();
      Entity.Saler_last = Nz("F_Saler_last", "").CStr();
      result = 1;
    }
    rs().Close();
  }, [&] { result = 2; });
  return result;
}

Variant clsDataBSaler::QueryAll(Collection<clsEntBSaler>* colSaler) {
  Guard(kLengthReport, [&] {
    ReadOpen("select * from T_BSaler");
    while (!rs().Eof()) {
      Work()->Saler_1st = Nz("F_Saler_1st", "").CStr();
      Work()->SalerId = Nz("F_SalerId", "").CStr();
      rs().MoveNext();
      AddTo(colSaler, Work());
      work_.reset();
    }
    rs().Close();
  });
  return Variant();
}

std::int16_t clsDataBSaler::AddRecord(clsEntBSaler& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    ReadOpen("select * from T_BSaler where F_SalerId= '" + Entity.SalerId + "'");
    if (!NoRow()) {
      result = 2;
      rs().Close();
      return;
    }
    rs().Close();
    Open("select * from T_BSaler", 2, 3);
    rs().AddNew();
    Write("F_SalerId", Entity.SalerId);
    Write("F_Saler_1st", Entity.Saler_1st);
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBSaler::UpdateRecord(clsEntBSaler& Entity, const std::string& TempId) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("update T_BSaler set F_Saler_1st= '" + Trim(Entity.Saler_1st) +
             "',F_SalerId='" + Trim(Entity.SalerId) + "' where F_SalerId ='" +
             Trim(TempId) + "'",
         1, 2);
    ResetRs();
    // How many rows changed is not looked at.
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBSaler::DeleteRecord(clsEntBSaler& Entity) {
  std::int16_t result = 0;
  Guard(kLengthReport, [&] {
    FreshRs();
    Open("select * from T_BSaler where F_SalerId ='" + Entity.SalerId + "' ", 1, 2);
    if (NoRow()) return;  // rs stays open
    rs().Delete(1);
    rs().Update();
    rs().Close();
  });
  return result;
}

Variant clsDataBSaler::QuerySalerName(Collection<clsEntBSaler>* colSaler,
                                      const std::string& SalerID) {
  Guard(kLengthReport, [&] {
    ReadOpen(
        "select F_salerid,concat_ws('-',f_salerid ,f_saler_1st) as f_saler_1st from T_BSaler "
        "where f_salerid='" +
        SalerID + "'");
    if (!rs().Bof() && !rs().Eof()) {
      // The display form: identifier, hyphen, name.
      Work()->Saler_1st = Nz("F_Saler_1st", "").CStr();
      Work()->SalerId = Nz("F_SalerId", "").CStr();
    } else if (rs().Bof() && rs().Eof()) {
      Work()->Saler_1st = "";
    }
    AddTo(colSaler, Work());
    work_.reset();
    rs().Close();
  });
  return Variant();
}

}  // namespace corvane
