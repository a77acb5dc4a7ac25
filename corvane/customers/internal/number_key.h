// The number a key text stands for, where a study or sample number arrives
// as text: read by its leading digits, as the runtime's Val reads a text.
#ifndef CORVANE_CUSTOMERS_INTERNAL_NUMBER_KEY_H_
#define CORVANE_CUSTOMERS_INTERNAL_NUMBER_KEY_H_

#include <string>
#include <string_view>

namespace corvane::customers {

// Blanks before the number are passed over; then an optional sign, digits
// and an optional point with more digits. Whatever follows is ignored, and a
// text that does not start so gives 0: "00012" -> 12, "12abc" -> 12,
// " 7.5x" -> 7.5, "abc" -> 0, "" -> 0.
double LeadingNumber(std::string_view text);

// The key text as it goes into a statement: LeadingNumber written as the text
// of a number ("00012" -> "12", "abc" -> "0").
std::string NumberKey(std::string_view text);

}  // namespace corvane::customers

#endif  // CORVANE_CUSTOMERS_INTERNAL_NUMBER_KEY_H_
