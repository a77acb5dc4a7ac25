// The profile reader that my.ini is read with: sections and keys without
// regard to case, the first section and the first key winning, blanks around
// names and values dropped, matching quotes taken off, no comments after a
// value, the cut at the buffer, and the empty default for whatever is missing.
#include "corvane/frame/internal/profile.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "corvane/frame/host.h"

namespace corvane::internal {
namespace {

namespace fs = std::filesystem;

class ProfileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    static int counter = 0;
    root_ = fs::temp_directory_path() /
            ("cvt_profile_" + std::to_string(getpid()) + "_" + std::to_string(counter++));
    fs::remove_all(root_);
    fs::create_directories(root_);
    path_ = (root_ / "my.ini").string();
  }
  void TearDown() override {
    SetApplicationPath("");
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }

  void Write(const std::string& text) {
    std::ofstream out(path_, std::ios::binary);
    out << text;
  }
  std::string Read(const std::string& section, const std::string& key = "key") {
    return ReadProfileString(section, key, path_);
  }

  fs::path root_;
  std::string path_;
};

TEST_F(ProfileTest, AValueBySectionAndKey) {
  Write("[serverIP]\nkey=10.0.0.7\n[servername]\nkey=tarnwick\n");
  EXPECT_EQ("10.0.0.7", Read("serverIP"));
  EXPECT_EQ("tarnwick", Read("servername"));
}

TEST_F(ProfileTest, AMissingFileSectionOrKeyGivesTheEmptyText) {
  EXPECT_EQ("", Read("serverIP"));  // no file
  Write("[serverIP]\nother=1\n[servername]\nkey=db\n");
  EXPECT_EQ("", Read("serverUID"));            // no section
  EXPECT_EQ("", Read("serverIP"));             // no key in the section
  EXPECT_EQ("", Read("servername", "other"));  // the key of another section
  EXPECT_EQ("", ReadProfileString("serverIP", "key", (root_ / "none" / "my.ini").string()));
}

TEST_F(ProfileTest, SectionAndKeyNamesWithoutRegardToCase) {
  Write("[SERVERIP]\nKEY=upper\n[servername]\nkey=lower\n[ServerUid]\nKey=mixed\n");
  EXPECT_EQ("upper", Read("serverIP"));
  EXPECT_EQ("lower", Read("SERVERNAME", "KEY"));
  EXPECT_EQ("mixed", Read("serverUID"));
  // The value keeps its case.
  Write("[serverPWD]\nkey=SeCrEt\n");
  EXPECT_EQ("SeCrEt", Read("serverpwd"));
}

TEST_F(ProfileTest, TheFirstKeyOfANameWins) {
  Write("[servername]\nkey=first\nKEY=second\n");
  EXPECT_EQ("first", Read("servername"));
}

TEST_F(ProfileTest, OnlyTheFirstSectionOfANameIsSearched) {
  Write("[servername]\nkey=first\n[servername]\nkey=second\n");
  EXPECT_EQ("first", Read("servername"));
  // A key that only a later section of the same name holds is not found.
  Write("[serverUID]\nother=1\n[x]\n[SERVERUID]\nkey=later\n");
  EXPECT_EQ("", Read("serverUID"));
}

TEST_F(ProfileTest, BlanksAroundNamesAndValuesAreDropped) {
  Write("  [ serverIP ]  \r\n \t key \t=  10.0.0.7 \t \r\n[servername]\r\nkey=a b  c\r\n");
  EXPECT_EQ("10.0.0.7", Read("serverIP"));
  EXPECT_EQ("a b  c", Read("servername"));
}

TEST_F(ProfileTest, MatchingQuotesAroundAValueAreTakenOff) {
  Write("[a]\nkey=\"quoted value\"\n[b]\nkey='single'\n[c]\nkey=  \" blanks inside \"  \n"
        "[d]\nkey=\"\"\n[e]\nkey=\"mixed'\n[f]\nkey=\"\n[g]\nkey=in\"side\"\n[h]\nkey='a'b'\n");
  EXPECT_EQ("quoted value", Read("a"));
  EXPECT_EQ("single", Read("b"));
  EXPECT_EQ(" blanks inside ", Read("c"));
  EXPECT_EQ("", Read("d"));
  EXPECT_EQ("\"mixed'", Read("e"));  // quotes that do not match stay
  EXPECT_EQ("\"", Read("f"));        // one quote alone stays
  EXPECT_EQ("in\"side\"", Read("g"));
  EXPECT_EQ("a'b", Read("h"));  // only the outer pair goes
}

