// UTF-16 (BSTR) to UTF-8 and back.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "corvane/automation/bridge.h"

namespace corvane::automation {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

// The code point at text[i], advancing i; ill-formed input gives U+FFFD.
char32_t NextUtf8(std::string_view text, std::size_t& i) {
  const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
  const unsigned char lead = byte(i++);
  if (lead < 0x80) return lead;
  int more;
  char32_t c;
  char32_t least;
  if ((lead & 0xE0) == 0xC0) {
    more = 1, c = lead & 0x1F, least = 0x80;
  } else if ((lead & 0xF0) == 0xE0) {
    more = 2, c = lead & 0x0F, least = 0x800;
  } else if ((lead & 0xF8) == 0xF0) {
    more = 3, c = lead & 0x07, least = 0x10000;
  } else {
    return kReplacement;
  }
  for (int k = 0; k < more; ++k) {
    if (i >= text.size() || (byte(i) & 0xC0) != 0x80) return kReplacement;
    c = (c << 6) | (byte(i++) & 0x3F);
  }
  if (c < least || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) return kReplacement;
  return c;
}

}  // namespace

std::string ToUtf8(const OLECHAR* s, std::size_t n) {
  std::string out;
  out.reserve(n);
  for (std::size_t i = 0; i < n; ++i) {
    const char16_t unit = s[i];
    if (unit >= 0xD800 && unit <= 0xDBFF && i + 1 < n && s[i + 1] >= 0xDC00 &&
        s[i + 1] <= 0xDFFF) {
      AppendUtf8(out, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{s[i + 1]} - 0xDC00));
      ++i;
    } else if (unit >= 0xD800 && unit <= 0xDFFF) {
      AppendUtf8(out, kReplacement);
    } else {
      AppendUtf8(out, unit);
    }
  }
  return out;
}

BSTR ToBstr(std::string_view utf8) {
  std::u16string units;
  units.reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const char32_t c = NextUtf8(utf8, i);
    if (c >= 0x10000) {
      units += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
      units += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    } else {
      units += static_cast<char16_t>(c);
    }
  }
  return SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
}

}  // namespace corvane::automation
