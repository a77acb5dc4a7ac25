// Key texts read as numbers.
#include "corvane/customers/internal/number_key.h"

#include <cctype>
#include <cstdlib>
#include <string>

#include "corvane/frame/text.h"

namespace corvane::customers {
namespace {

bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

}  // namespace

double LeadingNumber(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  const std::size_t start = i;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  const std::size_t digits = i;
  while (i < text.size() && IsDigit(text[i])) ++i;
  bool any = i > digits;
  if (i < text.size() && text[i] == '.') {
    const std::size_t fraction = ++i;
    while (i < text.size() && IsDigit(text[i])) ++i;
    any = any || i > fraction;
  }
  if (!any) return 0;
  const double value = std::strtod(std::string(text.substr(start, i - start)).c_str(), nullptr);
  return value == 0 ? 0 : value;  // "-0" is 0
}

std::string NumberKey(std::string_view text) { return Text(LeadingNumber(text)); }

}  // namespace corvane::customers
