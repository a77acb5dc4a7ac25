// Data rights under random data: users, rights rows of modules "C" and "S",
// and sales orders drawn with a fixed seed and changed between cases; every
// listing that honours rights compared with a model of the rule written here
// (a user with rows for module "C" sees exactly the orders of the customers
// named, once per matching row; a user without any sees all of them):
// no row shown that the user may not see, none missing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "corvane/orders/order_header.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;

struct RightRow {
  std::string module, user, right;
};
struct Order {
  double no = 0;
  std::optional<std::string> date;  // "yyyy-mm-dd hh:mm:ss"; none is null
  std::optional<std::string> cust;
};

// The months drawn from: more than twelve, so that the limit of the month
// listing matters.
const std::vector<std::string> kMonths = {"2024-11", "2024-12", "2025-01", "2025-02", "2025-03",
                                          "2025-04", "2025-05", "2025-06", "2025-07", "2025-08",
                                          "2025-09", "2025-10", "2025-11", "2025-12", "2026-01",
                                          "2026-02"};
const std::vector<std::string> kUsers = {"ann", "bob", "cai", "dora", "eli", "fay"};
const std::vector<std::string> kCustomers = {"C01", "C02", "C03", "C04", "C05", "C06", "C07"};

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

// How the server compares these texts: without regard to case.
bool SameText(const std::string& a, const std::string& b) { return Lower(a) == Lower(b); }

class RandomRightsTest : public SandboxTest {
 protected:
  std::mt19937 rng_{20261123};

  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
  template <typename T>
  const T& Any(const std::vector<T>& v) {
    return v[static_cast<std::size_t>(Pick(static_cast<int>(v.size())))];
  }

  void AddRight() {
    // Mostly module C; S rows make users that C does not restrict.
    RightRow r{Pick(4) == 0 ? "S" : "C", Any(kUsers), Any(kCustomers)};
    db().Exec("insert into t_dataright values ('" + r.module + "','" + r.user + "','" + r.right +
              "')");
    rights_.push_back(r);
  }
  void RemoveRight() {
    if (rights_.empty()) return;
    const std::size_t i = static_cast<std::size_t>(Pick(static_cast<int>(rights_.size())));
    const RightRow r = rights_[i];
    // One row of possibly several alike.
    db().Exec("delete from t_dataright where F_ModuleID='" + r.module + "' and f_userid='" +
              r.user + "' and f_rightid='" + r.right + "' limit 1");
    rights_.erase(rights_.begin() + static_cast<std::ptrdiff_t>(i));
  }
  void AddOrder() {
    Order o;
    o.no = 20240000000 + ++serial_;
    if (Pick(20) != 0) {
      char text[32];
      std::snprintf(text, sizeof text, "%s-%02d %02d:%02d:00", Any(kMonths).c_str(), 1 + Pick(28),
                    Pick(3) == 0 ? Pick(24) : 0, Pick(60));
      o.date = text;
    }
    // Some orders of customers nobody has a right to, some of no customer.
    if (Pick(15) != 0) o.cust = Pick(6) == 0 ? "C99" : Any(kCustomers);
    char no[32];
    std::snprintf(no, sizeof no, "%.0f", o.no);
    db().Exec(std::string("insert into t_borderh (F_OrderNo,F_OrderDate,F_CustNo) values (") + no +
              "," + (o.date ? "'" + *o.date + "'" : "null") + "," +
              (o.cust ? "'" + *o.cust + "'" : "null") + ")");
    orders_.push_back(o);
  }
  void RemoveOrder() {
    if (orders_.empty()) return;
    const std::size_t i = static_cast<std::size_t>(Pick(static_cast<int>(orders_.size())));
    char no[32];
    std::snprintf(no, sizeof no, "%.0f", orders_[i].no);
    db().Exec(std::string("delete from t_borderh where F_OrderNo=") + no);
    orders_.erase(orders_.begin() + static_cast<std::ptrdiff_t>(i));
  }

  // The model: the rights rows of module C that apply to user.
  std::vector<const RightRow*> CustomerRights(const std::string& user) const {
    std::vector<const RightRow*> out;
    for (const RightRow& r : rights_) {
      if (r.module == "C" && SameText(r.user, user)) out.push_back(&r);
    }
    return out;
  }
  // How many times the user sees order o: once without rights, else once per
  // matching row.
  int Sightings(const Order& o, const std::vector<const RightRow*>& rights) const {
    if (rights.empty()) return 1;
    int n = 0;
    for (const RightRow* r : rights) n += o.cust && SameText(*o.cust, r->right) ? 1 : 0;
    return n;
  }

