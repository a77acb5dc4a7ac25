// The key texts of studies and samples read as numbers by their leading
// digits.
#include "corvane/customers/internal/number_key.h"

#include <gtest/gtest.h>

namespace corvane::customers {
namespace {

TEST(NumberKeyTest, LeadingDigitsMakeTheNumber) {
  EXPECT_EQ(12, LeadingNumber("00012"));
  EXPECT_EQ(12, LeadingNumber("12abc"));
  EXPECT_EQ(2026110201, LeadingNumber("2026110201"));
  EXPECT_EQ(7.5, LeadingNumber("  7.5x"));
  EXPECT_EQ(-3, LeadingNumber("-3"));
  EXPECT_EQ(0.5, LeadingNumber(".5"));
  EXPECT_EQ(12, LeadingNumber("12 34"));
}

TEST(NumberKeyTest, TextWithoutLeadingDigitsGives0) {
  EXPECT_EQ(0, LeadingNumber("abc"));
  EXPECT_EQ(0, LeadingNumber(""));
  EXPECT_EQ(0, LeadingNumber("-"));
  EXPECT_EQ(0, LeadingNumber("."));
  EXPECT_EQ(0, LeadingNumber("x12"));
}

TEST(NumberKeyTest, TheKeyIsWrittenAsTheTextOfANumber) {
  EXPECT_EQ("12", NumberKey("00012"));
  EXPECT_EQ("12", NumberKey("12abc"));
  EXPECT_EQ("0", NumberKey("abc"));
  EXPECT_EQ("0", NumberKey("-0"));
  EXPECT_EQ("7.5", NumberKey("7.50"));
  EXPECT_EQ("2026110201", NumberKey("2026110201.0"));
}

}  // namespace
}  // namespace corvane::customers
