/// \file
/// clsDataBPriceAttach keeps one file per quotation line, table
/// t_bprice_attach in the attachment database: the business database's name
/// with "_pic" after it, found through my.ini in the parent of the library's
/// folder and reached over a connection of the object's own (cn). The session
/// is opened and closed with the object, but no method uses it.
///
/// Its reports have words of their own: style 0, and a title per method in
/// place of the system's title.
#ifndef CORVANE_QUOTATIONS_QUOTATION_ATTACH_H_
#define CORVANE_QUOTATIONS_QUOTATION_ATTACH_H_

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "corvane/export.h"
#include "corvane/frame/connection.h"
#include "corvane/frame/repository.h"

namespace corvane {

/// The files attached to quotation lines, table t_bprice_attach of the attachment database.
/// \see corvane/quotations/quotation_attach.h for the whole description of the class.
class CORVANE_EXPORT clsDataBPriceAttach : private Repository {
 public:
  /// Opens the session, reads my.ini and opens cn. A failure is reported
  /// (style 0, "塔恩维克") and the object comes into being all the same, with
  /// cn closed.
  clsDataBPriceAttach();
  /// Closes the session, then cn; a failure is reported as in construction.
  ~clsDataBPriceAttach();

  /// Fills AttachArray with the stored value (the file and its trailing zero
  /// byte) when exactly one row holds the line. "1" filled, "2" failure, ""
  /// otherwise, with the array as it was.
  /// A failure shows the failure's description, style 0, title "读取附件出错".
  std::string ReadAttach(std::vector<std::uint8_t>& AttachArray, const std::string& ItemNo,
                         double QuotNo);
  /// The stored file name of the line's first row; "" for no row or failure.
  /// A failure shows the failure's description, style 0, title "取出附件出错".
  std::string GetAttach(const std::string& ItemNo, double QuotNo);
  /// Replaces the line's attachment by the file at FilePath, stored under
  /// FileName: the old one is deleted before the file is read. 1 stored,
  /// 0 failure.
  /// A failure shows the failure's description followed by " 附件要小于1M",
  /// style 0, title "添加附件失败"; a value that does not fit its column shows
  /// the length report.
  std::int16_t AddAttach(const std::string& FilePath, const std::string& FileName,
                         const std::string& ItemNo, double QuotNo);
  /// Removes every row of the line, the large value first. 1 removed, 0 no
  /// such row, 2 failure.
  /// A failure shows the failure's description, style 0, title "附件删除失败".
  std::int16_t DelAttach(const std::string& ItemNo, double QuotNo);

 private:
  // The value of section and key in the profile at path, through a buffer of
  // 255 characters; "" when missing. A failure gives the length report.
  std::string ReadIniValue(const std::string& section, const std::string& key,
                           const std::string& path);
  // cn is created on first use.
  std::shared_ptr<Connection> cn();

  std::shared_ptr<Connection> cn_;
};

}  // namespace corvane

#endif  // CORVANE_QUOTATIONS_QUOTATION_ATTACH_H_
