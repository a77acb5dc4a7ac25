// Quotation attachments.
#include "corvane/quotations/quotation_attach.h"

#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>

#include "corvane/frame/internal/profile.h"

namespace corvane {
namespace {

// The runtime's failures of file access.
constexpr std::int32_t kFileNotFound = 53;
constexpr std::int32_t kFileAccess = 75;

// The reports of this class: style 0, and a title per method.
Report SystemWording(const Error& failure) {
  return Report{failure.Description(), 0, "塔恩维克"};
}
Report ReadAttachWording(const Error& failure) {
  return Report{failure.Description(), 0, "读取附件出错"};
}
Report GetAttachWording(const Error& failure) {
  return Report{failure.Description(), 0, "取出附件出错"};
}
// Whatever the cause, the words blame the size, but for a value that does
// not fit a column.
Report AddAttachWording(const Error& failure) {
  if (failure.Number() == errc::kMultipleStep) return ReportFor(Handling::Report::kLength, failure);
  return Report{failure.Description() + " 附件要小于1M", 0, "添加附件失败"};
}
Report DelAttachWording(const Error& failure) {
  return Report{failure.Description(), 0, "附件删除失败"};
}

// The row of a quotation line, in every method.
std::string LineSql(const std::string& ItemNo, double QuotNo) {
  return "select * from t_bprice_attach where F_ItemNo = '" + ItemNo + "' and F_QuotNo='" +
         Text(QuotNo) + "'";
}

struct FileCloser {
  void operator()(std::FILE* f) const { std::fclose(f); }
};

// The file at path read into a byte array with bounds 0 to its length: one
// element more than the file holds, and that last byte stays 0.
std::vector<std::uint8_t> FileWithTrailingZero(const std::string& path) {
  std::error_code ec;
  const std::uintmax_t length = std::filesystem::file_size(path, ec);
  if (ec) throw Error(kFileNotFound, "File not found");
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(length) + 1);
  const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
  if (!file) throw Error(kFileAccess, "Path/File access error");
  const std::size_t read = std::fread(bytes.data(), 1, static_cast<std::size_t>(length), file.get());
  if (read < length && std::ferror(file.get())) throw Error(kFileAccess, "Path/File access error");
  return bytes;
}

}  // namespace

clsDataBPriceAttach::clsDataBPriceAttach() : Repository(SessionKeptByClass{}) {
  Guard(SystemWording, [&] {
    session().Open();
    const std::string path = internal::ProfilePath();
    std::string server = ReadIniValue("serverIP", "key", path);
    std::string database = ReadIniValue("servername", "key", path);
    const std::string user = ReadIniValue("serverUID", "key", path);
    const std::string password = ReadIniValue("serverPWD", "key", path);
    if (server.empty()) server = "127.0.0.1";
    if (database.empty()) database = "tarnwick";
    database += "_pic";
    cn()->SetConnectionString(std::string("DRIVER={MySQL ODBC 3.51 Driver};PORT=3306;") +
                              "SERVER=" + server + ";" + "DATABASE=" + database + ";" +
                              "UID=" + user + ";PWD=" + password + "; OPTION=3");
    cn()->SetConnectionTimeout(30);
    cn()->Open("", "", "", -1);
  });
}

clsDataBPriceAttach::~clsDataBPriceAttach() {
  Guard(SystemWording, [&] {
    session().Close();
    cn()->Close();
  });
}

std::string clsDataBPriceAttach::ReadAttach(std::vector<std::uint8_t>& AttachArray,
                                            const std::string& ItemNo, double QuotNo) {
  std::string result;
  Guard(ReadAttachWording, [&] {
    rs().SetSource(LineSql(ItemNo, QuotNo));
    rs().SetActiveConnection(cn());
    rs().SetCursorLocation(Recordset::kUseClient);
    rs().Open();
    if (rs().RecordCount() == 1) {
      AttachArray = Nz("F_Attach", std::int16_t{0}).CBytes();
      result = "1";
    }
    rs().Close();
  }, [&] { result = "2"; });
  return result;
}

std::string clsDataBPriceAttach::GetAttach(const std::string& ItemNo, double QuotNo) {
  std::string result;
  Guard(GetAttachWording, [&] {
    rs().SetSource(LineSql(ItemNo, QuotNo));
    rs().SetActiveConnection(cn());
    rs().SetCursorLocation(Recordset::kUseClient);
    rs().Open();
    if (!NoRow()) {
      result = Value("F_FileName").CStr();
    } else {
      result = "";
    }
    rs().Close();
  }, [&] { result = ""; });
  return result;
}

std::int16_t clsDataBPriceAttach::AddAttach(const std::string& FilePath,
                                            const std::string& FileName,
                                            const std::string& ItemNo, double QuotNo) {
  std::int16_t result = 0;
  Guard(AddAttachWording, [&] {
    rs().SetSource(LineSql(ItemNo, QuotNo));
    rs().SetActiveConnection(cn());
    rs().Open();
    if (!NoRow()) {
      rs().Close();
      DelAttach(ItemNo, QuotNo);
    } else {
      rs().Close();
    }
    rs().Open("select * from t_bprice_attach where 1=2", cn(), 2, 3, -1);
    rs().AddNew();
    Write("F_QuotNo", QuotNo);
    Write("F_AttachNo", std::int16_t{1});
    Write("F_ItemNo", ItemNo);
    Write("F_FileName", FileName);
    Write("F_Attach", FileWithTrailingZero(FilePath));
    rs().Update();
    rs().Close();
    result = 1;
  }, [&] { result = 0; });
  return result;
}

std::int16_t clsDataBPriceAttach::DelAttach(const std::string& ItemNo, double QuotNo) {
  std::int16_t result = 0;
  Guard(DelAttachWording, [&] {
    rs().SetCursorType(Recordset::kKeyset);
    rs().SetLockType(Recordset::kOptimistic);
    rs().Open(LineSql(ItemNo, QuotNo), cn(), -1, -1, 1);
    if (NoRow()) {
      rs().Close();
      result = 0;
      return;
    }
    rs().Close();
    rs().Open("update t_bprice_attach set F_Attach=NULL where F_ItemNo = '" + ItemNo +
                  "' and F_QuotNo='" + Text(QuotNo) + "'",
              cn());
    rs().Open("delete from t_bprice_attach where F_ItemNo = '" + ItemNo + "' and F_QuotNo='" +
                  Text(QuotNo) + "'",
              cn(), -1, -1, 1);
    result = 1;
  }, [&] { result = 2; });
  return result;
}

std::string clsDataBPriceAttach::ReadIniValue(const std::string& section, const std::string& key,
                                              const std::string& path) {
  std::string result;
  Guard(kLengthReport, [&] {
    result = internal::ReadProfileString(section, key, path, 255);
  }, [&] { result = ""; });
  return result;
}

std::shared_ptr<Connection> clsDataBPriceAttach::cn() {
  if (!cn_) cn_ = std::make_shared<Connection>();
  return cn_;
}

}  // namespace corvane
