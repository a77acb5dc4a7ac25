/// \file
/// Document numbers chosen by the caller, remembered per kind and day: the
/// caller fills a document's number and date, and the day's row of t_sitemno
/// (key: table name and date) keeps the last number issued. Outsource orders,
/// quotations, customer studies and samples number their documents this way;
/// each class keeps its own statement texts (they differ in spelling and
/// blanks) and its own reads, and runs the steps below with them. Whether a
/// class writes t_sitemno on add at all is the class's business.
///
/// In the texts, {N} stands for the document number and {D} for a date, both
/// as they go into SQL text.
#ifndef CORVANE_NUMBERING_FAMILY_A_H_
#define CORVANE_NUMBERING_FAMILY_A_H_

#include <cstdint>
#include <functional>
#include <string>

#include "corvane/entities/sitemno.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"
#include "corvane/numbering/texts.h"

/// Document numbers: the steps that keep the day's row of t_sitemno.
namespace corvane::numbering {

/// The statement texts of one class that numbers its documents by the
/// caller's choice.
struct FamilyATexts {
  std::string largest;           ///< the row(s) holding the largest number of the table
  std::string largest_of_day;    ///< {D}: max(number) of the documents of a date
  std::string number_taken;      ///< {N}: the add check, also the rowset appended to
  std::string delete_document;   ///< {N}: the delete, trailing blank included
  std::string documents_of_day;  ///< {D}: what is left of the date after a delete
  std::string max_of_day;        ///< {D}: "(select max(...) ... ='{D}')", the new F_No
};

/// A number turned to text, read back as a number and turned to text again,
/// the way the numbers of t_sitemno and of the deletes are written.
CORVANE_EXPORT std::string NumberText(double no);

/// Read-open of texts.largest; on a row, read fills the entity from it.
/// 1 a row, 0 an empty table; rs closed on both.
CORVANE_EXPORT std::int16_t QueryMaxItem(Repository& repo, const FamilyATexts& texts,
                                         const std::function<void()>& read);

/// Read-open of texts.largest_of_day for currentdate; on a row (a maximum
/// always gives one, null on a date without documents) read takes the value.
/// 1 a row, 0 none; rs closed on both.
CORVANE_EXPORT std::int16_t QueryMaxItemDelete(Repository& repo, const FamilyATexts& texts,
                                               const Date& currentdate,
                                               const std::function<void()>& read);

/// Whether t_sitemno has a row for TableName on InvestnoDate: 1 a row, whose
/// F_No goes into Entity.no with no null test; 0 none. rs closed on both.
CORVANE_EXPORT std::int16_t QueryCondition(Repository& repo, const Date& InvestnoDate,
                                           const std::string& TableName, clsEntSitemNo& Entity);

/// open(2,3) of texts.number_taken for the number: a row there means the
/// number is taken (Close, 0, nothing written); else AddNew, write_columns,
/// Update, Close, 1.
CORVANE_EXPORT std::int16_t StoreDocument(Repository& repo, const FamilyATexts& texts,
                                          const std::string& number_text,
                                          const std::function<void()>& write_columns);

/// open(2,3) of sql (a whole table) and a row appended to it: AddNew,
/// write_columns, Update, Close. The database alone can refuse a number.
CORVANE_EXPORT void AppendDocument(Repository& repo, const std::string& sql,
                                   const std::function<void()>& write_columns);

/// Writes the day's row as the caller says: Istatus 0 inserts a row for
/// (strTableName, date) holding no, any other value points the existing row
/// at no. The insert trims the table name and the date; the update does not.
CORVANE_EXPORT void RememberNumber(Repository& repo, std::int16_t Istatus,
                                   const std::string& strTableName, double no, const Date& date);

/// Deletes document number_text. With DeleteStatus other than 1 that is all
/// (rs stays as the statement left it: closed) and the result is 1. With 1 the
/// day's row of strTableName for date follows the largest number left (1), or
/// is removed when date has no document left (2).
CORVANE_EXPORT std::int16_t DeleteDocument(Repository& repo, const FamilyATexts& texts,
                                           std::int16_t DeleteStatus,
                                           const std::string& number_text, const Date& date,
                                           const std::string& strTableName);

}  // namespace corvane::numbering

#endif  // CORVANE_NUMBERING_FAMILY_A_H_
