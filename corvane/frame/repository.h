/// \file
/// The frame every repository class stands on: its two members, session and
/// rs, the open modes, the row test, the NZ read, the column write, the
/// collection fill, and the method guard with its three reports. A repository
/// method is written as the steps of its statement: the text, the open mode,
/// the row test, the column copies, the result.
///
/// \code
///   std::int16_t clsDataBOrderType::AddRecord(clsEntBOrderType& Entity) {
///     std::int16_t result = 0;
///     Guard(kLengthReport, [&] {
///       ReadOpen("select * from T_BOrderType where F_OrderType = '" + Entity.OrderType + "'");
///       ...
///     }, [&] { result = 0; });
///     return result;
///   }
/// \endcode
#ifndef CORVANE_FRAME_REPOSITORY_H_
#define CORVANE_FRAME_REPOSITORY_H_

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "corvane/export.h"
#include "corvane/frame/collection.h"
#include "corvane/frame/date.h"
#include "corvane/frame/error.h"
#include "corvane/frame/recordset.h"
#include "corvane/frame/report.h"
#include "corvane/frame/session.h"
#include "corvane/frame/text.h"
#include "corvane/frame/variant.h"

namespace corvane {

/// What an NZ read gives: the field's value, or the fallback when the field
/// was null, converted to the target type only when the conversion is asked
/// for (text read straight from the row, without a value in between). It is
/// converted at once, in the expression of the read: Nz(...).CStr().
class CORVANE_EXPORT NzValue {
 public:
  NzValue(const NzValue&) = delete;
  NzValue& operator=(const NzValue&) = delete;

  /// As text, read straight from the row when the field was not null; the
  /// failures of Variant::CStr.
  std::string CStr() && {
    if (has_stored_text_) return std::string(stored_text_);
    return std::move(*this).ConvertToText();
  }
  /// As a double, with the failures of Variant::CDbl.
  double CDbl() && { return Get().CDbl(); }
  /// As a 16-bit integer, with the failures of Variant::CInt.
  std::int16_t CInt() && { return Get().CInt(); }
  /// As a 32-bit integer, with the failures of Variant::CLng.
  std::int32_t CLng() && { return Get().CLng(); }
  /// As a date, with the failures of Variant::CDate.
  Date CDate() && { return Get().CDate(); }
  /// As a Boolean, with the failures of Variant::CBool.
  bool CBool() && { return Get().CBool(); }
  /// As a byte array, with the failures of Variant::CBytes.
  std::vector<std::uint8_t> CBytes() && { return Get().CBytes(); }
  /// The value unconverted.
  operator Variant() && { return Get(); }

 private:
  friend class Repository;
  // The field's own value.
  explicit NzValue(const Field& field) : field_(field) {}
  // The fallback, the field being null: a value, or the characters of a text.
  NzValue(const Field& field, const Variant* fallback, const char* fallback_chars)
      : field_(field), fallback_(fallback), fallback_chars_(fallback_chars), null_(true) {}
  NzValue(const Field& field, std::string_view stored_text)
      : field_(field), stored_text_(stored_text), has_stored_text_(true) {}
  // The value as the runtime has it.
  Variant Get() const;
  // CStr() where the cell's characters are not at hand.
  std::string ConvertToText() &&;

  Field field_;
  const Variant* fallback_ = nullptr;
  const char* fallback_chars_ = nullptr;
  bool null_ = false;  // the field was null: the fallback stands
  // The characters of a text cell of the current row, where the read found
  // them already: CStr() copies them and asks nothing more.
  std::string_view stored_text_;
  bool has_stored_text_ = false;
};

/// The report a method shows when it fails, and how its handler treats rs.
struct Handling {
  /// The three reports.
  enum class Report {
    kPlain,   ///< the plain report
    kLength,  ///< the length report
    kAlert    ///< the alert report
  };
  Report report = Report::kPlain;  ///< The report shown.
  bool reset = true;         ///< the handler sets rs to nothing
  bool reset_first = false;  ///< ... before the message box rather than after

  /// The same handling with rs reset before the message box.
  constexpr Handling ResetFirst() const { return Handling{report, reset, true}; }
  /// The same report with rs left as the failure found it.
  constexpr Handling WithoutReset() const { return Handling{report, false, false}; }
};

/// Plain report: the failure's description, style 64, title "塔恩维克".
inline constexpr Handling kPlainReport{Handling::Report::kPlain};
/// Length report: fixed words for a value that does not fit, else as plain.
inline constexpr Handling kLengthReport{Handling::Report::kLength};
/// Alert report: the failure's description, style 16, title "错误提示".
inline constexpr Handling kAlertReport{Handling::Report::kAlert};

/// The report a handling shows for a failure.
CORVANE_EXPORT Report ReportFor(Handling::Report kind, const Error& failure);

/// The base of every repository class. Its operations are public so that the
/// shared mechanisms (numbering, rights) can run them on a repository; the
/// classes inherit privately, so none of it is visible to their clients.
class CORVANE_EXPORT Repository {
 public:
  Repository(const Repository&) = delete;
  Repository& operator=(const Repository&) = delete;

  /// The session: opened in construction, closed in destruction.
  clsDbSession& session() { return session_; }
  /// rs is created on first use: every use finds one.
  Recordset& rs() {
    if (!rs_) rs_ = std::make_unique<Recordset>();
    return *rs_;
  }
  /// Sets rs to nothing; an open recordset closes with its release.
  void ResetRs() { rs_.reset(); }
  /// Replaces rs by a new recordset.
  Recordset& FreshRs();

