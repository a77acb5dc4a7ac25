// clsDataBOrderType against the sandbox server.
#include "corvane/orders/order_type.h"

#include <gtest/gtest.h>

#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;

class OrderTypeTest : public SandboxTest {};

TEST_F(OrderTypeTest, AddThenListThenRenameThenDelete) {
  clsDataBOrderType repo;
  clsEntBOrderType e{"Export"};
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(repo.AddRecord(e), 2);
  Collection<clsEntBOrderType> all;
  EXPECT_EQ(repo.QueryAll(&all), 0);
  ASSERT_EQ(all.Count(), 1u);
  EXPECT_EQ(all.Item(1).OrderType, "Export");
  clsEntBOrderType renamed{"Domestic"};
  EXPECT_EQ(repo.UpdateRecord(renamed, "Export"), 1);
  EXPECT_EQ(repo.DeleteRecord(renamed), 0);
  for (const auto& s : Sent()) std::cout << static_cast<int>(s.kind) << " [" << s.text << "]\n";
  for (const auto& r : Reports()) std::cout << r.text << "\n";
  EXPECT_EQ(db().Count("t_bordertype"), 0);
}

}  // namespace
}  // namespace corvane
