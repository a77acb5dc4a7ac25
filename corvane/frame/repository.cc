// The repository frame.
#include "corvane/frame/repository.h"

#include "corvane/frame/internal/rowset.h"

#include <new>

namespace corvane {
namespace {

constexpr char kTitle[] = "塔恩维克";
constexpr char kAlertTitle[] = "错误提示";
constexpr char kLengthWords[] = "你输入的内容超过了允许长度，请检查";
constexpr int kInformation = 64;
constexpr int kCritical = 16;

}  // namespace

Report ReportFor(Handling::Report kind, const Error& failure) {
  switch (kind) {
    case Handling::Report::kLength:
      if (failure.Number() == errc::kMultipleStep) return Report{kLengthWords, kInformation, kTitle};
      return Report{failure.Description(), kInformation, kTitle};
    case Handling::Report::kAlert:
      return Report{failure.Description(), kCritical, kAlertTitle};
    case Handling::Report::kPlain:
      break;
  }
  return Report{failure.Description(), kInformation, kTitle};
}

Repository::Repository() { session().Open(); }

Repository::~Repository() {
  if (!closes_session_) return;
  try {
    session().Close();
  } catch (...) {
    // A failure of the release has no one to go to.
  }
}

Recordset& Repository::FreshRs() {
  auto fresh = std::make_unique<Recordset>();
  rs_.swap(fresh);
  return *rs_;
}

void Repository::ReadOpen(const std::string& sql) {
  rs().SetSource(sql);
  rs().SetActiveConnection(session().Connection());
  rs().Open();
}

void Repository::Open(const std::string& sql, int cursor_type, int lock_type) {
  rs().Open(sql, session().Connection(), cursor_type, lock_type, -1);
}

void Repository::KeysetEdit(const std::string& sql) {
  rs().SetCursorType(Recordset::kKeyset);
  rs().SetLockType(Recordset::kOptimistic);
  rs().Open(sql, session().Connection(), -1, -1, 1);
}

void Repository::KeysetEditByReadOpen(const std::string& sql) {
  rs().SetCursorType(Recordset::kKeyset);
  rs().SetLockType(Recordset::kOptimistic);
  ReadOpen(sql);
}

void Repository::KeysetEditWithDefaults(const std::string& sql) {
  rs().SetCursorType(Recordset::kKeyset);
  rs().SetLockType(Recordset::kOptimistic);
  rs().Open(sql, session().Connection(), -1, -1, -1);
}

NzValue Repository::NzRead(std::string_view null_test_column, std::string_view value_column,
                           const Variant* fallback, const char* fallback_chars) {
  // Everything but the usual read of a walked row, kept out of the way of it:
  // the field fetched and tested, fetched again, the fallback taken if null.
  const auto fetch_twice = [this](std::string_view test_name, std::string_view value_name,
                                  const Variant* value_fallback,
                                  const char* chars_fallback) __attribute__((noinline)) {
    Recordset& r = rs();
    const Field test = r.Fields(test_name);
    const bool is_null = test.IsNull();
    const bool same =
        test_name.data() == value_name.data() && test_name.size() == value_name.size();
    const Field value = same ? test : r.Fields(value_name);
    return is_null ? NzValue(value, value_fallback, chars_fallback) : NzValue(value);
  };
  // The usual read of a row being walked, a name read on the row before: the
  // second fetch of the same name finds the same field, and the cell is
  // looked at once.
  const Recordset* const r = rs_.get();
  if (r == nullptr || !r->rowset_ || null_test_column.data() != value_column.data() ||
      null_test_column.size() != value_column.size()) {
    return fetch_twice(null_test_column, value_column, fallback, fallback_chars);
  }
  const internal::Rowset& rows = *r->rowset_;
  std::size_t i;
  internal::CellView cell;
  if (!rows.Remembered(null_test_column, &i) || !rows.PlainCell(i, &cell)) {
    return fetch_twice(null_test_column, value_column, fallback, fallback_chars);
  }
  const Field field(&rows, i);
  if (!cell) return NzValue(field, fallback, fallback_chars);
  if (rows.column(i).plain_text) return NzValue(field, *cell);
  return NzValue(field);
}

Variant NzValue::Get() const {
  if (!null_) return field_.Value();
  return fallback_ != nullptr ? *fallback_ : Variant(fallback_chars_);
}

std::string NzValue::ConvertToText() && {
  if (null_) {
    if (fallback_chars_ != nullptr) return std::string(fallback_chars_);
  } else {
    std::string text;
    if (field_.rowset_->StoredText(field_.index_, &text)) return text;
  }
  return Get().CStr();
}

Error Repository::CurrentFailure() {
  try {
    throw;
  } catch (const Error& e) {
    return e;
  } catch (const std::bad_alloc&) {
    return Error(7, "Out of memory");
  } catch (const std::exception& e) {
    return Error(errc::kProvider, e.what());
  } catch (...) {
    return Error(errc::kProvider, "Unexpected failure");
  }
}

void Repository::Handle(Handling handling, const Error& failure) {
  if (handling.reset && handling.reset_first) ResetRs();
  ShowReport(ReportFor(handling.report, failure));
  if (handling.reset && !handling.reset_first) ResetRs();
}

}  // namespace corvane
