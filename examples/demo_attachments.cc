// The road of a quotation attachment: a my.ini written beside a folder that
// stands for the library's own, a file stored as the attachment of a
// quotation line in the attachment database "<business database>_pic", its
// name and content read back and compared, a replacement, and the removal.
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "examples/demo.h"

namespace demo {
namespace {

namespace fs = std::filesystem;
using namespace corvane;

// The value of an item of a connection text ("DATABASE=..."), or "".
std::string Item(const std::string& text, const std::string& name) {
  std::istringstream items(text);
  std::string item;
  while (std::getline(items, item, ';')) {
    const auto eq = item.find('=');
    if (eq == std::string::npos) continue;
    std::string key = item.substr(0, eq);
    for (char& c : key) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    if (key == name) return item.substr(eq + 1);
  }
  return "";
}

// my.ini for the business database the session uses: the attachment
// database is found from it. Without a connection text the session reads
// my.ini already, and that file is copied as it is.
std::string IniText() {
  const std::string text = SessionConnectionString();
  if (text.empty()) {
    std::ifstream in(ApplicationPath() + "/../my.ini", std::ios::binary);
    std::stringstream copy;
    copy << in.rdbuf();
    return copy.str();
  }
  return "[serverIP]\r\nkey=" + Item(text, "SERVER") + "\r\n[servername]\r\nkey=" +
         Item(text, "DATABASE") + "\r\n[serverUID]\r\nkey=" + Item(text, "UID") +
         "\r\n[serverPWD]\r\nkey=" + Item(text, "PWD") + "\r\n";
}

std::vector<std::uint8_t> Write(const fs::path& path, const std::string& content) {
  std::ofstream out(path, std::ios::binary);
  out << content;
  return std::vector<std::uint8_t>(content.begin(), content.end());
}

}  // namespace

void Attachments() {
  Section("Quotation attachments");
  // A folder that stands for the library's, with my.ini in its parent.
  const fs::path root = fs::temp_directory_path() / ("corvane_demo_" + std::to_string(getpid()));
  fs::create_directories(root / "lib");
  SetApplicationPath((root / "lib").string());
  {
    std::ofstream ini(root / "my.ini", std::ios::binary);
    ini << IniText();
  }
  std::cout << "my.ini written at " << (root / "my.ini").string() << "; the application path is "
            << ApplicationPath() << "\n";

  const double quot = 20260315001;
  const std::string item = "A-1001";
  const std::vector<std::uint8_t> drawing =
      Write(root / "drawing.txt", "Quotation 20260315001, item A-1001: drawing rev. B\n");
  const std::vector<std::uint8_t> revised =
      Write(root / "drawing-c.txt", "Quotation 20260315001, item A-1001: drawing rev. C, O'Neil's changes\n");
  {
    clsDataBPriceAttach attach;  // reads my.ini, opens <database>_pic
    Call("AddAttach drawing.txt to line 20260315001 / A-1001", [&] {
      return attach.AddAttach((root / "drawing.txt").string(), "drawing.txt", item, quot);
    });
    Call("GetAttach", [&] { return attach.GetAttach(item, quot); });
    std::vector<std::uint8_t> stored;
    const std::string read = Call("ReadAttach", [&] { return attach.ReadAttach(stored, item, quot); });
    std::vector<std::uint8_t> expected = drawing;
    expected.push_back(0);  // the stored value is the file and one zero byte
    std::cout << "     " << stored.size() << " bytes read back for a file of " << drawing.size()
              << ": " << (read == "1" && stored == expected ? "the file and its trailing zero byte"
                                                            : "DIFFERENT")
              << "\n";

    Call("AddAttach drawing-c.txt replaces it (the old one is deleted first)", [&] {
      return attach.AddAttach((root / "drawing-c.txt").string(), "drawing-c.txt", item, quot);
    });
    Call("GetAttach", [&] { return attach.GetAttach(item, quot); });
    stored.clear();
    Call("ReadAttach", [&] { return attach.ReadAttach(stored, item, quot); });
    expected = revised;
    expected.push_back(0);
    std::cout << "     " << (stored == expected ? "equal to drawing-c.txt and its zero byte"
                                                : "DIFFERENT")
              << "\n";

    Call("AddAttach of a file that is not there (the old attachment is lost)", [&] {
      return attach.AddAttach((root / "missing.txt").string(), "missing.txt", item, quot);
    });
    Call("GetAttach", [&] { return attach.GetAttach(item, quot); });
    Call("AddAttach drawing.txt again", [&] {
      return attach.AddAttach((root / "drawing.txt").string(), "drawing.txt", item, quot);
    });
    Call("DelAttach", [&] { return attach.DelAttach(item, quot); });
    Call("DelAttach again (no row)", [&] { return attach.DelAttach(item, quot); });
    stored.assign({1, 2, 3});
    Call("ReadAttach of a line without attachment (the array stays)", [&] {
      return attach.ReadAttach(stored, item, quot);
    });
    std::cout << "     the array still holds " << stored.size() << " bytes\n";
  }
  SetApplicationPath("");  // back to the library's own folder
  std::error_code ignored;
  fs::remove_all(root, ignored);
}

}  // namespace demo
