// Data rights under random data, for the listings of customers, quotations,
// cost estimates and outsource orders: users, rights rows of modules "C" and
// "S", and documents drawn with a fixed seed and changed between cases;
// each listing compared with a model of the rule written here (a user with
// rows for the module sees exactly the records whose customer or supplier is
// named, once per matching row where the listing is not distinct; a user
// without any sees all of them): no row shown that the user may not see, none
// missing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "corvane/costing/cost_header.h"
#include "corvane/customers/customer.h"
#include "corvane/outsource/outsource_header.h"
#include "corvane/quotations/quotation_header.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;
using Strings = std::vector<std::string>;

struct RightRow {
  std::string module, user, right;
};
struct Doc {
  double no = 0;
  std::optional<std::string> party;  // customer or supplier; none is null
  std::string item;                  // estimates only
};

const Strings kUsers = {"ann", "bob", "cai", "dora", "eli"};
const Strings kCustomers = {"C01", "C02", "C03", "C04", "C05", "C06"};
const Strings kSuppliers = {"P01", "P02", "P03", "P04"};
const Strings kItems = {"GEAR", "SHAFT", "VALVE"};

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

std::string Number(double no) {
  char text[32];
  std::snprintf(text, sizeof text, "%.0f", no);
  return text;
}

class RandomRightsOthersTest : public SandboxTest {
 protected:
  std::mt19937 rng_{20261124};

  int Pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
  const std::string& Any(const Strings& v) {
    return v[static_cast<std::size_t>(Pick(static_cast<int>(v.size())))];
  }
  std::optional<std::string> Party(const Strings& v) {
    if (Pick(12) == 0) return std::nullopt;
    return Pick(8) == 0 ? std::string("X99") : Any(v);
  }
  static std::string Sql(const std::optional<std::string>& v) {
    return v ? "'" + *v + "'" : "null";
  }

  void AddRight() {
    RightRow r;
    r.module = Pick(2) == 0 ? "C" : "S";
    r.user = Any(kUsers);
    r.right = Any(r.module == "C" ? kCustomers : kSuppliers);
    db().Exec("insert into t_dataright values ('" + r.module + "','" + r.user + "','" + r.right +
              "')");
    rights_.push_back(r);
  }
  void RemoveRight() {
    if (rights_.empty()) return;
    const std::size_t i = static_cast<std::size_t>(Pick(static_cast<int>(rights_.size())));
    const RightRow r = rights_[i];
    db().Exec("delete from t_dataright where F_ModuleID='" + r.module + "' and f_userid='" +
              r.user + "' and f_rightid='" + r.right + "' limit 1");
    rights_.erase(rights_.begin() + static_cast<std::ptrdiff_t>(i));
  }
  void AddDocuments() {
    ++serial_;
    Doc q{20250000000.0 + serial_, Party(kCustomers), ""};
    db().Exec("insert into t_bpriceh (F_QuotNo, F_Custno) values (" + Number(q.no) + "," +
              Sql(q.party) + ")");
    quotations_.push_back(q);
    Doc e{20250000000.0 + serial_, Party(kCustomers), Any(kItems)};
    db().Exec("insert into T_BCosth (F_EstNo, F_ItemNo, F_CustNo) values (" + Number(e.no) +
              ",'" + e.item + "'," + Sql(e.party) + ")");
    estimates_.push_back(e);
    // Outsource numbers: yyyymm of one of fifteen months, then four digits.
    const int month = Pick(15);
    const double no = (202401 + (month / 12) * 100 + month % 12) * 10000.0 + serial_;
    Doc o{no, Party(kSuppliers), ""};
    db().Exec("insert into t_boutmakeh (F_OrderOutNo, F_ProviderNo) values (" + Number(o.no) +
              "," + Sql(o.party) + ")");
    outsource_.push_back(o);
  }
  void AddCustomer() {
    const std::string no = Any(kCustomers) + std::to_string(Pick(3));
    if (std::find(customers_.begin(), customers_.end(), no) != customers_.end()) return;
    db().Exec("insert into t_bcustom (F_custno, F_CreateDate, F_EditDate, F_Status) values ('" +
              no + "', '2025-01-01', '2025-01-02', 0)");
    customers_.push_back(no);
  }