TEST_F(ProfileTest, ASemicolonAfterAValueIsPartOfIt) {
  Write("[serverPWD]\nkey=pass;word ; not a comment\n[servername]\nkey=db # nor this\n");
  EXPECT_EQ("pass;word ; not a comment", Read("serverPWD"));
  EXPECT_EQ("db # nor this", Read("servername"));
}

TEST_F(ProfileTest, ALineBeginningWithASemicolonIsNoValue) {
  Write("; the server\n[serverIP]\n;key=commented\nkey=10.0.0.7\n");
  EXPECT_EQ("10.0.0.7", Read("serverIP"));
}

TEST_F(ProfileTest, AKeyWithoutEqualsSignReadsAsTheDefault) {
  Write("[serverIP]\nkey\nkey=later\n");
  EXPECT_EQ("", Read("serverIP"));
}

TEST_F(ProfileTest, AnEqualsSignInTheValueStays) {
  Write("[serverPWD]\nkey = a=b==c\n");
  EXPECT_EQ("a=b==c", Read("serverPWD"));
}

TEST_F(ProfileTest, ABracketWithoutItsCloseIsNoSection) {
  // "[broken" is a line of the section it stands in, so the key after it
  // still belongs to serverIP.
  Write("[serverIP]\n[broken\nkey=10.0.0.7\n");
  EXPECT_EQ("10.0.0.7", Read("serverIP"));
  EXPECT_EQ("", Read("broken"));
  // Text after the close is ignored.
  Write("[serverIP] trailing words\nkey=x\n");
  EXPECT_EQ("x", Read("serverIP"));
}

TEST_F(ProfileTest, ValuesAreCutAtTheBuffer) {
  const std::string v254(254, 'a');
  const std::string v300 = std::string(254, 'b') + std::string(46, 'c');
  Write("[a]\nkey=" + v254 + "\n[b]\nkey=" + v300 + "\n[c]\nkey=\"" + v300 + "\"\n");
  EXPECT_EQ(v254, Read("a"));
  EXPECT_EQ(std::string(254, 'b'), Read("b"));
  // The quotes go first, then the cut.
  EXPECT_EQ(std::string(254, 'b'), Read("c"));
  EXPECT_EQ("bbbb", ReadProfileString("b", "key", path_, 5));
  EXPECT_EQ("", ReadProfileString("b", "key", path_, 1));
  EXPECT_EQ("", ReadProfileString("b", "key", path_, 0));
}

TEST_F(ProfileTest, TheCutCountsBytes) {
  // Values are read as bytes: a character of three bytes counts three.
  std::string value;
  for (int i = 0; i < 100; ++i) value += "塔";
  Write("[a]\nkey=" + value + "\n");
  EXPECT_EQ(value.substr(0, 254), Read("a"));
}

TEST_F(ProfileTest, LineEndsOfEveryKind) {
  Write("[a]\r\nkey=crlf\r\n[b]\nkey=lf\n[c]\nkey=last");
  EXPECT_EQ("crlf", Read("a"));
  EXPECT_EQ("lf", Read("b"));
  EXPECT_EQ("last", Read("c"));
  // Carriage returns alone end lines too.
  Write("[a]\rkey=cr\r[b]\rkey=second\r");
  EXPECT_EQ("cr", Read("a"));
  EXPECT_EQ("second", Read("b"));
}

TEST_F(ProfileTest, AUtf8MarkAtTheStartIsSkipped) {
  Write("\xEF\xBB\xBF[serverIP]\nkey=10.0.0.7\n");
  EXPECT_EQ("10.0.0.7", Read("serverIP"));
}

TEST_F(ProfileTest, AnEmptyValue) {
  Write("[servername]\nkey=\n[serverIP]\nkey=   \n");
  EXPECT_EQ("", Read("servername"));
  EXPECT_EQ("", Read("serverIP"));
}

TEST_F(ProfileTest, TheProfileLiesInTheParentOfTheApplicationPath) {
  SetApplicationPath((root_ / "app").string());
  EXPECT_EQ((root_ / "app").string() + "/../my.ini", ProfilePath());
  fs::create_directories(root_ / "app");
  Write("[serverIP]\nkey=found\n");
  EXPECT_EQ("found", ReadProfileString("serverIP", "key", ProfilePath()));
}

}  // namespace
}  // namespace corvane::internal
