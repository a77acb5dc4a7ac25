// Statement texts with placeholders.
#include "corvane/numbering/texts.h"

namespace corvane::numbering {

std::string Fill(const std::string& text, const std::string& placeholder,
                 const std::string& value) {
  std::string out;
  out.reserve(text.size() + value.size());
  std::size_t pos = 0;
  while (true) {
    const std::size_t at = text.find(placeholder, pos);
    if (at == std::string::npos) break;
    out.append(text, pos, at - pos);
    out += value;
    pos = at + placeholder.size();
  }
  out.append(text, pos, std::string::npos);
  return out;
}

}  // namespace corvane::numbering
