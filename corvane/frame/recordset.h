// corvane::Recordset is the recordset the repositories work through: a
// statement opened over a connection, read row by row, with rows added,
// changed and deleted in place. It keeps the rules of the recordset the
// repositories were written against: -1 stands for the value set on the
// recordset, a statement without rows leaves it closed, the row test is BOF
// and EOF, and each misuse fails with its own number (error.h).
//
// Rows stream: they are fetched from the server as the recordset is read.
// When the connection is needed for another statement while unread rows may
// still be read, the recordset keeps them in memory; after AddNew they can no
// longer be reached and are passed over.
#ifndef CORVANE_FRAME_RECORDSET_H_
#define CORVANE_FRAME_RECORDSET_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "corvane/export.h"
#include "corvane/frame/connection.h"
#include "corvane/frame/variant.h"

namespace corvane {
namespace internal {
class Rowset;
}  // namespace internal

class Recordset;
class NzValue;

// A column of the current row, as Fields.Item(name) hands it out.
class CORVANE_EXPORT Field {
 public:
  // The value in the current row (or the value written and not yet stored).
  Variant Value() const;
  // Value().IsNull(), without making the value.
  bool IsNull() const;
  const std::string& Name() const;
  // Characters for text, bytes for binary, the size of the type otherwise.
  std::int64_t DefinedSize() const;

 private:
  friend class Recordset;
  friend class NzValue;
  Field(const internal::Rowset* rowset, std::size_t index) : rowset_(rowset), index_(index) {}
  const internal::Rowset* rowset_;
  std::size_t index_;
};

class CORVANE_EXPORT Recordset {
 public:
  // Cursor types, lock types and locations.
  static constexpr int kForwardOnly = 0, kKeyset = 1, kDynamic = 2, kStatic = 3;
  static constexpr int kReadOnly = 1, kPessimistic = 2, kOptimistic = 3, kBatchOptimistic = 4;
  static constexpr int kUseServer = 2, kUseClient = 3;
  static constexpr int kUnspecified = -1;

  Recordset();
  // Releasing an open recordset closes it; a pending AddNew or edit is
  // dropped unsaved.
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  // Properties; setting one on an open recordset fails.
  void SetSource(std::string source);
  void SetActiveConnection(std::shared_ptr<Connection> connection);
  void SetCursorType(int cursor_type);
  void SetLockType(int lock_type);
  void SetCursorLocation(int location);
  int CursorType() const { return cursor_type_; }
  int LockType() const { return lock_type_; }
  int CursorLocation() const { return cursor_location_; }

  // Runs source over connection; -1 stands for the value set on the
  // recordset. A statement that returns no rows is executed and leaves the
  // recordset closed. Fails on an open recordset.
  void Open(const std::string& source, std::shared_ptr<Connection> connection,
            int cursor_type = kUnspecified, int lock_type = kUnspecified,
            int options = kUnspecified);
  // Runs the Source over the ActiveConnection with everything defaulted.
  void Open();
  void Close();
  // 0 closed, 1 open.
  int State() const;

  bool Bof() const;
  bool Eof() const;
  void MoveNext();
  // With CursorLocation 3 the number of rows; otherwise -1.
  std::int32_t RecordCount() const;

  // Fields.Item(name): by name without regard to case.
  Field Fields(std::string_view name) const;
  // Collect(name) = value: writes a column of the current or the new row.
  void SetCollect(std::string_view name, const Variant& value);
  Variant Collect(std::string_view name) const { return Fields(name).Value(); }

  void AddNew();
  // Stores the new or changed row; harmless on a row with nothing pending.
  void Update();
  // Sends what batch optimistic locking held back (affect 3: all rows).
  void UpdateBatch(int affect = 3);
  // Removes the current row (affect 1); under lock type 4 it waits for
  // UpdateBatch.
  void Delete(int affect = 1);

 private:
  std::string source_;
  std::shared_ptr<Connection> connection_;
  int cursor_type_ = kForwardOnly;
  int lock_type_ = kReadOnly;
  int cursor_location_ = kUseServer;
  std::unique_ptr<internal::Rowset> rowset_;  // set while open
};

}  // namespace corvane

#endif  // CORVANE_FRAME_RECORDSET_H_
