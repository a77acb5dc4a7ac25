/// \file
/// Document numbers of the day: the number is the server's date as yyyymmdd
/// followed by a three-digit running number, and the day's row of t_sitemno
/// remembers the last one issued. Sales orders and order changes number their
/// documents this way; each keeps its own statement texts (they differ in
/// spelling and blanks), and the steps below run them.
///
/// In the texts, {N} stands for the document number and {P} for the first
/// eight characters of its text (the day of the document).
#ifndef CORVANE_NUMBERING_FAMILY_B_H_
#define CORVANE_NUMBERING_FAMILY_B_H_

#include <cstdint>
#include <functional>
#include <string>

#include "corvane/entities/sitemno.h"
#include "corvane/export.h"
#include "corvane/frame/repository.h"
#include "corvane/numbering/texts.h"

namespace corvane::numbering {

/// The statement texts of one class that numbers its documents by the day.
struct FamilyBTexts {
  std::string table_name;        ///< "T_BOrderh": the kind in t_sitemno
  std::string query_tf;          ///< documents of today
  std::string last_of_today;     ///< the day's row, if it holds today's largest number
  std::string counter_of_today;  ///< the day's row of t_sitemno
  std::string open_counter;      ///< insert of the day's first row
  std::string advance_counter;   ///< f_no+1 of the day's row
  std::string number_taken;      ///< {N}: the add check
  std::string whole_table;       ///< the rowset to append to
  std::string document;          ///< {N}: the document to delete
  std::string held_by_counter;   ///< {N}: is it the number t_sitemno holds?
  std::string delete_unheld;     ///< {N}: the delete when it is not
  std::string delete_held;       ///< {N}: the delete when it is
  std::string documents_of_day;  ///< {P}
  std::string remove_counter;    ///< {P}: no document of that day left
  std::string lower_counter;     ///< {P}: point the day's row at the largest left
};

/// 1 no document of today, 2 at least one. Uses rs as it stands.
CORVANE_EXPORT std::int16_t QueryTF(Repository& repo, const FamilyBTexts& texts);

/// Fills objQitemh with the day's row, or with yyyymmdd001 of the server's
/// date when the row does not hold today's largest number. fndate_fallback is
/// the default of the NZ read of F_fndate.
CORVANE_EXPORT void QueryChkitemiNo(Repository& repo, const FamilyBTexts& texts,
                                    clsEntSitemNo& objQitemh, const Variant& fndate_fallback);

/// Advances the day's row, or opens it with yyyymmdd001.
CORVANE_EXPORT void UpdateAddSitemNo(Repository& repo, const FamilyBTexts& texts);

/// 1 stored (write_columns writes the columns after AddNew), 2 the number
/// exists and nothing is written.
CORVANE_EXPORT std::int16_t AddRecord(Repository& repo, const FamilyBTexts& texts, double number,
                                      const std::function<void()>& write_columns);

/// Deletes the document and rolls the day's row back to the largest number
/// left, or removes it. Returns done_value when the delete ran, 0 when the
/// number does not exist.
CORVANE_EXPORT std::int16_t DeleteRecord(Repository& repo, const FamilyBTexts& texts, double number,
                                         std::int16_t done_value);

}  // namespace corvane::numbering

#endif  // CORVANE_NUMBERING_FAMILY_B_H_
