// The steps of the day's document numbers.
#include "corvane/numbering/family_b.h"

namespace corvane::numbering {

std::int16_t QueryTF(Repository& repo, const FamilyBTexts& texts) {
  repo.Open(texts.query_tf, 1, 2);
  const std::int16_t result = repo.NoRow() ? 1 : 2;
  repo.rs().Close();
  return result;
}

void QueryChkitemiNo(Repository& repo, const FamilyBTexts& texts, clsEntSitemNo& objQitemh,
                     const Variant& fndate_fallback) {
  repo.Open(texts.last_of_today, 1, 2);
  if (!repo.NoRow()) {
    objQitemh.tablename = repo.Nz("F_tablename", "").CStr();
    objQitemh.no = repo.Nz("F_no", "").CDbl();
    objQitemh.fndate = repo.Nz("F_fndate", fndate_fallback).CDate();
    repo.rs().Close();
    return;
  }
  repo.rs().Close();
  repo.ResetRs();
  objQitemh.tablename = texts.table_name;
  repo.Open("select curdate()+0 as f_no", 1, 2);
  objQitemh.no = Variant(repo.Value("f_no").CStr() + "001").CDbl();
  repo.rs().Close();
  repo.Open("select curdate() as f_fndate", 1, 2);
  objQitemh.fndate = repo.Nz("f_fndate", 0).CDate();
  repo.ResetRs();
}

void UpdateAddSitemNo(Repository& repo, const FamilyBTexts& texts) {
  repo.Open(texts.counter_of_today, 1, 2);
  if (repo.NoRow()) {
    repo.rs().Close();
    repo.Open(texts.open_counter, 1, 2);
  } else {
    repo.rs().Close();
    repo.Open(texts.advance_counter, 1, 2);
  }
  repo.ResetRs();
}

std::int16_t AddRecord(Repository& repo, const FamilyBTexts& texts, double number,
                       const std::function<void()>& write_columns) {
  repo.ReadOpen(Fill(texts.number_taken, "{N}", Text(number)));
  if (!repo.NoRow()) {
    repo.rs().Close();
    return 2;
  }
  repo.rs().Close();
  repo.Open(texts.whole_table, 2, 3);
  repo.rs().AddNew();
  write_columns();
  repo.rs().Update();
  repo.rs().Close();
  return 1;
}

std::int16_t DeleteRecord(Repository& repo, const FamilyBTexts& texts, double number,
                          std::int16_t done_value) {
  const std::string n = Text(number);
  repo.Open(Fill(texts.document, "{N}", n), 1, 2);
  if (repo.NoRow()) {
    repo.rs().Close();
    return 0;
  }
  repo.rs().Close();
  repo.Open(Fill(texts.held_by_counter, "{N}", n), 1, 1);
  if (repo.NoRow()) {
    // Not the number the counter holds: it becomes a hole, never issued again.
    repo.rs().Close();
    repo.Open(Fill(texts.delete_unheld, "{N}", n), 1, 4);
    repo.ResetRs();
    return done_value;
  }
  repo.ResetRs();
  repo.Open(Fill(texts.delete_held, "{N}", n), 1, 4);
  repo.ResetRs();
  const std::string p = n.substr(0, 8);
  repo.FreshRs();
  repo.Open(Fill(texts.documents_of_day, "{P}", p), 1, 4);
  if (repo.NoRow()) {
    repo.ResetRs();
    repo.FreshRs();
    repo.Open(Fill(texts.remove_counter, "{P}", p), 1, 4);
  } else {
    repo.FreshRs();
    repo.Open(Fill(texts.lower_counter, "{P}", p), 1, 4);
  }
  repo.ResetRs();
  return done_value;
}

}  // namespace corvane::numbering