  // The open modes.

  /// The read-open: Source and ActiveConnection set, then Open with everything
  /// defaulted.
  void ReadOpen(const std::string& sql);
  /// open(c,l): Open with the text, the connection, c, l and options -1.
  void Open(const std::string& sql, int cursor_type, int lock_type);
  /// CursorType 1 and LockType 3 set, then Open with -1, -1 and options 1.
  void KeysetEdit(const std::string& sql);
  /// CursorType 1 and LockType 3 set, then a read-open.
  void KeysetEditByReadOpen(const std::string& sql);
  /// CursorType 1 and LockType 3 set, then Open with -1, -1 and -1.
  void KeysetEditWithDefaults(const std::string& sql);

  /// The row test: BOF and EOF both true.
  bool NoRow() { return rs().Bof() && rs().Eof(); }

  /// The NZ read: the field fetched and tested for null, fetched again, the
  /// fallback taken when it was null. Convert the result with C...().
  NzValue Nz(std::string_view column, const Variant& fallback) {
    return NzRead(column, column, &fallback, nullptr);
  }
  /// The NZ read with a text fallback, which stays characters until a
  /// conversion needs a value.
  template <std::size_t N>
  NzValue Nz(std::string_view column, const char (&fallback)[N]) {
    return NzRead(column, column, nullptr, fallback);
  }
  /// The same where the null test and the value name the column differently.
  NzValue Nz(std::string_view null_test_column, std::string_view value_column,
             const Variant& fallback) {
    return NzRead(null_test_column, value_column, &fallback, nullptr);
  }
  /// The same, with a text fallback.
  template <std::size_t N>
  NzValue Nz(std::string_view null_test_column, std::string_view value_column,
             const char (&fallback)[N]) {
    return NzRead(null_test_column, value_column, nullptr, fallback);
  }
  /// A read with no null test.
  Variant Value(std::string_view column) { return rs().Fields(column).Value(); }
  /// A column write: rs.Collect(column) = value.
  void Write(std::string_view column, const Variant& value) { rs().SetCollect(column, value); }

  /// Appends entity at the end of the caller's collection, with no key; a
  /// null collection fails with object required.
  template <class T>
  static void AddTo(Collection<T>* collection, std::shared_ptr<T> entity) {
    if (collection == nullptr) throw Error(errc::kObjectRequired, "Object required");
    collection->Add(std::move(entity));
  }

  /// Where the collection fill adds an entity to the collection.
  enum class AddOrder {
    kAfterMoveNext,   ///< after MoveNext, the usual order
    kBeforeMoveNext   ///< before MoveNext
  };
  /// The collection fill: while not EOF, a new entity, the reads, MoveNext,
  /// the entity added at the end of the caller's collection (a null collection
  /// fails with object required); then Close.
  template <class T, class Reads>
  void FillCollection(Collection<T>* collection, Reads&& reads,
                      AddOrder order = AddOrder::kAfterMoveNext) {
    while (!rs().Eof()) {
      auto entity = std::make_shared<T>();
      reads(*entity);
      if (order == AddOrder::kBeforeMoveNext) AddTo(collection, entity);
      rs().MoveNext();
      if (order == AddOrder::kAfterMoveNext) AddTo(collection, std::move(entity));
    }
    rs().Close();
  }

  /// The method guard: runs body; a failure of any kind runs on_failure (the
  /// result's failure value), shows the report, resets rs as handling says,
  /// and ends the method.
  template <class Body, class OnFailure>
  void Guard(Handling handling, Body&& body, OnFailure&& on_failure) {
    try {
      body();
    } catch (...) {
      const Error failure = CurrentFailure();
      on_failure();
      Handle(handling, failure);
    }
  }
  /// The method guard with no failure value to set.
  template <class Body>
  void Guard(Handling handling, Body&& body) {
    Guard(handling, std::forward<Body>(body), [] {});
  }

  /// The words of a class's own report for a failure.
  using Wording = Report (*)(const Error& failure);
  /// The method guard of a class whose reports have words of their own: the
  /// report is what wording makes of the failure; rs is reset after it.
  template <class Body, class OnFailure>
  void Guard(Wording wording, Body&& body, OnFailure&& on_failure) {
    try {
      body();
    } catch (...) {
      const Error failure = CurrentFailure();
      on_failure();
      ShowReport(wording(failure));
      ResetRs();
    }
  }
  /// The guard with words of its own and no failure value to set.
  template <class Body>
  void Guard(Wording wording, Body&& body) {
    Guard(wording, std::forward<Body>(body), [] {});
  }

 protected:
  /// Opens the session; a failure leaves the constructor.
  Repository();
  /// For a class that opens and closes the session itself, under its own
  /// guard: the session is neither opened here nor closed by ~Repository.
  struct SessionKeptByClass {};
  /// A repository whose class opens and closes the session itself.
  explicit Repository(SessionKeptByClass) : closes_session_(false) {}
  /// Closes the session (unless the class keeps it); rs is released after it.
  ~Repository();

 private:
  // The failure in flight as a corvane::Error.
  static Error CurrentFailure();
  // The NZ read, with the fallback as a value or as the characters of a text.
  NzValue NzRead(std::string_view null_test_column, std::string_view value_column,
                 const Variant* fallback, const char* fallback_chars);
  void Handle(Handling handling, const Error& failure);

  clsDbSession session_;
  std::unique_ptr<Recordset> rs_;
  bool closes_session_ = true;
};

}  // namespace corvane

#endif  // CORVANE_FRAME_REPOSITORY_H_