  // Sorted (number, date text) of the orders of month that user may see.
  std::vector<std::pair<double, std::string>> ExpectedOfMonth(const std::string& month,
                                                               const std::string& user) const {
    const auto rights = CustomerRights(user);
    std::vector<std::pair<double, std::string>> out;
    for (const Order& o : orders_) {
      if (!o.date || o.date->substr(0, 7) != month) continue;
      const int n = Sightings(o, rights);
      const Date d = ParseDate(*o.date).value();
      for (int i = 0; i < n; ++i) out.emplace_back(o.no, Text(d));
    }
    std::sort(out.begin(), out.end());
    return out;
  }
  // The twelve latest months, newest first, of what user may see; a null
  // date is a month that sorts last and reads as the zero date.
  std::vector<std::string> ExpectedMonths(const std::string& user) const {
    const auto rights = CustomerRights(user);
    std::vector<std::string> months;
    bool null_month = false;
    for (const Order& o : orders_) {
      if (Sightings(o, rights) == 0) continue;
      if (!o.date) {
        null_month = true;
      } else {
        months.push_back(o.date->substr(0, 7));
      }
    }
    std::sort(months.begin(), months.end(), std::greater<>());
    months.erase(std::unique(months.begin(), months.end()), months.end());
    std::vector<std::string> out;
    for (const std::string& m : months) out.push_back(Text(ParseDate(m).value()));
    if (null_month) out.push_back(Text(Date()));
    if (out.size() > 12) out.resize(12);
    return out;
  }

  std::vector<RightRow> rights_;
  std::vector<Order> orders_;
  long serial_ = 0;
};

TEST_F(RandomRightsTest, EveryListingShowsExactlyWhatTheRightsAllow) {
  constexpr int kRounds = 130;
  clsDataBOrderh repo;  // one object through all the cases
  long cases = 0, rows_compared = 0, leaked = 0, missing = 0;
  for (int i = 0; i < 40; ++i) AddOrder();
  for (int i = 0; i < 8; ++i) AddRight();

  for (int round = 0; round < kRounds; ++round) {
    // Change some rows between cases.
    const int changes = 1 + Pick(4);
    for (int c = 0; c < changes; ++c) {
      switch (Pick(5)) {
        case 0: AddRight(); break;
        case 1: RemoveRight(); break;
        case 2: RemoveOrder(); break;
        default: AddOrder(); break;
      }
    }
    // Every user, one with other letter case, one never entered, the empty id.
    std::vector<std::string> users = kUsers;
    users.push_back("BOB");
    users.push_back("zed");
    users.push_back("");
    for (const std::string& user : users) {
      for (const std::string& month : {Any(kMonths), Any(kMonths)}) {
        Collection<clsEntBOrderh> coll;
        EXPECT_EQ(0, repo.QueryAllRecordPre(&coll, month, user));
        std::vector<std::pair<double, std::string>> got;
        for (const auto& e : coll) got.emplace_back(e->OrderNo, Text(e->OrderDate));
        std::sort(got.begin(), got.end());
        const auto want = ExpectedOfMonth(month, user);
        // Leaked: shown more often than allowed; missing: shown less often.
        std::vector<std::pair<double, std::string>> extra, lacking;
        std::set_difference(got.begin(), got.end(), want.begin(), want.end(),
                            std::back_inserter(extra));
        std::set_difference(want.begin(), want.end(), got.begin(), got.end(),
                            std::back_inserter(lacking));
        leaked += static_cast<long>(extra.size());
        missing += static_cast<long>(lacking.size());
        EXPECT_TRUE(extra.empty() && lacking.empty())
            << "QueryAllRecordPre " << month << " '" << user << "' round " << round;
        rows_compared += static_cast<long>(want.size());
        ++cases;
      }
      Collection<clsEntBOrderh> months;
      EXPECT_EQ(0, repo.QueryMonthDate(&months, user));
      std::vector<std::string> got;
      for (const auto& e : months) got.push_back(Text(e->OrderDate));
      const auto want = ExpectedMonths(user);
      EXPECT_EQ(want, got) << "QueryMonthDate '" << user << "' round " << round;
      for (const std::string& m : got) {
        if (std::find(want.begin(), want.end(), m) == want.end()) ++leaked;
      }
      for (const std::string& m : want) {
        if (std::find(got.begin(), got.end(), m) == got.end()) ++missing;
      }
      rows_compared += static_cast<long>(want.size());
      ++cases;
    }
  }
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(0, leaked);
  EXPECT_EQ(0, missing);
  EXPECT_GE(cases, 3000);
  std::printf("rights: cases %ld, rows compared %ld, leaked %ld, missing %ld\n", cases,
              rows_compared, leaked, missing);
}

}  // namespace
}  // namespace corvane
