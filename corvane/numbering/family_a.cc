// The steps of the caller's document numbers.
#include "corvane/numbering/family_a.h"

namespace corvane::numbering {

std::string NumberText(double no) { return Text(Variant(Text(no)).CDbl()); }

std::int16_t QueryMaxItem(Repository& repo, const FamilyATexts& texts,
                          const std::function<void()>& read) {
  repo.ReadOpen(texts.largest);
  std::int16_t result = 0;
  if (!repo.NoRow()) {
    read();
    result = 1;
  }
  repo.rs().Close();
  return result;
}

std::int16_t QueryMaxItemDelete(Repository& repo, const FamilyATexts& texts,
                                const Date& currentdate, const std::function<void()>& read) {
  repo.ReadOpen(Fill(texts.largest_of_day, "{D}", Text(currentdate)));
  std::int16_t result = 0;
  if (!repo.NoRow()) {
    read();
    result = 1;
  }
  repo.rs().Close();
  return result;
}

std::int16_t QueryCondition(Repository& repo, const Date& InvestnoDate,
                            const std::string& TableName, clsEntSitemNo& Entity) {
  repo.ReadOpen("select * from t_sitemno where F_TableName='" + TableName + "'and F_FnDate='" +
                Text(InvestnoDate) + "'");
  std::int16_t result = 0;
  if (!repo.NoRow()) {
    Entity.no = repo.Value("F_No").CDbl();
    result = 1;
  }
  repo.rs().Close();
  return result;
}

std::int16_t StoreDocument(Repository& repo, const FamilyATexts& texts,
                           const std::string& number_text,
                           const std::function<void()>& write_columns) {
  repo.Open(Fill(texts.number_taken, "{N}", number_text), 2, 3);
  if (!repo.NoRow()) {
    repo.rs().Close();
    return 0;
  }
  repo.rs().AddNew();
  write_columns();
  repo.rs().Update();
  repo.rs().Close();
  return 1;
}

void AppendDocument(Repository& repo, const std::string& sql,
                    const std::function<void()>& write_columns) {
  repo.Open(sql, 2, 3);
  repo.rs().AddNew();
  write_columns();
  repo.rs().Update();
  repo.rs().Close();
}

void RememberNumber(Repository& repo, std::int16_t Istatus, const std::string& strTableName,
                    double no, const Date& date) {
  const std::string n = NumberText(no);
  if (Istatus == 0) {
    repo.Open("insert into t_sitemno values ('" + Trim(strTableName) + "' ,'" + n + "','" +
                  Trim(Text(date)) + "')",
              2, 1);
  } else {
    repo.Open("update t_sitemno set F_No='" + n + "' where F_FnDate='" + Text(date) +
                  "' and F_TableName='" + strTableName + "'",
              2, 3);
  }
}

std::int16_t DeleteDocument(Repository& repo, const FamilyATexts& texts,
                            std::int16_t DeleteStatus, const std::string& number_text,
                            const Date& date, const std::string& strTableName) {
  const std::string remove = Fill(texts.delete_document, "{N}", number_text);
  if (DeleteStatus != 1) {
    repo.Open(remove, 2, 3);
    return 1;
  }
  repo.Open(remove, 2, 3);
  repo.ResetRs();
  const std::string d = Text(date);
  repo.Open(Fill(texts.documents_of_day, "{D}", d), 1, 2);
  if (!repo.NoRow()) {
    repo.rs().Close();
    repo.Open("update t_sitemno set F_No= " + Fill(texts.max_of_day, "{D}", d) +
                  " where F_FnDate='" + d + "' and F_TableName='" + strTableName + "'",
              1, 1);
    return 1;
  }
  repo.rs().Close();
  repo.Open("delete from t_sitemno where F_FnDate ='" + d + "' and F_TableName='" +
                strTableName + "'",
            2, 3);
  return 2;
}

}  // namespace corvane::numbering
