/// \file
/// corvane::Recordset is the recordset the repositories work through: a
/// statement opened over a connection, read row by row, with rows added,
/// changed and deleted in place. It keeps the rules of the recordset the
/// repositories were written against: -1 stands for the value set on the
/// recordset, a statement without rows leaves it closed, the row test is BOF
/// and EOF, and each misuse fails with its own number (error.h).
///
/// Rows stream: they are fetched from the server as the recordset is read.
/// When the connection is needed for another statement while unread rows may
/// still be read, the recordset keeps them in memory; after AddNew they can no
/// longer be reached and are passed over.
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

/// A column of the current row, as Fields.Item(name) hands it out.
class CORVANE_EXPORT Field {
 public:
  /// The value in the current row (or the value written and not yet stored).
  Variant Value() const;
  /// Value().IsNull(), without making the value.
  bool IsNull() const;
  /// The column's name as the statement gave it.
  const std::string& Name() const;
  /// Characters for text, bytes for binary, the size of the type otherwise.
  std::int64_t DefinedSize() const;

 private:
  friend class Recordset;
  friend class NzValue;
  friend class Repository;
  Field(const internal::Rowset* rowset, std::size_t index) : rowset_(rowset), index_(index) {}
  const internal::Rowset* rowset_;
  std::size_t index_;
};

/// A statement opened over a connection, read row by row, with rows added,
/// changed and deleted in place.
class CORVANE_EXPORT Recordset {
 public:
  // Cursor types, lock types and locations.
  static constexpr int kForwardOnly = 0,  ///< Cursor type: forward only, the default.
      kKeyset = 1,                        ///< Cursor type: keyset.
      kDynamic = 2,                       ///< Cursor type: dynamic.
      kStatic = 3;                        ///< Cursor type: static.
  static constexpr int kReadOnly = 1,  ///< Lock type: read only, the default.
      kPessimistic = 2,                ///< Lock type: pessimistic.
      kOptimistic = 3,                 ///< Lock type: optimistic.
      kBatchOptimistic = 4;            ///< Lock type: batch optimistic (UpdateBatch sends).
  static constexpr int kUseServer = 2,  ///< Cursor location: server, the default.
      kUseClient = 3;                   ///< Cursor location: client; RecordCount counts.
  static constexpr int kUnspecified = -1;  ///< An Open argument: the value set on the recordset.

  /// A closed recordset: forward only, read only, cursor on the server.
  Recordset();
  /// Releasing an open recordset closes it; a pending AddNew or edit is
  /// dropped unsaved.
  ~Recordset();
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  // Properties; setting one on an open recordset fails.

  /// Sets the statement that Open() runs; fails on an open recordset.
  void SetSource(std::string source);
  /// Sets the connection that Open() runs over; fails on an open recordset.
  void SetActiveConnection(std::shared_ptr<Connection> connection);
  /// Sets the cursor type (kForwardOnly...kStatic); fails on an open recordset.
  void SetCursorType(int cursor_type);
  /// Sets the lock type (kReadOnly...kBatchOptimistic); fails on an open
  /// recordset.
  void SetLockType(int lock_type);
  /// Sets the cursor location (kUseServer, kUseClient); fails on an open
  /// recordset.
  void SetCursorLocation(int location);
  /// The cursor type last set.
  int CursorType() const { return cursor_type_; }
  /// The lock type last set.
  int LockType() const { return lock_type_; }
  /// The cursor location last set.
  int CursorLocation() const { return cursor_location_; }

  /// Runs source over connection; -1 stands for the value set on the
  /// recordset. A statement that returns no rows is executed and leaves the
  /// recordset closed. Fails on an open recordset.
  void Open(const std::string& source, std::shared_ptr<Connection> connection,
            int cursor_type = kUnspecified, int lock_type = kUnspecified,
            int options = kUnspecified);
  /// Runs the Source over the ActiveConnection with everything defaulted.
  void Open();
  /// Closes the recordset; fails on a closed one, and while a new or changed
  /// row is not yet stored.
  void Close();
  /// 0 closed, 1 open.
  int State() const;

  /// Whether the position is before the first row; fails on a closed recordset.
  bool Bof() const;
  /// Whether the position is after the last row; fails on a closed recordset.
  bool Eof() const;
  /// Moves to the next row; fails at EOF.
  void MoveNext();
  /// With CursorLocation 3 the number of rows; otherwise -1.
  std::int32_t RecordCount() const;

  /// Fields.Item(name): by name without regard to case.
  Field Fields(std::string_view name) const;
  /// Collect(name) = value: writes a column of the current or the new row.
  void SetCollect(std::string_view name, const Variant& value);
  /// The value of column name in the current row: Fields(name).Value().
  Variant Collect(std::string_view name) const { return Fields(name).Value(); }

  /// Starts a new row, whose columns SetCollect then writes and Update stores.
  void AddNew();
  /// Stores the new or changed row; harmless on a row with nothing pending.
  void Update();
  /// Sends what batch optimistic locking held back (affect 3: all rows).
  void UpdateBatch(int affect = 3);
  /// Removes the current row (affect 1); under lock type 4 it waits for
  /// UpdateBatch.
  void Delete(int affect = 1);

 private:
  friend class Repository;  // the NZ read looks at the current row directly
  std::string source_;
  std::shared_ptr<Connection> connection_;
  int cursor_type_ = kForwardOnly;
  int lock_type_ = kReadOnly;
  int cursor_location_ = kUseServer;
  std::unique_ptr<internal::Rowset> rowset_;  // set while open
};

}  // namespace corvane

#endif  // CORVANE_FRAME_RECORDSET_H_