  std::vector<const RightRow*> Rights(const std::string& module, const std::string& user) const {
    std::vector<const RightRow*> out;
    for (const RightRow& r : rights_) {
      if (r.module == module && Lower(r.user) == Lower(user)) out.push_back(&r);
    }
    return out;
  }
  // How many times a record of party is shown: once without rights, else
  // once per matching row.
  static int Sightings(const std::optional<std::string>& party,
                       const std::vector<const RightRow*>& rights) {
    if (rights.empty()) return 1;
    int n = 0;
    for (const RightRow* r : rights) n += party && Lower(*party) == Lower(r->right) ? 1 : 0;
    return n;
  }

  // Counts a comparison of got against want (both sorted).
  template <class T>
  void Compare(const std::vector<T>& got, const std::vector<T>& want, const std::string& what) {
    std::vector<T> extra, lacking;
    std::set_difference(got.begin(), got.end(), want.begin(), want.end(),
                        std::back_inserter(extra));
    std::set_difference(want.begin(), want.end(), got.begin(), got.end(),
                        std::back_inserter(lacking));
    leaked_ += static_cast<long>(extra.size());
    missing_ += static_cast<long>(lacking.size());
    rows_ += static_cast<long>(want.size());
    ++cases_;
    EXPECT_TRUE(extra.empty() && lacking.empty()) << what;
  }

  std::vector<RightRow> rights_;
  std::vector<Doc> quotations_, estimates_, outsource_;
  Strings customers_;
  long serial_ = 0, cases_ = 0, rows_ = 0, leaked_ = 0, missing_ = 0;
};

