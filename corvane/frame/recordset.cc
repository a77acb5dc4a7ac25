// Recordsets.
#include "corvane/frame/recordset.h"

#include "corvane/frame/error.h"
#include "corvane/frame/internal/link.h"
#include "corvane/frame/internal/rowset.h"

namespace corvane {
namespace {

[[noreturn]] void Closed() {
  throw Error(errc::kObjectClosed, "Operation is not allowed when the object is closed");
}

[[noreturn]] void AlreadyOpen() {
  throw Error(errc::kObjectOpen, "Operation is not allowed when the object is open");
}

}  // namespace

Variant Field::Value() const { return rowset_->Value(index_); }
bool Field::IsNull() const { return rowset_->IsNull(index_); }
const std::string& Field::Name() const { return rowset_->column(index_).name; }
std::int64_t Field::DefinedSize() const { return rowset_->column(index_).DefinedSize(); }

Recordset::Recordset() = default;

Recordset::~Recordset() {
  if (rowset_) rowset_->Abandon();
}

void Recordset::SetSource(std::string source) {
  if (rowset_) AlreadyOpen();
  source_ = std::move(source);
}

void Recordset::SetActiveConnection(std::shared_ptr<Connection> connection) {
  if (rowset_) AlreadyOpen();
  connection_ = std::move(connection);
}

void Recordset::SetCursorType(int cursor_type) {
  if (rowset_) AlreadyOpen();
  cursor_type_ = cursor_type;
}

void Recordset::SetLockType(int lock_type) {
  if (rowset_) AlreadyOpen();
  lock_type_ = lock_type;
}

void Recordset::SetCursorLocation(int location) {
  if (rowset_) AlreadyOpen();
  cursor_location_ = location;
}

void Recordset::Open() { Open(source_, connection_); }

void Recordset::Open(const std::string& source, std::shared_ptr<Connection> connection,
                     int cursor_type, int lock_type, int /*options*/) {
  if (rowset_) AlreadyOpen();
  if (!connection || connection->State() != 1) {
    throw Error(errc::kNoConnection,
                "The connection cannot be used to perform this operation: it is either closed or "
                "invalid");
  }
  // What is given wins over what is set, and stays set.
  if (cursor_type != kUnspecified) cursor_type_ = cursor_type;
  if (lock_type != kUnspecified) lock_type_ = lock_type;
  source_ = source;
  connection_ = connection;
  const bool stream = cursor_location_ != kUseClient;
  MYSQL_RES* result = connection->link().Run(StatementKind::kCommand, source, stream);
  if (result == nullptr) return;  // no rows: executed, and the recordset stays closed
  rowset_ = std::make_unique<internal::Rowset>(connection, result, stream, lock_type_);
}

void Recordset::Close() {
  if (!rowset_) Closed();
  if (rowset_->editing()) {
    throw Error(errc::kNotAllowed,
                "Operation is not allowed in this context: the row being edited is not stored");
  }
  rowset_.reset();
}

int Recordset::State() const { return rowset_ ? 1 : 0; }

bool Recordset::Bof() const {
  if (!rowset_) Closed();
  return rowset_->bof();
}

bool Recordset::Eof() const {
  if (!rowset_) Closed();
  return rowset_->eof();
}

void Recordset::MoveNext() {
  if (!rowset_) Closed();
  rowset_->MoveNext();
}

std::int32_t Recordset::RecordCount() const {
  if (!rowset_) Closed();
  return rowset_->record_count();
}

Field Recordset::Fields(std::string_view name) const {
  if (!rowset_) Closed();
  return Field(rowset_.get(), rowset_->Find(name));
}

void Recordset::SetCollect(std::string_view name, const Variant& value) {
  if (!rowset_) Closed();
  rowset_->Write(rowset_->Find(name), value);
}

void Recordset::AddNew() {
  if (!rowset_) Closed();
  rowset_->AddNew();
}

void Recordset::Update() {
  if (!rowset_) Closed();
  rowset_->Update();
}

void Recordset::UpdateBatch(int /*affect*/) {
  if (!rowset_) Closed();
  rowset_->UpdateBatch();
}

void Recordset::Delete(int /*affect*/) {
  if (!rowset_) Closed();
  rowset_->Delete();
}

}  // namespace corvane
