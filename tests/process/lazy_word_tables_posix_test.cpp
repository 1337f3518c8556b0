// The first use of XMLUtil in a process: each table of words is built at the first use of that
// table, by reading and by writing, and only once. Where a library's memory comes from the
// program's operator new, the building shows in the count of allocations.

#include <zelstandard/vocabulary/XMLUtil.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "support/Allocations.cpp"

using namespace Standard;

namespace
{

template <class Use> std::size_t allocationsOf(Use use)
{
    const std::size_t before = support::allocations();
    use();
    return support::allocations() - before;
}

} // namespace

TEST(LazyWordTables, AreBuiltOneByOneAndOnce)
{
    // Words too short for the heap, so that only tables are counted.
    const std::string word = "S";
    int value = 0;
    const auto readActionType = [&] {
        value = static_cast<int>(XMLUtil::get()->getActionTypeIDToString(word));
    };
    const std::size_t first = allocationsOf(readActionType);
    EXPECT_EQ(value, 4);
    EXPECT_GE(first, 52u) << "one node for each word of this table";
    EXPECT_LT(first, 80u) << "and none for those of other tables";
    EXPECT_EQ(allocationsOf(readActionType), 0u);

    std::string written;
    const auto writeGroup = [&] {
        written = XMLUtil::get()->getStringToActionGroup(ActionGroupType::S);
    };
    EXPECT_GE(allocationsOf(writeGroup), 12u) << "this table was not built before";
    EXPECT_EQ(allocationsOf(writeGroup), 0u);
    EXPECT_EQ(written, "S");
}