TEST_F(RandomRightsOthersTest, EveryListingShowsExactlyWhatTheRightsAllow) {
  constexpr int kRounds = 60;
  clsDataBCustom customers;
  clsDataBPriceh quotations;
  clsDataBCosth estimates;
  clsDataBOutMakeh outsource;
  for (int i = 0; i < 30; ++i) AddDocuments();
  for (int i = 0; i < 10; ++i) AddCustomer();
  for (int i = 0; i < 8; ++i) AddRight();

  for (int round = 0; round < kRounds; ++round) {
    for (int c = 1 + Pick(4); c > 0; --c) {
      switch (Pick(4)) {
        case 0: AddRight(); break;
        case 1: RemoveRight(); break;
        case 2: AddCustomer(); break;
        default: AddDocuments(); break;
      }
    }
    Strings users = kUsers;
    users.push_back("BOB");
    users.push_back("zed");
    users.push_back("");
    for (const std::string& user : users) {
      const std::string where = " (user '" + user + "', round " + std::to_string(round) + ")";
      const auto c_rights = Rights("C", user);
      const auto s_rights = Rights("S", user);

      // Customers: QueryAll, and QueryByStrSql whose condition only the
      // unrestricted user gets.
      Strings want_customers;
      for (const std::string& no : customers_) {
        for (int n = Sightings(no, c_rights); n > 0; --n) want_customers.push_back(no);
      }
      std::sort(want_customers.begin(), want_customers.end());
      {
        Collection<clsEntBCustom> coll;
        customers.QueryAll(&coll, user);
        Strings got;
        for (const auto& e : coll) got.push_back(e->custno);
        std::sort(got.begin(), got.end());
        Compare(got, want_customers, "clsDataBCustom.QueryAll" + where);
      }
      {
        const std::string one = Any(kCustomers) + "0";
        Collection<clsEntBCustom> coll;
        customers.QueryByStrSql(" where F_custno='" + one + "'", &coll, user);
        Strings got;
        for (const auto& e : coll) got.push_back(e->custno);
        std::sort(got.begin(), got.end());
        Strings want;
        if (c_rights.empty()) {
          for (const std::string& no : customers_) {
            if (Lower(no) == Lower(one)) want.push_back(no);
          }
        } else {
          want = want_customers;
        }
        Compare(got, want, "clsDataBCustom.QueryByStrSql" + where);
      }

      // Quotations: the distinct customers, ascending (a null one first, as
      // the empty text).
      {
        Collection<clsEntBPriceh> coll;
        quotations.QueryAllCustNo(&coll, user);
        Strings got;
        for (const auto& e : coll) got.push_back(e->Custno);
        std::set<std::string> seen;
        bool null_seen = false;
        for (const Doc& q : quotations_) {
          if (Sightings(q.party, c_rights) == 0) continue;
          if (q.party) {
            seen.insert(*q.party);
          } else {
            null_seen = true;
          }
        }
        Strings want;
        if (null_seen) want.push_back("");
        want.insert(want.end(), seen.begin(), seen.end());
        EXPECT_EQ(want, got) << "clsDataBPriceh.QueryAllCustNo" + where;
        Strings sorted_got = got;
        std::sort(sorted_got.begin(), sorted_got.end());
        Compare(sorted_got, want, "clsDataBPriceh.QueryAllCustNo" + where);
      }

      // Estimates: the numbers of an item, largest first, and the items.
      {
        const std::string item = Any(kItems);
        std::vector<double> got;
        estimates.QueryEstNoByItemNo(got, item, user);
        ASSERT_FALSE(got.empty());
        EXPECT_EQ(0, got[0]);
        got.erase(got.begin());
        EXPECT_TRUE(std::is_sorted(got.rbegin(), got.rend())) << "largest first" << where;
        std::sort(got.begin(), got.end());
        std::vector<double> want;
        for (const Doc& e : estimates_) {
          if (e.item != item) continue;
          for (int n = Sightings(e.party, c_rights); n > 0; --n) want.push_back(e.no);
        }
        std::sort(want.begin(), want.end());
        Compare(got, want, "clsDataBCosth.QueryEstNoByItemNo " + item + where);
      }
      {
        Strings got;
        estimates.QueryItemNo(got, user);
        ASSERT_FALSE(got.empty());
        EXPECT_EQ("", got[0]);
        got.erase(got.begin());
        std::sort(got.begin(), got.end());
        std::set<std::string> items;
        for (const Doc& e : estimates_) {
          if (Sightings(e.party, c_rights) > 0) items.insert(e.item);
        }
        Compare(got, Strings(items.begin(), items.end()), "clsDataBCosth.QueryItemNo" + where);
      }

      // Outsource orders: the twelve latest months, newest first, and the
      // orders of a month.
      {
        Collection<clsEntBOutMakeh> coll;
        outsource.QueryLasted12month(&coll, user);
        std::vector<double> got;
        for (const auto& e : coll) got.push_back(e->OrderoutNo);
        std::set<double, std::greater<>> months;
        for (const Doc& o : outsource_) {
          if (Sightings(o.party, s_rights) > 0) months.insert(std::floor(o.no / 10000));
        }
        std::vector<double> want(months.begin(), months.end());
        if (want.size() > 12) want.resize(12);
        EXPECT_EQ(want, got) << "clsDataBOutMakeh.QueryLasted12month" << where;
        std::sort(got.begin(), got.end());
        std::sort(want.begin(), want.end());
        Compare(got, want, "clsDataBOutMakeh.QueryLasted12month" + where);
      }
      {
        const int m = Pick(15);
        const double month = 202401 + (m / 12) * 100 + m % 12;
        Collection<clsEntBOutMakeh> coll;
        outsource.QueryMonthItem(&coll, Number(month), user);
        std::vector<double> got;
        for (const auto& e : coll) got.push_back(e->OrderoutNo);
        std::sort(got.begin(), got.end());
        std::vector<double> want;
        for (const Doc& o : outsource_) {
          if (std::floor(o.no / 10000) != month) continue;
          for (int n = Sightings(o.party, s_rights); n > 0; --n) want.push_back(o.no);
        }
        std::sort(want.begin(), want.end());
        Compare(got, want, "clsDataBOutMakeh.QueryMonthItem " + Number(month) + where);
      }
    }
  }
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(0, leaked_);
  EXPECT_EQ(0, missing_);
  EXPECT_GE(cases_, 3000);
  std::printf("rights (customers, quotations, estimates, outsource): cases %ld, rows compared "
              "%ld, leaked %ld, missing %ld\n",
              cases_, rows_, leaked_, missing_);
}

}  // namespace
}  // namespace corvane
